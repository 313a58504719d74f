#include <orvel_kit.h>
#include <stdio.h>

int main(void) {
    const orvel_color night = {22, 27, 51, 255}, far = {52, 64, 105, 255};
    const orvel_color near = {32, 40, 72, 255}, light = {255, 209, 102, 255};
    orvel_canvas* canvas = kit_canvas(240, 144);
    if (!canvas) return 1;

    orvel_canvas_clear(canvas, night);
    orvel_canvas_fill_circle(canvas, 186, 44, 25, light);
    orvel_canvas_fill_circle(canvas, 175, 37, 22, night);
    orvel_canvas_fill_triangle(canvas, -30, 144, 84, 66, 192, 144, far);
    orvel_canvas_fill_triangle(canvas, 90, 144, 186, 90, 285, 144, near);
    kit_text_draw(canvas, kit_bold_24(), "Hello", 18, 36, light);
    kit_text_draw(canvas, kit_sans_12(), "Good night, hills", 19, 56, light);
    orvel_canvas_rect(canvas, 0, 0, 240, 144, light);

    const int status = kit_save_bmp(canvas, "hello.bmp");
    orvel_canvas_destroy(canvas);
    if (status != 0) fprintf(stderr, "hello: cannot write hello.bmp\n");
    return status == 0 ? 0 : 1;
}
