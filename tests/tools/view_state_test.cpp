// What a view carries over to the scene that was read anew.
#include "view/state.h"

#include <gtest/gtest.h>

namespace {

using orvel_tools::carry_over;
using orvel_tools::focused;

struct Close {
    void operator()(kit_screen* screen) const { kit_screen_close(screen); }
};
using Screen = std::unique_ptr<kit_screen, Close>;

Screen read(const std::string& nodes, const char* data) {
    const std::string scene =
        R"({"orvel": 1, "size": [200, 200], "root": {"column": [)" + nodes + "]}}";
    char why[300] = "";
    Screen screen(
        kit_screen_read(scene.data(), scene.size(), nullptr, data, nullptr, why, sizeof why));
    EXPECT_TRUE(screen) << why;
    return screen;
}

constexpr const char* kTwo = R"({"button": "a focus #no \" #b", "id": "first"},
                                {"toggle": "${on}", "id": "on"}, {"slider": "${x}", "id": "x"})";

TEST(ViewState, TheKeyboardIsFoundByTheIdOfItsNode) {
    const Screen screen = read(kTwo, R"({"on": false, "x": 0.5})");
    EXPECT_EQ(focused(screen.get()), "");
    EXPECT_EQ(kit_screen_focus(screen.get(), "first"), 0);
    EXPECT_EQ(focused(screen.get()), "first");
    EXPECT_EQ(kit_screen_focus(screen.get(), "on"), 0);
    EXPECT_EQ(focused(screen.get()), "on");
}

TEST(ViewState, ValuesAndTheKeyboardSurviveWhereTheyAreStillThere) {
    const Screen from = read(kTwo, R"({"on": true, "x": 0.75})");
    EXPECT_EQ(kit_screen_focus(from.get(), "on"), 0);
    const Screen to = read(R"({"toggle": "${on}", "id": "on"}, {"text": "${x}"})",
                           R"({"on": false, "x": "none"})");
    carry_over(from.get(), to.get(), {"on", "x", "gone"});
    EXPECT_STREQ(kit_screen_get(to.get(), "on"), "true");
    EXPECT_STREQ(kit_screen_get(to.get(), "x"), "0.75");
    EXPECT_EQ(focused(to.get()), "on");
    EXPECT_EQ(kit_screen_get(to.get(), "gone"), nullptr);
}

TEST(ViewState, TypingGoesOnAtTheEndOfAField) {
    const char* const field = R"({"textbox": "${t}", "id": "t"})";
    const Screen from = read(field, R"({"t": "hello"})"), to = read(field, R"({"t": ""})");
    EXPECT_EQ(kit_screen_focus(from.get(), "t"), 0);
    carry_over(from.get(), to.get(), {"t"});
    kit_screen_event typed = {};
    typed.kind = KIT_EVENT_TEXT;
    typed.text = "Y";
    EXPECT_EQ(kit_screen_send(to.get(), &typed, 0), 0);
    EXPECT_STREQ(kit_screen_get(to.get(), "t"), "\"helloY\"");
}

TEST(ViewState, ASliderWithTheKeyboardStaysWhereItIs) {
    const Screen from = read(kTwo, R"({"on": true, "x": 0.75})");
    const Screen to = read(kTwo, R"({"on": true, "x": 0.25})");
    EXPECT_EQ(kit_screen_focus(from.get(), "x"), 0);
    carry_over(from.get(), to.get(), {"x"});
    EXPECT_EQ(focused(to.get()), "x");
    EXPECT_STREQ(kit_screen_get(to.get(), "x"), "0.75");
}

TEST(ViewState, WhatTheNewSceneRefusesIsLeftOut) {
    const Screen from = read(kTwo, R"({"on": true, "x": 0.75})");
    EXPECT_EQ(kit_screen_focus(from.get(), "x"), 0);
    const Screen to = read(R"({"toggle": "${x}", "id": "on"})", R"({"x": true})");
    carry_over(from.get(), to.get(), {"x"});
    EXPECT_STREQ(kit_screen_get(to.get(), "x"), "true");
    EXPECT_EQ(focused(to.get()), "");
}

}  // namespace
