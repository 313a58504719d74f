// Measuring and drawing text by the reading rule, byte by byte.
#pragma once

#include <string>

#include "models/canvas_model.h"

namespace model {

int text_width(const std::string& text);
void text_draw(Canvas& canvas, const std::string& text, int x, int y, orvel_color color);

}  // namespace model
