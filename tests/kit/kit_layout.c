/* The records of the kit, as hosts have them compiled in, from C and from C++. Fields are never
   moved; a new one takes from the reserved. */
#include <assert.h>
#include <stddef.h>
#include <stdint.h>

#include "orvel_kit.h"

#define AT(record, field, offset) \
    static_assert(offsetof(record, field) == (offset), #record "." #field " has moved")
#define SIZE(record, size) static_assert(sizeof(record) == (size), #record " has another size")

SIZE(kit_box, 16);
AT(kit_box, x, 0);
AT(kit_box, y, 4);
AT(kit_box, w, 8);
AT(kit_box, h, 12);

#if UINTPTR_MAX > 0xffffffffu
SIZE(kit_format, 64);
AT(kit_format, layout, 0);
AT(kit_format, dither, 4);
AT(kit_format, turns, 8);
AT(kit_format, colors, 12);
AT(kit_format, palette, 16);
AT(kit_format, plane, 24);
AT(kit_format, keep_alpha, 28);
AT(kit_format, reserved, 32);

SIZE(kit_widget, 128);
AT(kit_widget, kind, 0);
AT(kit_widget, box, 4);
AT(kit_widget, text, 24);
AT(kit_widget, hint, 32);
AT(kit_widget, icon, 40);
AT(kit_widget, face, 48);
AT(kit_widget, state, 56);
AT(kit_widget, amount, 60);
AT(kit_widget, value, 64);
AT(kit_widget, data, 72);
AT(kit_widget, count, 80);
AT(kit_widget, caret, 84);
AT(kit_widget, anchor, 88);
AT(kit_widget, scroll, 92);
AT(kit_widget, reserved, 96);

SIZE(kit_series, 40);
AT(kit_series, values, 0);
AT(kit_series, count, 8);
AT(kit_series, color, 12);
AT(kit_series, name, 16);
AT(kit_series, reserved, 24);

SIZE(kit_chart, 120);
AT(kit_chart, kind, 0);
AT(kit_chart, box, 4);
AT(kit_chart, series, 24);
AT(kit_chart, count, 32);
AT(kit_chart, low, 40);
AT(kit_chart, high, 48);
AT(kit_chart, parts, 56);
AT(kit_chart, decimals, 60);
AT(kit_chart, unit, 64);
AT(kit_chart, labels, 72);
AT(kit_chart, face, 80);
AT(kit_chart, reserved, 88);
#else
SIZE(kit_format, 44);
AT(kit_format, palette, 16);
AT(kit_format, reserved, 28);

SIZE(kit_series, 24);
AT(kit_series, color, 8);
AT(kit_series, name, 12);
AT(kit_series, reserved, 16);

AT(kit_widget, text, 20);
AT(kit_widget, amount, 40);
AT(kit_chart, series, 20);
AT(kit_chart, count, 24);
#endif

static_assert(KIT_RGBA == 0 && KIT_GREY8 == 4 && KIT_PLANE == 10, "11 layouts");
static_assert(KIT_DITHER_DIFFUSED == 2, "3 dithers");
static_assert(KIT_LEFT == 0 && KIT_RIGHT == 2, "3 places in a box");
static_assert(KIT_HOVER == 1 && KIT_ACTIVE == 2 && KIT_FOCUS == 4 && KIT_DISABLED == 8, "states");
static_assert(KIT_CHART_LINE == 0 && KIT_CHART_GAUGE == 5, "6 kinds of chart");
static_assert(KIT_CHART_AXES == 1 && KIT_CHART_LABELS == 2 && KIT_CHART_LEGEND == 4, "parts");
