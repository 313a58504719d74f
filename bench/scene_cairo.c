/* usage: scene_cairo LIST PICTURE: draws bench/scene's list by Cairo. */
#include <cairo.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { kMostFields = 9 };

static void set_color(cairo_t* cairo, const char* hex) {
    const unsigned long color = strtoul(hex + 1, NULL, 16);
    cairo_set_source_rgb(cairo, (double)(color >> 16) / 255, (double)(color >> 8 & 255) / 255,
                         (double)(color & 255) / 255);
}

static void fill(cairo_t* cairo, char** field) {
    set_color(cairo, field[5]);
    cairo_rectangle(cairo, atof(field[1]), atof(field[2]), atof(field[3]), atof(field[4]));
    cairo_fill(cairo);
}

static void line(cairo_t* cairo, char** field) {
    set_color(cairo, field[6]);
    cairo_set_line_width(cairo, atof(field[5]));
    cairo_move_to(cairo, atof(field[1]), atof(field[2]));
    cairo_line_to(cairo, atof(field[3]), atof(field[4]));
    cairo_stroke(cairo);
}

static void image(cairo_t* cairo, char** field) {
    cairo_surface_t* picture = cairo_image_surface_create_from_png(field[4]);
    cairo_set_source_surface(cairo, picture, atof(field[1]), atof(field[2]));
    cairo_paint(cairo);
    cairo_surface_destroy(picture);
}

static void text(cairo_t* cairo, char** field) {
    cairo_text_extents_t extents;
    double x = atof(field[3]);
    cairo_select_font_face(cairo, "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL,
                           *field[2] == '1' ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cairo, atof(field[1]));
    cairo_text_extents(cairo, field[7], &extents);
    if (*field[5] == 'm') x -= extents.x_advance / 2;
    if (*field[5] == 'e') x -= extents.x_advance;
    set_color(cairo, field[6]);
    cairo_move_to(cairo, x, atof(field[4]));
    cairo_show_text(cairo, field[7]);
}

int main(int argc, char** argv) {
    char row[1000];
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 800, 480);
    cairo_t* cairo = cairo_create(surface);
    FILE* list = argc == 3 ? fopen(argv[1], "r") : NULL;
    int status;
    if (!list) return 2;
    while (fgets(row, sizeof row, list)) {
        char* field[kMostFields] = {NULL};
        char* at = row;
        row[strcspn(row, "\n")] = '\0';
        for (int i = 0; i < kMostFields && at; ++i) {
            field[i] = at;
            at = strchr(at, '\t');
            if (at) *at++ = '\0';
        }
        if (*field[0] == 'f') fill(cairo, field);
        if (*field[0] == 'l') line(cairo, field);
        if (*field[0] == 'i') image(cairo, field);
        if (*field[0] == 't') text(cairo, field);
    }
    fclose(list);
    status = cairo_surface_write_to_png(surface, argv[2]) == CAIRO_STATUS_SUCCESS ? 0 : 1;
    cairo_destroy(cairo);
    cairo_surface_destroy(surface);
    return status;
}
