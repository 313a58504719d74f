/* The dashboard of the examples as work to be timed, and what it writes. */
#ifndef BENCH_DASHBOARD_H
#define BENCH_DASHBOARD_H

#include "orvel_kit.h"

#ifdef __cplusplus
extern "C" {
#endif

enum { DASHBOARD_W = 800, DASHBOARD_H = 480 };

/* kit_text_box(), or what is to be called in its place. */
typedef int word_writer(orvel_canvas* canvas, const kit_face* face, const char* text, kit_box box,
                        kit_align align, orvel_color color);

/* Draws all of it on a canvas of that size. */
void draw_dashboard(orvel_canvas* canvas, word_writer* writer);

#ifdef __cplusplus
}
#endif

#endif
