/* Numbers that people can read: the library's letters are not legible, so this host draws its own
   digits, as displays of seven segments do. */
#ifndef EXAMPLES_SEGMENTS_H
#define EXAMPLES_SEGMENTS_H

#include <orvel.h>

/* One hexadecimal digit, 4u wide and 7u high for a stroke of u pixels, its top left at (x, y). */
static inline void draw_digit(orvel_canvas* canvas, int x, int y, int u, int digit,
                              orvel_color lit) {
    /* Bit 0 is the top stroke, then clockwise around, bit 6 the middle. */
    static const unsigned char strokes[16] = {0x3f, 0x06, 0x5b, 0x4f, 0x66, 0x6d, 0x7d, 0x07,
                                              0x7f, 0x6f, 0x77, 0x7c, 0x39, 0x5e, 0x79, 0x71};
    static const struct {
        int x, y, w, h;
    } places[7] = {{0, 0, 4, 1}, {3, 0, 1, 4}, {3, 3, 1, 4}, {0, 6, 4, 1},
                   {0, 3, 1, 4}, {0, 0, 1, 4}, {0, 3, 4, 1}};
    for (int i = 0; i < 7; ++i) {
        if (strokes[digit & 15] >> i & 1) {
            orvel_canvas_fill_rect(canvas, x + places[i].x * u, y + places[i].y * u,
                                   places[i].w * u, places[i].h * u, lit);
        }
    }
}

/* A number of the given count of digits in base 10 or 16, with leading zeros, 5u a digit. */
static inline void draw_number(orvel_canvas* canvas, int x, int y, int u, int value, int base,
                               int digits, orvel_color lit) {
    for (int i = digits - 1; i >= 0; --i) {
        draw_digit(canvas, x + i * 5 * u, y, u, value % base, lit);
        value /= base;
    }
}

#endif
