#include "words/reason.h"

#include <algorithm>

namespace kit {

void tell(std::string_view text, char* why, std::size_t size) {
    if (!why || size == 0) return;
    std::size_t length = std::min(text.size(), size - 1);
    const auto is_inside = [text](std::size_t at) { return (text[at] & 0xC0) == 0x80; };
    while (length > 0 && length < text.size() && is_inside(length)) --length;
    for (std::size_t i = 0; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        why[i] = byte < ' ' || byte == 0x7F ? '?' : text[i];
    }
    why[length] = '\0';
}

}  // namespace kit
