#include "page.h"

#include <errno.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "find_font.h"

static letters* open_font(const char* file, const char* name, int size) {
    if (file) return letters_open(file, size);
    char* found = find_font(name);
    letters* font = found ? letters_open(found, size) : NULL;
    free(found);
    return font;
}

int page_open(page* p, int width, int height, const char* regular, const char* bold) {
    memset(p, 0, sizeof *p);
    orvel_theme_default(&p->theme);
    p->canvas = orvel_canvas_create(width, height);
    if (!p->canvas) {
        fprintf(stderr, "cannot make a canvas of %d x %d pixels\n", width, height);
    } else if ((p->small = open_font(regular, "DejaVu Sans", 11)) &&
               (p->body = open_font(regular, "DejaVu Sans", 12)) &&
               (p->strong = open_font(bold, "DejaVu Sans:bold", 12)) &&
               (p->heading = open_font(bold, "DejaVu Sans:bold", 18)) &&
               (p->display = open_font(regular, "DejaVu Sans", 40))) {
        return 0;
    }
    page_close(p);
    return -1;
}

void page_close(page* p) {
    letters_close(p->small);
    letters_close(p->body);
    letters_close(p->strong);
    letters_close(p->heading);
    letters_close(p->display);
    orvel_canvas_destroy(p->canvas);
}

int page_save(const page* p, const char* folder, const char* name) {
    char path[4096];
    errno = ENAMETOOLONG;
    if ((size_t)snprintf(path, sizeof path, "%s/%s", folder, name) >= sizeof path ||
        orvel_canvas_save_bmp(p->canvas, path) != 0) {
        fprintf(stderr, "cannot write %s/%s: %s\n", folder, name, strerror(errno));
        return -1;
    }
    printf("%s\n", path);
    return 0;
}

void show(orvel_widget* widget) {
    orvel_widget_draw(widget);
    orvel_widget_destroy(widget);
}

void say(const page* p, letters* font, const char* text, box at, letters_place place,
         orvel_color color) {
    letters_in_box(font, p->canvas, text, at.x, at.y, at.w, at.h, place, color);
}

void stamp(const page* p, const char* icon, int x, int y, int size, orvel_color color) {
    const orvel_color ground = orvel_canvas_pixel_get(p->canvas, x, y);
    orvel_canvas* own = orvel_canvas_create(size, size);
    orvel_canvas_clear(own, ground);
    orvel_draw_icon(own, icon, 0, 0, size, color);
    for (int row = 0; row < orvel_canvas_height(own); ++row) {
        for (int column = 0; column < orvel_canvas_width(own); ++column) {
            orvel_canvas_pixel(p->canvas, x + column, y + row,
                               orvel_canvas_pixel_get(own, column, row));
        }
    }
    orvel_canvas_destroy(own);
}

static unsigned char part(int from, int to, int percent) {
    return (unsigned char)(from + (to - from) * percent / 100);
}

orvel_color between(orvel_color from, orvel_color to, int percent) {
    const orvel_color color = {part(from.r, to.r, percent), part(from.g, to.g, percent),
                               part(from.b, to.b, percent), 255};
    return color;
}
