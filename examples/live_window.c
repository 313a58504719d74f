/* live_screen in an SDL2 window.
   Usage: live_window [--silent] [--frames N] */
#include <SDL.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "live_screen.h"
#include "output.h"

enum { FRAME_MS = 16 };

typedef struct window {
    SDL_Window* window;
    SDL_Renderer* renderer;
    SDL_Texture* texture;
} window;

typedef struct options {
    int silent;
    long frames; /* 0: until the window is closed */
} options;

static int read_options(options* o, int argc, char** argv) {
    int i = 1;
    memset(o, 0, sizeof *o);
    for (; i < argc && argv[i][0] == '-'; ++i) {
        if (strcmp(argv[i], "--silent") == 0) {
            o->silent = 1;
        } else if (strcmp(argv[i], "--frames") == 0 && i + 1 < argc) {
            o->frames = strtol(argv[++i], NULL, 10);
            if (o->frames < 1) return -1;
        } else {
            return -1;
        }
    }
    return i == argc ? 0 : -1;
}

static void window_close(window* w) {
    if (w->texture) SDL_DestroyTexture(w->texture);
    if (w->renderer) SDL_DestroyRenderer(w->renderer);
    if (w->window) SDL_DestroyWindow(w->window);
    SDL_Quit();
}

static int window_open(window* w) {
    memset(w, 0, sizeof *w);
    if (SDL_Init(SDL_INIT_VIDEO) == 0 &&
        (w->window = SDL_CreateWindow("Greenhouse", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                                      SCREEN_W, SCREEN_H, SDL_WINDOW_RESIZABLE)) &&
        (w->renderer = SDL_CreateRenderer(w->window, -1, SDL_RENDERER_PRESENTVSYNC)) &&
        (w->texture = SDL_CreateTexture(w->renderer, SDL_PIXELFORMAT_RGBA32,
                                        SDL_TEXTUREACCESS_STREAMING, SCREEN_W, SCREEN_H))) {
        SDL_RenderSetLogicalSize(w->renderer, SCREEN_W, SCREEN_H);
        SDL_StartTextInput();
        return 0;
    }
    fprintf(stderr, "live_window: %s\n", SDL_GetError());
    window_close(w);
    return -1;
}

/* One event changes the state. 0 when the window is to close. */
static int handle(screen* s, const SDL_Event* event) {
    switch (event->type) {
    case SDL_QUIT: return 0;
    case SDL_MOUSEMOTION: screen_move(s, event->motion.x, event->motion.y); break;
    case SDL_MOUSEBUTTONDOWN:
        if (event->button.button == SDL_BUTTON_LEFT) {
            screen_press(s, event->button.x, event->button.y);
        }
        break;
    case SDL_MOUSEBUTTONUP:
        if (event->button.button == SDL_BUTTON_LEFT) screen_release(s);
        break;
    case SDL_WINDOWEVENT:
        if (event->window.event == SDL_WINDOWEVENT_LEAVE) screen_move(s, -1, -1);
        break;
    case SDL_TEXTINPUT: screen_type(s, event->text.text); break;
    case SDL_KEYDOWN:
        if (event->key.keysym.sym == SDLK_BACKSPACE) screen_backspace(s);
        if (event->key.keysym.sym == SDLK_TAB) screen_tab(s);
        if (event->key.keysym.sym == SDLK_RETURN) screen_leave(s);
        break;
    default: break;
    }
    return 1;
}

/* 0 when the window is to close. */
static int take_events(screen* s) {
    SDL_Event event;
    while (SDL_PollEvent(&event)) {
        if (!handle(s, &event)) return 0;
    }
    return 1;
}

/* Copies the canvas into the texture: the bytes of a colour stand as RGBA32 has them. */
static void copy_pixels(window* w, const orvel_canvas* canvas) {
    void* pixels;
    int pitch;
    if (SDL_LockTexture(w->texture, NULL, &pixels, &pitch) == 0) {
        for (int y = 0; y < SCREEN_H; ++y) {
            orvel_color* row = (orvel_color*)((char*)pixels + y * pitch);
            for (int x = 0; x < SCREEN_W; ++x) row[x] = orvel_canvas_pixel_get(canvas, x, y);
        }
        SDL_UnlockTexture(w->texture);
    }
    SDL_RenderClear(w->renderer);
    SDL_RenderCopy(w->renderer, w->texture, NULL, NULL);
}

static double milliseconds_since(Uint64 start) {
    return (double)(SDL_GetPerformanceCounter() - start) * 1000.0 /
           (double)SDL_GetPerformanceFrequency();
}

typedef struct timing {
    Uint64 start; /* of the first frame */
    long frames;
    double total, worst; /* milliseconds of work, without the wait for the next frame */
    char line[96];
} timing;

static void count_frame(timing* t, double cost) {
    ++t->frames;
    t->total += cost;
    if (cost > t->worst) t->worst = cost;
    if (t->frames % 30 == 1) {
        snprintf(t->line, sizeof t->line, "A frame takes %.1f ms of the 16.7 that it has.",
                 t->total / (double)t->frames);
    }
}

static void report(const timing* t) {
    printf("%ld frames in %.2f s; work for a frame: %.2f ms on average, %.2f ms at most\n",
           t->frames, milliseconds_since(t->start) / 1000, t->total / (double)t->frames, t->worst);
}

static void run(window* w, page* p, const options* o) {
    screen s;
    screen_open(&s);
    timing t = {SDL_GetPerformanceCounter(), 0, 0, 0, ""};
    double ticked = 0;
    while (take_events(&s) && (o->frames == 0 || t.frames < o->frames)) {
        const Uint64 start = SDL_GetPerformanceCounter();
        /* The state moves on by the clock, not by the frame: screens differ in their rate. */
        for (const double now = milliseconds_since(t.start); ticked < now; ticked += 1000.0 / 60) {
            screen_tick(&s);
        }
        if (s.tone != 0 && !o->silent) orvel_play_tone(s.tone, 30); /* no sound is no error */
        s.tone = 0;
        screen_draw(&s, p, t.line);
        copy_pixels(w, p->canvas);
        count_frame(&t, milliseconds_since(start));
        SDL_RenderPresent(w->renderer);
        const double spare = FRAME_MS - milliseconds_since(start);
        if (spare >= 1) SDL_Delay((Uint32)spare);
    }
    report(&t);
}

int main(int argc, char** argv) {
    options o;
    if (read_options(&o, argc, argv) != 0) {
        fprintf(stderr, "usage: live_window [--silent] [--frames N]\n");
        return 2;
    }
    page p = {.canvas = new_canvas(SCREEN_W, SCREEN_H)};
    window w;
    const int opened = window_open(&w);
    if (opened == 0) {
        run(&w, &p, &o);
        window_close(&w);
    }
    orvel_canvas_destroy(p.canvas);
    return opened == 0 ? 0 : 1;
}
