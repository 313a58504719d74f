/* A host in strict C99 that calls every function of the kit, plainly and with null. */
#include <stdio.h>
#include <string.h>

#include "orvel_kit.h"

static int s_failures = 0;

static void check(int holds, const char* what, int line) {
    if (holds) return;
    fprintf(stderr, "kit_api_test.c:%d: %s\n", line, what);
    ++s_failures;
}
#define CHECK(condition) check((condition) != 0, #condition, __LINE__)

static const orvel_color kInk = {255, 255, 255, 255};
static const orvel_color kNothing = {0, 0, 0, 0};

static int shows_ink(const orvel_canvas* canvas) {
    int x, y;
    for (y = 0; y < orvel_canvas_height(canvas); ++y) {
        for (x = 0; x < orvel_canvas_width(canvas); ++x) {
            const orvel_color color = orvel_canvas_pixel_get(canvas, x, y);
            if (memcmp(&color, &kInk, sizeof color) == 0) return 1;
        }
    }
    return 0;
}

/* Whether something was drawn; wipes it. */
static int drawn(orvel_canvas* canvas) {
    const int shown = shows_ink(canvas);
    orvel_canvas_clear(canvas, kNothing);
    return shown;
}

static void guarded_forms(const char* file) {
    orvel_theme theme;
    orvel_canvas* const canvas = kit_canvas(4, 4);
    CHECK(strcmp(kit_version(), KIT_VERSION) == 0);
    CHECK(canvas != NULL && kit_canvas(0, 4) == NULL);
    CHECK(kit_save_bmp(canvas, file) == 0 && kit_save_bmp(NULL, file) == -1);
    CHECK(kit_save_bmp_rgba(canvas, file) == 0 && kit_save_bmp_rgba(NULL, file) == -1);
    CHECK(kit_resource_path("/no/such/folder") == 0 && kit_resource_path(NULL) == -1);
    CHECK(kit_bitmap(canvas, "none", 0, 0) == -1 && kit_bitmap(NULL, NULL, 0, 0) == -1);
    orvel_theme_default(&theme);
    CHECK(kit_theme_load(&theme, "none") == -1 && kit_theme_load(NULL, NULL) == -1);
    CHECK(kit_theme_save(&theme, "none") == -1 && kit_theme_save(NULL, NULL) == -1);
    CHECK(kit_play_sound(NULL) == -1 && kit_play_music(NULL) == -1);
    CHECK(kit_play_tone(0.0, 0) == -1);
    CHECK(kit_resource_path("") == 0);
    orvel_canvas_destroy(canvas);
}

static void pixels(void) {
    unsigned char bytes[64];
    kit_format format = {0};
    kit_box box = {2, 2, 4, 4};
    orvel_canvas* const to = kit_canvas(8, 8);
    orvel_canvas* const from = kit_canvas(4, 4);
    orvel_canvas* inside;
    orvel_canvas_clear(to, kNothing);
    orvel_canvas_clear(from, kInk);
    CHECK(kit_mix(kNothing, kInk, 100).r == 255 && kit_grey(kInk) == 255);
    CHECK(kit_copy(to, 4, 4, from, NULL) == 0 && drawn(to) && kit_copy(NULL, 0, 0, NULL, NULL));
    CHECK(kit_stamp(to, 4, 4, from, &box) == 0 && drawn(to) && kit_stamp(NULL, 0, 0, NULL, NULL));
    CHECK(kit_icon(to, "app", 0, 0, 8, kInk) == 0 && drawn(to));
    CHECK(kit_icon(NULL, NULL, 0, 0, 8, kInk) == -1);
    inside = kit_clip_begin(to, &box);
    orvel_canvas_clear(inside, kInk);
    CHECK(kit_clip_end(to, &box, inside) == 0 && drawn(to));
    CHECK(kit_clip_begin(NULL, NULL) == NULL && kit_clip_end(NULL, NULL, NULL) == -1);
    format.layout = KIT_GREY8;
    CHECK(kit_pixels_stride(&format, 8) == 8 && kit_pixels_stride(NULL, 8) == 0);
    CHECK(kit_pixels(to, NULL, &format, bytes, sizeof bytes, 0) == 0 && bytes[63] == 0);
    CHECK(kit_pixels(NULL, NULL, NULL, NULL, 0, 0) == -1);
    orvel_canvas_destroy(from);
    orvel_canvas_destroy(to);
}

static void faces(void) {
    char why[80];
    const kit_face* const faces[] = {kit_sans_11(),   kit_sans_12(),  kit_sans_14(), kit_sans_18(),
                                     kit_sans_24(),   kit_sans_40(),  kit_bold_11(), kit_bold_12(),
                                     kit_bold_14(),   kit_bold_18(),  kit_bold_24(), kit_mono_12(),
                                     kit_digits_64(), kit_digits_96()};
    kit_face* chain;
    size_t i;
    for (i = 0; i < sizeof faces / sizeof *faces; ++i) {
        CHECK(kit_face_has(faces[i], '0') && kit_face_ascent(faces[i]) > 0);
        CHECK(kit_face_line(faces[i]) >= kit_face_cap(faces[i]) && kit_face_descent(faces[i]) >= 0);
    }
    CHECK(kit_face_named("sans 12") == kit_sans_12() && kit_face_named(NULL) == NULL);
    chain = kit_face_fallback(kit_digits_64(), kit_sans_12());
    CHECK(chain != NULL && kit_face_has(chain, 'A') && !kit_face_has(kit_digits_64(), 'A'));
    kit_face_close(chain);
    kit_face_close(NULL);
    CHECK(kit_face_fallback(NULL, NULL) == NULL);
    CHECK(kit_face_open("/no/such/face", why, sizeof why) == NULL && why[0] != '\0');
    CHECK(kit_face_read("no face", 7, why, sizeof why) == NULL && why[0] != '\0');
    CHECK(kit_face_open(NULL, NULL, 0) == NULL && kit_face_read(NULL, 0, NULL, 0) == NULL);
}

static void words(void) {
    const kit_box box = {0, 0, 64, 32};
    orvel_canvas* const canvas = kit_canvas(64, 32);
    orvel_canvas_clear(canvas, kNothing);
    CHECK(kit_text_width(NULL, "Word") > 0 && kit_text_width(NULL, NULL) == 0);
    CHECK(kit_text_draw(canvas, NULL, "Word", 0, 16, kInk) > 0 && drawn(canvas));
    CHECK(kit_text_box(canvas, NULL, "Word", box, KIT_CENTRE, kInk) == 0 && drawn(canvas));
    CHECK(kit_text_wrap(canvas, NULL, "Two words", box, KIT_LEFT, kInk) > 0 && drawn(canvas));
    CHECK(kit_text_draw(NULL, NULL, NULL, 0, 0, kInk) == 0);
    CHECK(kit_text_box(NULL, NULL, NULL, box, KIT_LEFT, kInk) == -1);
    CHECK(kit_text_wrap(NULL, NULL, NULL, box, KIT_LEFT, kInk) >= 0);
    CHECK(kit_text_x(NULL, "Word", 4) == kit_text_width(NULL, "Word"));
    CHECK(kit_text_at(NULL, "Word", 1000) == 4);
    CHECK(kit_text_missing(NULL, "Word") == 0 && kit_text_missing(NULL, NULL) == 0);
    orvel_canvas_destroy(canvas);
}

static void widgets_and_charts(void) {
    const double values[] = {1.0, 3.0, 2.0};
    kit_widget widget = {0};
    kit_series series = {0};
    kit_chart chart = {0};
    orvel_theme theme;
    int w = 0, h = 0;
    kit_box box = {0, 0, 0, 0}, caret = box;
    orvel_canvas* const canvas = kit_canvas(64, 32);
    orvel_canvas_clear(canvas, kNothing);
    orvel_theme_default(&theme);
    theme.accent = theme.button_text = kInk;
    widget.kind = ORVEL_WIDGET_BUTTON;
    widget.text = "Word";
    CHECK(kit_size(&widget, &w, &h) == 0 && w > 0 && h > 0 && kit_size(NULL, NULL, NULL) == -1);
    CHECK(kit_draw(canvas, &theme, &widget) == 0 && drawn(canvas));
    CHECK(kit_draw(NULL, NULL, NULL) == -1);
    widget.kind = ORVEL_WIDGET_SEARCH;
    widget.state = KIT_FOCUS;
    CHECK(kit_field(&widget, &box, &caret) == 0 && box.w > 0 && caret.w == 1);
    CHECK(kit_field(NULL, NULL, NULL) == -1);
    series.values = values;
    series.count = 3;
    chart.box.w = 64;
    chart.box.h = 32;
    chart.series = &series;
    chart.count = 1;
    CHECK(kit_chart_draw(canvas, &theme, &chart) == 0 && drawn(canvas));
    CHECK(kit_chart_draw(NULL, NULL, NULL) == -1);
    orvel_canvas_destroy(canvas);
}

int main(int argument_count, char** arguments) {
    if (argument_count != 2) return 2;
    guarded_forms(arguments[1]);
    pixels();
    faces();
    words();
    widgets_and_charts();
    return s_failures != 0;
}
