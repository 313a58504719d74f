#include <pixman.h>

#include <algorithm>

#include "player.h"

namespace bench {
namespace {

struct Pixman {
    pixman_image_t* image;
    pixman_image_t* source = nullptr;
    int width, height;
    std::uint32_t word = 0;

    Pixman(int w, int h)
        : image(pixman_image_create_bits(PIXMAN_x8r8g8b8, w, h, nullptr, 0)), width(w), height(h) {}
    ~Pixman() {
        if (source) pixman_image_unref(source);
        pixman_image_unref(image);
    }
    Pixman(const Pixman&) = delete;

    static void create(int w, int h) { Pixman(w, h).clear({0, 0, 0, 255}); }

    void ink(orvel_color c) {
        word = 0xFF000000u | static_cast<std::uint32_t>(c.r << 16 | c.g << 8 | c.b);
        const auto wide = [](unsigned char v) { return static_cast<std::uint16_t>(v * 257); };
        const pixman_color_t color = {wide(c.r), wide(c.g), wide(c.b), 0xFFFF};
        if (source) pixman_image_unref(source);
        source = pixman_image_create_solid_fill(&color);
    }
    void box(int left, int top, int right, int bottom) {
        left = std::max(left, 0);
        top = std::max(top, 0);
        right = std::min(right, width);
        bottom = std::min(bottom, height);
        if (left >= right || top >= bottom) return;
        pixman_fill(pixman_image_get_data(image), pixman_image_get_stride(image) / 4, 32, left, top,
                    right - left, bottom - top, word);
    }
    void clear(orvel_color c) {
        ink(c);
        box(0, 0, width, height);
    }
    unsigned at(int x, int y) const {
        const int stride = pixman_image_get_stride(image) / 4;
        return pixman_image_get_data(image)[std::ptrdiff_t(y) * stride + x];
    }

    void pixel(const Op& op) { box(op.x0, op.y0, op.x0 + 1, op.y0 + 1); }
    void fill(const Op& op) { box(op.x0, op.y0, op.x0 + op.x1, op.y0 + op.y1); }
    void rect(const Op& op) {
        const int right = op.x0 + op.x1;
        const int bottom = op.y0 + op.y1;
        box(op.x0, op.y0, right, op.y0 + 1);
        box(op.x0, bottom - 1, right, bottom);
        box(op.x0, op.y0, op.x0 + 1, bottom);
        box(right - 1, op.y0, right, bottom);
    }
    void triangle(const Op& op) {
        const auto point = [](int x, int y) {
            return pixman_point_fixed_t{pixman_int_to_fixed(x), pixman_int_to_fixed(y)};
        };
        const pixman_triangle_t shape = {point(op.x0, op.y0), point(op.x1, op.y1),
                                         point(op.x2, op.y2)};
        pixman_composite_triangles(PIXMAN_OP_OVER, source, image, PIXMAN_a1, 0, 0, 0, 0, 1, &shape);
    }
};

}  // namespace

Implementation pixman() {
    return implementation<Pixman>(std::string("pixman ") + pixman_version_string());
}

}  // namespace bench
