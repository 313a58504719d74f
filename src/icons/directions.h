// The directions that recipes go in: the sines and cosines nearest to those of their angles.
// Deliberate: the angles are formed from these digits, not from a better pi.
#pragma once

#include "core/sine.h"

namespace orvel {

/// i * 3.14159265358979 * 0.125 for i = 0, 2, ..., 14.
constexpr Direction kEighths[] = {{0x0p+0, 0x1p+0},
                                  {0x1.6a09e667f3bc7p-1, 0x1.6a09e667f3bd2p-1},
                                  {0x1p+0, 0x1.d1a62633145cp-50},
                                  {0x1.6a09e667f3bdbp-1, -0x1.6a09e667f3bbep-1},
                                  {0x1.d1a62633145cp-49, -0x1p+0},
                                  {-0x1.6a09e667f3bb2p-1, -0x1.6a09e667f3be7p-1},
                                  {-0x1p+0, -0x1.4d3c9ca64f45p-48},
                                  {-0x1.6a09e667f3bfp-1, 0x1.6a09e667f3ba9p-1}};

/// A tip of the star, the notch behind it, and the next tip.
struct StarPoint {
    Direction tip, notch, next;
};

/// Tips at (i * 3.14159265358979) / 5.0 - 1.570796326794895 for i = 0, 2, ..., 8, the first
/// straight up; 0.628318530717958 and 1.256637061435916 more.
constexpr StarPoint kStar[] = {
    {{-0x1p+0, 0x1.d1a62633145cp-50},
     {-0x1.9e3779b97f4a3p-1, 0x1.2cf2304755a65p-1},
     {-0x1.3c6ef372fe94bp-2, 0x1.e6f0e134455p-1}},
    {{-0x1.3c6ef372fe94bp-2, 0x1.e6f0e134455p-1},
     {0x1.3c6ef372fe948p-2, 0x1.e6f0e13445501p-1},
     {0x1.9e3779b97f4a2p-1, 0x1.2cf2304755a66p-1}},
    {{0x1.9e3779b97f4a2p-1, 0x1.2cf2304755a66p-1},
     {0x1p+0, 0x1.08d313198a2ep-49},
     {0x1.9e3779b97f4b6p-1, -0x1.2cf2304755a4ap-1}},
    {{0x1.9e3779b97f4b2p-1, -0x1.2cf2304755a5p-1},
     {0x1.3c6ef372fe97fp-2, -0x1.e6f0e134454f8p-1},
     {-0x1.3c6ef372fe918p-2, -0x1.e6f0e13445508p-1}},
    {{-0x1.3c6ef372fe91p-2, -0x1.e6f0e1344550ap-1},
     {-0x1.9e3779b97f48fp-1, -0x1.2cf2304755a7fp-1},
     {-0x1p+0, -0x1.8d3c9ca64f45p-48}},
};

}  // namespace orvel
