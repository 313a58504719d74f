// A text of all bytes that a text can hold.
#pragma once

#include <string>

namespace orvel_test {

/// 1 to 255 in order: the newline, the separator of captions and what is no character anywhere.
inline std::string every_byte() {
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
    return bytes;
}

}  // namespace orvel_test
