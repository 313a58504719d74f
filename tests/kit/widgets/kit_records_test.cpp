// What kit_draw() and kit_size() make of odd records and of memory that runs out.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <string>
#include <utility>

#include "kit/widgets/kit_samples.h"
#include "system/allocations.h"
#include "widgets/distinct_theme.h"

namespace {

using namespace orvel_test;

class KitRecordsTest : public testing::Test {
protected:
    int draw(const kit_widget& widget) { return kit_draw(canvas_.get(), theme_, widget); }
    bool untouched() const {
        return checksum(canvas_.get()) == checksum(make_canvas(100, 60).get());
    }

    CanvasPtr canvas_ = make_canvas(100, 60);
    orvel_theme theme_ = distinct_theme();
};

TEST_F(KitRecordsTest, NullIsRefused) {
    const kit_widget widget = {.kind = ORVEL_WIDGET_PANEL, .box = {0, 0, 10, 10}};
    EXPECT_EQ(kit_draw(nullptr, &theme_, &widget), -1);
    EXPECT_EQ(kit_draw(canvas_.get(), nullptr, &widget), -1);
    EXPECT_EQ(kit_draw(canvas_.get(), &theme_, nullptr), -1);
    EXPECT_TRUE(untouched());
    int w = 5, h = 5;
    EXPECT_EQ(kit_size(nullptr, &w, &h), -1);
    EXPECT_EQ(w, 0);
    EXPECT_EQ(h, 0);
    EXPECT_EQ(kit_size(&widget, nullptr, nullptr), 0);
}

TEST_F(KitRecordsTest, UnknownKindsAndNegativeSizesAreRefused) {
    for (const int kind : {-1, 28, INT_MIN, INT_MAX}) {
        const kit_widget widget = {.kind = kind, .box = {0, 0, 10, 10}, .text = "x"};
        EXPECT_EQ(draw(widget), -1);
        int w = 5, h = 5;
        EXPECT_EQ(kit_size(&widget, &w, &h), -1);
        EXPECT_EQ(w, 0);
        EXPECT_EQ(h, 0);
    }
    for (kit_widget widget : usual_widgets()) {
        for (const int side : {-1, INT_MIN}) {
            widget.box = {0, 0, side, 10};
            EXPECT_EQ(draw(widget), -1) << name_of_kind(widget.kind);
            widget.box = {0, 0, 10, side};
            EXPECT_EQ(draw(widget), -1) << name_of_kind(widget.kind);
        }
    }
    EXPECT_TRUE(untouched());
}

TEST_F(KitRecordsTest, NamesThatNothingHasAreTold) {
    EXPECT_EQ(draw({.kind = ORVEL_WIDGET_ICON, .text = "nothing"}), -1);
    EXPECT_EQ(draw({.kind = ORVEL_WIDGET_ICON}), -1);
    EXPECT_EQ(draw({.kind = ORVEL_WIDGET_IMAGE, .text = "nothing"}), -1);
    EXPECT_EQ(draw({.kind = ORVEL_WIDGET_IMAGE}), -1);
    EXPECT_TRUE(untouched());
    // The rest of the widget is drawn all the same.
    EXPECT_EQ(draw({.kind = ORVEL_WIDGET_BUTTON, .text = "x", .icon = "nothing"}), -1);
    EXPECT_FALSE(untouched());
}

TEST_F(KitRecordsTest, OffTheCanvasAMissingNameIsToldOfImagesWhoseOwnSizeCounts) {
    for (const int x : {-1000, 0, 1000}) {
        for (const auto& [w, h] : {std::pair{0, 0}, {10, 0}, {0, 10}}) {
            for (const char* name : {static_cast<const char*>(nullptr), "", "nothing"}) {
                const kit_widget image = {
                    .kind = ORVEL_WIDGET_IMAGE, .box = {x, 0, w, h}, .text = name};
                EXPECT_EQ(draw(image), -1) << x << ' ' << w << ' ' << h;
            }
        }
        const int shown = x == 0 ? -1 : 0;
        for (const int kind : {ORVEL_WIDGET_IMAGE, ORVEL_WIDGET_ICON}) {
            EXPECT_EQ(draw({.kind = kind, .box = {x, 0, 10, 10}, .text = "nothing"}), shown);
        }
    }
    EXPECT_TRUE(untouched());
}

TEST_F(KitRecordsTest, BeyondAnEdgeNothingIsDrawnAndOnTheLastPixelSomething) {
    for (const kit_box& beyond :
         {kit_box{100, 20, 9, 9}, {-9, 20, 9, 9}, {20, 60, 9, 9}, {20, -9, 9, 9}}) {
        EXPECT_EQ(draw({.kind = ORVEL_WIDGET_PANEL, .box = beyond}), 0);
        EXPECT_TRUE(untouched()) << beyond.x << ' ' << beyond.y;
    }
    for (const kit_box& last :
         {kit_box{99, 20, 9, 9}, {-8, 20, 9, 9}, {20, 59, 9, 9}, {20, -8, 9, 9}}) {
        EXPECT_EQ(draw({.kind = ORVEL_WIDGET_PANEL, .box = last}), 0);
        EXPECT_FALSE(untouched()) << last.x << ' ' << last.y;
        orvel_canvas_clear(canvas_.get(), orvel_color{0, 0, 0, 255});
    }
}

TEST_F(KitRecordsTest, ARatingLowerThan16PixelsHasTheSizeOfTheLibrarysOwn) {
    const auto size = [](int height) {
        const kit_widget rating = {.kind = ORVEL_WIDGET_RATING, .box = {0, 0, 0, height}};
        int w = 0, h = 0;
        EXPECT_EQ(kit_size(&rating, &w, &h), 0);
        return std::pair{w, h};
    };
    EXPECT_EQ(size(1), (std::pair{50, 1}));
    EXPECT_EQ(size(15), (std::pair{50, 15}));
    EXPECT_EQ(size(16), (std::pair{68, 16}));  // five stars of 10, four gaps of 3, and 6
    EXPECT_EQ(size(17), (std::pair{73, 17}));
}

TEST_F(KitRecordsTest, NegativeSidesWantWhatNoneWant) {
    for (kit_widget widget : usual_widgets()) {
        int w = 0, h = 0, width = 0, height = 0;
        widget.box = {0, 0, 0, 0};
        EXPECT_EQ(kit_size(&widget, &w, &h), 0);
        widget.box = {0, 0, -5, INT_MIN};
        EXPECT_EQ(kit_size(&widget, &width, &height), 0);
        EXPECT_EQ(width, w) << name_of_kind(widget.kind);
        EXPECT_EQ(height, h) << name_of_kind(widget.kind);
    }
}

TEST_F(KitRecordsTest, BarsWithoutValuesAreEmptyWhateverTheirCount) {
    const double value = 0.5;
    kit_widget bars = {.kind = ORVEL_WIDGET_BARS, .box = {0, 0, 40, 30}};
    EXPECT_EQ(draw(bars), 0);
    const auto empty = checksum(canvas_.get());
    for (const int count : {INT_MIN, -1, 0, 1, INT_MAX}) {
        bars.count = count;
        bars.data = count < 1 ? &value : nullptr;
        EXPECT_EQ(draw(bars), 0) << count;
        EXPECT_EQ(checksum(canvas_.get()), empty) << count;
    }
}

TEST_F(KitRecordsTest, RecordsOfZerosAreDrawn) {
    for (int kind = 0; kind < kKinds; ++kind) {
        const bool named = kind == ORVEL_WIDGET_ICON || kind == ORVEL_WIDGET_IMAGE;
        EXPECT_EQ(draw({.kind = kind}), named ? -1 : 0) << name_of_kind(kind);
    }
}

TEST_F(KitRecordsTest, BoxesAtTheLimitsOfIntAreDrawn) {
    constexpr int kPlaces[] = {INT_MIN, INT_MIN / 2, -70000, -20, 0, 20, 70000, INT_MAX};
    constexpr int kSides[] = {1, 9, 30, 70000, INT_MAX};
    for (const int place : kPlaces) {
        for (const int side : kSides) {
            for (kit_widget widget : usual_widgets()) {
                if (widget.kind == ORVEL_WIDGET_IMAGE) continue;
                widget.state = KIT_FOCUS | KIT_ACTIVE;
                widget.box = {place, 10, side, 30};
                EXPECT_EQ(draw(widget), 0) << name_of_kind(widget.kind);
                widget.box = {10, place, 30, side};
                EXPECT_EQ(draw(widget), 0) << name_of_kind(widget.kind);
            }
        }
    }
}

TEST_F(KitRecordsTest, FarToTheRightAndFarBelowAWidgetLooksAsItDoesNear) {
    constexpr int kFar = 8500, kSide = 30;
    const CanvasPtr near = make_canvas(kSide, kSide);
    const CanvasPtr right = make_canvas(kFar + kSide, kSide),
                    below = make_canvas(kSide, kFar + kSide);
    for (kit_widget widget : usual_widgets()) {
        if (widget.kind == ORVEL_WIDGET_IMAGE) continue;
        for (orvel_canvas* canvas : {near.get(), right.get(), below.get()}) {
            orvel_canvas_clear(canvas, theme_.background);
        }
        widget.box = {0, 0, kSide, kSide};
        EXPECT_EQ(kit_draw(near.get(), theme_, widget), 0);
        widget.box.x = kFar;
        EXPECT_EQ(kit_draw(right.get(), theme_, widget), 0);
        widget.box = {0, kFar, kSide, kSide};
        EXPECT_EQ(kit_draw(below.get(), theme_, widget), 0);
        for (int y = 0; y < kSide; ++y) {
            for (int x = 0; x < kSide; ++x) {
                const orvel_color seen = orvel_canvas_pixel_get(near.get(), x, y);
                ASSERT_EQ(seen, orvel_canvas_pixel_get(right.get(), kFar + x, y))
                    << name_of_kind(widget.kind);
                ASSERT_EQ(seen, orvel_canvas_pixel_get(below.get(), x, kFar + y))
                    << name_of_kind(widget.kind);
            }
        }
    }
}

TEST_F(KitRecordsTest, StatesOfEveryBitAreDrawn) {
    for (kit_widget widget : usual_widgets()) {
        if (widget.kind == ORVEL_WIDGET_IMAGE) continue;
        widget.state = UINT_MAX;
        EXPECT_EQ(draw(widget), 0) << name_of_kind(widget.kind);
    }
}

TEST_F(KitRecordsTest, OddNumbersAreDrawn) {
    for (kit_widget widget : usual_widgets()) {
        if (widget.kind == ORVEL_WIDGET_IMAGE) continue;
        widget.state = KIT_FOCUS;
        for (const double value : {double{NAN}, double{INFINITY}, -double{INFINITY}, -1.0, 1e300}) {
            const double data[] = {value, 0.5, value};
            widget.value = value;
            widget.data = data;
            widget.count = 3;
            EXPECT_EQ(draw(widget), 0);
        }
        widget.data = nullptr;
        for (const int number : {INT_MIN, -1, 0, 1, INT_MAX}) {
            widget.amount = widget.count = widget.caret = number;
            widget.anchor = -1 - number;
            EXPECT_EQ(draw(widget), 0);
        }
    }
}

TEST_F(KitRecordsTest, TextsOfAMillionBytesAreDrawn) {
    for (const auto& [piece, length] : {std::pair{'W', 1000000}, {'|', 200000}, {'\xFF', 50000}}) {
        const std::string text(static_cast<std::size_t>(length), piece);
        for (kit_widget widget : usual_widgets()) {
            const bool named =
                widget.kind == ORVEL_WIDGET_ICON || widget.kind == ORVEL_WIDGET_IMAGE;
            widget.state = KIT_FOCUS;
            widget.text = text.c_str();
            widget.caret = length / 2;
            EXPECT_EQ(draw(widget), named ? -1 : 0) << name_of_kind(widget.kind);
        }
    }
}

TEST_F(KitRecordsTest, OfADisabledTitleBarTheDotsAreMixedToo) {
    draw({.kind = ORVEL_WIDGET_TITLEBAR, .box = {0, 0, 60, 20}, .state = KIT_DISABLED});
    EXPECT_EQ(orvel_canvas_pixel_get(canvas_.get(), 40, 10),
              kit_mix({0xF3, 0x8B, 0xA8, 255}, theme_.background, 50));
}

TEST_F(KitRecordsTest, TheRingOfAButtonShowsOnTheAccent) {
    theme_.button = theme_.button_hover = theme_.accent;
    kit_widget widget = {.kind = ORVEL_WIDGET_BUTTON, .box = {10, 10, 60, 24}, .text = "Save"};
    draw(widget);
    const auto plain = checksum(canvas_.get());
    widget.state = KIT_FOCUS;
    draw(widget);
    EXPECT_NE(checksum(canvas_.get()), plain);
}

TEST_F(KitRecordsTest, DisabledWidgetsShowNeitherHoverNorFocus) {
    for (kit_widget widget : usual_widgets()) {
        widget.state = KIT_DISABLED;
        canvas_ = make_canvas(200, 60);
        draw(widget);
        const auto disabled = checksum(canvas_.get());
        widget.state = KIT_DISABLED | KIT_HOVER | KIT_FOCUS;
        canvas_ = make_canvas(200, 60);
        draw(widget);
        EXPECT_EQ(checksum(canvas_.get()), disabled) << name_of_kind(widget.kind);
    }
}

TEST_F(KitRecordsTest, WhatCanBeUsedShowsItsFocus) {
    constexpr int kUsed[] = {ORVEL_WIDGET_BUTTON,   ORVEL_WIDGET_TOGGLE,    ORVEL_WIDGET_CHECKBOX,
                             ORVEL_WIDGET_SLIDER,   ORVEL_WIDGET_TEXTBOX,   ORVEL_WIDGET_RADIO,
                             ORVEL_WIDGET_DROPDOWN, ORVEL_WIDGET_RATING,    ORVEL_WIDGET_STEPPER,
                             ORVEL_WIDGET_TABS,     ORVEL_WIDGET_LIST_ITEM, ORVEL_WIDGET_MENU,
                             ORVEL_WIDGET_SEARCH};
    for (const int kind : kUsed) {
        for (const unsigned on : {0u, unsigned{KIT_ACTIVE}}) {
            kit_widget widget = usual_widgets()[static_cast<std::size_t>(kind)];
            widget.text = "";
            widget.hint = nullptr;
            widget.box.w = 60;
            widget.state = on;
            canvas_ = make_canvas(100, 60);
            draw(widget);
            const auto plain = checksum(canvas_.get());
            widget.state = on | KIT_FOCUS;
            canvas_ = make_canvas(100, 60);
            draw(widget);
            EXPECT_NE(checksum(canvas_.get()), plain) << name_of_kind(kind) << ' ' << on;
        }
    }
}

TEST_F(KitRecordsTest, MemoryThatRunsOutIsToldAndNothingLeaks) {
    long failed = 0;
    const std::string text(60, 'W');
    for (kit_widget widget : usual_widgets()) {
        if (widget.kind == ORVEL_WIDGET_IMAGE) continue;
        for (const int w : {2, 60}) {  // the narrow ones are drawn on a canvas of their own
            widget.box = {2, 2, w, 30};
            widget.state = KIT_FOCUS;
            if (widget.kind == ORVEL_WIDGET_TEXTBOX) widget.text = text.c_str();
            const long before = allocations_made(), live = allocations_live();
            EXPECT_EQ(draw(widget), 0) << name_of_kind(widget.kind);
            const long made = allocations_made() - before;
            for (long number = 1; number <= made; ++number, ++failed) {
                const FailingAllocation fail(number);
                EXPECT_EQ(draw(widget), -1) << name_of_kind(widget.kind) << ' ' << number;
                EXPECT_EQ(allocations_live(), live) << name_of_kind(widget.kind) << ' ' << number;
            }
        }
    }
    EXPECT_GT(failed, 50);
}

}  // namespace
