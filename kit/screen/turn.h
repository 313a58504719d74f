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
    void tell(const Node& node, int kind, const std::string& value = "null");

    /// The host is to play what the scene names for a control.
    void sound(const Node& control);

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
    std::list<Change> changes_, later_;
};

/* What time and events do. */

void pass_time(Turn& turn, long long now);
/// A stepper or a text that is held goes on by itself, and waits for nothing where it ends.
void plan_repeat(Turn& turn);
/// The clock at which time next matters; kNever where it does not.
Clock due(const Live& live);
/// How much later than the last event a time of the host's is.
Clock elapsed(const Live& live, long long now);

void point(Turn& turn, int x, int y);
void press(Turn& turn, int x, int y, unsigned modifiers);
void release(Turn& turn, int x, int y);
void leave(Turn& turn);
void wheel(Turn& turn, int dx, int dy);
void press_key(Turn& turn, int key, unsigned modifiers);
void type(Turn& turn, std::string_view text);
void paste(Turn& turn, std::string_view text);
void compose(Turn& turn, std::string_view text, int caret);
void let_keyboard_go(Turn& turn);

/* The keyboard's place. */

/// Gives it to a node, which is scrolled into view.
void focus(Turn& turn, int i, bool ring);
/// To the next control, or the one before; to the first or last where none has it.
void focus_next(Turn& turn, bool back);

/* Controls. */

/// What a control does when it is used as a whole: by a click, by a key.
void act(Turn& turn, const Node& control);
/// So many steps further: a number, an item.
void move_by(Turn& turn, const Node& control, long long steps);
/// Whether a stepper's number would be another one then.
bool moves(const Node& control, long long steps);
/// To the first or the last of what it can be; false where its numbers cannot be counted.
bool move_to_end(Turn& turn, const Node& control, bool last);
/// To the item with a number.
void choose(Turn& turn, const Node& control, int item);
/// To so many stars.
void rate(Turn& turn, const Node& control, int stars);
/// To where the pointer has a slider's knob.
void drag_knob(Turn& turn, const Node& control, int x);
/// To a number, as it is written.
void set_number(Turn& turn, const Node& control, const std::string& text);

/* The list of a dropdown. */

void open_list(Turn& turn, const Node& dropdown);
void close_list(Turn& turn);
/// Takes an item of it.
void take_row(Turn& turn, int row);
void mark_row(Turn& turn, int row);

/// The item that what was typed finds; -1 where it finds none. Of one letter again and again, the
/// next item each time.
int find_typed(Live& live, std::string_view text, const std::vector<std::string>& items, int from);

}  // namespace kit
