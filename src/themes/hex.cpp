#include "themes/hex.h"

#include <cstring>

namespace orvel {
namespace {

constexpr std::size_t kDigits = 6;

/// Without the C library's character functions: the host's locale must not change a colour.
int digit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return 0;
}

unsigned char channel(const char* digits) {
    return static_cast<unsigned char>(digit(digits[0]) * 16 + digit(digits[1]));
}

}  // namespace

orvel_color color_from_hex(const char* text) {
    if (*text == '#') ++text;
    // Deliberate: a short form such as #fff is not expanded; whatever it holds, it is white.
    if (std::strlen(text) < kDigits) return {255, 255, 255, 255};
    return {channel(text), channel(text + 2), channel(text + 4), 255};
}

}  // namespace orvel
