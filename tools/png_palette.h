// The colours of a picture that has few: screens mostly do, and files of them are then small.
#pragma once

#include <array>
#include <cstdint>

#include "picture.h"

namespace orvel_tools {

/// Up to 256 colours, in the order in which a picture shows them first.
struct Palette {
    int size = 0;  // 0 when there are more than 256
    bool opaque = true;
    std::array<orvel_color, 256> colors = {};

    /// The number of each pixel's colour.
    Bytes indices(const Picture& picture) const;
};

Palette palette_of(const Picture& picture);

}  // namespace orvel_tools
