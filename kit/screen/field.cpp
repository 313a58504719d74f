#include "screen/field.h"

#include <utility>

#include "screen/live.h"

namespace kit {
namespace {

bool is_followed(const Editing& editing, const Node& field) {
    const bool settled = !editing.offered || editing.offered->text() != field.content;
    return settled && editing.editor.text() == field.content &&
           editing.editor.is_secret() == field.secret && editing.editor.limit() == field.limit;
}

void follow(Editing& editing, const Node& field) {
    if (editing.offered && editing.offered->text() == field.content) {
        editing.editor = std::move(*editing.offered);
        editing.offered.reset();
    } else if (editing.editor.text() != field.content) {
        editing.first = field.content;  // nobody typed it: what was before is no longer known
    }
    editing.editor.set_text(field.content);
    editing.editor.set_secret(field.secret);
    editing.editor.set_limit(field.limit);
}

}  // namespace

const char* dot_of(const Node& field) {
    constexpr unsigned kBullet = 0x2022;
    return kit_face_has(field.look.face, kBullet) != 0 ? "\xE2\x80\xA2" : "*";
}

std::string words_at_rest(const Node& field) {
    if (!field.secret) return field.content;
    LineEditor hidden;
    hidden.set_text(field.content);
    hidden.set_secret(true);
    return hidden.shown(dot_of(field)).text;
}

EditingPtr begin_editing(const Node& field) {
    Editing editing;
    editing.tag = field.tag;
    follow(editing, field);
    return std::make_shared<const Editing>(std::move(editing));
}

void follow_field(const Nodes& nodes, Live& live) {
    const int i = find_node(nodes, live.focused);
    if (i < 0 || !at(nodes, i).is_field()) {
        live.editing.reset();
        return;
    }
    const Node& field = at(nodes, i);
    if (!live.editing || live.editing->tag != field.tag) {
        Editing editing = *begin_editing(field);
        editing.editor.select_all();
        live.editing = std::make_shared<const Editing>(std::move(editing));
        live.field_scroll = 0;
    } else if (!is_followed(*live.editing, field)) {
        Editing editing = *live.editing;
        follow(editing, field);
        live.editing = std::make_shared<const Editing>(std::move(editing));
    }
}

void show_field(Node& field, Live& live) {
    field.caret = {};
    if (!live.editing || live.editing->tag != field.tag) {
        field.text = words_at_rest(field);
        return;
    }
    LineEditor::Shown shown = live.editing->editor.shown(dot_of(field));
    field.text = std::move(shown.text);
    field.caret = {shown.caret, shown.anchor, shown.composed, shown.composed_end,
                   live.field_scroll + 1};
    if ((field.state & KIT_FOCUS) == 0) return;  // as while another window has the keyboard
    const kit_widget widget = placed_widget(field);
    live.field_scroll = kit_field(&widget, nullptr, nullptr);
    field.caret.scroll = live.field_scroll + 1;
}

kit_widget placed_widget(const Node& field) {
    kit_widget widget = widget_of(field);
    widget.box = field.inside();
    return widget;
}

Hit hit_of(const Node& field, int x) {
    const kit_widget widget = placed_widget(field);
    kit_box room = {};
    x += kit_field(&widget, &room, nullptr) - room.x;
    const int place = kit_text_at(widget.face, widget.text, x);
    if (kit_text_x(widget.face, widget.text, place) <= x) return {place, place};
    return {place, static_cast<int>(place_before(field.text, static_cast<std::size_t>(place)))};
}

}  // namespace kit
