#include "screen/live.h"

#include <algorithm>
#include <tuple>

#include "screen/build.h"
#include "screen/popup.h"
#include "screen/scroll.h"
#include "screen/under.h"

namespace kit {
namespace {

/// Refuses what would be painted for minutes: many nodes as large as a large screen.
void limit_painting(const Sources& sources, const Nodes& nodes) {
    constexpr std::int64_t kMillion = 1 << 20, kMostMillions = 1024;
    std::int64_t pixels = 0;
    for (const Node& node : nodes) {
        if (paints(node)) pixels += std::int64_t{node.visible.w} * node.visible.h;
    }
    if (pixels <= kMostMillions * kMillion) return;
    throw Refused{sources.first().file + ": found nodes that cover " +
                  std::to_string(pixels / kMillion) + " million pixels together, " +
                  std::to_string(kMostMillions) + " are the most"};
}

bool is_there(const Nodes& nodes, Tag tag) {
    const int i = find_node(nodes, tag);
    return i >= 0 && at(nodes, i).is_usable();
}

/// Of what is gone, or cannot be used any more. The rows of a list come and go with it.
void forget_what_is_gone(const Nodes& nodes, Live& live) {
    if (live.focused != 0 && !is_there(nodes, live.focused)) live.focused = 0;
    if (live.open.tag != 0) {
        const int i = find_node(nodes, live.open.tag);
        const bool opens = i >= 0 && at(nodes, i).is_usable() && !at(nodes, i).items.empty() &&
                           !is_empty(at(nodes, i).visible);
        if (!opens) live.open = {};
    }
    if (live.open.tag == 0) forget_scrolled(live, list_tag(0));
    const bool in_list = live.open.tag != 0;
    if (live.held.tag == 0 || in_list) return;
    const int i = find_node(nodes, live.held.tag);
    const bool there = i >= 0 && (live.held.grip == Held::Control ? at(nodes, i).is_usable()
                                                                  : !at(nodes, i).hidden);
    if (!there) live.held = {};
}

/// Whether a control shows that it is held down.
bool sinks(const Node& node) {
    return node.is_widget(ORVEL_WIDGET_BUTTON) || node.is_widget(ORVEL_WIDGET_LIST_ITEM);
}

void show_states(Node& node, const Live& live) {
    node.live = 0;
    node.state = node.own_state;
    node.bar = {};
    if (live.focused != 0) node.state &= ~static_cast<unsigned>(KIT_FOCUS);
    if (node.tag == 0) return;
    if (node.tag == live.hovered) node.live |= kHovered;
    if (node.tag == live.held.tag && live.held.grip == Held::Control && live.held.over) {
        node.live |= kPressed;
    }
    if (node.tag == live.focused) node.live |= kFocused;
    if (node.tag == live.open.tag) node.live |= kOpen;
    if (node.tag == live.bar) node.bar = thumb_of(node);
    if ((node.live & kHovered) != 0) node.state |= KIT_HOVER;
    if ((node.live & kPressed) != 0 && sinks(node)) node.state |= KIT_ACTIVE;
    if ((node.live & kOpen) != 0) node.state |= KIT_ACTIVE;
    if (node.pops) node.state = node.marked ? KIT_ACTIVE : 0;
    const bool caret = node.is_field();
    if ((node.live & kFocused) != 0 && !live.away && (live.ring || caret)) node.state |= KIT_FOCUS;
}

}  // namespace

bool Live::tip_shows() const {
    return tip.tag != 0 && !tip.spent && held.tag == 0 && clock - tip.since >= kTipRest;
}

bool same_looks(const Live& a, const Live& b) {
    const auto looks = [](const Live& live) {
        return std::tie(live.hovered, live.bar, live.held.grip, live.held.tag, live.held.over,
                        live.focused, live.ring, live.away, live.open.tag, live.open.marked,
                        live.scrolled, live.editing);
    };
    const Tag one = a.tip_shows() ? a.tip.tag : 0, other = b.tip_shows() ? b.tip.tag : 0;
    return looks(a) == looks(b) && one == other;
}

int find_node(const Nodes& nodes, Tag tag) {
    for (int i = 0; tag != 0 && i < count_of(nodes); ++i) {
        if (at(nodes, i).tag == tag) return i;
    }
    return -1;
}

void enliven(Nodes& nodes, Live& live) {
    nodes.resize(static_cast<std::size_t>(nodes.front().end));  // without what popped up before
    forget_what_is_gone(nodes, live);
    const kit_box screen = nodes.front().box;
    if (set_scrolled(nodes, live)) lay_out(nodes, screen.w, screen.h);
    keep_scrolled(nodes, live);
    if (live.open.tag != 0) add_list(nodes, live);
    find_under(nodes, live);
    if (live.tip_shows()) add_tooltip(nodes, live);
    follow_field(nodes, live);
    for (Node& node : nodes) {
        show_states(node, live);
        if (node.is_field()) show_field(node, live);
    }
}

Nodes shown(const Sources& sources, const Value& data, Pair size, Live& live) {
    Nodes nodes = build(sources, data);
    if (size[0] == 0) size = wanted(nodes);
    set_scrolled(nodes, live);
    lay_out(nodes, size[0], size[1]);
    limit_painting(sources, nodes);
    enliven(nodes, live);
    return nodes;
}

}  // namespace kit
