#include "icons/icon.h"

#include <algorithm>
#include <cmath>

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
    for (int i = 0; i <= 8; i += 2) {
        // Deliberate: these digits, not a better pi; the first tip points straight up.
        const double tip = (i * 3.14159265358979) / 5.0 + (-1.570796326794895);
        const double notch = tip + 0.628318530717958;
        const double next = tip + 1.256637061435916;
        tri(px + whole(std::cos(tip) * R), py + whole(std::sin(tip) * R),
            px + whole(std::cos(notch) * Ri), py + whole(std::sin(notch) * Ri),
            px + whole(std::cos(next) * R), py + whole(std::sin(next) * R), k);
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
