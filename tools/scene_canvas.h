// Canvases for screens.
#pragma once

#include <memory>
#include <string>

#include "orvel_screen.h"

namespace orvel_tools {

struct DestroyCanvas {
    void operator()(orvel_canvas* canvas) const { orvel_canvas_destroy(canvas); }
};
using CanvasPtr = std::unique_ptr<orvel_canvas, DestroyCanvas>;

/// The most pixels of a scene, and of a picture in one.
constexpr long long kMostScenePixels = 16LL << 20;

/// A canvas of the screen's size; null, and why, when it is too large.
CanvasPtr canvas_for(const kit_screen* screen, std::string& error);

}  // namespace orvel_tools
