#include <Imlib2.h>

#include "player.h"

namespace bench {
namespace {

struct Imlib {
    Imlib_Image image;
    int width, height;
    const std::uint32_t* data;

    Imlib(int w, int h) : image(imlib_create_image(w, h)), width(w), height(h) {
        select();
        imlib_context_set_blend(0);
        imlib_context_set_anti_alias(0);
        data = imlib_image_get_data_for_reading_only();
    }
    ~Imlib() {
        select();
        imlib_free_image();
    }
    Imlib(const Imlib&) = delete;

    static void create(int w, int h) { Imlib(w, h).clear({0, 0, 0, 255}); }

    void select() { imlib_context_set_image(image); }
    void ink(orvel_color c) {
        select();
        imlib_context_set_color(c.r, c.g, c.b, c.a);
    }
    void clear(orvel_color c) {
        ink(c);
        imlib_image_fill_rectangle(0, 0, width, height);
    }
    /// Without the alpha, which drawing leaves as it was.
    unsigned at(int x, int y) const { return data[std::ptrdiff_t(y) * width + x] & 0xFFFFFF; }

    void pixel(const Op& op) { imlib_image_draw_pixel(op.x0, op.y0, 0); }
    void line(const Op& op) { imlib_image_draw_line(op.x0, op.y0, op.x1, op.y1, 0); }
    void rect(const Op& op) { imlib_image_draw_rectangle(op.x0, op.y0, op.x1, op.y1); }
    void fill(const Op& op) { imlib_image_fill_rectangle(op.x0, op.y0, op.x1, op.y1); }
    void circle(const Op& op) { imlib_image_draw_ellipse(op.x0, op.y0, op.x1, op.x1); }
    void disc(const Op& op) { imlib_image_fill_ellipse(op.x0, op.y0, op.x1, op.x1); }
    void triangle(const Op& op) {
        ImlibPolygon polygon = imlib_polygon_new();
        imlib_polygon_add_point(polygon, op.x0, op.y0);
        imlib_polygon_add_point(polygon, op.x1, op.y1);
        imlib_polygon_add_point(polygon, op.x2, op.y2);
        imlib_image_fill_polygon(polygon);
        imlib_polygon_free(polygon);
    }

    bool save(const char* path, int depth) {
        if (depth != 24) return false;
        select();
        imlib_image_set_format("bmp");
        Imlib_Load_Error error = IMLIB_LOAD_ERROR_NONE;
        imlib_save_image_with_error_return(path, &error);
        return error == IMLIB_LOAD_ERROR_NONE;
    }
    void bitmap(const Workload& work) {
        Imlib_Image loaded = imlib_load_image_immediately_without_cache(work.file.c_str());
        if (!loaded) return;
        imlib_context_set_image(loaded);
        const int w = imlib_image_get_width();
        const int h = imlib_image_get_height();
        select();
        imlib_blend_image_onto_image(loaded, 0, 0, 0, w, h, work.x, work.y, w, h);
        imlib_context_set_image(loaded);
        imlib_free_image();
        select();
    }
};

}  // namespace

Implementation imlib() {
    const int version = imlib_version();
    return implementation<Imlib>("Imlib2 " + std::to_string(version / 10000) + "." +
                                 std::to_string(version / 100 % 100) + "." +
                                 std::to_string(version % 100));
}

}  // namespace bench
