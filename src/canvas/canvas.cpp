#include "canvas/canvas.h"

#include <new>

orvel_canvas* orvel_canvas_create(int width, int height) {
    if (width < 1 || height < 1) return nullptr;
    std::unique_ptr<orvel_canvas> canvas(new (std::nothrow) orvel_canvas{width, height, nullptr});
    if (!canvas) return nullptr;
    const std::uint64_t count = std::uint64_t(width) * std::uint64_t(height);
    canvas->pixels.reset(new orvel_color[count]);  // may throw; the record is then released
    orvel_canvas_clear(canvas.get(), {0, 0, 0, 255});
    return canvas.release();
}

void orvel_canvas_destroy(orvel_canvas* canvas) { delete canvas; }

int orvel_canvas_width(const orvel_canvas* canvas) { return canvas ? canvas->width : 0; }

int orvel_canvas_height(const orvel_canvas* canvas) { return canvas ? canvas->height : 0; }

void orvel_canvas_clear(orvel_canvas* canvas, orvel_color color) {
    if (!canvas) return;
    orvel::fill_run(canvas->pixels.get(), std::int64_t(canvas->width) * canvas->height, color);
}

void orvel_canvas_pixel(orvel_canvas* canvas, int x, int y, orvel_color color) {
    if (!canvas || !orvel::inside(*canvas, x, y)) return;
    *orvel::pixel_at(*canvas, x, y) = color;
}

orvel_color orvel_canvas_pixel_get(const orvel_canvas* canvas, int x, int y) {
    if (!canvas || !orvel::inside(*canvas, x, y)) return {};
    return *orvel::pixel_at(*canvas, x, y);
}
