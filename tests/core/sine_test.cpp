// The library's own sines, as every machine must have them.
#include "core/sine.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "icons/directions.h"
#include "support/random.h"

namespace {

using namespace orvel;
using orvel_test::Random;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(SineTest, ZeroAndWhatIsSmallIsItsOwnSineAndHasTheCosineOne) {
    for (const double angle :
         {0.0, 5e-324, 2.2250738585072014e-308, 0x1p-29, 0x1.fffffffffffffp-29}) {
        for (const double signed_angle : {angle, -angle}) {
            EXPECT_EQ(sine(signed_angle), signed_angle);
            EXPECT_EQ(cosine(signed_angle), 1.0);
        }
    }
}

TEST(SineTest, WhatIsNotFiniteHasNone) {
    for (const double angle : {kInfinity, -kInfinity, std::nan("")}) {
        EXPECT_TRUE(std::isnan(sine(angle)));
        EXPECT_TRUE(std::isnan(cosine(angle)));
        EXPECT_TRUE(std::isnan(direction(angle).sine));
        EXPECT_TRUE(std::isnan(direction(angle).cosine));
        EXPECT_EQ(offset(angle, 1000).x, 0);
        EXPECT_EQ(offset(angle, 1000).y, 0);
    }
}

TEST(SineTest, KnownValues) {
    EXPECT_EQ(sine(1.0), 0x1.aed548f090ceep-1);
    EXPECT_EQ(cosine(1.0), 0x1.14a280fb5068cp-1);
    EXPECT_EQ(sine(3.141592653589793), 0x1.1a62633145c07p-53);
    EXPECT_EQ(cosine(1.5707963267948966), 0x1.1a62633145c07p-54);
    EXPECT_EQ(sine(1.5707963267948966), 1.0);
    EXPECT_EQ(cosine(3.141592653589793), -1.0);
    EXPECT_EQ(sine(4.71238898038469), -1.0);
    EXPECT_EQ(sine(1e22), -0.8522008497671888);  // of which many libraries are far off
    EXPECT_EQ(sine(std::numeric_limits<double>::max()), 0x1.452fc98b34e97p-8);
    EXPECT_EQ(cosine(0x1.6ac5b262ca1ffp+849), -0x1.14ae72e6ba22fp-61);  // nearest to an odd quarter
}

/// FNV-1a (Fowler, Noll, Vo) of the bytes of doubles.
class Checksum {
public:
    void add(double value) {
        std::uint64_t bits;
        std::memcpy(&bits, &value, sizeof bits);
        for (int i = 0; i < 8; ++i) sum_ = (sum_ ^ (bits >> 8 * i & 255)) * 1099511628211u;
    }
    std::uint64_t sum() const { return sum_; }

private:
    std::uint64_t sum_ = 14695981039346656037u;
};

TEST(SineTest, EveryMachineHasTheSame) {
    Checksum exact;
    for (std::uint64_t number = 0; number < 3000; ++number) {
        Random random(number);
        const int part = random.between(1, 1 << 30), exponent = random.between(-60, 990);
        const double angle = std::ldexp(part, exponent);
        exact.add(sine(angle));
        exact.add(cosine(-angle));
    }
    EXPECT_EQ(exact.sum(), 11811502241611711844u);
}

TEST(SineTest, ADirectionIsNearToTheExactNumbers) {
    for (std::uint64_t number = 0; number < 5000; ++number) {
        Random random(number);
        const double scale = std::ldexp(1.0, random.between(-60, 40));
        const double angle = (random.between(0, 1 << 30) - (1 << 29)) * scale;
        SCOPED_TRACE(angle);
        ASSERT_LT(std::abs(direction(angle).sine - sine(angle)), kDirectionError);
        ASSERT_LT(std::abs(direction(angle).cosine - cosine(angle)), kDirectionError);
    }
}

TEST(SineTest, AnOffsetIsTheExactProductCutOff) {
    for (int length = -600; length <= 600; length += 7) {
        for (int part = 0; part <= 24; ++part) {  // whole, half and other products
            const double angle = part * 6.283185307179586 / 24;
            const Offset found = offset(angle, length);
            ASSERT_EQ(found.x, static_cast<int>(cosine(angle) * length)) << part << ", " << length;
            ASSERT_EQ(found.y, static_cast<int>(sine(angle) * length)) << part << ", " << length;
        }
    }
    EXPECT_EQ(offset(0.0, 2147483647).x, 2147483647);
    EXPECT_EQ(offset(3.141592653589793, 2147483647).x, -2147483647);
    EXPECT_EQ(offset(0.0, -2147483647 - 1).x, -2147483647 - 1);
}

TEST(SineTest, TheDirectionsOfRecipesAreThoseOfTheirAngles) {
    int i = 0;
    for (const Direction& eighth : kEighths) {
        const double angle = i * 3.14159265358979 * 0.125;
        EXPECT_EQ(eighth.sine, sine(angle)) << i;
        EXPECT_EQ(eighth.cosine, cosine(angle)) << i;
        i += 2;
    }
    EXPECT_EQ(i, 16);
    i = 0;
    for (const auto& [tip, notch, next] : kStar) {
        const double angle = (i * 3.14159265358979) / 5.0 + (-1.570796326794895);
        EXPECT_EQ(tip.sine, sine(angle)) << i;
        EXPECT_EQ(tip.cosine, cosine(angle)) << i;
        EXPECT_EQ(notch.sine, sine(angle + 0.628318530717958)) << i;
        EXPECT_EQ(notch.cosine, cosine(angle + 0.628318530717958)) << i;
        EXPECT_EQ(next.sine, sine(angle + 1.256637061435916)) << i;
        EXPECT_EQ(next.cosine, cosine(angle + 1.256637061435916)) << i;
        i += 2;
    }
    EXPECT_EQ(i, 10);
}

}  // namespace
