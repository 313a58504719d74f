/* A screen in a window of SDL2's that answers the pointer and the keyboard: for hosts to copy.
   Usage: live_window [SCENE] */
#include <SDL.h>
#include <orvel_screen.h>
#include <stdio.h>

#include "greenhouse.h"

/* What SDL2 calls a key, as a screen does. */
static int key_of(SDL_Keycode key) {
    static const SDL_Keycode keys[] = {
        SDLK_RETURN, SDLK_TAB,  SDLK_ESCAPE, SDLK_BACKSPACE, SDLK_DELETE, SDLK_LEFT,    SDLK_RIGHT,
        SDLK_UP,     SDLK_DOWN, SDLK_HOME,   SDLK_END,       SDLK_PAGEUP, SDLK_PAGEDOWN};
    for (int i = 0; i < (int)(sizeof keys / sizeof *keys); ++i) {
        if (keys[i] == key) return KIT_KEY_ENTER + i; /* they are numbered in this order */
    }
    return key >= SDLK_F1 && key <= SDLK_F12 ? KIT_KEY_F1 + (key - SDLK_F1) : key;
}

static unsigned modifiers_of(int held) {
    return (held & KMOD_SHIFT ? KIT_MOD_SHIFT : 0U) |
           (held & (KMOD_CTRL | KMOD_GUI) ? KIT_MOD_CONTROL : 0U) |
           (held & KMOD_ALT ? KIT_MOD_ALT : 0U);
}

/* What happened in the window, as a screen is told it. */
static kit_screen_event event_of(const SDL_Event* from) {
    kit_screen_event to = {.kind = KIT_EVENT_TIME};
    switch (from->type) {
    case SDL_MOUSEMOTION:
        to.kind = KIT_EVENT_MOVE;
        to.x = from->motion.x, to.y = from->motion.y;
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        to.kind = from->type == SDL_MOUSEBUTTONDOWN ? KIT_EVENT_PRESS : KIT_EVENT_RELEASE;
        to.x = from->button.x, to.y = from->button.y;
        to.button = from->button.button - SDL_BUTTON_LEFT;
        to.modifiers = modifiers_of((int)SDL_GetModState());
        break;
    case SDL_MOUSEWHEEL:
        to.kind = KIT_EVENT_WHEEL;
        SDL_GetMouseState(&to.x, &to.y);
        to.dx = 120 * from->wheel.x, to.dy = 120 * from->wheel.y;
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
        break;
    default: break;
    }
    return to;
}

/* Tells it, and takes what comes of it: the host's own part, and the clipboard. */
static void send(kit_screen* screen, kit_screen_event event, greenhouse* g) {
    kit_change change;
    kit_screen_send(screen, &event, (long long)SDL_GetTicks64());
    while (kit_screen_next(screen, &change) == 1) {
        greenhouse_take(g, screen, &change);
        if (change.kind != KIT_CHANGE_PASTE) continue;
        char* text = SDL_GetClipboardText();
        event = (kit_screen_event){.kind = KIT_EVENT_PASTE, .text = text};
        kit_screen_send(screen, &event, (long long)SDL_GetTicks64());
        SDL_free(text);
    }
}

/* Draws what changed, and copies that part of the canvas to the window. */
static void show(kit_screen* screen, orvel_canvas* canvas, SDL_Surface* pixels,
                 SDL_Window* window) {
    const kit_format rgba = {.layout = KIT_RGBA};
    const size_t row = (size_t)pixels->pitch;
    kit_box dirty;
    if (kit_screen_draw(screen, canvas, &dirty) != 0 || dirty.w == 0) return;
    kit_pixels(canvas, &dirty, &rgba, pixels->pixels, row * (size_t)dirty.h, row);
    SDL_Rect from = {0, 0, dirty.w, dirty.h}, to = {dirty.x, dirty.y, dirty.w, dirty.h};
    SDL_BlitSurface(pixels, &from, SDL_GetWindowSurface(window), &to);
    SDL_UpdateWindowSurfaceRects(window, &to, 1);
}

static void run(kit_screen* screen, SDL_Window* window, int w, int h) {
    orvel_canvas* canvas = kit_canvas(w, h);
    SDL_Surface* pixels = SDL_CreateRGBSurfaceWithFormat(0, w, h, 32, SDL_PIXELFORMAT_RGBA32);
    Uint64 next = SDL_GetTicks64(); /* when the greenhouse moves */
    int open = canvas && pixels;
    greenhouse g;
    greenhouse_open(&g, screen);
    while (open) {
        show(screen, canvas, pixels, window);
        /* Waits until something happens, or time does it: no time of the processor is taken. */
        const Uint64 now = SDL_GetTicks64();
        const long long own = next > now ? (long long)(next - now) : 0;
        const long long screens = kit_screen_wait(screen, (long long)now);
        SDL_WaitEventTimeout(NULL, (int)(screens >= 0 && screens < own ? screens : own));
        for (SDL_Event event; SDL_PollEvent(&event);) {
            if (event.type == SDL_QUIT) open = 0;
            if (event.type == SDL_WINDOWEVENT) kit_screen_expose(screen, NULL); /* it may be bare */
            send(screen, event_of(&event), &g);
        }
        if (SDL_GetTicks64() >= next) greenhouse_tick(&g, screen), next += GREENHOUSE_TICK_MS;
        send(screen, (kit_screen_event){.kind = KIT_EVENT_TIME}, &g);
    }
    SDL_FreeSurface(pixels);
    orvel_canvas_destroy(canvas);
}

int main(int argc, char** argv) {
    char why[300];
    int w, h;
    const char* scene = argc > 1 ? argv[1] : OWN_SCENE;
    kit_screen* screen = kit_screen_open(scene, NULL, NULL, why, sizeof why);
    SDL_Window* window = NULL;
    kit_screen_size(screen, &w, &h);
    if (screen && SDL_Init(SDL_INIT_VIDEO) == 0) {
        window =
            SDL_CreateWindow("Greenhouse", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, w, h, 0);
    }
    if (window) {
        run(screen, window, w, h);
    } else {
        fprintf(stderr, "live_window: %s\n", screen ? SDL_GetError() : why);
    }
    SDL_DestroyWindow(window);
    SDL_Quit();
    kit_screen_close(screen);
    return window ? 0 : 1;
}
