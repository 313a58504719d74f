/* Keys and pointers without a window system: the kernel's event devices. */
#ifndef EXAMPLES_FRAMEBUFFER_INPUT_H
#define EXAMPLES_FRAMEBUFFER_INPUT_H

#include <orvel_screen.h>
#include <poll.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { INPUT_DEVICES = 32 };

typedef struct input {
    struct pollfd devices[INPUT_DEVICES];
    int count;
    int tty;           /* the console, whose layout of the keyboard is asked; -1: none */
    int w, h, x, y;    /* of the screen; where the pointer is */
    unsigned held;     /* modifiers, of kit_modifier */
    int others, moved; /* Alt Gr; since the last report */
    int pressed;       /* KIT_EVENT_PRESS or _RELEASE of this report; 0: neither */
    int button;        /* which one that is of */
    int finger;        /* whether that is of a touch screen */
    int done;          /* Ctrl and Q: the program is to end */
} input;

/* Takes every device that is there. */
void input_open(input* in, int tty, int w, int h);

/* Sends what the devices have to tell to the screen. */
void input_take(input* in, kit_screen* screen, long long now);

void input_close(input* in);

#ifdef __cplusplus
}
#endif

#endif
