#include <emmintrin.h>

#include "canvas/canvas.h"

namespace orvel {
namespace {

/// From so many pixels on, 24 MB, most caches do not hold a run. They are left to its end.
constexpr std::int64_t kEndless = 6 << 20;
constexpr std::int64_t kEnd = 3 << 20;

/// Stores past the caches, and returns where it ended.
orvel_color* fill_memory(orvel_color* first, std::int64_t count, std::uint32_t word) {
    orvel_color* const end = first + count;
    const __m128i four = _mm_set1_epi32(static_cast<int>(word));
    while (reinterpret_cast<std::uintptr_t>(first) % sizeof four != 0) store(first++, word);
    for (; end - first >= 4; first += 4) _mm_stream_si128(reinterpret_cast<__m128i*>(first), four);
    _mm_sfence();
    return first;
}

}  // namespace

void fill_long_run(orvel_color* first, std::int64_t count, std::uint32_t word) {
    if (count >= kEndless) {
        orvel_color* const end = first + count;
        first = fill_memory(first, count - kEnd, word);
        count = end - first;
    }
    // Unlike single stores, the processor's own loop does not fetch first what it overwrites.
    if (count % 2 != 0) store(first + --count, word);
    const std::uint64_t pair = word * 0x1'0000'0001u;
    std::int64_t pairs = count / 2;
    __asm__ volatile("rep stosq" : "+D"(first), "+c"(pairs) : "a"(pair) : "memory");
}

}  // namespace orvel
