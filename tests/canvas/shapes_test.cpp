#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <utility>

#include "canvas/drawn.h"

namespace {

using namespace orvel_test;

template <typename... Args>
std::string line(int width, int height, Args... args) {
    return drawn(width, height, orvel_canvas_line, args...);
}

template <typename... Args>
std::string rect(int width, int height, Args... args) {
    return drawn(width, height, orvel_canvas_rect, args...);
}

template <typename... Args>
std::string fill_rect(int width, int height, Args... args) {
    return drawn(width, height, orvel_canvas_fill_rect, args...);
}

template <typename... Args>
std::string triangle(int width, int height, Args... args) {
    return drawn(width, height, orvel_canvas_fill_triangle, args...);
}

TEST(LineTest, AZeroLengthLineIsOnePixel) {
    EXPECT_EQ(line(7, 7, 5, 5, 5, 5),
              ".......\n"
              ".......\n"
              ".......\n"
              ".......\n"
              ".......\n"
              ".....#.\n"
              ".......\n");
}

TEST(LineTest, ThreeAcrossAndOneDownTurnsInTheMiddle) {
    EXPECT_EQ(line(5, 2, 0, 0, 3, 1),
              "##...\n"
              "..##.\n");
    EXPECT_EQ(line(5, 2, 3, 1, 0, 0),
              "##...\n"
              "..##.\n");
}

TEST(LineTest, AStepExactlyHalfwayIsTakenLateSoTheDirectionMatters) {
    EXPECT_EQ(line(3, 2, 0, 0, 2, 1),
              "##.\n"
              "..#\n");
    EXPECT_EQ(line(3, 2, 2, 1, 0, 0),
              "#..\n"
              ".##\n");
    EXPECT_EQ(line(2, 3, 0, 0, 1, 2),
              "#.\n"
              "#.\n"
              ".#\n");
    EXPECT_EQ(line(2, 3, 1, 2, 0, 0),
              "#.\n"
              ".#\n"
              ".#\n");
}

TEST(LineTest, AllOctantsMirrorEachOther) {
    const auto canvas = make_canvas(9, 9);
    const int ends[][2] = {{8, 6}, {6, 8}, {2, 8}, {0, 6}, {0, 2}, {2, 0}, {6, 0}, {8, 2}};
    for (const auto& [x, y] : ends) orvel_canvas_line(canvas.get(), 4, 4, x, y, kInk);
    EXPECT_EQ(picture(canvas.get()),
              "..#...#..\n"
              "...#.#...\n"
              "#..#.#..#\n"
              ".##.#.##.\n"
              "...###...\n"
              ".##.#.##.\n"
              "#..#.#..#\n"
              "...#.#...\n"
              "..#...#..\n");
}

TEST(LineTest, StraightAndDiagonalLinesIncludeBothEnds) {
    EXPECT_EQ(line(5, 3, 1, 1, 3, 1), ".....\n.###.\n.....\n");
    EXPECT_EQ(line(5, 3, 3, 1, 1, 1), ".....\n.###.\n.....\n");
    EXPECT_EQ(line(3, 4, 1, 0, 1, 2), ".#.\n.#.\n.#.\n...\n");
    EXPECT_EQ(line(3, 4, 1, 2, 1, 0), ".#.\n.#.\n.#.\n...\n");
    EXPECT_EQ(line(4, 4, 0, 0, 3, 3), "#...\n.#..\n..#.\n...#\n");
    EXPECT_EQ(line(4, 4, 3, 0, 0, 3), "...#\n..#.\n.#..\n#...\n");
}

TEST(LineTest, LongVerticalsAndDiagonalsAreTheirPixelsAloneOnCanvasesOfAnyWidth) {
    constexpr int kHeight = 300, kFirst = 20, kLast = 279;
    for (const int width : {300, 1023, 1024, 1025, 2048}) {
        for (const int aside : {-1, 0, 1}) {
            const int top = 150 - aside * (kLast - kFirst) / 2,
                      bottom = top + aside * (kLast - kFirst);
            for (const bool up : {false, true}) {
                const auto canvas = make_canvas(width, kHeight);
                orvel_canvas_line(canvas.get(), up ? bottom : top, up ? kLast : kFirst,
                                  up ? top : bottom, up ? kFirst : kLast, kInk);
                for (int y = 0; y < kHeight; ++y) {
                    for (int x = 0; x < width; ++x) {
                        const bool on =
                            y >= kFirst && y <= kLast && x == top + aside * (y - kFirst);
                        ASSERT_EQ(orvel_canvas_pixel_get(canvas.get(), x, y), on ? kInk : kBlack)
                            << x << ", " << y << " of " << width << ", aside " << aside;
                    }
                }
            }
        }
    }
}

TEST(LineTest, OnlyTheVisiblePartIsDrawn) {
    EXPECT_EQ(line(4, 2, -10, 0, 10, 0), "####\n....\n");
    EXPECT_EQ(line(4, 2, 10, 1, -10, 1), "....\n####\n");
    EXPECT_EQ(line(4, 3, 2, -5, 2, 1), "..#.\n..#.\n....\n");
}

TEST(LineTest, ALineThatReachesJustTheFirstOrTheLastRowOrColumnIsSeenThere) {
    EXPECT_EQ(line(4, 3, 1, -2, 1, 0), ".#..\n....\n....\n");
    EXPECT_EQ(line(4, 3, -2, -1, 0, 1), "....\n#...\n....\n");
    EXPECT_EQ(line(4, 3, 2, 2, 2, 4), "....\n....\n..#.\n");
    EXPECT_EQ(line(4, 3, 3, 1, 5, -1), "....\n...#\n....\n");
    EXPECT_EQ(line(4, 3, 2, 0, 4, 1), "..##\n....\n....\n");  // its end would begin the last row
}

TEST(LineTest, ALineThatEntersTheCanvasKeepsTheSlopeOfTheWholeLine) {
    // The line from (0, 0) to (3, 1), moved one to the left.
    EXPECT_EQ(line(3, 2, -1, 0, 2, 1),
              "#..\n"
              ".##\n");
}

TEST(LineTest, ALineOutsideDrawsNothing) {
    EXPECT_EQ(line(4, 3, -5, -1, 9, -1), kEmpty4x3);
    EXPECT_EQ(line(4, 3, -5, 3, 9, 3), kEmpty4x3);
    EXPECT_EQ(line(4, 3, -9, 1, -1, 1), kEmpty4x3);
    EXPECT_EQ(line(4, 3, 4, 1, 9, 1), kEmpty4x3);
    EXPECT_EQ(line(4, 3, -1, -9, -1, 9), kEmpty4x3);
    EXPECT_EQ(line(4, 3, 4, -9, 4, 9), kEmpty4x3);
    EXPECT_EQ(line(4, 3, -2, 1, 1, -2), kEmpty4x3);  // passes the corner
    EXPECT_EQ(line(4, 3, -1, -1, -1, -1), kEmpty4x3);
    EXPECT_EQ(line(4, 3, INT_MAX, INT_MAX, INT_MAX, INT_MAX), kEmpty4x3);
    EXPECT_EQ(line(4, 3, INT_MIN, INT_MIN, INT_MIN, INT_MIN), kEmpty4x3);
    EXPECT_EQ(line(4, 3, INT_MAX, INT_MIN, INT_MAX, INT_MAX), kEmpty4x3);
}

TEST(LineTest, ALineBetweenAnyTwoPointsEndsAndIsTheTrueLine) {
    EXPECT_EQ(line(4, 3, INT_MIN, 1, INT_MAX, 1), "....\n####\n....\n");
    EXPECT_EQ(line(4, 3, INT_MAX, 1, INT_MIN, 1), "....\n####\n....\n");
    EXPECT_EQ(line(4, 3, 2, INT_MAX, 2, INT_MIN), "..#.\n..#.\n..#.\n");
    EXPECT_EQ(line(4, 3, INT_MIN, INT_MIN, INT_MAX, INT_MAX), "#...\n.#..\n..#.\n");
    EXPECT_EQ(line(4, 3, INT_MIN, INT_MAX, INT_MAX, INT_MIN), kEmpty4x3);  // x + y = -1
    EXPECT_EQ(line(4, 3, INT_MIN + 1, INT_MAX, INT_MAX, INT_MIN + 1), "#...\n....\n....\n");
    EXPECT_EQ(line(4, 2, 0, 0, INT_MAX, 1), "####\n....\n");
}

TEST(LineTest, TheLongestShallowLineTurnsExactlyHalfway) {
    // 2^32 - 1 steps across and one down, which comes with step 2^31: at x = 0.
    EXPECT_EQ(line(4, 2, INT_MIN, 0, INT_MAX, 1), "....\n####\n");
    EXPECT_EQ(line(2, 4, 0, INT_MIN, 1, INT_MAX), ".#\n.#\n.#\n.#\n");
}

TEST(RectTest, ThreeByThreeIsTheEightBorderPixels) {
    EXPECT_EQ(rect(5, 4, 0, 0, 3, 3),
              "###..\n"
              "#.#..\n"
              "###..\n"
              ".....\n");
}

TEST(RectTest, ASideBelowOneDrawsNothing) {
    for (const int side : {0, -1, -3, INT_MIN}) {
        EXPECT_EQ(rect(4, 3, 1, 1, side, 2), kEmpty4x3);
        EXPECT_EQ(rect(4, 3, 1, 1, 2, side), kEmpty4x3);
    }
    EXPECT_EQ(rect(4, 3, INT_MIN, 0, -1, 2), kEmpty4x3);
}

TEST(RectTest, ThinRectanglesAreRowsColumnsAndSinglePixels) {
    EXPECT_EQ(rect(4, 3, 1, 1, 1, 1), "....\n.#..\n....\n");
    EXPECT_EQ(rect(4, 3, 1, 1, 3, 1), "....\n.###\n....\n");
    EXPECT_EQ(rect(4, 3, 1, 0, 1, 3), ".#..\n.#..\n.#..\n");
    EXPECT_EQ(rect(4, 3, 1, 0, 2, 2), ".##.\n.##.\n....\n");
}

TEST(RectTest, SidesOutsideAreNotMovedIn) {
    EXPECT_EQ(rect(3, 3, -1, -1, 3, 3), ".#.\n##.\n...\n");
    EXPECT_EQ(rect(3, 3, -1, -1, 5, 5), "...\n...\n...\n");
    EXPECT_EQ(rect(4, 3, 2, 1, 9, 9), "....\n..##\n..#.\n");
    EXPECT_EQ(rect(4, 3, 1, 1, INT_MAX, INT_MAX), "....\n.###\n.#..\n");
}

TEST(RectTest, AFarSideThatWrapsRunsAcrossTheCanvas) {
    // x + w - 1 is INT_MIN: the horizontal sides reach from INT_MAX down to it.
    EXPECT_EQ(rect(4, 3, INT_MAX, 1, 2, 1), "....\n####\n....\n");
    EXPECT_EQ(rect(4, 3, INT_MAX, 0, 2, 3), "####\n....\n####\n");
    EXPECT_EQ(rect(4, 3, 1, INT_MAX, 2, 2), ".##.\n.##.\n.##.\n");
}

TEST(FillRectTest, FillsTheHalfOpenBox) {
    EXPECT_EQ(fill_rect(5, 4, 1, 1, 3, 2),
              ".....\n"
              ".###.\n"
              ".###.\n"
              ".....\n");
    EXPECT_EQ(fill_rect(4, 3, 3, 2, 1, 1), "....\n....\n...#\n");
}

TEST(FillRectTest, IsClippedToTheCanvas) {
    EXPECT_EQ(fill_rect(4, 3, -2, -2, 4, 4), "##..\n##..\n....\n");
    EXPECT_EQ(fill_rect(4, 3, 3, 2, 9, 9), "....\n....\n...#\n");
    EXPECT_EQ(fill_rect(4, 3, -9, -9, 99, 99), kFull4x3);
    EXPECT_EQ(fill_rect(4, 3, 0, 0, INT_MAX, INT_MAX), kFull4x3);
    EXPECT_EQ(fill_rect(4, 3, 4, 0, 1, 3), kEmpty4x3);
    EXPECT_EQ(fill_rect(4, 3, 0, 3, 4, 1), kEmpty4x3);
    EXPECT_EQ(fill_rect(4, 3, -4, 0, 4, 3), kEmpty4x3);
    EXPECT_EQ(fill_rect(4, 3, 0, -4, 4, 4), kEmpty4x3);
}

TEST(FillRectTest, ASideBelowOneDrawsNothingEvenWhereTheSumWraps) {
    for (const int side : {0, -1, -3, INT_MIN}) {
        EXPECT_EQ(fill_rect(4, 3, 1, 1, side, 2), kEmpty4x3);
        EXPECT_EQ(fill_rect(4, 3, 1, 1, 2, side), kEmpty4x3);
        EXPECT_EQ(fill_rect(4, 3, INT_MIN, 0, side, 3), kEmpty4x3);
        EXPECT_EQ(fill_rect(4, 3, 0, INT_MIN, 4, side), kEmpty4x3);
    }
}

TEST(FillRectTest, AFarEdgeThatWrapsIsFarToTheLeft) {
    EXPECT_EQ(fill_rect(4, 3, 1, 0, INT_MAX, 3), kEmpty4x3);  // 1 + INT_MAX is INT_MIN
    EXPECT_EQ(fill_rect(4, 3, 0, 1, 4, INT_MAX), kEmpty4x3);
    EXPECT_EQ(fill_rect(4, 3, INT_MAX, 0, INT_MAX, 3), kEmpty4x3);  // the sum is -2
    EXPECT_EQ(fill_rect(4, 3, INT_MIN, 0, INT_MAX, 3), kEmpty4x3);  // the sum is -1
    EXPECT_EQ(fill_rect(4, 3, -2147483646, 0, INT_MAX, 3), "#...\n#...\n#...\n");
}

TEST(FillRectTest, CoversTheBoxOfTheOutlineWithTheSameArguments) {
    const auto canvas = make_canvas(7, 6);
    const orvel_color other = {9, 9, 9, 9};
    orvel_canvas_fill_rect(canvas.get(), 1, 1, 5, 4, kInk);
    orvel_canvas_rect(canvas.get(), 1, 1, 5, 4, other);
    EXPECT_EQ(picture(canvas.get(), {{'.', kBlack}, {'#', kInk}, {'o', other}}),
              ".......\n"
              ".ooooo.\n"
              ".o###o.\n"
              ".o###o.\n"
              ".ooooo.\n"
              ".......\n");
}

TEST(TriangleTest, FillsUpToItsEdgesInclusive) {
    EXPECT_EQ(triangle(5, 5, 0, 0, 3, 0, 0, 3),
              "####.\n"
              "###..\n"
              "##...\n"
              "#....\n"
              ".....\n");
}

TEST(TriangleTest, BothWindingsAndEveryOrderFillTheSame) {
    const int points[3][2] = {{4, 0}, {1, 3}, {6, 5}};
    const int orders[6][3] = {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}};
    for (const auto& [a, b, c] : orders) {
        EXPECT_EQ(triangle(8, 6, points[a][0], points[a][1], points[b][0], points[b][1],
                           points[c][0], points[c][1]),
                  "....#...\n"
                  "...##...\n"
                  "..###...\n"
                  ".#####..\n"
                  "....##..\n"
                  "......#.\n");
    }
}

TEST(TriangleTest, TrianglesThatShareAnEdgeBothPaintIt) {
    const auto canvas = make_canvas(4, 4);
    const orvel_color other = {9, 9, 9, 9};
    orvel_canvas_fill_triangle(canvas.get(), 0, 0, 3, 0, 0, 3, kInk);
    orvel_canvas_fill_triangle(canvas.get(), 3, 3, 3, 0, 0, 3, other);
    EXPECT_EQ(picture(canvas.get(), {{'.', kBlack}, {'#', kInk}, {'o', other}}),
              "###o\n"
              "##oo\n"
              "#ooo\n"
              "oooo\n");
}

TEST(TriangleTest, IsCutAtTheEdges) {
    EXPECT_EQ(triangle(5, 5, -3, -3, 9, -3, -3, 9),
              "#####\n"
              "#####\n"
              "#####\n"
              "####.\n"
              "###..\n");
    EXPECT_EQ(triangle(4, 3, -9, -9, 20, -9, 5, -1), kEmpty4x3);
    EXPECT_EQ(triangle(4, 3, -9, 3, 20, 9, 5, 3), kEmpty4x3);
    EXPECT_EQ(triangle(4, 3, -9, 0, -1, 1, -5, 2), kEmpty4x3);
    EXPECT_EQ(triangle(4, 3, 4, 0, 9, 1, 5, 2), kEmpty4x3);
}

TEST(TriangleTest, ThreePointsOnOneRowFillTheWholeRow) {
    EXPECT_EQ(triangle(12, 7, 0, 5, 3, 5, 9, 5),
              "............\n"
              "............\n"
              "............\n"
              "............\n"
              "............\n"
              "############\n"
              "............\n");
    EXPECT_EQ(triangle(4, 3, -90, 1, -30, 1, -60, 1), "....\n####\n....\n");
}

TEST(TriangleTest, ThreeEqualPointsFillTheirWholeRow) {
    EXPECT_EQ(triangle(4, 3, 2, 1, 2, 1, 2, 1), "....\n####\n....\n");
    EXPECT_EQ(triangle(4, 3, 99, 1, 99, 1, 99, 1), "....\n####\n....\n");
    EXPECT_EQ(triangle(4, 3, 2, 3, 2, 3, 2, 3), kEmpty4x3);
    EXPECT_EQ(triangle(4, 3, 2, -1, 2, -1, 2, -1), kEmpty4x3);
}

TEST(TriangleTest, PointsOnALineDrawTheLatticePointsOfTheWholeLineWithinTheirRows) {
    EXPECT_EQ(triangle(5, 5, 1, 1, 2, 2, 3, 3), ".....\n.#...\n..#..\n...#.\n.....\n");
    EXPECT_EQ(triangle(5, 3, 0, 0, 4, 2, 2, 1), "#....\n..#..\n....#\n");
    EXPECT_EQ(triangle(5, 3, 0, 0, 1, 2, 1, 2), "#....\n.....\n.#...\n");
    EXPECT_EQ(triangle(4, 3, 2, 0, 2, 0, 0, 2), "..#.\n.#..\n#...\n");
    EXPECT_EQ(triangle(4, 3, 1, 1, 1, 9, 1, 5), "....\n.#..\n.#..\n");
}

TEST(TriangleTest, FarDownALongEdgeAPixelThatItMeetsIsStillInside) {
    // In 28086 of 32767 rows the edge moves by 7020 of 8190 columns, from -7015 to 5.
    constexpr int kRow = 28086 - 16384;
    const auto canvas = make_canvas(10, kRow + 1);
    for (const auto& [far, row] :
         {std::pair(16000, ".....#####"), std::pair(-16000, "######....")}) {
        orvel_canvas_clear(canvas.get(), kBlack);
        orvel_canvas_fill_triangle(canvas.get(), -7015, -16384, 1175, 16383, far, 16383, kInk);
        for (int x = 0; x < 10; ++x) {
            EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), x, kRow), row[x] == '#' ? kInk : kBlack)
                << far << ", " << x;
        }
    }
}

TEST(TriangleTest, EdgeFunctionsWrap) {
    // The long side's edge function is 2^32 - 65536 (x + y), which wraps to a negative number
    // beside two that are not.
    EXPECT_EQ(triangle(4, 3, 0, 0, 65536, 0, 0, 65536), "#...\n....\n....\n");
    EXPECT_EQ(triangle(4, 3, 0, 0, 16384, 0, 0, 16384), kFull4x3);
    EXPECT_EQ(triangle(4, 3, 0, 0, 32767, 0, 0, 32767), kFull4x3);
}

TEST(TriangleTest, OnACanvasOfOneColumnRowsWithoutAnInsidePixelStayEmpty) {
    EXPECT_EQ(triangle(1, 2, 5, 0, 9, 0, 5, 1), ".\n.\n");
    EXPECT_EQ(triangle(1, 2, 5, 0, 20000, 0, 5, 1), ".\n.\n");
}

TEST(TriangleTest, ARowIsFilledFromItsFirstInsidePixelToItsLastWhateverIsBetween) {
    // The edge functions are 65536 x, 32769 y and 2^31 + 65536 - 65536 x - 32769 y, which wraps to
    // a negative number from 2^31 on: at (0, 0), where the others are zero, at (1, 0) and (0, 1).
    EXPECT_EQ(triangle(4, 3, 0, 0, 32769, 0, 0, 65536), "####\n.###\n####\n");
}

TEST(TriangleTest, WhereAnEdgeFunctionIsOneAlreadyAPixelOfALargeTriangleIsOutside) {
    // That of the side from (2, 0) to (2, 1) is x - 2; at (3, 0) the others are -20003 and 0.
    const int points[3][2] = {{2, 0}, {-20000, 0}, {2, 1}};
    for (int first = 0; first < 3; ++first) {
        const auto& a = points[first];
        const auto& b = points[(first + 1) % 3];
        const auto& c = points[(first + 2) % 3];
        EXPECT_EQ(triangle(5, 2, a[0], a[1], b[0], b[1], c[0], c[1]),
                  "###..\n"
                  "..#..\n");
    }
}

TEST(TriangleTest, OnAWideCanvasTheEdgeFunctionsOfNearPointsWrapToo) {
    // Up to x = 16384 none is negative. From x = 49152 on all are: 2^29 + 32768 x has wrapped, and
    // 2^28 - 16384 x is below zero.
    for (const auto& [width, filled] : {std::pair(49152, 16385), std::pair(49153, 49153)}) {
        const auto canvas = make_canvas(width, 1);
        orvel_canvas_fill_triangle(canvas.get(), -16384, -16384, 16384, 0, -16384, 16384, kInk);
        std::string expected(std::size_t(width), '.');
        expected.replace(0, std::size_t(filled), std::size_t(filled), '#');
        EXPECT_TRUE(picture(canvas.get(), {{'.', kBlack}, {'#', kInk}}) == expected + "\n")
            << width;
    }
}

TEST(ShapesTest, ColoursAreStoredAlphaIncluded) {
    const orvel_color clear = {1, 2, 3, 0};
    const auto canvas = make_canvas(3, 3);
    const auto centre = [&canvas] {
        const orvel_color found = orvel_canvas_pixel_get(canvas.get(), 1, 1);
        orvel_canvas_clear(canvas.get(), kInk);
        return found;
    };
    orvel_canvas_line(canvas.get(), 0, 0, 2, 2, clear);
    EXPECT_EQ(centre(), clear);
    orvel_canvas_rect(canvas.get(), 1, 1, 2, 2, clear);
    EXPECT_EQ(centre(), clear);
    orvel_canvas_fill_rect(canvas.get(), 0, 0, 3, 3, clear);
    EXPECT_EQ(centre(), clear);
    orvel_canvas_circle(canvas.get(), 1, 0, 1, clear);
    EXPECT_EQ(centre(), clear);
    orvel_canvas_fill_circle(canvas.get(), 1, 1, 1, clear);
    EXPECT_EQ(centre(), clear);
    orvel_canvas_fill_triangle(canvas.get(), 0, 0, 2, 0, 1, 2, clear);
    EXPECT_EQ(centre(), clear);
}

TEST(ShapesTest, ANullCanvasIsTolerated) {
    orvel_canvas_line(nullptr, 0, 0, 9, 9, kInk);
    orvel_canvas_rect(nullptr, 0, 0, 9, 9, kInk);
    orvel_canvas_fill_rect(nullptr, 0, 0, 9, 9, kInk);
    orvel_canvas_circle(nullptr, 0, 0, 9, kInk);
    orvel_canvas_fill_circle(nullptr, 0, 0, 9, kInk);
    orvel_canvas_fill_triangle(nullptr, 0, 0, 9, 0, 0, 9, kInk);
}

}  // namespace
