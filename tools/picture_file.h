// Pictures as the bytes of files.
#pragma once

#include <optional>
#include <string>

#include "picture.h"

namespace orvel_tools {

/// Every pixel becomes a square of @p scale pixels.
Picture scaled(const Picture& from, int scale);

/// The bytes of a file: "png", "bmp" (24 bits), "ppm" (P6), or "pbm" (P4), where what is lighter
/// than half is white. On failure, nothing, and @p error says why.
std::optional<std::string> encoded(const Picture& picture, const std::string& format,
                                   std::string& error);

/// A PNG file, or a BMP file of the library, of at most 16 million pixels. On failure, @p error
/// says why in one line that names the file.
std::optional<Picture> read_picture(const std::string& path, std::string& error);

}  // namespace orvel_tools
