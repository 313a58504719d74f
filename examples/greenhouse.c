#include "greenhouse.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static void set_number(kit_screen* screen, const char* name, int number) {
    char json[16];
    snprintf(json, sizeof json, "%d", number);
    kit_screen_set(screen, name, json, NULL, 0);
}

static void show_history(const greenhouse* g, kit_screen* screen) {
    char json[GREENHOUSE_HISTORY * 8 + 2];
    size_t length = 0;
    for (int i = 0; i < GREENHOUSE_HISTORY; ++i) {
        const int value = g->history[i];
        length += (size_t)snprintf(json + length, sizeof json - length, "%c%d.%d",
                                   i == 0 ? '[' : ',', value / 10, value % 10);
    }
    snprintf(json + length, sizeof json - length, "]");
    kit_screen_set(screen, "history", json, NULL, 0);
    snprintf(json, sizeof json, "%d.%d", g->history[GREENHOUSE_HISTORY - 1] / 10,
             g->history[GREENHOUSE_HISTORY - 1] % 10);
    kit_screen_set(screen, "now", json, NULL, 0);
}

/* A breeze, and the sun that comes and goes: whole numbers, so that it is the same everywhere. */
static void measure(greenhouse* g) {
    static const int breeze[] = {0, 3, 7, 4, 2, -3, -8, -5, 1, 6, 9, 2, -2, -7, -5, -4};
    static const int sun[] = {0, 1, 2, 4, 5, 6, 6, 5, 4, 2, 0, -2, -4, -6, -6, -5, -4, -3, -1};
    int* const last = &g->history[GREENHOUSE_HISTORY - 1];
    memmove(g->history, g->history + 1, (GREENHOUSE_HISTORY - 1) * sizeof *g->history);
    *last += breeze[g->ticks / 4 % 16] + sun[g->ticks / 8 % 19] + (g->pump > 0 ? 3 : 0);
    if (*last > 950) *last = 950;
    if (*last < 450) *last = 450;
    ++g->ticks;
}

void greenhouse_open(greenhouse* g, kit_screen* screen) {
    memset(g, 0, sizeof *g);
    g->tank = 80;
    for (int i = 0; i < GREENHOUSE_HISTORY; ++i) g->history[i] = 620;
    for (int i = 0; i < GREENHOUSE_HISTORY; ++i) measure(g);
    show_history(g, screen);
}

void greenhouse_tick(greenhouse* g, kit_screen* screen) {
    measure(g);
    show_history(g, screen);
    if (g->pump > 0 && --g->pump == 0) kit_screen_set(screen, "pumping", "false", NULL, 0);
}

static void select_plant(greenhouse* g, kit_screen* screen, int number) {
    char name[32];
    snprintf(name, sizeof name, "plants[%d].on", g->selected);
    kit_screen_set(screen, name, "false", NULL, 0);
    snprintf(name, sizeof name, "plants[%d].on", number);
    kit_screen_set(screen, name, "true", NULL, 0);
    snprintf(name, sizeof name, "plants[%d].name", number);
    const char* text = kit_screen_get(screen, name);
    char* copy = text ? malloc(strlen(text) + 1) : NULL; /* the next call takes the text */
    if (copy) kit_screen_set(screen, "name", strcpy(copy, text), NULL, 0);
    free(copy);
    g->selected = number;
}

void greenhouse_take(greenhouse* g, kit_screen* screen, const kit_change* change) {
    int number = 0;
    if (change->kind == KIT_CHANGE_VALUE && strcmp(change->id, "light") == 0) {
        const int light = strcmp(change->value, "true") == 0;
        kit_screen_change(screen, NULL, "theme", light ? "\"light\"" : "\"dark\"", NULL, 0);
    }
    if (change->kind != KIT_CHANGE_PRESS) return;
    if (strcmp(change->id, "refill") == 0) g->tank = 100;
    if (strcmp(change->id, "water") == 0 && g->tank >= 10) {
        g->tank -= 10;
        g->pump = 1500 / GREENHOUSE_TICK_MS;
        kit_screen_set(screen, "pumping", "true", NULL, 0);
    }
    set_number(screen, "tank", g->tank);
    if (sscanf(change->id, "row[%d]", &number) == 1) select_plant(g, screen, number);
}
