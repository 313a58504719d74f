#include <cstdio>

#include "core/files.h"
#include "core/state.h"
#include "sound/player.h"
#include "sound/system_sound.h"

namespace orvel {
namespace {

int s_music_pid = -1;  // the music player's process id; -1 when none was started or it was stopped

void stop_music() {
    if (s_music_pid < 1) return;
    stop_player(s_music_pid);
    s_music_pid = -1;
}

/// Whether the file opens; says so either way.
bool announce(const std::string& path, const char* found, const char* missing) {
    const bool opens = File().open_for_reading(path.c_str());
    std::fprintf(stderr, "[OrvelSDK] %s: %s\n", opens ? found : missing, path.c_str());
    return opens;
}

}  // namespace
}  // namespace orvel

using namespace orvel;

int orvel_play_sound(const char* name) {
    if (!name) return -1;
    const std::string path = resolve_resource("Sounds", name);
    if (!announce(path, "suono", "suono non trovato")) return -1;
    return play_system_sound(path);
}

int orvel_play_music(const char* name) {
    if (!name) return -1;
    stop_music();  // Deliberate: before the file is looked for, so that a missing one brings
                   // silence.
    const std::string path = resolve_resource("Music", name);
    if (!announce(path, "musica", "musica non trovata")) return -1;
    s_music_pid = start_player(path, Audio::any);
    return s_music_pid < 0 ? -1 : 0;
}

void orvel_stop_music() { stop_music(); }
