#include "screen/popup.h"

#include <algorithm>
#include <utility>

#include "screen/items.h"
#include "screen/scroll.h"

namespace kit {
namespace {

constexpr Tag kListTag = 2;  // the ways to nodes end in larger ones

Node popped(const Node& owner, const char* kind) {
    Node node;
    node.kind = kind_named(kind);
    node.source = owner.source;
    node.place = owner.place;
    node.look = owner.look;
    return node;
}

kit_box size_of_widget(const Node& node) {
    const kit_widget widget = widget_of(node);
    kit_box box = {};
    kit_size(&widget, &box.w, &box.h);  // of words, which takes no memory
    return box;
}

/// Below its dropdown where there is room, else above, else where there is more of it.
kit_box place_list(const kit_box& screen, const kit_box& owner, int w, int h) {
    const int under = screen.h - owner.y - owner.h, above = owner.y;
    const int room = std::max({under, above, std::min(h, screen.h / 2)});
    h = std::min(h, room);
    const int y = h <= under ? owner.y + owner.h : owner.y - h;
    w = std::min(w, screen.w);
    return {std::clamp(owner.x, 0, screen.w - w), std::clamp(y, 0, screen.h - h), w, h};
}

/// The rows of a list that show.
void add_rows(Nodes& nodes, const Node& owner, int list, int marked) {
    const kit_box room = at(nodes, list).inside();
    const int high = at(nodes, list).size, scrolled = at(nodes, list).scrolled;
    const int last = std::min(count_items(owner.items), (scrolled + room.h + high - 1) / high);
    for (int row = scrolled / high; row < last; ++row) {
        Node node = popped(owner, "list_item");
        node.parent = list;
        node.slot = row;
        node.tag = list_tag(row + 1);
        node.pops = true;
        node.text = item_of(owner.items, row);
        node.box = {room.x, room.y + row * high - scrolled, room.w, high};
        node.visible = meet(node.box, room);
        if (row == owner.chosen_item()) node.state |= KIT_ACTIVE;
        node.own_state = node.state;
        node.marked = row == marked;
        node.end = count_of(nodes) + 1;
        nodes.push_back(std::move(node));
    }
    at(nodes, list).end = count_of(nodes);
}

}  // namespace

Tag list_tag(int row) { return kListTag + static_cast<Tag>(row); }

void add_list(Nodes& nodes, const Live& live) {
    const Node owner =
        at(nodes, find_node(nodes, live.open.tag));  // nodes move when some are added
    Node row = popped(owner, "list_item");
    Node list = popped(owner, "column");
    row.text = "0";
    row.items = owner.items;
    const int high = std::max(1, size_of_widget(row).h);
    const int wide = std::max(
        {owner.box.w, want_of(owner, kAcross), want_of(row, kAcross) + 2});  // and the edge
    const long long all = static_cast<long long>(high) * count_items(owner.items);
    const int content = static_cast<int>(std::min<long long>(all, kMostList));
    list.tag = list_tag(0);
    list.pad = {1, 1, 1, 1};
    list.scroll = true;
    list.ground = {true, owner.look.theme.surface};
    list.edge = {true, owner.look.theme.border};
    list.size = high;
    list.box = list.visible =
        place_list(nodes.front().box, meet(owner.box, nodes.front().box), wide, content + 2);
    list.beyond = std::max(0, content - list.inside().h);
    // At first, what it was opened at is in the middle.
    const long long middle =
        static_cast<long long>(live.open.first) * high - (list.inside().h - high) / 2;
    const auto first = static_cast<int>(std::clamp<long long>(middle, 0, list.beyond));
    list.scrolled = std::clamp(scrolled_of(live, list.tag, first), 0, list.beyond);
    nodes.push_back(std::move(list));
    add_rows(nodes, owner, count_of(nodes) - 1, live.open.marked);
}

void add_tooltip(Nodes& nodes, const Live& live) {
    const Node& owner = at(nodes, find_node(nodes, live.tip.tag));
    Node tip = popped(owner, "tooltip");
    tip.text = owner.tip;
    const kit_box screen = nodes.front().box, around = owner.visible, size = size_of_widget(tip);
    const int w = std::min(size.w, screen.w), h = std::min(size.h, screen.h);
    const int x = std::clamp(around.x + (around.w - w) / 2, 0, screen.w - w);
    const int above = around.y - h, under = around.y + around.h;
    tip.box = {x, above >= 0 ? above : std::min(under, screen.h - h), w, h};
    tip.visible = tip.box;
    tip.below = above < 0;
    tip.end = count_of(nodes) + 1;
    nodes.push_back(std::move(tip));
}

int list_of(const Nodes& nodes) {
    const int i = nodes.front().end;
    return i < count_of(nodes) && at(nodes, i).is(Sort::Column) ? i : -1;
}

void reveal_row(const Nodes& nodes, Live& live, int row) {
    const Node& list = at(nodes, list_of(nodes));
    const long long top = static_cast<long long>(row) * list.size;
    const int scrolled = scrolled_of(live, list.tag, list.scrolled);
    if (top < scrolled) scroll_to(live, list, top);
    const long long least = top + list.size - list.inside().h;
    if (least > scrolled) scroll_to(live, list, std::min(least, top));
}

}  // namespace kit
