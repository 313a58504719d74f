// The drawing rules, restated as slowly and literally as they can be, to judge the library by.
// Where a rule is 32-bit the models wrap on purpose, in unsigned arithmetic.
#pragma once

#include "models/canvas_model.h"

namespace model {

void clear(Canvas& canvas, orvel_color color);
void pixel(Canvas& canvas, int x, int y, orvel_color color);
orvel_color pixel_get(const Canvas& canvas, int x, int y);

/// Walks every point, so a call takes time in proportion to the longer side.
void line(Canvas& canvas, int x0, int y0, int x1, int y1, orvel_color color);
void rect(Canvas& canvas, int x, int y, int w, int h, orvel_color color);
void fill_rect(Canvas& canvas, int x, int y, int w, int h, orvel_color color);
/// Walks the whole outline: time in proportion to r.
void circle(Canvas& canvas, int cx, int cy, int r, orvel_color color);
void fill_circle(Canvas& canvas, int cx, int cy, int r, orvel_color color);
void fill_triangle(Canvas& canvas, int x0, int y0, int x1, int y1, int x2, int y2,
                   orvel_color color);

}  // namespace model
