/* All 68 icons at five sizes on both themes, with their names beside them in the library's own
 * text. */
#include "output.h"

enum { kColumns = 4, kRows = 17, kNameWidth = 74, kGap = 10, kPitchX = 314, kPitchY = 84 };
enum { kSizes = 5, kMargin = 10 };

static const int sizes[kSizes] = {16, 24, 32, 48, 64};

/* Whether the design measures from the top edge of the canvas: further down, home loses its body,
   and power's stem crosses everything below it. */
static int measures_from_the_top(const char* name) {
    return strcmp(name, "home") == 0 || strcmp(name, "power") == 0;
}

/* Draws the icon on a canvas of its own, and copies that so that the icon's box is at (x, y). */
static void draw_on_sheet(orvel_canvas* sheet, const orvel_theme* theme, const char* name, int x,
                          int y, int size) {
    const int side = size + 2 * kGap;
    const int top = measures_from_the_top(name) ? 1 : kGap;
    orvel_canvas* tile = new_canvas(side, side);
    orvel_canvas_clear(tile, theme->background);
    orvel_draw_icon_ex(tile, name, kGap, top, size, theme->text, theme->accent, theme->background);
    for (int row = 0; row < side; ++row) {
        for (int column = kGap / 2; column < side - kGap / 2; ++column) {
            orvel_canvas_pixel(sheet, x - kGap + column, y - top + row,
                               orvel_canvas_pixel_get(tile, column, row));
        }
    }
    orvel_canvas_destroy(tile);
}

static void draw_line(orvel_canvas* sheet, const orvel_theme* theme, const char* name, int x,
                      int y) {
    orvel_text_draw(sheet, name, x, y + 28, theme->text);
    x += kNameWidth;
    for (int i = 0; i < kSizes; ++i) {
        draw_on_sheet(sheet, theme, name, x, y + (64 - sizes[i]) / 2, sizes[i]);
        x += sizes[i] + kGap;
    }
}

static void draw_sheet(const orvel_theme* theme, const char* folder, const char* file) {
    orvel_canvas* sheet =
        new_canvas(kColumns * kPitchX + 2 * kMargin, kRows * kPitchY + 2 * kMargin);
    orvel_canvas_clear(sheet, theme->background);
    int count = 0;
    const char** names = orvel_icon_list(&count);
    for (int i = 0; i < count; ++i) {
        draw_line(sheet, theme, names[i], kMargin + i / kRows * kPitchX,
                  kMargin + i % kRows * kPitchY);
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
