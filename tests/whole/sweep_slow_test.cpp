// The models walk every step of a shape. Here they walk up to 2^32 of them.
#include <gtest/gtest.h>

#include <climits>

#include "support/cases.h"
#include "whole/sweep.h"

namespace {

using namespace orvel_test;

DrawingCall call_with(Arguments arguments) {
    DrawingCall call;
    call.width = 40;
    call.height = 30;
    call.arguments = arguments;
    return call;
}

class LongLine : public testing::TestWithParam<Arguments> {};

TEST_P(LongLine, CrossesTheCanvasAndEqualsTheWalkedOne) {
    const DrawingCall call = call_with(GetParam());
    EXPECT_TRUE(draws(kLine, call));
    EXPECT_EQ(difference(kLine, call), "");
}

INSTANTIATE_TEST_SUITE_P(
    Extremes, LongLine,
    testing::Values(Arguments{INT_MIN, INT_MIN, INT_MAX, INT_MAX - 17},
                    Arguments{INT_MAX, INT_MIN + 9, INT_MIN, INT_MAX},
                    Arguments{INT_MIN, 11, INT_MAX, 12}, Arguments{20, INT_MAX, 23, INT_MIN},
                    Arguments{0, 0, INT_MAX, INT_MAX - 1}, Arguments{39, 29, INT_MIN, -715827000},
                    Arguments{-1431655765, -1000000000, 2147483647, 1500000033},
                    Arguments{7, INT_MIN, 13, 1 << 30}));

class LargeCircle : public testing::TestWithParam<Arguments> {};

TEST_P(LargeCircle, CrossesTheCanvasAndEqualsTheWalkedOne) {
    const DrawingCall call = call_with(GetParam());
    EXPECT_TRUE(draws(kCircle, call));
    EXPECT_EQ(difference(kCircle, call), "");
}

// The canvas lies where the arcs are flat, in the midst of one, and where two meet at a diagonal.
INSTANTIATE_TEST_SUITE_P(Extremes, LargeCircle,
                         testing::Values(Arguments{INT_MAX, 15, INT_MAX},
                                         Arguments{20, -INT_MAX + 7, INT_MAX},
                                         Arguments{1288490188, 1717986917, INT_MAX},
                                         Arguments{1518500249 + 20, 1518500249 + 10, INT_MAX},
                                         Arguments{-759250124, 759250140, 1 << 30},
                                         Arguments{20, (1 << 30) + 12, 1 << 30}));

TEST(LongSweep, LinesOfAMillionSteps) {
    for (const std::uint64_t number : cases(400)) {
        Random random(number);
        DrawingCall call = call_with({});
        const int half = random.between(1 << 19, 1 << 22);
        const int aside = random.between(0, half);
        const int x = random.between(0, 39), y = random.between(0, 29);
        call.arguments = {x - half, y - aside, x + half + random.between(-99, 99), y + aside};
        if (random.one_in(2)) std::swap(call.arguments[1], call.arguments[3]);
        if (random.one_in(2)) {  // steep
            std::swap(call.arguments[0], call.arguments[1]);
            std::swap(call.arguments[2], call.arguments[3]);
        }
        ASSERT_EQ(difference(kLine, call), "") << number;
    }
}

TEST(LongSweep, CirclesOfAMillionSteps) {
    for (const std::uint64_t number : cases(150)) {
        Random random(number);
        DrawingCall call = call_with({});
        const int r = random.between(1000000, 8000000);
        // Along the arc in every direction: three sides of right triangles times r.
        constexpr int triples[][3] = {
            {3, 4, 5}, {5, 12, 13}, {20, 21, 29}, {0, 1, 1}, {119, 120, 169}};
        const auto& triple = triples[random.between(0, 4)];
        std::int64_t across = std::int64_t{r} * triple[0] / triple[2];
        std::int64_t down = std::int64_t{r} * triple[1] / triple[2];
        if (random.one_in(2)) std::swap(across, down);
        if (random.one_in(2)) across = -across;
        if (random.one_in(2)) down = -down;
        call.arguments = {static_cast<int>(random.between(0, 39) + across),
                          static_cast<int>(random.between(0, 29) + down), r};
        ASSERT_EQ(difference(kCircle, call), "") << number;
    }
}

}  // namespace
