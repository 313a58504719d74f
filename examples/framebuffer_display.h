/* A display without a window system: the kernel's mode setting (KMS), or else its frame buffer
   device. */
#ifndef EXAMPLES_FRAMEBUFFER_DISPLAY_H
#define EXAMPLES_FRAMEBUFFER_DISPLAY_H

#include <orvel_kit.h>
#include <stddef.h>

typedef struct display {
    int w, h;
    const char* way;          /* "KMS" or "fbdev" */
    int file;                 /* of the device */
    unsigned char* pixels;    /* mapped */
    size_t size, stride;      /* in bytes */
    int layout;               /* a kit_layout */
    unsigned buffer, picture; /* of KMS: the memory, and the frame buffer in it */
    unsigned crtc, connector; /* of KMS: what shows it */
    void* before;             /* of KMS: what was shown */
} display;

/* Takes the first display that is there. 0; -1 with a line on the standard error. */
int display_open(display* d);

/* Copies a box of the canvas to the display. */
void display_show(display* d, const orvel_canvas* canvas, const kit_box* box);

/* Has the display show again what it did before. */
void display_close(display* d);

#endif
