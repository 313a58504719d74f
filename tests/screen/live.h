// Screens that are used: events in short, and what comes of them.
#pragma once

#include "screens.h"

namespace orvel_test {

/// A screen, and a hand on it.
struct Used {
    explicit Used(const std::string& text, const char* data = nullptr,
                  const kit_screen_host* host = nullptr)
        : screen(opened(text, data, host)) {}

    int send(const kit_screen_event& event) const {
        return kit_screen_send(screen.get(), &event, now);
    }
    void pointer(int kind, int x, int y, int dx = 0, int dy = 0) const {
        kit_screen_event event = {};
        event.kind = kind;
        event.x = x;
        event.y = y;
        event.dx = dx;
        event.dy = dy;
        EXPECT_EQ(send(event), 0);
    }
    void move(int x, int y) const { pointer(KIT_EVENT_MOVE, x, y); }
    void press(int x, int y) const { pointer(KIT_EVENT_PRESS, x, y); }
    void release(int x, int y) const { pointer(KIT_EVENT_RELEASE, x, y); }
    void leave() const { pointer(KIT_EVENT_LEAVE, 0, 0); }
    void wheel(int x, int y, int dy, int dx = 0) const { pointer(KIT_EVENT_WHEEL, x, y, dx, dy); }
    void click(int x, int y) const {
        press(x, y);
        release(x, y);
    }
    void key(int key, unsigned modifiers = 0, int times = 1) const {
        kit_screen_event event = {};
        event.kind = KIT_EVENT_KEY;
        event.key = key;
        event.modifiers = modifiers;
        for (; times > 0; --times) EXPECT_EQ(send(event), 0);
    }
    void plain(int kind, const char* text = nullptr) const {
        kit_screen_event event = {};
        event.kind = kind;
        event.text = text;
        EXPECT_EQ(send(event), 0);
    }
    void type(const char* text) const { plain(KIT_EVENT_TEXT, text); }
    void wait(long long ms) {
        now += ms;
        plain(KIT_EVENT_TIME);
    }
    int focus(const char* id) const { return kit_screen_focus(screen.get(), id); }

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
    bool has(const std::string& id, const std::string& word) const {
        return (line(id) + ' ').find(' ' + word + ' ') != std::string::npos;
    }
    /// The ids of those with the keyboard, each with a blank before it.
    std::string focused() const {
        std::string ids, all = described(screen.get());
        for (std::size_t at = 0; (at = all.find(" focus #", at)) != std::string::npos; ++at) {
            const std::size_t id = at + 8;
            ids += ' ' + all.substr(id, all.find(' ', id) - id);
        }
        return ids;
    }
    kit_box box(const char* id) const {
        kit_box box = {};
        kit_screen_box(screen.get(), id, &box);
        return box;
    }

    /// What is described behind the tree: lists and tooltips.
    std::string popped() const {
        const std::string all = described(screen.get());
        const std::size_t end = all.find("\ncolumn", 1), tip = all.find("\ntooltip", 1);
        const std::size_t at = std::min(end, tip);
        return at == std::string::npos ? "" : all.substr(at + 1);
    }

    std::string value(const char* name) const {
        const char* json = kit_screen_get(screen.get(), name);
        return json ? json : "";
    }

    ScreenPtr screen;
    long long now = 0;
};

/// A screen of one control that is 100 pixels wide and 30 high, at the top left.
inline std::string one(const std::string& control, const std::string& sample) {
    return scene(R"({"column": [{)" + control + R"(, "id": "it", "width": 100, "height": 30}]})",
                 R"("size": [200, 200], "sample": )" + sample + ", ");
}

}  // namespace orvel_test
