// The drawing words that icons and widgets are written in.
#pragma once

#include "orvel.h"

namespace orvel {

struct Pen {
    orvel_canvas* canvas;

    void fill(int x, int y, int w, int h, orvel_color c) const {
        orvel_canvas_fill_rect(canvas, x, y, w, h, c);
    }
    void frame(int x, int y, int w, int h, orvel_color c) const {
        orvel_canvas_rect(canvas, x, y, w, h, c);
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
    void write(const char* text, int x, int y, orvel_color c) const {
        orvel_text_draw(canvas, text, x, y, c);
    }
};

}  // namespace orvel
