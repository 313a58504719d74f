// Text, cell by cell.
#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "canvas/canvas.h"
#include "text/font.h"

namespace orvel {
namespace {

/// Where the pixels of a cell's bits lie on one canvas, counted from the top left one.
struct CellOffsets {
    std::int64_t at[kCellBits];

    explicit CellOffsets(std::int64_t width) {
        int bit = kCellBits;
        for (int row = 0; row < kGlyphHeight; ++row) {
            for (int column = 0; column < kGlyphWidth; ++column) at[--bit] = row * width + column;
        }
    }
};

bool is_inside(const orvel_canvas& canvas, std::int64_t x, std::int64_t y) {
    return x >= 0 && x + kGlyphWidth <= canvas.width && y >= 0 && y + kGlyphHeight <= canvas.height;
}

/// Draws a cell that is inside the canvas, set bit by set bit: a test of every bit would be one
/// that the processor cannot foresee.
void draw_cell(orvel_color* top_left, std::uint64_t bits, const CellOffsets& offsets,
               orvel_color color) {
    for (; bits != 0; bits &= bits - 1) top_left[offsets.at[std::countr_zero(bits)]] = color;
}

/// Draws a cell at (x, y) as far as it is inside.
void draw_cut_cell(const orvel_canvas& canvas, std::uint64_t bits, std::int64_t x, std::int64_t y,
                   orvel_color color) {
    const std::int64_t top = std::max<std::int64_t>(0, -y);
    const std::int64_t bottom = std::min<std::int64_t>(kGlyphHeight, canvas.height - y);
    const std::int64_t left = std::max<std::int64_t>(0, -x);
    const std::int64_t right = std::min<std::int64_t>(kGlyphWidth, canvas.width - x);
    for (std::int64_t row = top; row < bottom; ++row) {
        for (std::int64_t column = left; column < right; ++column) {
            const std::int64_t bit = kCellBits - 1 - row * kGlyphWidth - column;
            if (bits >> bit & 1) *pixel_at(canvas, x + column, y + row) = color;
        }
    }
}

}  // namespace
}  // namespace orvel

int orvel_text_width(const char* text) {
    if (!text || !*text) return 0;
    const unsigned bytes = static_cast<unsigned>(std::strlen(text));
    return static_cast<int>(orvel::kAdvance * bytes - 1);
}

void orvel_text_draw(orvel_canvas* canvas, const char* text, int x, int y, orvel_color color) {
    if (!canvas || !text) return;
    const orvel::CellOffsets offsets(canvas->width);
    int pen = x;
    for (; *text; ++text) {
        const unsigned char code = static_cast<unsigned char>(*text);
        if (code == '\n') continue;  // Deliberate: measured as a cell, but not drawn as one.
        if (code >= orvel::kFirstGlyph && code <= orvel::kLastGlyph) {
            const std::uint64_t bits = orvel::kCells[code - std::size_t(orvel::kFirstGlyph)];
            if (orvel::is_inside(*canvas, pen, y)) {
                orvel::draw_cell(orvel::pixel_at(*canvas, pen, y), bits, offsets, color);
            } else {
                orvel::draw_cut_cell(*canvas, bits, pen, y, color);
            }
        }
        pen += orvel::kAdvance;
    }
}
