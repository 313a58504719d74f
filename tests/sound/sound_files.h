// Sound files of every kind, made by libsndfile.
#pragma once

#include <string>
#include <vector>

namespace orvel_test {

/// A kind of file, as SF_INFO has it.
struct SoundFormat {
    const char* name;
    int format;
    int rate = 44100, channels = 1;
    bool is_exact = false;  // gives the samples back as they were
};

/// Kinds that hosts have: with every depth, coding, rate and number of channels that matters.
extern const std::vector<SoundFormat> kSoundFormats;

/// A sine, the same on all channels.
std::string sound_file(const SoundFormat& format, double frequency_hz, int duration_ms,
                       int peak = 12000);

/// @p file with a few bytes changed, or parts cut, doubled or moved: the @p number th of its kind.
std::string mutated(std::string file, unsigned number);

}  // namespace orvel_test
