// What nodes without children want.
#include <algorithm>
#include <new>
#include <string>

#include "screen/items.h"
#include "screen/node.h"

namespace kit {
namespace {

/// The widest line of a paragraph before it is broken.
int widest_line(const Node& node) {
    int widest = 0;
    for (std::size_t start = 0, end = 0; start <= node.text.size(); start = end + 1) {
        end = std::min(node.text.find('\n', start), node.text.size());
        const std::string line = node.text.substr(start, end - start);
        widest = std::max(widest, kit_text_width(node.look.face, line.c_str()));
    }
    return widest;
}

int paragraph_height(const Node& node) {
    const kit_face* face = node.look.face;
    const kit_box room = {0, 0, node.inside().w, 0};
    int lines = kit_text_wrap(nullptr, face, node.text.c_str(), room, KIT_LEFT, {});
    if (node.lines > 0) lines = std::min(lines, node.lines);
    lines = std::clamp(lines, 1, kMostSide);  // an empty one keeps the place of a line
    const long long rest = static_cast<long long>(lines - 1) * kit_face_line(face);
    const long long height = rest + kit_face_ascent(face) + kit_face_descent(face);
    return static_cast<int>(std::min<long long>(height, kMostSide));
}

/// What the kit says of a widget, one side of which may be known.
int widget_want(kit_widget widget, const kit_box& box, Axis axis) {
    widget.box = {0, 0, axis == kDown ? box.w : 0, 0};
    int w = 0, h = 0;
    if (kit_size(&widget, &w, &h) != 0) throw std::bad_alloc();
    return axis == kDown ? h : w;
}

/// What a dropdown wants for the widest of its first items, whichever is chosen.
int list_want(const Node& node) {
    constexpr int kMost = 256;
    kit_widget widget = widget_of(node);
    int widest = widget_want(widget, {}, kAcross);
    std::string_view rest = node.items;
    for (int i = 0; i < kMost && !rest.empty(); ++i) {
        const std::string item(take_item(rest));
        widget.text = item.c_str();
        widest = std::max(widest, widget_want(widget, {}, kAcross));
    }
    return widest;
}

int text_want(const Node& node, Axis axis) {
    if (!node.wrap) {
        kit_widget label = widget_of(node);
        label.kind = ORVEL_WIDGET_LABEL;
        return widget_want(label, {}, axis);
    }
    return axis == kDown ? paragraph_height(node) : widest_line(node);
}

int picture_want(const Node& node, Axis axis) {
    return axis == kDown ? orvel_canvas_height(node.picture) : orvel_canvas_width(node.picture);
}

int chart_want(const Node& node, Axis axis) {
    kit_widget bars = widget_of(node);
    bars.kind = ORVEL_WIDGET_BARS;
    return widget_want(bars, {}, axis);
}

int content_want(const Node& node, Axis axis) {
    switch (node.kind->sort) {  // GCOVR_EXCL_BR_LINE: there are no others
    case Sort::Space: return node.along == 1 - axis ? 0 : node.size;
    case Sort::Line: {
        const Axis thick = node.along == kAcross ? kAcross : kDown;
        return axis == thick ? std::max(1, node.size) : 0;
    }
    case Sort::Text: return text_want(node, axis);
    case Sort::Picture: return picture_want(node, axis);
    case Sort::Icon:
        return node.size > 0 ? node.size : widget_want(widget_of(node), node.inside(), axis);
    case Sort::Circle: return node.size;
    case Sort::Chart: return chart_want(node, axis);
    case Sort::Widget:
        if (!node.items.empty() && axis == kAcross) return list_want(node);
        return widget_want(widget_of(node), node.inside(), axis);
    case Sort::Rect:
    case Sort::Row:
    case Sort::Column:
    case Sort::Stack:
    case Sort::Include: return 0;
    }
    return 0;  // GCOVR_EXCL_LINE: behind that switch
}

}  // namespace

int want_of(const Node& node, Axis axis) { return std::min(content_want(node, axis), kMostSide); }

}  // namespace kit
