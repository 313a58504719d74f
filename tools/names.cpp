#include "names.h"

#include <algorithm>
#include <cstdio>

namespace orvel_tools {
namespace {

unsigned byte_at(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

/// The length of the UTF-8 character at @p at; 0 when there is none that may stand in a document.
std::size_t character_at(std::string_view text, std::size_t at) {
    const unsigned first = byte_at(text, at);
    if (first < 0x80) return first >= 0x20 && first != 0x7f ? 1 : 0;
    const std::size_t length = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
    if (first < 0xc2 || first > 0xf4 || at + length > text.size()) return 0;
    unsigned code = first & (0x7fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const unsigned next = byte_at(text, at + i);
        if ((next & 0xc0) != 0x80) return 0;
        code = code << 6 | (next & 0x3f);
    }
    const unsigned lowest = length == 2 ? 0x80 : length == 3 ? 0x800 : 0x10000;
    const bool surrogate = code >= 0xd800 && code < 0xe000;
    const bool control = code < 0xa0 || (code & 0xfffe) == 0xfffe;
    // What turns the direction of the letters around makes a name look like another.
    const bool turning = (code >= 0x202a && code <= 0x202e) || (code >= 0x2066 && code <= 0x2069);
    return code < lowest || code > 0x10ffff || surrogate || control || turning ? 0 : length;
}

std::string hexadecimal(unsigned byte) {
    char text[5];
    std::snprintf(text, sizeof text, "\\x%02x", byte);
    return text;
}

}  // namespace

std::string shown_name(std::string_view name) {
    std::string shown;
    for (std::size_t at = 0; at < name.size();) {
        const std::size_t length = character_at(name, at);
        if (name[at] == '\\') {
            shown += "\\\\";
        } else if (length > 0) {
            shown += name.substr(at, length);
        } else if (name[at] == '\n') {
            shown += "\\n";
        } else {
            shown += hexadecimal(byte_at(name, at));
        }
        at += std::max<std::size_t>(length, 1);
    }
    return shown;
}

std::string escaped_markup(std::string_view text) {
    std::string escaped;
    for (const char letter : text) {
        switch (letter) {
        case '&': escaped += "&amp;"; break;
        case '<': escaped += "&lt;"; break;
        case '>': escaped += "&gt;"; break;
        case '"': escaped += "&quot;"; break;
        case '\'': escaped += "&#39;"; break;
        default: escaped += letter;
        }
    }
    return escaped;
}

std::string quoted_json(std::string_view text) {
    std::string quoted = "\"";
    for (const char letter : text) {
        if (letter == '"' || letter == '\\') quoted += '\\';
        quoted += letter;
    }
    return quoted + '"';
}

}  // namespace orvel_tools
