// Draws in a theme file, and in another accent: what every language has to draw, too.
#include <orvel_kit.h>
int main(void) {
    orvel_theme theme;
    orvel_theme_light(&theme);
    kit_resource_path("resources");
    if (kit_theme_load(&theme, "forest.json") != 0) return 1;
    orvel_canvas* canvas = kit_canvas(200, 60);
    orvel_canvas_clear(canvas, theme.background);
    kit_draw(
        canvas, &theme,
        &(kit_widget){
            .kind = ORVEL_WIDGET_TABS, .box = {5, 5, 190, 24}, .text = "One|Two", .amount = 1});
    theme.accent = (orvel_color){255, 0, 0, 255};
    kit_draw(canvas, &theme,
             &(kit_widget){.kind = ORVEL_WIDGET_PROGRESS, .box = {5, 40, 190, 12}, .value = 0.5});
    return kit_save_bmp(canvas, "themed.bmp");
}
