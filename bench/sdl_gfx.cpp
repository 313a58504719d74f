// SDL's software renderer, and SDL2_gfx on it for what the renderer lacks.
#include <SDL.h>
#include <SDL2_gfxPrimitives.h>

#include "player.h"

namespace bench {
namespace {

Sint16 narrow(int value) { return static_cast<Sint16>(value); }

struct SdlGfx {
    SDL_Surface* surface;
    SDL_Renderer* renderer;
    Uint32 word = 0;

    SdlGfx(int width, int height)
        : surface(SDL_CreateRGBSurfaceWithFormat(0, width, height, 32, SDL_PIXELFORMAT_ARGB8888)),
          renderer(SDL_CreateSoftwareRenderer(surface)) {}
    ~SdlGfx() {
        gfxPrimitivesSetFont(nullptr, 0, 0);  // forgets glyphs kept for this renderer
        SDL_DestroyRenderer(renderer);
        SDL_FreeSurface(surface);
    }
    SdlGfx(const SdlGfx&) = delete;

    static void create(int width, int height) {
        SdlGfx made(width, height);
        made.clear({0, 0, 0, 255});
        made.finish();
    }

    void ink(orvel_color c) {
        word = c.r | static_cast<Uint32>(c.g) << 8 | static_cast<Uint32>(c.b) << 16 | 0xFF000000u;
        SDL_SetRenderDrawColor(renderer, c.r, c.g, c.b, c.a);
    }
    void clear(orvel_color c) {
        ink(c);
        SDL_RenderClear(renderer);
    }
    void finish() { SDL_RenderFlush(renderer); }
    unsigned at(int x, int y) const {
        return static_cast<const Uint32*>(surface->pixels)[y * (surface->pitch / 4) + x];
    }

    void pixel(const Op& op) { SDL_RenderDrawPoint(renderer, op.x0, op.y0); }
    void line(const Op& op) { SDL_RenderDrawLine(renderer, op.x0, op.y0, op.x1, op.y1); }
    void rect(const Op& op) {
        const SDL_Rect area = {op.x0, op.y0, op.x1, op.y1};
        SDL_RenderDrawRect(renderer, &area);
    }
    void fill(const Op& op) {
        const SDL_Rect area = {op.x0, op.y0, op.x1, op.y1};
        SDL_RenderFillRect(renderer, &area);
    }
    void circle(const Op& op) {
        circleColor(renderer, narrow(op.x0), narrow(op.y0), narrow(op.x1), word);
    }
    void disc(const Op& op) {
        filledCircleColor(renderer, narrow(op.x0), narrow(op.y0), narrow(op.x1), word);
    }
    void triangle(const Op& op) {
        filledTrigonColor(renderer, narrow(op.x0), narrow(op.y0), narrow(op.x1), narrow(op.y1),
                          narrow(op.x2), narrow(op.y2), word);
    }
    void text(const Op& op) {
        stringColor(renderer, narrow(op.x0), narrow(op.y0), op.text.c_str(), word);
    }
};

}  // namespace

Implementation sdl_gfx() {
    return implementation<SdlGfx>("SDL2_gfx " + std::to_string(SDL2_GFXPRIMITIVES_MAJOR) + "." +
                                  std::to_string(SDL2_GFXPRIMITIVES_MINOR) + "." +
                                  std::to_string(SDL2_GFXPRIMITIVES_MICRO));
}

}  // namespace bench
