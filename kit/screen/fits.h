// What does not fit in the box that the layout gives it.
#pragma once

#include <string>

#include "screen/node.h"

namespace kit {

/// What of a node's own words, picture, shape or chart is lost, as a report tells it; empty when
/// nothing is. What its parent cuts is not its own.
std::string lost(const Node& node);

}  // namespace kit
