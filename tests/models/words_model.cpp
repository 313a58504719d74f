#include "models/words_model.h"

#include <algorithm>
#include <set>

namespace model {
namespace {

using Codes = std::vector<char32_t>;

bool is_scalar(char32_t code) { return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF); }

/// Every beginning of every character.
const std::set<std::string>& beginnings() {
    static const std::set<std::string> all = [] {
        std::set<std::string> found;
        for (char32_t code = 0; code <= 0x10FFFF; ++code) {
            // Characters that differ in their last byte alone begin alike.
            if (!is_scalar(code) || code % 64 != 0) continue;
            const std::string bytes = utf8(code);
            for (std::size_t n = 1; n < bytes.size(); ++n) found.insert(bytes.substr(0, n));
        }
        return found;
    }();
    return all;
}

bool is_one_of(char32_t code, std::initializer_list<char32_t> codes) {
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}

bool newline(char32_t c) { return is_one_of(c, {'\n', 0x2028, 0x2029}); }
bool space(char32_t c) {
    return (c >= 0x2000 && c <= 0x2006) || (c >= 0x2008 && c <= 0x200A) ||
           is_one_of(c, {' ', 0x1680, 0x205F, 0x3000});
}
bool hyphen(char32_t c) { return is_one_of(c, {'-', 0x2010, 0x2013, 0x2014}); }
bool hidden(char32_t c) {
    static constexpr struct {
        char32_t first, last;
    } kRanges[] = {{0x00, 0x09},     {0x0B, 0x1F},      {0x7F, 0x9F},     {0x180B, 0x180F},
                   {0x200B, 0x200F}, {0x202A, 0x202E},  {0x2060, 0x206F}, {0xFE00, 0xFE0F},
                   {0xFFF9, 0xFFFB}, {0xE0000, 0xE0FFF}};
    for (const auto& range : kRanges) {
        if (c >= range.first && c <= range.last) return true;
    }
    return is_one_of(c, {0xAD, 0x34F, 0x61C, 0xFEFF});
}

/// The value that the bytes would have as one character, whatever they are.
char32_t value_of(const std::string& part) {
    const unsigned lead = part.size() == 1 ? 0x7F : 0xFFu >> (part.size() + 1);
    char32_t value = static_cast<unsigned char>(part[0]) & lead;
    for (std::size_t i = 1; i < part.size(); ++i) {
        value = value << 6 | (static_cast<unsigned char>(part[i]) & 0x3Fu);
    }
    return value;
}

Codes shown(const Codes& codes) {
    Codes rest;
    for (const char32_t c : codes) {
        if (!hidden(c)) rest.push_back(newline(c) ? U' ' : c);
    }
    return rest;
}

/// Which number each character belongs to, counted from 1; 0 for none. A number is digits with
/// single marks between them.
std::vector<int> numbers_in(const Codes& codes) {
    const auto digit = [&codes](std::size_t i) {
        return i < codes.size() && codes[i] >= '0' && codes[i] <= '9';
    };
    std::vector<int> numbers(codes.size(), 0);
    int count = 0;
    for (std::size_t i = 0; i < codes.size(); ++i) {
        if (!digit(i)) continue;
        ++count;
        for (; i < codes.size(); ++i) {
            const bool mark = is_one_of(codes[i], {'.', ',', ':', '\'', 0x2019, 0xA0, 0x202F});
            if (!digit(i) && !(mark && digit(i - 1) && digit(i + 1))) break;
            numbers[i] = count;
        }
    }
    return numbers;
}

Codes without_spaces_at_the_end(Codes codes) {
    while (!codes.empty() && space(codes.back())) codes.pop_back();
    return codes;
}

}  // namespace

Codes characters(const std::string& text) {
    Codes codes;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t length = 0;
        for (std::size_t n = 1; n <= 4 && at + n <= text.size(); ++n) {
            const char32_t value = value_of(text.substr(at, n));
            if (is_scalar(value) && utf8(value) == text.substr(at, n)) length = n;
        }
        codes.push_back(length > 0 ? value_of(text.substr(at, length)) : 0xFFFD);
        for (std::size_t n = 1; length == 0; ++n) {
            const bool longer = at + n < text.size() && beginnings().count(text.substr(at, n + 1));
            if (!longer) length = n;
        }
        at += length;
    }
    return codes;
}

Words::Words(Letters letters, Measures measures)
    : letters_(std::move(letters)), measures_(measures) {}

long long Words::width_of(const Codes& codes) const {
    long long width = 0;
    for (const char32_t c : shown(codes)) width += letters_(c).advance;
    return width;
}

void Words::put_at(Canvas& canvas, const Codes& codes, long long x, long long baseline,
                   kit_box clip, orvel_color color) const {
    for (const char32_t c : shown(codes)) {
        const Letter letter = letters_(c);
        for (const Letter::Dot& dot : letter.dots) {
            const long long px = x + dot.x, py = baseline - 1 - dot.y;
            const bool in =
                px >= clip.x && px - clip.x < clip.w && py >= clip.y && py - clip.y < clip.h;
            if (in) canvas.put(px, py, color);
        }
        x += letter.advance;
    }
}

void Words::put(Canvas& canvas, const Codes& codes, kit_box box, int align, long long baseline,
                orvel_color color) const {
    const long long spare = std::max(0LL, box.w - width_of(codes));
    const long long moved = align == KIT_CENTRE ? spare / 2 : align == KIT_RIGHT ? spare : 0;
    put_at(canvas, codes, box.x + moved, baseline, box, color);
}

/// As many of the first characters of a text as go before an ellipsis, and that.
Codes Words::shortened(const Codes& text, std::size_t count, long long room) const {
    const std::vector<int> numbers = numbers_in(text);
    const auto first = [&text](std::size_t n) {
        return Codes(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(n));
    };
    const auto within_number = [&](std::size_t n) {
        return n < text.size() && numbers[n] != 0 && numbers[n] == numbers[n - 1];
    };
    const auto fits = [&](std::size_t n) {
        return width_of(first(n)) + letters_(kCut).advance <= room;
    };
    while (count > 0 && (!fits(count) || within_number(count))) --count;
    Codes codes = without_spaces_at_the_end(first(count));
    codes.push_back(kCut);
    return codes;
}

long long Words::width(const std::string& text) const { return width_of(characters(text)); }

void Words::draw(Canvas& canvas, const std::string& text, long long x, long long baseline,
                 orvel_color color) const {
    put_at(canvas, characters(text), x, baseline, {0, 0, canvas.width, canvas.height}, color);
}

int Words::box(Canvas& canvas, const std::string& text, kit_box box, int align,
               orvel_color color) const {
    Codes codes = characters(text);
    const bool cut = width_of(codes) > std::max(0, box.w);
    if (cut) codes = shortened(shown(codes), shown(codes).size(), box.w);
    const long long baseline = box.y + (static_cast<long long>(box.h) + measures_.cap) / 2;
    put(canvas, codes, box, align, baseline, color);
    return cut ? 1 : 0;
}

/// The lines as they show but for the ellipsis; a soft hyphen at the end is one that shows.
std::vector<Words::Line> Words::lines(const Codes& codes, int room) const {
    std::vector<Line> all;
    std::size_t at = 0;
    const std::size_t count = codes.size();
    const auto from = [&codes](std::size_t a, std::size_t b) {
        return Codes(codes.begin() + static_cast<std::ptrdiff_t>(a),
                     codes.begin() + static_cast<std::ptrdiff_t>(b));
    };
    const auto last_shown = [&](std::size_t a, std::size_t b) {
        const Codes before = shown(from(a, b));
        return before.empty() ? U' ' : before.back();
    };
    while (true) {
        std::size_t stop = at;  // where the newline is, or the end
        while (stop < count && !newline(codes[stop])) ++stop;
        const Codes rest = without_spaces_at_the_end(shown(from(at, stop)));
        Codes line = rest;
        std::size_t next = stop + 1;
        bool within = true;  // whether the whole rest is shown
        if (width_of(rest) > room && rest.size() > 1) {
            within = false;
            // The last place where the line may end.
            line.clear();
            next = at;
            for (std::size_t i = at; i < stop; ++i) {
                const char32_t c = codes[i];
                const Codes here = without_spaces_at_the_end(shown(from(at, i + 1)));
                const char32_t before = last_shown(at, i);
                const bool any = !shown(from(at, i)).empty();
                if (any && width_of(here) > room && !hidden(c) && !space(c)) break;
                const bool soft = c == 0xAD && !space(before);
                const bool hard = hyphen(c) && !space(before) && !hyphen(before) && i + 1 < count &&
                                  !(codes[i + 1] >= '0' && codes[i + 1] <= '9');
                if (space(c) || (c == 0x200B && any) || hard) {
                    line = here;
                    next = i + 1;
                } else if (soft && width_of(from(at, i)) + letters_('-').advance <= room) {
                    line = here;
                    line.push_back(0xAD);
                    next = i + 1;
                }
            }
            if (next == at) {  // inside the word, at least one letter
                for (std::size_t i = at; i < stop; ++i) {
                    const Codes here = shown(from(at, i + 1));
                    if (here.size() > 1 && width_of(here) > room && !hidden(codes[i])) break;
                    line = here;
                    next = i + 1;
                }
            }
        }
        all.push_back({line, shown(from(at, count))});
        if (within && stop == count) return all;
        at = next;
    }
}

int Words::wrap(Canvas& canvas, const std::string& text, kit_box box, int align,
                orvel_color color) const {
    if (text.empty()) return 0;
    const std::vector<Line> all = lines(characters(text), box.w);
    const int height = measures_.ascent + measures_.descent;
    const auto fits = [&](std::size_t i) {
        return static_cast<long long>(i) * measures_.line + height <= box.h;
    };
    for (std::size_t i = 0; i < all.size() && fits(i) && box.w > 0; ++i) {
        const bool last = i + 1 < all.size() && !fits(i + 1);
        Codes line = all[i].shown;
        if (last) line = shortened(all[i].rest, shown(line).size(), box.w);
        if (!last && !line.empty() && line.back() == 0xAD) line.back() = '-';
        const long long top = box.y + static_cast<long long>(i) * measures_.line;
        put(canvas, line, box, align, top + measures_.ascent, color);
    }
    return static_cast<int>(all.size());
}

}  // namespace model
