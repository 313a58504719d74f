// The interactive screen without a window: what is where, and what input does.
#include "live_screen.h"

#include <gtest/gtest.h>

#include <string>

#include "support/picture.h"

namespace {

using orvel_test::CanvasPtr;
using orvel_test::checksum;
using orvel_test::make_canvas;

class LiveScreen : public ::testing::Test {
protected:
    LiveScreen() { screen_open(&s); }

    void click(target what) {
        const kit_box at = place(&s, what);
        screen_press(&s, at.x + at.w / 2, at.y + at.h / 2);
        screen_release(&s);
    }

    plant& chosen() { return s.plants[s.selected]; }

    screen s;
};

TEST_F(LiveScreen, TheTargetUnderThePointerIsHotUntilItLeaves) {
    screen_move(&s, 250, 282);
    EXPECT_EQ(s.hot, WATER);
    screen_move(&s, 369, 309);
    EXPECT_EQ(s.hot, WATER) << "its last pixel";
    screen_move(&s, 370, 309);
    EXPECT_EQ(s.hot, NOTHING);
    screen_move(&s, -1, -1);
    EXPECT_EQ(s.hot, NOTHING);
}

TEST_F(LiveScreen, NoTwoTargetsOverlap) {
    for (s.tab = 0; s.tab < TABS; ++s.tab) {
        for (target what = NOTHING + 1; what < TARGETS; ++what) {
            const kit_box at = place(&s, what);
            if (at.w == 0) continue;
            screen_move(&s, at.x + at.w / 2, at.y + at.h / 2);
            EXPECT_EQ(s.hot, what);
        }
    }
}

TEST_F(LiveScreen, AButtonIsHeldUntilTheReleaseWhereverThatIs) {
    const kit_box at = place(&s, WATER);
    screen_press(&s, at.x, at.y);
    EXPECT_EQ(s.held, WATER);
    screen_move(&s, 0, 0);
    EXPECT_EQ(s.held, WATER);
    screen_release(&s);
    EXPECT_EQ(s.held, NOTHING);
}

TEST_F(LiveScreen, TheSliderFollowsThePointerBeyondItsEnds) {
    const kit_box at = place(&s, SLIDER);
    screen_press(&s, at.x + at.w / 2, at.y + 4);
    EXPECT_EQ(chosen().humidity, 0.5);
    screen_move(&s, at.x - 100, 400);
    EXPECT_EQ(chosen().humidity, 0);
    screen_move(&s, 10000, 0);
    EXPECT_EQ(chosen().humidity, 1);
    screen_release(&s);
    screen_move(&s, at.x, at.y);
    EXPECT_EQ(chosen().humidity, 1) << "a pointer that passes drags nothing";
}

TEST_F(LiveScreen, EachControlChangesThePlantThatIsSelected) {
    click(ROW + 1);
    EXPECT_STREQ(chosen().name, "Basil");
    click(FAN);
    click(ALERT);
    click(PLUS);
    click(PLUS);
    click(MINUS);
    click(WATER);
    EXPECT_EQ(chosen().fan, 1);
    EXPECT_EQ(chosen().alert, 1);
    EXPECT_EQ(chosen().degrees, 22);
    EXPECT_EQ(chosen().waterings, 1);
    click(TAB + 1);
    click(FEED + 2);
    EXPECT_EQ(chosen().feed, 2);
    EXPECT_EQ(s.plants[0].degrees, 22) << "the first plant stays as it was";
    EXPECT_EQ(s.plants[0].waterings, 0);
}

TEST_F(LiveScreen, TheStepperStopsAtItsEnds) {
    for (int i = 0; i < 50; ++i) click(PLUS);
    EXPECT_EQ(chosen().degrees, 40);
    for (int i = 0; i < 50; ++i) click(MINUS);
    EXPECT_EQ(chosen().degrees, 5);
}

TEST_F(LiveScreen, AnEmptyTankWatersNothingUntilItIsRefilled) {
    for (int i = 0; i < 20; ++i) click(WATER);
    EXPECT_LE(chosen().waterings, 8);
    EXPECT_GE(s.tank, 0);
    const int waterings = chosen().waterings;
    click(REFILL);
    click(WATER);
    EXPECT_EQ(chosen().waterings, waterings + 1);
}

TEST_F(LiveScreen, TheSearchLeavesOutRowsAndIgnoresCase) {
    click(SEARCH);
    screen_type(&s, "L");
    screen_type(&s, "i");
    EXPECT_EQ(plant_in_row(&s, 0), 3) << "Seedlings";
    EXPECT_EQ(plant_in_row(&s, 1), -1);
    EXPECT_EQ(place(&s, ROW + 1).w, 0) << "a row that does not show cannot be hit";
    click(ROW);
    EXPECT_STREQ(chosen().name, "Seedlings");
    EXPECT_EQ(s.focus, NOTHING);
}

TEST_F(LiveScreen, ABackspaceTakesAWholeCharacter) {
    click(TAB + 1);
    click(NOTE);
    chosen().note[0] = '\0';
    screen_type(&s, "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8C\xB1");
    for (const char* left : {"a\xC3\xA9\xE2\x82\xAC", "a\xC3\xA9", "a", "", ""}) {
        screen_backspace(&s);
        EXPECT_STREQ(chosen().note, left);
    }
}

TEST_F(LiveScreen, AFieldThatIsFullTakesNoMore) {
    click(SEARCH);
    for (int i = 0; i < 100; ++i) screen_type(&s, "\xC3\xA9");
    EXPECT_EQ(std::string(s.search).size(), 18u) << "19 bytes would cut a character";
}

TEST_F(LiveScreen, TheKeyboardWritesNowhereWithoutAFocus) {
    screen_type(&s, "x");
    screen_backspace(&s);
    EXPECT_STREQ(s.search, "");
    screen_tab(&s);
    EXPECT_EQ(s.focus, SEARCH);
    screen_tab(&s);
    EXPECT_EQ(s.focus, SEARCH) << "the note shows on its tab alone";
    s.tab = 1;
    screen_tab(&s);
    EXPECT_EQ(s.focus, NOTE);
    screen_leave(&s);
    EXPECT_EQ(s.focus, NOTHING);
}

TEST_F(LiveScreen, EveryPressOfATargetIsHeard) {
    click(THEME);
    EXPECT_EQ(s.tone, 1320);
    click(REFILL);
    EXPECT_EQ(s.tone, 660);
    s.tone = 0;
    screen_press(&s, 1, 470);
    EXPECT_EQ(s.tone, 0) << "nothing was hit";
}

TEST_F(LiveScreen, TheChartMovesAndStaysInItsRange) {
    const double before = s.history[HISTORY - 1];
    for (int i = 0; i < 4; ++i) screen_tick(&s);
    EXPECT_EQ(s.history[HISTORY - 2], before);
    for (int i = 0; i < 10000; ++i) {
        screen_tick(&s);
        ASSERT_GT(s.history[HISTORY - 1], 0.3);
        ASSERT_LT(s.history[HISTORY - 1], 0.9);
    }
}

TEST_F(LiveScreen, DrawingChangesNothingAndDependsOnTheStateAlone) {
    const CanvasPtr canvas = make_canvas(SCREEN_W, SCREEN_H);
    page p = {canvas.get(), {}};
    screen_draw(&s, &p, "status");
    const auto first = checksum(p.canvas);
    screen_draw(&s, &p, "status");
    EXPECT_EQ(checksum(p.canvas), first);
    click(THEME);
    screen_draw(&s, &p, "status");
    EXPECT_NE(checksum(p.canvas), first);
    click(THEME);
    screen_move(&s, -1, -1);
    screen_draw(&s, &p, "status");
    EXPECT_EQ(checksum(p.canvas), first);
}

}  // namespace
