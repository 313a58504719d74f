// Who has the keyboard.
#include <algorithm>

#include "screen/scroll.h"
#include "screen/turn.h"

namespace kit {
namespace {

/// Whether a control shows, or would where something is scrolled.
bool can_show(const Nodes& nodes, int i) {
    const Node& node = at(nodes, i);
    if (!node.is_usable() || is_empty(node.box)) return false;
    if (!is_empty(node.visible)) return true;
    for (int up = node.parent; up >= 0; up = at(nodes, up).parent) {
        if (at(nodes, up).beyond > 0) return true;
    }
    return false;
}

}  // namespace

void focus(Turn& turn, int i, bool ring) {
    turn.live.focused = i < 0 ? 0 : at(turn.nodes(), i).tag;
    turn.live.ring = ring;
    turn.live.typed = {};
    if (i >= 0) reveal(turn.nodes(), turn.live, i);
}

void focus_next(Turn& turn, bool back) {
    const Nodes& nodes = turn.nodes();
    const int count = nodes.front().end, now = find_node(nodes, turn.live.focused);
    const int step = back ? -1 : 1;
    int i = now >= 0 ? now : back ? count : -1;
    for (int tries = 0; tries < count; ++tries) {
        i += step;
        if (i < 0) i = count - 1;
        if (i >= count) i = 0;
        if (can_show(nodes, i)) return focus(turn, i, true);
    }
}

}  // namespace kit
