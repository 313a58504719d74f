#include "screen/typing.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <utility>

#include "screen/field.h"

namespace kit {
namespace {

constexpr Clock kSoon = 400;  // milliseconds from one press of a double click to the next
constexpr int kNear = 4;      // pixels between them

bool is_edited(const Turn& turn, const Node& field) {
    return turn.live.editing && turn.live.editing->tag == field.tag;
}

/// Does something to the text; where that is another one then, the field is to have it.
void edit(Turn& turn, const Node& field, const std::function<bool(LineEditor&)>& act) {
    const EditingPtr now = is_edited(turn, field) ? turn.live.editing : begin_editing(field);
    Editing next = *now;
    LineEditor editor = next.editor;
    next.offered.reset();
    if (act(editor)) {
        turn.set(field, text_value(editor.text()));
        next.editor.compose("", 0);
        next.offered = std::move(editor);
    } else {
        next.editor = std::move(editor);
    }
    turn.live.editing = std::make_shared<const Editing>(std::move(next));
}

struct Stroke {
    int key;
    bool shift, control, alt;

    bool plain() const { return !shift && !control && !alt; }
    By by() const { return control || alt ? By::Word : By::Letter; }
};

bool move_key(Turn& turn, const Node& field, const Stroke& stroke) {
    const bool back = stroke.key == KIT_KEY_LEFT, on = stroke.key == KIT_KEY_RIGHT;
    const bool home = stroke.key == KIT_KEY_HOME, end = stroke.key == KIT_KEY_END;
    if (!back && !on && !home && !end) return false;
    edit(turn, field, [&](LineEditor& editor) {
        editor.move(back || on ? stroke.by() : By::Line, on || end, stroke.shift);
        return false;
    });
    return true;
}

bool erase_key(Turn& turn, const Node& field, const Stroke& stroke) {
    const bool forward = stroke.key == KIT_KEY_DELETE;
    if (!forward && stroke.key != KIT_KEY_BACKSPACE) return false;
    edit(turn, field, [&](LineEditor& editor) { return editor.erase(stroke.by(), forward); });
    return true;
}

void tell_copy(Turn& turn, const Node& field) {
    const std::string text = turn.live.editing->editor.copied();
    if (!text.empty()) turn.tell(field, KIT_CHANGE_COPY, write_json(text_value(text)));
}

void cut(Turn& turn, const Node& field) {
    if (turn.live.editing->editor.copied().empty()) return;
    tell_copy(turn, field);
    edit(turn, field, [](LineEditor& editor) { return editor.erase(By::Letter, true); });
}

/// The keys with Control that every text field has.
bool command_key(Turn& turn, const Node& field, const Stroke& stroke) {
    if (!stroke.control || stroke.alt) return false;
    const bool again = stroke.key == 'y' || (stroke.key == 'z' && stroke.shift);
    if (again || stroke.key == 'z') {
        edit(turn, field,
             [&](LineEditor& editor) { return again ? editor.redo() : editor.undo(); });
        return true;
    }
    if (stroke.shift) return false;
    switch (stroke.key) {
    case 'a':
        edit(turn, field, [](LineEditor& editor) {
            editor.select_all();
            return false;
        });
        return true;
    case 'c': tell_copy(turn, field); return true;
    case 'x': cut(turn, field); return true;
    case 'v': turn.tell(field, KIT_CHANGE_PASTE); return true;
    default: return false;
    }
}

/// Empties a search; gives another field the text that it had before anything was typed.
bool take_back(Turn& turn, const Node& field) {
    const bool empties = field.is_widget(ORVEL_WIDGET_SEARCH);
    std::string text;
    if (!empties) text = turn.live.editing->first;
    if (field.content == text) return false;
    edit(turn, field, [&](LineEditor& editor) { return editor.replace_all(text); });
    return true;
}

/// Whether a press follows another one in its place.
bool follows(const Live& live, const Node& field) {
    const Clicks& last = live.clicks;
    return last.tag == field.tag && live.clock - last.last <= kSoon &&
           std::abs(live.x - last.x) <= kNear && std::abs(live.y - last.y) <= kNear;
}

/// Whether the pointer is beside the words: -1 to the left, 1 to the right.
int side_of(const Node& field, int x) {
    const kit_widget widget = placed_widget(field);
    kit_box room = {};
    kit_field(&widget, &room, nullptr);
    return x < room.x ? -1 : x >= room.x + room.w ? 1 : 0;
}

}  // namespace

void press_field(Turn& turn, const Node& field, unsigned modifiers) {
    Live& live = turn.live;
    const bool had = is_edited(turn, field);
    const bool extend = had && (modifiers & KIT_MOD_SHIFT) != 0;
    const int count = !extend && follows(live, field) ? live.clicks.count % 3 + 1 : 1;
    const Hit hit = hit_of(field, live.x);
    live.clicks = {field.tag, count, live.clock, live.x, live.y, 0, live.x};
    if (!had) live.field_scroll = 0;
    edit(turn, field, [&](LineEditor& editor) {
        const char* const dot = dot_of(field);
        const int place = editor.behind_shown(hit.place, dot);
        live.clicks.letter = editor.behind_shown(hit.letter, dot);
        if (count == 1) editor.place(place, extend);
        if (count == 2) editor.place_words(live.clicks.letter, live.clicks.letter);
        if (count == 3) editor.select_all();
        return false;
    });
}

void drag_field(Turn& turn, const Node& field) {
    Live& live = turn.live;
    const Clicks clicks = live.clicks;
    live.held.over = true;
    live.held.part = side_of(field, live.x);
    if (live.held.part == 0) live.held.next = kNever;
    if (clicks.count == 3 || live.x == clicks.dragged || !is_edited(turn, field)) return;
    live.clicks.dragged = live.x;
    const Hit hit = hit_of(field, live.x);
    edit(turn, field, [&](LineEditor& editor) {
        const char* const dot = dot_of(field);
        if (clicks.count == 2) {
            editor.place_words(clicks.letter, editor.behind_shown(hit.letter, dot));
        } else {
            editor.place(editor.behind_shown(hit.place, dot), true);
        }
        return false;
    });
}

bool drags_on(const Turn& turn, const Node& field) {
    if (turn.live.clicks.count == 3 || !is_edited(turn, field)) return false;
    const LineEditor& editor = turn.live.editing->editor;
    return editor.caret() != (turn.live.held.part > 0 ? editor.text().size() : 0);
}

void drag_on(Turn& turn, const Node& field, long long steps) {
    constexpr long long kMost = 100;  // then all that is left
    Live& live = turn.live;
    const bool forward = live.held.part > 0;
    if (!drags_on(turn, field)) return;
    edit(turn, field, [&](LineEditor& editor) {
        const By by = steps > kMost ? By::Line : live.clicks.count == 2 ? By::Word : By::Letter;
        for (long long i = std::min(steps, kMost); i > 0; --i) editor.move(by, forward, true);
        return false;
    });
}

bool field_key(Turn& turn, const Node& field, int key, unsigned modifiers) {
    const Stroke stroke = {key, (modifiers & KIT_MOD_SHIFT) != 0,
                           (modifiers & KIT_MOD_CONTROL) != 0, (modifiers & KIT_MOD_ALT) != 0};
    if (turn.live.editing->editor.is_composing()) return true;  // the input method has it
    if (move_key(turn, field, stroke) || erase_key(turn, field, stroke)) return true;
    if (command_key(turn, field, stroke)) return true;
    if (stroke.plain() && key == KIT_KEY_ESCAPE) return take_back(turn, field);
    if (!stroke.plain() || key != KIT_KEY_ENTER) return false;
    if (!field.id.empty()) turn.tell(field, KIT_CHANGE_PRESS);
    return true;
}

void type_into(Turn& turn, const Node& field, std::string_view text) {
    edit(turn, field, [&](LineEditor& editor) { return editor.type(text); });
}

void paste_into(Turn& turn, const Node& field, std::string_view text) {
    edit(turn, field, [&](LineEditor& editor) { return editor.paste(text); });
}

void compose_in(Turn& turn, const Node& field, std::string_view text, int caret) {
    edit(turn, field, [&](LineEditor& editor) {
        editor.compose(text, caret);
        return false;
    });
}

}  // namespace kit
