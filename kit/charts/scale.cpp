#include "charts/scale.h"

#include <algorithm>
#include <cmath>

namespace kit {
namespace {

constexpr int kSmallestPower = -9;

std::int64_t power_of_ten(int power) {
    std::int64_t result = 1;
    while (power-- > 0) result *= 10;
    return result;
}

/// The smallest step that goes at most @p most times into @p span, which is at most 2 * 10^15.
void choose_step(double span, int most, Ticks& ticks) {
    // A hair of room, or the span from 0.1 to 0.7 would not be six tenths.
    const auto covers = [&] { return ticks.value(most) >= span * 0.9999999999; };
    ticks.power = kSmallestPower;
    while (!covers()) {
        ticks.factor = ticks.factor == 1 ? 2 : ticks.factor == 2 ? 5 : 1;
        if (ticks.factor == 1) ++ticks.power;
    }
}

/// How many steps make @p value; near a whole number it is one, whatever the last bits say.
double in_steps(double value, const Ticks& ticks) {
    const double steps = value / ticks.value(1);
    const double whole = std::round(steps);
    return std::fabs(steps - whole) < 1e-6 ? whole : steps;
}

/// The step for a range, and the ends counted in it; false where nobody could read the numbers.
bool count_in_steps(double low, double high, int most, Ticks& ticks, double& from, double& to) {
    const double largest = std::max(std::fabs(low), std::fabs(high));
    if (largest > kLargestShown) return false;
    choose_step(high - low, most, ticks);
    from = in_steps(low, ticks);
    to = in_steps(high, ticks);
    return std::max(std::fabs(from), std::fabs(to)) <= 1e12;
}

/// The multiples in a range, and those beyond its ends where these are none and @p around is set.
Ticks ticks(double low, double high, int most, bool around) {
    Ticks found;
    double from = 0;
    double to = 0;
    if (!count_in_steps(low, high, most, found, from, to)) return {};
    found.first = static_cast<std::int64_t>(around ? std::floor(from) : std::ceil(from));
    found.last = static_cast<std::int64_t>(around ? std::ceil(to) : std::floor(to));
    return found;
}

std::string digits_text(bool negative, std::int64_t whole, std::int64_t fraction, int decimals) {
    std::string text = std::to_string(whole);
    if (decimals > 0) {
        const std::string digits = std::to_string(fraction);
        text += '.' + std::string(static_cast<std::size_t>(decimals) - digits.size(), '0') + digits;
    }
    const bool zero = whole == 0 && fraction == 0;
    return negative && !zero ? '-' + text : text;
}

}  // namespace

Scale::Scale(double low_end, double high_end) : low(low_end), high(high_end), shift(0) {
    int exponent = 0;
    std::frexp(std::max(std::fabs(low), std::fabs(high)), &exponent);
    shift = 53 - exponent;  // every double of that size is whole
    low_units = static_cast<std::int64_t>(std::ldexp(low, shift));
    high_units = static_cast<std::int64_t>(std::ldexp(high, shift));
    if (high_units == low_units) ++high_units;
}

std::int64_t Scale::units(double value) const {
    constexpr double limit = 144115188075855872.0;  // 2^57: sums of 32 do not overflow
    const double scaled = std::ldexp(value, shift);
    return static_cast<std::int64_t>(std::clamp(scaled, -limit, limit));
}

int Scale::place(std::int64_t units, int last) const {
    std::int64_t span = high_units - low_units;
    std::int64_t from_low = std::clamp(units - low_units, -7 * span, 8 * span);
    for (; span >= std::int64_t{1} << 30; span >>= 1) from_low >>= 1;
    const std::int64_t twice = 2 * from_low * last + span;  // half up
    const std::int64_t below = twice < 0 ? 2 * span - 1 : 0;
    return static_cast<int>((twice - below) / (2 * span));
}

double Ticks::value(std::int64_t multiple) const {
    const auto number = static_cast<double>(multiple * factor);
    const auto tens = static_cast<double>(power_of_ten(std::abs(power)));
    return power < 0 ? number / tens : number * tens;
}

std::string Ticks::text(std::int64_t multiple, int decimals) const {
    const std::int64_t number = std::abs(multiple) * factor;
    const std::int64_t tens = power_of_ten(std::abs(power));
    std::int64_t whole = power < 0 ? number / tens : number * tens;
    std::int64_t fraction = power < 0 ? number % tens : 0;
    int digits = std::max(-power, 0);
    for (; digits < decimals; ++digits) fraction *= 10;
    return digits_text(multiple < 0, whole, fraction, digits);
}

Ticks ticks_inside(double low, double high, int most) { return ticks(low, high, most, false); }

Ticks ticks_around(double low, double high, int most) { return ticks(low, high, most, true); }

std::string number_text(double value, int decimals) {
    decimals = std::clamp(decimals, 0, 9);
    const double size = std::fabs(value);
    if (!std::isfinite(value)) return "\u2013";
    if (size > kLargestShown) return "\u2026";
    auto whole = static_cast<std::int64_t>(size);
    const std::int64_t tens = power_of_ten(decimals);
    const double rest = (size - static_cast<double>(whole)) * static_cast<double>(tens);
    auto fraction = static_cast<std::int64_t>(std::floor(rest + 0.5));
    if (fraction == tens) {
        fraction = 0;
        ++whole;
    }
    return digits_text(value < 0, whole, fraction, decimals);
}

}  // namespace kit
