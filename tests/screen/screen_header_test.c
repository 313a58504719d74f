/* Compiled by many standards of C and C++: the header stands alone and may be repeated. */
#include "orvel_screen.h"

int kit_screen_has_a_host[sizeof(kit_screen_host) > sizeof(void*) ? 1 : -1];

#include "orvel_screen.h"
