// A sheet that shows what a theme looks like.
#pragma once

#include "orvel.h"
#include "picture.h"

namespace orvel_tools {

/// 480 x 320 pixels: widgets of every kind that shows a colour of its own, and the nine colours in
/// their order along the bottom.
Picture theme_preview(const orvel_theme& theme);

}  // namespace orvel_tools
