#include <algorithm>
#include <cmath>
#include <cstdint>

#include "canvas/canvas.h"

void orvel_canvas_fill_circle(orvel_canvas* canvas, int cx, int cy, int r, orvel_color color) {
    if (!canvas || r < 0) return;
    const std::int64_t first = std::max<std::int64_t>(-std::int64_t(r), -std::int64_t(cy));
    const std::int64_t last = std::min<std::int64_t>(r, std::int64_t(canvas->height) - 1 - cy);
    const std::uint32_t word = orvel::word_of(color);
    for (std::int64_t row = first; row <= last; ++row) {
        const int dy = static_cast<int>(row);
        const int q = (dy + r) * (r - dy);  // r^2 - dy^2, wrapping
        if (q < 0) continue;
        const std::int64_t half = static_cast<std::int64_t>(std::sqrt(static_cast<double>(q)));
        const std::int64_t left = std::max<std::int64_t>(cx - half, 0);
        const std::int64_t right = std::min<std::int64_t>(cx + half + 1, canvas->width);
        if (left >= right) continue;
        orvel::fill_any_run(orvel::pixel_at(*canvas, left, cy + row), right - left, word);
    }
}
