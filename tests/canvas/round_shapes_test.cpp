#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <string>

#include "canvas/drawn.h"

namespace {

using namespace orvel_test;

template <typename... Args>
std::string circle(int width, int height, Args... args) {
    return drawn(width, height, orvel_canvas_circle, args...);
}

template <typename... Args>
std::string disc(int width, int height, Args... args) {
    return drawn(width, height, orvel_canvas_fill_circle, args...);
}

TEST(CircleTest, ANegativeRadiusDrawsNothing) {
    EXPECT_EQ(circle(4, 3, 1, 1, -1), kEmpty4x3);
    EXPECT_EQ(circle(4, 3, 1, 1, INT_MIN), kEmpty4x3);
}

TEST(CircleTest, RadiusZeroIsTheCentrePixel) {
    EXPECT_EQ(circle(4, 3, 1, 1, 0), "....\n.#..\n....\n");
    EXPECT_EQ(circle(4, 3, 4, 1, 0), kEmpty4x3);
}

TEST(CircleTest, RadiusOneIsAPlusWithoutItsCentre) {
    EXPECT_EQ(circle(8, 8, 5, 5, 1),
              "........\n"
              "........\n"
              "........\n"
              "........\n"
              ".....#..\n"
              "....#.#.\n"
              ".....#..\n"
              "........\n");
}

TEST(CircleTest, RadiusTwoHasSidesOfThree) {
    EXPECT_EQ(circle(5, 5, 2, 2, 2),
              ".###.\n"
              "#...#\n"
              "#...#\n"
              "#...#\n"
              ".###.\n");
}

TEST(CircleTest, RadiusThreeIsSixteenPixels) {
    const auto canvas = make_canvas(20, 20);
    orvel_canvas_circle(canvas.get(), 10, 10, 3, kInk);
    const std::string all = picture(canvas.get());
    EXPECT_EQ(std::count(all.begin(), all.end(), '#'), 16);
    EXPECT_EQ(circle(7, 7, 3, 3, 3),
              "..###..\n"
              ".#...#.\n"
              "#.....#\n"
              "#.....#\n"
              "#.....#\n"
              ".#...#.\n"
              "..###..\n");
}

TEST(CircleTest, ACircleAroundACornerShowsItsQuarter) {
    EXPECT_EQ(circle(4, 4, 0, 0, 2), "..#.\n..#.\n##..\n....\n");
    EXPECT_EQ(circle(4, 4, 3, 0, 2), ".#..\n.#..\n..##\n....\n");
    EXPECT_EQ(circle(4, 4, 3, 3, 2), "....\n..##\n.#..\n.#..\n");
    EXPECT_EQ(circle(4, 4, 0, 3, 2), "....\n##..\n..#.\n..#.\n");
}

TEST(CircleTest, ACentreOutsideShowsWhatReachesIn) {
    EXPECT_EQ(circle(4, 5, -1, 2, 2), "#...\n.#..\n.#..\n.#..\n#...\n");
}

TEST(CircleTest, TheLargestRadiusShowsAFlatSide) {
    // Its leftmost point is (0, 0), and the side stays on column 0 for tens of thousands of rows.
    EXPECT_EQ(circle(4, 3, INT_MAX, 0, INT_MAX), "#...\n#...\n#...\n");
    EXPECT_EQ(circle(4, 3, 1, -INT_MAX, INT_MAX), "####\n....\n....\n");
    EXPECT_EQ(circle(4, 3, INT_MIN, 0, INT_MAX), kEmpty4x3);  // its rightmost column is -1
}

TEST(CircleTest, ACircleThatCannotMeetTheCanvasDrawsNothing) {
    EXPECT_EQ(circle(4, 3, 1, 1, 1000000000), kEmpty4x3);  // around it
    EXPECT_EQ(circle(4, 3, 1, 1, INT_MAX), kEmpty4x3);
    EXPECT_EQ(circle(4, 3, INT_MAX, INT_MAX, INT_MAX), kEmpty4x3);
    EXPECT_EQ(circle(4, 3, INT_MIN, INT_MIN, INT_MAX), kEmpty4x3);
    EXPECT_EQ(circle(4, 3, INT_MAX, INT_MIN, 5), kEmpty4x3);
}

TEST(DiscTest, ANegativeRadiusDrawsNothing) {
    EXPECT_EQ(disc(4, 3, 1, 1, -1), kEmpty4x3);
    EXPECT_EQ(disc(4, 3, 1, 1, INT_MIN), kEmpty4x3);
}

TEST(DiscTest, RadiusZeroIsTheCentrePixel) { EXPECT_EQ(disc(4, 3, 1, 1, 0), "....\n.#..\n....\n"); }

TEST(DiscTest, HalfWidthsAreTruncatedSquareRoots) {
    EXPECT_EQ(disc(3, 3, 1, 1, 1), ".#.\n###\n.#.\n");
    EXPECT_EQ(disc(5, 5, 2, 2, 2),
              "..#..\n"
              ".###.\n"
              "#####\n"
              ".###.\n"
              "..#..\n");
    EXPECT_EQ(disc(11, 11, 5, 5, 5),
              ".....#.....\n"
              "..#######..\n"
              ".#########.\n"
              ".#########.\n"
              ".#########.\n"
              "###########\n"
              ".#########.\n"
              ".#########.\n"
              ".#########.\n"
              "..#######..\n"
              ".....#.....\n");
}

TEST(DiscTest, ItsEdgeDiffersFromTheOutlinesAndBothAreKept) {
    const auto canvas = make_canvas(5, 5);
    const orvel_color other = {9, 9, 9, 9};
    orvel_canvas_circle(canvas.get(), 2, 2, 2, other);
    orvel_canvas_fill_circle(canvas.get(), 2, 2, 2, kInk);
    EXPECT_EQ(picture(canvas.get(), {{'.', kBlack}, {'#', kInk}, {'o', other}}),
              ".o#o.\n"
              "o###o\n"
              "#####\n"
              "o###o\n"
              ".o#o.\n");
}

TEST(DiscTest, IsCutAtTheEdges) {
    EXPECT_EQ(disc(3, 3, 0, 0, 2), "###\n##.\n#..\n");
    EXPECT_EQ(disc(3, 3, 3, 3, 2), "...\n...\n..#\n");
    EXPECT_EQ(disc(4, 3, 9, 1, 4), kEmpty4x3);
    EXPECT_EQ(disc(4, 3, 1, 9, 4), kEmpty4x3);
}

TEST(DiscTest, ARadiusUpTo46340FillsAllThatItCovers) {
    EXPECT_EQ(disc(4, 3, 1, 1, 1000), kFull4x3);
    EXPECT_EQ(disc(4, 3, 1, 1, 46340), kFull4x3);
}

TEST(DiscTest, AtRadius46341TheRowsWhoseSquareWrapsAreSkipped) {
    // 46341 * 46341 is 4634 above the largest int: rows up to 68 from the centre wrap.
    const auto canvas = make_canvas(1, 140);
    orvel_canvas_fill_circle(canvas.get(), 0, 70, 46341, kInk);
    for (int y = 0; y < 140; ++y) {
        const bool far = y == 0 || y == 1 || y == 139;
        EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 0, y), far ? kInk : kBlack) << y;
    }
}

TEST(DiscTest, AtRadius65536TheMiddleRowIsOnePixel) {
    EXPECT_EQ(disc(5, 3, 2, 1, 65536), ".....\n..#..\n.....\n");
}

TEST(DiscTest, ExtremeCentresAndRadiiEndAtOnce) {
    EXPECT_EQ(disc(4, 3, INT_MAX, INT_MAX, INT_MAX), kEmpty4x3);
    EXPECT_EQ(disc(4, 3, INT_MIN, INT_MIN, INT_MAX), kEmpty4x3);
    EXPECT_EQ(disc(4, 3, INT_MAX, 1, INT_MAX), kEmpty4x3);
    // (dy + r)(r - dy) is 1 on the middle row and 0 on its neighbours, modulo 2^32.
    EXPECT_EQ(disc(4, 3, 1, 1, INT_MAX), ".#..\n###.\n.#..\n");
}

}  // namespace
