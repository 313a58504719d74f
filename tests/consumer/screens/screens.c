/* A host of the tests of screens: draws a picture named by its argument, in the colour $INK. */
#include <orvel.h>
#include <stdio.h>
#include <stdlib.h>

int main(int argc, char** argv) {
    const char* ink = getenv("INK");
    const orvel_color color = {(unsigned char)atoi(ink ? ink : "1"), 2, 3, 255};
    orvel_canvas* canvas = orvel_canvas_create(30, 20);
    char file[100];
    if (argc != 2) return 1;
    snprintf(file, sizeof file, "%s.bmp", argv[1]);
    orvel_canvas_fill_rect(canvas, 5, 5, 10, 10, color);
    if (orvel_canvas_save_bmp(canvas, file) != 0) return 1;
    orvel_canvas_destroy(canvas);
    return 0;
}
