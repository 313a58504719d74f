// The kinds of node, the keys that each may have, and what a key's value may be.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kit {

enum class Sort {
    Row,
    Column,
    Stack,
    Space,
    Text,
    Picture,
    Icon,
    Line,
    Rect,
    Circle,
    Chart,
    Include,
    Widget
};

/// What a value may be. Texts may hold references for all but those marked "as written".
enum class Type {
    Anything,   // not looked at
    Nodes,      // a list of nodes
    Node,       // a node, or null
    Nothing,    // null or true
    Room,       // pixels along, or null
    Words,      // a text or number
    Items,      // a list of them, without "|"
    Number,     // a number
    Numbers,    // a list of them, null among them
    Truth,      // true or false
    Side,       // pixels, 0 to 32767
    Length,     // pixels, 1 to 32767
    Whole,      // 0 to 32767
    Digit,      // 0 to 9
    Index,      // a whole number
    Scalar,     // a text, a number, true or false
    Pad,        // n, [vertical, horizontal] or four from the top clockwise
    Gap,        // n or [along, across]
    Bounds,     // n along the parent, or [width, height], each of which may be null
    Range,      // [low, high] or [low, high, step]
    Color,      // "#rrggbb" or a role
    Theme,      // a name, or an object of roles and colours
    Face,       // a name
    Icon,       // one of the built-in icons
    Align,      // start, center, end, stretch
    Side3,      // left, center, right
    Justify,    // start, center, end, between
    Scroll,     // true, or the pixels that it is scrolled by
    Shape,      // the kinds of chart
    Series,     // a list of objects: values, name, color
    Name,       // as written: letters, digits, "_" and "-"
    Where,      // as written: where a list is in the data
    Condition,  // as written: a path, or one compared with a literal
    File,       // as written: a scene file beside this one
    Shortcut,   // as written: modifiers and a key
    With        // an object of values
};

/// The groups of keys that kinds take; to be added up.
enum Keys : unsigned {
    kEvery = 1,
    kLines = 2,  // row, column
    kRow = 4,
    kStack = 8,
    kFrame = 16,  // what has one child
    kWindow = 32,
    kText = 64,
    kInk = 128,
    kSize = 256,
    kWidget = 512,
    kOn = 1024,
    kRange = 2048,
    kItems = 4096,
    kField = 8192,
    kIcon = 16384,
    kChart = 32768,
    kInclude = 65536,
    kControl = 131072,  // what people use
    kChoice = 262144,   // one of several that share a value
    kDrop = 524288
};

struct KindSpec {
    std::string_view name;
    Sort sort;
    int widget;  // an orvel_widget_kind, where the sort is that
    Type value;
    unsigned keys;
};

enum class Key {
    Comment,
    Id,
    If,
    Each,
    As,
    Width,
    Height,
    Min,
    Max,
    Grow,
    Pad,
    Ground,
    Edge,
    Theme,
    Face,
    Name,
    Gap,
    Align,
    Justify,
    Scroll,
    Wrap,
    Show,
    Title,
    Lines,
    Color,
    Size,
    Disabled,
    Hover,
    Focus,
    On,
    Range,
    Selected,
    Chosen,
    Value,
    Items,
    Tip,
    Shortcut,
    Sound,
    Hint,
    Limit,
    Secret,
    Icon,
    Series,
    Values,
    Labels,
    Unit,
    Decimals,
    Axes,
    Legend,
    With
};

struct KeySpec {
    std::string_view name;
    Key key;
    Type type;
    unsigned keys;
};

/// The kind of that name; null when there is none.
const KindSpec* kind_named(std::string_view name);
/// The key of that name that nodes with these groups may have; null when there is none.
const KeySpec* key_named(std::string_view name, unsigned keys);

/// "; did you mean "pad"?" for a kind or a key that there is not: by what other notations call it,
/// or that of @p known which is spelled most like it; nothing where neither helps.
std::string what_was_meant(std::string_view word, const std::vector<std::string_view>& known);

std::vector<std::string_view> kind_names();
/// The keys that nodes with these groups may have.
std::vector<std::string_view> key_names(unsigned keys);
/// The words that a value of this type chooses from; empty where it does not.
std::vector<std::string_view> choices_of(Type type);
/// "a colour, "#rrggbb" or a role", for reasons.
std::string_view expected(Type type);

constexpr int kMostSide = 32767;

}  // namespace kit
