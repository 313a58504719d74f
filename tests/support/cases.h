// The numbered cases of a sweep. ORVEL_SWEEP_CASE=n replays one of them alone, and
// ORVEL_SWEEP_PERCENT=n runs so many of them instead of 100 in a hundred.
#pragma once

#include <cstdint>

namespace orvel_test {

class Cases {
public:
    class Iterator {
    public:
        explicit Iterator(std::uint64_t number) : number_(number) {}
        std::uint64_t operator*() const { return number_; }
        Iterator& operator++() {
            ++number_;
            return *this;
        }
        bool operator!=(const Iterator& other) const { return number_ != other.number_; }

    private:
        std::uint64_t number_;
    };

    Cases(std::uint64_t first, std::uint64_t last) : first_(first), last_(last) {}
    Iterator begin() const { return Iterator(first_); }
    Iterator end() const { return Iterator(last_); }

private:
    std::uint64_t first_, last_;
};

/// Whether one case alone is asked for.
bool is_replay();

/// 0 ... @p count - 1, or only the case that is to be replayed.
Cases cases(std::uint64_t count);

/// The same for cases of which any number will do: as many as ORVEL_SWEEP_PERCENT makes of @p
/// count.
Cases some_cases(std::uint64_t count);

}  // namespace orvel_test
