// What has to be drawn again.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <tuple>

#include "screen/node.h"

namespace kit {
namespace {

using kit::same;  // of boxes

bool same(const Paint& a, const Paint& b) {
    return a.there == b.there && std::memcmp(&a.color, &b.color, sizeof a.color) == 0;
}

bool same(const Look& a, const Look& b) {
    return a.face == b.face && std::memcmp(&a.theme, &b.theme, sizeof a.theme) == 0;
}

/// What is missing is a NaN.
bool same(const std::vector<double>& a, const std::vector<double>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](double one, double other) {
        return one == other || (std::isnan(one) && std::isnan(other));
    });
}

bool same(const std::vector<NodeSeries>& a, const std::vector<NodeSeries>& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i].name != b[i].name || !same(a[i].color, b[i].color)) return false;
        if (!same(a[i].values, b[i].values)) return false;
    }
    return true;
}

/// What is told apart by ==.
auto drawn(const Node& node) {
    return std::tie(node.kind, node.pad, node.wrap, node.lines, node.text, node.hint, node.icon,
                    node.unit, node.amount, node.decimals, node.state, node.parts, node.words,
                    node.shape, node.scrolled, node.below, node.caret, node.picture, node.unknown,
                    node.value, node.low, node.high);
}

bool looks_like(const Node& a, const Node& b) {
    if (!same(a.bar, b.bar)) return false;
    if (!paints(a) && !paints(b)) return true;
    if (!same(a.box, b.box) || !same(a.visible, b.visible) || drawn(a) != drawn(b)) return false;
    return same(a.look, b.look) && same(a.ground, b.ground) && same(a.edge, b.edge) &&
           same(a.color, b.color) && same(a.numbers, b.numbers) && same(a.series, b.series);
}

/// The next child that shows from @p i on, or the end of them all.
int shown(const Nodes& nodes, int i, int end) {
    while (i < end && at(nodes, i).hidden) i = at(nodes, i).end;
    return i;
}

struct Comparison {
    const Nodes &before, &after;
    kit_box damage = {};

    /// What lies behind both trees.
    void popups() {
        int i = before.front().end, k = after.front().end;
        for (; i < count_of(before) || k < count_of(after); ++i, ++k) {
            const Node* a = i < count_of(before) ? &at(before, i) : nullptr;
            const Node* b = k < count_of(after) ? &at(after, k) : nullptr;
            if (a && b && looks_like(*a, *b)) continue;
            if (a) damage = join(damage, a->visible);
            if (b) damage = join(damage, b->visible);
        }
    }

    /// Two nodes in the same place of both trees, and what is below them.
    void nodes(int i, int k) {
        const Node &a = at(before, i), &b = at(after, k);
        if (!looks_like(a, b)) damage = join(damage, join(a.visible, b.visible));
        for (++i, ++k;;) {
            i = shown(before, i, a.end);
            k = shown(after, k, b.end);
            if (i == a.end && k == b.end) return;
            if (i < a.end && k < b.end) {
                nodes(i, k);
            } else {
                damage = join(damage, i < a.end ? at(before, i).visible : at(after, k).visible);
            }
            if (i < a.end) i = at(before, i).end;
            if (k < b.end) k = at(after, k).end;
        }
    }
};

/// Whether a node looks otherwise when only a part of it is drawn: the cut-outs of icons take the
/// colour that is there.
bool is_drawn_whole(const Node& node) {
    return node.is(Sort::Icon) || node.is(Sort::Chart) || (node.is(Sort::Widget) && !node.frames());
}

}  // namespace

kit_box difference(const Nodes& before, const Nodes& after) {
    Comparison comparison = {before, after};
    const Node &a = before.front(), &b = after.front();
    const orvel_color grounds[] = {a.look.theme.background, b.look.theme.background};
    if (!same(a.box, b.box) || std::memcmp(grounds, grounds + 1, sizeof grounds[0]) != 0) {
        return join(a.box, b.box);
    }
    comparison.nodes(0, 0);
    comparison.popups();
    return comparison.damage;
}

kit_box whole_nodes(const Nodes& nodes, kit_box damage) {
    constexpr int kMostRounds = 16;  // beyond that everything is drawn
    for (int round = 0; round < kMostRounds; ++round) {
        const kit_box before = damage;
        for (const Node& node : nodes) {
            if (is_drawn_whole(node) && !is_empty(meet(node.visible, damage))) {
                damage = join(damage, node.visible);
            }
        }
        if (same(before, damage)) return damage;
    }
    return nodes.front().box;
}

}  // namespace kit
