// A widget being drawn, and the recipe of every kind.
#pragma once

#include <vector>

#include "text/pen.h"
#include "widgets/widget.h"

namespace orvel {

/// One widget being drawn: its record, its theme, and the words that its recipes are written in.
struct Painter : Pen {
    const orvel_theme& T;
    const char* text;
    const char* icon_name;
    int x, y, w, h;
    bool hover, active;
    int amount;
    double value;
    const std::vector<double>& data;

    explicit Painter(const orvel_widget& widget);

    /// Runs the recipe of @p kind; nothing when there is none.
    void paint(int kind) const;

private:
    void icon(const char* name, int left, int top, int size, orvel_color c) const {
        orvel_draw_icon(canvas, name, left, top, size, c);
    }
    void bitmap(const char* name, int left, int top) const {
        orvel_icon_draw_bitmap(canvas, name, left, top);
    }
    static int tw(const char* s) { return orvel_text_width(s); }
    /// The top of a text that is centred vertically.
    int centred_row() const { return y + (h - 7) / 2; }

    using Recipe = void() const;
    Recipe window, panel, label, button, toggle, checkbox, slider;
    Recipe progress, textbox, icon, image, separator, card, radio;
    Recipe dropdown, spinner, rating, stepper, tabs, avatar, badge;
    Recipe titlebar, list_item, menu, bars, search, tooltip, statusbar;
};

}  // namespace orvel
