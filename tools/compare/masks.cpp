#include "compare/masks.h"

#include <algorithm>
#include <charconv>

namespace orvel_tools {
namespace {

constexpr std::string_view kBlanks = " \t\r";

/// Reads one line from the left.
class Line {
public:
    explicit Line(std::string_view text) : rest_(text) {}

    /// The next word, empty at the end.
    std::string_view word() {
        skip_blanks();
        const std::string_view found = rest_.substr(0, rest_.find_first_of(kBlanks));
        rest_.remove_prefix(found.size());
        return found;
    }

    /// The next word, which may stand in quotes; false when these do not end.
    bool quoted_word(std::string& found) {
        skip_blanks();
        if (rest_.empty() || rest_[0] != '"') {
            found = word();
            return true;
        }
        for (std::size_t at = 1; at < rest_.size(); ++at) {
            if (rest_[at] == '"') {
                rest_.remove_prefix(at + 1);
                return true;
            }
            if (rest_[at] == '\\' && at + 1 < rest_.size()) ++at;
            found += rest_[at];
        }
        return false;
    }

    bool number(int lowest, int& value) {
        const std::string_view text = word();
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        return error == std::errc() && end == text.data() + text.size() && value >= lowest &&
               value <= kLongestSide;
    }

    std::string_view rest() {
        skip_blanks();
        rest_ = rest_.substr(0, rest_.find_last_not_of(kBlanks) + 1);
        return rest_;
    }

private:
    void skip_blanks() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
    }

    std::string_view rest_;
};

/// What is wrong with a line; null when it has been read.
const char* read_mask(Line line, Mask& mask) {
    if (!line.quoted_word(mask.pattern)) return "a quotation mark is missing";
    Box& box = mask.box;
    if (!line.number(0, box.left) || !line.number(0, box.top) || !line.number(1, box.width) ||
        !line.number(1, box.height)) {
        return "not a picture, LEFT TOP WIDTH HEIGHT in whole pixels, and a reason";
    }
    mask.reason = line.rest();
    return mask.reason.empty() ? "a reason is missing" : nullptr;
}

std::string_view without_extension(std::string_view pattern) {
    for (const std::string_view ending : {".png", ".bmp"}) {
        if (pattern.size() > ending.size() &&
            pattern.substr(pattern.size() - ending.size()) == ending) {
            pattern.remove_suffix(ending.size());
            break;
        }
    }
    return pattern;
}

}  // namespace

bool read_masks(std::string_view text, std::vector<Mask>& masks, std::string& error) {
    int number = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const Line line(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        ++number;
        const std::string_view first = Line(line).word();
        if (first.empty() || first[0] == '#') continue;
        Mask mask;
        mask.line = number;
        if (const char* wrong = read_mask(line, mask)) {
            error = std::to_string(number) + ": " + wrong;
            return false;
        }
        masks.push_back(std::move(mask));
    }
    return true;
}

bool fits(std::string_view pattern, std::string_view name) {
    pattern = without_extension(pattern);
    // reached[i]: what has been seen of the pattern stands for the first i bytes of the name.
    std::vector<char> reached(name.size() + 1, 0);
    reached[0] = 1;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const bool star = pattern[at] == '*';
        const bool two = star && at + 1 < pattern.size() && pattern[at + 1] == '*';
        if (two) ++at;
        if (star) {
            for (std::size_t i = 0; i < name.size(); ++i) {
                if (reached[i] && (two || name[i] != '/')) reached[i + 1] = 1;
            }
            continue;
        }
        for (std::size_t i = name.size(); i > 0; --i) {
            const bool same = pattern[at] == '?' || pattern[at] == name[i - 1];
            reached[i] = reached[i - 1] && same;
        }
        reached[0] = 0;
    }
    return reached[name.size()] != 0;
}

std::vector<Mask> masks_for(const std::string& name, const std::vector<Mask>& masks) {
    std::vector<Mask> found;
    for (const Mask& mask : masks) {
        if (fits(mask.pattern, name)) found.push_back(mask);
    }
    return found;
}

}  // namespace orvel_tools
