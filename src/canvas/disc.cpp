#include <cmath>
#include <cstdint>

#include "canvas/canvas.h"

namespace orvel {
namespace {

using std::int64_t;

/// Half the width, without the centre, of a row of which @p q is the square of that.
template <typename Real>
int64_t half_of(int q) {
    return static_cast<int64_t>(std::sqrt(static_cast<Real>(q)));
}

/// Up to this radius both halves of a disc fit the caches together, and the quicker roots of single
/// precision are rounded down rightly.
constexpr int kSmall = 64;

/// Draws a disc that is wholly inside, two rows at a time.
void draw_small(orvel_color* centre, int r, int64_t stride, orvel_color color) {
    orvel_color* above = centre - r * stride;
    orvel_color* below = centre + r * stride;
    for (int dy = r; dy >= 0; --dy, above += stride, below -= stride) {
        const int64_t half = half_of<float>((r + dy) * (r - dy));
        fill_run(above - half, 2 * half + 1, color);
        fill_run(below - half, 2 * half + 1, color);
    }
}

}  // namespace
}  // namespace orvel

using namespace orvel;

void orvel_canvas_fill_circle(orvel_canvas* canvas, int cx, int cy, int r, orvel_color color) {
    if (!canvas || r < 0) return;
    if (r <= kSmall && cx >= r && cy >= r && cx < canvas->width - r && cy < canvas->height - r) {
        draw_small(pixel_at(*canvas, cx, cy), r, canvas->width, color);
        return;
    }
    const int64_t middle = cy;
    const Span rows = visible({middle - r, middle + r + 1}, canvas->height);
    const std::uint32_t word = word_of(color);
    for (int64_t row = rows.first; row < rows.end; ++row) {
        const int dy = static_cast<int>(row - middle);
        const int q = (dy + r) * (r - dy);  // r^2 - dy^2, wrapping
        if (q < 0) continue;
        const int64_t half = half_of<double>(q);
        const Span columns = visible({cx - half, cx + half + 1}, canvas->width);
        if (columns.empty()) continue;
        fill_any_run(pixel_at(*canvas, columns.first, row), columns.count(), word);
    }
}
