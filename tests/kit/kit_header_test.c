/* Compiled by many standards of C and C++: the header stands alone and may be repeated. */
#include "orvel_kit.h"

int kit_box_is_four_ints[sizeof(kit_box) == 4 * sizeof(int) ? 1 : -1];

#include "orvel_kit.h"
