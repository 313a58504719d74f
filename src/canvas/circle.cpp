// Circle outlines, drawn only where they are visible.
//
// The decision variable of the loop is a function of the point that it has reached. It begins with
// 3 - 2r at (0, r); every step adds 4x + 6 and a step inward another 4 - 4y, x and y being the new
// ones:
//     d(x, y) = 2 ((y - r)(y + r) + x^2 + 4x - 3y + 2r) + 3.
// A step goes inward from (x, y) exactly when d(x, y) >= 0. So y at x is the largest Y with
// d(x - 1, Y) < 0, as long as one row a step is enough; d(x, Y - 1) - d(x - 1, Y) = 4 (x - Y) + 14
// shows that it is while Y >= x + 4. There the loop can begin at any x; the few steps beyond are
// walked.
#include <algorithm>
#include <cstdint>

#include "canvas/canvas.h"

namespace orvel {
namespace {

using std::int64_t;

int64_t decision(int64_t r, int64_t x, int64_t y) {
    return 2 * ((y - r) * (y + r) + x * x + 4 * x - 3 * y + 2 * r) + 3;
}

/// The smallest value in [@p low, @p high] for which @p holds is true; @p high if there is none
/// before.
template <typename Predicate>
int64_t first_where(int64_t low, int64_t high, Predicate holds) {
    while (low < high) {
        const int64_t middle = low + (high - low) / 2;
        if (holds(middle)) {
            high = middle;
        } else {
            low = middle + 1;
        }
    }
    return low;
}

/// A point of the arc from the top of a circle to its diagonal, relative to the centre.
struct ArcPoint {
    int64_t x, y, d;

    bool on_arc() const { return y >= x; }

    void next() {
        ++x;
        if (d < 0) {
            d += 4 * x + 6;
        } else {
            --y;
            d += 4 * (x - y) + 10;
        }
    }
};

/// The arc's first point, at the top.
ArcPoint top_of(int64_t r) { return {0, r, 3 - 2 * r}; }

/// The offsets >= 0 at which centre + sign * offset lies in [0, @p size).
Span offsets(int64_t centre, int sign, int64_t size) {
    const Span all = sign > 0 ? Span{-centre, size - centre} : Span{centre - size + 1, centre + 1};
    return visible(all, all.end);
}

/// A point of the arc of radius @p r at or before the first one with x >= @p least_x and
/// y <= @p most_y, and only a few steps before it.
ArcPoint start_of(int64_t r, int64_t least_x, int64_t most_y) {
    if (least_x == 0 && most_y >= r) return top_of(r);
    const int64_t safe =
        first_where(1, r + 1, [r](int64_t x) { return decision(r, x - 1, x + 4) >= 0; }) - 1;
    const int64_t x = first_where(std::min(least_x, safe), safe, [r, most_y](int64_t column) {
        return most_y >= r || (column > 0 && decision(r, column - 1, most_y + 1) >= 0);
    });
    if (x == 0) return top_of(r);
    const int64_t above =
        first_where(x + 5, r + 1, [r, x](int64_t y) { return decision(r, x - 1, y) >= 0; });
    return {x, above - 1, decision(r, x, above - 1)};
}

void draw_whole(const orvel_canvas& canvas, int64_t cx, int64_t cy, int64_t r, orvel_color color) {
    const int64_t stride = canvas.width;
    orvel_color* const centre = pixel_at(canvas, cx, cy);
    for (ArcPoint at = top_of(r); at.on_arc(); at.next()) {
        const int64_t x_rows = at.x * stride;
        const int64_t y_rows = at.y * stride;
        centre[y_rows + at.x] = color;
        centre[y_rows - at.x] = color;
        centre[-y_rows + at.x] = color;
        centre[-y_rows - at.x] = color;
        centre[x_rows + at.y] = color;
        centre[x_rows - at.y] = color;
        centre[-x_rows + at.y] = color;
        centre[-x_rows - at.y] = color;
    }
}

/// Draws the part of one arc for which both offsets are visible. @p x_step and @p y_step lead from
/// one offset to the next, in pixels of memory.
void draw_arc(orvel_color* pixels, int64_t centre, int64_t r, Span xs, Span ys, int64_t x_step,
              int64_t y_step, orvel_color color) {
    // Every y of the arc is at least half the radius.
    if (xs.empty() || ys.empty() || xs.first > r || ys.first > r || 2 * ys.end <= r) return;
    ArcPoint at = start_of(r, xs.first, ys.end - 1);
    while (at.on_arc() && (at.x < xs.first || at.y >= ys.end)) at.next();
    for (; at.on_arc() && at.x < xs.end && at.y >= ys.first; at.next()) {
        pixels[centre + at.x * x_step + at.y * y_step] = color;
    }
}

/// Draws a quarter circle, of which @p columns and @p rows are the offsets that are visible.
void draw_quarter(orvel_color* pixels, int64_t centre, int64_t r, Span columns, Span rows,
                  int64_t column_step, int64_t row_step, orvel_color color) {
    if (columns.first > 0 || rows.first > 0 || std::min(columns.end, rows.end) <= r) {
        draw_arc(pixels, centre, r, columns, rows, column_step, row_step, color);
        draw_arc(pixels, centre, r, rows, columns, row_step, column_step, color);
        return;
    }
    for (ArcPoint at = top_of(r); at.on_arc(); at.next()) {
        pixels[centre + at.x * column_step + at.y * row_step] = color;
        pixels[centre + at.y * column_step + at.x * row_step] = color;
    }
}

/// Draws a circle that is not wholly inside; apart, since one that is needs few registers.
[[gnu::noinline]] void draw_visible(const orvel_canvas& canvas, int64_t cx, int64_t cy, int64_t r,
                                    orvel_color color) {
    const int64_t width = canvas.width;
    for (const int across : {1, -1}) {
        const Span columns = offsets(cx, across, width);
        for (const int down : {1, -1}) {
            const Span rows = offsets(cy, down, canvas.height);
            draw_quarter(canvas.pixels.get(), cy * width + cx, r, columns, rows, across,
                         down * width, color);
        }
    }
}

}  // namespace
}  // namespace orvel

using namespace orvel;

void orvel_canvas_circle(orvel_canvas* canvas, int cx, int cy, int r, orvel_color color) {
    if (!canvas || r < 0) return;
    const int64_t radius = r;
    if (cx - radius >= 0 && cx + radius < canvas->width && cy - radius >= 0 &&
        cy + radius < canvas->height) {
        draw_whole(*canvas, cx, cy, radius, color);
    } else {
        draw_visible(*canvas, cx, cy, radius, color);
    }
}
