// What keys do: the open list first, then the control that has them, then shortcuts, then the rest.
#include <algorithm>
#include <utility>

#include "screen/items.h"
#include "screen/popup.h"
#include "screen/scroll.h"
#include "screen/steps.h"
#include "screen/turn.h"
#include "screen/typing.h"

namespace kit {
namespace {

struct Pressed {
    int key;
    unsigned modifiers;

    bool plain() const { return modifiers == 0; }
    bool is_press() const { return plain() && (key == ' ' || key == KIT_KEY_ENTER); }
    /// -1, 1 for the arrows that go back or on; 0 for others.
    int arrow() const {
        if (key == KIT_KEY_UP || key == KIT_KEY_LEFT) return -1;
        return key == KIT_KEY_DOWN || key == KIT_KEY_RIGHT ? 1 : 0;
    }
    int page() const { return key == KIT_KEY_PAGE_UP ? -1 : key == KIT_KEY_PAGE_DOWN ? 1 : 0; }
    bool is_end() const { return key == KIT_KEY_HOME || key == KIT_KEY_END; }
    bool last() const { return key == KIT_KEY_END; }
};

bool is_one_of(const Node& node, std::initializer_list<int> widgets) {
    return std::any_of(widgets.begin(), widgets.end(),
                       [&](int widget) { return node.is_widget(widget); });
}

/* The open list. */

bool list_key(Turn& turn, const Pressed& key) {
    Live& live = turn.live;
    const Node& owner = at(turn.nodes(), find_node(turn.nodes(), live.open.tag));
    const int list = list_of(turn.nodes()), last = count_items(owner.items) - 1;
    const Node& box = at(turn.nodes(), list);
    const int page = std::max(1, box.inside().h / box.size);
    const int by = key.arrow() + page * key.page();
    if (key.key == KIT_KEY_ESCAPE || (key.key == KIT_KEY_UP && key.modifiers == KIT_MOD_ALT)) {
        close_list(turn);
    } else if (key.is_press()) {
        take_row(turn, live.open.marked);
    } else if (key.is_end()) {
        mark_row(turn, key.last() ? last : 0);
    } else if (by != 0) {
        mark_row(turn, std::clamp(live.open.marked + by, 0, last));
    } else if (key.key == KIT_KEY_TAB) {
        close_list(turn);
        return false;
    }
    return true;  // nothing else gets a key meanwhile
}

/* Controls with a value of their own. */

bool number_key(Turn& turn, const Node& node, const Pressed& key) {
    if (!key.plain()) return false;
    if (key.is_end()) return move_to_end(turn, node, key.last());
    const auto range = Steps::of(node);
    if (!range) return false;
    // Up is more, and so is right.
    const bool up = key.key == KIT_KEY_UP || key.key == KIT_KEY_DOWN;
    const int arrow = up ? -key.arrow() : key.arrow();
    const long long by = arrow - key.page() * range->page();
    if (by != 0) move_by(turn, node, by);
    return by != 0;
}

bool item_key(Turn& turn, const Node& node, const Pressed& key) {
    const bool down = key.key == KIT_KEY_UP || key.key == KIT_KEY_DOWN;
    const bool drops = node.is_widget(ORVEL_WIDGET_DROPDOWN);
    if (drops && node.items.empty()) return false;
    if (drops && key.key == KIT_KEY_DOWN && key.modifiers == KIT_MOD_ALT) {
        open_list(turn, node);
        return true;
    }
    if (!key.plain() || (!drops && down)) return false;
    if (key.is_end()) {
        move_to_end(turn, node, key.last());
    } else if (key.arrow() != 0) {
        move_by(turn, node, key.arrow());
    } else {
        return false;
    }
    return true;
}

/* Controls that stand side by side. */

/// Those of a control's kind that go with it: radio buttons with one value, else of one parent.
std::vector<int> group_of(const Nodes& nodes, int i) {
    const Node& one = at(nodes, i);
    const bool radio = one.is_widget(ORVEL_WIDGET_RADIO);
    const bool shares = radio && !one.choice.empty();
    std::vector<int> group;
    for (int k = 0; k < nodes.front().end; ++k) {
        const Node& node = at(nodes, k);
        if (node.kind != one.kind || !node.is_usable()) continue;
        if (radio && node.choice.empty() == shares) continue;
        const bool goes =
            shares && !one.target.empty() ? node.target == one.target : node.parent == one.parent;
        if (goes) group.push_back(k);
    }
    return group;
}

int place_in(const std::vector<int>& group, int i) {
    return static_cast<int>(std::find(group.begin(), group.end(), i) - group.begin());
}

bool radio_key(Turn& turn, int i, const Pressed& key) {
    if (!key.plain() || key.arrow() == 0) return false;
    const std::vector<int> group = group_of(turn.nodes(), i);
    const auto count = static_cast<int>(group.size());
    const int place = (place_in(group, i) + key.arrow() + count) % count;
    const int next = group[static_cast<std::size_t>(place)];
    focus(turn, next, true);
    act(turn, at(turn.nodes(), next));
    return true;
}

/// How many rows a page of a list is.
int rows_of_page(const Nodes& nodes, const Node& row) {
    for (int up = row.parent; up >= 0; up = at(nodes, up).parent) {
        const Node& node = at(nodes, up);
        if (node.beyond > 0 && row.box.h > 0) return std::max(1, node.inside().h / row.box.h);
    }
    return 10;
}

bool row_key(Turn& turn, int i, const Pressed& key) {
    const bool across = key.key == KIT_KEY_LEFT || key.key == KIT_KEY_RIGHT;
    const bool moves = (key.arrow() != 0 && !across) || key.page() != 0 || key.is_end();
    if (!key.plain() || !moves) return false;
    const std::vector<int> group = group_of(turn.nodes(), i);
    const auto last = static_cast<int>(group.size()) - 1;
    int place = place_in(group, i) + key.arrow() +
                key.page() * rows_of_page(turn.nodes(), at(turn.nodes(), i));
    if (key.is_end()) place = key.last() ? last : 0;
    focus(turn, group[static_cast<std::size_t>(std::clamp(place, 0, last))], true);
    return true;
}

bool control_key(Turn& turn, int i, const Pressed& key) {
    const Node& node = at(turn.nodes(), i);
    if (node.has_number()) return number_key(turn, node, key);
    if (node.kind->value == Type::Items) return item_key(turn, node, key);
    if (node.is_field()) return field_key(turn, node, key.key, key.modifiers);
    const bool finding = key.key == ' ' && turn.live.clock < turn.live.typed.until;
    if (key.is_press() && !finding) {
        act(turn, node);
        return true;
    }
    if (node.is_widget(ORVEL_WIDGET_DROPDOWN)) return item_key(turn, node, key);
    if (node.is_widget(ORVEL_WIDGET_RADIO)) return radio_key(turn, i, key);
    if (node.is_widget(ORVEL_WIDGET_LIST_ITEM)) return row_key(turn, i, key);
    return false;
}

/* What is left. */

/// Whether letters go to the control that has the keyboard.
bool takes_letters(const Nodes& nodes, int i) {
    if (i < 0) return false;
    const Node& node = at(nodes, i);
    return node.is_field() || node.is_widget(ORVEL_WIDGET_LIST_ITEM) || !node.items.empty();
}

bool shortcut(Turn& turn, int focused, const Pressed& key) {
    const bool letter = key.key < KIT_KEY_ENTER && (key.modifiers & ~1u) == 0;
    const bool taken = letter && takes_letters(turn.nodes(), focused);
    if (key.key == 0 || taken) return false;  // 0 is what controls without a shortcut have
    const Shortcut wanted = {key.key, key.modifiers};
    for (int i = 0; i < turn.nodes().front().end; ++i) {
        const Node& node = at(turn.nodes(), i);
        if (!(node.shortcut == wanted) || !node.is_usable()) continue;
        if (letter) turn.live.used = wanted;
        const bool acts =
            is_one_of(node, {ORVEL_WIDGET_BUTTON, ORVEL_WIDGET_TOGGLE, ORVEL_WIDGET_CHECKBOX,
                             ORVEL_WIDGET_RADIO, ORVEL_WIDGET_LIST_ITEM});
        if (!acts) focus(turn, i, true);
        if (acts || node.is_widget(ORVEL_WIDGET_DROPDOWN)) act(turn, node);
        return true;
    }
    return false;
}

/// What the keys for scrolling move: what the control is in, else what the pointer is over, else
/// the first that there is.
int scroller_for_keys(const Turn& turn, int focused) {
    const Nodes& nodes = turn.nodes();
    for (int up = focused; up >= 0; up = at(nodes, up).parent) {
        if (at(nodes, up).beyond > 0) return up;
    }
    const int under = find_node(nodes, turn.live.bar);
    if (under >= 0) return under;
    for (int i = 0; i < count_of(nodes); ++i) {
        if (at(nodes, i).beyond > 0 && !is_empty(at(nodes, i).visible)) return i;
    }
    return -1;
}

void scroll_key(Turn& turn, int focused, const Pressed& key) {
    constexpr int kLine = 48;
    const int i = key.plain() ? scroller_for_keys(turn, focused) : -1;
    if (i < 0) return;
    const Node& node = at(turn.nodes(), i);
    const bool across = scroll_axis(node) == kAcross;
    const bool sideways = key.key == KIT_KEY_LEFT || key.key == KIT_KEY_RIGHT;
    const int page = across ? node.inside().w : node.inside().h;
    long long to = node.scrolled;
    if (sideways == across) to += static_cast<long long>(kLine) * key.arrow();
    to += static_cast<long long>(page) * key.page();
    if (key.is_end()) to = key.last() ? node.beyond : 0;
    scroll_to(turn.live, node, to);
}

/// Ends a drag, and takes back what it did.
bool cancel(Turn& turn) {
    const Held held = turn.live.held;
    const int i = find_node(turn.nodes(), held.tag);
    turn.live.held = {};
    if (i < 0) return false;
    const Node& node = at(turn.nodes(), i);
    if (held.grip != Held::Control) {
        scroll_to(turn.live, node, held.origin);
    } else if (node.is_widget(ORVEL_WIDGET_SLIDER) && held.last != held.before) {
        set_number(turn, node, held.before);
    }
    return true;
}

/// What is typed with Shift may be a shortcut, too, as "?" is: its key has another name.
bool typed_shortcut(Turn& turn, std::string_view text) {
    const Shortcut sign = {only_character(text), 0};
    const bool told = turn.live.pressed == sign;  // as a key, which did what it does
    if (told || sign.key <= ' ') return false;
    const bool found = shortcut(turn, find_node(turn.nodes(), turn.live.focused), {sign.key, 0});
    turn.live.used = {};  // its text has come
    return found;
}

}  // namespace

void press_key(Turn& turn, int key, unsigned modifiers) {
    Live& live = turn.live;
    const Pressed pressed = {small_key(key), modifiers & 7u};
    live.pressed = {pressed.key, pressed.modifiers};
    const bool told = live.tip_shows();
    live.tip.spent = true;
    if (pressed.key == KIT_KEY_ESCAPE && (cancel(turn) || told)) return;
    if (live.open.tag != 0 && list_key(turn, pressed)) return;
    const int focused = find_node(turn.nodes(), live.focused);
    if (focused >= 0 && control_key(turn, focused, pressed)) {
        live.ring = true;
        return;
    }
    if (shortcut(turn, focused, pressed)) return;
    const bool tab = pressed.key == KIT_KEY_TAB && (pressed.modifiers & ~1u) == 0;
    if (tab) return focus_next(turn, pressed.modifiers != 0);
    if (focused >= 0 && at(turn.nodes(), focused).is_field()) return;
    scroll_key(turn, focused, pressed);
}

void type(Turn& turn, std::string_view text) {
    Live& live = turn.live;
    const Nodes& nodes = turn.nodes();
    live.tip.spent = true;
    if (types(std::exchange(live.used, {}), text)) return;  // it was a shortcut's
    if (typed_shortcut(turn, text)) return;
    const int i = find_node(nodes, live.focused);
    if (i >= 0 && at(nodes, i).is_field()) return type_into(turn, at(nodes, i), text);
    const int dropdown = live.open.tag != 0 ? find_node(nodes, live.open.tag) : i;
    if (dropdown >= 0 && !at(nodes, dropdown).items.empty()) {
        const Node& node = at(nodes, dropdown);
        std::vector<std::string> items;
        std::string_view rest = node.items;
        for (int k = count_items(node.items); k > 0; --k) items.emplace_back(take_item(rest));
        const bool open = live.open.tag != 0;
        const int from = open ? live.open.marked : node.chosen_item();
        const int found = find_typed(live, text, items, from);
        if (found >= 0 && open) mark_row(turn, found);
        if (found >= 0 && !open) choose(turn, node, found);
    } else if (i >= 0 && at(nodes, i).is_widget(ORVEL_WIDGET_LIST_ITEM)) {
        const std::vector<int> group = group_of(nodes, i);
        std::vector<std::string> items;
        items.reserve(group.size());
        for (const int k : group) items.push_back(at(nodes, k).text);
        const int found = find_typed(live, text, items, place_in(group, i));
        const Typed typed = live.typed;  // which a new place would end
        if (found >= 0) focus(turn, group[static_cast<std::size_t>(found)], true);
        live.typed = typed;
    }
}

void paste(Turn& turn, std::string_view text) {
    const int i = find_node(turn.nodes(), turn.live.focused);
    if (i >= 0 && at(turn.nodes(), i).is_field()) paste_into(turn, at(turn.nodes(), i), text);
}

void compose(Turn& turn, std::string_view text, int caret) {
    const int i = find_node(turn.nodes(), turn.live.focused);
    if (i >= 0 && at(turn.nodes(), i).is_field()) {
        compose_in(turn, at(turn.nodes(), i), text, caret);
    }
}

void let_keyboard_go(Turn& turn) {
    compose(turn, "", 0);
    turn.live.away = true;
    turn.live.typed = {};
    close_list(turn);
}

}  // namespace kit
