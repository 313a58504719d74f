// What the plain models make of a call of any function of the interface.
#pragma once

#include "models/canvas_model.h"
#include "whole/interface.h"

namespace orvel_test {

/// Draws on @p canvas what the function should draw there, made with a canvas of the same pixels.
/// False where no model can tell: of icons and widgets, and of a circle so large that walking it
/// would take minutes.
bool draw_by_model(const HostFunction& function, const Stage& stage, const HostArguments& arguments,
                   orvel_canvas* canvas);

}  // namespace orvel_test
