#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvel {

/// The captions in @p text: the pieces between the bytes '|', one more than there are of them,
/// empty ones too.
std::vector<std::string> split(std::string_view text);

}  // namespace orvel
