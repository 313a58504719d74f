/* Readable words on a canvas: UTF-8, any font that FreeType opens, whole pixels, no blending.
   Copy letters.h and letters.c into your program and link FreeType. Each letter is made anew each
   time, in a few microseconds: who writes thousands of them a frame keeps the pictures. */
#ifndef LETTERS_H
#define LETTERS_H

#include "orvel.h"

#ifdef __cplusplus
extern "C" {
#endif

/* One font at one size. As with canvases, one thread at a time. */
typedef struct letters letters;

typedef enum letters_place { LETTERS_LEFT, LETTERS_CENTRE, LETTERS_RIGHT } letters_place;

/* Opens a font file at a size in pixels. Null, with the reason on stderr, when it cannot. */
letters* letters_open(const char* font_file, int size);
void letters_close(letters* font);

int letters_width(letters* font, const char* text); /* in pixels */
int letters_cap_height(const letters* font);        /* of a capital letter, in pixels */

/* Writes text that starts at x and stands on the row baseline; returns the x where it ends. Bytes
   that are not UTF-8 show as U+FFFD, control characters not at all. */
int letters_draw(letters* font, orvel_canvas* canvas, const char* text, int x, int baseline,
                 orvel_color color);

/* Writes text into a box, its capitals centred from top to bottom. Text wider than the box ends in
   an ellipsis. Give it the rectangle of a widget that was made with an empty caption. */
void letters_in_box(letters* font, orvel_canvas* canvas, const char* text, int x, int y, int w,
                    int h, letters_place place, orvel_color color);

#ifdef __cplusplus
}
#endif

#endif
