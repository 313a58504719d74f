// Charts for tests, from values.
#pragma once

#include <limits>
#include <vector>

#include "orvel_kit.h"

namespace orvel_test {

constexpr double kMissing = std::numeric_limits<double>::quiet_NaN();
constexpr orvel_color kA = {10, 20, 30, 255};  // of a series

inline orvel_theme dark() {
    orvel_theme theme;
    orvel_theme_default(&theme);
    return theme;
}

inline kit_series series(const std::vector<double>& values, orvel_color color = kA) {
    return {.values = values.data(), .count = static_cast<int>(values.size()), .color = color};
}

}  // namespace orvel_test
