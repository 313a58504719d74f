#include "words/line.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace kit {
namespace {

constexpr char32_t kEllipsis = 0x2026;

/// A space, whether a line may end there or not.
constexpr bool is_blank(char32_t code) {
    return is_space(code) || is_newline(code) || code == 0xA0 || code == 0x2007 || code == 0x202F;
}

/// Another character that looks the same; 0 for none.
char32_t stand_in(char32_t code) {
    if (is_blank(code)) return ' ';
    if (code == 0x2010 || code == 0x2011) return '-';
    return 0;
}

/// A hollow box: for faces that have not even U+FFFD.
Glyph frame(const kit_face& face) {
    const int cap = face.cap;
    if (cap == 0) return {.left = 1};
    return {1, cap, cap - cap / 3, cap, nullptr, nullptr};
}

/// What a letter looks like, one that no face has, too.
Glyph shape_of(const kit_face& face, const Found& letter) {
    return letter.face ? glyph_of(letter) : frame(face);
}

/// A letter that looks the same as one that no face has; a null face when there is none.
Found find_alike(const kit_face& face, char32_t code) {
    const char32_t other = stand_in(code);
    return other != 0 && other != code ? find_glyph(face, other) : Found{};
}

/// The next character that shows; 0 at the end of the text.
char32_t next_shown(const char** at) {
    while (**at != '\0') {
        const char32_t code = next_character(at);
        if (!is_hidden(code)) return code;
    }
    return 0;
}

/// Whether a text that is cut behind @p before and @p last, and had gone on with @p rest, would end
/// in a number that is another one: "1" of "1.5".
bool cuts_number(char32_t before, char32_t last, const char* rest) {
    if (!is_digit(last) && !(is_digit(before) && is_number_mark(last))) return false;
    char32_t next = next_shown(&rest);
    if (is_digit(last) && is_number_mark(next)) next = next_shown(&rest);
    return is_digit(next);
}

/// The longest beginning of a part that takes no more than @p room, without spaces at its end and
/// without the beginning of a number.
Part beginning(const kit_face& face, Part part, std::int64_t room) {
    Pen pen(face);
    const char* end = part.begin;
    char32_t before = 0;
    for (const char* at = part.begin; at != part.end;) {
        const char32_t code = next_character(&at);
        const bool shown = pen.step(code);
        if (pen.end() > room) break;
        if (!shown) continue;
        const bool blank = is_space(code) || is_newline(code);
        if (!blank && !cuts_number(before, code, at)) end = at;
        before = code;
    }
    return {part.begin, end};
}

}  // namespace

int to_int(std::int64_t value) {
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

Gap gap_at(const kit_face& face, const char* text, int offset) {
    constexpr std::int64_t kFar = std::int64_t{1} << 40;
    Pen pen(face);
    std::int64_t left = -kFar;  // behind the letter before the place
    for (const char* at = text; *at != '\0';) {
        const char32_t code = next_character(&at);
        if (!pen.step(code) || is_blank(code)) continue;
        const Glyph glyph = shape_of(face, pen.letter());
        const Clip ink = ink_of(glyph);
        const std::int64_t corner = pen.start() + glyph.left;
        if (at - text > offset) return {left, corner + ink.left};
        left = corner + ink.right;
    }
    return {left, kFar};
}

Found find_instead(const kit_face& face, char32_t code) {
    Found found = find_alike(face, code);
    if (!found.face) found = find_glyph(face, kReplacement);
    if (!found.face) found.advance = frame(face).width + 2;
    return found;
}

Part whole(const char* text) { return {text, text + std::strlen(text)}; }

Found find_or_alike(const kit_face& face, char32_t code) {
    const Found found = find_glyph(face, code);
    return found.face ? found : find_alike(face, code);
}

std::int64_t width_of(const kit_face& face, Part part) {
    Pen pen(face);
    for (const char* at = part.begin; at != part.end;) pen.step(next_character(&at));
    return pen.end();
}

Line line_of(const kit_face& face, Part part, const char* suffix) {
    return {part, suffix, width_of(face, part) + width_of(face, whole(suffix))};
}

Line cut_line(const kit_face& face, Part part, std::int64_t room) {
    const char* const dots = find_or_alike(face, kEllipsis).face ? "\xE2\x80\xA6" : "...";
    return line_of(face, beginning(face, part, room - width_of(face, whole(dots))), dots);
}

std::int64_t Ink::write(Part part, std::int64_t x, std::int64_t baseline) const {
    if (clip.empty()) return x + width_of(face, part);
    Pen pen(face, x);
    for (const char* at = part.begin; at != part.end;) {
        if (!pen.step(next_character(&at))) continue;
        draw(pen.letter().face, pen.letter().index, pen.start(), baseline);
    }
    return pen.end();
}

/// Inlined, or with what is rare in it, it would push the pen out of the registers.
[[gnu::noinline]] void Ink::draw(const kit_face* from, unsigned index, std::int64_t x,
                                 std::int64_t baseline) const {
    if (!kInkIsRows && from) {
        const Glyph glyph = glyph_of({from, index, 0});
        const std::int64_t left = x + glyph.left, top = baseline - glyph.top;
        if (glyph.strokes && clip.holds(left, top, glyph.width, glyph.height)) {
            return draw_strokes(canvas, glyph.strokes, static_cast<int>(left),
                                static_cast<int>(top), color);
        }
    }
    draw_rare(from, index, x, baseline);
}

[[gnu::noinline]] void Ink::draw_rare(const kit_face* from, unsigned index, std::int64_t x,
                                      std::int64_t baseline) const {
    draw_glyph(canvas, shape_of(face, {from, index, 0}), x, baseline, clip, color);
}

void Ink::place(const Line& line, const kit_box& box, kit_align align,
                std::int64_t baseline) const {
    const std::int64_t spare = std::max<std::int64_t>(0, box.w - line.width);
    std::int64_t x = box.x;
    if (align == KIT_CENTRE) x += spare / 2;
    if (align == KIT_RIGHT) x += spare;
    x = write(line.part, x, baseline);
    write(whole(line.suffix), x, baseline);
}

}  // namespace kit
