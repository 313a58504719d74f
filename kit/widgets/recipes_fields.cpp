// Fields of text: what is typed, what is chosen, what is looked for.
#include <algorithm>
#include <climits>

#include "widgets/field_view.h"
#include "widgets/painter.h"

namespace kit {

void Painter::textbox() {
    library(orvel_widget_textbox(canvas, &T, "", x, y, w, h));
    ring(all(), T.accent);
    field();
}

void Painter::search() {
    // The library's own magnifier is as large as the height allows, which words are not.
    Painter ground = *this;
    ground.hover = active;  // a text box with hover has the frame of an active search field
    ground.library(orvel_widget_textbox(canvas, &T, "", x, y, w, h));
    ring(all(), T.accent);
    const int side = magnifier_side(m, w, h);
    icon("search", x + m.pad, y + (h - side) / 2, side, quiet());
    field();
}

void Painter::dropdown() {
    library(orvel_widget_dropdown(canvas, &T, "", x, y, w, h, active));
    ring(all(), T.accent);
    constexpr int kArrow = 10;
    write(text, between(m.pad, kArrow + m.pad), KIT_LEFT, T.text);
}

void Painter::field() {
    const FieldView view = view_of(widget, w, h);
    const kit_box room = {x + view.room.x, y, view.room.w, h};
    if (room.w < 1) return;
    if (!*text && widget.hint) write(widget.hint, room, KIT_LEFT, quiet());
    if (!focus) return write(text, room, KIT_LEFT, T.text);
    // Text that is longer than the room shows a part of it.
    if (kit_text_width(widget.face, text) <= room.w - view.thick) {
        write(text, room, KIT_LEFT, T.text);
    } else {
        write_part(room, room, view.scroll, T.text);
    }
    if (view.begin != view.end) {
        const int from = std::max(view.begin - view.scroll, 0);
        const int to = std::min(view.end - view.scroll, room.w);
        const kit_box chosen = {room.x + from, y + view.top, to - from, view.tall};
        fill(chosen.x, chosen.y, chosen.w, chosen.h, T.accent);
        write_part(chosen, room, view.scroll, T.background);
    }
    fill(room.x + view.column, y + view.top, view.thick, view.tall, T.text);
}

void Painter::write_part(const kit_box& part, const kit_box& room, int scroll, orvel_color color) {
    if (!meets(canvas, part)) return;
    Inside inside(canvas, part);
    if (!inside.canvas()) {
        status = -1;
        return;
    }
    const kit_box line = {room.x - scroll - inside.box().x, room.y - inside.box().y, INT_MAX,
                          room.h};
    kit_text_box(inside.canvas(), widget.face, text, line, KIT_LEFT, color);
    inside.finish();
}

}  // namespace kit
