/* A host with a resource folder of its own: a kitchen timer whose dishes are bitmap icons and whose
   colours are a theme file. The folder is the one that the program was built with or, where it is
   set, the folder Resources under the directory that ORVELSDK_PATH names. */
#include "output.h"
#include "segments.h"

#ifndef OWN_RESOURCES
#define OWN_RESOURCES "Resources"
#endif

enum { kCardWidth = 72, kCardHeight = 96, kPitch = 77, kLeft = 8, kTop = 36 };

typedef struct {
    const char* icon;
    int minutes;
    double done;
} timer;

static const timer timers[4] = {
    {"egg", 4, 0.75}, {"tea", 3, 0.3}, {"pasta", 11, 0.5}, {"cake", 45, 0.1}};

static void require_icon(orvel_canvas* canvas, const char* name, int x, int y) {
    if (orvel_icon_draw_bitmap(canvas, name, x, y) != 0) {
        fprintf(stderr, "no bitmap \"%s\" in the folder Icons of the resources\n", name);
        exit(1);
    }
}

static void draw_and_destroy(orvel_widget* widget) {
    orvel_widget_draw(widget);
    orvel_widget_destroy(widget);
}

static void draw_timer(orvel_canvas* screen, const orvel_theme* theme, const timer* t, int x) {
    draw_and_destroy(orvel_widget_card(screen, theme, x, kTop, kCardWidth, kCardHeight));
    require_icon(screen, t->icon, x + 20, kTop + 10);
    draw_number(screen, x + 21, kTop + 52, 3, t->minutes, 10, 2, theme->text);
    draw_and_destroy(
        orvel_widget_progress(screen, theme, x + 10, kTop + 82, kCardWidth - 20, 6, t->done));
}

int main(int argc, char** argv) {
    const char* folder = output_folder(argc, argv);
    const char* set_by_user = getenv("ORVELSDK_PATH");
    if (!set_by_user || !*set_by_user) orvel_set_resource_path(OWN_RESOURCES);

    orvel_theme theme;
    orvel_theme_default(&theme);
    if (orvel_theme_load(&theme, "kitchen") != 0) {
        fprintf(stderr, "no theme \"kitchen\" in the folder UI of the resources\n");
        return 1;
    }
    orvel_canvas* screen = new_canvas(2 * kLeft + 3 * kPitch + kCardWidth, kTop + kCardHeight + 10);
    orvel_canvas_clear(screen, theme.background);
    orvel_canvas_fill_rect(screen, 0, 0, orvel_canvas_width(screen), 26, theme.surface);
    orvel_draw_icon(screen, "alarm", kLeft, 3, 20, theme.accent);
    orvel_draw_icon(screen, "menu", orvel_canvas_width(screen) - 26, 3, 20, theme.text);
    for (int i = 0; i < 4; ++i) draw_timer(screen, &theme, &timers[i], kLeft + i * kPitch);
    save(screen, orvel_canvas_save_bmp, folder, "own-icons.bmp");
    orvel_canvas_destroy(screen);
    return 0;
}
