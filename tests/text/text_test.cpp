#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "support/picture.h"

namespace {

using namespace orvel_test;

std::string written(const std::string& text, int width = 5, int height = 7, int x = 0, int y = 0) {
    const auto canvas = make_canvas(width, height);
    orvel_text_draw(canvas.get(), text.c_str(), x, y, kInk);
    return picture(canvas.get());
}

TEST(TextWidthTest, NullAndEmptyTextsHaveNone) {
    EXPECT_EQ(orvel_text_width(nullptr), 0);
    EXPECT_EQ(orvel_text_width(""), 0);
}

TEST(TextWidthTest, EveryByteCountsSixLessTheLastGap) {
    EXPECT_EQ(orvel_text_width("A"), 5);
    EXPECT_EQ(orvel_text_width("AB"), 11);
    EXPECT_EQ(orvel_text_width("A\nB"), 17);
    EXPECT_EQ(orvel_text_width(" "), 5);
    EXPECT_EQ(orvel_text_width("\n"), 5);
    EXPECT_EQ(orvel_text_width("\xC3\xA8"), 11);  // one letter, two bytes
    EXPECT_EQ(orvel_text_width("\x01\x7F\xFF"), 17);
    EXPECT_EQ(orvel_text_width(std::string(1000, 'x').c_str()), 5999);
}

// The pictures: five bits of each of seven bytes, the high bit at the left. The bytes are the
// glyph's five and the first two of the next glyph.

TEST(TextDrawTest, ASpaceIsEmpty) { EXPECT_EQ(written(" "), written("")); }

TEST(TextDrawTest, ExclamationMark) {  // 00 00 5F 00 00, then 00 07
    EXPECT_EQ(written("!"),
              ".....\n"
              ".....\n"
              "#####\n"
              ".....\n"
              ".....\n"
              ".....\n"
              "..###\n");
}

TEST(TextDrawTest, Zero) {  // 3E 51 49 45 3E, then 00 42
    EXPECT_EQ(written("0"),
              "####.\n"
              "#...#\n"
              ".#..#\n"
              "..#.#\n"
              "####.\n"
              ".....\n"
              "...#.\n");
}

TEST(TextDrawTest, CapitalA) {  // 7E 11 11 11 7E, then 7F 49
    EXPECT_EQ(written("A"),
              "####.\n"
              "#...#\n"
              "#...#\n"
              "#...#\n"
              "####.\n"
              "#####\n"
              ".#..#\n");
}

TEST(TextDrawTest, SmallA) {  // 20 54 54 54 78, then 7F 48
    EXPECT_EQ(written("a"),
              ".....\n"
              "#.#..\n"
              "#.#..\n"
              "#.#..\n"
              "##...\n"
              "#####\n"
              ".#...\n");
}

TEST(TextDrawTest, BarTakesTwoRowsOfTheBrace) {  // 00 00 7F 00 00, then 00 41
    EXPECT_EQ(written("|"),
              ".....\n"
              ".....\n"
              "#####\n"
              ".....\n"
              ".....\n"
              ".....\n"
              "....#\n");
}

TEST(TextDrawTest, Code126TakesTheTwoBytesAfterTheTable) {  // 08 08 2A 1C 08, then 53 6F
    EXPECT_EQ(written("~"),
              ".#...\n"
              ".#...\n"
              ".#.#.\n"
              "###..\n"
              ".#...\n"
              "#..##\n"
              ".####\n");
}

TEST(TextDrawTest, CellsAreSixApartAndANewlineMovesNothing) {
    const std::string side_by_side =
        "####..#####\n"
        "#...#..#..#\n"
        "#...#..#..#\n"
        "#...#..#..#\n"
        "####..#.##.\n"
        "#####.####.\n"
        ".#..#.....#\n";
    EXPECT_EQ(written("AB", 11), side_by_side);
    EXPECT_EQ(written("A\nB", 11), side_by_side);
    EXPECT_EQ(written("\n\nA\n\n\nB\n", 11), side_by_side);
}

TEST(TextDrawTest, AByteWithoutAGlyphIsABlankCell) {
    for (const char* gap : {"A\xC8"
                            "B",
                            "A\x01"
                            "B",
                            "A\tB",
                            "A\x0B"
                            "B",
                            "A\x1F"
                            "B",
                            "A\x7F"
                            "B",
                            "A\x80"
                            "B",
                            "A\xFF"
                            "B",
                            "A B"}) {
        EXPECT_EQ(written(gap, 17),
                  "####........#####\n"
                  "#...#........#..#\n"
                  "#...#........#..#\n"
                  "#...#........#..#\n"
                  "####........#.##.\n"
                  "#####.......####.\n"
                  ".#..#...........#\n");
    }
    EXPECT_EQ(written("\xFE"), written(""));
}

TEST(TextDrawTest, TextIsCutPixelByPixelAtEveryEdge) {
    EXPECT_EQ(written("A", 5, 7, -2, -3),
              "..#..\n"
              "##...\n"
              "###..\n"
              "..#..\n"
              ".....\n"
              ".....\n"
              ".....\n");
    EXPECT_EQ(written("A", 5, 7, 2, 5),
              ".....\n"
              ".....\n"
              ".....\n"
              ".....\n"
              ".....\n"
              "..###\n"
              "..#..\n");
    EXPECT_EQ(written("AAA", 3, 2, -6, 0), "###\n#..\n");
}

TEST(TextDrawTest, NothingIsDrawnOutsideOrAtTheExtremes) {
    const std::string empty = written("");
    const int places[][2] = {{5, 0},
                             {-5, 0},
                             {0, 7},
                             {0, -7},
                             {INT_MAX, 0},
                             {INT_MIN, 0},
                             {0, INT_MAX},
                             {0, INT_MIN},
                             {INT_MAX - 2, INT_MAX - 3},
                             {INT_MIN, INT_MIN}};
    for (const auto& [x, y] : places) EXPECT_EQ(written("A", 5, 7, x, y), empty) << x << ", " << y;
    EXPECT_EQ(written("AAAA", 5, 7, INT_MAX - 5, 0), empty);
}

TEST(TextDrawTest, ALongTextRunsInFromTheLeft) {
    EXPECT_EQ(written(std::string(1000, 'x') + "A", 5, 7, -6000, 0), written("A"));
}

TEST(TextDrawTest, ClearBitsLeaveTheCanvasAndAlphaZeroOverwrites) {
    const orvel_color below = {50, 60, 70, 80}, clear = {1, 2, 3, 0};
    const auto canvas = make_canvas(5, 7);
    orvel_canvas_clear(canvas.get(), below);
    orvel_text_draw(canvas.get(), "!", 0, 0, clear);
    EXPECT_EQ(picture(canvas.get(), {{'.', below}, {'o', clear}}),
              ".....\n"
              ".....\n"
              "ooooo\n"
              ".....\n"
              ".....\n"
              ".....\n"
              "..ooo\n");
}

TEST(TextDrawTest, NullAndEmptyDrawNothing) {
    const auto canvas = make_canvas(5, 7);
    orvel_text_draw(nullptr, "A", 0, 0, kInk);
    orvel_text_draw(nullptr, nullptr, 0, 0, kInk);
    orvel_text_draw(canvas.get(), nullptr, 0, 0, kInk);
    orvel_text_draw(canvas.get(), "", 0, 0, kInk);
    EXPECT_EQ(picture(canvas.get()), written(""));
}

}  // namespace
