// Keys that use a control from anywhere on the screen.
#pragma once

#include <string_view>

namespace kit {

struct Shortcut {
    int key = 0;  // a kit_key or a character; 0: none
    unsigned modifiers = 0;

    bool operator==(const Shortcut&) const = default;
};

/// "f5", "ctrl+s", "ctrl+alt+shift+pageup"; without a key where it is none of these.
Shortcut read_shortcut(std::string_view text);

}  // namespace kit
