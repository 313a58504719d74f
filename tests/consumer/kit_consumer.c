/* A host of the kit: prints its version, exits with 0 when that is the header's and a word shows.
 */
#include <orvel_kit.h>
#include <stdio.h>
#include <string.h>

int main(void) {
    const orvel_color red = {255, 0, 0, 255};
    const kit_box box = {0, 0, 96, 28};
    orvel_canvas* canvas = kit_canvas(96, 28);
    int x, y, shown = 0;
    kit_text_box(canvas, kit_sans_12(),
                 "Gr\xc3\xb6\xc3\x9f"
                 "e",
                 box, KIT_CENTRE, red);
    for (y = 0; y < 28; ++y) {
        for (x = 0; x < 96; ++x) shown += orvel_canvas_pixel_get(canvas, x, y).r == 255;
    }
    orvel_canvas_destroy(canvas);
    printf("release %s\n", kit_version());
    return shown < 20 || strcmp(kit_version(), KIT_VERSION) != 0;
}
