/* Compiled by many standards of C and C++: the public header stands alone and may be repeated. */
#include "orvel.h"

int orvel_color_is_four_bytes[sizeof(orvel_color) == 4 ? 1 : -1];
int orvel_theme_is_nine_colors[sizeof(orvel_theme) == 36 ? 1 : -1];

#include "orvel.h"
