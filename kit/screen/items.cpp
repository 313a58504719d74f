#include "screen/items.h"

#include <algorithm>

namespace kit {

int count_items(std::string_view items) {
    if (items.empty()) return 0;
    return static_cast<int>(std::count(items.begin(), items.end(), '|')) + 1;
}

std::string_view take_item(std::string_view& items) {
    const std::string_view item = items.substr(0, items.find('|'));
    items.remove_prefix(std::min(item.size() + 1, items.size()));
    return item;
}

std::string item_of(std::string_view items, int number) {
    if (!has_item(items, number)) return "";
    for (; number > 0; --number) take_item(items);
    return std::string(take_item(items));
}

}  // namespace kit
