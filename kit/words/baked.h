// What becomes of the tables of a baked face when the library is compiled.
#pragma once

#include <cstddef>

#include "words/face_data.h"
#include "words/strokes.h"

namespace kit {

constexpr std::size_t bytes_of_rows(const BakedGlyph& glyph) {
    return static_cast<std::size_t>((glyph.width + 7) / 8) * glyph.height;
}

template <std::size_t letters>
constexpr std::size_t bytes_of_rows(const BakedGlyph (&glyphs)[letters]) {
    std::size_t bytes = 0;
    for (const BakedGlyph& glyph : glyphs) bytes += bytes_of_rows(glyph);
    return bytes;
}

template <std::size_t bytes, std::size_t letters>
struct BakedRows {
    unsigned char ink[bytes];
    BakedGlyph glyphs[letters];
};

/// The letters whose strokes are given, as rows of bits.
template <std::size_t bytes, std::size_t letters>
constexpr BakedRows<bytes, letters> rows_of(const BakedGlyph (&glyphs)[letters],
                                            const unsigned char* strokes) {
    BakedRows<bytes, letters> rows = {};
    std::size_t offset = 0;
    for (std::size_t i = 0; i < letters; ++i) {
        const BakedGlyph& glyph = glyphs[i];
        unsigned char* const ink = rows.ink + offset;
        each_stroke(strokes + glyph.offset, [&](int x, int y, int w, int h) {
            for (int row = y; row < y + h; ++row) {
                for (int column = x; column < x + w; ++column) {
                    unsigned char& byte = ink[row * ((glyph.width + 7) / 8) + column / 8];
                    byte = static_cast<unsigned char>(byte | 0x80 >> column % 8);
                }
            }
        });
        rows.glyphs[i] = glyph;
        rows.glyphs[i].offset = offset & 0xFFFFFF;
        offset += bytes_of_rows(glyph);
    }
    return rows;
}

template <const auto& glyph_table, const auto& strokes, bool as_rows = kInkIsRows>
struct Baked {
    static constexpr const unsigned char* ink = strokes;
    static constexpr const BakedGlyph* glyphs = glyph_table;
};

template <const auto& glyph_table, const auto& strokes>
struct Baked<glyph_table, strokes, true> {
    static constexpr auto rows = rows_of<bytes_of_rows(glyph_table)>(glyph_table, strokes);
    static constexpr const unsigned char* ink = rows.ink;
    static constexpr const BakedGlyph* glyphs = rows.glyphs;
};

}  // namespace kit
