// A function of the interface, called with any arguments.
#pragma once

#include <functional>
#include <tuple>
#include <type_traits>
#include <utility>
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
    orvel_canvas* canvas = nullptr;
    orvel_widget* widget = nullptr;
    orvel_theme* theme = nullptr;
    std::vector<double> data = {};  // of a chart
    orvel_color colors[3] = {};     // in the order of the parameters
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

/// Deals out the objects and arguments by the types of the parameters, from left to right.
class Dealer {
public:
    Dealer(Stage& stage, const HostArguments& arguments) : stage_(stage), arguments_(arguments) {}

    template <typename Parameter>
    Parameter next() {
        using Object = std::remove_const_t<std::remove_pointer_t<Parameter>>;
        if constexpr (std::is_same_v<Parameter, int>) {
            return arguments_.ints[ints_++];
        } else if constexpr (std::is_same_v<Parameter, double>) {
            return arguments_.doubles[doubles_++];
        } else if constexpr (std::is_same_v<Parameter, const char*>) {
            return arguments_.texts[texts_++];
        } else if constexpr (std::is_same_v<Parameter, orvel_color>) {
            return stage_.colors[colors_++];
        } else if constexpr (std::is_same_v<Parameter, const double*>) {
            return stage_.data.data();
        } else if constexpr (std::is_same_v<Parameter, int*>) {
            return &count_;
        } else if constexpr (std::is_same_v<Object, orvel_canvas>) {
            return stage_.canvas;
        } else if constexpr (std::is_same_v<Object, orvel_widget>) {
            return stage_.widget;
        } else {
            static_assert(std::is_same_v<Object, orvel_theme>);
            return stage_.theme;
        }
    }

private:
    Stage& stage_;
    const HostArguments& arguments_;
    std::size_t ints_ = 0, doubles_ = 0, texts_ = 0, colors_ = 0;
    int count_ = 0;
};

inline Returned returned(int number) { return {.number = number}; }
inline Returned returned(orvel_color color) { return {.color = color}; }
inline Returned returned(orvel_canvas* canvas) { return {.canvas = canvas}; }
inline Returned returned(orvel_widget* widget) { return {.widget = widget}; }
inline Returned returned(const void*) { return {}; }

template <typename Wanted, typename... Parameters>
constexpr std::size_t count_of() {
    return (std::size_t{0} + ... + std::size_t{std::is_same_v<Parameters, Wanted>});
}

template <typename Result, typename... Parameters>
HostFunction host_function(const char* name, Result (*address)(Parameters...),
                           HostArguments usual = {}) {
    const auto call = [address](Stage& stage, const HostArguments& arguments) -> Returned {
        [[maybe_unused]] Dealer dealer(stage, arguments);
        const std::tuple<Parameters...> dealt{dealer.next<Parameters>()...};
        if constexpr (std::is_void_v<Result>) {
            std::apply(address, dealt);
            return {};
        } else {
            return returned(std::apply(address, dealt));
        }
    };
    return {name,
            reinterpret_cast<void (*)()>(address),
            std::move(usual),
            count_of<int, Parameters...>(),
            count_of<double, Parameters...>(),
            count_of<const char*, Parameters...>(),
            call};
}

}  // namespace orvel_test
