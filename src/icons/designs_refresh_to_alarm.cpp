// The other half of the icons, written as the first.
#include "icons/icon.h"

namespace orvel {

void Icon::refresh() const {
    ring(cx, cy, s / 3);
    fill(cx - 2, y + 2, 6, s / 3 - 2, b);             // gap at the top
    tri(cx - 4, y + 2, cx + 4, y + 2, cx, y + 7, c);  // arrow head
}

void Icon::save() const {
    fill_rounded_rect(x + 2, y, s - 4, s - 2, 2, c);
    fill(x + s / 3, y, s / 3, s / 6, b);                                    // shutter
    thick_line(x + s / 5, y + 3 * s / 4, x + 4 * s / 5, y + 3 * s / 4, c);  // label line
}

void Icon::edit() const {
    const unsigned p = x + s / 4, q = y + 3 * s / 4;
    tri(p, q, p + 3, q + 5, p + 5, q - 2, a);  // pencil tip
    thick_line(p + 3, q - 1, x + 3 * s / 4, y + s / 4, c);
    thick_line(p + 4, q, x + 3 * s / 4 + 1, y + s / 4 + 1, c);
}

void Icon::share() const {
    const unsigned t = s / 6, r = s / 8, by = y + s - t;
    disc(cx, y + t, r, c);
    disc(x + t, by, r, c);
    disc(x + s - t, by, r, c);
    thick_line(cx, y + t + r, x + t + s / 10, by - r, c);
    thick_line(cx, y + t + r, x + s - t - s / 10, by - r, c);
}

void Icon::message() const {
    fill_rounded_rect(x + s / 8, y + s / 6, 3 * s / 4, h, 4, c);                           // bubble
    tri(x + s / 6, y + 2 * s / 3, x + s / 3, y + 2 * s / 3, x + s / 8, y + 5 * s / 6, c);  // tail
    disc(cx, y + s / 3, 2, b);
    disc(cx, cy, 2, b);
}

void Icon::menu() const {
    const unsigned mx = x + s / 5, mw = 3 * s / 5;
    fill(mx, y + s / 4, mw, 3, c);
    fill(mx, cy - 1, mw, 3, c);
    fill(mx, y + 3 * s / 4, mw, 3, c);
}

void Icon::list() const {
    const unsigned q = s / 4, dx = x + s / 6, lx = x + s / 3;
    disc(dx, y + q + 1, 2, a);
    fill(lx, y + q, h, 3, c);
    disc(dx, y + 2 * q + 1, 2, a);
    fill(lx, y + 2 * q, h, 3, c);
    // Deliberate: q + h, not three quarters, so the last gap can be a pixel wider.
    disc(dx, y + q + h + 1, 2, a);
    fill(lx, y + q + h, h, 3, c);
}

void Icon::more() const {
    disc(cx, y + s / 6, s / 8, c);
    disc(cx, cy, s / 8, c);
    disc(cx, y + 5 * s / 6, s / 8, c);
}

void Icon::logout() const {
    const unsigned t = s / 5, d = 3 * s / 5, lx = x + s / 6;
    fill_rounded_rect(lx, y + t, d, d, 3, c);  // door frame
    // Deliberate: the cut-out starts at the frame's left edge and leaves the frame open there.
    fill(lx, y + t + 2, d - 4, d - 4, b);
    thick_line(cx - s / 6, cy, x + 3 * s / 4, cy, c);
    tri(x + 2 * s / 3, cy - t, x + 5 * s / 6, cy, x + 2 * s / 3, cy + t, c);
}

void Icon::key() const {
    const unsigned kx = x + s / 4;
    disc(kx, cy, s / 6, c);                        // bow
    fill(kx, cy - 2, h, 5, c);                     // shaft
    fill(x + 3 * s / 4 - 2, cy, s / 5, s / 6, c);  // bit
    disc(kx, cy, s / 12, b);
}

void Icon::wallet() const {
    const unsigned wy = y + s / 4;
    fill_rounded_rect(x, wy, s, h, 3, c);
    fill_rounded_rect(x + s / 8, wy - 2, s / 4, s / 6, 2, a);  // card
    disc(x + 3 * s / 4, cy, s / 12, a);                        // clasp
    fill(x + s / 4, wy + 3, h, h - 6, b);
}

void Icon::cart() const {
    const unsigned by = y + 3 * s / 5, wy = y + 5 * s / 6;
    line(x + s / 6, y + s / 6, x + s / 5, by, c);
    line(x + s / 5, by, x + 4 * s / 5, by, c);
    line(x + 4 * s / 5, by, x + 3 * s / 4, y + 4 * s / 5, c);
    disc(x + s / 3, wy, s / 12, c);
    disc(x + 2 * s / 3, wy, s / 12, c);
    disc(x + s / 3, wy, s / 20, b);
    disc(x + 2 * s / 3, wy, s / 20, b);
}

void Icon::gift() const {
    fill_rounded_rect(x + s / 6, y + s / 3, 2 * s / 3, h, 2, c);  // box
    fill(cx - 2, y + s / 4, 4, s - s / 4, c);                     // ribbon
    fill(x + s / 6, y + s / 3, 2 * s / 3, s / 10, b);             // line under the lid
    tri(cx - s / 5, y, cx + s / 5, y, cx, y + s / 4, c);          // bow
}

void Icon::info() const {
    thin_ring(cx, cy, s / 3);
    disc(cx, y + s / 4, s / 16, c);        // dot
    fill(cx - 1, y + s / 3, 2, s / 3, c);  // bar
}

void Icon::help() const {
    thin_ring(cx, cy, s / 3);
    write("?", cx - 2, cy - 4, c);
}

void Icon::warning() const {
    const unsigned t = s / 8, by = y + 5 * s / 6;
    line(cx, y + t, x + t, by, c);
    line(cx, y + t, x + s - t, by, c);
    line(x + t, by, x + s - t, by, c);
    fill(cx - 1, y + s / 3, 3, s / 4, c);
    disc(cx, y + 3 * s / 4, 2, c);
}

void Icon::shield() const {
    const unsigned t = s / 6, sy = y + s / 3;
    tri(cx, y + s / 8, x + t, sy, x + s - t, sy, c);
    fill(x + t, sy, 2 * s / 3, 3 * s / 5, c);
    disc(cx, y + 2 * s / 3, t, b);
    disc(cx, y + 2 * s / 3, s / 12, c);
}

void Icon::eye() const {
    const unsigned ex = cx - s / 3, w = 2 * s / 3, t = s / 6;
    thin_ring(cx, cy, s / 3);
    fill(ex, y + 2, w, t, b);  // the two bands cut off the top and the bottom of the ring
    fill(ex, y + s - t - 2, w, t, b);
    disc(cx, cy, s / 12, c);  // pupil
}

void Icon::mic() const {
    fill_rounded_rect(x + s / 3, y + 2, s / 3, h, 2, c);  // capsule
    circle(cx, cy + s / 5, s / 5, c);                     // holder
    if (s >= 5) circle(cx, cy + s / 5, s / 5 - 1, c);
    line(cx, y + 3 * s / 4, cx, y + 5 * s / 6, c);                    // stand
    line(x + s / 3, y + 5 * s / 6, x + 2 * s / 3, y + 5 * s / 6, c);  // base
}

void Icon::image() const {
    const unsigned fy = y + s / 8, fh = 3 * s / 4;
    fill_rounded_rect(x + 1, fy, s - 2, fh, 3, c);
    fill(x + 3, fy + 2, s - 6, fh - 4, b);
    disc(x + 3 * s / 4, y + s / 4, h / 7, c);                                       // sun
    tri(x + 3, y + 7 * s / 8 - 2, cx, y + s / 3, x + s - 3, y + 7 * s / 8 - 2, c);  // mountain
}

void Icon::code() const {
    tri(x + s / 5, cy, cx, y + s / 5, cx, y + 4 * s / 5, c);
    tri(x + 4 * s / 5, cy, cx, y + s / 5, cx, y + 4 * s / 5, c);
}

void Icon::terminal() const {
    fill_rounded_rect(x, y, s, s, 3, c);
    fill(x + 2, y + 2, s - 4, s - 4, b);
    write(">", x + s / 6, y + s / 6, c);
    line(x + s / 6, y + 3 * s / 4, x + 4 * s / 5, y + 3 * s / 4, c);
}

void Icon::link() const {
    const unsigned r = s / 7, r2 = h / 7;
    const unsigned px = x + s / 5, py = y + 3 * s / 4;
    const unsigned qx = x + 4 * s / 5, qy = y + s / 4;
    disc(px, py, r, c);
    disc(qx, qy, r, c);
    thick_line(x + s / 5 + r, y + 3 * s / 4 - s / 10, x + 4 * s / 5 - r, y + s / 4 + s / 10, c);
    disc(px, py, r2, b);
    disc(qx, qy, r2, b);
}

void Icon::world() const {
    thin_ring(cx, cy, s / 3);
    line(cx, y + s / 6, cx, y + 5 * s / 6, c);
    line(x + s / 6, cy, x + 5 * s / 6, cy, c);
    // Deliberate: a single diagonal.
    line(x + s / 6 + 3, y + s / 4, x + 5 * s / 6 - 3, y + 3 * s / 4, c);
}

void Icon::pin() const {
    const unsigned py = y + s / 4, t = s / 5;
    disc(cx, py, t, c);
    tri(cx - t, py, cx + t, py, cx, y + s, c);
    disc(cx, py, s / 12, b);
}

void Icon::send() const {
    tri(x + 7 * s / 8, cy, x + s / 6, y + s / 5, x + s / 6, y + 4 * s / 5, c);
    line(x + s / 6, y + 2 * s / 3, cx, cy + s / 8, c);
}

void Icon::back() const {
    fill(cx, cy - 1, h, 3, c);
    tri(x, cy, x + s / 3, y, x + s / 3, y + s, c);
}

void Icon::up() const {
    fill(cx - 1, y + s / 3, 3, h, c);
    tri(cx, y, x + s / 5, y + s / 3, x + 4 * s / 5, y + s / 3, c);
}

void Icon::down() const {
    fill(cx - 1, y + s / 6, 3, h, c);
    tri(cx, y + s, x + s / 5, y + 2 * s / 3, x + 4 * s / 5, y + 2 * s / 3, c);
}

void Icon::bluetooth() const {
    fill(cx - 1, y + s / 8, 3, 3 * s / 4, c);
    tri(cx, y + s / 6, cx, cy, x + 2 * s / 3, y + s / 4, c);
    tri(cx, cy, cx, y + 5 * s / 6, x + 2 * s / 3, y + 3 * s / 4, c);
}

void Icon::airplane() const {
    const unsigned t = s / 8, q = s / 4;
    fill(x + t, cy - 1, 3 * s / 4, 3, c);  // fuselage
    tri(cx - q, cy - 1, cx + q, cy - 1, cx, y + t, c);
    tri(cx - s / 3, cy + 1, cx - s / 6, cy + 1, cx - q, y + 5 * s / 6, c);
    tri(x + s - 2, cy, x + s - s / 6, cy - t, x + s - s / 6, cy + t, c);
}

void Icon::signal() const {
    const unsigned bw = s / 8, base = y + s;
    fill_rounded_rect(x, base - s / 5, bw, s / 5, 1, c);
    fill_rounded_rect(x + s / 4, base - 2 * s / 5, bw, 2 * s / 5, 1, c);
    fill_rounded_rect(cx, base - 3 * s / 5, bw, 3 * s / 5, 1, c);
    fill_rounded_rect(x + 3 * s / 4, base - 4 * s / 5, bw, 4 * s / 5, 1, c);
}

void Icon::print() const {
    fill_rounded_rect(x + s / 6, y + s / 6, 2 * s / 3, s / 3, 2, c);  // paper
    fill_rounded_rect(x + s / 5, cy, 3 * s / 5, s / 3, 2, c);         // body
    fill(x + s / 5, cy + 2, 3 * s / 5 - 4, s / 3 - 4, b);
    disc(x + 3 * s / 4, y + s / 3, s / 16, a);  // light
}

void Icon::alarm() const {
    thin_ring(cx, cy, s / 3);
    thick_line(cx, cy, cx, cy - s / 4, c);
    thick_line(cx, cy, cx + s / 5, cy, c);
    disc(cx - s / 6, y + s / 8, s / 12, c);
    disc(cx + s / 6, y + s / 8, s / 12, c);
    line(cx - s / 6 - s / 12, y + s / 10, x + 2, y + s / 5, c);
    line(cx + s / 6 + s / 12, y + s / 10, x + s - 2, y + s / 5, c);
}

}  // namespace orvel
