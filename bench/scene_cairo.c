/* usage: scene_cairo LIST PICTURE [COUNT]: draws bench/scene's list by Cairo. With a count, so many
 * pictures, each with its number in it and in place of PICTURE's %d. */
#include <cairo.h>
#include <math.h>
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

static void disc(cairo_t* cairo, char** field) {
    set_color(cairo, field[4]);
    cairo_arc(cairo, atof(field[1]), atof(field[2]), atof(field[3]), 0, 2 * acos(-1));
    cairo_fill(cairo);
}

static void triangle(cairo_t* cairo, char** field) {
    set_color(cairo, field[7]);
    cairo_move_to(cairo, atof(field[1]), atof(field[2]));
    cairo_line_to(cairo, atof(field[3]), atof(field[4]));
    cairo_line_to(cairo, atof(field[5]), atof(field[6]));
    cairo_fill(cairo);
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

static void shape(cairo_t* cairo, char** field) {
    if (strcmp(field[0], "fill") == 0) fill(cairo, field);
    if (strcmp(field[0], "line") == 0) line(cairo, field);
    if (strcmp(field[0], "disc") == 0) disc(cairo, field);
    if (strcmp(field[0], "triangle") == 0) triangle(cairo, field);
    if (strcmp(field[0], "image") == 0) image(cairo, field);
    if (strcmp(field[0], "text") == 0) text(cairo, field);
}

/* Takes a line apart where its tabs are. */
static void split(char* row, char** field) {
    row[strcspn(row, "\n")] = '\0';
    for (int i = 0; i < kMostFields; ++i) {
        field[i] = row;
        if (row) row = strchr(row, '\t');
        if (row) *row++ = '\0';
    }
}

/* Draws a list, of which the first line is the picture's size. */
static int draw(const char* path, const char* picture, char* number) {
    char row[1000];
    char* field[kMostFields];
    char* numbered[] = {"text", "12", "0", "400", "474", "middle", "#808080", number};
    cairo_surface_t* surface;
    cairo_t* cairo;
    int status;
    FILE* list = fopen(path, "r");
    if (!list || !fgets(row, sizeof row, list)) return 2;
    split(row, field);
    surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, atoi(field[1]), atoi(field[2]));
    cairo = cairo_create(surface);
    while (fgets(row, sizeof row, list)) {
        split(row, field);
        shape(cairo, field);
    }
    fclose(list);
    if (number) text(cairo, numbered);
    status = cairo_surface_write_to_png(surface, picture) == CAIRO_STATUS_SUCCESS ? 0 : 1;
    cairo_destroy(cairo);
    cairo_surface_destroy(surface);
    return status;
}

int main(int argc, char** argv) {
    int status = 0;
    if (argc == 3) return draw(argv[1], argv[2], NULL);
    if (argc != 4) return 2;
    for (int i = 0; i < atoi(argv[3]) && status == 0; ++i) {
        char number[20], picture[300];
        const char* place = strstr(argv[2], "%d");
        if (!place) return 2;
        snprintf(number, sizeof number, "%d", i);
        snprintf(picture, sizeof picture, "%.*s%d%s", (int)(place - argv[2]), argv[2], i,
                 place + 2);
        status = draw(argv[1], picture, number);
    }
    return status;
}
