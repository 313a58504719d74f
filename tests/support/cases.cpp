#include "support/cases.h"

#include <cstdlib>

namespace orvel_test {
namespace {

constexpr const char* kCase = "ORVEL_SWEEP_CASE";

}  // namespace

std::uint64_t number_from(const char* variable, std::uint64_t otherwise) {
    const char* const value = std::getenv(variable);
    return value ? std::strtoull(value, nullptr, 10) : otherwise;
}

bool is_replay() { return std::getenv(kCase) != nullptr; }

Cases cases(std::uint64_t count) {
    const std::uint64_t only = number_from(kCase, 0);
    return is_replay() ? Cases(only, only + 1) : Cases(0, count);
}

}  // namespace orvel_test
