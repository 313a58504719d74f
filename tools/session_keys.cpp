// Keys as people write them.
#include <cstddef>
#include <iterator>

#include "session.h"

namespace orvel_tools {
namespace {

struct Named {
    const char* name;
    int key;
};

constexpr Named kKeys[] = {
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
};

struct NamedModifier {
    const char* name;
    unsigned modifier;
};

constexpr NamedModifier kModifiers[] = {
    {"ctrl+", KIT_MOD_CONTROL},
    {"alt+", KIT_MOD_ALT},
    {"shift+", KIT_MOD_SHIFT},
};

constexpr int kFunctionKeys = 12;

unsigned byte_of(const std::string& text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

/// The number of the one character of a text that is valid UTF-8; -1 when it is not just one.
int only_character(const std::string& text) {
    if (text.empty()) return -1;
    const unsigned first = byte_of(text, 0);
    const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (text.size() != length) return -1;
    unsigned number = length == 1 ? first : first & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) number = number << 6 | (byte_of(text, i) & 0x3F);
    return static_cast<int>(number);
}

void add_byte(std::string& text, unsigned byte) { text += static_cast<char>(byte); }

std::string character(unsigned number) {
    std::string text;
    if (number < 0x80) {
        add_byte(text, number);
        return text;
    }
    const int more = number < 0x800 ? 1 : number < 0x10000 ? 2 : 3;
    add_byte(text, (0xFF00U >> (more + 1) & 0xFFU) | number >> (6 * more));
    for (int i = more - 1; i >= 0; --i) add_byte(text, 0x80U | (number >> (6 * i) & 0x3FU));
    return text;
}

int key_called(const std::string& name) {
    for (const Named& known : kKeys) {
        if (name == known.name) return known.key;
    }
    for (int i = 0; i < kFunctionKeys; ++i) {
        if (name == "f" + std::to_string(i + 1)) return KIT_KEY_F1 + i;
    }
    const int number = only_character(name);
    const bool capital = number >= 'A' && number <= 'Z';  // keys are called without shift
    return number > ' ' && number != 0x7F && !capital ? number : -1;
}

std::string name_of(int key) {
    for (const Named& known : kKeys) {
        if (key == known.key) return known.name;
    }
    if (key >= KIT_KEY_F1 && key < KIT_KEY_F1 + kFunctionKeys) {
        return "f" + std::to_string(key - KIT_KEY_F1 + 1);
    }
    const bool surrogate = key >= 0xD800 && key < 0xE000;
    const bool shown = key > ' ' && key != 0x7F && key <= 0x10FFFF && !surrogate;
    return shown ? character(static_cast<unsigned>(key)) : "";
}

/// Takes the modifiers off the start of @p text.
unsigned taken_modifiers(std::string& text) {
    unsigned modifiers = 0;
    for (const NamedModifier& known : kModifiers) {
        const std::string name = known.name;
        if (text.compare(0, name.size(), name) != 0) continue;
        modifiers |= known.modifier;
        text.erase(0, name.size());
    }
    return modifiers;
}

}  // namespace

std::string modifiers_text(unsigned modifiers) {
    std::string text;
    for (const NamedModifier& known : kModifiers) {
        if (modifiers & known.modifier) text += known.name;
    }
    return text;
}

std::string key_text(int key, unsigned modifiers) {
    const std::string name = name_of(key);
    return name.empty() ? name : modifiers_text(modifiers) + name;
}

bool read_key(const std::string& text, int& key, unsigned& modifiers) {
    std::string rest = text;
    modifiers = taken_modifiers(rest);
    key = key_called(rest);
    return key >= 0;
}

bool read_modifiers(const std::string& text, unsigned& modifiers) {
    std::string rest = text + "+";
    modifiers = taken_modifiers(rest);
    return rest.empty();
}

}  // namespace orvel_tools
