#include "letters.h"

#include <ft2build.h>
#include <limits.h>
#include <stdio.h>
#include <stdlib.h>
#include FT_FREETYPE_H

#define ELLIPSIS "\xE2\x80\xA6"
enum { REPLACEMENT = 0xFFFD };

struct letters {
    FT_Library library;
    FT_Face face;
    int cap_height;
};

/* Steps over one character of UTF-8, or over one byte that belongs to none. */
static FT_ULong next_character(const char** text) {
    static const FT_ULong smallest[] = {0, 0x80, 0x800, 0x10000};
    const unsigned char* s = (const unsigned char*)(*text)++;
    const int more = s[0] < 0xC2 ? 0 : s[0] < 0xE0 ? 1 : s[0] < 0xF0 ? 2 : s[0] < 0xF5 ? 3 : 0;
    if (more == 0) return s[0] < 0x80 ? s[0] : REPLACEMENT;
    FT_ULong c = s[0] & (0x3Fu >> more);
    for (int i = 1; i <= more; ++i) {
        if ((s[i] & 0xC0) != 0x80) return REPLACEMENT;
        c = c << 6 | (s[i] & 0x3Fu);
    }
    if (c < smallest[more] || c > 0x10FFFF || (c >= 0xD800 && c < 0xE000)) return REPLACEMENT;
    *text += more;
    return c;
}

/* Copies the glyph that is loaded; one that is not made of whole pixels stays blank. */
static void copy(FT_GlyphSlot glyph, orvel_canvas* canvas, int x, int baseline, orvel_color color) {
    const FT_Bitmap* bitmap = &glyph->bitmap;
    if (bitmap->pixel_mode != FT_PIXEL_MODE_MONO) return;
    for (int row = 0; row < (int)bitmap->rows; ++row) {
        for (int column = 0; column < (int)bitmap->width; ++column) {
            if (bitmap->buffer[row * bitmap->pitch + column / 8] & 0x80 >> column % 8) {
                orvel_canvas_pixel(canvas, x + glyph->bitmap_left + column,
                                   baseline - glyph->bitmap_top + row, color);
            }
        }
    }
}

/* Walks along text from x, no further than limit, and writes it unless canvas is null. */
static int walk(letters* font, orvel_canvas* canvas, const char* text, int x, int baseline,
                int limit, orvel_color color) {
    const FT_Int32 load = canvas ? FT_LOAD_RENDER | FT_LOAD_TARGET_MONO : FT_LOAD_TARGET_MONO;
    FT_UInt previous = 0;
    while (*text != '\0') {
        const FT_ULong character = next_character(&text);
        if (character < ' ') continue;
        const FT_UInt index = FT_Get_Char_Index(font->face, character);
        FT_Vector kerning = {0, 0};
        FT_Get_Kerning(font->face, previous, index, FT_KERNING_DEFAULT, &kerning);
        previous = index;
        if (FT_Load_Glyph(font->face, index, load) != 0) continue;
        const int start = x + (int)(kerning.x >> 6);
        const int end = start + (int)(font->face->glyph->advance.x >> 6);
        if (end > limit) break;
        if (canvas) copy(font->face->glyph, canvas, start, baseline, color);
        x = end;
    }
    return x;
}

letters* letters_open(const char* font_file, int size) {
    letters* font = calloc(1, sizeof *font);
    const char* problem = "out of memory";
    if (font && FT_Init_FreeType(&font->library) == 0) {
        if (FT_New_Face(font->library, font_file, 0, &font->face) != 0) {
            problem = "cannot be opened as a font";
        } else if (size < 1 || FT_Set_Pixel_Sizes(font->face, 0, (FT_UInt)size) != 0) {
            problem = "does not come in that size";
        } else {
            const int status = FT_Load_Char(font->face, 'H', FT_LOAD_RENDER | FT_LOAD_TARGET_MONO);
            font->cap_height = status == 0 ? font->face->glyph->bitmap_top : size * 7 / 10;
            return font;
        }
    }
    fprintf(stderr, "letters: %s, %d pixels: %s\n", font_file, size, problem);
    letters_close(font);
    return NULL;
}

void letters_close(letters* font) {
    if (!font) return;
    FT_Done_FreeType(font->library); /* the face with it */
    free(font);
}

int letters_width(letters* font, const char* text) {
    return walk(font, NULL, text, 0, 0, INT_MAX, (orvel_color){0, 0, 0, 0});
}

int letters_cap_height(const letters* font) { return font->cap_height; }

int letters_draw(letters* font, orvel_canvas* canvas, const char* text, int x, int baseline,
                 orvel_color color) {
    return walk(font, canvas, text, x, baseline, INT_MAX, color);
}

void letters_in_box(letters* font, orvel_canvas* canvas, const char* text, int x, int y, int w,
                    int h, letters_place place, orvel_color color) {
    const int baseline = y + (h + font->cap_height) / 2;
    const int spare = w - letters_width(font, text);
    if (spare >= 0) {
        x += place == LETTERS_CENTRE ? spare / 2 : place == LETTERS_RIGHT ? spare : 0;
        letters_draw(font, canvas, text, x, baseline, color);
    } else {
        const int limit = x + w - letters_width(font, ELLIPSIS);
        x = walk(font, canvas, text, x, baseline, limit, color);
        letters_draw(font, canvas, ELLIPSIS, x, baseline, color);
    }
}
