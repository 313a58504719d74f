// What lies under the pointer.
#pragma once

#include "screen/live.h"

namespace kit {

inline bool contains(const kit_box& box, int x, int y) {
    return x >= box.x && y >= box.y && x - box.x < box.w && y - box.y < box.h;
}

/// The control that a press there would reach, one that can be used; -1 where there is none. While
/// a list is open, only its rows can be reached.
int control_under(const Nodes& nodes, int x, int y);

/// What can be scrolled there, the innermost first.
std::vector<int> scrollers_under(const Nodes& nodes, int x, int y);

/// Tells what the pointer is over: while it holds something, that or nothing.
void find_under(const Nodes& nodes, Live& live);

}  // namespace kit
