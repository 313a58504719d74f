/* What the application examples share: a canvas, a theme and five sizes of words. */
#ifndef PAGE_H
#define PAGE_H

#include "letters.h"
#include "orvel.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct box {
    int x, y, w, h;
} box;

typedef struct page {
    orvel_canvas* canvas;
    orvel_theme theme;
    letters *small, *body, *strong, *heading, *display;
} page;

/* Opens a page in the dark theme. The fonts are those of the files named, or where one is null,
   DejaVu Sans as it is installed. -1, with the reason on stderr, when something is missing. */
int page_open(page* p, int width, int height, const char* regular, const char* bold);
void page_close(page* p);

/* Saves the canvas as folder/name; -1, with the reason on stderr, when it cannot. */
int page_save(const page* p, const char* folder, const char* name);

/* Draws a widget and destroys it: a widget is cheap enough to be made anew for every frame. */
void show(orvel_widget* widget);

/* Writes words into a box, centred from top to bottom. */
void say(const page* p, letters* font, const char* text, box at, letters_place place,
         orvel_color color);

/* Draws an icon by way of a canvas of its own. The icons "home" and "power" look different further
   down a canvas; this way they look everywhere as they do at the top. */
void stamp(const page* p, const char* icon, int x, int y, int size, orvel_color color);

/* The colour that lies percent of the way from one to another, for quiet words and shades. */
orvel_color between(orvel_color from, orvel_color to, int percent);

#ifdef __cplusplus
}
#endif

#endif
