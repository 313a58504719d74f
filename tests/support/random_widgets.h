// Widgets of every kind with any state, each made from a number alone.
#pragma once

#include <cstdint>

#include "models/widget_model.h"

namespace orvel_test {

/// Numbers that are the same on every machine (splitmix64, by Vigna).
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next() {
        std::uint64_t z = state_ += 0x9E3779B97F4A7C15u;
        z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9u;
        z = (z ^ z >> 27) * 0x94D049BB133111EBu;
        return z ^ z >> 31;
    }
    /// From @p low to @p high, both included.
    int between(int low, int high) {
        const std::uint64_t count = static_cast<std::uint64_t>(std::int64_t{high} - low + 1);
        return static_cast<int>(low + static_cast<std::int64_t>(next() % count));
    }
    bool one_in(int count) { return between(1, count) == 1; }

private:
    std::uint64_t state_;
};

/// The widget of this number, of the kind @p number % 28. Most lie near a canvas of 48 x 40; some
/// have no size, a negative one, or a rectangle at the limits of int.
WidgetState random_widget(std::uint64_t number);

/// The widget in words, for messages.
std::string described(const WidgetState& widget);

}  // namespace orvel_test
