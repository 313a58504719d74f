// One function per icon, in catalogue order, one line per step. Later steps paint over earlier
// ones.
#include "icons/directions.h"
#include "icons/icon.h"

namespace orvel {

void Icon::folder() const {
    fill_rounded_rect(x + 1, y + s / 3, s - 2, s - 1 - s / 3, 3, c);
    fill_rounded_rect(x + s / 8, y + s / 8, h, s / 5, 2, a);
}

void Icon::file() const {
    fill_rounded_rect(x + 2, y + 1, s - 4, s - 2, 3, c);
    tri(x + s - 4, y + 1, x + s - 4, y + s / 3, x + s - s / 3 - 2, y + 1, b);  // folded corner
    fill(x + 5, cy, h, 1, a);
    fill(x + 5, cy + 3, h, 1, a);
    fill(x + 5, cy + 6, h, 1, a);
}

void Icon::settings() const {
    ring(cx, cy, s / 3);
    const double R = s / 3 + 1;
    for (const Direction& tooth : kEighths) {
        fill(cx - 1 + whole(tooth.cosine * R), cy - 1 + whole(tooth.sine * R), 3, 3, c);
    }
    disc(cx, cy, s / 9, b);  // hub hole
}

void Icon::home() const {
    tri(x + 2, cy, cx, y + 2, x + s - 2, cy, c);  // roof
    // Deliberate: the centre's row on the canvas shortens the body, and below row s - 2 there is
    // none.
    fill_rounded_rect(x + s / 6, cy, s - s / 3, s - 1 - cy, 2, c);  // body
    fill_rounded_rect(cx - 2, cy + s / 5, 4, 2 * s / 5, 1, b);      // door
}

void Icon::trash() const {
    fill_rounded_rect(x + s / 6, y + 2, s - s / 3, 3, 1, c);  // lid
    fill(x + s / 3, y, s / 3, 4, c);                          // handle
    fill(x + s / 6, y + 5, s - s / 3, s - 7, c);              // can
    fill(x + s / 4, y + 5, 2, s - 7, b);
    fill(cx, y + 5, 2, s - 7, b);
    fill(x + 3 * s / 4, y + 5, 2, s - 7, b);
}

void Icon::search() const {
    const unsigned px = cx - s / 12, py = cy - s / 12;
    ring(px, py, s / 3);
    thick_line(cx + s / 6, cy + s / 6, x + s - 1, y + s - 1, c);  // handle
}

void Icon::play() const {
    tri(x + s / 4, y + s / 7, x + s / 4, y + s - s / 7, x + s - s / 8, cy, c);
}

void Icon::pause() const {
    const unsigned w = s / 6, bh = s - 2 * s / 7;
    fill_rounded_rect(x + s / 4, y + s / 7, w, bh, 2, c);
    fill_rounded_rect(cx, y + s / 7, w, bh, 2, c);
}

void Icon::music() const {
    const unsigned nx = cx - s / 8;
    disc(nx, y + s - s / 6, s / 6, c);                                     // note head
    fill(nx, y + s / 10, 3, s - s / 6, c);                                 // stem
    tri(nx + 3, y + s / 10, cx + s / 5, y + s / 8, nx + 3, y + s / 4, c);  // flag
}

void Icon::volume() const {
    fill(x + s / 10, y + s / 3, s / 4, s / 3, c);
    tri(x + s / 3, y + s / 6, x + s / 3, y + s - s / 6, x + 3 * s / 5, cy, c);
    const unsigned wx = x + 3 * s / 4;
    circle(wx, cy, s / 7, c);
    if (s >= 7) circle(wx, cy, s / 7 - 1, c);
    circle(wx + s / 8, cy, s / 5, c);
    if (s >= 5) circle(wx + s / 8, cy, s / 5 - 1, c);
}

void Icon::wifi() const {
    const unsigned wy = cy - 1;
    circle(cx, wy, 2, c);
    circle(cx, wy, 1, c);
    circle(cx, wy, s / 6, c);
    if (s >= 6) circle(cx, wy, s / 6 - 1, c);
    circle(cx, wy, s / 3, c);
    if (s >= 3) circle(cx, wy, s / 3 - 1, c);
    circle(cx, wy, h, c);
    if (s >= 2) circle(cx, wy, h - 1, c);
}

void Icon::battery() const {
    const unsigned bw = s - s / 4, bh = 3 * s / 5;
    fill_rounded_rect(x + 1, y + s / 5, bw - 1, bh, 2, c);              // case
    fill_rounded_rect(x + s - s / 6, y + s / 3, s / 8, s / 8, 2, c);    // terminal
    fill(x + 3, y + s / 5 + 3, bw - 7, bh - 6, b);                      // inside
    fill(x + 3, y + s / 5 + 3, trunc_div(2 * (bw - 7), 3), bh - 6, c);  // charge level
}

void Icon::app() const {
    const unsigned q = h - 3;
    fill_rounded_rect(x + 2, y + 2, q, q, 2, c);
    fill_rounded_rect(cx + 1, y + 2, q, q, 2, c);
    fill_rounded_rect(x + 2, cy + 1, q, q, 2, c);
    fill_rounded_rect(cx + 1, cy + 1, q, q, 2, c);
}

void Icon::heart() const {
    disc(cx - s / 4, cy - s / 6, s / 4, c);
    disc(cx + s / 4, cy - s / 6, s / 4, c);
    tri(x + 1, cy - s / 8, x + s - 1, cy - s / 8, cx, y + s - 1, c);
}

void Icon::star() const { fill_star(cx, cy, h - 2, c); }

void Icon::arrow_right() const {
    fill(x, cy - 1, h, 3, c);
    tri(x + s / 3, y, x + s, cy, x + s / 3, y + s, c);
}

void Icon::power() const {
    ring(cx, cy, s / 3);
    fill(cx - 2, y + 1, 5, s / 3 - 1, b);  // gap in the ring
    // Deliberate: the stem's height is a row of the canvas, so it grows with the distance from the
    // top.
    fill(cx - 1, y + 1, 3, cy, c);  // stem
}

void Icon::lock() const {
    const unsigned q = s / 4;
    circle(cx, y + q, q, c);  // shackle
    if (s >= 4) circle(cx, y + q, q - 1, c);
    fill_rounded_rect(x + s / 6, y + q, s - s / 3, s - q, 3, c);  // body
    disc(cx, cy + s / 8, 2, b);
    fill(cx - 1, cy + s / 8 + 2, 3, 4, b);  // keyhole
}

void Icon::user() const {
    disc(cx, y + s / 6, s / 7, c);          // head
    disc(cx, y + 3 * s / 4, 3 * s / 8, c);  // shoulders
    // Deliberate: the band hides the upper half of the disc; the lower half, which reaches below
    // the box, is the body.
    fill(x, y + 3 * s / 8, s, 3 * s / 8, b);
}

void Icon::mail() const {
    const unsigned my = y + s / 4;
    fill_rounded_rect(x + 1, my, s - 2, h, 3, c);
    fill(x + 3, my + 2, s - 6, h - 4, b);
    thick_line(x + 3, my + 2, cx, cy, a);
    thick_line(x + s - 3, my + 2, cx, cy, a);
}

void Icon::calendar() const {
    const unsigned t = s / 5, D = s - t - 8;
    fill_rounded_rect(x + 1, y + t, s - 2, s - t - 1, 3, c);
    fill(x + 3, y + t + 3, s - 6, s / 6, b);
    fill(x + 3, y + t + 4 + trunc_div(D, 4), s - 6, 1, b);
    fill(x + 3, y + t + 4 + trunc_div(D, 2), s - 6, 1, b);
    fill(x + 3, y + t + 4 + trunc_div(3 * D, 4), s - 6, 1, b);
    disc(x + t, y + s / 6, 2, a);
    disc(x + 4 * s / 5, y + s / 6, 2, a);
}

void Icon::clock() const {
    if (s >= 4) circle(cx, cy, h - 2, c);
    if (s >= 4 && h != 2) circle(cx, cy, h - 3, c);
    thick_line(cx, cy, cx, cy - s / 4, c);
    thick_line(cx, cy, cx + s / 5, cy, c);
    disc(cx, cy, 2, a);
}

void Icon::bell() const {
    disc(cx, y + s / 4, s / 3, c);
    fill(x + s / 4, y + s / 3, h, s / 5, c);
    disc(cx, y + 3 * s / 5, s / 12, b);
    disc(cx, y + 2 * s / 3, s / 10, c);
    fill(cx - 2, y + 2 * s / 3 + s / 10, 4, 3, c);
}

void Icon::check() const {
    const unsigned kx = cx - s / 10;
    thick_line(x, cy, kx, cy + s / 3, c);
    // Deliberate: the long stroke ends half a box right of the centre, not of where it begins.
    thick_line(kx, cy + s / 3, cx + h, cy - s / 3, c);
}

void Icon::close() const {
    const unsigned p = s / 4, q = 3 * s / 4;
    thick_line(x + p, y + p, x + q, y + q, c);
    thick_line(x + q, y + p, x + p, y + q, c);
}

void Icon::plus() const {
    fill(cx - 2, y + s / 4, 5, h, c);
    fill(x + s / 4, cy - 2, h, 5, c);
}

void Icon::minus() const { fill(x + s / 4, cy - 2, h, 5, c); }

void Icon::camera() const {
    fill_rounded_rect(x, y + s / 4, s, h, 3, c);
    fill_rounded_rect(x + s / 3, y, s / 3, s / 4, 2, c);
    disc(cx, cy, s / 9, a);  // lens
}

void Icon::phone() const {
    fill_rounded_rect(x + s / 6, y + 1, s - s / 3, s - 2, s / 4, c);
    fill(cx - 2, y + s / 6, 5, 3, b);
    fill(cx - 3, y + s - s / 4, 7, 3, b);
}

void Icon::cloud() const {
    const unsigned q = s / 4, ly = cy - s / 10;
    disc(cx - q, ly, q, c);
    disc(cx + q, ly, q, c);
    disc(cx, cy - q, q, c);
    fill(x + s / 10, ly, 4 * s / 5, s / 3, c);
}

void Icon::sun() const {
    disc(cx, cy, s / 4, c);
    const double R1 = s / 4 + s / 12, R2 = s / 3;
    for (const Direction& ray : kEighths) {
        line(cx + whole(ray.cosine * R1), cy + whole(ray.sine * R1), cx + whole(ray.cosine * R2),
             cy + whole(ray.sine * R2), c);
    }
}

void Icon::moon() const {
    disc(cx - s / 8, cy, s / 3, c);
    disc(cx + s / 10, cy - s / 12, s / 3, b);
}

void Icon::download() const {
    fill(cx - 1, y + s / 6, 3, s / 3, c);
    tri(x + s / 4, y + s / 3, x + 3 * s / 4, y + s / 3, cx, y + 2 * s / 3, c);
    fill(x + s / 6, y + 3 * s / 4, 2 * s / 3, s / 6, c);  // tray
}

void Icon::upload() const {
    fill(cx - 1, y + s / 3, 3, s / 3, c);
    tri(x + s / 4, y + 2 * s / 3, x + 3 * s / 4, y + 2 * s / 3, cx, y + s / 3, c);
    fill(x + s / 6, y + 3 * s / 4, 2 * s / 3, s / 6, c);  // tray
}

}  // namespace orvel
