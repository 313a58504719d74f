// The same host in C++.
#include <orvel.h>

#include <cstdio>
#include <cstring>

int main() {
    orvel_canvas* canvas = orvel_canvas_create(4, 3);
    orvel_canvas_fill_rect(canvas, 3, 2, 5, 5, orvel_color{255, 0, 0, 255});
    const orvel_color corner = orvel_canvas_pixel_get(canvas, 3, 2);
    orvel_canvas_destroy(canvas);
    std::printf("library %s\n", orvel_version());
    return corner.r != 255 || corner.g != 0 || std::strcmp(orvel_version(), ORVEL_VERSION) != 0;
}
