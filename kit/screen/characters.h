// UTF-8, and what its characters are to someone who edits a text.
#pragma once

#include <cstddef>
#include <string_view>

namespace kit {

struct Character {
    char32_t code;
    std::size_t bytes;
    bool good;  // not ill-formed
};

/// The character at @p at, which is before the end. A maximal ill-formed part is one U+FFFD (The
/// Unicode Standard 15, section 3.9, table 3-7).
Character character_at(std::string_view text, std::size_t at);

/// A byte of a character behind its first.
constexpr bool is_later_byte(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// How many of the first bytes of a text, at the most so many, do not cut a character.
std::size_t whole_characters(std::string_view text, std::size_t most);

constexpr char32_t kJoiner = 0x200D;

/// What is shown with the character before it or not at all: marks, selectors, joiners, tones of
/// skin, the later parts of a Hangul syllable, controls.
bool is_mark(char32_t code);

/// A letter of the alphabet in which flags are written in pairs.
constexpr bool is_flag_letter(char32_t code) { return code >= 0x1F1E6 && code <= 0x1F1FF; }

/// What a joiner joins: arrows, signs and emoji.
bool is_picture(char32_t code);

enum class Class { Blank, Word, Sign };

/// What a step by words takes it for. Without spaces, as Chinese is written, a sentence is a word.
Class class_of(char32_t code);

}  // namespace kit
