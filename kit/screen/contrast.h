// Which colours can be told apart.
#pragma once

#include "orvel_kit.h"

namespace kit {

/// What words need at least, and large ones (WCAG 2.2, 1.4.3), in tenths.
constexpr int kLeastContrast = 45, kLeastLargeContrast = 30;

/// The contrast of two colours as WCAG 2.2 defines it, in tenths, cut.
int contrast_of(orvel_color a, orvel_color b);

}  // namespace kit
