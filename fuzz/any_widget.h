// Widgets made and changed by the bytes of an input.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "input.h"
#include "widgets/kinds.h"

namespace fuzz {

/// A widget of any kind and up to three calls of its setters, to be made on any canvas.
struct AnyWidget {
    int kind;
    std::string text, icon;
    std::vector<int> numbers;
    double value;
    std::vector<std::function<void(orvel_widget*)>> changes = {};

    orvel_test::WidgetPtr make(orvel_canvas* canvas, orvel_theme* theme) const;
};

/// By five numbers and a fraction, of which each kind takes some.
AnyWidget any_widget(Input& input, int kind, const std::string& text, const std::string& icon);

/// By everything that it may hold.
AnyWidget any_changed_widget(Input& input);

int any_kind(Input& input);

/// One of the built-in names, or no name of an icon.
std::string any_icon(Input& input);

}  // namespace fuzz
