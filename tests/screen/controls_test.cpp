// What each kind of control does with its value.
#include <cstring>

#include "live.h"

namespace {

using namespace orvel_test;

/// A screen of one control that is 100 pixels wide and 30 high, at the top left.
std::string one(const std::string& control, const std::string& sample) {
    return scene(R"({"column": [{)" + control + R"(, "id": "it", "width": 100, "height": 30}]})",
                 R"("size": [200, 200], "sample": )" + sample + ", ");
}

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

TEST(ControlsTest, ASliderJumpsWhereItsTrackIsPressed) {
    const Used used(one(R"("slider": "${a}", "range": [5, 30, 0.5])", R"({"a": 21})"));
    used.press(50, 15);
    EXPECT_EQ(used.changes(), "value #it a=17.5\n");
    used.move(51, 15);
    used.move(52, 150);  // away from it, and still held
    EXPECT_EQ(used.changes(), "value #it a=18\n");
    EXPECT_EQ(used.line("it"), "slider =18 pressed focus");
    used.move(5000, 150);
    used.move(-5000, 150);
    EXPECT_EQ(used.changes(), "value #it a=5\n");  // nobody asked for the others
    used.release(-5000, 150);
    used.move(50, 15);
    EXPECT_EQ(used.changes(), "");
}

TEST(ControlsTest, ASlidersKnobIsGrabbedWhereItIs) {
    const Used used(one(R"("slider": "${a}", "range": [0, 10, 1])", R"({"a": 5})"));
    for (const int off : {-5, 0, 5}) {
        used.press(50 + off, 15);
        used.move(50 + off + 1, 15);
        used.move(50 + off, 15);
        used.release(50 + off, 15);
        EXPECT_EQ(used.changes(), "") << off;
    }
    used.press(55, 15);
    used.move(64, 15);
    EXPECT_EQ(used.changes(), "value #it a=6\n");
}

TEST(ControlsTest, StepsArePrintedAsTheyAreWritten) {
    const Used used(one(R"("slider": "${a}", "range": [0, 1, 0.1])", R"({"a": 0})"));
    std::string all;
    used.focus("it");
    for (int i = 0; i < 11; ++i) {
        used.key(KIT_KEY_RIGHT);
        all += used.changes();
    }
    EXPECT_EQ(all,
              "value #it a=0.1\nvalue #it a=0.2\nvalue #it a=0.3\nvalue #it a=0.4\n"
              "value #it a=0.5\nvalue #it a=0.6\nvalue #it a=0.7\nvalue #it a=0.8\n"
              "value #it a=0.9\nvalue #it a=1\n");
}

/// What a control's number becomes by a key.
std::string after_key(const std::string& control, const std::string& number, int key) {
    const Used used(one(control, "{\"a\": " + number + "}"));
    used.focus("it");
    used.key(key);
    return used.value("a");
}

TEST(ControlsTest, KeysMoveASlider) {
    const std::string slider = R"("slider": "${a}", "range": [-10, 20, 0.5])";
    EXPECT_EQ(after_key(slider, "3", KIT_KEY_RIGHT), "3.5");
    EXPECT_EQ(after_key(slider, "3", KIT_KEY_UP), "3.5");
    EXPECT_EQ(after_key(slider, "3", KIT_KEY_LEFT), "2.5");
    EXPECT_EQ(after_key(slider, "3", KIT_KEY_DOWN), "2.5");
    EXPECT_EQ(after_key(slider, "3", KIT_KEY_PAGE_UP), "6");
    EXPECT_EQ(after_key(slider, "3", KIT_KEY_PAGE_DOWN), "0");
    EXPECT_EQ(after_key(slider, "3", KIT_KEY_HOME), "-10");
    EXPECT_EQ(after_key(slider, "3", KIT_KEY_END), "20");
    EXPECT_EQ(after_key(slider, "0", KIT_KEY_LEFT), "-0.5");
    EXPECT_EQ(after_key(slider, "20", KIT_KEY_RIGHT), "20");
    EXPECT_EQ(after_key(slider, "3", ' '), "3");
}

TEST(ControlsTest, FromBetweenTwoStepsItGoesToTheNext) {
    const std::string slider = R"("slider": "${a}", "range": [0, 10, 0.5])";
    EXPECT_EQ(after_key(slider, "3.2", KIT_KEY_RIGHT), "3.5");
    EXPECT_EQ(after_key(slider, "3.2", KIT_KEY_LEFT), "3");
    EXPECT_EQ(after_key(slider, "3.4999999999999", KIT_KEY_RIGHT), "3.5");
    EXPECT_EQ(after_key(slider, "3.5000000000001", KIT_KEY_LEFT), "3.5");
    EXPECT_EQ(after_key(slider, "-4", KIT_KEY_RIGHT), "0");
    EXPECT_EQ(after_key(slider, "400", KIT_KEY_LEFT), "10");
    EXPECT_EQ(after_key(slider, "1e30", KIT_KEY_LEFT), "10");
    EXPECT_EQ(after_key(slider, "-1e30", KIT_KEY_RIGHT), "0");
    // The last step may end before the range.
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [0, 10, 3])", "8", KIT_KEY_RIGHT), "9");
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [0, 10, 3])", "8", KIT_KEY_END), "9");
}

TEST(ControlsTest, WithoutAStepARoundNumberIsOne) {
    EXPECT_EQ(after_key(R"("slider": "${a}")", "0.5", KIT_KEY_RIGHT), "0.51");
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [0, 100])", "50", KIT_KEY_RIGHT), "51");
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [5, 30])", "9", KIT_KEY_RIGHT), "9.1");
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [0, 4000])", "0", KIT_KEY_RIGHT), "10");
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [-1e3, 1e3])", "0", KIT_KEY_RIGHT), "10");
}

TEST(ControlsTest, NumbersThatNeedTooManyDigitsDoNotMove) {
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [0, 1, 1e-10])", "0", KIT_KEY_RIGHT), "0");
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [0, 1e14, 1])", "0", KIT_KEY_RIGHT), "0");
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [1e-300, 1])", "0.5", KIT_KEY_RIGHT), "0.5");
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [0, 1e-8])", "0", KIT_KEY_RIGHT), "0");
    const Used used(one(R"("slider": "${a}", "range": [0, 1e14, 1])", R"({"a": 5})"));
    used.click(50, 15);
    EXPECT_EQ(used.changes(), "");
}

TEST(ControlsTest, AStepperActsAtOnceAndRepeatsWhileItIsHeld) {
    Used used(one(R"("stepper": "${a}", "range": [0, 9, 0.5])", R"({"a": 5})"));
    EXPECT_EQ(kit_screen_wait(used.screen.get(), 0), -1);
    used.press(90, 15);
    EXPECT_EQ(used.changes(), "value #it a=5.5\n");
    EXPECT_EQ(kit_screen_wait(used.screen.get(), 100), 300);
    used.wait(399);
    EXPECT_EQ(used.changes(), "");
    used.wait(1);
    EXPECT_EQ(used.changes(), "value #it a=6\n");
    EXPECT_EQ(kit_screen_wait(used.screen.get(), used.now), 60);
    EXPECT_EQ(kit_screen_wait(used.screen.get(), used.now + 99), 0);
    used.wait(120);
    EXPECT_EQ(used.changes(), "value #it a=7\n");
    used.move(50, 15);  // off its side it pauses
    EXPECT_EQ(kit_screen_wait(used.screen.get(), used.now), -1);
    used.wait(1000);
    EXPECT_EQ(used.changes(), "");
    used.move(90, 15);
    used.wait(60);
    EXPECT_EQ(used.changes(), "value #it a=7.5\n");
    used.release(90, 15);
    used.wait(1000);
    EXPECT_EQ(used.changes(), "");
    used.click(5, 15);
    EXPECT_EQ(used.changes(), "value #it a=7\n");
    used.click(50, 15);
    EXPECT_EQ(used.changes(), "");
}

TEST(ControlsTest, AStepperEndsAtItsRange) {
    Used used(one(R"("stepper": "${a}", "range": [0, 9])", R"({"a": 5})"));
    used.press(90, 15);
    used.wait(1000000000000);
    EXPECT_EQ(used.value("a"), "9");
    EXPECT_EQ(after_key(R"("stepper": "${a}", "range": [0, 9])", "5", KIT_KEY_HOME), "0");
}

TEST(ControlsTest, AStepperOfFinerStepsThanItCanCountWaitsForNothing) {
    Used used(one(R"("stepper": "${a}", "range": [0, 1, 0.0000000000001])", R"({"a": 0})"));
    used.press(90, 15);
    EXPECT_EQ(used.changes(), "");
    EXPECT_EQ(kit_screen_wait(used.screen.get(), used.now), -1);
}

TEST(ControlsTest, AStepperThatIsHeldAtItsEndWaitsForNothing) {
    Used used(one(R"("stepper": "${a}", "range": [0, "${most}"], "sound": "tick")",
                  R"({"a": 7, "most": 9})"));
    used.press(90, 15);
    EXPECT_EQ(kit_screen_wait(used.screen.get(), used.now), 400);
    used.wait(400);
    EXPECT_EQ(used.value("a"), "9");
    EXPECT_EQ(kit_screen_wait(used.screen.get(), used.now), -1);
    used.changes();
    used.wait(100000);
    EXPECT_EQ(used.changes(), "");
    set(used.screen.get(), "most", "11");  // there is more now
    used.wait(100000);
    EXPECT_EQ(used.changes(), "");
    EXPECT_EQ(kit_screen_wait(used.screen.get(), used.now), 60);
    used.wait(60);
    EXPECT_EQ(used.changes(), "value #it a=10\nsound #it=\"tick\"\n");
    used.release(90, 15);
    used.press(90, 15);
    EXPECT_EQ(used.value("a"), "11");
    EXPECT_EQ(kit_screen_wait(used.screen.get(), used.now), -1);  // at once
    used.release(90, 15);
    used.press(5, 15);  // the other way
    EXPECT_EQ(kit_screen_wait(used.screen.get(), used.now), 400);
    used.changes();
    used.wait(1000000000);
    EXPECT_EQ(used.changes(), "value #it a=0\nsound #it=\"tick\"\n");
    EXPECT_EQ(kit_screen_wait(used.screen.get(), used.now), -1);
}

TEST(ControlsTest, AStepperWhoseNumberIsTheHostsRepeatsUntilItsEnd) {
    Used words(one(R"("stepper": "-", "range": [0, 9])", "{}"));
    words.press(90, 15);
    EXPECT_EQ(kit_screen_wait(words.screen.get(), words.now), 400);
    Used fine(one(R"("stepper": "5", "range": [0, 9, 1e-10])", "{}"));
    fine.press(90, 15);
    EXPECT_EQ(kit_screen_wait(fine.screen.get(), fine.now), -1);
    fine.wait(1000);
    EXPECT_EQ(fine.changes(), "");
}

TEST(ControlsTest, AStepperWithoutARangeHasAnyNumber) {
    EXPECT_EQ(after_key(R"("stepper": "${a}")", "-7", KIT_KEY_UP), "-6");
    EXPECT_EQ(after_key(R"("stepper": "${a}")", "2.5", KIT_KEY_DOWN), "2");
    EXPECT_EQ(after_key(R"("stepper": "${a}")", "5", KIT_KEY_END), "5");
    EXPECT_EQ(after_key(R"("stepper": "${a}")", "\"41\"", KIT_KEY_UP), "42");
    EXPECT_EQ(after_key(R"("stepper": "${a}", "range": [3, 8])", "\"-\"", KIT_KEY_UP), "4");
}

TEST(ControlsTest, PageKeysTakeATenthOfTheRangeOrTenStepsWithoutOne) {
    EXPECT_EQ(after_key(R"("stepper": "${a}")", "5", KIT_KEY_PAGE_UP), "15");
    EXPECT_EQ(after_key(R"("stepper": "${a}")", "5", KIT_KEY_PAGE_DOWN), "-5");
    EXPECT_EQ(after_key(R"("stepper": "${a}", "range": [0, 50])", "5", KIT_KEY_PAGE_UP), "10");
    EXPECT_EQ(after_key(R"("stepper": "${a}", "range": [0, 5])", "2", KIT_KEY_PAGE_UP), "3");
}

TEST(ControlsTest, ARatingTakesTheStarThatIsPressed) {
    const Used used(one(R"("rating": "${a}")", R"({"a": 2})"));
    const kit_box box = used.box("it");
    std::string all;
    for (int x = box.x; x < box.x + box.w; ++x) {
        used.click(x, 15);
        all += used.changes();
    }
    EXPECT_EQ(all,
              "value #it a=0\nvalue #it a=1\nvalue #it a=2\nvalue #it a=3\nvalue #it a=4\n"
              "value #it a=5\n");
    EXPECT_EQ(after_key(R"("rating": "${a}")", "2", KIT_KEY_RIGHT), "3");
    EXPECT_EQ(after_key(R"("rating": "${a}", "range": [0, 1])", "0.2", KIT_KEY_RIGHT), "0.4");
    EXPECT_EQ(after_key(R"("rating": "${a}", "range": [0, 5, 0.5])", "2", KIT_KEY_RIGHT), "2.5");
    EXPECT_EQ(after_key(R"("rating": "${a}", "range": [0, 7, 1e-10])", "2", KIT_KEY_RIGHT), "2");
}

TEST(ControlsTest, TheStarsOfASmallRatingAreTheLibrarysOwn) {
    const Used used(scene(R"({"column": [{"rating": "${a}", "id": "it", "height": 10}]})",
                          R"("size": [60, 20], "sample": {"a": 0}, )"));
    used.click(42, 5);
    EXPECT_EQ(used.value("a"), "5");
    used.click(2, 5);
    EXPECT_EQ(used.value("a"), "1");
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

TEST(ControlsTest, NamesAreThoseOfTheWholeData) {
    char inner[] = R"({"orvel": 1, "root": {"column": [
        {"toggle": "${light.on}", "id": "a", "height": 10},
        {"toggle": "${given}", "id": "b", "height": 10},
        {"toggle": "${list[1].x}", "id": "c", "height": 10},
        {"toggle": "${made}", "id": "d", "height": 10},
        {"toggle": "${list[0]}", "id": "e", "height": 10}]}})";
    kit_screen_host host = {};
    host.self = inner;
    host.include = [](void* self, const char*, size_t* length) {
        *length = std::strlen(static_cast<char*>(self));
        return static_cast<const char*>(self);
    };
    const std::string text = scene(
        R"({"column": [{"each": "rooms", "as": "room", "column": [
            {"each": "room.lights", "include": "part", "with": {"light": "${item}",
             "given": "${room.on}", "list": ["${item.on|true}", {"x": "${all.on}"}],
             "made": "${room.on|true}"}}]}]})",
        R"("size": [99, 99], "sample": {"all": {"on": true}, "rooms": [{"on": false,
            "lights": [{"on": true}]}, {"on": true, "lights": [{"on": true}]}]}, )");
    Used used(scene(R"({"space": 1})"));
    used.screen = opened(text, nullptr, &host);
    for (int i = 0; i < 10; ++i) {
        used.click(5, 10 * i + 5);
    }
    EXPECT_EQ(used.changes(),
              "value #a[0][0] rooms[0].lights[0].on=false\nvalue #b[0][0] rooms[0].on=true\n"
              "value #c[0][0] all.on=false\nvalue #d[0][0]=false\nvalue #e[0][0]=true\n"
              "value #a[1][0] rooms[1].lights[0].on=false\nvalue #b[1][0] rooms[1].on=false\n"
              "value #c[1][0] all.on=true\nvalue #d[1][0]=true\nvalue #e[1][0]=true\n");
}

TEST(ControlsTest, WithMayBeOneValue) {
    char inner[] = R"({"orvel": 1, "root": {"toggle": "${on}", "width": 30, "height": 30}})";
    kit_screen_host host = {};
    host.self = inner;
    host.include = [](void* self, const char*, size_t* length) {
        *length = std::strlen(static_cast<char*>(self));
        return static_cast<const char*>(self);
    };
    const std::string head = R"("size": [99, 99], "sample": {"a": {"on": true}}, )";
    Used used(scene(R"({"space": 1})"));
    used.screen = opened(
        scene(R"({"column": [{"include": "part", "with": "${a}"}], "align": "start"})", head),
        nullptr, &host);
    used.click(5, 5);
    EXPECT_EQ(used.changes(), "value a.on=false\n");
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

TEST(ControlsTest, NamesThatAreNotThereOrWereMadeAreNotBound) {
    EXPECT_NE(refusal(scene(R"({"toggle": "${none}"})")), "");
    char inner[] = R"({"orvel": 1, "root": {"column": [
        {"toggle": "${made.x}", "id": "a", "height": 20},
        {"toggle": "${list[0]}", "id": "b", "height": 20}]}})";
    kit_screen_host host = {};
    host.self = inner;
    host.include = [](void* self, const char*, size_t* length) {
        *length = std::strlen(static_cast<char*>(self));
        return static_cast<const char*>(self);
    };
    Used used(scene(R"({"space": 1})"));
    used.screen =
        opened(scene(R"({"include": "part", "with": {"made": {"x": true}, "list": [false]}})",
                     R"("size": [60, 40], )"),
               nullptr, &host);
    used.click(5, 10);
    used.click(5, 30);
    EXPECT_EQ(used.changes(), "value #a=false\nvalue #b=true\n");
}

TEST(ControlsTest, ASliderWithoutATrackDoesNotMove) {
    const Used used(scene(R"({"row": [{"slider": "${a}", "id": "it", "width": 5}]})",
                          R"("size": [60, 40], "sample": {"a": 0.5}, )"));
    used.press(4, 20);
    used.move(1, 20);
    EXPECT_EQ(used.changes(), "");
}

TEST(ControlsTest, ShortcutsAreWrittenInOneWay) {
    const auto said = [](const std::string& key) {
        return refusal(scene(R"({"button": "A", "key": ")" + key + "\"}"));
    };
    for (const char* good : {"a", "space", "f12", "ctrl+alt+shift+enter", "shift++", "ä", "+"}) {
        EXPECT_EQ(said(good), "") << good;
    }
    EXPECT_EQ(said("ctrl+S"),
              "scene:1:45: root.key: found \"ctrl+S\", expected a key, as f5, ctrl+s or "
              "ctrl+alt+shift+pageup");
    for (const char* bad :
         {"", " ", "A", "Z", "f13", "\x7F", "ctrl+", "alt+ctrl+a", "ab", "Enter"}) {
        EXPECT_NE(said(bad), "") << bad;
    }
}

TEST(ControlsTest, ASharedShortcutIsTold) {
    const ScreenPtr screen = opened(scene(R"({"column": [{"button": "A", "id": "a", "key": "f1"},
            {"button": "B", "id": "b", "key": "f1"}, {"button": "C", "key": "f1"}]})"));
    const std::string report = kit_screen_report(screen.get());
    EXPECT_NE(report.find("root.column[1]: key: it is that of root.column[0], too"),
              std::string::npos)
        << report;
    EXPECT_EQ(report.find("root.column[2]"), std::string::npos) << report;
}

TEST(ControlsTest, AButtonWithAStateNeedsNoId) {
    const Used used(scene(R"({"column": [{"button": "A", "on": "${a}", "height": 30}]})",
                          R"("size": [99, 99], "sample": {"a": false}, )"));
    used.click(5, 15);
    EXPECT_EQ(used.changes(), "value a=true\n");
}

TEST(ControlsTest, ARatingThatNeedsTooManyDigitsTakesNoStar) {
    const Used used(one(R"("rating": "${a}", "range": [0, 7, 1e-10])", R"({"a": 2})"));
    const kit_box box = used.box("it");
    used.click(box.x + box.w - 5, 15);
    EXPECT_EQ(used.changes(), "");
}

TEST(ControlsTest, EndsThatNeedTooManyDigitsAreNotGoneTo) {
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [0, 1, 1e-10])", "0.5", KIT_KEY_END), "0.5");
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [-1e14, 1, 1])", "0", KIT_KEY_RIGHT), "0");
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [0, 1, 1e14])", "0", KIT_KEY_RIGHT), "0");
}

TEST(ControlsTest, AHeldStepperThatBecomesAButtonDoesNotRepeat) {
    Used used(scene(R"({"column": [{"stepper": "${a}", "id": "it", "if": "there", "height": 30},
                                   {"button": "A", "id": "it", "height": 30}]})",
                    R"("size": [100, 100], "sample": {"a": 2, "there": true}, )"));
    used.press(90, 15);
    EXPECT_EQ(used.changes(), "value #it a=3\n");
    EXPECT_EQ(set(used.screen.get(), "there", "false"), "");  // which leaves one of that id
    used.wait(1000);
    EXPECT_EQ(used.changes(), "");
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

/// A screen that includes these nodes with these values.
std::string included(const std::string& inner, const std::string& with, const std::string& head) {
    static std::string text;
    text = scene(inner);
    kit_screen_host host = {};
    host.include = [](void*, const char*, size_t* length) {
        *length = text.size();
        return text.c_str();
    };
    const std::string outer = scene(R"({"include": "part", "with": )" + with + "}", head);
    char why[400] = "";
    Used used(scene(R"({"space": 1})"));
    used.screen.reset(
        kit_screen_read(outer.data(), outer.size(), nullptr, nullptr, &host, why, sizeof why));
    if (!used.screen) return why;
    for (int y = 5; y < 60; y += 10) used.click(5, y);
    return used.changes();
}

TEST(ControlsTest, WhatIsMadeOfValuesIsNotBound) {
    EXPECT_EQ(included(R"({"column": [{"toggle": "${x.on}", "id": "a", "height": 10},
                                      {"stepper": "${n}", "id": "b", "height": 10},
                                      {"slider": "${m}", "id": "c", "height": 10},
                                      {"dropdown": "${t}", "id": "d", "height": 10}]})",
                       R"({"x": {"on": "${on}"}, "n": "${n:1}", "m": 0.5, "t": "It is ${n}"})",
                       R"("size": [60, 60], "sample": {"on": true, "n": 2}, )"),
              "value #a on=false\nvalue #b=1\nvalue #c=0.02\npress #d\n");
}

TEST(ControlsTest, ItemsOfAListThatWasMadeAreNotBound) {
    EXPECT_EQ(included(R"({"column": [{"each": "list", "toggle": "${item.on}", "id": "a",
                                       "height": 10}]})",
                       R"({"list": [{"on": true}, {"on": false}]})", R"("size": [60, 60], )"),
              "value #a[0]=false\nvalue #a[1]=true\n");
}

TEST(ControlsTest, WaysThatLeadNowhereInWhatWasMadeAreRefused) {
    for (const char* way : {"x.y", "x.y.z", "x[0]", "list[7]", "list.x", "list[0].x.y"}) {
        EXPECT_NE(included(R"({"toggle": "${)" + std::string(way) + R"(}"})",
                           R"({"x": {"on": true}, "list": [{"on": true}]})", "")
                      .find("in the data"),
                  std::string::npos)
            << way;
    }
}

/// A way of so many steps of one name.
std::string steps(const std::string& name, int count) {
    std::string way;
    for (; count > 0; --count) way += '.' + name;
    return way;
}

/// A value so deep in objects with one member each.
std::string deep(const std::string& name, int count, const std::string& value) {
    std::string json;
    for (int i = 0; i < count; ++i) json += "{\"" + name + "\": ";
    return json + value + std::string(static_cast<std::size_t>(count), '}');
}

TEST(ControlsTest, WaysOfMoreThan64StepsAreNotBound) {
    const auto pressed = [](int below) {
        static std::string middle, last;
        middle = scene(R"({"include": "last", "with": {"k": "${m)" + steps("y", 30) + R"(}"}})");
        last = scene(R"({"toggle": "${k)" + steps("x", below) + R"(}", "id": "it"})");
        kit_screen_host host = {};
        host.include = [](void*, const char* name, size_t* length) {
            const std::string& text = std::strcmp(name, "last") == 0 ? last : middle;
            *length = text.size();
            return text.c_str();
        };
        Used used(scene(R"({"space": 1})"));
        used.screen = opened(
            scene(R"({"include": "middle", "with": {"m": )" + deep("y", 30, "\"${d}\"") + "}}",
                  R"("size": [60, 40], "sample": {"d": )" + deep("x", below, "true") + "}, "),
            nullptr, &host);
        used.focus("it");
        used.key(' ');
        return used.changes();
    };
    EXPECT_EQ(pressed(33), "value #it d" + steps("x", 33) + "=false\n");
    EXPECT_EQ(pressed(34), "value #it=false\n");
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
