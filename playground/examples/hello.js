// As examples/hello.c: the names and the order are those of C. A list fills a record as C does.
const night = [22, 27, 51, 255], far = [52, 64, 105, 255];
const near = [32, 40, 72, 255], light = [255, 209, 102, 255];
const canvas = kit_canvas(240, 144);

orvel_canvas_clear(canvas, night);
orvel_canvas_fill_circle(canvas, 186, 44, 25, light);
orvel_canvas_fill_circle(canvas, 175, 37, 22, night);
orvel_canvas_fill_triangle(canvas, -30, 144, 84, 66, 192, 144, far);
orvel_canvas_fill_triangle(canvas, 90, 144, 186, 90, 285, 144, near);
kit_text_draw(canvas, kit_bold_24(), "Hello", 18, 36, light);
kit_text_draw(canvas, kit_sans_12(), "Good night, hills", 19, 56, light);
orvel_canvas_rect(canvas, 0, 0, 240, 144, light);

kit_save_bmp(canvas, "hello.bmp");
orvel_canvas_destroy(canvas);
