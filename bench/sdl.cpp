// SDL surfaces, without a renderer.
#include <SDL.h>

#include "player.h"

namespace bench {
namespace {

struct Sdl {
    SDL_Surface* surface;
    SDL_Surface* opaque;  // the same pixels without alpha, for files of 24 bits
    Uint32 word = 0;

    Sdl(int width, int height)
        : surface(SDL_CreateRGBSurfaceWithFormat(0, width, height, 32, SDL_PIXELFORMAT_ARGB8888)),
          opaque(SDL_CreateRGBSurfaceWithFormatFrom(surface->pixels, width, height, 32,
                                                    surface->pitch, SDL_PIXELFORMAT_RGB888)) {}
    ~Sdl() {
        SDL_FreeSurface(opaque);
        SDL_FreeSurface(surface);
    }
    Sdl(const Sdl&) = delete;

    static void create(int width, int height) {
        SDL_Surface* made =
            SDL_CreateRGBSurfaceWithFormat(0, width, height, 32, SDL_PIXELFORMAT_ARGB8888);
        SDL_FillRect(made, nullptr, 0xFF000000u);
        SDL_FreeSurface(made);
    }

    void ink(orvel_color c) { word = SDL_MapRGBA(surface->format, c.r, c.g, c.b, c.a); }
    void clear(orvel_color c) {
        ink(c);
        SDL_FillRect(surface, nullptr, word);
    }
    unsigned at(int x, int y) const {
        return static_cast<const Uint32*>(surface->pixels)[y * (surface->pitch / 4) + x];
    }

    void box(int x, int y, int w, int h) {
        const SDL_Rect area = {x, y, w, h};
        SDL_FillRect(surface, &area, word);
    }
    void pixel(const Op& op) { box(op.x0, op.y0, 1, 1); }
    void fill(const Op& op) { box(op.x0, op.y0, op.x1, op.y1); }
    void rect(const Op& op) {
        const SDL_Rect sides[] = {{op.x0, op.y0, op.x1, 1},
                                  {op.x0, op.y0 + op.y1 - 1, op.x1, 1},
                                  {op.x0, op.y0, 1, op.y1},
                                  {op.x0 + op.x1 - 1, op.y0, 1, op.y1}};
        SDL_FillRects(surface, sides, 4, word);
    }

    bool save(const char* path, int depth) {
        return SDL_SaveBMP(depth == 24 ? opaque : surface, path) == 0;
    }
    void bitmap(const Workload& work) {
        SDL_Surface* loaded = SDL_LoadBMP(work.file.c_str());
        if (!loaded) return;
        SDL_SetSurfaceBlendMode(loaded, SDL_BLENDMODE_NONE);
        SDL_Rect place = {work.x, work.y, 0, 0};
        SDL_BlitSurface(loaded, nullptr, surface, &place);
        SDL_FreeSurface(loaded);
    }
};

}  // namespace

Implementation sdl() {
    SDL_version v;
    SDL_GetVersion(&v);
    return implementation<Sdl>("SDL2 surface " + std::to_string(v.major) + "." +
                               std::to_string(v.minor) + "." + std::to_string(v.patch));
}

}  // namespace bench
