#include "view/zoom.h"

#include <algorithm>

namespace orvel_tools {
namespace {

constexpr Sides kLarge = {1920, 1200};

}  // namespace

int largest_zoom(Sides screen, Sides window) {
    return std::max(1, std::min(window.w / screen.w, window.h / screen.h));
}

int first_zoom(Sides screen, Sides display, int density) {
    const bool large = display.w > kLarge.w && display.h > kLarge.h;
    const int wanted = std::max(1, density) * (large ? 2 : 1);
    return std::min(wanted, std::max(largest_zoom(screen, display), std::max(1, density)));
}

Sides screen_filling(Sides window, int zoom, Sides smallest) {
    constexpr int kLongest = 32767;
    return {std::clamp(window.w / zoom, smallest.w, kLongest),
            std::clamp(window.h / zoom, smallest.h, kLongest)};
}

kit_box place_in(Sides window, Sides screen, int zoom) {
    const int w = screen.w * zoom, h = screen.h * zoom;
    return {std::max(0, (window.w - w) / 2), std::max(0, (window.h - h) / 2), w, h};
}

int pixel_at(int place, int start, int zoom) {
    const int inside = place - start;
    return inside >= 0 ? inside / zoom : -((-inside + zoom - 1) / zoom);
}

}  // namespace orvel_tools
