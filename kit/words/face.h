// Faces, as the words layer sees them.
#pragma once

#include "orvel_kit.h"

namespace kit {

inline constexpr unsigned char kNoStrokes[3] = {};

/// One letter's ink, which belongs to the face: strokes or rows of bits. With neither it is a
/// frame.
struct Glyph {
    int left = 0;  // from the origin to the first column
    int top = 0;   // from the baseline up to the first row
    int width = 0;
    int height = 0;
    const unsigned char* strokes = kNoStrokes;  // as face_data.h has them
    const unsigned char* bits = nullptr;  // rows of whole bytes, the most significant bit first
};

/// A letter and where it was found, for the kerning between two.
struct Found {
    const kit_face* face = nullptr;  // of a chain, the one that has the letter; null: none has it
    unsigned index = 0;              // of the letter in that face
    int advance = 0;                 // from its origin to the next one's
};

/// The letter for @p code in @p face or one behind it.
Found find_glyph(const kit_face& face, char32_t code);

/// The ink of a letter that some face has.
Glyph glyph_of(const Found& found);

/// What is added to the advance of @p left before @p right; 0 where they come from two faces.
int kerning(const Found& left, const Found& right);

/// The face itself, or the default one for null.
inline const kit_face& face_or_default(const kit_face* face) {
    if (!face) face = kit_sans_12();
    return *face;
}

}  // namespace kit
