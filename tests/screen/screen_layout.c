/* The record of screens, as hosts have it compiled in, from C and from C++. Fields are never moved;
   a new one takes from the reserved. */
#include <assert.h>
#include <stddef.h>
#include <stdint.h>

#include "orvel_screen.h"

#define AT(record, field, offset) \
    static_assert(offsetof(record, field) == (offset) * sizeof(void*), #field " has moved")

static_assert(sizeof(kit_screen_host) == 9 * sizeof(void*), "kit_screen_host has another size");
AT(kit_screen_host, self, 0);
AT(kit_screen_host, picture, 1);
AT(kit_screen_host, theme, 2);
AT(kit_screen_host, face, 3);
AT(kit_screen_host, include, 4);
AT(kit_screen_host, reserved, 5);
