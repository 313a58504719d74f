// Fonts on disk.
#pragma once

#include <string>

namespace kit {

/// Reads the file at @p path, of which @p most bytes and one more at the most. Never waits for the
/// other end of a FIFO. False when it cannot be read; raises std::bad_alloc.
bool read_font_file(const char* path, std::size_t most, std::string& bytes);

}  // namespace kit
