// A line of words: its characters one after another.
#pragma once

#include <cstdint>

#include "orvel_kit.h"
#include "words/face_data.h"
#include "words/runs.h"
#include "words/utf8.h"

namespace kit {

/// What shows in place of a letter that no face has.
Found find_instead(const kit_face& face, char32_t code);

/// Walks along a line. It may hold a million letters of any width: places are 64-bit.
class Pen {
public:
    explicit Pen(const kit_face& face, std::int64_t start = 0)
        : face_(face), start_(start), end_(start) {}

    /// Over the next character; false for one that shows not at all.
    bool step(char32_t code);

    std::int64_t start() const { return start_; }  // the origin of the last letter
    std::int64_t end() const { return end_; }      // where it ends
    const Found& letter() const { return last_; }  // the last one; a null face: no face has it

private:
    const kit_face& face_;
    Found last_;
    std::int64_t start_, end_;
};

inline bool Pen::step(char32_t code) {
    if (is_hidden(code)) return false;
    if (is_newline(code)) code = ' ';
    Found next = find_glyph(face_, code);
    if (!next.face) next = find_instead(face_, code);
    start_ = end_ + kerning(last_, next);
    end_ = start_ + next.advance;
    last_ = next;
    return true;
}

/// The columns without ink between two characters of a line, which begins at 0: [left, right).
struct Gap {
    std::int64_t left, right;
};

/// The gap at the place kit_text_x() of @p offset. Before the first letter and behind the last one
/// it goes on far outside the line.
Gap gap_at(const kit_face& face, const char* text, int offset);

/// Part of a text, from one character to another.
struct Part {
    const char* begin;
    const char* end;
};

/// Up to the zero.
Part whole(const char* text);

std::int64_t width_of(const kit_face& face, Part part);

/// What some face has for the character, else something else that looks the same; a null face when
/// there is neither.
Found find_or_alike(const kit_face& face, char32_t code);

/// What a line shows: a part of the text, and a hyphen or an ellipsis behind it.
struct Line {
    Part part;
    const char* suffix;
    std::int64_t width;  // of both
};

Line line_of(const kit_face& face, Part part, const char* suffix = "");

/// What of a part goes into the room before an ellipsis.
Line cut_line(const kit_face& face, Part part, std::int64_t room);

/// Where words go on a canvas.
struct Ink {
    orvel_canvas* canvas;
    const kit_face& face;
    Clip clip;
    orvel_color color;

    /// Draws from x on; where it ends.
    std::int64_t write(Part part, std::int64_t x, std::int64_t baseline) const;

    /// Draws a letter of a face, or what stands for it where that is null, from its origin on.
    void draw(const kit_face* from, unsigned index, std::int64_t x, std::int64_t baseline) const;
    /// The same of a letter that is cut, a frame or rows of bits.
    void draw_rare(const kit_face* from, unsigned index, std::int64_t x,
                   std::int64_t baseline) const;

    /// Draws a line where it belongs in the width of a box.
    void place(const Line& line, const kit_box& box, kit_align align, std::int64_t baseline) const;
};

/// The int nearest to @p value.
int to_int(std::int64_t value);

}  // namespace kit
