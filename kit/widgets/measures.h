// What the sizes of widgets come from: the letters of their face.
#pragma once

#include "orvel_kit.h"

namespace kit {

/// Lengths in pixels that the kinds have in common, so that they fit each other side by side.
struct Measures {
    int cap;      // a capital letter
    int letters;  // a line whose capitals are in the middle and of which nothing is cut
    int pad;      // between a frame and words, and between words and a sign
    int mark;     // a check box, a radio button, a star, a slider's knob: odd, as all with a middle
    int icon;     // an icon beside words
    int row;      // a button or field, for one line of words
    int band;     // what a window's title stands on
    int pill;     // a badge
    int wide;     // what has a length of its own, such as a slider or a field
};

Measures measures_of(const kit_face* face);

/// The largest odd number of at most @p size.
constexpr int odd(int size) { return size - (size % 2 == 0 ? 1 : 0); }

/// The size that @p widget wants; sides that its box gives stay.
void size_of(const kit_widget& widget, int* w, int* h);

}  // namespace kit
