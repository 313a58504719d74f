#include "theme_preview.h"

#include <memory>

#include "orvel_kit.h"

namespace orvel_tools {
namespace {

struct DestroyCanvas {
    void operator()(orvel_canvas* canvas) const { orvel_canvas_destroy(canvas); }
};

constexpr double kValues[] = {0.3, 0.45, 0.4, 0.62, 0.55, 0.8, 0.72, 0.95, 0.7, 0.5, 0.35};

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
    void show(const kit_widget& widget) const { kit_draw(c, t, &widget); }
    void show(int kind, const kit_box& box, const char* text, unsigned state = 0) const {
        show({.kind = kind, .box = box, .text = text, .state = state});
    }
    void show(int kind, const kit_box& box, double value, unsigned state = 0) const {
        show({.kind = kind, .box = box, .state = state, .value = value});
    }

    void form() const {
        show(ORVEL_WIDGET_WINDOW, {12, 12, 222, 184}, "Window");
        show(ORVEL_WIDGET_BUTTON, {24, 36, 92, 22}, "Button");
        show(ORVEL_WIDGET_BUTTON, {130, 36, 92, 22}, "Hovered", KIT_HOVER);
        show(ORVEL_WIDGET_TEXTBOX, {24, 64, 92, 20}, "Text box");
        show(ORVEL_WIDGET_TEXTBOX, {130, 64, 92, 20}, "Hovered", KIT_HOVER);
        show(ORVEL_WIDGET_DROPDOWN, {24, 90, 92, 20}, "Closed");
        show(ORVEL_WIDGET_DROPDOWN, {130, 90, 92, 20}, "Open", KIT_ACTIVE);
        show(ORVEL_WIDGET_CHECKBOX, {24, 114, 46, 18}, "Off");
        show(ORVEL_WIDGET_CHECKBOX, {74, 114, 46, 18}, "On", KIT_ACTIVE);
        show(ORVEL_WIDGET_RADIO, {130, 114, 46, 18}, "Off");
        show(ORVEL_WIDGET_RADIO, {180, 114, 46, 18}, "On", KIT_ACTIVE);
        show(ORVEL_WIDGET_SLIDER, {24, 135, 92, 14}, 0.6);
        show(ORVEL_WIDGET_SLIDER, {130, 135, 92, 14}, 0.3, KIT_HOVER);
        show(ORVEL_WIDGET_TOGGLE, {24, 154, 32, 16}, nullptr);
        show(ORVEL_WIDGET_TOGGLE, {64, 154, 32, 16}, nullptr, KIT_ACTIVE);
        show(ORVEL_WIDGET_PROGRESS, {130, 156, 92, 12}, 0.7);
        show(ORVEL_WIDGET_SEPARATOR, {24, 175, 198, 1}, nullptr);
        show(ORVEL_WIDGET_LABEL, {24, 177, 198, 18}, "Label on surface");
    }

    void lists() const {
        show(ORVEL_WIDGET_TITLEBAR, {246, 12, 222, 20}, "Title bar");
        show(ORVEL_WIDGET_MENU, {246, 32, 222, 20}, "File|Edit|View");
        show(ORVEL_WIDGET_TABS, {246, 58, 222, 22}, "One|Two|Three");
        show(ORVEL_WIDGET_SEARCH, {246, 86, 106, 20}, "Search");
        show(ORVEL_WIDGET_SEARCH, {362, 86, 106, 20}, "Active", KIT_ACTIVE);
        show({.kind = ORVEL_WIDGET_LIST_ITEM,
              .box = {246, 112, 222, 20},
              .text = "Item",
              .icon = "folder"});
        show({.kind = ORVEL_WIDGET_LIST_ITEM,
              .box = {246, 132, 222, 20},
              .text = "Selected",
              .icon = "star",
              .state = KIT_ACTIVE});
        show({.kind = ORVEL_WIDGET_LIST_ITEM,
              .box = {246, 152, 222, 20},
              .text = "Item",
              .icon = "music"});
        show({.kind = ORVEL_WIDGET_BARS, .box = {246, 178, 222, 86}, .data = kValues, .count = 11});
    }

    void card() const {
        show(ORVEL_WIDGET_CARD, {12, 202, 222, 64}, nullptr);
        show(ORVEL_WIDGET_AVATAR, {24, 208, 24, 24}, "A");
        show({.kind = ORVEL_WIDGET_BADGE, .box = {53, 212, 0, 0}, .amount = 12});
        show(ORVEL_WIDGET_RATING, {80, 211, 0, 0}, 0.6);
        show(ORVEL_WIDGET_ICON, {174, 212, 18, 18}, "heart");
        show(ORVEL_WIDGET_TOOLTIP, {197, 210, 0, 0}, "Tip");
        show(ORVEL_WIDGET_SPINNER, {26, 238, 20, 20}, 0.1);
        show({.kind = ORVEL_WIDGET_STEPPER, .box = {56, 239, 90, 20}, .amount = 42});
        kit_text_box(c, nullptr, "Error", {156, 239, 70, 20}, KIT_LEFT, t->error);
    }

    void colours() const {
        const orvel_color all[] = {t->background,   t->surface,     t->text,
                                   t->accent,       t->border,      t->button,
                                   t->button_hover, t->button_text, t->error};
        int x = 12;
        for (const orvel_color& colour : all) {
            orvel_canvas_fill_rect(c, x, 272, 48, 22, colour);
            orvel_canvas_rect(c, x, 272, 48, 22, t->border);
            x += 51;
        }
        show(ORVEL_WIDGET_STATUSBAR, {0, 300, 480, 20}, "Status bar");
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
