// The canvas record and the only ways into its pixels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <memory>

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

/// Stores @p color in @p count pixels from @p first on.
inline void fill_run(orvel_color* first, std::int64_t count, orvel_color color) {
    static_assert(sizeof(wchar_t) == sizeof color && sizeof color == 4);
    constexpr std::int64_t kShort = 24;
    std::uint32_t word;
    std::memcpy(&word, &color, sizeof word);
    if (count > kShort) {
        // It picks the processor's widest stores at run time, which pays for its call.
        std::wmemset(reinterpret_cast<wchar_t*>(first), static_cast<wchar_t>(word),
                     static_cast<std::size_t>(count));
    } else if (count > 1) {
        // Pairs; the last one may overlap that before it.
        const std::uint64_t pair = word * 0x1'0000'0001u;
        for (std::int64_t i = 0; i < count - 2; i += 2) std::memcpy(first + i, &pair, sizeof pair);
        std::memcpy(first + count - 2, &pair, sizeof pair);
    } else if (count == 1) {
        *first = color;
    }
}

/// Fills the columns [@p from, @p to) of the row @p y, which must be inside, as far as they are.
inline void fill_span(const orvel_canvas& canvas, std::int64_t from, std::int64_t to,
                      std::int64_t y, orvel_color color) {
    if (from < 0) from = 0;
    if (to > canvas.width) to = canvas.width;
    if (from < to) fill_run(pixel_at(canvas, from, y), to - from, color);
}

}  // namespace orvel
