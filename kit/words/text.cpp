// Single lines of words.
#include <algorithm>
#include <cstdint>

#include "words/line.h"

namespace {

using std::int64_t;

const char* text_or_empty(const char* text) { return text ? text : ""; }

}  // namespace

int kit_text_width(const kit_face* face, const char* text) {
    if (!text) return 0;
    return kit::to_int(kit::width_of(kit::face_or_default(face), kit::whole(text)));
}

int kit_text_draw(orvel_canvas* canvas, const kit_face* face, const char* text, int x, int baseline,
                  orvel_color color) {
    const kit::Ink ink = {canvas, kit::face_or_default(face), kit::clip_of(canvas), color};
    return kit::to_int(ink.write(kit::whole(text_or_empty(text)), x, baseline));
}

int kit_text_box(orvel_canvas* canvas, const kit_face* face, const char* text, kit_box box,
                 kit_align align, orvel_color color) {
    if (!canvas) return -1;
    const kit_face& used = kit::face_or_default(face);
    kit::Line line = kit::line_of(used, kit::whole(text_or_empty(text)));
    const bool cut = line.width > std::max(box.w, 0);
    if (cut) line = kit::cut_line(used, line.part, box.w);
    const kit::Ink ink = {canvas, used, kit::clip_of(canvas, box), color};
    ink.place(line, box, align, box.y + (int64_t{box.h} + kit_face_cap(&used)) / 2);
    return cut ? 1 : 0;
}

int kit_text_x(const kit_face* face, const char* text, int offset) {
    text = text_or_empty(text);
    kit::Pen pen(kit::face_or_default(face));
    for (const char* at = text; *at != '\0';) {
        const char32_t code = kit::next_character(&at);
        if (at - text > offset) break;
        pen.step(code);
    }
    return kit::to_int(pen.end());
}

int kit_text_at(const kit_face* face, const char* text, int x) {
    text = text_or_empty(text);
    kit::Pen pen(kit::face_or_default(face));
    const auto distance = [x, &pen] { return pen.end() < x ? x - pen.end() : pen.end() - x; };
    int64_t nearest = distance(), place = 0;
    const char* found = text;
    for (const char* at = text; *at != '\0';) {
        pen.step(kit::next_character(&at));
        // Of places at one x the last: what is typed there then follows a letter and its marks.
        if (distance() < nearest || (distance() == nearest && pen.end() == place)) {
            nearest = distance();
            place = pen.end();
            found = at;
        }
    }
    return kit::to_int(found - text);
}

int kit_text_missing(const kit_face* face, const char* text) {
    const kit_face& used = kit::face_or_default(face);
    int64_t missing = 0;
    for (const char* at = text_or_empty(text); *at != '\0';) {
        const char32_t code = kit::next_character(&at);
        if (!kit::is_hidden(code) && !kit::find_or_alike(used, code).face) ++missing;
    }
    return kit::to_int(missing);
}
