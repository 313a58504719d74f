// PNG files in memory, by libpng.
#pragma once

#include <string>

#include "picture.h"

namespace orvel_tools {

bool is_png(const Bytes& bytes);

/// Reads @p bytes into @p picture; returns why it cannot, or nothing.
std::string decode_png(const Bytes& bytes, Picture& picture);

/// What a file is for: to be kept, as small as it can be, or to be shown, in a tenth of the time.
enum class Use { Kept, Shown };

/// Makes @p bytes a PNG file of @p picture; returns why it cannot, or nothing.
std::string encode_png(const Picture& picture, Bytes& bytes, Use use = Use::Kept);

}  // namespace orvel_tools
