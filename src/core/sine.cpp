#include "core/sine.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "core/numbers.h"

namespace orvel {
namespace {

/// A fraction of one, the highest 32 of its bits first.
using Fraction = std::array<std::uint32_t, 10>;

/// 2 / pi: as many bits as the largest double needs, and a fraction behind them.
constexpr std::uint32_t kTwoOverPi[] = {
    0xa2f9836e, 0x4e441529, 0xfc2757d1, 0xf534ddc0, 0xdb629599, 0x3c439041, 0xfe5163ab, 0xdebbc561,
    0xb7246e3a, 0x424dd2e0, 0x06492eea, 0x09d1921c, 0xfe1deb1c, 0xb129a73e, 0xe88235f5, 0x2ebb4484,
    0xe99c7026, 0xb45f7e41, 0x3991d639, 0x835339f4, 0x9c845f8b, 0xbdf9283b, 0x1ff897ff, 0xde05980f,
    0xef2f118b, 0x5a0a6d1f, 0x6d367ecf, 0x27cb09b7, 0x4f463f66, 0x9e5fea2d, 0x7527bac7, 0xebe5f17b,
    0x3d0739f7, 0x8a5292ea, 0x6bfb5fb1, 0x1f8d5d08, 0x56033046, 0xfc7b6bab, 0xf0cfbc20, 0x9af4361d,
    0xa9e39161, 0x5ee61b08, 0x6599855f, 0x14a06840,
};
constexpr Fraction kQuarterPi = {0xc90fdaa2, 0x2168c234, 0xc4c6628b, 0x80dc1cd1, 0x29024e08,
                                 0x8a67cc74, 0x020bbea6, 0x3b139b22, 0x514a0879, 0x8e3404dd};

bool is_zero(const Fraction& a) {
    for (const std::uint32_t limb : a) {
        if (limb != 0) return false;
    }
    return true;
}

Fraction minus(const Fraction& a, const Fraction& b) {  // modulo 1
    Fraction result;
    std::uint64_t borrow = 0;
    for (std::size_t i = a.size(); i-- > 0;) {
        const std::uint64_t difference = std::uint64_t{a[i]} - b[i] - borrow;
        result[i] = static_cast<std::uint32_t>(difference);
        borrow = difference >> 63;
    }
    return result;
}

Fraction plus(const Fraction& a, const Fraction& b) {  // modulo 1
    return minus(a, minus(Fraction{}, b));
}

/// The product, but for a few units of its last place.
Fraction times(const Fraction& a, const Fraction& b) {
    Fraction result{};
    for (std::size_t i = a.size(); i-- > 0;) {
        std::uint64_t carry = 0;
        for (std::size_t j = a.size() - i; j-- > 0;) {
            std::uint64_t sum = std::uint64_t{a[i]} * b[j] + carry;
            if (i + j + 1 < a.size()) {
                sum += result[i + j + 1];
                result[i + j + 1] = static_cast<std::uint32_t>(sum);
            }
            carry = sum >> 32;
        }
        result[i] = static_cast<std::uint32_t>(carry);
    }
    return result;
}

Fraction divided(const Fraction& a, std::uint32_t divisor) {
    Fraction result;
    std::uint64_t rest = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        const std::uint64_t dividend = rest << 32 | a[i];
        result[i] = static_cast<std::uint32_t>(dividend / divisor);
        rest = dividend % divisor;
    }
    return result;
}

/// 2 to the power of @p exponent, which normal doubles have.
double power_of_two(int exponent) {
    const auto bits = static_cast<std::uint64_t>(exponent + 1023) << 52;
    double result;
    std::memcpy(&result, &bits, sizeof result);
    return result;
}

/// The nearest double to a fraction of at least 2 to the power of -70. No sine lies in the middle
/// between two doubles.
double rounded(const Fraction& a) {
    const auto bit = [&a](std::size_t place) -> std::uint64_t {
        return a[place / 32] >> (31 - place % 32) & 1;
    };
    std::size_t first = 0;  // set bit, from the top
    while (!bit(first)) ++first;
    std::uint64_t mantissa = 0;
    for (std::size_t place = first; place < first + 53; ++place) {
        mantissa = mantissa << 1 | bit(place);
    }
    mantissa += bit(first + 53);
    return static_cast<double>(mantissa) * power_of_two(-static_cast<int>(first) - 53);
}

/// An angle as quarters of a turn, and what lies between it and them: at most half a quarter.
struct Reduced {
    unsigned quarters;  // modulo 4
    bool negative;      // the rest lies before them
    Fraction rest;      // of a quarter
};

/// 32 bits of 2 / pi, from the bit @p place behind the point on.
std::uint32_t two_over_pi(int place) {
    const int limb = place / 32, bits = place % 32;
    const std::uint64_t both = std::uint64_t{kTwoOverPi[limb]} << 32 | kTwoOverPi[limb + 1];
    return static_cast<std::uint32_t>(both >> (32 - bits));
}

/// 416 bits of 2 / pi times a mantissa of 53.
using Product = std::array<std::uint32_t, 15>;
constexpr std::size_t kWindow = 13;

/// The bits of 2 / pi from @p skipped on, times @p mantissa.
Product product_of(std::uint64_t mantissa, int skipped) {
    Product product{};
    for (std::size_t i = kWindow; i-- > 0;) {
        const std::uint64_t limb = two_over_pi(skipped + 32 * static_cast<int>(i));
        const std::uint64_t low = limb * (mantissa & 0xffffffff) + product[i + 2];
        product[i + 2] = static_cast<std::uint32_t>(low);
        const std::uint64_t high = limb * (mantissa >> 32) + product[i + 1] + (low >> 32);
        product[i + 1] = static_cast<std::uint32_t>(high);
        product[i] = static_cast<std::uint32_t>(high >> 32);
    }
    return product;
}

/// 32 bits of it, the first at the place @p first from the top; what is above the top is 0.
std::uint32_t bits_at(const Product& product, int first) {
    std::uint32_t word = 0;
    for (int place = first; place < first + 32; ++place) {
        const std::uint32_t limb = place < 0 ? 0 : product[static_cast<std::size_t>(place / 32)];
        word = word << 1 | (limb >> (31 - (place & 31)) & 1);
    }
    return word;
}

/// Of an angle that is positive, normal and finite: its product with 2 / pi. Of that number only
/// such bits are multiplied as make no whole turns (M. Payne and R. Hanek, Radian reduction for
/// trigonometric functions, 1983).
Reduced reduced(double angle) {
    std::uint64_t bits;
    std::memcpy(&bits, &angle, sizeof bits);
    const std::uint64_t mantissa = (bits & 0xfffffffffffff) | 0x10000000000000;
    const int exponent = static_cast<int>(bits >> 52) - 1075;  // of the mantissa's lowest bit
    const int skipped = exponent > 2 ? exponent - 2 : 0;
    const Product product = product_of(mantissa, skipped);
    const int point = 64 + exponent - skipped;  // the place behind it

    Reduced result{bits_at(product, point - 32) & 3, false, {}};
    for (std::size_t i = 0; i < result.rest.size(); ++i) {
        result.rest[i] = bits_at(product, point + 32 * static_cast<int>(i));
    }
    if (result.rest[0] >> 31) {
        result.quarters = (result.quarters + 1) & 3;
        result.negative = true;
        result.rest = minus(Fraction{}, result.rest);
    }
    return result;
}

/// The sine of a fraction of a quarter turn, or its cosine, by Taylor's series.
double of_quarter(const Fraction& part, bool of_cosine) {
    const Fraction half = times(part, kQuarterPi), angle = plus(half, half);
    const Fraction square = times(angle, angle);
    Fraction term = of_cosine ? divided(square, 2) : angle;
    Fraction sum = of_cosine ? minus(Fraction{}, term) : term;  // 1 - term, modulo 1
    bool add = of_cosine;
    for (std::uint32_t n = of_cosine ? 3 : 2; !is_zero(term); n += 2, add = !add) {
        term = divided(times(term, square), n * (n + 1));
        sum = add ? plus(sum, term) : minus(sum, term);
    }
    return rounded(sum);
}

bool finite(double value) { return value - value == 0.0; }

double absolute(double value) { return value < 0.0 ? -value : value; }

/// An angle as quarters of a turn, some of them modulo 4, and what it is more than they, within 2
/// to the power of -52.
struct Rest {
    unsigned quarters;
    double angle;
};

Rest rest_of(double angle) {
    if (angle >= 1 << 30) {
        const Reduced place = reduced(angle);
        const double rest =
            (place.rest[0] * 0x1p-32 + place.rest[1] * 0x1p-64) * 0x1.921fb54442d18p0;
        return {place.quarters, place.negative ? -rest : rest};
    }
    const auto quarters = static_cast<unsigned>((angle * 0x1.45f306dc9c883p0 + 1.0) / 2);
    // pi / 2 in parts: the products of the first three with any such multiple are exact (W. Cody
    // and W. Waite, Software manual for the elementary functions, 1980).
    const double n = quarters;
    return {quarters, (((angle - n * 0x1.921fbp0) - n * 0x1.5110bp-22) - n * 0x1.184698p-44) -
                          n * 0x1.3198a2e037073p-69};
}

constexpr double kSmall = 1.0 / (1 << 28);  // whose sine is itself, and whose cosine 1

/// The sine of a positive angle and so many quarters of a turn more.
double sine_and_quarters(double angle, unsigned more) {
    // Often a whole number times 1, and not to be computed at length.
    const Rest near = rest_of(angle);
    const unsigned about = (near.quarters + more) & 3;
    if (about & 1 && absolute(near.angle) < kSmall) return about == 1 ? 1.0 : -1.0;

    const Reduced place = reduced(angle);
    const unsigned quarters = (place.quarters + more) & 3;
    const bool of_cosine = quarters & 1;
    const bool negative = (quarters >= 2) != (place.negative && !of_cosine);
    const double size = of_quarter(place.rest, of_cosine);
    return negative ? -size : size;
}

}  // namespace

double sine(double angle) {
    if (!finite(angle)) return angle - angle;
    const double size = absolute(angle);
    if (size < kSmall) return angle;
    const double result = sine_and_quarters(size, 0);
    return angle < 0.0 ? -result : result;
}

double cosine(double angle) {
    if (!finite(angle)) return angle - angle;
    const double size = absolute(angle);
    return size < kSmall ? 1.0 : sine_and_quarters(size, 1);
}

Direction direction(double angle) {
    if (!finite(angle)) return {angle - angle, angle - angle};
    const Rest rest = rest_of(absolute(angle));
    const double r = rest.angle, q = r * r;
    // Taylor's series; what is left out is below 2 to the power of -54.
    const double s =
        r +
        r * q *
            (-1.0 / 6 +
             q * (1.0 / 120 +
                  q * (-1.0 / 5040 + q * (1.0 / 362880 + q * (-1.0 / 39916800 +
                                                              q * (1.0 / 6227020800 +
                                                                   q * (-1.0 / 1307674368000)))))));
    const double c =
        1.0 + q * (-1.0 / 2 +
                   q * (1.0 / 24 +
                        q * (-1.0 / 720 +
                             q * (1.0 / 40320 +
                                  q * (-1.0 / 3628800 + q * (1.0 / 479001600 +
                                                             q * (-1.0 / 87178291200 +
                                                                  q * (1.0 / 20922789888000))))))));
    Direction result = rest.quarters & 1 ? Direction{c, -s} : Direction{s, c};
    if (rest.quarters & 2) result = {-result.sine, -result.cosine};
    if (angle < 0.0) result.sine = -result.sine;
    return result;
}

Offset offset(double angle, int length) {
    const Direction about = direction(angle);
    const double margin = absolute(length) * (2 * kDirectionError) + 0x1p-50;
    const auto along = [&](double part, double (*exact)(double)) {
        const double place = part * length;
        const int low = trunc(place - margin), high = trunc(place + margin);
        return low == high ? low : trunc(exact(angle) * length);
    };
    return {along(about.cosine, cosine), along(about.sine, sine)};
}

}  // namespace orvel
