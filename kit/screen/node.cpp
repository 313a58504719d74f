#include "screen/node.h"

#include <algorithm>

#include "screen/items.h"

namespace kit {

kit_box Node::inside() const {
    return {box.x + pad[3], box.y + pad[0], std::max(0, box.w - pad[1] - pad[3]),
            std::max(0, box.h - pad[0] - pad[2])};
}

bool Node::keeps_size() const {
    if (is(Sort::Circle)) return size > 0;
    if (!is(Sort::Widget)) return is(Sort::Picture) || is(Sort::Icon);
    switch (kind->widget) {
    case ORVEL_WIDGET_TOGGLE:
    case ORVEL_WIDGET_IMAGE:
    case ORVEL_WIDGET_SPINNER:
    case ORVEL_WIDGET_RATING:
    case ORVEL_WIDGET_AVATAR:
    case ORVEL_WIDGET_BADGE: return true;
    default: return false;
    }
}

int Node::chosen_item() const {
    if (tells_number()) return has_item(choices(), amount) ? amount : -1;
    std::string_view rest = items;
    for (int i = 0, count = count_items(items); i < count; ++i) {
        if (take_item(rest) == text) return i;
    }
    return -1;
}

bool Node::is_usable() const {
    const bool matters = !target.empty() || !id.empty() || pops;
    return matters && !hidden && (own_state & KIT_DISABLED) == 0 && is_control();
}

std::string path_of(const Nodes& nodes, int i) {
    const Node& node = at(nodes, i);
    if (node.parent < 0) return "root";
    const Node& parent = at(nodes, node.parent);
    std::string path = path_of(nodes, node.parent);
    if (parent.is(Sort::Include)) return "root";
    path += '.';
    path += parent.kind->name;
    if (parent.kind->value == Type::Nodes) path += '[' + std::to_string(node.slot) + ']';
    return path;
}

kit_box meet(const kit_box& a, const kit_box& b) {
    const int x = std::max(a.x, b.x), y = std::max(a.y, b.y);
    // A host's box may end beyond what an int holds.
    const auto end = [](int start, int size) { return static_cast<long long>(start) + size; };
    const long long w = std::min(end(a.x, a.w), end(b.x, b.w)) - x;
    const long long h = std::min(end(a.y, a.h), end(b.y, b.h)) - y;
    if (w < 1 || h < 1) return {};
    return {x, y, static_cast<int>(w), static_cast<int>(h)};
}

kit_box join(const kit_box& a, const kit_box& b) {
    if (is_empty(a)) return b;
    if (is_empty(b)) return a;
    const int x = std::min(a.x, b.x), y = std::min(a.y, b.y);
    return {x, y, std::max(a.x + a.w, b.x + b.w) - x, std::max(a.y + a.h, b.y + b.h) - y};
}

kit_widget widget_of(const Node& node) {
    kit_widget widget = {};
    widget.kind = node.kind->widget;
    widget.text = node.text.c_str();
    widget.hint = node.hint.c_str();
    widget.icon = node.icon.c_str();
    widget.face = node.look.face;
    widget.state = node.state;
    widget.amount = node.amount;
    widget.value = node.value;
    widget.data = node.numbers.data();
    widget.count = static_cast<int>(node.numbers.size());
    widget.caret = node.caret.caret;
    widget.anchor = node.caret.anchor;
    widget.scroll = node.caret.scroll;
    return widget;
}

}  // namespace kit
