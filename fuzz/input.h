// The bytes of a fuzz input, taken apart into arguments.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "orvel.h"

namespace fuzz {

class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : at_(data), end_(data + size) {}

    bool empty() const { return at_ == end_; }

    /// 0 when there are no more.
    int byte() { return at_ == end_ ? 0 : *at_++; }

    /// So many bytes as a number, the lowest first.
    std::uint64_t bits(int bytes) {
        std::uint64_t bits = 0;
        for (int i = 0; i < bytes; ++i) bits |= static_cast<std::uint64_t>(byte()) << 8 * i;
        return bits;
    }

    /// Mostly near zero, sometimes of 16 bits, rarely any int.
    int number() {
        const int first = byte();
        if (first < 200) return first - 100;
        if (first < 250) return static_cast<std::int16_t>(bits(2));
        wild_ = true;
        return static_cast<std::int32_t>(bits(4));
    }

    /// Whether a number beyond 16 bits was taken since the last call.
    bool was_wild() {
        const bool wild = wild_;
        wild_ = false;
        return wild;
    }

    double fraction() {
        constexpr double kOthers[] = {NAN, INFINITY, -INFINITY, -0.0, 5e-324, 1e300};
        const int first = byte();
        return first >= 250 ? kOthers[first - 250] : (first - 20) / 200.0;
    }

    orvel_color color() {
        orvel_color color;
        for (unsigned char* channel : {&color.r, &color.g, &color.b, &color.a}) {
            *channel = static_cast<unsigned char>(byte());
        }
        return color;
    }

    std::string text() {
        std::string text;
        for (int left = byte() % 16; left > 0; --left) {
            const char next = static_cast<char>(byte());
            if (next != '\0') text += next;
        }
        return text;
    }

    /// All up to the next zero byte, which is taken too.
    std::string c_string() {
        const std::uint8_t* const end = std::find(at_, end_, 0);
        const std::string text(at_, end);
        at_ = end == end_ ? end : end + 1;
        return text;
    }

private:
    const std::uint8_t* at_;
    const std::uint8_t* end_;
    bool wild_ = false;
};

}  // namespace fuzz
