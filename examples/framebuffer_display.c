#define _DEFAULT_SOURCE /* mmap() and ioctl() beside C99 */
#include "framebuffer_display.h"

#include <errno.h>
#include <fcntl.h>
#include <linux/fb.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <unistd.h>

#include "kms.h"

enum { MOST = 32 }; /* of whatever a card has */

static uint64_t address(const void* of) { return (uint64_t)(uintptr_t)of; }

/* An ioctl() that goes on after a signal. */
static int ask(int file, unsigned long what, void* with) {
    int result;
    do {
        result = ioctl(file, what, with);
    } while (result != 0 && (errno == EINTR || errno == EAGAIN));
    return result;
}

/* ---- KMS ---- */

/* The part of the card that can drive a connector: the one that does, or the first that may. */
static uint32_t crtc_for(int file, const kms_connector* c, const uint32_t* encoders,
                         const uint32_t* crtcs, uint32_t count) {
    kms_encoder e = {.id = c->encoder};
    if (c->encoder && ask(file, KMS_ENCODER, &e) == 0 && e.crtc) return e.crtc;
    for (uint32_t i = 0; i < c->encoder_count && i < MOST; ++i) {
        e.id = encoders[i];
        if (ask(file, KMS_ENCODER, &e) != 0) continue;
        for (uint32_t j = 0; j < count; ++j) {
            if (e.possible_crtcs & 1U << j) return crtcs[j];
        }
    }
    return 0;
}

/* Finds a connector with a screen, and how that is driven best. */
static int find_screen(display* d, kms_mode* mode) {
    uint32_t crtcs[MOST], connectors[MOST], encoders[MOST];
    static kms_mode modes[128];
    kms_resources r = {.crtcs = address(crtcs),
                       .connectors = address(connectors),
                       .crtc_count = MOST,
                       .connector_count = MOST};
    if (ask(d->file, KMS_RESOURCES, &r) != 0) return -1;
    for (uint32_t i = 0; i < r.connector_count && i < MOST; ++i) {
        kms_connector c = {.id = connectors[i]}; /* asked for nothing, it looks what is there */
        if (ask(d->file, KMS_CONNECTOR, &c) != 0) continue;
        c = (kms_connector){.id = connectors[i],
                            .encoders = address(encoders),
                            .encoder_count = MOST,
                            .modes = address(modes),
                            .mode_count = 128};
        if (ask(d->file, KMS_CONNECTOR, &c) != 0 || c.connected != 1 || c.mode_count == 0) continue;
        d->connector = c.id;
        d->crtc = crtc_for(d->file, &c, encoders, crtcs, r.crtc_count < MOST ? r.crtc_count : MOST);
        *mode = modes[0]; /* the one that the screen prefers */
        if (d->crtc) return 0;
    }
    return -1;
}

/* Memory of the card's, seen here. */
static int make_picture(display* d, const kms_mode* mode) {
    kms_buffer b = {.width = mode->width, .height = mode->height, .bits = 32};
    if (ask(d->file, KMS_CREATE, &b) != 0) return -1;
    d->buffer = b.id;
    d->size = b.size;
    d->stride = b.stride;
    kms_picture p = {.width = b.width,
                     .height = b.height,
                     .stride = b.stride,
                     .bits = 32,
                     .depth = 24,
                     .buffer = b.id};
    kms_map m = {.buffer = b.id};
    if (ask(d->file, KMS_ADD_PICTURE, &p) != 0 || ask(d->file, KMS_MAP, &m) != 0) return -1;
    d->picture = p.id;
    d->pixels = mmap(NULL, d->size, PROT_READ | PROT_WRITE, MAP_SHARED, d->file, (off_t)m.offset);
    if (d->pixels == MAP_FAILED) d->pixels = NULL;
    return d->pixels ? 0 : -1;
}

static int open_kms(display* d) {
    char path[32];
    for (int card = 0; card < 4; ++card) {
        kms_mode mode;
        snprintf(path, sizeof path, "/dev/dri/card%d", card);
        *d = (display){.way = "KMS", .layout = KIT_BGRA};
        d->file = open(path, O_RDWR | O_CLOEXEC);
        if (d->file < 0) continue;
        kms_crtc* before = calloc(1, sizeof *before);
        if (before && find_screen(d, &mode) == 0 && make_picture(d, &mode) == 0) {
            kms_crtc now = {.connectors = address(&d->connector),
                            .connector_count = 1,
                            .id = d->crtc,
                            .picture = d->picture,
                            .has_mode = 1,
                            .mode = mode};
            before->id = d->crtc;
            ask(d->file, KMS_GET_CRTC, before);
            d->before = before;
            d->w = mode.width;
            d->h = mode.height;
            memset(d->pixels, 0, d->size);
            if (ask(d->file, KMS_SET_CRTC, &now) == 0) return 0;
        } else {
            free(before);
        }
        display_close(d);
    }
    return -1;
}

/* ---- fbdev ---- */

static int open_fbdev(display* d) {
    struct fb_var_screeninfo v;
    struct fb_fix_screeninfo f;
    *d = (display){.way = "fbdev", .layout = KIT_BGRA};
    d->file = open("/dev/fb0", O_RDWR | O_CLOEXEC);
    if (d->file >= 0 && ask(d->file, FBIOGET_VSCREENINFO, &v) == 0 &&
        ask(d->file, FBIOGET_FSCREENINFO, &f) == 0 &&
        (v.bits_per_pixel == 32 || v.bits_per_pixel == 16)) {
        if (v.bits_per_pixel == 16) d->layout = KIT_RGB565_LE;
        d->w = (int)v.xres;
        d->h = (int)v.yres;
        d->stride = f.line_length;
        d->size = f.smem_len;
        d->pixels = mmap(NULL, d->size, PROT_READ | PROT_WRITE, MAP_SHARED, d->file, 0);
        if (d->pixels != MAP_FAILED) return 0;
        d->pixels = NULL;
    }
    display_close(d);
    return -1;
}

/* ---- Either ---- */

int display_open(display* d) {
    if (open_kms(d) == 0 || open_fbdev(d) == 0) return 0;
    fprintf(stderr, "framebuffer: no display: neither /dev/dri/card0 nor /dev/fb0 can be used\n");
    return -1;
}

void display_show(display* d, const orvel_canvas* canvas, const kit_box* box) {
    const kit_format format = {.layout = d->layout};
    const size_t pixel = d->layout == KIT_BGRA ? 4 : 2;
    const size_t start = (size_t)box->y * d->stride + (size_t)box->x * pixel;
    if (start >= d->size) return;
    kit_pixels(canvas, box, &format, d->pixels + start, d->size - start, d->stride);
    if (!d->picture) return;
    /* Drivers that show the memory itself need no word of it, and refuse. */
    const kms_part part = {(uint16_t)box->x, (uint16_t)box->y, (uint16_t)(box->x + box->w),
                           (uint16_t)(box->y + box->h)};
    kms_dirty dirty = {.picture = d->picture, .part_count = 1, .parts = address(&part)};
    ask(d->file, KMS_DIRTY, &dirty);
}

void display_close(display* d) {
    kms_crtc* before = d->before;
    if (before && before->picture && before->has_mode) {
        before->connectors = address(&d->connector);
        before->connector_count = 1;
        ask(d->file, KMS_SET_CRTC, before);
    }
    free(before);
    if (d->pixels) munmap(d->pixels, d->size);
    if (d->picture) ask(d->file, KMS_REMOVE_PICTURE, &d->picture);
    if (d->buffer) ask(d->file, KMS_DESTROY, &d->buffer);
    if (d->file >= 0) close(d->file);
    *d = (display){.file = -1};
}
