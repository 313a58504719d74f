#include "canvas/canvas.h"

#include <algorithm>
#include <limits>
#include <new>

using namespace orvel;

orvel_canvas* orvel_canvas_create(int width, int height) {
    if (width < 1 || height < 1) return nullptr;
    std::unique_ptr<orvel_canvas> canvas(new (std::nothrow) orvel_canvas{width, height, nullptr});
    if (!canvas) return nullptr;
    // What a 32-bit size cannot hold must not be cut to it: the most that it holds is refused too.
    const std::uint64_t count = std::min<std::uint64_t>(
        static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height),
        std::numeric_limits<std::size_t>::max());
    // May throw; the record is then released.
    canvas->pixels.reset(new orvel_color[static_cast<std::size_t>(count)]);
    orvel_canvas_clear(canvas.get(), {0, 0, 0, 255});
    return canvas.release();
}

void orvel_canvas_destroy(orvel_canvas* canvas) { delete canvas; }

int orvel_canvas_width(const orvel_canvas* canvas) { return canvas ? canvas->width : 0; }

int orvel_canvas_height(const orvel_canvas* canvas) { return canvas ? canvas->height : 0; }

void orvel_canvas_clear(orvel_canvas* canvas, orvel_color color) {
    if (!canvas) return;
    const std::int64_t count = static_cast<std::int64_t>(canvas->width) * canvas->height;
    if (count >= kLongRun) return fill_long_run(canvas->pixels.get(), count, word_of(color));
    fill_run(canvas->pixels.get(), count, color);
}

void orvel_canvas_pixel(orvel_canvas* canvas, int x, int y, orvel_color color) {
    if (!canvas || !inside(*canvas, x, y)) return;
    *pixel_at(*canvas, x, y) = color;
}

orvel_color orvel_canvas_pixel_get(const orvel_canvas* canvas, int x, int y) {
    if (!canvas || !inside(*canvas, x, y)) return {};
    return *pixel_at(*canvas, x, y);
}
