/* All 28 kinds of widget in their states, in both themes: a sheet of each, and a page that shows
   every widget beside the call that made it. */
#define _POSIX_C_SOURCE 200809L
#include <sys/stat.h>

#include "output.h"

enum { kWidth = 480, kHeight = 441, kMargin = 4, kMost = 120 };

/* Where a widget stands on the sheets, and what made it. */
typedef struct {
    int x, y, w, h;
    const char *call, *state;
} shown;

static shown s_shown[kMost];
static int s_count;
static int s_row_height;

/* What the calls below are written with. */
static orvel_canvas* canvas;
static orvel_theme* theme;
static int x, y;

static void start_row(void) {
    y += s_row_height + (s_row_height > 0 ? 3 * kMargin : 0);
    x = 2 * kMargin;
    s_row_height = 0;
}

/* Makes sure that a widget of this size has its place. */
static void place(int w, int h) {
    if (h > s_row_height) s_row_height = h;
    if (s_count == kMost || x + w + kMargin > kWidth || y + h + kMargin > kHeight) {
        fputs("the gallery is too small for its widgets\n", stderr);
        exit(1);
    }
}

static void draw(orvel_widget* widget, int w, int h, const char* call, const char* state) {
    if (!widget) {
        fputs("no memory for a widget\n", stderr);
        exit(1);
    }
    orvel_widget_draw(widget);
    orvel_widget_destroy(widget);
    const shown next = {x, y, w, h, call, state};
    s_shown[s_count++] = next;
    x += w + 2 * kMargin;
}

/* Draws the widget that a call makes, in the state that a statement gives it, in w x h pixels. */
#define SHOW(w, h, call, state)            \
    do {                                   \
        place(w, h);                       \
        orvel_widget* widget = call;       \
        state;                             \
        draw(widget, w, h, #call, #state); \
    } while (0)

static void show_frames(void) {
    start_row();
    SHOW(100, 50, orvel_widget_window(canvas, theme, "Files", x, y, 100, 50), );
    SHOW(60, 50, orvel_widget_panel(canvas, theme, x, y, 60, 50), );
    SHOW(60, 50, orvel_widget_card(canvas, theme, x, y, 60, 50), );
    SHOW(120, 16, orvel_widget_titlebar(canvas, theme, "Notes", x, y, 120, 16), );
    start_row();
    SHOW(101, 13, orvel_widget_statusbar(canvas, theme, "Ready", x, y, 100, 13), );
    SHOW(61, 1, orvel_widget_separator(canvas, theme, x, y, 60), );
    SHOW(61, 13, orvel_widget_tooltip(canvas, theme, "Save all", x, y), );
    SHOW(41, 7, orvel_widget_label(canvas, theme, "Welcome", x, y), );
}

static void show_fields(void) {
    start_row();
    SHOW(60, 18, orvel_widget_button(canvas, theme, "Save", x, y, 60, 18), );
    SHOW(60, 18, orvel_widget_button(canvas, theme, "Save", x, y, 60, 18),
         orvel_widget_set_hover(widget, 1));
    SHOW(80, 15, orvel_widget_textbox(canvas, theme, "Name", x, y, 80, 15), );
    SHOW(80, 15, orvel_widget_textbox(canvas, theme, "Name", x, y, 80, 15),
         orvel_widget_set_hover(widget, 1));
    start_row();
    SHOW(90, 16, orvel_widget_search(canvas, theme, "Find", x, y, 90, 16), );
    SHOW(90, 16, orvel_widget_search(canvas, theme, "Find", x, y, 90, 16),
         orvel_widget_set_active(widget, 1));
    SHOW(80, 16, orvel_widget_dropdown(canvas, theme, "Weekly", x, y, 80, 16, 0), );
    SHOW(80, 16, orvel_widget_dropdown(canvas, theme, "Weekly", x, y, 80, 16, 1), );
}

static void show_pictures(void) {
    start_row();
    SHOW(16, 16, orvel_widget_icon(canvas, theme, "home", x, y, 16), );
    SHOW(24, 24, orvel_widget_icon(canvas, theme, "heart", x, y, 24), );
    SHOW(32, 32, orvel_widget_icon(canvas, theme, "settings", x, y, 32), );
    SHOW(32, 32, orvel_widget_icon(canvas, theme, "no such icon", x, y, 32), );
    SHOW(24, 24, orvel_widget_image(canvas, theme, "target", x, y), );
    SHOW(21, 21, orvel_widget_avatar(canvas, theme, "A", x, y, 20), );
    SHOW(33, 33, orvel_widget_avatar(canvas, theme, "AB", x, y, 32), );
    SHOW(21, 21, orvel_widget_avatar(canvas, theme, NULL, x, y, 20), );
    SHOW(14, 11, orvel_widget_badge(canvas, theme, x, y, 7), );
    SHOW(20, 11, orvel_widget_badge(canvas, theme, x, y, 42), );
    SHOW(26, 11, orvel_widget_badge(canvas, theme, x, y, -12), );
}

static void show_switches(void) {
    start_row();
    SHOW(30, 14, orvel_widget_toggle(canvas, theme, x, y, 30, 14, 0), );
    SHOW(30, 14, orvel_widget_toggle(canvas, theme, x, y, 30, 14, 1), );
    SHOW(42, 9, orvel_widget_checkbox(canvas, theme, "Bold", x, y, 0), );
    SHOW(42, 9, orvel_widget_checkbox(canvas, theme, "Bold", x, y, 1), );
    SHOW(42, 9, orvel_widget_radio(canvas, theme, "Left", x, y, 0), );
    SHOW(42, 9, orvel_widget_radio(canvas, theme, "Left", x, y, 1), );
}

static void show_bars(void) {
    start_row();
    SHOW(80, 9, orvel_widget_slider(canvas, theme, x, y, 80, 0), );
    SHOW(80, 9, orvel_widget_slider(canvas, theme, x, y, 80, 0.25), );
    SHOW(80, 9, orvel_widget_slider(canvas, theme, x, y, 80, 0.5), );
    SHOW(80, 9, orvel_widget_slider(canvas, theme, x, y, 80, 1), );
    SHOW(80, 9, orvel_widget_slider(canvas, theme, x, y, 80, 0.5),
         orvel_widget_set_hover(widget, 1));
    start_row();
    SHOW(80, 10, orvel_widget_progress(canvas, theme, x, y, 80, 10, 0), );
    SHOW(80, 10, orvel_widget_progress(canvas, theme, x, y, 80, 10, 0.25), );
    SHOW(80, 10, orvel_widget_progress(canvas, theme, x, y, 80, 10, 0.5), );
    SHOW(80, 10, orvel_widget_progress(canvas, theme, x, y, 80, 10, 1), );
}

static void show_turns(void) {
    start_row();
    SHOW(24, 24, orvel_widget_spinner(canvas, theme, x, y, 24, 0), );
    SHOW(24, 24, orvel_widget_spinner(canvas, theme, x, y, 24, 0.25), );
    SHOW(24, 24, orvel_widget_spinner(canvas, theme, x, y, 24, 0.5), );
    SHOW(24, 24, orvel_widget_spinner(canvas, theme, x, y, 24, 1), );
    SHOW(50, 10, orvel_widget_rating(canvas, theme, x, y, 0), );
    SHOW(50, 10, orvel_widget_rating(canvas, theme, x, y, 0.25), );
    SHOW(50, 10, orvel_widget_rating(canvas, theme, x, y, 0.5), );
    SHOW(50, 10, orvel_widget_rating(canvas, theme, x, y, 1), );
}

static void show_lists(void) {
    start_row();
    SHOW(140, 18, orvel_widget_tabs(canvas, theme, "Day|Week|Month", x, y, 140, 18, 0), );
    SHOW(140, 18, orvel_widget_tabs(canvas, theme, "Day|Week|Month", x, y, 140, 18, 2), );
    SHOW(140, 18, orvel_widget_tabs(canvas, theme, "Day|Week|Month", x, y, 140, 18, -1), );
    start_row();
    SHOW(140, 16, orvel_widget_menu(canvas, theme, "File|Edit|View", x, y, 140, 16, 1), );
    SHOW(140, 16, orvel_widget_menu(canvas, theme, "File|Edit|View", x, y, 140, 16, 9), );
    SHOW(80, 16, orvel_widget_stepper(canvas, theme, x, y, 80, 16, 0), );
    SHOW(80, 16, orvel_widget_stepper(canvas, theme, x, y, 80, 16, -42), );
    start_row();
    SHOW(110, 20, orvel_widget_list_item(canvas, theme, "Inbox", "mail", x, y, 110, 20, 0), );
    SHOW(110, 20, orvel_widget_list_item(canvas, theme, "Inbox", "mail", x, y, 110, 20, 1), );
    SHOW(110, 20, orvel_widget_list_item(canvas, theme, "Drafts", NULL, x, y, 110, 20, 0), );
    SHOW(110, 20, orvel_widget_list_item(canvas, theme, "Drafts", NULL, x, y, 110, 20, 1), );
}

static void show_charts(void) {
    static const double rates[] = {0.2, 0.45, 0.3, 0.7, 0.55, 0.9, 1, 0.65};
    start_row();
    SHOW(90, 40, orvel_widget_bars(canvas, theme, x, y, 90, 40),
         orvel_widget_set_data(widget, rates, 8));
    SHOW(90, 40, orvel_widget_bars(canvas, theme, x, y, 90, 40), );
}

static void draw_sheet(const char* folder, const char* name) {
    s_count = s_row_height = 0;
    y = 2 * kMargin;
    orvel_canvas_clear(canvas, theme->background);
    show_frames();
    show_fields();
    show_pictures();
    show_switches();
    show_bars();
    show_turns();
    show_lists();
    show_charts();
    save(canvas, orvel_canvas_save_bmp, folder, name);
}

/* The bitmap that the image widget shows, in the folder Icons of a resource folder. */
static void make_image(const char* root) {
    char path[4096];
    snprintf(path, sizeof path, "%s/Icons", root);
    mkdir(path, 0755);
    orvel_canvas* image = new_canvas(24, 24);
    const orvel_color clear = {0, 0, 0, 0}, red = {214, 64, 69, 255}, white = {250, 250, 250, 255};
    orvel_canvas_clear(image, clear);
    for (int r = 11; r > 0; r -= 4) {
        orvel_canvas_fill_circle(image, 12, 12, r, r % 8 == 3 ? red : white);
    }
    save(image, orvel_canvas_save_bmp_rgba, path, "target.bmp");
    orvel_canvas_destroy(image);
    orvel_set_resource_path(root);
}

static void put_escaped(FILE* page, const char* text) {
    for (; *text; ++text) {
        if (*text == '&')
            fputs("&amp;", page);
        else if (*text == '<')
            fputs("&lt;", page);
        else
            fputc(*text, page);
    }
}

/* The part of a sheet that one widget stands on, at twice its size. */
static void put_crop(FILE* page, const char* sheet, const shown* one) {
    fprintf(page,
            "<td class=%s><i style=\"width:%dpx;height:%dpx;background-position:%dpx %dpx\"></i>",
            sheet, 2 * (one->w + 2 * kMargin), 2 * (one->h + 2 * kMargin), -2 * (one->x - kMargin),
            -2 * (one->y - kMargin));
}

static void put_page(FILE* page) {
    fprintf(page,
            "<!DOCTYPE html><html lang=en><meta charset=utf-8><title>OrvelSDK widgets</title>\n"
            "<style>body{font:15px sans-serif;margin:2em}td{padding:6px 12px}\n"
            "i{display:block;image-rendering:pixelated;background-size:%dpx %dpx}\n"
            ".dark{background:#1e1e2e}.dark i{background-image:url(gallery-dark.bmp)}\n"
            ".light{background:#eff1f5}.light i{background-image:url(gallery-light.bmp)}\n"
            "</style><h1>The 28 widgets, each beside the call that made it</h1><table>\n",
            2 * kWidth, 2 * kHeight);
    for (const shown* one = s_shown; one < s_shown + s_count; ++one) {
        fputs("<tr>", page);
        put_crop(page, "dark", one);
        put_crop(page, "light", one);
        fputs("<td><code>", page);
        put_escaped(page, one->call);
        if (*one->state) fputs("<br>", page);
        put_escaped(page, one->state);
        fputs("</code>\n", page);
    }
    fputs("</table></html>\n", page);
}

static void write_page(const char* folder, const char* name) {
    char path[4096];
    snprintf(path, sizeof path, "%s/%s", folder, name);
    FILE* page = fopen(path, "wb");
    if (page) put_page(page);
    if (!page || ferror(page) || fclose(page) != 0) {
        fprintf(stderr, "cannot write %s\n", path);
        exit(1);
    }
    puts(path);
}

int main(int argc, char** argv) {
    const char* folder = output_folder(argc, argv);
    orvel_theme dark, light;
    orvel_theme_default(&dark);
    orvel_theme_light(&light);
    canvas = new_canvas(kWidth, kHeight);
    make_image(folder);
    theme = &dark;
    draw_sheet(folder, "gallery-dark.bmp");
    theme = &light;
    draw_sheet(folder, "gallery-light.bmp");
    orvel_canvas_destroy(canvas);
    write_page(folder, "gallery.html");
    return 0;
}
