// A widget being drawn, and the recipe of every kind.
#pragma once

#include <memory>

#include "orvel_kit.h"
#include "widgets/measures.h"

namespace kit {

struct DestroyWidget {
    void operator()(orvel_widget* widget) const { orvel_widget_destroy(widget); }
};
using Made = std::unique_ptr<orvel_widget, DestroyWidget>;

/// One widget being drawn: its record with every side filled in, the colours it is drawn in, and
/// the words that its recipes are written in. Nothing here looks at the edges of the box: what does
/// not keep to them by itself is drawn on a canvas of the box's own, see contained().
struct Painter {
    orvel_canvas* canvas;
    const orvel_theme& given;  // for what takes no colour from the theme
    orvel_theme T;
    const kit_widget& widget;
    Measures m;
    const char* text;
    int x, y, w, h;
    bool hover, active, focus, disabled;
    int status = 0;

    Painter(orvel_canvas* on, const orvel_theme& theme, const kit_widget& record,
            const kit_box& box);

    /// Whether the recipe keeps to a box of this size.
    bool contained() const;

    /// Runs the recipe, which leaves the status of the call.
    void paint();

private:
    void fill(int left, int top, int width, int height, orvel_color color) const {
        orvel_canvas_fill_rect(canvas, left, top, width, height, color);
    }
    void frame(int left, int top, int width, int height, orvel_color color) const {
        orvel_canvas_rect(canvas, left, top, width, height, color);
    }
    void disc(int cx, int cy, int r, orvel_color color) const {
        orvel_canvas_fill_circle(canvas, cx, cy, r, color);
    }
    void icon(const char* name, int left, int top, int size, orvel_color color);
    void write(const char* words, const kit_box& room, kit_align align, orvel_color color) const;

    /// Draws a widget of the library's in the state of this one, and destroys it; raises for null.
    void library(orvel_widget* made) const;
    /// The sign of focus: two lines inside the edge, the inner one in @p inner.
    void ring(const kit_box& around, orvel_color inner) const;
    kit_box all() const { return {x, y, w, h}; }
    /// The box without @p left and @p right columns.
    kit_box between(int left, int right) const { return {x + left, y, w - left - right, h}; }
    orvel_color quiet() const { return kit_mix(T.text, T.background, 45); }

    void field();
    /// What of the text, moved @p scroll columns to the left out of its room, lies in @p part.
    void write_part(const kit_box& part, const kit_box& room, int scroll, orvel_color color);
    void items(orvel_widget* (*make)(orvel_canvas*, const orvel_theme*, const char*, int, int, int,
                                     int, int),
               orvel_color chosen);
    void star(int left, int top, int side, orvel_color color) const;
    void mixed_image();
    /// Mixes what was drawn in the box, for pixels that the theme has no part in.
    void mix_all() const;

    using Recipe = void();
    Recipe window, panel, label, button, toggle, checkbox, slider;
    Recipe progress, textbox, icon, image, separator, card, radio;
    Recipe dropdown, spinner, rating, stepper, tabs, avatar, badge;
    Recipe titlebar, list_item, menu, bars, search, tooltip, statusbar;
};

/// @p value as a fraction: clamped to [0, 1], 0 for NaN.
inline double fraction(double value) {
    if (!(value > 0)) return 0;
    return value < 1 ? value : 1;
}

/// Whether any of the box is on the canvas.
bool meets(const orvel_canvas* canvas, const kit_box& box);

/// A canvas of a box's own, whose pixels return to the box when the widget is drawn.
class Inside {
public:
    Inside(orvel_canvas* canvas, const kit_box& box)
        : canvas_(canvas), box_(box), own_(kit_clip_begin(canvas, &box_)) {}
    ~Inside() { orvel_canvas_destroy(own_); }
    Inside(const Inside&) = delete;
    Inside& operator=(const Inside&) = delete;

    orvel_canvas* canvas() const { return own_; }
    const kit_box& box() const { return box_; }
    void finish() {
        kit_clip_end(canvas_, &box_, own_);
        own_ = nullptr;
    }

private:
    orvel_canvas* canvas_;
    kit_box box_;
    orvel_canvas* own_;
};

}  // namespace kit
