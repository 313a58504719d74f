#include "sound/sound_files.h"

#include <sanitizer/lsan_interface.h>
#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <stdexcept>

#include "support/files.h"
#include "support/random.h"

/// What the leak sanitizer overlooks: libsndfile 1.2.0 forgets what it had of a damaged Vorbis
/// file.
extern "C" const char* __lsan_default_suppressions() { return "leak:vorbis_info_init"; }

namespace orvel_test {

const std::vector<SoundFormat> kSoundFormats = {
    {"wav 8 bits", SF_FORMAT_WAV | SF_FORMAT_PCM_U8},
    {"wav 16 bits", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 1, true},
    {"wav 24 bits", SF_FORMAT_WAV | SF_FORMAT_PCM_24, 44100, 1, true},
    {"wav 32 bits", SF_FORMAT_WAV | SF_FORMAT_PCM_32, 44100, 1, true},
    {"wav float", SF_FORMAT_WAV | SF_FORMAT_FLOAT, 44100, 1, true},
    {"wav double", SF_FORMAT_WAV | SF_FORMAT_DOUBLE, 44100, 1, true},
    {"wav extensible", SF_FORMAT_WAVEX | SF_FORMAT_PCM_24, 44100, 1, true},
    {"wav a-law", SF_FORMAT_WAV | SF_FORMAT_ALAW},
    {"wav 8000 Hz", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 8000, 1, true},
    {"wav 96000 Hz", SF_FORMAT_WAV | SF_FORMAT_PCM_24, 96000, 1, true},
    {"wav 11127 Hz", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 11127, 1, true},
    {"wav stereo", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 2, true},
    {"wav 6 channels", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 48000, 6, true},
    {"wav 7 channels", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 7, true},
    {"wav 32 channels", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 32, true},
    {"aiff", SF_FORMAT_AIFF | SF_FORMAT_PCM_16, 44100, 2, true},
    {"aiff 8 bits", SF_FORMAT_AIFF | SF_FORMAT_PCM_S8},
    {"aiff 24 bits", SF_FORMAT_AIFF | SF_FORMAT_PCM_24, 48000, 1, true},
    {"caf", SF_FORMAT_CAF | SF_FORMAT_PCM_16, 44100, 1, true},
    {"caf float", SF_FORMAT_CAF | SF_FORMAT_FLOAT, 22050, 2, true},
    {"au", SF_FORMAT_AU | SF_FORMAT_PCM_16, 44100, 1, true},
    {"flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 44100, 2, true},
    {"flac 24 bits", SF_FORMAT_FLAC | SF_FORMAT_PCM_24, 96000, 1, true},
    {"vorbis", SF_FORMAT_OGG | SF_FORMAT_VORBIS},
    {"vorbis stereo", SF_FORMAT_OGG | SF_FORMAT_VORBIS, 48000, 2},
};

std::string sound_file(const SoundFormat& format, double frequency_hz, int duration_ms, int peak) {
    const TempFolder folder;
    const std::string path = folder / "sound";
    SF_INFO info = {};
    info.samplerate = format.rate;
    info.channels = format.channels;
    info.format = format.format;
    SNDFILE* const file = sf_open(path.c_str(), SFM_WRITE, &info);
    if (!file) throw std::runtime_error(std::string("no file of ") + format.name);
    const int frames = format.rate / 100 * duration_ms / 10;
    std::vector<std::int16_t> samples;
    for (int i = 0; i < frames; ++i) {
        const double phase = i * frequency_hz * 2.0 * M_PI / format.rate;
        samples.insert(samples.end(), static_cast<std::size_t>(format.channels),
                       static_cast<std::int16_t>(std::lround(peak * std::sin(phase))));
    }
    const int coding = format.format & SF_FORMAT_SUBMASK;
    const bool is_float = coding == SF_FORMAT_FLOAT || coding == SF_FORMAT_DOUBLE;
    // Of numbers between -1 and 1: libsndfile would take 16 bits for what they are.
    std::vector<float> fractions;
    for (const std::int16_t sample : samples) fractions.push_back(sample / 32768.0f);
    is_float ? sf_writef_float(file, fractions.data(), frames)
             : sf_writef_short(file, samples.data(), frames);
    sf_close(file);
    return read_file(path);
}

std::string mutated(std::string file, unsigned number) {
    Random random(number);
    const auto any = [&random](std::size_t count) {
        return static_cast<std::size_t>(random.between(0, static_cast<int>(count) - 1));
    };
    // The headers are where it matters.
    const auto place = [&] {
        return any(any(2) == 0 ? std::min<std::size_t>(file.size(), 80) : file.size());
    };
    for (std::size_t changes = 1 + any(4); changes > 0 && file.size() > 1; --changes) {
        const std::size_t at = place();
        switch (any(6)) {
        case 0: file.resize(at + 1); break;
        case 1: file.insert(at, file.substr(at, any(300))); break;
        case 2: file.erase(at, any(8)); break;
        case 3: file[at] = static_cast<char>(any(2) == 0 ? 0xff : 0); break;
        default: file[at] = static_cast<char>(any(256));
        }
    }
    return file;
}

}  // namespace orvel_test
