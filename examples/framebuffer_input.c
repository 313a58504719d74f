#define _DEFAULT_SOURCE /* ioctl() beside C99 */
#include "framebuffer_input.h"

#include <fcntl.h>
#include <linux/input.h>
#include <linux/kd.h>
#include <linux/keyboard.h>
#include <stdio.h>
#include <string.h>
#include <sys/ioctl.h>
#include <unistd.h>

typedef struct known {
    int code, key;
} known;

static const known keys[] = {
    {KEY_ENTER, KIT_KEY_ENTER},    {KEY_KPENTER, KIT_KEY_ENTER},       {KEY_TAB, KIT_KEY_TAB},
    {KEY_ESC, KIT_KEY_ESCAPE},     {KEY_BACKSPACE, KIT_KEY_BACKSPACE}, {KEY_DELETE, KIT_KEY_DELETE},
    {KEY_LEFT, KIT_KEY_LEFT},      {KEY_RIGHT, KIT_KEY_RIGHT},         {KEY_UP, KIT_KEY_UP},
    {KEY_DOWN, KIT_KEY_DOWN},      {KEY_HOME, KIT_KEY_HOME},           {KEY_END, KIT_KEY_END},
    {KEY_PAGEUP, KIT_KEY_PAGE_UP}, {KEY_PAGEDOWN, KIT_KEY_PAGE_DOWN},
};

void input_open(input* in, int tty, int w, int h) {
    char path[32];
    memset(in, 0, sizeof *in);
    in->tty = tty;
    in->w = w;
    in->h = h;
    in->x = w / 2;
    in->y = h / 2;
    for (int i = 0; i < INPUT_DEVICES; ++i) {
        snprintf(path, sizeof path, "/dev/input/event%d", i);
        const int file = open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        if (file >= 0) in->devices[in->count++] = (struct pollfd){file, POLLIN, 0};
    }
}

void input_close(input* in) {
    for (int i = 0; i < in->count; ++i) close(in->devices[i].fd);
    in->count = 0;
}

/* What the console's layout of the keyboard has for a key; 0 for no character. */
static int character(const input* in, int code, int table) {
    struct kbentry entry = {(unsigned char)table, (unsigned char)code, 0};
    if (in->tty < 0 || code >= NR_KEYS || ioctl(in->tty, KDGKBENT, &entry) != 0) return 0;
    const int type = KTYP(entry.kb_value), value = KVAL(entry.kb_value);
    if (type >= 0xF0) return entry.kb_value ^ 0xF000; /* beyond Latin 1 */
    const int shown = type == KT_LATIN || type == KT_LETTER;
    return shown && value >= ' ' && value != 0x7F ? value : 0;
}

static int modifier_of(int code) {
    switch (code) {
    case KEY_LEFTSHIFT:
    case KEY_RIGHTSHIFT: return KIT_MOD_SHIFT;
    case KEY_LEFTCTRL:
    case KEY_RIGHTCTRL: return KIT_MOD_CONTROL;
    case KEY_LEFTALT: return KIT_MOD_ALT;
    default: return 0;
    }
}

static void type_character(const input* in, kit_screen* screen, int code, long long now) {
    char text[4] = "";
    const int table = (in->held & KIT_MOD_SHIFT ? K_SHIFTTAB : 0) | (in->others ? K_ALTTAB : 0);
    const int letter = character(in, code, table);
    if (!letter || (in->held & (KIT_MOD_CONTROL | KIT_MOD_ALT)) != 0) return;
    if (letter < 0x80) {
        text[0] = (char)letter;
    } else if (letter < 0x800) {
        text[0] = (char)(0xC0 | letter >> 6);
        text[1] = (char)(0x80 | (letter & 0x3F));
    } else {
        text[0] = (char)(0xE0 | letter >> 12);
        text[1] = (char)(0x80 | (letter >> 6 & 0x3F));
        text[2] = (char)(0x80 | (letter & 0x3F));
    }
    const kit_screen_event event = {.kind = KIT_EVENT_TEXT, .text = text};
    kit_screen_send(screen, &event, now);
}

/* value: 1 for down, 2 for a repetition, 0 for up. */
static void press_key(input* in, kit_screen* screen, int code, int value, long long now) {
    const unsigned modifier = (unsigned)modifier_of(code);
    kit_screen_event event = {.kind = KIT_EVENT_KEY, .modifiers = in->held};
    if (modifier) in->held = value ? in->held | modifier : in->held & ~modifier;
    if (code == KEY_RIGHTALT) in->others = value != 0;
    if (modifier || code == KEY_RIGHTALT || value == 0) return;
    event.key = character(in, code, K_NORMTAB);
    for (size_t i = 0; i < sizeof keys / sizeof *keys; ++i) {
        if (keys[i].code == code) event.key = keys[i].key;
    }
    if (code >= KEY_F1 && code <= KEY_F10) event.key = KIT_KEY_F1 + (code - KEY_F1);
    if (code == KEY_Q && (in->held & KIT_MOD_CONTROL)) in->done = 1;
    if (event.key) kit_screen_send(screen, &event, now);
    if (event.key < KIT_KEY_ENTER) type_character(in, screen, code, now);
}

static int within(int value, int size) { return value < 0 ? 0 : value < size ? value : size - 1; }

static void move(input* in, int file, const struct input_event* e) {
    struct input_absinfo range;
    if (e->type == EV_REL) {
        if (e->code == REL_X) in->x = within(in->x + e->value, in->w);
        if (e->code == REL_Y) in->y = within(in->y + e->value, in->h);
    } else if ((e->code == ABS_X || e->code == ABS_Y) &&
               ioctl(file, EVIOCGABS((unsigned)e->code), &range) == 0 &&
               range.maximum > range.minimum) {
        const int size = e->code == ABS_X ? in->w : in->h;
        const long long part = e->value - (long long)range.minimum;
        const int place = (int)(part * size / (range.maximum - (long long)range.minimum + 1));
        *(e->code == ABS_X ? &in->x : &in->y) = within(place, size);
    }
    in->moved = 1;
}

/* A report is whole: a move along both axes is one, and a touch is told before its place. */
static void end_report(input* in, kit_screen* screen, long long now) {
    const kit_screen_event event = {.kind = in->pressed ? in->pressed : KIT_EVENT_MOVE,
                                    .x = in->x,
                                    .y = in->y,
                                    .button = in->pressed ? in->button : 0,
                                    .modifiers = in->held};
    if (in->pressed || in->moved) kit_screen_send(screen, &event, now);
    if (in->finger && in->pressed == KIT_EVENT_RELEASE) { /* which then is nowhere */
        const kit_screen_event leave = {.kind = KIT_EVENT_LEAVE};
        kit_screen_send(screen, &leave, now);
    }
    in->pressed = in->moved = 0;
}

static void take(input* in, kit_screen* screen, int file, const struct input_event* e,
                 long long now) {
    const int wheel = e->type == EV_REL && (e->code == REL_WHEEL || e->code == REL_HWHEEL);
    const int button = e->code == BTN_LEFT || e->code == BTN_TOUCH ? 0 : e->code - BTN_LEFT;
    if (wheel) {
        kit_screen_event event = {.kind = KIT_EVENT_WHEEL, .x = in->x, .y = in->y};
        *(e->code == REL_WHEEL ? &event.dy : &event.dx) = e->value * 120;
        kit_screen_send(screen, &event, now);
    } else if (e->type == EV_REL || e->type == EV_ABS) {
        move(in, file, e);
    } else if (e->type == EV_SYN) {
        end_report(in, screen, now);
    } else if (e->type == EV_KEY && (e->code == BTN_TOUCH || (e->code & ~7) == BTN_MOUSE)) {
        if (in->pressed) end_report(in, screen, now); /* of another button */
        in->pressed = e->value ? KIT_EVENT_PRESS : KIT_EVENT_RELEASE;
        in->button = button;
        in->finger = e->code == BTN_TOUCH;
    } else if (e->type == EV_KEY && e->code < BTN_MISC) {
        press_key(in, screen, e->code, e->value, now);
    }
}

void input_take(input* in, kit_screen* screen, long long now) {
    struct input_event events[64];
    for (int i = 0; i < in->count; ++i) {
        ssize_t length;
        while ((length = read(in->devices[i].fd, events, sizeof events)) > 0) {
            for (size_t e = 0; e < (size_t)length / sizeof *events; ++e) {
                take(in, screen, in->devices[i].fd, &events[e], now);
            }
        }
    }
}
