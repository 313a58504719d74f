#include "letters.h"

#include <ft2build.h>
#include <limits.h>
#include <stdio.h>
#include <stdlib.h>

#include FT_FREETYPE_H
#include FT_GLYPH_H

#define ELLIPSIS "\xE2\x80\xA6"
enum { CACHED = 512, REPLACEMENT = 0xFFFD };

struct entry { /* zeroed: the place is free, as no text contains character 0 */
    FT_ULong character;
    FT_UInt index;
    FT_BitmapGlyph image;
    int advance;
};

struct letters {
    FT_Library library;
    FT_Face face;
    int cap_height;
    struct entry cache[CACHED]; /* hinting a letter costs far more than copying it */
};

/* Steps over one character of UTF-8, or over one byte that belongs to none. */
static FT_ULong next_character(const char** text) {
    static const FT_ULong smallest[] = {0, 0x80, 0x800, 0x10000};
    const unsigned char* s = (const unsigned char*)(*text)++;
    if (s[0] < 0x80) return s[0];
    const int more = s[0] < 0xC2 ? 0 : s[0] < 0xE0 ? 1 : s[0] < 0xF0 ? 2 : s[0] < 0xF5 ? 3 : 0;
    if (more == 0) return REPLACEMENT;
    FT_ULong c = s[0] & (0x3Fu >> more);
    for (int i = 1; i <= more; ++i) {
        if ((s[i] & 0xC0) != 0x80) return REPLACEMENT;
        c = c << 6 | (s[i] & 0x3Fu);
    }
    if (c < smallest[more] || c > 0x10FFFF || (c >= 0xD800 && c < 0xE000)) return REPLACEMENT;
    *text += more;
    return c;
}

/* A character's picture; null when the font has none that is made of whole pixels. */
static FT_BitmapGlyph image_of(FT_GlyphSlot slot) {
    FT_Glyph glyph;
    if (FT_Get_Glyph(slot, &glyph) != 0) return NULL;
    if (FT_Glyph_To_Bitmap(&glyph, FT_RENDER_MODE_MONO, NULL, 1) == 0) {
        const FT_BitmapGlyph image = (FT_BitmapGlyph)glyph;
        if (image->bitmap.pixel_mode == FT_PIXEL_MODE_MONO) return image;
    }
    FT_Done_Glyph(glyph);
    return NULL;
}

/* A character in the cache; one that needs the same place makes way. */
static const struct entry* find(letters* font, FT_ULong character) {
    struct entry* entry = &font->cache[character % CACHED];
    if (entry->character == character) return entry;
    if (entry->image) FT_Done_Glyph(&entry->image->root);
    *entry = (struct entry){character, FT_Get_Char_Index(font->face, character), NULL, 0};
    if (FT_Load_Glyph(font->face, entry->index, FT_LOAD_TARGET_MONO) == 0) {
        entry->advance = (int)(font->face->glyph->advance.x >> 6);
        entry->image = image_of(font->face->glyph);
    }
    return entry;
}

static void copy_image(FT_BitmapGlyph image, orvel_canvas* canvas, int x, int baseline,
                       orvel_color color) {
    for (int row = 0; row < (int)image->bitmap.rows; ++row) {
        const unsigned char* bits = image->bitmap.buffer + row * image->bitmap.pitch;
        for (int column = 0; column < (int)image->bitmap.width; ++column) {
            if ((bits[column / 8] >> (7 - column % 8) & 1) == 0) continue;
            orvel_canvas_pixel(canvas, x + image->left + column, baseline - image->top + row,
                               color);
        }
    }
}

/* Walks along text from x, no further than limit, and writes it unless canvas is null. */
static int walk(letters* font, orvel_canvas* canvas, const char* text, int x, int baseline,
                int limit, orvel_color color) {
    FT_UInt previous = 0;
    while (*text != '\0') {
        const FT_ULong character = next_character(&text);
        if (character < ' ') continue;
        const struct entry* entry = find(font, character);
        FT_Vector kerning = {0, 0};
        FT_Get_Kerning(font->face, previous, entry->index, FT_KERNING_DEFAULT, &kerning);
        const int start = x + (int)(kerning.x >> 6);
        if (start + entry->advance > limit) break;
        if (canvas && entry->image) copy_image(entry->image, canvas, start, baseline, color);
        x = start + entry->advance;
        previous = entry->index;
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
            const struct entry* capital = find(font, 'H');
            font->cap_height = capital->image ? capital->image->top : size * 7 / 10;
            return font;
        }
    }
    fprintf(stderr, "letters: %s, %d pixels: %s\n", font_file, size, problem);
    letters_close(font);
    return NULL;
}

void letters_close(letters* font) {
    if (!font) return;
    for (int i = 0; i < CACHED; ++i) {
        if (font->cache[i].image) FT_Done_Glyph(&font->cache[i].image->root);
    }
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
