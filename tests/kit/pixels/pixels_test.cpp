// kit_pixels(): layouts, turns, and memory that belongs to the caller.
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>

#include "kit/pixels/painted.h"

namespace {

using namespace orvel_test;

const std::vector<orvel_color> kPanel = {kBlack, kInk, kRed};

TEST(PixelsTest, FourBytesAreInTheOrderOfTheirName) {
    const auto canvas = painted({{{1, 2, 3, 4}, {0xfa, 0xfb, 0xfc, 0}}});
    EXPECT_EQ(written(canvas, format_of(KIT_RGBA)), "01 02 03 ff fa fb fc ff\n");
    EXPECT_EQ(written(canvas, format_of(KIT_BGRA)), "03 02 01 ff fc fb fa ff\n");
}

TEST(PixelsTest, AlphaIsWhatIsStoredWhereItIsKept) {
    const auto canvas = painted({{{1, 2, 3, 4}, {0xfa, 0xfb, 0xfc, 0}}});
    kit_format format = format_of(KIT_RGBA);
    format.keep_alpha = 1;
    EXPECT_EQ(written(canvas, format), "01 02 03 04 fa fb fc 00\n");
    format.layout = KIT_BGRA;
    format.keep_alpha = -7;
    EXPECT_EQ(written(canvas, format), "03 02 01 04 fc fb fa 00\n");
}

TEST(PixelsTest, SixteenBitsAreFiveOfRedSixOfGreenFiveOfBlueInBothByteOrders) {
    const auto canvas = painted({{{255, 128, 0, 0}, {8, 4, 16, 255}}});
    // 31, 31.6, 0 is 11111 100000 00000; 0.97, 0.99, 1.9 is 00001 000001 00010.
    EXPECT_EQ(written(canvas, format_of(KIT_RGB565_LE)), "00 fc 22 08\n");
    EXPECT_EQ(written(canvas, format_of(KIT_RGB565_BE)), "fc 00 08 22\n");
}

TEST(PixelsTest, GreyIsTheLightnessOfTheColour) {
    const auto canvas = painted({{{255, 0, 0, 9}, {0, 255, 0, 0}, {0, 0, 255, 255}, kInk, kBlack}});
    EXPECT_EQ(written(canvas, format_of(KIT_GREY8)), "36 b6 12 ff 00\n");  // 54, 182, 18, 255, 0
}

TEST(PixelsTest, FewerBitsOfGreyFillBytesFromTheHighestOnAndTheRestIsZero) {
    EXPECT_EQ(written(painted_grey({{255, 136, 127}}), format_of(KIT_GREY4)), "f8 70\n");
    EXPECT_EQ(written(painted_grey({{255, 170, 85, 0, 128}}), format_of(KIT_GREY2)), "e4 80\n");
    EXPECT_EQ(
        written(painted_grey({{255, 0, 128, 127, 0, 0, 255, 255, 255}}), format_of(KIT_GREY1)),
        "a3 80\n");
}

TEST(PixelsTest, APaletteGivesTheNumberOfTheNearestColour) {
    const auto canvas = painted({{{220, 30, 20, 255}, grey(200), grey(40), {255, 0, 0, 0}}});
    EXPECT_EQ(written(canvas, format_with(kPanel, KIT_INDEX8)), "02 01 00 02\n");
    EXPECT_EQ(written(canvas, format_with(kPanel, KIT_INDEX4)), "21 02\n");
    const kit_box three = {0, 0, 3, 1};
    EXPECT_EQ(written(canvas, format_with(kPanel, KIT_INDEX4), &three), "21 00\n");
}

TEST(PixelsTest, DistancesInAPaletteAreWeighted) {
    const auto black = painted({{kBlack}});
    const orvel_color red = {10, 0, 0, 0}, green = {0, 7, 0, 0}, blue = {0, 0, 8, 0};
    // 2 * 100 = 200, 4 * 49 = 196, 3 * 64 = 192
    EXPECT_EQ(written(black, format_with({red, green, blue}, KIT_INDEX8)), "02\n");
    EXPECT_EQ(written(black, format_with({red, green}, KIT_INDEX8)), "01\n");
    EXPECT_EQ(written(black, format_with({blue, red, green}, KIT_INDEX8)), "00\n");
}

TEST(PixelsTest, OfEquallyNearColoursTheFirstIsTaken) {
    const auto canvas = painted({{{1, 0, 0, 255}, kRed}});
    EXPECT_EQ(written(canvas, format_with({{0, 0, 0, 0}, {2, 0, 0, 0}, kRed, kRed}, KIT_INDEX8)),
              "00 02\n");
    EXPECT_EQ(written(canvas, format_with({{2, 0, 0, 0}, {0, 0, 0, 0}, kRed, kRed}, KIT_INDEX8)),
              "00 02\n");
}

TEST(PixelsTest, TheAlphaOfCanvasAndPaletteIsNotLookedAtByColour) {
    const auto clear = painted({{{255, 0, 0, 0}, {0, 0, 0, 0}}});
    EXPECT_EQ(written(clear, format_with({{0, 0, 0, 7}, {255, 0, 0, 9}}, KIT_INDEX8)), "01 00\n");
}

TEST(PixelsTest, APlaneIsZeroWhereItsColourIsTaken) {
    const auto canvas = painted({{kRed, kInk, kBlack, kRed, kInk, kInk, kInk, kRed, kRed}});
    kit_format format = format_with(kPanel, KIT_PLANE);
    format.plane = 2;
    EXPECT_EQ(written(canvas, format), "6e 00\n");  // 0110 1110 0
    format.plane = 0;
    EXPECT_EQ(written(canvas, format), "df 80\n");  // 1101 1111 1
}

TEST(PixelsTest, SixteenColoursAreTheMost) {
    std::vector<orvel_color> palette;
    for (int i = 0; i < 17; ++i) palette.push_back(grey(15 * i));
    const auto canvas = painted({{grey(225), grey(240)}});
    kit_format format = format_with(palette, KIT_INDEX4);
    EXPECT_EQ(written(canvas, format), "-1");
    format.colors = 16;
    EXPECT_EQ(written(canvas, format), "ff\n");
}

TEST(PixelsTest, ABoxIsCutOutWhereItLies) {
    const auto canvas = painted_grey({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}});
    const kit_box box = {1, 1, 2, 2};
    EXPECT_EQ(written(canvas, format_of(KIT_GREY8), &box), "05 06\n08 09\n");
}

TEST(PixelsTest, TurnsAreQuartersClockwise) {
    const auto canvas = painted_grey({{1, 2, 3}, {4, 5, 6}});
    const char* const kTurned[] = {"01 02 03\n04 05 06\n", "04 01\n05 02\n06 03\n",
                                   "06 05 04\n03 02 01\n", "03 06\n02 05\n01 04\n"};
    kit_format format = format_of(KIT_GREY8);
    for (const int turns : {0, 1, 2, 3, 4, 5, -1, -2, -3, -4, 7, INT_MAX, INT_MIN}) {
        format.turns = turns;
        EXPECT_EQ(written(canvas, format), kTurned[((turns % 4) + 4) % 4]) << turns;
    }
}

TEST(PixelsTest, TurnedPixelsThatShareABytePackInTheirNewOrder) {
    const auto canvas = painted_grey({{255, 0, 0}, {255, 255, 0}});
    kit_format format = format_of(KIT_GREY1);
    EXPECT_EQ(written(canvas, format), "80\nc0\n");
    format.turns = 1;
    EXPECT_EQ(written(canvas, format), "c0\n80\n00\n");
    format.turns = 2;
    EXPECT_EQ(written(canvas, format), "60\n20\n");
    format.turns = 3;
    EXPECT_EQ(written(canvas, format), "00\n40\nc0\n");
}

TEST(PixelsTest, BytesBetweenAndBehindTheRowsAreLeftAlone) {
    const auto canvas = painted_grey({{255, 0, 255}, {0, 255, 0}});
    std::vector<unsigned char> bytes(9, 0xaa);
    const kit_format format = format_of(KIT_GREY1);
    EXPECT_EQ(kit_pixels(canvas.get(), nullptr, &format, bytes.data(), bytes.size(), 4), 0);
    EXPECT_EQ(hex(bytes, 9), "a0 aa aa aa 40 aa aa aa aa\n");
}

TEST(PixelsTest, TheLastRowNeedsNoMoreThanItsPixels) {
    const auto canvas = painted_grey({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}});
    const kit_format format = format_of(KIT_GREY8);
    for (const std::size_t stride : {3u, 4u, 1000u}) {
        std::vector<unsigned char> bytes(2 * stride + 3, 0xaa);
        EXPECT_EQ(
            kit_pixels(canvas.get(), nullptr, &format, bytes.data(), bytes.size() - 1, stride), -1);
        EXPECT_EQ(bytes, std::vector<unsigned char>(bytes.size(), 0xaa));
        EXPECT_EQ(kit_pixels(canvas.get(), nullptr, &format, bytes.data(), bytes.size(), stride),
                  0);
        EXPECT_EQ(bytes.back(), 9);
    }
}

TEST(PixelsTest, SizesAreCheckedOfTheTurnedRows) {
    const auto canvas = make_canvas(9, 2);
    kit_format format = format_of(KIT_GREY1);
    unsigned char bytes[9];
    EXPECT_EQ(kit_pixels(canvas.get(), nullptr, &format, bytes, 4, 0), 0);  // 2 rows of 2 bytes
    EXPECT_EQ(kit_pixels(canvas.get(), nullptr, &format, bytes, 3, 0), -1);
    format.turns = 1;
    EXPECT_EQ(kit_pixels(canvas.get(), nullptr, &format, bytes, 9, 0), 0);  // 9 rows of 1 byte
    EXPECT_EQ(kit_pixels(canvas.get(), nullptr, &format, bytes, 8, 0), -1);
}

TEST(PixelsTest, SizesAndStridesThatOverflowAreRefused) {
    const auto canvas = painted_grey({{1, 2}, {3, 4}, {5, 6}});
    const kit_format format = format_of(KIT_GREY8);
    unsigned char bytes[6] = {};
    for (const std::size_t stride : {SIZE_MAX, SIZE_MAX / 2, SIZE_MAX / 2 + 1, SIZE_MAX / 3}) {
        EXPECT_EQ(kit_pixels(canvas.get(), nullptr, &format, bytes, sizeof bytes, stride), -1);
    }
    EXPECT_EQ(kit_pixels(canvas.get(), nullptr, &format, bytes, sizeof bytes, 1), -1);
    EXPECT_EQ(kit_pixels(canvas.get(), nullptr, &format, bytes, 0, 0), -1);
    EXPECT_EQ(kit_pixels(canvas.get(), nullptr, &format, bytes, 1, 0), -1);
    for (const unsigned char byte : bytes) EXPECT_EQ(byte, 0);
}

TEST(PixelsTest, OneRowFitsWhateverTheStride) {
    const auto canvas = painted_grey({{1, 2}});
    const kit_format format = format_of(KIT_GREY8);
    unsigned char bytes[2] = {};
    EXPECT_EQ(kit_pixels(canvas.get(), nullptr, &format, bytes, sizeof bytes, SIZE_MAX), 0);
    EXPECT_EQ(bytes[1], 2);
}

TEST(PixelsTest, ABoxNotWhollyOnTheCanvasIsRefused) {
    const auto canvas = make_canvas(4, 3);
    unsigned char bytes[64] = {};
    const kit_format format = format_of(KIT_GREY8);
    for (const kit_box box :
         {kit_box{-1, 0, 2, 1}, kit_box{0, -1, 1, 2}, kit_box{0, 0, 5, 1}, kit_box{0, 0, 1, 4},
          kit_box{4, 0, 1, 1}, kit_box{0, 3, 1, 1}, kit_box{3, 0, 2, 1}, kit_box{0, 2, 1, 2},
          kit_box{0, 0, 0, 1}, kit_box{0, 0, 1, 0}, kit_box{0, 0, -1, 1},
          kit_box{INT_MIN, INT_MIN, INT_MIN, INT_MIN}, kit_box{INT_MAX, 0, INT_MAX, 1},
          kit_box{1, 1, INT_MAX, INT_MAX}, kit_box{INT_MIN, 0, INT_MAX, 1}}) {
        EXPECT_EQ(kit_pixels(canvas.get(), &box, &format, bytes, sizeof bytes, 0), -1)
            << box.x << ' ' << box.y << ' ' << box.w << ' ' << box.h;
    }
    for (const unsigned char byte : bytes) EXPECT_EQ(byte, 0);
    const kit_box corner = {3, 2, 1, 1};
    EXPECT_EQ(kit_pixels(canvas.get(), &corner, &format, bytes, sizeof bytes, 0), 0);
}

TEST(PixelsTest, NullIsRefused) {
    const auto canvas = make_canvas(2, 2);
    const kit_format format = format_of(KIT_GREY8);
    unsigned char bytes[4] = {};
    EXPECT_EQ(kit_pixels(nullptr, nullptr, &format, bytes, 4, 0), -1);
    EXPECT_EQ(kit_pixels(canvas.get(), nullptr, nullptr, bytes, 4, 0), -1);
    EXPECT_EQ(kit_pixels(canvas.get(), nullptr, &format, nullptr, 4, 0), -1);
    EXPECT_EQ(kit_pixels_stride(nullptr, 4), 0u);
}

/// Not one byte is written, and there is no stride.
void expect_no_format(const kit_format& format) {
    const auto canvas = make_canvas(2, 2);
    unsigned char bytes[16] = {};
    EXPECT_EQ(kit_pixels(canvas.get(), nullptr, &format, bytes, sizeof bytes, 0), -1);
    EXPECT_EQ(kit_pixels(canvas.get(), nullptr, &format, bytes, sizeof bytes, 8), -1);
    EXPECT_EQ(kit_pixels_stride(&format, 2), 0u);
    for (const unsigned char byte : bytes) EXPECT_EQ(byte, 0);
}

TEST(PixelsTest, NumbersThatNameNothingAreNoFormat) {
    for (const int wrong : {-1, 11, INT_MIN, INT_MAX}) {
        kit_format format = {};
        format.layout = wrong;
        expect_no_format(format);
    }
    for (const int wrong : {-1, 3, INT_MIN, INT_MAX}) {
        for (const kit_layout layout : {KIT_RGBA, KIT_GREY1}) {
            kit_format format = format_of(layout);
            format.dither = wrong;
            expect_no_format(format);
        }
    }
}

TEST(PixelsTest, ALayoutOfAPaletteNeedsOneOfOneToSixteenColours) {
    for (const kit_layout layout : {KIT_INDEX8, KIT_INDEX4, KIT_PLANE}) {
        kit_format format = format_with(kPanel, layout);
        for (const int colors : {0, -1, 17, INT_MIN, INT_MAX}) {
            format.colors = colors;
            expect_no_format(format);
        }
        format.colors = 3;
        format.palette = nullptr;
        expect_no_format(format);
    }
    kit_format format = format_with(kPanel, KIT_PLANE);
    for (const int plane : {-1, 3, INT_MIN, INT_MAX}) {
        format.plane = plane;
        expect_no_format(format);
    }
}

TEST(PixelsTest, WhatALayoutDoesNotNeedMayHoldAnything) {
    const auto canvas = painted_grey({{255, 0}});
    kit_format format = format_of(KIT_GREY8);
    format.colors = INT_MIN;
    format.plane = INT_MAX;
    EXPECT_EQ(written(canvas, format), "ff 00\n");
    format = format_with(kPanel, KIT_INDEX8);
    format.plane = -5;
    format.keep_alpha = 1;
    EXPECT_EQ(written(canvas, format), "01 00\n");
}

TEST(PixelsTest, AStrideIsTheBytesOfARow) {
    const struct {
        kit_layout layout;
        std::size_t one, nine;
    } kRows[] = {{KIT_RGBA, 4, 36},      {KIT_BGRA, 4, 36}, {KIT_RGB565_LE, 2, 18},
                 {KIT_RGB565_BE, 2, 18}, {KIT_GREY8, 1, 9}, {KIT_GREY4, 1, 5},
                 {KIT_GREY2, 1, 3},      {KIT_GREY1, 1, 2}, {KIT_INDEX8, 1, 9},
                 {KIT_INDEX4, 1, 5},     {KIT_PLANE, 1, 2}};
    for (const auto& row : kRows) {
        const kit_format format = format_with(kPanel, row.layout);
        EXPECT_EQ(kit_pixels_stride(&format, 1), row.one) << row.layout;
        EXPECT_EQ(kit_pixels_stride(&format, 9), row.nine) << row.layout;
        for (const int none : {0, -1, INT_MIN}) EXPECT_EQ(kit_pixels_stride(&format, none), 0u);
    }
}

TEST(PixelsTest, TheLongestRowHasAStrideWhereSizesReachThatFar) {
    const kit_format bits = format_of(KIT_GREY1), bytes = format_of(KIT_RGBA);
    EXPECT_EQ(kit_pixels_stride(&bits, INT_MAX), 268435456u);
    const std::uint64_t four = std::uint64_t{4} * INT_MAX;
    EXPECT_EQ(kit_pixels_stride(&bytes, INT_MAX), four <= SIZE_MAX ? four : 0u);
}

}  // namespace
