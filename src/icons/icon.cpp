#include "icons/icon.h"

#include <algorithm>

#include "icons/directions.h"

namespace orvel {
namespace {

/// The one place where a recipe's numbers become the canvas's.
constexpr int as_int(unsigned number) { return static_cast<int>(number); }

}  // namespace

void Icon::fill(unsigned left, unsigned top, unsigned w, unsigned ht, orvel_color k) const {
    orvel_canvas_fill_rect(canvas, as_int(left), as_int(top), as_int(w), as_int(ht), k);
}

void Icon::frame(unsigned left, unsigned top, unsigned w, unsigned ht, orvel_color k) const {
    orvel_canvas_rect(canvas, as_int(left), as_int(top), as_int(w), as_int(ht), k);
}

void Icon::line(unsigned x0, unsigned y0, unsigned x1, unsigned y1, orvel_color k) const {
    orvel_canvas_line(canvas, as_int(x0), as_int(y0), as_int(x1), as_int(y1), k);
}

void Icon::circle(unsigned px, unsigned py, unsigned r, orvel_color k) const {
    orvel_canvas_circle(canvas, as_int(px), as_int(py), as_int(r), k);
}

void Icon::disc(unsigned px, unsigned py, unsigned r, orvel_color k) const {
    orvel_canvas_fill_circle(canvas, as_int(px), as_int(py), as_int(r), k);
}

void Icon::tri(unsigned x0, unsigned y0, unsigned x1, unsigned y1, unsigned x2, unsigned y2,
               orvel_color k) const {
    orvel_canvas_fill_triangle(canvas, as_int(x0), as_int(y0), as_int(x1), as_int(y1), as_int(x2),
                               as_int(y2), k);
}

void Icon::write(const char* text, unsigned left, unsigned top, orvel_color k) const {
    orvel_text_draw(canvas, text, as_int(left), as_int(top), k);
}

void Icon::fill_rounded_rect(unsigned left, unsigned top, unsigned w, unsigned ht, unsigned r,
                             orvel_color k) const {
    if (as_int(w) < 1 || as_int(ht) < 1) return;
    const unsigned q = std::min({r, w / 2, ht / 2});
    fill(left + q, top, w - 2 * q, ht, k);
    fill(left, top + q, w, ht - 2 * q, k);
    disc(left + q, top + q, q, k);
    disc(left + w - 1 - q, top + q, q, k);
    disc(left + q, top + ht - 1 - q, q, k);
    disc(left + w - 1 - q, top + ht - 1 - q, q, k);
}

void Icon::thick_line(unsigned x0, unsigned y0, unsigned x1, unsigned y1, orvel_color k) const {
    line(x0, y0, x1, y1, k);
    // Deliberate: downward whatever the direction, so a vertical line stays one pixel wide and ends
    // one pixel lower.
    line(x0, y0 + 1, x1, y1 + 1, k);
}

void Icon::fill_star(unsigned px, unsigned py, unsigned r, orvel_color k) const {
    const double R = as_int(r);
    const double Ri = R * 0.42;
    for (const auto& [tip, notch, next] : kStar) {
        tri(px + whole(tip.cosine * R), py + whole(tip.sine * R), px + whole(notch.cosine * Ri),
            py + whole(notch.sine * Ri), px + whole(next.cosine * R), py + whole(next.sine * R), k);
    }
}

void Icon::ring(unsigned px, unsigned py, unsigned r) const {
    thin_ring(px, py, r);
    if (s >= 6) circle(px, py, r - 2, c);
}

void Icon::thin_ring(unsigned px, unsigned py, unsigned r) const {
    circle(px, py, r, c);
    if (s >= 3) circle(px, py, r - 1, c);
}

}  // namespace orvel
