// The lines of a font and the words in them.
#pragma once

#include <cstddef>
#include <string_view>

namespace kit {

/// A line: its first word and what follows that, without spaces around.
struct FontLine {
    std::string_view keyword;
    std::string_view rest;

    /// Reads whole numbers from the start of the rest. How many there are, @p count at most.
    int numbers(int* to, int count) const;

    /// The rest, without the quotation marks around it.
    std::string_view text() const;
};

/// The lines of a text, which may end as on any system; nothing is copied.
class FontLines {
public:
    explicit FontLines(std::string_view text) : text_(text) {}

    bool next(FontLine& line);
    int number() const { return number_; }             ///< of the last line, counted from 1
    std::size_t left() const { return text_.size(); }  ///< how many bytes follow that line

private:
    std::string_view text_;
    int number_ = 0;
};

}  // namespace kit
