// Widgets restated as lists of drawing calls, without a line of the library's own recipes.
#pragma once

#include <string>
#include <vector>

#include "orvel.h"

namespace orvel_test {

/// All that a widget shows.
struct WidgetState {
    int kind = 0;
    std::string text, icon_name;
    int x = 0, y = 0, w = 0, h = 0;
    bool hover = false, active = false;
    int amount = 0;
    double value = 0;
    std::vector<double> data;
};

/// One call of a public drawing function. The numbers are its arguments in order.
struct Call {
    enum Function { kFill, kFrame, kLine, kRing, kDisc, kTriangle, kWrite, kIcon, kBitmap };
    Function function;
    std::vector<int> numbers;
    std::string text;
    orvel_color color;
};

/// The calls that draw the widget, in order.
std::vector<Call> widget_calls(const WidgetState& widget, const orvel_theme& theme);

void perform(const std::vector<Call>& calls, orvel_canvas* canvas);

}  // namespace orvel_test
