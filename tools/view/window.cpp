#include "view/window.h"

#include <algorithm>
#include <cstring>

namespace orvel_tools {
namespace {

constexpr std::size_t kPixel = 4;  // bytes

/// The size of a window in pixels of the display.
Sides pixels_of(SDL_Window* window) {
    Sides size;
#if SDL_VERSION_ATLEAST(2, 26, 0)
    SDL_GetWindowSizeInPixels(window, &size.w, &size.h);
#else
    SDL_GetWindowSize(window, &size.w, &size.h);
#endif
    return size;
}

/// How many pixels a display has for each of a window's.
int density_of(SDL_Window* window) {
    int w = 0, h = 0;
    SDL_GetWindowSize(window, &w, &h);
    return w > 0 ? std::max(1, (pixels_of(window).w + w / 2) / w) : 1;
}

/// What a window may take of its display.
Sides display_of(SDL_Window* window) {
    SDL_Rect usable = {};
    SDL_GetDisplayUsableBounds(std::max(0, SDL_GetWindowDisplayIndex(window)), &usable);
    const int density = density_of(window);
    return {usable.w * density, usable.h * density};
}

kit_box within(const kit_box& box, int w, int h) {
    const int x = std::clamp(box.x, 0, w), y = std::clamp(box.y, 0, h);
    return {x, y, std::clamp(box.x + box.w, x, w) - x, std::clamp(box.y + box.h, y, h) - y};
}

}  // namespace

Window::Window(const std::string& title, Sides screen, int zoom, bool fixed)
    : zoom_(zoom), fixed_(fixed) {
    constexpr Uint32 kFlags = SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI | SDL_WINDOW_HIDDEN;
    constexpr int kMiddle = SDL_WINDOWPOS_CENTERED;
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
    if (SDL_Init(SDL_INIT_VIDEO) == 0) {
        window_ = SDL_CreateWindow(title.c_str(), kMiddle, kMiddle, screen.w, screen.h, kFlags);
    }
    if (!window_) {
        error_ = std::string("no window: ") + SDL_GetError();
        return;
    }
    if (zoom_ == 0) zoom_ = first_zoom(screen, display_of(window_), density_of(window_));
    set_smallest(screen);
    const int density = density_of(window_);
    SDL_SetWindowSize(window_, screen.w * zoom_ / density, screen.h * zoom_ / density);
    SDL_SetWindowPosition(window_, kMiddle, kMiddle);
    SDL_ShowWindow(window_);
}

Window::~Window() {
    if (window_) SDL_DestroyWindow(window_);
    SDL_Quit();
}

void Window::set_smallest(Sides screen) {
    smallest_ = screen;
    const int zoom = fixed_ ? 1 : zoom_, density = density_of(window_);
    SDL_SetWindowMinimumSize(window_, std::max(1, screen.w * zoom / density),
                             std::max(1, screen.h * zoom / density));
}

Sides Window::wanted() const {
    return fixed_ ? smallest_ : screen_filling(pixels_of(window_), zoom_, smallest_);
}

void Window::copy(const orvel_canvas* canvas, const kit_box& box, SDL_Surface* to) {
    const auto w = static_cast<std::size_t>(box.w), h = static_cast<std::size_t>(box.h);
    const auto zoom = static_cast<std::size_t>(zoom_);
    const std::size_t wide = w * zoom * kPixel;
    kit_format format = {};
    format.layout = KIT_BGRA;
    row_.resize(w * h * kPixel);
    rows_.resize(wide * h * zoom);
    if (kit_pixels(canvas, &box, &format, row_.data(), row_.size(), 0) != 0) return;
    for (std::size_t y = 0; y < h; ++y) {
        unsigned char* const first = rows_.data() + y * zoom * wide;
        for (std::size_t x = 0; x < w * zoom; ++x) {
            std::memcpy(first + x * kPixel, row_.data() + (y * w + x / zoom) * kPixel, kPixel);
        }
        for (std::size_t i = 1; i < zoom; ++i) std::memcpy(first + i * wide, first, wide);
    }
    SDL_Surface* const from =
        SDL_CreateRGBSurfaceWithFormatFrom(rows_.data(), box.w * zoom_, box.h * zoom_, 32,
                                           static_cast<int>(wide), SDL_PIXELFORMAT_BGRA32);
    if (!from) return;
    SDL_Rect at = {place_.x + box.x * zoom_, place_.y + box.y * zoom_, 0, 0};
    SDL_SetSurfaceBlendMode(from, SDL_BLENDMODE_NONE);
    SDL_BlitSurface(from, nullptr, to, &at);
    SDL_FreeSurface(from);
}

void Window::show(const orvel_canvas* canvas, const kit_box& dirty, orvel_color ground) {
    SDL_Surface* const surface = SDL_GetWindowSurface(window_);
    if (!surface) return;  // hidden or just being resized: an event follows
    const Sides screen = {orvel_canvas_width(canvas), orvel_canvas_height(canvas)};
    const Sides window = {surface->w, surface->h};
    if (fixed_) zoom_ = largest_zoom(screen, window);
    const kit_box place = place_in(window, screen, zoom_);
    const bool whole = shown_.w != window.w || shown_.h != window.h ||
                       std::memcmp(&place, &place_, sizeof place) != 0;
    place_ = place;
    shown_ = window;
    if (whole) {
        SDL_FillRect(surface, nullptr, SDL_MapRGB(surface->format, ground.r, ground.g, ground.b));
    }
    const kit_box all = {0, 0, screen.w, screen.h};
    const kit_box box = within(whole ? all : dirty, screen.w, screen.h);
    if (box.w > 0 && box.h > 0) copy(canvas, box, surface);
    SDL_Rect changed = {place_.x + box.x * zoom_, place_.y + box.y * zoom_, box.w * zoom_,
                        box.h * zoom_};
    if (whole) changed = {0, 0, window.w, window.h};
    if (changed.w > 0 && changed.h > 0) SDL_UpdateWindowSurfaceRects(window_, &changed, 1);
}

void Window::pixel(int& x, int& y) const {
    const int density = density_of(window_);
    x = pixel_at(x * density, place_.x, zoom_);
    y = pixel_at(y * density, place_.y, zoom_);
}

SDL_Rect Window::place_of(const kit_box& box) const {
    const int density = density_of(window_);
    return {(place_.x + box.x * zoom_) / density, (place_.y + box.y * zoom_) / density,
            box.w * zoom_ / density, box.h * zoom_ / density};
}

}  // namespace orvel_tools
