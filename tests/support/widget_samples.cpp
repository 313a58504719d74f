#include "support/widget_samples.h"

#include <climits>
#include <cmath>
#include <initializer_list>

namespace orvel_test {
namespace {

using Canvas = orvel_canvas*;
using Theme = const orvel_theme*;

orvel_widget* hovered(orvel_widget* widget) {
    orvel_widget_set_hover(widget, 1);
    return widget;
}

orvel_widget* activated(orvel_widget* widget) {
    orvel_widget_set_active(widget, 1);
    return widget;
}

orvel_widget* with_data(orvel_widget* widget, std::initializer_list<double> data) {
    orvel_widget_set_data(widget, data.begin(), static_cast<int>(data.size()));
    return widget;
}

using Samples = std::vector<WidgetSample>;

void add_frames(Samples& all) {
    const auto add = [&all](auto&&... fields) { all.push_back({fields...}); };
    add("window", 40, 24,
        [](Canvas c, Theme t) { return orvel_widget_window(c, t, "Ab", 2, 2, 36, 20); });
    add("window lower than its title", 21, 16,
        [](Canvas c, Theme t) { return orvel_widget_window(c, t, "Ab", 2, 2, 17, 5); });
    add("panel", 15, 11, [](Canvas c, Theme t) { return orvel_widget_panel(c, t, 2, 2, 11, 7); });
    add("panel of one pixel", 5, 5,
        [](Canvas c, Theme t) { return orvel_widget_panel(c, t, 2, 2, 1, 1); });
    add("separator", 14, 5,
        [](Canvas c, Theme t) { return orvel_widget_separator(c, t, 2, 2, 9); });
    add("card", 15, 11, [](Canvas c, Theme t) { return orvel_widget_card(c, t, 2, 2, 11, 7); });
    add("titlebar", 51, 19,
        [](Canvas c, Theme t) { return orvel_widget_titlebar(c, t, "Ab", 2, 2, 47, 15); });
    add("statusbar", 33, 13,
        [](Canvas c, Theme t) { return orvel_widget_statusbar(c, t, "Ok", 2, 2, 28, 9); });
    add("tooltip", 28, 17,
        [](Canvas c, Theme t) { return orvel_widget_tooltip(c, t, "Tip", 2, 2); });
    add("tooltip without text", 13, 17,
        [](Canvas c, Theme t) { return orvel_widget_tooltip(c, t, nullptr, 2, 2); });
}

void add_statics(Samples& all) {
    const auto add = [&all](auto&&... fields) { all.push_back({fields...}); };
    add("label", 21, 11, [](Canvas c, Theme t) { return orvel_widget_label(c, t, "Abc", 2, 2); });
    add("label with a newline and a blank byte", 27, 11, [](Canvas c, Theme t) {
        return orvel_widget_label(c, t,
                                  "A\nB\xC8"
                                  "C",
                                  2, 2);
    });
    add("button", 37, 17,
        [](Canvas c, Theme t) { return orvel_widget_button(c, t, "Ok", 2, 2, 33, 13); });
    add("button hover", 37, 17,
        [](Canvas c, Theme t) { return hovered(orvel_widget_button(c, t, "Ok", 2, 2, 33, 13)); });
    add("button active", 37, 17,
        [](Canvas c, Theme t) { return activated(orvel_widget_button(c, t, "Ok", 2, 2, 33, 13)); });
    add("button smaller than its text", 30, 13,
        [](Canvas c, Theme t) { return orvel_widget_button(c, t, "Long", 8, 4, 12, 4); });
    add("textbox", 34, 15,
        [](Canvas c, Theme t) { return orvel_widget_textbox(c, t, "Name", 2, 2, 29, 11); });
    add("textbox hover", 34, 15, [](Canvas c, Theme t) {
        return hovered(orvel_widget_textbox(c, t, "Name", 2, 2, 29, 11));
    });
    add("textbox active", 34, 15, [](Canvas c, Theme t) {
        return activated(orvel_widget_textbox(c, t, "Name", 2, 2, 29, 11));
    });
    add("search", 44, 18,
        [](Canvas c, Theme t) { return orvel_widget_search(c, t, "Find", 2, 2, 40, 14); });
    add("search active", 45, 19, [](Canvas c, Theme t) {
        return activated(orvel_widget_search(c, t, "Find", 2, 2, 41, 15));
    });
    add("search hover", 45, 19,
        [](Canvas c, Theme t) { return hovered(orvel_widget_search(c, t, "Find", 2, 2, 41, 15)); });
    add("icon of 8", 12, 12,
        [](Canvas c, Theme t) { return orvel_widget_icon(c, t, "home", 2, 2, 8); });
    add("icon of 9", 13, 13,
        [](Canvas c, Theme t) { return orvel_widget_icon(c, t, "home", 2, 2, 9); });
    add("icon of 20", 24, 24,
        [](Canvas c, Theme t) { return orvel_widget_icon(c, t, "settings", 2, 2, 20); });
    add("icon of no such name", 16, 16,
        [](Canvas c, Theme t) { return orvel_widget_icon(c, t, "nothing", 2, 2, 12); });
    add("image that does not exist", 6, 6,
        [](Canvas c, Theme t) { return orvel_widget_image(c, t, "no such file.bmp", 2, 2); });
    add("avatar", 24, 24,
        [](Canvas c, Theme t) { return orvel_widget_avatar(c, t, "A", 2, 2, 20); });
    add("avatar odd", 25, 25,
        [](Canvas c, Theme t) { return orvel_widget_avatar(c, t, "AB", 2, 2, 19); });
    add("avatar without initials", 19, 19,
        [](Canvas c, Theme t) { return orvel_widget_avatar(c, t, nullptr, 2, 2, 15); });
    for (const int amount : {0, 7, 42, -12, 2147483647}) {
        add("badge " + std::to_string(amount), 74, 16,
            [amount](Canvas c, Theme t) { return orvel_widget_badge(c, t, 2, 2, amount); });
    }
}

void add_flags(Samples& all) {
    const auto add = [&all](auto&&... fields) { all.push_back({fields...}); };
    for (const int on : {0, 1}) {
        const std::string state = on ? " on" : " off";
        add("toggle" + state, 34, 18,
            [on](Canvas c, Theme t) { return orvel_widget_toggle(c, t, 2, 2, 30, 14, on); });
        add("toggle odd" + state, 23, 13,
            [on](Canvas c, Theme t) { return orvel_widget_toggle(c, t, 2, 2, 19, 9, on); });
        add("checkbox" + state, 29, 13,
            [on](Canvas c, Theme t) { return orvel_widget_checkbox(c, t, "On", 2, 2, on); });
        add("radio" + state, 29, 13,
            [on](Canvas c, Theme t) { return orvel_widget_radio(c, t, "On", 2, 2, on); });
        add("dropdown" + state, 43, 17, [on](Canvas c, Theme t) {
            return orvel_widget_dropdown(c, t, "Pick", 2, 2, 39, 13, on);
        });
        add("list item" + state, 49, 19, [on](Canvas c, Theme t) {
            return orvel_widget_list_item(c, t, "Row", nullptr, 2, 2, 45, 15, on);
        });
        add("list item with an icon" + state, 64, 24, [on](Canvas c, Theme t) {
            return orvel_widget_list_item(c, t, "Row", "mail", 2, 2, 60, 20, on);
        });
    }
    add("list item lower than its icon", 49, 24, [](Canvas c, Theme t) {
        return orvel_widget_list_item(c, t, "Row", "mail", 2, 8, 45, 9, 0);
    });
}

void add_fractions(Samples& all) {
    const auto add = [&all](auto&&... fields) { all.push_back({fields...}); };
    for (const char* text : {"0", "0.25", "0.5", "1", "nan"}) {
        const std::string state = std::string(" ") + text;
        const double value = std::stod(text);
        add("slider" + state, 36, 13,
            [value](Canvas c, Theme t) { return orvel_widget_slider(c, t, 6, 2, 25, value); });
        add("slider hover" + state, 36, 13, [value](Canvas c, Theme t) {
            return hovered(orvel_widget_slider(c, t, 6, 2, 25, value));
        });
        add("progress" + state, 35, 13,
            [value](Canvas c, Theme t) { return orvel_widget_progress(c, t, 2, 2, 31, 9, value); });
        add("spinner" + state, 24, 26,
            [value](Canvas c, Theme t) { return orvel_widget_spinner(c, t, 2, 3, 20, value); });
        add("spinner odd" + state, 20, 20,
            [value](Canvas c, Theme t) { return orvel_widget_spinner(c, t, 2, 2, 15, value); });
        add("rating" + state, 52, 13,
            [value](Canvas c, Theme t) { return orvel_widget_rating(c, t, 2, 2, value); });
    }
    add("spinner too small for its ring", 9, 9,
        [](Canvas c, Theme t) { return orvel_widget_spinner(c, t, 3, 3, 3, 0.0); });
}

void add_numbers_and_lists(Samples& all) {
    const auto add = [&all](auto&&... fields) { all.push_back({fields...}); };
    for (const int amount : {0, 42, -7, INT_MIN}) {
        add("stepper " + std::to_string(amount), 84, 20, [amount](Canvas c, Theme t) {
            return orvel_widget_stepper(c, t, 2, 2, 80, 16, amount);
        });
    }
    add("stepper odd", 51, 15,
        [](Canvas c, Theme t) { return orvel_widget_stepper(c, t, 2, 2, 47, 11, 5); });
    for (const int selected : {-1, 0, 1, 2, 3}) {
        const std::string state = " selected " + std::to_string(selected);
        add("tabs" + state, 75, 18, [selected](Canvas c, Theme t) {
            return orvel_widget_tabs(c, t, "One|Two|Six", 2, 2, 71, 13, selected);
        });
        add("menu" + state, 75, 18, [selected](Canvas c, Theme t) {
            return orvel_widget_menu(c, t, "One|Two|Six", 2, 2, 71, 13, selected);
        });
    }
    add("tabs with empty captions", 44, 15,
        [](Canvas c, Theme t) { return orvel_widget_tabs(c, t, "|a||", 2, 2, 40, 11, 2); });
    add("tabs without text", 24, 15,
        [](Canvas c, Theme t) { return orvel_widget_tabs(c, t, nullptr, 2, 2, 20, 11, 0); });
    add("menu without text", 24, 15,
        [](Canvas c, Theme t) { return orvel_widget_menu(c, t, "", 2, 2, 20, 11, 0); });
    add("tabs narrower than their captions", 40, 13,
        [](Canvas c, Theme t) { return orvel_widget_tabs(c, t, "One|Two", 10, 2, 7, 9, 1); });
    add("bars without data", 24, 16,
        [](Canvas c, Theme t) { return orvel_widget_bars(c, t, 2, 2, 20, 12); });
    add("bars", 34, 16, [](Canvas c, Theme t) {
        return with_data(orvel_widget_bars(c, t, 2, 2, 30, 12), {0.5, 2.0, -1.0});
    });
    add("bars of every height", 41, 17, [](Canvas c, Theme t) {
        return with_data(orvel_widget_bars(c, t, 2, 2, 37, 13),
                         {0, 0.1, 0.25, 0.5, 0.75, 0.999, 1, NAN, INFINITY, -INFINITY});
    });
    add("bars beyond the edge", 34, 13, [](Canvas c, Theme t) {
        return with_data(orvel_widget_bars(c, t, 2, 2, 11, 9),
                         {.5, .5, .5, .5, .5, .5, .5, .5, .5, .5, .5, .5, .5, .5});
    });
}

}  // namespace

const std::vector<WidgetSample>& widget_samples() {
    static const Samples samples = [] {
        Samples all;
        add_frames(all);
        add_statics(all);
        add_flags(all);
        add_fractions(all);
        add_numbers_and_lists(all);
        return all;
    }();
    return samples;
}

orvel_theme distinct_theme() {
    return {{16, 16, 16, 255}, {32, 32, 32, 200},    {255, 255, 255, 255},
            {0, 0, 255, 255},  {128, 128, 128, 255}, {64, 64, 0, 255},
            {96, 96, 0, 128},  {255, 255, 0, 255},   {255, 0, 0, 255}};
}

Palette theme_letters(const orvel_theme& theme) {
    return {{'#', theme.border},
            {'s', theme.surface},
            {'A', theme.accent},
            {'t', theme.text},
            {'B', theme.background},
            {'u', theme.button},
            {'h', theme.button_hover},
            {'x', theme.button_text},
            {'e', theme.error},
            {'1', {0xF3, 0x8B, 0xA8, 255}},
            {'2', {0xF9, 0xE2, 0xAF, 255}},
            {'3', {0xA6, 0xE3, 0xA1, 255}},
            {'.', kBlack}};
}

}  // namespace orvel_test
