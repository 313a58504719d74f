// Windows of real programs on a virtual display, with a pointer and a keyboard.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "support/background.h"
#include "support/files.h"

namespace orvel_test {

/// A display of X11's, which programs that are started from now on use.
class Display {
public:
    explicit Display(const std::string& size = "1300x1000");

    /// Why there is none; empty when there is one.
    const std::string& error() const { return error_; }

    /// Waits for the window of this title, which what follows is about, and gives it the keyboard.
    /// False when there is none after 30 seconds.
    bool find(const std::string& title);

    void move(int x, int y);
    void press(int x, int y);
    void release();
    void click(int x, int y);
    void wheel(bool down);
    void key(const std::string& name);
    void type(const std::string& text);
    void resize(int width, int height);
    /// What the window shows, to a PNG file.
    void photograph(const std::string& file);

private:
    void xdotool(std::vector<std::string> arguments);

    TempFolder folder_;
    std::string error_, window_;
    std::unique_ptr<Background> server_;
};

}  // namespace orvel_test
