// Replaces operator new in the test program, and with it in the library, to count allocations and
// to make one fail. Needs allocations.cpp among the sources of the test.
#pragma once

#include <cstddef>

namespace orvel_test {

/// Allocations made so far.
long allocations_made();
/// Allocations made and not yet released.
long allocations_live();

/// The most bytes asked for at once, also in vain.
std::size_t largest_allocation();
void forget_largest_allocation();

/// Asks @p fails at every allocation, which fails when that is true. It must not allocate.
void ask_before_allocating(bool (*fails)());

/// Makes one allocation fail while it lives: the next one for 1, the one after that for 2.
class FailingAllocation {
public:
    explicit FailingAllocation(long number);
    ~FailingAllocation();
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;
};

}  // namespace orvel_test
