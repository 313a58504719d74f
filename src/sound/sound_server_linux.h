// The sound server: PulseAudio, or PipeWire, which speaks as that does.
#pragma once

#include "sound/effect_file_linux.h"
#include "sound/sound_libraries_linux.h"

namespace orvel {

/// Has the server play @p effect and returns as soon as it has begun: such a sound is heard to its
/// end even when the host is gone. False when the effect is nothing for it, when there is no server
/// or it refuses, and after two seconds at the latest.
bool play_on_server(const Pulse& pulse, const Effect& effect);

/// Whether a server has kept a call waiting, without an answer, in the last ten seconds.
bool server_was_mute_lately();

}  // namespace orvel
