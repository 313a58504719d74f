/* Draw: every frame makes all widgets anew from the state. */
#include <stdio.h>

#include "live_screen.h"

enum { LEFT = 16, RIGHT = 624, MIDDLE = 234 };

static orvel_color quiet(const page* p) { return kit_mix(p->theme.text, p->theme.surface, 40); }

/* Small controls take a stronger line than panels, and the accent under the pointer. */
static orvel_theme control(const screen* s, const page* p, target what) {
    orvel_theme theme = p->theme;
    theme.border = s->hot == what ? theme.accent : kit_mix(theme.text, theme.surface, 50);
    return theme;
}

static void draw_button(const screen* s, const page* p, target what, const char* name) {
    const kit_box at = place(s, what);
    const int pressed = s->held == what;
    orvel_theme theme = p->theme;
    if (pressed) theme.button = theme.button_hover = theme.accent;
    orvel_widget* button = orvel_widget_button(p->canvas, &theme, "", at.x, at.y, at.w, at.h);
    orvel_widget_set_hover(button, s->hot == what);
    show(button);
    say(p, kit_bold_12(), name, (kit_box){at.x, at.y + pressed, at.w, at.h}, KIT_CENTRE,
        pressed ? theme.background : theme.button_text);
}

static void draw_caret(const screen* s, const page* p, target what, const char* text, int x) {
    const kit_box at = place(s, what);
    if (s->focus != what || s->ticks % 60 >= 30) return;
    const int end = x + kit_text_width(kit_sans_12(), text), last = at.x + at.w - 4;
    orvel_canvas_fill_rect(p->canvas, end < last ? end + 1 : last, at.y + 6, 1, at.h - 12,
                           p->theme.accent);
}

static void draw_header(const screen* s, const page* p) {
    const kit_box at = place(s, THEME);
    const orvel_theme theme = control(s, p, THEME);
    orvel_canvas_fill_rect(p->canvas, 0, 0, SCREEN_W, 44, p->theme.surface);
    show(orvel_widget_separator(p->canvas, &p->theme, 0, 44, SCREEN_W));
    kit_icon(p->canvas, "home", LEFT, 8, 28, p->theme.accent);
    say(p, kit_bold_18(), "Greenhouse", (kit_box){54, 0, 200, 44}, KIT_LEFT, p->theme.text);
    orvel_draw_icon(p->canvas, s->light ? "sun" : "moon", at.x - 32, 10, 24, p->theme.accent);
    show(orvel_widget_toggle(p->canvas, &theme, at.x, at.y, at.w, at.h, s->light));
}

static void draw_search(const screen* s, const page* p) {
    const kit_box at = place(s, SEARCH);
    orvel_theme theme = control(s, p, SEARCH);
    theme.surface = theme.background;
    orvel_widget* field = orvel_widget_search(p->canvas, &theme, "", at.x, at.y, at.w, at.h);
    orvel_widget_set_active(field, s->focus == SEARCH);
    show(field);
    const kit_box words = {at.x + at.h + 4, at.y, at.w - at.h - 8, at.h};
    if (s->search[0] != '\0' || s->focus == SEARCH) {
        say(p, kit_sans_12(), s->search, words, KIT_LEFT, p->theme.text);
    } else {
        say(p, kit_sans_12(), "Find a plant", words, KIT_LEFT, quiet(p));
    }
    draw_caret(s, p, SEARCH, s->search, words.x);
}

static void draw_rows(const screen* s, const page* p) {
    if (plant_in_row(s, 0) < 0) {
        say(p, kit_sans_12(), "No plant by that name", (kit_box){LEFT + 12, 98, 180, 34}, KIT_LEFT,
            quiet(p));
    }
    for (int row = 0; row < PLANTS; ++row) {
        const target what = ROW + row;
        const kit_box at = place(s, what);
        const int index = plant_in_row(s, row);
        if (index < 0) return;
        const plant* shown = &s->plants[index];
        const int selected = index == s->selected;
        char percent[16];
        snprintf(percent, sizeof percent, "%.0f %%", shown->humidity * 100);
        orvel_theme theme = p->theme;
        if (s->hot == what) theme.background = theme.button;
        theme.border = selected ? theme.button_hover : theme.background; /* no line, no mark */
        show(orvel_widget_list_item(p->canvas, &theme, "", "", at.x, at.y, at.w, at.h, selected));
        say(p, selected ? kit_bold_12() : kit_sans_12(), shown->name,
            (kit_box){at.x + 12, at.y, 130, at.h}, KIT_LEFT, theme.text);
        say(p, kit_sans_11(), percent, (kit_box){at.x, at.y, at.w - 12, at.h}, KIT_RIGHT,
            selected ? theme.text : quiet(p));
    }
}

static void draw_tank(const screen* s, const page* p) {
    char percent[16];
    snprintf(percent, sizeof percent, "%.0f %%", s->tank * 100);
    show(orvel_widget_card(p->canvas, &p->theme, LEFT, 332, 200, 108));
    say(p, kit_bold_12(), "Water tank", (kit_box){LEFT + 16, 344, 120, 16}, KIT_LEFT,
        p->theme.text);
    say(p, kit_sans_11(), percent, (kit_box){LEFT + 16, 344, 168, 16}, KIT_RIGHT, p->theme.text);
    show(orvel_widget_progress(p->canvas, &p->theme, LEFT + 16, 370, 168, 12, s->tank));
    show(orvel_widget_spinner(p->canvas, &p->theme, LEFT + 14, 404, 24, s->pump % 45 / 45.0));
    say(p, kit_sans_11(), s->pump > 0 ? "Pumping" : "Ready", (kit_box){LEFT + 48, 404, 60, 24},
        KIT_LEFT, quiet(p));
    draw_button(s, p, REFILL, "Refill");
}

static void label(const page* p, const char* name, int y, int h) {
    say(p, kit_sans_12(), name, (kit_box){250, y, 250, h}, KIT_LEFT, p->theme.text);
}

static void draw_tabs(const screen* s, const page* p) {
    static const char* const names[TABS] = {"Climate", "Care", "About"};
    const kit_box first = place(s, TAB);
    show(orvel_widget_panel(p->canvas, &p->theme, MIDDLE, 121, RIGHT - MIDDLE, 200));
    show(orvel_widget_tabs(p->canvas, &p->theme, "||", first.x, first.y, TABS * first.w, first.h,
                           s->tab));
    orvel_canvas_fill_rect(p->canvas, first.x + s->tab * first.w + 1, 121, first.w - 2, 1,
                           p->theme.surface); /* the chosen tab opens into the panel */
    for (int i = 0; i < TABS; ++i) {
        const kit_box at = place(s, TAB + i);
        const int chosen = i == s->tab, hot = s->hot == TAB + i;
        say(p, chosen ? kit_bold_12() : kit_sans_12(), names[i], at, KIT_CENTRE,
            chosen ? p->theme.accent
            : hot  ? p->theme.text
                   : quiet(p));
    }
}

static void draw_humidity(const screen* s, const page* p) {
    const plant* chosen = &s->plants[s->selected];
    const kit_box at = place(s, SLIDER);
    char percent[16];
    snprintf(percent, sizeof percent, "%.0f %%", chosen->humidity * 100);
    orvel_theme theme = p->theme; /* of the slider, only the knob takes the colour of hover */
    theme.button_hover = theme.text;
    orvel_widget* slider =
        orvel_widget_slider(p->canvas, &theme, at.x, at.y, at.w, chosen->humidity);
    orvel_widget_set_hover(slider, s->hot == SLIDER || s->held == SLIDER);
    show(slider);
    say(p, kit_sans_12(), percent, (kit_box){at.x + at.w + 4, 128, 44, 36}, KIT_RIGHT, theme.text);
}

static void draw_temperature(const screen* s, const page* p) {
    const kit_box minus = place(s, MINUS), plus = place(s, PLUS);
    const int w = plus.x + plus.w - minus.x;
    char degrees[16];
    snprintf(degrees, sizeof degrees, "%d°", s->plants[s->selected].degrees);
    if (s->hot == MINUS || s->hot == PLUS) {
        const kit_box at = place(s, s->hot);
        orvel_canvas_fill_rect(p->canvas, at.x, at.y, at.w, at.h,
                               s->held == s->hot ? p->theme.accent : p->theme.button_hover);
    }
    show(orvel_widget_stepper(p->canvas, &p->theme, minus.x, minus.y, w, minus.h, 0));
    const kit_box middle = {minus.x + minus.w, minus.y, w - 2 * minus.w, minus.h};
    orvel_canvas_fill_rect(p->canvas, middle.x, middle.y, middle.w, middle.h, p->theme.surface);
    say(p, kit_sans_12(), degrees, middle, KIT_CENTRE, p->theme.text);
}

static void draw_climate(const screen* s, const page* p) {
    const plant* chosen = &s->plants[s->selected];
    const kit_box fan = place(s, FAN), alert = place(s, ALERT), water = place(s, WATER);
    const orvel_theme fan_theme = control(s, p, FAN), alert_theme = control(s, p, ALERT);
    char times[40];
    for (int y = 164; y <= 272; y += 36) {
        show(orvel_widget_separator(p->canvas, &p->theme, 250, y, 357));
    }
    label(p, "Humidity", 128, 36);
    draw_humidity(s, p);
    label(p, "Temperature", 165, 36);
    draw_temperature(s, p);
    label(p, "Fan", 201, 36);
    show(orvel_widget_toggle(p->canvas, &fan_theme, fan.x, fan.y, fan.w, fan.h, chosen->fan));
    label(p, "Tell me when it is too dry", 237, 36);
    show(orvel_widget_checkbox(p->canvas, &alert_theme, "", alert.x, alert.y, chosen->alert));
    draw_button(s, p, WATER, "Water now");
    snprintf(times, sizeof times, chosen->waterings == 1 ? "Watered once" : "Watered %d times",
             chosen->waterings);
    say(p, kit_sans_11(), times, (kit_box){water.x + water.w + 16, water.y, 200, water.h}, KIT_LEFT,
        quiet(p));
}

static void draw_care(const screen* s, const page* p) {
    static const char* const feeds[FEEDS] = {"Weekly", "Fortnightly", "Monthly"};
    const plant* chosen = &s->plants[s->selected];
    const kit_box at = place(s, NOTE);
    say(p, kit_bold_12(), "Feed", (kit_box){250, 136, 150, 20}, KIT_LEFT, p->theme.text);
    for (int i = 0; i < FEEDS; ++i) {
        const target what = FEED + i;
        const kit_box radio = place(s, what);
        const orvel_theme theme = control(s, p, what);
        show(orvel_widget_radio(p->canvas, &theme, "", radio.x, radio.y, chosen->feed == i));
        say(p, kit_sans_12(), feeds[i], (kit_box){radio.x + 16, radio.y - 5, 90, 20}, KIT_LEFT,
            p->theme.text);
    }
    say(p, kit_bold_12(), "Note", (kit_box){250, 208, 150, 20}, KIT_LEFT, p->theme.text);
    orvel_theme theme = control(s, p, NOTE);
    theme.surface = theme.background;
    orvel_widget* field = orvel_widget_textbox(p->canvas, &theme, "", at.x, at.y, at.w, at.h);
    orvel_widget_set_hover(field, s->focus == NOTE);
    show(field);
    say(p, kit_sans_12(), chosen->note, (kit_box){at.x + 8, at.y, at.w - 16, at.h}, KIT_LEFT,
        p->theme.text);
    draw_caret(s, p, NOTE, chosen->note, at.x + 8);
    say(p, kit_sans_11(), "The keyboard writes here; Tab leads to the search field.",
        (kit_box){at.x, at.y + 38, at.w, 16}, KIT_LEFT, quiet(p));
}

static void draw_about(const page* p) {
    static const char* const lines[] = {
        "Every frame makes all widgets anew, draws them at the",
        "rectangles that the host keeps, and throws them away.",
        "",
        "The library draws widgets, icons and the chart.",
        "Hit testing, state and words are the host's.",
    };
    say(p, kit_bold_12(), "How this window works", (kit_box){250, 136, 300, 20}, KIT_LEFT,
        p->theme.text);
    for (int i = 0; i < 5; ++i) {
        say(p, kit_sans_12(), lines[i], (kit_box){250, 166 + 22 * i, 358, 18}, KIT_LEFT,
            p->theme.text);
    }
}

static void draw_chart(const screen* s, const page* p) {
    char now[16];
    snprintf(now, sizeof now, "%.1f %%", s->history[HISTORY - 1] * 100);
    orvel_theme theme = p->theme;
    theme.border = theme.surface;
    show(orvel_widget_panel(p->canvas, &p->theme, MIDDLE, 332, RIGHT - MIDDLE, 108));
    say(p, kit_bold_12(), "Humidity now", (kit_box){250, 342, 150, 16}, KIT_LEFT, p->theme.text);
    say(p, kit_sans_11(), now, (kit_box){250, 342, 358, 16}, KIT_RIGHT, p->theme.text);
    orvel_widget* bars = orvel_widget_bars(p->canvas, &theme, 250, 362, 360, 70);
    orvel_widget_set_data(bars, s->history, HISTORY);
    show(bars);
}

void screen_draw(const screen* s, page* p, const char* status) {
    if (s->light) {
        orvel_theme_light(&p->theme);
    } else {
        orvel_theme_default(&p->theme);
    }
    orvel_canvas_clear(p->canvas, p->theme.background);
    draw_header(s, p);
    draw_search(s, p);
    draw_rows(s, p);
    draw_tank(s, p);
    say(p, kit_bold_18(), s->plants[s->selected].name, (kit_box){MIDDLE, 56, 300, 30}, KIT_LEFT,
        p->theme.text);
    draw_tabs(s, p);
    if (s->tab == 0) draw_climate(s, p);
    if (s->tab == 1) draw_care(s, p);
    if (s->tab == 2) draw_about(p);
    draw_chart(s, p);
    show(orvel_widget_statusbar(p->canvas, &p->theme, "", 0, 454, SCREEN_W, 26));
    say(p, kit_sans_11(), status, (kit_box){LEFT, 455, RIGHT - LEFT, 26}, KIT_LEFT, quiet(p));
}
