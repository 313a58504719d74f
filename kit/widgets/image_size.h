// How large an image is, of which the library tells nothing but its pixels.
#pragma once

#include "orvel_kit.h"

namespace kit {

struct DestroyCanvas {
    void operator()(orvel_canvas* canvas) const { orvel_canvas_destroy(canvas); }
};

/// The size of what shows of the image @p name, up to 4096 pixels to a side. Rows and columns at
/// its right and its bottom that are transparent do not count.
/// @return 0; -1, and 0 x 0, where it cannot be drawn. Raises std::bad_alloc.
int image_size(const char* name, int* w, int* h);

}  // namespace kit
