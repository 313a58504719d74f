// Without words, and at rest, a widget of the kit is the library's own where that has its room.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "kit/widgets/kit_samples.h"
#include "widgets/distinct_theme.h"
#include "widgets/kinds.h"

namespace {

using namespace orvel_test;

using Make = std::function<orvel_widget*(orvel_canvas*, const orvel_theme*, int, int)>;

class KitDesignTest : public testing::Test {
protected:
    CanvasPtr ground() const {
        CanvasPtr canvas = make_canvas(90, 60);
        orvel_canvas_clear(canvas.get(), {1, 2, 3, 255});
        return canvas;
    }

    /// Compares the record with what @p make draws at (7, 5), also hovered and active.
    void expect_same(kit_widget widget, const Make& make, unsigned states = 0) const {
        widget.box.x = 7;
        widget.box.y = 5;
        for (const unsigned state : {0u, unsigned{KIT_HOVER}, unsigned{KIT_ACTIVE}}) {
            if ((state & ~states) != 0) continue;
            const CanvasPtr ours = ground(), theirs = ground();
            widget.state = state;
            ASSERT_EQ(kit_draw(ours.get(), theme_, widget), 0);
            const WidgetPtr made(make(theirs.get(), &theme_, 7, 5));
            orvel_widget_set_hover(made.get(), (state & KIT_HOVER) != 0);
            orvel_widget_set_active(made.get(), (state & KIT_ACTIVE) != 0);
            orvel_widget_draw(made.get());
            EXPECT_EQ(picture(ours.get(), letters()), picture(theirs.get(), letters()))
                << name_of_kind(widget.kind) << ' ' << widget.box.w << " x " << widget.box.h
                << " state " << state;
        }
    }

    Palette letters() const {
        Palette all = theme_letters(theme_);
        all.push_back({' ', {1, 2, 3, 255}});
        return all;
    }

    orvel_theme theme_ = distinct_theme();
};

TEST_F(KitDesignTest, Frames) {
    for (const int h : {3, 12, 13, 40}) {
        expect_same(
            {.kind = ORVEL_WIDGET_PANEL, .box = {0, 0, 30, h}},
            [=](auto c, auto t, int x, int y) { return orvel_widget_panel(c, t, x, y, 30, h); });
        expect_same(
            {.kind = ORVEL_WIDGET_CARD, .box = {0, 0, 30, h}},
            [=](auto c, auto t, int x, int y) { return orvel_widget_card(c, t, x, y, 30, h); });
        expect_same({.kind = ORVEL_WIDGET_PROGRESS, .box = {0, 0, 50, h}, .value = 0.7},
                    [=](auto c, auto t, int x, int y) {
                        return orvel_widget_progress(c, t, x, y, 50, h, 0.7);
                    });
    }
    const double data[] = {0.1, 0.9, 0.4};
    expect_same({.kind = ORVEL_WIDGET_BARS, .box = {0, 0, 40, 20}, .data = data, .count = 3},
                [&](auto c, auto t, int x, int y) {
                    orvel_widget* made = orvel_widget_bars(c, t, x, y, 40, 20);
                    orvel_widget_set_data(made, data, 3);
                    return made;
                });
}

TEST_F(KitDesignTest, ButtonsAndFields) {
    for (const int h : {6, 11, 24}) {
        expect_same(
            {.kind = ORVEL_WIDGET_BUTTON, .box = {0, 0, 40, h}},
            [=](auto c, auto t, int x, int y) {
                return orvel_widget_button(c, t, "", x, y, 40, h);
            },
            KIT_HOVER);
        expect_same(
            {.kind = ORVEL_WIDGET_TOGGLE, .box = {0, 0, 40, h}},
            [=](auto c, auto t, int x, int y) { return orvel_widget_toggle(c, t, x, y, 40, h, 0); },
            KIT_ACTIVE);
        expect_same(
            {.kind = ORVEL_WIDGET_TEXTBOX, .box = {0, 0, 40, h}},
            [=](auto c, auto t, int x, int y) {
                return orvel_widget_textbox(c, t, "", x, y, 40, h);
            },
            KIT_HOVER | KIT_ACTIVE);
        expect_same(
            {.kind = ORVEL_WIDGET_DROPDOWN, .box = {0, 0, 40, h}},
            [=](auto c, auto t, int x, int y) {
                return orvel_widget_dropdown(c, t, "", x, y, 40, h, 0);
            },
            KIT_HOVER | KIT_ACTIVE);
    }
}

TEST_F(KitDesignTest, BarsAndLists) {
    expect_same(
        {.kind = ORVEL_WIDGET_TITLEBAR, .box = {0, 0, 70, 18}},
        [](auto c, auto t, int x, int y) { return orvel_widget_titlebar(c, t, "", x, y, 70, 18); },
        KIT_HOVER | KIT_ACTIVE);
    expect_same(
        {.kind = ORVEL_WIDGET_LIST_ITEM, .box = {0, 0, 70, 18}},
        [](auto c, auto t, int x, int y) {
            return orvel_widget_list_item(c, t, "", "", x, y, 70, 18, 0);
        },
        KIT_HOVER | KIT_ACTIVE);
    for (const int selected : {-1, 0, 1, 2}) {
        expect_same(
            {.kind = ORVEL_WIDGET_TABS, .box = {0, 0, 71, 18}, .text = "||", .amount = selected},
            [=](auto c, auto t, int x, int y) {
                return orvel_widget_tabs(c, t, "||", x, y, 71, 18, selected);
            });
        expect_same(
            {.kind = ORVEL_WIDGET_MENU, .box = {0, 0, 71, 18}, .text = "||", .amount = selected},
            [=](auto c, auto t, int x, int y) {
                return orvel_widget_menu(c, t, "||", x, y, 71, 18, selected);
            });
    }
}

TEST_F(KitDesignTest, WhatHasTheRoomOfTheLibrarysOwnSize) {
    for (const unsigned on : {0u, unsigned{KIT_ACTIVE}}) {
        kit_widget widget = {.kind = ORVEL_WIDGET_CHECKBOX, .box = {0, 0, 13, 9}, .state = on};
        expect_same(
            widget,
            [](auto c, auto t, int x, int y) { return orvel_widget_checkbox(c, t, "", x, y, 0); },
            KIT_ACTIVE);
        widget.kind = ORVEL_WIDGET_RADIO;
        expect_same(
            widget,
            [](auto c, auto t, int x, int y) { return orvel_widget_radio(c, t, "", x, y, 0); },
            KIT_ACTIVE);
    }
    expect_same({.kind = ORVEL_WIDGET_RATING, .box = {0, 0, 50, 10}, .value = 0.5},
                [](auto c, auto t, int x, int y) { return orvel_widget_rating(c, t, x, y, 0.5); });
    for (const int side : {8, 9, 15, 31}) {
        expect_same({.kind = ORVEL_WIDGET_ICON, .box = {0, 0, side, side}, .text = "mail"},
                    [=](auto c, auto t, int x, int y) {
                        return orvel_widget_icon(c, t, "mail", x, y, side);
                    });
    }
    for (const int side : {9, 15, 31}) {
        expect_same({.kind = ORVEL_WIDGET_AVATAR, .box = {0, 0, side, side}},
                    [=](auto c, auto t, int x, int y) {
                        return orvel_widget_avatar(c, t, "", x, y, side);
                    });
    }
}

// The library's knob and lines reach over the width that they are given.
TEST_F(KitDesignTest, WhatReachesOverItsWidthIsGivenLess) {
    for (const double value : {0.0, 0.3, 1.0}) {
        expect_same(
            {.kind = ORVEL_WIDGET_SLIDER, .box = {0, 0, 59, 9}, .value = value},
            [=](auto c, auto t, int x, int y) {
                return orvel_widget_slider(c, t, x + 4, y, 50, value);
            },
            KIT_HOVER);
        expect_same({.kind = ORVEL_WIDGET_SPINNER, .box = {0, 0, 29, 29}, .value = value},
                    [=](auto c, auto t, int x, int y) {
                        return orvel_widget_spinner(c, t, x + 2, y + 2, 24, value);
                    });
    }
    expect_same(
        {.kind = ORVEL_WIDGET_SEPARATOR, .box = {0, 0, 51, 1}},
        [](auto c, auto t, int x, int y) { return orvel_widget_separator(c, t, x, y, 50); });
}

}  // namespace
