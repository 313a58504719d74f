// Captions joined with "|": of tabs, of menus, of the places of a chart.
#pragma once

#include <string>
#include <string_view>

namespace kit {

/// How many items @p text has: the pieces between the bytes '|'.
int items_in(std::string_view text);

/// Takes the next item off the front of @p text.
std::string next_item(std::string_view* text);

}  // namespace kit
