/* A settings page in both themes. Usage: settings_page FOLDER */
#include "output.h"
#include "page.h"

enum { WIDTH = 640, HEIGHT = 480, SIDE = 200, LEFT = 224, RIGHT = 616, ROW = 40 };
enum { PREVIEW_TOP = 96, PREVIEW_W = 120, PREVIEW_H = 72, PITCH = 136 };

static orvel_color quiet(const page* p) { return kit_mix(p->theme.text, p->theme.surface, 40); }

/* Small controls need a stronger line than panels: the same theme with another border. */
static orvel_theme control(const page* p) {
    orvel_theme theme = p->theme;
    theme.border = kit_mix(theme.text, theme.surface, 50);
    theme.surface = theme.background;
    return theme;
}

/* A list without lines: its items take the sidebar's colour unless they are selected. */
static void draw_section(const page* p, const char* icon, const char* name, int y, int selected) {
    orvel_theme theme = p->theme;
    theme.background = theme.surface;
    theme.border = selected ? theme.button_hover : theme.surface;
    show(orvel_widget_list_item(p->canvas, &theme, "", "", 8, y, SIDE - 16, 32, selected));
    orvel_draw_icon(p->canvas, icon, 16, y + 6, 20, theme.accent);
    say(p, selected ? kit_bold_12() : kit_sans_12(), name, (kit_box){46, y, 120, 32}, KIT_LEFT,
        theme.text);
}

static void draw_sidebar(const page* p) {
    static const char* const sections[][2] = {
        {"world", "Network"},   {"phone", "Mobile"},          {"image", "Display"},
        {"music", "Sound"},     {"message", "Notifications"}, {"lock", "Privacy"},
        {"battery", "Battery"}, {"clock", "Date and time"},
    };
    const orvel_theme *t = &p->theme, field = control(p);
    orvel_canvas_fill_rect(p->canvas, 0, 0, SIDE, HEIGHT, t->surface);
    orvel_canvas_fill_rect(p->canvas, SIDE, 0, 1, HEIGHT, t->border);

    show(orvel_widget_avatar(p->canvas, t, "", 16, 16, 36));
    say(p, kit_bold_18(), "M", (kit_box){17, 16, 36, 37}, KIT_CENTRE, t->background);
    say(p, kit_bold_12(), "Mara Lind", (kit_box){62, 17, 130, 18}, KIT_LEFT, t->text);
    say(p, kit_sans_11(), "Administrator", (kit_box){62, 34, 130, 18}, KIT_LEFT, quiet(p));

    show(orvel_widget_search(p->canvas, &field, "", 16, 68, SIDE - 32, 26));
    say(p, kit_sans_12(), "Search settings", (kit_box){46, 68, 130, 26}, KIT_LEFT, quiet(p));

    for (int i = 0; i < 8; ++i) {
        draw_section(p, sections[i][0], sections[i][1], 108 + 34 * i, i == 2);
    }
    show(orvel_widget_separator(p->canvas, t, 16, 402, SIDE - 33));
    say(p, kit_sans_12(), "Storage", (kit_box){16, 418, 80, 20}, KIT_LEFT, t->text);
    say(p, kit_sans_11(), "182 of 256 GB", (kit_box){80, 418, 104, 20}, KIT_RIGHT, quiet(p));
    show(orvel_widget_progress(p->canvas, t, 16, 446, SIDE - 32, 10, 182.0 / 256));
}

/* A small screen made of real widgets in the theme that it stands for. */
static void draw_preview(const page* p, const orvel_theme* look, int x) {
    enum { Y = PREVIEW_TOP, W = PREVIEW_W, H = PREVIEW_H };
    orvel_canvas_fill_rect(p->canvas, x, Y, W, H, look->background);
    orvel_canvas_fill_rect(p->canvas, x, Y, 30, H, look->surface);
    show(orvel_widget_window(p->canvas, look, "", x + 38, Y + 10, 72, 52));
    for (int i = 0; i < 3; ++i) {
        orvel_canvas_fill_rect(p->canvas, x + 6, Y + 12 + 10 * i, 18, 3, look->border);
        orvel_canvas_fill_rect(p->canvas, x + 44, Y + 28 + 7 * i, 44 - 10 * i, 2, look->text);
    }
    show(orvel_widget_button(p->canvas, look, "", x + 84, Y + 48, 20, 9));
    orvel_canvas_rect(p->canvas, x, Y, W, H, p->theme.border);
}

static void draw_choice(const page* p, const char* name, int x, int selected) {
    enum { Y = PREVIEW_TOP, W = PREVIEW_W, H = PREVIEW_H };
    const orvel_theme button = control(p);
    if (selected) {
        orvel_canvas_rect(p->canvas, x, Y, W, H, p->theme.accent);
        orvel_canvas_rect(p->canvas, x - 1, Y - 1, W + 2, H + 2, p->theme.accent);
    }
    show(orvel_widget_radio(p->canvas, &button, "", x, Y + H + 10, selected));
    say(p, selected ? kit_bold_12() : kit_sans_12(), name, (kit_box){x + 16, Y + H + 5, W, 20},
        KIT_LEFT, p->theme.text);
}

/* The third preview is half of each: its right half is a copy of the dark one's pixels. */
static void draw_appearance(const page* p, int light) {
    orvel_theme dark_look, light_look;
    orvel_theme_default(&dark_look);
    orvel_theme_light(&light_look);
    say(p, kit_bold_12(), "Appearance", (kit_box){LEFT, 66, 200, 20}, KIT_LEFT, p->theme.text);
    draw_preview(p, &light_look, LEFT);
    draw_preview(p, &light_look, LEFT + 2 * PITCH);
    draw_preview(p, &dark_look, LEFT + PITCH);
    for (int y = PREVIEW_TOP; y < PREVIEW_TOP + PREVIEW_H; ++y) {
        for (int x = PREVIEW_W / 2; x < PREVIEW_W; ++x) {
            orvel_canvas_pixel(p->canvas, LEFT + 2 * PITCH + x, y,
                               orvel_canvas_pixel_get(p->canvas, LEFT + PITCH + x, y));
        }
    }
    draw_choice(p, "Light", LEFT, light);
    draw_choice(p, "Dark", LEFT + PITCH, !light);
    draw_choice(p, "Follow the sun", LEFT + 2 * PITCH, 0);
}

static void draw_label(const page* p, const char* name, const char* detail, int y) {
    const int middle = detail ? y + 4 : y;
    say(p, kit_sans_12(), name, (kit_box){LEFT + 16, middle, 200, detail ? 18 : ROW}, KIT_LEFT,
        p->theme.text);
    if (detail) {
        say(p, kit_sans_11(), detail, (kit_box){LEFT + 16, y + 19, 240, 18}, KIT_LEFT, quiet(p));
    }
}

static void draw_panel(const page* p) {
    enum { TOP = 208, END = RIGHT - 16 };
    const orvel_theme* t = &p->theme;
    show(orvel_widget_panel(p->canvas, t, LEFT, TOP, RIGHT - LEFT, 5 * ROW + 1));
    for (int i = 1; i < 5; ++i) {
        show(orvel_widget_separator(p->canvas, t, LEFT + 16, TOP + i * ROW, END - LEFT - 17));
    }
    draw_label(p, "Brightness", NULL, TOP);
    show(orvel_widget_slider(p->canvas, t, END - 200, TOP + 16, 152, 0.72));
    say(p, kit_sans_12(), "72 %", (kit_box){END - 40, TOP, 40, ROW}, KIT_RIGHT, t->text);

    draw_label(p, "Night light", "Warmer colours from 21:00 to 7:00", TOP + ROW);
    show(orvel_widget_toggle(p->canvas, t, END - 36, TOP + ROW + 11, 36, 18, 1));

    draw_label(p, "Text size", NULL, TOP + 2 * ROW);
    show(orvel_widget_dropdown(p->canvas, t, "", END - 120, TOP + 2 * ROW + 8, 120, 25, 0));
    say(p, kit_sans_12(), "Medium", (kit_box){END - 110, TOP + 2 * ROW + 8, 80, 25}, KIT_LEFT,
        t->text);

    draw_label(p, "Turn off after", NULL, TOP + 3 * ROW);
    show(orvel_widget_stepper(p->canvas, t, END - 120, TOP + 3 * ROW + 8, 120, 25, 10));
    orvel_canvas_fill_rect(p->canvas, END - 95, TOP + 3 * ROW + 8, 70, 25, t->surface);
    say(p, kit_sans_12(), "10 min", (kit_box){END - 95, TOP + 3 * ROW + 8, 70, 25}, KIT_CENTRE,
        t->text);

    draw_label(p, "Dim when on battery", NULL, TOP + 4 * ROW);
    const orvel_theme tick = control(p);
    show(orvel_widget_checkbox(p->canvas, &tick, "", END - 9, TOP + 4 * ROW + 16, 1));
}

static void draw_button(const page* p, const orvel_theme* theme, const char* name, int x) {
    show(orvel_widget_button(p->canvas, theme, "", x, 428, 88, 28));
    say(p, kit_bold_12(), name, (kit_box){x, 428, 88, 28}, KIT_CENTRE, theme->button_text);
}

static void draw_footer(const page* p) {
    orvel_theme primary = p->theme;
    primary.button = primary.border = primary.accent;
    primary.button_text = primary.background;
    orvel_draw_icon(p->canvas, "info", LEFT, 432, 20, p->theme.accent);
    say(p, kit_sans_11(), "2 unsaved changes", (kit_box){LEFT + 28, 428, 160, 28}, KIT_LEFT,
        quiet(p));
    draw_button(p, &p->theme, "Cancel", RIGHT - 184);
    draw_button(p, &primary, "Apply", RIGHT - 88);
}

static void draw_page(const page* p, int light) {
    orvel_canvas_clear(p->canvas, p->theme.background);
    draw_sidebar(p);
    say(p, kit_bold_18(), "Display", (kit_box){LEFT, 16, 200, 36}, KIT_LEFT, p->theme.text);
    say(p, kit_sans_11(), "Built-in panel, 1920 × 1200 at 60 Hz",
        (kit_box){LEFT, 16, RIGHT - LEFT, 40}, KIT_RIGHT, quiet(p));
    draw_appearance(p, light);
    draw_panel(p);
    draw_footer(p);
}

int main(int argc, char** argv) {
    const char* folder = output_folder(argc, argv);
    page p = {.canvas = new_canvas(WIDTH, HEIGHT)};
    orvel_theme_default(&p.theme);
    draw_page(&p, 0);
    save(p.canvas, orvel_canvas_save_bmp, folder, "settings_dark.bmp");
    orvel_theme_light(&p.theme);
    draw_page(&p, 1);
    save(p.canvas, orvel_canvas_save_bmp, folder, "settings_light.bmp");
    orvel_canvas_destroy(p.canvas);
    return 0;
}
