// Paragraphs.
#include <cstdint>

#include "words/line.h"

namespace {

using std::int64_t;

/// What a line of a paragraph shows, and where the next one begins.
struct Broken {
    kit::Part part;
    const char* next;  // null after the last one
    bool hyphen;       // a soft one at its end, which shows there
};

/// Behind a letter and not before a digit a hyphen is one, and no minus sign.
bool breaks_after(char32_t before, char32_t code, const char* next) {
    return kit::is_hyphen(code) && !kit::is_space(before) && !kit::is_hyphen(before) &&
           *next != '\0' && !kit::is_digit(kit::next_character(&next));
}

/// The line that begins at @p begin: it ends at the last place that leaves it no wider than the
/// room, and inside a word where there is no such place.
Broken break_line(const kit_face& face, const char* begin, int64_t room) {
    const int64_t hyphen = kit::width_of(face, kit::whole("-"));
    kit::Pen pen(face);
    Broken best = {{begin, begin}, nullptr, false};
    const char* end = begin;  // behind the last letter: spaces at the end take no room
    bool started = false;
    char32_t before = ' ';
    for (const char* at = begin; *at != '\0';) {
        const char* const start = at;
        const char32_t code = kit::next_character(&at);
        if (kit::is_newline(code)) return {{begin, end}, at, false};
        if (!pen.step(code)) {
            if (code == kit::kZeroWidthSpace && started) best = {{begin, end}, at, false};
            if (code == kit::kSoftHyphen && !kit::is_space(before) && pen.end() + hyphen <= room) {
                best = {{begin, end}, at, true};
            }
            continue;
        }
        if (kit::is_space(code)) {
            best = {{begin, end}, at, false};
        } else if (started && pen.end() > room) {
            return best.next ? best : Broken{{begin, end}, start, false};
        } else {
            end = at;
            if (breaks_after(before, code, at)) best = {{begin, end}, at, false};
        }
        before = code;
        started = true;
    }
    return {{begin, end}, nullptr, false};
}

}  // namespace

int kit_text_wrap(orvel_canvas* canvas, const kit_face* face, const char* text, kit_box box,
                  kit_align align, orvel_color color) {
    if (!text || *text == '\0') return 0;
    const kit_face& used = kit::face_or_default(face);
    const kit::Ink ink = {canvas, used, kit::clip_of(canvas, box), color};
    const int64_t ascent = kit_face_ascent(&used), height = ascent + kit_face_descent(&used);
    int64_t lines = 0, top = 0;  // of the next line, from the box's
    for (const char* at = text; at;) {
        const Broken broken = break_line(used, at, box.w);
        at = broken.next;
        const int64_t next_top = top + kit_face_line(&used);
        if (!ink.clip.empty() && top + height <= box.h) {
            const bool last = at && next_top + height > box.h;
            const kit::Line line = last ? kit::cut_line(used, broken.part, box.w)
                                        : kit::line_of(used, broken.part, broken.hyphen ? "-" : "");
            ink.place(line, box, align, box.y + top + ascent);
        }
        top = next_top;
        ++lines;
    }
    return kit::to_int(lines);
}
