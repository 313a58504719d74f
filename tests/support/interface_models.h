// What the plain models make of a call of any function of the interface.
#pragma once

#include "models/widget_model.h"
#include "support/interface.h"

namespace orvel_test {

/// All that the record of a widget holds of what it shows.
WidgetState state_of(const orvel_widget& widget);

/// Draws on @p canvas what the function should draw there, made with a canvas of the same pixels.
/// False where no model can tell: a circle so large that walking it would take minutes.
bool draw_by_model(const HostFunction& function, const Stage& stage, const HostArguments& arguments,
                   orvel_canvas* canvas);

}  // namespace orvel_test
