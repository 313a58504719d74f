// Words, plainly: a text becomes a list of characters, each character's pixels are put one by one,
// and a line is broken by trying every end.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "models/canvas_model.h"
#include "models/utf8.h"
#include "orvel_kit.h"

namespace model {

/// The characters of a text; U+FFFD for each longest part that begins some character and is none.
std::vector<char32_t> characters(const std::string& text);

/// What a letter looks like: its pixels from the origin, y upwards from the baseline.
struct Letter {
    int advance = 0;
    struct Dot {
        int x, y;
    };
    std::vector<Dot> dots;
};

/// Stands for the ellipsis of what was cut: a face that lacks U+2026 shows three points there, but
/// where the text has that character itself, what it shows for all that is missing.
constexpr char32_t kCut = 0x110000;

/// The letters of a face, kCut among them: what it lacks is decided here, too.
using Letters = std::function<Letter(char32_t)>;

/// The measures of a face.
struct Measures {
    int ascent, descent, line, cap;
};

class Words {
public:
    Words(Letters letters, Measures measures);

    long long width(const std::string& text) const;
    void draw(Canvas& canvas, const std::string& text, long long x, long long baseline,
              orvel_color color) const;
    /// 0, or 1 when it was cut.
    int box(Canvas& canvas, const std::string& text, kit_box box, int align,
            orvel_color color) const;
    /// How many lines.
    int wrap(Canvas& canvas, const std::string& text, kit_box box, int align,
             orvel_color color) const;

private:
    using Codes = std::vector<char32_t>;
    long long width_of(const Codes& codes) const;
    Codes shortened(const Codes& text, std::size_t count, long long room) const;
    void put(Canvas& canvas, const Codes& codes, kit_box box, int align, long long baseline,
             orvel_color color) const;
    void put_at(Canvas& canvas, const Codes& codes, long long x, long long baseline, kit_box clip,
                orvel_color color) const;
    struct Line {
        Codes shown;
        Codes rest;  // of the text, from the line on
    };
    std::vector<Line> lines(const Codes& codes, int room) const;

    Letters letters_;
    Measures measures_;
};

}  // namespace model
