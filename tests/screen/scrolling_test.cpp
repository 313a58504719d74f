// What is longer than its box, by the wheel, by its bar and by a finger.
#include "live.h"

namespace {

using namespace orvel_test;

/// A column of 100 pixels with 300 in it, and what may be in that.
std::string high(const std::string& more = "") {
    return scene(R"({"column": [{"rect": "accent", "height": 100, "id": "top"})" + more +
                     R"(, {"rect": "error", "height": 200, "id": "end"}], "scroll": true})",
                 R"("size": [100, 100], )");
}

TEST(ScrollingTest, ANotchOfTheWheelIs48Pixels) {
    const Used used(high());
    used.wheel(50, 50, -120);
    EXPECT_EQ(used.box("end").y, 52);
    used.wheel(50, 50, -240);
    EXPECT_EQ(used.box("end").h, 100);
    used.wheel(50, 50, 120);
    used.wheel(50, 50, 120);
    EXPECT_EQ(used.box("end").y, 52);
    used.wheel(50, 50, 60000);
    EXPECT_EQ(used.box("top"), (kit_box{0, 0, 100, 100}));
    used.wheel(50, 50, -1);  // parts of pixels add up
    used.wheel(50, 50, -1);
    EXPECT_EQ(used.box("end").y, 0);
    used.wheel(50, 50, -1);
    EXPECT_EQ(used.box("end"), (kit_box{0, 99, 100, 1}));
    used.wheel(50, 50, 0);
    EXPECT_EQ(used.box("end").y, 99);
}

TEST(ScrollingTest, TheInnermostThatCanStillMoveTakesTheWheel) {
    const Used used(high(
        R"(, {"column": [{"rect": "border", "height": 150, "id": "in"}], "scroll": true, "height": 60})"));
    used.wheel(50, 50, -240);
    EXPECT_EQ(used.box("in"), (kit_box{0, 4, 100, 60}));
    used.wheel(50, 50, -240);  // 90 are left of it
    EXPECT_EQ(used.box("in"), (kit_box{0, 4, 100, 60}));
    used.wheel(50, 50, -240);
    EXPECT_EQ(used.box("in").h, 0);
}

TEST(ScrollingTest, ARowScrollsAcross) {
    const Used used(scene(R"({"row": [{"rect": "accent", "width": 150, "id": "a"},
                                      {"rect": "error", "width": 100, "id": "b"}], "scroll": true})",
                          R"("size": [100, 50], )"));
    used.wheel(50, 25, -120);
    EXPECT_EQ(used.box("a").w, 100);
    used.wheel(50, 25, 0, 240);
    EXPECT_EQ(used.box("b"), (kit_box{54, 0, 46, 50}));
    used.press(2, 46);  // its bar
    EXPECT_EQ(used.box("b").w, 0);
    used.move(200, 46);
    EXPECT_EQ(used.box("b"), (kit_box{0, 0, 100, 50}));
}

TEST(ScrollingTest, TheSceneSaysWhereItBegins) {
    const Used used(scene(R"({"column": [{"rect": "accent", "height": 300}], "scroll": 9999,
                              "id": "it"})",
                          R"("size": [100, 100], )"));
    const CanvasPtr canvas = drawn(used.screen.get());
    used.move(50, 50);
    kit_box dirty = {};
    kit_screen_draw(used.screen.get(), canvas.get(), &dirty);
    EXPECT_EQ(dirty, (kit_box{0, 0, 100, 100}));  // the bar
    used.wheel(50, 50, 120);
    EXPECT_NE(described(used.screen.get()).find("rect 0,-152 100x300"), std::string::npos);
}

TEST(ScrollingTest, TheBarShowsUnderThePointerAndIsDragged) {
    const Used used(high());
    const CanvasPtr still = drawn(used.screen.get());
    used.move(50, 50);
    const auto thumb = [&] {
        const CanvasPtr canvas = drawn(used.screen.get());
        orvel_theme theme;
        orvel_theme_default(&theme);
        const orvel_color color = kit_mix(theme.text, theme.background, 45);
        int first = -1, last = -1;
        for (int y = 0; y < 100; ++y) {
            const orvel_color pixel = orvel_canvas_pixel_get(canvas.get(), 95, y);
            const bool bar = pixel.r == color.r && pixel.g == color.g && pixel.b == color.b;
            if (bar && first < 0) first = y;
            if (bar) last = y;
        }
        return std::to_string(first) + "-" + std::to_string(last);
    };
    EXPECT_EQ(thumb(), "0-32");  // a third of it shows
    used.press(95, 10);
    EXPECT_EQ(thumb(), "0-32");
    used.move(20, 20);
    EXPECT_EQ(thumb(), "10-42");
    EXPECT_EQ(used.box("end").y, 70);
    used.move(20, 500);
    EXPECT_EQ(thumb(), "67-99");
    used.move(20, -500);
    EXPECT_EQ(thumb(), "0-32");
    used.move(20, 50);
    used.key(KIT_KEY_ESCAPE);
    EXPECT_EQ(used.box("end").y, 0);
    used.press(95, 60);  // beside it: its middle comes there
    EXPECT_EQ(thumb(), "43-75");
    used.release(95, 60);
    used.leave();
    EXPECT_EQ(thumb(), "-1--1");
    used.press(0, 0);
    used.release(0, 0);
}

TEST(ScrollingTest, AFingerDragsWhatCannotBeUsed) {
    const Used used(high());
    used.press(50, 80);
    used.move(50, 30);
    EXPECT_EQ(used.box("end").y, 50);
    used.move(50, -500);
    EXPECT_EQ(used.box("end").h, 100);
    used.key(KIT_KEY_ESCAPE);
    EXPECT_EQ(used.box("top").h, 100);
    used.move(50, 10);
    EXPECT_EQ(used.box("top").h, 100);
}

TEST(ScrollingTest, AListItemThatIsDraggedScrollsItsList) {
    const Used used(scene(
        R"({"column": [{"each": "n", "list_item": "A", "id": "a", "height": 50}], "scroll": true})",
        R"("size": [100, 100], "sample": {"n": [1, 2, 3, 4]}, )"));
    used.press(50, 60);
    used.move(50, 52);
    EXPECT_TRUE(used.has("a[1]", "pressed"));
    used.move(50, 51);
    EXPECT_FALSE(used.has("a[1]", "pressed"));
    EXPECT_EQ(used.box("a[1]").y, 41);
    used.release(50, 40);
    EXPECT_EQ(used.changes(), "");
    EXPECT_EQ(used.box("a[1]").y, 30);
    const Used still(
        scene(R"({"column": [{"list_item": "A", "id": "a"}]})", R"("size": [100, 100], )"));
    still.press(50, 10);
    still.move(50, 22);
    still.release(50, 10);
    EXPECT_EQ(still.changes(), "press #a\n");
}

TEST(ScrollingTest, AParagraphScrolls) {
    const std::string words =
        R"({"text": "One two three four five six seven eight nine ten eleven twelve", "wrap": true,
            "id": "words", "width": 60, "height": 40})";
    const Used used(scene(R"({"column": [)" + words + "]}", R"("size": [100, 100], )"));
    const CanvasPtr canvas = drawn(used.screen.get());
    const std::uint64_t before = checksum(canvas.get());
    used.wheel(30, 20, -120);
    kit_box dirty = {};
    kit_screen_draw(used.screen.get(), canvas.get(), &dirty);
    EXPECT_EQ(dirty, (kit_box{0, 0, 60, 40}));
    EXPECT_EQ(checksum(canvas.get()), checksum(drawn(used.screen.get()).get()));
    EXPECT_NE(checksum(canvas.get()), before);
    used.wheel(30, 20, 120);
    used.leave();
    kit_screen_draw(used.screen.get(), canvas.get(), nullptr);
    EXPECT_EQ(checksum(canvas.get()), before);
}

TEST(ScrollingTest, PlacesAreKeptWhenTheTreeIsBuiltAnewAndBounded) {
    const Used used(scene(R"({"column": [{"rect": "accent", "height": 100, "id": "top"},
        {"each": "more", "rect": "error", "height": 100, "id": "end"}], "scroll": true})",
                          R"("size": [100, 100], "sample": {"more": [1, 2]}, )"));
    used.wheel(50, 50, -240);
    EXPECT_EQ(used.box("end[0]").y, 4);
    set(used.screen.get(), "other", "1");
    EXPECT_EQ(used.box("end[0]").y, 4);
    set(used.screen.get(), "more", "[]");
    EXPECT_EQ(used.box("top").y, 0);
    set(used.screen.get(), "more", "[1, 2]");
    EXPECT_EQ(used.box("top").h, 100);
}

TEST(ScrollingTest, APageThatIsHiddenKeepsItsPlace) {
    const Used used(scene(R"({"stack": [{"column": [{"rect": "accent", "height": 300, "id": "a"}],
        "scroll": true}, {"space": 1}], "show": "${page}"})",
                          R"("size": [100, 100], "sample": {"page": 0}, )"));
    used.wheel(50, 50, -120);
    set(used.screen.get(), "page", "1");
    set(used.screen.get(), "page", "0");
    EXPECT_NE(described(used.screen.get()).find("#a 0,-48"), std::string::npos);
}

TEST(ScrollingTest, WhatIsOnTopTakesThePointer) {
    const auto pressed = [](const char* top) {
        const Used used(
            scene(R"({"stack": [{"button": "A", "id": "a"}, )" + std::string(top) + "]}",
                  R"("size": [50, 50], )"));
        used.click(25, 25);
        return used.changes();
    };
    for (const char* clear : {R"({"text": "Words"})", R"({"icon": "star"})", R"({"space": 9})",
                              R"({"badge": "2"})", R"({"row": []})", R"({"line": "accent"})"}) {
        EXPECT_EQ(pressed(clear), "press #a\n") << clear;
    }
    for (const char* cover :
         {R"({"rect": "accent"})", R"({"panel": null})", R"({"row": [], "ground": "surface"})",
          R"({"button": "B", "id": "b", "disabled": true})",
          R"({"picture": "none", "width": 50, "height": 50})",
          R"({"image": "none", "width": 50, "height": 50})"}) {
        EXPECT_EQ(pressed(cover), "") << cover;
    }
}

/// A paragraph of many lines in a box of 60 x 40, with what else is said of it.
std::string words_in(const std::string& keys) {
    return R"({"text": "One two three four five six seven eight nine ten eleven", "wrap": true,
               "width": 60, "height": 40)" +
           keys + "}";
}

TEST(ScrollingTest, OnlyAParagraphThatShowsAndHasRoomIsScrolled) {
    const auto scrolls = [](const std::string& words) {
        const Used used(scene(R"({"stack": [)" + words + R"(, {"space": 1}], "show": "${page}"})",
                              R"("size": [100, 100], "sample": {"page": 0}, )"));
        const std::uint64_t before = checksum(drawn(used.screen.get()).get());
        EXPECT_EQ(set(used.screen.get(), "page", "1"), "");
        used.wheel(30, 20, -120);  // while it is hidden
        used.leave();
        EXPECT_EQ(set(used.screen.get(), "page", "0"), "");
        EXPECT_EQ(checksum(drawn(used.screen.get()).get()), before);
        used.wheel(30, 20, -120);
        used.leave();
        return checksum(drawn(used.screen.get()).get()) != before;
    };
    EXPECT_TRUE(scrolls(words_in("")));
    EXPECT_FALSE(scrolls(words_in(R"(, "pad": 30)")));
    EXPECT_FALSE(scrolls(words_in(R"(, "lines": 2)")));
}

TEST(ScrollingTest, AParagraphIsScrolledWhereItGetsLessThanItsWordsNeedWhateverTookIt) {
    const auto scrolls = [](const std::string& height, const std::string& row) {
        const Used used(scene(
            R"({"column": [{"row": [{"text": "One two three four five six seven eight",
                "wrap": true, "width": 60)" +
                height + R"(}])" + row + R"(}]})",
            R"("size": [100, 100], )"));
        const std::uint64_t before = checksum(drawn(used.screen.get()).get());
        used.wheel(30, 15, -120);
        used.leave();
        return checksum(drawn(used.screen.get()).get()) != before;
    };
    EXPECT_FALSE(scrolls("", ""));
    EXPECT_TRUE(scrolls(R"(, "height": 30)", ""));
    EXPECT_FALSE(scrolls(R"(, "height": 90)", ""));
    EXPECT_TRUE(scrolls(R"(, "max": [null, 30])", ""));
    EXPECT_FALSE(scrolls(R"(, "max": [null, 90])", ""));
    EXPECT_TRUE(scrolls("", R"(, "height": 30)"));
}

TEST(ScrollingTest, OfAParagraphWhoseWordsLieBesideASmallCanvasNothingIsDrawn) {
    const Used used(scene(R"({"column": [{"rect": "accent", "height": 50}, )" +
                              words_in(R"(, "pad": 10, "ground": "surface")") +
                              R"(], "align": "start"})",
                          R"("size": [100, 100], )"));
    used.wheel(30, 70, -120);
    const CanvasPtr canvas = make_canvas(100, 55);
    kit_screen_expose(used.screen.get(), nullptr);
    EXPECT_EQ(kit_screen_draw(used.screen.get(), canvas.get(), nullptr), 0);
    const CanvasPtr whole = drawn(used.screen.get());
    const CanvasPtr part = make_canvas(100, 55);
    const kit_box box = {0, 0, 100, 55};
    kit_copy(part.get(), 0, 0, whole.get(), &box);
    EXPECT_EQ(checksum(canvas.get()), checksum(part.get()));
}

TEST(ScrollingTest, ABarWithoutRoomIsNotThere) {
    const Used padded(scene(R"({"column": [{"rect": "accent", "height": 100}], "scroll": true,
                                "pad": 60})",
                            R"("size": [100, 100], )"));
    const std::uint64_t before = checksum(drawn(padded.screen.get()).get());
    padded.move(50, 50);
    EXPECT_EQ(checksum(drawn(padded.screen.get()).get()), before);
}

TEST(ScrollingTest, ABarGoesWhileItIsHeldWithWhatItScrolls) {
    const Used used(scene(R"({"column": [{"rect": "accent", "height": 300, "if": "there"}],
                              "scroll": true})",
                          R"("size": [100, 100], "sample": {"there": true}, )"));
    used.press(95, 10);
    EXPECT_EQ(set(used.screen.get(), "there", "false"), "");
    const Used fresh(scene(R"({"column": []})", R"("size": [100, 100], )"));
    EXPECT_EQ(checksum(drawn(used.screen.get()).get()), checksum(drawn(fresh.screen.get()).get()));
    used.release(95, 10);
}

TEST(ScrollingTest, ABarThatIsHeldStaysWhereAllFitsNow) {
    const Used used(
        scene(R"({"column": [{"each": "l", "rect": "accent", "height": 60}], "scroll": true})",
              R"("size": [100, 100], "sample": {"l": [1, 2, 3]}, )"));
    used.move(50, 50);
    used.press(97, 5);
    for (const char* fewer : {"[]", "[1]"}) {
        set(used.screen.get(), "l", fewer);
        used.move(97, 90);
        used.move(97, 20);
    }
    set(used.screen.get(), "l", "[1, 2]");
    used.move(97, 100);
    EXPECT_NE(described(used.screen.get()).find("rect 0,-20 100x60"), std::string::npos);
}

TEST(ScrollingTest, ABarShorterThanItsMovingPartIsNotDragged) {
    const Used used(scene(R"({"column": [{"rect": "accent", "height": 50, "id": "in"}],
                              "scroll": true})",
                          R"("size": [100, 10], )"));
    used.move(50, 5);
    used.press(95, 5);
    used.move(95, 9);
    EXPECT_EQ(used.box("in").y, 0);
    EXPECT_NE(described(used.screen.get()).find("#in 0,0 100x50"), std::string::npos);
}

}  // namespace
