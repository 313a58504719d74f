// Lines, exact and clipped before the loop.
//
// With M and m the longer and the shorter extent, Bresenham's loop moves one pixel along the longer
// axis at every step, and after k steps it has moved floor((2km + M - 1) / 2M) along the shorter
// one. Half of that numerator, rounded down, keeps the quotient and fits 64 bits for any two
// points. So the visible steps are one range, found by division, and the loop starts at the first
// of them.
#include <algorithm>
#include <cstdint>
#include <utility>

#include "canvas/canvas.h"

namespace orvel {
namespace {

using std::int64_t;
using std::uint32_t;
using std::uint64_t;

/// One axis of a line.
struct Axis {
    int64_t start;   // where the line begins
    int64_t end;     // where it ends
    int64_t size;    // the canvas along this axis
    int64_t stride;  // from one position to the next, in pixels of memory

    bool forward() const { return end > start; }
    uint64_t extent() const { return static_cast<uint64_t>(forward() ? end - start : start - end); }
    int64_t offset(uint64_t steps) const {
        const int64_t moved = static_cast<int64_t>(steps);
        return (forward() ? start + moved : start - moved) * stride;
    }
};

/// The numbers of steps along @p axis at which it is inside the canvas, which it is at some.
Span visible_steps(const Axis& axis) {
    const bool forward = axis.forward();
    const Span inside = forward ? Span{-axis.start, axis.size - axis.start}
                                : Span{axis.start - axis.size + 1, axis.start + 1};
    return visible(inside, static_cast<int64_t>(axis.extent()) + 1);
}

/// What is added before the steps along the shorter axis are rounded down; the longer one is not 0.
uint64_t half_of(uint64_t M) { return (M - 1) / 2; }

/// The numbers of steps at which a line whose bounds meet the canvas is inside it.
Span visible_steps(const Axis& major, const Axis& minor) {
    Span steps = visible_steps(major);
    const Span sideways = visible_steps(minor);
    const uint64_t M = major.extent();
    const uint64_t m = minor.extent();
    const uint64_t half = half_of(M);
    const auto first = static_cast<uint64_t>(sideways.first);
    const auto end = static_cast<uint64_t>(sideways.end);
    if (first > 0) {
        steps.first = std::max(steps.first, static_cast<int64_t>((first * M - half + m - 1) / m));
    }
    if (end <= m) {
        steps.end = std::min(steps.end, static_cast<int64_t>((end * M - half - 1) / m) + 1);
    }
    return steps;
}

/// Consecutive pixels of a line, all of them inside.
struct Part {
    orvel_color* first;
    uint64_t steps;  // from the first pixel to the last
    int64_t error;   // at the first pixel; the first sum >= 0 is that of a step aside
};

/// What is inside of a line of which not all is; no pixel of it may be.
Part clipped(const orvel_canvas& canvas, const Axis& major, const Axis& minor) {
    const Span steps = visible_steps(major, minor);
    if (steps.empty()) return {nullptr, 0, 0};
    const auto first = static_cast<uint64_t>(steps.first);
    const uint64_t M = major.extent();
    const uint64_t m = minor.extent();
    const uint64_t half = half_of(M);
    const uint64_t aside = first ? (first * m + half) / M : 0;
    return {canvas.pixels.get() + major.offset(first) + minor.offset(aside),
            static_cast<uint64_t>(steps.count() - 1),
            static_cast<int64_t>(first * m + half - aside * M - M)};
}

/// Lines of more steps do not stay in the nearest cache.
constexpr uint64_t kNear = 128;
/// Pixels so far apart, or several times that, share too few of its places to be fetched ahead.
constexpr int64_t kCrowded = 1024;

/// Draws verticals and diagonals, which have one stride. Long ones read each pixel before they
/// store it: processors fetch what many reads miss at once, but what stores miss one after the
/// other. Inlined, this and draw() would have every line save registers.
[[gnu::noinline]] void draw_straight(orvel_color* pixel, uint64_t steps, int64_t stride,
                                     uint32_t word) {
    store(pixel, word);
    if (steps > kNear && stride % kCrowded != 0) {
        for (uint64_t to_go = steps; to_go > 0; --to_go) {
            const volatile std::uint8_t* const fetched = &(pixel += stride)->r;
            static_cast<void>(*fetched);
            store(pixel, word);
        }
    } else {
        for (uint64_t to_go = steps; to_go > 0; --to_go) store(pixel += stride, word);
    }
}

void draw_vertical(const orvel_canvas& canvas, int x, Span rows, orvel_color color) {
    rows = visible(rows, canvas.height);
    if (x < 0 || x >= canvas.width || rows.empty()) return;
    draw_straight(pixel_at(canvas, x, rows.first), static_cast<uint64_t>(rows.count() - 1),
                  canvas.width, word_of(color));
}

/// Draws lines with two strides. The choice between them avoids a branch misprediction per pixel.
void draw_slanted(const Part& part, int64_t M, int64_t m, int64_t ahead, int64_t ahead_and_aside,
                  uint32_t word) {
    orvel_color* pixel = part.first;
    int64_t error = part.error;
    store(pixel, word);
    for (uint64_t to_go = part.steps; to_go > 0; --to_go) {
        error += m;
        const bool steps_aside = error >= 0;
        pixel += steps_aside ? ahead_and_aside : ahead;
        if (steps_aside) error -= M;
        store(pixel, word);
    }
}

/// From so many pixels a row on, rows pay for being drawn one by one.
constexpr int64_t kFlat = 6;

/// Draws lines that stay in each row for many pixels, row by row.
void draw_flat(const Part& part, int64_t M, int64_t m, int64_t column, int64_t row,
               orvel_color color) {
    const int64_t quotient = M / m, rest = M % m;
    orvel_color* pixel = part.first;
    auto to_go = static_cast<int64_t>(part.steps) + 1;
    int64_t count = (m - 1 - part.error) / m;  // pixels in this row
    int64_t error = part.error + count * m;    // behind them, before the step aside
    for (;;) {
        const int64_t drawn = std::min(count, to_go);
        fill_run(column > 0 ? pixel : pixel - (drawn - 1), drawn, color);
        to_go -= drawn;
        if (to_go == 0) return;
        pixel += drawn * column + row;
        count = quotient + (rest > error);
        error += count * m - M;
    }
}

/// Draws any line but a horizontal or vertical one.
[[gnu::noinline]] void draw(const orvel_canvas& canvas, int x0, int y0, int x1, int y1,
                            orvel_color color) {
    const auto [left, right] = std::minmax(x0, x1);
    const auto [top, bottom] = std::minmax(y0, y1);
    if (right < 0 || bottom < 0 || left >= canvas.width || top >= canvas.height) return;
    const int64_t width = static_cast<int64_t>(right) - left;
    const int64_t height = static_cast<int64_t>(bottom) - top;
    const bool is_steep = height > width;
    const int64_t M = is_steep ? height : width;
    const int64_t m = is_steep ? width : height;
    Part part;
    if (left >= 0 && top >= 0 && right < canvas.width && bottom < canvas.height) {
        const auto extent = static_cast<uint64_t>(M);
        part = {pixel_at(canvas, x0, y0), extent, static_cast<int64_t>(half_of(extent)) - M};
    } else {
        const Axis across = {x0, x1, canvas.width, 1};
        const Axis down = {y0, y1, canvas.height, canvas.width};
        part = is_steep ? clipped(canvas, down, across) : clipped(canvas, across, down);
        if (!part.first) return;
    }
    const int64_t column = x1 > x0 ? 1 : -1;
    const int64_t row = y1 > y0 ? canvas.width : -static_cast<int64_t>(canvas.width);
    if (m == M) {
        draw_straight(part.first, part.steps, row + column, word_of(color));
    } else if (!is_steep && M >= kFlat * m) {
        draw_flat(part, M, m, column, row, color);
    } else {
        draw_slanted(part, M, m, is_steep ? row : column, row + column, word_of(color));
    }
}

}  // namespace
}  // namespace orvel

using namespace orvel;

void orvel_canvas_line(orvel_canvas* canvas, int x0, int y0, int x1, int y1, orvel_color color) {
    if (!canvas) return;
    if (y0 == y1) {
        if (y0 < 0 || y0 >= canvas->height) return;
        fill_span(*canvas, {std::min(x0, x1), int64_t{std::max(x0, x1)} + 1}, y0, color);
    } else if (x0 == x1) {
        draw_vertical(*canvas, x0, {std::min(y0, y1), int64_t{std::max(y0, y1)} + 1}, color);
    } else {
        draw(*canvas, x0, y0, x1, y1, color);
    }
}
