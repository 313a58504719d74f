/**
 * @file orvel_screen.h
 * Screens: a tree of rows, columns, words, pictures, charts and widgets, laid out and drawn by one
 * call. A tree is read from a scene file (JSON), from memory, or made by calls; the values that it
 * shows are set while it lives. A library of its own, libOrvelScreen, on orvel_kit.h alone.
 *
 * House rules, for every function unless it says otherwise; those of orvel_kit.h hold too:
 *  - Nothing throws. Where memory runs out, the call returns null or -1, and says so.
 *  - Reasons. One line, "FILE:LINE:COLUMN: PATH: found ..., expected ...", into the caller's buffer
 *    (why, size): rooms.json:14:9: root.column[2].buton: unknown kind; did you mean "button"?
 *  - All or nothing. A call that fails leaves the screen as it was.
 *  - Borrowed. A text that a call returns is the screen's, until the next call with that screen.
 *  - Only integers are computed with, so the bytes are the same everywhere.
 *  - No state: no window, no clock, no thread. One thread at a time for each screen.
 *  - Arguments of one name mean one thing, unless a function says otherwise:
 *     - screen, path, bytes, json, id, key, parent, host: borrowed; null is refused.
 *     - name: borrowed; may be null.
 *     - length: in bytes.
 *     - at: a number.
 *     - result: 0; -1 with the reason.
 *  - Nothing is trusted: 10,000 nodes, 16 MiB, includes 8 deep are the most, sides of 32767 pixels,
 *    nodes that cover 1024 million pixels together.
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
 * What a screen asks its host for by name, each by a function that gets @p self and returns null
 * for a name that it does not know; a null function knows none. They must not call the screen.
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
     * The text of a scene file for "include", its bytes to @p length. Where no function is given:
     * files beside the scene's own, and for kit_screen_read() none.
     *
     * @return borrowed; null when there is none.
     */
    const char* (*include)(void* self, const char* name, size_t* length)KIT_ZERO;
    const void* reserved[4] KIT_ZERO;
} kit_screen_host;

/* ---- Open and close ---- */

/**
 * Opens a scene file. Includes are files in its folder or below; links and FIFOs are followed and
 * not waited for.
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
 * @param name   with which reasons begin; borrowed; may be null, which is "scene".
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

/** The size that the screen has: its file's "size", what kit_screen_resize() said, or what its root
 *  wants. 0 for null. @p w and @p h are written, in pixels, and may be null. */
ORVEL_API void kit_screen_size(const kit_screen* screen, int* w, int* h);

/** Lays the screen out anew for this size: 1 to 32767 pixels each. */
ORVEL_API int kit_screen_resize(kit_screen* screen, int w, int h, char* why, size_t size);

/* ---- Live data ---- */

/**
 * Sets the value @p name ("battery", "now.temp", "days[2].name"; empty: all of the data) to the
 * JSON text @p json. Objects on its way are made where they are missing, an index one past the end
 * of a list adds to it.
 */
ORVEL_API int kit_screen_set(kit_screen* screen, const char* name, const char* json, char* why,
                             size_t size);

/** @return the value @p name as JSON, borrowed until the next call; null where there is none. */
ORVEL_API const char* kit_screen_get(kit_screen* screen, const char* name);

/* ---- The tree by calls ---- */
/*
 * Nodes are written as in a scene file and called by their "id". An id stands for the first node in
 * the file that has it, not one in an include. An empty scene to begin with is
 * {"orvel": 1, "size": [320, 240], "root": {"column": [], "id": "root"}}.
 */

/** Adds the node @p json to the row, column or stack @p parent, before its child number @p at,
 *  counted from 0; a negative or larger number adds it at the end. */
ORVEL_API int kit_screen_add(kit_screen* screen, const char* parent, int at, const char* json,
                             char* why, size_t size);

/** Removes the node @p id, with all below it, from the row, column or stack that it is in. */
ORVEL_API int kit_screen_remove(kit_screen* screen, const char* id, char* why, size_t size);

/**
 * Sets the key @p key ("text", "width", ...) of a node.
 *
 * @param id    borrowed; may be null, which is the scene itself, whose "theme" and "face" can be
 * set.
 * @param json  borrowed; may be null, which removes the key.
 */
ORVEL_API int kit_screen_change(kit_screen* screen, const char* id, const char* key,
                                const char* json, char* why, size_t size);

/* ---- Drawing ---- */

/**
 * Draws what changed since the last time: on the first call everything. The canvas must show what
 * was last drawn; kit_screen_expose() says where it does not.
 *
 * @param dirty  written: the smallest rectangle that holds all that was drawn, empty when nothing
 *               had to be; may be null. Outside it no pixel changes.
 * @return 0; -1 for null, and where memory runs out, where the next call draws it again.
 */
ORVEL_API int kit_screen_draw(kit_screen* screen, orvel_canvas* canvas, kit_box* dirty);

/** Has the next kit_screen_draw() draw a box, too; @p box may be null, which is everything. */
ORVEL_API void kit_screen_expose(kit_screen* screen, const kit_box* box);

/* ---- Input ---- */
/*
 * Events and the host's time go in; changes and, by kit_screen_draw(), pictures come out. The same
 * events at the same times give the same changes and pictures everywhere. Times are in milliseconds
 * from any start of the host's; one before the last one counts as the last one.
 *
 * What can be used are the controls that have an id or a value of the data, and are not disabled.
 * One whose value is exactly "${name}" sets that value, as kit_screen_set() does. Any other keeps
 * the value that it has: its change tells the one that it would get, and the host may give it that
 * by kit_screen_change().
 */

/** What happened. */
typedef enum kit_event_kind {
    KIT_EVENT_TIME = 0,    /**< nothing but that time has passed */
    KIT_EVENT_MOVE = 1,    /**< the pointer is at x, y */
    KIT_EVENT_PRESS = 2,   /**< a button of it, or a finger, went down at x, y */
    KIT_EVENT_RELEASE = 3, /**< and up */
    KIT_EVENT_LEAVE =
        4, /**< the pointer left the screen; what is pressed is let go without effect */
    KIT_EVENT_WHEEL = 5,   /**< it was turned at x, y by dx, dy */
    KIT_EVENT_KEY = 6,     /**< a key went down, or repeats */
    KIT_EVENT_TEXT = 7,    /**< a text was typed, or its composition has ended */
    KIT_EVENT_COMPOSE = 8, /**< an input method composes a text; an empty one: no longer */
    KIT_EVENT_PASTE = 9,   /**< the clipboard's text, which KIT_CHANGE_PASTE asked for */
    KIT_EVENT_BLUR = 10,   /**< the window lost the keyboard */
    KIT_EVENT_FOCUS = 11   /**< and has it again */
} kit_event_kind;

/** Keys without a character. Others are told by the character (Unicode) that they give without
 *  modifiers: 'a', ' ', 0xE4. */
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

/** Keys that are held, to be added up. A host on macOS tells Command as KIT_MOD_CONTROL. */
typedef enum kit_modifier {
    KIT_MOD_SHIFT = 1,   /**< another case, backwards, selecting */
    KIT_MOD_CONTROL = 2, /**< shortcuts, by words */
    KIT_MOD_ALT = 4      /**< shortcuts */
} kit_modifier;

/** One event. Fields that its kind does not mention are not looked at, and those may hold anything:
 *  what makes no sense has no effect, and what is not UTF-8 is shown as U+FFFD. */
typedef struct kit_screen_event {
    int kind KIT_ZERO;   /**< a kit_event_kind */
    int x KIT_ZERO;      /**< of the pointer, in pixels */
    int y KIT_ZERO;      /**< of the pointer, in pixels */
    int dx KIT_ZERO;     /**< a number: turned by, 120 a notch, positive to the right */
    int dy KIT_ZERO;     /**< a number: turned by, 120 a notch, positive away from the user */
    int button KIT_ZERO; /**< a number, 0 for the main one; others only move the pointer */
    int key KIT_ZERO;    /**< a kit_key, or a character's number */
    unsigned modifiers KIT_ZERO; /**< of kit_modifier */
    const char* text KIT_ZERO;   /**< what was typed, composed or pasted; borrowed; may be null */
    int caret KIT_ZERO;          /**< of a composed text: where its caret is, in bytes */
    const void* reserved[4] KIT_ZERO;
} kit_screen_event;

/**
 * One event in.
 *
 * @param event   borrowed; null is refused.
 * @param now_ms  in milliseconds.
 * @return 0; -1 for null, an unknown kind, and where memory runs out, where the event had no effect
 *         at all.
 */
ORVEL_API int kit_screen_send(kit_screen* screen, const kit_screen_event* event, long long now_ms);

/** What came of it. */
typedef enum kit_change_kind {
    KIT_CHANGE_VALUE = 0, /**< a control has a new value: of the data's name, which is set;
                             without a name, of the control with the id, which keeps its own */
    KIT_CHANGE_PRESS = 1, /**< a button or list item with an id was pressed, or its shortcut; Enter
                               in a text field */
    KIT_CHANGE_COPY = 2,  /**< a text for the clipboard */
    KIT_CHANGE_PASTE = 3, /**< a text field asks for the clipboard's text: KIT_EVENT_PASTE */
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
 * The next change out, oldest first. Values of one name that come one after another, and that
 * nobody has asked for, are one change, with the last of them. 4096 changes are kept; then the
 * oldest go.
 *
 * @param change  written; null is refused.
 * @return 1 when there was one, 0 when not; -1 for null.
 */
ORVEL_API int kit_screen_next(kit_screen* screen, kit_change* change);

/**
 * When time matters by itself: a stepper repeats, a tooltip shows. A host waits for its events no
 * longer, and then sends KIT_EVENT_TIME.
 *
 * @param now_ms  in milliseconds.
 * @return in milliseconds from now, 0 when it already does; -1 where it does not, and for null.
 */
ORVEL_API long long kit_screen_wait(const kit_screen* screen, long long now_ms);

/**
 * Gives the keyboard to the first node with this id ("target", in a repetition "day[2]"), which is
 * scrolled into view.
 *
 * @param id  borrowed; may be null or empty, which gives it to none.
 * @return 0; -1 where none of that id can be used, and where memory runs out.
 */
ORVEL_API int kit_screen_focus(kit_screen* screen, const char* id);

/**
 * Where the caret of the text field with the keyboard stands, for the window of an input method.
 *
 * @param box  written; null is refused.
 * @return 0; -1 where no text field has the keyboard, and for null.
 */
ORVEL_API int kit_screen_caret(const kit_screen* screen, kit_box* box);

/** The shapes of the pointer. */
typedef enum kit_pointer {
    KIT_POINTER_ARROW = 0, /**< over nothing that can be used */
    KIT_POINTER_HAND = 1,  /**< over a control */
    KIT_POINTER_TEXT = 2   /**< over a text field */
} kit_pointer;

/** @return the kit_pointer where the pointer is; the arrow for null. */
ORVEL_API int kit_screen_pointer(const kit_screen* screen);

/* ---- What is there ---- */

/**
 * One line for each node that shows, in the order in which they are drawn, each below its parent
 * and two spaces further right: ROLE, then what the node has of "NAME", =VALUE, its states, #ID,
 * and last its box, X,Y WxH. The same lines for the same screen, everywhere and in every version of
 * one number.
 *
 *     row 0,0 800x44
 *       icon "home" 20,8 28x28
 *       slider =21 focus #target 20,60 228x14
 *
 * @return borrowed until the next call; null for null and where memory runs out.
 */
ORVEL_API const char* kit_screen_describe(kit_screen* screen);

/**
 * What a careful look would find wrong, one line for each, "FILE:LINE:COLUMN: PATH: KIND: ...":
 *  - overflow: a node lies partly or wholly outside its parent, and is cut;
 *  - cut: words, a picture, an icon, a circle or the legend of a chart do not fit in their box;
 *  - missing: characters that the face lacks;
 *  - contrast: words that stand out too little from their ground (WCAG 2.2, 1.4.3);
 *  - target: a control that can be used, having an id or a value of the data, and that has a side
 *    below 24 pixels (WCAG 2.2, 2.5.8) which the kit would not make so small;
 *  - range: a number outside its range; a "selected" or "show" of what there is not, but for -1;
 *  - id: an id that another node of the same file has, too;
 *  - name: one in a condition, or with a fallback, that neither the data nor the sample have;
 *  - key: a shortcut that another control has, too, of which the first one counts;
 *  - unknown: a picture or an image that there is not.
 *
 * @return borrowed until the next call, empty when there is nothing; null for null and where memory
 * runs out.
 */
ORVEL_API const char* kit_screen_report(kit_screen* screen);

/**
 * As kit_screen_report(), of the screen on a panel: contrast is that of the nearest colours that it
 * has, and where few are dithered, words in a mixed one become dots.
 *
 * @param panel  borrowed, its plane and turns without a say; may be null, which has every colour.
 * @return borrowed until the next call; null for null, for what is no format, and where memory runs
 * out.
 */
ORVEL_API const char* kit_screen_report_on(kit_screen* screen, const kit_format* panel);

/**
 * The box of the first node with this id ("target", in a repetition "day[2]"), as it lies on the
 * screen, cut to what shows of it.
 *
 * @param box  written; null is refused.
 * @return 0; -1 where there is none, or nothing of it shows.
 */
ORVEL_API int kit_screen_box(const kit_screen* screen, const char* id, kit_box* box);

#ifdef __cplusplus
}
#endif

#endif /* ORVEL_SCREEN_H */
