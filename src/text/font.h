#pragma once

#include <array>
#include <cstdint>

namespace orvel {

constexpr int kFirstGlyph = 32;  // space
constexpr int kLastGlyph = 126;  // ~, which is drawn as an arrow
constexpr int kGlyphs = kLastGlyph - kFirstGlyph + 1;
constexpr int kGlyphBytes = 5;  // stored for each glyph
constexpr int kGlyphWidth = 5;
constexpr int kGlyphHeight = 7;
constexpr int kAdvance = 6;  // from one cell to the next

/// The bytes of the last glyph are followed by the two more that drawing it takes.
constexpr int kFontSize = (kGlyphs - 1) * kGlyphBytes + kGlyphHeight;

extern const unsigned char kFont[kFontSize];

constexpr int kCellBits = kGlyphWidth * kGlyphHeight;

/// The glyphs as they are drawn, row by row from the top left pixel, which is the highest of the
/// kCellBits bits of a cell.
extern const std::array<std::uint64_t, kGlyphs> kCells;

}  // namespace orvel
