#include "screen/letters.h"

namespace kit {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

bool is_apostrophe(char32_t code) { return code == '\'' || code == 0x2019; }

bool ends_line(char32_t code) {
    return code == '\n' || code == '\r' || code == 0x2028 || code == 0x2029;
}

Class class_at(std::string_view text, std::size_t at) {
    return class_of(character_at(text, at).code);
}

/// Whether the letter at @p at is an apostrophe with a word behind it.
bool binds(std::string_view text, std::size_t at) {
    if (!is_apostrophe(character_at(text, at).code)) return false;
    const std::size_t behind = letter_end(text, at);
    return behind < text.size() && class_at(text, behind) == Class::Word;
}

/// The run that begins at the place @p begin, before the end.
Run run_from(std::string_view text, std::size_t begin) {
    const Class what = class_at(text, begin);
    std::size_t end = letter_end(text, begin);
    while (end < text.size() &&
           (class_at(text, end) == what || (what == Class::Word && binds(text, end)))) {
        end = letter_end(text, end);
    }
    return {begin, end, what};
}

}  // namespace

std::size_t letter_end(std::string_view text, std::size_t at) {
    if (at >= text.size()) return text.size();
    const Character first = character_at(text, at);
    at += first.bytes;
    bool joined = false, paired = !is_flag_letter(first.code);
    while (at < text.size()) {
        const Character next = character_at(text, at);
        const bool pairs = !paired && is_flag_letter(next.code);
        const bool joins = joined && is_picture(first.code) && is_picture(next.code);
        if (!pairs && !joins && !is_mark(next.code)) break;
        at += next.bytes;
        paired = true;
        joined = next.code == kJoiner;
    }
    return at;
}

std::size_t place_before(std::string_view text, std::size_t at) {
    std::size_t place = 0;
    for (std::size_t end = letter_end(text, 0); end < at && end < text.size();) {
        place = end;
        end = letter_end(text, end);
    }
    return place;
}

std::size_t place_from(std::string_view text, std::size_t at) {
    std::size_t place = 0;
    while (place < at && place < text.size()) place = letter_end(text, place);
    return place;
}

std::size_t count_letters(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); at = letter_end(text, at)) ++count;
    return count;
}

Run run_at(std::string_view text, std::size_t at) {
    Run run = {0, 0, Class::Blank};
    while (run.end < text.size() && (run.end <= at)) run = run_from(text, run.end);
    return run;
}

std::size_t word_end(std::string_view text, std::size_t at) {
    Run run = {0, 0, Class::Blank};
    while (run.end < text.size() && (run.end <= at || run.what == Class::Blank)) {
        run = run_from(text, run.end);
    }
    return run.end;
}

std::size_t word_begin(std::string_view text, std::size_t at) {
    std::size_t begin = 0;
    for (std::size_t next = 0; next < at && next < text.size();) {
        const Run run = run_from(text, next);
        if (run.what != Class::Blank) begin = run.begin;
        next = run.end;
    }
    return begin;
}

std::string well_formed(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const Character next = character_at(text, at);
        result += next.good ? text.substr(at, next.bytes) : kReplacement;
        at += next.bytes;
    }
    return result;
}

std::string one_line(std::string_view text) {
    std::string result;
    std::size_t kept = 0;  // of the result, without ends of lines at its end
    for (std::size_t at = 0; at < text.size();) {
        const Character next = character_at(text, at);
        const bool is_end = ends_line(next.code);
        const bool half = next.code == '\r' && text.substr(at + 1, 1) == "\n";
        if (is_end) {
            if (!half) result += ' ';
        } else if (next.code == '\t') {
            result += ' ';
            kept = result.size();
        } else if (next.code >= 0x20 && (next.code < 0x7F || next.code >= 0xA0)) {
            result += next.good ? text.substr(at, next.bytes) : kReplacement;
            kept = result.size();
        }
        at += next.bytes;
    }
    result.resize(kept);
    return result;
}

}  // namespace kit
