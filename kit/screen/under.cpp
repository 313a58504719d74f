#include "screen/under.h"

#include "screen/popup.h"

namespace kit {
namespace {

/// Whether what is drawn below a node is out of reach: words and signs let the pointer through.
bool covers(const Node& node) {
    if (node.ground.there || node.frames() || node.is_control()) return true;
    return node.is(Sort::Rect) || node.is(Sort::Picture) || node.is_widget(ORVEL_WIDGET_IMAGE);
}

bool is_at(const Node& node, int x, int y) { return !node.hidden && contains(node.visible, x, y); }

/// Where those that can be reached begin: an open list hides all else.
int first_in_reach(const Nodes& nodes) {
    const int list = list_of(nodes);
    return list < 0 ? 0 : list;
}

/// Calls @p act with the nodes at a place from the top down, until one covers the others; of those
/// below it then only with those around it.
template <typename Act>
void for_nodes_under(const Nodes& nodes, int x, int y, const Act& act) {
    const int first = first_in_reach(nodes);
    int i = count_of(nodes) - 1;
    for (; i >= first; --i) {
        if (!is_at(at(nodes, i), x, y)) continue;
        act(i);
        if (covers(at(nodes, i))) break;
    }
    for (i = i < first ? -1 : at(nodes, i).parent; i >= 0; i = at(nodes, i).parent) act(i);
}

/// The innermost node with a tip at a place; 0 where there is none.
Tag tip_under(const Nodes& nodes, int x, int y) {
    Tag tag = 0;
    for_nodes_under(nodes, x, y, [&](int i) {
        if (tag == 0 && !at(nodes, i).tip.empty()) tag = at(nodes, i).tag;
    });
    return tag;
}

}  // namespace

int control_under(const Nodes& nodes, int x, int y) {
    for (int i = count_of(nodes) - 1; i >= first_in_reach(nodes); --i) {
        const Node& node = at(nodes, i);
        if (!is_at(node, x, y) || !covers(node)) continue;
        return node.is_usable() ? i : -1;
    }
    return -1;
}

std::vector<int> scrollers_under(const Nodes& nodes, int x, int y) {
    std::vector<int> found;
    for_nodes_under(nodes, x, y, [&](int i) {
        if (at(nodes, i).beyond > 0) found.push_back(i);
    });
    return found;
}

void find_under(const Nodes& nodes, Live& live) {
    const Held& held = live.held;
    const bool free = live.inside && held.tag == 0;
    const int control = live.inside ? control_under(nodes, live.x, live.y) : -1;
    const Tag tag = control < 0 ? 0 : at(nodes, control).tag;
    live.hovered = free || held.tag == tag ? tag : 0;
    if (held.tag != 0 && held.grip != Held::Control) {
        live.bar = held.tag;
    } else if (held.tag == 0) {
        const auto around =
            live.inside ? scrollers_under(nodes, live.x, live.y) : std::vector<int>{};
        live.bar = around.empty() ? 0 : at(nodes, around.front()).tag;
    }
    const Tag tip = live.inside ? tip_under(nodes, live.x, live.y) : 0;
    if (tip != live.tip.tag) live.tip = {tip, live.clock, live.tapped};
}

}  // namespace kit
