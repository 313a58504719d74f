// Where nothing plays: no sound service and no processes. A tone's file, which would only be there
// for its player, is not written.
#include "sound/player.h"
#include "sound/system_sound.h"
#include "sound/tone_file.h"

namespace orvel {

int play_system_sound(const std::string&) { return -1; }

int start_player(const std::string&, Audio) { return -1; }
void stop_player(int) {}  // GCOVR_EXCL_LINE: for the linker; nothing plays

void write_tone_file(const std::vector<unsigned char>&) {}

}  // namespace orvel
