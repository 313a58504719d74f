/* What a host does before main() and after it. */
#include <stdio.h>
#include <stdlib.h>

#include "orvel.h"

#ifdef __cplusplus
extern "C" {
#endif

void early_library(void);

/* Draws a picture with a theme and a bitmap from the disk, and saves it as @p name. */
static inline void early_work(const char* name) {
    const char* const folder = getenv("ORVEL_EARLY_FOLDER");
    char path[4096];
    orvel_theme theme;
    orvel_canvas* const canvas = orvel_canvas_create(60, 30);
    orvel_widget* widget;
    orvel_init();
    orvel_set_resource_path("."); /* a short root is kept otherwise than a long one */
    orvel_set_resource_path(folder);
    orvel_theme_default(&theme);
    orvel_theme_load(&theme, "early.json");
    widget = orvel_widget_stepper(canvas, &theme, 2, 2, 56, 16, -7);
    orvel_widget_draw(widget);
    orvel_widget_destroy(widget);
    orvel_icon_draw_bitmap(canvas, "early", 40, 20);
    snprintf(path, sizeof path, "%s/%s.bmp", folder, name);
    orvel_canvas_save_bmp(canvas, path);
    orvel_canvas_destroy(canvas);
    orvel_shutdown();
}

#ifdef __cplusplus
}
#endif
