/* Hit test and state: what the pointer is over, and what a press, a drag and a key change. */
#include "live_screen.h"

#include <ctype.h>
#include <string.h>

void screen_open(screen* s) {
    static const plant plants[PLANTS] = {
        {"Tomatoes", 0.62, 22, 1, 1, 0, 0, "Tie up the long shoots"},
        {"Basil", 0.55, 21, 0, 0, 0, 0, ""},
        {"Orchids", 0.78, 24, 1, 1, 1, 0, ""},
        {"Seedlings", 0.70, 20, 0, 1, 2, 0, ""},
        {"Lemon tree", 0.48, 18, 0, 0, 1, 0, ""},
        {"Ferns", 0.83, 19, 1, 0, 2, 0, ""},
    };
    memset(s, 0, sizeof *s);
    memcpy(s->plants, plants, sizeof plants);
    s->tank = 0.8;
    s->history[HISTORY - 1] = plants[0].humidity;
    for (int i = 0; i < HISTORY * 4; ++i) screen_tick(s);
}

/* Whether the name holds the searched text, in letters of either case. */
static int matches(const char* name, const char* search) {
    const size_t length = strlen(search);
    for (; *name != '\0' || length == 0; ++name) {
        size_t same = 0;
        while (same < length &&
               tolower((unsigned char)name[same]) == tolower((unsigned char)search[same])) {
            ++same;
        }
        if (same == length) return 1;
    }
    return 0;
}

int plant_in_row(const screen* s, int row) {
    for (int i = 0; i < PLANTS; ++i) {
        if (matches(s->plants[i].name, s->search) && row-- == 0) return i;
    }
    return -1;
}

/* ---- Hit test ---- */

static kit_box place_on_tab(const screen* s, target what) {
    static const kit_box nowhere = {0, 0, 0, 0};
    if (s->tab == 0) {
        switch (what) {
        case SLIDER: return (kit_box){420, 141, 140, 9};
        case MINUS: return (kit_box){504, 171, 24, 24};
        case PLUS: return (kit_box){584, 171, 24, 24};
        case FAN: return (kit_box){572, 210, 36, 18};
        case ALERT: return (kit_box){599, 251, 9, 9};
        case WATER: return (kit_box){250, 282, 120, 28};
        default: return nowhere;
        }
    }
    if (s->tab == 1 && what >= FEED && what < FEED + FEEDS) {
        return (kit_box){250 + 116 * (what - FEED), 168, 9, 9};
    }
    if (s->tab == 1 && what == NOTE) return (kit_box){250, 236, 358, 28};
    return nowhere;
}

kit_box place(const screen* s, target what) {
    if (what == THEME) return (kit_box){588, 13, 36, 18};
    if (what == SEARCH) return (kit_box){16, 60, 200, 26};
    if (what == REFILL) return (kit_box){120, 404, 80, 24};
    if (what >= TAB && what < TAB + TABS) return (kit_box){234 + 130 * (what - TAB), 92, 130, 30};
    if (what >= ROW && plant_in_row(s, what - ROW) >= 0) {
        return (kit_box){16, 98 + 36 * (what - ROW), 200, 34};
    }
    return place_on_tab(s, what);
}

/* A finger and a hasty pointer hit more easily what is larger than it looks: small things take a
   margin. The label of a radio button belongs to it. */
static target hit_test(const screen* s, int x, int y) {
    for (target what = NOTHING + 1; what < TARGETS; ++what) {
        const kit_box at = place(s, what);
        const int margin = at.h < 12 ? 8 : 0;
        const int label = what >= FEED && what < FEED + FEEDS ? 80 : 0;
        if (at.w > 0 && x >= at.x - margin && x < at.x + at.w + margin + label &&
            y >= at.y - margin && y < at.y + at.h + margin) {
            return what;
        }
    }
    return NOTHING;
}

/* ---- State ---- */

static void drag_slider(screen* s, int x) {
    const kit_box at = place(s, SLIDER);
    const double value = (x - at.x) / (double)at.w;
    s->plants[s->selected].humidity = value < 0 ? 0 : value > 1 ? 1 : value;
}

static void choose(screen* s, target what) {
    plant* chosen = &s->plants[s->selected];
    if (what >= ROW) {
        s->selected = plant_in_row(s, what - ROW);
    } else if (what >= FEED) {
        chosen->feed = what - FEED;
    } else if (what >= TAB) {
        s->tab = what - TAB;
    }
}

static void add_degrees(plant* chosen, int change) {
    const int degrees = chosen->degrees + change;
    if (degrees >= 5 && degrees <= 40) chosen->degrees = degrees;
}

static void water(screen* s) {
    if (s->tank < 0.1) return;
    s->tank -= 0.1;
    s->pump = 90;
    ++s->plants[s->selected].waterings;
}

void screen_move(screen* s, int x, int y) {
    s->hot = hit_test(s, x, y);
    if (s->held == SLIDER) drag_slider(s, x);
}

void screen_press(screen* s, int x, int y) {
    plant* chosen = &s->plants[s->selected];
    s->hot = s->held = hit_test(s, x, y);
    s->focus = s->held == SEARCH || s->held == NOTE ? s->held : NOTHING;
    if (s->held != NOTHING) s->tone = s->held == WATER || s->held == REFILL ? 660 : 1320;
    switch (s->held) {
    case THEME: s->light = !s->light; break;
    case REFILL: s->tank = 1; break;
    case SLIDER: drag_slider(s, x); break;
    case MINUS: add_degrees(chosen, -1); break;
    case PLUS: add_degrees(chosen, 1); break;
    case FAN: chosen->fan = !chosen->fan; break;
    case ALERT: chosen->alert = !chosen->alert; break;
    case WATER: water(s); break;
    default: choose(s, s->held);
    }
}

void screen_release(screen* s) { s->held = NOTHING; }

static char* focused_text(screen* s, size_t* size) {
    *size = s->focus == SEARCH ? sizeof s->search : sizeof s->plants[0].note;
    return s->focus == SEARCH ? s->search : s->focus == NOTE ? s->plants[s->selected].note : NULL;
}

void screen_type(screen* s, const char* text) {
    size_t size;
    char* field = focused_text(s, &size);
    if (field && strlen(field) + strlen(text) < size) strcat(field, text);
}

void screen_backspace(screen* s) {
    size_t size;
    char* field = focused_text(s, &size);
    size_t length = field ? strlen(field) : 0;
    while (length > 0 && ((unsigned char)field[length - 1] & 0xC0) == 0x80) --length;
    if (length > 0) field[length - 1] = '\0'; /* the first byte of the last character */
}

void screen_tab(screen* s) { s->focus = s->focus == SEARCH && s->tab == 1 ? NOTE : SEARCH; }

void screen_leave(screen* s) { s->focus = NOTHING; }

void screen_tick(screen* s) {
    static const int breeze[] = {0, 3, 7, 4, 2, -3, -8, -5, 1, 6, 9, 2, -2, -7, -5, -4};
    static const int sun[] = {0, 1, 2, 4, 5, 6, 6, 5, 4, 2, 0, -2, -4, -6, -6, -5, -4, -3, -1};
    ++s->ticks;
    if (s->pump > 0) --s->pump;
    if (s->ticks % 4 != 0) return;
    const int step = s->ticks / 4;
    const double last = s->history[HISTORY - 1];
    const double drift = (breeze[step % 16] + 2 * sun[step % 57 / 3]) / 400.0;
    memmove(s->history, s->history + 1, (HISTORY - 1) * sizeof s->history[0]);
    s->history[HISTORY - 1] = last + (s->plants[s->selected].humidity - last) / 8 + drift;
}
