// What SDL2 tells, as events of a screen.
#pragma once

#include <SDL.h>

#include "session.h"
#include "view/window.h"

namespace orvel_tools {

/// Whether @p event is one for the screen, which it becomes. Its time is not set.
bool translated(const SDL_Event& event, const Window& window, SessionEvent& result);

}  // namespace orvel_tools
