// Which of the few colours of a layout stands for a pixel.
//
// Channels are counted in sixteenths of their 256 steps, so that an error can be shared out among
// neighbours in whole numbers.
#pragma once

#include <array>
#include <cstddef>

#include "orvel_kit.h"

namespace kit {

constexpr int kSixteenths = 16;
constexpr int kWhite = 255 * kSixteenths;

/// Red, green and blue; or grey alone, and two that stay 0.
using Channels = std::array<int, 3>;

inline Channels channels_of(orvel_color color) {
    return {color.r * kSixteenths, color.g * kSixteenths, color.b * kSixteenths};
}

/// Levels from 0 to @p top, evenly from black to white.
struct Levels {
    int top;

    /// The nearest level, the darker of two.
    int nearest(int value) const { return (2 * value * top + kWhite - 1) / (2 * kWhite); }
    int shown(int level) const { return (2 * level * kWhite + top) / (2 * top); }
    /// The level below or the one above: that one the more often, over all of the 64 thresholds,
    /// the nearer the value is to it.
    int ordered(int value, int threshold) const {
        return (value * top * 8 + 255 * (2 * threshold + 1)) / (255 * 128);
    }
};

struct GreyChoice {
    Levels levels;

    Channels split(orvel_color color) const { return {kit_grey(color) * kSixteenths, 0, 0}; }
    unsigned nearest(const Channels& c) const {
        return static_cast<unsigned>(levels.nearest(c[0]));
    }
    unsigned ordered(const Channels& c, int threshold) const {
        return static_cast<unsigned>(levels.ordered(c[0], threshold));
    }
    Channels shown(unsigned code) const { return {levels.shown(static_cast<int>(code)), 0, 0}; }
};

/// 5, 6 and 5 bits.
struct Rgb565Choice {
    static constexpr Levels kFive = {31}, kSix = {63};

    static unsigned joined(int r, int g, int b) {
        return static_cast<unsigned>(r) << 11 | static_cast<unsigned>(g) << 5 |
               static_cast<unsigned>(b);
    }
    Channels split(orvel_color color) const { return channels_of(color); }
    unsigned nearest(const Channels& c) const {
        return joined(kFive.nearest(c[0]), kSix.nearest(c[1]), kFive.nearest(c[2]));
    }
    unsigned ordered(const Channels& c, int threshold) const {
        return joined(kFive.ordered(c[0], threshold), kSix.ordered(c[1], threshold),
                      kFive.ordered(c[2], threshold));
    }
    Channels shown(unsigned code) const {
        return {kFive.shown(code >> 11), kSix.shown(code >> 5 & 63), kFive.shown(code & 31)};
    }
};

/// The colours of a palette.
class PaletteChoice {
public:
    static constexpr int kMost = 16;

    PaletteChoice(const orvel_color* palette, int colors);

    Channels split(orvel_color color) const { return channels_of(color); }
    unsigned nearest(const Channels& c) const;
    /// A colour of the palette stays itself; any other is moved by up to half of the palette's
    /// largest gap in each channel, to both sides.
    unsigned ordered(const Channels& c, int threshold) const;
    Channels shown(unsigned code) const { return colors_[code]; }

private:
    std::array<Channels, kMost> colors_ = {};
    std::size_t count_;
    Channels gaps_ = {};
};

}  // namespace kit
