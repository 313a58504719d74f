// Lines, exact and clipped before the loop.
//
// With M and m the longer and the shorter extent, Bresenham's loop moves one pixel along the longer
// axis at every step, and after k steps it has moved floor((2km + M - 1) / 2M) along the shorter
// one. Half of that numerator, rounded down, keeps the quotient and fits 64 bits for any two
// points. So the visible steps are one range, found by division, and the loop starts in its middle.
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

}  // namespace

void orvel_canvas_line(orvel_canvas* canvas, int x0, int y0, int x1, int y1, orvel_color color) {
    if (!canvas) return;
    Axis major = {x0, x1, canvas->width, 1};
    Axis minor = {y0, y1, canvas->height, canvas->width};
    if (minor.extent() > major.extent()) std::swap(major, minor);

    Steps steps = visible(major);
    const Steps sideways = visible(minor);
    if (steps.empty() || sideways.empty()) return;

    const uint64_t M = major.extent();
    const uint64_t m = minor.extent();
    const uint64_t half = M ? (M - 1) / 2 : 0;
    if (sideways.first > 0) {
        const uint64_t needed = sideways.first * M - half;
        steps.first = std::max(steps.first, (needed + m - 1) / m);
    }
    if (sideways.last < m) {
        steps.last = std::min(steps.last, ((sideways.last + 1) * M - half - 1) / m);
    }
    if (steps.empty()) return;

    const uint64_t begun = steps.first ? (steps.first * m + half) / M : 0;
    uint64_t error = steps.first * m + half - begun * M;
    orvel_color* pixel = canvas->pixels.get() + major.offset(steps.first) + minor.offset(begun);
    const uint64_t count = steps.last - steps.first + 1;
    if (m == 0 && major.stride == 1) {
        const uint64_t leftmost = major.forward() ? 0 : count - 1;
        orvel::fill_run(pixel - leftmost, static_cast<int64_t>(count), color);
        return;
    }
    const int64_t along = major.step();
    const int64_t aside = minor.step();
    for (uint64_t left = count;;) {
        *pixel = color;
        if (--left == 0) return;
        pixel += along;
        error += m;
        if (error >= M) {
            error -= M;
            pixel += aside;
        }
    }
}
