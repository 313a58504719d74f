#include "support/bitmap_files.h"
#include "torture/scenario.h"

namespace orvel_test::torture {
namespace {

constexpr const char* kText = "A text too long for a string to hold in itself";
constexpr const char* kItems = "A first item of many letters|One|A last item of many letters";

/// A kind that keeps no text: all it needs is its record.
Scenario plain(const char* name, void (*act)(Host& host)) {
    return {name, act, "made, drawn", {{"new", "null, untouched"}}};
}

/// A kind that keeps its text, for which there is no memory in the record.
Scenario worded(const char* name, void (*act)(Host& host)) {
    return {
        name, act, "made, drawn", {{"new 1", "null, untouched"}, {"new", "bad_alloc, untouched"}}};
}

/// A kind that splits its text to draw it.
Scenario listed(const char* name, void (*act)(Host& host)) {
    return {name,
            act,
            "made, drawn",
            {{"new 1", "null, untouched"},
             {"new 2", "bad_alloc, untouched"},
             {"new", "made, bad_alloc, untouched"}}};
}

Scenarios plain_kinds() {
    return {
        plain("a panel", [](Host& host) { host.live(orvel_widget_panel, 2, 2, 30, 20); }),
        plain("a toggle", [](Host& host) { host.live(orvel_widget_toggle, 2, 2, 30, 14, 1); }),
        plain("a slider", [](Host& host) { host.live(orvel_widget_slider, 2, 2, 30, 0.5); }),
        plain("a progress bar",
              [](Host& host) { host.live(orvel_widget_progress, 2, 2, 30, 9, 0.5); }),
        plain("a separator", [](Host& host) { host.live(orvel_widget_separator, 2, 2, 30); }),
        plain("a card", [](Host& host) { host.live(orvel_widget_card, 2, 2, 30, 20); }),
        plain("a spinner", [](Host& host) { host.live(orvel_widget_spinner, 2, 2, 20, 0.5); }),
        plain("a rating", [](Host& host) { host.live(orvel_widget_rating, 2, 2, 0.5); }),
        plain("a stepper", [](Host& host) { host.live(orvel_widget_stepper, 2, 2, 40, 16, 5); }),
        plain("a badge", [](Host& host) { host.live(orvel_widget_badge, 2, 2, 42); }),
    };
}

Scenarios worded_kinds() {
    return {
        worded("a window", [](Host& host) { host.live(orvel_widget_window, kText, 2, 2, 30, 20); }),
        worded("a label", [](Host& host) { host.live(orvel_widget_label, kText, 2, 2); }),
        worded("a button", [](Host& host) { host.live(orvel_widget_button, kText, 2, 2, 30, 12); }),
        worded("a checkbox", [](Host& host) { host.live(orvel_widget_checkbox, kText, 2, 2, 1); }),
        worded("a text box",
               [](Host& host) { host.live(orvel_widget_textbox, kText, 2, 2, 30, 12); }),
        worded("a radio button", [](Host& host) { host.live(orvel_widget_radio, kText, 2, 2, 1); }),
        worded("a dropdown",
               [](Host& host) { host.live(orvel_widget_dropdown, kText, 2, 2, 30, 12, 1); }),
        worded("an avatar", [](Host& host) { host.live(orvel_widget_avatar, kText, 2, 2, 20); }),
        worded("a title bar",
               [](Host& host) { host.live(orvel_widget_titlebar, kText, 2, 2, 40, 14); }),
        worded(
            "a list item",
            [](Host& host) { host.live(orvel_widget_list_item, kText, kText, 2, 2, 40, 20, 1); }),
        worded("a search field",
               [](Host& host) { host.live(orvel_widget_search, kText, 2, 2, 40, 14); }),
        worded("a tooltip", [](Host& host) { host.live(orvel_widget_tooltip, kText, 2, 2); }),
        worded("a status bar",
               [](Host& host) { host.live(orvel_widget_statusbar, kText, 2, 2, 40, 9); }),
        worded("an icon of no such name",
               [](Host& host) { host.live(orvel_widget_icon, kText, 2, 2, 20); }),
        listed("tabs", [](Host& host) { host.live(orvel_widget_tabs, kItems, 2, 2, 40, 12, 1); }),
        listed("a menu", [](Host& host) { host.live(orvel_widget_menu, kItems, 2, 2, 40, 12, 1); }),
    };
}

Scenarios other_kinds() {
    return {
        {"an image",
         [](Host& host) {
             host.provide("Icons/a picture of a name.bmp", BmpHeader{2, 2}.bytes() + kTwoByTwo);
             host.live(orvel_widget_image, "a picture of a name.bmp", 2, 2);
         },
         "made, drawn",
         {{"new 1", "null, untouched"},
          {"new 2", "bad_alloc, untouched"},
          {"new", "made, bad_alloc, untouched"},
          {"open", "made, untouched"},
          {"fdopen", "made, untouched"},
          {"setvbuf", "made, drawn", "made, untouched"},
          {"fread", "made, untouched"},
          {"fseek", "made, untouched"},
          {"ftell", "made, untouched"}}},
        {"a widget without a canvas",
         [](Host& host) {
             host.draw_and_destroy(
                 host.call(orvel_widget_label, nullptr, &host.theme(), kText, 2, 2));
         },
         "null, untouched",
         {}},
        {"a bar chart",
         [](Host& host) {
             const double values[] = {0.25, 0.5, 1.0};
             orvel_widget* const bars =
                 host.call(orvel_widget_bars, host.canvas(), &host.theme(), 2, 2, 40, 20);
             host.call(orvel_widget_set_data, bars, values, 3);
             host.draw_and_destroy(bars);
         },
         "made, drawn",
         {{"new 1", "null, untouched"},
          {"new 2", "made, bad_alloc, untouched, not drawn afterwards"}}},
    };
}

/// A widget that exists before anything fails, and is then changed and drawn.
template <typename Setter, typename... Values>
void change(Host& host, orvel_widget* widget, Setter* setter, const Values&... values) {
    host.call(setter, widget, values...);
    host.draw_and_destroy(widget);
}

constexpr double kOld[] = {0.1, 0.9}, kNew[] = {0.8, 0.4, 0.6};

void draw_bars(orvel_canvas* canvas, const orvel_theme* theme, const double* values, int count) {
    orvel_widget* const bars = orvel_widget_bars(canvas, theme, 2, 2, 40, 20);
    orvel_widget_set_data(bars, values, count);
    orvel_widget_draw(bars);
    orvel_widget_destroy(bars);
}

void replace_values(Host& host) {
    const auto old = make_canvas(48, 32);
    draw_bars(old.get(), &host.theme(), kOld, 2);
    orvel_widget* const bars = orvel_widget_bars(host.canvas(), &host.theme(), 2, 2, 40, 20);
    orvel_widget_set_data(bars, kOld, 2);
    host.call(orvel_widget_set_data, bars, kNew, 3);
    orvel_widget_draw(bars);
    host.tell_change(pixels_of(host.canvas()), pixels_of(old.get()), "old values", "new values",
                     "other values");
    orvel_canvas_clear(host.canvas(), kBlack);
    orvel_widget_set_data(bars, kNew, 3);
    orvel_widget_draw(bars);
    host.tell_unless_as_ever(pixels_of(host.canvas()), "no new values afterwards");
    host.call(orvel_widget_set_data, bars, kNew, 0);
    orvel_widget_destroy(bars);
}

Scenarios setters() {
    return {
        {"a widget is hovered",
         [](Host& host) {
             change(host, orvel_widget_button(host.canvas(), &host.theme(), "", 2, 2, 30, 12),
                    orvel_widget_set_hover, 1);
         },
         "drawn",
         {}},
        {"a widget is switched on",
         [](Host& host) {
             change(host, orvel_widget_toggle(host.canvas(), &host.theme(), 2, 2, 30, 14, 0),
                    orvel_widget_set_active, 1);
         },
         "drawn",
         {}},
        {"a widget gets a value",
         [](Host& host) {
             change(host, orvel_widget_slider(host.canvas(), &host.theme(), 2, 2, 30, 0.0),
                    orvel_widget_set_value, 0.75);
         },
         "drawn",
         {}},
        {"a widget gets an amount",
         [](Host& host) {
             change(host, orvel_widget_badge(host.canvas(), &host.theme(), 2, 2, 0),
                    orvel_widget_set_amount, 7);
         },
         "drawn",
         {}},
        {"a bar chart gets other values",
         replace_values,
         "new values",
         {{"new", "bad_alloc, old values"}}},
    };
}

}  // namespace

Scenarios widget_scenarios() {
    return joined({plain_kinds(), worded_kinds(), other_kinds(), setters()});
}

}  // namespace orvel_test::torture
