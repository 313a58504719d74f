// Tabs, menus, list items and bar charts, pixel by pixel.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "widgets/split.h"
#include "widgets/widget_drawing.h"

namespace {

using namespace orvel_test;

class ListTest : public WidgetDrawing {};

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(SplitTest, PiecesAreWhatStandsBetweenTheBars) {
    using Pieces = std::vector<std::string>;
    EXPECT_EQ(orvel::split(""), Pieces{""});
    EXPECT_EQ(orvel::split("a|b"), (Pieces{"a", "b"}));
    EXPECT_EQ(orvel::split("a||b"), (Pieces{"a", "", "b"}));
    EXPECT_EQ(orvel::split("a|"), (Pieces{"a", ""}));
    EXPECT_EQ(orvel::split("|"), (Pieces{"", ""}));
    EXPECT_EQ(orvel::split("one, \xC3\xA9\n"), Pieces{"one, \xC3\xA9\n"});
}

TEST_F(ListTest, TheSelectedTabHasASurfaceAndOneVisibleAccentLine) {
    draw(orvel_widget_tabs(on(94, 16), &theme_, "One|Two|Six", 2, 1, 90, 14, 1));
    EXPECT_EQ(row(1, 0, 93), ".." + std::string(90, '#') + "..");
    EXPECT_EQ(row(2, 0, 93), "..#" + std::string(28, '.') + "##" + std::string(28, 'A') + "##" +
                                 std::string(28, '.') + "#..");
    EXPECT_EQ(row(3, 31, 62), "##" + std::string(28, 's') + "##");
    EXPECT_EQ(row(14, 0, 93), row(1, 0, 93));
    EXPECT_NE(drawn().find('t'), std::string::npos);
    for (int y = 4; y < 14; ++y) {
        EXPECT_EQ(row(y, 32, 61).find('t'), std::string::npos);
        EXPECT_EQ(row(y, 2, 31).find('A'), std::string::npos);
        EXPECT_EQ(row(y, 62, 91).find('A'), std::string::npos);
    }
}

TEST_F(ListTest, CaptionsAreCentredInTheirTabs) {
    draw(orvel_widget_tabs(on(40, 9), &theme_, "!|!", 0, 0, 40, 9, 0));
    // (20 - 5) / 2 = 7 in both; the second tab is not selected.
    EXPECT_EQ(row(3, 0, 39), "#ssssssAAAAAsssssss##......ttttt.......#");
}

TEST_F(ListTest, RemainingColumnsBesideTheTabsStayUntouched) {
    draw(orvel_widget_tabs(on(101, 9), &theme_, "a|b|c", 0, 0, 100, 9, 2));
    EXPECT_EQ(row(0, 0, 100), std::string(99, '#') + "..");
    EXPECT_EQ(row(5, 96, 100), "ss#..");
}

TEST_F(ListTest, AnAmountOutOfRangeSelectsNothing) {
    for (const int amount : {-1, 2, 5, INT_MIN, INT_MAX}) {
        draw(orvel_widget_tabs(on(40, 9), &theme_, "!|!", 0, 0, 40, 9, amount));
        EXPECT_EQ(drawn().find('A'), std::string::npos) << amount;
        EXPECT_EQ(drawn().find('s'), std::string::npos) << amount;
        draw(orvel_widget_menu(on(40, 9), &theme_, "!|!", 0, 0, 40, 9, amount));
        EXPECT_EQ(drawn().find('A'), std::string::npos) << amount;
        EXPECT_EQ(drawn().find('h'), std::string::npos) << amount;
        EXPECT_EQ(drawn().find('#'), std::string::npos) << amount;
    }
}

TEST_F(ListTest, TabsWithoutTextAreOneEmptyTab) {
    draw(orvel_widget_tabs(on(5, 4), &theme_, "", 0, 0, 5, 4, 0));
    EXPECT_EQ(drawn(), "#####\n#AAA#\n#sss#\n#####\n");
}

TEST_F(ListTest, TheSelectedMenuItemIsHighlightedAndUnderlined) {
    draw(orvel_widget_menu(on(30, 10), &theme_, "!|!", 2, 0, 26, 9, 1));
    EXPECT_EQ(drawn(),
              "...............hhhhhhhhhhhhh..\n"
              "...............hhhhhhhhhhhhh..\n"
              "...............hhhhhhhhhhhhh..\n"
              "......ttttt....hhhhttttthhhh..\n"
              "...............hhhhhhhhhhhhh..\n"
              "...............hhhhhhhhhhhhh..\n"
              "...............hhhhhhhhhhhhh..\n"
              "........ttt....AAAAAAtttAAAA..\n"
              "...............AAAAAAAAAAAAA..\n"
              "..............................\n");
}

TEST_F(ListTest, AListItemWithoutAnIconStartsItsTextFourPixelsIn) {
    draw(orvel_widget_list_item(on(40, 16), &theme_, "!", "", 0, 0, 40, 16, 0));
    EXPECT_EQ(row(6, 0, 12), "#BBBtttttBBBB");
    EXPECT_EQ(row(10, 0, 12), "#BBBBBtttBBBB");
}

TEST_F(ListTest, AListItemWithAnIconStartsItsTextTwentyTwoPixelsIn) {
    draw(orvel_widget_list_item(on(60, 20), &theme_, "!", "mail", 0, 0, 60, 20, 0));
    EXPECT_EQ(row(8, 20, 30), "BBtttttBBBB");
    const auto expected = make_canvas(60, 20);
    orvel_canvas_clear(expected.get(), theme_.background);
    orvel_draw_icon(expected.get(), "mail", 3, 2, 16, theme_.accent);
    for (int y = 2; y < 18; ++y) {
        for (int x = 3; x < 19; ++x) {
            EXPECT_EQ(orvel_canvas_pixel_get(canvas_.get(), x, y),
                      orvel_canvas_pixel_get(expected.get(), x, y))
                << x << ", " << y;
        }
    }
}

TEST_F(ListTest, ASelectedListItemIsHighlightedAndFramedInAccent) {
    draw(orvel_widget_list_item(on(14, 4), &theme_, "", "", 0, 0, 2, 4, 1));
    EXPECT_EQ(row(1, 0, 1), "AA");
    draw(orvel_widget_list_item(on(14, 4), &theme_, "", "", 0, 0, 3, 4, 1));
    EXPECT_EQ(row(1, 0, 2), "AhA");
}

TEST_F(ListTest, TheMarkerOfAListItemIsFivePixelsWide) {
    draw(orvel_widget_list_item(on(14, 16), &theme_, "", "", 0, 0, 14, 16, 0));
    EXPECT_EQ(row(4, 0, 13), "#BBBBBBBBBBBB#");
    EXPECT_EQ(row(5, 0, 13), "#BBB#####BBBB#");
    EXPECT_EQ(row(6, 0, 13), "#BBBB###BBBBB#");
    EXPECT_EQ(row(7, 0, 13), "#BBBB###BBBBB#");
    EXPECT_EQ(row(8, 0, 13), "#BBBBB#BBBBBB#");
    EXPECT_EQ(row(9, 0, 13), "#BBBBB#BBBBBB#");
    EXPECT_EQ(row(10, 0, 13), "#BBBBB#BBBBBB#");
    EXPECT_EQ(row(11, 0, 13), "#BBBBBBBBBBBB#");
}

/// A bar chart of these values.
orvel_widget* bars(orvel_canvas* canvas, const orvel_theme* theme, int w, int h,
                   const std::vector<double>& values) {
    orvel_widget* widget = orvel_widget_bars(canvas, theme, 0, 0, w, h);
    orvel_widget_set_data(widget, values.data(), static_cast<int>(values.size()));
    return widget;
}

TEST_F(ListTest, BarsStandTwoRowsAboveTheBottomOfTheirBox) {
    draw(bars(on(30, 12), &theme_, 30, 12, {0.5, 2.0, -1.0}));
    EXPECT_EQ(drawn(),
              "##############################\n"
              "#.........AAAAAAAAA..........#\n"
              "#.........AAAAAAAAA..........#\n"
              "#.........AAAAAAAAA..........#\n"
              "#.........AAAAAAAAA..........#\n"
              "#AAAAAAAA.AAAAAAAAA..........#\n"
              "#AAAAAAAA.AAAAAAAAA..........#\n"
              "#AAAAAAAA.AAAAAAAAA..........#\n"
              "#AAAAAAAA.AAAAAAAAA..........#\n"
              "#AAAAAAAA.AAAAAAAAA..........#\n"
              "#............................#\n"
              "##############################\n");
}

TEST_F(ListTest, BarsWithoutDataDrawNothing) {
    draw(bars(on(3, 3), &theme_, 3, 3, {}));
    EXPECT_EQ(drawn(), "...\n...\n...\n");
}

TEST_F(ListTest, BarsOfNoNumberAndOfInfinity) {
    draw(bars(on(12, 6), &theme_, 12, 6, {kNaN, INFINITY, -INFINITY, 0.25}));
    EXPECT_EQ(drawn(),
              "############\n"
              "#..AA......#\n"
              "#..AA......#\n"
              "#..AA....AA#\n"
              "#..........#\n"
              "############\n");
}

TEST_F(ListTest, ManyBarsRunPastTheRightEdge) {
    draw(bars(on(16, 5), &theme_, 7, 5, {1, 1, 1, 1, 1, 1}));
    EXPECT_EQ(drawn(),
              "#######.A.A.....\n"
              "#.A.A.#.A.A.....\n"
              "#.A.A.#.A.A.....\n"
              "#.....#.........\n"
              "#######.........\n");
}

TEST_F(ListTest, APitchOfThreeIsTheLeastThatIsNotTwo) {
    draw(bars(on(8, 4), &theme_, 6, 4, {1, 1}));
    EXPECT_EQ(row(1, 0, 7), "#A.AA#..");
    draw(bars(on(8, 4), &theme_, 5, 4, {1, 1}));
    EXPECT_EQ(row(1, 0, 7), "#.A.#...");
}

TEST_F(ListTest, ABoxLowerThanItsBarsStillHasItsFrame) {
    draw(bars(on(6, 3), &theme_, 6, 2, {1, 1}));
    EXPECT_EQ(drawn(), "######\n######\n......\n");
}

}  // namespace
