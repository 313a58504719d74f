// Items that are found by the first letters of their words.
#include <algorithm>

#include "screen/characters.h"
#include "screen/turn.h"

namespace kit {
namespace {

constexpr Clock kPause = 1000;
constexpr std::size_t kMost = 256;  // bytes

/// In small letters, as far as those lie 32 numbers apart: Latin, Greek, Cyrillic.
std::string small(std::string_view text) {
    std::string made;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const auto next = static_cast<unsigned char>(i + 1 < text.size() ? text[i + 1] : 0);
        const int code = (byte & 0x1F) << 6 | (next & 0x3F);
        const bool pair = byte >= 0xC3 && byte < 0xE0 && (next & 0xC0) == 0x80;
        const bool capital =
            pair && ((code <= 0xDE && code != 0xD7) || (code >= 0x391 && code <= 0x3A9) ||
                     (code >= 0x410 && code <= 0x42F));
        if (capital) {
            made += static_cast<char>(0xC0 | (code + 32) >> 6);
            made += static_cast<char>(0x80 | ((code + 32) & 0x3F));
            ++i;
        } else {
            made += byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : text[i];
        }
    }
    return made;
}

bool begins(const std::string& item, const std::string& with) {
    return small(item).compare(0, with.size(), with) == 0;
}

/// The first letter of a text that is that letter again and again; else empty.
std::string repeated(const std::string& text) {
    std::size_t length = 1;
    while (length < text.size() && is_later_byte(text[length])) ++length;
    for (std::size_t i = 0; i < text.size(); i += length) {
        if (text.compare(i, length, text, 0, length) != 0) return "";
    }
    return text.substr(0, length);
}

}  // namespace

int find_typed(Live& live, std::string_view text, const std::vector<std::string>& items, int from) {
    Typed& typed = live.typed;
    if (live.clock >= typed.until) typed.text.clear();
    const bool blank = typed.text.empty() && text.substr(0, 1) == " ";  // which is a press
    if (blank) return -1;
    typed.text += small(text.substr(0, kMost));
    typed.text.resize(std::min(typed.text.size(), kMost));
    typed.until = live.clock + kPause;
    const auto count = static_cast<int>(items.size());
    const auto find = [&](const std::string& words, int first) {
        for (int tries = 0; tries < count; ++tries) {
            const int i = (std::max(first, 0) + tries) % count;
            if (begins(items[static_cast<std::size_t>(i)], words)) return i;
        }
        return -1;
    };
    const std::string letter = repeated(typed.text);
    const int found = letter == typed.text ? -1 : find(typed.text, from);
    return found >= 0 || letter.empty() ? found : find(letter, from + 1);
}

}  // namespace kit
