// Sound files as libsndfile has them, and what hostile ones come to.
#include "sound/effect_file_linux.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cmath>
#include <limits>
#include <string>

#include "sound/samples.h"
#include "sound/sound_files.h"
#include "sound/wav.h"
#include "support/child.h"
#include "support/files.h"

namespace {

using namespace orvel_test;
using orvel::Effect;

Effect with_silence_at(const std::string& path) {
    return orvel::decode_effect(*orvel::sndfile(), path);
}

/// Without the silence behind it.
Effect decoded_at(const std::string& path) {
    Effect effect = with_silence_at(path);
    if (effect.samples.empty()) return effect;
    const auto silence = static_cast<std::size_t>((effect.rate / 5 + 1) * effect.channels);
    EXPECT_GE(effect.samples.size(), silence);
    for (std::size_t i = 0; i < silence; ++i) {
        EXPECT_EQ(effect.samples.back(), 0);
        effect.samples.pop_back();
    }
    return effect;
}

Effect decoded(const std::string& bytes) {
    const TempFolder folder;
    write_file(folder / "effect", bytes);
    return decoded_at(folder / "effect");
}

/// The samples of the first channel.
Samples first_channel(const Effect& effect) {
    Samples samples;
    for (std::size_t i = 0; i < effect.samples.size();
         i += static_cast<std::size_t>(effect.channels)) {
        samples.push_back(effect.samples[i]);
    }
    return samples;
}

/// A WAV file of 32-bit floating-point numbers, mono.
std::string float_wav(const std::vector<float>& numbers) {
    const std::string data(reinterpret_cast<const char*>(numbers.data()), 4 * numbers.size());
    return riff(chunk("fmt ", format(3, 1, 44100, 32)) + chunk("data", data));
}

class FormatTest : public testing::TestWithParam<SoundFormat> {};

TEST_P(FormatTest, IsDecodedTo16BitsAtItsRateOnItsChannels) {
    const SoundFormat& format = GetParam();
    const Effect effect = decoded(sound_file(format, 500.0, 100));
    EXPECT_EQ(effect.rate, format.rate);
    ASSERT_EQ(effect.channels, format.channels);
    const Samples samples = first_channel(effect);
    const Samples expected =
        first_channel(decoded(sound_file({"", 0x010002, format.rate}, 500.0, 100)));
    if (format.is_exact) {
        EXPECT_EQ(samples, expected);
        const auto channels = static_cast<std::size_t>(effect.channels);
        for (std::size_t i = 0; i < effect.samples.size(); ++i) {
            ASSERT_EQ(effect.samples[i], samples[i / channels]) << i;
        }
    } else {
        EXPECT_NEAR(static_cast<double>(samples.size()), static_cast<double>(expected.size()),
                    static_cast<double>(format.rate) / 100.0);
        const double frequency = 500.0 * 44100.0 / format.rate;  // by the rate of all samples here
        EXPECT_GT(share_at(frequency, samples), 0.99);
    }
}

INSTANTIATE_TEST_SUITE_P(, FormatTest, testing::ValuesIn(kSoundFormats), [](const auto& format) {
    std::string name = format.param.name;
    for (char& c : name) c = c == ' ' || c == '-' ? '_' : c;
    return name;
});

TEST(EffectFileTest, Mp3IsDecoded) {
    const Effect effect = decoded_at(ORVEL_SOURCE_DIR "/tests/sound/440hz.mp3");
    EXPECT_EQ(effect.rate, 44100);
    EXPECT_GT(share_at(440.0, part(first_channel(effect), 50.0, 250.0)), 0.99);
}

TEST(EffectFileTest, EveryFloatBecomesTheNearest16BitsAndNoneWraps) {
    const float infinity = std::numeric_limits<float>::infinity();
    const Effect effect = decoded(float_wav({0.0f, 1.0f / 32768, 0.49f / 32768, 0.51f / 32768,
                                             -0.51f / 32768, 32766.6f / 32768, 1.0f, -1.0f, 7.5f,
                                             -7.5f, infinity, -infinity, std::nanf("")}));
    EXPECT_EQ(effect.samples,
              (Samples{0, 1, 0, 1, -1, 32767, 32767, -32768, 32767, -32768, 32767, -32768, 0}));
}

TEST(EffectFileTest, ALoudFileIsClippedAndDoesNotWrap) {
    std::vector<float> loud;
    for (int i = 0; i < 4410; ++i) loud.push_back(i / 50 % 2 == 0 ? 1.3f : -1.3f);
    for (const std::int16_t sample : decoded(float_wav(loud)).samples) {
        ASSERT_TRUE(sample == 32767 || sample == -32768) << sample;
    }
}

std::string plain(std::size_t bytes, unsigned channels = 1) {
    return riff(chunk("fmt ", format(1, channels, 44100, 16)) +
                chunk("data", std::string(bytes, 'x')));
}

std::size_t size_with_silence(const std::string& bytes) {
    const TempFolder folder;
    write_file(folder / "effect", bytes);
    return with_silence_at(folder / "effect").samples.size();
}

TEST(EffectFileTest, SixteenMebibytesAreTheMost) {
    const std::size_t most = 16u << 20;
    EXPECT_EQ(size_with_silence(plain(most)), 8u << 20);
    EXPECT_EQ(size_with_silence(plain(most + 2)), 0u);
    const std::string deep =
        riff(chunk("fmt ", format(1, 1, 44100, 24)) + chunk("data", std::string(24u << 20, 'x')));
    EXPECT_EQ(size_with_silence(deep), 8u << 20);  // 24 MiB of 24 bits are as much
}

TEST(EffectFileTest, TheSilenceBehindAnEffectStaysAFrameBelowTheMost) {
    const std::size_t most = 16u << 20;
    EXPECT_EQ(size_with_silence(plain(most - 2)), (8u << 20) - 1);
    EXPECT_EQ(size_with_silence(plain(most - 100)), (8u << 20) - 1);
    EXPECT_EQ(size_with_silence(plain(most - 24, 6)), (8u << 20) - 8);  // in whole frames
    EXPECT_EQ(size_with_silence(plain(100)), 50u + 8821u);
}

TEST(EffectFileTest, OneTo32ChannelsAreTaken) {
    EXPECT_EQ(decoded(plain(64, 32)).channels, 32);
    EXPECT_TRUE(decoded(plain(66, 33)).samples.empty());
    EXPECT_TRUE(decoded(plain(514, 257)).samples.empty());  // which would be one, in 8 bits
}

TEST(EffectFileTest, AnEffectOfOneFrameIsOne) {
    EXPECT_EQ(decoded(plain(2)).samples, (Samples{0x7878}));
    EXPECT_EQ(decoded(plain(4, 2)).samples, (Samples{0x7878, 0x7878}));
    EXPECT_TRUE(decoded(plain(0)).samples.empty());
}

TEST(EffectFileTest, WhatIsCutOffIsDecodedAsFarAsItGoes) {
    const std::string file = plain(1000);
    EXPECT_EQ(decoded(file.substr(0, 44 + 500)).samples, Samples(250, 0x7878));
    for (std::size_t size = 0; size < 44; ++size) {
        EXPECT_TRUE(decoded(file.substr(0, size)).samples.empty()) << size;
    }
}

TEST(EffectFileTest, WhatIsNoSoundIsRefused) {
    const TempFolder folder;
    EXPECT_TRUE(decoded("").samples.empty());
    EXPECT_TRUE(decoded("This is a text and not a sound at all.").samples.empty());
    EXPECT_TRUE(decoded(std::string(100'000, '\0')).samples.empty());
    EXPECT_TRUE(decoded_at(folder / "missing").samples.empty());
    EXPECT_TRUE(decoded_at(folder.path()).samples.empty());
}

TEST(EffectFileTest, ARateOrANumberOfChannelsThatIsNoneIsRefused) {
    static orvel::Sndfile::Info told;
    static int files = 0;
    orvel::Sndfile another = {};  // libsndfile itself lets none pass
    another.open_fd = [](int, int, orvel::Sndfile::Info* info, int) {
        *info = told;
        return reinterpret_cast<orvel::Sndfile::File*>(&++files);
    };
    another.readf_float = [](orvel::Sndfile::File*, float* samples, std::int64_t) {
        *samples = 1.0f;
        return std::int64_t{files-- > 0 ? 1 : 0};
    };
    another.close = [](orvel::Sndfile::File*) { return files = 0; };
    const TempFolder folder;
    write_file(folder / "effect", "");
    const auto size = [&](int rate, int channels) {
        told = {1, rate, channels, 0, 1, 1};
        return orvel::decode_effect(another, folder / "effect").samples.size();
    };
    EXPECT_EQ(size(5, 1), 3u);
    EXPECT_EQ(size(1, 1), 2u);
    for (const int none : {0, -1, INT_MIN}) {
        EXPECT_EQ(size(none, 1), 0u) << none;
        EXPECT_EQ(size(8000, none), 0u) << none;
    }
    EXPECT_EQ(size(8000, INT_MAX), 0u);
}

TEST(EffectFileTest, WhatCouldBeWaitedForIsRefused) {
    const TempFolder folder;
    const std::string fifo = folder / "fifo", sound = plain(100);
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    EXPECT_TRUE(decoded_at(fifo).samples.empty());
    const int both_ends = open(fifo.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    ASSERT_EQ(write(both_ends, sound.data(), sound.size()), static_cast<ssize_t>(sound.size()));
    EXPECT_TRUE(decoded_at(fifo).samples.empty());  // a whole sound file, which could be read
    close(both_ends);
    for (const char* device : {"/dev/null", "/dev/zero", "/dev/tty"}) {
        EXPECT_TRUE(decoded_at(device).samples.empty()) << device;
    }
}

void expect_whole_frames(const Effect& effect) {
    const auto channels = static_cast<std::size_t>(effect.channels);
    ASSERT_GE(effect.samples.size(), 2 * channels);
    ASSERT_EQ(effect.samples.size() % channels, 0u);
    ASSERT_LE(effect.samples.size(), 8u << 20);
}

TEST(EffectFileTest, OfFifteenHundredDamagedFilesNoneIsPrintedAboutOrLeftOpen) {
    const TempFolder folder;
    std::vector<std::string> whole;
    for (const SoundFormat& format : kSoundFormats) whole.push_back(sound_file(format, 500.0, 10));
    decoded(whole[0]);  // loads the library
    const int before = open_descriptors();
    int refused = 0, taken = 0;
    const Output output = captured([&] {
        for (unsigned i = 0; i < 1500; ++i) {
            SCOPED_TRACE(i);
            write_file(folder / "effect", mutated(whole[i % whole.size()], i));
            const Effect effect = with_silence_at(folder / "effect");
            ++(effect.samples.empty() ? refused : taken);
            if (!effect.samples.empty()) expect_whole_frames(effect);
        }
    });
    EXPECT_EQ(output.error + output.output, "");
    EXPECT_EQ(open_descriptors(), before);
    EXPECT_GT(refused, 200);
    EXPECT_GT(taken, 200);
}

TEST(EffectFileTest, DamagedMp3FilesHarmNothing) {  // but libsndfile's decoder prints about them
    const TempFolder folder;
    const std::string whole = read_file(ORVEL_SOURCE_DIR "/tests/sound/440hz.mp3");
    const int before = open_descriptors();
    captured([&] {
        for (unsigned i = 0; i < 100; ++i) {
            write_file(folder / "effect", mutated(whole, i));
            const Effect effect = with_silence_at(folder / "effect");
            if (!effect.samples.empty()) expect_whole_frames(effect);
        }
    });
    EXPECT_EQ(open_descriptors(), before);
}

}  // namespace
