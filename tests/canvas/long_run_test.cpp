#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "canvas/canvas.h"
#include "support/picture.h"

namespace {

using namespace orvel_test;

constexpr orvel_color kAround = {1, 2, 3, 4}, kColor = {10, 20, 30, 40};

/// What @p count pixels and those around them are after a long run from @p first on.
std::vector<orvel_color> filled(std::int64_t first, std::int64_t count, std::int64_t all) {
    std::vector<orvel_color> pixels(static_cast<std::size_t>(all), kAround);
    orvel::fill_long_run(pixels.data() + first, count, orvel::word_of(kColor));
    return pixels;
}

TEST(LongRunTest, FillsItsPixelsAndNoOther) {
    constexpr std::int64_t kAll = 4200;
    for (const std::int64_t first : {8, 9, 10, 11, 15, 16, 31}) {
        for (const std::int64_t count : {1, 2, 3, 7, 8, 63, 64, 65, 1023, 1024, 1025, 4095, 4096}) {
            const std::vector<orvel_color> pixels = filled(first, count, kAll);
            for (std::int64_t i = 0; i < kAll; ++i) {
                const bool inside = i >= first && i < first + count;
                ASSERT_EQ(pixels[static_cast<std::size_t>(i)], inside ? kColor : kAround)
                    << i << " of " << first << " + " << count;
            }
        }
    }
}

TEST(LongRunTest, FillsNothingWhereItHasNoPixels) {
    for (const orvel_color pixel : filled(8, 0, 16)) EXPECT_EQ(pixel, kAround);
}

TEST(LongRunTest, FillsRunsThatNoCacheHolds) {
    constexpr std::ptrdiff_t kBefore = 8, kBehind = 8;
    for (const std::ptrdiff_t aside : {0, 1, 2, 3}) {
        const std::ptrdiff_t first = kBefore + aside, count = (6 << 20) + 5 * aside;
        const auto pixels = filled(first, count, first + count + kBehind);
        const auto end = pixels.end() - kBehind;
        EXPECT_EQ(std::count(pixels.begin() + first, end, kColor), count) << aside;
        EXPECT_EQ(std::count(pixels.begin(), pixels.begin() + first, kAround), first) << aside;
        EXPECT_EQ(std::count(end, pixels.end(), kAround), kBehind) << aside;
    }
}

/// The number of pixels that are not @p color.
std::int64_t others(const orvel_canvas* canvas, orvel_color color) {
    std::int64_t count = 0;
    for (int y = 0; y < orvel_canvas_height(canvas); ++y) {
        for (int x = 0; x < orvel_canvas_width(canvas); ++x) {
            count += !(orvel_canvas_pixel_get(canvas, x, y) == color);
        }
    }
    return count;
}

TEST(LongRunTest, CanvasesAreClearedWholeOnEitherSideOfItsLength) {
    static_assert(orvel::kLongRun == 512 * 512);
    const int sizes[][2] = {{511, 513},  {512, 512},  {513, 512},
                            {262145, 1}, {1, 262143}, {777, 999}};
    for (const auto& [width, height] : sizes) {
        const auto canvas = make_canvas(width, height);
        EXPECT_EQ(others(canvas.get(), {0, 0, 0, 255}), 0) << width << " x " << height;
        orvel_canvas_clear(canvas.get(), kColor);
        EXPECT_EQ(others(canvas.get(), kColor), 0) << width << " x " << height;
    }
}

}  // namespace
