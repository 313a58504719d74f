/* A host with a resource folder of its own: a kitchen timer whose dishes are bitmap icons and whose
   colours are a theme file. The folder is the one that the program was built with or, where it is
   set, the folder Resources under the directory that ORVELSDK_PATH names. */
#include "orvel_kit.h"
#include "output.h"

#ifndef OWN_RESOURCES
#define OWN_RESOURCES "Resources"
#endif

enum { kCardWidth = 72, kCardHeight = 112, kPitch = 77, kLeft = 8, kTop = 36 };

typedef struct {
    const char *icon, *name, *time;
    double done;
} timer;

static const timer timers[4] = {{"egg", "Egg", "1:00", 0.75},
                                {"tea", "Tea", "2:06", 0.3},
                                {"pasta", "Pasta", "5:30", 0.5},
                                {"cake", "Cake", "40:30", 0.1}};

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
    kit_text_box(screen, kit_sans_12(), t->name, (kit_box){x, kTop + 46, kCardWidth, 16},
                 KIT_CENTRE, theme->text);
    kit_text_box(screen, kit_bold_18(), t->time, (kit_box){x, kTop + 66, kCardWidth, 20},
                 KIT_CENTRE, theme->text);
    draw_and_destroy(
        orvel_widget_progress(screen, theme, x + 10, kTop + 96, kCardWidth - 20, 6, t->done));
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
    kit_text_box(screen, kit_bold_12(), "Kitchen", (kit_box){kLeft + 28, 0, 120, 26}, KIT_LEFT,
                 theme.text);
    orvel_draw_icon(screen, "menu", orvel_canvas_width(screen) - 26, 3, 20, theme.text);
    for (int i = 0; i < 4; ++i) draw_timer(screen, &theme, &timers[i], kLeft + i * kPitch);
    save(screen, orvel_canvas_save_bmp, folder, "own-icons.bmp");
    orvel_canvas_destroy(screen);
    return 0;
}
