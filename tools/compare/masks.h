// Rectangles of pictures in which pixels may differ, each with a reason.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "picture.h"

namespace orvel_tools {

struct Box {
    int left = 0, top = 0, width = 0, height = 0;
};

/// A line of a file of masks: PATTERN LEFT TOP WIDTH HEIGHT REASON. The pattern stands for whole
/// names of pictures: ? for a byte, * for any but slashes, ** for any. In quotes it may hold
/// blanks, and \" and \\.
struct Mask {
    std::string pattern;
    Box box;
    std::string reason;
    int line = 0;
};

/// The masks in a file's @p text, where # starts a line that is none. On failure, returns false;
/// @p error is the line and what is wrong with it.
bool read_masks(std::string_view text, std::vector<Mask>& masks, std::string& error);

bool fits(std::string_view pattern, std::string_view name);

/// Those of @p masks that are for the picture @p name.
std::vector<Mask> masks_for(const std::string& name, const std::vector<Mask>& masks);

}  // namespace orvel_tools
