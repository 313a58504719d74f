#include "models/shapes_model.h"

#include <algorithm>
#include <cmath>

namespace model {
namespace {

std::uint32_t word(int value) { return static_cast<std::uint32_t>(value); }
int wrapped(std::uint32_t value) { return static_cast<int>(value); }

/// The rectangle's sides can be 2^32 points long once x + w - 1 has wrapped. A line on one row is
/// every point between its ends, so it can be told by asking each pixel of the canvas instead.
void horizontal(Canvas& canvas, int x0, int x1, int y, orvel_color color) {
    for (int x = 0; x < canvas.width; ++x) {
        if (std::min(x0, x1) <= x && x <= std::max(x0, x1)) canvas.put(x, y, color);
    }
}

void vertical(Canvas& canvas, int x, int y0, int y1, orvel_color color) {
    for (int y = 0; y < canvas.height; ++y) {
        if (std::min(y0, y1) <= y && y <= std::max(y0, y1)) canvas.put(x, y, color);
    }
}

/// The edge function of the side from a to b at (x, y).
int edge(int x, int y, int ax, int ay, int bx, int by) {
    return wrapped((word(x) - word(ax)) * (word(by) - word(ay)) -
                   (word(y) - word(ay)) * (word(bx) - word(ax)));
}

}  // namespace

void clear(Canvas& canvas, orvel_color color) {
    for (int y = 0; y < canvas.height; ++y) {
        for (int x = 0; x < canvas.width; ++x) canvas.put(x, y, color);
    }
}

void pixel(Canvas& canvas, int x, int y, orvel_color color) { canvas.put(x, y, color); }

orvel_color pixel_get(const Canvas& canvas, int x, int y) {
    if (x < 0 || y < 0 || x >= canvas.width || y >= canvas.height) return {0, 0, 0, 0};
    return canvas.at(x, y);
}

void line(Canvas& canvas, int x0, int y0, int x1, int y1, orvel_color color) {
    const std::int64_t dx = std::abs(std::int64_t{x1} - x0), sx = x1 > x0 ? 1 : -1;
    const std::int64_t dy = std::abs(std::int64_t{y1} - y0), sy = y1 > y0 ? 1 : -1;
    std::int64_t err = dx - dy, x = x0, y = y0;
    for (;;) {
        canvas.put(x, y, color);
        if (y == y1 && x == x1) return;
        const std::int64_t e2 = 2 * err;
        if (e2 > -dy) {
            err -= dy;
            x += sx;
        }
        if (e2 < dx) {
            err += dx;
            y += sy;
        }
    }
}

void rect(Canvas& canvas, int x, int y, int w, int h, orvel_color color) {
    if (w < 1 || h < 1) return;
    const int right = wrapped(word(x) + word(w) - 1), bottom = wrapped(word(y) + word(h) - 1);
    horizontal(canvas, x, right, y, color);
    horizontal(canvas, x, right, bottom, color);
    vertical(canvas, x, y, bottom, color);
    vertical(canvas, right, y, bottom, color);
}

void fill_rect(Canvas& canvas, int x, int y, int w, int h, orvel_color color) {
    if (w < 1 || h < 1) return;
    const int xs = std::max(x, 0), ys = std::max(y, 0);
    const int xe = std::min(wrapped(word(x) + word(w)), canvas.width);
    const int ye = std::min(wrapped(word(y) + word(h)), canvas.height);
    for (int row = ys; row < ye; ++row) {
        for (int column = xs; column < xe; ++column) canvas.put(column, row, color);
    }
}

void circle(Canvas& canvas, int cx, int cy, int r, orvel_color color) {
    if (r < 0) return;
    std::int64_t x = 0, y = r, d = 3 - 2 * std::int64_t{r};
    while (y >= x) {
        canvas.put(cx + x, cy + y, color);
        canvas.put(cx - x, cy + y, color);
        canvas.put(cx + x, cy - y, color);
        canvas.put(cx - x, cy - y, color);
        canvas.put(cx + y, cy + x, color);
        canvas.put(cx - y, cy + x, color);
        canvas.put(cx + y, cy - x, color);
        canvas.put(cx - y, cy - x, color);
        x = x + 1;
        if (d < 0) {
            d = d + 4 * x + 6;
        } else {
            y = y - 1;
            d = d + 4 * (x - y) + 10;
        }
    }
}

void fill_circle(Canvas& canvas, int cx, int cy, int r, orvel_color color) {
    if (r < 0) return;
    for (int y = 0; y < canvas.height; ++y) {
        const std::int64_t offset = std::int64_t{y} - cy;
        if (offset < -std::int64_t{r} || offset > r) continue;
        const int dy = static_cast<int>(offset);
        const int q = wrapped((word(dy) + word(r)) * (word(r) - word(dy)));
        if (q < 0) continue;
        const std::int64_t h = static_cast<std::int64_t>(std::sqrt(static_cast<double>(q)));
        for (int x = 0; x < canvas.width; ++x) {
            if (cx - h <= x && x <= cx + h) canvas.put(x, y, color);
        }
    }
}

void fill_triangle(Canvas& canvas, int x0, int y0, int x1, int y1, int x2, int y2,
                   orvel_color color) {
    const int ymin = std::max(std::min({y0, y1, y2}), 0);
    const int ymax = std::min(std::max({y0, y1, y2}), canvas.height - 1);
    for (int y = ymin; y <= ymax; ++y) {
        int first = -1, last = -1;
        for (int x = 0; x < canvas.width; ++x) {
            const int e0 = edge(x, y, x0, y0, x2, y2);
            const int e1 = edge(x, y, x2, y2, x1, y1);
            const int e2 = edge(x, y, x1, y1, x0, y0);
            const bool negative = e0 < 0 || e1 < 0 || e2 < 0;
            const bool positive = e0 > 0 || e1 > 0 || e2 > 0;
            if (negative && positive) continue;
            if (first < 0) first = x;
            last = x;
        }
        if (first < 0) continue;
        for (int x = first; x <= last; ++x) canvas.put(x, y, color);
    }
}

}  // namespace model
