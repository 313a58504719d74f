#include "support/display.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/process.h"

namespace orvel_test {

Display::Display(const std::string& size) {
    // The libraries behind a window keep some memory until the end, and unload themselves before a
    // leak could be told to be theirs.
    setenv("LSAN_OPTIONS", "detect_leaks=0", 1);
    setenv("SDL_VIDEODRIVER", "x11", 1);
    const std::string display = folder_ / "display";
    server_ = std::make_unique<Background>(
        std::vector<std::string>{"Xvfb", "-displayfd", "1", "-nolisten", "tcp", "-screen", "0",
                                 size + "x24"},
        display);
    for (int i = 0; i < 200 && read_file(display).find('\n') == std::string::npos; ++i) pause(50);
    const std::string number = read_file(display);
    if (number.empty()) error_ = "no display: " + read_file(display + ".error");
    setenv("DISPLAY", (":" + number.substr(0, number.find('\n'))).c_str(), 1);
}

bool Display::find(const std::string& title) {
    // A window may go while it is looked for, and before it has the focus.
    for (int attempt = 0; attempt < 3; ++attempt) {
        const Finished found = run({"timeout", "10", "xdotool", "search", "--sync", "--onlyvisible",
                                    "--name", "^" + title + "$"});
        window_ = found.output.substr(0, found.output.find('\n'));
        if (found.status != 0) continue;
        if (run({"timeout", "10", "xdotool", "windowfocus", "--sync", window_}).status == 0)
            return true;
    }
    return false;
}

void Display::xdotool(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"timeout", "30", "xdotool"});
    const Finished done = run(arguments);
    EXPECT_EQ(done.status, 0) << done.error;
}

void Display::move(int x, int y) {
    xdotool({"mousemove", "--window", window_, std::to_string(x), std::to_string(y)});
}

void Display::press(int x, int y) {
    move(x, y);
    xdotool({"mousedown", "1"});
}

void Display::release() { xdotool({"mouseup", "1"}); }

void Display::click(int x, int y) {
    press(x, y);
    release();
}

void Display::wheel(bool down) { xdotool({"click", down ? "5" : "4"}); }

void Display::key(const std::string& name) { xdotool({"key", name}); }

void Display::type(const std::string& text) { xdotool({"type", "--delay", "40", text}); }

void Display::resize(int width, int height) {
    xdotool({"windowsize", "--sync", window_, std::to_string(width), std::to_string(height)});
}

void Display::photograph(const std::string& file) {
    const Finished done = run({"timeout", "30", "import", "-window", window_, file});
    EXPECT_EQ(done.status, 0) << done.error;
}

}  // namespace orvel_test
