/* The screen of live_window without a window: what happens to it can be tested, and its pictures
   compared, anywhere. Usage: live_picture FOLDER [REGULAR_FONT BOLD_FONT] */
#include <stdio.h>

#include "live_screen.h"

static void click(screen* s, target what) {
    const box at = place(s, what);
    screen_press(s, at.x + at.w / 2, at.y + at.h / 2);
    screen_release(s);
}

int main(int argc, char** argv) {
    if (argc != 2 && argc != 4) {
        fprintf(stderr, "usage: %s FOLDER [REGULAR_FONT BOLD_FONT]\n", argv[0]);
        return 2;
    }
    page p;
    if (page_open(&p, SCREEN_W, SCREEN_H, argv[2], argc == 4 ? argv[3] : NULL) != 0) return 1;
    screen s;
    screen_open(&s);
    click(&s, ROW + 2);
    click(&s, WATER);
    for (int i = 0; i < 20; ++i) screen_tick(&s);
    screen_draw(&s, &p, "Everything in this window reacts.");
    const int result = page_save(&p, argv[1], "live_window.bmp");
    page_close(&p);
    return result == 0 ? 0 : 1;
}
