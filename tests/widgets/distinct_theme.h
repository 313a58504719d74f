// The colours to tell the parts of a widget by.
#pragma once

#include "support/picture.h"

namespace orvel_test {

/// A theme of nine colours that differ from each other, from black and from the fixed ones.
orvel_theme distinct_theme();

/// A letter for each colour of a theme ('#' border, 's' surface, 'A' accent, 't' text, 'B'
/// background, 'u' button, 'h' hovered button, 'x' button text, 'e' error), '1' to '3' for the dots
/// of the title bar and '.' for black. Of two fields with one colour the first in this list counts.
Palette theme_letters(const orvel_theme& theme);

}  // namespace orvel_test
