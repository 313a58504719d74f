// What lies over all else: the list of an open dropdown, and a tooltip. Their nodes stand behind
// the tree, are laid out by themselves, and are cut at the screen's edge alone.
#pragma once

#include "screen/live.h"

namespace kit {

/// The tag of the open list, and of a row of it.
Tag list_tag(int row);

/// Adds the list of the dropdown that is open.
void add_list(Nodes& nodes, const Live& live);
/// Adds the tooltip of the node that the pointer rests on.
void add_tooltip(Nodes& nodes, const Live& live);

/// The open list; -1 where none is.
int list_of(const Nodes& nodes);

/// Where an item of the open list lies in it; the item that is marked is scrolled into view by it.
void reveal_row(const Nodes& nodes, Live& live, int row);

}  // namespace kit
