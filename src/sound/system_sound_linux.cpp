#include "sound/effect_file_linux.h"
#include "sound/sound_libraries_linux.h"
#include "sound/sound_server_linux.h"
#include "sound/system_sound.h"

namespace orvel {

int play_system_sound(const std::string& path) {
    if (server_was_mute_lately()) return -1;
    const Sndfile* const files = sndfile();
    const Pulse* const server = files ? pulse() : nullptr;
    if (!server) return -1;
    return play_on_server(*server, decode_effect(*files, path)) ? 0 : -1;
}

}  // namespace orvel
