// Controls, pixel by pixel.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>

#include "widgets/widget_drawing.h"

namespace {

using namespace orvel_test;

class ControlTest : public WidgetDrawing {};

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST_F(ControlTest, TheKnobOfAToggleSitsAtEitherEnd) {
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

TEST_F(ControlTest, ACheckboxIsABoxOfNineWithATick) {
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

TEST_F(ControlTest, ARadioButtonAlwaysHasItsDot) {
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

TEST_F(ControlTest, TheKnobOfASliderStandsOnTheEndOfTheFilledPart) {
    draw(orvel_widget_slider(on(120, 9), &theme_, 10, 0, 100, 0.25));
    // Around (35, 4) with radius 4; the track has the rows 3 to 5.
    EXPECT_EQ(row(0, 33, 37), "..A..");
    EXPECT_EQ(row(8, 33, 37), "..A..");
    EXPECT_EQ(row(4, 38, 41), "AA##");
    EXPECT_EQ(row(3, 8, 12), "..AAA");
    EXPECT_EQ(row(5, 8, 12), "..AAA");
    EXPECT_EQ(row(2, 8, 12), ".....");
    EXPECT_EQ(row(6, 8, 12), ".....");
    EXPECT_EQ(row(3, 107, 111), "###..");
}

TEST_F(ControlTest, ASliderAtZeroHasItsKnobAtTheStart) {
    for (const double value : {0.0, 0.009, -1.0, kNaN}) {
        draw(orvel_widget_slider(on(120, 9), &theme_, 10, 0, 100, value));
        EXPECT_EQ(row(4, 4, 17), "..AAAAAAAAA###") << value;
    }
}

TEST_F(ControlTest, AHoveredSliderHasItsKnobInTheHoverColour) {
    orvel_widget* slider = orvel_widget_slider(on(30, 9), &theme_, 5, 0, 20, 0.5);
    orvel_widget_set_hover(slider, 1);
    draw(slider);
    EXPECT_EQ(row(4, 0, 29), ".....AAAAAAhhhhhhhhh#####.....");
}

TEST_F(ControlTest, AProgressBarFillsFromTheSecondColumn) {
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

TEST_F(ControlTest, AFullProgressBarCoversTheRightColumnOfItsFrame) {
    draw(orvel_widget_progress(on(8, 5), &theme_, 1, 0, 6, 4, 1));
    EXPECT_EQ(drawn(),
              ".######.\n"
              ".#AAAAA.\n"
              ".#AAAAA.\n"
              ".######.\n"
              "........\n");
}

TEST_F(ControlTest, ADropDownHasAnArrowAtItsRightEnd) {
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

TEST_F(ControlTest, AnOpenDropDownDiffersByItsFrameAlone) {
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

TEST_F(ControlTest, TheDotOfASpinnerMovesClockwiseFromTheRight) {
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

TEST_F(ControlTest, ASpinnerOfNoNumberHasItsDotInTheMiddle) {
    draw(orvel_widget_spinner(on(20, 20), &theme_, 0, 0, 20, kNaN));
    EXPECT_EQ(row(10, 0, 19), "..#....AAAAAAA....#.");
}

TEST_F(ControlTest, ASpinnerTooSmallForARingStillHasItsDot) {
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

TEST_F(ControlTest, ARatingRoundsToWholeStarsHalvesUp) {
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

TEST_F(ControlTest, TheProductOfARatingIsRoundedExactly) {
    // The next double below 0.1 gives a product just below a half, which must not be rounded up by
    // adding a half to it.
    draw(orvel_widget_rating(on(50, 7), &theme_, 0, 0, 0.09999999999999999));
    EXPECT_EQ(at(2, 0), '#');
    draw(orvel_widget_rating(on(50, 7), &theme_, 0, 0, 5e-324));
    EXPECT_EQ(at(2, 0), '#');
}

TEST_F(ControlTest, AStarIsATriangleOverTwoBlocks) {
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

TEST_F(ControlTest, AStepperHasTwoSquaresWithTheirSigns) {
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

TEST_F(ControlTest, AStepperCentresItsNumberBetweenTheSquares) {
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

}  // namespace
