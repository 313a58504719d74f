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
    return (x | y) >= 0 && x < canvas.width && y < canvas.height;
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

/// Stores @p word in @p count pixels from @p first on, with the widest stores that the processor
/// has: wmemset picks them at run time. It pays for its call from some 24 pixels on, and for runs
/// of ever other lengths, since it avoids the branch misprediction at the end of a loop.
inline void fill_any_run(orvel_color* first, std::int64_t count, std::uint32_t word) {
    static_assert(sizeof(wchar_t) == sizeof word && sizeof(orvel_color) == sizeof word);
    std::wmemset(reinterpret_cast<wchar_t*>(first), static_cast<wchar_t>(word),
                 static_cast<std::size_t>(count));
}

/// Stores @p color in @p count pixels, at least one, from @p first on; faster for short runs of one
/// length.
inline void fill_run(orvel_color* first, std::int64_t count, orvel_color color) {
    constexpr std::int64_t kShort = 24;
    const std::uint32_t word = word_of(color);
    if (count > kShort) {
        fill_any_run(first, count, word);
    } else if (count >= 4) {
        // Fours; the last ones may overlap those before them.
        const std::uint32_t four[4] = {word, word, word, word};
        for (std::int64_t i = 0; i < count - 4; i += 4) std::memcpy(first + i, four, sizeof four);
        std::memcpy(first + count - 4, four, sizeof four);
    } else if (count > 1) {
        const std::uint64_t pair = word * 0x1'0000'0001u;
        std::memcpy(first, &pair, sizeof pair);
        std::memcpy(first + count - 2, &pair, sizeof pair);
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
