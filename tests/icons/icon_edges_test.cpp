// The designs' corner cases, each worked out by hand.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "support/picture.h"

namespace {

using namespace orvel_test;

constexpr orvel_color kAccent = {255, 0, 0, 255};
constexpr orvel_color kGround = {0, 0, 255, 255};

/// The picture of one icon. Letters: # ink, + accent, o background, . untouched.
class Drawing {
public:
    Drawing(const char* name, int x, int y, int size, int width, int height)
        : width_(static_cast<std::size_t>(width)) {
        const auto canvas = make_canvas(width, height);
        EXPECT_EQ(orvel_draw_icon_ex(canvas.get(), name, x, y, size, kInk, kAccent, kGround), 0);
        picture_ = orvel_test::picture(
            canvas.get(), {{'.', kBlack}, {'#', kInk}, {'+', kAccent}, {'o', kGround}});
    }

    const std::string& picture() const { return picture_; }
    char at(int x, int y) const { return row(y)[static_cast<std::size_t>(x)]; }
    std::string row(int y) const {
        return picture_.substr(static_cast<std::size_t>(y) * (width_ + 1), width_);
    }
    std::string column(int x) const {
        std::string text;
        for (std::size_t at = static_cast<std::size_t>(x); at < picture_.size(); at += width_ + 1) {
            text += picture_[at];
        }
        return text;
    }

private:
    std::size_t width_;
    std::string picture_;
};

// ---- Small boxes

TEST(IconEdgesTest, EveryIconSucceedsInTheSmallestBoxes) {
    int count = 0;
    const char** names = orvel_icon_list(&count);
    for (int i = 0; i < count; ++i) {
        for (int size = 1; size <= 8; ++size) Drawing(names[i], 2, 2, size, 12, 12);
    }
}

TEST(IconEdgesTest, AppHasNoTilesBelowSizeEight) {
    EXPECT_EQ(Drawing("app", 0, 0, 6, 7, 2).picture(), ".......\n.......\n");
    EXPECT_EQ(Drawing("app", 0, 0, 8, 9, 7).picture(),
              ".........\n"
              ".........\n"
              "..#..#...\n"
              ".........\n"
              ".........\n"
              "..#..#...\n"
              ".........\n");
}

TEST(IconEdgesTest, TrashAtSevenHasNoCan) {
    // The lid is 5 x 3 at (1, 2), its corners of radius 1; the handle is 2 x 4 at (2, 0).
    EXPECT_EQ(Drawing("trash", 0, 0, 7, 7, 7).picture(),
              "..##...\n"
              "..##...\n"
              "..###..\n"
              ".#####.\n"
              "..###..\n"
              ".......\n"
              ".......\n");
}

TEST(IconEdgesTest, BatteryAtEightHasNoChargeLevel) {
    EXPECT_EQ(Drawing("battery", 0, 0, 8, 8, 8).picture(),
              "...#....\n"
              "..###...\n"
              ".#####.#\n"
              ".#####..\n"
              "..###...\n"
              "...#....\n"
              "........\n"
              "........\n");
}

TEST(IconEdgesTest, BatteryIsTwoThirdsFull) {
    // At 40 the inside is 23 x 18 at (3, 11), and 46 / 3 = 15 columns of it are filled.
    const Drawing battery("battery", 0, 0, 40, 40, 40);
    EXPECT_EQ(battery.row(20), ".#################oooooooo####..........");
}

TEST(IconEdgesTest, CalendarAtTenHasItsThreeLinesOnOneRow) {
    EXPECT_EQ(Drawing("calendar", 0, 0, 10, 10, 10).picture(),
              ".+++...+++\n"
              "+++++.++++\n"
              ".+++##.+++\n"
              "..+#####+.\n"
              "..######..\n"
              ".##oooo##.\n"
              "..#oooo#..\n"
              "..######..\n"
              "....##....\n"
              "..........\n");
}

TEST(IconEdgesTest, CalendarSpreadsItsLinesOverWhatTheHeadingLeaves) {
    // At 40 the heading is rows 11 ... 16; D = 40 - 8 - 8 = 24, so the lines are rows 12 + 6,
    // 12 + 12 and 12 + 18.
    EXPECT_EQ(Drawing("calendar", 0, 0, 40, 40, 40).column(20),
              "........###oooooo#o#####o#####o########.");
}

TEST(IconEdgesTest, WifiHasItsInnermostCirclesAtEverySize) {
    for (const int size : {1, 2, 3, 5, 9, 16, 64, 200}) {
        const Drawing wifi("wifi", 110 - size / 2, 111 - size / 2, size, 221, 221);
        EXPECT_EQ(wifi.row(110).substr(108, 2), "##") << size;
        EXPECT_EQ(wifi.row(110).substr(111, 2), "##") << size;
        EXPECT_EQ(wifi.column(110).substr(108, 2), "##") << size;
        EXPECT_EQ(wifi.column(110).substr(111, 2), "##") << size;
    }
}

// ---- The row of the canvas in a length

TEST(IconEdgesTest, HomeAtTheTopHasABodyOfFifteenRows) {
    // The roof's slope meets column 10 on row 8; the body is rows 16 ... 30.
    EXPECT_EQ(Drawing("home", 0, 0, 32, 33, 33).column(10), "........#######################..");
}

TEST(IconEdgesTest, HomeLowOnTheCanvasHasNoBody) {
    const Drawing home("home", 0, 100, 32, 32, 140);
    EXPECT_EQ(home.row(116), "..#############################.");
    EXPECT_EQ(home.row(117), "................................");
    EXPECT_EQ(home.row(123), "..............oooo..............") << "the door stays";
}

TEST(IconEdgesTest, HomesBodyEndsAtRowSMinusTwoWhereverItIs) {
    // The last row is 30; from y = 14 on it is the roof's own.
    EXPECT_EQ(Drawing("home", 0, 13, 32, 32, 60).at(10, 30), '#');
    EXPECT_EQ(Drawing("home", 0, 14, 32, 32, 60).at(10, 31), '.');
    EXPECT_EQ(Drawing("home", 0, 15, 32, 32, 60).at(10, 32), '.');
}

TEST(IconEdgesTest, PowersStemGrowsWithTheDistanceFromTheTop) {
    // 8 rows from row 1 at the top; 28 rows from row 21 at y = 20.
    const std::string top = Drawing("power", 0, 0, 16, 16, 80).column(8);
    EXPECT_EQ(top.substr(0, 9), ".########");
    EXPECT_EQ(top.substr(14), std::string(66, '.'));
    const std::string lower = Drawing("power", 0, 20, 16, 16, 80).column(8);
    EXPECT_EQ(lower, std::string(21, '.') + std::string(28, '#') + std::string(31, '.'));
}

TEST(IconEdgesTest, PowerWithItsCentreAboveTheCanvasHasNoStem) {
    // What shows is the lower edge of the ring around row -4.
    EXPECT_EQ(Drawing("power", 0, -12, 16, 16, 16).column(8), "##..............");
}

TEST(IconEdgesTest, UsersBodyIsTheLowerHalfOfADiscThatLeavesTheBox) {
    const Drawing user("user", 0, 0, 16, 16, 20);
    EXPECT_EQ(user.column(8), "#####.oooooo#######.");
    EXPECT_EQ(user.row(11), "oooooooooooooooo");
    EXPECT_EQ(user.row(12), "..#############.");
}

// ---- Single designs

TEST(IconEdgesTest, CheckEndsHalfABoxRightOfTheCentre) {
    const Drawing check("check", 0, 0, 16, 20, 20);
    EXPECT_EQ(check.row(3).substr(14), "..#...");
    EXPECT_EQ(check.column(16), "...##...............");
}

TEST(IconEdgesTest, HelpAndTerminalShowAGlyphOfFixedSize) {
    const auto glyph = [](const char* text, orvel_color paper) {
        const auto canvas = make_canvas(5, 7);
        orvel_canvas_clear(canvas.get(), paper);
        orvel_text_draw(canvas.get(), text, 0, 0, kInk);
        return picture(canvas.get(), {{'.', kBlack}, {'#', kInk}, {'o', kGround}});
    };
    const auto cell = [](const Drawing& drawing, int x, int y) {
        std::string text;
        for (int row = 0; row < 7; ++row) {
            text += drawing.row(y + row).substr(static_cast<std::size_t>(x), 5) + "\n";
        }
        return text;
    };
    // "?" is at (cx - 2, cy - 4), ">" at a sixth of the box.
    EXPECT_EQ(cell(Drawing("help", 0, 0, 60, 60, 60), 28, 26), glyph("?", kBlack));
    EXPECT_EQ(cell(Drawing("help", 0, 0, 120, 120, 120), 58, 56), glyph("?", kBlack));
    EXPECT_EQ(cell(Drawing("terminal", 0, 0, 60, 60, 60), 10, 10), glyph(">", kGround));
    EXPECT_EQ(cell(Drawing("terminal", 0, 0, 120, 120, 120), 20, 20), glyph(">", kGround));
}

TEST(IconEdgesTest, RefreshsArrowHeadOverrunsASmallBox) {
    EXPECT_EQ(Drawing("refresh", 0, 0, 4, 9, 9).column(2).substr(2), "######.");
}

TEST(IconEdgesTest, EditsPencilTipOverrunsASmallBox) {
    const Drawing edit("edit", 0, 0, 4, 9, 10);
    EXPECT_EQ(edit.at(4, 8), '+');
    EXPECT_EQ(edit.row(9), ".........");
}

TEST(IconEdgesTest, WorldHasOneDiagonalBesideItsCross) {
    // From (13, 15) to (47, 45), both ends outside the ring of radius 20 around (30, 30).
    const Drawing world("world", 0, 0, 60, 60, 60);
    EXPECT_EQ(world.at(13, 15), '#');
    EXPECT_EQ(world.at(47, 45), '#');
    EXPECT_EQ(world.at(47, 15), '.');
    EXPECT_EQ(world.at(13, 45), '.');
    EXPECT_EQ(world.row(30), std::string(10, '.') + std::string(41, '#') + std::string(9, '.'));
}

TEST(IconEdgesTest, ListsLastRowIsAtAQuarterAndAHalf) {
    EXPECT_EQ(Drawing("list", 0, 0, 16, 18, 18).column(9), "....###.###.###...");
    EXPECT_EQ(Drawing("list", 0, 0, 18, 18, 18).column(9), "....###.###..###..");
}

TEST(IconEdgesTest, LogoutsFrameIsOpenOnTheLeft) {
    // At 20 the frame is 12 x 12 at (3, 4), its cut-out 8 x 8 at (3, 6).
    const Drawing logout("logout", 0, 0, 20, 20, 20);
    EXPECT_EQ(logout.row(8), "...oooooooo####.....");
    EXPECT_EQ(logout.column(6), "....##oooooooo##....");
}

// ---- Cost

// A step for each of 2^31 invisible rows takes seconds, and all draws of an icon that would take
// one longer than a test may.
TEST(IconEdgesTest, NoIconWalksOverWhatCannotBeSeen) {
    const auto canvas = make_canvas(32, 24);
    int count = 0;
    const char** names = orvel_icon_list(&count);
    for (int i = 0; i < count; ++i) {
        for (const int size : {46341, std::numeric_limits<int>::max()}) {
            for (const int x : {-size / 2, 0, 400}) {
                const auto draw = [&] {
                    orvel_draw_icon_ex(canvas.get(), names[i], x, x, size, kInk, kAccent, kGround);
                    return checksum(canvas.get());
                };
                const std::uint64_t once = draw();
                for (int turn = 0; turn < 30; ++turn) {
                    ASSERT_EQ(draw(), once) << names[i] << " at " << x << ", size " << size;
                }
            }
        }
    }
}

}  // namespace
