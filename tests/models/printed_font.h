// The font's bytes written out: five glyphs a line, five bytes a glyph, column 0 first. Kept as
// text and apart from the library's own table, which must equal it.
#pragma once

#include <vector>

namespace model {

/// The 95 glyphs of codes 32 to 126 and the two bytes that follow them: 477 bytes.
const std::vector<unsigned char>& printed_font();

}  // namespace model
