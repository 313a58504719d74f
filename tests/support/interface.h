// Every function of the interface, so that tests can call all of them with any arguments.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "orvel.h"

namespace orvel_test {

/// What a host passes beside its objects, in the order of the parameters. A text may be null.
struct HostArguments {
    std::vector<int> ints = {};
    std::vector<double> doubles = {};
    std::vector<const char*> texts = {};
};

/// The objects that a host passes.
struct Stage {
    orvel_canvas* canvas;
    orvel_widget* widget;
    orvel_theme* theme;
    std::vector<double> data;  // of a chart
    orvel_color colors[3];     // in the order of the parameters
};

/// What a function returned, in the field of its type.
struct Returned {
    int number = 0;
    orvel_color color = {0, 0, 0, 0};
    orvel_canvas* canvas = nullptr;
    orvel_widget* widget = nullptr;
};

struct HostFunction {
    const char* name;
    void (*address)();
    HostArguments usual;  // some that are in order, one for every parameter of these types
    std::size_t ints, doubles, texts;  // parameters of these types, as the compiler counts them
    std::function<Returned(Stage&, const HostArguments&)> call;
};

const std::vector<HostFunction>& host_functions();

/// The function of this name, which must be in the table.
const HostFunction& host_function(const std::string& name);

}  // namespace orvel_test
