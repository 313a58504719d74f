#include "whole/interface_models.h"

#include <algorithm>
#include <cstdlib>

#include "models/bitmap_model.h"
#include "models/shapes_model.h"
#include "models/text_model.h"
#include "support/files.h"
#include "support/picture.h"

namespace orvel_test {
namespace {

__extension__ using Wide = __int128;  // products of two differences of ints

/// A line by asking every pixel, since it can be too long to be walked: the pixels less than half a
/// step away from it across, and those just half a step away on its start's side.
void line(model::Canvas& canvas, const std::vector<int>& ends, orvel_color color) {
    const Wide dx = std::abs(std::int64_t{ends[2]} - ends[0]), sx = ends[2] > ends[0] ? 1 : -1;
    const Wide dy = std::abs(std::int64_t{ends[3]} - ends[1]), sy = ends[3] > ends[1] ? 1 : -1;
    for (int y = 0; y < canvas.height; ++y) {
        for (int x = 0; x < canvas.width; ++x) {
            const Wide i = sx * (Wide{x} - ends[0]), j = sy * (Wide{y} - ends[1]);
            if (i < 0 || i > dx || j < 0 || j > dy) continue;
            const Wide ahead = 2 * (i * dy - j * dx);
            const Wide off = dx >= dy ? ahead : -ahead;
            const Wide step = std::max(dx, dy);
            if (step == 0 || (-step < off && off <= step)) canvas.put(x, y, color);
        }
    }
}

/// Draws a shape or a text; false for what is neither.
bool primitive(const std::string& name, const HostArguments& arguments, orvel_color color,
               model::Canvas& canvas) {
    const std::vector<int>& n = arguments.ints;
    if (name == "orvel_canvas_clear") {
        model::clear(canvas, color);
    } else if (name == "orvel_canvas_pixel") {
        model::pixel(canvas, n[0], n[1], color);
    } else if (name == "orvel_canvas_line") {
        line(canvas, n, color);
    } else if (name == "orvel_canvas_rect") {
        model::rect(canvas, n[0], n[1], n[2], n[3], color);
    } else if (name == "orvel_canvas_fill_rect") {
        model::fill_rect(canvas, n[0], n[1], n[2], n[3], color);
    } else if (name == "orvel_canvas_circle") {
        model::circle(canvas, n[0], n[1], n[2], color);
    } else if (name == "orvel_canvas_fill_circle") {
        model::fill_circle(canvas, n[0], n[1], n[2], color);
    } else if (name == "orvel_canvas_fill_triangle") {
        model::fill_triangle(canvas, n[0], n[1], n[2], n[3], n[4], n[5], color);
    } else if (name == "orvel_text_draw" && arguments.texts[0]) {
        model::text_draw(canvas, arguments.texts[0], n[0], n[1], color);
    } else {
        return false;
    }
    return true;
}

}  // namespace

bool draw_by_model(const HostFunction& function, const Stage& stage, const HostArguments& arguments,
                   orvel_canvas* canvas) {
    constexpr int kWalkable = 100000;
    const std::string name = function.name;
    if (name == "orvel_canvas_circle" && arguments.ints[2] > kWalkable) return false;
    if (name.rfind("orvel_draw_icon", 0) == 0 || name.rfind("orvel_widget_", 0) == 0) return false;
    if (name == "orvel_icon_draw_bitmap" && arguments.texts[0]) {
        const std::string file = read_file(std::string("Icons/") + arguments.texts[0] + ".bmp");
        BitmapModel(file).draw(canvas, arguments.ints[0], arguments.ints[1]);
        return true;
    }
    const int width = orvel_canvas_width(canvas), height = orvel_canvas_height(canvas);
    model::Canvas plain(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) plain.put(x, y, orvel_canvas_pixel_get(canvas, x, y));
    }
    if (!primitive(name, arguments, stage.colors[0], plain)) return true;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) orvel_canvas_pixel(canvas, x, y, plain.at(x, y));
    }
    return true;
}

}  // namespace orvel_test
