#include "screen/live.h"

#include "screen/build.h"
#include "screen/under.h"

namespace kit {
namespace {

/// Refuses what would be painted for minutes: many nodes as large as a large screen.
void limit_painting(const Sources& sources, const Nodes& nodes) {
    constexpr std::int64_t kMostPixels = std::int64_t{1} << 30;
    std::int64_t pixels = 0;
    for (const Node& node : nodes) {
        if (paints(node)) pixels += std::int64_t{node.visible.w} * node.visible.h;
    }
    if (pixels <= kMostPixels) return;
    const std::string millions = std::to_string(pixels >> 20);
    throw Refused{sources.first().file + ": found nodes that cover " + millions +
                  " million pixels together, 1024 are the most"};
}

bool is_there(const Nodes& nodes, Tag tag) {
    const int i = find_node(nodes, tag);
    return i >= 0 && at(nodes, i).is_usable();
}

void forget_what_is_gone(const Nodes& nodes, Live& live) {
    if (!is_there(nodes, live.held.tag)) live.held = {};
    if (!is_there(nodes, live.focused)) live.focused = 0;
}

/// Whether a control shows that it is held down.
bool sinks(const Node& node) {
    return node.is_widget(ORVEL_WIDGET_BUTTON) || node.is_widget(ORVEL_WIDGET_LIST_ITEM);
}

void show_states(Node& node, const Live& live) {
    node.live = 0;
    node.state = node.own_state;
    if (live.focused != 0) node.state &= ~static_cast<unsigned>(KIT_FOCUS);
    if (node.tag == live.hovered && live.hovered != 0) {
        node.live |= kHovered;
        node.state |= KIT_HOVER;
    }
    if (node.tag == live.held.tag && live.held.tag != 0 && live.held.over) {
        node.live |= kPressed;
        if (sinks(node)) node.state |= KIT_ACTIVE;
    }
    if (node.tag == live.focused && live.focused != 0) {
        node.live |= kFocused;
        if (live.ring) node.state |= KIT_FOCUS;
    }
}

}  // namespace

int find_node(const Nodes& nodes, Tag tag) {
    if (tag == 0) return -1;
    for (int i = 0; i < count_of(nodes); ++i) {
        if (at(nodes, i).tag == tag) return i;
    }
    return -1;
}

void enliven(Nodes& nodes, Live& live) {
    forget_what_is_gone(nodes, live);
    live.hovered = hovered_by(nodes, live);
    for (Node& node : nodes) show_states(node, live);
}

Nodes shown(const Sources& sources, const Value& data, Pair size, Live& live) {
    Nodes nodes = build(sources, data);
    if (size[0] == 0) size = wanted(nodes);
    lay_out(nodes, size[0], size[1]);
    limit_painting(sources, nodes);
    enliven(nodes, live);
    return nodes;
}

}  // namespace kit
