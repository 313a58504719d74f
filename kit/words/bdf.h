// Bitmap fonts in the Glyph Bitmap Distribution Format.
#pragma once

#include <string>
#include <string_view>

#include "words/face_data.h"

namespace kit {

/// The longest file, in bytes.
constexpr std::size_t kLongestFont = std::size_t{16} << 20;

/// Why a font was refused.
struct Refusal {
    int line = 0;  // counted from 1
    std::string reason;
};

/// Reads a font into a face that is empty. Time and memory stay in proportion to the size of the
/// text. False when it is refused; raises std::bad_alloc.
bool read_bdf(std::string_view text, OwnedFace& face, Refusal& refusal);

}  // namespace kit
