// Canvases as text: one letter per colour, one line per row.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "orvel.h"

inline bool operator==(orvel_color a, orvel_color b) {
    return a.r == b.r && a.g == b.g && a.b == b.b && a.a == b.a;
}

inline std::ostream& operator<<(std::ostream& out, orvel_color c) {
    return out << '(' << int(c.r) << ", " << int(c.g) << ", " << int(c.b) << ", " << int(c.a)
               << ')';
}

namespace orvel_test {

struct DestroyCanvas {
    void operator()(orvel_canvas* canvas) const { orvel_canvas_destroy(canvas); }
};
using CanvasPtr = std::unique_ptr<orvel_canvas, DestroyCanvas>;

inline CanvasPtr make_canvas(int width, int height) {
    return CanvasPtr(orvel_canvas_create(width, height));
}

/// What each colour is called in a picture. A colour without a letter shows as '?'.
struct Letter {
    char letter;
    orvel_color color;
};
using Palette = std::vector<Letter>;

constexpr orvel_color kBlack = {0, 0, 0, 255};
constexpr orvel_color kInk = {255, 255, 255, 255};

/// A new canvas is all '.', kInk is '#'.
inline const Palette& ink_on_black() {
    static const Palette palette = {{'.', kBlack}, {'#', kInk}};
    return palette;
}

inline std::string picture(const orvel_canvas* canvas, const Palette& palette = ink_on_black()) {
    std::string text;
    for (int y = 0; y < orvel_canvas_height(canvas); ++y) {
        for (int x = 0; x < orvel_canvas_width(canvas); ++x) {
            const orvel_color color = orvel_canvas_pixel_get(canvas, x, y);
            char letter = '?';
            for (const Letter& entry : palette) {
                if (entry.color == color) {
                    letter = entry.letter;
                    break;
                }
            }
            text += letter;
        }
        text += '\n';
    }
    return text;
}

/// FNV-1a (Fowler, Noll, Vo) over the size and every byte of every pixel.
inline std::uint64_t checksum(const orvel_canvas* canvas,
                              std::uint64_t hash = 14695981039346656037u) {
    const auto add = [&hash](unsigned byte) { hash = (hash ^ byte) * 1099511628211u; };
    const int width = orvel_canvas_width(canvas);
    const int height = orvel_canvas_height(canvas);
    for (const int side : {width, height}) {
        for (int shift = 0; shift < 32; shift += 8) add(static_cast<unsigned>(side) >> shift & 255);
    }
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const orvel_color c = orvel_canvas_pixel_get(canvas, x, y);
            add(c.r);
            add(c.g);
            add(c.b);
            add(c.a);
        }
    }
    return hash;
}

}  // namespace orvel_test
