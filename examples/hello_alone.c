#include <orvel.h>
#include <stdio.h>

int main(void) {
    const orvel_color night = {22, 27, 51, 255}, far = {52, 64, 105, 255};
    const orvel_color near = {32, 40, 72, 255}, light = {255, 209, 102, 255};
    orvel_canvas* canvas = orvel_canvas_create(160, 96);
    if (!canvas) return 1;

    orvel_canvas_clear(canvas, night);
    orvel_canvas_fill_circle(canvas, 116, 30, 17, light);
    orvel_canvas_fill_circle(canvas, 109, 25, 15, night);
    orvel_canvas_fill_triangle(canvas, -20, 96, 58, 34, 130, 96, far);
    orvel_canvas_fill_triangle(canvas, 60, 96, 124, 56, 190, 96, near);
    orvel_text_draw(canvas, "Hello", 12, 12, light);
    orvel_canvas_rect(canvas, 0, 0, 160, 96, light);

    const int status = orvel_canvas_save_bmp(canvas, "hello_alone.bmp");
    orvel_canvas_destroy(canvas);
    if (status != 0) fprintf(stderr, "hello_alone: cannot write hello_alone.bmp\n");
    return status == 0 ? 0 : 1;
}
