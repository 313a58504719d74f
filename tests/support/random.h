// Random numbers that are the same everywhere: SplitMix64 (Steele, Lea, Flood, OOPSLA 2014).
#pragma once

#include <cstdint>

namespace orvel_test {

class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next() {
        std::uint64_t z = state_ += 0x9E3779B97F4A7C15u;
        z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9u;
        z = (z ^ z >> 27) * 0x94D049BB133111EBu;
        return z ^ z >> 31;
    }

    /// One of @p low ... @p high, both included.
    int between(std::int64_t low, std::int64_t high) {
        const std::uint64_t count = static_cast<std::uint64_t>(high - low) + 1;
        return static_cast<int>(low + static_cast<std::int64_t>(next() % count));
    }

    bool one_in(int count) { return between(1, count) == 1; }

private:
    std::uint64_t state_;
};

}  // namespace orvel_test
