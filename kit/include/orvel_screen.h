/**
 * @file orvel_screen.h
 * Screens: a tree of rows, columns, words, pictures, charts and widgets, laid out and drawn by one
 * call. A tree is read from a scene (JSON) in a file or in memory, or built by calls; the values
 * that it shows are set while it lives. It is a library of its own, libOrvelScreen, and needs
 * orvel_kit.h alone.
 *
 * House rules, for every function unless it says otherwise; those of orvel_kit.h hold too:
 *  - Nothing throws. When memory runs out, the call returns null or -1, and the reason says so.
 *  - Reasons. What is refused is told in one line, "FILE:LINE:COLUMN: PATH: found ..., expected
 *    ...", in the caller's buffer (why, size), for instance
 *    rooms.json:14:9: root.column[2].buton: unknown kind; did you mean "button"?
 *  - All or nothing. A call that fails leaves the screen as it was.
 *  - Borrowed. A text that a call returns belongs to the screen, and is valid until the next call
 *    with that screen.
 *  - Layout and pictures are computed in integers alone, so they are the same everywhere.
 *  - No state outside the screens: no window, no clock, no thread. One thread at a time for each
 *    screen.
 *  - Arguments of one name mean one thing, unless a function says otherwise:
 *     - screen, path, bytes, json, id, key, parent, host: borrowed; null is refused.
 *     - name: borrowed; may be null.
 *     - length: in bytes.
 *     - at: a number.
 *     - result: 0; -1 with the reason.
 *  - Nothing is trusted. A scene has at most 10,000 nodes, 16 MiB, includes 8 deep, sides of 32767
 *    pixels, and nodes that cover 1024 million pixels together.
 */
#ifndef ORVEL_SCREEN_H
#define ORVEL_SCREEN_H

#include "orvel_kit.h"

/** The version of this header; kit_screen_version() tells that of the library in use. */
#define KIT_SCREEN_VERSION "0.2.0"

#ifdef __cplusplus
extern "C" {
#endif

/** The version of the library. A static string: never null, never freed. */
ORVEL_API const char* kit_screen_version(void);

/** A screen; made by kit_screen_open() or kit_screen_read(). */
typedef struct kit_screen kit_screen;

/**
 * What a screen asks its host for by name. Each function gets @p self and returns null for a name
 * that it does not know; a null function knows none. The functions must not call the screen.
 *  - self, picture, theme, face, include: kept until the screen is closed; may be null.
 *  - name: borrowed; never null.
 *  - result: kept until the screen is closed, or null.
 *  - length: written, in bytes; never null.
 */
typedef struct kit_screen_host {
    void* self KIT_ZERO;
    /** A picture, for nodes of the kind "picture"; pixels with alpha 0 do not show. */
    const orvel_canvas* (*picture)(void* self, const char* name)KIT_ZERO;
    /** A theme, beside "dark" and "light". */
    const orvel_theme* (*theme)(void* self, const char* name)KIT_ZERO;
    /** A face, beside those of kit_face_named(). */
    const kit_face* (*face)(void* self, const char* name)KIT_ZERO;
    /**
     * The text of a scene for "include"; the number of its bytes goes to @p length. Without this
     * function, kit_screen_open() takes files beside the scene's own, and kit_screen_read() none.
     *
     * @return borrowed; null when there is none.
     */
    const char* (*include)(void* self, const char* name, size_t* length)KIT_ZERO;
    const void* reserved[4] KIT_ZERO;
} kit_screen_host;

/* ---- Open and close ---- */

/**
 * Opens a scene file. Includes are files in its folder or below. Links are followed; a FIFO is not
 * waited for.
 *
 * @param data  the data that the screen shows, a JSON object; borrowed; may be null, which is the
 *              file's "sample".
 * @param host  borrowed; may be null; what it holds is kept until the screen is closed.
 * @return the caller's, for kit_screen_close(); null, and the reason, when it is refused.
 */
ORVEL_API kit_screen* kit_screen_open(const char* path, const char* data,
                                      const kit_screen_host* host, char* why, size_t size);

/**
 * As kit_screen_open(), from memory. Includes come from the host.
 *
 * @param bytes  borrowed, @p length of them; null is refused.
 * @param name   what reasons begin with; borrowed; may be null, which is "scene".
 * @param data   borrowed; may be null, which is the "sample".
 * @param host   borrowed; may be null; what it holds is kept until the screen is closed.
 * @return the caller's, for kit_screen_close(); null, and the reason, when it is refused.
 */
ORVEL_API kit_screen* kit_screen_read(const void* bytes, size_t length, const char* name,
                                      const char* data, const kit_screen_host* host, char* why,
                                      size_t size);

/** Releases a screen; @p screen is taken. */
ORVEL_API void kit_screen_close(kit_screen* screen);

/* ---- Size ---- */

/** The size of the screen: what kit_screen_resize() set, else the "size" in its file, else what its
 *  root wants; 0 x 0 for null. @p w and @p h are written, in pixels, and may be null. */
ORVEL_API void kit_screen_size(const kit_screen* screen, int* w, int* h);

/** Lays the screen out anew in this size; either side is 1 to 32767 pixels. */
ORVEL_API int kit_screen_resize(kit_screen* screen, int w, int h, char* why, size_t size);

/* ---- Live data ---- */

/**
 * Sets the value @p name ("battery", "now.temp", "days[2].name"; empty: all of the data) to the
 * JSON text @p json. Objects that are missing on the way there are made; an index one past the end
 * of a list appends to it.
 */
ORVEL_API int kit_screen_set(kit_screen* screen, const char* name, const char* json, char* why,
                             size_t size);

/** @return the value @p name as JSON, borrowed until the next call; null when there is none. */
ORVEL_API const char* kit_screen_get(kit_screen* screen, const char* name);

/* ---- The tree by calls ---- */
/*
 * Nodes are written as in a scene file and addressed by their "id". An id stands for the first node
 * in the file that has it, never for one in an include. An empty scene to begin with is
 * {"orvel": 1, "size": [320, 240], "root": {"column": [], "id": "root"}}.
 */

/** Adds the node @p json to the row, column or stack @p parent, before its child number @p at,
 *  counted from 0; a negative or larger number adds it at the end. */
ORVEL_API int kit_screen_add(kit_screen* screen, const char* parent, int at, const char* json,
                             char* why, size_t size);

/** Removes the node @p id, and all below it, from the row, column or stack that it is in. */
ORVEL_API int kit_screen_remove(kit_screen* screen, const char* id, char* why, size_t size);

/**
 * Sets the key @p key ("text", "width", ...) of a node.
 *
 * @param id    borrowed; may be null, which is the scene itself, whose "theme" and "face" can be
 *              set.
 * @param json  borrowed; may be null, which removes the key.
 */
ORVEL_API int kit_screen_change(kit_screen* screen, const char* id, const char* key,
                                const char* json, char* why, size_t size);

/* ---- Drawing ---- */

/**
 * Draws what has changed since the last call, and everything on the first one. The canvas must
 * still show what was drawn before; where it does not, say so by kit_screen_expose().
 *
 * @param dirty  written: the smallest rectangle that holds all that was drawn, empty when nothing
 *               had to be; may be null. Outside it no pixel changes.
 * @return 0; -1 for null, and when memory runs out; the next call then draws it again.
 */
ORVEL_API int kit_screen_draw(kit_screen* screen, orvel_canvas* canvas, kit_box* dirty);

/** Makes the next kit_screen_draw() draw a box again; @p box may be null, which is everything. */
ORVEL_API void kit_screen_expose(kit_screen* screen, const kit_box* box);

/* ---- Input ---- */
/*
 * Events and the host's time go in; changes and, by kit_screen_draw(), pictures come out. The same
 * events at the same times give the same changes and pictures everywhere. Times are in milliseconds
 * since any moment that the host chooses; a time before the last one counts as the last one.
 *
 * Only controls that have an id or a value of the data, and are not disabled, can be used. A
 * control whose value is exactly "${name}" sets that value, as kit_screen_set() does. Any other
 * keeps the value that it has; its change tells which it would get, and the host may give it that
 * one by kit_screen_change(). So radio buttons with "on" do not turn each other off; those that
 * share a "selected" do.
 */

/** What happened. */
typedef enum kit_event_kind {
    KIT_EVENT_TIME = 0,    /**< nothing but that time has passed */
    KIT_EVENT_MOVE = 1,    /**< the pointer is at x, y */
    KIT_EVENT_PRESS = 2,   /**< a button of it, or a finger, went down at x, y */
    KIT_EVENT_RELEASE = 3, /**< the button or finger went up at x, y; after a finger send LEAVE */
    KIT_EVENT_LEAVE = 4,   /**< nothing points at the screen; what is held has no effect */
    KIT_EVENT_WHEEL = 5,   /**< the wheel was turned at x, y by dx, dy */
    KIT_EVENT_KEY = 6,     /**< a key went down, or repeats */
    KIT_EVENT_TEXT = 7,    /**< a text was typed, or its composition has ended */
    KIT_EVENT_COMPOSE = 8, /**< an input method composes a text; an empty one when it stops */
    KIT_EVENT_PASTE = 9,   /**< the clipboard's text, which KIT_CHANGE_PASTE asked for */
    KIT_EVENT_BLUR = 10,   /**< the window lost the keyboard */
    KIT_EVENT_FOCUS = 11   /**< the window has the keyboard again */
} kit_event_kind;

/** Keys without a character. Any other key is the number in Unicode of the character that it gives
 *  without modifiers: 'a', ' ', 0xE4. */
typedef enum kit_key {
    KIT_KEY_ENTER = 0x110000,     /**< also that of the number pad */
    KIT_KEY_TAB = 0x110001,       /**< the next control; with shift the one before */
    KIT_KEY_ESCAPE = 0x110002,    /**< closes what is open, ends a drag */
    KIT_KEY_BACKSPACE = 0x110003, /**< deletes to the left */
    KIT_KEY_DELETE = 0x110004,    /**< deletes to the right */
    KIT_KEY_LEFT = 0x110005,      /**< an arrow */
    KIT_KEY_RIGHT = 0x110006,     /**< an arrow */
    KIT_KEY_UP = 0x110007,        /**< an arrow */
    KIT_KEY_DOWN = 0x110008,      /**< an arrow */
    KIT_KEY_HOME = 0x110009,      /**< to the first, the lowest, the top */
    KIT_KEY_END = 0x11000A,       /**< to the last, the highest, the bottom */
    KIT_KEY_PAGE_UP = 0x11000B,   /**< a tenth of the range, or a page up */
    KIT_KEY_PAGE_DOWN = 0x11000C, /**< a tenth of the range, or a page down */
    KIT_KEY_F1 = 0x11000D,        /**< a function key, for shortcuts */
    KIT_KEY_F2 = 0x11000E,        /**< the next one */
    KIT_KEY_F3 = 0x11000F,        /**< the next one */
    KIT_KEY_F4 = 0x110010,        /**< the next one */
    KIT_KEY_F5 = 0x110011,        /**< the next one */
    KIT_KEY_F6 = 0x110012,        /**< the next one */
    KIT_KEY_F7 = 0x110013,        /**< the next one */
    KIT_KEY_F8 = 0x110014,        /**< the next one */
    KIT_KEY_F9 = 0x110015,        /**< the next one */
    KIT_KEY_F10 = 0x110016,       /**< the next one */
    KIT_KEY_F11 = 0x110017,       /**< the next one */
    KIT_KEY_F12 = 0x110018        /**< the last one */
} kit_key;

/** Keys that are held, to be added up. A host on macOS sends Command as KIT_MOD_CONTROL. */
typedef enum kit_modifier {
    KIT_MOD_SHIFT = 1,   /**< another case, backwards, selecting */
    KIT_MOD_CONTROL = 2, /**< shortcuts, by words */
    KIT_MOD_ALT = 4      /**< shortcuts */
} kit_modifier;

/** One event. Fields that its kind does not mention are not looked at. The others may hold
 * anything: what makes no sense has no effect, and what is not UTF-8 is shown as U+FFFD. */
typedef struct kit_screen_event {
    int kind KIT_ZERO;   /**< a kit_event_kind */
    int x KIT_ZERO;      /**< of the pointer, in pixels */
    int y KIT_ZERO;      /**< of the pointer, in pixels */
    int dx KIT_ZERO;     /**< a number: the turn of the wheel, 120 a notch, positive to the right */
    int dy KIT_ZERO;     /**< a number: the same, positive away from the user */
    int button KIT_ZERO; /**< a number, 0 for the main one; others only move the pointer */
    int key KIT_ZERO;    /**< a kit_key, or a character's number */
    unsigned modifiers KIT_ZERO; /**< of kit_modifier */
    const char* text KIT_ZERO;   /**< what was typed, composed or pasted; borrowed; may be null */
    int caret KIT_ZERO;          /**< of a composed text: where its caret is, in bytes */
    const void* reserved[4] KIT_ZERO;
} kit_screen_event;

/**
 * Hands an event to the screen.
 *
 * @param event   borrowed; null is refused.
 * @param now_ms  in milliseconds.
 * @return 0; -1 for null, an unknown kind, and when memory runs out; the event then had no effect
 *         at all.
 */
ORVEL_API int kit_screen_send(kit_screen* screen, const kit_screen_event* event, long long now_ms);

/** What came of an event. */
typedef enum kit_change_kind {
    KIT_CHANGE_VALUE = 0, /**< a control has a new value: with a name, that value of the data was
                               set; without one, the control with the id keeps what it had */
    KIT_CHANGE_PRESS = 1, /**< a button, a list item or a dropdown without items that has an id was
                               pressed, or its shortcut was; or Enter in a text field */
    KIT_CHANGE_COPY = 2,  /**< a text for the clipboard */
    KIT_CHANGE_PASTE = 3, /**< a text field asks for the clipboard's text: send KIT_EVENT_PASTE */
    KIT_CHANGE_SOUND = 4  /**< the effect that the scene names for the control ("sound") */
} kit_change_kind;

/** One change. The texts are borrowed until the next kit_screen_next() with this screen. */
typedef struct kit_change {
    int kind KIT_ZERO;          /**< a kit_change_kind */
    const char* id KIT_ZERO;    /**< of the node, or empty; borrowed; never null */
    const char* name KIT_ZERO;  /**< of the data ("days[2].on"), or empty; borrowed; never null */
    const char* value KIT_ZERO; /**< JSON, "null" where there is none; borrowed; never null */
    const void* reserved[4] KIT_ZERO;
} kit_change;

/**
 * Takes the next change out, the oldest first. Values of the same name that follow each other, and
 * that nobody has taken out yet, are one change, with the last of them. 4096 changes are kept;
 * beyond that the oldest are dropped.
 *
 * @param change  written; null is refused.
 * @return 1 when there was one, 0 when there was none; -1 for null.
 */
ORVEL_API int kit_screen_next(kit_screen* screen, kit_change* change);

/**
 * How long it is until something happens by itself: a stepper repeats, a tooltip shows. A host
 * waits for its events no longer than that, and then sends KIT_EVENT_TIME.
 *
 * @param now_ms  in milliseconds.
 * @return in milliseconds from now, 0 when it is due; -1 when nothing will happen, and for null.
 */
ORVEL_API long long kit_screen_wait(const kit_screen* screen, long long now_ms);

/**
 * Gives the keyboard to the first node with this id ("target", in a repetition "day[2]"), which is
 * scrolled into view.
 *
 * @param id  borrowed; may be null or empty, which gives it to none.
 * @return 0; -1 when no node with that id can be used, and when memory runs out.
 */
ORVEL_API int kit_screen_focus(kit_screen* screen, const char* id);

/**
 * The box of the caret in the text field that has the keyboard, for the window of an input method.
 *
 * @param box  written; null is refused.
 * @return 0; -1 when no text field has the keyboard, and for null.
 */
ORVEL_API int kit_screen_caret(const kit_screen* screen, kit_box* box);

/** The shapes of the pointer. */
typedef enum kit_pointer {
    KIT_POINTER_ARROW = 0, /**< over nothing that can be used */
    KIT_POINTER_HAND = 1,  /**< over a control */
    KIT_POINTER_TEXT = 2   /**< over a text field */
} kit_pointer;

/** @return the kit_pointer to show where the pointer is; the arrow for null. */
ORVEL_API int kit_screen_pointer(const kit_screen* screen);

/* ---- What is there ---- */

/**
 * Describes the screen in words. There is one line for each node that shows, in the order in which
 * they are drawn, each below its parent and indented by two spaces more: ROLE, then those of
 * "NAME", =VALUE, states and #ID that the node has, and last its box, X,Y WxH. The same screen
 * gives the same lines, everywhere and in every version with the same first number.
 *
 *     row 0,0 800x44
 *       icon "home" 20,8 28x28
 *       slider =21 focus #target 20,60 228x14
 *
 * @return borrowed until the next call; null for null and when memory runs out.
 */
ORVEL_API const char* kit_screen_describe(kit_screen* screen);

/**
 * What a careful look would find wrong, in one line each, "FILE:LINE:COLUMN: PATH: KIND: ...":
 *  - overflow: a node lies partly or wholly outside its parent, and is cut;
 *  - cut: words, a picture, an icon, a circle or the legend of a chart do not fit in their box;
 *  - missing: characters that the face lacks;
 *  - contrast: words that stand out too little from their ground (WCAG 2.2, 1.4.3);
 *  - target: a control that can be used, having an id or a value of the data, with a side below 24
 *    pixels (WCAG 2.2, 2.5.8) that the kit by itself would not make so small;
 *  - range: a number outside its range; a "selected" or "show" other than -1 of what is not there;
 *  - id: an id that another node of the same file has too;
 *  - name: a name, in a condition or with a fallback, that neither the data nor the sample has;
 *  - key: a shortcut that another control has too; it belongs to the first one;
 *  - unknown: a picture or an image that does not exist.
 *
 * @return borrowed until the next call, empty when nothing is found; null for null and when memory
 *         runs out.
 */
ORVEL_API const char* kit_screen_report(kit_screen* screen);

/**
 * As kit_screen_report(), but for the screen on a panel: contrast is that of the nearest colours
 * that the panel has, and words in a colour that it would have to mix from dots are told too.
 *
 * @param panel  borrowed, plane and turns without effect; may be null, which has every colour.
 * @return borrowed until the next call; null for null, for an invalid format, and when memory runs
 *         out.
 */
ORVEL_API const char* kit_screen_report_on(kit_screen* screen, const kit_format* panel);

/**
 * The box of the first node with this id ("target", in a repetition "day[2]"), as it lies on the
 * screen, cut to what shows of it.
 *
 * @param box  written; null is refused.
 * @return 0; -1 when there is none, or no part of it shows.
 */
ORVEL_API int kit_screen_box(const kit_screen* screen, const char* id, kit_box* box);

#ifdef __cplusplus
}
#endif

#endif /* ORVEL_SCREEN_H */
