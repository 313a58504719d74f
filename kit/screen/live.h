// What a screen remembers between events, and how that shows.
#pragma once

#include <string>
#include <vector>

#include "screen/field.h"
#include "screen/node.h"
#include "screen/sources.h"

namespace kit {

using Clock = std::uint64_t;  // milliseconds of a screen's own
constexpr Clock kNever = ~Clock{0};

/// What the pointer holds since it went down.
struct Held {
    enum Grip { Control, Bar, Content };
    Grip grip = Control;
    Tag tag = 0;
    int part = 0;         // of the control: which item, which side
    bool over = true;     // whether it would act here
    int x = 0, y = 0;     // where it went down
    int grab = 0;         // from what is dragged to the pointer
    int origin = 0;       // how far it was scrolled
    std::string before;   // the value that Escape brings back
    std::string last;     // the value that was told
    Clock next = kNever;  // when it repeats
};

/// The list of a dropdown that is open.
struct Open {
    Tag tag = 0;      // of the dropdown
    int marked = -1;  // the row that a key would take
    int first = 0;    // the row that it was opened at
};

/// A node with a "tip" that the pointer rests on.
struct Tip {
    Tag tag = 0;
    Clock since = 0;
    bool spent = false;  // until the pointer has left the node
};

/// What is typed to find an item.
struct Typed {
    std::string text;
    Clock until = 0;
};

struct Scrolled {
    Tag tag = 0;
    int offset = 0;

    bool operator==(const Scrolled&) const = default;
};

/// Nodes are known by their tags, so that all of it stays when they are built anew.
struct Live {
    bool began = false;  // whether the host told the time
    long long told = 0;  // what it told last
    Clock clock = 0;
    bool inside = false;  // whether the pointer is on the screen
    bool tapped = false;  // whether it was pressed where it is, and did not move since
    int x = 0, y = 0;
    int wheel_x = 0, wheel_y = 0;  // fifths of pixels that were turned and not scrolled
    Tag hovered = 0;
    Tag bar = 0;  // of what scrolls and shows where it is
    Held held;
    Tag focused = 0;
    bool ring = false;  // whether that shows
    bool away = false;  // whether another window has the keyboard
    Open open;
    Tip tip;
    Typed typed;
    Shortcut pressed;  // the last key
    Shortcut used;     // by the key of the last event, whose text is still to come
    std::vector<Scrolled> scrolled;
    EditingPtr editing;
    Clicks clicks;
    int field_scroll = 0;  // of the field that has the keyboard

    bool tip_shows() const;
};

constexpr Clock kTipRest = 600;

/// The node with a tag; -1 where there is none.
int find_node(const Nodes& nodes, Tag tag);

/// Shows nodes that are laid out as they are with what is remembered, which forgets what is gone.
void enliven(Nodes& nodes, Live& live);

/// Whether two look alike, as far as that is remembered.
bool same_looks(const Live& a, const Live& b);

/// The nodes of a scene with these data, laid out and as they show; refuses what does not fit.
Nodes shown(const Sources& sources, const Value& data, Pair size, Live& live);

}  // namespace kit
