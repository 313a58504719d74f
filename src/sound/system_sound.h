// The system's own service for short sounds.
#pragma once

#include <string>

namespace orvel {

/// Hands the audio file at @p path to the system to be played once, and returns without waiting for
/// its end: 0 when the system took it, -1 otherwise.
int play_system_sound(const std::string& path);

}  // namespace orvel
