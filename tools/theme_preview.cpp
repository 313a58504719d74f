#include "theme_preview.h"

#include <memory>

namespace orvel_tools {
namespace {

struct DestroyCanvas {
    void operator()(orvel_canvas* canvas) const { orvel_canvas_destroy(canvas); }
};

/// Draws each widget at once, so that later ones lie on top.
class Sheet {
public:
    Sheet(orvel_canvas* canvas, const orvel_theme& theme) : c(canvas), t(&theme) {}

    void draw() const {
        orvel_canvas_clear(c, t->background);
        form();
        lists();
        card();
        colours();
    }

private:
    static void show(orvel_widget* widget) {
        orvel_widget_draw(widget);
        orvel_widget_destroy(widget);
    }
    static void show_hovered(orvel_widget* widget) {
        orvel_widget_set_hover(widget, 1);
        show(widget);
    }
    static void show_active(orvel_widget* widget) {
        orvel_widget_set_active(widget, 1);
        show(widget);
    }

    void form() const {
        show(orvel_widget_window(c, t, "Window", 12, 12, 222, 184));
        show(orvel_widget_button(c, t, "Button", 24, 34, 92, 22));
        show_hovered(orvel_widget_button(c, t, "Hovered", 130, 34, 92, 22));
        show(orvel_widget_textbox(c, t, "Text box", 24, 64, 92, 18));
        show_hovered(orvel_widget_textbox(c, t, "Hovered", 130, 64, 92, 18));
        show(orvel_widget_dropdown(c, t, "Closed", 24, 90, 92, 18, 0));
        show(orvel_widget_dropdown(c, t, "Open", 130, 90, 92, 18, 1));
        show(orvel_widget_checkbox(c, t, "Off", 24, 117, 0));
        show(orvel_widget_checkbox(c, t, "On", 74, 117, 1));
        show(orvel_widget_radio(c, t, "Off", 130, 117, 0));
        show(orvel_widget_radio(c, t, "On", 180, 117, 1));
        show(orvel_widget_slider(c, t, 28, 137, 84, 0.6));
        show_hovered(orvel_widget_slider(c, t, 134, 137, 84, 0.3));
        show(orvel_widget_toggle(c, t, 24, 156, 32, 14, 0));
        show(orvel_widget_toggle(c, t, 64, 156, 32, 14, 1));
        show(orvel_widget_progress(c, t, 130, 157, 92, 12, 0.7));
        show(orvel_widget_separator(c, t, 24, 177, 197));
        show(orvel_widget_label(c, t, "Label on surface", 24, 183));
    }

    void lists() const {
        show(orvel_widget_titlebar(c, t, "Title bar", 246, 12, 222, 18));
        show(orvel_widget_menu(c, t, "File|Edit|View", 246, 30, 222, 18, 1));
        show(orvel_widget_tabs(c, t, "One|Two|Three", 246, 56, 222, 20, 1));
        show(orvel_widget_search(c, t, "Search", 246, 84, 106, 18));
        show_active(orvel_widget_search(c, t, "Active", 362, 84, 106, 18));
        show(orvel_widget_list_item(c, t, "Item", "folder", 246, 110, 222, 20, 0));
        show(orvel_widget_list_item(c, t, "Selected", "star", 246, 130, 222, 20, 1));
        show(orvel_widget_list_item(c, t, "Item", "music", 246, 150, 222, 20, 0));
        orvel_widget* bars = orvel_widget_bars(c, t, 246, 178, 222, 86);
        constexpr double kValues[] = {0.3, 0.45, 0.4, 0.62, 0.55, 0.8, 0.72, 0.95, 0.7, 0.5, 0.35};
        orvel_widget_set_data(bars, kValues, 11);
        show(bars);
    }

    void card() const {
        show(orvel_widget_card(c, t, 12, 204, 222, 60));
        show(orvel_widget_avatar(c, t, "A", 24, 212, 20));
        show(orvel_widget_badge(c, t, 54, 215, 12));
        show(orvel_widget_rating(c, t, 90, 218, 0.6));
        show(orvel_widget_icon(c, t, "heart", 148, 213, 18));
        show(orvel_widget_tooltip(c, t, "Tip", 180, 213));
        show(orvel_widget_spinner(c, t, 24, 238, 20, 0.1));
        show(orvel_widget_stepper(c, t, 54, 241, 80, 14, 42));
        orvel_text_draw(c, "Error", 148, 245, t->error);
    }

    void colours() const {
        const orvel_color all[] = {t->background,   t->surface,     t->text,
                                   t->accent,       t->border,      t->button,
                                   t->button_hover, t->button_text, t->error};
        int x = 12;
        for (const orvel_color& colour : all) {
            orvel_canvas_fill_rect(c, x, 274, 48, 20, colour);
            orvel_canvas_rect(c, x, 274, 48, 20, t->border);
            x += 51;
        }
        show(orvel_widget_statusbar(c, t, "Status bar", 0, 304, 480, 16));
    }

    orvel_canvas* c;
    const orvel_theme* t;
};

}  // namespace

Picture theme_preview(const orvel_theme& theme) {
    const std::unique_ptr<orvel_canvas, DestroyCanvas> canvas(orvel_canvas_create(480, 320));
    Sheet(canvas.get(), theme).draw();
    return picture_of(canvas.get());
}

}  // namespace orvel_tools
