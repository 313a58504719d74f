// A screen in words: for golden files, alternative texts, and those who do not see it.
#include <string>

#include "screen/items.h"
#include "screen/node.h"

namespace kit {
namespace {

std::string quoted(const std::string& text) { return write_json(text_value(text)); }

/// Whether the words of a widget are its value, not what it is called.
bool words_are_value(const Node& node) {
    for (const int kind : {ORVEL_WIDGET_TEXTBOX, ORVEL_WIDGET_SEARCH, ORVEL_WIDGET_DROPDOWN,
                           ORVEL_WIDGET_STEPPER, ORVEL_WIDGET_BADGE}) {
        if (node.is_widget(kind)) return true;
    }
    return false;
}

std::string name_of_node(const Node& node) {
    if (!node.name.empty()) return node.name;
    if (words_are_value(node)) return node.hint;
    // What a picture is called in its folder says nothing of what it shows.
    if (node.is(Sort::Picture) || node.is_widget(ORVEL_WIDGET_IMAGE)) return "";
    if (node.kind->value == Type::Words || node.kind->value == Type::Icon) return node.text;
    if (node.is_widget(ORVEL_WIDGET_WINDOW)) return node.text;
    return "";
}

std::string value_of(const Node& node) {
    if (words_are_value(node)) return '=' + quoted(node.text);
    if (!node.written.empty()) return '=' + node.written;
    if (node.kind->value == Type::Items) return '=' + quoted(item_of(node.text, node.amount));
    return "";
}

std::string states_of(const Node& node) {
    std::string states;
    const bool on = (node.own_state & KIT_ACTIVE) != 0;
    const bool switches = node.is_widget(ORVEL_WIDGET_TOGGLE) ||
                          node.is_widget(ORVEL_WIDGET_CHECKBOX) ||
                          node.is_widget(ORVEL_WIDGET_RADIO);
    if (on || switches) states += on ? " on" : " off";
    if ((node.state & KIT_DISABLED) != 0) states += " disabled";
    if ((node.live & kHovered) != 0) states += " hover";
    if ((node.live & kPressed) != 0) states += " pressed";
    if ((node.live & kOpen) != 0) states += " open";
    if ((node.state & KIT_FOCUS) != 0 || (node.live & kFocused) != 0 || node.marked)
        states += " focus";
    return states;
}

std::string written(const kit_box& box) {
    return std::to_string(box.x) + ',' + std::to_string(box.y) + ' ' + std::to_string(box.w) + 'x' +
           std::to_string(box.h);
}

std::string line_of(const Node& node, int depth) {
    std::string line(2 * static_cast<std::size_t>(depth), ' ');
    line += node.kind->name;
    const std::string name = name_of_node(node), value = value_of(node);
    if (!name.empty()) line += ' ' + quoted(name);
    if (!value.empty()) line += ' ' + value;
    line += states_of(node);
    if (!node.id.empty()) line += " #" + node.id;
    line += ' ' + written(node.box);
    if (!same(node.box, node.visible)) line += " shows " + written(node.visible);
    return line + '\n';
}

}  // namespace

std::string describe(const Nodes& nodes) {
    std::string text;
    std::vector<int> depths;
    for (const Node& node : nodes) {
        const int depth = node.parent < 0 ? 0 : depths[static_cast<std::size_t>(node.parent)] + 1;
        depths.push_back(depth);
        if (!node.hidden && !is_empty(node.visible)) text += line_of(node, depth);
    }
    return text;
}

}  // namespace kit
