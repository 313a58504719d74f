// Where text fields show their text, and what they keep showing.
#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <string>

#include "kit/widgets/kit_samples.h"
#include "kit/words/tiny_face.h"
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

/// The field alone on a canvas.
CanvasPtr drawn(const kit_widget& widget, int w = 80, int h = 50) {
    CanvasPtr canvas = make_canvas(w, h);
    EXPECT_EQ(kit_draw(canvas.get(), distinct_theme(), widget), 0);
    return canvas;
}

bool has_ink(const CanvasPtr& canvas, int x, int y) {
    return orvel_canvas_pixel_get(canvas.get(), x, y) == distinct_theme().text;
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
    for (int caret = 0; caret <= 200; caret += 5) {
        for (const int scroll : {0, 1, 400, 5000}) {
            const kit_widget widget = field(kLong.c_str(), caret, scroll);
            const CanvasPtr canvas = drawn(widget);
            const kit_box box = caret_of(widget);
            ASSERT_EQ(box.w, 1);
            for (int y = box.y; y < box.y + box.h; ++y) {
                ASSERT_TRUE(has_ink(canvas, box.x, y)) << caret;
            }
            // Above the letters, nothing else has the colour of text.
            int found = 0;
            for (int x = 12; x < 68; ++x) found += has_ink(canvas, x, box.y + 1) ? 1 : 0;
            ASSERT_EQ(found, 1) << caret;
        }
    }
}

TEST(KitFieldsTest, LettersAreWhereTheReturnedWidthSays) {
    for (const int scroll : {0, 1, 3, 150}) {
        const kit_widget widget = field("|.|..|...|....|.....||", 9, scroll);
        const CanvasPtr canvas = drawn(widget);
        const kit_box room = room_of(widget), caret = caret_of(widget);
        const int start = room.x - scroll_of(widget);
        // The same line, drawn there.
        const CanvasPtr line = make_canvas(80, 50);
        kit_text_draw(line.get(), nullptr, widget.text, start, 26, distinct_theme().text);
        for (int x = room.x; x < room.x + room.w; ++x) {
            if (x == caret.x) continue;
            EXPECT_EQ(has_ink(canvas, x, 24), has_ink(line, x, 24)) << scroll << ' ' << x;
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

TEST(KitFieldsTest, ACaretIsSeenWhereverItIs) {
    for (const int caret : {-5, 0, 1, 50, 100, 199, 200, INT_MAX}) {
        const CanvasPtr canvas = drawn(field(kLong.c_str(), caret));
        // Nothing else stands as high above the letters.
        int found = 0;
        for (int x = 13; x < 67; ++x) found += has_ink(canvas, x, 15) ? 1 : 0;
        EXPECT_EQ(found, 1) << caret;
    }
}

TEST(KitFieldsTest, ACaretHasAColumnOfAirOnBothSidesWhereThereIsRoom) {
    constexpr int kWidth = 420, kMiddle = 20;
    const auto has_letter = [](const CanvasPtr& canvas, int x) {
        for (int y = 4; y < 2 * kMiddle - 4; ++y) {
            if (has_ink(canvas, x, y)) return true;
        }
        return false;
    };
    const std::string text = "Will jV,d A";
    const int count = static_cast<int>(text.size());
    for (const kit_face* face : {kit_sans_11(), kit_sans_12(), kit_bold_14(), kit_mono_12()}) {
        kit_widget widget = {.kind = ORVEL_WIDGET_TEXTBOX,
                             .box = {0, 0, kWidth, 2 * kMiddle},
                             .text = text.c_str(),
                             .face = face};
        const CanvasPtr plain = drawn(widget, kWidth, 2 * kMiddle);
        widget.state = KIT_FOCUS;
        for (int caret = 0; caret <= count; ++caret) {
            widget.caret = widget.anchor = caret;
            const CanvasPtr canvas = drawn(widget, kWidth, 2 * kMiddle);
            int at = 3;  // the only ink in the caret's first row
            const int top = kMiddle - kit_face_cap(face) / 2 - 3;
            while (at < kWidth && !has_ink(canvas, at, top)) ++at;
            const int place = 3 + kit_face_cap(face) / 3 + kit_text_x(face, text.c_str(), caret);
            ASSERT_LE(std::abs(at - place), 3) << caret;
            int left = place, right = place;  // what is free around the place
            while (left > place - 4 && !has_letter(plain, left - 1)) --left;
            while (right < place + 4 && !has_letter(plain, right)) ++right;
            if (right == left) continue;
            EXPECT_GE(at, left + (right - left > 2 ? 1 : 0)) << caret;
            EXPECT_LT(at, right - (right - left > 1 ? 1 : 0)) << caret;
        }
    }
}

TEST(KitFieldsTest, ACaretKeepsFromTheHollowBoxOfWhatIsMissing) {
    kit_widget widget = field("Z", 1);
    widget.box = {0, 0, 60, 30};
    widget.face = bare_face();
    const CanvasPtr canvas = drawn(widget);
    std::string row;  // of the box's sides and the caret
    for (int x = 4; x < 14; ++x) row += has_ink(canvas, x, 15) ? '#' : '.';
    EXPECT_EQ(row, ".#..#.#...");
}

TEST(KitFieldsTest, WithoutFocusThereIsNoCaretOrSelection) {
    const auto shown = [](unsigned state, int caret) {
        kit_widget widget = field("abc");
        widget.state = state;
        widget.caret = caret;
        return checksum(drawn(widget).get());
    };
    EXPECT_EQ(shown(0, 2), shown(0, 0));
    EXPECT_NE(shown(KIT_FOCUS, 2), shown(0, 2));
    EXPECT_NE(shown(KIT_FOCUS | KIT_DISABLED, 2), shown(KIT_FOCUS, 2));
}

TEST(KitFieldsTest, OfASelectionOutOfSightNothingShows) {
    // The caret is at the left end of what shows.
    kit_widget widget = field(kLong.c_str(), 20, 1 + kit_text_width(nullptr, &kLong[180]));
    const auto shown = [&](int anchor) {
        widget.anchor = anchor;
        return checksum(drawn(widget).get());
    };
    EXPECT_EQ(shown(0), shown(20));
    EXPECT_NE(shown(40), shown(20));
}

}  // namespace
