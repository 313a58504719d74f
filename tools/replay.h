// A recorded session played without a window.
#pragma once

#include <functional>
#include <string>

#include "orvel_screen.h"

namespace orvel_tools {

/// What a replay leaves behind.
struct Replayed {
    std::string changes;  // a line of JSON for each
    std::string error;    // empty when all went well
};

/// Takes the picture that the session marks by @p name; false, and why, when it cannot.
using TakePicture =
    std::function<bool(const std::string& name, const orvel_canvas* canvas, std::string& error)>;

/// Plays the session @p file on the screen, which is borrowed.
Replayed replay(kit_screen* screen, const std::string& file, const TakePicture& take);

}  // namespace orvel_tools
