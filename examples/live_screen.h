/* The screen of live_window: a greenhouse that reacts to a pointer and to a keyboard. It knows
   nothing of windows. A host feeds it what happens and then has it drawn:

       hit test -> state -> draw -> present

   The first three are here. The widgets keep no state of their own: every frame makes them anew
   from this record, at rectangles that place() alone decides. */
#ifndef LIVE_SCREEN_H
#define LIVE_SCREEN_H

#include "page.h"

#ifdef __cplusplus
extern "C" {
#endif

enum { SCREEN_W = 640, SCREEN_H = 480, PLANTS = 6, TABS = 3, FEEDS = 3, HISTORY = 60 };

/* What the pointer can be over: a number, for there is arithmetic in it. */
typedef int target;
enum {
    NOTHING,
    THEME,
    SEARCH,
    REFILL,
    SLIDER,
    MINUS,
    PLUS,
    FAN,
    ALERT,
    WATER,
    NOTE,
    TAB,                /* and the tabs after it */
    FEED = TAB + TABS,  /* and the radio buttons after it */
    ROW = FEED + FEEDS, /* and the rows after it: the plants that match the search */
    TARGETS = ROW + PLANTS
};

typedef struct plant {
    const char* name;
    double humidity; /* that is wanted, 0 to 1 */
    int degrees, fan, alert, feed, waterings;
    char note[48];
} plant;

typedef struct screen {
    int light;         /* the light theme */
    target hot, held;  /* under the pointer; pressed and not yet released */
    target focus;      /* SEARCH, NOTE or NOTHING: what the keyboard writes to */
    int selected, tab; /* a plant; a tab */
    char search[20];
    plant plants[PLANTS];
    double tank, history[HISTORY];
    int ticks; /* sixtieths of a second since the start */
    int pump;  /* how many more of them the pump runs */
    int tone;  /* in hertz, to be played and set to 0 by the host; 0 for none */
} screen;

void screen_open(screen* s);

/* What happened, in canvas coordinates. Text is UTF-8. */
void screen_move(screen* s, int x, int y);
void screen_press(screen* s, int x, int y);
void screen_release(screen* s);
void screen_type(screen* s, const char* text);
void screen_backspace(screen* s);
void screen_tab(screen* s);   /* the next field */
void screen_leave(screen* s); /* no field */
void screen_tick(screen* s);  /* a sixtieth of a second passed */

/* Where a target is; the kit_box is empty for a target that does not show now. */
kit_box place(const screen* s, target what);

/* The plant shown in a row of the list; -1 for none. */
int plant_in_row(const screen* s, int row);

/* Draws all of it. status is the text of the bottom line. */
void screen_draw(const screen* s, page* p, const char* status);

#ifdef __cplusplus
}
#endif

#endif
