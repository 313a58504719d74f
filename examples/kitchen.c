#include <orvel_kit.h>

int main(void) {
    orvel_theme theme;
    orvel_theme_light(&theme);
    orvel_canvas* canvas = kit_canvas(240, 72);
    orvel_canvas_clear(canvas, theme.background);
    kit_icon(canvas, "home", 12, 12, 20, theme.accent);
    kit_text_draw(canvas, kit_bold_14(), "Kitchen", 40, 27, theme.text);
    kit_text_draw(canvas, kit_bold_14(), "21.5 °C", 170, 27, theme.text);
    kit_widget slider = {.kind = ORVEL_WIDGET_SLIDER, .box = {12, 40, 216, 20}};
    slider.value = 0.65;
    kit_draw(canvas, &theme, &slider);
    const int status = kit_save_bmp(canvas, "kitchen.bmp");
    orvel_canvas_destroy(canvas);
    return status;
}
