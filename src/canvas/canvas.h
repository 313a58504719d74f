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

/// Stores @p color in @p count pixels from @p first on, with the widest stores that the processor
/// has: wmemset picks them at run time. It pays for its call from some 24 pixels on, and for runs
/// of ever other lengths, since it needs no loop whose end the processor would have to foresee.
inline void fill_any_run(orvel_color* first, std::int64_t count, orvel_color color) {
    static_assert(sizeof(wchar_t) == sizeof color && sizeof color == 4);
    wchar_t word;
    std::memcpy(&word, &color, sizeof word);
    std::wmemset(reinterpret_cast<wchar_t*>(first), word, static_cast<std::size_t>(count));
}

/// Does the same; faster for short runs of one length.
inline void fill_run(orvel_color* first, std::int64_t count, orvel_color color) {
    constexpr std::int64_t kShort = 24;
    if (count > kShort) return fill_any_run(first, count, color);
    if (count > 1) {
        // Pairs; the last one may overlap that before it.
        std::uint32_t word;
        std::memcpy(&word, &color, sizeof word);
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
