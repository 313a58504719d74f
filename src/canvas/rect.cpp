#include "canvas/canvas.h"

namespace orvel {
namespace {

/// Stores both sides between the top row and the bottom one, all of which must be inside. Row by
/// row: two walks down a large canvas would meet each page of its memory twice.
void draw_sides(const orvel_canvas& canvas, int left, int top, int right, int bottom,
                std::uint32_t word) {
    const std::ptrdiff_t stride = canvas.width, across = right - left;
    orvel_color* row = pixel_at(canvas, left, top);
    for (int y = top + 1; y < bottom; ++y) {
        row += stride;
        store(row, word);
        store(row + across, word);
    }
}

}  // namespace
}  // namespace orvel

using namespace orvel;

// The far edges wrap as the 32-bit sums they are.

void orvel_canvas_rect(orvel_canvas* canvas, int x, int y, int w, int h, orvel_color color) {
    if (!canvas || w < 1 || h < 1) return;
    const int right = x + w - 1;
    const int bottom = y + h - 1;
    orvel_canvas_line(canvas, x, y, right, y, color);
    orvel_canvas_line(canvas, x, bottom, right, bottom, color);
    if (inside(*canvas, x, y) && inside(*canvas, right, bottom)) {
        return draw_sides(*canvas, x, y, right, bottom, word_of(color));
    }
    orvel_canvas_line(canvas, x, y, x, bottom, color);
    orvel_canvas_line(canvas, right, y, right, bottom, color);
}

void orvel_canvas_fill_rect(orvel_canvas* canvas, int x, int y, int w, int h, orvel_color color) {
    if (!canvas || w < 1 || h < 1) return;
    const Span columns = visible({x, x + w}, canvas->width);
    const Span rows = visible({y, y + h}, canvas->height);
    if (columns.empty() || rows.empty()) return;
    orvel_color* pixels = pixel_at(*canvas, columns.first, rows.first);
    for (std::int64_t row = rows.first; row < rows.end; ++row, pixels += canvas->width) {
        fill_run(pixels, columns.count(), color);
    }
}
