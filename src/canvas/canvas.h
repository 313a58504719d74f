// The canvas record and the only ways into its pixels.
#pragma once

#include <cstdint>
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
void fill_run(orvel_color* first, std::int64_t count, orvel_color color);

/// Fills the columns [@p from, @p to) of the row @p y, which must be inside, as far as they are.
inline void fill_span(const orvel_canvas& canvas, std::int64_t from, std::int64_t to,
                      std::int64_t y, orvel_color color) {
    if (from < 0) from = 0;
    if (to > canvas.width) to = canvas.width;
    if (from < to) fill_run(pixel_at(canvas, from, y), to - from, color);
}

}  // namespace orvel
