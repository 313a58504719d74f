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

/// The most that is read of a scene, of its values, of a theme and of masks.
constexpr std::size_t kMostText = std::size_t(16) << 20;

/// Reads a file of at most kMostText bytes, without the byte order mark that some editors put at
/// its start; a longer one is a failure.
bool read_text(const std::string& path, std::string& text, std::string& error);

/// Replaces a file in one step: who reads it sees the old bytes or the new ones. A device, a pipe,
/// a link, or a file in a folder in which nothing new can be made is written over. On failure,
/// returns false and says why in @p error.
bool write_bytes(const std::string& path, std::string_view bytes, std::string& error);
bool write_bytes(const std::string& path, const Bytes& bytes, std::string& error);

/// What messages call the file @p path.
std::string shown_path(const std::string& path, const char* standard_stream);

}  // namespace orvel_tools
