/* All 28 kinds of widget in their states, in both themes: a sheet of each, and a page that shows
   every widget beside the call that made it. */
#define _POSIX_C_SOURCE 200809L
#include <sys/stat.h>

#include "orvel_kit.h"
#include "output.h"

enum { kWidth = 716, kHeight = 560, kMargin = 4, kMost = 120 };

/* Where a widget stands on the sheets, and its record. */
typedef struct {
    kit_box box;
    const char* record;
} shown;

static shown s_shown[kMost];
static int s_count;
static int s_row_height;

static orvel_canvas* canvas;
static orvel_theme* theme;
static int x, y;

static void start_row(void) {
    y += s_row_height + (s_row_height > 0 ? 3 * kMargin : 0);
    x = 2 * kMargin;
    s_row_height = 0;
}

/* Draws a widget in the next place, in the next row where this one is full. */
static void show(kit_widget one, const char* record) {
    kit_size(&one, &one.box.w, &one.box.h);
    if (x + one.box.w + 2 * kMargin > kWidth) start_row();
    one.box.x = x;
    one.box.y = y;
    if (s_count == kMost || x + one.box.w > kWidth || y + one.box.h > kHeight ||
        kit_draw(canvas, theme, &one) != 0) {
        fprintf(stderr, "the gallery cannot show {%s}\n", record);
        exit(1);
    }
    s_shown[s_count++] = (shown){one.box, record};
    x += one.box.w + 3 * kMargin;
    if (one.box.h > s_row_height) s_row_height = one.box.h;
}

static void show_all(void) {
    start_row();
#define KIND(name, about)
#define STATE(name, ...) show((kit_widget){__VA_ARGS__}, #__VA_ARGS__)
#define ROW() start_row()
#include "gallery_widgets.h"
}

static void draw_sheet(const char* folder, const char* name) {
    s_count = s_row_height = 0;
    y = 2 * kMargin;
    orvel_canvas_clear(canvas, theme->background);
    show_all();
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
    save(image, orvel_canvas_save_bmp_rgba, path, "picture.bmp");
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
            sheet, 2 * (one->box.w + 2 * kMargin), 2 * (one->box.h + 2 * kMargin),
            -2 * (one->box.x - kMargin), -2 * (one->box.y - kMargin));
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
        fputs("<td><code>kit_draw(canvas, &amp;theme, &amp;(kit_widget){", page);
        put_escaped(page, one->record);
        fputs("});</code>\n", page);
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
