// Sines and cosines that are the same on every machine, which those of C libraries are not.
#pragma once

namespace orvel {

/// The sine and cosine of @p angle in radians, the doubles nearest to the exact numbers. NaN for
/// what is not finite. They take some microseconds each.
double sine(double angle);
double cosine(double angle);

/// The same in some nanoseconds, neither further than kDirectionError from the exact numbers.
struct Direction {
    double sine, cosine;
};
Direction direction(double angle);
constexpr double kDirectionError = 1.0 / (1LL << 50);

/// trunc(cosine(angle) * length) and trunc(sine(angle) * length).
struct Offset {
    int x, y;
};
Offset offset(double angle, int length);

}  // namespace orvel
