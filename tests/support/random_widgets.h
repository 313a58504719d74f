// Widgets of every kind with any state, each made from a number alone.
#pragma once

#include <cstdint>
#include <string>

#include "models/widget_model.h"

namespace orvel_test {

/// The widget of this number, of the kind @p number % 28. Most lie near a canvas of 48 x 40; some
/// have no size, a negative one, or a rectangle at the limits of int.
WidgetState random_widget(std::uint64_t number);

/// The widget in words, for messages.
std::string described(const WidgetState& widget);

}  // namespace orvel_test
