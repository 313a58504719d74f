// All letters of a face on a page.
#pragma once

#include <string>
#include <vector>

#include "support/picture.h"
#include "words/face.h"

namespace orvel_test {

/// The names of the baked faces.
const std::vector<std::string>& face_names();

/// The characters of the face in the first two planes of Unicode, in ascending order.
std::vector<char32_t> characters(const kit_face& face);

/// Draws the letter with its origin at x on @p baseline, pixel by pixel.
void draw_letter(orvel_canvas* canvas, const kit::Glyph& letter, int x, int baseline);

/// The letters of the face, 32 in a row, black on white.
CanvasPtr face_page(const kit_face& face);

}  // namespace orvel_test
