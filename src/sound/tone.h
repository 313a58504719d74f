// Tones: sine waves as WAV files.
#pragma once

#include <vector>

namespace orvel {

/// The WAV file of a tone: 44 header bytes, then 16-bit mono samples, 44100 a second. The sample
/// count is formed in 32 bits and wraps from 97392 ms on; there is always at least one sample.
std::vector<unsigned char> tone_wav(double frequency_hz, int duration_ms);

}  // namespace orvel
