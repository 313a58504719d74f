// Words on SDL surfaces by SDL_ttf.
#include <SDL_ttf.h>

#include <map>

#include "player.h"

namespace bench {
namespace {

struct SdlTtf {
    SDL_Surface* surface;
    std::map<std::pair<int, int>, TTF_Font*> fonts;  // by size and weight
    SDL_Color color = {};
    Uint32 paper = 0;

    SdlTtf(int width, int height)
        : surface(SDL_CreateRGBSurfaceWithFormat(0, width, height, 32, SDL_PIXELFORMAT_ARGB8888)) {}
    ~SdlTtf() {
        for (const auto& [key, font] : fonts) TTF_CloseFont(font);
        SDL_FreeSurface(surface);
    }
    SdlTtf(const SdlTtf&) = delete;

    void ink(orvel_color c) { color = {c.r, c.g, c.b, c.a}; }
    void clear(orvel_color c) {
        SDL_FillRect(surface, nullptr, SDL_MapRGBA(surface->format, c.r, c.g, c.b, c.a));
    }
    unsigned at(int x, int y) const {
        return static_cast<const Uint32*>(surface->pixels)[y * (surface->pitch / 4) + x];
    }

    void words(const Op& op) {
        TTF_Font*& font = fonts[{op.x1, op.y1}];
        if (!font) font = TTF_OpenFont(op.y1 ? ORVEL_BENCH_BOLD : ORVEL_BENCH_FONT, op.x1);
        SDL_Surface* made = TTF_RenderUTF8_Solid(font, op.text.c_str(), color);
        SDL_Rect place = {op.x0, op.y0 - TTF_FontAscent(font), 0, 0};
        SDL_BlitSurface(made, nullptr, surface, &place);
        SDL_FreeSurface(made);
    }
};

}  // namespace

Implementation sdl_ttf() {
    TTF_Init();
    const SDL_version* v = TTF_Linked_Version();
    return implementation<SdlTtf>("SDL2_ttf " + std::to_string(v->major) + "." +
                                  std::to_string(v->minor) + "." + std::to_string(v->patch));
}

}  // namespace bench
