#include "theme_check.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <cstddef>

namespace orvel_tools {
namespace {

constexpr const char* kKeys[] = {"background", "surface",      "text",        "accent", "border",
                                 "button",     "button_hover", "button_text", "error"};
constexpr auto kNowhere = std::string::npos;

/// One key and the text that the loader takes for its value: the next in quotes after the next
/// colon, whatever stands between.
struct Member {
    std::size_t key = kNowhere, after_key = kNowhere, value = kNowhere, value_end = kNowhere;
};

Member find_member(const std::string& text, const std::string& key) {
    Member found;
    const std::string pattern = '"' + key + '"';
    found.key = text.find(pattern);
    if (found.key == kNowhere) return found;
    found.after_key = found.key + pattern.size();
    const std::size_t colon = text.find(':', found.after_key);
    const std::size_t quote = colon == kNowhere ? kNowhere : text.find('"', colon + 1);
    if (quote == kNowhere) return found;
    found.value = quote + 1;
    found.value_end = text.find('"', found.value);
    return found;
}

/// Whether only a colon and blanks lie between the key and the quote that opens its value.
bool follows_at_once(const std::string& text, const Member& member) {
    int colons = 0;
    for (std::size_t at = member.after_key; at + 1 < member.value; ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        if (byte == ':') {
            ++colons;
        } else if (!std::isspace(byte)) {
            return false;
        }
    }
    return colons == 1;
}

bool is_hex(char letter) { return std::isxdigit(static_cast<unsigned char>(letter)) != 0; }

/// @p value in quotes, cut to what fits into a message of one line.
std::string shown(const std::string& value) {
    constexpr std::size_t kLongest = 24;
    const auto control = [](unsigned char byte) { return std::iscntrl(byte) != 0; };
    const auto end = std::find_if(value.begin(), value.end(), control);
    const std::string line(value.begin(), end);
    if (line.size() == value.size() && line.size() <= kLongest) return '"' + line + '"';
    return '"' + line.substr(0, kLongest) + "...\"";
}

/// What the loader makes of a value that is not just six digits; empty when there is nothing to
/// say.
std::string complaint(const std::string& value) {
    if (value.empty()) return "empty, so the colour stays what it was before the load";
    const std::string digits = value.c_str() + (value[0] == '#' ? 1 : 0);  // up to a zero byte
    if (digits.size() < 6) return shown(value) + " is too short and becomes white";
    const auto bad = std::find_if_not(digits.begin(), digits.begin() + 6, is_hex);
    if (bad != digits.begin() + 6) return shown(value) + " has a bad digit, which counts as 0";
    if (digits.size() > 6) return shown(value) + " is too long; only its first six digits count";
    return "";
}

std::string complaint(const std::string& text, const std::string& key, const Member& member) {
    if (member.key == kNowhere) return "missing, so the colour stays what it was before the load";
    if (member.value_end == kNowhere) {
        return "has no value in quotes, so the colour stays what it was before the load";
    }
    const std::string value = text.substr(member.value, member.value_end - member.value);
    if (!follows_at_once(text, member)) {
        return "not followed by its value; the loader takes the next text in quotes after a "
               "colon, " +
               shown(value);
    }
    const std::string about_value = complaint(value);
    if (!about_value.empty()) return about_value;
    if (text.find('"' + key + '"', member.after_key) != kNowhere) {
        return "given more than once; only the first one counts";
    }
    return "";
}

double linear(unsigned char channel) {
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(orvel_color color) {
    return 0.2126 * linear(color.r) + 0.7152 * linear(color.g) + 0.0722 * linear(color.b);
}

}  // namespace

std::vector<Finding> check_theme(const std::string& text) {
    std::vector<Finding> findings;
    for (const std::string key : kKeys) {
        const Member member = find_member(text, key);
        const std::string message = complaint(text, key, member);
        if (message.empty()) continue;
        int line = 0;
        if (member.key != kNowhere) {
            const auto end = text.begin() + static_cast<std::ptrdiff_t>(member.key);
            line = 1 + static_cast<int>(std::count(text.begin(), end, '\n'));
        }
        findings.push_back({line, key, message});
    }
    return findings;
}

const std::vector<Pair>& text_pairs() {
    static const std::vector<Pair> pairs = {
        {"text on background", &orvel_theme::text, &orvel_theme::background, "labels, list items"},
        {"text on surface", &orvel_theme::text, &orvel_theme::surface, "text boxes, title bars"},
        {"text on button_hover", &orvel_theme::text, &orvel_theme::button_hover,
         "selected menu and list items"},
        {"button_text on button", &orvel_theme::button_text, &orvel_theme::button, "buttons"},
        {"button_text on button_hover", &orvel_theme::button_text, &orvel_theme::button_hover,
         "buttons under the pointer"},
        {"accent on surface", &orvel_theme::accent, &orvel_theme::surface, "the selected tab"},
        {"background on accent", &orvel_theme::background, &orvel_theme::accent,
         "window titles, badges, avatars"},
        {"error on background", &orvel_theme::error, &orvel_theme::background,
         "the host's own messages"},
    };
    return pairs;
}

double contrast(orvel_color a, orvel_color b) {
    const double one = luminance(a), other = luminance(b);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

}  // namespace orvel_tools
