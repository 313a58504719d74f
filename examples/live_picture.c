/* The screen of live_window without a window: what happens to it can be tested, and its pictures
   compared, anywhere. Usage: live_picture FOLDER */
#include "live_screen.h"
#include "output.h"

static void click(screen* s, target what) {
    const kit_box at = place(s, what);
    screen_press(s, at.x + at.w / 2, at.y + at.h / 2);
    screen_release(s);
}

int main(int argc, char** argv) {
    const char* folder = output_folder(argc, argv);
    page p = {.canvas = new_canvas(SCREEN_W, SCREEN_H)};
    screen s;
    screen_open(&s);
    click(&s, ROW + 2);
    click(&s, WATER);
    for (int i = 0; i < 20; ++i) screen_tick(&s);
    screen_draw(&s, &p, "Everything in this window reacts.");
    save(p.canvas, orvel_canvas_save_bmp, folder, "live_window.bmp");
    orvel_canvas_destroy(p.canvas);
    return 0;
}
