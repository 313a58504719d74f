#pragma once

#include "orvel.h"

namespace orvel {

/// The colour that @p text names as "#rrggbb", always opaque. One leading '#' may be missing and
/// what follows the sixth digit is ignored. Fewer than six characters give white; any that is not a
/// hexadecimal digit counts as 0.
orvel_color color_from_hex(const char* text);

}  // namespace orvel
