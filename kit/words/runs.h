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

/// The columns of a letter from the first to the last with ink, from its origin: [left, right).
struct Columns {
    int left, right;
};

Columns columns_of(const Glyph& glyph);

/// Draws a letter whose origin is at (x, baseline) as far as it is in @p clip, which lies on the
/// canvas. Without bits it is a frame.
void draw_glyph(orvel_canvas* canvas, const Glyph& glyph, std::int64_t x, std::int64_t baseline,
                const Clip& clip, orvel_color color);

}  // namespace kit
