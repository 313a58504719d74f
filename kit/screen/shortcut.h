// Keys that use a control from anywhere on the screen.
#pragma once

#include <string_view>

namespace kit {

/// A key without Shift or Caps Lock, by which keys are called.
constexpr int small_key(int key) { return key >= 'A' && key <= 'Z' ? key + 32 : key; }

struct Shortcut {
    int key = 0;  // a kit_key or a character; 0: none
    unsigned modifiers = 0;

    bool operator==(const Shortcut&) const = default;
};

/// "f5", "ctrl+s", "ctrl+alt+shift+pageup"; without a key where it is none of these.
Shortcut read_shortcut(std::string_view text);

/// The character that is all of a text; 0 where there is another number of them.
int only_character(std::string_view text);

/// Whether a text is what a shortcut without Control and Alt types: with Shift that depends on the
/// keyboard, and any one character counts.
bool types(const Shortcut& shortcut, std::string_view text);

}  // namespace kit
