// Fields of text: what is typed, what is chosen, what is looked for.
#include <algorithm>
#include <climits>
#include <cstdint>

#include "widgets/painter.h"
#include "words/line.h"

namespace kit {

void Painter::textbox() {
    library(orvel_widget_textbox(canvas, &T, "", x, y, w, h));
    ring(all(), T.accent);
    field(between(m.pad, m.pad));
}

void Painter::search() {
    // The library's own magnifier is as large as the height allows, which words are not.
    Painter ground = *this;
    ground.hover = active;  // a text box with hover has the frame of an active search field
    ground.library(orvel_widget_textbox(canvas, &T, "", x, y, w, h));
    ring(all(), T.accent);
    const int side = std::min({m.icon, h - 4, w - 2 * m.pad});
    icon("search", x + m.pad, y + (h - side) / 2, side, quiet());
    field(between(2 * m.pad + std::max(side, 0), m.pad));
}

void Painter::dropdown() {
    library(orvel_widget_dropdown(canvas, &T, "", x, y, w, h, active));
    ring(all(), T.accent);
    constexpr int kArrow = 10;
    write(text, between(m.pad, kArrow + m.pad), KIT_LEFT, T.text);
}

void Painter::field(const kit_box& room) {
    if (room.w < 1) return;
    if (!*text && widget.hint) write(widget.hint, room, KIT_LEFT, quiet());
    if (!focus) return write(text, room, KIT_LEFT, T.text);
    const int length = kit_text_width(widget.face, text);
    const int begin = kit_text_x(widget.face, text, std::max(widget.anchor, 0));
    const int caret = kit_text_x(widget.face, text, std::max(widget.caret, 0));
    const int thick = 1 + m.cap / 16;
    // Text that is longer than the room shows its part around the caret.
    const int most = std::max(0, length - (room.w - thick));
    const int scroll = std::clamp(caret - room.w / 2, 0, most);
    if (most == 0) {
        write(text, room, KIT_LEFT, T.text);
    } else {
        write_part(room, room, scroll, T.text);
    }
    const int tall = std::min(h - 4, m.letters), top = y + (h - tall) / 2;
    if (begin != caret) {
        const int from = std::max(std::min(begin, caret) - scroll, 0);
        const int to = std::min(std::max(begin, caret) - scroll, room.w);
        const kit_box chosen = {room.x + from, top, to - from, tall};
        fill(chosen.x, chosen.y, chosen.w, chosen.h, T.accent);
        write_part(chosen, room, scroll, T.background);
    }
    const int column = std::min(caret_column(caret, thick) - scroll, room.w - thick);
    fill(room.x + column, top, thick, tall, T.text);
}

/// Where the caret at @p place stands: a column of air on both sides where the letters leave that
/// much, else a column from the next letter.
int Painter::caret_column(int place, int thick) const {
    const Gap gap = gap_at(face_or_default(widget.face), text, std::max(widget.caret, 0));
    const std::int64_t room = gap.right - gap.left;
    const std::int64_t from_left = std::max(std::int64_t{place} - 1, gap.left + 1);
    if (room < thick) return place - 1;
    return to_int(std::max(std::min(from_left, gap.right - 1 - thick), gap.left));
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
