// Letters as few calls of the library can draw them.
#pragma once

#include <vector>

namespace kit {

/// Takes a letter apart into strokes. @p rows are its rows, each of whole bytes with the most
/// significant bit first. The bytes, in the form of face_data.h; none for a letter that is too
/// large or has too many strokes.
std::vector<unsigned char> strokes_of(const unsigned char* rows, int width, int height);

/// Calls use(x, y, w, h) for the strokes whose bytes begin @p at.
template <typename Use>
constexpr void each_stroke(const unsigned char* at, Use use) {
    const unsigned char* end = at + 1 + 2 * *at;
    for (++at; at != end; at += 2) use(at[0], at[1], 1, 1);
    end = at + 1 + 3 * *at;
    for (++at; at != end; at += 3) use(at[0], at[1], at[2], 1);
    end = at + 1 + 4 * *at;
    for (++at; at != end; at += 4) use(at[0], at[1], at[2], at[3]);
}

}  // namespace kit
