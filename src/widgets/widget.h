// The widget record. Only the constructors, the setters and the drawing touch it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "orvel.h"

struct orvel_widget {
    std::int32_t kind = ORVEL_WIDGET_WINDOW;
    orvel_canvas* canvas = nullptr;      // borrowed
    const orvel_theme* theme = nullptr;  // borrowed, and read at every draw
    std::string text;
    std::string icon_name;  // of a list item
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t w = 0;
    std::int32_t h = 0;
    std::int32_t hover = 0;    // 0 or 1
    std::int32_t active = 0;   // 0 or 1
    std::int32_t amount = 0;   // a number, or the index of the selected item
    double value = 0.0;        // 0 to 1, or NaN
    std::vector<double> data;  // of a bar chart
};

namespace orvel {

/// @p value clamped to [0, 1]; NaN stays NaN.
inline double clamp_to_unit(double value) {
    if (value > 1.0) return 1.0;
    if (value < 0.0) return 0.0;
    return value;
}

}  // namespace orvel
