// Doubles to integers, the same on every processor.
#pragma once

#include <limits>

namespace orvel {

/// @p value rounded toward zero; NaN is 0, and what int cannot hold is the nearest that it can.
/// (The plain conversion of such a value is undefined and differs between processors.)
constexpr int trunc(double value) {
    constexpr int low = std::numeric_limits<int>::min();
    constexpr int high = std::numeric_limits<int>::max();
    if (value != value) return 0;
    if (value <= low) return low;
    if (value >= high) return high;
    return static_cast<int>(value);
}

}  // namespace orvel
