/* Draws what the library and the kit can draw and prints a checksum of each: the same lines from
   every compiler, on every processor, in every browser. With the name of a file that holds these
   lines it compares them, too; checksums.txt was written by what it prints. */
#include "orvel_kit.h"
#include "support/checksum_lines.h"

enum { kWidth = 320, kHeight = 240 };

static void tell(const char* what, int number, const orvel_canvas* canvas) {
    char name[100];
    sprintf(name, "%s %d", what, number);
    tell_pixels(name, canvas);
}

static void wipe(orvel_canvas* canvas) {
    const orvel_color ground = {24, 26, 38, 255};
    orvel_canvas_clear(canvas, ground);
}

static void icons(orvel_canvas* canvas) {
    const orvel_color ink = {200, 220, 120, 255};
    int count, i;
    const char** names = orvel_icon_list(&count);
    wipe(canvas);
    for (i = 0; i < count; ++i) kit_icon(canvas, names[i], i % 11 * 29, i / 11 * 34, 28, ink);
    tell("icons", count, canvas);
}

static void shapes(orvel_canvas* canvas) {
    const orvel_color ink = {90, 180, 240, 128};
    int i;
    wipe(canvas);
    for (i = 0; i < 40; ++i) {
        orvel_canvas_line(canvas, 7 * i, -20, 300 - 5 * i, 260, ink);
        orvel_canvas_circle(canvas, 160, 120, 4 * i, ink);
        orvel_canvas_fill_circle(canvas, 8 * i, 200, i / 3, ink);
        orvel_canvas_fill_triangle(canvas, 8 * i, 3 * i, 9 * i + 7, 4 * i, 7 * i, 3 * i + 9, ink);
    }
    orvel_text_draw(canvas, "The library's own letters", 5, 5, ink);
    tell("shapes", 40, canvas);
}

static void words(orvel_canvas* canvas) {
    static const char* const kFaces[] = {"sans 11", "sans 12", "sans 14",   "sans 18",  "sans 24",
                                         "sans 40", "bold 11", "bold 12",   "bold 14",  "bold 18",
                                         "bold 24", "mono 12", "digits 64", "digits 96"};
    const orvel_color ink = {250, 250, 240, 255};
    const kit_box box = {6, 6, 300, 228};
    int i;
    for (i = 0; i < 14; ++i) {
        wipe(canvas);
        kit_text_wrap(canvas, kit_face_named(kFaces[i]),
                      "Gr\xc3\xb6\xc3\x9f"
                      "e, \xce\xa9\xce\xbc\xce\xad\xce\xb3\xce\xb1, "
                      "\xd0\x9f\xd1\x80\xd0\xb8\xd0\xb2\xd0\xb5\xd1\x82: 21.5 \xc2\xb0"
                      "C \xff AVATAR",
                      box, KIT_CENTRE, ink);
        tell(kFaces[i], i, canvas);
    }
}

static void widgets(orvel_canvas* canvas) {
    const double bars[] = {0.2, 0.9, 0.5, 0.7};
    int kind, state;
    orvel_theme theme;
    orvel_theme_light(&theme);
    for (kind = 0; kind <= ORVEL_WIDGET_STATUSBAR; ++kind) {
        wipe(canvas);
        for (state = 0; state < 16; ++state) {
            kit_widget widget = {0};
            widget.kind = kind;
            widget.box.x = state % 4 * 80;
            widget.box.y = state / 4 * 60;
            widget.box.w = 76;
            widget.box.h = 44;
            widget.text = kind == ORVEL_WIDGET_ICON ? "home" : "Word|Two";
            widget.icon = "mail";
            widget.state = (unsigned)state;
            widget.value = 0.4;
            widget.amount = 1;
            widget.data = bars;
            widget.count = 4;
            kit_draw(canvas, &theme, &widget);
        }
        tell("widget", kind, canvas);
    }
}

static void charts(orvel_canvas* canvas) {
    const double first[] = {3.0, -1.5, 7.25, 4.0, 12.5}, second[] = {1.0, 2.0, -3.0, 8.0, 5.5};
    kit_series series[2] = {{0}, {0}};
    int kind;
    orvel_theme theme;
    orvel_theme_default(&theme);
    series[0].values = first;
    series[1].values = second;
    series[0].count = series[1].count = 5;
    series[0].name = "One";
    series[1].name = "Two";
    for (kind = 0; kind <= KIT_CHART_GAUGE; ++kind) {
        kit_chart chart = {0};
        wipe(canvas);
        chart.kind = kind;
        chart.box.w = kWidth;
        chart.box.h = kHeight;
        chart.series = series;
        chart.count = 2;
        chart.parts = KIT_CHART_AXES | KIT_CHART_LABELS | KIT_CHART_LEGEND;
        chart.decimals = 1;
        chart.unit = " kW";
        chart.labels = "Mon|Tue|Wed|Thu|Fri";
        kit_chart_draw(canvas, &theme, &chart);
        tell("chart", kind, canvas);
    }
}

int main(int argument_count, char** arguments) {
    orvel_canvas* const canvas = kit_canvas(kWidth, kHeight);
    if (!canvas) return 1;
    if (argument_count > 1 && !expect_lines(arguments[1])) return 1;
    shapes(canvas);
    icons(canvas);
    words(canvas);
    widgets(canvas);
    charts(canvas);
    orvel_canvas_destroy(canvas);
    return status_of_lines();
}
