// The tree as it is laid out and drawn: every value there, every repetition written out.
#pragma once

#include <array>
#include <climits>
#include <cstdint>
#include <string>
#include <vector>

#include "screen/kinds.h"
#include "screen/look.h"
#include "screen/refusal.h"
#include "screen/shortcut.h"

namespace kit {

enum class Align { Start, Center, End, Stretch };
enum class Justify { Start, Center, End, Between };

/// A colour that may be missing.
struct Paint {
    bool there = false;
    orvel_color color = {};
};

struct NodeSeries {
    std::vector<double> values;
    std::string name;
    Paint color;
};

/// The two directions.
enum Axis { kAcross = 0, kDown = 1 };
using Pair = std::array<int, 2>;

/// What a node is known by when it is built anew; 0 is none.
using Tag = std::uint64_t;

/// What shows of input; to be added up.
enum LiveState : unsigned { kHovered = 1, kPressed = 2, kFocused = 4, kOpen = 8 };

/// Where a text field has its caret, what is composed, and the widget's scroll: in its words.
struct FieldCaret {
    int caret = 0, anchor = 0, composed = 0, composed_end = 0, scroll = 0;

    bool operator==(const FieldCaret&) const = default;
};

constexpr int kNoSide = -1;
constexpr int kAll = INT_MIN;
constexpr int kMostList = 1 << 30;  // pixels of a list, however long

struct Node {
    const KindSpec* kind = nullptr;
    int parent = -1;
    int end = 0;   // behind the last node below it
    int slot = 0;  // its number among the children as they are written
    int item = 0;  // and in the list that it is repeated for
    Tag tag = 0;
    const Source* source = nullptr;
    Place place;
    std::string id, name;
    Look look;

    // What it asks of the layout.
    Pair given = {kNoSide, kNoSide};  // its own size
    Pair least = {0, 0}, most = {kMostSide, kMostSide};
    int grow = 0;
    int along = -1;               // the direction of its parent's children
    std::array<int, 4> pad = {};  // from the top clockwise
    bool padded = false;          // as the scene says, not as its frame needs
    Pair gap = {0, 0};            // along, across
    Align align = Align::Stretch, across = Align::Stretch;  // the second one down a stack
    Justify justify = Justify::Start;
    bool scroll = false, wrap = false, hidden = false;
    int scrolled = 0, own_scrolled = 0;  // as it shows, and as the scene says
    int beyond = 0;                      // pixels of content that are out of sight
    bool pops = false, marked = false;   // a row of an open list; the one that a key would take
    bool below = false;                  // a tooltip under what it tells of
    int show = kAll;                     // the only child that shows, of so many
    int shown_of = 0;
    int lines = 0;  // of a paragraph at the most

    // What it shows.
    std::string text, hint, icon, unit;
    std::string content;  // of a text field, whose words may be others
    int limit = 0;        // in letters; 0: none
    bool secret = false;
    FieldCaret caret;
    std::string written;  // a number, as it was
    std::string step;     // of the range; empty: none
    std::string tip, sound;
    std::string items;           // of a list to choose from, joined with "|"
    std::string choice, chosen;  // JSON: its own of a shared value, and what that is
    bool counts = false;         // whether "selected" says which item it is
    Shortcut shortcut;
    std::array<std::string, 2> ends;  // of the range, as they were
    std::string target;               // the name of the data that it changes; empty: none
    double value = 0;
    int amount = 0, size = 0, decimals = 0;
    unsigned state = 0, parts = 0;
    unsigned own_state = 0, live = 0;  // as the scene says, and a LiveState
    int words = KIT_LEFT;              // a kit_align
    int shape = 0;                     // a kit_chart_kind
    double low = 0, high = 0;
    Paint ground, edge, color;
    std::vector<double> numbers;
    std::vector<NodeSeries> series;
    const orvel_canvas* picture = nullptr;
    bool unknown = false;

    // What the layout makes of it.
    Pair want = {0, 0};
    kit_box box = {}, visible = {};
    kit_box bar = {};  // the moving part of one that tells how far it is scrolled
    int row = 0;       // of a wrapping row, the line that it is in

    bool is(Sort sort) const { return kind->sort == sort; }
    bool is_widget(int widget) const { return is(Sort::Widget) && kind->widget == widget; }
    /// Window, panel, card: a widget around one child.
    bool frames() const { return (kind->keys & kFrame) != 0; }
    bool holds_nodes() const { return kind->value == Type::Nodes || frames() || is(Sort::Include); }
    /// Whether its size is its own, so that it is never stretched.
    bool keeps_size() const;
    /// Text box, search.
    bool is_field() const { return (kind->keys & kField) != 0; }
    /// The items of tabs, a menu or a dropdown, joined with "|".
    const std::string& choices() const { return is_widget(ORVEL_WIDGET_DROPDOWN) ? items : text; }
    /// Whether its value is the number of the chosen item, not the item.
    bool tells_number() const { return counts || !is_widget(ORVEL_WIDGET_DROPDOWN); }
    /// Of what has items, the number of the chosen one; -1 where none is.
    int chosen_item() const;
    /// Whether people use it, where it is not disabled.
    bool is_control() const { return (kind->keys & kControl) != 0; }
    /// Of a control, whether its value is a number of a range: slider, stepper, rating.
    bool has_number() const { return (kind->keys & kRange) != 0; }
    /// Whether input has an effect on it.
    bool is_usable() const;
    /// The direction of its children; below 0 where they lie on each other.
    int axis() const { return is(Sort::Row) ? kAcross : is(Sort::Column) ? kDown : -1; }
    /// The box without its padding.
    kit_box inside() const;
};

/// All nodes, each followed by those below it.
using Nodes = std::vector<Node>;

inline Node& at(Nodes& nodes, int i) { return nodes[static_cast<std::size_t>(i)]; }
inline const Node& at(const Nodes& nodes, int i) { return nodes[static_cast<std::size_t>(i)]; }
inline int count_of(const Nodes& nodes) { return static_cast<int>(nodes.size()); }

/// Calls @p act with the number of each child of the node @p parent that shows.
template <typename Act>
void for_children(const Nodes& nodes, int parent, const Act& act) {
    for (int i = parent + 1; i < at(nodes, parent).end; i = at(nodes, i).end) {
        if (!at(nodes, i).hidden) act(i);  // GCOVR_EXCL_BR_LINE: only a stack hides its children
    }
}

/// "root.column[2].text" without the last step: the way to the node.
std::string path_of(const Nodes& nodes, int i);

kit_box meet(const kit_box& a, const kit_box& b);  // what both cover
kit_box join(const kit_box& a, const kit_box& b);  // the smallest that holds both
inline bool is_empty(const kit_box& box) { return box.w < 1 || box.h < 1; }
inline bool same(const kit_box& a, const kit_box& b) {
    return a.x == b.x && a.y == b.y && a.w == b.w && a.h == b.h;
}

/// The widget that a node is drawn as.
kit_widget widget_of(const Node& node);
/// The chart, whose series are in @p all.
kit_chart chart_of(const Node& node, std::vector<kit_series>& all);

/// Gives every node its box on a screen of this size.
void lay_out(Nodes& nodes, int width, int height);
/// What the root wants, where the scene gives no size.
Pair wanted(Nodes& nodes);

/// What a node without children wants in one direction: the height once the width of its box is
/// known. Padding is left out.
int want_of(const Node& node, Axis axis);

/// Shares @p room among so many, one each of what is left over to the first.
void share(int room, const std::vector<int>& weights, std::vector<int>& shares);

/// Whether there is anything of the node's own to draw.
bool paints(const Node& node);
/// Draws what of the tree lies in @p part of the canvas, which is all of it or has been cut out;
/// false where memory ran out.
bool paint(const Nodes& nodes, orvel_canvas* canvas, const kit_box& part);

/// The smallest box that holds all that differs between two drawn trees.
kit_box difference(const Nodes& before, const Nodes& after);
/// @p damage, wider by what of its nodes can only be drawn whole.
kit_box whole_nodes(const Nodes& nodes, kit_box damage);

std::string describe(const Nodes& nodes);
/// What is wrong with the nodes, as the panel shows them.
std::string report(const Nodes& nodes, const kit_format* panel);

}  // namespace kit
