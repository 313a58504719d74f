#include "screen/steps.h"

#include <algorithm>

#include "screen/number.h"

namespace kit {
namespace {

constexpr int kMostDecimals = 9;
constexpr long long kMostUnits = 10000000000000;  // so that products with pixels fit

constexpr int kStars = 5;

struct Range {
    std::string low, high, step;
};

/// What is written, or what the kind has without it; a stepper's number may be any.
Range range_of(const Node& node) {
    Range range;
    range.low = node.ends[0];
    range.high = node.ends[1];
    range.step = node.step;
    if (node.is_widget(ORVEL_WIDGET_STEPPER)) {
        if (range.low.empty()) range.low = "-1000000000", range.high = "1000000000";
        if (range.step.empty()) range.step = "1";
    }
    return range;
}

long long floor_of(long long a, long long b) { return a / b - (a % b < 0 ? 1 : 0); }

/// The largest of ..., 0.1, 1, 10, ... of which at least a hundred are in the range.
long long round_step(long long size) {
    long long step = 1;
    while (size / step >= 1000) step *= 10;
    return step;
}

}  // namespace

std::optional<Steps> Steps::of(const Node& node) {
    const Range range = range_of(node);
    const bool stars = node.is_widget(ORVEL_WIDGET_RATING);
    Steps steps;
    for (const std::string* one : {&range.low, &range.high, &range.step}) {
        steps.decimals_ = std::max(steps.decimals_, decimals_of(*one));
    }
    for (;; ++steps.decimals_) {
        const bool fits = steps.decimals_ <= kMostDecimals &&
                          count_units(range.low, steps.decimals_, kMostUnits, steps.low_) &&
                          count_units(range.high, steps.decimals_, kMostUnits, steps.high_);
        if (!fits) return std::nullopt;
        const long long size = steps.high_ - steps.low_;
        if (!range.step.empty()) {
            if (!count_units(range.step, steps.decimals_, kMostUnits, steps.step_)) return {};
        } else if (stars && size % kStars == 0) {
            steps.step_ = size / kStars;
        } else if (!stars && size >= 100) {
            steps.step_ = round_step(size);
        } else {
            continue;
        }
        steps.count_ = size / steps.step_;
        if (!node.ends[0].empty()) steps.page_ = std::max<long long>(1, steps.count_ / 10);
        return steps;
    }
}

std::string Steps::text(long long units) const {
    std::string digits = std::to_string(units < 0 ? -units : units);
    const auto decimals = static_cast<std::size_t>(decimals_);
    if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
    if (decimals > 0) {
        digits.insert(digits.size() - decimals, ".");
        digits.erase(digits.find_last_not_of('0') + 1);
        if (digits.back() == '.') digits.pop_back();
    }
    return units < 0 ? '-' + digits : digits;
}

std::string Steps::moved(const std::string& number, long long steps) const {
    long long units = std::clamp<long long>(0, low_, high_);
    bool exact = true;
    if (is_number(number)) {
        const std::string near = rounded(number, decimals_);
        if (!count_units(near, decimals_, kMostUnits, units)) {
            units = near.front() == '-' ? -kMostUnits : kMostUnits;
        }
        const int order = compare_numbers(number, near);
        exact = order == 0;
        if (order < 0) --units;
    }
    const long long from = units - low_, below = floor_of(from, step_);
    const bool between = !exact || from % step_ != 0;
    const long long first = between && steps < 0 ? below + 1 : below;
    const long long further = std::clamp(steps, -count_ - 2, count_ + 2);
    const long long place = std::clamp<long long>(first, -1, count_ + 1) + further;
    return text(low_ + std::clamp<long long>(place, 0, count_) * step_);
}

std::string Steps::at(long long part, long long whole) const {
    const long long size = high_ - low_;
    const long long steps = (2 * size * part + whole * step_) / (2 * whole * step_);
    return text(low_ + std::clamp<long long>(steps, 0, count_) * step_);
}

}  // namespace kit
