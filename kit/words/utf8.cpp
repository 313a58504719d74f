#include "words/utf8.h"

namespace kit {
namespace {

struct Codes {
    char32_t first, last;
};

constexpr Codes kHidden[] = {
    {0x0000, 0x0009},    // controls
    {0x000B, 0x001F},    // others, but no newline
    {0x007F, 0x009F},    // delete and the other controls
    {0x00AD, 0x00AD},    // soft hyphen
    {0x034F, 0x034F},    // grapheme joiner
    {0x061C, 0x061C},    // direction of Arabic letters
    {0x180B, 0x180F},    // Mongolian selectors
    {0x200B, 0x200F},    // zero width spaces, joiners, directions
    {0x202A, 0x202E},    // directions
    {0x2060, 0x206F},    // word joiner, invisible operators, directions
    {0xFE00, 0xFE0F},    // variation selectors
    {0xFEFF, 0xFEFF},    // byte order mark
    {0xFFF9, 0xFFFB},    // annotations
    {0xE0000, 0xE0FFF},  // tags, more variation selectors
};

/// What may follow a first byte: how many bytes, and the range of the first of them.
struct Following {
    int count;
    unsigned char low, high;
};

constexpr Following following(unsigned char first) {
    if (first < 0xC2 || first > 0xF4) return {0, 0, 0};
    if (first < 0xE0) return {1, 0x80, 0xBF};
    if (first == 0xE0) return {2, 0xA0, 0xBF};  // nothing longer than it need be
    if (first == 0xED) return {2, 0x80, 0x9F};  // no surrogates
    if (first < 0xF0) return {2, 0x80, 0xBF};
    if (first == 0xF0) return {3, 0x90, 0xBF};
    if (first == 0xF4) return {3, 0x80, 0x8F};  // nothing above U+10FFFF
    return {3, 0x80, 0xBF};
}

}  // namespace

Decoded longer_character(unsigned char first, const char* rest) {
    auto [count, low, high] = following(first);
    if (count == 0) return {kReplacement, rest};
    char32_t code = first & (0x3Fu >> count);
    for (; count > 0; --count) {
        const auto next = static_cast<unsigned char>(*rest);
        if (next < low || next > high) return {kReplacement, rest};
        code = code << 6 | (next & 0x3Fu);
        ++rest;
        low = 0x80;
        high = 0xBF;
    }
    return {code, rest};
}

bool is_hidden_mark(char32_t code) {
    // Most characters are among the first ranges, or between them.
    for (const Codes& range : kHidden) {
        if (code <= range.last) return code >= range.first;
    }
    return false;
}

}  // namespace kit
