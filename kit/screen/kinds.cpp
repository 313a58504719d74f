#include "screen/kinds.h"

#include <algorithm>
#include <iterator>

#include "orvel_kit.h"
#include "screen/document.h"

namespace kit {
namespace {

constexpr unsigned kShown = kEvery | kWidget, kUsed = kShown | kControl;

constexpr KindSpec kKinds[] = {
    {"row", Sort::Row, -1, Type::Nodes, kEvery | kLines | kRow},
    {"column", Sort::Column, -1, Type::Nodes, kEvery | kLines},
    {"stack", Sort::Stack, -1, Type::Nodes, kEvery | kStack},
    {"space", Sort::Space, -1, Type::Room, kEvery},
    {"text", Sort::Text, -1, Type::Words, kEvery | kText | kInk},
    {"picture", Sort::Picture, -1, Type::Words, kEvery},
    {"icon", Sort::Icon, ORVEL_WIDGET_ICON, Type::Icon, kEvery | kInk | kSize},
    {"line", Sort::Line, -1, Type::Color, kEvery | kSize},
    {"rect", Sort::Rect, -1, Type::Color, kEvery},
    {"circle", Sort::Circle, -1, Type::Color, kEvery | kSize},
    {"chart", Sort::Chart, -1, Type::Shape, kEvery | kChart | kRange | kInk},
    {"include", Sort::Include, -1, Type::File, kEvery | kInclude},
    {"window", Sort::Widget, ORVEL_WIDGET_WINDOW, Type::Node, kShown | kFrame | kWindow},
    {"panel", Sort::Widget, ORVEL_WIDGET_PANEL, Type::Node, kShown | kFrame},
    {"label", Sort::Widget, ORVEL_WIDGET_LABEL, Type::Words, kShown},
    {"button", Sort::Widget, ORVEL_WIDGET_BUTTON, Type::Words, kUsed | kOn | kIcon},
    {"toggle", Sort::Widget, ORVEL_WIDGET_TOGGLE, Type::Truth, kUsed},
    {"checkbox", Sort::Widget, ORVEL_WIDGET_CHECKBOX, Type::Words, kUsed | kOn},
    {"slider", Sort::Widget, ORVEL_WIDGET_SLIDER, Type::Number, kUsed | kRange},
    {"progress", Sort::Widget, ORVEL_WIDGET_PROGRESS, Type::Number, kShown | kRange},
    {"textbox", Sort::Widget, ORVEL_WIDGET_TEXTBOX, Type::Words, kUsed | kField},
    {"image", Sort::Widget, ORVEL_WIDGET_IMAGE, Type::Words, kShown},
    {"separator", Sort::Widget, ORVEL_WIDGET_SEPARATOR, Type::Nothing, kShown},
    {"card", Sort::Widget, ORVEL_WIDGET_CARD, Type::Node, kShown | kFrame},
    {"radio", Sort::Widget, ORVEL_WIDGET_RADIO, Type::Words, kUsed | kOn | kChoice},
    {"dropdown", Sort::Widget, ORVEL_WIDGET_DROPDOWN, Type::Words, kUsed | kOn | kDrop},
    {"spinner", Sort::Widget, ORVEL_WIDGET_SPINNER, Type::Number, kShown | kRange},
    {"rating", Sort::Widget, ORVEL_WIDGET_RATING, Type::Number, kUsed | kRange},
    {"stepper", Sort::Widget, ORVEL_WIDGET_STEPPER, Type::Words, kUsed | kRange},
    {"tabs", Sort::Widget, ORVEL_WIDGET_TABS, Type::Items, kUsed | kItems},
    {"avatar", Sort::Widget, ORVEL_WIDGET_AVATAR, Type::Words, kShown},
    {"badge", Sort::Widget, ORVEL_WIDGET_BADGE, Type::Words, kShown},
    {"titlebar", Sort::Widget, ORVEL_WIDGET_TITLEBAR, Type::Words, kShown},
    {"list_item", Sort::Widget, ORVEL_WIDGET_LIST_ITEM, Type::Words, kUsed | kOn | kIcon | kChoice},
    {"menu", Sort::Widget, ORVEL_WIDGET_MENU, Type::Items, kUsed | kItems},
    {"bars", Sort::Widget, ORVEL_WIDGET_BARS, Type::Numbers, kShown | kRange},
    {"search", Sort::Widget, ORVEL_WIDGET_SEARCH, Type::Words, kUsed | kField},
    {"tooltip", Sort::Widget, ORVEL_WIDGET_TOOLTIP, Type::Words, kShown},
    {"statusbar", Sort::Widget, ORVEL_WIDGET_STATUSBAR, Type::Words, kShown},
};

constexpr KeySpec kKeys[] = {
    {"//", Key::Comment, Type::Anything, kEvery},
    {"id", Key::Id, Type::Name, kEvery},
    {"if", Key::If, Type::Condition, kEvery},
    {"each", Key::Each, Type::Where, kEvery},
    {"as", Key::As, Type::Name, kEvery},
    {"width", Key::Width, Type::Side, kEvery},
    {"height", Key::Height, Type::Side, kEvery},
    {"min", Key::Min, Type::Bounds, kEvery},
    {"max", Key::Max, Type::Bounds, kEvery},
    {"grow", Key::Grow, Type::Whole, kEvery},
    {"pad", Key::Pad, Type::Pad, kEvery},
    {"ground", Key::Ground, Type::Color, kEvery},
    {"edge", Key::Edge, Type::Color, kEvery},
    {"theme", Key::Theme, Type::Theme, kEvery},
    {"face", Key::Face, Type::Face, kEvery},
    {"name", Key::Name, Type::Words, kEvery},
    {"tip", Key::Tip, Type::Words, kEvery},
    {"gap", Key::Gap, Type::Gap, kLines},
    {"align", Key::Align, Type::Align, kLines | kStack | kFrame},
    {"align", Key::Align, Type::Side3, kText},
    {"justify", Key::Justify, Type::Justify, kLines},
    {"justify", Key::Justify, Type::Align, kStack | kFrame},
    {"scroll", Key::Scroll, Type::Scroll, kLines},
    {"wrap", Key::Wrap, Type::Truth, kRow | kText},
    {"show", Key::Show, Type::Index, kStack},
    {"title", Key::Title, Type::Words, kWindow},
    {"lines", Key::Lines, Type::Length, kText},
    {"color", Key::Color, Type::Color, kInk},
    {"size", Key::Size, Type::Length, kSize},
    {"disabled", Key::Disabled, Type::Truth, kWidget},
    {"hover", Key::Hover, Type::Truth, kWidget},
    {"focus", Key::Focus, Type::Truth, kWidget},
    {"on", Key::On, Type::Truth, kOn},
    {"range", Key::Range, Type::Range, kRange},
    {"selected", Key::Selected, Type::Index, kItems | kDrop},
    {"selected", Key::Chosen, Type::Scalar, kChoice},
    {"value", Key::Value, Type::Scalar, kChoice},
    {"items", Key::Items, Type::Items, kDrop},
    {"key", Key::Shortcut, Type::Shortcut, kControl},
    {"sound", Key::Sound, Type::Words, kControl},
    {"hint", Key::Hint, Type::Words, kField},
    {"limit", Key::Limit, Type::Length, kField},
    {"secret", Key::Secret, Type::Truth, kField},
    {"icon", Key::Icon, Type::Icon, kIcon},
    {"series", Key::Series, Type::Series, kChart},
    {"values", Key::Values, Type::Numbers, kChart},
    {"labels", Key::Labels, Type::Items, kChart},
    {"unit", Key::Unit, Type::Words, kChart},
    {"decimals", Key::Decimals, Type::Digit, kChart},
    {"axes", Key::Axes, Type::Truth, kChart},
    {"legend", Key::Legend, Type::Truth, kChart},
    {"with", Key::With, Type::With, kInclude},
};

/// What people write who know other notations for screens.
struct OtherWord {
    std::string_view word, ours;
};

constexpr OtherWord kOtherWords[] = {
    {"accelerator", "key"}, {"background", "ground"}, {"border", "edge"},      {"checked", "on"},
    {"choices", "items"},   {"divider", "separator"}, {"enabled", "disabled"}, {"flex", "grow"},
    {"font", "face"},       {"gauge", "chart"},       {"graph", "chart"},      {"grid", "row"},
    {"hbox", "row"},        {"hidden", "if"},         {"hotkey", "key"},       {"img", "picture"},
    {"input", "textbox"},   {"margin", "pad"},        {"options", "items"},    {"outline", "edge"},
    {"padding", "pad"},     {"paragraph", "text"},    {"placeholder", "hint"}, {"repeat", "each"},
    {"select", "dropdown"}, {"shortcut", "key"},      {"spacing", "gap"},      {"switch", "toggle"},
    {"tooltip", "tip"},     {"vbox", "column"},       {"visible", "if"},
};

}  // namespace

std::string what_was_meant(std::string_view word, const std::vector<std::string_view>& known) {
    for (const OtherWord& other : kOtherWords) {
        const bool is_known = std::find(known.begin(), known.end(), other.ours) != known.end();
        if (other.word == word && is_known) return did_you_mean(other.ours, known);
    }
    return did_you_mean(word, known);
}

const KindSpec* kind_named(std::string_view name) {
    for (const KindSpec& kind : kKinds) {
        if (kind.name == name) return &kind;
    }
    return nullptr;
}

const KeySpec* key_named(std::string_view name, unsigned keys) {
    for (const KeySpec& key : kKeys) {
        if (key.name == name && (key.keys & keys) != 0) return &key;
    }
    return nullptr;
}

std::vector<std::string_view> kind_names() {
    std::vector<std::string_view> names;
    for (const KindSpec& kind : kKinds) names.push_back(kind.name);
    return names;
}

std::vector<std::string_view> key_names(unsigned keys) {
    std::vector<std::string_view> names;
    for (const KeySpec& key : kKeys) {
        if ((key.keys & keys) != 0) names.push_back(key.name);
    }
    return names;
}

std::vector<std::string_view> choices_of(Type type) {
    // Not lists in braces: g++ 12 loses those where it optimises for 32-bit x86 while it links.
    static constexpr std::string_view kAligns[] = {"start", "center", "end", "stretch"};
    static constexpr std::string_view kSides[] = {"left", "center", "right"};
    static constexpr std::string_view kJustified[] = {"start", "center", "end", "between"};
    static constexpr std::string_view kShapes[] = {"line", "area",    "spark",
                                                   "bars", "stacked", "gauge"};
    if (type == Type::Align) return {std::begin(kAligns), std::end(kAligns)};
    if (type == Type::Side3) return {std::begin(kSides), std::end(kSides)};
    if (type == Type::Justify) return {std::begin(kJustified), std::end(kJustified)};
    if (type == Type::Shape) return {std::begin(kShapes), std::end(kShapes)};
    return {};
}

std::string_view expected(Type type) {
    switch (type) {                          // GCOVR_EXCL_BR_LINE: there are no others
    case Type::Anything: return "anything";  // GCOVR_EXCL_LINE: which nothing fails to be
    case Type::Nodes: return "a list of nodes";
    case Type::Node: return "a node or null";
    case Type::Nothing: return "null or true";
    case Type::Room: return "0 to 32767 pixels or null";
    case Type::Words: return "a text";
    case Type::Items: return "a list of texts without \"|\"";
    case Type::Number: return "a number";
    case Type::Numbers: return "a list of numbers";
    case Type::Truth: return "true or false";
    case Type::Side: return "0 to 32767 pixels";
    case Type::Length: return "1 to 32767";
    case Type::Whole: return "0 to 32767";
    case Type::Digit: return "0 to 9";
    case Type::Index: return "a whole number";
    case Type::Scalar: return "a text, a number, true or false";
    case Type::Pad: return "pixels: n, [vertical, horizontal] or [top, right, bottom, left]";
    case Type::Gap: return "pixels: n or [along, across]";
    case Type::Bounds: return "pixels: n or [width, height]";
    case Type::Range: return "[low, high] or [low, high, step], low below high";
    case Type::Color: return "a colour, \"#rrggbb\" or a role of the theme";
    case Type::Theme: return "the name of a theme, or an object of roles and colours";
    case Type::Face: return "the name of a face";
    case Type::Icon: return "the name of an icon";
    case Type::Align: return "start, center, end or stretch";
    case Type::Side3: return "left, center or right";
    case Type::Justify: return "start, center, end or between";
    case Type::Scroll: return "true, or the pixels that it is scrolled by";
    case Type::Shape: return "line, area, spark, bars, stacked or gauge";
    case Type::Series: return "a list of objects with values, name and color";
    case Type::Name: return "a name of letters, digits, \"_\" and \"-\"";
    case Type::Where: return "where a list is in the data, as days";
    case Type::Condition: return "a name, or one compared with a value, as battery < 20";
    case Type::File: return "the name of a file in this folder or below";
    case Type::Shortcut: return "a key, as f5, ctrl+s or ctrl+alt+shift+pageup";
    case Type::With: return "an object of values";
    }
    return "";  // GCOVR_EXCL_LINE: behind that switch
}

}  // namespace kit
