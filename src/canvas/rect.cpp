#include <algorithm>

#include "canvas/canvas.h"

// The far edges wrap as the 32-bit sums they are.

void orvel_canvas_rect(orvel_canvas* canvas, int x, int y, int w, int h, orvel_color color) {
    if (!canvas || w < 1 || h < 1) return;
    const int right = x + w - 1;
    const int bottom = y + h - 1;
    orvel_canvas_line(canvas, x, y, right, y, color);
    orvel_canvas_line(canvas, x, bottom, right, bottom, color);
    orvel_canvas_line(canvas, x, y, x, bottom, color);
    orvel_canvas_line(canvas, right, y, right, bottom, color);
}

void orvel_canvas_fill_rect(orvel_canvas* canvas, int x, int y, int w, int h, orvel_color color) {
    if (!canvas || w < 1 || h < 1) return;
    const int left = std::max(x, 0);
    const int top = std::max(y, 0);
    const int right = std::min(x + w, canvas->width);
    const int bottom = std::min(y + h, canvas->height);
    if (left >= right || top >= bottom) return;
    orvel_color* pixels = orvel::pixel_at(*canvas, left, top);
    for (int row = top; row < bottom; ++row, pixels += canvas->width) {
        orvel::fill_run(pixels, right - left, color);
    }
}
