/**
 * @file orvel_kit.h
 * The kit: what hosts put around the library. Readable words, widgets with captions, charts, and
 * pixels for files and panels. A library of its own, libOrvelKit, on orvel.h alone.
 *
 * House rules, for every function unless it says otherwise; those of orvel.h hold too:
 *  - Nothing throws. Where memory runs out, the call returns null or -1.
 *  - Null. A null object or record is tolerated: null, 0 or -1, and nothing is drawn. A null face
 * is kit_sans_12(). A null text is an empty one.
 *  - Status. 0 for success, -1 for every failure. Where a reason can be told, it goes as one line
 *    without a newline into the caller's buffer (why, size), cut to it and zero-terminated; a null
 *    or empty buffer gets none.
 *  - Every zero is the default. A record filled with zeros is a valid one; records end in a
 * reserved field, which stays zero. Strings and arrays in a record are borrowed for the call.
 *  - Texts are UTF-8. Each maximal ill-formed part shows as one U+FFFD (Unicode 15, section 3.9);
 *    control characters, and what is only a mark for layout, show not at all. Characters are placed
 *    one after another from left to right: scripts that run right to left or join their letters are
 *    not supported.
 *  - Only integers are computed with, so the bytes are the same everywhere.
 *  - No blending. Alpha is stored like the other three.
 *  - Threads. No state: threads may share faces, and anything else that none of them changes.
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

/* Behind each field of a record: with it, no C++ compiler asks for what is left out. A kit_box,
   which functions return, has none, or it would be no type of C to clang++: give all four numbers.
 */
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
/* What orvel.h may raise as a C++ exception is null or -1 here; else each is the call of the same
   name there. */

/** orvel_canvas_create(), guarded: null when the pixels do not fit into memory, too. */
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

/** The colour @p percent of the way from one to another, each of the four channels cut toward
 *  @p from. A percent is clamped to [0, 100]. */
ORVEL_API orvel_color kit_mix(orvel_color from, orvel_color to, int percent);

/** The lightness of a colour, a number from 0 to 255: (2126 r + 7152 g + 722 b + 5000) / 10000. */
ORVEL_API int kit_grey(orvel_color color);

/**
 * Copies the box @p part of @p from to the place (x, y) of @p to, pixel by pixel, alpha included;
 * what lies outside either canvas is left out. The two may be one canvas, and the boxes may
 * overlap.
 *
 * @param part  borrowed; may be null, which is all of @p from.
 * @return 0; -1 for null.
 */
ORVEL_API int kit_copy(orvel_canvas* to, int x, int y, const orvel_canvas* from,
                       const kit_box* part);

/**
 * As kit_copy(), but a pixel with alpha 0 leaves what is there.
 *
 * @param part  borrowed; may be null, which is all of @p from.
 * @return 0; -1 for null.
 */
ORVEL_API int kit_stamp(orvel_canvas* to, int x, int y, const orvel_canvas* from,
                        const kit_box* part);

/**
 * Draws a built-in icon as orvel_draw_icon() draws it at the top left of a canvas of its own, cut
 * to its square. Two icons, "home" and "power", look different further down a canvas; this way they
 * look the same everywhere. Cut-outs take the colour of the pixel of the square nearest to its top
 * left corner that the canvas has.
 *
 * @param size  in pixels.
 * @return 0; -1 for null, an unknown name, a size below 1 or above 16384, and where memory runs
 * out, which all draw nothing.
 */
ORVEL_API int kit_icon(orvel_canvas* canvas, const char* name, int x, int y, int size,
                       orvel_color color);

/**
 * Begins drawing that is to stay inside @p box: cuts the box to the canvas and returns a canvas of
 * just that size that shows what is there. Draw on it with the box's new x and y subtracted, then
 * hand both to kit_clip_end(). No pixel outside the box changes.
 *
 * @param box  changed; null is refused.
 * @return the caller's, for orvel_canvas_destroy() or kit_clip_end(); null when nothing of the box
 *         is on the canvas or memory runs out, which leave the box as it was.
 */
ORVEL_API orvel_canvas* kit_clip_begin(const orvel_canvas* canvas, kit_box* box);

/**
 * Copies @p inside back to the place of @p box, and destroys it, also where the others are null.
 *
 * @param inside  taken; null is refused.
 * @return 0; -1 for null, and for the canvas itself in place of @p inside, which stays.
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
    KIT_INDEX8 = 8,    /**< one byte, the number of the palette's colour */
    KIT_INDEX4 = 9,    /**< 4 bits, the number of the palette's colour */
    KIT_PLANE = 10     /**< 1 bit, 0 where the pixel takes the palette's colour number plane */
} kit_layout;

/**
 * How colours that a layout lacks are approximated. Levels of grey and of the channels of 16
 * bits lie evenly from black to white. Of a palette, the nearest colour is that with the least 2
 * dr^2 + 4 dg^2 + 3 db^2.
 */
typedef enum kit_dither {
    KIT_DITHER_NONE = 0,    /**< the nearest colour, the first of equals */
    KIT_DITHER_ORDERED = 1, /**< an 8 x 8 matrix (Bayer, IEEE ICC 1973) that lies on the canvas, so
                                 that boxes drawn at different times fit together. A palette's own
                                 colours stay; others are moved by up to half of the largest gap
                                 that the palette has in a channel */
    KIT_DITHER_DIFFUSED = 2 /**< errors to neighbours (Floyd and Steinberg, Proc. SID 17(2), 1976),
                                 from the box's top left along its rows. Colours and errors are
                                 counted in sixteenths of a step: 7, 3 and 5 of 16 parts, cut
                                 toward zero, the rest to the lower right; what a pixel then
                                 wants is clamped to black and white */
} kit_dither;

/** How pixels come out. */
typedef struct kit_format {
    int layout KIT_ZERO;                 /**< a kit_layout */
    int dither KIT_ZERO;                 /**< a kit_dither; the layouts of four bytes need none */
    int turns KIT_ZERO;                  /**< a number of quarters clockwise, back when negative */
    int colors KIT_ZERO;                 /**< the number of the palette's, 1 to 16 */
    const orvel_color* palette KIT_ZERO; /**< the panel's, without alpha, @p colors of them */
    int plane KIT_ZERO;      /**< the number of the colour that KIT_PLANE marks, from 0 */
    int keep_alpha KIT_ZERO; /**< 0 or 1: the four-byte layouts get alpha 255, or what is stored */
    const void* reserved[4] KIT_ZERO;
} kit_format;

/** What a row of @p width pixels takes in bytes, after any turn; 0 for what is no format, a width
 *  below 1 and where size_t cannot tell. */
ORVEL_API size_t kit_pixels_stride(const kit_format* format, int width);

/**
 * Writes the pixels of @p box to @p to, turned, rows top first, each @p stride bytes after the one
 * before (0: kit_pixels_stride()). The bits that fill up a row's last byte are 0; bytes between the
 * rows are left alone. Nothing is written unless all of it fits.
 *
 * What is no format: a number that no kit_layout or kit_dither has; for the layouts that need them,
 * no palette, a number of colours or a plane outside it. Other fields may hold anything.
 *
 * @param box  borrowed; may be null, which is all of the canvas.
 * @param to   written, @p size of its bytes; null is refused.
 * @return 0; -1 for null, a box that is empty or not wholly on the canvas, what is no format, a
 * stride shorter than a row, a memory of @p size bytes too small for the rows (the last one ends
 * where its pixels do), and where memory runs out.
 */
ORVEL_API int kit_pixels(const orvel_canvas* canvas, const kit_box* box, const kit_format* format,
                         void* to, size_t size, size_t stride);

/* ---- Faces ---- */

/** Letters of one design in one size. */
typedef struct kit_face kit_face;

/*
 * DejaVu (its notice comes with the kit), by the size in pixels. 715 characters: Latin, Greek,
 * Cyrillic, punctuation, currency, arrows and signs; Mono lacks five of them, and the digits have 0
 * to 9 and the space, + - . , : %, the degree sign and the minus of mathematics (U+2212).
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
 * The face of that name, "sans 12" or "digits 96". A program that is linked to the static kit and
 * calls this carries all faces.
 *
 * @return static; null when there is none.
 */
ORVEL_API const kit_face* kit_face_named(const char* name);

/**
 * Reads a bitmap font in the Glyph Bitmap Distribution Format (BDF 2.1, Adobe 1993; of 2.2, widths
 * for the whole font). The file is not trusted: time and memory stay in proportion to its size, of
 * which 16 MiB are the most, and a FIFO is not waited for.
 *  - The codes are Unicode's, or those of a set that shares them (ISO8859-1, ASCII), or of symbols
 *    that belong to no set (FontSpecific). Fonts in another set are refused.
 *  - Of several letters with one code the first counts; one without a code is left out. Where there
 *    is no U+FFFD, the letter of the property DEFAULT_CHAR stands for it.
 *  - Sides, offsets and advances have at most 4096 pixels; no letter goes back to the left.
 *
 * @return the caller's, for kit_face_close(); null, and the reason as "PATH:LINE: what is wrong",
 *         when it is refused.
 */
ORVEL_API kit_face* kit_face_open(const char* path, char* why, size_t size);

/**
 * As kit_face_open(), from memory; reasons begin with "font" in place of a path.
 *
 * @param bytes   borrowed, @p length of them; null is refused.
 * @param length  in bytes.
 * @return the caller's, for kit_face_close(); null, and the reason, when it is refused.
 */
ORVEL_API kit_face* kit_face_read(const void* bytes, size_t length, char* why, size_t size);

/**
 * A face that takes from @p second what @p first lacks; lines are as high as the higher one, and
 * capitals count as high as those of @p first. At most 8 faces come together so. Letters of two
 * faces are not kerned with each other.
 *
 * @param first, second  kept until the new one is closed; null is refused.
 * @return the caller's, for kit_face_close(); null for null, too many, or when memory runs out.
 */
ORVEL_API kit_face* kit_face_fallback(const kit_face* first, const kit_face* second);

/** Releases what kit_face_open(), _read() or _fallback() returned; @p face is taken. */
ORVEL_API void kit_face_close(kit_face* face);

ORVEL_API int kit_face_ascent(const kit_face* face);  /**< in pixels: rows above the baseline's */
ORVEL_API int kit_face_descent(const kit_face* face); /**< in pixels: its row and those below */
ORVEL_API int kit_face_line(const kit_face* face);    /**< in pixels: one baseline to the next */
ORVEL_API int kit_face_cap(const kit_face* face);     /**< in pixels: the height of a capital */

/** @return 1 when the face, or one behind it, has the character, @p code is its number; else 0. */
ORVEL_API int kit_face_has(const kit_face* face, unsigned int code);

/* ---- Words ---- */
/*
 * Not shown at all are control characters (up to U+001F, U+007F to U+009F), soft hyphens but at the
 * end of a wrapped line, zero width spaces and joiners, marks of direction, invisible operators,
 * byte order marks, variation selectors, annotations and tags. Newline, U+2028 and U+2029 end a
 * line in kit_text_wrap(), and are a space elsewhere. A space or hyphen of another kind that no
 * face has is the plain one, an ellipsis three full stops; any other such character shows as
 * U+FFFD, and as a hollow box where that is missing, too. What lies beyond the range of int is told
 * as its nearest end.
 */

/** Where words stand in a box, from left to right. */
typedef enum kit_align { KIT_LEFT = 0, KIT_CENTRE = 1, KIT_RIGHT = 2 } kit_align;

/** The width of a line in pixels: all its advances and kernings. */
ORVEL_API int kit_text_width(const kit_face* face, const char* text);

/**
 * Draws one line that starts at x and whose letters stand on the row @p baseline: the lowest row of
 * a letter without a descender is the one above it.
 *
 * @param canvas  borrowed; may be null.
 * @return the x at which the line ends, in pixels, or would end on a null canvas.
 */
ORVEL_API int kit_text_draw(orvel_canvas* canvas, const kit_face* face, const char* text, int x,
                            int baseline, orvel_color color);

/**
 * Draws one line in a box, its capitals centred from top to bottom. A line wider than the box ends
 * in an ellipsis, which comes before a whole number rather than inside it; no pixel outside the box
 * changes, so a letter may lose what hangs over its sides.
 *
 * @return 0 when the line is no wider than the box, 1 when it was cut, -1 for a null canvas.
 */
ORVEL_API int kit_text_box(orvel_canvas* canvas, const kit_face* face, const char* text,
                           kit_box box, kit_align align, orvel_color color);

/**
 * Draws a paragraph in a box from its top: broken at spaces, which then take no room, at soft
 * hyphens, which then show, at zero width spaces, behind hyphens and dashes between letters (not
 * before a digit), at every newline, and inside a word only where the word alone is wider than the
 * box. Lines that do not fit whole are left out, and the last one shown then ends in an ellipsis.
 *
 * @param canvas  borrowed; may be null, where nothing is drawn.
 * @return the number of lines that the whole paragraph takes, 0 for an empty text.
 */
ORVEL_API int kit_text_wrap(orvel_canvas* canvas, const kit_face* face, const char* text,
                            kit_box box, kit_align align, orvel_color color);

/** The width in pixels of a line up to a caret; @p offset is where, in bytes. An offset inside a
 * character counts as the one before it; one past the end as the end. */
ORVEL_API int kit_text_x(const kit_face* face, const char* text, int offset);

/** The offset in bytes of the place between two characters of a line that is nearest to x: of two
 *  as near the left one, of several at one x the last. */
ORVEL_API int kit_text_at(const kit_face* face, const char* text, int x);

/** How many characters of the text show as U+FFFD for want of a letter; ill-formed parts do not
 *  count where a face has U+FFFD. */
ORVEL_API int kit_text_missing(const kit_face* face, const char* text);

/* ---- Widgets ---- */

/** The states of a widget, to be added up. Kinds ignore what they do not show. */
typedef enum kit_state {
    KIT_HOVER = 1,   /**< under the pointer: button, slider, text box */
    KIT_ACTIVE = 2,  /**< on, checked, selected, open or pressed */
    KIT_FOCUS = 4,   /**< a ring, inside the box; a caret in text fields */
    KIT_DISABLED = 8 /**< mixed halfway into the theme's background, without hover and focus */
} kit_state;

/**
 * One widget, as a plain record; what a kind has no use for is ignored. The order of the fields is
 * part of the interface.
 */
typedef struct kit_widget {
    int kind KIT_ZERO;         /**< an orvel_widget_kind */
    kit_box box KIT_ZERO;      /**< a width or height of 0 is what kit_size() says */
    const char* text KIT_ZERO; /**< the caption; items of tabs and menus joined with "|"; the name
                                    of an icon or image; what a stepper or badge shows in place of
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
    int scroll KIT_ZERO; /**< in pixels, 1 and what kit_field() said: a longer text then moves no
                              further than its caret needs; below 1 that is in the middle */
    const void* reserved[4] KIT_ZERO;
} kit_widget;

/**
 * Draws a widget: the library's design with readable words, each in the room, the place and the
 * colour that the kind has for its caption; an ellipsis ends what is longer. A text field with
 * focus shows the part of a longer text that its caret is in. Where the design has no room for the
 * face (bands, bubbles, boxes beside words) or more room than it uses (sliders, stars), it is drawn
 * as large as the face or the box. Nothing is painted outside the box.
 *
 * @return 0, also where nothing of the box is on the canvas; -1 for null, an unknown kind, a
 *         negative size, an icon or image that cannot be drawn (off the canvas that is told only of
 *         an image whose own size counts), and where memory runs out: what was drawn by then stays.
 */
ORVEL_API int kit_draw(orvel_canvas* canvas, const orvel_theme* theme, const kit_widget* widget);

/**
 * The size that a widget wants with its words, face and value: sides above 0 that its box gives
 * stay. The size of an image is that of what shows of it, up to 4096 pixels to a side, and 0 x 0
 * for one that cannot be drawn; finding it reads and draws the file.
 *
 * @param w, h  written, in pixels; may be null.
 * @return 0; -1 for null, an unknown kind and where memory runs out, which want 0 x 0.
 */
ORVEL_API int kit_size(const kit_widget* widget, int* w, int* h);

/**
 * Where a text field, a text box or search, shows its text: @p widget as for kit_draw(). The column
 * of a letter is the left one of the room with its kit_text_x() and without what is returned.
 *
 * @param room   written: the box that the words show in; may be null.
 * @param caret  written: that of the caret, empty where there is none; may be null.
 * @return the width in pixels of what of the text lies to the left of the room, 0 without focus; -1
 *         for null, another kind and a negative size, which have empty boxes.
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

/** What a chart shows beside its values, to be added up. */
typedef enum kit_chart_parts {
    KIT_CHART_AXES = 1,   /**< lines at round numbers, with labels at the left */
    KIT_CHART_LABELS = 2, /**< the labels below, as many of them as fit; of a gauge the first */
    KIT_CHART_LEGEND = 4  /**< the names of the series at the top right, in rows */
} kit_chart_parts;

/** One row of values. */
typedef struct kit_series {
    const double* values KIT_ZERO; /**< @p count of them; NaN or infinite is a missing one */
    int count KIT_ZERO;            /**< how many values */
    orvel_color color KIT_ZERO;    /**< alpha 0: the theme's accent, then others by number */
    const char* name KIT_ZERO;     /**< for the legend; may be null */
    const void* reserved[2] KIT_ZERO;
} kit_series;

/** A chart, as a plain record. The order of the fields is part of the interface. */
typedef struct kit_chart {
    int kind KIT_ZERO;    /**< a kit_chart_kind */
    kit_box box KIT_ZERO; /**< nothing is painted outside; the ground is left as it is */
    const kit_series* series KIT_ZERO; /**< @p count of them */
    int count KIT_ZERO;                /**< how many series, 0 to 32 */
    double low KIT_ZERO;       /**< the range, a number; found from the values, with zero for */
    double high KIT_ZERO;      /**<   areas, bars and gauges, when it is the same number */
    unsigned parts KIT_ZERO;   /**< of kit_chart_parts */
    int decimals KIT_ZERO;     /**< the number of digits, clamped to [0, 9]; ticks may need more */
    const char* unit KIT_ZERO; /**< put behind those numbers, " kW" for instance */
    const char* labels KIT_ZERO;   /**< of the places from left to right, joined with "|" */
    const kit_face* face KIT_ZERO; /**< of all its words */
    const void* reserved[4] KIT_ZERO;
} kit_chart;

/**
 * Draws a chart in the theme's colours. Numbers and labels are whole or left out; an ellipsis ends
 * names that are too long, and stands for a gauge's number that has no room even without its unit.
 *
 * @return 0, also where there are no values to show, and where the box leaves them no room or lies
 *         off the canvas; -1 for null, an array only where its count is above 0, an unknown kind,
 *         a count below 0, more than 32 series, a box with a side below 0 or above 32767, a range
 *         that is upside down or whose ends or width are not finite, and where memory runs out.
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
