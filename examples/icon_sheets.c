/* All 68 icons at three sizes on both themes, with their names below them. */
#include "orvel_kit.h"
#include "output.h"

enum { COLUMNS = 7, ROWS = 10, CELL_W = 120, CELL_H = 82, MARGIN = 12, GAP = 8, SIZES = 3 };

static const int sizes[SIZES] = {48, 24, 16};

/* Whether the design measures from the top edge of the canvas: further down, home loses its body,
   and power's stem crosses everything below it. */
static int measures_from_the_top(const char* name) {
    return strcmp(name, "home") == 0 || strcmp(name, "power") == 0;
}

/* Draws the icon on a canvas of its own, and copies that so that the icon's box is at (x, y): with
   what some designs paint beside their box, but of no other icon's room. */
static void draw_icon(orvel_canvas* sheet, const orvel_theme* theme, const char* name, int x, int y,
                      int size) {
    const int edge = GAP / 2 - 1, top = measures_from_the_top(name) ? 1 : edge;
    orvel_canvas* tile = new_canvas(size + 2 * edge, size + 2 * edge);
    orvel_canvas_clear(tile, theme->background);
    orvel_draw_icon_ex(tile, name, edge, top, size, theme->text, theme->accent, theme->background);
    kit_copy(sheet, x - edge, y - top, tile, NULL);
    orvel_canvas_destroy(tile);
}

static void draw_cell(orvel_canvas* sheet, const orvel_theme* theme, const char* name, int x,
                      int y) {
    const kit_box caption = {x, y + sizes[0] + 4, CELL_W, 18};
    int left = x + (CELL_W - 48 - 24 - 16 - 2 * GAP) / 2;
    for (int i = 0; i < SIZES; ++i) {
        draw_icon(sheet, theme, name, left, y + sizes[0] - sizes[i], sizes[i]);
        left += sizes[i] + GAP;
    }
    kit_text_box(sheet, kit_sans_11(), name, caption, KIT_CENTRE, theme->text);
}

static void draw_sheet(const orvel_theme* theme, const char* folder, const char* file) {
    orvel_canvas* sheet = new_canvas(COLUMNS * CELL_W + 2 * MARGIN, ROWS * CELL_H + MARGIN);
    orvel_canvas_clear(sheet, theme->background);
    int count = 0;
    const char** names = orvel_icon_list(&count);
    for (int i = 0; i < count; ++i) {
        draw_cell(sheet, theme, names[i], MARGIN + i % COLUMNS * CELL_W,
                  MARGIN + i / COLUMNS * CELL_H);
    }
    save(sheet, orvel_canvas_save_bmp, folder, file);
    orvel_canvas_destroy(sheet);
}

int main(int argc, char** argv) {
    const char* folder = output_folder(argc, argv);
    orvel_theme theme;
    orvel_theme_default(&theme);
    draw_sheet(&theme, folder, "icons-dark.bmp");
    orvel_theme_light(&theme);
    draw_sheet(&theme, folder, "icons-light.bmp");
    return 0;
}
