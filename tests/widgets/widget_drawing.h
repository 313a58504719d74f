// What tests of single widgets draw with.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "widgets/distinct_theme.h"
#include "widgets/kinds.h"

namespace orvel_test {

/// Draws on a black canvas in nine distinct colours. The exclamation mark is the text of choice: of
/// its cell all of row 2 and the three right pixels of row 6 are set.
class WidgetDrawing : public testing::Test {
protected:
    /// A new, black canvas.
    orvel_canvas* on(int width, int height) {
        canvas_ = make_canvas(width, height);
        return canvas_.get();
    }

    /// Draws a widget and destroys it.
    void draw(orvel_widget* widget) {
        ASSERT_NE(widget, nullptr);
        orvel_widget_draw(widget);
        orvel_widget_destroy(widget);
    }

    std::string drawn() const { return picture(canvas_.get(), theme_letters(theme_)); }

    /// The letters of the row @p y from column @p from up to and including @p to.
    std::string row(int y, int from, int to) const {
        const std::size_t stride = static_cast<std::size_t>(orvel_canvas_width(canvas_.get())) + 1;
        return drawn().substr(static_cast<std::size_t>(y) * stride + static_cast<std::size_t>(from),
                              static_cast<std::size_t>(to - from + 1));
    }

    char at(int x, int y) const { return row(y, x, x)[0]; }

    CanvasPtr canvas_;
    orvel_theme theme_ = distinct_theme();
};

}  // namespace orvel_test
