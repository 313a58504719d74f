// How kit_pixels() makes up for colours that a layout lacks.
#include <gtest/gtest.h>

#include <algorithm>

#include "kit/pixels/painted.h"

namespace {

using namespace orvel_test;

CanvasPtr filled(int width, int height, orvel_color color) {
    CanvasPtr canvas = make_canvas(width, height);
    orvel_canvas_clear(canvas.get(), color);
    return canvas;
}

/// How many of 64 pixels of one grey are white.
int lit(int value) {
    const kit_format format = format_of(KIT_GREY1, KIT_DITHER_ORDERED);
    unsigned char bytes[8];
    EXPECT_EQ(kit_pixels(filled(8, 8, grey(value)).get(), nullptr, &format, bytes, 8, 0), 0);
    int count = 0;
    for (unsigned byte : bytes) {
        for (; byte; byte /= 2) count += byte % 2;
    }
    return count;
}

TEST(OrderedTest, HalfGreyIsACheckerboard) {
    EXPECT_EQ(written(filled(8, 4, grey(128)), format_of(KIT_GREY1, KIT_DITHER_ORDERED)),
              "55\naa\n55\naa\n");
}

TEST(OrderedTest, ThePixelsLightUpInTheOrderOfTheMatrix) {
    // A 64th of white is 3.98: the 63 of the matrix stands in its last row, the 62 in row 3.
    const kit_format format = format_of(KIT_GREY1, KIT_DITHER_ORDERED);
    EXPECT_EQ(written(filled(8, 8, grey(4)), format), "00\n00\n00\n00\n00\n00\n00\n80\n");
    EXPECT_EQ(written(filled(8, 8, grey(8)), format), "00\n00\n00\n08\n00\n00\n00\n80\n");
    EXPECT_EQ(written(filled(8, 8, grey(251)), format), "7f\nff\nff\nff\nff\nff\nff\nff\n");
}

TEST(OrderedTest, AsManyPixelsAreWhiteAsTheGreyHasSixtyFourths) {
    for (int value = 0; value < 256; ++value) {
        ASSERT_EQ(lit(value), (2 * 64 * value + 255) / 510) << value;  // rounded
    }
}

TEST(OrderedTest, TheMatrixLiesOnTheCanvasSoBoxesFitTogether) {
    const auto canvas = make_canvas(24, 24);
    for (int y = 0; y < 24; ++y) {
        for (int x = 0; x < 24; ++x) orvel_canvas_pixel(canvas.get(), x, y, grey(10 * x + y));
    }
    const kit_format format = format_with({kBlack, grey(90), kInk}, KIT_INDEX8, KIT_DITHER_ORDERED);
    unsigned char whole[24][24], part[7][5];
    const kit_box box = {11, 6, 5, 7};
    ASSERT_EQ(kit_pixels(canvas.get(), nullptr, &format, whole, sizeof whole, 0), 0);
    ASSERT_EQ(kit_pixels(canvas.get(), &box, &format, part, sizeof part, 0), 0);
    for (int y = 0; y < 7; ++y) {
        for (int x = 0; x < 5; ++x) EXPECT_EQ(part[y][x], whole[6 + y][11 + x]) << x << ' ' << y;
    }
}

TEST(OrderedTest, ThePaletteOfBlackAndWhiteIsOneBitOfGrey) {
    const auto canvas = filled(8, 4, grey(128));
    EXPECT_EQ(written(canvas, format_with({kBlack, kInk}, KIT_INDEX4, KIT_DITHER_ORDERED)),
              "01 01 01 01\n10 10 10 10\n01 01 01 01\n10 10 10 10\n");
}

TEST(OrderedTest, AColourOfThePaletteStaysItself) {
    const orvel_color orange = {255, 128, 0, 255}, yellow = {255, 255, 0, 255};
    const kit_format format =
        format_with({kBlack, kInk, kRed, yellow, orange}, KIT_INDEX4, KIT_DITHER_ORDERED);
    EXPECT_EQ(written(filled(4, 2, orange), format), "44 44\n44 44\n");
    EXPECT_EQ(written(filled(4, 2, kRed), format), "22 22\n22 22\n");
}

TEST(OrderedTest, ARedPanelMixesPinkFromRedAndWhite) {
    const kit_format format = format_with({kBlack, kInk, kRed}, KIT_INDEX4, KIT_DITHER_ORDERED);
    EXPECT_EQ(written(filled(8, 2, {255, 128, 128, 255}), format), "21 21 21 21\n12 12 12 12\n");
}

TEST(DiffusedTest, ErrorsGoSevenAheadThreeFiveAndOneBelow) {
    // In sixteenths, white is 4080 and 100 is 1600. First row:
    //   1600 is black, error 1600: 700 ahead; 300, 500, 100 below
    //   2300 is white, error -1780: -778 ahead; -333, -556 and the rest, -113, below
    //   822 is black, error 822: 154 and 256 below
    // Second row, where 69 is 1104:
    //   1600 + 500 - 333 = 1767 is black: 773 ahead
    //   1104 + 100 - 556 + 154 + 773 = 1575 is black: 689 ahead
    //   1600 - 113 + 256 + 689 = 2432 is white
    const auto canvas = painted_grey({{100, 100, 100}, {100, 69, 100}});
    EXPECT_EQ(written(canvas, format_of(KIT_GREY1, KIT_DITHER_DIFFUSED)), "40\n20\n");
    EXPECT_EQ(written(canvas, format_of(KIT_GREY1)), "00\n00\n");
}

TEST(DiffusedTest, ATieIsTheDarkerLevel) {
    // 127 wants 2032 and is black; 7 of 16 parts of it are 889, so 72 wants 1152 + 889 = 2041,
    // which is white, and 71 wants 2025.
    const kit_format format = format_of(KIT_GREY1, KIT_DITHER_DIFFUSED);
    EXPECT_EQ(written(painted_grey({{127, 72}}), format), "40\n");
    EXPECT_EQ(written(painted_grey({{127, 71}}), format), "00\n");
    // 120 wants 1920, 840 ahead; 75 wants 1200 + 840 = 2040, exactly between the two.
    EXPECT_EQ(written(painted_grey({{120, 75}}), format), "00\n");
    EXPECT_EQ(written(painted_grey({{120, 76}}), format), "40\n");
}

TEST(DiffusedTest, EveryChannelHasItsOwnError) {
    // 200 red is 3200, red is taken, error -880, -385 ahead; 135 red wants 2160 - 385 = 1775 then,
    // which is nearer to black. The green of the second pixel stays with it.
    const auto canvas = painted({{{200, 0, 0, 255}, {135, 20, 0, 255}}});
    const std::vector<orvel_color> palette = {kBlack, kRed};
    EXPECT_EQ(written(canvas, format_with(palette, KIT_INDEX8)), "01 01\n");
    EXPECT_EQ(written(canvas, format_with(palette, KIT_INDEX8, KIT_DITHER_DIFFUSED)), "01 00\n");
}

TEST(DiffusedTest, WhatAPixelWantsEndsAtBlackAndWhite) {
    // 120 is black and sends 840 ahead; 255 wants no more than white and sends nothing on, so that
    // 118 is black.
    const kit_format format = format_of(KIT_GREY1, KIT_DITHER_DIFFUSED);
    EXPECT_EQ(written(painted_grey({{120, 255, 118}}), format), "40\n");
    EXPECT_EQ(written(painted_grey({{135, 0, 137}}), format), "a0\n");  // likewise at black
}

TEST(DiffusedTest, APaletteThatLacksTheColourAltogetherStillEnds) {
    const auto canvas = filled(300, 300, {0, 0, 255, 255});
    const kit_format format = format_with({kRed}, KIT_INDEX8, KIT_DITHER_DIFFUSED);
    std::vector<unsigned char> bytes(90000, 1);
    EXPECT_EQ(kit_pixels(canvas.get(), nullptr, &format, bytes.data(), bytes.size(), 0), 0);
    EXPECT_EQ(bytes, std::vector<unsigned char>(90000, 0));
}

TEST(DiffusedTest, TheLightnessOfAnAreaIsKept) {
    for (const int value : {13, 64, 100, 128, 200, 250}) {
        const auto canvas = filled(160, 160, grey(value));
        const kit_format format = format_with({kBlack, kInk}, KIT_INDEX8, KIT_DITHER_DIFFUSED);
        std::vector<unsigned char> bytes(160 * 160);
        ASSERT_EQ(kit_pixels(canvas.get(), nullptr, &format, bytes.data(), bytes.size(), 0), 0);
        const auto white = std::count(bytes.begin(), bytes.end(), 1);
        EXPECT_NEAR(static_cast<double>(white) * 255 / 25600, value, 1.5) << value;
    }
}

TEST(DitherTest, WhatALayoutHasExactlyIsNotTouchedByAnyDither) {
    std::vector<std::vector<orvel_color>> rows(16);
    for (int i = 0; i < 256; ++i)
        rows[static_cast<std::size_t>(i / 16)].push_back(grey(i / 16 * 17));
    const auto steps = painted(rows);
    for (const kit_layout layout : {KIT_GREY8, KIT_GREY4}) {
        const std::string plain = written(steps, format_of(layout));
        EXPECT_EQ(written(steps, format_of(layout, KIT_DITHER_ORDERED)), plain);
        EXPECT_EQ(written(steps, format_of(layout, KIT_DITHER_DIFFUSED)), plain);
    }
    const auto any = painted({{{1, 2, 3, 4}, {200, 100, 50, 25}}});
    const std::string plain = written(any, format_of(KIT_BGRA));
    EXPECT_EQ(written(any, format_of(KIT_BGRA, KIT_DITHER_ORDERED)), plain);
    EXPECT_EQ(written(any, format_of(KIT_BGRA, KIT_DITHER_DIFFUSED)), plain);
}

TEST(DitherTest, ATurnedPictureHasThePixelsOfTheStraightOne) {
    constexpr int kWidth = 13, kHeight = 9;
    const auto canvas = make_canvas(kWidth, kHeight);
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            orvel_canvas_pixel(
                canvas.get(), x, y,
                {static_cast<unsigned char>(19 * x), static_cast<unsigned char>(28 * y),
                 static_cast<unsigned char>(9 * (x + y)), 255});
        }
    }
    for (const kit_dither dither : {KIT_DITHER_NONE, KIT_DITHER_ORDERED, KIT_DITHER_DIFFUSED}) {
        kit_format format = format_with({kBlack, kInk, kRed, {0, 0, 255, 0}}, KIT_INDEX8, dither);
        unsigned char straight[kHeight][kWidth], right[kWidth][kHeight], left[kWidth][kHeight];
        ASSERT_EQ(kit_pixels(canvas.get(), nullptr, &format, straight, sizeof straight, 0), 0);
        format.turns = 1;
        ASSERT_EQ(kit_pixels(canvas.get(), nullptr, &format, right, sizeof right, 0), 0);
        format.turns = 3;
        ASSERT_EQ(kit_pixels(canvas.get(), nullptr, &format, left, sizeof left, 0), 0);
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                ASSERT_EQ(right[x][kHeight - 1 - y], straight[y][x]) << dither;
                ASSERT_EQ(left[kWidth - 1 - x][y], straight[y][x]) << dither;
            }
        }
    }
}

TEST(DitherTest, PlanesOfOnePictureTakeEveryPixelOnce) {
    const auto canvas = make_canvas(16, 4);
    for (int x = 0; x < 16; ++x) {
        for (int y = 0; y < 4; ++y) {
            orvel_canvas_pixel(
                canvas.get(), x, y,
                {static_cast<unsigned char>(16 * x), static_cast<unsigned char>(60 * y),
                 static_cast<unsigned char>(8 * x), 255});
        }
    }
    for (const kit_dither dither : {KIT_DITHER_NONE, KIT_DITHER_ORDERED, KIT_DITHER_DIFFUSED}) {
        kit_format format = format_with({kBlack, kInk, kRed}, KIT_PLANE, dither);
        unsigned char planes[3][8];
        for (format.plane = 0; format.plane < 3; ++format.plane) {
            ASSERT_EQ(kit_pixels(canvas.get(), nullptr, &format, planes[format.plane], 8, 0), 0);
        }
        for (int i = 0; i < 8; ++i) {
            EXPECT_EQ(planes[0][i] & planes[1][i] & planes[2][i], 0);
            EXPECT_EQ(planes[0][i] | planes[1][i], 255);
            EXPECT_EQ(planes[0][i] | planes[2][i], 255);
            EXPECT_EQ(planes[1][i] | planes[2][i], 255);
        }
    }
}

}  // namespace
