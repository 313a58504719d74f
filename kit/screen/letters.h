// Where a caret may stand in a line, and where it goes by words.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "screen/characters.h"

namespace kit {

/*
 * A letter is what a person takes for one character: a character with the marks behind it, two
 * letters of a flag, or pictures with joiners between them. Between two letters is a place; places
 * are told in bytes. Texts are well-formed.
 */

/// The end of the letter that begins at the place @p at; the end of the text at its end.
std::size_t letter_end(std::string_view text, std::size_t at);

/// The last place before @p at, which need not be one; 0 at 0.
std::size_t place_before(std::string_view text, std::size_t at);

/// The first place that is not before @p at; the end for what is beyond it.
std::size_t place_from(std::string_view text, std::size_t at);

/// How many letters there are.
std::size_t count_letters(std::string_view text);

/// Letters of one class in a row, from one place to another. An apostrophe between two letters of a
/// word is part of it.
struct Run {
    std::size_t begin, end;
    Class what;
};

/// The run that holds the letter at @p at; at the end of the text the last one; empty without one.
Run run_at(std::string_view text, std::size_t at);

/// The end of the first run of words or signs that ends behind @p at, else the end of the text.
std::size_t word_end(std::string_view text, std::size_t at);

/// The begin of the last such run that begins before @p at, else 0.
std::size_t word_begin(std::string_view text, std::size_t at);

/// Well-formed: U+FFFD in place of what is ill-formed.
std::string well_formed(std::string_view text);

/// A text as one line, well-formed: a tab or the end of a line is a space, further controls and
/// ends of lines at the end of the text are left out.
std::string one_line(std::string_view text);

}  // namespace kit
