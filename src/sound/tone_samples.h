// The samples of a tone.
#pragma once

namespace orvel {

/// Writes @p count 16-bit samples of a sine wave whose phase begins at 0 and grows by @p step from
/// sample to sample, fading in and out over 10 ms at 44100 samples a second. A phase that is not
/// finite is silence.
void put_tone(unsigned char* samples, int count, double step);

}  // namespace orvel
