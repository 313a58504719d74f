#include "sound/effect_file_linux.h"

#include <sys/stat.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>

#include "core/files.h"

namespace orvel {
namespace {

constexpr std::size_t kMostSamples = (16u << 20) / sizeof(std::int16_t);
constexpr std::size_t kBlockSamples = 4096;

/// What libsndfile would wait at is none: FIFOs and devices.
bool is_regular(int descriptor) {
    struct stat info = {};
    return fstat(descriptor, &info) == 0 && S_ISREG(info.st_mode);
}

/// Louder than full scale is full scale, and no number is silence. libsndfile's own conversion
/// wraps.
std::int16_t as_16_bits(float sample) {
    const float scaled = sample * 32768.0f;
    if (std::isnan(scaled)) return 0;
    if (scaled <= -32768.0f) return -32768;
    return scaled >= 32767.0f ? std::int16_t{32767} : static_cast<std::int16_t>(lrintf(scaled));
}

using Decoder = std::unique_ptr<Sndfile::File, int (*)(Sndfile::File*)>;

/// All samples of the file; none when there are too many.
std::vector<std::int16_t> read_samples(const Sndfile& sndfile, const Decoder& file, int channels) {
    const auto width = static_cast<std::size_t>(channels);
    const auto block_frames = static_cast<std::int64_t>(kBlockSamples / width);
    std::vector<std::int16_t> samples;
    float block[kBlockSamples];
    for (;;) {
        const std::int64_t frames = sndfile.readf_float(file.get(), block, block_frames);
        if (frames <= 0) return samples;
        const std::size_t count = static_cast<std::size_t>(frames) * width;
        const std::size_t before = samples.size();
        if (before + count > kMostSamples) return {};
        samples.resize(before + count);
        std::transform(block, block + count, samples.data() + before, as_16_bits);
    }
}

/// PipeWire leaves out the end of a sample that does not fill one of its periods, which are of up
/// to 0.2 s. Never up to the last frame of the limit, which is one too many for it.
void append_silence(Effect& effect) {
    if (effect.samples.empty()) return;
    const auto width = static_cast<std::size_t>(effect.channels);
    const std::size_t room = kMostSamples - std::min(kMostSamples, effect.samples.size() + width);
    const std::size_t wanted = (static_cast<std::size_t>(effect.rate) / 5 + 1) * width;
    effect.samples.resize(effect.samples.size() + std::min(wanted, room / width * width));
}

}  // namespace

Effect decode_effect(const Sndfile& sndfile, const std::string& path) {
    File file;
    if (!file.open_for_reading(path.c_str()) || !is_regular(file.descriptor())) return {};
    Sndfile::Info info = {};
    const Decoder decoder(sndfile.open_fd(file.descriptor(), Sndfile::kRead, &info, 0),
                          sndfile.close);
    if (!decoder || info.rate < 1 || info.channels < 1 || info.channels > Pulse::kMostChannels) {
        return {};
    }
    Effect effect = {info.rate, info.channels, read_samples(sndfile, decoder, info.channels)};
    append_silence(effect);
    return effect;
}

}  // namespace orvel
