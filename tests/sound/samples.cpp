#include "sound/samples.h"

#include <algorithm>
#include <cmath>

#include "sound/wav.h"

namespace orvel_test {

Samples heard(const Samples& recording) {
    const auto loud = [](std::int16_t sample) { return sample != 0; };
    const auto begin = std::find_if(recording.begin(), recording.end(), loud);
    const auto end = std::find_if(recording.rbegin(), recording.rend(), loud).base();
    return begin < end ? Samples(begin, end) : Samples();
}

double milliseconds(const Samples& samples) { return static_cast<double>(samples.size()) / 44.1; }

double share_at(double frequency_hz, const Samples& samples) {
    // The part that a cosine and a sine explain, by least squares: the two are not quite at right
    // angles to each other unless the samples hold whole periods.
    double c = 0.0, s = 0.0, cc = 0.0, cs = 0.0, ss = 0.0, energy = 0.0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double phase = static_cast<double>(i) * frequency_hz * 2.0 * M_PI / 44100.0;
        const double cosine = std::cos(phase), sine = std::sin(phase), value = samples[i];
        c += value * cosine;
        s += value * sine;
        cc += cosine * cosine;
        cs += cosine * sine;
        ss += sine * sine;
        energy += value * value;
    }
    const double determinant = cc * ss - cs * cs;
    if (energy == 0.0 || determinant == 0.0) return 0.0;
    return (c * c * ss - 2.0 * c * s * cs + s * s * cc) / (determinant * energy);
}

double level(const Samples& samples) {
    double energy = 0.0;
    for (const double sample : samples) energy += sample * sample;
    return std::sqrt(2.0 * energy / static_cast<double>(samples.size()));
}

Samples part(const Samples& samples, double from, double to) {
    const auto last = static_cast<double>(samples.size());
    const auto at = [last](double ms) {
        return static_cast<std::ptrdiff_t>(std::clamp(ms * 44.1, 0.0, last));
    };
    return Samples(samples.begin() + at(from), samples.begin() + at(to));
}

Samples sine(double frequency_hz, int duration_ms, int peak) {
    Samples samples;
    for (int i = 0; i < duration_ms * 441 / 10; ++i) {
        const double phase = i * frequency_hz * 2.0 * M_PI / 44100.0;
        samples.push_back(static_cast<std::int16_t>(std::lround(peak * std::sin(phase))));
    }
    return samples;
}

std::string wav_file(const Samples& samples) {
    std::string data;
    for (const std::int16_t sample : samples) {
        data += little(static_cast<std::uint16_t>(sample), 2);
    }
    return riff(chunk("fmt ", format(1, 1, 44100, 16)) + chunk("data", data));
}

std::string aiff_file(const Samples& samples) {
    const auto big = [](std::size_t value, int bytes) {
        const std::string text = little(value, bytes);
        return std::string(text.rbegin(), text.rend());
    };
    std::string data;
    for (const std::int16_t sample : samples) data += big(static_cast<std::uint16_t>(sample), 2);
    // 44100 as an 80-bit floating-point number.
    const std::string rate("\x40\x0e\xac\x44\0\0\0\0\0\0", 10);
    const std::string format =
        "COMM" + big(18, 4) + big(1, 2) + big(samples.size(), 4) + big(16, 2) + rate;
    const std::string sound = "SSND" + big(8 + data.size(), 4) + big(0, 8) + data;
    return "FORM" + big(4 + format.size() + sound.size(), 4) + "AIFF" + format + sound;
}

}  // namespace orvel_test
