// BMP files of the library: 24 bits a pixel, or 32 with 255 in the compression field.
#pragma once

#include <string>

#include "picture.h"

namespace orvel_tools {

bool is_bmp(const Bytes& bytes);

/// Reads @p bytes into @p picture; returns why it cannot, or nothing.
std::string decode_bmp(const Bytes& bytes, Picture& picture);

}  // namespace orvel_tools
