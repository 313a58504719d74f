// The samples of tones beside their plain rule, above all where that is hard to decide.
#include "sound/tone_samples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "core/sine.h"
#include "models/tone_model.h"
#include "support/cases.h"
#include "support/random.h"
#include "support/sanitizers.h"

namespace {

using namespace orvel_test;

std::vector<int> tone(double step, int count) {
    std::vector<unsigned char> bytes(2 * static_cast<std::size_t>(count));
    orvel::put_tone(bytes.data(), count, step);
    std::vector<int> samples;
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        const int word = bytes[i] + 256 * bytes[i + 1];
        samples.push_back(word < 32768 ? word : word - 65536);
    }
    return samples;
}

/// The sample by its rule, of this sine of its phase.
int sample_of(double sine, int i, int count) {
    const double value = (sine * 19660.2) * model_gain(i, count);
    return std::isnan(value) ? 0 : static_cast<int>(value);
}

double phase_of(double step, int i) {
    double phase = 0.0;
    for (; i > 0; --i) phase += step;
    return phase;
}

/// Steps of audible tones, of any size, with few bits (whose sums are often halfway between two
/// doubles), and such as meet the same phases again and again.
double random_step(Random& random) {
    // One after the other, since compilers differ in the order of operands.
    const int high = random.between(1, 1 << 30), low = random.between(0, 1 << 22);
    const int few = random.between(1, 255), last = random.between(-60, -20);
    const double part = (high + low * 0x1p-22) * 0x1p-30;
    switch (random.between(0, 4)) {
    case 0: return part * 2.9;
    case 1: return std::ldexp(part, random.between(-1100, 1023));
    case 2: return std::ldexp(few, random.between(-30, 4));
    case 3: return 6.283185307179586 / random.between(1, 1000);
    default: return std::ldexp(1.0, random.between(-20, 5)) + std::ldexp(1.0, last);
    }
}

TEST(ToneSamplesTest, AnyToneEqualsThePlainRule) {
    for (const std::uint64_t number : some_cases(2000)) {
        Random random(number);
        const double step = random_step(random);
        const int count = random.between(1, 1 << random.between(0, 13));
        SCOPED_TRACE(number);
        const std::vector<int> found = tone(step, count);
        double phase = 0.0;
        for (int i = 0; i < count; ++i, phase += step) {
            ASSERT_EQ(found[static_cast<std::size_t>(i)], sample_of(std::sin(phase), i, count))
                << "sample " << i << " of " << count << ", step " << step;
        }
    }
}

/// That the sample @p i is decided rightly in a tone whose value there is so near to @p whole that
/// the rule itself must decide; how near, the roundings of its phases say.
void expect_decided(int whole, int i, int count, double more_turns) {
    const double height = whole / (19660.2 * model_gain(i, count));
    const double angle = std::asin(height) + more_turns * 6.283185307179586;
    double step = angle / i;
    step *= 1.0 + (std::abs(whole) % 5 - 2) * 0x1p-52;
    const double sine = orvel::sine(phase_of(step, i));
    ASSERT_EQ(tone(step, count)[static_cast<std::size_t>(i)], sample_of(sine, i, count))
        << whole << " at " << i << " of " << count << ", step " << step;
}

TEST(ToneSamplesTest, EveryBoundaryBetweenTwoValuesIsDecidedRightly) {
    constexpr int kAt = 441, kCount = 882;  // not in the fades
    for (int whole = 1; whole <= 19660; whole += kAddressSanitizer ? 97 : 1) {
        expect_decided(whole, kAt, kCount, 1.0);
        expect_decided(-whole, kAt, kCount, 2.0);
        if (HasFailure()) return;
    }
}

TEST(ToneSamplesTest, BoundariesInTheFadesAreDecidedRightly) {
    constexpr int kCount = 1000;
    for (int at = 1; at < kCount; ++at) {
        const int highest = static_cast<int>(19660.2 * model_gain(at, kCount));
        for (const int whole : {1, highest / 3, highest / 2, highest - 1, highest}) {
            if (whole > 0) expect_decided(whole, at, kCount, 1.0);
            if (HasFailure()) return;
        }
    }
}

TEST(ToneSamplesTest, TheFirstSampleBehindTheFadeInMayBeTheLast) {
    constexpr double kStep = 0x1p-9;
    for (const int count : {441, 442, 443}) {
        const std::vector<int> found = tone(kStep, count);
        for (int i = 0; i < count; ++i) {
            ASSERT_EQ(found[static_cast<std::size_t>(i)], sample_of(std::sin(i * kStep), i, count))
                << "sample " << i << " of " << count;
        }
    }
}

TEST(ToneSamplesTest, APhaseThatIsNotFiniteIsSilence) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double step : {std::nan(""), kInfinity}) {
        EXPECT_EQ(tone(step, 1000), std::vector<int>(1000, 0));
    }
    const std::vector<int> overflowing = tone(1e306, 1000);
    EXPECT_NE(overflowing[100], 0);
    EXPECT_TRUE(std::all_of(overflowing.begin() + 200, overflowing.end(),
                            [](int sample) { return sample == 0; }));
}

}  // namespace
