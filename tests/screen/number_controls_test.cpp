// Controls of a number: sliders, steppers, ratings.
#include "live.h"

namespace {

using namespace orvel_test;

/// What a control's number becomes by a key.
std::string after_key(const std::string& control, const std::string& number, int key) {
    const Used used(one(control, "{\"a\": " + number + "}"));
    used.focus("it");
    used.key(key);
    return used.value("a");
}

TEST(NumberControlsTest, ASliderJumpsWhereItsTrackIsPressed) {
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

TEST(NumberControlsTest, ASlidersKnobIsGrabbedWhereItIs) {
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

TEST(NumberControlsTest, ASliderWithoutATrackDoesNotMove) {
    const Used used(scene(R"({"row": [{"slider": "${a}", "id": "it", "width": 5}]})",
                          R"("size": [60, 40], "sample": {"a": 0.5}, )"));
    used.press(4, 20);
    used.move(1, 20);
    EXPECT_EQ(used.changes(), "");
}

TEST(NumberControlsTest, StepsArePrintedAsTheyAreWritten) {
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

TEST(NumberControlsTest, KeysMoveASlider) {
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

TEST(NumberControlsTest, FromBetweenTwoStepsItGoesToTheNext) {
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

TEST(NumberControlsTest, WithoutAStepARoundNumberIsOne) {
    EXPECT_EQ(after_key(R"("slider": "${a}")", "0.5", KIT_KEY_RIGHT), "0.51");
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [0, 100])", "50", KIT_KEY_RIGHT), "51");
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [5, 30])", "9", KIT_KEY_RIGHT), "9.1");
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [0, 4000])", "0", KIT_KEY_RIGHT), "10");
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [-1e3, 1e3])", "0", KIT_KEY_RIGHT), "10");
}

TEST(NumberControlsTest, NumbersThatNeedTooManyDigitsDoNotMove) {
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [0, 1, 1e-10])", "0", KIT_KEY_RIGHT), "0");
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [0, 1e14, 1])", "0", KIT_KEY_RIGHT), "0");
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [1e-300, 1])", "0.5", KIT_KEY_RIGHT), "0.5");
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [0, 1e-8])", "0", KIT_KEY_RIGHT), "0");
    const Used used(one(R"("slider": "${a}", "range": [0, 1e14, 1])", R"({"a": 5})"));
    used.click(50, 15);
    EXPECT_EQ(used.changes(), "");
}

TEST(NumberControlsTest, EndsThatNeedTooManyDigitsAreNotGoneTo) {
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [0, 1, 1e-10])", "0.5", KIT_KEY_END), "0.5");
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [-1e14, 1, 1])", "0", KIT_KEY_RIGHT), "0");
    EXPECT_EQ(after_key(R"("slider": "${a}", "range": [0, 1, 1e14])", "0", KIT_KEY_RIGHT), "0");
}

TEST(NumberControlsTest, PageKeysTakeATenthOfTheRangeOrTenStepsWithoutOne) {
    EXPECT_EQ(after_key(R"("stepper": "${a}")", "5", KIT_KEY_PAGE_UP), "15");
    EXPECT_EQ(after_key(R"("stepper": "${a}")", "5", KIT_KEY_PAGE_DOWN), "-5");
    EXPECT_EQ(after_key(R"("stepper": "${a}", "range": [0, 50])", "5", KIT_KEY_PAGE_UP), "10");
    EXPECT_EQ(after_key(R"("stepper": "${a}", "range": [0, 5])", "2", KIT_KEY_PAGE_UP), "3");
}

TEST(NumberControlsTest, AStepperActsAtOnceAndRepeatsWhileItIsHeld) {
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

TEST(NumberControlsTest, AStepperEndsAtItsRange) {
    Used used(one(R"("stepper": "${a}", "range": [0, 9])", R"({"a": 5})"));
    used.press(90, 15);
    used.wait(1000000000000);
    EXPECT_EQ(used.value("a"), "9");
    EXPECT_EQ(after_key(R"("stepper": "${a}", "range": [0, 9])", "5", KIT_KEY_HOME), "0");
}

TEST(NumberControlsTest, AStepperOfFinerStepsThanItCanCountWaitsForNothing) {
    Used used(one(R"("stepper": "${a}", "range": [0, 1, 0.0000000000001])", R"({"a": 0})"));
    used.press(90, 15);
    EXPECT_EQ(used.changes(), "");
    EXPECT_EQ(kit_screen_wait(used.screen.get(), used.now), -1);
}

TEST(NumberControlsTest, AStepperThatIsHeldAtItsEndWaitsForNothing) {
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

TEST(NumberControlsTest, AStepperWhoseNumberIsTheHostsRepeatsUntilItsEnd) {
    Used words(one(R"("stepper": "-", "range": [0, 9])", "{}"));
    words.press(90, 15);
    EXPECT_EQ(kit_screen_wait(words.screen.get(), words.now), 400);
    Used fine(one(R"("stepper": "5", "range": [0, 9, 1e-10])", "{}"));
    fine.press(90, 15);
    EXPECT_EQ(kit_screen_wait(fine.screen.get(), fine.now), -1);
    fine.wait(1000);
    EXPECT_EQ(fine.changes(), "");
}

TEST(NumberControlsTest, AStepperWithoutARangeHasAnyNumber) {
    EXPECT_EQ(after_key(R"("stepper": "${a}")", "-7", KIT_KEY_UP), "-6");
    EXPECT_EQ(after_key(R"("stepper": "${a}")", "2.5", KIT_KEY_DOWN), "2");
    EXPECT_EQ(after_key(R"("stepper": "${a}")", "5", KIT_KEY_END), "5");
    EXPECT_EQ(after_key(R"("stepper": "${a}")", "\"41\"", KIT_KEY_UP), "42");
    EXPECT_EQ(after_key(R"("stepper": "${a}", "range": [3, 8])", "\"-\"", KIT_KEY_UP), "4");
}

TEST(NumberControlsTest, AHeldStepperThatBecomesAButtonDoesNotRepeat) {
    Used used(scene(R"({"column": [{"stepper": "${a}", "id": "it", "if": "there", "height": 30},
                                   {"button": "A", "id": "it", "height": 30}]})",
                    R"("size": [100, 100], "sample": {"a": 2, "there": true}, )"));
    used.press(90, 15);
    EXPECT_EQ(used.changes(), "value #it a=3\n");
    EXPECT_EQ(set(used.screen.get(), "there", "false"), "");  // which leaves one of that id
    used.wait(1000);
    EXPECT_EQ(used.changes(), "");
}

TEST(NumberControlsTest, ARatingTakesTheStarThatIsPressed) {
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

TEST(NumberControlsTest, TheStarsOfASmallRatingAreTheLibrarysOwn) {
    const Used used(scene(R"({"column": [{"rating": "${a}", "id": "it", "height": 10}]})",
                          R"("size": [60, 20], "sample": {"a": 0}, )"));
    used.click(42, 5);
    EXPECT_EQ(used.value("a"), "5");
    used.click(2, 5);
    EXPECT_EQ(used.value("a"), "1");
}

TEST(NumberControlsTest, ARatingThatNeedsTooManyDigitsTakesNoStar) {
    const Used used(one(R"("rating": "${a}", "range": [0, 7, 1e-10])", R"({"a": 2})"));
    const kit_box box = used.box("it");
    used.click(box.x + box.w - 5, 15);
    EXPECT_EQ(used.changes(), "");
}

}  // namespace
