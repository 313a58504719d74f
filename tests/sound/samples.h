// Sounds as numbers.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace orvel_test {

/// 44100 samples a second.
using Samples = std::vector<std::int16_t>;

/// The part from the first sample that is not silent to the last.
Samples heard(const Samples& recording);
/// As a length in milliseconds.
double milliseconds(const Samples& samples);
/// Which share of the energy lies at that frequency, from 0 to 1.
double share_at(double frequency_hz, const Samples& samples);
/// The peak of a sine of that energy.
double level(const Samples& samples);
/// The samples of [from, to) milliseconds.
Samples part(const Samples& samples, double from, double to);

/// A sine of @p duration_ms, its peak at @p peak.
Samples sine(double frequency_hz, int duration_ms, int peak = 12000);
std::string wav_file(const Samples& samples);
std::string aiff_file(const Samples& samples);

}  // namespace orvel_test
