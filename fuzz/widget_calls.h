// Widgets made, changed and drawn by the bytes of an input, and what they should then hold.
#pragma once

#include <memory>
#include <string>

#include "input.h"
#include "models/widget_model.h"

namespace fuzz {

struct DestroyWidget {
    void operator()(orvel_widget* widget) const { orvel_widget_destroy(widget); }
};

/// A widget of the library's and the state that it should have.
struct WidgetPair {
    std::unique_ptr<orvel_widget, DestroyWidget> actual;
    orvel_test::WidgetState expected;
};

/// Of a constructor; each kind takes some of them.
struct Arguments {
    int kind;
    std::string text, icon;
    int x, y, w, h, number;
    double value;
};

WidgetPair make_widget(const Arguments& a, orvel_canvas* canvas, const orvel_theme* theme);

/// Makes a widget of any kind and calls up to three of its setters.
WidgetPair any_widget(Input& input, orvel_canvas* canvas, const orvel_theme* theme);

/// One of the built-in names, or no name of an icon.
std::string any_icon(Input& input);

}  // namespace fuzz
