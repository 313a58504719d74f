// Whether a node is there: one name, or one compared with one literal.
#pragma once

#include <string>
#include <string_view>

#include "screen/data.h"

namespace kit {

/// `battery`, `!battery`, `battery < 20`, `sky == 'Fog'`.
struct Condition {
    enum Sign { Holds, Equal, Unequal, Less, LessEqual, More, MoreEqual };
    Path path;
    bool negated = false;
    Sign sign = Holds;
    Value literal;
};

/// Whether @p text is a condition; if not, @p why says what is wrong.
bool read_condition(std::string_view text, Condition& result, std::string& why);

/// What is missing is null, which equals nothing but null and is not in any order. A name alone
/// holds for all but null, false, 0, an empty text and an empty list.
bool holds(const Condition& condition, const Scope& scope);

}  // namespace kit
