#include "widgets/field_view.h"

#include <algorithm>
#include <cstdint>

#include "words/line.h"

namespace kit {
namespace {

using std::int64_t;

/// Where the caret at @p place stands: a column of air on both sides where the letters leave that
/// much, else a column from the next letter.
int caret_column(const kit_widget& widget, int place, int thick) {
    const char* const text = widget.text ? widget.text : "";
    const Gap gap = gap_at(face_or_default(widget.face), text, std::max(widget.caret, 0));
    const int64_t room = gap.right - gap.left;
    const int64_t from_left = std::max(int64_t{place} - 1, gap.left + 1);
    if (room < thick) return place - 1;
    return to_int(std::max(std::min(from_left, gap.right - 1 - thick), gap.left));
}

kit_box room_of(const kit_widget& widget, const Measures& m, int w, int h) {
    int left = m.pad;
    if (widget.kind == ORVEL_WIDGET_SEARCH) left += m.pad + std::max(magnifier_side(m, w, h), 0);
    return {left, 0, w - left - m.pad, h};
}

}  // namespace

int magnifier_side(const Measures& m, int w, int h) {
    return std::min({m.icon, h - 4, w - 2 * m.pad});
}

FieldView view_of(const kit_widget& widget, int w, int h) {
    const Measures m = measures_of(widget.face);
    FieldView view;
    view.room = room_of(widget, m, w, h);
    view.focus = (widget.state & (KIT_FOCUS | KIT_DISABLED)) == KIT_FOCUS && view.room.w > 0;
    if (!view.focus) return view;
    view.thick = 1 + m.cap / 16;
    view.tall = std::min(h - 4, m.letters);
    view.top = (h - view.tall) / 2;
    const int anchor = kit_text_x(widget.face, widget.text, std::max(widget.anchor, 0));
    const int caret = kit_text_x(widget.face, widget.text, std::max(widget.caret, 0));
    view.begin = std::min(anchor, caret);
    view.end = std::max(anchor, caret);
    const int shown = view.room.w - view.thick;  // behind which there is room for the caret
    int scroll = caret - view.room.w / 2;
    if (widget.scroll > 0) scroll = std::max(std::min(widget.scroll - 1, caret), caret - shown);
    const int length = kit_text_width(widget.face, widget.text);
    view.scroll = std::clamp(scroll, 0, std::max(0, length - shown));
    view.column = std::min(caret_column(widget, caret, view.thick) - view.scroll, shown);
    return view;
}

}  // namespace kit

int kit_field(const kit_widget* widget, kit_box* room, kit_box* caret) {
    if (room) *room = {};
    if (caret) *caret = {};
    if (!widget || widget->box.w < 0 || widget->box.h < 0) return -1;
    if (widget->kind != ORVEL_WIDGET_TEXTBOX && widget->kind != ORVEL_WIDGET_SEARCH) return -1;
    int w = 0, h = 0;
    kit::size_of(*widget, &w, &h);
    const kit::FieldView view = kit::view_of(*widget, w, h);
    const auto placed = [widget](const kit_box& box) {
        return kit_box{kit::to_int(std::int64_t{widget->box.x} + box.x),
                       kit::to_int(std::int64_t{widget->box.y} + box.y), std::max(box.w, 0),
                       std::max(box.h, 0)};
    };
    if (room) *room = placed(view.room);
    if (caret && view.focus) {
        *caret = placed({view.room.x + view.column, view.top, view.thick, view.tall});
    }
    return view.scroll;
}
