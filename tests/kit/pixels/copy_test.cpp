// kit_copy(), kit_stamp() and drawing inside a box.
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "models/copy_model.h"
#include "support/picture.h"
#include "support/random.h"

namespace {

using namespace orvel_test;

constexpr orvel_color kClear = {9, 9, 9, 0};
const Palette kLetters = {{'.', kBlack},         {'#', kInk},           {'a', {1, 0, 0, 255}},
                          {'b', {2, 0, 0, 255}}, {'c', {3, 0, 0, 128}}, {'d', {4, 0, 0, 1}},
                          {'o', kClear}};

orvel_color color_of(char letter) {
    for (const Letter& entry : kLetters) {
        if (entry.letter == letter) return entry.color;
    }
    return {};
}

/// A canvas that shows @p rows, each as long as the first.
CanvasPtr painted(const std::vector<std::string>& rows) {
    CanvasPtr canvas = make_canvas(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()));
    for (std::size_t y = 0; y < rows.size(); ++y) {
        for (std::size_t x = 0; x < rows[y].size(); ++x) {
            orvel_canvas_pixel(canvas.get(), static_cast<int>(x), static_cast<int>(y),
                               color_of(rows[y][x]));
        }
    }
    return canvas;
}

std::string shown(const CanvasPtr& canvas) { return picture(canvas.get(), kLetters); }

TEST(CopyTest, APartLandsAtItsPlaceWithItsAlpha) {
    const auto from = painted({"abcd", "dcba", "aabb"});
    const auto to = make_canvas(5, 3);
    const kit_box part = {1, 0, 3, 2};
    EXPECT_EQ(kit_copy(to.get(), 1, 1, from.get(), &part), 0);
    EXPECT_EQ(shown(to), ".....\n.bcd.\n.cba.\n");
}

TEST(CopyTest, NoPartIsTheWholeCanvas) {
    const auto from = painted({"ab", "oo"});
    const auto to = make_canvas(4, 3);
    EXPECT_EQ(kit_copy(to.get(), 2, 0, from.get(), nullptr), 0);
    EXPECT_EQ(shown(to), "..ab\n..oo\n....\n");
}

TEST(CopyTest, WhatLiesOutsideEitherCanvasIsLeftOut) {
    const auto from = painted({"ab", "cd"});
    const auto to = make_canvas(3, 3);
    const kit_box beyond = {-1, -1, 9, 9};  // its pixel (0, 0) is the place (-1, -1) of the part
    EXPECT_EQ(kit_copy(to.get(), 1, 1, from.get(), &beyond), 0);
    EXPECT_EQ(shown(to), "...\n...\n..a\n");
    EXPECT_EQ(kit_copy(to.get(), -1, -1, from.get(), nullptr), 0);
    EXPECT_EQ(shown(to), "d..\n...\n..a\n");
}

TEST(CopyTest, AStampLeavesWhatIsThereUnderAlphaZero) {
    const auto from = painted({"aoob", "oooo", "cood"});
    const auto to = painted({"####", "####", "####"});
    EXPECT_EQ(kit_stamp(to.get(), 0, 0, from.get(), nullptr), 0);
    EXPECT_EQ(shown(to), "a##b\n####\nc##d\n");
}

TEST(CopyTest, NullIsAFailureAndDrawsNothing) {
    const auto canvas = painted({"ab"});
    EXPECT_EQ(kit_copy(nullptr, 0, 0, canvas.get(), nullptr), -1);
    EXPECT_EQ(kit_copy(canvas.get(), 0, 0, nullptr, nullptr), -1);
    EXPECT_EQ(kit_stamp(nullptr, 0, 0, canvas.get(), nullptr), -1);
    EXPECT_EQ(kit_stamp(canvas.get(), 0, 0, nullptr, nullptr), -1);
    EXPECT_EQ(shown(canvas), "ab\n");
}

TEST(CopyTest, AnEmptyPartOrOneFarAwayCopiesNothing) {
    const auto from = painted({"ab"});
    const auto to = painted({"##"});
    for (const kit_box part :
         {kit_box{0, 0, 0, 1}, kit_box{0, 0, 1, -1}, kit_box{0, 0, INT_MIN, INT_MIN},
          kit_box{2, 0, 1, 1}, kit_box{INT_MIN, INT_MIN, INT_MAX, INT_MAX},
          kit_box{INT_MAX, INT_MAX, INT_MAX, INT_MAX}}) {
        EXPECT_EQ(kit_copy(to.get(), 0, 0, from.get(), &part), 0);
        EXPECT_EQ(shown(to), "##\n") << part.x << ' ' << part.y << ' ' << part.w << ' ' << part.h;
    }
    EXPECT_EQ(kit_copy(to.get(), INT_MIN, INT_MAX, from.get(), nullptr), 0);
    EXPECT_EQ(shown(to), "##\n");
}

TEST(CopyTest, ABoxThatReachesOverAllIntegersStillLandsExactly) {
    const auto from = painted({"ab"});
    const auto to = painted({"##"});
    const kit_box all = {INT_MIN + 1, INT_MIN + 1, INT_MAX, INT_MAX};  // ends at (0, 0), excluded
    EXPECT_EQ(kit_copy(to.get(), INT_MIN + 1, INT_MIN + 1, from.get(), &all), 0);
    EXPECT_EQ(shown(to), "##\n");
    const kit_box wide = {-5, -5, INT_MAX, INT_MAX};
    EXPECT_EQ(kit_copy(to.get(), -4, -5, from.get(), &wide), 0);
    EXPECT_EQ(shown(to), "#a\n");
}

TEST(CopyTest, OverlappingBoxesOfOneCanvasMoveAsIfCopiedAside) {
    const std::vector<std::string> rows = {"abcd#", "dc#ba", "#abcd", "b#dca"};
    for (int y = -3; y <= 3; ++y) {
        for (int x = -4; x <= 4; ++x) {
            const auto aside = painted(rows), expected = painted(rows), canvas = painted(rows);
            const kit_box part = {std::max(0, -x), std::max(0, -y), 4, 3};
            kit_copy(expected.get(), part.x + x, part.y + y, aside.get(), &part);
            kit_copy(canvas.get(), part.x + x, part.y + y, canvas.get(), &part);
            EXPECT_EQ(shown(canvas), shown(expected)) << x << ", " << y;
        }
    }
}

TEST(CopyTest, ALongRowMovesWithinItsCanvasByAnyDistance) {
    constexpr int kWidth = 1500;
    const auto column = [](int x) {
        return orvel_color{static_cast<unsigned char>(x), static_cast<unsigned char>(x / 256), 7,
                           255};
    };
    for (const int by : {-1000, -513, -512, -511, -1, 1, 511, 512, 513, 1000}) {
        const auto canvas = make_canvas(kWidth, 1);
        for (int x = 0; x < kWidth; ++x) orvel_canvas_pixel(canvas.get(), x, 0, column(x));
        EXPECT_EQ(kit_copy(canvas.get(), by, 0, canvas.get(), nullptr), 0);
        for (int x = 0; x < kWidth; ++x) {
            const bool moved = x - by >= 0 && x - by < kWidth;
            ASSERT_EQ(orvel_canvas_pixel_get(canvas.get(), x, 0), column(moved ? x - by : x))
                << x << " by " << by;
        }
    }
}

TEST(ClipTest, ShowsWhatIsThereAndCutsTheBoxToTheCanvas) {
    const auto canvas = painted({"abc", "bcd", "cda"});
    kit_box box = {1, -4, 9, 6};
    const CanvasPtr inside(kit_clip_begin(canvas.get(), &box));
    EXPECT_EQ(shown(inside), "bc\ncd\n");
    EXPECT_EQ(box.x, 1);
    EXPECT_EQ(box.y, 0);
    EXPECT_EQ(box.w, 2);
    EXPECT_EQ(box.h, 2);
}

TEST(ClipTest, NoPixelOutsideTheBoxChangesWhateverIsDrawn) {
    const auto canvas = painted({"abcd", "bcda", "cdab", "dabc"});
    kit_box box = {1, 1, 2, 2};
    orvel_canvas* const inside = kit_clip_begin(canvas.get(), &box);
    orvel_canvas_fill_circle(inside, 0, 0, 100, kInk);
    orvel_canvas_pixel(inside, 0, 1, kClear);
    EXPECT_EQ(kit_clip_end(canvas.get(), &box, inside), 0);
    EXPECT_EQ(shown(canvas), "abcd\nb##a\nco#b\ndabc\n");
}

TEST(ClipTest, ABoxGrownBetweenBeginAndEndReachesNoFurtherThanWhatWasDrawn) {
    const auto canvas = painted({"....", "...."});
    kit_box box = {1, 0, 2, 1};
    orvel_canvas* const inside = kit_clip_begin(canvas.get(), &box);
    orvel_canvas_clear(inside, kInk);
    box.w = box.h = INT_MAX;
    EXPECT_EQ(kit_clip_end(canvas.get(), &box, inside), 0);
    EXPECT_EQ(shown(canvas), ".##.\n....\n");
}

TEST(ClipTest, NothingOnTheCanvasIsNullAndLeavesTheBox) {
    const auto canvas = make_canvas(4, 4);
    for (const kit_box far :
         {kit_box{4, 0, 2, 2}, kit_box{0, 4, 2, 2}, kit_box{-2, 0, 2, 2}, kit_box{0, 0, 0, 2},
          kit_box{0, 0, 2, -2}, kit_box{INT_MIN, INT_MIN, INT_MAX, INT_MAX},
          kit_box{INT_MAX, 0, INT_MAX, 1}}) {
        kit_box box = far;
        EXPECT_EQ(kit_clip_begin(canvas.get(), &box), nullptr);
        EXPECT_EQ(box.x, far.x);
        EXPECT_EQ(box.y, far.y);
        EXPECT_EQ(box.w, far.w);
        EXPECT_EQ(box.h, far.h);
    }
    kit_box box = {0, 0, 1, 1};
    EXPECT_EQ(kit_clip_begin(nullptr, &box), nullptr);
    EXPECT_EQ(kit_clip_begin(canvas.get(), nullptr), nullptr);
}

TEST(ClipTest, EndWithNullFailsAndStillReleasesWhatWasBegun) {
    const auto canvas = painted({"ab"});
    kit_box box = {0, 0, 2, 1};
    for (const bool without_box : {false, true}) {
        orvel_canvas* const inside = kit_clip_begin(canvas.get(), &box);
        orvel_canvas_clear(inside, kInk);
        // A leak would end the run with the sanitizers.
        EXPECT_EQ(without_box ? kit_clip_end(canvas.get(), nullptr, inside)
                              : kit_clip_end(nullptr, &box, inside),
                  -1);
    }
    EXPECT_EQ(kit_clip_end(canvas.get(), &box, nullptr), -1);
    EXPECT_EQ(kit_clip_end(nullptr, nullptr, nullptr), -1);
    EXPECT_EQ(shown(canvas), "ab\n");
}

TEST(ClipTest, TheCanvasItselfIsNotWhatWasBegunAndIsKept) {
    const auto canvas = painted({"ab"});
    const kit_box box = {0, 0, 2, 1};
    EXPECT_EQ(kit_clip_end(canvas.get(), &box, canvas.get()), -1);
    EXPECT_EQ(shown(canvas), "ab\n");
}

/// A canvas of the library's and one of the model's with the same few colours on them.
struct Pair {
    Pair(Random& random, int width, int height)
        : canvas(make_canvas(width, height)), plain(width, height) {
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const auto shade = static_cast<unsigned char>(random.next() & 1);
                put(x, y, {shade, 0, 0, static_cast<unsigned char>(random.next() & 1)});
            }
        }
    }
    void put(int x, int y, orvel_color color) {
        orvel_canvas_pixel(canvas.get(), x, y, color);
        plain.put(x, y, color);
    }
    bool agrees() const {
        for (int y = 0; y < plain.height; ++y) {
            for (int x = 0; x < plain.width; ++x) {
                const orvel_color got = orvel_canvas_pixel_get(canvas.get(), x, y);
                if (!(got == plain.at(x, y))) return false;
            }
        }
        return true;
    }
    CanvasPtr canvas;
    model::Canvas plain;
};

TEST(CopySweepTest, EveryCopyEqualsTheModels) {
    constexpr int kCases = 1000000, kCopiesOfEach = 25;
    for (int number = 0; number < kCases / kCopiesOfEach; ++number) {
        Random random(static_cast<std::uint64_t>(number));
        Pair first(random, random.between(1, 6), random.between(1, 4));
        Pair second(random, random.between(1, 6), random.between(1, 4));
        for (int i = 0; i < kCopiesOfEach; ++i) {
            Pair& to = random.one_in(2) ? first : second;
            const Pair& from = random.one_in(2) ? first : second;
            const auto place = [&random] {
                return random.one_in(40) ? random.between(INT_MIN, INT_MAX) : random.between(-4, 6);
            };
            const int x = place(), y = place();
            const kit_box part = {place(), place(), place(), place()};
            const kit_box* const given = random.one_in(4) ? nullptr : &part;
            const bool clear_ones = random.one_in(2);
            (clear_ones ? kit_copy : kit_stamp)(to.canvas.get(), x, y, from.canvas.get(), given);
            model::copy(to.plain, x, y, from.plain, given, clear_ones);
        }
        ASSERT_TRUE(first.agrees() && second.agrees()) << "seed " << number;
    }
}

}  // namespace
