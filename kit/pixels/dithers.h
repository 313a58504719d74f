// From a row of pixels to the codes that a layout has for them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "pixels/choices.h"
#include "pixels/same.h"

namespace kit {

/// One row of a canvas, and what becomes of it.
struct Row {
    int x, y;  // of the first pixel, on the canvas
    std::vector<orvel_color> pixels;
    std::vector<unsigned> codes;
};

template <typename Choice>
void choose_nearest(const Choice& choice, Row& row) {
    for (std::size_t i = 0; i < row.pixels.size(); ++i) {
        // Most neighbours in a user interface are equal, and a palette takes long to search.
        const bool repeated = i > 0 && same(row.pixels[i], row.pixels[i - 1]);
        row.codes[i] = repeated ? row.codes[i - 1] : choice.nearest(choice.split(row.pixels[i]));
    }
}

/// The matrix of Bayer, which every second step of its making doubles: evenly spread thresholds.
constexpr unsigned char kThresholds[8][8] = {
    {0, 32, 8, 40, 2, 34, 10, 42},  {48, 16, 56, 24, 50, 18, 58, 26},
    {12, 44, 4, 36, 14, 46, 6, 38}, {60, 28, 52, 20, 62, 30, 54, 22},
    {3, 35, 11, 43, 1, 33, 9, 41},  {51, 19, 59, 27, 49, 17, 57, 25},
    {15, 47, 7, 39, 13, 45, 5, 37}, {63, 31, 55, 23, 61, 29, 53, 21},
};

template <typename Choice>
void choose_ordered(const Choice& choice, Row& row) {
    const unsigned char(&thresholds)[8] = kThresholds[row.y & 7];
    unsigned x = static_cast<unsigned>(row.x);
    for (std::size_t i = 0; i < row.pixels.size(); ++i, ++x) {
        row.codes[i] = choice.ordered(choice.split(row.pixels[i]), thresholds[x & 7]);
    }
}

/// The errors on their way to the pixels of this row and the next one. A column more on each side
/// takes what falls off.
class Errors {
public:
    explicit Errors(std::size_t width) : here_(width + 2), below_(width + 2) {}

    template <typename Choice>
    void choose(const Choice& choice, Row& row) {
        Channels ahead = {};
        for (std::size_t i = 0; i < row.pixels.size(); ++i) {
            Channels wanted = choice.split(row.pixels[i]);
            for (std::size_t c = 0; c < wanted.size(); ++c) {
                // An error that leads past black or white would grow without end.
                wanted[c] = std::clamp(wanted[c] + here_[i + 1][c] + ahead[c], 0, kWhite);
            }
            row.codes[i] = choice.nearest(wanted);
            const Channels shown = choice.shown(row.codes[i]);
            for (std::size_t c = 0; c < wanted.size(); ++c) {
                ahead[c] = share(wanted[c] - shown[c], i, c);
            }
        }
        here_.swap(below_);
        std::fill(below_.begin(), below_.end(), Channels{});
    }

private:
    /// Gives the next row its 3, 5 and the rest of 16 parts; returns the 7 for the pixel ahead.
    int share(int error, std::size_t i, std::size_t c) {
        const int seven = error * 7 / 16, three = error * 3 / 16, five = error * 5 / 16;
        below_[i][c] += three;
        below_[i + 1][c] += five;
        below_[i + 2][c] += error - seven - three - five;
        return seven;
    }

    std::vector<Channels> here_, below_;
};

}  // namespace kit
