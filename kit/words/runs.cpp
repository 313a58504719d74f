#include "words/runs.h"

#include <algorithm>
#include <bit>
#include <cstddef>

#include "words/face_data.h"
#include "words/strokes.h"

namespace kit {
namespace {

using std::int64_t;
using std::uint64_t;

constexpr int kChunk = 64;  // columns looked at together

Clip common(const Clip& a, const Clip& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

Clip all_of(const Glyph& glyph) { return {0, 0, glyph.width, glyph.height}; }

/// Up to 8 bytes as one number, the first one highest.
uint64_t load(const unsigned char* bytes, int64_t count) {
    uint64_t bits = uint64_t{bytes[0]} << 56;
    for (int64_t i = 1; i < count; ++i) bits |= uint64_t{bytes[i]} << (kChunk - 8 - 8 * i);
    return bits;
}

/// The runs of bits in the rows and, by and large, the columns of @p part.
template <typename Use>
void each_run(const Glyph& glyph, const Clip& part, Use use) {
    const int64_t stride = (int64_t{glyph.width} + 7) / 8;
    for (int64_t row = part.top; row < part.bottom; ++row) {
        for (int64_t chunk = part.left / kChunk * kChunk; chunk < part.right; chunk += kChunk) {
            const int64_t byte = chunk / 8;
            uint64_t bits =
                load(glyph.bits + row * stride + byte, std::min<int64_t>(8, stride - byte));
            while (bits != 0) {
                const int start = std::countl_zero(bits);
                const int length = std::countl_one(bits << start);
                use(static_cast<int>(chunk) + start, static_cast<int>(row), length, 1);
                bits &= ~(~uint64_t{0} << (kChunk - length) >> start);
            }
        }
    }
}

/// Calls use(x, y, w, h) for rectangles, counted from the letter's corner, that together are its
/// ink. What is not in @p part, which is counted from there, too, may be left out.
template <typename Use>
void each_box(const Glyph& glyph, const Clip& part, Use use) {
    if constexpr (kInkIsRows) {
        // A letter, and no frame, even where no letter has rows.
        if (glyph.width == 0 || glyph.height == 0) return;
    } else if (glyph.strokes) {
        return each_stroke(glyph.strokes, use);
    }
    if (glyph.bits) return each_run(glyph, part, use);
    use(0, 0, glyph.width, 1);
    use(0, glyph.height - 1, glyph.width, 1);
    use(0, 0, 1, glyph.height);
    use(glyph.width - 1, 0, 1, glyph.height);
}

/// Fills a rectangle by the call that takes the least time for its form.
void fill(orvel_canvas* canvas, int x, int y, int w, int h, orvel_color color) {
    if (w > 1 && h > 1) {
        orvel_canvas_fill_rect(canvas, x, y, w, h, color);
    } else if (w != h) {
        orvel_canvas_line(canvas, x, y, x + w - 1, y + h - 1, color);
    } else {
        orvel_canvas_pixel(canvas, x, y, color);
    }
}

void draw_whole(orvel_canvas* canvas, const Glyph& glyph, int x, int y, orvel_color color) {
    each_box(glyph, all_of(glyph), [=](int left, int top, int w, int h) {
        fill(canvas, x + left, y + top, w, h, color);
    });
}

void draw_part(orvel_canvas* canvas, const Glyph& glyph, int64_t x, int64_t y, const Clip& clip,
               orvel_color color) {
    const Clip part =
        common(all_of(glyph), {clip.left - x, clip.top - y, clip.right - x, clip.bottom - y});
    if (part.empty()) return;
    each_box(glyph, part, [&](int left, int top, int w, int h) {
        const int right = left + w, bottom = top + h;
        const Clip box = common(part, {left, top, right, bottom});
        if (box.empty()) return;
        fill(canvas, static_cast<int>(x + box.left), static_cast<int>(y + box.top),
             static_cast<int>(box.right - box.left), static_cast<int>(box.bottom - box.top), color);
    });
}

}  // namespace

Clip clip_of(const orvel_canvas* canvas) {
    return {0, 0, orvel_canvas_width(canvas), orvel_canvas_height(canvas)};
}

Clip clip_of(const orvel_canvas* canvas, const kit_box& box) {
    const Clip all = clip_of(canvas);
    return common(all, {box.x, box.y, int64_t{box.x} + box.w, int64_t{box.y} + box.h});
}

Clip ink_of(const Glyph& glyph) {
    Clip ink = {glyph.width, glyph.height, 0, 0};
    each_box(glyph, all_of(glyph), [&ink](int64_t x, int64_t y, int w, int h) {
        ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x + w),
               std::max(ink.bottom, y + h)};
    });
    return {ink.left, ink.top, std::max(ink.left, ink.right), std::max(ink.top, ink.bottom)};
}

void draw_strokes(orvel_canvas* canvas, const unsigned char* strokes, int x, int y,
                  orvel_color color) {
    each_stroke(strokes, [=](int left, int top, int w, int h) {
        fill(canvas, x + left, y + top, w, h, color);
    });
}

void draw_glyph(orvel_canvas* canvas, const Glyph& glyph, int64_t x, int64_t baseline,
                const Clip& clip, orvel_color color) {
    const int64_t left = x + glyph.left, top = baseline - glyph.top;
    if (clip.holds(left, top, glyph.width, glyph.height)) {
        draw_whole(canvas, glyph, static_cast<int>(left), static_cast<int>(top), color);
    } else {
        draw_part(canvas, glyph, left, top, clip, color);
    }
}

}  // namespace kit
