// What a screen remembers between events, and how that shows.
#pragma once

#include "screen/node.h"
#include "screen/sources.h"

namespace kit {

/// What the pointer holds since it went down.
struct Held {
    Tag tag = 0;
    int part = 0;      // of the control: an item, a side
    bool over = true;  // whether it would act here
};

/// Nodes are known by their tags, so that all of it stays when they are built anew.
struct Live {
    bool inside = false;  // whether the pointer is on the screen
    int x = 0, y = 0;
    Tag hovered = 0;
    Held held;
    Tag focused = 0;
    bool ring = false;  // whether that shows
};

/// The node with a tag; -1 where there is none.
int find_node(const Nodes& nodes, Tag tag);

/// Shows nodes that are laid out as they are with what is remembered, which forgets what is gone.
void enliven(Nodes& nodes, Live& live);

/// The nodes of a scene with these data, laid out and as they show; refuses what does not fit.
Nodes shown(const Sources& sources, const Value& data, Pair size, Live& live);

}  // namespace kit
