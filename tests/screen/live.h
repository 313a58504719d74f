// Screens that are used: events in short, and what comes of them.
#pragma once

#include "screens.h"

namespace orvel_test {

/// A screen, and a hand on it.
struct Used {
    explicit Used(const std::string& text, const char* data = nullptr)
        : screen(opened(text, data)) {}

    int send(kit_screen_event event) const { return kit_screen_send(screen.get(), &event, now); }
    void pointer(int kind, int x, int y) const {
        kit_screen_event event = {};
        event.kind = kind;
        event.x = x;
        event.y = y;
        EXPECT_EQ(send(event), 0);
    }
    void move(int x, int y) const { pointer(KIT_EVENT_MOVE, x, y); }
    void press(int x, int y) const { pointer(KIT_EVENT_PRESS, x, y); }
    void release(int x, int y) const { pointer(KIT_EVENT_RELEASE, x, y); }
    void leave() const { pointer(KIT_EVENT_LEAVE, 0, 0); }
    void click(int x, int y) const {
        press(x, y);
        release(x, y);
    }

    /// All that is waiting: "value #id name=JSON", "press #id", one a line.
    std::string changes() const {
        static const char* const kKinds[] = {"value", "press", "copy", "paste", "sound"};
        std::string lines;
        kit_change change = {};
        while (kit_screen_next(screen.get(), &change) == 1) {
            lines += kKinds[change.kind];
            if (*change.id) lines += std::string(" #") + change.id;
            if (*change.name) lines += std::string(" ") + change.name;
            if (std::string(change.value) != "null") lines += std::string("=") + change.value;
            lines += '\n';
        }
        return lines;
    }

    /// The line that the screen has for the node with this id, without its indent and box.
    std::string line(const std::string& id) const {
        const std::string all = described(screen.get()), mark = " #" + id + " ";
        const std::size_t at = all.find(mark);
        if (at == std::string::npos) return "";
        const std::size_t start = all.find_first_not_of(' ', all.rfind('\n', at) + 1);
        return all.substr(start, at - start);
    }

    std::string value(const char* name) const {
        const char* json = kit_screen_get(screen.get(), name);
        return json ? json : "";
    }

    ScreenPtr screen;
    long long now = 0;
};

}  // namespace orvel_test
