#include "words/runs.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace kit {
namespace {

using std::int64_t;
using std::uint64_t;

constexpr int kChunk = 64;  // columns looked at together

void fill(orvel_canvas* canvas, const Clip& clip, const Clip& box, orvel_color color) {
    const int64_t left = std::max(box.left, clip.left), right = std::min(box.right, clip.right);
    const int64_t top = std::max(box.top, clip.top), bottom = std::min(box.bottom, clip.bottom);
    if (left >= right || top >= bottom) return;
    orvel_canvas_fill_rect(canvas, static_cast<int>(left), static_cast<int>(top),
                           static_cast<int>(right - left), static_cast<int>(bottom - top), color);
}

void draw_frame(orvel_canvas* canvas, const Clip& box, const Clip& clip, orvel_color color) {
    fill(canvas, clip, {box.left, box.top, box.right, box.top + 1}, color);
    fill(canvas, clip, {box.left, box.bottom - 1, box.right, box.bottom}, color);
    fill(canvas, clip, {box.left, box.top, box.left + 1, box.bottom}, color);
    fill(canvas, clip, {box.right - 1, box.top, box.right, box.bottom}, color);
}

/// Up to 8 bytes as one number, the first one highest.
uint64_t load(const unsigned char* bytes, int count) {
    uint64_t bits = uint64_t{bytes[0]} << 56;
    for (int i = 1; i < count; ++i) bits |= uint64_t{bytes[i]} << (kChunk - 8 - 8 * i);
    return bits;
}

/// Draws a row whose runs are short pixel by pixel: four calls for pixels cost as much as one for a
/// rectangle, and what they do is easier to foresee.
void draw_pixels(orvel_canvas* canvas, uint64_t bits, int x, int y, orvel_color color) {
    for (; bits != 0; bits &= bits - 1) {
        orvel_canvas_pixel(canvas, x + kChunk - 1 - std::countr_zero(bits), y, color);
    }
}

/// Draws the runs of ones of a row that is repeated so many times.
void draw_runs(orvel_canvas* canvas, uint64_t bits, int x, int y, int rows, orvel_color color) {
    const uint64_t pairs = bits & bits << 1;
    if ((pairs & pairs << 2) == 0) {  // no four in a row
        for (int row = 0; row < rows; ++row) draw_pixels(canvas, bits, x, y + row, color);
        return;
    }
    while (bits != 0) {
        const int start = std::countl_zero(bits);
        const int length = std::countl_one(bits << start);
        orvel_canvas_fill_rect(canvas, x + start, y, length, rows, color);
        if (start + length == kChunk) return;
        bits &= ~uint64_t{0} >> (start + length);
    }
}

}  // namespace

Clip clip_of(const orvel_canvas* canvas) {
    return {0, 0, orvel_canvas_width(canvas), orvel_canvas_height(canvas)};
}

Clip clip_of(const orvel_canvas* canvas, const kit_box& box) {
    const Clip all = clip_of(canvas);
    return {std::max<int64_t>(all.left, box.x), std::max<int64_t>(all.top, box.y),
            std::min(all.right, int64_t{box.x} + box.w),
            std::min(all.bottom, int64_t{box.y} + box.h)};
}

Columns columns_of(const Glyph& glyph) {
    const int stride = (glyph.width + 7) / 8;
    const auto blank = [&](int column) {
        for (int row = 0; glyph.bits && row < glyph.height; ++row) {
            const unsigned bits = glyph.bits[std::ptrdiff_t{row} * stride + column / 8];
            if ((bits & 0x80U >> column % 8) != 0) return false;
        }
        return glyph.bits != nullptr;  // a frame fills its columns
    };
    int left = 0, right = glyph.width;
    while (left < right && blank(left)) ++left;
    while (left < right && blank(right - 1)) --right;
    return {glyph.left + left, glyph.left + right};
}

void draw_glyph(orvel_canvas* canvas, const Glyph& glyph, int64_t x, int64_t baseline,
                const Clip& clip, orvel_color color) {
    const int64_t left = x + glyph.left, top = baseline - glyph.top;
    if (!glyph.bits) {
        const Clip box = {left, top, left + glyph.width, top + glyph.height};
        if (!box.empty()) draw_frame(canvas, box, clip, color);
        return;
    }
    const int64_t first = std::max<int64_t>(0, clip.top - top);
    const int64_t last = std::min<int64_t>(glyph.height, clip.bottom - top);
    const int64_t from = std::max<int64_t>(0, clip.left - left);
    const int64_t to = std::min<int64_t>(glyph.width, clip.right - left);
    if (first >= last || from >= to) return;
    const int64_t stride = (int64_t{glyph.width} + 7) / 8;
    for (int64_t chunk = from / kChunk * kChunk; chunk < to; chunk += kChunk) {
        uint64_t mask = ~uint64_t{0};
        if (from > chunk) mask >>= from - chunk;
        if (to - chunk < kChunk) mask &= ~(~uint64_t{0} >> (to - chunk));
        const int bytes = static_cast<int>(std::min<int64_t>(8, stride - chunk / 8));
        const auto row_bits = [&](int64_t row) {
            return load(glyph.bits + row * stride + chunk / 8, bytes) & mask;
        };
        // Rows that are alike are drawn together: most of a letter's are uprights.
        int64_t since = first;
        uint64_t bits = row_bits(first);
        for (int64_t row = first + 1; row <= last; ++row) {
            const uint64_t next = row < last ? row_bits(row) : 0;
            if (next == bits && row < last) continue;
            draw_runs(canvas, bits, static_cast<int>(left + chunk), static_cast<int>(top + since),
                      static_cast<int>(row - since), color);
            bits = next;
            since = row;
        }
    }
}

}  // namespace kit
