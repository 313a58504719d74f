#include "screen.h"

namespace bench {

void draw_all_icons(orvel_canvas* canvas, int size) {
    int count = 0;
    const char** const names = orvel_icon_list(&count);
    for (int i = 0; i < count; ++i) {
        const int x = i % kIconColumns * size;
        const int y = i / kIconColumns * size;
        orvel_draw_icon(canvas, names[i], x, y, size, {200, 120, 40, 255});
    }
}

std::vector<orvel_widget*> make_screen(orvel_canvas* canvas, const orvel_theme* theme) {
    return {
        orvel_widget_window(canvas, theme, "Settings", 0, 0, 320, 240),
        orvel_widget_tabs(canvas, theme, "General|Sound|Network", 8, 24, 304, 20, 1),
        orvel_widget_panel(canvas, theme, 8, 50, 148, 140),
        orvel_widget_label(canvas, theme, "Volume", 16, 58),
        orvel_widget_slider(canvas, theme, 16, 70, 130, 0.6),
        orvel_widget_checkbox(canvas, theme, "Play at start", 16, 88, 1),
        orvel_widget_radio(canvas, theme, "Stereo", 16, 106, 1),
        orvel_widget_radio(canvas, theme, "Mono", 16, 122, 0),
        orvel_widget_toggle(canvas, theme, 16, 140, 32, 16, 1),
        orvel_widget_progress(canvas, theme, 16, 166, 130, 12, 0.35),
        orvel_widget_list_item(canvas, theme, "Speakers", "volume", 164, 50, 148, 22, 1),
        orvel_widget_list_item(canvas, theme, "Headphones", "music", 164, 74, 148, 22, 0),
        orvel_widget_textbox(canvas, theme, "Living room", 164, 104, 148, 18),
        orvel_widget_dropdown(canvas, theme, "44100 Hz", 164, 128, 148, 18, 0),
        orvel_widget_icon(canvas, theme, "wifi", 164, 154, 32),
        orvel_widget_button(canvas, theme, "Cancel", 164, 196, 70, 20),
        orvel_widget_button(canvas, theme, "Save", 242, 196, 70, 20),
        orvel_widget_statusbar(canvas, theme, "Connected", 0, 222, 320, 18),
    };
}

void draw_screen(const std::vector<orvel_widget*>& widgets) {
    for (orvel_widget* widget : widgets) orvel_widget_draw(widget);
}

void destroy_screen(const std::vector<orvel_widget*>& widgets) {
    for (orvel_widget* widget : widgets) orvel_widget_destroy(widget);
}

}  // namespace bench
