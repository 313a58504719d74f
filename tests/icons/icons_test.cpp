// The catalogue, the two entry points that draw, and the words that recipes are written in.
#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>

#include "icons/icon.h"
#include "support/picture.h"

namespace {

using namespace orvel_test;

constexpr orvel_color kAccent = {255, 0, 0, 255};
constexpr orvel_color kGround = {0, 0, 255, 255};
constexpr orvel_color kClear = {9, 8, 7, 0};

const Palette& letters() {
    static const Palette palette = {{'.', kBlack}, {'#', kInk}, {'+', kAccent}, {'o', kGround}};
    return palette;
}

int draw(const CanvasPtr& canvas, const char* name, int x, int y, int size) {
    return orvel_draw_icon_ex(canvas.get(), name, x, y, size, kInk, kAccent, kGround);
}

/// The words at work, on a canvas, for a box of side @p s.
orvel::Icon words(const CanvasPtr& canvas, unsigned s) {
    return {canvas.get(), 0, 0, s, s / 2, s / 2, s / 2, kInk, kAccent, kGround};
}

// ---- Catalogue

TEST(IconCatalogueTest, ListsThe68NamesInTheirOrder) {
    const std::string expected =
        "folder file settings home trash search play pause music volume wifi battery app heart "
        "star "
        "arrow-right power lock user mail calendar clock bell check close plus minus camera phone "
        "cloud sun moon download upload refresh save edit share message menu list more logout key "
        "wallet cart gift info help warning shield eye mic image code terminal link world pin send "
        "back up down bluetooth airplane signal print alarm ";
    int count = 0;
    const char** names = orvel_icon_list(&count);
    ASSERT_EQ(count, 68);
    std::string all;
    for (int i = 0; i < count; ++i) all += std::string(names[i]) + " ";
    EXPECT_EQ(all, expected);
}

TEST(IconCatalogueTest, TheCountMayBeNull) {
    const char** names = orvel_icon_list(nullptr);
    EXPECT_STREQ(names[0], "folder");
    EXPECT_STREQ(names[67], "alarm");
}

TEST(IconCatalogueTest, TheListIsTheSameTableAtEveryCall) {
    int count = -1;
    EXPECT_EQ(orvel_icon_list(&count), orvel_icon_list(nullptr));
}

TEST(IconCatalogueTest, NamesMustBeEqualToTheLastByte) {
    EXPECT_EQ(orvel_icon_exists("arrow-right"), 1);
    EXPECT_EQ(orvel_icon_exists("folder"), 1);
    EXPECT_EQ(orvel_icon_exists("alarm"), 1);
    for (const char* name : {"arrow", "", "Folder", "FOLDER", "folder ", " folder", "folde",
                             "folders", "arrow_right", "arrow right"}) {
        EXPECT_EQ(orvel_icon_exists(name), 0) << name;
    }
    EXPECT_EQ(orvel_icon_exists(nullptr), 0);
}

TEST(IconCatalogueTest, EveryListedIconExistsAndDraws) {
    int count = 0;
    const char** names = orvel_icon_list(&count);
    std::set<std::uint64_t> pictures;
    for (int i = 0; i < count; ++i) {
        const auto canvas = make_canvas(64, 64);
        EXPECT_EQ(orvel_icon_exists(names[i]), 1) << names[i];
        EXPECT_EQ(draw(canvas, names[i], 8, 8, 40), 0) << names[i];
        pictures.insert(checksum(canvas.get()));
    }
    EXPECT_EQ(pictures.size(), 68u) << "two icons look alike";
}

// ---- Entry points

TEST(DrawIconExTest, AnUnknownNameDrawsAFrameAndFails) {
    const auto canvas = make_canvas(17, 17);
    EXPECT_EQ(draw(canvas, "nonsense", 0, 0, 16), -1);
    std::string expected = "################.\n";
    for (int row = 0; row < 14; ++row) expected += "#..............#.\n";
    expected += "################.\n.................\n";
    EXPECT_EQ(picture(canvas.get(), letters()), expected);
}

TEST(DrawIconExTest, TheFrameOfAOnePixelBoxIsOnePixel) {
    const auto canvas = make_canvas(3, 3);
    EXPECT_EQ(draw(canvas, "", 1, 1, 1), -1);
    EXPECT_EQ(picture(canvas.get(), letters()), "...\n.#.\n...\n");
}

TEST(DrawIconExTest, BadArgumentsDrawNothingAndFail) {
    const auto canvas = make_canvas(8, 8);
    const std::string untouched = picture(canvas.get());
    EXPECT_EQ(draw(canvas, "nonsense", 0, 0, 0), -1);
    EXPECT_EQ(draw(canvas, "folder", 0, 0, 0), -1);
    EXPECT_EQ(draw(canvas, "folder", 0, 0, -1), -1);
    EXPECT_EQ(draw(canvas, "folder", 0, 0, std::numeric_limits<int>::min()), -1);
    EXPECT_EQ(draw(canvas, nullptr, 0, 0, 8), -1);
    EXPECT_EQ(orvel_draw_icon_ex(nullptr, "folder", 0, 0, 8, kInk, kInk, kInk), -1);
    EXPECT_EQ(picture(canvas.get()), untouched);
}

TEST(DrawIconTest, BadArgumentsDrawNothingAndFail) {
    const auto canvas = make_canvas(8, 8);
    const std::string untouched = picture(canvas.get());
    EXPECT_EQ(orvel_draw_icon(canvas.get(), "folder", 0, 0, 0, kInk), -1);
    EXPECT_EQ(orvel_draw_icon(canvas.get(), "nonsense", 0, 0, -7, kInk), -1);
    EXPECT_EQ(orvel_draw_icon(canvas.get(), nullptr, 0, 0, 8, kInk), -1);
    EXPECT_EQ(orvel_draw_icon(nullptr, "folder", 0, 0, 8, kInk), -1);
    EXPECT_EQ(picture(canvas.get()), untouched);
}

TEST(DrawIconTest, AnUnknownNameDrawsAFrameInItsColourAndFails) {
    const auto canvas = make_canvas(4, 4);
    EXPECT_EQ(orvel_draw_icon(canvas.get(), "nonsense", 1, 1, 3, kAccent), -1);
    EXPECT_EQ(picture(canvas.get(), letters()), "....\n.+++\n.+.+\n.+++\n");
}

TEST(DrawIconTest, UsesItsOneColourForTheDetailsToo) {
    const auto canvas = make_canvas(16, 16);
    const auto expected = make_canvas(16, 16);
    EXPECT_EQ(orvel_draw_icon(canvas.get(), "mail", 0, 0, 16, kInk), 0);
    EXPECT_EQ(orvel_draw_icon_ex(expected.get(), "mail", 0, 0, 16, kInk, kInk, kBlack), 0);
    EXPECT_EQ(picture(canvas.get()), picture(expected.get()));
}

// "key" at 24 in a box at (0, 0): its hole is the disc of radius 2 around (6, 12).
orvel_color key_hole(orvel_color corner) {
    const auto canvas = make_canvas(32, 32);
    orvel_canvas_clear(canvas.get(), kGround);
    orvel_canvas_pixel(canvas.get(), 0, 0, corner);
    EXPECT_EQ(orvel_draw_icon(canvas.get(), "key", 0, 0, 24, kInk), 0);
    return orvel_canvas_pixel_get(canvas.get(), 6, 12);
}

TEST(DrawIconTest, CutOutsTakeTheColourOfTheCorner) {
    EXPECT_EQ(key_hole(kAccent), kAccent);
    EXPECT_EQ(key_hole({1, 2, 3, 1}), (orvel_color{1, 2, 3, 1}));
}

TEST(DrawIconTest, CutOutsAreOpaqueBlackOnATransparentCorner) {
    EXPECT_EQ(key_hole(kClear), kBlack);
}

TEST(DrawIconTest, CutOutsAreOpaqueBlackWhenTheCornerIsOutside) {
    const auto canvas = make_canvas(32, 32);
    orvel_canvas_clear(canvas.get(), kGround);
    EXPECT_EQ(orvel_draw_icon(canvas.get(), "key", -1, 0, 24, kInk), 0);
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 5, 12), kBlack);
}

TEST(DrawIconTest, TheCornerIsSampledBeforeTheIconCoversIt) {
    const auto canvas = make_canvas(24, 24);
    orvel_canvas_clear(canvas.get(), kGround);
    ASSERT_EQ(orvel_draw_icon(canvas.get(), "terminal", 0, 0, 24, kInk), 0);
    ASSERT_EQ(orvel_canvas_pixel_get(canvas.get(), 0, 3), kInk);
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 20, 20), kGround);
}

TEST(DrawIconTest, AlphaIsStoredLikeAnyOtherByte) {
    const auto canvas = make_canvas(16, 16);
    EXPECT_EQ(orvel_draw_icon(canvas.get(), "minus", 0, 0, 16, kClear), 0);
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 8, 8), kClear);
}

// ---- Words

TEST(IconWordsTest, ARoundedRectangleTakesNoMoreRadiusThanHalfItsShorterSide) {
    const char* expected =
        "...#....#...\n"  // an even side: the discs of radius 2 reach one row beyond it
        "..########..\n"
        ".##########.\n"
        ".##########.\n"
        "..########..\n"
        "...#....#...\n";
    for (const int radius : {5, 2, -1, std::numeric_limits<int>::min()}) {
        const auto canvas = make_canvas(12, 6);
        words(canvas, 12).fill_rounded_rect(1, 1, 10, 4, static_cast<unsigned>(radius), kInk);
        EXPECT_EQ(picture(canvas.get()), expected) << "radius " << radius;
    }
}

TEST(IconWordsTest, ARoundedRectangleOfOddSidesStaysInItsBox) {
    const auto canvas = make_canvas(9, 7);
    words(canvas, 12).fill_rounded_rect(1, 1, 7, 5, 9, kInk);
    EXPECT_EQ(picture(canvas.get()),
              ".........\n"
              "...###...\n"
              "..#####..\n"
              ".#######.\n"
              "..#####..\n"
              "...###...\n"
              ".........\n");
}

TEST(IconWordsTest, ARadiusOfZeroIsThePlainRectangle) {
    const auto canvas = make_canvas(5, 4);
    words(canvas, 12).fill_rounded_rect(1, 1, 3, 2, 0, kInk);
    EXPECT_EQ(picture(canvas.get()), ".....\n.###.\n.###.\n.....\n");
}

TEST(IconWordsTest, ARoundedRectangleWithoutASideDrawsNothing) {
    const auto canvas = make_canvas(12, 12);
    const std::string untouched = picture(canvas.get());
    const orvel::Icon icon = words(canvas, 12);
    icon.fill_rounded_rect(4, 4, 0, 4, 1, kInk);
    icon.fill_rounded_rect(4, 4, 4, 0, 1, kInk);
    icon.fill_rounded_rect(4, 4, static_cast<unsigned>(-1), 4, 1, kInk);
    icon.fill_rounded_rect(4, 4, 4, 0x80000000u, 1, kInk);
    EXPECT_EQ(picture(canvas.get()), untouched);
}

TEST(IconWordsTest, AThickVerticalLineIsOnePixelWideAndOneLonger) {
    const auto canvas = make_canvas(3, 6);
    words(canvas, 12).thick_line(0, 0, 0, 3, kInk);
    EXPECT_EQ(picture(canvas.get()), "#..\n#..\n#..\n#..\n#..\n...\n");
}

TEST(IconWordsTest, AThickLineGrowsDownwardFromEitherEnd) {
    const auto canvas = make_canvas(4, 5);
    words(canvas, 12).thick_line(3, 2, 0, 1, kInk);
    EXPECT_EQ(picture(canvas.get()),
              "....\n"
              "##..\n"
              "####\n"
              "..##\n"
              "....\n");
}

TEST(IconWordsTest, AStarIsFiveTrianglesOverItsTipsAndNotches) {
    const auto canvas = make_canvas(25, 25);
    words(canvas, 24).fill_star(12, 12, 10, kInk);

    // Tips at radius 10, every 72 degrees from straight up; notches between them at radius 4.2.
    const auto expected = make_canvas(25, 25);
    const auto tri = [&](int x0, int y0, int x1, int y1, int x2, int y2) {
        orvel_canvas_fill_triangle(expected.get(), 12 + x0, 12 + y0, 12 + x1, 12 + y1, 12 + x2,
                                   12 + y2, kInk);
    };
    tri(0, -10, 2, -3, 9, -3);
    tri(9, -3, 3, 1, 5, 8);
    tri(5, 8, 0, 4, -5, 8);
    tri(-5, 8, -3, 1, -9, -3);
    tri(-9, -3, -2, -3, 0, -10);
    EXPECT_EQ(picture(canvas.get()), picture(expected.get()));
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 12, 2), kInk);
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 12, 1), kBlack);
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 12, 12), kBlack) << "the middle stays open";
}

TEST(IconWordsTest, RingsAreAsWideAsTheBoxAllows) {
    // Circles of radius 4, 3 and 2 meet the row of their centre at these columns.
    const auto row = [](unsigned side, bool thin) {
        const auto canvas = make_canvas(11, 11);
        const orvel::Icon icon = words(canvas, side);
        thin ? icon.thin_ring(5, 5, 4) : icon.ring(5, 5, 4);
        return picture(canvas.get()).substr(5 * 12, 11);
    };
    EXPECT_EQ(row(2, false), ".#.......#.");
    EXPECT_EQ(row(3, false), ".##.....##.");
    EXPECT_EQ(row(5, false), ".##.....##.");
    EXPECT_EQ(row(6, false), ".###...###.");
    EXPECT_EQ(row(2, true), ".#.......#.");
    EXPECT_EQ(row(3, true), ".##.....##.");
    EXPECT_EQ(row(6, true), ".##.....##.");
}

TEST(IconWordsTest, SignedQuotientsRoundTowardZero) {
    EXPECT_EQ(orvel::trunc_div(static_cast<unsigned>(-7), 4), static_cast<unsigned>(-1));
    EXPECT_EQ(orvel::trunc_div(static_cast<unsigned>(-3), 4), 0u);
    EXPECT_EQ(orvel::trunc_div(7, 4), 1u);
}

}  // namespace
