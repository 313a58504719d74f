// Compares pairs of pictures, many at a time.
#pragma once

#include <string>
#include <vector>

#include "compare/difference.h"
#include "compare/masks.h"
#include "compare/pairs.h"
#include "picture.h"

namespace orvel_tools {

enum class Outcome { equal, different, missing, unexpected, unreadable };

struct Result {
    Pair pair;
    Outcome outcome = Outcome::equal;
    Difference difference;    // of equal and different ones
    std::vector<Mask> masks;  // those for this picture
    std::string reason;       // why it is unreadable: a line that names the file
};

struct Comparison {
    std::string expected, actual;  // as they were given
    bool folders = false;
    std::vector<Result> results;
    std::vector<std::string> trouble;  // beside unreadable pictures

    int count(Outcome outcome) const;
    /// What the program ends with: 0 when all is equal, 1 when something differs, 2 on trouble.
    int status() const;
};

/// Compares all of @p pairs. A picture that both sides hold byte for byte is read once.
Comparison compare(const Pairs& pairs, const std::vector<Mask>& masks);

/// What the report calls the outcome, in one word.
const char* word_for(Outcome outcome);

/// What there is to say of a result, in one line without its name.
std::string sentence(const Result& result);

/// How many pictures there are of each outcome, in one line.
std::string summary(const Comparison& comparison);

}  // namespace orvel_tools
