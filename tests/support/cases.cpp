#include "support/cases.h"

#include <algorithm>
#include <cstdlib>

namespace orvel_test {
namespace {

constexpr const char* kCase = "ORVEL_SWEEP_CASE";

/// The number in an environment variable; @p otherwise when it is not set, and 0 for what is none.
std::uint64_t number_from(const char* variable, std::uint64_t otherwise) {
    const char* const value = std::getenv(variable);
    return value ? std::strtoull(value, nullptr, 10) : otherwise;
}

}  // namespace

bool is_replay() { return std::getenv(kCase) != nullptr; }

Cases cases(std::uint64_t count) {
    const std::uint64_t only = number_from(kCase, 0);
    return is_replay() ? Cases(only, only + 1) : Cases(0, count);
}

Cases some_cases(std::uint64_t count) {
    return cases(std::max<std::uint64_t>(count * number_from("ORVEL_SWEEP_PERCENT", 100) / 100, 1));
}

}  // namespace orvel_test
