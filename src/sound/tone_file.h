// Where a tone lies for its player.
#pragma once

#include <vector>

namespace orvel {

constexpr const char* kTonePath = "/tmp/orvelsdk_tone.wav";

/// Writes the tone's file. Where that cannot be done, it is as it was, and nobody is told.
void write_tone_file(const std::vector<unsigned char>& wav);

}  // namespace orvel
