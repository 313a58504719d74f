// Items joined with "|": of tabs and menus, of a list to choose from.
#pragma once

#include <string>
#include <string_view>

namespace kit {

/// How many there are; none in an empty text.
int count_items(std::string_view items);

inline bool has_item(std::string_view items, int number) {
    return number >= 0 && number < count_items(items);
}

/// The first item, which is taken off.
std::string_view take_item(std::string_view& items);

/// The item with a number, counted from 0; empty where there is none.
std::string item_of(std::string_view items, int number);

}  // namespace kit
