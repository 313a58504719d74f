// The bytes of a tone, wherever the C library's sine comes from.
#include "sound/tone.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "models/tone_model.h"

namespace {

using orvel::tone_wav;
using orvel_test::model_tone_file;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::vector<int> samples_of(const std::vector<unsigned char>& wav) {
    std::vector<int> samples;
    for (std::size_t at = 44; at + 1 < wav.size(); at += 2) {
        const int word = wav[at] + 256 * wav[at + 1];
        samples.push_back(word < 32768 ? word : word - 65536);
    }
    return samples;
}

std::vector<int> first(const std::vector<int>& samples, std::size_t count) {
    return {samples.begin(), samples.begin() + static_cast<std::ptrdiff_t>(count)};
}

TEST(ToneWavTest, TheHeaderOfAHundredMillisecondsIsTheseBytes) {
    const std::vector<unsigned char> wav = tone_wav(440.0, 100);
    const std::vector<unsigned char> header = {
        0x52, 0x49, 0x46, 0x46, 0x98, 0x22, 0x00, 0x00, 0x57, 0x41, 0x56, 0x45, 0x66, 0x6d, 0x74,
        0x20, 0x10, 0x00, 0x00, 0x00, 0x01, 0x00, 0x01, 0x00, 0x44, 0xac, 0x00, 0x00, 0x88, 0x58,
        0x01, 0x00, 0x02, 0x00, 0x10, 0x00, 0x64, 0x61, 0x74, 0x61, 0x74, 0x22, 0x00, 0x00};
    ASSERT_EQ(wav.size(), 8864u);
    EXPECT_EQ(std::vector<unsigned char>(wav.begin(), wav.begin() + 44), header);
}

TEST(ToneWavTest, AHundredMillisecondsRiseAndFall) {
    const std::vector<int> samples = samples_of(tone_wav(440.0, 100));
    ASSERT_EQ(samples.size(), 4410u);
    EXPECT_EQ(first(samples, 4), (std::vector<int>{0, 2, 11, 25}));
    EXPECT_EQ(samples[441], 11555);
    EXPECT_EQ((std::vector<int>(samples.end() - 3, samples.end())),
              (std::vector<int>{-25, -11, -2}));
}

TEST(ToneWavTest, AToneShorterThanTheFadeEndsAtItsHighestGain) {
    const std::vector<int> samples = samples_of(tone_wav(440.0, 1));
    ASSERT_EQ(samples.size(), 44u);
    EXPECT_EQ(first(samples, 5), (std::vector<int>{0, 2, 11, 25, 44}));
    EXPECT_EQ(samples.back(), 826);
}

TEST(ToneWavTest, TwentyMillisecondsHaveOneSampleAtFullGain) {
    // A quarter of the sample rate: every second sample is at the top or bottom of the wave, and
    // shows the gain as it is.
    const std::vector<int> peaks = samples_of(tone_wav(11025.0, 20));
    ASSERT_EQ(peaks.size(), 882u);
    EXPECT_EQ(std::abs(peaks[441]), 19660);
    EXPECT_EQ(
        std::count_if(peaks.begin(), peaks.end(), [](int peak) { return std::abs(peak) >= 19660; }),
        1);
    EXPECT_EQ(std::abs(peaks[439]), 19571);  // 439/441
    EXPECT_EQ(std::abs(peaks[443]), 19571);  // 439/441
    EXPECT_EQ(std::abs(peaks[881]), 44);     // 1/441

    const std::vector<int> samples = samples_of(tone_wav(1000.0, 20));
    ASSERT_EQ(samples.size(), 882u);
    EXPECT_EQ(samples[441], 0);  // ten whole periods
}

TEST(ToneWavTest, TheCountWrapsIn32Bits) {
    EXPECT_EQ(tone_wav(440.0, 97391).size(), 44u + 2 * 4294943);
    EXPECT_EQ(tone_wav(440.0, 97392).size(), 44u + 2 * 19);
    EXPECT_EQ(tone_wav(440.0, 97393).size(), 44u + 2 * 64);
    EXPECT_EQ(tone_wav(440.0, INT_MAX).size(), 44u + 2 * 4294923);
}

TEST(ToneWavTest, ACountBelowOneIsOne) {
    // 4966969 x 44100 is 51 x 2^32 + 804: less than one sample is left of it.
    EXPECT_EQ(samples_of(tone_wav(440.0, 4966969)), std::vector<int>{0});
}

TEST(ToneWavTest, EqualsThePlainModelByteForByte) {
    const double frequencies[] = {5e-324, 0.001,  1.0,     20.0,    261.63,   440.0, 440.6,
                                  1000.0, 9999.9, 22050.0, 44100.0, 123456.7, 1e9,   1e300};
    const int durations[] = {1,   2,   9,   10,   11,    19,    20,    21,     22,     50,
                             100, 250, 333, 1000, 97392, 97393, 97400, 194784, 500000, INT_MAX - 1};
    for (const double frequency : frequencies) {
        for (const int duration : durations) {
            if (duration > 400000 && frequency != 440.6) continue;  // millions of samples
            const std::vector<unsigned char> wav = tone_wav(frequency, duration);
            ASSERT_TRUE(std::string(wav.begin(), wav.end()) == model_tone_file(frequency, duration))
                << frequency << " Hz for " << duration << " ms";
        }
    }
}

TEST(ToneWavTest, AFrequencyThatIsNotANumberIsSilence) {
    EXPECT_EQ(samples_of(tone_wav(kNan, 100)), std::vector<int>(4410, 0));
    EXPECT_EQ(samples_of(tone_wav(kInfinity, 100)), std::vector<int>(4410, 0));
    EXPECT_EQ(samples_of(tone_wav(std::numeric_limits<double>::max(), 100)),
              std::vector<int>(4410, 0));
}

}  // namespace
