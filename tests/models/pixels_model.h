// What kit_pixels() writes, by whole pictures and plain searches.
#pragma once

#include <vector>

#include "models/canvas_model.h"
#include "orvel_kit.h"

namespace model {

/// The rows of a box that lies on the canvas, without gaps.
std::vector<std::vector<unsigned char>> pixels(const Canvas& canvas, kit_box box,
                                               const kit_format& format);

}  // namespace model
