// What a face consists of.
#pragma once

#include <cstdint>
#include <vector>

#include "words/face.h"
#include "words/ink_form.h"

namespace kit {

/// Characters that follow one another, and so do their letters.
struct CodeRange {
    std::uint32_t first;
    std::uint32_t last;
    std::uint32_t index;  // of the first one's letter
};

// The ink of a letter is strokes, rectangles that may overlap, in bytes: how many are single
// pixels, then the column and the row of each of these, from the letter's corner; how many are one
// row high, then the column, row and width of each; how many are other ones, then column, row,
// width and height of each. Of a letter for which bytes are too small, or which would so take more
// memory than its lines in a font, it is rows of whole bytes, top first, with the most significant
// bit first.

/// A letter of a baked face, in 8 bytes: there are thousands of them.
struct BakedGlyph {
    std::uint32_t offset : 24;  // of its strokes, or rows, in the face's ink
    std::uint32_t advance : 8;
    std::int8_t left;
    std::int8_t top;
    std::uint8_t width;
    std::uint8_t height;
};

/// A letter of a face that was read.
struct ReadGlyph {
    std::uint32_t offset;  // of its strokes or rows in the face's ink
    std::int16_t advance;
    std::int16_t left;
    std::int16_t top;
    std::int16_t width;
    std::int16_t height;
    bool is_strokes;
};

/// Kerning by classes: letters that are kerned alike share a row or a column. Null: none at all.
struct Kerning {
    const std::uint8_t* row;      // of each letter at the left
    const std::uint8_t* column;   // of each letter at the right
    const std::int8_t* distance;  // row by row
    int columns;
};

/// How many faces a chain can have.
constexpr int kMostFaces = 8;

}  // namespace kit

/// Either letters, baked or read, or a chain of such faces.
struct kit_face {
    int ascent;
    int descent;
    int line;
    int cap;
    const kit::CodeRange* ranges;  // in ascending order
    std::uint32_t range_count;
    const unsigned char* ink;
    const kit::BakedGlyph* baked;  // null for a face that was read
    const kit::ReadGlyph* read;
    kit::Kerning kerning;
    const kit_face* chain[kit::kMostFaces];
    int chained;    // 0: no chain
    bool closable;  // an OwnedFace
};

namespace kit {

/// A face that is the caller's, with the memory of its letters.
struct OwnedFace : kit_face {
    std::vector<CodeRange> range_memory;
    std::vector<ReadGlyph> glyph_memory;
    std::vector<unsigned char> ink_memory;
};

Found find_in_chain(const kit_face& chain, char32_t code);
Found find_in_ranges(const kit_face& face, char32_t code);

/// The letter of a character in a range of a face.
inline Found found_at(const kit_face& face, const CodeRange& range, std::uint32_t code) {
    const std::uint32_t index = range.index + (code - range.first);
    const auto advance = face.baked ? face.baked[index].advance : face.read[index].advance;
    return {&face, index, static_cast<int>(advance)};
}

inline Found find_glyph(const kit_face& face, char32_t code) {
    if (face.chained != 0) return find_in_chain(face, code);
    // Most texts are of the first range, Basic Latin. There is one: no face is without letters.
    const CodeRange& range = face.ranges[0];
    if (code < range.first) return {};
    return code <= range.last ? found_at(face, range, code) : find_in_ranges(face, code);
}

inline Glyph glyph_of(const Found& found) {
    const kit_face& face = *found.face;
    if (face.baked) {
        const BakedGlyph& from = face.baked[found.index];
        const unsigned char* const ink = face.ink + from.offset;
        return {from.left,
                from.top,
                from.width,
                from.height,
                kInkIsRows ? nullptr : ink,
                kInkIsRows ? ink : nullptr};
    }
    const ReadGlyph& from = face.read[found.index];
    const unsigned char* const ink = face.ink + from.offset;
    return {from.left,
            from.top,
            from.width,
            from.height,
            from.is_strokes ? ink : nullptr,
            from.is_strokes ? nullptr : ink};
}

inline int kerning(const Found& left, const Found& right) {
    if (!left.face || left.face != right.face) return 0;
    const Kerning& table = left.face->kerning;
    if (!table.distance) return 0;
    return table.distance[table.row[left.index] * table.columns + table.column[right.index]];
}

}  // namespace kit
