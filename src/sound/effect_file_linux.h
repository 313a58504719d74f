// Sound files, as the sound server takes them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sound/sound_libraries_linux.h"

namespace orvel {

/// Frames of 16-bit samples, a sample for each channel: none, or two and more.
struct Effect {
    int rate = 0, channels = 0;
    std::vector<std::int16_t> samples;
};

/// Decodes the sound file at @p path: of what is cut off, as much as there is. Without samples when
/// it is no regular file, none that libsndfile reads, or above the 16 MiB that sound servers take.
/// Behind the sound come 0.2 s of silence, as far as there is room for them.
Effect decode_effect(const Sndfile& sndfile, const std::string& path);

}  // namespace orvel
