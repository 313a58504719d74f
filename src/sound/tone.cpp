#include "sound/tone.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>

#include "core/bytes.h"
#include "core/numbers.h"
#include "orvel.h"
#include "sound/player.h"

namespace orvel {
namespace {

constexpr const char* kTonePath = "/tmp/orvelsdk_tone.wav";

constexpr int kHeaderSize = 44;
constexpr unsigned char kFormat[] = {
    // bytes 8 to 35, the same in every tone
    'W',  'A',  'V', 'E', 'f', 'm', 't', ' ', 16, 0, 0, 0,  // size of the format chunk
    1,    0,                                                // PCM
    1,    0,                                                // mono
    0x44, 0xac, 0,   0,                                     // 44100 samples a second
    0x88, 0x58, 1,   0,                                     // 88200 bytes a second
    2,    0,                                                // bytes a sample
    16,   0,                                                // bits a sample
};
static_assert(sizeof kFormat == 28);

constexpr int kFadeSamples = 441;  // 10 ms

int sample_count(int duration_ms) {
    // Deliberate: the product wraps, so that 97392 ms make 19 samples.
    const std::uint32_t thousandths = static_cast<std::uint32_t>(duration_ms) * 44100u;
    return std::max(1, trunc(thousandths / 1000.0));
}

double gain_at(int i, int count) {
    // Deliberate: the fade-in is tested first; a tone of at most 441 samples has no fade-out.
    if (i < kFadeSamples) return i / 441.0;
    if (i <= count - kFadeSamples) return 1.0;
    return (count - i) / 441.0;
}

void put_header(unsigned char* wav, std::uint32_t data_size) {
    std::copy_n("RIFF", 4, wav);
    put_u32(wav + 4, 36 + data_size);
    std::copy(std::begin(kFormat), std::end(kFormat), wav + 8);
    std::copy_n("data", 4, wav + 36);
    put_u32(wav + 40, data_size);
}

/// Opens the tone file as "wb" would, or returns -1. Everybody can put something at that path, so
/// links are not followed, FIFOs not waited for, and nothing is emptied before it has proved to be
/// an ordinary file of this user's that has no second name.
int open_tone_file() {
    const int file =
        open(kTonePath, O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666);
    if (file < 0) return -1;
    struct stat info = {};
    if (fstat(file, &info) == 0 && S_ISREG(info.st_mode) && info.st_nlink == 1 &&
        info.st_uid == geteuid() && ftruncate(file, 0) == 0) {
        return file;
    }
    close(file);
    return -1;
}

void write_tone_file(const std::vector<unsigned char>& wav) {
    const int file = open_tone_file();
    // Deliberate: without the file the player still starts, on whatever lies at the path.
    if (file < 0) return;
    [[maybe_unused]] const ssize_t written = write(file, wav.data(), wav.size());
    close(file);
}

}  // namespace

std::vector<unsigned char> tone_wav(double frequency_hz, int duration_ms) {
    const int count = sample_count(duration_ms);
    const std::uint32_t data_size = 2 * static_cast<std::uint32_t>(count);
    std::vector<unsigned char> wav(kHeaderSize + data_size);
    put_header(wav.data(), data_size);

    const double step = (frequency_hz * 6.283185307179586) / 44100.0;
    double phase = 0.0;
    unsigned char* sample = wav.data() + kHeaderSize;
    for (int i = 0; i < count; ++i) {
        const int value = trunc((std::sin(phase) * 19660.2) * gain_at(i, count));
        put_u16(sample, static_cast<std::uint32_t>(value));
        sample += 2;
        phase += step;  // Deliberate: accumulated, never formed anew from i.
    }
    return wav;
}

}  // namespace orvel

int orvel_play_tone(double frequency_hz, int duration_ms) {
    using namespace orvel;
    if (frequency_hz <= 0.0 || duration_ms < 1) return -1;
    write_tone_file(tone_wav(frequency_hz, duration_ms));
    std::fprintf(stderr, "[OrvelSDK] tone: %.0f Hz x %d ms\n", frequency_hz, duration_ms);
    // Deliberate: the player is neither remembered nor waited for; music and tones do not meet.
    return start_player(kTonePath, Audio::wav) < 0 ? -1 : 0;
}
