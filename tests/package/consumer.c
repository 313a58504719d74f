/* A host of the installed library: prints the two versions and leaves a picture behind. */
#include <orvel.h>
#include <stdio.h>

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    printf("%s %s\n", ORVEL_VERSION, orvel_version());
    const orvel_color ink = {205, 214, 244, 255};
    orvel_canvas* canvas = orvel_canvas_create(8, 8);
    orvel_canvas_circle(canvas, 4, 4, 3, ink);
    const int status = orvel_canvas_save_bmp(canvas, argv[1]);
    orvel_canvas_destroy(canvas);
    return status == 0 ? 0 : 1;
}
