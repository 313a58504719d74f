#include <cairo.h>

#include <map>

#include "player.h"

namespace bench {
namespace {

struct Cairo {
    cairo_surface_t* surface;
    cairo_t* context;
    int width, height;
    std::map<std::pair<int, int>, cairo_scaled_font_t*> fonts;  // by size and weight

    Cairo(int w, int h)
        : surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, w, h)),
          context(cairo_create(surface)),
          width(w),
          height(h) {
        cairo_set_antialias(context, CAIRO_ANTIALIAS_NONE);
        cairo_set_line_width(context, 1.0);
        cairo_set_line_cap(context, CAIRO_LINE_CAP_SQUARE);
        cairo_font_options_t* options = cairo_font_options_create();
        cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_NONE);
        cairo_set_font_options(context, options);
        cairo_font_options_destroy(options);
        cairo_set_font_size(context, 8.0);
    }
    ~Cairo() {
        for (const auto& [key, font] : fonts) cairo_scaled_font_destroy(font);
        cairo_destroy(context);
        cairo_surface_destroy(surface);
    }
    Cairo(const Cairo&) = delete;

    static void create(int w, int h) { Cairo(w, h).clear({0, 0, 0, 255}); }

    void ink(orvel_color c) {
        cairo_set_source_rgb(context, c.r / 255.0, c.g / 255.0, c.b / 255.0);
    }
    void clear(orvel_color c) {
        ink(c);
        cairo_paint(context);
    }
    void finish() { cairo_surface_flush(surface); }
    unsigned at(int x, int y) const {
        const auto* row =
            cairo_image_surface_get_data(surface) + y * cairo_image_surface_get_stride(surface);
        return reinterpret_cast<const unsigned*>(row)[x] & 0xFFFFFF;
    }

    void box(int x, int y, int w, int h) {
        cairo_rectangle(context, x, y, w, h);
        cairo_fill(context);
    }
    void pixel(const Op& op) { box(op.x0, op.y0, 1, 1); }
    void fill(const Op& op) { box(op.x0, op.y0, op.x1, op.y1); }
    void line(const Op& op) {
        cairo_move_to(context, op.x0 + 0.5, op.y0 + 0.5);
        cairo_line_to(context, op.x1 + 0.5, op.y1 + 0.5);
        cairo_stroke(context);
    }
    void rect(const Op& op) {
        cairo_rectangle(context, op.x0 + 0.5, op.y0 + 0.5, op.x1 - 1, op.y1 - 1);
        cairo_stroke(context);
    }
    void arc(const Op& op) {
        cairo_new_path(context);
        cairo_arc(context, op.x0 + 0.5, op.y0 + 0.5, op.x1, 0.0, 2 * 3.14159265358979323846);
    }
    void circle(const Op& op) {
        arc(op);
        cairo_stroke(context);
    }
    void disc(const Op& op) {
        arc(op);
        cairo_fill(context);
    }
    void triangle(const Op& op) {
        cairo_move_to(context, op.x0, op.y0);
        cairo_line_to(context, op.x1, op.y1);
        cairo_line_to(context, op.x2, op.y2);
        cairo_close_path(context);
        cairo_fill(context);
    }
    void words(const Op& op) {
        cairo_scaled_font_t*& font = fonts[{op.x1, op.y1}];
        if (!font) {
            cairo_save(context);
            cairo_select_font_face(context, "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL,
                                   op.y1 ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
            cairo_set_font_size(context, op.x1);
            font = cairo_scaled_font_reference(cairo_get_scaled_font(context));
            cairo_restore(context);
        }
        cairo_set_scaled_font(context, font);
        cairo_move_to(context, op.x0, op.y0);
        cairo_show_text(context, op.text.c_str());
    }
    void text(const Op& op) {
        cairo_move_to(context, op.x0, op.y0 + 7);
        cairo_show_text(context, op.text.c_str());
    }
};

}  // namespace

Implementation cairo() {
    return implementation<Cairo>(std::string("Cairo ") + cairo_version_string());
}

}  // namespace bench
