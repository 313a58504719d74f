#include "words/items.h"

#include <algorithm>
#include <climits>
#include <cstddef>

namespace kit {

int items_in(std::string_view text) {
    const auto bars = std::count(text.begin(), text.end(), '|');
    return static_cast<int>(std::min<std::ptrdiff_t>(bars, INT_MAX - 1)) + 1;
}

std::string next_item(std::string_view* text) {
    const std::size_t bar = std::min(text->find('|'), text->size());
    std::string item(text->substr(0, bar));
    text->remove_prefix(std::min(bar + 1, text->size()));
    return item;
}

}  // namespace kit
