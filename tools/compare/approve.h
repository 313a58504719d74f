// Makes what is there what is expected.
#pragma once

#include <string>

#include "compare/comparison.h"

namespace orvel_tools {

struct Approval {
    std::string done;                  // a line for everything that was done or kept
    std::vector<std::string> trouble;  // a line for everything that could not be done
    int kept = 0;                      // pictures that are gone but were not to be deleted
};

/// Writes every picture that differs or is new over the expected one, as PNG, and with @p prune
/// deletes those that are gone. Equal ones are not touched.
Approval approve(const Comparison& comparison, bool prune);

}  // namespace orvel_tools
