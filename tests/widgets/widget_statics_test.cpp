// Frames and kinds that only show something, pixel by pixel.
#include <gtest/gtest.h>

#include <string>

#include "support/files.h"
#include "widgets/widget_drawing.h"

namespace {

using namespace orvel_test;

class StaticWidgetTest : public WidgetDrawing {};

TEST_F(StaticWidgetTest, AWindowHasATitleBandOfTwelveRows) {
    draw(orvel_widget_window(on(120, 60), &theme_, "!", 10, 10, 100, 40));
    EXPECT_EQ(at(60, 9), '.');
    EXPECT_EQ(at(60, 10), 'A');
    EXPECT_EQ(at(60, 21), 'A');
    EXPECT_EQ(at(60, 22), 's');
    EXPECT_EQ(at(10, 21), 'A');
    EXPECT_EQ(row(22, 9, 11), ".#s");
    EXPECT_EQ(row(22, 108, 110), "s#.");
    EXPECT_EQ(row(49, 58, 61), "####");
    EXPECT_EQ(at(60, 50), '.');
    EXPECT_EQ(row(14, 13, 20), "AAAAAAAA");
    EXPECT_EQ(row(15, 13, 20), "ABBBBBAA");
    EXPECT_EQ(row(19, 13, 20), "AAABBBAA");
}

TEST_F(StaticWidgetTest, TheTitleBandIsTwelveRowsHighWhateverTheWindowIs) {
    draw(orvel_widget_window(on(3, 14), &theme_, "", 0, 0, 2, 3));
    for (int y = 0; y < 12; ++y) EXPECT_EQ(row(y, 0, 2), "AA.") << y;
    EXPECT_EQ(row(12, 0, 2), "...");
}

TEST_F(StaticWidgetTest, APanelIsASurfaceInAFrame) {
    draw(orvel_widget_panel(on(5, 4), &theme_, 1, 0, 4, 3));
    EXPECT_EQ(drawn(),
              ".####\n"
              ".#ss#\n"
              ".####\n"
              ".....\n");
}

TEST_F(StaticWidgetTest, ALabelIsItsTextAlone) {
    draw(orvel_widget_label(on(7, 9), &theme_, "!", 1, 1));
    EXPECT_EQ(drawn(),
              ".......\n"
              ".......\n"
              ".......\n"
              ".ttttt.\n"
              ".......\n"
              ".......\n"
              ".......\n"
              "...ttt.\n"
              ".......\n");
}

TEST_F(StaticWidgetTest, AButtonCentresItsTextBothWays) {
    draw(orvel_widget_button(on(60, 20), &theme_, "!!", 0, 0, 60, 20));
    EXPECT_EQ(row(8, 22, 36), "uuxxxxxuxxxxxuu");
    EXPECT_EQ(row(12, 22, 36), "uuuuxxxuuuxxxuu");
    EXPECT_EQ(row(7, 22, 36), "uuuuuuuuuuuuuuu");
    EXPECT_EQ(row(0, 0, 3), "####");
    EXPECT_EQ(row(19, 56, 59), "####");
    EXPECT_EQ(row(10, 0, 1), "#u");
}

TEST_F(StaticWidgetTest, AHoveredButtonHasItsOwnColour) {
    orvel_widget* button = orvel_widget_button(on(4, 3), &theme_, "", 0, 0, 4, 3);
    orvel_widget_set_hover(button, 1);
    draw(button);
    EXPECT_EQ(drawn(), "####\n#hh#\n####\n");
}

TEST_F(StaticWidgetTest, ATextIsCentredByDivisionTowardZero) {
    // (4 - 5) / 2 is 0 and (4 - 7) / 2 is -1, not -2.
    draw(orvel_widget_button(on(10, 8), &theme_, "!", 2, 2, 4, 4));
    EXPECT_EQ(drawn(),
              "..........\n"
              "..........\n"
              "..####....\n"
              "..xxxxx...\n"
              "..#uu#....\n"
              "..####....\n"
              "..........\n"
              "....xxx...\n");
}

TEST_F(StaticWidgetTest, ATextBoxReactsToHoverAndNotToActive) {
    orvel_widget* box = orvel_widget_textbox(on(12, 9), &theme_, "!", 0, 0, 12, 9);
    orvel_widget_set_active(box, 1);
    orvel_widget_draw(box);
    EXPECT_EQ(row(0, 0, 11), "############");
    EXPECT_EQ(row(3, 0, 11), "#sstttttsss#");
    EXPECT_EQ(row(7, 0, 11), "#sssstttsss#");
    orvel_widget_set_active(box, 0);
    orvel_widget_set_hover(box, 1);
    draw(box);
    EXPECT_EQ(row(0, 0, 11), "AAAAAAAAAAAA");
    EXPECT_EQ(row(3, 0, 11), "AsstttttsssA");
}

TEST_F(StaticWidgetTest, TheTextOfATextBoxRunsPastItsEdge) {
    draw(orvel_widget_textbox(on(18, 7), &theme_, "!!", 0, 0, 8, 7));
    EXPECT_EQ(row(2, 0, 17), "#ssttttt.ttttt....");
}

TEST_F(StaticWidgetTest, AnIconUpToEightPixelsHasNoMargin) {
    draw(orvel_widget_icon(on(14, 14), &theme_, "home", 2, 3, 8));
    const auto expected = make_canvas(14, 14);
    orvel_draw_icon(expected.get(), "home", 2, 3, 8, theme_.accent);
    EXPECT_EQ(drawn(), picture(expected.get(), theme_letters(theme_)));
}

TEST_F(StaticWidgetTest, ALargerIconHasAMarginOfOne) {
    draw(orvel_widget_icon(on(14, 14), &theme_, "home", 2, 3, 9));
    const auto expected = make_canvas(14, 14);
    orvel_draw_icon(expected.get(), "home", 3, 4, 7, theme_.accent);
    EXPECT_EQ(drawn(), picture(expected.get(), theme_letters(theme_)));
}

TEST_F(StaticWidgetTest, AnUnknownIconIsAFrame) {
    draw(orvel_widget_icon(on(5, 5), &theme_, "nothing", 1, 1, 3));
    EXPECT_EQ(drawn(),
              ".....\n"
              ".AAA.\n"
              ".A.A.\n"
              ".AAA.\n"
              ".....\n");
}

TEST_F(StaticWidgetTest, AnIconWithoutASizeIsNothing) {
    draw(orvel_widget_icon(on(2, 2), &theme_, "home", 0, 0, 0));
    draw(orvel_widget_icon(canvas_.get(), &theme_, "home", 0, 0, -4));
    EXPECT_EQ(drawn(), "..\n..\n");
}

TEST_F(StaticWidgetTest, AnImageIsDrawnAtItsOwnSize) {
    const TempFolder root;
    write_file(root / "Icons/none", "");
    const auto image = make_canvas(2, 2);
    orvel_canvas_clear(image.get(), kInk);
    orvel_canvas_pixel(image.get(), 1, 0, theme_.accent);
    ASSERT_EQ(orvel_canvas_save_bmp(image.get(), (root / "Icons/logo.bmp").c_str()), 0);
    orvel_set_resource_path(root.path().c_str());
    draw(orvel_widget_image(on(5, 4), &theme_, "logo", 2, 1));
    draw(orvel_widget_image(canvas_.get(), &theme_, "missing", 0, 0));
    orvel_set_resource_path("");
    EXPECT_EQ(drawn(),
              ".....\n"
              "..tA.\n"
              "..tt.\n"
              ".....\n");
}

TEST_F(StaticWidgetTest, ASeparatorEndsOnePixelPastItsWidth) {
    draw(orvel_widget_separator(on(60, 3), &theme_, 0, 1, 50));
    EXPECT_EQ(row(1, 0, 59), std::string(51, '#') + std::string(9, '.'));
    EXPECT_EQ(row(0, 0, 59), std::string(60, '.'));
    EXPECT_EQ(row(2, 0, 59), std::string(60, '.'));
}

TEST_F(StaticWidgetTest, ASeparatorOfNegativeWidthRunsToTheLeft) {
    draw(orvel_widget_separator(on(8, 1), &theme_, 5, 0, -3));
    EXPECT_EQ(drawn(), "..####..\n");
}

TEST_F(StaticWidgetTest, AStatusBarHasATopRuleThatEndsOnePixelPastItsWidth) {
    draw(orvel_widget_statusbar(on(60, 9), &theme_, "!", 0, 0, 50, 7));
    EXPECT_EQ(row(0, 0, 59), std::string(51, '#') + std::string(9, '.'));
    EXPECT_EQ(row(1, 0, 59), std::string(50, 's') + std::string(10, '.'));
    EXPECT_EQ(row(2, 0, 10), "sssstttttss");
    EXPECT_EQ(row(6, 0, 10), "sssssstttss");
    EXPECT_EQ(row(7, 0, 59), std::string(60, '.'));
}

TEST_F(StaticWidgetTest, ACardHasAStripeOverItsFrame) {
    draw(orvel_widget_card(on(7, 4), &theme_, 1, 0, 6, 4));
    EXPECT_EQ(drawn(),
              ".AAA###\n"
              ".AAAss#\n"
              ".AAAss#\n"
              ".AAA###\n");
}

TEST_F(StaticWidgetTest, AnAvatarIsADiscInARing) {
    draw(orvel_widget_avatar(on(24, 24), &theme_, "!", 0, 0, 20));
    // The centre is (10, 10), the radius 10.
    EXPECT_EQ(at(10, 0), '#');
    EXPECT_EQ(at(10, 20), '#');
    EXPECT_EQ(at(0, 10), '#');
    EXPECT_EQ(at(20, 10), '#');
    EXPECT_EQ(at(21, 10), '.');
    EXPECT_EQ(at(10, 21), '.');
    EXPECT_EQ(at(1, 10), 'A');
    // The text stands at (8, 7).
    EXPECT_EQ(row(9, 6, 14), "AABBBBBAA");
    EXPECT_EQ(row(13, 6, 14), "AAAABBBAA");
}

TEST_F(StaticWidgetTest, LongerInitialsExtendToTheRight) {
    draw(orvel_widget_avatar(on(24, 24), &theme_, "!!", 0, 0, 20));
    EXPECT_EQ(row(9, 6, 20), "AABBBBBABBBBBA#");
}

TEST_F(StaticWidgetTest, ABadgeIsAsWideAsItsNumber) {
    // One digit is 5 pixels wide: the caps stand around (5, 5) and (8, 5), the body at 4 to 8.
    draw(orvel_widget_badge(on(20, 12), &theme_, 0, 0, 7));
    EXPECT_EQ(row(0, 0, 15), ".....A..A.......");
    EXPECT_EQ(row(10, 0, 15), ".....A..A.......");
    EXPECT_EQ(at(0, 5), 'A');
    EXPECT_EQ(at(13, 5), 'A');
    EXPECT_EQ(at(14, 5), '.');
    EXPECT_EQ(row(11, 0, 15), "................");
}

TEST_F(StaticWidgetTest, ABadgeShowsItsSign) {
    // A sign and two digits are 17 pixels wide: the body at 4 to 20, the right cap around (20, 5).
    draw(orvel_widget_badge(on(30, 12), &theme_, 0, 0, -12));
    EXPECT_EQ(row(0, 0, 29), ".....A..............A.........");
    EXPECT_EQ(row(8, 0, 29), ".AAAAAAAAAAAAAAAAAAAAAAAA.....");
    EXPECT_EQ(row(9, 0, 29), "..AAAAAAA........AAAAAAA......");
    EXPECT_EQ(at(25, 5), 'A');
    EXPECT_EQ(at(26, 5), '.');
}

TEST_F(StaticWidgetTest, ABadgeWritesItsNumber) {
    draw(orvel_widget_badge(on(20, 12), &theme_, 0, 0, 7));
    // The cell of 7 stands at (4, 1). Its rows are 01 71 09 05 03 36 49, five bits of each.
    EXPECT_EQ(row(1, 4, 8), "AAAAB");
    EXPECT_EQ(row(2, 4, 8), "BAAAB");
    EXPECT_EQ(row(3, 4, 8), "ABAAB");
    EXPECT_EQ(row(4, 4, 8), "AABAB");
    EXPECT_EQ(row(5, 4, 8), "AAABB");
    EXPECT_EQ(row(6, 4, 8), "BABBA");
    EXPECT_EQ(row(7, 4, 8), "ABAAB");
}

TEST_F(StaticWidgetTest, TheDotsOfATitleBarAreTheSameInEveryTheme) {
    for (const auto fill : {orvel_theme_default, orvel_theme_light}) {
        fill(&theme_);
        draw(orvel_widget_titlebar(on(60, 16), &theme_, "", 0, 0, 60, 16));
        const orvel_canvas* c = canvas_.get();
        EXPECT_EQ(orvel_canvas_pixel_get(c, 40, 8), (orvel_color{0xF3, 0x8B, 0xA8, 255}));
        EXPECT_EQ(orvel_canvas_pixel_get(c, 48, 8), (orvel_color{0xF9, 0xE2, 0xAF, 255}));
        EXPECT_EQ(orvel_canvas_pixel_get(c, 56, 8), (orvel_color{0xA6, 0xE3, 0xA1, 255}));
    }
}

TEST_F(StaticWidgetTest, ATitleBarHasThreeDotsOfRadiusThree) {
    draw(orvel_widget_titlebar(on(40, 13), &theme_, "!", 0, 0, 40, 13));
    EXPECT_EQ(row(6, 0, 39), "#ssssssssssssssss1111111s2222222s3333333");
    EXPECT_EQ(row(5, 0, 39), "#sstttttssssssssss11111sss22222sss33333#");
    EXPECT_EQ(row(3, 0, 39), "#sssssssssssssssssss1sssssss2sssssss3ss#");
    EXPECT_EQ(row(9, 0, 39), "#sssstttssssssssssss1sssssss2sssssss3ss#");
}

TEST_F(StaticWidgetTest, ASearchFieldReactsToActiveAndNotToHover) {
    orvel_widget* search = orvel_widget_search(on(30, 14), &theme_, "", 0, 0, 30, 14);
    orvel_widget_set_hover(search, 1);
    orvel_widget_draw(search);
    EXPECT_EQ(row(0, 0, 29), std::string(30, '#'));
    orvel_widget_set_active(search, 1);
    draw(search);
    EXPECT_EQ(row(0, 0, 29), std::string(30, 'A'));
}

TEST_F(StaticWidgetTest, ASearchFieldHasTheMagnifierInItsSquareAndItsTextBeside) {
    draw(orvel_widget_search(on(30, 14), &theme_, "!", 0, 0, 30, 14));
    const auto expected = make_canvas(30, 14);
    orvel_canvas_fill_rect(expected.get(), 0, 0, 30, 14, theme_.surface);
    orvel_canvas_rect(expected.get(), 0, 0, 30, 14, theme_.border);
    orvel_draw_icon(expected.get(), "search", 2, 2, 10, theme_.border);
    orvel_canvas_line(expected.get(), 16, 5, 20, 5, theme_.text);
    orvel_canvas_line(expected.get(), 18, 9, 20, 9, theme_.text);
    EXPECT_EQ(drawn(), picture(expected.get(), theme_letters(theme_)));
}

TEST_F(StaticWidgetTest, ATooltipHasAPointerOfThreeRows) {
    draw(orvel_widget_tooltip(on(12, 17), &theme_, "", 2, 2));
    EXPECT_EQ(drawn(),
              "............\n"
              "............\n"
              "..########..\n"
              "..#ssssss#..\n"
              "..#ssssss#..\n"
              "..#ssssss#..\n"
              "..#ssssss#..\n"
              "..#ssssss#..\n"
              "..#ssssss#..\n"
              "..#ssssss#..\n"
              "..#ssssss#..\n"
              "..########..\n"
              "...sssssss..\n"
              ".....sss....\n"
              "......s.....\n"
              "............\n"
              "............\n");
}

TEST_F(StaticWidgetTest, TheTextOfATooltipStandsTwoRowsDown) {
    draw(orvel_widget_tooltip(on(13, 13), &theme_, "!", 0, 0));
    EXPECT_EQ(row(4, 0, 12), "#ssstttttsss#");
    EXPECT_EQ(row(8, 0, 12), "#ssssstttsss#");
}

}  // namespace
