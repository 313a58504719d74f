/* usage: scene_checksums SCENES [EXPECTED]
 * Draws the scenes that are delivered and prints a checksum of each picture, and of what the screen
 * says of itself: the same lines from every compiler, on every processor, in every browser. It
 * compares them with those in a file when there is one; scene_checksums.txt was written by what it
 * prints. */
#include <stdlib.h>
#include <string.h>

#include "orvel_screen.h"
#include "support/checksum_lines.h"

enum { kMostText = 100000, kMostSide = 128 };

static void tell_text(const char* scene, const char* what, const char* text) {
    char name[150];
    sprintf(name, "%s %s", scene, what);
    s_failures += text == NULL;
    if (text) tell_bytes(name, text, strlen(text));
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
    char path[1000], data[1000], name[100], picture_name[120], why[300] = "";
    kit_screen_host host = {0};
    kit_screen* screen;
    orvel_canvas* canvas;
    int w, h;
    host.picture = picture;
    sprintf(path, "%s/%s", folder, scene);
    sprintf(data, "%s/%.*s/data.json", folder, (int)strcspn(scene, "/"), scene);
    sprintf(name, "%s %s", scene, with_data ? "data" : "sample");
    sprintf(picture_name, "%s picture", name);
    screen = kit_screen_open(path, with_data ? text_of(data) : NULL, &host, why, sizeof why);
    if (!screen) {
        printf("%s\n", why);
        ++s_failures;
        return;
    }
    kit_screen_size(screen, &w, &h);
    canvas = kit_canvas(w, h);
    s_failures += kit_screen_draw(screen, canvas, NULL) != 0;
    tell_pixels(picture_name, canvas);
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
    if (argument_count > 2 && !expect_lines(arguments[2])) return 1;
    for (i = 0; i < sizeof scenes / sizeof *scenes; ++i) {
        draw(arguments[1], scenes[i], 0);
        draw(arguments[1], scenes[i], 1);
    }
    return status_of_lines();
}
