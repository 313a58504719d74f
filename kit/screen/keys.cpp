// What each key of a node decides.
#include <algorithm>
#include <cmath>
#include <limits>
#include <new>

#include "screen/build.h"
#include "screen/field.h"
#include "screen/items.h"
#include "screen/number.h"
#include "screen/values.h"

namespace kit {
namespace {

int whole(const Value& value) { return static_cast<int>(value.number); }

/// A number beyond int's range becomes its nearest end; what is behind the point is cut.
int nearest_int(const Value& value) {
    return static_cast<int>(std::clamp(std::trunc(value.number), -2147483647.0, 2147483647.0));
}

int choice(Type type, const Value& value) {
    const auto choices = choices_of(type);
    return static_cast<int>(std::find(choices.begin(), choices.end(), value.text) -
                            choices.begin());
}

std::array<int, 4> pad_of(const Value& value) {
    if (value.kind == Kind::Number) {
        const int all = whole(value);
        return {all, all, all, all};
    }
    const auto& sides = value.items;
    if (sides.size() == 2) {
        const int down = whole(sides[0]), across = whole(sides[1]);
        return {down, across, down, across};
    }
    return {whole(sides[0]), whole(sides[1]), whole(sides[2]), whole(sides[3])};
}

/// The least or most of both directions; what is open stays.
void set_bounds(const Value& value, int axis, Pair& bounds) {
    if (value.kind == Kind::Number) {
        if (axis != kDown) bounds[kAcross] = whole(value);
        if (axis != kAcross) bounds[kDown] = whole(value);
        return;
    }
    for (std::size_t i = 0; i < 2; ++i) {
        if (value.items[i].kind == Kind::Number) bounds[i] = whole(value.items[i]);
    }
}

Paint paint_of(const Value& value, const Look& look) {
    Paint paint = {true, {}};
    read_color(value.text, look, paint.color);
    return paint;
}

std::string joined(const Value& list) {
    std::string text;
    for (const Value& item : list.items) {
        if (&item != &list.items.front()) text += '|';
        text += item.text;
    }
    return text;
}

std::vector<double> numbers_of(const Value& list) {
    std::vector<double> numbers;
    for (const Value& item : list.items) {
        const bool there = item.kind == Kind::Number;
        numbers.push_back(there ? item.number : std::numeric_limits<double>::quiet_NaN());
    }
    return numbers;
}

std::vector<NodeSeries> series_of(const Value& list, const Look& look) {
    std::vector<NodeSeries> all;
    for (const Value& one : list.items) {
        NodeSeries& series = all.emplace_back();
        series.values = numbers_of(*one.find("values"));
        if (const Value* name = one.find("name")) series.name = name->text;
        if (const Value* color = one.find("color")) series.color = paint_of(*color, look);
    }
    return all;
}

void set_flag(bool on, unsigned flag, unsigned& flags) {
    flags = on ? flags | flag : flags & ~flag;
}

void set_range(const Value& value, Node& node) {
    node.low = value.items[0].number;
    node.high = value.items[1].number;
    node.ends = {value.items[0].text, value.items[1].text};
    if (value.items.size() == 3) node.step = value.items[2].text;
}

/// A value that is one of the data and nothing else can be changed by the control.
void set_target(const Reading& reading, const Trail& trail, const Value& written, Node& node) {
    Template parts;
    Path origin;
    std::string why;
    if (written.kind != Kind::String) return;
    read_template(written.text, parts, why);  // which the check has found good
    const Reference* whole = parts.whole();
    if (!whole || whole->decimals >= 0 || whole->fallback) return;
    if (!find_origin(whole->path, reading.scope, origin)) return;
    node.target = kit::written(origin);
    reading.budget.spend(trail, written.place, node.target.size());
}

bool changes_its_content(const Node& node) {
    for (const int kind :
         {ORVEL_WIDGET_TOGGLE, ORVEL_WIDGET_SLIDER, ORVEL_WIDGET_TEXTBOX, ORVEL_WIDGET_DROPDOWN,
          ORVEL_WIDGET_RATING, ORVEL_WIDGET_STEPPER, ORVEL_WIDGET_SEARCH}) {
        if (node.is_widget(kind)) return true;
    }
    return false;
}

/// Where the words of a key go.
std::string& words_of(const KeySpec& key, Node& node) {
    switch (key.key) {
    case Key::Hint: return node.hint;
    case Key::Unit: return node.unit;
    case Key::Name: return node.name;
    case Key::Tip: return node.tip;
    case Key::Sound: return node.sound;
    default: return node.text;  // of a window, its title
    }
}

/// The keys that shape the box.
bool set_layout(const Value& value, const KeySpec& key, Node& node) {
    switch (key.key) {
    case Key::Width: node.given[kAcross] = whole(value); return true;
    case Key::Height: node.given[kDown] = whole(value); return true;
    case Key::Min: set_bounds(value, node.along, node.least); return true;
    case Key::Max: set_bounds(value, node.along, node.most); return true;
    case Key::Grow: node.grow = whole(value); return true;
    case Key::Pad:
        node.pad = pad_of(value);
        node.padded = true;
        return true;
    case Key::Gap:
        node.gap = value.kind == Kind::Number ? Pair{whole(value), whole(value)}
                                              : Pair{whole(value.items[0]), whole(value.items[1])};
        return true;
    case Key::Align:
        if (key.type == Type::Side3) {
            node.words = choice(key.type, value);
        } else {
            node.align = static_cast<Align>(choice(key.type, value));
        }
        return true;
    case Key::Justify:
        if (key.type == Type::Align) {
            node.across = static_cast<Align>(choice(key.type, value));
        } else {
            node.justify = static_cast<Justify>(choice(key.type, value));
        }
        return true;
    case Key::Scroll:
        node.scroll = value.kind == Kind::Number || value.truth;
        node.scrolled = node.own_scrolled = value.kind == Kind::Number ? whole(value) : 0;
        return true;
    case Key::Wrap: node.wrap = value.truth; return true;
    case Key::Show: node.show = nearest_int(value); return true;
    case Key::Lines: node.lines = whole(value); return true;
    case Key::Size: node.size = whole(value); return true;
    default: return false;
    }
}

/// The keys that change what is drawn.
void set_drawn(const Value& value, const KeySpec& key, Node& node) {
    switch (key.key) {  // GCOVR_EXCL_BR_LINE: no other comes
    case Key::Ground: node.ground = paint_of(value, node.look); return;
    case Key::Edge: node.edge = paint_of(value, node.look); return;
    case Key::Color: node.color = paint_of(value, node.look); return;
    case Key::Disabled: return set_flag(value.truth, KIT_DISABLED, node.state);
    case Key::Hover: return set_flag(value.truth, KIT_HOVER, node.state);
    case Key::Focus: return set_flag(value.truth, KIT_FOCUS, node.state);
    case Key::On: return set_flag(value.truth, KIT_ACTIVE, node.state);
    case Key::Range: return set_range(value, node);
    case Key::Selected:
        node.amount = nearest_int(value);
        node.counts = true;
        return;
    case Key::Chosen: node.chosen = write_json(value); return;
    case Key::Value: node.choice = write_json(value); return;
    case Key::Items: node.items = joined(value); return;
    case Key::Limit: node.limit = whole(value); return;
    case Key::Secret: node.secret = value.truth; return;
    case Key::Icon: node.icon = value.text; return;
    case Key::Series: node.series = series_of(value, node.look); return;
    case Key::Values: node.numbers = numbers_of(value); return;
    case Key::Labels: node.hint = joined(value); return;
    case Key::Decimals: node.decimals = whole(value); return;
    case Key::Axes: return set_flag(value.truth, KIT_CHART_AXES, node.parts);
    case Key::Legend: return set_flag(value.truth, KIT_CHART_LEGEND, node.parts);
    default: return;  // GCOVR_EXCL_LINE: all others shape the box, or are not for set_key()
    }
}

/// Whether the value that several controls share is that of this one.
bool is_chosen(const Node& node) {
    const bool numbers = is_number(node.choice) && is_number(node.chosen);
    if (numbers) return compare_numbers(node.choice, node.chosen) == 0;
    return node.choice == node.chosen;
}

/// The sides that a frame's own lines take.
void make_room(Node& node) {
    if (!node.padded) node.pad = {1, 1, 1, node.is_widget(ORVEL_WIDGET_CARD) ? 3 : 1};
    if (!node.is_widget(ORVEL_WIDGET_WINDOW)) return;
    kit_widget window = widget_of(node), row = window;
    row.kind = ORVEL_WIDGET_BUTTON;  // the window wants two of its height below the band
    int height = 0, row_height = 0;
    kit_size(&window, nullptr, &height);
    kit_size(&row, nullptr, &row_height);
    node.pad[0] += height - 2 * row_height;
}

}  // namespace

void finish(Node& node) {
    if (node.frames()) make_room(node);
    if (node.is_widget(ORVEL_WIDGET_IMAGE)) {
        const kit_widget image = widget_of(node);
        int w = 0;
        if (kit_size(&image, &w, nullptr) != 0) throw std::bad_alloc();
        node.unknown = w == 0;
    }
    if (node.is_field()) {
        node.content = node.text;
        node.text = words_at_rest(node);
    }
    if (!node.choice.empty()) set_flag(is_chosen(node), KIT_ACTIVE, node.state);
    if (node.counts && node.is_widget(ORVEL_WIDGET_DROPDOWN)) {
        if (has_item(node.items, node.amount)) node.text = item_of(node.items, node.amount);
    }
    if ((node.kind->keys & kRange) == 0 || node.is(Sort::Chart)) return;
    if (!(node.low < node.high)) {
        node.low = 0;
        node.high = node.is_widget(ORVEL_WIDGET_RATING) ? 5 : 1;
        if (!node.is_widget(ORVEL_WIDGET_STEPPER)) {  // whose number may be any
            node.ends = {"0", node.is_widget(ORVEL_WIDGET_RATING) ? "5" : "1"};
        }
    }
    const double size = node.high - node.low;
    node.value = (node.value - node.low) / size;
    for (double& number : node.numbers) number = (number - node.low) / size;
}

void set_key(const Reading& reading, const Trail& trail, const Value& written, const KeySpec& key,
             Node& node) {
    if (key.type == Type::Shortcut) node.shortcut = read_shortcut(written.text);
    if (as_written(key.type) || key.type == Type::With) return;
    if (key.key == Key::Theme || key.key == Key::Face) return;  // which colours depend on
    if (key.type == Type::Words) {
        words_of(key, node) = reading.words(trail, written);
        return;
    }
    const bool shows_open = key.key == Key::On && node.is_widget(ORVEL_WIDGET_DROPDOWN);
    const bool chosen = key.key == Key::On || key.key == Key::Selected || key.key == Key::Chosen;
    if (chosen && !shows_open) set_target(reading, trail, written, node);
    const Value value = reading.value(trail, key.type, written);
    if (!set_layout(value, key, node)) set_drawn(value, key, node);
}

void set_content(const Reading& reading, const Trail& trail, const Value& written, Node& node) {
    const Type type = node.kind->value;
    if (changes_its_content(node)) set_target(reading, trail, written, node);
    if (type == Type::Words) {
        node.text = reading.words(trail, written);
        if (node.is_widget(ORVEL_WIDGET_IMAGE) && !is_inside_name(node.text)) {
            refuse_misfit(trail, Type::File, written);
        }
        return;
    }
    const Value value = reading.value(trail, type, written);
    switch (type) {
    case Type::Room: node.size = value.kind == Kind::Number ? whole(value) : 0; return;
    case Type::Icon: node.text = value.text; return;
    case Type::Color: node.color = paint_of(value, node.look); return;
    case Type::Shape: node.shape = choice(type, value); return;
    case Type::Truth: return set_flag(value.truth, KIT_ACTIVE, node.state);
    case Type::Number:
        node.value = value.number;
        node.written = value.text;
        return;
    case Type::Items: node.text = joined(value); return;
    case Type::Numbers: node.numbers = numbers_of(value); return;
    default: return;
    }
}

void set_theme(const Reading& reading, const Trail& trail, const Value& written, Look& look) {
    const Value value = reading.value(trail, Type::Theme, written);
    if (value.kind == Kind::String) {
        if (named_theme(reading.sources.host(), value.text, look.theme)) return;
        refuse(trail, written.place,
               "there is no theme " + in_quotes(value.text) +
                   did_you_mean(value.text, {"dark", "light"}));
    }
    for (const Value& role : value.items) read_hex(role.text, *role_of(look.theme, role.key));
}

void set_face(const Reading& reading, const Trail& trail, const Value& written, Look& look) {
    const Value value = reading.value(trail, Type::Face, written);
    look.face = named_face(reading.sources.host(), value.text);
    if (look.face) return;
    refuse(trail, written.place,
           "there is no face " + in_quotes(value.text) +
               did_you_mean(value.text, {"sans 11", "sans 12", "sans 14", "sans 18", "sans 24",
                                         "sans 40", "bold 11", "bold 12", "bold 14", "bold 18",
                                         "bold 24", "mono 12", "digits 64", "digits 96"}));
}

}  // namespace kit
