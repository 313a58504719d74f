#pragma once

#include <cstring>

#include "orvel.h"

namespace kit {

/// Whether all four channels are equal.
inline bool same(orvel_color a, orvel_color b) { return std::memcmp(&a, &b, sizeof a) == 0; }

}  // namespace kit
