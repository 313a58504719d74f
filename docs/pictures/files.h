// What the manual's pictures have in common: two themes, a scale, a place to go to.
#pragma once

#include <fstream>
#include <functional>
#include <memory>
#include <string>

#include "orvel.h"

namespace manual {

struct DestroyCanvas {
    void operator()(orvel_canvas* canvas) const { orvel_canvas_destroy(canvas); }
};
using CanvasPtr = std::unique_ptr<orvel_canvas, DestroyCanvas>;

/// The folder that pictures and lists are written to.
struct Output {
    std::string folder;

    /// Writes @p canvas, every pixel as a square of @p scale, to NAME.png. Ends the program when it
    /// cannot: a manual with a missing picture is of no use.
    void save(const orvel_canvas* canvas, const std::string& name, int scale) const;
    std::ofstream list(const std::string& name) const;
};

orvel_theme dark();
orvel_theme light();

using Drawing = std::function<void(orvel_canvas*, const orvel_theme&)>;

/// Draws on both themes' backgrounds, to NAME-dark.png and NAME-light.png.
void save_both(const Output& out, const std::string& name, int width, int height, int scale,
               const Drawing& drawing);

/// The element that shows the picture of save_both() which suits the reader's own theme.
std::string picture_element(const std::string& name, const std::string& alt, int width, int height);

void write_charts(const Output& out);
void write_glyphs(const Output& out);
void write_icons(const Output& out);
void write_themes(const Output& out);
void write_widgets(const Output& out);

}  // namespace manual
