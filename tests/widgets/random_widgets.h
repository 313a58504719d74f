// Widgets of every kind with any state, each made from a number alone.
#pragma once

#include <cstdint>
#include <string>

#include "widgets/widget.h"

namespace orvel_test {

/// The widget of this number, without a canvas and a theme. Most lie near a canvas of 48 x 40; some
/// have no size, a negative one, or a rectangle at the limits of int.
orvel_widget random_widget(int kind, std::uint64_t number);

/// The widget in words, for messages.
std::string described(const orvel_widget& widget);

}  // namespace orvel_test
