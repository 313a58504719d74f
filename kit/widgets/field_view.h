// Where a text field shows its words.
#pragma once

#include "orvel_kit.h"
#include "widgets/measures.h"

namespace kit {

/// Everything is counted from the top left corner of the field.
struct FieldView {
    kit_box room = {};       // where the words show
    bool focus = false;      // all that follows is of use
    int scroll = 0;          // the columns of the text to the left of that
    int begin = 0, end = 0;  // the columns of the text that are selected
    int top = 0, tall = 0;   // the rows of the caret and the selection
    int column = 0;          // of the caret, and how many it takes
    int thick = 0;
};

/// Of a text box or search field that has this size, with focus or without.
FieldView view_of(const kit_widget& widget, int w, int h);

/// The side of a search field's magnifier, which may be below 1.
int magnifier_side(const Measures& m, int w, int h);

}  // namespace kit
