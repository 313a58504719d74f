/* A scene without a window system, on Linux: on the whole display, with the keyboard, pointers and
   touch screens that the kernel has. Ctrl and Q end it. Usage: framebuffer [--touch] SCENE

   --touch  draw no pointer */
#define _DEFAULT_SOURCE /* signals and processes beside C99 */
#include <errno.h>
#include <fcntl.h>
#include <linux/kd.h>
#include <orvel_screen.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include "framebuffer_display.h"
#include "framebuffer_input.h"

static volatile sig_atomic_t s_end;
static volatile pid_t s_child;

/* ---- The console ---- */

typedef struct console {
    int tty, mode, keyboard; /* tty: -1 where there is none */
} console;

/* The console would write over the screen, and its shell would get what is typed. */
static console console_take(void) {
    static const char* const names[] = {"/dev/tty", "/dev/tty0"};
    console c = {-1, KD_TEXT, K_UNICODE};
    for (int i = 0; i < 2 && c.tty < 0; ++i) {
        c.tty = open(names[i], O_RDWR | O_CLOEXEC | O_NOCTTY);
        if (c.tty >= 0 && ioctl(c.tty, KDGETMODE, &c.mode) != 0) close(c.tty), c.tty = -1;
    }
    if (c.tty < 0) return c;
    ioctl(c.tty, KDGKBMODE, &c.keyboard);
    ioctl(c.tty, KDSETMODE, KD_GRAPHICS);
    ioctl(c.tty, KDSKBMODE, K_OFF);
    return c;
}

static void console_restore(const console* c) {
    if (c->tty < 0) return;
    ioctl(c->tty, KDSKBMODE, c->keyboard);
    ioctl(c->tty, KDSETMODE, c->mode);
}

/* ---- The screen ---- */

typedef struct stage {
    kit_screen* screen;
    orvel_canvas* canvas; /* what the screen drew */
    orvel_canvas* shown;  /* the same with the pointer */
    display out;
    input in;
    kit_box pointer; /* where it is shown; empty where it is not */
    int touch;
} stage;

static long long now_ms(void) {
    struct timespec t;
    clock_gettime(CLOCK_MONOTONIC, &t);
    return (long long)t.tv_sec * 1000 + t.tv_nsec / 1000000;
}

static void draw_pointer(orvel_canvas* canvas, const kit_box* at) {
    static const orvel_color white = {255, 255, 255, 255}, black = {0, 0, 0, 255};
    for (int y = 0; y < at->h; ++y) {
        for (int x = 0; x <= y && x < at->w; ++x) {
            const int edge = x == 0 || x == y || y == at->h - 1;
            orvel_canvas_pixel(canvas, at->x + x, at->y + y, edge ? black : white);
        }
    }
}

static int meet(const kit_box* a, const kit_box* b) {
    return a->x < b->x + b->w && b->x < a->x + a->w && a->y < b->y + b->h && b->y < a->y + a->h;
}

/* Copies a box of the screen to the display, and the pointer where it lies over it. */
static void show_box(stage* s, const kit_box* box) {
    if (box->w <= 0 || box->h <= 0) return;
    kit_copy(s->shown, box->x, box->y, s->canvas, box);
    if (meet(box, &s->pointer)) {
        draw_pointer(s->shown, &s->pointer);
        display_show(&s->out, s->shown, &s->pointer);
    }
    display_show(&s->out, s->shown, box);
}

static void show(stage* s) {
    kit_box dirty = {0, 0, 0, 0};
    kit_screen_draw(s->screen, s->canvas, &dirty);
    const int w = s->out.w - s->in.x < 12 ? s->out.w - s->in.x : 12;
    const int h = s->out.h - s->in.y < 16 ? s->out.h - s->in.y : 16;
    const kit_box before = s->pointer, now = {s->in.x, s->in.y, w, h};
    if (!s->touch && memcmp(&before, &now, sizeof now) != 0) {
        s->pointer = now;
        show_box(s, &before);
        show_box(s, &now);
    }
    show_box(s, &dirty);
}

static void take_changes(kit_screen* screen) {
    kit_change change;
    while (kit_screen_next(screen, &change) == 1) {
        if (change.kind > KIT_CHANGE_PRESS) continue;
        printf("%s %s%s%s\n", change.kind == KIT_CHANGE_PRESS ? "press" : "value", change.id,
               change.kind == KIT_CHANGE_PRESS ? "" : " ",
               change.kind == KIT_CHANGE_PRESS ? "" : change.value);
        fflush(stdout);
    }
}

static void run(stage* s) {
    while (!s_end && !s->in.done) {
        const kit_screen_event time = {.kind = KIT_EVENT_TIME};
        show(s);
        take_changes(s->screen);
        const long long wait = kit_screen_wait(s->screen, now_ms());
        const int limit = wait < 0 || wait > 1000 ? 1000 : (int)wait;
        poll(s->in.devices, (nfds_t)s->in.count, limit); /* a signal ends it, too */
        input_take(&s->in, s->screen, now_ms());
        kit_screen_send(s->screen, &time, now_ms());
    }
}

static int play(const char* path, int touch, int tty) {
    char why[300];
    stage s = {.touch = touch, .screen = kit_screen_open(path, NULL, NULL, why, sizeof why)};
    int opened = s.screen != NULL;
    if (!opened) fprintf(stderr, "framebuffer: %s\n", why);
    if (opened && (opened = display_open(&s.out) == 0)) {
        s.canvas = kit_canvas(s.out.w, s.out.h);
        s.shown = kit_canvas(s.out.w, s.out.h);
        opened = s.canvas && s.shown &&
                 kit_screen_resize(s.screen, s.out.w, s.out.h, why, sizeof why) == 0;
        if (opened) {
            printf("%s %dx%d\n", s.out.way, s.out.w, s.out.h);
            fflush(stdout);
            input_open(&s.in, tty, s.out.w, s.out.h);
            run(&s);
            input_close(&s.in);
        }
        display_close(&s.out);
    }
    orvel_canvas_destroy(s.shown);
    orvel_canvas_destroy(s.canvas);
    kit_screen_close(s.screen);
    return opened ? 0 : 1;
}

/* ---- Two processes ---- */

static void on_signal(int number) {
    s_end = 1;
    if (s_child > 0) kill(s_child, number);
}

static void listen_to_signals(void) {
    static const int numbers[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};
    struct sigaction action;
    memset(&action, 0, sizeof action);
    action.sa_handler = on_signal;
    for (int i = 0; i < 4; ++i) sigaction(numbers[i], &action, NULL);
}

/* The screen has a process of its own: in whatever way it ends, this one gives the console back. If
   this one is ended first, that one is told, and does it. */
int main(int argc, char** argv) {
    const int touch = argc == 3 && strcmp(argv[1], "--touch") == 0;
    if (argc != 2 + touch || argv[argc - 1][0] == '-') {
        fprintf(stderr, "usage: framebuffer [--touch] SCENE\n");
        return 2;
    }
    listen_to_signals();
    const console before = console_take();
    const pid_t parent = getpid();
    s_child = fork();
    if (s_child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        const int status = getppid() == parent ? play(argv[argc - 1], touch, before.tty) : 1;
        console_restore(&before);
        exit(status);
    }
    int status = 0;
    while (s_child > 0 && waitpid(s_child, &status, 0) < 0 && errno == EINTR) continue;
    console_restore(&before);
    return s_child > 0 && WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}
