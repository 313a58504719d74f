// Theme files from anywhere, as the library loads them.
#pragma once

#include <string>

#include "orvel.h"

namespace orvel_tools {

/// The dark theme with @p text loaded over it by the library. On failure, @p error says why.
bool load_theme(const std::string& text, orvel_theme& theme, std::string& error);

}  // namespace orvel_tools
