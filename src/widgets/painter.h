// A widget being drawn, and the recipe of every kind.
#pragma once

#include <vector>

#include "text/font.h"
#include "widgets/widget.h"

namespace orvel {

/// One widget being drawn: its record, its theme, and the words that its recipes are written in.
class Painter {
public:
    explicit Painter(const orvel_widget& widget);

    /// Runs the recipe of @p kind; nothing for a number that is no kind.
    void paint(orvel_widget_kind kind) const;

private:
    orvel_canvas* canvas;
    const orvel_theme& T;
    const char* text;
    const char* icon_name;
    int x, y, w, h;
    bool hover, active;
    int amount;
    double value;
    const std::vector<double>& data;

    void fill(int left, int top, int width, int height, orvel_color c) const {
        orvel_canvas_fill_rect(canvas, left, top, width, height, c);
    }
    void frame(int left, int top, int width, int height, orvel_color c) const {
        orvel_canvas_rect(canvas, left, top, width, height, c);
    }
    void line(int x0, int y0, int x1, int y1, orvel_color c) const {
        orvel_canvas_line(canvas, x0, y0, x1, y1, c);
    }
    void circle(int cx, int cy, int r, orvel_color c) const {
        orvel_canvas_circle(canvas, cx, cy, r, c);
    }
    void disc(int cx, int cy, int r, orvel_color c) const {
        orvel_canvas_fill_circle(canvas, cx, cy, r, c);
    }
    void tri(int x0, int y0, int x1, int y1, int x2, int y2, orvel_color c) const {
        orvel_canvas_fill_triangle(canvas, x0, y0, x1, y1, x2, y2, c);
    }
    void write(const char* words, int left, int top, orvel_color c) const {
        orvel_text_draw(canvas, words, left, top, c);
    }
    void icon(const char* name, int left, int top, int size, orvel_color c) const {
        orvel_draw_icon(canvas, name, left, top, size, c);
    }
    void bitmap(const char* name, int left, int top) const {
        orvel_icon_draw_bitmap(canvas, name, left, top);
    }
    static int tw(const char* s) { return orvel_text_width(s); }
    /// The top of a text that is centred vertically.
    int centred_row() const { return y + (h - kGlyphHeight) / 2; }

    using Recipe = void() const;
    Recipe window, panel, label, button, toggle, checkbox, slider;
    Recipe progress, textbox, icon, image, separator, card, radio;
    Recipe dropdown, spinner, rating, stepper, tabs, avatar, badge;
    Recipe titlebar, list_item, menu, bars, search, tooltip, statusbar;
};

}  // namespace orvel
