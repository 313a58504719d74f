/* One screen from orvel_init to orvel_shutdown: a hovered button, an icon, a picture, a click. */
#include "output.h"

#ifndef OWN_RESOURCES
#define OWN_RESOURCES "Resources"
#endif

int main(int argc, char** argv) {
    const char* folder = output_folder(argc, argv);
    const char* set_by_user = getenv("ORVELSDK_PATH");
    orvel_init();
    if (!set_by_user || !*set_by_user) orvel_set_resource_path(OWN_RESOURCES);
    orvel_canvas* canvas = new_canvas(320, 240); /* opaque black */
    orvel_theme theme;
    orvel_theme_default(&theme);

    orvel_widget* button = orvel_widget_button(canvas, &theme, "Home", 110, 120, 100, 24);
    if (!button) {
        fputs("no memory for a button\n", stderr);
        return 1;
    }
    orvel_widget_set_hover(button, 1);
    orvel_widget_draw(button);
    orvel_draw_icon(canvas, "home", 136, 64, 48, theme.accent);

    save(canvas, orvel_canvas_save_bmp, folder, "typical-screen.bmp");
    orvel_play_sound("click"); /* where nothing can play it, the screen is still a screen */

    orvel_widget_destroy(button);
    orvel_canvas_destroy(canvas);
    orvel_shutdown();
    return 0;
}
