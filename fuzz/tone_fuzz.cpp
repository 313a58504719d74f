// Any frequency and duration as a tone: the file of the model, the line on the standard error
// stream, one player started, and nothing of it all for arguments out of range.
#include <sys/types.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "harness.h"
#include "input.h"
#include "models/tone_model.h"

namespace {

using fuzz::require;

/// What the tone's calls to the system did.
struct System {
    bool opens = true, forks = true;  // else these calls fail
    int opened = 0, written_to = 0, forked = 0;
    std::string path, written;
};
System s_system;

/// An ordinary file with one name, as which the tone file has to prove itself.
class TemporaryFile {
public:
    TemporaryFile() : descriptor_(mkstemp(name_)) {}
    ~TemporaryFile() { unlink(name_); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    int duplicate() const { return dup(descriptor_); }

private:
    char name_[30] = "/tmp/orvel-fuzz-XXXXXX";
    const int descriptor_;
};

/// Longer tones than this many samples are not made: a run would take too long.
constexpr long long kMostSamples = 1000;

/// The arguments of a call.
struct Tone {
    double frequency_hz;
    int duration_ms;

    explicit Tone(fuzz::Input& input) {
        const bool audible = input.byte() % 2 == 1;
        const std::uint64_t bits = input.bits(8);
        duration_ms = static_cast<int>(static_cast<std::uint32_t>(input.bits(4)));
        std::memcpy(&frequency_hz, &bits, sizeof bits);
        if (audible) frequency_hz = static_cast<double>(bits % 1000000000) / 1000;
        if (duration_ms > 0 && orvel_test::model_sample_count(duration_ms) > kMostSamples) {
            duration_ms = duration_ms % 22 + 1;
        }
    }

    bool accepted() const { return !(frequency_hz <= 0) && duration_ms > 0; }

    std::string line() const {
        char text[400];
        std::snprintf(text, sizeof text, "[OrvelSDK] tone: %.0f Hz x %d ms\n", frequency_hz,
                      duration_ms);
        return text;
    }
};

void check(const Tone& tone) {
    int status = 0;
    const std::string messages = fuzz::messages_of(
        [&tone, &status] { status = orvel_play_tone(tone.frequency_hz, tone.duration_ms); });
    const int calls = tone.accepted() ? 1 : 0;
    require(s_system.opened == calls && s_system.forked == calls, "another number of calls");
    require(s_system.written_to == (s_system.opens ? calls : 0), "another number of writes");
    require(status == (calls == 1 && s_system.forks ? 0 : -1), "another status");
    require(messages == (tone.accepted() ? tone.line() : ""), "another line");
    require(s_system.path == (tone.accepted() ? "/tmp/orvelsdk_tone.wav" : ""), "another path");
    std::string expected;
    if (tone.accepted() && s_system.opens) {
        expected = orvel_test::model_tone_file(tone.frequency_hz, tone.duration_ms);
    }
    require(s_system.written == expected, "another file than the model's");
}

}  // namespace

extern "C" {

int fuzz_access(const char* path, int mode);
pid_t fuzz_fork();
int fuzz_open(const char* path, int flags, ...);
ssize_t fuzz_write(int file, const void* bytes, std::size_t size);
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int fuzz_access(const char*, int) { return -1; }

pid_t fuzz_fork() {
    ++s_system.forked;
    return s_system.forks ? 4711 : -1;
}

int fuzz_open(const char* path, int, ...) {
    static const TemporaryFile file;
    ++s_system.opened;
    s_system.path = path;
    return s_system.opens ? file.duplicate() : -1;
}

ssize_t fuzz_write(int, const void* bytes, std::size_t size) {
    ++s_system.written_to;
    s_system.written.assign(static_cast<const char*>(bytes), size);
    return static_cast<ssize_t>(size);
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const Tone tone(input);
    const int failures = input.byte();
    s_system = {failures % 4 != 1, failures % 4 != 2, 0, 0, 0, "", ""};
    check(tone);
    return 0;
}

}  // extern "C"
