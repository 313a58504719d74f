// In a browser or another host of JavaScript, which gives these functions: -1 where it has no
// sounds.
#include "sound/player.h"
#include "sound/system_sound.h"
#include "sound/tone_file.h"

extern "C" {
int orvel_web_play_sound(const char* path);
int orvel_web_start_player(const char* path, int any);
void orvel_web_stop_player(int player);
void orvel_web_write_tone(const unsigned char* wav, std::size_t size);
}

namespace orvel {

int play_system_sound(const std::string& path) { return orvel_web_play_sound(path.c_str()); }

int start_player(const std::string& path, Audio audio) {
    return orvel_web_start_player(path.c_str(), audio == Audio::any ? 1 : 0);
}
void stop_player(int pid) { orvel_web_stop_player(pid); }

void write_tone_file(const std::vector<unsigned char>& wav) {
    orvel_web_write_tone(wav.data(), wav.size());
}

}  // namespace orvel
