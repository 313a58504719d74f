// Whole files in and out; "-" is the standard input or output.
#pragma once

#include <cstddef>
#include <string>

namespace orvel_tools {

/// The bytes of a file, of which there may be @p most. On failure, @p error says why in one line
/// that names the file.
bool read_all(const std::string& path, std::size_t most, std::string& bytes, std::string& error);

/// Replaces a file in one step: who reads it sees the old bytes or the new ones.
bool write_all(const std::string& path, const std::string& bytes, std::string& error);

}  // namespace orvel_tools
