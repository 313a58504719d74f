// Any frequency and duration as a tone: the file of the model, the line on the standard error
// stream, one player started, and nothing of it all for arguments out of range.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "harness.h"
#include "input.h"
#include "models/tone_model.h"
#include "system/ledger.h"
#include "system/system.h"

namespace {

using namespace orvel_test;
using fuzz::require;

/// The tone's file, in memory where the system has such a folder.
class ToneFile {
public:
    ToneFile() {
        close(mkstemp(name_.data()));
        take_over_system(name_);
    }
    ~ToneFile() { unlink(name_.c_str()); }
    ToneFile(const ToneFile&) = delete;
    ToneFile& operator=(const ToneFile&) = delete;

    std::string bytes() const {
        std::ifstream in(name_, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    void empty() const { std::ofstream(name_, std::ios::trunc).close(); }

private:
    const bool in_memory_ = access("/dev/shm", W_OK) == 0;
    std::string name_ = std::string(in_memory_ ? "/dev/shm" : "/tmp") + "/orvel-fuzz-XXXXXX";
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
        if (duration_ms > 0 && model_sample_count(duration_ms) > kMostSamples) {
            duration_ms = duration_ms % 22 + 1;
        }
    }

    bool accepted() const { return !(frequency_hz <= 0) && duration_ms > 0; }
    std::string file() const { return model_tone_file(frequency_hz, duration_ms); }

    std::string line() const {
        char text[400];
        std::snprintf(text, sizeof text, "[OrvelSDK] tone: %.0f Hz x %d ms\n", frequency_hz,
                      duration_ms);
        return text;
    }
};

/// What fails: the opening of the file, the fork, or a part of the write.
struct Failures {
    bool opens, forks;
    Way writes;

    explicit Failures(int byte) : opens(byte % 4 != 1), forks(byte % 4 != 2) {
        constexpr Way kWays[] = {Way::succeeds, Way::fails, Way::first_byte, Way::half,
                                 Way::all_but_last};
        writes = kWays[byte / 4 % 5];
    }

    void arrange() const {
        begin_anew("");
        machine().forks = false;
        if (!opens) always(Call::open, Way::fails);
        if (!forks) always(Call::fork, Way::fails);
        always(Call::write, writes);
    }

    /// The calls by which a tone of that file is played.
    std::vector<std::string> calls(std::size_t size) const {
        std::vector<std::string> all = {"open /tmp/orvelsdk_tone.wav"};
        if (opens) all.push_back("write " + std::to_string(size));
        all.push_back("access /usr/bin/afplay = 0");
        all.push_back(forks ? "fork = 4711" : "fork = -1");
        return all;
    }
};

void check(const Tone& tone, const Failures& failures) {
    static const ToneFile file;
    file.empty();
    failures.arrange();
    int status = 0;
    const std::string messages = fuzz::messages_of(
        [&tone, &status] { status = orvel_play_tone(tone.frequency_hz, tone.duration_ms); });
    require(status == (tone.accepted() && failures.forks ? 0 : -1), "another status");
    require(messages == (tone.accepted() ? tone.line() : ""), "another line");
    if (!tone.accepted()) return require(calls().empty(), "a call for nothing");
    std::string expected = tone.file();
    require(calls() == failures.calls(expected.size()), "other calls");
    expected.resize(failures.opens ? part(failures.writes, expected.size()) : 0);
    require(file.bytes() == expected, "another file than the model's");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const Tone tone(input);
    check(tone, Failures(input.byte()));
    return 0;
}
