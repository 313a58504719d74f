// One event being answered. Nothing of the screen changes until all of it is done.
#pragma once

#include <list>
#include <optional>

#include "screen/screen.h"

namespace kit {

class Turn {
public:
    explicit Turn(const kit_screen& screen) : live(screen.live), screen_(screen) {}

    /// The nodes as they show now; they stay while an event is looked at.
    const Nodes& nodes() const { return made_ ? made_->nodes : screen_.nodes; }

    /// A control is to have this value: that of the data which it is bound to.
    void set(const Node& control, Value value);
    /// The host is to know of it.
    void tell(const Node& node, int kind);

    /// Makes the nodes as they show after all that; what the screen refuses does not count.
    void settle();
    /// Gives all of it to the screen; raises nothing.
    void finish(kit_screen& screen);

    Live live;

private:
    struct Wish {
        Change change;
        Value value;
    };
    struct Made {
        std::optional<Value> data;
        Nodes nodes;
    };
    bool grant(const Wish& wish);

    const kit_screen& screen_;
    std::optional<Wish> wish_;
    std::optional<Made> made_;
    std::list<Change> changes_;
};

/* What events do. */

void point(Turn& turn, int x, int y);
void press(Turn& turn, int x, int y);
void release(Turn& turn, int x, int y);
void leave(Turn& turn);

/// What a control does when it is used as a whole: by a click, by a key.
void act(Turn& turn, const Node& control);

}  // namespace kit
