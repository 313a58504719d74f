#include "words/bdf.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "words/bdf_lines.h"
#include "words/runs.h"
#include "words/strokes.h"

namespace kit {
namespace {

/// The largest side, offset and advance, in pixels.
constexpr int kLargest = 4096;

constexpr int kReplacement = 0xFFFD;

bool is_length(int number) { return number >= 0 && number <= kLargest; }

bool is_offset(int number) { return number >= -kLargest && number <= kLargest; }

bool is_box(const int (&box)[4]) {
    return is_length(box[0]) && is_length(box[1]) && is_offset(box[2]) && is_offset(box[3]);
}

int hex_digit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

/// Whether two names of character sets are the same, in letters of either case.
bool same(std::string_view a, std::string_view b) {
    const auto equal = [](char x, char y) { return (x | 0x20) == (y | 0x20); };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), equal);
}

/// How far letters go: in pixels, or in thousandths of the font's size; -1 where it is not told.
struct Advance {
    int pixels = -1;
    int thousandths = -1;
};

/// A letter while its lines are read.
struct Letter {
    int code = -1;
    bool has_code = false;
    bool has_box = false;
    bool in_bitmap = false;
    int box[4] = {};  // width, height, x and y of the lower left corner
    Advance advance;
    int rows = 0;            // read so far
    std::size_t offset = 0;  // of its rows
    std::size_t left = 0;    // bytes of the font behind its first line
};

struct Coded {
    int code;
    std::uint32_t index;
};

class Reader {
public:
    Reader(std::string_view text, OwnedFace& face, Refusal& refusal)
        : lines_(text), face_(face), refusal_(refusal) {}

    bool read();

private:
    bool refuse(std::string reason);
    bool next();
    bool header_line();
    bool header_number();
    bool charset_is_known();
    bool advance_line(Advance& advance);
    bool letter_line();
    bool code_line();
    bool row();
    bool end_letter();
    bool cut_into_strokes();
    int pixels(const Advance& advance) const;
    int advance_of_letter() const;
    bool finish();
    bool measure();
    void add_replacement();
    void sort_letters();
    int capital_height() const;

    FontLines lines_;
    FontLine line_;
    OwnedFace& face_;
    Refusal& refusal_;

    bool in_letter_ = false;
    Letter letter_;
    std::vector<Coded> codes_;

    int size_[2] = {};  // in points, and how many pixels are an inch
    int box_[4] = {};
    Advance advance_;
    int ascent_ = -1, descent_ = -1, cap_ = 0, default_code_ = -1;
    std::string_view name_, registry_, encoding_;
};

bool Reader::refuse(std::string reason) {
    refusal_ = {lines_.number(), std::move(reason)};
    return false;
}

/// Goes to the next line that says something.
bool Reader::next() {
    do {
        if (!lines_.next(line_)) return false;
    } while (line_.keyword.empty() || line_.keyword == "COMMENT");
    return true;
}

bool Reader::read() {
    if (!next() || line_.keyword != "STARTFONT") return refuse("not a BDF font");
    while (next()) {
        if (line_.keyword == "ENDFONT") return finish();
        if (!(in_letter_ ? letter_line() : header_line())) return false;
    }
    return refuse("the font ends without ENDFONT");
}

/// A line of the font itself or of its properties, which are told apart by their words.
bool Reader::header_line() {
    const std::string_view keyword = line_.keyword;
    if (keyword == "STARTCHAR") {
        in_letter_ = true;
        letter_ = {};
        letter_.offset = face_.ink_memory.size();
        letter_.left = lines_.left();
        return !codes_.empty() || charset_is_known();
    }
    if (keyword == "FONT") name_ = line_.text();
    if (keyword == "CHARSET_REGISTRY") registry_ = line_.text();
    if (keyword == "CHARSET_ENCODING") encoding_ = line_.text();
    if (keyword == "SIZE") line_.numbers(size_, 2);
    if (keyword == "METRICSSET" && line_.rest == "1") {
        return refuse("the letters are for vertical writing only");
    }
    if (keyword == "FONTBOUNDINGBOX" && (line_.numbers(box_, 4) != 4 || !is_box(box_))) {
        return refuse("FONTBOUNDINGBOX is no box of up to 4096 pixels");
    }
    if (keyword == "DWIDTH" || keyword == "SWIDTH") return advance_line(advance_);
    return header_number();
}

bool Reader::header_number() {
    struct Number {
        std::string_view keyword;
        int Reader::*to;
        int most;
    };
    static constexpr Number kNumbers[] = {{"FONT_ASCENT", &Reader::ascent_, kLargest},
                                          {"FONT_DESCENT", &Reader::descent_, kLargest},
                                          {"CAP_HEIGHT", &Reader::cap_, kLargest},
                                          {"DEFAULT_CHAR", &Reader::default_code_, 0x10FFFF}};
    for (const Number& number : kNumbers) {
        if (line_.keyword != number.keyword) continue;
        int& to = this->*number.to;
        if (line_.numbers(&to, 1) == 1 && to >= 0 && to <= number.most) return true;
        return refuse(std::string(line_.keyword) + " is no number from 0 to " +
                      std::to_string(number.most));
    }
    return true;
}

/// Unicode, and sets whose codes are Unicode's; symbols of no set keep their codes.
bool Reader::charset_is_known() {
    if (registry_.empty() && name_.substr(0, 1) == "-") {  // the last two parts of an X11 name
        const std::size_t end = name_.rfind('-');
        const std::size_t begin = end == 0 ? 0 : name_.rfind('-', end - 1) + 1;
        registry_ = name_.substr(begin, std::max(end, begin) - begin);
        encoding_ = name_.substr(end + 1);
    }
    if (registry_.empty() || same(registry_, "ISO10646") || same(registry_, "ASCII") ||
        same(registry_, "ISO646.1991") || same(registry_, "FontSpecific") ||
        same(encoding_, "FontSpecific") || (same(registry_, "ISO8859") && encoding_ == "1")) {
        return true;
    }
    return refuse("the characters are those of " + std::string(registry_) + "-" +
                  std::string(encoding_) + ", not of Unicode");
}

bool Reader::advance_line(Advance& advance) {
    const bool in_pixels = line_.keyword == "DWIDTH";
    int& to = in_pixels ? advance.pixels : advance.thousandths;
    if (line_.numbers(&to, 1) == 1 && to >= 0 && (to <= kLargest || !in_pixels)) return true;
    return refuse(std::string(line_.keyword) + " is no width of up to 4096 pixels");
}

bool Reader::letter_line() {
    const std::string_view keyword = line_.keyword;
    if (keyword == "ENDCHAR") return end_letter();
    if (letter_.in_bitmap) return row();
    if (keyword == "STARTCHAR") return refuse("a letter begins inside another");
    if (keyword == "ENCODING") return code_line();
    if (keyword == "DWIDTH" || keyword == "SWIDTH") return advance_line(letter_.advance);
    if (keyword == "BBX") {
        letter_.has_box = line_.numbers(letter_.box, 4) == 4 && is_box(letter_.box);
        if (!letter_.has_box) return refuse("BBX is no box of up to 4096 pixels");
    }
    if (keyword == "BITMAP") {
        if (!letter_.has_box) return refuse("BITMAP comes before BBX");
        letter_.in_bitmap = true;
    }
    return true;
}

/// A code of -1 is followed by one of the font's own set, or by none.
bool Reader::code_line() {
    int codes[2] = {-1, -1};
    const int count = line_.numbers(codes, 2);
    letter_.code = codes[codes[0] == -1 ? 1 : 0];
    letter_.has_code = count > 0 && letter_.code >= -1 && letter_.code <= 0x10FFFF;
    if (!letter_.has_code) return refuse("ENCODING is no character's code");
    return true;
}

/// A row of hexadecimal digits, of which there may be more than the letter is wide.
bool Reader::row() {
    const std::string_view digits = line_.keyword;
    const std::size_t width = static_cast<std::size_t>(letter_.box[0]);
    if (width == 0) return true;
    if (letter_.rows++ == letter_.box[1]) return refuse("more rows than the letter is high");
    if (digits.size() < (width + 3) / 4) return refuse("a row shorter than the letter is wide");
    const auto is_digit = [](char c) { return hex_digit(c) >= 0; };
    if (!std::all_of(digits.begin(), digits.end(), is_digit)) {
        return refuse("a row that is not hexadecimal");
    }
    for (std::size_t i = 0; i < (width + 7) / 8; ++i) {
        const int low = 2 * i + 1 < digits.size() ? hex_digit(digits[2 * i + 1]) : 0;
        const int byte = hex_digit(digits[2 * i]) << 4 | low;
        face_.ink_memory.push_back(static_cast<unsigned char>(byte));
    }
    if (width % 8 != 0) {  // what stands right of the box is none of the letter
        face_.ink_memory.back() &= static_cast<unsigned char>(0xFF << (8 - width % 8));
    }
    return true;
}

int Reader::pixels(const Advance& advance) const {
    if (advance.pixels >= 0) return advance.pixels;
    if (advance.thousandths < 0 || !is_length(size_[0]) || !is_length(size_[1])) return -1;
    const std::int64_t scale = std::int64_t{size_[0]} * size_[1];
    const std::int64_t wide = (advance.thousandths * scale + 36000) / 72000;
    return scale == 0 ? -1 : static_cast<int>(std::min<std::int64_t>(wide, kLargest));
}

int Reader::advance_of_letter() const {
    const int own = pixels(letter_.advance);
    const int common = own >= 0 ? own : pixels(advance_);
    return common >= 0 ? common : std::clamp(letter_.box[0] + letter_.box[2], 0, kLargest);
}

bool Reader::end_letter() {
    const auto [width, height, x, y] = letter_.box;
    if (!letter_.has_code) return refuse("a letter without ENCODING");
    if (!letter_.has_box) return refuse("a letter without BBX");
    if (width > 0 && letter_.rows < height) return refuse("fewer rows than the letter is high");
    in_letter_ = false;
    if (letter_.code < 0) {
        face_.ink_memory.resize(letter_.offset);
        return true;
    }
    codes_.push_back({letter_.code, static_cast<std::uint32_t>(face_.glyph_memory.size())});
    const auto small = [](int number) { return static_cast<std::int16_t>(number); };
    face_.glyph_memory.push_back(
        {static_cast<std::uint32_t>(letter_.offset), small(advance_of_letter()), small(x),
         small(y + height), small(width), small(width == 0 ? 0 : height), cut_into_strokes()});
    return true;
}

/// Puts strokes in the place of the rows, but not more bytes than the letter's lines have.
bool Reader::cut_into_strokes() {
    if constexpr (kInkIsRows) return false;
    std::vector<unsigned char>& ink = face_.ink_memory;
    const int width = letter_.box[0], height = width == 0 ? 0 : letter_.box[1];
    const std::vector<unsigned char> strokes =
        strokes_of(ink.data() + letter_.offset, width, height);
    if (strokes.empty() || strokes.size() > letter_.left - lines_.left()) return false;
    ink.resize(letter_.offset);
    ink.insert(ink.end(), strokes.begin(), strokes.end());
    return true;
}

bool Reader::finish() {
    if (in_letter_) return refuse("the font ends inside a letter");
    if (codes_.empty()) return refuse("a font without letters");
    if (!measure()) return refuse("lines of no height");
    sort_letters();
    face_.ink_memory.shrink_to_fit();
    face_.ranges = face_.range_memory.data();
    face_.range_count = static_cast<std::uint32_t>(face_.range_memory.size());
    face_.ink = face_.ink_memory.data();
    face_.read = face_.glyph_memory.data();
    face_.closable = true;
    face_.cap = capital_height();
    return true;
}

bool Reader::measure() {
    face_.ascent = ascent_ >= 0 ? ascent_ : std::max(box_[1] + box_[3], 0);
    face_.descent = descent_ >= 0 ? descent_ : std::max(-box_[3], 0);
    face_.line = face_.ascent + face_.descent;
    return face_.line > 0;
}

/// Where the font has no U+FFFD, its own letter for characters that it lacks stands for that.
void Reader::add_replacement() {
    const auto below = [](const Coded& coded, int code) { return coded.code < code; };
    const auto place = [&](int code) {
        return std::lower_bound(codes_.begin(), codes_.end(), code, below);
    };
    const auto known = place(default_code_);
    const auto wanted = place(kReplacement);
    if (known == codes_.end() || known->code != default_code_) return;
    if (wanted != codes_.end() && wanted->code == kReplacement) return;
    codes_.insert(wanted, {kReplacement, known->index});
}

/// Of several letters with one code the first counts.
void Reader::sort_letters() {
    std::sort(codes_.begin(), codes_.end(), [](const Coded& a, const Coded& b) {
        return std::pair(a.code, a.index) < std::pair(b.code, b.index);
    });
    const auto same_code = [](const Coded& a, const Coded& b) { return a.code == b.code; };
    codes_.erase(std::unique(codes_.begin(), codes_.end(), same_code), codes_.end());
    add_replacement();
    std::vector<ReadGlyph> sorted;
    sorted.reserve(codes_.size());
    for (const Coded& coded : codes_) {
        const auto code = static_cast<std::uint32_t>(coded.code);
        if (face_.range_memory.empty() || face_.range_memory.back().last + 1 != code) {
            face_.range_memory.push_back({code, code, static_cast<std::uint32_t>(sorted.size())});
        }
        face_.range_memory.back().last = code;
        sorted.push_back(face_.glyph_memory[coded.index]);
    }
    face_.glyph_memory = std::move(sorted);
}

/// What the font says, else the height of its H, else a usual part of the ascent.
int Reader::capital_height() const {
    if (cap_ > 0) return cap_;
    const Found found = find_glyph(face_, 'H');
    const Glyph letter = found.face ? glyph_of(found) : Glyph{};
    const Clip ink = ink_of(letter);
    if (!ink.empty()) return std::max(letter.top - static_cast<int>(ink.top), 0);
    return face_.ascent * 7 / 10;
}

}  // namespace

bool read_bdf(std::string_view text, OwnedFace& face, Refusal& refusal) {
    return Reader(text, face, refusal).read();
}

}  // namespace kit
