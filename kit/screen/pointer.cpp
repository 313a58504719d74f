// What the pointer does: controls act where they were pressed and are let go.
#include "screen/turn.h"
#include "screen/under.h"

namespace kit {

void point(Turn& turn, int x, int y) {
    Live& live = turn.live;
    live.inside = true;
    live.x = x;
    live.y = y;
    if (live.held.tag == 0) return;
    const int i = control_under(turn.nodes(), x, y);
    live.held.over = i >= 0 && at(turn.nodes(), i).tag == live.held.tag;
}

void press(Turn& turn, int x, int y) {
    Live& live = turn.live;
    live.held = {};
    point(turn, x, y);
    const int i = control_under(turn.nodes(), x, y);
    const Tag tag = i < 0 ? 0 : at(turn.nodes(), i).tag;
    live.held.tag = live.focused = tag;
    live.ring = false;
}

void release(Turn& turn, int x, int y) {
    point(turn, x, y);
    const Held held = turn.live.held;
    turn.live.held = {};
    const int i = find_node(turn.nodes(), held.tag);
    if (i >= 0 && held.over) act(turn, at(turn.nodes(), i));
}

void leave(Turn& turn) {
    turn.live.inside = false;
    turn.live.held = {};
}

}  // namespace kit
