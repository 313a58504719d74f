#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "support/allocations.h"
#include "support/files.h"
#include "support/golden.h"
#include "support/widget_samples.h"
#include "widgets/split.h"
#include "widgets/widget.h"

namespace {

using namespace orvel_test;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Draws on a black canvas in nine distinct colours. The exclamation mark is the text of choice: of
/// its cell all of row 2 and the three right pixels of row 6 are set.
class WidgetDrawingTest : public testing::Test {
protected:
    /// A new, black canvas.
    orvel_canvas* on(int width, int height) {
        canvas_ = make_canvas(width, height);
        return canvas_.get();
    }

    /// Draws a widget and destroys it.
    void draw(orvel_widget* widget) {
        ASSERT_NE(widget, nullptr);
        orvel_widget_draw(widget);
        orvel_widget_destroy(widget);
    }

    std::string drawn() const { return picture(canvas_.get(), theme_letters(theme_)); }

    /// The letters of the row @p y from column @p from up to and including @p to.
    std::string row(int y, int from, int to) const {
        const std::size_t stride = static_cast<std::size_t>(orvel_canvas_width(canvas_.get())) + 1;
        return drawn().substr(static_cast<std::size_t>(y) * stride + static_cast<std::size_t>(from),
                              static_cast<std::size_t>(to - from + 1));
    }

    char at(int x, int y) const { return row(y, x, x)[0]; }

    CanvasPtr canvas_;
    orvel_theme theme_ = distinct_theme();
};

void expect_golden_samples(const std::string& file, const orvel_theme& theme) {
    for (const WidgetSample& sample : widget_samples()) {
        const auto canvas = make_canvas(sample.width, sample.height);
        const WidgetPtr widget(sample.make(canvas.get(), &theme));
        orvel_widget_draw(widget.get());
        expect_golden(file, sample.name, canvas.get(), theme_letters(theme));
    }
}

TEST(WidgetGoldenTest, EverySampleInDistinctColours) {
    expect_golden_samples("widgets_distinct.txt", distinct_theme());
}

TEST(WidgetGoldenTest, EverySampleInTheDarkTheme) {
    orvel_theme theme;
    orvel_theme_default(&theme);
    expect_golden_samples("widgets_dark.txt", theme);
}

TEST(WidgetGoldenTest, EverySampleInTheLightTheme) {
    orvel_theme theme;
    orvel_theme_light(&theme);
    expect_golden_samples("widgets_light.txt", theme);
}

// ---- Drawing as such

TEST_F(WidgetDrawingTest, AKindThatDoesNotExistDrawsNothing) {
    orvel_widget widget;
    widget.canvas = on(4, 2);
    widget.theme = &theme_;
    widget.text = "!";
    widget.w = widget.h = 4;
    widget.data = {1};
    for (const int kind : {28, -1, 29, 256, INT_MIN, INT_MAX}) {
        widget.kind = kind;
        orvel_widget_draw(&widget);
        EXPECT_EQ(drawn(), "....\n....\n") << kind;
    }
    widget.kind = 27;
    orvel_widget_draw(&widget);
    EXPECT_NE(drawn(), "....\n....\n");
}

TEST_F(WidgetDrawingTest, DrawingChangesNothingInTheWidget) {
    for (const WidgetSample& sample : widget_samples()) {
        const WidgetPtr widget(sample.make(on(80, 40), &theme_));
        orvel_widget before(*widget);
        orvel_widget_draw(widget.get());
        EXPECT_EQ(widget->kind, before.kind) << sample.name;
        EXPECT_EQ(widget->canvas, before.canvas) << sample.name;
        EXPECT_EQ(widget->theme, before.theme) << sample.name;
        EXPECT_EQ(widget->text, before.text) << sample.name;
        EXPECT_EQ(widget->icon_name, before.icon_name) << sample.name;
        EXPECT_EQ(std::memcmp(&widget->x, &before.x, 7 * sizeof(int)), 0) << sample.name;
        EXPECT_EQ(std::memcmp(&widget->value, &before.value, sizeof(double)), 0) << sample.name;
        EXPECT_EQ(widget->data.size(), before.data.size()) << sample.name;
    }
}

TEST_F(WidgetDrawingTest, TheThemeIsReadAtEveryDraw) {
    const WidgetPtr panel(orvel_widget_panel(on(3, 3), &theme_, 0, 0, 3, 3));
    orvel_widget_draw(panel.get());
    EXPECT_EQ(orvel_canvas_pixel_get(canvas_.get(), 1, 1), theme_.surface);
    orvel_theme_light(&theme_);
    orvel_widget_draw(panel.get());
    EXPECT_EQ(orvel_canvas_pixel_get(canvas_.get(), 1, 1), (orvel_color{230, 233, 239, 255}));
    EXPECT_EQ(orvel_canvas_pixel_get(canvas_.get(), 0, 0), (orvel_color{204, 208, 218, 255}));
}

TEST_F(WidgetDrawingTest, TheErrorColourIsNeverDrawn) {
    for (const WidgetSample& sample : widget_samples()) {
        draw(sample.make(on(sample.width, sample.height), &theme_));
        EXPECT_EQ(drawn().find('e'), std::string::npos) << sample.name;
    }
}

TEST_F(WidgetDrawingTest, OnlyTabsMenusAndImagesAllocate) {
    for (const WidgetSample& sample : widget_samples()) {
        const WidgetPtr widget(sample.make(on(80, 40), &theme_));
        if (widget->kind == ORVEL_WIDGET_IMAGE) continue;  // reads a file
        const bool splits = widget->kind == ORVEL_WIDGET_TABS || widget->kind == ORVEL_WIDGET_MENU;
        const long before = allocations_made();
        const long live = allocations_live();
        orvel_widget_draw(widget.get());
        EXPECT_EQ(allocations_made() > before, splits) << sample.name;
        EXPECT_EQ(allocations_live(), live) << sample.name;
    }
}

TEST_F(WidgetDrawingTest, ASplitThatCannotBeAllocatedLeaksNothing) {
    const WidgetPtr tabs(orvel_widget_tabs(on(80, 20), &theme_,
                                           "a caption that needs memory of its own|and another one",
                                           0, 0, 80, 20, 0));
    long made = allocations_made();
    orvel_widget_draw(tabs.get());
    made = allocations_made() - made;
    const long live = allocations_live();
    for (long number = 1; number <= made; ++number) {
        const FailingAllocation failing(number);
        EXPECT_THROW(orvel_widget_draw(tabs.get()), std::bad_alloc);
        EXPECT_EQ(allocations_live(), live);
    }
}

// ---- Frames and static kinds

TEST_F(WidgetDrawingTest, AWindowHasATitleBandOfTwelveRows) {
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

TEST_F(WidgetDrawingTest, TheTitleBandIsTwelveRowsHighWhateverTheWindowIs) {
    draw(orvel_widget_window(on(3, 14), &theme_, "", 0, 0, 2, 3));
    for (int y = 0; y < 12; ++y) EXPECT_EQ(row(y, 0, 2), "AA.") << y;
    EXPECT_EQ(row(12, 0, 2), "...");
}

TEST_F(WidgetDrawingTest, APanelIsASurfaceInAFrame) {
    draw(orvel_widget_panel(on(5, 4), &theme_, 1, 0, 4, 3));
    EXPECT_EQ(drawn(),
              ".####\n"
              ".#ss#\n"
              ".####\n"
              ".....\n");
}

TEST_F(WidgetDrawingTest, ALabelIsItsTextAlone) {
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

TEST_F(WidgetDrawingTest, AButtonCentresItsTextBothWays) {
    draw(orvel_widget_button(on(60, 20), &theme_, "!!", 0, 0, 60, 20));
    EXPECT_EQ(row(8, 22, 36), "uuxxxxxuxxxxxuu");
    EXPECT_EQ(row(12, 22, 36), "uuuuxxxuuuxxxuu");
    EXPECT_EQ(row(7, 22, 36), "uuuuuuuuuuuuuuu");
    EXPECT_EQ(row(0, 0, 3), "####");
    EXPECT_EQ(row(19, 56, 59), "####");
    EXPECT_EQ(row(10, 0, 1), "#u");
}

TEST_F(WidgetDrawingTest, AHoveredButtonHasItsOwnColour) {
    orvel_widget* button = orvel_widget_button(on(4, 3), &theme_, "", 0, 0, 4, 3);
    orvel_widget_set_hover(button, 1);
    draw(button);
    EXPECT_EQ(drawn(), "####\n#hh#\n####\n");
}

TEST_F(WidgetDrawingTest, ATextIsCentredByDivisionTowardZero) {
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

TEST_F(WidgetDrawingTest, ATextBoxReactsToHoverAndNotToActive) {
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

TEST_F(WidgetDrawingTest, TheTextOfATextBoxRunsPastItsEdge) {
    draw(orvel_widget_textbox(on(18, 7), &theme_, "!!", 0, 0, 8, 7));
    EXPECT_EQ(row(2, 0, 17), "#ssttttt.ttttt....");
}

TEST_F(WidgetDrawingTest, AnIconUpToEightPixelsHasNoMargin) {
    draw(orvel_widget_icon(on(14, 14), &theme_, "home", 2, 3, 8));
    const auto expected = make_canvas(14, 14);
    orvel_draw_icon(expected.get(), "home", 2, 3, 8, theme_.accent);
    EXPECT_EQ(drawn(), picture(expected.get(), theme_letters(theme_)));
}

TEST_F(WidgetDrawingTest, ALargerIconHasAMarginOfOne) {
    draw(orvel_widget_icon(on(14, 14), &theme_, "home", 2, 3, 9));
    const auto expected = make_canvas(14, 14);
    orvel_draw_icon(expected.get(), "home", 3, 4, 7, theme_.accent);
    EXPECT_EQ(drawn(), picture(expected.get(), theme_letters(theme_)));
}

TEST_F(WidgetDrawingTest, AnUnknownIconIsAFrame) {
    draw(orvel_widget_icon(on(5, 5), &theme_, "nothing", 1, 1, 3));
    EXPECT_EQ(drawn(),
              ".....\n"
              ".AAA.\n"
              ".A.A.\n"
              ".AAA.\n"
              ".....\n");
}

TEST_F(WidgetDrawingTest, AnIconWithoutASizeIsNothing) {
    draw(orvel_widget_icon(on(2, 2), &theme_, "home", 0, 0, 0));
    draw(orvel_widget_icon(canvas_.get(), &theme_, "home", 0, 0, -4));
    EXPECT_EQ(drawn(), "..\n..\n");
}

TEST_F(WidgetDrawingTest, AnImageIsDrawnAtItsOwnSize) {
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

TEST_F(WidgetDrawingTest, ASeparatorEndsOnePixelPastItsWidth) {
    draw(orvel_widget_separator(on(60, 3), &theme_, 0, 1, 50));
    EXPECT_EQ(row(1, 0, 59), std::string(51, '#') + std::string(9, '.'));
    EXPECT_EQ(row(0, 0, 59), std::string(60, '.'));
    EXPECT_EQ(row(2, 0, 59), std::string(60, '.'));
}

TEST_F(WidgetDrawingTest, ASeparatorOfNegativeWidthRunsToTheLeft) {
    draw(orvel_widget_separator(on(8, 1), &theme_, 5, 0, -3));
    EXPECT_EQ(drawn(), "..####..\n");
}

TEST_F(WidgetDrawingTest, AStatusBarHasATopRuleThatEndsOnePixelPastItsWidth) {
    draw(orvel_widget_statusbar(on(60, 9), &theme_, "!", 0, 0, 50, 7));
    EXPECT_EQ(row(0, 0, 59), std::string(51, '#') + std::string(9, '.'));
    EXPECT_EQ(row(1, 0, 59), std::string(50, 's') + std::string(10, '.'));
    EXPECT_EQ(row(2, 0, 10), "sssstttttss");
    EXPECT_EQ(row(6, 0, 10), "sssssstttss");
    EXPECT_EQ(row(7, 0, 59), std::string(60, '.'));
}

TEST_F(WidgetDrawingTest, ACardHasAStripeOverItsFrame) {
    draw(orvel_widget_card(on(7, 4), &theme_, 1, 0, 6, 4));
    EXPECT_EQ(drawn(),
              ".AAA###\n"
              ".AAAss#\n"
              ".AAAss#\n"
              ".AAA###\n");
}

TEST_F(WidgetDrawingTest, AnAvatarIsADiscInARing) {
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

TEST_F(WidgetDrawingTest, LongerInitialsExtendToTheRight) {
    draw(orvel_widget_avatar(on(24, 24), &theme_, "!!", 0, 0, 20));
    EXPECT_EQ(row(9, 6, 20), "AABBBBBABBBBBA#");
}

TEST_F(WidgetDrawingTest, ABadgeIsAsWideAsItsNumber) {
    // One digit is 5 pixels wide: the caps stand around (5, 5) and (8, 5), the body at 4 to 8.
    draw(orvel_widget_badge(on(20, 12), &theme_, 0, 0, 7));
    EXPECT_EQ(row(0, 0, 15), ".....A..A.......");
    EXPECT_EQ(row(10, 0, 15), ".....A..A.......");
    EXPECT_EQ(at(0, 5), 'A');
    EXPECT_EQ(at(13, 5), 'A');
    EXPECT_EQ(at(14, 5), '.');
    EXPECT_EQ(row(11, 0, 15), "................");
}

TEST_F(WidgetDrawingTest, ABadgeShowsItsSign) {
    // A sign and two digits are 17 pixels wide: the body at 4 to 20, the right cap around (20, 5).
    draw(orvel_widget_badge(on(30, 12), &theme_, 0, 0, -12));
    EXPECT_EQ(row(0, 0, 29), ".....A..............A.........");
    EXPECT_EQ(row(9, 0, 29), "..AAAAAAA........AAAAAAA......");
    EXPECT_EQ(at(25, 5), 'A');
    EXPECT_EQ(at(26, 5), '.');
}

TEST_F(WidgetDrawingTest, ABadgeWritesItsNumber) {
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

TEST_F(WidgetDrawingTest, TheDotsOfATitleBarAreTheSameInEveryTheme) {
    for (const auto fill : {orvel_theme_default, orvel_theme_light}) {
        fill(&theme_);
        draw(orvel_widget_titlebar(on(60, 16), &theme_, "", 0, 0, 60, 16));
        const orvel_canvas* c = canvas_.get();
        EXPECT_EQ(orvel_canvas_pixel_get(c, 40, 8), (orvel_color{0xF3, 0x8B, 0xA8, 255}));
        EXPECT_EQ(orvel_canvas_pixel_get(c, 48, 8), (orvel_color{0xF9, 0xE2, 0xAF, 255}));
        EXPECT_EQ(orvel_canvas_pixel_get(c, 56, 8), (orvel_color{0xA6, 0xE3, 0xA1, 255}));
    }
}

TEST_F(WidgetDrawingTest, ATitleBarHasThreeDotsOfRadiusThree) {
    draw(orvel_widget_titlebar(on(40, 13), &theme_, "!", 0, 0, 40, 13));
    EXPECT_EQ(row(6, 0, 39), "#ssssssssssssssss1111111s2222222s3333333");
    EXPECT_EQ(row(5, 0, 39), "#sstttttssssssssss11111sss22222sss33333#");
    EXPECT_EQ(row(3, 0, 39), "#sssssssssssssssssss1sssssss2sssssss3ss#");
    EXPECT_EQ(row(9, 0, 39), "#sssstttssssssssssss1sssssss2sssssss3ss#");
}

TEST_F(WidgetDrawingTest, ASearchFieldReactsToActiveAndNotToHover) {
    orvel_widget* search = orvel_widget_search(on(30, 14), &theme_, "", 0, 0, 30, 14);
    orvel_widget_set_hover(search, 1);
    orvel_widget_draw(search);
    EXPECT_EQ(row(0, 0, 29), std::string(30, '#'));
    orvel_widget_set_active(search, 1);
    draw(search);
    EXPECT_EQ(row(0, 0, 29), std::string(30, 'A'));
}

TEST_F(WidgetDrawingTest, ASearchFieldHasTheMagnifierInItsSquareAndItsTextBeside) {
    draw(orvel_widget_search(on(30, 14), &theme_, "!", 0, 0, 30, 14));
    const auto expected = make_canvas(30, 14);
    orvel_canvas_fill_rect(expected.get(), 0, 0, 30, 14, theme_.surface);
    orvel_canvas_rect(expected.get(), 0, 0, 30, 14, theme_.border);
    orvel_draw_icon(expected.get(), "search", 2, 2, 10, theme_.border);
    orvel_canvas_line(expected.get(), 16, 5, 20, 5, theme_.text);
    orvel_canvas_line(expected.get(), 18, 9, 20, 9, theme_.text);
    EXPECT_EQ(drawn(), picture(expected.get(), theme_letters(theme_)));
}

TEST_F(WidgetDrawingTest, ATooltipHasAPointerOfThreeRows) {
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

TEST_F(WidgetDrawingTest, TheTextOfATooltipStandsTwoRowsDown) {
    draw(orvel_widget_tooltip(on(13, 13), &theme_, "!", 0, 0));
    EXPECT_EQ(row(4, 0, 12), "#ssstttttsss#");
    EXPECT_EQ(row(8, 0, 12), "#ssssstttsss#");
}

// ---- Controls, lists and charts

TEST(SplitTest, PiecesAreWhatStandsBetweenTheBars) {
    using Pieces = std::vector<std::string>;
    EXPECT_EQ(orvel::split(""), Pieces{""});
    EXPECT_EQ(orvel::split("a|b"), (Pieces{"a", "b"}));
    EXPECT_EQ(orvel::split("a||b"), (Pieces{"a", "", "b"}));
    EXPECT_EQ(orvel::split("a|"), (Pieces{"a", ""}));
    EXPECT_EQ(orvel::split("|"), (Pieces{"", ""}));
    EXPECT_EQ(orvel::split("one, \xC3\xA9\n"), Pieces{"one, \xC3\xA9\n"});
}

TEST_F(WidgetDrawingTest, TheKnobOfAToggleSitsAtEitherEnd) {
    draw(orvel_widget_toggle(on(30, 14), &theme_, 0, 0, 30, 14, 0));
    // Around (7, 7) with radius 5, on a track in the colour of the frame.
    EXPECT_EQ(row(7, 0, 29), "##BBBBBBBBBBB#################");
    EXPECT_EQ(at(7, 2), 'B');
    EXPECT_EQ(at(7, 1), '#');
    EXPECT_EQ(at(7, 12), 'B');
    EXPECT_EQ(at(7, 13), '#');
    draw(orvel_widget_toggle(on(30, 14), &theme_, 0, 0, 30, 14, 1));
    // Around (23, 7).
    EXPECT_EQ(row(7, 0, 29), "#AAAAAAAAAAAAAAAAABBBBBBBBBBB#");
    EXPECT_EQ(at(23, 2), 'B');
    EXPECT_EQ(at(23, 1), 'A');
    EXPECT_EQ(at(0, 0), '#');
}

TEST_F(WidgetDrawingTest, ACheckboxIsABoxOfNineWithATick) {
    orvel_widget* box = orvel_widget_checkbox(on(20, 10), &theme_, "!", 0, 0, 1);
    draw(box);
    EXPECT_EQ(drawn(),
              "#########...........\n"
              "#.......A...........\n"
              "#......A#...........\n"
              "#......A#....ttttt..\n"
              "#.....A.#...........\n"
              "#A....A.#...........\n"
              "#.A..A..#...........\n"
              "#..A.A..#......ttt..\n"
              "####A####...........\n"
              "....................\n");
    draw(orvel_widget_checkbox(on(10, 3), &theme_, "", 0, 0, 0));
    EXPECT_EQ(drawn(), "#########.\n#.......#.\n#.......#.\n");
}

TEST_F(WidgetDrawingTest, ARadioButtonAlwaysHasItsDot) {
    draw(orvel_widget_radio(on(20, 9), &theme_, "!", 0, 0, 1));
    EXPECT_EQ(drawn(),
              "...###..............\n"
              "..#...#.............\n"
              ".#..A..#............\n"
              "#..AAA..#....ttttt..\n"
              "#.AAAAA.#...........\n"
              "#..AAA..#...........\n"
              ".#..A..#............\n"
              "..#...#........ttt..\n"
              "...###..............\n");
    draw(orvel_widget_radio(on(9, 9), &theme_, "", 0, 0, 0));
    EXPECT_EQ(row(4, 0, 8), "#.sssss.#");
}

TEST_F(WidgetDrawingTest, TheKnobOfASliderStandsOnTheEndOfTheFilledPart) {
    draw(orvel_widget_slider(on(120, 9), &theme_, 10, 0, 100, 0.25));
    // Around (35, 4) with radius 4; the track has the rows 3 to 5.
    EXPECT_EQ(row(0, 33, 37), "..A..");
    EXPECT_EQ(row(8, 33, 37), "..A..");
    EXPECT_EQ(row(4, 38, 41), "AA##");
    EXPECT_EQ(row(3, 8, 12), "..AAA");
    EXPECT_EQ(row(5, 8, 12), "..AAA");
    EXPECT_EQ(row(2, 8, 12), ".....");
    EXPECT_EQ(row(3, 107, 111), "###..");
}

TEST_F(WidgetDrawingTest, ASliderAtZeroHasItsKnobAtTheStart) {
    for (const double value : {0.0, 0.009, -1.0, kNaN}) {
        draw(orvel_widget_slider(on(120, 9), &theme_, 10, 0, 100, value));
        EXPECT_EQ(row(4, 4, 17), "..AAAAAAAAA###") << value;
    }
}

TEST_F(WidgetDrawingTest, AHoveredSliderHasItsKnobInTheHoverColour) {
    orvel_widget* slider = orvel_widget_slider(on(30, 9), &theme_, 5, 0, 20, 0.5);
    orvel_widget_set_hover(slider, 1);
    draw(slider);
    EXPECT_EQ(row(4, 0, 29), ".....AAAAAAhhhhhhhhh#####.....");
}

TEST_F(WidgetDrawingTest, AProgressBarFillsFromTheSecondColumn) {
    const struct {
        double value;
        int filled;
    } cases[] = {{0.5, 49}, {0.005, 0}, {0.01, 0}, {0.02, 1}, {0.29, 27}, {0, 0}, {kNaN, 0}};
    for (const auto& [value, filled] : cases) {
        draw(orvel_widget_progress(on(102, 5), &theme_, 0, 0, 100, 5, value));
        const auto fill = static_cast<std::size_t>(filled);
        EXPECT_EQ(row(2, 0, 101),
                  "#" + std::string(fill, 'A') + std::string(98 - fill, '.') + "#..")
            << value;
        EXPECT_EQ(row(0, 0, 101), std::string(100, '#') + "..") << value;
    }
}

TEST_F(WidgetDrawingTest, AFullProgressBarCoversTheRightColumnOfItsFrame) {
    draw(orvel_widget_progress(on(8, 5), &theme_, 1, 0, 6, 4, 1));
    EXPECT_EQ(drawn(),
              ".######.\n"
              ".#AAAAA.\n"
              ".#AAAAA.\n"
              ".######.\n"
              "........\n");
}

TEST_F(WidgetDrawingTest, ADropDownHasAnArrowAtItsRightEnd) {
    draw(orvel_widget_dropdown(on(20, 11), &theme_, "", 0, 0, 20, 11, 0));
    EXPECT_EQ(drawn(),
              "####################\n"
              "#ssssssssssssssssss#\n"
              "#ssssssssstttttttss#\n"
              "#sssssssssstttttsss#\n"
              "#ssssssssssstttssss#\n"
              "#ssssssssssstttssss#\n"
              "#sssssssssssstsssss#\n"
              "#sssssssssssstsssss#\n"
              "#ssssssssssssssssss#\n"
              "#ssssssssssssssssss#\n"
              "####################\n");
}

TEST_F(WidgetDrawingTest, AnOpenDropDownDiffersByItsFrameAlone) {
    orvel_widget* closed = orvel_widget_dropdown(on(30, 13), &theme_, "!", 0, 0, 30, 13, 0);
    orvel_widget_set_hover(closed, 1);
    draw(closed);
    EXPECT_EQ(row(5, 0, 9), "#sstttttss");
    std::string expected = drawn();
    for (char& letter : expected) {
        if (letter == '#') letter = 'A';
    }
    draw(orvel_widget_dropdown(on(30, 13), &theme_, "!", 0, 0, 30, 13, 1));
    EXPECT_EQ(drawn(), expected);
}

TEST_F(WidgetDrawingTest, TheDotOfASpinnerMovesClockwiseFromTheRight) {
    const struct {
        double value;
        int x, y;
    } cases[] = {{0, 18, 10}, {0.25, 10, 18}, {0.5, 2, 10}, {0.75, 10, 2}, {1, 18, 10}};
    for (const auto& [value, x, y] : cases) {
        // Drawn at (5, 5), so that the dot is whole.
        draw(orvel_widget_spinner(on(32, 32), &theme_, 5, 5, 20, value));
        const auto expected = make_canvas(32, 32);
        orvel_canvas_circle(expected.get(), 15, 15, 8, theme_.border);
        orvel_canvas_fill_circle(expected.get(), 5 + x, 5 + y, 3, theme_.accent);
        EXPECT_EQ(drawn(), picture(expected.get(), theme_letters(theme_))) << value;
    }
}

TEST_F(WidgetDrawingTest, ASpinnerOfNoNumberHasItsDotInTheMiddle) {
    draw(orvel_widget_spinner(on(20, 20), &theme_, 0, 0, 20, kNaN));
    EXPECT_EQ(row(10, 0, 19), "..#....AAAAAAA....#.");
}

TEST_F(WidgetDrawingTest, ASpinnerTooSmallForARingStillHasItsDot) {
    // The radius is -1: no ring. The dot moves by -1 and has the radius -1 / 3 + 1 = 1.
    draw(orvel_widget_spinner(on(7, 7), &theme_, 2, 2, 3, 0));
    EXPECT_EQ(drawn(),
              ".......\n"
              ".......\n"
              "..A....\n"
              ".AAA...\n"
              "..A....\n"
              ".......\n"
              ".......\n");
}

TEST_F(WidgetDrawingTest, ARatingRoundsToWholeStarsHalvesUp) {
    const struct {
        double value;
        const char* stars;
    } cases[] = {{0, "#####"},    {0.09, "#####"}, {0.1, "A####"},  {0.29, "A####"},
                 {0.3, "AA###"},  {0.5, "AAA##"},  {0.69, "AAA##"}, {0.7, "AAAA#"},
                 {0.89, "AAAA#"}, {0.9, "AAAAA"},  {1, "AAAAA"},    {kNaN, "#####"}};
    for (const auto& [value, stars] : cases) {
        draw(orvel_widget_rating(on(50, 7), &theme_, 0, 0, value));
        std::string found;
        for (int i = 0; i < 5; ++i) found += at(10 * i + 2, 0);
        EXPECT_EQ(found, stars) << value;
    }
}

TEST_F(WidgetDrawingTest, TheProductOfARatingIsRoundedExactly) {
    // The next double below 0.1 gives a product just below a half, which must not be rounded up by
    // adding a half to it.
    draw(orvel_widget_rating(on(50, 7), &theme_, 0, 0, 0.09999999999999999));
    EXPECT_EQ(at(2, 0), '#');
    draw(orvel_widget_rating(on(50, 7), &theme_, 0, 0, 5e-324));
    EXPECT_EQ(at(2, 0), '#');
}

TEST_F(WidgetDrawingTest, AStarIsATriangleOverTwoBlocks) {
    draw(orvel_widget_rating(on(16, 9), &theme_, 1, 1, 0.2));
    EXPECT_EQ(drawn(),
              "................\n"
              "...A.........#..\n"
              "...A.........#..\n"
              "..AAA.......###.\n"
              ".AAAAA.....#####\n"
              ".AAAAA.....#####\n"
              "..AAA.......###.\n"
              "..AAA.......###.\n"
              "................\n");
}

TEST_F(WidgetDrawingTest, AStepperHasTwoSquaresWithTheirSigns) {
    draw(orvel_widget_stepper(on(80, 16), &theme_, 0, 0, 80, 16, 42));
    EXPECT_EQ(row(0, 0, 79), std::string(16, '#') + std::string(48, '.') + std::string(16, '#'));
    EXPECT_EQ(row(15, 0, 79), row(0, 0, 79));
    EXPECT_EQ(row(3, 60, 68), "....#....");
    EXPECT_EQ(row(7, 0, 16), "#....ttttttt...#.");
    EXPECT_EQ(row(8, 0, 16), "#....ttttttt...#.");
    EXPECT_EQ(row(6, 0, 16), "#..............#.");
    EXPECT_EQ(row(9, 0, 16), "#..............#.");
    EXPECT_EQ(row(7, 64, 79), "#....ttttttt...#");
    EXPECT_EQ(row(5, 64, 79), "#......tt......#");
    EXPECT_EQ(row(11, 64, 79), "#......tt......#");
    EXPECT_EQ(row(4, 64, 79), "#..............#");
    EXPECT_EQ(row(12, 64, 79), "#..............#");
}

TEST_F(WidgetDrawingTest, AStepperCentresItsNumberBetweenTheSquares) {
    // 42 is 11 pixels wide: 16 + (80 - 43) / 2 = 34. In 40 pixels it is 16 + (40 - 43) / 2 = 15.
    for (const auto& [width, left] : {std::pair(80, 34), std::pair(40, 15)}) {
        draw(orvel_widget_stepper(on(80, 16), &theme_, 0, 0, width, 16, 42));
        const auto text = make_canvas(80, 16);
        orvel_text_draw(text.get(), "42", left, 4, theme_.text);
        for (int y = 4; y < 11; ++y) {
            for (int x = 17; x < width - 17; ++x) {
                EXPECT_EQ(orvel_canvas_pixel_get(canvas_.get(), x, y),
                          orvel_canvas_pixel_get(text.get(), x, y))
                    << x << ", " << y;
            }
        }
    }
}

TEST_F(WidgetDrawingTest, TheSelectedTabHasASurfaceAndOneVisibleAccentLine) {
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

TEST_F(WidgetDrawingTest, CaptionsAreCentredInTheirTabs) {
    draw(orvel_widget_tabs(on(40, 9), &theme_, "!|!", 0, 0, 40, 9, 0));
    // (20 - 5) / 2 = 7 in both; the second tab is not selected.
    EXPECT_EQ(row(3, 0, 39), "#ssssssAAAAAsssssss##......ttttt.......#");
}

TEST_F(WidgetDrawingTest, RemainingColumnsBesideTheTabsStayUntouched) {
    draw(orvel_widget_tabs(on(101, 9), &theme_, "a|b|c", 0, 0, 100, 9, 2));
    EXPECT_EQ(row(0, 0, 100), std::string(99, '#') + "..");
    EXPECT_EQ(row(5, 96, 100), "ss#..");
}

TEST_F(WidgetDrawingTest, AnAmountOutOfRangeSelectsNothing) {
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

TEST_F(WidgetDrawingTest, TabsWithoutTextAreOneEmptyTab) {
    draw(orvel_widget_tabs(on(5, 4), &theme_, "", 0, 0, 5, 4, 0));
    EXPECT_EQ(drawn(), "#####\n#AAA#\n#sss#\n#####\n");
}

TEST_F(WidgetDrawingTest, TheSelectedMenuItemIsHighlightedAndUnderlined) {
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

TEST_F(WidgetDrawingTest, AListItemWithoutAnIconStartsItsTextFourPixelsIn) {
    draw(orvel_widget_list_item(on(40, 16), &theme_, "!", "", 0, 0, 40, 16, 0));
    EXPECT_EQ(row(6, 0, 12), "#BBBtttttBBBB");
    EXPECT_EQ(row(10, 0, 12), "#BBBBBtttBBBB");
}

TEST_F(WidgetDrawingTest, AListItemWithAnIconStartsItsTextTwentyTwoPixelsIn) {
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

TEST_F(WidgetDrawingTest, ASelectedListItemIsHighlightedAndFramedInAccent) {
    draw(orvel_widget_list_item(on(14, 4), &theme_, "", "", 0, 0, 2, 4, 1));
    EXPECT_EQ(row(1, 0, 1), "AA");
    draw(orvel_widget_list_item(on(14, 4), &theme_, "", "", 0, 0, 3, 4, 1));
    EXPECT_EQ(row(1, 0, 2), "AhA");
}

TEST_F(WidgetDrawingTest, TheMarkerOfAListItemIsFivePixelsWide) {
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

TEST_F(WidgetDrawingTest, BarsStandTwoRowsAboveTheBottomOfTheirBox) {
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

TEST_F(WidgetDrawingTest, BarsWithoutDataDrawNothing) {
    draw(bars(on(3, 3), &theme_, 3, 3, {}));
    EXPECT_EQ(drawn(), "...\n...\n...\n");
}

TEST_F(WidgetDrawingTest, BarsOfNoNumberAndOfInfinity) {
    draw(bars(on(12, 6), &theme_, 12, 6, {kNaN, INFINITY, -INFINITY, 0.25}));
    EXPECT_EQ(drawn(),
              "############\n"
              "#..AA......#\n"
              "#..AA......#\n"
              "#..AA....AA#\n"
              "#..........#\n"
              "############\n");
}

TEST_F(WidgetDrawingTest, ManyBarsRunPastTheRightEdge) {
    draw(bars(on(16, 5), &theme_, 7, 5, {1, 1, 1, 1, 1, 1}));
    EXPECT_EQ(drawn(),
              "#######.A.A.....\n"
              "#.A.A.#.A.A.....\n"
              "#.A.A.#.A.A.....\n"
              "#.....#.........\n"
              "#######.........\n");
}

TEST_F(WidgetDrawingTest, APitchOfThreeIsTheLeastThatIsNotTwo) {
    draw(bars(on(8, 4), &theme_, 6, 4, {1, 1}));
    EXPECT_EQ(row(1, 0, 7), "#A.AA#..");
    draw(bars(on(8, 4), &theme_, 5, 4, {1, 1}));
    EXPECT_EQ(row(1, 0, 7), "#.A.#...");
}

TEST_F(WidgetDrawingTest, ABoxLowerThanItsBarsStillHasItsFrame) {
    draw(bars(on(6, 3), &theme_, 6, 2, {1, 1}));
    EXPECT_EQ(drawn(), "######\n######\n......\n");
}

}  // namespace
