/* A host of the static kit that names one face. */
#include "orvel_kit.h"

int main(void) {
    orvel_canvas* const canvas = kit_canvas(40, 20);
    const int end =
        kit_text_draw(canvas, kit_bold_14(), "Hi", 2, 15, (orvel_color){255, 255, 255, 255});
    orvel_canvas_destroy(canvas);
    return end > 2 ? 0 : 1;
}
