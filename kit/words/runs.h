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
};

Clip clip_of(const orvel_canvas* canvas);
Clip clip_of(const orvel_canvas* canvas, const kit_box& box);  // what of the box is on the canvas

/// The columns and rows of a letter, from its corner on, between the first and the last with ink.
/// Without any they are none, behind its last ones.
Clip ink_of(const Glyph& glyph);

/// Draws a letter whose corner is at (x, y).
void draw_whole(orvel_canvas* canvas, const Glyph& glyph, int x, int y, orvel_color color);

/// The same as far as it is in @p clip, which lies on the canvas.
void draw_part(orvel_canvas* canvas, const Glyph& glyph, std::int64_t x, std::int64_t y,
               const Clip& clip, orvel_color color);

/// The same of a letter whose origin is at (x, baseline).
inline void draw_glyph(orvel_canvas* canvas, const Glyph& glyph, std::int64_t x,
                       std::int64_t baseline, const Clip& clip, orvel_color color) {
    const std::int64_t left = x + glyph.left, top = baseline - glyph.top;
    const bool whole = left >= clip.left && left + glyph.width <= clip.right && top >= clip.top &&
                       top + glyph.height <= clip.bottom;
    if (!whole) return draw_part(canvas, glyph, left, top, clip, color);
    draw_whole(canvas, glyph, static_cast<int>(left), static_cast<int>(top), color);
}

}  // namespace kit
