// Letters as few calls of the library can draw them.
#pragma once

#include <vector>

namespace kit {

/// Takes a letter apart into strokes. @p rows are its rows, each of whole bytes with the most
/// significant bit first. The bytes, in the form of face_data.h; none for a letter that is too
/// large or has too many strokes.
std::vector<unsigned char> strokes_of(const unsigned char* rows, int width, int height);

}  // namespace kit
