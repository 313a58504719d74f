"""The interfaces of OrvelSDK in C, for ctypes.

Made by scripts/describe from bindings/orvel_api.json: edit the headers, and run it. Texts are
bytes. Records are Structures with the names of C; what only the library sees into, an object, is a
Structure without fields, handled by its POINTER alone. None is null.
"""
from ctypes import (CFUNCTYPE, POINTER, Structure, c_char, c_char_p, c_double, c_int,
                    c_longlong, c_size_t, c_ubyte, c_uint, c_void_p)

from ._load import load


def _function(library, name, result, arguments, text):
    found = getattr(library, name)
    found.restype, found.argtypes, found.__doc__ = result, arguments, text
    return found


class orvel_canvas(Structure):
    """A picture in memory; made by orvel_canvas_create()."""


class orvel_widget(Structure):
    """One piece of user interface; made by the orvel_widget_ constructors."""


class orvel_color(Structure):
    """A colour: red, green, blue and alpha (255 is opaque), four bytes in this order in memory.

    r: red
    g: green
    b: blue
    a: alpha"""
    _fields_ = [("r", c_ubyte),
                ("g", c_ubyte),
                ("b", c_ubyte),
                ("a", c_ubyte)]


class orvel_theme(Structure):
    """The nine colours that widgets are drawn in. Plain memory of the host's: the library never
    allocates one. The field names are also the keys of theme files.

    background: list items; words and knobs on the accent
    surface: the ground of windows, fields and the open tab; a radio's dot
    text: words, the signs of fields and steppers
    accent: what is selected, filled, switched on or open
    border: frames, rules, tracks, what is off; a list item's arrow
    button: a button's face
    button_hover: it or a slider's knob under the pointer; selected list and menu items
    button_text: a button's caption
    error: no widget uses it; for the host's own drawing"""
    _fields_ = [("background", orvel_color),
                ("surface", orvel_color),
                ("text", orvel_color),
                ("accent", orvel_color),
                ("border", orvel_color),
                ("button", orvel_color),
                ("button_hover", orvel_color),
                ("button_text", orvel_color),
                ("error", orvel_color)]


ORVEL_VERSION = b"0.1.0"
ORVEL_WIDGET_WINDOW = 0
ORVEL_WIDGET_PANEL = 1
ORVEL_WIDGET_LABEL = 2
ORVEL_WIDGET_BUTTON = 3
ORVEL_WIDGET_TOGGLE = 4
ORVEL_WIDGET_CHECKBOX = 5
ORVEL_WIDGET_SLIDER = 6
ORVEL_WIDGET_PROGRESS = 7
ORVEL_WIDGET_TEXTBOX = 8
ORVEL_WIDGET_ICON = 9
ORVEL_WIDGET_IMAGE = 10
ORVEL_WIDGET_SEPARATOR = 11
ORVEL_WIDGET_CARD = 12
ORVEL_WIDGET_RADIO = 13
ORVEL_WIDGET_DROPDOWN = 14
ORVEL_WIDGET_SPINNER = 15
ORVEL_WIDGET_RATING = 16
ORVEL_WIDGET_STEPPER = 17
ORVEL_WIDGET_TABS = 18
ORVEL_WIDGET_AVATAR = 19
ORVEL_WIDGET_BADGE = 20
ORVEL_WIDGET_TITLEBAR = 21
ORVEL_WIDGET_LIST_ITEM = 22
ORVEL_WIDGET_MENU = 23
ORVEL_WIDGET_BARS = 24
ORVEL_WIDGET_SEARCH = 25
ORVEL_WIDGET_TOOLTIP = 26
ORVEL_WIDGET_STATUSBAR = 27

_OrvelSDK = load("OrvelSDK")
orvel_init = _function(
    _OrvelSDK, "orvel_init", c_int, [],
    """Marks the library as initialised and, unless it already was, writes
"[OrvelSDK] inizializzato (v0.1.0)" to the standard error stream. Always returns 0.

Returns: 0; never -1.""")
orvel_version = _function(
    _OrvelSDK, "orvel_version", c_char_p, [],
    """The version of the library, "0.1.0". A static string: never null, never freed.""")
orvel_shutdown = _function(
    _OrvelSDK, "orvel_shutdown", None, [],
    """Clears the initialised mark and, if it was set, writes "[OrvelSDK] chiuso" to the standard error
stream. Nothing is released: the resource root stays in force and music goes on.""")
orvel_set_resource_path = _function(
    _OrvelSDK, "orvel_set_resource_path", c_int, [c_char_p],
    """Sets the resource root: the folder that holds "Sounds", "Music", "Icons" and "UI". The path is
copied and used exactly as given; it need not exist. An empty path unsets the root, which then is
the folder Resources under the directory named by the environment variable ORVELSDK_PATH or,
where that is unset or empty, under the current working directory.

A resource name without a dot stands for the first file that opens among name.wav, .mp3, .bmp,
.json, .m4a, .aiff and .png; a name with a dot is used as it is.

Raises std::bad_alloc.

Returns: 0, or -1 when `path` is null, which leaves the old root in force.
Where it raises, the process ends: call kit_resource_path().""")
orvel_canvas_create = _function(
    _OrvelSDK, "orvel_canvas_create", POINTER(orvel_canvas), [c_int, c_int],
    """Makes a canvas of `width` x `height` pixels, all opaque black. Null when a side is below 1 or
the record cannot be allocated; raises std::bad_alloc when the pixels cannot.

Returns: the caller's, for orvel_canvas_destroy(), or null.
Where it raises, the process ends: call kit_canvas().""")
orvel_canvas_destroy = _function(
    _OrvelSDK, "orvel_canvas_destroy", None, [POINTER(orvel_canvas)],
    """Releases a canvas; `canvas` is taken. No widget made for it may be drawn afterwards.""")
orvel_canvas_width = _function(
    _OrvelSDK, "orvel_canvas_width", c_int, [POINTER(orvel_canvas)],
    """in pixels; 0 for null""")
orvel_canvas_height = _function(
    _OrvelSDK, "orvel_canvas_height", c_int, [POINTER(orvel_canvas)],
    """in pixels; 0 for null""")
orvel_canvas_clear = _function(
    _OrvelSDK, "orvel_canvas_clear", None, [POINTER(orvel_canvas), orvel_color],
    """Sets every pixel to `color`.""")
orvel_canvas_pixel = _function(
    _OrvelSDK, "orvel_canvas_pixel", None, [POINTER(orvel_canvas), c_int, c_int, orvel_color],
    """Sets the pixel (x, y); ignored outside the canvas.""")
orvel_canvas_pixel_get = _function(
    _OrvelSDK, "orvel_canvas_pixel_get", orvel_color, [POINTER(orvel_canvas), c_int, c_int],
    """The pixel (x, y); all zero outside the canvas, as a stored transparent black would be, too.""")
orvel_canvas_line = _function(
    _OrvelSDK, "orvel_canvas_line", None, [POINTER(orvel_canvas), c_int, c_int, c_int, c_int,
                                           orvel_color],
    """A line of single pixels, both ends included, by Bresenham's integer algorithm
(IBM Systems Journal 4(1), 1965) for all octants. Exact between any two points.""")
orvel_canvas_rect = _function(
    _OrvelSDK, "orvel_canvas_rect", None, [POINTER(orvel_canvas), c_int, c_int, c_int, c_int,
                                           orvel_color],
    """The one-pixel outline of the `w` x `h` box at (x, y), inside the box: four lines. Nothing when
`w` or `h` is below 1.""")
orvel_canvas_fill_rect = _function(
    _OrvelSDK, "orvel_canvas_fill_rect", None, [POINTER(orvel_canvas), c_int, c_int, c_int, c_int,
                                                orvel_color],
    """Fills the box [x, x + w) x [y, y + h). Nothing when `w` or `h` is below 1.""")
orvel_canvas_circle = _function(
    _OrvelSDK, "orvel_canvas_circle", None, [POINTER(orvel_canvas), c_int, c_int, c_int,
                                             orvel_color],
    """The outline of a circle around (cx, cy): a midpoint rule that starts from d = 3 - 2r and tests d
before it is stepped. A radius of 0 is one pixel, a negative one nothing.""")
orvel_canvas_fill_circle = _function(
    _OrvelSDK, "orvel_canvas_fill_circle", None, [POINTER(orvel_canvas), c_int, c_int, c_int,
                                                  orvel_color],
    """A filled disc: on each row dy the span of the truncated square root of r^2 - dy^2 to both sides,
so its edge differs a little from that of orvel_canvas_circle(). The difference is formed in 32
bits: with a radius above 46340 it wraps, and a row on which it is negative is left out. A radius
of 0 is one pixel, a negative one nothing.""")
orvel_canvas_fill_triangle = _function(
    _OrvelSDK, "orvel_canvas_fill_triangle", None, [POINTER(orvel_canvas), c_int, c_int, c_int,
                                                    c_int, c_int, c_int, orvel_color],
    """A filled triangle, its edges included, by edge functions (Pineda, SIGGRAPH 1988); both windings
fill. Three points on one line fill that whole line within their rows: three points on one row
fill the row from edge to edge of the canvas. The edge functions are formed in 32 bits; they are
exact while no coordinate lies further than 16384 from zero and no side of the canvas is longer.
Beyond that, every pixel of the visible rows is tested.""")
orvel_canvas_save_bmp = _function(
    _OrvelSDK, "orvel_canvas_save_bmp", c_int, [POINTER(orvel_canvas), c_char_p],
    """Writes the canvas to the file `path` as a 24-bit BMP, bottom row first, without alpha. Raises
std::bad_alloc.

Returns: 0 once the file is open: whether the writes after that succeed is not checked. -1 for
    null arguments and when the file cannot be opened for writing.
Where it raises, the process ends: call kit_save_bmp().""")
orvel_canvas_save_bmp_rgba = _function(
    _OrvelSDK, "orvel_canvas_save_bmp_rgba", c_int, [POINTER(orvel_canvas), c_char_p],
    """Writes the canvas as a 32-bit BMP with alpha. Its compression field holds 255, which many readers
refuse; orvel_icon_draw_bitmap() reads it. Raises std::bad_alloc.

Returns: 0 or -1, as for orvel_canvas_save_bmp().
Where it raises, the process ends: call kit_save_bmp_rgba().""")
orvel_text_width = _function(
    _OrvelSDK, "orvel_text_width", c_int, [c_char_p],
    """The width of `text` in pixels: 6 a byte, less the last gap; 0 for null or empty. Every byte
counts, newlines too. The height of a text is always 7.""")
orvel_text_draw = _function(
    _OrvelSDK, "orvel_text_draw", None, [POINTER(orvel_canvas), c_char_p, c_int, c_int,
                                         orvel_color],
    """Draws `text` with the top left corner of its first cell at (x, y). A cell is 5 x 7 pixels, the
next one starts 6 further right. Clear bits leave the canvas as it is. A newline (10) is skipped:
it moves nothing and starts no new line. Every other byte outside 32 ... 126 is a blank cell.

The shapes are the library's own and are not the letters: each cell shows seven consecutive bytes
of a font stored by columns, read as rows.""")
orvel_icon_list = _function(
    _OrvelSDK, "orvel_icon_list", POINTER(c_char_p), [POINTER(c_int)],
    """The names of the 68 built-in icons, in their fixed order.

count: written: a number, 68; may be null.
Returns: the library's own table, `count` of them; static, never null; do not write to it.""")
orvel_icon_exists = _function(
    _OrvelSDK, "orvel_icon_exists", c_int, [c_char_p],
    """Returns: 1 when `name` is exactly one of the 68 names, else 0.""")
orvel_draw_icon = _function(
    _OrvelSDK, "orvel_draw_icon", c_int, [POINTER(orvel_canvas), c_char_p, c_int, c_int, c_int,
                                          orvel_color],
    """Draws the built-in icon `name` in the square of side `size` at (x, y), in one colour. Its
cut-outs take the colour of the canvas at (x, y), or opaque black where that is transparent or
outside.

Two designs measure from the top of the canvas and look as intended only where y is 0: further
down, "home" loses its body, and the stem of "power" reaches past the square. To place them
anywhere, draw them on a canvas of their own and copy it, which is what kit_icon() of the kit
does.

Returns: 0; -1 for null arguments or a size below 1, which draw nothing, and for an unknown
    name, which draws a one-pixel frame of the square.""")
orvel_draw_icon_ex = _function(
    _OrvelSDK, "orvel_draw_icon_ex", c_int, [POINTER(orvel_canvas), c_char_p, c_int, c_int, c_int,
                                             orvel_color, orvel_color, orvel_color],
    """As orvel_draw_icon(), with the colours of the design's details (`accent`) and of its cut-outs
(`background`) given.

Returns: 0 or -1, as for orvel_draw_icon().""")
orvel_icon_draw_bitmap = _function(
    _OrvelSDK, "orvel_icon_draw_bitmap", c_int, [POINTER(orvel_canvas), c_char_p, c_int, c_int],
    """Draws the BMP file `name` of the resource folder "Icons" at its own size, its top left corner at
(x, y). Of the header, the offset of the pixels, the width, the height and the depth are read and
the rest is ignored: 24 and 32 bits a pixel, rows in either order. A pixel of a 32-bit file with
alpha 0 is skipped, any other replaces the canvas pixel. The file is not trusted: whatever it
holds, the call neither reads nor writes outside memory, does not block, and costs no more than
what is visible; a file that ends early, or that can no longer be read, shows the rows before
that.

A width whose row, rounded up to 4 bytes, is negative as a 32-bit number raises
std::length_error: -2, for example, or 0x20000000 at 32 bits. A C host that draws files of
strangers looks at the four bytes at offset 18 first. Raises std::bad_alloc, too.

Returns: 0 when the file was accepted; -1 for null arguments, a file that cannot be opened, a
    header shorter than 54 bytes or without "BM", and any other depth.
Where it raises, the process ends: call kit_bitmap().""")
orvel_theme_default = _function(
    _OrvelSDK, "orvel_theme_default", None, [POINTER(orvel_theme)],
    """The dark theme, all nine fields; `theme` is written.""")
orvel_theme_light = _function(
    _OrvelSDK, "orvel_theme_light", None, [POINTER(orvel_theme)],
    """The light theme, all nine fields; `theme` is written.""")
orvel_theme_load = _function(
    _OrvelSDK, "orvel_theme_load", c_int, [POINTER(orvel_theme), c_char_p],
    """Reads the theme file `name` of the resource folder "UI"; `theme` is changed. For each of the
nine keys in double quotes, the next quoted text after the next colon is its colour, "#rrggbb". A
key that is missing or whose value is empty keeps its field, so fill the record first. A value of
fewer than six characters after the '#' is white; a bad digit counts as 0; alpha becomes 255. The
whole file is read into memory, whatever its size; when memory runs out, the record stays as it
was. A read that fails counts as the end of the file. Raises std::bad_alloc.

Returns: 0 when the file was opened, whatever it held; -1 for null arguments or when it cannot
    be opened.
Where it raises, the process ends: call kit_theme_load().""")
orvel_theme_save = _function(
    _OrvelSDK, "orvel_theme_save", c_int, [POINTER(orvel_theme), c_char_p],
    """Writes `theme` to the file `name` of the resource folder "UI", 264 bytes, without alpha. A name
without a dot overwrites the file that loading it would find; if there is none, the file gets
exactly that name. No folder is made. Raises std::bad_alloc.

Returns: 0 once the file is open; -1 for null arguments or when it cannot be opened.
Where it raises, the process ends: call kit_theme_save().""")
orvel_widget_window = _function(
    _OrvelSDK, "orvel_widget_window", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                              POINTER(orvel_theme), c_char_p,
                                                              c_int, c_int, c_int, c_int],
    """A window: surface in a border frame, and along its top a band of accent, 12 rows high, with the
title in background.

Where it raises, the process ends.""")
orvel_widget_panel = _function(
    _OrvelSDK, "orvel_widget_panel", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                             POINTER(orvel_theme), c_int, c_int,
                                                             c_int, c_int],
    """A panel: surface in a border frame.""")
orvel_widget_label = _function(
    _OrvelSDK, "orvel_widget_label", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                             POINTER(orvel_theme), c_char_p, c_int,
                                                             c_int],
    """tw x 7: one line of words, without a ground.

Where it raises, the process ends.""")
orvel_widget_button = _function(
    _OrvelSDK, "orvel_widget_button", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                              POINTER(orvel_theme), c_char_p,
                                                              c_int, c_int, c_int, c_int],
    """A push button: a framed box of the colour button, with its caption in the middle. Under the
pointer the box is button_hover.

Where it raises, the process ends.""")
orvel_widget_toggle = _function(
    _OrvelSDK, "orvel_widget_toggle", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                              POINTER(orvel_theme), c_int, c_int,
                                                              c_int, c_int, c_int],
    """A switch: a framed track, accent when on and else border, and a round knob in background at its
right end when on and at its left end when off.""")
orvel_widget_checkbox = _function(
    _OrvelSDK, "orvel_widget_checkbox", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                                POINTER(orvel_theme), c_char_p,
                                                                c_int, c_int, c_int],
    """tw + 13 x 9: a box of 9 x 9 with a tick when checked, and a caption to its right.

Where it raises, the process ends.""")
orvel_widget_slider = _function(
    _OrvelSDK, "orvel_widget_slider", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                              POINTER(orvel_theme), c_int, c_int,
                                                              c_int, c_double],
    """w x 9: a track of 3 rows and a knob of 9 x 9, whose middle is w times the value from the left:
at 0 and 1 half of it lies outside the width. Under the pointer the knob is button_hover, else
accent.""")
orvel_widget_progress = _function(
    _OrvelSDK, "orvel_widget_progress", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                                POINTER(orvel_theme), c_int, c_int,
                                                                c_int, c_int, c_double],
    """A progress bar: a frame that fills from the left with accent; at 1 the filling covers the right
side of the frame.""")
orvel_widget_textbox = _function(
    _OrvelSDK, "orvel_widget_textbox", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                               POINTER(orvel_theme), c_char_p,
                                                               c_int, c_int, c_int, c_int],
    """A text field: surface in a frame, accent under the pointer and else border, with the text from
the left. It shows neither caret nor selection.

Where it raises, the process ends.""")
orvel_widget_icon = _function(
    _OrvelSDK, "orvel_widget_icon", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                            POINTER(orvel_theme), c_char_p, c_int,
                                                            c_int, c_int],
    """size x size: the built-in icon `name` in accent, from a size of 9 on with a margin of one
pixel.

Where it raises, the process ends.""")
orvel_widget_image = _function(
    _OrvelSDK, "orvel_widget_image", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                             POINTER(orvel_theme), c_char_p, c_int,
                                                             c_int],
    """The bitmap `name` of the resource folder "Icons", at its own size.

Where it raises, the process ends.""")
orvel_widget_separator = _function(
    _OrvelSDK, "orvel_widget_separator", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                                 POINTER(orvel_theme), c_int,
                                                                 c_int, c_int],
    """A rule one pixel high from x to x + w, both ends included.""")
orvel_widget_card = _function(
    _OrvelSDK, "orvel_widget_card", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                            POINTER(orvel_theme), c_int, c_int,
                                                            c_int, c_int],
    """A card: surface in a border frame, with a stripe of accent 3 pixels wide down its left side.""")
orvel_widget_radio = _function(
    _OrvelSDK, "orvel_widget_radio", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                             POINTER(orvel_theme), c_char_p, c_int,
                                                             c_int, c_int],
    """tw + 13 x 9: a radio button, which is a circle with a dot in it, accent when selected and else
surface, and a caption to its right. One of several is selected at a time if the host sees to
it.

Where it raises, the process ends.""")
orvel_widget_dropdown = _function(
    _OrvelSDK, "orvel_widget_dropdown", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                                POINTER(orvel_theme), c_char_p,
                                                                c_int, c_int, c_int, c_int, c_int],
    """A drop-down field: surface in a frame, accent when open and else border, with the text from the
left and an arrow at the right. The list that opens is the host's to draw.

Where it raises, the process ends.""")
orvel_widget_spinner = _function(
    _OrvelSDK, "orvel_widget_spinner", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                               POINTER(orvel_theme), c_int, c_int,
                                                               c_int, c_double],
    """size x size: a busy sign, a circle and a dot on it that may reach past the square. `value` is
the fraction of a clockwise turn from 3 o'clock that the dot has made; the host advances it.""")
orvel_widget_rating = _function(
    _OrvelSDK, "orvel_widget_rating", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                              POINTER(orvel_theme), c_int, c_int,
                                                              c_double],
    """50 x 10: five stars, 10 pixels apart, of which the nearest whole number to 5 times the value are
accent, and the others border. `value` is a fraction.""")
orvel_widget_stepper = _function(
    _OrvelSDK, "orvel_widget_stepper", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                               POINTER(orvel_theme), c_int, c_int,
                                                               c_int, c_int, c_int],
    """A number between a minus and a plus, each in a framed square of the height; `value` is a
number of any size.""")
orvel_widget_tabs = _function(
    _OrvelSDK, "orvel_widget_tabs", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                            POINTER(orvel_theme), c_char_p, c_int,
                                                            c_int, c_int, c_int, c_int],
    """Tabs side by side, each w / n pixels wide for n of them; the remainder stays empty at the right.
`items` are the captions, joined with "|"; `selected` is the number of the open one, from 0:
it is surface under a line of accent.

Where it raises, the process ends.""")
orvel_widget_avatar = _function(
    _OrvelSDK, "orvel_widget_avatar", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                              POINTER(orvel_theme), c_char_p,
                                                              c_int, c_int, c_int],
    """A disc of accent with an outline, size + 1 pixels across for an even size. The initials are
placed for one letter, and longer ones reach to the right; null `initials` are "?".

Where it raises, the process ends.""")
orvel_widget_badge = _function(
    _OrvelSDK, "orvel_widget_badge", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                             POINTER(orvel_theme), c_int, c_int,
                                                             c_int],
    """A number on a rounded ground of accent: 14 x 11 for one digit and 6 more for each further
character.""")
orvel_widget_titlebar = _function(
    _OrvelSDK, "orvel_widget_titlebar", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                                POINTER(orvel_theme), c_char_p,
                                                                c_int, c_int, c_int, c_int],
    """A title bar: surface in a border frame, the title at the left, and at the right end three dots,
whose colours no theme changes.

Where it raises, the process ends.""")
orvel_widget_list_item = _function(
    _OrvelSDK, "orvel_widget_list_item", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                                 POINTER(orvel_theme), c_char_p,
                                                                 c_char_p, c_int, c_int, c_int,
                                                                 c_int, c_int],
    """A row of a list: background in a border frame, or button_hover in an accent one when selected;
at the left an icon of 16 x 16 and the text, at the right an arrow. `icon` is a built-in icon;
null or empty for none.

Where it raises, the process ends.""")
orvel_widget_menu = _function(
    _OrvelSDK, "orvel_widget_menu", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                            POINTER(orvel_theme), c_char_p, c_int,
                                                            c_int, c_int, c_int, c_int],
    """A menu bar: items side by side, each w / n pixels wide for n of them, without a ground of its
own; the remainder stays empty at the right. `items` are the captions, joined with "|";
`selected` is the number of one, from 0: it is button_hover over a line of accent.

Where it raises, the process ends.""")
orvel_widget_bars = _function(
    _OrvelSDK, "orvel_widget_bars", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                            POINTER(orvel_theme), c_int, c_int,
                                                            c_int, c_int],
    """A bar chart: bars of accent in a frame, for n values one every w / n pixels, with a gap of one
pixel; the remainder stays empty at the right. Bars are at least 2 pixels apart, so more than
w / 2 values run past the right side. Draws nothing until orvel_widget_set_data() has given it
values.""")
orvel_widget_search = _function(
    _OrvelSDK, "orvel_widget_search", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                              POINTER(orvel_theme), c_char_p,
                                                              c_int, c_int, c_int, c_int],
    """A search field: surface in a frame, accent when active and else border, with a magnifier in a
square of the height and the text to its right.

Where it raises, the process ends.""")
orvel_widget_tooltip = _function(
    _OrvelSDK, "orvel_widget_tooltip", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                               POINTER(orvel_theme), c_char_p,
                                                               c_int, c_int],
    """tw + 8 x 12: a bubble of 10 rows with the text, and below its middle a pointer of 3 rows, the
last of which is outside.

Where it raises, the process ends.""")
orvel_widget_statusbar = _function(
    _OrvelSDK, "orvel_widget_statusbar", POINTER(orvel_widget), [POINTER(orvel_canvas),
                                                                 POINTER(orvel_theme), c_char_p,
                                                                 c_int, c_int, c_int, c_int],
    """A status bar: a line of text on surface, under a rule from x to x + w, both ends included.

Where it raises, the process ends.""")
orvel_widget_destroy = _function(
    _OrvelSDK, "orvel_widget_destroy", None, [POINTER(orvel_widget)],
    """Releases a widget and its copies, not its canvas or theme; `widget` is taken.""")
orvel_widget_set_hover = _function(
    _OrvelSDK, "orvel_widget_set_hover", None, [POINTER(orvel_widget), c_int],
    """The pointer is over the widget: a button's face and a slider's knob are then button_hover, the
frame of a text field is accent. Shown by button, slider, textbox.""")
orvel_widget_set_active = _function(
    _OrvelSDK, "orvel_widget_set_active", None, [POINTER(orvel_widget), c_int],
    """On, checked, selected, open or focused. Shown by toggle, checkbox, radio, dropdown, search, list
item.""")
orvel_widget_set_value = _function(
    _OrvelSDK, "orvel_widget_set_value", None, [POINTER(orvel_widget), c_double],
    """Clamped to [0, 1], NaN kept. Shown by slider, progress, spinner, rating.""")
orvel_widget_set_amount = _function(
    _OrvelSDK, "orvel_widget_set_amount", None, [POINTER(orvel_widget), c_int],
    """Not clamped; of tabs and menu the selected index, none if out of range. Shown by stepper, badge,
tabs, menu.""")
orvel_widget_set_data = _function(
    _OrvelSDK, "orvel_widget_set_data", None, [POINTER(orvel_widget), POINTER(c_double), c_int],
    """Replaces the values of a bar chart by a copy of `count` values, drawn clamped to [0, 1]. A count
of 0 empties the list. Null `values` or a negative count do nothing. All or nothing: when memory
runs out, it raises std::bad_alloc, and the old values stay. Shown by bars.

Where it raises, the process ends.""")
orvel_widget_draw = _function(
    _OrvelSDK, "orvel_widget_draw", None, [POINTER(orvel_widget)],
    """Draws the widget on its canvas in the colours of its theme. Never changes the widget. Raises
std::bad_alloc; an image raises std::length_error as orvel_icon_draw_bitmap() does.

Where it raises, the process ends.""")
orvel_play_sound = _function(
    _OrvelSDK, "orvel_play_sound", c_int, [c_char_p],
    """Plays the file `name` of the resource folder "Sounds" once, without waiting. Writes
"[OrvelSDK] suono: PATH" or "[OrvelSDK] suono non trovato: PATH" to the standard error stream.
It cannot be stopped; on Linux it is heard to its end even when the host has exited. Raises
std::bad_alloc.

Returns: 0 when the system took the sound; -1 for null, a file that does not open, or a file
    that the system refuses. On Linux also for what is no regular file, when a library is not
    installed, when the server refuses or does not answer, and always in a child process forked
    after a first sound.
Where it raises, the process ends: call kit_play_sound().""")
orvel_play_music = _function(
    _OrvelSDK, "orvel_play_music", c_int, [c_char_p],
    """Stops the music, then plays the file `name` of the resource folder "Music" once in a player
process. Writes "[OrvelSDK] musica: PATH" or "[OrvelSDK] musica non trovata: PATH" to the
standard error stream. The old music stops even when the new file is missing. Raises
std::bad_alloc.

Returns: 0 when the player process was started, whether or not it can play the file; -1 for
    null (the music goes on), a file that does not open, or when no process can be started.
Where it raises, the process ends: call kit_play_music().""")
orvel_stop_music = _function(
    _OrvelSDK, "orvel_stop_music", None, [],
    """Ends the music: a player that still runs gets SIGTERM and is waited for, to the end of the track
if it inherited from the host that SIGTERM is blocked or ignored; one that has ended by itself
and was not reaped yet is reaped. Does nothing otherwise.""")
orvel_play_tone = _function(
    _OrvelSDK, "orvel_play_tone", c_int, [c_double, c_int],
    """Plays a sine tone beside whatever else is playing. It is written as a 16-bit mono WAV file of
44100 samples a second to /tmp/orvelsdk_tone.wav and played in a player process of its own, which
the library neither stops nor waits for. Writes "[OrvelSDK] tone: HZ Hz x MS ms" to the standard
error stream. Keep durations below 97392 ms: from there the 32-bit sample count wraps.

A file that cannot be written is not reported; the player then plays whatever lies at that path.
A library that was built without a platform, which has no player, writes none.
Nothing is written to a link, a FIFO, a file with a second name or a file of another user. NaN
and infinite frequencies are silence. Raises std::bad_alloc.

frequency_hz: in hertz, above 0.
duration_ms: in milliseconds, at least 1.
Returns: 0 when the player process was started; -1 for arguments out of range or when no
    process can be started.
Where it raises, the process ends: call kit_play_tone().""")


class kit_face(Structure):
    """A typeface in one size: its letters, and how they are spaced."""


class kit_box(Structure):
    """A rectangle: [x, x + w) x [y, y + h), in pixels. Empty when a side is below 1.

    x: left
    y: top
    w: width
    h: height"""
    _fields_ = [("x", c_int),
                ("y", c_int),
                ("w", c_int),
                ("h", c_int)]


class kit_format(Structure):
    """How pixels come out.

    layout: a kit_layout
    dither: a kit_dither; the layouts of four bytes need none
    turns: a number of quarter turns, clockwise if positive
    colors: the number of colours in the palette, 1 to 16
    palette: the panel's, alpha ignored, `colors` of them
    plane: the number of the colour that KIT_PLANE marks, from 0
    keep_alpha: 0 or 1: four-byte layouts get alpha 255, or what is stored"""
    _fields_ = [("layout", c_int),
                ("dither", c_int),
                ("turns", c_int),
                ("colors", c_int),
                ("palette", POINTER(orvel_color)),
                ("plane", c_int),
                ("keep_alpha", c_int),
                ("reserved", c_void_p * 4)]


class kit_widget(Structure):
    """One widget, as a plain record; a kind ignores what it has no use for. The order of the fields is
    part of the interface.

    kind: an orvel_widget_kind
    box: a width or height of 0 is what kit_size() says
    text: the caption; items of tabs and menus joined with "|"; the name of an icon or image;
        what a stepper or badge shows instead of its number, unless it is empty
    hint: what an empty text field shows, in the quiet colour
    icon: a built-in icon before the caption: list items, buttons
    face: of all its words
    state: of kit_state
    amount: of steppers and badges; the selected item of tabs and menus
    value: the fraction of sliders, progress bars, spinners and ratings
    data: the values of bars, 0 to 1, `count` of them
    count: how many values; below 1 none
    caret: of a text field with focus: the offset of the caret, in bytes
    anchor: the other end of its selection, in bytes
    scroll: in pixels, 1 more than kit_field() returned: a text longer than the field then moves
        only as far as its caret needs; below 1 the caret is in the middle"""
    _fields_ = [("kind", c_int),
                ("box", kit_box),
                ("text", c_char_p),
                ("hint", c_char_p),
                ("icon", c_char_p),
                ("face", POINTER(kit_face)),
                ("state", c_uint),
                ("amount", c_int),
                ("value", c_double),
                ("data", POINTER(c_double)),
                ("count", c_int),
                ("caret", c_int),
                ("anchor", c_int),
                ("scroll", c_int),
                ("reserved", c_void_p * 4)]


class kit_series(Structure):
    """One series of values.

    values: `count` of them; NaN or infinite is a missing value
    count: how many values
    color: alpha 0: the theme's accent, then others by number
    name: for the legend; may be null"""
    _fields_ = [("values", POINTER(c_double)),
                ("count", c_int),
                ("color", orvel_color),
                ("name", c_char_p),
                ("reserved", c_void_p * 2)]


class kit_chart(Structure):
    """A chart, as a plain record. The order of the fields is part of the interface.

    kind: a kit_chart_kind
    box: nothing is painted outside it; its ground is left as it is
    series: `count` of them
    count: how many series, 0 to 32
    low: a number, the lower end of the range
    high: a number, the upper end; when it equals low, the range is found from the values, with
        zero for areas, bars and gauges
    parts: of kit_chart_parts
    decimals: the number of decimals, 0 to 9 after clamping; ticks may need more
    unit: put behind the numbers, for instance " kW"
    labels: of the places from left to right, joined with "|"
    face: of all its words"""
    _fields_ = [("kind", c_int),
                ("box", kit_box),
                ("series", POINTER(kit_series)),
                ("count", c_int),
                ("low", c_double),
                ("high", c_double),
                ("parts", c_uint),
                ("decimals", c_int),
                ("unit", c_char_p),
                ("labels", c_char_p),
                ("face", POINTER(kit_face)),
                ("reserved", c_void_p * 4)]


KIT_VERSION = b"0.2.0"
KIT_RGBA = 0
KIT_BGRA = 1
KIT_RGB565_LE = 2
KIT_RGB565_BE = 3
KIT_GREY8 = 4
KIT_GREY4 = 5
KIT_GREY2 = 6
KIT_GREY1 = 7
KIT_INDEX8 = 8
KIT_INDEX4 = 9
KIT_PLANE = 10
KIT_DITHER_NONE = 0
KIT_DITHER_ORDERED = 1
KIT_DITHER_DIFFUSED = 2
KIT_LEFT = 0
KIT_CENTRE = 1
KIT_RIGHT = 2
KIT_HOVER = 1
KIT_ACTIVE = 2
KIT_FOCUS = 4
KIT_DISABLED = 8
KIT_CHART_LINE = 0
KIT_CHART_AREA = 1
KIT_CHART_SPARK = 2
KIT_CHART_BARS = 3
KIT_CHART_STACKED = 4
KIT_CHART_GAUGE = 5
KIT_CHART_AXES = 1
KIT_CHART_LABELS = 2
KIT_CHART_LEGEND = 4

_OrvelKit = load("OrvelKit")
kit_version = _function(
    _OrvelKit, "kit_version", c_char_p, [],
    """The version of the kit. A static string: never null, never freed.""")
kit_canvas = _function(
    _OrvelKit, "kit_canvas", POINTER(orvel_canvas), [c_int, c_int],
    """orvel_canvas_create(), guarded: null also when the pixels do not fit into memory.""")
kit_bitmap = _function(
    _OrvelKit, "kit_bitmap", c_int, [POINTER(orvel_canvas), c_char_p, c_int, c_int],
    """orvel_icon_draw_bitmap(), guarded: -1 for every file that it cannot draw.""")
kit_theme_load = _function(
    _OrvelKit, "kit_theme_load", c_int, [POINTER(orvel_theme), c_char_p],
    """orvel_theme_load(), guarded.""")
kit_theme_save = _function(
    _OrvelKit, "kit_theme_save", c_int, [POINTER(orvel_theme), c_char_p],
    """orvel_theme_save(), guarded.""")
kit_save_bmp = _function(
    _OrvelKit, "kit_save_bmp", c_int, [POINTER(orvel_canvas), c_char_p],
    """orvel_canvas_save_bmp(), guarded.""")
kit_save_bmp_rgba = _function(
    _OrvelKit, "kit_save_bmp_rgba", c_int, [POINTER(orvel_canvas), c_char_p],
    """orvel_canvas_save_bmp_rgba(), guarded.""")
kit_resource_path = _function(
    _OrvelKit, "kit_resource_path", c_int, [c_char_p],
    """orvel_set_resource_path(), guarded.""")
kit_play_sound = _function(
    _OrvelKit, "kit_play_sound", c_int, [c_char_p],
    """orvel_play_sound(), guarded.""")
kit_play_music = _function(
    _OrvelKit, "kit_play_music", c_int, [c_char_p],
    """orvel_play_music(), guarded.""")
kit_play_tone = _function(
    _OrvelKit, "kit_play_tone", c_int, [c_double, c_int],
    """orvel_play_tone(), guarded.""")
kit_mix = _function(
    _OrvelKit, "kit_mix", orvel_color, [orvel_color, orvel_color, c_int],
    """The colour that lies `percent` of the way between `from` and `to`; each of the four channels
 is rounded toward `from`. The percentage is clamped to [0, 100].""")
kit_grey = _function(
    _OrvelKit, "kit_grey", c_int, [orvel_color],
    """The lightness of a colour, a number from 0 to 255: (2126 r + 7152 g + 722 b + 5000) / 10000.""")
kit_copy = _function(
    _OrvelKit, "kit_copy", c_int, [POINTER(orvel_canvas), c_int, c_int, POINTER(orvel_canvas),
                                   POINTER(kit_box)],
    """Copies the box `part` of `from` to the point (x, y) of `to`, pixel by pixel, alpha included;
what lies outside either canvas is left out. Both may be the same canvas, and the boxes may
overlap.

part: borrowed; may be null, which is all of `from`.
Returns: 0; -1 for a null canvas.""")
kit_stamp = _function(
    _OrvelKit, "kit_stamp", c_int, [POINTER(orvel_canvas), c_int, c_int, POINTER(orvel_canvas),
                                    POINTER(kit_box)],
    """As kit_copy(), but pixels of `from` with alpha 0 are skipped.

part: borrowed; may be null, which is all of `from`.
Returns: 0; -1 for a null canvas.""")
kit_icon = _function(
    _OrvelKit, "kit_icon", c_int, [POINTER(orvel_canvas), c_char_p, c_int, c_int, c_int,
                                   orvel_color],
    """Draws a built-in icon as orvel_draw_icon() draws it at the top left of a canvas of its own,
clipped to its square. Two icons, "home" and "power", look different further down a canvas; this
way they look the same everywhere. Cut-outs take the colour of the pixel in the top left corner
of the square or, where that is off the canvas, of the pixel of the square nearest to it.

size: in pixels.
Returns: 0; -1 for null, an unknown name, a size below 1 or above 16384, and when memory runs
    out; nothing is then drawn.""")
kit_clip_begin = _function(
    _OrvelKit, "kit_clip_begin", POINTER(orvel_canvas), [POINTER(orvel_canvas), POINTER(kit_box)],
    """Begins drawing that stays inside `box`: clips the box to the canvas and returns a new canvas of
exactly that size, with a copy of what is there. Subtract the box's new x and y from what you
draw on it, then pass both to kit_clip_end(). No pixel outside the box changes.

box: changed; null is refused.
Returns: the caller's, for orvel_canvas_destroy() or kit_clip_end(); null when no part of the
    box is on the canvas or memory runs out, and the box then stays as it was.""")
kit_clip_end = _function(
    _OrvelKit, "kit_clip_end", c_int, [POINTER(orvel_canvas), POINTER(kit_box),
                                       POINTER(orvel_canvas)],
    """Copies `inside` back to `box` on the canvas, and destroys it, even when the canvas or the box
is null.

inside: taken; null is refused.
Returns: 0; -1 for null, and when `inside` is the canvas itself, which is not destroyed.""")
kit_pixels_stride = _function(
    _OrvelKit, "kit_pixels_stride", c_size_t, [POINTER(kit_format), c_int],
    """The size in bytes of a row of `width` pixels, counted after the turn; 0 for an invalid format,
 a width below 1, and a size beyond the range of size_t.""")
kit_pixels = _function(
    _OrvelKit, "kit_pixels", c_int, [POINTER(orvel_canvas), POINTER(kit_box), POINTER(kit_format),
                                     c_void_p, c_size_t, c_size_t],
    """Writes the pixels of `box` to memory, as the format says. Rows come from the top of the turned
picture, each starting `stride` bytes after the one before; a stride of 0 is what
kit_pixels_stride() says. The unused bits of a row's last byte are 0; bytes between the rows are
left alone. Nothing is written unless all of it fits.

A format is invalid when its layout or dither is none of kit_layout or kit_dither and, with a
layout that needs them, when the palette is null, the number of colours is out of range, or there
is no colour of the number plane. Other fields may hold anything.

box: borrowed; may be null, which is all of the canvas.
to: written, `size` of its bytes; null is refused.
Returns: 0; -1 for null, a box that is empty or not wholly on the canvas, an invalid format, a
    stride shorter than a row, a size too small for the rows (the last one ends where its
    pixels do), and when memory runs out.""")
kit_sans_11 = _function(
    _OrvelKit, "kit_sans_11", POINTER(kit_face), [],
    """""")
kit_sans_12 = _function(
    _OrvelKit, "kit_sans_12", POINTER(kit_face), [],
    """""")
kit_sans_14 = _function(
    _OrvelKit, "kit_sans_14", POINTER(kit_face), [],
    """""")
kit_sans_18 = _function(
    _OrvelKit, "kit_sans_18", POINTER(kit_face), [],
    """""")
kit_sans_24 = _function(
    _OrvelKit, "kit_sans_24", POINTER(kit_face), [],
    """""")
kit_sans_40 = _function(
    _OrvelKit, "kit_sans_40", POINTER(kit_face), [],
    """""")
kit_bold_11 = _function(
    _OrvelKit, "kit_bold_11", POINTER(kit_face), [],
    """""")
kit_bold_12 = _function(
    _OrvelKit, "kit_bold_12", POINTER(kit_face), [],
    """""")
kit_bold_14 = _function(
    _OrvelKit, "kit_bold_14", POINTER(kit_face), [],
    """""")
kit_bold_18 = _function(
    _OrvelKit, "kit_bold_18", POINTER(kit_face), [],
    """""")
kit_bold_24 = _function(
    _OrvelKit, "kit_bold_24", POINTER(kit_face), [],
    """""")
kit_mono_12 = _function(
    _OrvelKit, "kit_mono_12", POINTER(kit_face), [],
    """""")
kit_digits_64 = _function(
    _OrvelKit, "kit_digits_64", POINTER(kit_face), [],
    """""")
kit_digits_96 = _function(
    _OrvelKit, "kit_digits_96", POINTER(kit_face), [],
    """""")
kit_face_named = _function(
    _OrvelKit, "kit_face_named", POINTER(kit_face), [c_char_p],
    """The built-in face of that name: "sans 12", "digits 96". A program that links the static kit and
calls this contains all the faces.

Returns: static; null when there is none.""")
kit_face_open = _function(
    _OrvelKit, "kit_face_open", POINTER(kit_face), [c_char_p, POINTER(c_char), c_size_t],
    """Reads a bitmap font in the Glyph Bitmap Distribution Format (BDF 2.1, Adobe 1993; of 2.2, widths
for the whole font). The file is not trusted: it has at most 16 MiB, time and memory stay in
proportion to its size, and a FIFO is not waited for.
 - The codes are those of Unicode, of a character set that agrees with it (ISO8859-1, ASCII), or
   of symbols that belong to no set (FontSpecific). Fonts in another set are refused.
 - Of several letters with the same code the first counts; letters without a code are left out.
   If there is no U+FFFD, the letter of the property DEFAULT_CHAR stands for it.
 - Sides, offsets and advances are at most 4096 pixels, and no advance is negative.

Returns: the caller's, for kit_face_close(); null, and the reason as "PATH:LINE: what is
    wrong", when it is refused.""")
kit_face_read = _function(
    _OrvelKit, "kit_face_read", POINTER(kit_face), [c_void_p, c_size_t, POINTER(c_char), c_size_t],
    """As kit_face_open(), from memory; reasons begin with "font" instead of a path.

bytes: borrowed, `length` of them; null is refused.
length: in bytes.
Returns: the caller's, for kit_face_close(); null, and the reason, when it is refused.""")
kit_face_fallback = _function(
    _OrvelKit, "kit_face_fallback", POINTER(kit_face), [POINTER(kit_face), POINTER(kit_face)],
    """A face that takes from `second` the characters that `first` lacks. Its lines are as high as the
higher lines of the two, its capitals count as high as those of `first`. At most 8 faces can be
chained so. Letters of different faces are not kerned with each other.

first: kept until the new one is closed; null is refused.
second: kept until the new one is closed; null is refused.
Returns: the caller's, for kit_face_close(); null for a null face, for more than 8 faces, and
    when memory runs out.""")
kit_face_close = _function(
    _OrvelKit, "kit_face_close", None, [POINTER(kit_face)],
    """Releases what kit_face_open(), kit_face_read() or kit_face_fallback() returned;
 `face` is taken.""")
kit_face_ascent = _function(
    _OrvelKit, "kit_face_ascent", c_int, [POINTER(kit_face)],
    """in pixels: the rows above the baseline""")
kit_face_descent = _function(
    _OrvelKit, "kit_face_descent", c_int, [POINTER(kit_face)],
    """in pixels: its row and those below it""")
kit_face_line = _function(
    _OrvelKit, "kit_face_line", c_int, [POINTER(kit_face)],
    """in pixels: from baseline to baseline""")
kit_face_cap = _function(
    _OrvelKit, "kit_face_cap", c_int, [POINTER(kit_face)],
    """in pixels: the height of a capital""")
kit_face_has = _function(
    _OrvelKit, "kit_face_has", c_int, [POINTER(kit_face), c_uint],
    """Whether the face, or one chained behind it, has a character; `code` is its number in Unicode.

Returns: 1 when it has, else 0.""")
kit_text_width = _function(
    _OrvelKit, "kit_text_width", c_int, [POINTER(kit_face), c_char_p],
    """The width of a line in pixels: the sum of its advances and kernings.""")
kit_text_draw = _function(
    _OrvelKit, "kit_text_draw", c_int, [POINTER(orvel_canvas), POINTER(kit_face), c_char_p, c_int,
                                        c_int, orvel_color],
    """Draws one line that starts at x and whose letters stand on the row `baseline`: the lowest row of
a letter without a descender is the one above it.

canvas: borrowed; may be null.
Returns: the x at which the line ends, in pixels, the same for a null canvas.""")
kit_text_box = _function(
    _OrvelKit, "kit_text_box", c_int, [POINTER(orvel_canvas), POINTER(kit_face), c_char_p, kit_box,
                                       c_int, orvel_color],
    """Draws one line in a box, its capitals centred vertically. A line wider than the box is cut and
ends in an ellipsis, which replaces a number as a whole rather than a part of it. No pixel
outside the box changes, so a letter may lose what hangs over the sides.

Returns: 0 when the line is no wider than the box, 1 when it was cut, -1 for a null canvas.""")
kit_text_wrap = _function(
    _OrvelKit, "kit_text_wrap", c_int, [POINTER(orvel_canvas), POINTER(kit_face), c_char_p,
                                        kit_box, c_int, orvel_color],
    """Draws a paragraph from the top of a box. It is broken at spaces, which then take no room, at soft
hyphens, which then show, at zero width spaces, after hyphens and dashes between letters (not
before a digit), at every newline, and inside a word only when the word alone is wider than the
box. Lines that do not wholly fit the height are left out, and the last line shown then ends in
an ellipsis.

canvas: borrowed; may be null, and nothing is drawn then.
Returns: the number of lines that the whole paragraph takes, 0 for an empty text.""")
kit_text_x = _function(
    _OrvelKit, "kit_text_x", c_int, [POINTER(kit_face), c_char_p, c_int],
    """The width in pixels of a line up to a caret; `offset` is the caret's, in bytes. An offset
 inside a character counts as that of the character, a negative one as 0, one past the end as the
 end.""")
kit_text_at = _function(
    _OrvelKit, "kit_text_at", c_int, [POINTER(kit_face), c_char_p, c_int],
    """The offset in bytes of the caret that is nearest to x in a line: the left one of two that are
 equally near, the last of several at the same x.""")
kit_text_missing = _function(
    _OrvelKit, "kit_text_missing", c_int, [POINTER(kit_face), c_char_p],
    """How many characters of the text show as U+FFFD because no face has them; ill-formed parts do not
 count if a face has U+FFFD.""")
kit_draw = _function(
    _OrvelKit, "kit_draw", c_int, [POINTER(orvel_canvas), POINTER(orvel_theme),
                                   POINTER(kit_widget)],
    """Draws a widget: the library's design with readable words, in the place and the colour that the
kind has for its caption; a caption that is too long ends in an ellipsis. A text field with focus
shows the part of a longer text that its caret is in. Where the design has no room for the face
(bands, bubbles, boxes beside words) or does not use the box (sliders, stars), it is drawn as
large as the face or the box. Nothing is painted outside the box.

Returns: 0, also when no part of the box is on the canvas; -1 for null, an unknown kind, a
    negative width or height, an icon or image that cannot be drawn (off the canvas, that is
    noticed only of an image whose own size counts), and when memory runs out; what was drawn
    by then stays.""")
kit_size = _function(
    _OrvelKit, "kit_size", c_int, [POINTER(kit_widget), POINTER(c_int), POINTER(c_int)],
    """The size that a widget wants with its words, face and value; a side of its box that is above 0
stays as it is. The size of an image is that of what can be seen of it, up to 4096 pixels a side,
and 0 x 0 if it cannot be drawn; to find it, the file is read and drawn.

w: written, in pixels; may be null.
h: written, in pixels; may be null.
Returns: 0; -1 for null, an unknown kind and when memory runs out, which write 0 x 0.""")
kit_field = _function(
    _OrvelKit, "kit_field", c_int, [POINTER(kit_widget), POINTER(kit_box), POINTER(kit_box)],
    """Where a text box or search field shows its text, with the same `widget` as for kit_draw(). A
letter is drawn at the left side of the room, plus its kit_text_x(), minus what is returned.

room: written: the box that the words show in; may be null.
caret: written: the box of the caret, empty if there is none; may be null.
Returns: the width in pixels of the part of the text that lies to the left of the room, 0
    without focus; -1 for null, another kind and a negative width or height, with both boxes
    empty.""")
kit_chart_draw = _function(
    _OrvelKit, "kit_chart_draw", c_int, [POINTER(orvel_canvas), POINTER(orvel_theme),
                                         POINTER(kit_chart)],
    """Draws a chart in the theme's colours. Numbers and labels are shown whole or not at all; a name
that is too long ends in an ellipsis, and one stands for a gauge's number that has no room even
without its unit.

Returns: 0, also when there are no values to show, and when the box leaves no room for them or
    lies off the canvas; -1 for null (a null array only when its count is above 0), an unknown
    kind, a count below 0, more than 32 series, a box with a side below 0 or above 32767, a
    range that is upside down or whose ends or width are not finite, and when memory runs out.""")


class kit_screen(Structure):
    """A screen; made by kit_screen_open() or kit_screen_read()."""


class kit_screen_host(Structure):
    """What a screen asks its host for by name. Each function gets `self` and returns null for a name
    that it does not know; a null function knows none. The functions must not call the screen.
     - self, picture, theme, face, include: kept until the screen is closed; may be null.
     - name: borrowed; never null.
     - result: kept until the screen is closed, or null.
     - length: written, in bytes; never null.

    picture: A picture, for nodes of the kind "picture"; pixels with alpha 0 do not show.
    theme: A theme, beside "dark" and "light".
    face: A face, beside those of kit_face_named().
    include: The text of a scene for "include"; the number of its bytes goes to `length`.
        Without this function, kit_screen_open() takes files beside the scene's own, and
        kit_screen_read() none."""
    _fields_ = [("self", c_void_p),
                ("picture", CFUNCTYPE(c_void_p, c_void_p, c_char_p)),
                ("theme", CFUNCTYPE(c_void_p, c_void_p, c_char_p)),
                ("face", CFUNCTYPE(c_void_p, c_void_p, c_char_p)),
                ("include", CFUNCTYPE(c_void_p, c_void_p, c_char_p, POINTER(c_size_t))),
                ("reserved", c_void_p * 4)]


class kit_screen_event(Structure):
    """One event. Fields that its kind does not mention are not looked at. The others may hold
    anything: what makes no sense has no effect, and what is not UTF-8 is shown as U+FFFD.

    kind: a kit_event_kind
    x: of the pointer, in pixels
    y: of the pointer, in pixels
    dx: a number: the turn of the wheel, 120 a notch, positive to the right
    dy: a number: the same, positive away from the user
    button: a number, 0 for the main one; others only move the pointer
    key: a kit_key, or a character's number
    modifiers: of kit_modifier
    text: what was typed, composed or pasted; borrowed; may be null
    caret: of a composed text: where its caret is, in bytes"""
    _fields_ = [("kind", c_int),
                ("x", c_int),
                ("y", c_int),
                ("dx", c_int),
                ("dy", c_int),
                ("button", c_int),
                ("key", c_int),
                ("modifiers", c_uint),
                ("text", c_char_p),
                ("caret", c_int),
                ("reserved", c_void_p * 4)]


class kit_change(Structure):
    """One change. The texts are borrowed until the next kit_screen_next() with this screen.

    kind: a kit_change_kind
    id: of the node, or empty; borrowed; never null
    name: of the data ("days[2].on"), or empty; borrowed; never null
    value: JSON, "null" where there is none; borrowed; never null"""
    _fields_ = [("kind", c_int),
                ("id", c_char_p),
                ("name", c_char_p),
                ("value", c_char_p),
                ("reserved", c_void_p * 4)]


KIT_SCREEN_VERSION = b"0.2.0"
KIT_EVENT_TIME = 0
KIT_EVENT_MOVE = 1
KIT_EVENT_PRESS = 2
KIT_EVENT_RELEASE = 3
KIT_EVENT_LEAVE = 4
KIT_EVENT_WHEEL = 5
KIT_EVENT_KEY = 6
KIT_EVENT_TEXT = 7
KIT_EVENT_COMPOSE = 8
KIT_EVENT_PASTE = 9
KIT_EVENT_BLUR = 10
KIT_EVENT_FOCUS = 11
KIT_KEY_ENTER = 1114112
KIT_KEY_TAB = 1114113
KIT_KEY_ESCAPE = 1114114
KIT_KEY_BACKSPACE = 1114115
KIT_KEY_DELETE = 1114116
KIT_KEY_LEFT = 1114117
KIT_KEY_RIGHT = 1114118
KIT_KEY_UP = 1114119
KIT_KEY_DOWN = 1114120
KIT_KEY_HOME = 1114121
KIT_KEY_END = 1114122
KIT_KEY_PAGE_UP = 1114123
KIT_KEY_PAGE_DOWN = 1114124
KIT_KEY_F1 = 1114125
KIT_KEY_F2 = 1114126
KIT_KEY_F3 = 1114127
KIT_KEY_F4 = 1114128
KIT_KEY_F5 = 1114129
KIT_KEY_F6 = 1114130
KIT_KEY_F7 = 1114131
KIT_KEY_F8 = 1114132
KIT_KEY_F9 = 1114133
KIT_KEY_F10 = 1114134
KIT_KEY_F11 = 1114135
KIT_KEY_F12 = 1114136
KIT_MOD_SHIFT = 1
KIT_MOD_CONTROL = 2
KIT_MOD_ALT = 4
KIT_CHANGE_VALUE = 0
KIT_CHANGE_PRESS = 1
KIT_CHANGE_COPY = 2
KIT_CHANGE_PASTE = 3
KIT_CHANGE_SOUND = 4
KIT_POINTER_ARROW = 0
KIT_POINTER_HAND = 1
KIT_POINTER_TEXT = 2

_OrvelScreen = load("OrvelScreen")
kit_screen_version = _function(
    _OrvelScreen, "kit_screen_version", c_char_p, [],
    """The version of the library. A static string: never null, never freed.""")
kit_screen_open = _function(
    _OrvelScreen, "kit_screen_open", POINTER(kit_screen), [c_char_p, c_char_p,
                                                           POINTER(kit_screen_host),
                                                           POINTER(c_char), c_size_t],
    """Opens a scene file. Includes are files in its folder or below. Links are followed; a FIFO is not
waited for.

data: the data that the screen shows, a JSON object; borrowed; may be null, which is the file's
    "sample".
host: borrowed; may be null; what it holds is kept until the screen is closed.
Returns: the caller's, for kit_screen_close(); null, and the reason, when it is refused.""")
kit_screen_read = _function(
    _OrvelScreen, "kit_screen_read", POINTER(kit_screen), [c_void_p, c_size_t, c_char_p, c_char_p,
                                                           POINTER(kit_screen_host),
                                                           POINTER(c_char), c_size_t],
    """As kit_screen_open(), from memory. Includes come from the host.

bytes: borrowed, `length` of them; null is refused.
name: what reasons begin with; borrowed; may be null, which is "scene".
data: borrowed; may be null, which is the "sample".
host: borrowed; may be null; what it holds is kept until the screen is closed.
Returns: the caller's, for kit_screen_close(); null, and the reason, when it is refused.""")
kit_screen_close = _function(
    _OrvelScreen, "kit_screen_close", None, [POINTER(kit_screen)],
    """Releases a screen; `screen` is taken.""")
kit_screen_size = _function(
    _OrvelScreen, "kit_screen_size", None, [POINTER(kit_screen), POINTER(c_int), POINTER(c_int)],
    """The size of the screen: what kit_screen_resize() set, else the "size" in its file, else what its
 root wants; 0 x 0 for null. `w` and `h` are written, in pixels, and may be null.""")
kit_screen_resize = _function(
    _OrvelScreen, "kit_screen_resize", c_int, [POINTER(kit_screen), c_int, c_int, POINTER(c_char),
                                               c_size_t],
    """Lays the screen out anew in this size; either side is 1 to 32767 pixels.""")
kit_screen_set = _function(
    _OrvelScreen, "kit_screen_set", c_int, [POINTER(kit_screen), c_char_p, c_char_p,
                                            POINTER(c_char), c_size_t],
    """Sets the value `name` ("battery", "now.temp", "days[2].name"; empty: all of the data) to the
JSON text `json`. Objects that are missing on the way there are made; an index one past the end
of a list appends to it.""")
kit_screen_get = _function(
    _OrvelScreen, "kit_screen_get", c_char_p, [POINTER(kit_screen), c_char_p],
    """Returns: the value `name` as JSON, borrowed until the next call; null when there is none.""")
kit_screen_add = _function(
    _OrvelScreen, "kit_screen_add", c_int, [POINTER(kit_screen), c_char_p, c_int, c_char_p,
                                            POINTER(c_char), c_size_t],
    """Adds the node `json` to the row, column or stack `parent`, before its child number `at`,
 counted from 0; a negative or larger number adds it at the end.""")
kit_screen_remove = _function(
    _OrvelScreen, "kit_screen_remove", c_int, [POINTER(kit_screen), c_char_p, POINTER(c_char),
                                               c_size_t],
    """Removes the node `id`, and all below it, from the row, column or stack that it is in.""")
kit_screen_change = _function(
    _OrvelScreen, "kit_screen_change", c_int, [POINTER(kit_screen), c_char_p, c_char_p, c_char_p,
                                               POINTER(c_char), c_size_t],
    """Sets the key `key` ("text", "width", ...) of a node.

id: borrowed; may be null, which is the scene itself, whose "theme" and "face" can be set.
json: borrowed; may be null, which removes the key.""")
kit_screen_draw = _function(
    _OrvelScreen, "kit_screen_draw", c_int, [POINTER(kit_screen), POINTER(orvel_canvas),
                                             POINTER(kit_box)],
    """Draws what has changed since the last call, and everything on the first one. The canvas must
still show what was drawn before; where it does not, say so by kit_screen_expose().

dirty: written: the smallest rectangle that holds all that was drawn, empty when nothing had to
    be; may be null. Outside it no pixel changes.
Returns: 0; -1 for null, and when memory runs out; the next call then draws it again.""")
kit_screen_expose = _function(
    _OrvelScreen, "kit_screen_expose", None, [POINTER(kit_screen), POINTER(kit_box)],
    """Makes the next kit_screen_draw() draw a box again; `box` may be null, which is everything.""")
kit_screen_send = _function(
    _OrvelScreen, "kit_screen_send", c_int, [POINTER(kit_screen), POINTER(kit_screen_event),
                                             c_longlong],
    """Hands an event to the screen.

event: borrowed; null is refused.
now_ms: in milliseconds.
Returns: 0; -1 for null, an unknown kind, and when memory runs out; the event then had no
    effect at all.""")
kit_screen_next = _function(
    _OrvelScreen, "kit_screen_next", c_int, [POINTER(kit_screen), POINTER(kit_change)],
    """Takes the next change out, the oldest first. Values of the same name that follow each other, and
that nobody has taken out yet, are one change, with the last of them. 4096 changes are kept;
beyond that the oldest are dropped.

change: written; null is refused.
Returns: 1 when there was one, 0 when there was none; -1 for null.""")
kit_screen_wait = _function(
    _OrvelScreen, "kit_screen_wait", c_longlong, [POINTER(kit_screen), c_longlong],
    """How long it is until something happens by itself: a stepper repeats, a tooltip shows. A host
waits for its events no longer than that, and then sends KIT_EVENT_TIME.

now_ms: in milliseconds.
Returns: in milliseconds from now, 0 when it is due; -1 when nothing will happen, and for null.""")
kit_screen_focus = _function(
    _OrvelScreen, "kit_screen_focus", c_int, [POINTER(kit_screen), c_char_p],
    """Gives the keyboard to the first node with this id ("target", in a repetition "day[2]"), which is
scrolled into view.

id: borrowed; may be null or empty, which gives it to none.
Returns: 0; -1 when no node with that id can be used, and when memory runs out.""")
kit_screen_caret = _function(
    _OrvelScreen, "kit_screen_caret", c_int, [POINTER(kit_screen), POINTER(kit_box)],
    """The box of the caret in the text field that has the keyboard, for the window of an input method.

box: written; null is refused.
Returns: 0; -1 when no text field has the keyboard, and for null.""")
kit_screen_pointer = _function(
    _OrvelScreen, "kit_screen_pointer", c_int, [POINTER(kit_screen)],
    """Returns: the kit_pointer to show where the pointer is; the arrow for null.""")
kit_screen_describe = _function(
    _OrvelScreen, "kit_screen_describe", c_char_p, [POINTER(kit_screen)],
    """Describes the screen in words. There is one line for each node that shows, in the order in which
they are drawn, each below its parent and indented by two spaces more: ROLE, then those of
"NAME", =VALUE, states and #ID that the node has, and last its box, X,Y WxH. The same screen
gives the same lines, everywhere and in every version with the same first number.

    row 0,0 800x44
      icon "home" 20,8 28x28
      slider =21 focus #target 20,60 228x14

Returns: borrowed until the next call; null for null and when memory runs out.""")
kit_screen_report = _function(
    _OrvelScreen, "kit_screen_report", c_char_p, [POINTER(kit_screen)],
    """What a careful look would find wrong, in one line each, "FILE:LINE:COLUMN: PATH: KIND: ...":
 - overflow: a node lies partly or wholly outside its parent, and is cut;
 - cut: words, a picture, an icon, a circle or the legend of a chart do not fit in their box;
 - missing: characters that the face lacks;
 - contrast: words that stand out too little from their ground (WCAG 2.2, 1.4.3);
 - target: a control that can be used, having an id or a value of the data, with a side below 24
   pixels (WCAG 2.2, 2.5.8) that the kit by itself would not make so small;
 - range: a number outside its range; a "selected" or "show" other than -1 of what is not there;
 - id: an id that another node of the same file has too;
 - name: a name, in a condition or with a fallback, that neither the data nor the sample has;
 - key: a shortcut that another control has too; it belongs to the first one;
 - unknown: a picture or an image that does not exist.

Returns: borrowed until the next call, empty when nothing is found; null for null and when
    memory runs out.""")
kit_screen_report_on = _function(
    _OrvelScreen, "kit_screen_report_on", c_char_p, [POINTER(kit_screen), POINTER(kit_format)],
    """As kit_screen_report(), but for the screen on a panel: contrast is that of the nearest colours
that the panel has, and words in a colour that it would have to mix from dots are told too.

panel: borrowed, plane and turns without effect; may be null, which has every colour.
Returns: borrowed until the next call; null for null, for an invalid format, and when memory
    runs out.""")
kit_screen_box = _function(
    _OrvelScreen, "kit_screen_box", c_int, [POINTER(kit_screen), c_char_p, POINTER(kit_box)],
    """The box of the first node with this id ("target", in a repetition "day[2]"), as it lies on the
screen, cut to what shows of it.

box: written; null is refused.
Returns: 0; -1 when there is none, or no part of it shows.""")
