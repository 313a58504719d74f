#pragma once

#include "orvel_kit.h"
#include "player.h"

namespace bench {

struct Ours {
    orvel_canvas* canvas;
    orvel_color color = kInk;

    Ours(int width, int height) : canvas(orvel_canvas_create(width, height)) {}
    ~Ours() { orvel_canvas_destroy(canvas); }
    Ours(const Ours&) = delete;

    static void create(int width, int height) {
        orvel_canvas_destroy(orvel_canvas_create(width, height));
    }

    void ink(orvel_color c) { color = c; }
    void clear(orvel_color c) { orvel_canvas_clear(canvas, c); }
    unsigned at(int x, int y) const {
        const orvel_color c = orvel_canvas_pixel_get(canvas, x, y);
        return static_cast<unsigned>(c.r | c.g << 8 | c.b << 16);
    }

    void pixel(const Op& op) { orvel_canvas_pixel(canvas, op.x0, op.y0, color); }
    void line(const Op& op) { orvel_canvas_line(canvas, op.x0, op.y0, op.x1, op.y1, color); }
    void rect(const Op& op) { orvel_canvas_rect(canvas, op.x0, op.y0, op.x1, op.y1, color); }
    void fill(const Op& op) { orvel_canvas_fill_rect(canvas, op.x0, op.y0, op.x1, op.y1, color); }
    void circle(const Op& op) { orvel_canvas_circle(canvas, op.x0, op.y0, op.x1, color); }
    void disc(const Op& op) { orvel_canvas_fill_circle(canvas, op.x0, op.y0, op.x1, color); }
    void triangle(const Op& op) {
        orvel_canvas_fill_triangle(canvas, op.x0, op.y0, op.x1, op.y1, op.x2, op.y2, color);
    }
    void text(const Op& op) { orvel_text_draw(canvas, op.text.c_str(), op.x0, op.y0, color); }

    void words(const Op& op) {
        kit_text_draw(canvas, face_of(op), op.text.c_str(), op.x0, op.y0, color);
    }
    static const kit_face* face_of(const Op& op) {
        switch (op.x1) {
        case 11: return op.y1 ? kit_bold_11() : kit_sans_11();
        case 12: return op.y1 ? kit_bold_12() : kit_sans_12();
        case 18: return op.y1 ? kit_bold_18() : kit_sans_18();
        default: return kit_sans_40();
        }
    }

    bool save(const char* path, int depth) {
        const auto write = depth == 24 ? orvel_canvas_save_bmp : orvel_canvas_save_bmp_rgba;
        return write(canvas, path) == 0;
    }
};

}  // namespace bench
