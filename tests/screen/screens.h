// Screens for tests, from scenes written in the test.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

#include "orvel_screen.h"
#include "support/picture.h"

namespace orvel_test {

struct CloseScreen {
    void operator()(kit_screen* screen) const { kit_screen_close(screen); }
};
using ScreenPtr = std::unique_ptr<kit_screen, CloseScreen>;

/// The scene with this root; @p head are further keys, each with a comma behind it.
inline std::string scene(const std::string& root, const std::string& head = "") {
    return "{\"orvel\": 1, " + head + "\"root\": " + root + "}";
}

/// Scenes in memory, by name, and a host that has them included.
using Files = std::map<std::string, std::string>;
inline kit_screen_host including(Files& files) {
    kit_screen_host host = {};
    host.self = &files;
    host.include = [](void* self, const char* name, size_t* length) -> const char* {
        const Files& all = *static_cast<const Files*>(self);
        const auto at = all.find(name);
        if (at == all.end()) return nullptr;
        *length = at->second.size();
        return at->second.data();
    };
    return host;
}

/// The reason why a scene is refused; empty when it is not.
inline std::string refusal(const std::string& text, const char* data = nullptr,
                           const kit_screen_host* host = nullptr) {
    char why[400] = "";
    const ScreenPtr screen(
        kit_screen_read(text.data(), text.size(), nullptr, data, host, why, sizeof why));
    EXPECT_EQ(screen == nullptr, *why != '\0');
    return why;
}

inline ScreenPtr opened(const std::string& text, const char* data = nullptr,
                        const kit_screen_host* host = nullptr) {
    char why[400] = "";
    ScreenPtr screen(
        kit_screen_read(text.data(), text.size(), nullptr, data, host, why, sizeof why));
    EXPECT_STREQ(why, "");
    return screen;
}

/// A canvas of the screen's size, with the screen on it.
inline CanvasPtr drawn(kit_screen* screen) {
    int w = 0, h = 0;
    kit_screen_size(screen, &w, &h);
    CanvasPtr canvas = make_canvas(w, h);
    kit_screen_expose(screen, nullptr);
    EXPECT_EQ(kit_screen_draw(screen, canvas.get(), nullptr), 0);
    return canvas;
}

inline std::string described(kit_screen* screen) { return kit_screen_describe(screen); }

/// What the screen of this root finds wrong with itself.
inline std::string reported(const std::string& root,
                            const std::string& head = "\"size\": [200, 100], ") {
    return kit_screen_report(opened(scene(root, head)).get());
}

/// What kit_screen_set() says; empty when it does it.
inline std::string set(kit_screen* screen, const char* name, const char* json) {
    char why[400] = "";
    const int status = kit_screen_set(screen, name, json, why, sizeof why);
    EXPECT_EQ(status, *why == '\0' ? 0 : -1);
    return why;
}

}  // namespace orvel_test

inline bool operator==(const kit_box& a, const kit_box& b) {
    return a.x == b.x && a.y == b.y && a.w == b.w && a.h == b.h;
}

inline std::ostream& operator<<(std::ostream& out, const kit_box& box) {
    return out << box.x << ',' << box.y << ' ' << box.w << 'x' << box.h;
}
