/* A host in strict C99 that calls every function of the interface, plainly and with null. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "orvel.h"

static int s_failures = 0;

static void check(int holds, const char* what, int line) {
    if (holds) return;
    fprintf(stderr, "c_api_test.c:%d: %s\n", line, what);
    ++s_failures;
}
#define CHECK(condition) check((condition) != 0, #condition, __LINE__)

static int equals(orvel_color a, orvel_color b) { return memcmp(&a, &b, sizeof a) == 0; }

static const orvel_color kInk = {255, 255, 255, 255};
static const orvel_color kNothing = {0, 0, 0, 0};

static void lifecycle(void) {
    CHECK(strcmp(orvel_version(), ORVEL_VERSION) == 0);
    CHECK(orvel_init() == 0);
    CHECK(orvel_set_resource_path("/no/such/folder") == 0);
    CHECK(orvel_set_resource_path(NULL) == -1);
    CHECK(orvel_set_resource_path("") == 0);
    orvel_shutdown();
}

static void canvas(void) {
    orvel_canvas* const c = orvel_canvas_create(8, 6);
    CHECK(c != NULL);
    CHECK(orvel_canvas_width(c) == 8 && orvel_canvas_height(c) == 6);
    orvel_canvas_clear(c, kNothing);
    CHECK(equals(orvel_canvas_pixel_get(c, 7, 5), kNothing));
    orvel_canvas_pixel(c, 7, 5, kInk);
    CHECK(equals(orvel_canvas_pixel_get(c, 7, 5), kInk));
    orvel_canvas_destroy(c);

    CHECK(orvel_canvas_create(0, 1) == NULL);
    CHECK(orvel_canvas_width(NULL) == 0 && orvel_canvas_height(NULL) == 0);
    orvel_canvas_clear(NULL, kInk);
    orvel_canvas_pixel(NULL, 0, 0, kInk);
    CHECK(equals(orvel_canvas_pixel_get(NULL, 0, 0), kNothing));
    orvel_canvas_destroy(NULL);
}

static int drawn_at(orvel_canvas* c, int x, int y) {
    const int drawn = equals(orvel_canvas_pixel_get(c, x, y), kInk);
    orvel_canvas_clear(c, kNothing);
    return drawn;
}

static void shapes_and_text(void) {
    orvel_canvas* const c = orvel_canvas_create(8, 8);
    orvel_canvas_line(c, 0, 0, 7, 7, kInk);
    CHECK(drawn_at(c, 3, 3));
    orvel_canvas_rect(c, 1, 1, 3, 3, kInk);
    CHECK(drawn_at(c, 3, 3));
    orvel_canvas_fill_rect(c, 1, 1, 3, 3, kInk);
    CHECK(drawn_at(c, 3, 3));
    orvel_canvas_circle(c, 3, 2, 1, kInk);
    CHECK(drawn_at(c, 3, 3));
    orvel_canvas_fill_circle(c, 3, 3, 2, kInk);
    CHECK(drawn_at(c, 3, 3));
    orvel_canvas_fill_triangle(c, 0, 0, 7, 0, 3, 7, kInk);
    CHECK(drawn_at(c, 3, 3));
    orvel_text_draw(c, "!", 1, 1, kInk);
    CHECK(drawn_at(c, 3, 3));
    orvel_canvas_destroy(c);

    orvel_canvas_line(NULL, 0, 0, 7, 7, kInk);
    orvel_canvas_rect(NULL, 1, 1, 3, 3, kInk);
    orvel_canvas_fill_rect(NULL, 1, 1, 3, 3, kInk);
    orvel_canvas_circle(NULL, 3, 2, 1, kInk);
    orvel_canvas_fill_circle(NULL, 3, 3, 2, kInk);
    orvel_canvas_fill_triangle(NULL, 0, 0, 7, 0, 3, 7, kInk);
    orvel_text_draw(NULL, NULL, 1, 1, kInk);
    CHECK(orvel_text_width("AB") == 11);
    CHECK(orvel_text_width(NULL) == 0);
}

static void pictures(const char* path) {
    orvel_canvas* const c = orvel_canvas_create(2, 2);
    CHECK(orvel_canvas_save_bmp(c, path) == 0);
    CHECK(orvel_canvas_save_bmp_rgba(c, path) == 0);
    CHECK(orvel_canvas_save_bmp(NULL, path) == -1);
    CHECK(orvel_canvas_save_bmp(c, NULL) == -1);
    CHECK(orvel_canvas_save_bmp_rgba(NULL, path) == -1);
    CHECK(orvel_canvas_save_bmp_rgba(c, NULL) == -1);
    orvel_canvas_destroy(c);
}

static void icons(void) {
    orvel_canvas* const c = orvel_canvas_create(16, 16);
    int count = 0;
    const char** const names = orvel_icon_list(&count);
    CHECK(count == 68 && names != NULL && strcmp(names[0], "folder") == 0);
    CHECK(orvel_icon_exists("folder") == 1 && orvel_icon_exists(NULL) == 0);
    CHECK(orvel_draw_icon(c, "folder", 0, 0, 16, kInk) == 0);
    CHECK(orvel_draw_icon_ex(c, "folder", 0, 0, 16, kInk, kInk, kNothing) == 0);
    CHECK(orvel_icon_draw_bitmap(c, "missing", 0, 0) == -1);
    orvel_canvas_destroy(c);

    CHECK(orvel_icon_list(NULL) == names);
    CHECK(orvel_draw_icon(NULL, "folder", 0, 0, 16, kInk) == -1);
    CHECK(orvel_draw_icon_ex(NULL, NULL, 0, 0, 16, kInk, kInk, kNothing) == -1);
    CHECK(orvel_icon_draw_bitmap(NULL, NULL, 0, 0) == -1);
}

static void themes(void) {
    orvel_theme dark, light;
    orvel_theme_default(&dark);
    orvel_theme_light(&light);
    CHECK(!equals(dark.background, light.background));
    CHECK(orvel_theme_load(&dark, "missing") == -1);
    CHECK(orvel_theme_save(&dark, "no such folder/theme.json") == -1);

    orvel_theme_default(NULL);
    orvel_theme_light(NULL);
    CHECK(orvel_theme_load(NULL, NULL) == -1);
    CHECK(orvel_theme_save(NULL, NULL) == -1);
}

#define KINDS 28

/* Fills @p made with a widget of every kind. */
static void make_widgets(orvel_canvas* c, const orvel_theme* t, orvel_widget* made[KINDS]) {
    orvel_widget** next = made;
    *next++ = orvel_widget_window(c, t, "A", 0, 0, 30, 20);
    *next++ = orvel_widget_panel(c, t, 0, 0, 30, 20);
    *next++ = orvel_widget_label(c, t, "A", 0, 0);
    *next++ = orvel_widget_button(c, t, "A", 0, 0, 30, 20);
    *next++ = orvel_widget_toggle(c, t, 0, 0, 30, 20, 1);
    *next++ = orvel_widget_checkbox(c, t, "A", 0, 0, 1);
    *next++ = orvel_widget_slider(c, t, 0, 0, 30, 0.5);
    *next++ = orvel_widget_progress(c, t, 0, 0, 30, 20, 0.5);
    *next++ = orvel_widget_textbox(c, t, "A", 0, 0, 30, 20);
    *next++ = orvel_widget_icon(c, t, "folder", 0, 0, 16);
    *next++ = orvel_widget_image(c, t, "missing", 0, 0);
    *next++ = orvel_widget_separator(c, t, 0, 0, 30);
    *next++ = orvel_widget_card(c, t, 0, 0, 30, 20);
    *next++ = orvel_widget_radio(c, t, "A", 0, 0, 1);
    *next++ = orvel_widget_dropdown(c, t, "A", 0, 0, 30, 20, 1);
    *next++ = orvel_widget_spinner(c, t, 0, 0, 16, 0.5);
    *next++ = orvel_widget_rating(c, t, 0, 0, 0.5);
    *next++ = orvel_widget_stepper(c, t, 0, 0, 30, 20, 3);
    *next++ = orvel_widget_tabs(c, t, "A|B", 0, 0, 30, 20, 1);
    *next++ = orvel_widget_avatar(c, t, "A", 0, 0, 16);
    *next++ = orvel_widget_badge(c, t, 0, 0, 3);
    *next++ = orvel_widget_titlebar(c, t, "A", 0, 0, 30, 20);
    *next++ = orvel_widget_list_item(c, t, "A", "folder", 0, 0, 30, 20, 1);
    *next++ = orvel_widget_menu(c, t, "A|B", 0, 0, 30, 20, 1);
    *next++ = orvel_widget_bars(c, t, 0, 0, 30, 20);
    *next++ = orvel_widget_search(c, t, "A", 0, 0, 30, 20);
    *next++ = orvel_widget_tooltip(c, t, "A", 0, 0);
    *next++ = orvel_widget_statusbar(c, t, "A", 0, 0, 30, 20);
    CHECK(next == made + KINDS);
}

static void set_and_draw(orvel_widget* widget) {
    const double values[] = {0.25, 1.0};
    orvel_widget_set_hover(widget, 1);
    orvel_widget_set_active(widget, 1);
    orvel_widget_set_value(widget, 0.75);
    orvel_widget_set_amount(widget, 1);
    orvel_widget_set_data(widget, values, 2);
    orvel_widget_draw(widget);
    orvel_widget_destroy(widget);
}

static void widgets(void) {
    orvel_canvas* const c = orvel_canvas_create(60, 40);
    orvel_theme theme;
    orvel_widget* made[KINDS];
    int i;
    orvel_theme_default(&theme);
    make_widgets(c, &theme, made);
    for (i = 0; i < KINDS; ++i) {
        CHECK(made[i] != NULL);
        set_and_draw(made[i]);
    }
    orvel_canvas_destroy(c);

    make_widgets(NULL, NULL, made);
    for (i = 0; i < KINDS; ++i) CHECK(made[i] == NULL);
    set_and_draw(NULL);
}

/* Nothing is heard: the names are missing, and a silent tone starts no player. */
static void sounds(void) {
    CHECK(orvel_play_sound("missing") == -1 && orvel_play_sound(NULL) == -1);
    CHECK(orvel_play_music("missing") == -1 && orvel_play_music(NULL) == -1);
    orvel_stop_music();
    CHECK(orvel_play_tone(0.0, 0) == -1);
}

int main(int argc, char** argv) {
    if (argc != 2) {
        fprintf(stderr, "usage: c_api_test FILE\n");
        return 2;
    }
    lifecycle();
    canvas();
    shapes_and_text();
    pictures(argv[1]);
    icons();
    themes();
    widgets();
    sounds();
    return s_failures ? EXIT_FAILURE : EXIT_SUCCESS;
}
