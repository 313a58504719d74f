// Writes down the shapes and texts that icons and widgets are drawn with, for the peers to draw.
// It is linked with the library's icons, themes and widgets, but with a canvas of its own.
#include <cstdio>
#include <cstring>
#include <memory>

#include "canvas/canvas.h"
#include "screen.h"
#include "workload.h"

namespace {

void record(bench::Shape shape, orvel_color c, int x0, int y0, int x1 = 0, int y1 = 0, int x2 = 0,
            int y2 = 0, const char* text = "") {
    std::printf("%d %d %d %d %d %d %d %d %d %d %d %s\n", static_cast<int>(shape), x0, y0, x1, y1,
                x2, y2, c.r, c.g, c.b, c.a, text);
}

}  // namespace

using bench::Shape;

orvel_color orvel_canvas_pixel_get(const orvel_canvas*, int, int) { return bench::kPaper; }
void orvel_canvas_pixel(orvel_canvas*, int x, int y, orvel_color color) {
    record(Shape::pixel, color, x, y);
}
void orvel_canvas_line(orvel_canvas*, int x0, int y0, int x1, int y1, orvel_color color) {
    record(Shape::line, color, x0, y0, x1, y1);
}
void orvel_canvas_rect(orvel_canvas*, int x, int y, int w, int h, orvel_color color) {
    if (w > 0 && h > 0) record(Shape::rect, color, x, y, w, h);
}
void orvel_canvas_fill_rect(orvel_canvas*, int x, int y, int w, int h, orvel_color color) {
    if (w > 0 && h > 0) record(Shape::fill, color, x, y, w, h);
}
void orvel_canvas_circle(orvel_canvas*, int cx, int cy, int r, orvel_color color) {
    if (r >= 0) record(Shape::circle, color, cx, cy, r);
}
void orvel_canvas_fill_circle(orvel_canvas*, int cx, int cy, int r, orvel_color color) {
    if (r >= 0) record(Shape::disc, color, cx, cy, r);
}
void orvel_canvas_fill_triangle(orvel_canvas*, int x0, int y0, int x1, int y1, int x2, int y2,
                                orvel_color color) {
    record(Shape::triangle, color, x0, y0, x1, y1, x2, y2);
}
void orvel_text_draw(orvel_canvas*, const char* text, int x, int y, orvel_color color) {
    if (*text) record(Shape::text, color, x, y, 0, 0, 0, 0, text);
}
int orvel_text_width(const char* text) {
    const int bytes = static_cast<int>(std::strlen(text));
    return bytes ? 6 * bytes - 1 : 0;
}

int main() {
    orvel_canvas canvas = {bench::kIconCanvasWidth, bench::kIconCanvasHeight, nullptr};
    for (const int size : {16, 32, 64}) {
        std::printf("scene icons %d\n", size);
        bench::draw_all_icons(&canvas, size);
    }
    orvel_theme theme;
    orvel_theme_default(&theme);
    std::puts("scene screen");
    const auto widgets = bench::make_screen(&canvas, &theme);
    bench::draw_screen(widgets);
    bench::destroy_screen(widgets);
}
