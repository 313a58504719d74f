// Reasons, in the caller's buffer.
#pragma once

#include <cstddef>
#include <string_view>

namespace kit {

/// Writes @p text as one line, cut between two characters and zero-terminated; what is no
/// printable character of ASCII and none of UTF-8 shows as a question mark.
void tell(std::string_view text, char* why, std::size_t size);

}  // namespace kit
