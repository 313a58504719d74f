// One constructor a kind, each naming what it decides; the rest are defaults.
#include <memory>
#include <new>
#include <type_traits>

#include "text/font.h"
#include "widgets/widget.h"

namespace orvel {
namespace {

struct Box {
    int x, y, w, h;
};

/// What a constructor decides. Borrows its texts: nothing is copied before the record exists.
struct Blueprint {
    orvel_widget_kind kind;
    const char* text = "";
    const char* icon_name = "";
    Box box;
    bool active = false;
    int amount = 0;
    double value = 0.0;
};

orvel_widget* build(orvel_canvas* canvas, const orvel_theme* theme, const Blueprint& plan) {
    static_assert(std::is_nothrow_default_constructible_v<orvel_widget>);
    if (!canvas || !theme) return nullptr;
    std::unique_ptr<orvel_widget> widget(new (std::nothrow) orvel_widget);
    if (!widget) return nullptr;
    widget->kind = plan.kind;
    widget->canvas = canvas;
    widget->theme = theme;
    if (plan.text) widget->text = plan.text;  // may throw; the record is then released
    if (plan.icon_name) widget->icon_name = plan.icon_name;
    widget->x = plan.box.x;
    widget->y = plan.box.y;
    widget->w = plan.box.w;
    widget->h = plan.box.h;
    widget->active = plan.active;
    widget->amount = plan.amount;
    widget->value = plan.value;
    return widget.release();
}

int tw(const char* text) { return orvel_text_width(text); }

}  // namespace
}  // namespace orvel

using namespace orvel;

orvel_widget* orvel_widget_window(orvel_canvas* canvas, const orvel_theme* theme, const char* title,
                                  int x, int y, int w, int h) {
    return build(canvas, theme, {.kind = ORVEL_WIDGET_WINDOW, .text = title, .box = {x, y, w, h}});
}

orvel_widget* orvel_widget_panel(orvel_canvas* canvas, const orvel_theme* theme, int x, int y,
                                 int w, int h) {
    return build(canvas, theme, {.kind = ORVEL_WIDGET_PANEL, .box = {x, y, w, h}});
}

orvel_widget* orvel_widget_label(orvel_canvas* canvas, const orvel_theme* theme, const char* text,
                                 int x, int y) {
    return build(canvas, theme,
                 {.kind = ORVEL_WIDGET_LABEL, .text = text, .box = {x, y, tw(text), kGlyphHeight}});
}

orvel_widget* orvel_widget_button(orvel_canvas* canvas, const orvel_theme* theme, const char* text,
                                  int x, int y, int w, int h) {
    return build(canvas, theme, {.kind = ORVEL_WIDGET_BUTTON, .text = text, .box = {x, y, w, h}});
}

orvel_widget* orvel_widget_toggle(orvel_canvas* canvas, const orvel_theme* theme, int x, int y,
                                  int w, int h, int on) {
    return build(canvas, theme,
                 {.kind = ORVEL_WIDGET_TOGGLE, .box = {x, y, w, h}, .active = on != 0});
}

orvel_widget* orvel_widget_checkbox(orvel_canvas* canvas, const orvel_theme* theme,
                                    const char* text, int x, int y, int checked) {
    return build(canvas, theme,
                 {.kind = ORVEL_WIDGET_CHECKBOX,
                  .text = text,
                  .box = {x, y, tw(text) + 13, 9},
                  .active = checked != 0});
}

orvel_widget* orvel_widget_slider(orvel_canvas* canvas, const orvel_theme* theme, int x, int y,
                                  int w, double value) {
    return build(canvas, theme,
                 {.kind = ORVEL_WIDGET_SLIDER, .box = {x, y, w, 9}, .value = clamp_to_unit(value)});
}

orvel_widget* orvel_widget_progress(orvel_canvas* canvas, const orvel_theme* theme, int x, int y,
                                    int w, int h, double value) {
    return build(
        canvas, theme,
        {.kind = ORVEL_WIDGET_PROGRESS, .box = {x, y, w, h}, .value = clamp_to_unit(value)});
}

orvel_widget* orvel_widget_textbox(orvel_canvas* canvas, const orvel_theme* theme, const char* text,
                                   int x, int y, int w, int h) {
    return build(canvas, theme, {.kind = ORVEL_WIDGET_TEXTBOX, .text = text, .box = {x, y, w, h}});
}

orvel_widget* orvel_widget_icon(orvel_canvas* canvas, const orvel_theme* theme, const char* name,
                                int x, int y, int size) {
    return build(canvas, theme,
                 {.kind = ORVEL_WIDGET_ICON, .text = name, .box = {x, y, size, size}});
}

orvel_widget* orvel_widget_image(orvel_canvas* canvas, const orvel_theme* theme, const char* name,
                                 int x, int y) {
    return build(canvas, theme, {.kind = ORVEL_WIDGET_IMAGE, .text = name, .box = {x, y, 0, 0}});
}

orvel_widget* orvel_widget_separator(orvel_canvas* canvas, const orvel_theme* theme, int x, int y,
                                     int w) {
    return build(canvas, theme, {.kind = ORVEL_WIDGET_SEPARATOR, .box = {x, y, w, 1}});
}

orvel_widget* orvel_widget_card(orvel_canvas* canvas, const orvel_theme* theme, int x, int y, int w,
                                int h) {
    return build(canvas, theme, {.kind = ORVEL_WIDGET_CARD, .box = {x, y, w, h}});
}

orvel_widget* orvel_widget_radio(orvel_canvas* canvas, const orvel_theme* theme, const char* text,
                                 int x, int y, int selected) {
    return build(canvas, theme,
                 {.kind = ORVEL_WIDGET_RADIO,
                  .text = text,
                  .box = {x, y, tw(text) + 13, 9},
                  .active = selected != 0});
}

orvel_widget* orvel_widget_dropdown(orvel_canvas* canvas, const orvel_theme* theme,
                                    const char* text, int x, int y, int w, int h, int open) {
    return build(
        canvas, theme,
        {.kind = ORVEL_WIDGET_DROPDOWN, .text = text, .box = {x, y, w, h}, .active = open != 0});
}

orvel_widget* orvel_widget_spinner(orvel_canvas* canvas, const orvel_theme* theme, int x, int y,
                                   int size, double value) {
    return build(
        canvas, theme,
        {.kind = ORVEL_WIDGET_SPINNER, .box = {x, y, size, size}, .value = clamp_to_unit(value)});
}

orvel_widget* orvel_widget_rating(orvel_canvas* canvas, const orvel_theme* theme, int x, int y,
                                  double value) {
    return build(
        canvas, theme,
        {.kind = ORVEL_WIDGET_RATING, .box = {x, y, 50, 10}, .value = clamp_to_unit(value)});
}

orvel_widget* orvel_widget_stepper(orvel_canvas* canvas, const orvel_theme* theme, int x, int y,
                                   int w, int h, int value) {
    return build(canvas, theme,
                 {.kind = ORVEL_WIDGET_STEPPER, .box = {x, y, w, h}, .amount = value});
}

orvel_widget* orvel_widget_tabs(orvel_canvas* canvas, const orvel_theme* theme, const char* items,
                                int x, int y, int w, int h, int selected) {
    return build(
        canvas, theme,
        {.kind = ORVEL_WIDGET_TABS, .text = items, .box = {x, y, w, h}, .amount = selected});
}

orvel_widget* orvel_widget_avatar(orvel_canvas* canvas, const orvel_theme* theme,
                                  const char* initials, int x, int y, int size) {
    return build(canvas, theme,
                 {.kind = ORVEL_WIDGET_AVATAR,
                  .text = initials ? initials : "?",
                  .box = {x, y, size, size}});
}

orvel_widget* orvel_widget_badge(orvel_canvas* canvas, const orvel_theme* theme, int x, int y,
                                 int count) {
    return build(canvas, theme,
                 {.kind = ORVEL_WIDGET_BADGE, .box = {x, y, 14, 10}, .amount = count});
}

orvel_widget* orvel_widget_titlebar(orvel_canvas* canvas, const orvel_theme* theme,
                                    const char* title, int x, int y, int w, int h) {
    return build(canvas, theme,
                 {.kind = ORVEL_WIDGET_TITLEBAR, .text = title, .box = {x, y, w, h}});
}

orvel_widget* orvel_widget_list_item(orvel_canvas* canvas, const orvel_theme* theme,
                                     const char* text, const char* icon, int x, int y, int w, int h,
                                     int selected) {
    return build(canvas, theme,
                 {.kind = ORVEL_WIDGET_LIST_ITEM,
                  .text = text,
                  .icon_name = icon,
                  .box = {x, y, w, h},
                  .active = selected != 0});
}

orvel_widget* orvel_widget_menu(orvel_canvas* canvas, const orvel_theme* theme, const char* items,
                                int x, int y, int w, int h, int selected) {
    return build(
        canvas, theme,
        {.kind = ORVEL_WIDGET_MENU, .text = items, .box = {x, y, w, h}, .amount = selected});
}

orvel_widget* orvel_widget_bars(orvel_canvas* canvas, const orvel_theme* theme, int x, int y, int w,
                                int h) {
    return build(canvas, theme, {.kind = ORVEL_WIDGET_BARS, .box = {x, y, w, h}});
}

orvel_widget* orvel_widget_search(orvel_canvas* canvas, const orvel_theme* theme, const char* text,
                                  int x, int y, int w, int h) {
    return build(canvas, theme, {.kind = ORVEL_WIDGET_SEARCH, .text = text, .box = {x, y, w, h}});
}

orvel_widget* orvel_widget_tooltip(orvel_canvas* canvas, const orvel_theme* theme, const char* text,
                                   int x, int y) {
    return build(canvas, theme,
                 {.kind = ORVEL_WIDGET_TOOLTIP, .text = text, .box = {x, y, tw(text) + 8, 12}});
}

orvel_widget* orvel_widget_statusbar(orvel_canvas* canvas, const orvel_theme* theme,
                                     const char* text, int x, int y, int w, int h) {
    return build(canvas, theme,
                 {.kind = ORVEL_WIDGET_STATUSBAR, .text = text, .box = {x, y, w, h}});
}
