// Widths first, since the heights of paragraphs follow from them: what everything wants, from the
// leaves up, then what it gets, from the root down; and the same for heights. Each node is asked
// once for either.
#include <algorithm>
#include <cstdint>
#include <numeric>

#include "screen/node.h"

namespace kit {
namespace {

using std::int64_t;

int to_side(int64_t size) { return static_cast<int>(std::clamp<int64_t>(size, 0, kMostSide)); }

std::size_t index(Axis axis) { return static_cast<std::size_t>(axis); }

/// A size within what the node allows; the least counts more than the most.
int bounded(const Node& node, Axis axis, int size) {
    return std::max(node.least[index(axis)], std::min(node.most[index(axis)], size));
}

struct Span {
    int start, size;
};

Span inside_of(const Node& node, Axis axis) {
    const kit_box box = node.inside();
    return axis == kAcross ? Span{box.x, box.w} : Span{box.y, box.h};
}

int size_of(const Node& node, Axis axis) { return axis == kAcross ? node.box.w : node.box.h; }

void put(Node& node, Axis axis, int start, int size) {
    (axis == kAcross ? node.box.x : node.box.y) = start;
    (axis == kAcross ? node.box.w : node.box.h) = size;
}

int padding(const Node& node, Axis axis) {
    return axis == kAcross ? node.pad[1] + node.pad[3] : node.pad[0] + node.pad[2];
}

std::vector<int> children_of(const Nodes& nodes, int parent) {
    std::vector<int> children;
    for_children(nodes, parent, [&](int i) { children.push_back(i); });
    return children;
}

/* What nodes want. */

/// The children of a wrapping row by its lines, once they are known; else all in one.
std::vector<std::vector<int>> lines_of(const Nodes& nodes, int parent) {
    std::vector<std::vector<int>> lines(1);
    for_children(nodes, parent, [&](int i) {
        const auto row = static_cast<std::size_t>(at(nodes, i).row);
        if (row >= lines.size()) lines.resize(row + 1);
        lines[row].push_back(i);
    });
    return lines;
}

int highest(const Nodes& nodes, const std::vector<int>& children, Axis axis) {
    int most = 0;
    for (const int i : children) most = std::max(most, at(nodes, i).want[index(axis)]);
    return most;
}

int64_t gaps(const Node& node, std::size_t count) {
    return static_cast<int64_t>(node.gap[0]) *
           (static_cast<int64_t>(std::max<std::size_t>(count, 1)) - 1);
}

int64_t want_along(const Nodes& nodes, int parent, const std::vector<int>& children, Axis axis) {
    int64_t sum = gaps(at(nodes, parent), children.size());
    for (const int i : children) sum += at(nodes, i).want[index(axis)];
    return sum;
}

int64_t want_across(const Nodes& nodes, int parent, Axis axis) {
    const auto lines = lines_of(nodes, parent);
    int64_t sum =
        static_cast<int64_t>(at(nodes, parent).gap[1]) * (static_cast<int64_t>(lines.size()) - 1);
    for (const auto& line : lines) sum += highest(nodes, line, axis);
    return sum;
}

int64_t content_of(const Nodes& nodes, int i, Axis axis) {
    const Node& node = at(nodes, i);
    if (!node.holds_nodes()) return want_of(node, axis);
    if (node.axis() == axis) return want_along(nodes, i, children_of(nodes, i), axis);
    if (node.axis() >= 0 && axis == kDown) return want_across(nodes, i, axis);
    return highest(nodes, children_of(nodes, i), axis);
}

void ask(Nodes& nodes, Axis axis) {
    for (int i = count_of(nodes) - 1; i >= 0; --i) {
        Node& node = at(nodes, i);
        if (node.hidden) continue;
        const int given = node.given[index(axis)];
        const int wanted =
            given != kNoSide ? given : to_side(content_of(nodes, i, axis) + padding(node, axis));
        node.want[index(axis)] = bounded(node, axis, wanted);
    }
}

/* What they get. */

/// Shares of what is left between those that grow: by their weights, each within its bounds. Those
/// that a bound holds back leave the rest to the others, until nobody is held back any more.
void let_grow(Nodes& nodes, std::vector<int> growing, Axis axis, int64_t left) {
    while (!growing.empty()) {
        std::vector<int> weights, shares;
        for (const int i : growing) weights.push_back(at(nodes, i).grow);
        share(static_cast<int>(std::clamp<int64_t>(left, 0, INT32_MAX)), weights, shares);
        int64_t excess = 0;  // that the bounds ask for, or leave
        for (std::size_t k = 0; k < growing.size(); ++k) {
            excess += bounded(at(nodes, growing[k]), axis, shares[k]) - int64_t{shares[k]};
        }
        std::vector<int> free;
        for (std::size_t k = 0; k < growing.size(); ++k) {
            Node& node = at(nodes, growing[k]);
            const int size = bounded(node, axis, shares[k]);
            put(node, axis, 0, size);
            const bool held = excess > 0 ? size > shares[k] : excess < 0 && size < shares[k];
            if (held) left -= size;
            if (!held) free.push_back(growing[k]);
        }
        if (excess == 0) return;
        growing = std::move(free);
    }
}

/// The gaps that "justify" adds before each child; @p extra is what no child takes.
std::vector<int> justified(const Node& node, std::size_t count, int extra) {
    std::vector<int> before(count, 0);
    if (extra <= 0 || count == 0) return before;
    if (node.justify == Justify::Center) before[0] = extra / 2;
    if (node.justify == Justify::End) before[0] = extra;
    if (node.justify == Justify::Between && count > 1) {
        std::vector<int> shares;
        share(extra, std::vector<int>(count - 1, 1), shares);
        std::copy(shares.begin(), shares.end(), before.begin() + 1);
    }
    return before;
}

/// Gives the children of one line their sizes and places along it.
void line_up(Nodes& nodes, int parent, const std::vector<int>& children, Axis axis) {
    Node& node = at(nodes, parent);
    const Span room = inside_of(node, axis);
    int64_t used = gaps(node, children.size());
    std::vector<int> growing;
    for (const int i : children) {
        Node& child = at(nodes, i);
        const bool grows = child.grow > 0 && child.given[index(axis)] == kNoSide;
        if (grows) growing.push_back(i);
        if (!grows) put(child, axis, 0, child.want[index(axis)]);
        if (!grows) used += size_of(child, axis);
    }
    let_grow(nodes, growing, axis, room.size - used);
    for (const int i : growing) used += size_of(at(nodes, i), axis);
    const int64_t extra = room.size - used;
    const auto before =
        justified(node, children.size(), static_cast<int>(std::max<int64_t>(extra, 0)));
    int start = room.start;
    if (node.scroll) {  // of lines, the longest
        node.beyond = static_cast<int>(std::clamp<int64_t>(-extra, node.beyond, INT32_MAX));
        start -= static_cast<int>(std::clamp<int64_t>(-extra, 0, node.scrolled));
    }
    for (std::size_t k = 0; k < children.size(); ++k) {
        Node& child = at(nodes, children[k]);
        start += before[k];
        put(child, axis, start, size_of(child, axis));
        start += size_of(child, axis) + node.gap[0];
    }
}

/// Which line of a wrapping row each child is in: the next one begins where a child, as wide as it
/// wants to be, would reach beyond the row.
void break_lines(Nodes& nodes, int parent) {
    const Node& node = at(nodes, parent);
    const int room = node.inside().w;
    int64_t used = 0;
    int row = 0;
    bool first = true;
    for_children(nodes, parent, [&](int i) {
        Node& child = at(nodes, i);
        const int64_t needed = int64_t{child.want[0]} + (first ? 0 : node.gap[0]);
        if (!first && used + needed > room) {
            ++row;
            used = child.want[0];
        } else {
            used += needed;
        }
        child.row = row;
        first = false;
    });
}

/// Gives a child its size and place across the direction of its parent. What is not stretched where
/// others are stands in the middle of a row, and at the start of a column.
void settle(Node& child, Axis axis, Align align, Span room) {
    const int wanted = child.want[index(axis)];
    const bool given = child.given[index(axis)] != kNoSide || child.keeps_size();
    const bool stretched = align == Align::Stretch && !given;
    int size = wanted;
    if (stretched) size = room.size;
    if (!given && !stretched) size = std::min(wanted, room.size);
    size = bounded(child, axis, size);
    int start = room.start;
    const int rest = std::max(0, room.size - size);
    if (align == Align::Stretch && child.keeps_size() && child.along == kAcross) {
        align = Align::Center;
    }
    if (align == Align::Center) start += rest / 2;
    if (align == Align::End) start += rest;
    put(child, axis, start, size);
}

void settle_lines(Nodes& nodes, int parent) {
    const Node& node = at(nodes, parent);
    int start = node.inside().y;
    for (const auto& line : lines_of(nodes, parent)) {
        const Span room = {start, highest(nodes, line, kDown)};
        for (const int i : line) settle(at(nodes, i), kDown, node.align, room);
        start += room.size + node.gap[1];
    }
}

void give(Nodes& nodes, int parent, Axis axis) {
    const Node& node = at(nodes, parent);
    const bool wraps = node.is(Sort::Row) && node.wrap;
    if (node.axis() == axis) {
        at(nodes, parent).beyond = 0;
        if (wraps) break_lines(nodes, parent);
        for (const auto& line : lines_of(nodes, parent)) line_up(nodes, parent, line, axis);
    } else if (wraps) {
        settle_lines(nodes, parent);
    } else {
        const bool down_a_stack = node.axis() < 0 && axis == kDown;
        const Align align = down_a_stack ? node.across : node.align;
        const Span room = inside_of(node, axis);
        for_children(nodes, parent, [&](int i) { settle(at(nodes, i), axis, align, room); });
    }
}

void hand_out(Nodes& nodes, Axis axis, int size) {
    put(nodes.front(), axis, 0, size);
    for (int i = 0; i < count_of(nodes); ++i) {
        if (!at(nodes, i).hidden && at(nodes, i).holds_nodes()) give(nodes, i, axis);
    }
}

/// What shows of every node: what lies in its parent, without that one's padding.
void cut(Nodes& nodes) {
    nodes.front().visible = nodes.front().box;
    for (int i = 1; i < count_of(nodes); ++i) {
        Node& node = at(nodes, i);
        if (node.hidden) continue;
        const Node& parent = at(nodes, node.parent);
        node.visible = meet(node.box, meet(parent.visible, parent.inside()));
    }
}

}  // namespace

void share(int room, const std::vector<int>& weights, std::vector<int>& shares) {
    const int64_t all = std::accumulate(weights.begin(), weights.end(), int64_t{0});
    shares.clear();
    int64_t left = room;
    for (const int weight : weights) {
        shares.push_back(static_cast<int>(int64_t{room} * weight / all));
        left -= shares.back();
    }
    for (std::size_t k = 0; left > 0; ++k, --left) ++shares[k];
}

void lay_out(Nodes& nodes, int width, int height) {
    ask(nodes, kAcross);
    hand_out(nodes, kAcross, width);
    ask(nodes, kDown);
    hand_out(nodes, kDown, height);
    cut(nodes);
}

Pair wanted(Nodes& nodes) {
    ask(nodes, kAcross);
    const int width = std::max(1, nodes.front().want[0]);
    hand_out(nodes, kAcross, width);
    ask(nodes, kDown);
    return {width, std::max(1, nodes.front().want[1])};
}

}  // namespace kit
