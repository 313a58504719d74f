// The canvas record, and how drawing reaches its pixels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <memory>

#include "core/span.h"
#include "orvel.h"

struct orvel_canvas {
    std::int32_t width;
    std::int32_t height;
    std::unique_ptr<orvel_color[]> pixels;  // row by row from the top, width * height entries
};

namespace orvel {

inline bool inside(const orvel_canvas& canvas, int x, int y) {
    // Negative ones are large numbers without a sign.
    return static_cast<unsigned>(x) < static_cast<unsigned>(canvas.width) &&
           static_cast<unsigned>(y) < static_cast<unsigned>(canvas.height);
}

/// The pixel (x, y), which must be inside.
inline orvel_color* pixel_at(const orvel_canvas& canvas, std::int64_t x, std::int64_t y) {
    return canvas.pixels.get() + y * canvas.width + x;
}

inline std::uint32_t word_of(orvel_color color) {
    std::uint32_t word;
    std::memcpy(&word, &color, sizeof word);
    return word;
}

inline void store(orvel_color* pixel, std::uint32_t word) {
    std::memcpy(pixel, &word, sizeof word);
}

/// A pixel with its first and third byte, red and blue, exchanged: as BMP files have them.
inline std::uint32_t exchanged(std::uint32_t pixel) {
    const std::uint32_t ends = pixel & word_of({255, 0, 255, 0});
    return (pixel ^ ends) | ends << 16 | ends >> 16;
}

/// Stores @p word in @p count pixels from @p first on, with the widest stores that the processor
/// has: wmemset picks them at run time. It pays for its call from some 24 pixels on, and for runs
/// of ever other lengths, since it avoids the branch misprediction at the end of a loop.
inline void fill_any_run(orvel_color* first, std::int64_t count, std::uint32_t word) {
    static_assert(sizeof(wchar_t) == sizeof word && sizeof(orvel_color) == sizeof word);
    std::wmemset(reinterpret_cast<wchar_t*>(first), static_cast<wchar_t>(word),
                 static_cast<std::size_t>(count));
}

/// From so many pixels on, the nearer caches do not hold a run.
constexpr std::int64_t kLongRun = 1 << 18;

/// Does the same as fill_any_run(), faster for long runs where the processor has something for
/// them.
void fill_long_run(orvel_color* first, std::int64_t count, std::uint32_t word);

/// Four pixels of one colour, in a register.
using Four [[gnu::vector_size(16)]] = std::uint32_t;

/// Stores @p four at both ends of what is left of a run, fours that may overlap.
inline void store_ends(orvel_color* first, orvel_color* end, const Four& four) {
    std::memcpy(first, &four, sizeof four);
    std::memcpy(end - 4, &four, sizeof four);
}

/// Stores @p color in @p count pixels, at least one, from @p first on; faster for short runs.
inline void fill_run(orvel_color* first, std::int64_t count, orvel_color color) {
    constexpr std::int64_t kShort = 24;
    const std::uint32_t word = word_of(color);
    orvel_color* const end = first + count;
    if (count > kShort) {
        fill_any_run(first, count, word);
    } else if (count >= 4) {
        const Four four = {word, word, word, word};
        store_ends(first, end, four);
        if (count > 8) store_ends(first + 4, end - 4, four);
        if (count > 16) store_ends(first + 8, end - 8, four);
    } else if (count > 1) {
        const std::uint64_t pair = word * 0x1'0000'0001u;
        std::memcpy(first, &pair, sizeof pair);
        std::memcpy(end - 2, &pair, sizeof pair);
    } else {
        *first = color;
    }
}

/// Fills @p columns of the row @p y, which must be inside, as far as they are.
inline void fill_span(const orvel_canvas& canvas, Span columns, std::int64_t y, orvel_color color) {
    columns = visible(columns, canvas.width);
    if (!columns.empty()) fill_run(pixel_at(canvas, columns.first, y), columns.count(), color);
}

}  // namespace orvel
