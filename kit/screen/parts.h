// Where the parts of a control lie, as the kit draws it.
#pragma once

#include "screen/node.h"

namespace kit {

/// The item of tabs or a menu at a column; -1 where there is none.
int item_at(const Node& node, int x);
/// The stars of a rating up to a column: 1 to 5, 0 before the first.
int stars_at(const Node& node, int x);
/// -1 on the minus of a stepper, 1 on its plus, else 0.
int side_at(const Node& node, int x);

/// The way of a slider's knob.
struct Rail {
    int start, length;  // of its middle
    int knob, radius;   // where it is now
};
Rail rail_of(const Node& node);

}  // namespace kit
