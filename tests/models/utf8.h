// A character as UTF-8, by the definition.
#pragma once

#include <string>

namespace model {

/// A scalar value as UTF-8.
inline std::string utf8(char32_t code) {
    const auto tail = [code](int shift) {
        return static_cast<char>(0x80 | (code >> shift & 0x3F));
    };
    const auto head = [code](int mark, int shift) {
        return static_cast<char>(mark | static_cast<int>(code >> shift));
    };
    if (code < 0x80) return {head(0, 0)};
    if (code < 0x800) return {head(0xC0, 6), tail(0)};
    if (code < 0x10000) return {head(0xE0, 12), tail(6), tail(0)};
    return {head(0xF0, 18), tail(12), tail(6), tail(0)};
}

}  // namespace model
