// UTF-8, and what a character is to a line of words.
#pragma once

namespace kit {

constexpr char32_t kReplacement = 0xFFFD;

/// A character, and what follows it.
struct Decoded {
    char32_t code;
    const char* next;
};

/// The character that begins with @p first, which is none by itself.
Decoded longer_character(unsigned char first, const char* rest);

/// Steps over one character of a zero-terminated text, which must not be at its end. A maximal
/// ill-formed part is one U+FFFD (The Unicode Standard 15, section 3.9, table 3-7).
inline char32_t next_character(const char** text) {
    const auto first = static_cast<unsigned char>(*(*text)++);
    if (first < 0x80) return first;
    const Decoded decoded = longer_character(first, *text);
    *text = decoded.next;
    return decoded.code;
}

constexpr char32_t kSoftHyphen = 0xAD;
constexpr char32_t kZeroWidthSpace = 0x200B;

/// Ends a line of a paragraph, and is a space within a line.
constexpr bool is_newline(char32_t code) {
    return code == '\n' || code == 0x2028 || code == 0x2029;
}

/// A space at which a line may end.
constexpr bool is_space(char32_t code) {
    return code == ' ' || code == 0x1680 || (code >= 0x2000 && code <= 0x200A && code != 0x2007) ||
           code == 0x205F || code == 0x3000;
}

/// A hyphen or dash after which a line may end.
constexpr bool is_hyphen(char32_t code) {
    return code == '-' || code == 0x2010 || code == 0x2013 || code == 0x2014;
}

constexpr bool is_digit(char32_t code) { return code >= '0' && code <= '9'; }

/// What may stand between the digits of one number: a point, and what groups them.
constexpr bool is_number_mark(char32_t code) {
    return code == '.' || code == ',' || code == ':' || code == '\'' || code == 0x2019 ||
           code == 0xA0 || code == 0x202F;
}

/// Whether a character beyond Basic Latin, or a control of it, is hidden.
bool is_hidden_mark(char32_t code);

/// A control character, or a mark for layout or for the shape of a letter: it takes no room.
inline bool is_hidden(char32_t code) {
    return (code < 0x20 || code >= 0x7F) && is_hidden_mark(code);
}

}  // namespace kit
