#include "models/pixels_model.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace model {
namespace {

using Color = std::array<int, 3>;  // in sixteenths; grey is all of one channel
using Codes = std::vector<std::vector<unsigned>>;

int grey(orvel_color c) { return (2126 * c.r + 7152 * c.g + 722 * c.b + 5000) / 10000; }

/// Ranks of the thresholds, each quarter of the square like the whole.
int bayer(int x, int y, int size) {
    if (size == 1) return 0;
    const int half = size / 2;
    const int quarter[2][2] = {{0, 2}, {3, 1}};
    return 4 * bayer(x % half, y % half, half) + quarter[y / half][x / half];
}

/// The channels that a layout has, as the highest level of each; 0 for none.
Color tops_of(int layout) {
    switch (layout) {
    case KIT_RGB565_LE:
    case KIT_RGB565_BE: return {31, 63, 31};
    case KIT_GREY8: return {255, 0, 0};
    case KIT_GREY4: return {15, 0, 0};
    case KIT_GREY2: return {3, 0, 0};
    case KIT_GREY1: return {1, 0, 0};
    default: return {0, 0, 0};
    }
}

class Chooser {
public:
    explicit Chooser(const kit_format& format) : format_(format), tops_(tops_of(format.layout)) {}

    Color split(orvel_color c) const {
        if (tops_[0] > 0 && tops_[1] == 0) return {16 * grey(c), 0, 0};
        return {16 * c.r, 16 * c.g, 16 * c.b};
    }

    /// The levels of all channels, or the number of a colour as the first.
    Color nearest(const Color& wanted) const {
        if (tops_[0] == 0) return {nearest_of_palette(wanted), 0, 0};
        Color levels = {};
        for (std::size_t c = 0; c < 3; ++c) {
            for (int level = 1; level <= tops_[c]; ++level) {
                const auto off = [&](int l) { return std::abs(wanted[c] * tops_[c] - 4080 * l); };
                if (off(level) < off(levels[c])) levels[c] = level;
            }
        }
        return levels;
    }

    Color ordered(const Color& wanted, int threshold) const {
        if (tops_[0] == 0) return {ordered_of_palette(wanted, threshold), 0, 0};
        Color levels = {};
        for (std::size_t c = 0; c < 3; ++c) {
            const int scaled = wanted[c] / 16 * tops_[c];
            const bool up = scaled % 255 * 128 + 255 * (2 * threshold + 1) >= 255 * 128;
            levels[c] = scaled / 255 + (up ? 1 : 0);
        }
        return levels;
    }

    Color shown(const Color& levels) const {
        if (tops_[0] == 0) return palette(levels[0]);
        Color color = {};
        for (std::size_t c = 0; c < 3; ++c) {
            if (tops_[c] > 0) color[c] = (levels[c] * 8160 + tops_[c]) / (2 * tops_[c]);
        }
        return color;
    }

    unsigned code(const Color& levels) const {
        const auto value = [&](std::size_t c) { return static_cast<unsigned>(levels[c]); };
        if (tops_[1] == 63) return value(0) * 2048 + value(1) * 32 + value(2);
        if (format_.layout == KIT_PLANE) return levels[0] == format_.plane ? 0 : 1;
        return value(0);
    }

private:
    Color palette(int number) const {
        const orvel_color c = format_.palette[number];
        return {16 * c.r, 16 * c.g, 16 * c.b};
    }

    int nearest_of_palette(const Color& wanted) const {
        const auto off = [&](int number) {
            const Color color = palette(number);
            const auto squared = [&](std::size_t c) {
                return (color[c] - wanted[c]) * (color[c] - wanted[c]);
            };
            return 2 * squared(0) + 4 * squared(1) + 3 * squared(2);
        };
        int best = 0;
        for (int number = 1; number < format_.colors; ++number) {
            if (off(number) < off(best)) best = number;
        }
        return best;
    }

    int ordered_of_palette(const Color& wanted, int threshold) const {
        Color moved = wanted;
        for (std::size_t c = 0; c < 3; ++c) {
            std::array<bool, 256> used = {};
            for (int i = 0; i < format_.colors; ++i) {
                used[static_cast<std::size_t>(palette(i)[c] / 16)] = true;
            }
            int last = -1, gap = 0;
            for (int value = 0; value < 256; ++value) {
                if (!used[static_cast<std::size_t>(value)]) continue;
                if (last >= 0) gap = std::max(gap, value - last);
                last = value;
            }
            moved[c] += (2 * threshold - 63) * 16 * gap / 128;
        }
        const int same = nearest_of_palette(wanted);
        return palette(same) == wanted ? same : nearest_of_palette(moved);
    }

    const kit_format& format_;
    Color tops_;
};

/// Shares an error out to those who come later.
void diffuse(std::vector<std::vector<Color>>& errors, std::size_t x, std::size_t y, std::size_t c,
             int error) {
    const int seven = error * 7 / 16, three = error * 3 / 16, five = error * 5 / 16;
    const bool next = y + 1 < errors.size(), right = x + 1 < errors[y].size();
    if (right) errors[y][x + 1][c] += seven;
    if (next && x > 0) errors[y + 1][x - 1][c] += three;
    if (next) errors[y + 1][x][c] += five;
    if (next && right) errors[y + 1][x + 1][c] += error - seven - three - five;
}

Codes codes_of(const Canvas& canvas, kit_box box, const kit_format& format) {
    const Chooser chooser(format);
    const auto width = static_cast<std::size_t>(box.w), height = static_cast<std::size_t>(box.h);
    Codes codes(height, std::vector<unsigned>(width));
    std::vector<std::vector<Color>> errors(height, std::vector<Color>(width));
    for (std::size_t y = 0; y < height; ++y) {
        for (std::size_t x = 0; x < width; ++x) {
            const int column = box.x + static_cast<int>(x), row = box.y + static_cast<int>(y);
            Color wanted = chooser.split(canvas.at(column, row)), levels = {};
            if (format.dither == KIT_DITHER_ORDERED) {
                levels = chooser.ordered(wanted, bayer(column % 8, row % 8, 8));
            } else if (format.dither == KIT_DITHER_NONE) {
                levels = chooser.nearest(wanted);
            } else {
                for (std::size_t c = 0; c < 3; ++c) {
                    wanted[c] = std::clamp(wanted[c] + errors[y][x][c], 0, 4080);
                }
                levels = chooser.nearest(wanted);
                const Color shown = chooser.shown(levels);
                for (std::size_t c = 0; c < 3; ++c) diffuse(errors, x, y, c, wanted[c] - shown[c]);
            }
            codes[y][x] = chooser.code(levels);
        }
    }
    return codes;
}

/// One byte for each channel, in the order of the layout.
Codes colors_of(const Canvas& canvas, kit_box box, const kit_format& format) {
    Codes codes;
    for (int y = 0; y < box.h; ++y) {
        codes.emplace_back();
        for (int x = 0; x < box.w; ++x) {
            const orvel_color c = canvas.at(box.x + x, box.y + y);
            const unsigned alpha = format.keep_alpha ? c.a : 255;
            const unsigned red = c.r, green = c.g, blue = c.b;
            codes.back().push_back(format.layout == KIT_RGBA
                                       ? red << 24 | green << 16 | blue << 8 | alpha
                                       : blue << 24 | green << 16 | red << 8 | alpha);
        }
    }
    return codes;
}

/// A quarter turn clockwise: the left column, from its bottom, becomes the first row.
Codes turned(const Codes& codes) {
    Codes result(codes[0].size(), std::vector<unsigned>(codes.size()));
    for (std::size_t y = 0; y < result.size(); ++y) {
        for (std::size_t x = 0; x < result[y].size(); ++x) {
            result[y][x] = codes[codes.size() - 1 - x][y];
        }
    }
    return result;
}

int bits_of(int layout) {
    constexpr int kBits[] = {32, 32, 16, 16, 8, 4, 2, 1, 8, 4, 1};
    return kBits[layout];
}

/// The codes as bits, the highest first, filled up with zeros to whole bytes.
std::vector<unsigned char> packed(const std::vector<unsigned>& codes, int bits, bool low_first) {
    std::vector<bool> all;
    for (const unsigned code : codes) {
        const unsigned swapped = low_first ? code % 256 * 256 + code / 256 : code;
        for (int bit = bits - 1; bit >= 0; --bit) all.push_back(swapped >> bit & 1);
    }
    all.resize((all.size() + 7) / 8 * 8);
    std::vector<unsigned char> bytes(all.size() / 8);
    for (std::size_t i = 0; i < all.size(); ++i) {
        bytes[i / 8] = static_cast<unsigned char>(bytes[i / 8] * 2 + (all[i] ? 1 : 0));
    }
    return bytes;
}

}  // namespace

std::vector<std::vector<unsigned char>> pixels(const Canvas& canvas, kit_box box,
                                               const kit_format& format) {
    const bool whole = format.layout == KIT_RGBA || format.layout == KIT_BGRA;
    Codes codes = whole ? colors_of(canvas, box, format) : codes_of(canvas, box, format);
    for (int turn = 0; turn < (format.turns % 4 + 4) % 4; ++turn) codes = turned(codes);
    std::vector<std::vector<unsigned char>> rows;
    for (const auto& row : codes) {
        rows.push_back(packed(row, bits_of(format.layout), format.layout == KIT_RGB565_LE));
    }
    return rows;
}

}  // namespace model
