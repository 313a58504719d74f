// Kinds that show a state. Later steps paint over earlier ones.
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "widgets/painter.h"

namespace kit {

void Painter::toggle() {
    library(orvel_widget_toggle(canvas, &T, x, y, w, h, active));
    ring(all(), active ? T.background : T.accent);
}

void Painter::checkbox() {
    const int side = std::min({m.mark, w, h});
    const int top = y + (h - side) / 2;
    frame(x, top, side, side, T.border);
    ring({x, top, side, side}, T.accent);
    if (active) {
        // The tick, as thick as letters are; beside larger letters it keeps off the frame.
        const int edge = side < 13 ? 0 : 1, rows = side < 13 ? 1 : side / 6;
        const auto at = [=](int part) { return edge + (part * (side - 1 - 2 * edge) + 4) / 8; };
        for (int up = 0; up < rows; ++up) {
            const int foot = top + at(8) - up;
            orvel_canvas_line(canvas, x + at(1), top + at(5) - up, x + at(4), foot, T.accent);
            orvel_canvas_line(canvas, x + at(4), foot, x + at(8), top + at(1) + edge - up,
                              T.accent);
        }
    }
    write(text, between(side + m.pad, 0), KIT_LEFT, T.text);
}

void Painter::radio() {
    const int side = odd(std::min({m.mark, w, h}));
    const int r = side / 2, cx = x + r, cy = y + (h - side) / 2 + r;
    orvel_canvas_circle(canvas, cx, cy, r, focus ? T.accent : T.border);
    if (focus && r > 1) orvel_canvas_circle(canvas, cx, cy, r - 1, T.accent);
    disc(cx, cy, r / 2, active ? T.accent : T.surface);
    write(text, between(side + m.pad, 0), KIT_LEFT, T.text);
}

void Painter::slider() {
    const int side = odd(std::min({m.mark, w, h}));
    const int r = side / 2, cy = y + (h - 1) / 2;
    const int length = w - side;  // the knob's middle stays this far inside the box
    const int filled = static_cast<int>(fraction(widget.value) * length);
    const int rail = h < 3 ? 1 : 3;
    fill(x + r, cy - rail / 2, length, rail, T.border);
    fill(x + r, cy - rail / 2, filled, rail, T.accent);
    const orvel_color knob = hover ? T.button_hover : T.accent;
    disc(x + r + filled, cy, r, focus ? T.accent : knob);
    if (!focus || r < 3) return;
    disc(x + r + filled, cy, r - 1, T.background);
    disc(x + r + filled, cy, r - 3, knob);
}

void Painter::progress() { library(orvel_widget_progress(canvas, &T, x, y, w, h, widget.value)); }

void Painter::spinner() {
    // The library's dot reaches over its square: the ring is as large as the dot leaves room for.
    const int half = (std::min(w, h) - 1) / 2;
    int r = half * 3 / 4;
    while (r > 0 && r + r / 3 + 1 > half) --r;
    const int size = 2 * (r + 2);
    library(orvel_widget_spinner(canvas, &T, x + w / 2 - size / 2, y + h / 2 - size / 2, size,
                                 widget.value));
}

void Painter::rating() {
    if (h < 16) {
        library(orvel_widget_rating(canvas, &T, x, y, widget.value));
        return ring(all(), T.accent);
    }
    constexpr int kLargest = 16384;  // of icons
    const int side = odd(std::clamp((w - 6) / 5, 1, std::min(h - 6, kLargest)));
    const int pitch = std::max(side, std::min(side + m.pad / 2, (w - 6 - side) / 4));
    const int shining = static_cast<int>(std::lround(fraction(widget.value) * 5));
    for (int i = 0; i < 5; ++i) {
        star(x + 3 + i * pitch, y + (h - side) / 2, side, i < shining ? T.accent : T.border);
    }
    ring(all(), T.accent);
}

void Painter::star(int left, int top, int side, orvel_color color) const {
    struct Point {
        int x, y;
    };
    // Five points on a circle of radius 1000, and between them the three of the inner five that
    // make three triangles of the star.
    constexpr Point kTips[] = {{0, -1000}, {951, -309}, {588, 809}, {-588, 809}, {-951, -309}};
    constexpr Point kRight = {363, 118}, kBottom = {0, 382}, kLeft = {-363, 118};
    constexpr Point kParts[3][3] = {
        {kTips[4], kTips[1], kBottom}, {kTips[0], kTips[3], kRight}, {kTips[0], kTips[2], kLeft}};
    const auto column = [=](Point p) { return left + ((p.x + 951) * (side - 1) + 951) / 1902; };
    const auto row = [=](Point p) { return top + ((p.y + 1000) * (side - 1) + 951) / 1902; };
    for (const auto& [a, b, c] : kParts) {
        orvel_canvas_fill_triangle(canvas, column(a), row(a), column(b), row(b), column(c), row(c),
                                   color);
    }
}

void Painter::stepper() {
    const int s = h / 2, cy = y + h / 2;
    frame(x, y, h, h, T.border);
    frame(x + w - h, y, h, h, T.border);
    const int arm = std::clamp(m.cap / 3, 3, std::max(3, s - 1)), thick = 2 + m.cap / 18;
    fill(x + s - arm, cy - 1, 2 * arm + 1, thick, T.text);  // minus
    const int p = x + w - s;
    fill(p - arm, cy - 1, 2 * arm + 1, thick, T.text);  // plus
    fill(p - 1, cy - arm, thick, 2 * arm + 1, T.text);
    char number[16];
    std::snprintf(number, sizeof number, "%d", widget.amount);
    write(*text ? text : number, between(h + 2, h + 2), KIT_CENTRE, T.text);
    ring(all(), T.accent);
}

void Painter::bars() {
    Made made(orvel_widget_bars(canvas, &T, x, y, w, h));
    // More values than columns change nothing: all bars are then two pixels apart.
    const int count = widget.count < 1 ? 0 : std::min(widget.count - 1, w) + 1;
    if (made) orvel_widget_set_data(made.get(), widget.data, count);
    library(made.release());
}

}  // namespace kit
