#include "scene_canvas.h"

namespace orvel_tools {

CanvasPtr canvas_for(const kit_screen* screen, std::string& error) {
    int width = 0, height = 0;
    kit_screen_size(screen, &width, &height);
    if (static_cast<long long>(width) * height > kMostScenePixels) {
        error = "a screen of " + std::to_string(width) + " x " + std::to_string(height) +
                " pixels is too large: 16 million are the most";
        return nullptr;
    }
    CanvasPtr canvas(kit_canvas(width, height));
    if (!canvas) error = "the memory is too small for the picture";
    return canvas;
}

}  // namespace orvel_tools
