/**
 * @file orvel.h
 * The whole interface of OrvelSDK, and its manual.
 *
 * The host, which is the program that uses the library, creates a canvas in memory, draws on it,
 * and saves it as a picture. The same calls give the same bytes on every machine.
 *
 * House rules, for every function unless it says otherwise:
 *  - Null. A null object pointer is tolerated: the call does nothing, or returns its neutral value
 *    (0 for sizes, the all-zero colour, -1 for a status, null for a constructor).
 *  - Status. An int status is 0 for success and -1 for every failure. No error text is kept.
 *  - Ownership. The host owns every canvas, theme and widget and destroys each canvas and widget
 *    once. A widget borrows its canvas and its theme; both must outlive its last draw.
 *  - Strings are zero-terminated bytes. The library copies those it keeps.
 *  - Pointers. What is borrowed is not used after the call; what is kept is not used after the time
 *    given; what is taken is no longer the host's. Memory of the host is written, or changed where
 *    it matters what it held. What is static lives as long as the library. Where null is refused,
 *    the rule above holds; where a pointer may be null, its comment says what null means.
 *  - Arguments of one name mean one thing everywhere, unless their section or function says more:
 *     - canvas, theme, widget: borrowed; null is refused.
 *     - path, name: borrowed; null is refused.
 *     - text: borrowed; may be null, which counts as empty.
 *     - x, y, w, h, x0, y0, x1, y1, x2, y2, cx, cy, r, width, height, size: in pixels.
 *  - Coordinates are pixels, the origin is the top left corner, y grows downward.
 *  - Clipping. What lies outside the canvas is silently dropped, pixel by pixel. A shape with any
 *    int arguments costs no more than the visible rows that it crosses, however far it reaches.
 *  - No blending. A pixel drawn replaces the old one, alpha included; alpha is data.
 *  - Arithmetic is 32-bit and wraps as two's complement where a sum or product leaves the range.
 *    The pixels of lines and circles, and the rows and columns of discs, do not wrap: they are the
 *    true ones wherever they lie.
 *  - Threads. Nothing is locked for you: one thread at a time, or one canvas, theme and set of
 *    widgets per thread. After fork() in a host of several threads, the child calls nothing here.
 *    The lifecycle, resource and sound functions share library-wide state: one thread for them all.
 *    Threads may share what none of them changes: a theme, a canvas they read, the resource root.
 *    Do not cancel a thread (pthread_cancel) while it is in a call.
 *  - Memory. A canvas or widget whose record cannot be allocated is null. Any other allocation that
 *    fails raises std::bad_alloc, which a C host cannot catch: the process then ends. So does the
 *    std::length_error that orvel_icon_draw_bitmap() describes.
 *  - Order. No call needs orvel_init() before it, and all of them work after orvel_shutdown().
 */
#ifndef ORVEL_H
#define ORVEL_H

/** The version of this header; orvel_version() tells that of the library in use. */
#define ORVEL_VERSION "0.1.0"

/** Marks what the shared library exports; hosts have no use for it. */
#if defined(_WIN32)
#define ORVEL_API
#else
#define ORVEL_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** A colour: red, green, blue and alpha (255 is opaque), four bytes in this order in memory. */
typedef struct orvel_color {
    unsigned char r; /**< red */
    unsigned char g; /**< green */
    unsigned char b; /**< blue */
    unsigned char a; /**< alpha */
} orvel_color;

/** A picture in memory; made by orvel_canvas_create(). */
typedef struct orvel_canvas orvel_canvas;

/** One piece of user interface; made by the orvel_widget_ constructors. */
typedef struct orvel_widget orvel_widget;

/**
 * The nine colours that widgets are drawn in. Plain memory of the host's: the library never
 * allocates one. The field names are also the keys of theme files.
 */
typedef struct orvel_theme {
    orvel_color background;   /**< list items; words and knobs on the accent */
    orvel_color surface;      /**< the ground of windows, fields and the open tab; a radio's dot */
    orvel_color text;         /**< words, the signs of fields and steppers */
    orvel_color accent;       /**< what is selected, filled, switched on or open */
    orvel_color border;       /**< frames, rules, tracks, what is off; a list item's arrow */
    orvel_color button;       /**< a button's face */
    orvel_color button_hover; /**< it or a slider's knob under the pointer; selected list and menu
                                 items */
    orvel_color button_text;  /**< a button's caption */
    orvel_color error;        /**< no widget uses it; for the host's own drawing */
} orvel_theme;

/** The kinds of widget. The codes are part of the interface. */
typedef enum orvel_widget_kind {
    ORVEL_WIDGET_WINDOW = 0,
    ORVEL_WIDGET_PANEL = 1,
    ORVEL_WIDGET_LABEL = 2,
    ORVEL_WIDGET_BUTTON = 3,
    ORVEL_WIDGET_TOGGLE = 4,
    ORVEL_WIDGET_CHECKBOX = 5,
    ORVEL_WIDGET_SLIDER = 6,
    ORVEL_WIDGET_PROGRESS = 7,
    ORVEL_WIDGET_TEXTBOX = 8,
    ORVEL_WIDGET_ICON = 9,
    ORVEL_WIDGET_IMAGE = 10,
    ORVEL_WIDGET_SEPARATOR = 11,
    ORVEL_WIDGET_CARD = 12,
    ORVEL_WIDGET_RADIO = 13,
    ORVEL_WIDGET_DROPDOWN = 14,
    ORVEL_WIDGET_SPINNER = 15,
    ORVEL_WIDGET_RATING = 16,
    ORVEL_WIDGET_STEPPER = 17,
    ORVEL_WIDGET_TABS = 18,
    ORVEL_WIDGET_AVATAR = 19,
    ORVEL_WIDGET_BADGE = 20,
    ORVEL_WIDGET_TITLEBAR = 21,
    ORVEL_WIDGET_LIST_ITEM = 22,
    ORVEL_WIDGET_MENU = 23,
    ORVEL_WIDGET_BARS = 24,
    ORVEL_WIDGET_SEARCH = 25,
    ORVEL_WIDGET_TOOLTIP = 26,
    ORVEL_WIDGET_STATUSBAR = 27
} orvel_widget_kind;

/* ---- Lifecycle and resources ---- */

/**
 * Marks the library as initialised and, unless it already was, writes
 * "[OrvelSDK] inizializzato (v0.1.0)" to the standard error stream. Always returns 0.
 *
 * @return 0; never -1.
 */
ORVEL_API int orvel_init(void);

/** The version of the library, "0.1.0". A static string: never null, never freed. */
ORVEL_API const char* orvel_version(void);

/**
 * Clears the initialised mark and, if it was set, writes "[OrvelSDK] chiuso" to the standard error
 * stream. Nothing is released: the resource root stays in force and music goes on.
 */
ORVEL_API void orvel_shutdown(void);

/**
 * Sets the resource root: the folder that holds "Sounds", "Music", "Icons" and "UI". The path is
 * copied and used exactly as given; it need not exist. An empty path unsets the root, which then is
 * the folder Resources under the directory named by the environment variable ORVELSDK_PATH or,
 * where that is unset or empty, under the current working directory.
 *
 * A resource name without a dot stands for the first file that opens among name.wav, .mp3, .bmp,
 * .json, .m4a, .aiff and .png; a name with a dot is used as it is.
 *
 * Raises std::bad_alloc.
 *
 * @return 0, or -1 when @p path is null, which leaves the old root in force.
 */
ORVEL_API int orvel_set_resource_path(const char* path);

/* ---- Canvas ---- */

/**
 * Makes a canvas of @p width x @p height pixels, all opaque black. Null when a side is below 1 or
 * the record cannot be allocated; raises std::bad_alloc when the pixels cannot.
 *
 * @return the caller's, for orvel_canvas_destroy(), or null.
 */
ORVEL_API orvel_canvas* orvel_canvas_create(int width, int height);

/** Releases a canvas; @p canvas is taken. No widget made for it may be drawn afterwards. */
ORVEL_API void orvel_canvas_destroy(orvel_canvas* canvas);

ORVEL_API int orvel_canvas_width(const orvel_canvas* canvas);  /**< in pixels; 0 for null */
ORVEL_API int orvel_canvas_height(const orvel_canvas* canvas); /**< in pixels; 0 for null */

/** Sets every pixel to @p color. */
ORVEL_API void orvel_canvas_clear(orvel_canvas* canvas, orvel_color color);

/** Sets the pixel (x, y); ignored outside the canvas. */
ORVEL_API void orvel_canvas_pixel(orvel_canvas* canvas, int x, int y, orvel_color color);

/** The pixel (x, y); all zero outside the canvas, as a stored transparent black would be, too. */
ORVEL_API orvel_color orvel_canvas_pixel_get(const orvel_canvas* canvas, int x, int y);

/* ---- Shapes ---- */

/**
 * A line of single pixels, both ends included, by Bresenham's integer algorithm
 * (IBM Systems Journal 4(1), 1965) for all octants. Exact between any two points.
 */
ORVEL_API void orvel_canvas_line(orvel_canvas* canvas, int x0, int y0, int x1, int y1,
                                 orvel_color color);

/**
 * The one-pixel outline of the @p w x @p h box at (x, y), inside the box: four lines. Nothing when
 * @p w or @p h is below 1.
 */
ORVEL_API void orvel_canvas_rect(orvel_canvas* canvas, int x, int y, int w, int h,
                                 orvel_color color);

/** Fills the box [x, x + w) x [y, y + h). Nothing when @p w or @p h is below 1. */
ORVEL_API void orvel_canvas_fill_rect(orvel_canvas* canvas, int x, int y, int w, int h,
                                      orvel_color color);

/**
 * The outline of a circle around (cx, cy): a midpoint rule that starts from d = 3 - 2r and tests d
 * before it is stepped. A radius of 0 is one pixel, a negative one nothing.
 */
ORVEL_API void orvel_canvas_circle(orvel_canvas* canvas, int cx, int cy, int r, orvel_color color);

/**
 * A filled disc: on each row dy the span of the truncated square root of r^2 - dy^2 to both sides,
 * so its edge differs a little from that of orvel_canvas_circle(). The difference is formed in 32
 * bits: with a radius above 46340 it wraps, and a row on which it is negative is left out. A radius
 * of 0 is one pixel, a negative one nothing.
 */
ORVEL_API void orvel_canvas_fill_circle(orvel_canvas* canvas, int cx, int cy, int r,
                                        orvel_color color);

/**
 * A filled triangle, its edges included, by edge functions (Pineda, SIGGRAPH 1988); both windings
 * fill. Three points on one line fill that whole line within their rows: three points on one row
 * fill the row from edge to edge of the canvas. The edge functions are formed in 32 bits; they are
 * exact while no coordinate lies further than 16384 from zero and no side of the canvas is longer.
 * Beyond that, every pixel of the visible rows is tested.
 */
ORVEL_API void orvel_canvas_fill_triangle(orvel_canvas* canvas, int x0, int y0, int x1, int y1,
                                          int x2, int y2, orvel_color color);

/* ---- Pictures ---- */

/**
 * Writes the canvas to the file @p path as a 24-bit BMP, bottom row first, without alpha. Raises
 * std::bad_alloc.
 *
 * @return 0 once the file is open: whether the writes after that succeed is not checked. -1 for
 * null arguments and when the file cannot be opened for writing.
 */
ORVEL_API int orvel_canvas_save_bmp(const orvel_canvas* canvas, const char* path);

/**
 * Writes the canvas as a 32-bit BMP with alpha. Its compression field holds 255, which many readers
 * refuse; orvel_icon_draw_bitmap() reads it. Raises std::bad_alloc.
 *
 * @return 0 or -1, as for orvel_canvas_save_bmp().
 */
ORVEL_API int orvel_canvas_save_bmp_rgba(const orvel_canvas* canvas, const char* path);

/* ---- Text ---- */

/**
 * The width of @p text in pixels: 6 a byte, less the last gap; 0 for null or empty. Every byte
 * counts, newlines too. The height of a text is always 7.
 */
ORVEL_API int orvel_text_width(const char* text);

/**
 * Draws @p text with the top left corner of its first cell at (x, y). A cell is 5 x 7 pixels, the
 * next one starts 6 further right. Clear bits leave the canvas as it is. A newline (10) is skipped:
 * it moves nothing and starts no new line. Every other byte outside 32 ... 126 is a blank cell.
 *
 * The shapes are the library's own and are not the letters: each cell shows seven consecutive bytes
 * of a font stored by columns, read as rows.
 */
ORVEL_API void orvel_text_draw(orvel_canvas* canvas, const char* text, int x, int y,
                               orvel_color color);

/* ---- Icons ---- */

/**
 * The names of the 68 built-in icons, in their fixed order.
 *
 * @param count  written: a number, 68; may be null.
 * @return the library's own table, @p count of them; static, never null; do not write to it.
 */
ORVEL_API const char** orvel_icon_list(int* count);

/** @return 1 when @p name is exactly one of the 68 names, else 0. */
ORVEL_API int orvel_icon_exists(const char* name);

/**
 * Draws the built-in icon @p name in the square of side @p size at (x, y), in one colour. Its
 * cut-outs take the colour of the canvas at (x, y), or opaque black where that is transparent or
 * outside.
 *
 * Two designs measure from the top of the canvas and look as intended only where y is 0: further
 * down, "home" loses its body, and the stem of "power" reaches past the square. To place them
 * anywhere, draw them on a canvas of their own and copy it, which is what kit_icon() of the kit
 * does.
 *
 * @return 0; -1 for null arguments or a size below 1, which draw nothing, and for an unknown name,
 *         which draws a one-pixel frame of the square.
 */
ORVEL_API int orvel_draw_icon(orvel_canvas* canvas, const char* name, int x, int y, int size,
                              orvel_color color);

/**
 * As orvel_draw_icon(), with the colours of the design's details (@p accent) and of its cut-outs
 * (@p background) given.
 *
 * @return 0 or -1, as for orvel_draw_icon().
 */
ORVEL_API int orvel_draw_icon_ex(orvel_canvas* canvas, const char* name, int x, int y, int size,
                                 orvel_color color, orvel_color accent, orvel_color background);

/**
 * Draws the BMP file @p name of the resource folder "Icons" at its own size, its top left corner at
 * (x, y). Of the header, the offset of the pixels, the width, the height and the depth are read and
 * the rest is ignored: 24 and 32 bits a pixel, rows in either order. A pixel of a 32-bit file with
 * alpha 0 is skipped, any other replaces the canvas pixel. The file is not trusted: whatever it
 * holds, the call neither reads nor writes outside memory, does not block, and costs no more than
 * what is visible; a file that ends early, or that can no longer be read, shows the rows before
 * that.
 *
 * A width whose row, rounded up to 4 bytes, is negative as a 32-bit number raises
 * std::length_error: -2, for example, or 0x20000000 at 32 bits. A C host that draws files of
 * strangers looks at the four bytes at offset 18 first. Raises std::bad_alloc, too.
 *
 * @return 0 when the file was accepted; -1 for null arguments, a file that cannot be opened, a
 * header shorter than 54 bytes or without "BM", and any other depth.
 */
ORVEL_API int orvel_icon_draw_bitmap(orvel_canvas* canvas, const char* name, int x, int y);

/* ---- Themes ---- */

/** The dark theme, all nine fields; @p theme is written. */
ORVEL_API void orvel_theme_default(orvel_theme* theme);
/** The light theme, all nine fields; @p theme is written. */
ORVEL_API void orvel_theme_light(orvel_theme* theme);

/**
 * Reads the theme file @p name of the resource folder "UI"; @p theme is changed. For each of the
 * nine keys in double quotes, the next quoted text after the next colon is its colour, "#rrggbb". A
 * key that is missing or whose value is empty keeps its field, so fill the record first. A value of
 * fewer than six characters after the '#' is white; a bad digit counts as 0; alpha becomes 255. The
 * whole file is read into memory, whatever its size; when memory runs out, the record stays as it
 * was. A read that fails counts as the end of the file. Raises std::bad_alloc.
 *
 * @return 0 when the file was opened, whatever it held; -1 for null arguments or when it cannot be
 *         opened.
 */
ORVEL_API int orvel_theme_load(orvel_theme* theme, const char* name);

/**
 * Writes @p theme to the file @p name of the resource folder "UI", 264 bytes, without alpha. A name
 * without a dot overwrites the file that loading it would find; if there is none, the file gets
 * exactly that name. No folder is made. Raises std::bad_alloc.
 *
 * @return 0 once the file is open; -1 for null arguments or when it cannot be opened.
 */
ORVEL_API int orvel_theme_save(const orvel_theme* theme, const char* name);

/* ---- Widgets ---- */
/*
 * Every constructor returns null when canvas or theme is null or the record cannot be allocated.
 * The text is copied; null counts as empty. A rectangle is stored as given, whatever its size or
 * sign. Flags are on for any value but 0. Fractions are clamped to [0, 1]; NaN is kept and draws as
 * 0, a spinner's dot in the middle. The theme is read at every draw: changing the record re-colours
 * its widgets.
 *  - canvas, theme: kept until the widget is drawn for the last time; null is refused.
 *  - title, name, items, initials, icon: borrowed; may be null, which counts as empty.
 *  - on, checked, selected, open: 0 or 1.
 *  - value: a fraction.
 *  - count: a number.
 *  - result: the caller's, for orvel_widget_destroy(), or null.
 *  - text, title, name, items, initials, icon: raises std::bad_alloc when it cannot be copied.
 *
 * Hit testing is left to the host, which therefore needs to know what a widget covers: the
 * rectangle of @p w by @p h pixels at (x, y), or the size given with the constructor, where tw is
 * orvel_text_width() of the text. Texts are not clipped to their widget, and some kinds paint past
 * it, by one pixel unless more is said. Colours go by the names of their fields in the theme.
 */

/** A window: surface in a border frame, and along its top a band of accent, 12 rows high, with the
 * title in background. */
ORVEL_API orvel_widget* orvel_widget_window(orvel_canvas* canvas, const orvel_theme* theme,
                                            const char* title, int x, int y, int w, int h);
/** A panel: surface in a border frame. */
ORVEL_API orvel_widget* orvel_widget_panel(orvel_canvas* canvas, const orvel_theme* theme, int x,
                                           int y, int w, int h);
/** tw x 7: one line of words, without a ground. */
ORVEL_API orvel_widget* orvel_widget_label(orvel_canvas* canvas, const orvel_theme* theme,
                                           const char* text, int x, int y);
/** A push button: a framed box of the colour button, with its caption in the middle. Under the
 * pointer the box is button_hover. */
ORVEL_API orvel_widget* orvel_widget_button(orvel_canvas* canvas, const orvel_theme* theme,
                                            const char* text, int x, int y, int w, int h);
/** A switch: a framed track, accent when on and else border, and a round knob in background at its
 * right end when on and at its left end when off. */
ORVEL_API orvel_widget* orvel_widget_toggle(orvel_canvas* canvas, const orvel_theme* theme, int x,
                                            int y, int w, int h, int on);
/** tw + 13 x 9: a box of 9 x 9 with a tick when checked, and a caption to its right. */
ORVEL_API orvel_widget* orvel_widget_checkbox(orvel_canvas* canvas, const orvel_theme* theme,
                                              const char* text, int x, int y, int checked);
/** w x 9: a track of 3 rows and a knob of 9 x 9, whose middle is w times the value from the left:
 * at 0 and 1 half of it lies outside the width. Under the pointer the knob is button_hover, else
 * accent. */
ORVEL_API orvel_widget* orvel_widget_slider(orvel_canvas* canvas, const orvel_theme* theme, int x,
                                            int y, int w, double value);
/** A progress bar: a frame that fills from the left with accent; at 1 the filling covers the right
 * side of the frame. */
ORVEL_API orvel_widget* orvel_widget_progress(orvel_canvas* canvas, const orvel_theme* theme, int x,
                                              int y, int w, int h, double value);
/** A text field: surface in a frame, accent under the pointer and else border, with the text from
 * the left. It shows neither caret nor selection. */
ORVEL_API orvel_widget* orvel_widget_textbox(orvel_canvas* canvas, const orvel_theme* theme,
                                             const char* text, int x, int y, int w, int h);
/** size x size: the built-in icon @p name in accent, from a size of 9 on with a margin of one
 * pixel. */
ORVEL_API orvel_widget* orvel_widget_icon(orvel_canvas* canvas, const orvel_theme* theme,
                                          const char* name, int x, int y, int size);
/** The bitmap @p name of the resource folder "Icons", at its own size. */
ORVEL_API orvel_widget* orvel_widget_image(orvel_canvas* canvas, const orvel_theme* theme,
                                           const char* name, int x, int y);
/** A rule one pixel high from x to x + w, both ends included. */
ORVEL_API orvel_widget* orvel_widget_separator(orvel_canvas* canvas, const orvel_theme* theme,
                                               int x, int y, int w);
/** A card: surface in a border frame, with a stripe of accent 3 pixels wide down its left side. */
ORVEL_API orvel_widget* orvel_widget_card(orvel_canvas* canvas, const orvel_theme* theme, int x,
                                          int y, int w, int h);
/** tw + 13 x 9: a radio button, which is a circle with a dot in it, accent when selected and else
 * surface, and a caption to its right. One of several is selected at a time if the host sees to
 * it. */
ORVEL_API orvel_widget* orvel_widget_radio(orvel_canvas* canvas, const orvel_theme* theme,
                                           const char* text, int x, int y, int selected);
/** A drop-down field: surface in a frame, accent when open and else border, with the text from the
 * left and an arrow at the right. The list that opens is the host's to draw. */
ORVEL_API orvel_widget* orvel_widget_dropdown(orvel_canvas* canvas, const orvel_theme* theme,
                                              const char* text, int x, int y, int w, int h,
                                              int open);
/** size x size: a busy sign, a circle and a dot on it that may reach past the square. @p value is
 * the fraction of a clockwise turn from 3 o'clock that the dot has made; the host advances it. */
ORVEL_API orvel_widget* orvel_widget_spinner(orvel_canvas* canvas, const orvel_theme* theme, int x,
                                             int y, int size, double value);
/** 50 x 10: five stars, 10 pixels apart, of which the nearest whole number to 5 times the value are
 * accent, and the others border. @p value is a fraction. */
ORVEL_API orvel_widget* orvel_widget_rating(orvel_canvas* canvas, const orvel_theme* theme, int x,
                                            int y, double value);
/** A number between a minus and a plus, each in a framed square of the height; @p value is a
 * number of any size. */
ORVEL_API orvel_widget* orvel_widget_stepper(orvel_canvas* canvas, const orvel_theme* theme, int x,
                                             int y, int w, int h, int value);
/** Tabs side by side, each w / n pixels wide for n of them; the remainder stays empty at the right.
 * @p items are the captions, joined with "|"; @p selected is the number of the open one, from 0:
 * it is surface under a line of accent. */
ORVEL_API orvel_widget* orvel_widget_tabs(orvel_canvas* canvas, const orvel_theme* theme,
                                          const char* items, int x, int y, int w, int h,
                                          int selected);
/** A disc of accent with an outline, size + 1 pixels across for an even size. The initials are
 * placed for one letter, and longer ones reach to the right; null @p initials are "?". */
ORVEL_API orvel_widget* orvel_widget_avatar(orvel_canvas* canvas, const orvel_theme* theme,
                                            const char* initials, int x, int y, int size);
/** A number on a rounded ground of accent: 14 x 11 for one digit and 6 more for each further
 * character. */
ORVEL_API orvel_widget* orvel_widget_badge(orvel_canvas* canvas, const orvel_theme* theme, int x,
                                           int y, int count);
/** A title bar: surface in a border frame, the title at the left, and at the right end three dots,
 * whose colours no theme changes. */
ORVEL_API orvel_widget* orvel_widget_titlebar(orvel_canvas* canvas, const orvel_theme* theme,
                                              const char* title, int x, int y, int w, int h);
/** A row of a list: background in a border frame, or button_hover in an accent one when selected;
 * at the left an icon of 16 x 16 and the text, at the right an arrow. @p icon is a built-in icon;
 * null or empty for none. */
ORVEL_API orvel_widget* orvel_widget_list_item(orvel_canvas* canvas, const orvel_theme* theme,
                                               const char* text, const char* icon, int x, int y,
                                               int w, int h, int selected);
/** A menu bar: items side by side, each w / n pixels wide for n of them, without a ground of its
 * own; the remainder stays empty at the right. @p items are the captions, joined with "|";
 * @p selected is the number of one, from 0: it is button_hover over a line of accent. */
ORVEL_API orvel_widget* orvel_widget_menu(orvel_canvas* canvas, const orvel_theme* theme,
                                          const char* items, int x, int y, int w, int h,
                                          int selected);
/** A bar chart: bars of accent in a frame, for n values one every w / n pixels, with a gap of one
 * pixel; the remainder stays empty at the right. Bars are at least 2 pixels apart, so more than
 * w / 2 values run past the right side. Draws nothing until orvel_widget_set_data() has given it
 * values. */
ORVEL_API orvel_widget* orvel_widget_bars(orvel_canvas* canvas, const orvel_theme* theme, int x,
                                          int y, int w, int h);
/** A search field: surface in a frame, accent when active and else border, with a magnifier in a
 * square of the height and the text to its right. */
ORVEL_API orvel_widget* orvel_widget_search(orvel_canvas* canvas, const orvel_theme* theme,
                                            const char* text, int x, int y, int w, int h);
/** tw + 8 x 12: a bubble of 10 rows with the text, and below its middle a pointer of 3 rows, the
 * last of which is outside. */
ORVEL_API orvel_widget* orvel_widget_tooltip(orvel_canvas* canvas, const orvel_theme* theme,
                                             const char* text, int x, int y);
/** A status bar: a line of text on surface, under a rule from x to x + w, both ends included. */
ORVEL_API orvel_widget* orvel_widget_statusbar(orvel_canvas* canvas, const orvel_theme* theme,
                                               const char* text, int x, int y, int w, int h);

/** Releases a widget and its copies, not its canvas or theme; @p widget is taken. */
ORVEL_API void orvel_widget_destroy(orvel_widget* widget);

/*
 * Every setter works on every kind; state that a kind does not show is kept and not drawn.
 *  - on: 0 or 1.
 *  - value: a fraction.
 *  - amount, count: a number.
 *  - values: borrowed, @p count of them; null is refused.
 */

/** The pointer is over the widget: a button's face and a slider's knob are then button_hover, the
 * frame of a text field is accent. Shown by button, slider, textbox. */
ORVEL_API void orvel_widget_set_hover(orvel_widget* widget, int on);
/** On, checked, selected, open or focused. Shown by toggle, checkbox, radio, dropdown, search, list
 * item. */
ORVEL_API void orvel_widget_set_active(orvel_widget* widget, int on);
/** Clamped to [0, 1], NaN kept. Shown by slider, progress, spinner, rating. */
ORVEL_API void orvel_widget_set_value(orvel_widget* widget, double value);
/** Not clamped; of tabs and menu the selected index, none if out of range. Shown by stepper, badge,
 * tabs, menu. */
ORVEL_API void orvel_widget_set_amount(orvel_widget* widget, int amount);
/**
 * Replaces the values of a bar chart by a copy of @p count values, drawn clamped to [0, 1]. A count
 * of 0 empties the list. Null @p values or a negative count do nothing. All or nothing: when memory
 * runs out, it raises std::bad_alloc, and the old values stay. Shown by bars.
 */
ORVEL_API void orvel_widget_set_data(orvel_widget* widget, const double* values, int count);

/** Draws the widget on its canvas in the colours of its theme. Never changes the widget. Raises
 * std::bad_alloc; an image raises std::length_error as orvel_icon_draw_bitmap() does. */
ORVEL_API void orvel_widget_draw(orvel_widget* widget);

/* ---- Sound ---- */
/*
 * Effects play in the system's sound service, music and tones in processes of the system's player;
 * no call waits for the end of what it plays.
 *
 *  - macOS: effects are what the system-sound service takes (WAV, AIFF or CAF of at most 30
 *    seconds); music is what /usr/bin/afplay takes (WAV, AIFF, MP3, M4A).
 *  - Linux with PulseAudio or PipeWire: effects are what libsndfile reads (WAV, AIFF, CAF, Ogg
 *    Vorbis, FLAC and more, at any rate, of up to 32 channels), decoded to 16 bits within the call,
 *    up to 16 MiB of them, and handed over through libpulse (Debian: libsndfile1, libpulse0). A
 *    call waits at most two seconds for a server that does not answer; after that, effects return
 *    -1 at once for ten seconds. Music is what paplay or else pw-play takes (WAV, AIFF, MP3, Ogg);
 *    M4A needs mpv. A program at /usr/bin/afplay takes precedence over all of them.
 *  - Without a sound server or these programs: effects return -1; music and tones are silent, and
 *    their calls still return 0, since a player fails in its own process.
 *
 * A 16-bit WAV file plays everywhere, as music and, within these bounds, as effect.
 *
 * Players inherit the host's signal mask, and are children of the host: a host that waits for any
 * child may be told of them.
 */

/**
 * Plays the file @p name of the resource folder "Sounds" once, without waiting. Writes
 * "[OrvelSDK] suono: PATH" or "[OrvelSDK] suono non trovato: PATH" to the standard error stream.
 * It cannot be stopped; on Linux it is heard to its end even when the host has exited. Raises
 * std::bad_alloc.
 *
 * @return 0 when the system took the sound; -1 for null, a file that does not open, or a file that
 *         the system refuses. On Linux also for what is no regular file, when a library is not
 *         installed, when the server refuses or does not answer, and always in a child process
 *         forked after a first sound.
 */
ORVEL_API int orvel_play_sound(const char* name);

/**
 * Stops the music, then plays the file @p name of the resource folder "Music" once in a player
 * process. Writes "[OrvelSDK] musica: PATH" or "[OrvelSDK] musica non trovata: PATH" to the
 * standard error stream. The old music stops even when the new file is missing. Raises
 * std::bad_alloc.
 *
 * @return 0 when the player process was started, whether or not it can play the file; -1 for null
 *         (the music goes on), a file that does not open, or when no process can be started.
 */
ORVEL_API int orvel_play_music(const char* name);

/**
 * Ends the music: a player that still runs gets SIGTERM and is waited for, to the end of the track
 * if it inherited from the host that SIGTERM is blocked or ignored; one that has ended by itself
 * and was not reaped yet is reaped. Does nothing otherwise.
 */
ORVEL_API void orvel_stop_music(void);

/**
 * Plays a sine tone beside whatever else is playing. It is written as a 16-bit mono WAV file of
 * 44100 samples a second to /tmp/orvelsdk_tone.wav and played in a player process of its own, which
 * the library neither stops nor waits for. Writes "[OrvelSDK] tone: HZ Hz x MS ms" to the standard
 * error stream. Keep durations below 97392 ms: from there the 32-bit sample count wraps.
 *
 * A file that cannot be written is not reported; the player then plays whatever lies at that path.
 * A library that was built without a platform, which has no player, writes none.
 * Nothing is written to a link, a FIFO, a file with a second name or a file of another user. NaN
 * and infinite frequencies are silence. Raises std::bad_alloc.
 *
 * @param frequency_hz  in hertz, above 0.
 * @param duration_ms   in milliseconds, at least 1.
 * @return 0 when the player process was started; -1 for arguments out of range or when no process
 *         can be started.
 */
ORVEL_API int orvel_play_tone(double frequency_hz, int duration_ms);

#ifdef __cplusplus
}
#endif

#endif /* ORVEL_H */
