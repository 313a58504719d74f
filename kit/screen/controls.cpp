// What each kind of control does with its value.
#include <algorithm>

#include "screen/items.h"
#include "screen/number.h"
#include "screen/parts.h"
#include "screen/steps.h"
#include "screen/turn.h"

namespace kit {
namespace {

Value truth(bool value) {
    Value made;
    made.kind = Kind::Boolean;
    made.truth = value;
    return made;
}

/// What JSON writes, which is known to be good.
Value read(const std::string& json) {
    Value made;
    std::string why;
    read_document(json, "", made, why);
    return made;
}

/// What is shared with others becomes that of this one; else it is turned on and off, but for a
/// radio button, which stays on.
void turn_on(Turn& turn, const Node& control) {
    const bool on = (control.own_state & KIT_ACTIVE) != 0;
    if (!control.choice.empty()) {
        if (!on) turn.set(control, read(control.choice));
    } else if (!on || !control.is_widget(ORVEL_WIDGET_RADIO)) {
        turn.set(control, truth(!on));
    }
}

const std::string& number_of(const Node& node) {
    return node.is_widget(ORVEL_WIDGET_STEPPER) ? node.text : node.written;
}

/// Whether a control has a number already.
bool has(const Node& node, const std::string& number) {
    return is_number(number_of(node)) && compare_numbers(number_of(node), number) == 0;
}

bool has_items(const Node& node) { return node.kind->value == Type::Items || !node.items.empty(); }

}  // namespace

void act(Turn& turn, const Node& control) {
    switch (control.kind->widget) {
    case ORVEL_WIDGET_TOGGLE:
    case ORVEL_WIDGET_CHECKBOX:
    case ORVEL_WIDGET_RADIO: turn_on(turn, control); break;
    case ORVEL_WIDGET_BUTTON:
    case ORVEL_WIDGET_LIST_ITEM:
        if (!control.target.empty()) turn_on(turn, control);
        if (!control.id.empty()) turn.tell(control, KIT_CHANGE_PRESS);
        break;
    case ORVEL_WIDGET_DROPDOWN:
        if (!control.items.empty()) return open_list(turn, control);
        if (!control.id.empty()) turn.tell(control, KIT_CHANGE_PRESS);
        break;
    default: return;  // what is used by its parts
    }
    turn.sound(control);
}

void set_number(Turn& turn, const Node& control, const std::string& text) {
    if (!has(control, text)) turn.set(control, read(text));
}

void choose(Turn& turn, const Node& control, int item) {
    if (item == control.chosen_item()) return;
    if (control.tells_number()) {
        turn.set(control, read(std::to_string(item)));
    } else {
        turn.set(control, text_value(item_of(control.items, item)));
    }
    turn.sound(control);
}

void rate(Turn& turn, const Node& control, int stars) {
    const auto range = Steps::of(control);
    if (!range) return;
    set_number(turn, control, range->at(stars, 5));
    turn.sound(control);
}

void drag_knob(Turn& turn, const Node& control, int x) {
    const auto range = Steps::of(control);
    const Rail rail = rail_of(control);
    if (!range || rail.length < 1) return;
    const int part = std::clamp(x - turn.live.held.grab - rail.start, 0, rail.length);
    const std::string text = range->at(part, rail.length);
    if (text == turn.live.held.last) return;
    turn.live.held.last = text;
    turn.set(control, read(text));
}

void move_by(Turn& turn, const Node& control, long long steps) {
    if (has_items(control)) {
        const long long count = count_items(control.choices()), from = control.chosen_item();
        if (count == 0) return;
        return choose(turn, control,
                      static_cast<int>(std::clamp<long long>(from + steps, 0, count - 1)));
    }
    const auto range = control.has_number() ? Steps::of(control) : std::nullopt;
    if (!range) return;
    set_number(turn, control, range->moved(number_of(control), steps));
    turn.sound(control);
}

bool moves(const Node& control, long long steps) {
    const auto range = Steps::of(control);
    if (!range) return false;
    return !has(control, range->moved(number_of(control), steps));
}

bool move_to_end(Turn& turn, const Node& control, bool last) {
    if (has_items(control)) {
        const int count = count_items(control.choices());
        if (count > 0) choose(turn, control, last ? count - 1 : 0);
        return true;
    }
    const auto range = Steps::of(control);
    if (!range) return false;
    if (control.ends[0].empty()) return true;  // a stepper whose number may be any
    set_number(turn, control, last ? range->highest() : range->lowest());
    turn.sound(control);
    return true;
}

}  // namespace kit
