// JSON as a tree of values that know where they stand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kit {

/// Where something stands in a file: counted from 1, columns in characters. Line 0 is nowhere.
struct Place {
    int line = 0, column = 0;
};

enum class Kind { Null, Boolean, Number, String, List, Object };

/// "a number", for reasons.
const char* name_of(Kind kind);

struct Value {
    Kind kind = Kind::Null;
    bool truth = false;                 // of a boolean
    std::string text;                   // of a string; of a number as it was written
    double number = 0;                  // of a number
    std::vector<Value> items;           // of a list; the members of an object in their order
    Place place;                        // of its first character
    std::string key;                    // of a member
    Place key_place;                    // of the key's first quote
    std::vector<std::uint32_t> sorted;  // of an object: which of its members, by their keys

    /// The member @p name of an object; null where there is none, and of other kinds.
    const Value* find(std::string_view name) const;
    Value* find(std::string_view name);

    /// The member @p name of an object, made with null as its value where there was none. Members
    /// that were found before may have moved.
    Value& member(std::string_view name);
};

/// A string.
Value text_value(std::string text);

constexpr std::size_t kMostBytes = std::size_t{16} << 20;  // of a file
constexpr int kMostDepth = 64;                             // of lists and objects in each other
constexpr int kMostValues = 250000;                        // of a file
constexpr int kMostDigits = 400;                           // characters that write a number

/**
 * Reads JSON (RFC 8259) in UTF-8. Refused are: a key that an object has twice, a character U+0000,
 * numbers beyond double's range, and what is beyond the bounds above. Throws nothing but
 * std::bad_alloc and std::length_error.
 *
 * @return whether it could be read; if not, @p why is one line, "FILE:LINE:COLUMN: found ...,
 *         expected ...", and @p root holds anything.
 */
bool read_document(std::string_view text, std::string_view file, Value& root, std::string& why);

/// "FILE:LINE:COLUMN: what".
std::string reason(std::string_view file, Place place, std::string_view what);

/// The value as JSON on one line; numbers as they were written.
std::string write_json(const Value& value);

/// A text in quotes for a reason: on one line, cut to 40 bytes.
std::string in_quotes(std::string_view text);

/// That of @p known which @p word was probably meant to be; empty when none is near.
std::string_view nearest(std::string_view word, const std::vector<std::string_view>& known);

/// "; did you mean "row"?", or nothing when none of @p known is near.
std::string did_you_mean(std::string_view word, const std::vector<std::string_view>& known);

}  // namespace kit
