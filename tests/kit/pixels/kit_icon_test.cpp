// Icons that look the same everywhere.
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "orvel_kit.h"
#include "support/picture.h"

namespace {

using namespace orvel_test;

constexpr orvel_color kRed = {200, 0, 0, 255}, kBlue = {0, 0, 200, 255};
const Palette kLetters = {{'.', kBlack}, {'#', kInk}, {'r', kRed}, {'b', kBlue}};

/// What is drawn at (x, y), as a picture of the square alone.
std::string square(const orvel_canvas* canvas, int x, int y, int size) {
    const auto cut = make_canvas(size, size);
    const kit_box part = {x, y, size, size};
    kit_copy(cut.get(), 0, 0, canvas, &part);
    return picture(cut.get(), kLetters);
}

TEST(KitIconTest, EveryIconIsTheLibrarysOwnAtTheTopLeftOfACanvasOfItsOwn) {
    int count = 0;
    const char** const names = orvel_icon_list(&count);
    for (int i = 0; i < count; ++i) {
        for (const int size : {1, 2, 7, 16, 24, 41}) {
            const auto own = make_canvas(size, size), canvas = make_canvas(200, 200);
            orvel_canvas_clear(own.get(), kBlue);
            orvel_canvas_clear(canvas.get(), kBlue);
            orvel_draw_icon(own.get(), names[i], 0, 0, size, kInk);
            ASSERT_EQ(kit_icon(canvas.get(), names[i], 70, 150, size, kInk), 0);
            ASSERT_EQ(square(canvas.get(), 70, 150, size), picture(own.get(), kLetters))
                << names[i] << ' ' << size;
        }
    }
}

TEST(KitIconTest, NoPixelOutsideTheSquareChanges) {
    int count = 0;
    const char** const names = orvel_icon_list(&count);
    for (int i = 0; i < count; ++i) {
        const auto canvas = make_canvas(40, 40);
        kit_icon(canvas.get(), names[i], 9, 20, 12, kInk);
        orvel_canvas_fill_rect(canvas.get(), 9, 20, 12, 12, kBlack);
        ASSERT_EQ(checksum(canvas.get()), checksum(make_canvas(40, 40).get())) << names[i];
    }
}

TEST(KitIconTest, HomeKeepsItsBodyAndPowerItsStemFurtherDown) {
    const auto canvas = make_canvas(60, 120);
    for (const char* name : {"home", "power"}) {
        orvel_canvas_clear(canvas.get(), kBlack);
        kit_icon(canvas.get(), name, 0, 0, 24, kInk);
        const std::string top = square(canvas.get(), 0, 0, 24);
        orvel_canvas_clear(canvas.get(), kBlack);
        orvel_draw_icon(canvas.get(), name, 30, 90, 24, kInk);
        EXPECT_NE(square(canvas.get(), 30, 90, 24), top) << name;  // the library's own differs
        orvel_canvas_clear(canvas.get(), kBlack);
        kit_icon(canvas.get(), name, 30, 90, 24, kInk);
        EXPECT_EQ(square(canvas.get(), 30, 90, 24), top) << name;
    }
}

TEST(KitIconTest, APartOfTheSquareOnTheCanvasIsThatPartOfTheIcon) {
    const auto whole = make_canvas(60, 60);
    kit_icon(whole.get(), "home", 20, 20, 20, kInk);
    for (const int x : {-19, -7, 0, 12, 29}) {
        for (const int y : {-19, -7, 0, 12, 29}) {
            const auto canvas = make_canvas(30, 30), expected = make_canvas(30, 30);
            kit_icon(canvas.get(), "home", x, y, 20, kInk);
            const kit_box part = {20, 20, 20, 20};
            kit_copy(expected.get(), x, y, whole.get(), &part);
            EXPECT_EQ(picture(canvas.get()), picture(expected.get())) << x << ", " << y;
        }
    }
}

TEST(KitIconTest, CutOutsTakeTheColourOfTheNearestPixelThatTheCanvasHas) {
    // The lock's keyhole is such a cut-out, in the middle of its body.
    const auto canvas = make_canvas(24, 24);
    orvel_canvas_clear(canvas.get(), kBlue);
    orvel_canvas_pixel(canvas.get(), 0, 0, kRed);
    kit_icon(canvas.get(), "lock", 0, 0, 24, kInk);
    const std::string at_the_corner = picture(canvas.get(), kLetters);
    orvel_canvas_clear(canvas.get(), kBlue);
    orvel_canvas_pixel(canvas.get(), 0, 0, kRed);
    kit_icon(canvas.get(), "lock", -3, -3, 24, kInk);
    const std::string cut = picture(canvas.get(), kLetters);
    EXPECT_GT(std::count(at_the_corner.begin(), at_the_corner.end(), 'r'), 1);
    EXPECT_EQ(std::count(cut.begin(), cut.end(), 'r'),
              std::count(at_the_corner.begin(), at_the_corner.end(), 'r'));
}

TEST(KitIconTest, CutOutsOnTransparentGroundAreOpaqueBlack) {
    const auto canvas = make_canvas(24, 24), own = make_canvas(24, 24);
    orvel_canvas_clear(canvas.get(), {5, 6, 7, 0});
    orvel_canvas_clear(own.get(), {5, 6, 7, 0});
    kit_icon(canvas.get(), "lock", 0, 0, 24, kInk);
    orvel_draw_icon(own.get(), "lock", 0, 0, 24, kInk);
    EXPECT_EQ(checksum(canvas.get()), checksum(own.get()));
    EXPECT_NE(picture(canvas.get(), kLetters).find('.'), std::string::npos);
}

TEST(KitIconTest, WhatIsWrongDrawsNothing) {
    const auto canvas = make_canvas(30, 30);
    EXPECT_EQ(kit_icon(nullptr, "home", 0, 0, 20, kInk), -1);
    EXPECT_EQ(kit_icon(canvas.get(), nullptr, 0, 0, 20, kInk), -1);
    EXPECT_EQ(kit_icon(canvas.get(), "house", 0, 0, 20, kInk), -1);
    for (const int size : {0, -1, INT_MIN, 16385, INT_MAX}) {
        EXPECT_EQ(kit_icon(canvas.get(), "home", 0, 0, size, kInk), -1) << size;
    }
    EXPECT_EQ(checksum(canvas.get()), checksum(make_canvas(30, 30).get()));
}

TEST(KitIconTest, OffTheCanvasNothingIsDrawnAndThatIsNoFailure) {
    const auto canvas = make_canvas(30, 30);
    for (const int far : {INT_MIN, -16384, 30, INT_MAX}) {
        EXPECT_EQ(kit_icon(canvas.get(), "home", far, 0, 16384, kInk), 0);
        EXPECT_EQ(kit_icon(canvas.get(), "home", 0, far, 16384, kInk), 0);
    }
    EXPECT_EQ(checksum(canvas.get()), checksum(make_canvas(30, 30).get()));
}

TEST(KitIconTest, TheLargestCostsOnlyWhatTheCanvasShows) {
    const auto canvas = make_canvas(30, 30);
    EXPECT_EQ(kit_icon(canvas.get(), "stop", 0, 0, 16384, kInk), -1);  // no such icon
    EXPECT_EQ(kit_icon(canvas.get(), "app", 0, 0, 16384, kInk), 0);
    EXPECT_NE(checksum(canvas.get()), checksum(make_canvas(30, 30).get()));
}

}  // namespace
