// Layouts worked out by hand: where each node lies, to the pixel.
#include "screens.h"

namespace {

using namespace orvel_test;

/// What is described of a screen of this size.
std::string laid_out(const std::string& root, const char* size = "[100, 60]") {
    return described(opened(scene(root, std::string("\"size\": ") + size + ", ")).get());
}

TEST(LayoutTest, PixelsLeftOverGoOneEachToTheEarliestGrowers) {
    // 100 - 2 x 5 of gaps = 90 for 4 + 1 + 2 weights: 51, 12, 25, and 2 left for the first two.
    EXPECT_EQ(laid_out(R"({"row": [{"rect": "accent", "grow": 4}, {"rect": "accent", "grow": 1},
                                   {"rect": "accent", "grow": 2}], "gap": 5})"),
              "row 0,0 100x60\n"
              "  rect 0,0 52x60\n"
              "  rect 57,0 13x60\n"
              "  rect 75,0 25x60\n");
}

TEST(LayoutTest, FixedFittedAndGrowingStandBesideEachOther) {
    // 60 - 4 - 6 of padding = 50 high; 20 fixed, 8 of the line, the space has the rest.
    EXPECT_EQ(laid_out(R"({"column": [{"rect": "accent", "height": 20}, {"space": null, "grow": 1},
                                      {"line": "border", "size": 8}], "pad": [4, 10, 6, 3]})"),
              "column 0,0 100x60\n"
              "  rect 3,4 87x20\n"
              "  space 3,24 87x22\n"
              "  line 3,46 87x8\n");
}

TEST(LayoutTest, BoundsHoldBackAndLeaveTheRestToTheOthers) {
    // A third each would be 33: the first stops at 10, the second needs 70, so 20 are left.
    EXPECT_EQ(laid_out(R"({"row": [{"rect": "accent", "grow": 1, "max": 10},
                                   {"rect": "accent", "grow": 1, "min": 70},
                                   {"rect": "accent", "grow": 1}]})"),
              "row 0,0 100x60\n"
              "  rect 0,0 10x60\n"
              "  rect 10,0 70x60\n"
              "  rect 80,0 20x60\n");
    EXPECT_EQ(laid_out(R"({"row": [{"rect": "accent", "grow": 1, "max": [30, 20]},
                                   {"rect": "accent", "width": 20, "min": [null, 70]}]})"),
              "row 0,0 100x60\n"
              "  rect 0,0 30x20\n"
              "  rect 30,0 20x70 shows 30,0 20x60\n");
}

TEST(LayoutTest, AlignIsAcrossAndJustifyAlong) {
    const std::string boxes = R"([{"rect": "accent", "width": 10, "height": 7},
                                  {"rect": "accent", "width": 20, "height": 20}])";
    const auto row = [&](const std::string& keys) { return laid_out("{\"row\": " + boxes + keys); };
    EXPECT_EQ(row(R"(, "align": "center", "justify": "center"})"),  // (60 - 7) / 2, (100 - 30) / 2
              "row 0,0 100x60\n  rect 35,26 10x7\n  rect 45,20 20x20\n");
    EXPECT_EQ(row(R"(, "align": "end", "justify": "end", "gap": 4})"),
              "row 0,0 100x60\n  rect 66,53 10x7\n  rect 80,40 20x20\n");
    EXPECT_EQ(row(R"(, "align": "start", "justify": "between"})"),
              "row 0,0 100x60\n  rect 0,0 10x7\n  rect 80,0 20x20\n");
}

TEST(LayoutTest, BetweenGivesTheEarliestGapsOnePixelMore) {
    // 100 - 4 x 20 = 20 for three gaps: 7, 7, 6.
    EXPECT_EQ(laid_out(R"({"row": [{"rect": "accent", "width": 20}, {"rect": "accent", "width": 20},
                                   {"rect": "accent", "width": 20}, {"rect": "accent", "width": 20}],
                           "justify": "between"})"),
              "row 0,0 100x60\n"
              "  rect 0,0 20x60\n"
              "  rect 27,0 20x60\n"
              "  rect 54,0 20x60\n"
              "  rect 80,0 20x60\n");
    EXPECT_EQ(laid_out(R"({"row": [{"rect": "accent", "width": 20}], "justify": "between"})"),
              "row 0,0 100x60\n  rect 0,0 20x60\n");
}

TEST(LayoutTest, AWrappingRowBeginsALineWhereAChildWouldReachBeyond) {
    // 30 + 5 + 40 + 5 + 20 = 100 fits exactly; the next line is as high as its highest, the last
    // one shares what is left of it.
    EXPECT_EQ(laid_out(R"({"row": [
        {"rect": "accent", "width": 30, "height": 10}, {"rect": "accent", "width": 40, "height": 8},
        {"rect": "accent", "width": 20, "height": 6}, {"rect": "accent", "width": 60, "height": 12},
        {"rect": "accent", "width": 36, "height": 4},
        {"rect": "accent", "width": 10, "height": 5},
        {"rect": "accent", "grow": 1, "height": 3}], "wrap": true, "gap": [5, 3], "align": "end"})"),
              "row 0,0 100x60\n"
              "  rect 0,0 30x10\n"
              "  rect 35,2 40x8\n"
              "  rect 80,4 20x6\n"
              "  rect 0,13 60x12\n"
              "  rect 0,29 36x4\n"
              "  rect 41,28 10x5\n"
              "  rect 56,30 44x3\n");
}

TEST(LayoutTest, AStackLaysItsChildrenOnEachOther) {
    EXPECT_EQ(laid_out(R"({"stack": [{"rect": "accent", "width": 20, "height": 8},
        {"rect": "error", "width": 10, "height": 10}], "align": "end", "justify": "center",
        "pad": 5})"),
              "stack 0,0 100x60\n"
              "  rect 75,26 20x8\n"
              "  rect 85,25 10x10\n");
    EXPECT_EQ(laid_out(R"({"stack": [{"rect": "accent"}, {"rect": "error", "width": 30}],
                           "pad": 5})"),
              "stack 0,0 100x60\n  rect 5,5 90x50\n  rect 5,5 30x50\n");
}

TEST(LayoutTest, AStackThatShowsOneChildIsAsLargeAsThat) {
    const std::string root = R"({"column": [{"stack": [
        {"rect": "accent", "width": 40, "height": 30},
        {"column": [{"rect": "error", "height": 7}], "id": "second"}], "show": "${tab}"},
        {"rect": "accent", "width": 5, "height": 2}], "align": "start"})";
    const auto shown = [&](const char* tab) {
        return described(
            opened(scene(root), (std::string("{\"tab\": ") + tab + "}").c_str()).get());
    };
    EXPECT_EQ(shown("0"),
              "column 0,0 40x32\n  stack 0,0 40x30\n    rect 0,0 40x30\n  rect 0,30 5x2\n");
    // What has no width is not told.
    EXPECT_EQ(shown("1"), "column 0,0 5x9\n  rect 0,7 5x2\n");
    EXPECT_EQ(shown("2"), "column 0,0 5x2\n  rect 0,0 5x2\n");
    EXPECT_EQ(shown("-1"), "column 0,0 5x2\n  rect 0,0 5x2\n");
}

TEST(LayoutTest, ParagraphsTakeTheirHeightFromTheirWidth) {
    // In the face of 12 pixels, lines are 14 apart and letters 15 high.
    const int one = kit_face_ascent(nullptr) + kit_face_descent(nullptr);
    ASSERT_EQ(one, 15);
    ASSERT_EQ(kit_face_line(nullptr), 15);
    EXPECT_EQ(laid_out(R"({"column": [{"text": "One two three four five six", "wrap": true},
        {"text": "One two three four five six", "wrap": true, "lines": 1},
        {"text": "One\ntwo", "wrap": true, "pad": [2, 20]}, {"rect": "accent", "grow": 1}]})",
                       "[100, 120]"),
              "column 0,0 100x120\n"
              "  text \"One two three four five six\" 0,0 100x30\n"
              "  text \"One two three four five six\" 0,30 100x15\n"
              "  text \"One\\ntwo\" 0,45 100x34\n"
              "  rect 0,79 100x41\n");
}

TEST(LayoutTest, FramesKeepTheirOwnLinesFree) {
    const std::string root = R"({"column": [{"panel": {"rect": "accent", "height": 10}},
        {"card": {"rect": "accent", "height": 10}},
        {"panel": {"rect": "accent", "height": 10}, "pad": 4},
        {"window": {"rect": "accent", "height": 10}, "title": "Title"}, {"panel": null}]})";
    EXPECT_EQ(laid_out(root, "[100, 200]"),
              "column 0,0 100x200\n"
              "  panel 0,0 100x12\n    rect 1,1 98x10\n"
              "  card 0,12 100x12\n    rect 3,13 96x10\n"
              "  panel 0,24 100x18\n    rect 4,28 92x10\n"
              "  window \"Title\" 0,42 100x31\n    rect 1,62 98x10\n"  // a band of 19 rows
              "  panel 0,73 100x2\n");
}

TEST(LayoutTest, WhatScrollsIsMovedAndCutToItsPlace) {
    const std::string root = R"({"column": [{"column": [
        {"rect": "accent", "height": 30}, {"rect": "accent", "height": 30, "id": "b"},
        {"rect": "accent", "height": 30}], "scroll": "${by}", "pad": 5, "grow": 1},
        {"rect": "accent", "height": 10}]})";
    const auto scrolled = [&](const char* by) {
        const std::string data = std::string("{\"by\": ") + by + "}";
        return described(opened(scene(root, "\"size\": [50, 60], "), data.c_str()).get());
    };
    const std::string at_12 =
        "column 0,0 50x60\n"
        "  column 0,0 50x50\n"
        "    rect 5,-7 40x30 shows 5,5 40x18\n"
        "    rect #b 5,23 40x30 shows 5,23 40x22\n"
        "  rect 0,50 50x10\n";
    EXPECT_EQ(scrolled("12"), at_12);
    // At most to its end: 90 rows in a room of 40.
    EXPECT_EQ(scrolled("1000"),
              "column 0,0 50x60\n"
              "  column 0,0 50x50\n"
              "    rect #b 5,-15 40x30 shows 5,5 40x10\n"
              "    rect 5,15 40x30\n"
              "  rect 0,50 50x10\n");
}

TEST(LayoutTest, PaddingThatLeavesNoRoomLeavesTheGround) {
    const ScreenPtr screen =
        opened(scene(R"({"text": "A", "pad": 5, "ground": "#ffffff"})", "\"size\": [3, 2], "));
    EXPECT_EQ(picture(drawn(screen.get()).get()), "###\n###\n");
}

TEST(LayoutTest, WhatIsUnknownLeavesItsGround) {
    const ScreenPtr screen =
        opened(scene(R"({"picture": "none", "ground": "#ffffff"})", "\"size\": [3, 2], "));
    EXPECT_EQ(picture(drawn(screen.get()).get()), "###\n###\n");
}

TEST(LayoutTest, WhatDoesNotScrollStands) {
    const std::string root =
        R"({"column": [{"rect": "accent", "height": 30}], "scroll": "${by|false}"})";
    EXPECT_EQ(laid_out(root, "[9, 20]"), "column 0,0 9x20\n  rect 0,0 9x30 shows 0,0 9x20\n");
}

TEST(LayoutTest, WithoutASizeTheScreenIsWhatItsRootWants) {
    const std::string root =
        R"({"row": [{"rect": "accent", "width": 33, "height": 4}, {"space": 7}], "pad": 3})";
    const ScreenPtr screen = opened(scene(root));
    int w = 0, h = 0;
    kit_screen_size(screen.get(), &w, &h);
    EXPECT_EQ(w, 46);
    EXPECT_EQ(h, 10);
    kit_screen_size(nullptr, &w, nullptr);
    EXPECT_EQ(w, 0);
}

TEST(LayoutTest, WhatHasASizeOfItsOwnIsNotStretched) {
    const std::string nodes = R"([{"icon": "home", "size": 20}, {"circle": "accent", "size": 11},
        {"circle": "accent"}])";
    EXPECT_EQ(laid_out("{\"row\": " + nodes + "}"),
              "row 0,0 100x60\n"
              "  icon \"home\" 0,20 20x20\n"
              "  circle 20,24 11x11\n");
    EXPECT_EQ(laid_out("{\"column\": " + nodes + "}"),
              "column 0,0 100x60\n"
              "  icon \"home\" 0,0 20x20\n"
              "  circle 0,20 11x11\n");
}

}  // namespace
