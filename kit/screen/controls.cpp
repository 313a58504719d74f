// What each kind of control does with its value.
#include "screen/turn.h"

namespace kit {
namespace {

Value truth(bool value) {
    Value made;
    made.kind = Kind::Boolean;
    made.truth = value;
    return made;
}

bool is_on(const Node& node) { return (node.own_state & KIT_ACTIVE) != 0; }

}  // namespace

void act(Turn& turn, const Node& control) {
    switch (control.kind->widget) {
    case ORVEL_WIDGET_TOGGLE:
    case ORVEL_WIDGET_CHECKBOX: return turn.set(control, truth(!is_on(control)));
    case ORVEL_WIDGET_BUTTON:
    case ORVEL_WIDGET_LIST_ITEM:
        if (!control.target.empty()) turn.set(control, truth(!is_on(control)));
        if (!control.id.empty()) turn.tell(control, KIT_CHANGE_PRESS);
        return;
    default: return;
    }
}

}  // namespace kit
