#include <cmath>
#include <cstdint>

#include "canvas/canvas.h"

using namespace orvel;

void orvel_canvas_fill_circle(orvel_canvas* canvas, int cx, int cy, int r, orvel_color color) {
    if (!canvas || r < 0) return;
    const std::int64_t middle = cy;
    const Span rows = visible({middle - r, middle + r + 1}, canvas->height);
    const std::uint32_t word = word_of(color);
    for (std::int64_t row = rows.first; row < rows.end; ++row) {
        const int dy = static_cast<int>(row - middle);
        const int q = (dy + r) * (r - dy);  // r^2 - dy^2, wrapping
        if (q < 0) continue;
        const std::int64_t half = static_cast<std::int64_t>(std::sqrt(static_cast<double>(q)));
        const Span columns = visible({cx - half, cx + half + 1}, canvas->width);
        if (columns.empty()) continue;
        fill_any_run(pixel_at(*canvas, columns.first, row), columns.count(), word);
    }
}
