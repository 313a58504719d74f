// What kit_copy() and kit_stamp() do, pixel by pixel from a copy of the whole source.
#pragma once

#include "models/canvas_model.h"
#include "orvel_kit.h"

namespace model {

inline void copy(Canvas& to, int x, int y, const Canvas& from, const kit_box* part,
                 bool clear_ones) {
    const Canvas source = from;
    const kit_box box = part ? *part : kit_box{0, 0, from.width, from.height};
    for (int row = 0; row < source.height; ++row) {
        for (int column = 0; column < source.width; ++column) {
            const std::int64_t right = std::int64_t{column} - box.x;
            const std::int64_t down = std::int64_t{row} - box.y;
            const bool in_box = right >= 0 && right < box.w && down >= 0 && down < box.h;
            const orvel_color color = source.at(column, row);
            if (in_box && (clear_ones || color.a != 0)) to.put(x + right, y + down, color);
        }
    }
}

}  // namespace model
