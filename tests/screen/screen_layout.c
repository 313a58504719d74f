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

static_assert(sizeof(kit_screen_event) == 8 * sizeof(int) + 6 * sizeof(void*),
              "kit_screen_event has another size");
static_assert(offsetof(kit_screen_event, modifiers) == 7 * sizeof(int), "modifiers has moved");
static_assert(offsetof(kit_screen_event, text) == 8 * sizeof(int), "text has moved");
static_assert(offsetof(kit_screen_event, caret) == 8 * sizeof(int) + sizeof(void*),
              "caret has moved");

static_assert(sizeof(kit_change) == 8 * sizeof(void*), "kit_change has another size");
AT(kit_change, kind, 0);
AT(kit_change, id, 1);
AT(kit_change, name, 2);
AT(kit_change, value, 3);
AT(kit_change, reserved, 4);
