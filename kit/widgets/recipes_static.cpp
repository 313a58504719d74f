// Frames and kinds that only show something. Later steps paint over earlier ones.
#include <algorithm>
#include <cstdio>
#include <memory>

#include "pixels/same.h"
#include "widgets/image_size.h"
#include "widgets/painter.h"

namespace kit {
namespace {

void mix_pixels(orvel_canvas* canvas, const kit_box& box, orvel_color with) {
    for (int row = box.y; row < box.y + box.h; ++row) {
        for (int column = box.x; column < box.x + box.w; ++column) {
            const orvel_color color = orvel_canvas_pixel_get(canvas, column, row);
            if (color.a != 0) orvel_canvas_pixel(canvas, column, row, kit_mix(color, with, 50));
        }
    }
}

}  // namespace

void Painter::window() {
    library(orvel_widget_window(canvas, &T, "", x, y, w, h));
    fill(x, y + 12, w, std::min(m.band, h) - 12, T.accent);  // the band is 12 high by itself
    write(text, {x + m.pad, y, w - 2 * m.pad, std::min(m.band, h)}, KIT_LEFT, T.background);
}

void Painter::panel() { library(orvel_widget_panel(canvas, &T, x, y, w, h)); }

void Painter::label() { write(text, all(), KIT_LEFT, T.text); }

void Painter::button() {
    orvel_theme pressed = T;
    pressed.button = pressed.button_hover = T.accent;
    library(orvel_widget_button(canvas, active ? &pressed : &T, "", x, y, w, h));
    const orvel_color ink = active ? T.background : T.button_text;
    kit_box room = between(m.pad, m.pad);
    if (widget.icon && *widget.icon) {
        const int side = std::max(0, std::min({m.icon, h - 4, room.w}));
        const int gap = *text ? m.pad : 0;
        const int length = kit_text_width(widget.face, text);
        const int spare = std::max(0, room.w - side - gap - std::min(length, room.w));
        room.x += spare / 2;
        icon(widget.icon, room.x, y + (h - side) / 2, side, ink);
        room.x += side + gap;
        room.w -= spare / 2 + side + gap;
        write(text, room, KIT_LEFT, ink);
    } else {
        write(text, room, KIT_CENTRE, ink);
    }
    // A ring in the accent cannot be seen on a face in the accent.
    ring(all(), active || same(T.button, T.accent) ? T.background : T.accent);
}

void Painter::icon() {
    const int side = std::min(w, h);
    const int inner = side > 8 ? side - 2 : side;
    icon(text, x + (w - inner) / 2, y + (h - inner) / 2, inner, T.accent);
}

void Painter::image() {
    if (disabled) return mixed_image();
    status = kit_bitmap(canvas, text, x, y);
}

void Painter::mixed_image() {
    int width = 0, height = 0;
    status = image_size(text, &width, &height);
    if (width < 1) return;  // there is none, or nothing to see
    const std::unique_ptr<orvel_canvas, DestroyCanvas> own(kit_canvas(width, height));
    orvel_canvas_clear(own.get(), {});
    status = kit_bitmap(own.get(), text, 0, 0);
    mix_pixels(own.get(), {0, 0, width, height}, T.background);
    kit_stamp(canvas, x, y, own.get(), nullptr);
}

void Painter::separator() {
    // The library's line ends one pixel past its width.
    library(orvel_widget_separator(canvas, &T, x, y + (h - 1) / 2, w - 1));
}

void Painter::card() { library(orvel_widget_card(canvas, &T, x, y, w, h)); }

void Painter::avatar() {
    const int side = odd(std::min(w, h));  // an even one is a pixel larger
    const int left = x + (w - side) / 2, top = y + (h - side) / 2;
    library(orvel_widget_avatar(canvas, &T, "", left, top, side));
    write(text, {left + 1 + side / 8, top, side - 2 * (1 + side / 8), side}, KIT_CENTRE,
          T.background);
}

void Painter::badge() {
    char number[16];
    std::snprintf(number, sizeof number, "%d", widget.amount);
    const int side = odd(std::min(w, h));
    const int r = side / 2, top = y + (h - side) / 2;
    disc(x + r, top + r, r, T.accent);           // left cap
    fill(x + r, top, w - side, side, T.accent);  // body
    disc(x + w - 1 - r, top + r, r, T.accent);   // right cap
    const int margin = std::max(1, side / 6);
    write(*text ? text : number, {x + margin, top, w - 2 * margin, side}, KIT_CENTRE, T.background);
}

void Painter::titlebar() {
    // The dots follow no theme, so they are mixed with all the rest, as pixels.
    if (disabled) T = given;
    library(orvel_widget_titlebar(canvas, &T, "", x, y, w, h));
    constexpr int kDots = 24;
    write(text, between(m.pad, kDots + m.pad), KIT_LEFT, T.text);
    if (disabled) mix_all();
}

void Painter::mix_all() const {
    const int left = std::max(x, 0), top = std::max(y, 0);
    const int right = std::min(x + w, orvel_canvas_width(canvas));
    const int bottom = std::min(y + h, orvel_canvas_height(canvas));
    mix_pixels(canvas, {left, top, right - left, bottom - top}, T.background);
}

void Painter::tooltip() {
    const int bubble = h - 3;
    fill(x, y, w, bubble, T.surface);
    frame(x, y, w, bubble, T.border);
    const int cx = x + w / 2, tip = y + h - 1;
    const auto pointer = [&](int half, int end, orvel_color color) {
        orvel_canvas_fill_triangle(canvas, cx - half, end - 2, cx + half, end - 2, cx, end, color);
    };
    pointer(3, tip, T.border);
    pointer(2, tip - 1, T.surface);  // opens the frame above it
    write(text, {x + m.pad, y, w - 2 * m.pad, bubble}, KIT_CENTRE, T.text);
}

void Painter::statusbar() {
    fill(x, y, w, h, T.surface);
    fill(x, y, w, 1, T.border);  // the library's own line ends one pixel past the width
    write(text, {x + m.pad, y + 1, w - 2 * m.pad, h - 1}, KIT_LEFT, T.text);
}

}  // namespace kit
