// Text, cell by cell.
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

/// Draws a cell that is inside the canvas, set bit by set bit, which avoids a branch misprediction
/// for every other bit.
void draw_cell(orvel_color* top_left, std::uint64_t bits, const CellOffsets& offsets,
               orvel_color color) {
    for (; bits != 0; bits &= bits - 1) top_left[offsets.at[std::countr_zero(bits)]] = color;
}

/// Draws a cell at (x, y) as far as it is inside.
void draw_cut_cell(const orvel_canvas& canvas, std::uint64_t bits, std::int64_t x, std::int64_t y,
                   orvel_color color) {
    const Span rows = visible({y, y + kGlyphHeight}, canvas.height);
    const Span columns = visible({x, x + kGlyphWidth}, canvas.width);
    for (std::int64_t row = rows.first; row < rows.end; ++row) {
        for (std::int64_t column = columns.first; column < columns.end; ++column) {
            const std::int64_t bit = kCellBits - 1 - (row - y) * kGlyphWidth - (column - x);
            if (bits >> bit & 1) *pixel_at(canvas, column, row) = color;
        }
    }
}

}  // namespace
}  // namespace orvel

using namespace orvel;

int orvel_text_width(const char* text) {
    if (!text || !*text) return 0;
    const unsigned bytes = static_cast<unsigned>(std::strlen(text));
    return static_cast<int>(kAdvance * bytes - 1);
}

void orvel_text_draw(orvel_canvas* canvas, const char* text, int x, int y, orvel_color color) {
    if (!canvas || !text) return;
    const CellOffsets offsets(canvas->width);
    int pen = x;
    for (; *text; ++text) {
        const unsigned char code = static_cast<unsigned char>(*text);
        if (code == '\n') continue;  // Deliberate: measured as a cell, but not drawn as one.
        if (code >= kFirstGlyph && code <= kLastGlyph) {
            const std::uint64_t bits = kCells[code - static_cast<std::size_t>(kFirstGlyph)];
            if (is_inside(*canvas, pen, y)) {
                draw_cell(pixel_at(*canvas, pen, y), bits, offsets, color);
            } else {
                draw_cut_cell(*canvas, bits, pen, y, color);
            }
        }
        pen += kAdvance;
    }
}
