// Results for other programs.
#pragma once

#include <string>

#include "compare/comparison.h"

namespace orvel_tools {

/// A test suite with a case for each picture, in the form that JUnit made common.
std::string junit(const Comparison& comparison);

/// One object; docs/pages/test-your-screens.md lists what is in it.
std::string json(const Comparison& comparison);

/// What makes the code host that runs this program show the failures beside the change: lines for
/// the standard output, none where the environment tells of no such host.
std::string annotations(const Comparison& comparison);

}  // namespace orvel_tools
