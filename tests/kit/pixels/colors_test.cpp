// kit_mix() and kit_grey().
#include <gtest/gtest.h>

#include <climits>

#include "orvel_kit.h"
#include "support/picture.h"

namespace {

using namespace orvel_test;

TEST(MixTest, EveryChannelGoesItsPartOfTheWay) {
    const orvel_color from = {0, 200, 100, 255}, to = {100, 0, 100, 55};
    EXPECT_EQ(kit_mix(from, to, 0), from);
    EXPECT_EQ(kit_mix(from, to, 25), (orvel_color{25, 150, 100, 205}));
    EXPECT_EQ(kit_mix(from, to, 100), to);
}

TEST(MixTest, WhatIsNoWholeStepIsCutTowardTheFirst) {
    const orvel_color low = {10, 10, 10, 10}, high = {13, 13, 13, 13};
    EXPECT_EQ(kit_mix(low, high, 50), (orvel_color{11, 11, 11, 11}));  // 1.5 up
    EXPECT_EQ(kit_mix(high, low, 50), (orvel_color{12, 12, 12, 12}));  // 1.5 down
    EXPECT_EQ(kit_mix(low, high, 99), (orvel_color{12, 12, 12, 12}));
    EXPECT_EQ(kit_mix(high, low, 33), high);
}

TEST(MixTest, APercentEndsAtNothingAndAll) {
    for (const int little : {-1, INT_MIN}) EXPECT_EQ(kit_mix(kBlack, kInk, little), kBlack);
    for (const int much : {101, INT_MAX}) EXPECT_EQ(kit_mix(kBlack, kInk, much), kInk);
}

TEST(GreyTest, GreenIsLightestAndBlueDarkest) {
    EXPECT_EQ(kit_grey({255, 0, 0, 255}), 54);
    EXPECT_EQ(kit_grey({0, 255, 0, 255}), 182);
    EXPECT_EQ(kit_grey({0, 0, 255, 255}), 18);
    EXPECT_EQ(kit_grey({200, 100, 50, 255}), 118);  // 117.7
}

TEST(GreyTest, AGreyIsItselfWhateverItsAlpha) {
    for (int value = 0; value < 256; ++value) {
        const auto v = static_cast<unsigned char>(value);
        ASSERT_EQ(kit_grey({v, v, v, v}), value);
    }
}

TEST(KitVersionTest, IsThatOfTheHeader) { EXPECT_STREQ(kit_version(), KIT_VERSION); }

}  // namespace
