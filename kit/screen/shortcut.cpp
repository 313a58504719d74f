#include "screen/shortcut.h"

#include "orvel_screen.h"
#include "screen/characters.h"

namespace kit {
namespace {

struct Named {
    std::string_view name;
    int key;
};

constexpr Named kNamed[] = {
    {"space", ' '},
    {"enter", KIT_KEY_ENTER},
    {"tab", KIT_KEY_TAB},
    {"escape", KIT_KEY_ESCAPE},
    {"backspace", KIT_KEY_BACKSPACE},
    {"delete", KIT_KEY_DELETE},
    {"left", KIT_KEY_LEFT},
    {"right", KIT_KEY_RIGHT},
    {"up", KIT_KEY_UP},
    {"down", KIT_KEY_DOWN},
    {"home", KIT_KEY_HOME},
    {"end", KIT_KEY_END},
    {"pageup", KIT_KEY_PAGE_UP},
    {"pagedown", KIT_KEY_PAGE_DOWN},
    {"f1", KIT_KEY_F1},
    {"f2", KIT_KEY_F2},
    {"f3", KIT_KEY_F3},
    {"f4", KIT_KEY_F4},
    {"f5", KIT_KEY_F5},
    {"f6", KIT_KEY_F6},
    {"f7", KIT_KEY_F7},
    {"f8", KIT_KEY_F8},
    {"f9", KIT_KEY_F9},
    {"f10", KIT_KEY_F10},
    {"f11", KIT_KEY_F11},
    {"f12", KIT_KEY_F12},
};

/// Whether @p text begins with @p word, which it is then taken from.
bool take(std::string_view& text, std::string_view word) {
    if (text.substr(0, word.size()) != word) return false;
    text.remove_prefix(word.size());
    return true;
}

int key_of(std::string_view text) {
    for (const Named& one : kNamed) {
        if (one.name == text) return one.key;
    }
    const int character = only_character(text);
    const bool capital = small_key(character) != character;
    return character <= ' ' || character == 0x7F || capital ? 0 : character;
}

}  // namespace

int only_character(std::string_view text) {
    if (text.empty()) return 0;
    const Character only = character_at(text, 0);
    return only.bytes == text.size() ? static_cast<int>(only.code) : 0;
}

Shortcut read_shortcut(std::string_view text) {
    Shortcut shortcut;
    if (take(text, "ctrl+")) shortcut.modifiers |= KIT_MOD_CONTROL;
    if (take(text, "alt+")) shortcut.modifiers |= KIT_MOD_ALT;
    if (take(text, "shift+")) shortcut.modifiers |= KIT_MOD_SHIFT;
    shortcut.key = key_of(text);
    return shortcut;
}

bool types(const Shortcut& shortcut, std::string_view text) {
    const int character = only_character(text);
    if (shortcut.key == 0 || character == 0) return false;
    return shortcut.modifiers != 0 || small_key(character) == shortcut.key;
}

}  // namespace kit
