// Pictures as the bytes of files.
#pragma once

#include <optional>
#include <string>

#include "picture.h"

namespace orvel_tools {

/// Every pixel becomes a square of @p scale pixels.
Picture scaled(const Picture& from, int scale);

/// The bytes of a file that is shown: "png", "bmp" (24 bits), "ppm" (P6), or "pbm" (P4), where what
/// is lighter than half is white. On failure, nothing, and @p error says why.
std::optional<Bytes> encoded(const Picture& picture, const std::string& format, std::string& error);

}  // namespace orvel_tools
