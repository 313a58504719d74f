// Ranges, round numbers and places, from inside.
#include "charts/scale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "support/random.h"

namespace {

using kit::number_text;
using kit::Scale;
using kit::Ticks;
using kit::ticks_around;
using kit::ticks_inside;

std::vector<std::string> texts(const Ticks& ticks, int decimals = 0) {
    std::vector<std::string> all;
    for (auto i = ticks.first; i <= ticks.last; ++i) all.push_back(ticks.text(i, decimals));
    return all;
}

using Texts = std::vector<std::string>;

TEST(TicksTest, FallOnOneTwoOrFiveTimesAPowerOfTen) {
    EXPECT_EQ(texts(ticks_around(0, 4.5, 5)), (Texts{"0", "1", "2", "3", "4", "5"}));
    EXPECT_EQ(texts(ticks_around(0, 4.5, 3)), (Texts{"0", "2", "4", "6"}));
    EXPECT_EQ(texts(ticks_around(0, 4.5, 1)), (Texts{"0", "5"}));
    EXPECT_EQ(texts(ticks_around(0, 1234, 4)), (Texts{"0", "500", "1000", "1500"}));
}

TEST(TicksTest, NegativeRangesCountThroughZeroWithoutASign) {
    EXPECT_EQ(texts(ticks_around(-12, 7, 4)), (Texts{"-15", "-10", "-5", "0", "5", "10"}));
    EXPECT_EQ(texts(ticks_around(-0.3, -0.1, 2)), (Texts{"-0.3", "-0.2", "-0.1"}));
}

TEST(TicksTest, AnEndThatIsAMultipleOfTheStepIsTheLastTick) {
    EXPECT_EQ(texts(ticks_around(0.3, 0.9, 6)),
              (Texts{"0.3", "0.4", "0.5", "0.6", "0.7", "0.8", "0.9"}));
    EXPECT_EQ(texts(ticks_around(0, 1e15, 1)), (Texts{"0", "1000000000000000"}));
}

TEST(TicksTest, InsideAGivenRangeNoneLiesBeyondItsEnds) {
    EXPECT_EQ(texts(ticks_inside(1.5, 4.5, 3)), (Texts{"2", "3", "4"}));
    EXPECT_EQ(texts(ticks_inside(-0.05, 0.05, 2)), (Texts{"-0.05", "0.00", "0.05"}));
}

TEST(TicksTest, ShowAtLeastTheDecimalsThatAreAskedFor) {
    EXPECT_EQ(texts(ticks_around(0, 2, 2), 2), (Texts{"0.00", "1.00", "2.00"}));
    EXPECT_EQ(texts(ticks_around(0, 0.002, 2), 1), (Texts{"0.000", "0.001", "0.002"}));
}

TEST(TicksTest, NumbersThatNobodyReadsHaveNone) {
    EXPECT_TRUE(texts(ticks_around(0, 1.1e15, 5)).empty());
    EXPECT_TRUE(texts(ticks_inside(-1.1e15, 0, 5)).empty());
    EXPECT_TRUE(texts(ticks_around(-1e300, 1e300, 5)).empty());
    EXPECT_TRUE(texts(ticks_around(1e15, 1e15 + 0.125, 5)).empty());
    EXPECT_EQ(texts(ticks_around(0, 1e-12, 1)).size(), 2u);  // the smallest step, 10^-9
}

TEST(TicksTest, AreNeverMoreThanAskedForAndAlwaysCoverTheRange) {
    orvel_test::Random random(7);
    for (int i = 0; i < 100000; ++i) {
        const double size = std::pow(10.0, random.between(-6, 9));
        const double low = random.between(-1000, 1000) * size / 100;
        const double high = low + random.between(1, 1000) * size / 100;
        const int most = random.between(1, 10);
        const Ticks around = ticks_around(low, high, most);
        const double hair = (high - low) * 1e-5;
        ASSERT_LE(around.value(around.first), low + hair) << i;
        ASSERT_GE(around.value(around.last), high - hair) << i;
        ASSERT_LE(around.last - around.first, most + 1) << i;
        const Ticks inside = ticks_inside(low, high, most);
        ASSERT_LE(inside.last - inside.first, most) << i;
        ASSERT_EQ(inside.factor, around.factor) << i;
    }
}

TEST(NumberTextTest, HalvesGoAwayFromZero) {
    EXPECT_EQ(number_text(0.5, 0), "1");
    EXPECT_EQ(number_text(-0.5, 0), "-1");
    EXPECT_EQ(number_text(2.5, 0), "3");
    EXPECT_EQ(number_text(0.125, 2), "0.13");
    EXPECT_EQ(number_text(-20.25, 1), "-20.3");
}

TEST(NumberTextTest, ACarryReachesTheWholePart) {
    EXPECT_EQ(number_text(9.96, 1), "10.0");
    EXPECT_EQ(number_text(-0.999, 2), "-1.00");
}

TEST(NumberTextTest, WhatRoundsToZeroHasNoSign) {
    EXPECT_EQ(number_text(-0.04, 1), "0.0");
    EXPECT_EQ(number_text(-0.0, 0), "0");
}

TEST(NumberTextTest, DecimalsAreClampedToNine) {
    EXPECT_EQ(number_text(1, -5), "1");
    EXPECT_EQ(number_text(0.1, 99), "0.100000000");
}

TEST(NumberTextTest, WhatIsNoReadableNumberIsASign) {
    EXPECT_EQ(number_text(std::numeric_limits<double>::quiet_NaN(), 0), "\u2013");
    EXPECT_EQ(number_text(std::numeric_limits<double>::infinity(), 0), "\u2013");
    EXPECT_EQ(number_text(1e15, 0), "1000000000000000");
    EXPECT_EQ(number_text(-1e16, 0), "\u2026");
}

TEST(ScaleTest, TheEndsOfTheRangeAreTheEndsOfTheLength) {
    orvel_test::Random random(3);
    for (int i = 0; i < 100000; ++i) {
        const double low = random.between(-1000000, 1000000) / 128.0;
        const double high = low + random.between(1, 1000000) / 128.0;
        const int last = random.between(0, 32767);
        const Scale scale(low, high);
        ASSERT_EQ(scale.place(scale.units(low), last), 0);
        ASSERT_EQ(scale.place(scale.units(high), last), last);
    }
}

/// The rounded place by rational arithmetic on numbers of eighths.
int plain_place(int value, int low, int high, int last) {
    const std::int64_t twice = 2 * std::int64_t{value - low} * last + (high - low);
    const std::int64_t span = 2 * std::int64_t{high - low};
    return static_cast<int>(twice >= 0 ? twice / span : -((-twice + span - 1) / span));
}

TEST(ScaleTest, PlacesAreRoundedHalfUpInsideTheRangeAndOutside) {
    orvel_test::Random random(5);
    for (int i = 0; i < 1000000; ++i) {
        const int low = random.between(-4000, 4000);
        const int high = low + random.between(1, 4000);
        const int value = random.between(low - (high - low) * 6, high + (high - low) * 6);
        const int last = random.between(0, 1000);
        const Scale scale(low / 8.0, high / 8.0);
        ASSERT_EQ(scale.place(scale.units(value / 8.0), last), plain_place(value, low, high, last))
            << value << " in " << low << ".." << high << " on " << last;
    }
}

TEST(ScaleTest, ExtremesOfDoublesStayNearTheRange) {
    constexpr double huge = std::numeric_limits<double>::max();
    constexpr double tiny = std::numeric_limits<double>::denorm_min();
    for (const auto& [low, high] :
         {std::pair{-huge, huge}, std::pair{0.0, tiny}, std::pair{-tiny, tiny}, std::pair{0.0, 1.0},
          std::pair{1e15, 1e15 + 0.125}}) {
        const Scale scale(low, high);
        for (const double value : {-huge, -1.0, -tiny, 0.0, tiny, 1.0, huge}) {
            const int place = scale.place(scale.units(value), 1000);
            EXPECT_GE(place, -7001);
            EXPECT_LE(place, 8001);
        }
        EXPECT_EQ(scale.place(scale.units(high), 1000), 1000);
        EXPECT_EQ(scale.place(scale.units(low), 1000), 0);
    }
}

}  // namespace
