/* What the screen greenhouse.json is about: a host's own part beside a window or a display. */
#ifndef EXAMPLES_GREENHOUSE_H
#define EXAMPLES_GREENHOUSE_H

#include <orvel_screen.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { GREENHOUSE_TICK_MS = 50, GREENHOUSE_HISTORY = 60 };

typedef struct greenhouse {
    int tank, pump, selected, ticks; /* per cent; ticks that the pump still runs */
    int history[GREENHOUSE_HISTORY]; /* thousandths */
} greenhouse;

/* Sets what the screen shows. */
void greenhouse_open(greenhouse* g, kit_screen* screen);

/* Fifty milliseconds passed. */
void greenhouse_tick(greenhouse* g, kit_screen* screen);

/* Something was pressed or set on the screen. */
void greenhouse_take(greenhouse* g, kit_screen* screen, const kit_change* change);

#ifdef __cplusplus
}
#endif

#endif
