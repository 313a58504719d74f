/* A screen in a window of SDL2's that answers the pointer and the keyboard: for hosts to copy.
   Usage: live_window [--frames N] [SCENE] */
#include <SDL.h>
#include <orvel_screen.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "greenhouse.h"

typedef struct window {
    SDL_Window* window;
    SDL_Renderer* renderer;
    SDL_Texture* texture;
    kit_screen* screen;
    orvel_canvas* canvas;
    int w, h, x, y; /* its size, and where the pointer is */
} window;

/* What SDL2 calls a key, as a screen does; 0 for what screens do not know. */
static int key_of(SDL_Keycode key) {
    static const SDL_Keycode keys[] = {
        SDLK_RETURN, SDLK_TAB,  SDLK_ESCAPE, SDLK_BACKSPACE, SDLK_DELETE, SDLK_LEFT,    SDLK_RIGHT,
        SDLK_UP,     SDLK_DOWN, SDLK_HOME,   SDLK_END,       SDLK_PAGEUP, SDLK_PAGEDOWN};
    for (int i = 0; i < (int)(sizeof keys / sizeof *keys); ++i) {
        if (keys[i] == key) return KIT_KEY_ENTER + i; /* they are numbered in this order */
    }
    if (key >= SDLK_F1 && key <= SDLK_F12) return KIT_KEY_F1 + (key - SDLK_F1);
    return key >= ' ' && key <= 0x10FFFF ? key : 0;
}

static unsigned modifiers_of(int held) {
    return (held & KMOD_SHIFT ? KIT_MOD_SHIFT : 0U) |
           (held & (KMOD_CTRL | KMOD_GUI) ? KIT_MOD_CONTROL : 0U) |
           (held & KMOD_ALT ? KIT_MOD_ALT : 0U);
}

static kit_screen_event pointer(int kind, int x, int y) {
    return (kit_screen_event){.kind = kind, .x = x, .y = y};
}

/* 0 when the window is to close. */
static int handle(window* w, const SDL_Event* from) {
    kit_screen_event to = {.kind = -1}; /* a kind that no screen knows has no effect */
    switch (from->type) {
    case SDL_QUIT: return 0;
    case SDL_MOUSEMOTION:
        to = pointer(KIT_EVENT_MOVE, w->x = from->motion.x, w->y = from->motion.y);
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        to = pointer(from->type == SDL_MOUSEBUTTONDOWN ? KIT_EVENT_PRESS : KIT_EVENT_RELEASE,
                     from->button.x, from->button.y);
        to.button = from->button.button - SDL_BUTTON_LEFT;
        to.modifiers = modifiers_of((int)SDL_GetModState());
        break;
    case SDL_MOUSEWHEEL:
        to = pointer(KIT_EVENT_WHEEL, w->x, w->y);
        to.dx = from->wheel.x * 120;
        to.dy = from->wheel.y * 120;
        break;
    case SDL_KEYDOWN:
        to.kind = KIT_EVENT_KEY;
        to.key = key_of(from->key.keysym.sym);
        to.modifiers = modifiers_of(from->key.keysym.mod);
        break;
    case SDL_TEXTINPUT:
        to.kind = KIT_EVENT_TEXT;
        to.text = from->text.text;
        break;
    case SDL_WINDOWEVENT:
        if (from->window.event == SDL_WINDOWEVENT_LEAVE) to.kind = KIT_EVENT_LEAVE;
        if (from->window.event == SDL_WINDOWEVENT_EXPOSED) kit_screen_expose(w->screen, NULL);
        break;
    default: break;
    }
    kit_screen_send(w->screen, &to, (long long)SDL_GetTicks64());
    return 1;
}

/* What the screen's controls did: the host's own part, and the clipboard. */
static void take_changes(window* w, greenhouse* g) {
    kit_change change;
    while (kit_screen_next(w->screen, &change) == 1) {
        greenhouse_take(g, w->screen, &change);
        if (change.kind == KIT_CHANGE_PASTE) {
            char* text = SDL_GetClipboardText();
            kit_screen_event paste = {.kind = KIT_EVENT_PASTE, .text = text};
            kit_screen_send(w->screen, &paste, (long long)SDL_GetTicks64());
            SDL_free(text);
        }
    }
}

/* Draws what changed, and copies that part of the canvas to the window. 1 when anything did. */
static int show(window* w, unsigned char* pixels, size_t size) {
    const kit_format rgba = {.layout = KIT_RGBA};
    kit_box dirty;
    if (kit_screen_draw(w->screen, w->canvas, &dirty) != 0 || dirty.w == 0) return 0;
    const SDL_Rect part = {dirty.x, dirty.y, dirty.w, dirty.h};
    kit_pixels(w->canvas, &dirty, &rgba, pixels, size, 0);
    SDL_UpdateTexture(w->texture, &part, pixels, dirty.w * 4);
    SDL_RenderClear(w->renderer);
    SDL_RenderCopy(w->renderer, w->texture, NULL, NULL);
    SDL_RenderPresent(w->renderer);
    return 1;
}

/* Until the window is closed, or after so many pictures. */
static void run(window* w, long frames) {
    const size_t size = (size_t)w->w * (size_t)w->h * 4;
    unsigned char* pixels = malloc(size);
    Uint64 next = SDL_GetTicks64();
    int open = pixels != NULL;
    greenhouse g;
    greenhouse_open(&g, w->screen);
    for (long shown = 0; open && (frames == 0 || shown < frames);) {
        take_changes(w, &g);
        shown += show(w, pixels, size);
        const Uint64 now = SDL_GetTicks64();
        const long long own = next > now ? (long long)(next - now) : 0;
        const long long screens = kit_screen_wait(w->screen, (long long)now);
        SDL_Event event;
        /* Waits until something happens, or time does it: no time of the processor is taken. */
        int more =
            SDL_WaitEventTimeout(&event, (int)(screens >= 0 && screens < own ? screens : own));
        for (; open && more; more = SDL_PollEvent(&event)) open = handle(w, &event);
        if (SDL_GetTicks64() >= next) greenhouse_tick(&g, w->screen), next += GREENHOUSE_TICK_MS;
        const kit_screen_event time = {.kind = KIT_EVENT_TIME};
        kit_screen_send(w->screen, &time, (long long)SDL_GetTicks64());
    }
    free(pixels);
}

static int window_open(window* w) {
    kit_screen_size(w->screen, &w->w, &w->h);
    if ((w->canvas = kit_canvas(w->w, w->h)) && SDL_Init(SDL_INIT_VIDEO) == 0 &&
        (w->window = SDL_CreateWindow("Greenhouse", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                                      w->w, w->h, SDL_WINDOW_RESIZABLE)) &&
        (w->renderer = SDL_CreateRenderer(w->window, -1, 0)) &&
        (w->texture = SDL_CreateTexture(w->renderer, SDL_PIXELFORMAT_RGBA32,
                                        SDL_TEXTUREACCESS_STREAMING, w->w, w->h))) {
        /* A larger window shows larger pixels; the pointer is told in the screen's own. */
        SDL_RenderSetLogicalSize(w->renderer, w->w, w->h);
        SDL_RenderSetIntegerScale(w->renderer, SDL_TRUE);
        return 0;
    }
    fprintf(stderr, "live_window: %s\n", SDL_GetError());
    return -1;
}

static void window_close(window* w) {
    if (w->texture) SDL_DestroyTexture(w->texture);
    if (w->renderer) SDL_DestroyRenderer(w->renderer);
    if (w->window) SDL_DestroyWindow(w->window);
    SDL_Quit();
    orvel_canvas_destroy(w->canvas);
    kit_screen_close(w->screen);
}

int main(int argc, char** argv) {
    char why[300];
    window w = {0};
    const int counted = argc > 2 && strcmp(argv[1], "--frames") == 0;
    const long frames = counted ? strtol(argv[2], NULL, 10) : 0;
    const int given = argc - (counted ? 2 : 0);
    if (given > 2 || frames < 0 || (given == 2 && argv[argc - 1][0] == '-')) {
        fprintf(stderr, "usage: live_window [--frames N] [SCENE]\n");
        return 2;
    }
    w.screen =
        kit_screen_open(given == 2 ? argv[argc - 1] : OWN_SCENE, NULL, NULL, why, sizeof why);
    if (!w.screen) fprintf(stderr, "live_window: %s\n", why);
    const int opened = w.screen && window_open(&w) == 0;
    if (opened) run(&w, frames);
    window_close(&w);
    return opened ? 0 : 1;
}
