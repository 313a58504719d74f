// How large a screen is shown: every pixel as a square of whole pixels.
#pragma once

#include "orvel_kit.h"

namespace orvel_tools {

struct Sides {
    int w = 0, h = 0;
};

/// By which factor a screen is shown at first: @p density, the display's pixels for each of a
/// window's, and twice that on a display of more than 1920 x 1200 pixels that it still fits on.
int first_zoom(Sides screen, Sides display, int density);

/// The largest factor by which @p screen fits in the window, at least 1.
int largest_zoom(Sides screen, Sides window);

/// The screen that fills the window at this factor, no smaller than @p smallest.
Sides screen_filling(Sides window, int zoom, Sides smallest);

/// Where the screen lies in the window: in its middle, and at its top left where it is too large.
kit_box place_in(Sides window, Sides screen, int zoom);

/// The pixel of the screen, which may lie outside of it, at a place in the window.
int pixel_at(int place, int start, int zoom);

}  // namespace orvel_tools
