// Every kind of widget in every state, and the colours to tell its parts by.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "support/picture.h"

namespace orvel_test {

struct DestroyWidget {
    void operator()(orvel_widget* widget) const { orvel_widget_destroy(widget); }
};
using WidgetPtr = std::unique_ptr<orvel_widget, DestroyWidget>;

/// One widget in one state, and the size of a canvas that shows it with a margin.
struct WidgetSample {
    std::string name;
    int width, height;
    std::function<orvel_widget*(orvel_canvas*, const orvel_theme*)> make;
};

const std::vector<WidgetSample>& widget_samples();

/// A theme of nine colours that differ from each other, from black and from the fixed ones.
orvel_theme distinct_theme();

/// A letter for each colour of a theme ('#' border, 's' surface, 'A' accent, 't' text, 'B'
/// background, 'u' button, 'h' hovered button, 'x' button text, 'e' error), '1' to '3' for the dots
/// of the title bar and '.' for black. Of two fields with one colour the first in this list counts.
Palette theme_letters(const orvel_theme& theme);

}  // namespace orvel_test
