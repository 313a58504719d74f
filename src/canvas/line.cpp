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

namespace {

using std::int64_t;
using std::uint64_t;

/// One axis of a line.
struct Axis {
    int64_t start;   // where the line begins
    int64_t end;     // where it ends
    int64_t size;    // the canvas along this axis
    int64_t stride;  // from one position to the next, in pixels of memory

    bool forward() const { return end > start; }
    uint64_t extent() const { return static_cast<uint64_t>(forward() ? end - start : start - end); }
    int64_t step() const { return forward() ? stride : -stride; }
    int64_t offset(uint64_t steps) const {
        const int64_t moved = static_cast<int64_t>(steps);
        return (forward() ? start + moved : start - moved) * stride;
    }
};

/// Numbers of steps, both ends included; empty when first > last.
struct Steps {
    uint64_t first, last;
    bool empty() const { return first > last; }
};

constexpr Steps kNone = {1, 0};

/// The numbers of steps along @p axis at which it is inside the canvas.
Steps visible(const Axis& axis) {
    const bool forward = axis.forward();
    const int64_t near = forward ? -axis.start : axis.start - (axis.size - 1);
    const int64_t far = forward ? axis.size - 1 - axis.start : axis.start;
    if (far < 0) return kNone;
    return {static_cast<uint64_t>(std::max<int64_t>(near, 0)),
            std::min(static_cast<uint64_t>(far), axis.extent())};
}

/// What is added to the steps made along the shorter axis before they are rounded down.
uint64_t half_of(uint64_t extent) { return extent ? (extent - 1) / 2 : 0; }

/// The numbers of steps at which a line is inside the canvas.
Steps visible(const Axis& major, const Axis& minor) {
    Steps steps = visible(major);
    const Steps sideways = visible(minor);
    if (steps.empty() || sideways.empty()) return kNone;
    const uint64_t M = major.extent();
    const uint64_t m = minor.extent();
    const uint64_t half = half_of(M);
    if (sideways.first > 0) {
        const uint64_t needed = sideways.first * M - half;
        steps.first = std::max(steps.first, (needed + m - 1) / m);
    }
    if (sideways.last < m) {
        steps.last = std::min(steps.last, ((sideways.last + 1) * M - half - 1) / m);
    }
    return steps;
}

/// Draws the given steps of a line, all of them inside.
void draw(orvel_color* pixels, const Axis& major, const Axis& minor, Steps steps,
          orvel_color color) {
    const uint64_t M = major.extent();
    const uint64_t m = minor.extent();
    const uint64_t half = half_of(M);
    const uint64_t begun = steps.first ? (steps.first * m + half) / M : 0;
    // Verticals and diagonals have one stride. For the others the choice between two is made
    // without a branch, which the processor could not foresee.
    const bool is_straight = m == 0 || m == M;
    const int64_t ahead_and_aside = major.step() + minor.step();
    const int64_t ahead = m == M ? ahead_and_aside : major.step();
    orvel_color* pixel = pixels + major.offset(steps.first) + minor.offset(begun);
    int64_t error = static_cast<int64_t>(steps.first * m + half - begun * M - M);
    for (uint64_t to_go = steps.last - steps.first + 1;;) {
        *pixel = color;
        if (--to_go == 0) return;
        if (is_straight) {
            pixel += ahead;
            continue;
        }
        error += static_cast<int64_t>(m);
        const bool steps_aside = error >= 0;
        pixel += steps_aside ? ahead_and_aside : ahead;
        if (steps_aside) error -= static_cast<int64_t>(M);
    }
}

}  // namespace

void orvel_canvas_line(orvel_canvas* canvas, int x0, int y0, int x1, int y1, orvel_color color) {
    if (!canvas) return;
    const auto [left, right] = std::minmax(x0, x1);
    const auto [top, bottom] = std::minmax(y0, y1);
    if (right < 0 || bottom < 0 || left >= canvas->width || top >= canvas->height) return;
    if (top == bottom) {
        return orvel::fill_span(*canvas, left, int64_t(right) + 1, top, color);
    }
    Axis major = {x0, x1, canvas->width, 1};
    Axis minor = {y0, y1, canvas->height, canvas->width};
    if (minor.extent() > major.extent()) std::swap(major, minor);

    Steps steps = {0, major.extent()};
    if (left < 0 || top < 0 || right >= canvas->width || bottom >= canvas->height) {
        steps = visible(major, minor);
        if (steps.empty()) return;
    }
    draw(canvas->pixels.get(), major, minor, steps, color);
}
