// How large a view shows its screen.
#include "view/zoom.h"

#include <gtest/gtest.h>

namespace {

using namespace orvel_tools;

std::string text(const kit_box& box) {
    return std::to_string(box.x) + "," + std::to_string(box.y) + " " + std::to_string(box.w) + "x" +
           std::to_string(box.h);
}

TEST(ZoomTest, AScreenIsTwiceAsLargeOnALargeDisplayWhereItFits) {
    EXPECT_EQ(first_zoom({800, 480}, {1920, 1200}, 1), 1);
    EXPECT_EQ(first_zoom({800, 480}, {2560, 1440}, 1), 2);
    EXPECT_EQ(first_zoom({1280, 720}, {2560, 1440}, 1), 2);
    EXPECT_EQ(first_zoom({1281, 720}, {2560, 1440}, 1), 1);
    EXPECT_EQ(first_zoom({3000, 2000}, {2560, 1440}, 1), 1);
}

TEST(ZoomTest, OnADenseDisplayAPixelIsAsLargeAsElsewhere) {
    EXPECT_EQ(first_zoom({800, 480}, {1600, 900}, 2), 2);
    EXPECT_EQ(first_zoom({800, 480}, {3840, 2160}, 2), 4);
    EXPECT_EQ(first_zoom({1000, 600}, {3840, 2160}, 2), 3);
    EXPECT_EQ(first_zoom({4000, 480}, {1600, 900}, 2), 2);
}

TEST(ZoomTest, AFixedScreenTakesTheLargestWholeNumber) {
    EXPECT_EQ(largest_zoom({100, 50}, {399, 151}), 3);
    EXPECT_EQ(largest_zoom({100, 50}, {400, 151}), 3);
    EXPECT_EQ(largest_zoom({100, 50}, {400, 200}), 4);
    EXPECT_EQ(largest_zoom({100, 50}, {99, 200}), 1);
}

TEST(ZoomTest, AScreenFillsTheWindowButIsNeverTooSmall) {
    const Sides larger = screen_filling({401, 300}, 2, {100, 100});
    EXPECT_EQ(larger.w, 200);
    EXPECT_EQ(larger.h, 150);
    const Sides smaller = screen_filling({150, 300}, 2, {100, 100});
    EXPECT_EQ(smaller.w, 100);
    EXPECT_EQ(smaller.h, 150);
    EXPECT_EQ(screen_filling({100000, 10}, 1, {1, 1}).w, 32767);
}

TEST(ZoomTest, TheScreenLiesInTheMiddleAndWhereItIsTooLargeAtTheTopLeft) {
    EXPECT_EQ(text(place_in({401, 300}, {200, 100}, 2)), "0,50 400x200");
    EXPECT_EQ(text(place_in({411, 300}, {200, 100}, 2)), "5,50 400x200");
    EXPECT_EQ(text(place_in({300, 300}, {200, 100}, 2)), "0,50 400x200");
}

TEST(ZoomTest, APixelIsAllOfItsSquareAlsoOutside) {
    EXPECT_EQ(pixel_at(10, 10, 3), 0);
    EXPECT_EQ(pixel_at(12, 10, 3), 0);
    EXPECT_EQ(pixel_at(13, 10, 3), 1);
    EXPECT_EQ(pixel_at(9, 10, 3), -1);
    EXPECT_EQ(pixel_at(7, 10, 3), -1);
    EXPECT_EQ(pixel_at(6, 10, 3), -2);
}

}  // namespace
