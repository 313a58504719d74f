// Ranges of rows, columns, steps.
#pragma once

#include <algorithm>
#include <cstdint>

namespace orvel {

/// The numbers from @p first on, @p end excluded.
struct Span {
    std::int64_t first, end;

    constexpr bool empty() const { return first >= end; }
    constexpr std::int64_t count() const { return end - first; }
};

/// What of @p span lies in [0, @p size).
constexpr Span visible(Span span, std::int64_t size) {
    return {std::max<std::int64_t>(span.first, 0), std::min(span.end, size)};
}

}  // namespace orvel
