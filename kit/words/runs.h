// One letter's pixels.
#pragma once

#include <cstdint>

#include "orvel_kit.h"
#include "words/face.h"

namespace kit {

/// Columns [left, right) and rows [top, bottom) that may change.
struct Clip {
    std::int64_t left, top, right, bottom;

    bool empty() const { return left >= right || top >= bottom; }
    bool holds(std::int64_t x, std::int64_t y, int w, int h) const {
        return x >= left && x + w <= right && y >= top && y + h <= bottom;
    }
};

Clip clip_of(const orvel_canvas* canvas);
Clip clip_of(const orvel_canvas* canvas, const kit_box& box);  // what of the box is on the canvas

/// The columns and rows of a letter, from its corner on, between the first and the last with ink.
/// Without any they are none, behind its last ones.
Clip ink_of(const Glyph& glyph);

/// Draws the letter of these strokes whose corner is at (x, y).
void draw_strokes(orvel_canvas* canvas, const unsigned char* strokes, int x, int y,
                  orvel_color color);

/// Draws a letter whose origin is at (x, baseline) as far as it is in @p clip, which lies on the
/// canvas.
void draw_glyph(orvel_canvas* canvas, const Glyph& glyph, std::int64_t x, std::int64_t baseline,
                const Clip& clip, orvel_color color);

}  // namespace kit
