// What lies under the pointer.
#pragma once

#include "screen/node.h"

namespace kit {

inline bool contains(const kit_box& box, int x, int y) {
    return x >= box.x && y >= box.y && x - box.x < box.w && y - box.y < box.h;
}

/// The control that a press there would reach, one that can be used; -1 where there is none.
int control_under(const Nodes& nodes, int x, int y);

struct Live;
/// The tag of what the pointer is over: while it holds something, that or nothing.
Tag hovered_by(const Nodes& nodes, const Live& live);

}  // namespace kit
