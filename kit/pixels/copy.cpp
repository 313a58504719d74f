// From canvas to canvas, by way of a strip of pixels: one canvas may be both, and equal pixels
// beside each other are drawn as one rectangle.
#include <algorithm>
#include <cstdint>

#include "orvel_kit.h"
#include "pixels/same.h"

namespace {

constexpr int kStrip = 512;

/// What of a line of pixels is copied: from @p from on to @p to on.
struct Span {
    int from, to, count;
};

/// The part of [@p start, @p start + @p count) that lies on a side of @p from_size and, moved to
/// @p to, on one of @p to_size. The count is below 1 where nothing does.
Span visible(std::int64_t start, std::int64_t count, int from_size, std::int64_t to, int to_size) {
    const std::int64_t moved = to - start;
    const std::int64_t first = std::max({start, std::int64_t{0}, -moved});
    const std::int64_t end = std::min({start + count, std::int64_t{from_size}, to_size - moved});
    if (first >= end) return {0, 0, 0};
    return {static_cast<int>(first), static_cast<int>(first + moved),
            static_cast<int>(end - first)};
}

/// Draws @p pixels on the row @p y; those with alpha 0 only where @p clear_ones are wanted.
void draw_strip(orvel_canvas* to, int x, int y, const orvel_color* pixels, int count,
                bool clear_ones) {
    for (int start = 0, end; start < count; start = end) {
        const orvel_color color = pixels[start];
        for (end = start + 1; end < count && kit::same(pixels[end], color); ++end) {
        }
        if (color.a == 0 && !clear_ones) continue;
        if (end - start == 1) {
            orvel_canvas_pixel(to, x + start, y, color);
        } else {
            orvel_canvas_fill_rect(to, x + start, y, end - start, 1, color);
        }
    }
}

int copy(orvel_canvas* to, int x, int y, const orvel_canvas* from, const kit_box* part,
         bool clear_ones) {
    if (!to || !from) return -1;
    const int width = orvel_canvas_width(from), height = orvel_canvas_height(from);
    const kit_box box = part ? *part : kit_box{0, 0, width, height};
    const Span columns = visible(box.x, box.w, width, x, orvel_canvas_width(to));
    const Span rows = visible(box.y, box.h, height, y, orvel_canvas_height(to));
    // On one canvas no pixel may be drawn over before it was read: the far ends go first then.
    const bool rows_back = rows.to > rows.from, strips_back = columns.to > columns.from;
    const int strips = (columns.count + kStrip - 1) / kStrip;
    orvel_color pixels[kStrip];
    for (int i = 0; i < rows.count; ++i) {
        const int row = rows_back ? rows.count - 1 - i : i;
        for (int k = 0; k < strips; ++k) {
            const int start = (strips_back ? strips - 1 - k : k) * kStrip;
            const int count = std::min(kStrip, columns.count - start);
            for (int n = 0; n < count; ++n) {
                pixels[n] = orvel_canvas_pixel_get(from, columns.from + start + n, rows.from + row);
            }
            draw_strip(to, columns.to + start, rows.to + row, pixels, count, clear_ones);
        }
    }
    return 0;
}

}  // namespace

int kit_copy(orvel_canvas* to, int x, int y, const orvel_canvas* from, const kit_box* part) {
    return copy(to, x, y, from, part, true);
}

int kit_stamp(orvel_canvas* to, int x, int y, const orvel_canvas* from, const kit_box* part) {
    return copy(to, x, y, from, part, false);
}

orvel_canvas* kit_clip_begin(const orvel_canvas* canvas, kit_box* box) {
    if (!canvas || !box) return nullptr;
    const Span columns =
        visible(box->x, box->w, orvel_canvas_width(canvas), box->x, orvel_canvas_width(canvas));
    const Span rows =
        visible(box->y, box->h, orvel_canvas_height(canvas), box->y, orvel_canvas_height(canvas));
    orvel_canvas* const inside = kit_canvas(columns.count, rows.count);
    if (!inside) return nullptr;
    *box = {columns.from, rows.from, columns.count, rows.count};
    kit_copy(inside, 0, 0, canvas, box);
    return inside;
}

int kit_clip_end(orvel_canvas* canvas, const kit_box* box, orvel_canvas* inside) {
    if (inside == canvas) return -1;
    int status = -1;
    if (box) {
        const kit_box part = {0, 0, box->w, box->h};
        status = kit_copy(canvas, box->x, box->y, inside, &part);
    }
    orvel_canvas_destroy(inside);
    return status;
}

int kit_icon(orvel_canvas* canvas, const char* name, int x, int y, int size, orvel_color color) {
    constexpr int kLargest = 16384;  // up to here the library's triangles are exact
    if (!canvas || !orvel_icon_exists(name) || size < 1 || size > kLargest) return -1;
    // What lies further right or down than the canvas reaches is not needed.
    const Span columns = visible(0, size, size, x, orvel_canvas_width(canvas));
    const Span rows = visible(0, size, size, y, orvel_canvas_height(canvas));
    if (columns.count < 1 || rows.count < 1) return 0;
    orvel_canvas* const own = kit_canvas(columns.from + columns.count, rows.from + rows.count);
    if (!own) return -1;
    const kit_box ground = {columns.to, rows.to, columns.count, rows.count};
    const kit_box drawn = {columns.from, rows.from, columns.count, rows.count};
    kit_copy(own, drawn.x, drawn.y, canvas, &ground);
    orvel_color behind = orvel_canvas_pixel_get(canvas, ground.x, ground.y);
    if (behind.a == 0) behind = {0, 0, 0, 255};
    orvel_draw_icon_ex(own, name, 0, 0, size, color, color, behind);
    kit_copy(canvas, ground.x, ground.y, own, &drawn);
    orvel_canvas_destroy(own);
    return 0;
}
