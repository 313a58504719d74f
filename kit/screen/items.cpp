#include "screen/items.h"

#include <algorithm>

namespace kit {

int count_items(std::string_view items) {
    if (items.empty()) return 0;
    return static_cast<int>(std::count(items.begin(), items.end(), '|')) + 1;
}

std::string item_of(std::string_view items, int number) {
    if (number < 0) return "";
    for (; number > 0; --number) {
        const std::size_t bar = items.find('|');
        if (bar == std::string_view::npos) return "";
        items.remove_prefix(bar + 1);
    }
    return std::string(items.substr(0, items.find('|')));
}

}  // namespace kit
