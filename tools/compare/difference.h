// What two pictures have against each other, and how it looks.
#pragma once

#include "compare/masks.h"
#include "picture.h"

namespace orvel_tools {

/// Counted over the pixels that both pictures have. Masked pixels count apart.
struct Difference {
    int width = 0, height = 0, actual_width = 0, actual_height = 0;
    long long count = 0;
    Box box;                  // around all differing pixels
    int steps = 0;            // the most that any channel differs by
    bool alpha_only = false;  // no differing pixel differs in red, green or blue
    long long masked = 0, masked_differing = 0;

    bool sizes_differ() const { return width != actual_width || height != actual_height; }
    bool found() const { return count > 0 || sizes_differ(); }
};

Difference difference(const Picture& expected, const Picture& actual,
                      const std::vector<Mask>& masks);

/// Differing pixels red on the faded expected picture, masked ones darker with a pattern. What only
/// one of two sizes covers is shown as it is, with stripes: the expected picture's rise to the
/// right, the actual one's fall. What neither covers is white.
Picture drawn_difference(const Picture& expected, const Picture& actual,
                         const std::vector<Mask>& masks);

}  // namespace orvel_tools
