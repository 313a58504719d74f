#include "widget_calls.h"

#include "models/text_model.h"

namespace fuzz {
namespace {

using orvel_test::WidgetState;

orvel_widget* make_frame(orvel_canvas* c, const orvel_theme* t, const Arguments& a) {
    const char* const s = a.text.c_str();
    switch (a.kind) {
    case 0: return orvel_widget_window(c, t, s, a.x, a.y, a.w, a.h);
    case 1: return orvel_widget_panel(c, t, a.x, a.y, a.w, a.h);
    case 2: return orvel_widget_label(c, t, s, a.x, a.y);
    case 3: return orvel_widget_button(c, t, s, a.x, a.y, a.w, a.h);
    case 8: return orvel_widget_textbox(c, t, s, a.x, a.y, a.w, a.h);
    case 9: return orvel_widget_icon(c, t, a.icon.c_str(), a.x, a.y, a.w);
    case 10: return orvel_widget_image(c, t, s, a.x, a.y);
    case 11: return orvel_widget_separator(c, t, a.x, a.y, a.w);
    case 12: return orvel_widget_card(c, t, a.x, a.y, a.w, a.h);
    case 19: return orvel_widget_avatar(c, t, s, a.x, a.y, a.w);
    case 20: return orvel_widget_badge(c, t, a.x, a.y, a.number);
    case 21: return orvel_widget_titlebar(c, t, s, a.x, a.y, a.w, a.h);
    case 25: return orvel_widget_search(c, t, s, a.x, a.y, a.w, a.h);
    case 26: return orvel_widget_tooltip(c, t, s, a.x, a.y);
    default: return orvel_widget_statusbar(c, t, s, a.x, a.y, a.w, a.h);
    }
}

orvel_widget* make(orvel_canvas* c, const orvel_theme* t, const Arguments& a) {
    const char* const s = a.text.c_str();
    switch (a.kind) {
    case 4: return orvel_widget_toggle(c, t, a.x, a.y, a.w, a.h, a.number);
    case 5: return orvel_widget_checkbox(c, t, s, a.x, a.y, a.number);
    case 6: return orvel_widget_slider(c, t, a.x, a.y, a.w, a.value);
    case 7: return orvel_widget_progress(c, t, a.x, a.y, a.w, a.h, a.value);
    case 13: return orvel_widget_radio(c, t, s, a.x, a.y, a.number);
    case 14: return orvel_widget_dropdown(c, t, s, a.x, a.y, a.w, a.h, a.number);
    case 15: return orvel_widget_spinner(c, t, a.x, a.y, a.w, a.value);
    case 16: return orvel_widget_rating(c, t, a.x, a.y, a.value);
    case 17: return orvel_widget_stepper(c, t, a.x, a.y, a.w, a.h, a.number);
    case 18: return orvel_widget_tabs(c, t, s, a.x, a.y, a.w, a.h, a.number);
    case 22: return orvel_widget_list_item(c, t, s, a.icon.c_str(), a.x, a.y, a.w, a.h, a.number);
    case 23: return orvel_widget_menu(c, t, s, a.x, a.y, a.w, a.h, a.number);
    case 24: return orvel_widget_bars(c, t, a.x, a.y, a.w, a.h);
    default: return make_frame(c, t, a);
    }
}

double clamped(double value) { return value > 1 ? 1 : value < 0 ? 0 : value; }

/// What the constructor of the kind should store; text that it does not take is not drawn either.
WidgetState stored(const Arguments& a) {
    WidgetState s;
    s.kind = a.kind;
    s.text = a.kind == 9 ? a.icon : a.text;
    s.icon_name = a.kind == 22 ? a.icon : "";
    s.x = a.x;
    s.y = a.y;
    s.w = a.w;
    s.h = a.h;
    const auto size = [&s](int w, int h) {
        s.w = w;
        s.h = h;
    };
    const int text_width = model::text_width(a.text);
    if (a.kind == 2) size(text_width, 7);
    if (a.kind == 5 || a.kind == 13) size(text_width + 13, 9);
    if (a.kind == 6) size(a.w, 9);
    if (a.kind == 9 || a.kind == 15 || a.kind == 19) size(a.w, a.w);
    if (a.kind == 11) size(a.w, 1);
    if (a.kind == 16) size(50, 10);
    if (a.kind == 20) size(14, 10);
    if (a.kind == 26) size(text_width + 8, 12);
    for (const int kind : {4, 5, 13, 14, 22}) {
        if (a.kind == kind) s.active = a.number != 0;
    }
    for (const int kind : {17, 18, 20, 23}) {
        if (a.kind == kind) s.amount = a.number;
    }
    for (const int kind : {6, 7, 15, 16}) {
        if (a.kind == kind) s.value = clamped(a.value);
    }
    return s;
}

void set_data(Input& input, WidgetPair& pair) {
    std::vector<double> values(static_cast<std::size_t>(input.byte() % 10));
    for (double& value : values) value = input.fraction();
    orvel_widget_set_data(pair.actual.get(), values.data(), static_cast<int>(values.size()));
    if (!values.empty() || values.data()) pair.expected.data = values;
}

void change(Input& input, WidgetPair& pair) {
    orvel_widget* const widget = pair.actual.get();
    const int what = input.byte() % 6;
    if (what == 1 || what == 2) {
        const int on = input.byte() % 3 - 1;
        (what == 1 ? orvel_widget_set_hover : orvel_widget_set_active)(widget, on);
        (what == 1 ? pair.expected.hover : pair.expected.active) = on != 0;
    } else if (what == 3) {
        pair.expected.amount = input.number();
        orvel_widget_set_amount(widget, pair.expected.amount);
    } else if (what == 4) {
        const double value = input.fraction();
        pair.expected.value = clamped(value);
        orvel_widget_set_value(widget, value);
    } else if (what == 5) {
        set_data(input, pair);
    }
}

/// The file that the target saves, under either of its names, or none.
std::string any_image(Input& input) {
    constexpr const char* kNames[] = {"image", "image.bmp", "missing", ""};
    return kNames[input.byte() % 4];
}

}  // namespace

std::string any_icon(Input& input) {
    const int index = input.byte() % 72;
    return index < 68 ? orvel_icon_list(nullptr)[index] : input.text();
}

WidgetPair make_widget(const Arguments& a, orvel_canvas* canvas, const orvel_theme* theme) {
    WidgetPair pair;
    pair.actual.reset(make(canvas, theme, a));
    pair.expected = stored(a);
    return pair;
}

WidgetPair any_widget(Input& input, orvel_canvas* canvas, const orvel_theme* theme) {
    Arguments a;
    a.kind = input.byte() % 28;
    a.text = input.text();
    if (a.kind == 9 || a.kind == 22) a.icon = any_icon(input);
    if (a.kind == 10) a.text = any_image(input);
    for (int* number : {&a.x, &a.y, &a.w, &a.h, &a.number}) *number = input.number();
    a.value = input.fraction();
    WidgetPair pair = make_widget(a, canvas, theme);
    for (int turn = 0; turn < 3; ++turn) change(input, pair);
    return pair;
}

}  // namespace fuzz
