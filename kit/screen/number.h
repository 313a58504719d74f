// Numbers as the text that writes them, in JSON's way: digits are counted, nothing is converted.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kit {

/// The characters at the start of @p text that write a number; 0 when none does.
std::size_t number_length(std::string_view text);

/// Whether @p text is a number and nothing else, of at most 400 characters and below 1e309.
bool is_number(std::string_view text);

/// A number, as is_number() knows it, with so many decimals (0 to 9), rounded half away from zero.
/// Never "-0".
std::string rounded(std::string_view number, int decimals);

/// Less than 0, 0 or more than 0, as the number @p a is less than, equal to or more than @p b.
int compare_numbers(std::string_view a, std::string_view b);

/// How many decimals a number needs.
int decimals_of(std::string_view number);

/// A number in units of its last decimal of so many. False where it needs more of them, or would be
/// more than @p most units, which is below 10 to the power of 18.
bool count_units(std::string_view number, int decimals, long long most, long long& units);

}  // namespace kit
