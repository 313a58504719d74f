// Files as bytes. The name "-" stands for the standard input and the standard output.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel_tools {

using Bytes = std::vector<unsigned char>;

/// The most that is read of any file: pictures and texts from anywhere end here, not the memory.
constexpr std::size_t kMostBytes = std::size_t(1) << 29;

/// Reads a file; of one that is longer than kMostBytes only a little more than these, and of one
/// whose start is not @p wanted only that. On failure, @p error says why in one line that names the
/// file.
std::optional<Bytes> read_bytes(const std::string& path, std::string& error,
                                bool (*wanted)(const Bytes& start) = nullptr);

/// The same in place of what @p bytes held.
bool read_bytes(const std::string& path, Bytes& bytes, std::string& error,
                bool (*wanted)(const Bytes& start) = nullptr);

/// Writes a file over whatever is there. On failure, returns false and says why in @p error.
bool write_bytes(const std::string& path, std::string_view bytes, std::string& error);
bool write_bytes(const std::string& path, const Bytes& bytes, std::string& error);

/// What messages call the file @p path.
std::string shown_path(const std::string& path, const char* standard_stream);

}  // namespace orvel_tools
