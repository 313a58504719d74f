// PNG files in memory, by libpng.
#pragma once

#include <string>

#include "picture.h"

namespace orvel_tools {

bool is_png(const Bytes& bytes);

/// Reads @p bytes into @p picture; returns why it cannot, or nothing.
std::string decode_png(const Bytes& bytes, Picture& picture);

/// Makes @p bytes a PNG file of @p picture; returns why it cannot, or nothing.
std::string encode_png(const Picture& picture, Bytes& bytes);

}  // namespace orvel_tools
