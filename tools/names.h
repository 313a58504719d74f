// File names as people and other programs are to see them: a name is bytes, of any kind but zero.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvel_tools {

/// One line of valid UTF-8: control characters as \n or \x1b, bytes that are no UTF-8 as \xff, and
/// a backslash as two.
std::string shown_name(std::string_view name);

/// @p text, which is UTF-8 without control characters, for HTML and XML, attributes included.
std::string escaped_markup(std::string_view text);

/// @p text, which is UTF-8 without control characters, as a string of JSON, quotes included.
std::string quoted_json(std::string_view text);

}  // namespace orvel_tools
