/* A host of the library: prints its version, exits with 0 when that is the header's and it draws
   what it should. */
#include <orvel.h>
#include <stdio.h>
#include <string.h>

int main(void) {
    const orvel_color red = {255, 0, 0, 255};
    orvel_canvas* canvas = orvel_canvas_create(4, 3);
    orvel_color corner;
    orvel_canvas_fill_rect(canvas, 3, 2, 5, 5, red);
    corner = orvel_canvas_pixel_get(canvas, 3, 2);
    orvel_canvas_destroy(canvas);
    printf("library %s\n", orvel_version());
    return corner.r != 255 || corner.g != 0 || strcmp(orvel_version(), ORVEL_VERSION) != 0;
}
