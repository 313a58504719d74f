// The separate process in which music and tones play.
#pragma once

#include <string>

namespace orvel {

/// What a file holds, as far as the choice of a player depends on it.
enum class Audio { wav, any };

/// Starts the platform's audio player on the file at @p path and returns its process id at once;
/// -1 when no process can be started. A player that cannot be run ends with status 127. The file is
/// looked into only when it can be @p audio of any kind.
int start_player(const std::string& path, Audio audio);

/// Reaps the player @p pid if it has ended; otherwise asks it to end and waits until it has.
void stop_player(int pid);

}  // namespace orvel
