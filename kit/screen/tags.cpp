// What nodes are known by when they are built anew: their ids, else the way to them.
#include <algorithm>
#include <utility>

#include "screen/build.h"

namespace kit {
namespace {

/// Spreads the bits (Vigna, splitmix64), so that ways to different nodes hardly ever meet.
Tag mixed(Tag tag, Tag with) {
    tag += 0x9E3779B97F4A7C15U * (with + 1);
    tag = (tag ^ (tag >> 30)) * 0xBF58476D1CE4E5B9U;
    tag = (tag ^ (tag >> 27)) * 0x94D049BB133111EBU;
    return tag ^ (tag >> 31);
}

Tag tag_of(const Nodes& nodes, const Node& node, Tag scene) {
    Tag tag = scene;
    if (!node.id.empty()) {
        for (const char letter : node.id) tag = mixed(tag, static_cast<unsigned char>(letter));
        return tag;
    }
    if (node.parent >= 0) tag = at(nodes, node.parent).tag;
    return mixed(mixed(tag, static_cast<Tag>(node.slot)), static_cast<Tag>(node.item));
}

}  // namespace

void give_tags(Nodes& nodes) {
    std::vector<std::pair<Tag, int>> all;
    std::vector<std::pair<int, Tag>> scenes = {{count_of(nodes), 1}};  // where they end, what is in
    for (int i = 0; i < count_of(nodes); ++i) {
        while (scenes.back().first <= i) scenes.pop_back();
        Node& node = at(nodes, i);
        node.tag = tag_of(nodes, node, scenes.back().second);
        if (node.is(Sort::Include)) scenes.emplace_back(node.end, node.tag);
        all.emplace_back(node.tag, i);
    }
    std::sort(all.begin(), all.end());
    Tag again = 0;
    for (std::size_t k = 1; k < all.size(); ++k) {  // of nodes with one id, all but the first
        again = all[k].first == all[k - 1].first ? again + 1 : 0;
        if (again > 0) at(nodes, all[k].second).tag = mixed(all[k].first, again);
    }
}

}  // namespace kit
