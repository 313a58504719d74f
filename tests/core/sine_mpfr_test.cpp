// The library's own sines beside those of MPFR, which rounds correctly.
#include <gtest/gtest.h>
#include <mpfr.h>

#include <cmath>

#include "core/sine.h"
#include "support/cases.h"
#include "support/random.h"

namespace {

using orvel::Direction;
using orvel_test::Random;

/// A number with @p bits bits.
class Number {
public:
    explicit Number(mpfr_prec_t bits) { mpfr_init2(value_, bits); }
    Number(const Number&) = delete;
    Number& operator=(const Number&) = delete;
    ~Number() { mpfr_clear(value_); }
    mpfr_ptr get() { return value_; }
    double rounded() { return mpfr_get_d(value_, MPFR_RNDN); }

private:
    mpfr_t value_;
};

using Function = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);

double nearest(Function function, double angle) {
    Number of(53), result(53);
    mpfr_set_d(of.get(), angle, MPFR_RNDN);
    function(result.get(), of.get(), MPFR_RNDN);
    return result.rounded();
}

double error(Function function, double angle, double found) {
    Number of(53), result(120);
    mpfr_set_d(of.get(), angle, MPFR_RNDN);
    function(result.get(), of.get(), MPFR_RNDN);
    mpfr_sub_d(result.get(), result.get(), found, MPFR_RNDN);
    return std::abs(result.rounded());
}

/// Any double, one of a few turns, one near to a multiple of a quarter turn, or a small one.
double random_angle(Random& random) {
    // One after the other, since compilers differ in the order of operands.
    const int high = random.between(0, 1 << 30), low = random.between(0, 1 << 22);
    const double part = high + low * 0x1p-22;
    switch (random.between(0, 3)) {
    case 0: return std::ldexp(part, random.between(-1100, 993));
    case 1: return part * 0x1p-24;
    case 2: {
        const double near = random.between(1, 4000000) * 1.5707963267948966;
        return near * (1.0 + random.between(-2, 2) * 0x1p-52);
    }
    default: return std::ldexp(part, random.between(-70, -28));
    }
}

TEST(SineMpfrTest, SinesAndCosinesAreTheNearestDoubles) {
    for (const std::uint64_t number : orvel_test::some_cases(10000)) {
        Random random(number);
        const double angle = random_angle(random);
        SCOPED_TRACE(number);
        ASSERT_EQ(orvel::sine(angle), nearest(mpfr_sin, angle)) << angle;
        ASSERT_EQ(orvel::cosine(angle), nearest(mpfr_cos, angle)) << angle;
        ASSERT_EQ(orvel::sine(-angle), -orvel::sine(angle)) << angle;
        ASSERT_EQ(orvel::cosine(-angle), orvel::cosine(angle)) << angle;
    }
}

TEST(SineMpfrTest, DirectionsAreWithinTheirError) {
    for (const std::uint64_t number : orvel_test::some_cases(100000)) {
        Random random(number);
        const double angle = random_angle(random);
        const Direction found = orvel::direction(angle);
        SCOPED_TRACE(number);
        ASSERT_LT(error(mpfr_sin, angle, found.sine), orvel::kDirectionError) << angle;
        ASSERT_LT(error(mpfr_cos, angle, found.cosine), orvel::kDirectionError) << angle;
    }
}

}  // namespace
