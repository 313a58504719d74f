// What a face consists of.
#pragma once

#include <cstdint>
#include <vector>

#include "words/face.h"

namespace kit {

/// Characters that follow one another, and so do their letters.
struct CodeRange {
    std::uint32_t first;
    std::uint32_t last;
    std::uint32_t index;  // of the first one's letter
};

/// A letter of a baked face, in 8 bytes: there are thousands of them.
struct BakedGlyph {
    std::uint32_t offset : 24;  // of the first row among the face's bits
    std::uint32_t advance : 8;
    std::int8_t left;
    std::int8_t top;
    std::uint8_t width;
    std::uint8_t height;
};

/// A letter of a face that was read.
struct ReadGlyph {
    std::uint32_t offset;
    std::int16_t advance;
    std::int16_t left;
    std::int16_t top;
    std::int16_t width;
    std::int16_t height;
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
    const unsigned char* bits;
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
    std::vector<unsigned char> bit_memory;
};

}  // namespace kit
