/* The 95 glyphs as the library really draws them, enlarged: a code's first hexadecimal digit stands
   at the left of its row, the second above its column. */
#include "orvel_kit.h"
#include "output.h"

enum { kBlock = 4, kPitchX = 6 * kBlock + 4, kPitchY = 8 * kBlock + 4, kLeft = 36, kTop = 36 };

static const orvel_color paper = {18, 21, 28, 255}, cell = {30, 35, 46, 255};
static const orvel_color ink = {255, 196, 84, 255}, heading = {96, 165, 250, 255};

/* Draws the glyph on a canvas of its own and looks at every pixel of it. */
static void draw_enlarged(orvel_canvas* sheet, char code, int x, int y) {
    const char text[2] = {code, '\0'};
    orvel_canvas* glyph = new_canvas(5, 7);
    orvel_text_draw(glyph, text, 0, 0, ink);
    for (int row = 0; row < 7; ++row) {
        for (int column = 0; column < 5; ++column) {
            const int set = orvel_canvas_pixel_get(glyph, column, row).r == ink.r;
            orvel_canvas_fill_rect(sheet, x + column * kBlock, y + row * kBlock, kBlock - 1,
                                   kBlock - 1, set ? ink : cell);
        }
    }
    orvel_canvas_destroy(glyph);
}

int main(int argc, char** argv) {
    const char* folder = output_folder(argc, argv);
    orvel_canvas* sheet = new_canvas(kLeft + 16 * kPitchX + 8, kTop + 6 * kPitchY + 8);
    orvel_canvas_clear(sheet, paper);
    for (int digit = 0; digit < 16; ++digit) {
        const char text[2] = {"0123456789ABCDEF"[digit], '\0'};
        const kit_box above = {kLeft + digit * kPitchX, 8, 5 * kBlock, 20};
        const kit_box beside = {8, kTop + (digit - 2) * kPitchY, 20, 7 * kBlock};
        kit_text_box(sheet, kit_bold_14(), text, above, KIT_CENTRE, heading);
        if (digit >= 2 && digit <= 7) {
            kit_text_box(sheet, kit_bold_14(), text, beside, KIT_CENTRE, heading);
        }
    }
    for (int code = 32; code <= 126; ++code) {
        draw_enlarged(sheet, (char)code, kLeft + code % 16 * kPitchX,
                      kTop + (code / 16 - 2) * kPitchY);
    }
    save(sheet, orvel_canvas_save_bmp, folder, "glyphs.bmp");
    orvel_canvas_destroy(sheet);
    return 0;
}
