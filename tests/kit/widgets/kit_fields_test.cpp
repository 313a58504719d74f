// Where text fields show their text, and what they keep showing.
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "kit/widgets/kit_samples.h"
#include "widgets/distinct_theme.h"

namespace {

using namespace orvel_test;

const std::string kLong(200, 'x');

kit_widget field(const char* text, int caret = 0, int scroll = 0) {
    kit_widget widget = {.kind = ORVEL_WIDGET_TEXTBOX, .box = {10, 10, 60, 24}, .text = text};
    widget.state = KIT_FOCUS;
    widget.caret = widget.anchor = caret;
    widget.scroll = scroll;
    return widget;
}

kit_widget with(kit_widget widget, int kit_widget::*member, int value) {
    widget.*member = value;
    return widget;
}

int scroll_of(const kit_widget& widget) { return kit_field(&widget, nullptr, nullptr); }

kit_box room_of(const kit_widget& widget) {
    kit_box room;
    kit_field(&widget, &room, nullptr);
    return room;
}

kit_box caret_of(const kit_widget& widget) {
    kit_box caret;
    kit_field(&widget, nullptr, &caret);
    return caret;
}

std::string written(const kit_box& box) {
    return std::to_string(box.x) + ',' + std::to_string(box.y) + ' ' + std::to_string(box.w) + 'x' +
           std::to_string(box.h);
}

TEST(KitFieldsTest, TheRoomIsBehindTheFrameAndTheMagnifier) {
    kit_widget widget = field("");
    EXPECT_EQ(written(room_of(widget)), "16,10 48x24");
    widget.kind = ORVEL_WIDGET_SEARCH;
    EXPECT_EQ(written(room_of(widget)), "38,10 26x24");
    widget.box.h = 14;
    EXPECT_EQ(written(room_of(widget)), "32,10 32x14");
    widget.box.h = 3;
    EXPECT_EQ(written(room_of(widget)), "22,10 42x3");
}

TEST(KitFieldsTest, TheCaretIsWhereItIsDrawn) {
    const orvel_theme theme = distinct_theme();
    const CanvasPtr canvas = make_canvas(80, 50);
    for (int caret = 0; caret <= 200; caret += 5) {
        for (const int scroll : {0, 1, 400, 5000}) {
            const kit_widget widget = field(kLong.c_str(), caret, scroll);
            orvel_canvas_clear(canvas.get(), theme.background);
            ASSERT_EQ(kit_draw(canvas.get(), theme, widget), 0);
            const kit_box box = caret_of(widget);
            ASSERT_EQ(box.w, 1);
            for (int y = box.y; y < box.y + box.h; ++y) {
                ASSERT_EQ(orvel_canvas_pixel_get(canvas.get(), box.x, y), theme.text) << caret;
            }
            // Above the letters, nothing else has the colour of text.
            int found = 0;
            for (int x = 12; x < 68; ++x) {
                found += orvel_canvas_pixel_get(canvas.get(), x, box.y + 1) == theme.text ? 1 : 0;
            }
            ASSERT_EQ(found, 1) << caret;
        }
    }
}

TEST(KitFieldsTest, LettersAreWhereTheReturnedWidthSays) {
    const orvel_theme theme = distinct_theme();
    for (const int scroll : {0, 1, 3, 150}) {
        const kit_widget widget = field("|.|..|...|....|.....||", 9, scroll);
        const CanvasPtr canvas = make_canvas(80, 50);
        kit_draw(canvas.get(), theme, widget);
        const kit_box room = room_of(widget), caret = caret_of(widget);
        const int start = room.x - scroll_of(widget);
        // The same line, drawn there.
        const CanvasPtr line = make_canvas(80, 50);
        kit_text_draw(line.get(), nullptr, widget.text, start, 26, theme.text);
        for (int x = room.x; x < room.x + room.w; ++x) {
            if (x == caret.x) continue;
            EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), x, 24) == theme.text,
                      orvel_canvas_pixel_get(line.get(), x, 24) == theme.text)
                << scroll << ' ' << x;
        }
    }
}

TEST(KitFieldsTest, AHollowBoxWithoutHeightStandsAColumnRightOfItsOrigin) {
    const std::string file =
        "STARTFONT 2.1\nFONT flat\nSIZE 8 72 72\nFONTBOUNDINGBOX 1 1 0 0\n"
        "STARTPROPERTIES 2\nFONT_ASCENT 1\nFONT_DESCENT 9\nENDPROPERTIES\nCHARS 1\n"
        "STARTCHAR a\nENCODING 97\nDWIDTH 4 0\nBBX 1 1 0 0\nBITMAP\n80\nENDCHAR\nENDFONT\n";
    kit_face* const face = kit_face_read(file.data(), file.size(), nullptr, 0);
    kit_widget widget = field("ZZ");
    widget.face = face;
    const int origin = room_of(widget).x;
    EXPECT_EQ(caret_of(widget).x, origin - 1);
    widget.text = "aZ";
    widget.caret = widget.anchor = 1;
    EXPECT_EQ(caret_of(widget).x, origin + 3);
    kit_face_close(face);
}

TEST(KitFieldsTest, WithoutScrollTheCaretIsInTheMiddle) {
    // 48 columns of room, 200 letters of 6.
    EXPECT_EQ(scroll_of(field(kLong.c_str(), 100)), 576);
    EXPECT_EQ(scroll_of(field(kLong.c_str(), 3)), 0);
    EXPECT_EQ(scroll_of(field(kLong.c_str(), 200)), 1153);
    EXPECT_EQ(scroll_of(field(kLong.c_str(), 100, -1)), 576);
    EXPECT_EQ(scroll_of(field(kLong.c_str(), 100, INT_MIN)), 576);
}

TEST(KitFieldsTest, WithScrollThePartStaysUntilTheCaretLeavesIt) {
    const auto after = [](int caret, int scroll) {
        return scroll_of(field(kLong.c_str(), caret, 1 + scroll));
    };
    EXPECT_EQ(after(100, 600), 600);
    EXPECT_EQ(after(100, 553), 553);
    EXPECT_EQ(after(100, 552), 553);
    EXPECT_EQ(after(100, 0), 553);
    EXPECT_EQ(after(100, 601), 600);
    EXPECT_EQ(after(100, INT_MAX - 1), 600);
    EXPECT_EQ(after(0, 0), 0);
    EXPECT_EQ(after(6, 0), 0);
}

TEST(KitFieldsTest, ATextThatBecameShorterLeavesNoGap) {
    EXPECT_EQ(scroll_of(field("xxxxxxxx", 8, 1 + 700)), 1);
    EXPECT_EQ(scroll_of(field("xxx", 3, 1 + 700)), 0);
    EXPECT_EQ(scroll_of(field("", 0, 1 + 700)), 0);
}

TEST(KitFieldsTest, WithoutFocusALineBeginsAtTheLeftAndHasNoCaret) {
    for (const unsigned state : {0U, unsigned{KIT_HOVER}, unsigned{KIT_FOCUS | KIT_DISABLED}}) {
        kit_widget widget = field(kLong.c_str(), 100, 300);
        widget.state = state;
        EXPECT_EQ(scroll_of(widget), 0);
        EXPECT_EQ(written(caret_of(widget)), "0,0 0x0");
        EXPECT_EQ(written(room_of(widget)), "16,10 48x24");
    }
}

TEST(KitFieldsTest, AFieldWithoutRoomHasNoCaret) {
    const kit_widget widget = with(field("x"), &kit_widget::scroll, 9);
    for (const int w : {1, 11, 12}) {
        kit_widget narrow = widget;
        narrow.box.w = w;
        EXPECT_EQ(scroll_of(narrow), 0) << w;
        EXPECT_EQ(written(caret_of(narrow)), "0,0 0x0") << w;
        EXPECT_EQ(room_of(narrow).w, 0) << w;
    }
}

TEST(KitFieldsTest, ASizeOfItsOwnIsThatOfTheKit) {
    kit_widget widget = field("x");
    widget.box = {3, 4, 0, 0};
    int w = 0, h = 0;
    kit_size(&widget, &w, &h);
    const kit_box room = room_of(widget);
    EXPECT_EQ(room.w, w - 12);
    EXPECT_EQ(room.h, h);
    EXPECT_EQ(room.x, 9);
}

TEST(KitFieldsTest, WhatIsNoFieldIsRefused) {
    kit_box room = {1, 2, 3, 4}, caret = room;
    EXPECT_EQ(kit_field(nullptr, &room, &caret), -1);
    EXPECT_EQ(written(room) + written(caret), "0,0 0x00,0 0x0");
    for (int kind = -1; kind <= kKinds; ++kind) {
        const bool is_field = kind == ORVEL_WIDGET_TEXTBOX || kind == ORVEL_WIDGET_SEARCH;
        EXPECT_EQ(scroll_of(with(field("x"), &kit_widget::kind, kind)), is_field ? 0 : -1) << kind;
    }
    for (const int side : {-1, INT_MIN}) {
        kit_widget widget = field("x");
        widget.box.w = side;
        EXPECT_EQ(scroll_of(widget), -1);
        widget.box = {0, 0, 20, side};
        EXPECT_EQ(scroll_of(widget), -1);
    }
}

TEST(KitFieldsTest, WhatLiesBeyondIntIsToldAsItsEnd) {
    kit_widget widget = field(kLong.c_str(), INT_MAX, INT_MAX);
    widget.anchor = INT_MIN;
    widget.box = {INT_MAX, INT_MIN, INT_MAX, INT_MAX};
    EXPECT_EQ(scroll_of(widget), 0);
    EXPECT_EQ(room_of(widget).x, INT_MAX);
    EXPECT_EQ(room_of(widget).y, INT_MIN);
    EXPECT_EQ(caret_of(widget).x, INT_MAX);
    widget.text = nullptr;
    widget.box = {INT_MIN, INT_MAX, INT_MAX, 1};
    EXPECT_EQ(scroll_of(widget), 0);
    EXPECT_EQ(caret_of(widget).y, INT_MAX);
    EXPECT_EQ(caret_of(widget).h, 0);
}

}  // namespace
