#include "screen/scroll.h"

#include <algorithm>
#include <utility>

#include "screen/popup.h"

namespace kit {
namespace {

constexpr int kThick = 4, kMargin = 2, kShortest = 16;

int start_of(const kit_box& box, Axis axis) { return axis == kAcross ? box.x : box.y; }
int size_of(const kit_box& box, Axis axis) { return axis == kAcross ? box.w : box.h; }

/// The bar's moving part along it.
struct Thumb {
    int track, start, length;  // of the whole bar; of the part, from the bar's start
};

Thumb along(const Node& node) {
    const int track = size_of(node.inside(), scroll_axis(node));
    const long long content = static_cast<long long>(track) + node.beyond;
    const auto share = static_cast<int>(static_cast<long long>(track) * track / content);
    const int length = std::min(std::max(share, kShortest), track);
    const auto start =
        static_cast<int>(static_cast<long long>(track - length) * node.scrolled / node.beyond);
    return {track, start, length};
}

/// A paragraph that is given less than the height of its words.
int hidden_words(const Node& node) {
    if (!node.is(Sort::Text) || !node.wrap || node.lines > 0) return 0;
    const bool as_wanted = node.given[kDown] == kNoSide && node.most[kDown] == kMostSide &&
                           node.box.h >= node.want[kDown];
    if (as_wanted || node.hidden || is_empty(node.inside())) return 0;
    return std::max(0, want_of(node, kDown) - node.inside().h);
}

/// What an ancestor that scrolls has to move so that a stretch of its content shows.
int needed(const kit_box& room, const kit_box& box, Axis axis) {
    const int before = start_of(box, axis) - start_of(room, axis);
    const int behind = before + size_of(box, axis) - size_of(room, axis);
    if (before < 0) return before;
    return behind > 0 ? std::min(behind, before) : 0;
}

}  // namespace

Axis scroll_axis(const Node& node) { return node.is(Sort::Row) ? kAcross : kDown; }

int scrolled_of(const Live& live, Tag tag, int otherwise) {
    for (const Scrolled& one : live.scrolled) {
        if (one.tag == tag) return one.offset;
    }
    return otherwise;
}

void forget_scrolled(Live& live, Tag tag) {
    auto& all = live.scrolled;
    all.erase(
        std::remove_if(all.begin(), all.end(), [=](const auto& one) { return one.tag == tag; }),
        all.end());
}

bool set_scrolled(Nodes& nodes, const Live& live) {
    bool moved = false;
    for (Node& node : nodes) {
        const int offset = scrolled_of(live, node.tag, node.own_scrolled);
        moved |=
            node.scroll && std::min(offset, node.beyond) != std::min(node.scrolled, node.beyond);
        node.scrolled = offset;
    }
    return moved;
}

void keep_scrolled(Nodes& nodes, Live& live) {
    for (Node& node : nodes) {
        if (!node.scroll) node.beyond = hidden_words(node);
        if (!node.hidden) node.scrolled = std::min(node.scrolled, node.beyond);
    }
    std::vector<Scrolled> kept;
    for (const Scrolled& one : live.scrolled) {
        const int i = find_node(nodes, one.tag);
        if (i >= 0) kept.push_back({one.tag, at(nodes, i).scrolled});
        if (one.tag == list_tag(0)) kept.push_back(one);
    }
    live.scrolled = std::move(kept);
}

bool scroll_to(Live& live, const Node& node, long long offset) {
    const auto place = static_cast<int>(std::clamp<long long>(offset, 0, node.beyond));
    if (place == scrolled_of(live, node.tag, node.scrolled)) return false;
    forget_scrolled(live, node.tag);
    live.scrolled.push_back({node.tag, place});
    return true;
}

kit_box thumb_of(const Node& node) {
    if (node.beyond == 0 || is_empty(node.inside())) return {};
    const Thumb thumb = along(node);
    const kit_box room = node.inside();
    if (scroll_axis(node) == kAcross) {
        return {room.x + thumb.start, node.box.y + node.box.h - kMargin - kThick, thumb.length,
                kThick};
    }
    return {node.box.x + node.box.w - kMargin - kThick, room.y + thumb.start, kThick, thumb.length};
}

bool is_on_bar(const Node& node, int x, int y) {
    if (is_empty(node.bar)) return false;
    const bool across = scroll_axis(node) == kAcross;
    const int from_edge = across ? node.box.y + node.box.h - y : node.box.x + node.box.w - x;
    return from_edge <= kThick + 2 * kMargin;
}

int grab_of(const Node& node, int place) {
    const Thumb thumb = along(node);
    const int from = place - start_of(node.inside(), scroll_axis(node)) - thumb.start;
    return from >= 0 && from < thumb.length ? from - thumb.length / 2 : 0;
}

void drag_bar(Live& live, const Node& node, int place, int grab) {
    if (node.beyond == 0) return;  // the data have changed since the bar was pressed
    const Thumb thumb = along(node);
    const long long free = thumb.track - thumb.length;
    if (free < 1) return;
    const long long start =
        place - grab - start_of(node.inside(), scroll_axis(node)) - thumb.length / 2;
    scroll_to(live, node, (std::clamp(start, 0LL, free) * node.beyond + free / 2) / free);
}

void reveal(const Nodes& nodes, Live& live, int i) {
    kit_box box = at(nodes, i).box;
    for (int up = at(nodes, i).parent; up >= 0; up = at(nodes, up).parent) {
        const Node& node = at(nodes, up);
        if (node.beyond == 0) continue;
        const Axis axis = scroll_axis(node);
        const int before = scrolled_of(live, node.tag, node.scrolled);
        scroll_to(live, node, static_cast<long long>(before) + needed(node.inside(), box, axis));
        (axis == kAcross ? box.x : box.y) -= scrolled_of(live, node.tag, node.scrolled) - before;
    }
}

}  // namespace kit
