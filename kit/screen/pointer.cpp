// What the pointer does: controls act where they were pressed and are let go.
#include <algorithm>
#include <cstdlib>

#include "screen/parts.h"
#include "screen/popup.h"
#include "screen/scroll.h"
#include "screen/turn.h"
#include "screen/typing.h"
#include "screen/under.h"

namespace kit {
namespace {

constexpr Clock kFirstRepeat = 400, kNextRepeat = 60;
constexpr int kSlip = 8;  // pixels that a finger may move on what it presses

/// Which part of a control is at a column.
int part_at(const Node& node, int x) {
    switch (node.kind->widget) {
    case ORVEL_WIDGET_TABS:
    case ORVEL_WIDGET_MENU: return item_at(node, x);
    case ORVEL_WIDGET_STEPPER: return side_at(node, x);
    default: return 0;
    }
}

int along(const Node& scroller, int x, int y) { return scroll_axis(scroller) == kAcross ? x : y; }

/// A list row that is dragged scrolls what it is in.
void slip(Turn& turn, int i) {
    Held& held = turn.live.held;
    const Nodes& nodes = turn.nodes();
    if (!at(nodes, i).is_widget(ORVEL_WIDGET_LIST_ITEM)) return;
    for (int up = at(nodes, i).parent; up >= 0; up = at(nodes, up).parent) {
        const Node& node = at(nodes, up);
        if (node.beyond == 0) continue;
        const int from = along(node, held.x, held.y);
        if (std::abs(along(node, turn.live.x, turn.live.y) - from) <= kSlip) return;
        held.grip = Held::Content;
        held.tag = node.tag;
        held.origin = node.scrolled;
        held.grab = from + node.scrolled;
        return;
    }
}

void hold_control(Turn& turn, int i) {
    Held& held = turn.live.held;
    const Node& node = at(turn.nodes(), i);
    if (node.is_field()) return drag_field(turn, node);
    const int under = control_under(turn.nodes(), turn.live.x, turn.live.y);
    const bool was = held.over;
    held.over = under == i && part_at(node, turn.live.x) == held.part;
    if (!was && held.over && held.next != kNever) held.next = turn.live.clock + kNextRepeat;
    if (node.is_widget(ORVEL_WIDGET_SLIDER)) {
        held.over = true;
        drag_knob(turn, node, turn.live.x);
    }
    slip(turn, i);
}

void drag(Turn& turn) {
    Live& live = turn.live;
    const int i = find_node(turn.nodes(), live.held.tag);
    if (i < 0) return;
    if (live.held.grip == Held::Control) hold_control(turn, i);
    const int scroller = find_node(turn.nodes(), live.held.tag);
    const Node& node = at(turn.nodes(), scroller);
    const int place = along(node, live.x, live.y);
    if (live.held.grip == Held::Bar) drag_bar(live, node, place, live.held.grab);
    if (live.held.grip == Held::Content) {
        scroll_to(live, node, static_cast<long long>(live.held.grab) - place);
    }
}

/// Takes hold of a control, and does what does not wait until it is let go.
void hold(Turn& turn, int i) {
    Live& live = turn.live;
    const Node& node = at(turn.nodes(), i);
    live.held.tag = node.tag;
    live.held.part = part_at(node, live.x);
    if (node.is_widget(ORVEL_WIDGET_STEPPER) && live.held.part != 0) {
        live.held.next = live.clock + kFirstRepeat;
        move_by(turn, node, live.held.part);
    }
    if (!node.is_widget(ORVEL_WIDGET_SLIDER)) return;
    live.held.before = node.written;
    const Rail rail = rail_of(node);
    const bool on_knob = std::abs(live.x - rail.knob) <= rail.radius;
    live.held.grab = on_knob ? live.x - rail.knob : 0;
    live.held.last = node.written;
    if (!on_knob) drag_knob(turn, node, live.x);
}

/// Takes hold of a bar, or of what lies in something that scrolls.
bool hold_scroller(Turn& turn, bool content) {
    Live& live = turn.live;
    for (const int i : scrollers_under(turn.nodes(), live.x, live.y)) {
        const Node& node = at(turn.nodes(), i);
        const bool bar = is_on_bar(node, live.x, live.y);
        if (!bar && !content) continue;
        const int place = along(node, live.x, live.y);
        live.held.tag = node.tag;
        live.held.grip = bar ? Held::Bar : Held::Content;
        live.held.origin = node.scrolled;
        live.held.grab = bar ? grab_of(node, place) : place + node.scrolled;
        if (bar) drag_bar(live, node, place, live.held.grab);
        return true;
    }
    return false;
}

/// The second half of a press: a control does what its kind does.
void let_go(Turn& turn, const Node& node, int part) {
    if (node.pops) return take_row(turn, node.slot);
    switch (node.kind->widget) {
    case ORVEL_WIDGET_TABS:
    case ORVEL_WIDGET_MENU:
        if (part >= 0) choose(turn, node, part);
        return;
    case ORVEL_WIDGET_RATING: return rate(turn, node, stars_at(node, turn.live.x));
    case ORVEL_WIDGET_SLIDER: return turn.sound(node);
    default: return act(turn, node);
    }
}

}  // namespace

void point(Turn& turn, int x, int y) {
    Live& live = turn.live;
    const bool moved = !live.inside || live.x != x || live.y != y;
    live.inside = true;
    live.x = x;
    live.y = y;
    if (moved) live.tapped = false;
    if (moved && !live.tip_shows()) live.tip.since = live.clock;
    if (live.held.tag != 0) return drag(turn);
    const int i = moved && live.open.tag != 0 ? control_under(turn.nodes(), x, y) : -1;
    if (i >= 0) live.open.marked = at(turn.nodes(), i).slot;
}

void press(Turn& turn, int x, int y, unsigned modifiers) {
    Live& live = turn.live;
    live.held = {};
    point(turn, x, y);
    live.tip.spent = live.tapped = true;
    live.held.x = x;
    live.held.y = y;
    if (hold_scroller(turn, false)) return;
    const int i = control_under(turn.nodes(), x, y);
    if (live.open.tag != 0) {
        if (i >= 0) return hold(turn, i);
        if (!contains(at(turn.nodes(), list_of(turn.nodes())).box, x, y)) close_list(turn);
        return;
    }
    live.focused = i < 0 ? 0 : at(turn.nodes(), i).tag;
    live.ring = false;
    live.typed = {};
    if (i < 0) {
        hold_scroller(turn, true);
        return;
    }
    hold(turn, i);
    const Node& node = at(turn.nodes(), i);
    if (node.is_field()) press_field(turn, node, modifiers);
}

void release(Turn& turn, int x, int y) {
    point(turn, x, y);
    const Held held = turn.live.held;
    turn.live.held = {};
    const int i = held.grip == Held::Control ? find_node(turn.nodes(), held.tag) : -1;
    if (i >= 0 && held.over) let_go(turn, at(turn.nodes(), i), held.part);
}

void leave(Turn& turn) {
    turn.live.inside = false;
    turn.live.held = {};
}

void wheel(Turn& turn, int dx, int dy) {
    Live& live = turn.live;
    live.tip.spent = true;
    // A notch is 120, and 48 pixels: two fifths of one each.
    live.wheel_x += 2 * dx;
    live.wheel_y -= 2 * dy;
    const int across = live.wheel_x / 5, down = live.wheel_y / 5;
    live.wheel_x %= 5;
    live.wheel_y %= 5;
    bool done_across = across == 0, done_down = down == 0;
    for (const int i : scrollers_under(turn.nodes(), live.x, live.y)) {
        const Node& node = at(turn.nodes(), i);
        bool& done = scroll_axis(node) == kAcross ? done_across : done_down;
        const int by = scroll_axis(node) == kAcross ? across : down;
        if (!done) done = scroll_to(live, node, static_cast<long long>(node.scrolled) + by);
    }
}

}  // namespace kit
