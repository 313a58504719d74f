/**
 * @file orvel_kit.h
 * The kit: what hosts put around the library. Readable words, widgets with captions, charts, and
 * pixels for files and panels. It is a library of its own, libOrvelKit, and needs orvel.h alone.
 *
 * House rules, for every function unless it says otherwise; those of orvel.h hold too:
 *  - Nothing throws. When memory runs out, the call returns null or -1.
 *  - Null. A null object or record is tolerated: the call returns null, 0 or -1 and draws nothing.
 *    A null face is kit_sans_12(). A null text is an empty one.
 *  - Status. 0 for success, -1 for every failure. Where a reason can be given, it is written to the
 *    caller's buffer (why, size) as one line without a newline, cut to fit and zero-terminated; a
 *    null or empty buffer gets none.
 *  - Zero is the default everywhere. A record filled with zeros is a valid one; records end in a
 *    reserved field, which stays zero. Strings and arrays in a record are borrowed for the call.
 *  - Texts are UTF-8. Each maximal ill-formed part is shown as one U+FFFD (Unicode 15, section
 *    3.9); control characters, and characters that only direct the layout, are not shown.
 *    Characters are placed one after another from left to right: scripts that run from right to
 *    left or join their letters are not supported.
 *  - Pictures are computed in integers alone, so the bytes are the same everywhere.
 *  - No blending. Alpha is stored like the other three channels.
 *  - Threads. The kit keeps no state: threads may share faces, and anything else that none of them
 *    changes.
 *  - Arguments and fields of one name mean one thing, unless more is said of them:
 *     - face: borrowed; may be null, which is kit_sans_12().
 *     - box, from, to, inside, format, widget, chart: borrowed; null is refused.
 *     - why: written, @p size of its bytes; may be null, which gets none.
 *     - size, stride: in bytes.
 *     - count, amount: a number.
 *     - baseline: in pixels.
 *     - percent: in percent.
 *     - fields: borrowed; may be null.
 *     - reserved: nothing, stays null.
 */
#ifndef ORVEL_KIT_H
#define ORVEL_KIT_H

#include <stddef.h>

#include "orvel.h"

/** The version of this header; kit_version() tells that of the library in use. */
#define KIT_VERSION "0.2.0"

/* Stands after each field of a record, so that no C++ compiler warns of fields that are left out.
   A kit_box has none, since functions return it and clang++ would no longer take it for a type of
   C: give all four numbers. */
#ifdef __cplusplus
#define KIT_ZERO \
    {}
#else
#define KIT_ZERO
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** The version of the kit. A static string: never null, never freed. */
ORVEL_API const char* kit_version(void);

/** A rectangle: [x, x + w) x [y, y + h), in pixels. Empty when a side is below 1. */
typedef struct kit_box {
    int x; /**< left */
    int y; /**< top */
    int w; /**< width */
    int h; /**< height */
} kit_box;

/* ---- Guarded forms ---- */
/* Each does what the function of orvel.h that it names does, but returns null or -1 where that may
   raise a C++ exception. */

/** orvel_canvas_create(), guarded: null also when the pixels do not fit into memory. */
ORVEL_API orvel_canvas* kit_canvas(int width, int height);
/** orvel_icon_draw_bitmap(), guarded: -1 for every file that it cannot draw. */
ORVEL_API int kit_bitmap(orvel_canvas* canvas, const char* name, int x, int y);
/** orvel_theme_load(), guarded. */
ORVEL_API int kit_theme_load(orvel_theme* theme, const char* name);
/** orvel_theme_save(), guarded. */
ORVEL_API int kit_theme_save(const orvel_theme* theme, const char* name);
/** orvel_canvas_save_bmp(), guarded. */
ORVEL_API int kit_save_bmp(const orvel_canvas* canvas, const char* path);
/** orvel_canvas_save_bmp_rgba(), guarded. */
ORVEL_API int kit_save_bmp_rgba(const orvel_canvas* canvas, const char* path);
/** orvel_set_resource_path(), guarded. */
ORVEL_API int kit_resource_path(const char* path);
/** orvel_play_sound(), guarded. */
ORVEL_API int kit_play_sound(const char* name);
/** orvel_play_music(), guarded. */
ORVEL_API int kit_play_music(const char* name);
/** orvel_play_tone(), guarded. */
ORVEL_API int kit_play_tone(double frequency_hz, int duration_ms);

/* ---- Pixels ---- */

/** The colour that lies @p percent of the way between @p from and @p to; each of the four channels
 *  is rounded toward @p from. The percentage is clamped to [0, 100]. */
ORVEL_API orvel_color kit_mix(orvel_color from, orvel_color to, int percent);

/** The lightness of a colour, a number from 0 to 255: (2126 r + 7152 g + 722 b + 5000) / 10000. */
ORVEL_API int kit_grey(orvel_color color);

/**
 * Copies the box @p part of @p from to the point (x, y) of @p to, pixel by pixel, alpha included;
 * what lies outside either canvas is left out. Both may be the same canvas, and the boxes may
 * overlap.
 *
 * @param part  borrowed; may be null, which is all of @p from.
 * @return 0; -1 for a null canvas.
 */
ORVEL_API int kit_copy(orvel_canvas* to, int x, int y, const orvel_canvas* from,
                       const kit_box* part);

/**
 * As kit_copy(), but pixels of @p from with alpha 0 are skipped.
 *
 * @param part  borrowed; may be null, which is all of @p from.
 * @return 0; -1 for a null canvas.
 */
ORVEL_API int kit_stamp(orvel_canvas* to, int x, int y, const orvel_canvas* from,
                        const kit_box* part);

/**
 * Draws a built-in icon as orvel_draw_icon() draws it at the top left of a canvas of its own,
 * clipped to its square. Two icons, "home" and "power", look different further down a canvas; this
 * way they look the same everywhere. Cut-outs take the colour of the pixel in the top left corner
 * of the square or, where that is off the canvas, of the pixel of the square nearest to it.
 *
 * @param size  in pixels.
 * @return 0; -1 for null, an unknown name, a size below 1 or above 16384, and when memory runs out;
 *         nothing is then drawn.
 */
ORVEL_API int kit_icon(orvel_canvas* canvas, const char* name, int x, int y, int size,
                       orvel_color color);

/**
 * Begins drawing that stays inside @p box: clips the box to the canvas and returns a new canvas of
 * exactly that size, with a copy of what is there. Subtract the box's new x and y from what you
 * draw on it, then pass both to kit_clip_end(). No pixel outside the box changes.
 *
 * @param box  changed; null is refused.
 * @return the caller's, for orvel_canvas_destroy() or kit_clip_end(); null when no part of the box
 *         is on the canvas or memory runs out, and the box then stays as it was.
 */
ORVEL_API orvel_canvas* kit_clip_begin(const orvel_canvas* canvas, kit_box* box);

/**
 * Copies @p inside back to @p box on the canvas, and destroys it, even when the canvas or the box
 * is null.
 *
 * @param inside  taken; null is refused.
 * @return 0; -1 for null, and when @p inside is the canvas itself, which is not destroyed.
 */
ORVEL_API int kit_clip_end(orvel_canvas* canvas, const kit_box* box, orvel_canvas* inside);

/** What a pixel becomes in the caller's memory. */
typedef enum kit_layout {
    KIT_RGBA = 0,      /**< four bytes, red first */
    KIT_BGRA = 1,      /**< four bytes, blue first */
    KIT_RGB565_LE = 2, /**< 16 bits, red highest, the low byte first */
    KIT_RGB565_BE = 3, /**< 16 bits, red highest, the high byte first */
    KIT_GREY8 = 4,     /**< one byte */
    KIT_GREY4 = 5,     /**< 4 bits, the first pixel in the highest ones; white is 15 */
    KIT_GREY2 = 6,     /**< 2 bits, the first pixel in the highest ones; white is 3 */
    KIT_GREY1 = 7,     /**< 1 bit, the first pixel in the highest one; white is 1 */
    KIT_INDEX8 = 8,    /**< one byte, the number of the colour in the palette */
    KIT_INDEX4 = 9,    /**< 4 bits, the same, the first pixel in the highest ones */
    KIT_PLANE = 10     /**< 1 bit, 0 where the pixel takes the colour number plane of the palette */
} kit_layout;

/**
 * How colours that a layout lacks are approximated. The levels of grey, and those of each channel
 * in 16 bits, are evenly spaced from black to white. The nearest colour of a palette is the one
 * with the smallest 2 dr^2 + 4 dg^2 + 3 db^2.
 */
typedef enum kit_dither {
    KIT_DITHER_NONE = 0,    /**< the nearest colour; of several as near, the first */
    KIT_DITHER_ORDERED = 1, /**< an 8 x 8 matrix (Bayer, IEEE ICC 1973), anchored to the canvas, so
                                 that boxes written at different times fit together. A palette's
                                 own colours stay; others are moved by up to half of the largest
                                 gap between the palette's values of a channel */
    KIT_DITHER_DIFFUSED = 2 /**< error diffusion (Floyd and Steinberg, Proc. SID 17(2), 1976), from
                                 the box's top left corner along its rows. Colours and errors are
                                 counted in sixteenths of a step. Of an error, 7 parts of 16 go
                                 ahead, 3 to the lower left and 5 below, rounded toward zero, and
                                 the rest to the lower right; the sum that a pixel gets is clamped
                                 to black and white */
} kit_dither;

/** How pixels come out. */
typedef struct kit_format {
    int layout KIT_ZERO;                 /**< a kit_layout */
    int dither KIT_ZERO;                 /**< a kit_dither; the layouts of four bytes need none */
    int turns KIT_ZERO;                  /**< a number of quarter turns, clockwise if positive */
    int colors KIT_ZERO;                 /**< the number of colours in the palette, 1 to 16 */
    const orvel_color* palette KIT_ZERO; /**< the panel's, alpha ignored, @p colors of them */
    int plane KIT_ZERO;      /**< the number of the colour that KIT_PLANE marks, from 0 */
    int keep_alpha KIT_ZERO; /**< 0 or 1: four-byte layouts get alpha 255, or what is stored */
    const void* reserved[4] KIT_ZERO;
} kit_format;

/** The size in bytes of a row of @p width pixels, counted after the turn; 0 for an invalid format,
 *  a width below 1, and a size beyond the range of size_t. */
ORVEL_API size_t kit_pixels_stride(const kit_format* format, int width);

/**
 * Writes the pixels of @p box to memory, as the format says. Rows come from the top of the turned
 * picture, each starting @p stride bytes after the one before; a stride of 0 is what
 * kit_pixels_stride() says. The unused bits of a row's last byte are 0; bytes between the rows are
 * left alone. Nothing is written unless all of it fits.
 *
 * A format is invalid when its layout or dither is none of kit_layout or kit_dither and, with a
 * layout that needs them, when the palette is null, the number of colours is out of range, or there
 * is no colour of the number plane. Other fields may hold anything.
 *
 * @param box  borrowed; may be null, which is all of the canvas.
 * @param to   written, @p size of its bytes; null is refused.
 * @return 0; -1 for null, a box that is empty or not wholly on the canvas, an invalid format, a
 *         stride shorter than a row, a size too small for the rows (the last one ends where its
 *         pixels do), and when memory runs out.
 */
ORVEL_API int kit_pixels(const orvel_canvas* canvas, const kit_box* box, const kit_format* format,
                         void* to, size_t size, size_t stride);

/* ---- Faces ---- */

/** A typeface in one size: its letters, and how they are spaced. */
typedef struct kit_face kit_face;

/*
 * The built-in faces: DejaVu (its notice comes with the kit), named by the size in pixels. They
 * have 715 characters: Latin, Greek, Cyrillic, punctuation, currency, arrows and signs. Mono lacks
 * five of them; the digits have only 0 to 9, the space, + - . , : %, the degree sign and the minus
 * sign (U+2212).
 *  - result: static, never null; closing one does nothing.
 */
ORVEL_API const kit_face* kit_sans_11(void);
ORVEL_API const kit_face* kit_sans_12(void);
ORVEL_API const kit_face* kit_sans_14(void);
ORVEL_API const kit_face* kit_sans_18(void);
ORVEL_API const kit_face* kit_sans_24(void);
ORVEL_API const kit_face* kit_sans_40(void);
ORVEL_API const kit_face* kit_bold_11(void);
ORVEL_API const kit_face* kit_bold_12(void);
ORVEL_API const kit_face* kit_bold_14(void);
ORVEL_API const kit_face* kit_bold_18(void);
ORVEL_API const kit_face* kit_bold_24(void);
ORVEL_API const kit_face* kit_mono_12(void);
ORVEL_API const kit_face* kit_digits_64(void);
ORVEL_API const kit_face* kit_digits_96(void);

/**
 * The built-in face of that name: "sans 12", "digits 96". A program that links the static kit and
 * calls this contains all the faces.
 *
 * @return static; null when there is none.
 */
ORVEL_API const kit_face* kit_face_named(const char* name);

/**
 * Reads a bitmap font in the Glyph Bitmap Distribution Format (BDF 2.1, Adobe 1993; of 2.2, widths
 * for the whole font). The file is not trusted: it has at most 16 MiB, time and memory stay in
 * proportion to its size, and a FIFO is not waited for.
 *  - The codes are those of Unicode, of a character set that agrees with it (ISO8859-1, ASCII), or
 *    of symbols that belong to no set (FontSpecific). Fonts in another set are refused.
 *  - Of several letters with the same code the first counts; letters without a code are left out.
 *    If there is no U+FFFD, the letter of the property DEFAULT_CHAR stands for it.
 *  - Sides, offsets and advances are at most 4096 pixels, and no advance is negative.
 *
 * @return the caller's, for kit_face_close(); null, and the reason as "PATH:LINE: what is wrong",
 *         when it is refused.
 */
ORVEL_API kit_face* kit_face_open(const char* path, char* why, size_t size);

/**
 * As kit_face_open(), from memory; reasons begin with "font" instead of a path.
 *
 * @param bytes   borrowed, @p length of them; null is refused.
 * @param length  in bytes.
 * @return the caller's, for kit_face_close(); null, and the reason, when it is refused.
 */
ORVEL_API kit_face* kit_face_read(const void* bytes, size_t length, char* why, size_t size);

/**
 * A face that takes from @p second the characters that @p first lacks. Its lines are as high as the
 * higher lines of the two, its capitals count as high as those of @p first. At most 8 faces can be
 * chained so. Letters of different faces are not kerned with each other.
 *
 * @param first, second  kept until the new one is closed; null is refused.
 * @return the caller's, for kit_face_close(); null for a null face, for more than 8
 *         faces, and when memory runs out.
 */
ORVEL_API kit_face* kit_face_fallback(const kit_face* first, const kit_face* second);

/** Releases what kit_face_open(), kit_face_read() or kit_face_fallback() returned;
 *  @p face is taken. */
ORVEL_API void kit_face_close(kit_face* face);

ORVEL_API int kit_face_ascent(const kit_face* face);  /**< in pixels: the rows above the baseline */
ORVEL_API int kit_face_descent(const kit_face* face); /**< in pixels: its row and those below it */
ORVEL_API int kit_face_line(const kit_face* face);    /**< in pixels: from baseline to baseline */
ORVEL_API int kit_face_cap(const kit_face* face);     /**< in pixels: the height of a capital */

/**
 * Whether the face, or one chained behind it, has a character; @p code is its number in Unicode.
 *
 * @return 1 when it has, else 0.
 */
ORVEL_API int kit_face_has(const kit_face* face, unsigned int code);

/* ---- Words ---- */
/*
 * Some characters are not shown at all: control characters (up to U+001F, U+007F to U+009F), soft
 * hyphens except at the end of a wrapped line, zero width spaces and joiners, direction marks,
 * invisible operators, byte order marks, variation selectors, annotations and tags. A newline,
 * U+2028 and U+2029 end a line in kit_text_wrap() and are a space elsewhere. If no face has a space
 * or hyphen of a special kind, the plain one stands for it, and three full stops for an ellipsis;
 * any other missing character shows as U+FFFD, or as a hollow box if that is missing too. Results
 * are clamped to the range of int.
 */

/** Where words stand in the width of a box. */
typedef enum kit_align { KIT_LEFT = 0, KIT_CENTRE = 1, KIT_RIGHT = 2 } kit_align;

/** The width of a line in pixels: the sum of its advances and kernings. */
ORVEL_API int kit_text_width(const kit_face* face, const char* text);

/**
 * Draws one line that starts at x and whose letters stand on the row @p baseline: the lowest row of
 * a letter without a descender is the one above it.
 *
 * @param canvas  borrowed; may be null.
 * @return the x at which the line ends, in pixels, the same for a null canvas.
 */
ORVEL_API int kit_text_draw(orvel_canvas* canvas, const kit_face* face, const char* text, int x,
                            int baseline, orvel_color color);

/**
 * Draws one line in a box, its capitals centred vertically. A line wider than the box is cut and
 * ends in an ellipsis, which replaces a number as a whole rather than a part of it. No pixel
 * outside the box changes, so a letter may lose what hangs over the sides.
 *
 * @return 0 when the line is no wider than the box, 1 when it was cut, -1 for a null canvas.
 */
ORVEL_API int kit_text_box(orvel_canvas* canvas, const kit_face* face, const char* text,
                           kit_box box, kit_align align, orvel_color color);

/**
 * Draws a paragraph from the top of a box. It is broken at spaces, which then take no room, at soft
 * hyphens, which then show, at zero width spaces, after hyphens and dashes between letters (not
 * before a digit), at every newline, and inside a word only when the word alone is wider than the
 * box. Lines that do not wholly fit the height are left out, and the last line shown then ends in
 * an ellipsis.
 *
 * @param canvas  borrowed; may be null, and nothing is drawn then.
 * @return the number of lines that the whole paragraph takes, 0 for an empty text.
 */
ORVEL_API int kit_text_wrap(orvel_canvas* canvas, const kit_face* face, const char* text,
                            kit_box box, kit_align align, orvel_color color);

/** The width in pixels of a line up to a caret; @p offset is the caret's, in bytes. An offset
 *  inside a character counts as that of the character, a negative one as 0, one past the end as the
 *  end. */
ORVEL_API int kit_text_x(const kit_face* face, const char* text, int offset);

/** The offset in bytes of the caret that is nearest to x in a line: the left one of two that are
 *  equally near, the last of several at the same x. */
ORVEL_API int kit_text_at(const kit_face* face, const char* text, int x);

/** How many characters of the text show as U+FFFD because no face has them; ill-formed parts do not
 *  count if a face has U+FFFD. */
ORVEL_API int kit_text_missing(const kit_face* face, const char* text);

/* ---- Widgets ---- */

/** The states of a widget, to be added up. Kinds ignore what they do not show. */
typedef enum kit_state {
    KIT_HOVER = 1,   /**< under the pointer: button, slider, text box */
    KIT_ACTIVE = 2,  /**< on, checked, selected, open or pressed */
    KIT_FOCUS = 4,   /**< a ring, inside the box; a caret in text fields */
    KIT_DISABLED = 8 /**< mixed halfway into the theme's background; no hover, no focus */
} kit_state;

/**
 * One widget, as a plain record; a kind ignores what it has no use for. The order of the fields is
 * part of the interface.
 */
typedef struct kit_widget {
    int kind KIT_ZERO;         /**< an orvel_widget_kind */
    kit_box box KIT_ZERO;      /**< a width or height of 0 is what kit_size() says */
    const char* text KIT_ZERO; /**< the caption; items of tabs and menus joined with "|"; the name
                                    of an icon or image; what a stepper or badge shows instead of
                                    its number, unless it is empty */
    const char* hint KIT_ZERO; /**< what an empty text field shows, in the quiet colour */
    const char* icon KIT_ZERO; /**< a built-in icon before the caption: list items, buttons */
    const kit_face* face KIT_ZERO; /**< of all its words */
    unsigned state KIT_ZERO;       /**< of kit_state */
    int amount KIT_ZERO;   /**< of steppers and badges; the selected item of tabs and menus */
    double value KIT_ZERO; /**< the fraction of sliders, progress bars, spinners and ratings */
    const double* data KIT_ZERO; /**< the values of bars, 0 to 1, @p count of them */
    int count KIT_ZERO;          /**< how many values; below 1 none */
    int caret KIT_ZERO;  /**< of a text field with focus: the offset of the caret, in bytes */
    int anchor KIT_ZERO; /**< the other end of its selection, in bytes */
    int scroll KIT_ZERO; /**< in pixels, 1 more than kit_field() returned: a text longer than the
                              field then moves only as far as its caret needs; below 1 the caret is
                              in the middle */
    const void* reserved[4] KIT_ZERO;
} kit_widget;

/**
 * Draws a widget: the library's design with readable words, in the place and the colour that the
 * kind has for its caption; a caption that is too long ends in an ellipsis. A text field with focus
 * shows the part of a longer text that its caret is in. Where the design has no room for the face
 * (bands, bubbles, boxes beside words) or does not use the box (sliders, stars), it is drawn as
 * large as the face or the box. Nothing is painted outside the box.
 *
 * @return 0, also when no part of the box is on the canvas; -1 for null, an unknown kind, a
 *         negative width or height, an icon or image that cannot be drawn (off the canvas, that is
 *         noticed only of an image whose own size counts), and when memory runs out; what was drawn
 *         by then stays.
 */
ORVEL_API int kit_draw(orvel_canvas* canvas, const orvel_theme* theme, const kit_widget* widget);

/**
 * The size that a widget wants with its words, face and value; a side of its box that is above 0
 * stays as it is. The size of an image is that of what can be seen of it, up to 4096 pixels a side,
 * and 0 x 0 if it cannot be drawn; to find it, the file is read and drawn.
 *
 * @param w, h  written, in pixels; may be null.
 * @return 0; -1 for null, an unknown kind and when memory runs out, which write 0 x 0.
 */
ORVEL_API int kit_size(const kit_widget* widget, int* w, int* h);

/**
 * Where a text box or search field shows its text, with the same @p widget as for kit_draw(). A
 * letter is drawn at the left side of the room, plus its kit_text_x(), minus what is returned.
 *
 * @param room   written: the box that the words show in; may be null.
 * @param caret  written: the box of the caret, empty if there is none; may be null.
 * @return the width in pixels of the part of the text that lies to the left of the room, 0 without
 *         focus; -1 for null, another kind and a negative width or height, with both boxes empty.
 */
ORVEL_API int kit_field(const kit_widget* widget, kit_box* room, kit_box* caret);

/* ---- Charts ---- */

/** The kinds of chart. */
typedef enum kit_chart_kind {
    KIT_CHART_LINE = 0,    /**< a line for each series */
    KIT_CHART_AREA = 1,    /**< the same, filled down to zero or to the nearer end of the range */
    KIT_CHART_SPARK = 2,   /**< a line without anything around it; the last value has a dot */
    KIT_CHART_BARS = 3,    /**< grouped bars: one of each series at every place */
    KIT_CHART_STACKED = 4, /**< bars on top of each other, positive ones up, negative ones down */
    KIT_CHART_GAUGE = 5    /**< the last value of the first series on three quarters of a ring */
} kit_chart_kind;

/** What a chart shows besides its values, to be added up. */
typedef enum kit_chart_parts {
    KIT_CHART_AXES = 1,   /**< lines at round numbers, with labels at the left */
    KIT_CHART_LABELS = 2, /**< the labels below, as many as fit; for a gauge the first */
    KIT_CHART_LEGEND = 4  /**< the names of the series at the top right, in rows */
} kit_chart_parts;

/** One series of values. */
typedef struct kit_series {
    const double* values KIT_ZERO; /**< @p count of them; NaN or infinite is a missing value */
    int count KIT_ZERO;            /**< how many values */
    orvel_color color KIT_ZERO;    /**< alpha 0: the theme's accent, then others by number */
    const char* name KIT_ZERO;     /**< for the legend; may be null */
    const void* reserved[2] KIT_ZERO;
} kit_series;

/** A chart, as a plain record. The order of the fields is part of the interface. */
typedef struct kit_chart {
    int kind KIT_ZERO;    /**< a kit_chart_kind */
    kit_box box KIT_ZERO; /**< nothing is painted outside it; its ground is left as it is */
    const kit_series* series KIT_ZERO; /**< @p count of them */
    int count KIT_ZERO;                /**< how many series, 0 to 32 */
    double low KIT_ZERO;               /**< a number, the lower end of the range */
    double high KIT_ZERO;      /**< a number, the upper end; when it equals low, the range is found
                                    from the values, with zero for areas, bars and gauges */
    unsigned parts KIT_ZERO;   /**< of kit_chart_parts */
    int decimals KIT_ZERO;     /**< the number of decimals, 0 to 9 after clamping; ticks may need
                                    more */
    const char* unit KIT_ZERO; /**< put behind the numbers, for instance " kW" */
    const char* labels KIT_ZERO;   /**< of the places from left to right, joined with "|" */
    const kit_face* face KIT_ZERO; /**< of all its words */
    const void* reserved[4] KIT_ZERO;
} kit_chart;

/**
 * Draws a chart in the theme's colours. Numbers and labels are shown whole or not at all; a name
 * that is too long ends in an ellipsis, and one stands for a gauge's number that has no room even
 * without its unit.
 *
 * @return 0, also when there are no values to show, and when the box leaves no room for them or
 *         lies off the canvas; -1 for null (a null array only when its count is above 0), an
 *         unknown kind, a count below 0, more than 32 series, a box with a side below 0 or above
 *         32767, a range that is upside down or whose ends or width are not finite, and when memory
 *         runs out.
 */
ORVEL_API int kit_chart_draw(orvel_canvas* canvas, const orvel_theme* theme,
                             const kit_chart* chart);

#ifdef __cplusplus
}

/** kit_draw() by reference, for designated initialisers. */
inline int kit_draw(orvel_canvas* canvas, const orvel_theme& theme, const kit_widget& widget) {
    return kit_draw(canvas, &theme, &widget);
}
/** kit_chart_draw() by reference, for designated initialisers. */
inline int kit_chart_draw(orvel_canvas* canvas, const orvel_theme& theme, const kit_chart& chart) {
    return kit_chart_draw(canvas, &theme, &chart);
}
#endif

#endif /* ORVEL_KIT_H */
