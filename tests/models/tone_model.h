// The tone file, slow and plain: every byte is decided on its own.
#pragma once

#include <cmath>
#include <string>
#include <vector>

namespace orvel_test {

inline long long model_sample_count(int duration_ms) {
    const long long product = duration_ms * 44100LL % 4294967296LL;
    const long long count = product / 1000;
    return count < 1 ? 1 : count;
}

inline double model_gain(long long i, long long count) {
    if (i <= 440) return static_cast<double>(i) / 441.0;
    const long long to_the_end = count - i;
    return to_the_end >= 441 ? 1.0 : static_cast<double>(to_the_end) / 441.0;
}

inline std::vector<int> model_samples(double frequency_hz, int duration_ms) {
    const long long count = model_sample_count(duration_ms);
    std::vector<double> phases = {0.0};
    const double step = frequency_hz * 6.283185307179586 / 44100.0;
    while (static_cast<long long>(phases.size()) < count) phases.push_back(phases.back() + step);

    std::vector<int> samples;
    for (long long i = 0; i < count; ++i) {
        const double height = std::sin(phases[static_cast<std::size_t>(i)]) * 19660.2;
        const double value = height * model_gain(i, count);
        samples.push_back(std::isnan(value) ? 0 : static_cast<int>(value));
    }
    return samples;
}

inline std::string model_number(long long value, int bytes) {
    if (value < 0) value += 65536;  // only samples are negative
    std::string text;
    for (; bytes > 0; --bytes, value /= 256) text += static_cast<char>(value % 256);
    return text;
}

inline std::string model_tone_file(double frequency_hz, int duration_ms) {
    const std::vector<int> samples = model_samples(frequency_hz, duration_ms);
    const long long data_size = 2 * static_cast<long long>(samples.size());
    std::string file = "RIFF" + model_number(36 + data_size, 4) + "WAVE";
    file += "fmt " + model_number(16, 4) + model_number(1, 2) + model_number(1, 2) +
            model_number(44100, 4) + model_number(88200, 4) + model_number(2, 2) +
            model_number(16, 2);
    file += "data" + model_number(data_size, 4);
    for (const int sample : samples) file += model_number(sample, 2);
    return file;
}

}  // namespace orvel_test
