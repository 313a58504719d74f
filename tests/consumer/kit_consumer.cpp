// The same host in C++, with a widget by designated initialisers.
#include <orvel_kit.h>

#include <cstdio>
#include <cstring>

int main() {
    orvel_theme theme;
    orvel_theme_default(&theme);
    theme.button_text = {255, 0, 0, 255};
    orvel_canvas* canvas = kit_canvas(96, 28);
    const int status = kit_draw(
        canvas, theme, {.kind = ORVEL_WIDGET_BUTTON, .box = {0, 0, 96, 28}, .text = "Größe"});
    int shown = 0;
    for (int y = 0; y < 28; ++y) {
        for (int x = 0; x < 96; ++x) shown += orvel_canvas_pixel_get(canvas, x, y).r == 255;
    }
    orvel_canvas_destroy(canvas);
    std::printf("release %s\n", kit_version());
    return status != 0 || shown < 20 || std::strcmp(kit_version(), KIT_VERSION) != 0;
}
