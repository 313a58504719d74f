/* A host of screens: prints their version, exits with 0 when that is the header's and one is drawn.
 */
#include <orvel_screen.h>
#include <stdio.h>
#include <string.h>

int main(void) {
    static const char scene[] =
        "{\"orvel\": 1, \"size\": [8, 6], \"root\": {\"rect\": \"${color}\"}}";
    char why[200] = "";
    kit_screen* screen = kit_screen_read(scene, sizeof scene - 1, NULL, "{\"color\": \"#ff0000\"}",
                                         NULL, why, sizeof why);
    orvel_canvas* canvas = kit_canvas(8, 6);
    const int status = kit_screen_draw(screen, canvas, NULL);
    const orvel_color corner = orvel_canvas_pixel_get(canvas, 7, 5);
    fputs(why, stderr);
    kit_screen_close(screen);
    orvel_canvas_destroy(canvas);
    printf("release %s\n", kit_screen_version());
    return status != 0 || corner.r != 255 || strcmp(kit_screen_version(), KIT_SCREEN_VERSION) != 0;
}
