/* usage: scene_checksums SCENES [EXPECTED]
 * Draws the scenes that are delivered and prints a checksum of each picture, and of what the screen
 * says of itself: the same lines from every compiler, on every processor, in every browser. It
 * compares them with those in a file when there is one; scene_checksums.txt was written by what it
 * prints. */
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "orvel_screen.h"

enum { kMostText = 100000, kMostSide = 128 };

static FILE* s_expected = NULL;
static int s_failures = 0;

/* FNV-1a (Fowler, Noll, Vo). */
static uint64_t hash_of(const unsigned char* bytes, size_t size) {
    uint64_t hash = 14695981039346656037u;
    size_t i;
    for (i = 0; i < size; ++i) hash = (hash ^ bytes[i]) * 1099511628211u;
    return hash;
}

static void tell(const char* scene, const char* what, uint64_t hash) {
    char line[200], expected[200] = "";
    sprintf(line, "%s %s %08lx%08lx\n", scene, what, (unsigned long)(hash >> 32),
            (unsigned long)(hash & 0xffffffffu));
    fputs(line, stdout);
    if (!s_expected) return;
    if (fgets(expected, sizeof expected, s_expected) && strcmp(line, expected) == 0) return;
    printf("expected: %s\n", expected);
    ++s_failures;
}

static void tell_text(const char* scene, const char* what, const char* text) {
    s_failures += text == NULL;
    if (text) tell(scene, what, hash_of((const unsigned char*)text, strlen(text)));
}

static void tell_pixels(const char* scene, const orvel_canvas* canvas) {
    const int height = orvel_canvas_height(canvas);
    kit_format format = {0};
    const size_t size = kit_pixels_stride(&format, orvel_canvas_width(canvas)) * (size_t)height;
    unsigned char* const bytes = malloc(size);
    format.keep_alpha = 1;
    if (bytes && kit_pixels(canvas, NULL, &format, bytes, size, 0) == 0) {
        tell(scene, "picture", hash_of(bytes, size));
    } else {
        ++s_failures;
    }
    free(bytes);
}

/* In place of a picture file: a square whose side is the number in its name, with holes. They last,
 * as screens borrow them. */
static const orvel_canvas* picture(void* self, const char* name) {
    static orvel_canvas* canvases[kMostSide];
    const char* const dash = strrchr(name, '-');
    const int side = dash ? atoi(dash + 1) : 10;
    const orvel_color ink = {10, 20, 30, 255}, hole = {0, 0, 0, 0};
    int i;
    (void)self;
    if (side < 1 || side >= kMostSide) return NULL;
    if (canvases[side]) return canvases[side];
    canvases[side] = kit_canvas(side, side);
    orvel_canvas_clear(canvases[side], ink);
    for (i = 0; i < side; i += 3) orvel_canvas_line(canvases[side], 0, i, side, side - i, hole);
    return canvases[side];
}

static const char* text_of(const char* path) {
    static char text[kMostText];
    FILE* const file = fopen(path, "rb");
    size_t length = 0;
    if (file) {
        length = fread(text, 1, sizeof text - 1, file);
        fclose(file);
    }
    text[length] = '\0';
    return text;
}

static void draw(const char* folder, const char* scene, int with_data) {
    char path[1000], data[1000], name[100], why[300] = "";
    kit_screen_host host = {0};
    kit_screen* screen;
    orvel_canvas* canvas;
    int w, h;
    host.picture = picture;
    sprintf(path, "%s/%s", folder, scene);
    sprintf(data, "%s/%.*s/data.json", folder, (int)strcspn(scene, "/"), scene);
    sprintf(name, "%s %s", scene, with_data ? "data" : "sample");
    screen = kit_screen_open(path, with_data ? text_of(data) : NULL, &host, why, sizeof why);
    if (!screen) {
        printf("%s\n", why);
        ++s_failures;
        return;
    }
    kit_screen_size(screen, &w, &h);
    canvas = kit_canvas(w, h);
    s_failures += kit_screen_draw(screen, canvas, NULL) != 0;
    tell_pixels(name, canvas);
    tell_text(name, "description", kit_screen_describe(screen));
    tell_text(name, "report", kit_screen_report(screen));
    orvel_canvas_destroy(canvas);
    kit_screen_close(screen);
}

int main(int argument_count, char** arguments) {
    static const char* const scenes[] = {"departures/board.json", "energy/dashboard.json",
                                         "home/dashboard.json",   "instrument/boiler.json",
                                         "settings/page.json",    "weather/mono.json",
                                         "weather/seven.json"};
    size_t i;
    if (argument_count < 2) return 2;
    if (argument_count > 2) {
        s_expected = fopen(arguments[2], "r");
        if (!s_expected) return 1;
    }
    for (i = 0; i < sizeof scenes / sizeof *scenes; ++i) {
        draw(arguments[1], scenes[i], 0);
        draw(arguments[1], scenes[i], 1);
    }
    if (s_expected) {
        s_failures += fgetc(s_expected) != EOF;
        fclose(s_expected);
    }
    return s_failures != 0;
}
