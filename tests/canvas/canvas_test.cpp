#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <new>

#include "support/picture.h"
#include "support/sanitizers.h"

namespace {

using namespace orvel_test;

constexpr orvel_color kNothing = {0, 0, 0, 0};

TEST(CanvasTest, ASideBelowOneGivesNull) {
    EXPECT_EQ(orvel_canvas_create(0, 10), nullptr);
    EXPECT_EQ(orvel_canvas_create(10, 0), nullptr);
    EXPECT_EQ(orvel_canvas_create(10, -1), nullptr);
    EXPECT_EQ(orvel_canvas_create(-1, 10), nullptr);
    EXPECT_EQ(orvel_canvas_create(-3, -3), nullptr);
    EXPECT_EQ(orvel_canvas_create(INT_MIN, 1), nullptr);
    EXPECT_EQ(orvel_canvas_create(1, INT_MIN), nullptr);
    EXPECT_EQ(orvel_canvas_create(0, 0), nullptr);
}

TEST(CanvasTest, ANewCanvasIsOpaqueBlackAllOver) {
    const auto one = make_canvas(1, 1);
    EXPECT_EQ(orvel_canvas_pixel_get(one.get(), 0, 0), (orvel_color{0, 0, 0, 255}));
    const auto canvas = make_canvas(3, 2);
    EXPECT_EQ(picture(canvas.get()), "...\n...\n");
}

TEST(CanvasTest, WidthAndHeightAreThoseAskedFor) {
    const auto canvas = make_canvas(7, 3);
    EXPECT_EQ(orvel_canvas_width(canvas.get()), 7);
    EXPECT_EQ(orvel_canvas_height(canvas.get()), 3);
}

TEST(CanvasTest, LongNarrowCanvasesWork) {
    for (const bool wide : {true, false}) {
        const auto canvas = wide ? make_canvas(1000000, 1) : make_canvas(1, 1000000);
        const int x = wide ? 999999 : 0, y = wide ? 0 : 999999;
        orvel_canvas_pixel(canvas.get(), x, y, kInk);
        EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), x, y), kInk);
        EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 0, 0), kBlack);
    }
}

TEST(CanvasTest, MorePixelsThanMemoryCanEverHoldRaiseAnAllocationFailure) {
    if (kAddressSanitizer) GTEST_SKIP() << "the sanitizer takes such a size for an error and ends";
    EXPECT_THROW(orvel_canvas_create(INT_MAX, INT_MAX), std::bad_alloc);
    if (sizeof(void*) > 4) return;
    // Cut to 32 bits, these counts are 65536, 0 and 1, or come to so many bytes.
    const int sizes[][2] = {{65536, 65537}, {65536, 65536},     {65537, 65535}, {32768, 32768},
                            {32768, 32769}, {1 << 30, 1},       {1, 1 << 30},   {INT_MAX, 1},
                            {INT_MAX, 2},   {INT_MAX, INT_MAX}, {46341, 46341}, {1 << 29, 1}};
    for (const auto& [width, height] : sizes) {
        EXPECT_THROW(orvel_canvas_create(width, height), std::bad_alloc) << width << ' ' << height;
    }
}

TEST(CanvasTest, AColourIsFourBytesInTheOrderRedGreenBlueAlpha) {
    ASSERT_EQ(sizeof(orvel_color), 4u);
    const orvel_color color = {0x11, 0x22, 0x33, 0x44};
    EXPECT_EQ(std::memcmp(&color, "\x11\x22\x33\x44", 4), 0);
}

TEST(CanvasTest, APixelIsStoredWhereItWasPut) {
    const auto canvas = make_canvas(4, 3);
    orvel_canvas_pixel(canvas.get(), 0, 0, kInk);
    orvel_canvas_pixel(canvas.get(), 3, 0, kInk);
    orvel_canvas_pixel(canvas.get(), 1, 1, kInk);
    orvel_canvas_pixel(canvas.get(), 3, 2, kInk);
    EXPECT_EQ(picture(canvas.get()),
              "#..#\n"
              ".#..\n"
              "...#\n");
}

TEST(CanvasTest, APixelOutsideIsIgnored) {
    const auto canvas = make_canvas(4, 3);
    const int outside[][2] = {{-1, 0},       {0, -1},      {4, 0},       {0, 3},
                              {4, 2},        {3, 3},       {-1, 1},      {INT_MIN, 0},
                              {0, INT_MIN},  {INT_MAX, 0}, {0, INT_MAX}, {INT_MIN, INT_MIN},
                              {INT_MAX, -1}, {-1, -1},     {5, -1}};
    for (const auto& [x, y] : outside) orvel_canvas_pixel(canvas.get(), x, y, kInk);
    EXPECT_EQ(picture(canvas.get()), "....\n....\n....\n");
}

TEST(CanvasTest, ReadingOutsideGivesTheAllZeroColour) {
    const auto canvas = make_canvas(4, 3);
    orvel_canvas_clear(canvas.get(), kInk);
    const int outside[][2] = {{-1, 0},      {4, 0},       {0, 3},       {0, -1},
                              {INT_MIN, 0}, {INT_MAX, 0}, {0, INT_MAX}, {INT_MIN, INT_MIN}};
    for (const auto& [x, y] : outside) {
        EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), x, y), kNothing) << x << ", " << y;
    }
}

TEST(CanvasTest, AlphaIsStoredUnchangedAndNothingIsBlended) {
    const auto canvas = make_canvas(2, 1);
    orvel_canvas_clear(canvas.get(), {200, 100, 50, 255});
    const orvel_color transparent = {17, 34, 51, 0}, half = {255, 254, 253, 128};
    orvel_canvas_pixel(canvas.get(), 0, 0, transparent);
    orvel_canvas_pixel(canvas.get(), 1, 0, half);
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 0, 0), transparent);
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 1, 0), half);
    orvel_canvas_pixel(canvas.get(), 1, 0, kNothing);
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 1, 0), kNothing);
}

TEST(CanvasTest, ClearSetsEveryPixelAlphaIncluded) {
    const auto canvas = make_canvas(5, 4);
    orvel_canvas_pixel(canvas.get(), 2, 2, kInk);
    for (const orvel_color color : {orvel_color{1, 2, 3, 4}, orvel_color{0, 0, 0, 0}, kInk}) {
        orvel_canvas_clear(canvas.get(), color);
        for (int y = 0; y < 4; ++y) {
            for (int x = 0; x < 5; ++x) {
                EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), x, y), color);
            }
        }
    }
}

TEST(CanvasTest, CanvasesAreIndependent) {
    const auto one = make_canvas(2, 1), other = make_canvas(2, 1);
    orvel_canvas_pixel(one.get(), 0, 0, kInk);
    EXPECT_EQ(picture(one.get()), "#.\n");
    EXPECT_EQ(picture(other.get()), "..\n");
}

TEST(CanvasTest, NullIsToleratedEverywhere) {
    orvel_canvas_destroy(nullptr);
    EXPECT_EQ(orvel_canvas_width(nullptr), 0);
    EXPECT_EQ(orvel_canvas_height(nullptr), 0);
    orvel_canvas_clear(nullptr, kInk);
    orvel_canvas_pixel(nullptr, 0, 0, kInk);
    EXPECT_EQ(orvel_canvas_pixel_get(nullptr, 0, 0), kNothing);
}

}  // namespace
