#pragma once

namespace orvel {

constexpr int kFirstGlyph = 32;  // space
constexpr int kLastGlyph = 126;  // ~, which is drawn as an arrow
constexpr int kGlyphBytes = 5;   // stored for each glyph
constexpr int kGlyphWidth = 5;
constexpr int kGlyphHeight = 7;
constexpr int kAdvance = 6;  // from one cell to the next

/// The bytes of the last glyph are followed by the two more that drawing it takes.
constexpr int kFontSize = (kLastGlyph - kFirstGlyph) * kGlyphBytes + kGlyphHeight;

extern const unsigned char kFont[kFontSize];

}  // namespace orvel
