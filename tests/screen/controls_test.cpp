// What controls do with their values: switches, tabs, menus, items.
#include "live.h"

namespace {

using namespace orvel_test;

TEST(ControlsTest, ACheckBoxIsTurnedOnAndOff) {
    const Used used(one(R"("checkbox": "A", "on": "${a}")", R"({"a": false})"));
    used.click(5, 15);
    EXPECT_EQ(used.changes(), "value #it a=true\n");
    used.click(5, 15);
    EXPECT_EQ(used.changes(), "value #it a=false\n");
}

TEST(ControlsTest, WithoutAValueOfTheDataItIsTheHostsToDo) {
    const Used used(one(R"("toggle": true)", "{}"));
    used.click(5, 15);
    EXPECT_EQ(used.changes(), "value #it=false\n");
    EXPECT_EQ(used.line("it"), "toggle on hover focus");
}

TEST(ControlsTest, AButtonMayHaveAState) {
    const Used used(one(R"("button": "A", "on": "${a}")", R"({"a": false})"));
    used.click(5, 15);
    EXPECT_EQ(used.changes(), "value #it a=true\npress #it\n");
    EXPECT_EQ(used.line("it"), "button \"A\" on hover focus");
}

TEST(ControlsTest, ARadioButtonStaysOn) {
    const Used used(one(R"("radio": "A", "on": "${a}")", R"({"a": false})"));
    used.click(5, 15);
    used.click(5, 15);
    EXPECT_EQ(used.changes(), "value #it a=true\n");
}

TEST(ControlsTest, RadioButtonsShareAValue) {
    const Used used(scene(
        R"({"column": [{"each": "modes", "as": "mode", "radio": "${mode.name}", "id": "mode",
                        "selected": "${now}", "value": "${mode.is}", "height": 20}]})",
        R"("size": [99, 99], "sample": {"now": 2, "modes": [{"name": "A", "is": 1},
            {"name": "B", "is": 2.0}, {"name": "C", "is": "c"}, {"name": "D", "is": true}]}, )"));
    EXPECT_EQ(used.line("mode[0]"), "radio \"A\" off");
    EXPECT_EQ(used.line("mode[1]"), "radio \"B\" on");
    used.click(5, 50);
    EXPECT_EQ(used.changes(), "value #mode[2] now=\"c\"\n");
    EXPECT_EQ(used.line("mode[1]"), "radio \"B\" off");
    EXPECT_EQ(used.line("mode[2]"), "radio \"C\" on hover focus");
    used.click(5, 50);  // is chosen already
    EXPECT_EQ(used.changes(), "");
    used.click(5, 70);
    EXPECT_EQ(used.changes(), "value #mode[3] now=true\n");
}

TEST(ControlsTest, ListItemsShareAValueAndArePressed) {
    const Used used(scene(
        R"({"column": [{"each": "rooms", "list_item": "${item}", "id": "room", "height": 20,
                        "selected": "${room}", "value": "${item}"}]})",
        R"("size": [99, 99], "sample": {"room": "Hall", "rooms": ["Hall", "Bath"]}, )"));
    used.click(5, 30);
    EXPECT_EQ(used.changes(), "value #room[1] room=\"Bath\"\npress #room[1]\n");
    EXPECT_EQ(used.line("room[1]"), "list_item \"Bath\" on hover focus");
}

TEST(ControlsTest, TabsAndMenusTakeTheItemThatIsPressed) {
    for (const char* kind : {"tabs", "menu"}) {
        const Used used(one(std::string("\"") + kind + R"(": ["A", "B", "C"], "selected": "${a}")",
                            R"({"a": 0})"));
        used.click(50, 15);
        EXPECT_EQ(used.changes(), "value #it a=1\n");
        used.press(90, 15);
        used.release(50, 15);  // another one
        used.click(99, 15);    // a pixel that three items leave
        EXPECT_EQ(used.changes(), "");
        used.click(98, 15);
        EXPECT_EQ(used.changes(), "value #it a=2\n");
        used.key(KIT_KEY_LEFT);
        EXPECT_EQ(used.changes(), "value #it a=1\n");
        used.key(KIT_KEY_END);
        used.key(KIT_KEY_RIGHT);
        EXPECT_EQ(used.changes(), "value #it a=2\n");
        used.key(KIT_KEY_HOME);
        EXPECT_EQ(used.changes(), "value #it a=0\n");
        used.key(KIT_KEY_DOWN);
        used.key(KIT_KEY_UP);
        used.key(KIT_KEY_RIGHT, KIT_MOD_CONTROL);
        EXPECT_EQ(used.changes(), "");
    }
    const Used none(one(R"("tabs": [], "selected": "${a}")", R"({"a": -1})"));
    none.click(5, 15);
    none.key(KIT_KEY_RIGHT);
    none.key(KIT_KEY_HOME);
    EXPECT_EQ(none.changes(), "");
}

TEST(ControlsTest, OfTabsWithoutSelectedTheFirstIsChosen) {
    const Used used(scene(R"({"row": [{"tabs": ["A", "B"], "id": "it", "width": 60}]})",
                          R"("size": [60, 50], )"));
    used.click(15, 25);
    EXPECT_EQ(used.changes(), "");
    used.click(45, 25);
    EXPECT_EQ(used.changes(), "value #it=1\n");
}

TEST(ControlsTest, ADropdownWithoutItemsIsPressed) {
    const Used used(one(R"("dropdown": "Eco", "sound": "tick")", "{}"));
    used.click(5, 15);
    EXPECT_EQ(used.changes(), "press #it\nsound #it=\"tick\"\n");
    const Used bound(scene(R"({"column": [{"dropdown": "${a}", "height": 30}]})",
                           R"("size": [99, 99], "sample": {"a": "Eco"}, )"));
    bound.click(5, 15);
    EXPECT_EQ(bound.changes(), "");
}

TEST(ControlsTest, SoundsAreToldWhenAControlIsUsed) {
    const Used used(
        one(R"("slider": "${a}", "range": [0, 10, 1], "sound": "click")", R"({"a": 5})"));
    used.press(20, 15);
    used.move(30, 15);
    EXPECT_EQ(used.changes(), "value #it a=3\n");
    used.release(30, 15);
    used.key(KIT_KEY_RIGHT);
    EXPECT_EQ(used.changes(), "sound #it=\"click\"\nvalue #it a=4\nsound #it=\"click\"\n");
}

TEST(ControlsTest, WhatTheScreenRefusesIsNotTaken) {
    const Used used(scene(R"({"column": [{"toggle": "${a}", "id": "it", "height": 30},
        {"if": "a", "text": "${there.is.none}"}]})",
                          R"("size": [99, 99], "sample": {"a": false}, )"));
    used.click(5, 15);
    EXPECT_EQ(used.changes(), "");
    EXPECT_EQ(used.value("a"), "false");
    EXPECT_EQ(used.line("it"), "toggle off hover focus");
}

TEST(ControlsTest, SharedValuesNeedBothKeys) {
    EXPECT_EQ(refusal(scene(R"({"radio": "A", "value": 1})")),
              "scene:1:37: root: found \"value\" without \"selected\"");
    EXPECT_EQ(refusal(scene(R"({"radio": "A", "selected": 1})")),
              "scene:1:37: root: found \"selected\" without \"value\"");
    EXPECT_EQ(refusal(scene(R"({"dropdown": "A", "selected": 1})")),
              "scene:1:40: root: found \"selected\" without \"items\"");
    EXPECT_EQ(refusal(scene(R"({"radio": "A", "value": 1, "selected": 1, "on": true})")),
              "scene:1:64: root: found \"on\" without effect beside \"value\"");
}

TEST(ControlsTest, AButtonWithAStateNeedsNoId) {
    const Used used(scene(R"({"column": [{"button": "A", "on": "${a}", "height": 30}]})",
                          R"("size": [99, 99], "sample": {"a": false}, )"));
    used.click(5, 15);
    EXPECT_EQ(used.changes(), "value a=true\n");
}

TEST(ControlsTest, OfTwoEqualItemsTheSecondIsTheValueAlready) {
    const Used used(one(R"("dropdown": "${a}", "items": ["A", "A"])", R"({"a": "A"})"));
    used.focus("it");
    used.key(KIT_KEY_DOWN);
    EXPECT_EQ(used.changes(), "");
}

TEST(ControlsTest, SharedValuesMayBeTrueAndFalse) {
    const Used used(scene(
        R"({"column": [{"radio": "A", "selected": "${a}", "value": true, "height": 30},
                       {"radio": "B", "selected": "${a}", "value": false, "height": 30}]})",
        R"("size": [99, 99], "sample": {"a": true}, )"));
    used.click(5, 45);
    EXPECT_EQ(used.changes(), "value a=false\n");
    used.click(5, 15);
    EXPECT_EQ(used.changes(), "value a=true\n");
    EXPECT_NE(refusal(scene(R"({"radio": "A", "selected": 1, "value": [1]})")), "");
    EXPECT_NE(refusal(scene(R"({"button": "A", "key": 5})")), "");
}

TEST(ControlsTest, TabsNarrowerThanAPixelCannotBePressed) {
    const Used used(scene(R"({"row": [{"tabs": ["A", "B", "C"], "selected": "${a}", "width": 2}]})",
                          R"("size": [60, 40], "sample": {"a": 0}, )"));
    used.click(1, 20);
    EXPECT_EQ(used.changes(), "");
}

TEST(ControlsTest, ATabIsLeftToEverySide) {
    const Used used(scene(R"({"row": [{"space": 20}, {"tabs": ["A", "B"], "selected": "${a}",
                                       "width": 40}]})",
                          R"("size": [90, 40], "sample": {"a": 1}, )"));
    for (const int x : {5, 85}) {
        used.press(30, 20);
        used.move(x, 20);
        used.release(x, 20);
        EXPECT_EQ(used.changes(), "");
    }
}

TEST(ControlsTest, TimeAndTheEventBothSetValues) {
    Used used(scene(R"({"column": [{"stepper": "${a}", "id": "a", "height": 30},
                                   {"toggle": "${b}", "id": "b", "key": "f1", "tip": "B"}]})",
                    R"("size": [100, 60], "sample": {"a": 5, "b": false}, )"));
    used.press(90, 15);
    used.now = 400;
    used.key(KIT_KEY_F1);
    EXPECT_EQ(used.changes(), "value #a a=7\nvalue #b b=true\n");
    used.release(90, 15);
    used.move(10, 35);
    used.now = 1000;  // the tooltip shows, and goes again
    used.key(KIT_KEY_F1);
    EXPECT_EQ(used.changes(), "value #b b=false\n");
    EXPECT_EQ(used.popped(), "");
}

TEST(ControlsTest, NoTabIsPressedBesideThemAll) {
    const Used used(scene(R"({"row": [{"tabs": ["A", "B"], "selected": "${a}", "pad": 10}]})",
                          R"("size": [60, 50], "sample": {"a": 1}, )"));
    used.click(5, 25);
    EXPECT_EQ(used.changes(), "");
    used.click(15, 25);
    EXPECT_EQ(used.changes(), "value a=0\n");
}

}  // namespace
