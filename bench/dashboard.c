/* The dashboard of the examples as work to be timed, and what it writes. */
#include "dashboard.h"

static word_writer* write_words;
#define kit_text_box write_words
#define main dashboard_main
#include "../examples/weather_energy.c"
#undef main
#undef kit_text_box

void draw_dashboard(orvel_canvas* canvas, word_writer* writer) {
    page p = {.canvas = canvas};
    orvel_theme_default(&p.theme);
    write_words = writer;
    draw_page(&p);
}
