/* What hosts have compiled into them, the same on every machine, from C and from C++. */
#include <assert.h>
#include <stddef.h>

#include "orvel.h"

static_assert(sizeof(orvel_color) == 4, "a colour is four bytes");
static_assert(offsetof(orvel_color, r) == 0, "red");
static_assert(offsetof(orvel_color, g) == 1, "green");
static_assert(offsetof(orvel_color, b) == 2, "blue");
static_assert(offsetof(orvel_color, a) == 3, "alpha");

static_assert(sizeof(orvel_theme) == 36, "a theme is nine colours");
static_assert(offsetof(orvel_theme, background) == 0, "background");
static_assert(offsetof(orvel_theme, surface) == 4, "surface");
static_assert(offsetof(orvel_theme, text) == 8, "text");
static_assert(offsetof(orvel_theme, accent) == 12, "accent");
static_assert(offsetof(orvel_theme, border) == 16, "border");
static_assert(offsetof(orvel_theme, button) == 20, "button");
static_assert(offsetof(orvel_theme, button_hover) == 24, "button_hover");
static_assert(offsetof(orvel_theme, button_text) == 28, "button_text");
static_assert(offsetof(orvel_theme, error) == 32, "error");

/* The offset of what follows one byte is the alignment. */
struct color_behind_a_byte {
    char byte;
    orvel_color color;
};
struct theme_behind_a_byte {
    char byte;
    orvel_theme theme;
};
static_assert(offsetof(struct color_behind_a_byte, color) == 1, "a colour lies anywhere");
static_assert(offsetof(struct theme_behind_a_byte, theme) == 1, "a theme lies anywhere");

static_assert(sizeof(orvel_widget_kind) == 4, "a kind is an int in size");
static_assert(ORVEL_WIDGET_WINDOW == 0 && ORVEL_WIDGET_STATUSBAR == 27, "28 kinds");
