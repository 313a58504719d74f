// What the icons' recipes are written in.
#pragma once

#include "core/numbers.h"
#include "orvel.h"

namespace orvel {

/// One icon being drawn: its box, its colours, and the words of its recipe.
///
/// The numbers are unsigned, so that sums wrap and quotients round down whatever the box; the
/// canvas is handed the same 32 bits as signed numbers. A product is formed before it is divided,
/// and wraps first: 3 * s / 4 is not s - s / 4.
struct Icon {
    orvel_canvas* canvas;
    unsigned x, y, s;    // top left corner and side
    unsigned h, cx, cy;  // half the side, rounded down; the centre
    orvel_color c;       // what the icon is drawn in
    orvel_color a;       // the accent, for details
    orvel_color b;       // the background, for cut-outs

    void fill(unsigned left, unsigned top, unsigned w, unsigned ht, orvel_color k) const;
    void frame(unsigned left, unsigned top, unsigned w, unsigned ht, orvel_color k) const;
    void line(unsigned x0, unsigned y0, unsigned x1, unsigned y1, orvel_color k) const;
    void circle(unsigned px, unsigned py, unsigned r, orvel_color k) const;
    void disc(unsigned px, unsigned py, unsigned r, orvel_color k) const;
    void tri(unsigned x0, unsigned y0, unsigned x1, unsigned y1, unsigned x2, unsigned y2,
             orvel_color k) const;
    void write(const char* text, unsigned left, unsigned top, orvel_color k) const;

    /// A box with corners of radius @p r, or as much of it as half the shorter side allows. A
    /// negative radius counts as more than any half. Nothing when a side is below 1.
    void fill_rounded_rect(unsigned left, unsigned top, unsigned w, unsigned ht, unsigned r,
                           orvel_color k) const;
    /// A line, and the same line one pixel lower.
    void thick_line(unsigned x0, unsigned y0, unsigned x1, unsigned y1, orvel_color k) const;
    /// Five triangles, each over two neighbouring tips and the notch between them.
    void fill_star(unsigned px, unsigned py, unsigned r, orvel_color k) const;
    /// A circle outline as wide as the box allows, up to three pixels.
    void ring(unsigned px, unsigned py, unsigned r) const;
    /// The same, up to two pixels.
    void thin_ring(unsigned px, unsigned py, unsigned r) const;

    using Recipe = void() const;
    Recipe folder, file, settings, home, trash, search, play, pause, music, volume, wifi, battery,
        app, heart, star, arrow_right, power, lock, user, mail, calendar, clock, bell, check, close,
        plus, minus, camera, phone, cloud, sun, moon, download, upload;
    Recipe refresh, save, edit, share, message, menu, list, more, logout, key, wallet, cart, gift,
        info, help, warning, shield, eye, mic, image, code, terminal, link, world, pin, send, back,
        up, down, bluetooth, airplane, signal, print, alarm;
};

/// The signed quotient of a number that can be negative, rounded toward zero.
constexpr unsigned trunc_div(unsigned dividend, int divisor) {
    return static_cast<unsigned>(static_cast<int>(dividend) / divisor);
}

/// @p value rounded toward zero, to be added to a coordinate.
constexpr unsigned whole(double value) { return static_cast<unsigned>(trunc(value)); }

}  // namespace orvel
