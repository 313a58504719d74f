#include "words/bdf_lines.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace kit {
namespace {

constexpr std::string_view kBlanks = " \t\r\f\v";

std::string_view without_blanks(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
    return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

/// Takes the first word off the text.
std::string_view take_word(std::string_view& text) {
    const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
    text = without_blanks(text.substr(word.size()));
    return word;
}

}  // namespace

int FontLine::numbers(int* to, int count) const {
    std::string_view left = rest;
    for (int i = 0; i < count; ++i) {
        std::string_view word = take_word(left);
        if (word.substr(0, 1) == "+") word.remove_prefix(1);
        const char* const end = word.data() + word.size();
        const auto [stop, error] = std::from_chars(word.data(), end, to[i]);
        if (error != std::errc() || stop != end) return i;
    }
    return count;
}

std::string_view FontLine::text() const {
    if (rest.size() < 2 || rest.front() != '"' || rest.back() != '"') return rest;
    return rest.substr(1, rest.size() - 2);
}

bool FontLines::next(FontLine& line) {
    if (text_.empty()) return false;
    ++number_;
    const std::size_t end = std::min(text_.find('\n'), text_.size());
    line.rest = without_blanks(text_.substr(0, end));
    line.keyword = take_word(line.rest);
    text_.remove_prefix(std::min(end + 1, text_.size()));
    return true;
}

}  // namespace kit
