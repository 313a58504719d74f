/* What the application examples draw on. */
#ifndef PAGE_H
#define PAGE_H

#include "orvel_kit.h"

typedef struct page {
    orvel_canvas* canvas;
    orvel_theme theme;
} page;

/* Draws a widget and destroys it: a widget is cheap enough to be made anew for every frame. */
static inline void show(orvel_widget* widget) {
    orvel_widget_draw(widget);
    orvel_widget_destroy(widget);
}

/* Writes words into a box, their capitals centred from top to bottom. */
static inline void say(const page* p, const kit_face* face, const char* text, kit_box at,
                       kit_align align, orvel_color color) {
    kit_text_box(p->canvas, face, text, at, align, color);
}

#endif
