// What the pointer does to a screen.
#include "live.h"

namespace {

using namespace orvel_test;

const std::string kTwo = scene(
    R"({"column": [{"button": "Go", "id": "go", "height": 30},
        {"toggle": "${on}", "id": "light", "width": 60, "height": 30},
        {"button": "Nothing", "height": 30}]})",
    R"("size": [100, 100], "sample": {"on": false}, )");

TEST(PointerTest, AButtonActsWhereItIsLetGoOverItself) {
    const Used used(kTwo);
    used.press(50, 15);
    EXPECT_EQ(used.line("go"), "button \"Go\" hover pressed focus");
    EXPECT_EQ(used.changes(), "");
    used.release(51, 16);
    EXPECT_EQ(used.line("go"), "button \"Go\" hover focus");
    EXPECT_EQ(used.changes(), "press #go\n");
}

TEST(PointerTest, DraggingOffCancelsAndDraggingBackArmsAgain) {
    const Used used(kTwo);
    used.press(50, 15);
    used.move(50, 45);
    EXPECT_EQ(used.line("go"), "button \"Go\" focus");
    EXPECT_EQ(used.line("light"), "toggle off");  // nothing else is hovered meanwhile
    used.move(50, 15);
    EXPECT_EQ(used.line("go"), "button \"Go\" hover pressed focus");
    used.move(50, 45);
    used.release(50, 45);
    EXPECT_EQ(used.changes(), "");
    EXPECT_EQ(used.value("on"), "false");
}

TEST(PointerTest, AToggleSetsTheValueOfTheData) {
    const Used used(kTwo);
    used.click(50, 45);
    EXPECT_EQ(used.changes(), "value #light on=true\n");
    EXPECT_EQ(used.value("on"), "true");
    EXPECT_EQ(used.line("light"), "toggle on hover focus");
}

TEST(PointerTest, WhatHasNoIdAndNoValueCannotBeUsed) {
    const Used used(kTwo);
    used.click(50, 75);
    EXPECT_EQ(used.changes(), "");
    EXPECT_EQ(kit_screen_pointer(used.screen.get()), KIT_POINTER_ARROW);
}

TEST(PointerTest, LeavingLetsGoWithoutEffect) {
    const Used used(kTwo);
    used.press(50, 15);
    used.leave();
    EXPECT_EQ(used.line("go"), "button \"Go\" focus");
    used.release(50, 15);
    EXPECT_EQ(used.changes(), "");
}

}  // namespace
