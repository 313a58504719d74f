// From values to pixels: ranges, round numbers, places.
#pragma once

#include <cstdint>
#include <string>

namespace kit {

constexpr double kLargestShown = 1e15;  // nobody reads more digits

/// A range of values, low below high, and the places of values on a length of pixels. Values are
/// counted in integers of a unit, a power of two so small that the larger end is exact.
class Scale {
public:
    Scale(double low, double high);

    /// @p value in units; one far outside the range as one that is just less far outside.
    std::int64_t units(double value) const;

    /// The pixel of @p units on a length where the low end is 0 and the high end @p last, rounded;
    /// outside the range below 0 or above @p last, at most 8 lengths away.
    int place(std::int64_t units, int last) const;

    double low, high;

private:
    int shift;  // a unit is 2^-shift
    std::int64_t low_units, high_units;
};

/// Round numbers in a range: the multiples of 1, 2 or 5 times a power of ten.
struct Ticks {
    std::int64_t factor = 1;  // 1, 2 or 5
    int power = 0;            // of ten
    std::int64_t first = 0;   // the first and the last multiple
    std::int64_t last = -1;   // none at all when it is below the first

    double value(std::int64_t multiple) const;
    /// The number as text, with as many decimals as the step has, and at least @p decimals.
    std::string text(std::int64_t multiple, int decimals) const;
};

/// The ticks inside the range, at most @p most + 1 of them; none where the numbers are so large or
/// so small that nobody reads them (above kLargestShown, steps below 10^-9).
Ticks ticks_inside(double low, double high, int most);

/// As ticks_inside(), with one more at either end where the range does not end at a tick.
Ticks ticks_around(double low, double high, int most);

/// @p value with @p decimals (0 to 9) digits after the point, halves away from zero; a dash for
/// what is missing, an ellipsis for what is beyond kLargestShown.
std::string number_text(double value, int decimals);

}  // namespace kit
