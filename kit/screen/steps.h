// The numbers that a slider, a stepper or a rating can have, counted in units so that no decimal is
// lost.
#pragma once

#include <optional>
#include <string>

#include "screen/node.h"

namespace kit {

class Steps {
public:
    /// That of a node's range; none where it needs more than 9 decimals or 13 digits.
    static std::optional<Steps> of(const Node& node);

    /// The number so many steps further, from one between two steps to the next of them.
    std::string moved(const std::string& number, long long steps) const;
    /// The number of a step at @p part of @p whole of the range.
    std::string at(long long part, long long whole) const;
    std::string lowest() const { return text(low_); }
    std::string highest() const { return text(low_ + count_ * step_); }
    /// As many steps as a Page key takes: a tenth of the range, or ten where the number may be any.
    long long page() const { return page_; }

private:
    std::string text(long long units) const;

    int decimals_ = 0;
    long long low_ = 0, high_ = 0, step_ = 1, count_ = 0, page_ = 10;
};

}  // namespace kit
