// A window of SDL2's that shows a canvas.
#pragma once

#include <SDL.h>

#include <memory>
#include <string>
#include <vector>

#include "orvel_screen.h"
#include "view/zoom.h"

namespace orvel_tools {

class Window {
public:
    /// A window for a screen of this size. @p zoom may be 0, which is what suits the display; a
    /// screen that is @p fixed keeps its size, and is shown as large as the window allows.
    Window(const std::string& title, Sides screen, int zoom, bool fixed);
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    /// Why there is no window; empty when there is one.
    const std::string& error() const { return error_; }

    /// No screen is smaller than this one; called anew when the scene changes.
    void set_smallest(Sides screen);
    /// The size that the screen should have in the window as it is now.
    Sides wanted() const;

    /// Shows what is on the canvas in @p dirty, around it @p ground.
    void show(const orvel_canvas* canvas, const kit_box& dirty, orvel_color ground);
    /// The next show() shows everything.
    void expose() { shown_ = {}; }

    /// The pixel of the screen at a place of the window's.
    void pixel(int& x, int& y) const;
    /// The box of the window's at a box of the screen's.
    SDL_Rect place_of(const kit_box& box) const;

private:
    void copy(const orvel_canvas* canvas, const kit_box& box, SDL_Surface* to);

    SDL_Window* window_ = nullptr;
    std::string error_;
    Sides smallest_;
    int zoom_;
    bool fixed_;
    kit_box place_ = {};  // of the screen, in pixels of the display
    Sides shown_;         // the size of the window of which all is shown
    std::vector<unsigned char> row_, rows_;
};

}  // namespace orvel_tools
