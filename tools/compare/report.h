// The results as a page for people.
#pragma once

#include <string>

#include "compare/comparison.h"

namespace orvel_tools {

/// Writes an HTML file that needs nothing else. On failure, returns false and says why in @p error.
bool write_report(const Comparison& comparison, const std::string& path, std::string& error);

}  // namespace orvel_tools
