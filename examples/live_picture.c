/* The screen of live_window without a window: what happens to it can be tested, and its pictures
   compared, anywhere. Usage: live_picture FOLDER */
#include "greenhouse.h"
#include "output.h"

static void click(greenhouse* g, kit_screen* screen, const char* id, long long now) {
    kit_change change;
    kit_box at = {0, 0, 0, 0};
    kit_screen_box(screen, id, &at);
    kit_screen_event event = {.kind = KIT_EVENT_PRESS, .x = at.x + at.w / 2, .y = at.y + at.h / 2};
    kit_screen_send(screen, &event, now);
    event.kind = KIT_EVENT_RELEASE;
    kit_screen_send(screen, &event, now + 80);
    while (kit_screen_next(screen, &change) == 1) greenhouse_take(g, screen, &change);
}

int main(int argc, char** argv) {
    char why[300];
    const char* folder = output_folder(argc, argv);
    kit_screen* screen = kit_screen_open(OWN_SCENE, NULL, NULL, why, sizeof why);
    if (!screen) {
        fprintf(stderr, "live_picture: %s\n", why);
        return 1;
    }
    greenhouse g;
    greenhouse_open(&g, screen);
    click(&g, screen, "row[2]", 0);
    click(&g, screen, "water", 1000);
    for (int i = 0; i < 20; ++i) greenhouse_tick(&g, screen);
    orvel_canvas* canvas = new_canvas(640, 480);
    kit_screen_draw(screen, canvas, NULL);
    save(canvas, orvel_canvas_save_bmp, folder, "live_window.bmp");
    orvel_canvas_destroy(canvas);
    kit_screen_close(screen);
    return 0;
}
