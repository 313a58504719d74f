/* One screen from orvel_init to orvel_shutdown: the light of a room, and the click of its button.
 */
#include "orvel_kit.h"
#include "output.h"

#ifndef OWN_RESOURCES
#define OWN_RESOURCES "Resources"
#endif

static void draw_frame(orvel_canvas* canvas, const orvel_theme* theme) {
    const kit_widget parts[] = {
        {.kind = ORVEL_WIDGET_TABS,
         .box = {13, 32, 294, 26},
         .text = "Climate|Light|Music",
         .amount = 1},
        {.kind = ORVEL_WIDGET_PANEL, .box = {13, 57, 294, 150}},
        {.kind = ORVEL_WIDGET_STATUSBAR, .box = {0, 218, 320, 22}, .text = "3 of 5 lamps are on"},
    };
    for (int i = 0; i < 3; ++i) kit_draw(canvas, theme, &parts[i]);
    kit_icon(canvas, "sun", 13, 4, 24, theme->accent);
    kit_text_box(canvas, kit_bold_14(), "Living room", (kit_box){44, 0, 200, 32}, KIT_LEFT,
                 theme->text);
}

static void draw_controls(orvel_canvas* canvas, const orvel_theme* theme) {
    const kit_widget parts[] = {
        {.kind = ORVEL_WIDGET_LABEL, .box = {26, 64, 100, 24}, .text = "Ceiling"},
        {.kind = ORVEL_WIDGET_TOGGLE, .box = {260, 68, 34, 16}, .state = KIT_ACTIVE},
        {.kind = ORVEL_WIDGET_LABEL, .box = {26, 90, 100, 24}, .text = "Brightness"},
        {.kind = ORVEL_WIDGET_SLIDER, .box = {134, 94, 160, 16}, .value = 0.7},
        {.kind = ORVEL_WIDGET_LABEL, .box = {26, 116, 100, 24}, .text = "Colour"},
        {.kind = ORVEL_WIDGET_RADIO,
         .box = {134, 116, 70, 24},
         .text = "Warm",
         .state = KIT_ACTIVE},
        {.kind = ORVEL_WIDGET_RADIO, .box = {224, 116, 70, 24}, .text = "Cold"},
        {.kind = ORVEL_WIDGET_LABEL, .box = {26, 143, 100, 22}, .text = "Turn off after"},
        {.kind = ORVEL_WIDGET_STEPPER, .box = {184, 143, 110, 22}, .text = "30 min"},
        {.kind = ORVEL_WIDGET_CHECKBOX,
         .box = {26, 173, 150, 24},
         .text = "With the music",
         .state = KIT_ACTIVE},
    };
    for (int i = 0; i < 10; ++i) kit_draw(canvas, theme, &parts[i]);
}

int main(int argc, char** argv) {
    const char* folder = output_folder(argc, argv);
    const char* set_by_user = getenv("ORVELSDK_PATH");
    orvel_init();
    if (!set_by_user || !*set_by_user) orvel_set_resource_path(OWN_RESOURCES);
    orvel_canvas* canvas = new_canvas(320, 240); /* opaque black */
    orvel_theme theme;
    orvel_theme_default(&theme);

    orvel_canvas_clear(canvas, theme.background);
    draw_frame(canvas, &theme);
    draw_controls(canvas, &theme);
    const kit_widget button = {.kind = ORVEL_WIDGET_BUTTON,
                               .box = {184, 173, 110, 26},
                               .text = "Good night",
                               .icon = "moon",
                               .state = KIT_HOVER};
    kit_draw(canvas, &theme, &button);

    save(canvas, orvel_canvas_save_bmp, folder, "typical-screen.bmp");
    orvel_play_sound("click"); /* where nothing can play it, the screen is still a screen */

    orvel_canvas_destroy(canvas);
    orvel_shutdown();
    return 0;
}
