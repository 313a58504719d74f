// What a theme file says, seen with the eyes of orvel_theme_load(), and how readable its colours
// are.
#pragma once

#include <string>
#include <vector>

#include "orvel.h"

namespace orvel_tools {

/// Something in a theme file that orvel_theme_load() accepts without a word.
struct Finding {
    int line;  // counted from 1; 0 for a key that is nowhere
    std::string key, message;
};

/// Everything that is wrong with the nine keys in @p text, in the order of the keys.
std::vector<Finding> check_theme(const std::string& text);

/// Two colours of a theme, one of which the library draws words in on top of the other.
struct Pair {
    const char* name;
    orvel_color orvel_theme::*text;
    orvel_color orvel_theme::*ground;
    const char* where;  // what is drawn so
};

/// All such pairs, and that of `error`, which is there for the host's own words.
const std::vector<Pair>& text_pairs();

/// The contrast ratio of the Web Content Accessibility Guidelines: 1 (none) to 21. Words want 4.5.
double contrast(orvel_color a, orvel_color b);

}  // namespace orvel_tools
