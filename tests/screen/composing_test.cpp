// What an input method composes in a text field.
#include <climits>

#include "typing.h"

namespace {

using namespace orvel_test;

TEST(ComposingTest, WhatIsComposedShowsUnderlinedUntilItIsTyped) {
    const Typing field("ad");
    field.click(field.at(1), 15);
    field.move(120, 110);
    field.compose("bc", 1);
    EXPECT_EQ(field.changes(), "");
    EXPECT_EQ(field.line("it"), "textbox =\"abcd\" focus");
    EXPECT_EQ(field.seen("abcd"), "?");  // the line below it
    kit_widget plain = field.widget;
    plain.text = "abcd";
    plain.state = KIT_FOCUS;
    plain.caret = plain.anchor = 2;
    kit_box caret;
    kit_field(&plain, nullptr, &caret);
    orvel_theme theme;
    orvel_theme_default(&theme);
    for (int x = field.at(1); x < field.at(1) + kit_text_width(nullptr, "bc"); ++x) {
        EXPECT_EQ(orvel_canvas_pixel_get(field.canvas.get(), x, caret.y + caret.h - 1), theme.text);
        orvel_canvas_pixel(field.canvas.get(), x, caret.y + caret.h - 1, theme.background);
    }
    field.type("xy");
    EXPECT_EQ(field.changes(), "value #it name=\"axyd\"\n");
    kit_screen_expose(field.screen.get(), nullptr);
    EXPECT_EQ(field.seen(), "axy|d");
}

TEST(ComposingTest, WhatIsComposedInALongTextIsUnderlinedAsFarAsItShows) {
    const Typing field(std::string(60, 'x'));
    field.focus("it");
    field.compose(std::string(50, 'y').c_str(), 50);
    field.draw();
    kit_box caret;
    EXPECT_EQ(kit_screen_caret(field.screen.get(), &caret), 0);
    orvel_theme theme;
    orvel_theme_default(&theme);
    const int row = caret.y + caret.h - 1;
    EXPECT_EQ(orvel_canvas_pixel_get(field.canvas.get(), 6, row), theme.text);
    EXPECT_FALSE(orvel_canvas_pixel_get(field.canvas.get(), 5, row) == theme.text);
    EXPECT_FALSE(orvel_canvas_pixel_get(field.canvas.get(), 95, row) == theme.text);
}

TEST(ComposingTest, WhatIsComposedIsGivenUpByAnEmptyOneAPressAndTheWindow) {
    Typing field("ad");
    const auto composing = [&] {
        field.now += 1000;
        field.click(field.at(1), 15);
        field.compose("bc", 2);
        EXPECT_TRUE(field.line("it").find("abcd") != std::string::npos);
    };
    composing();
    field.compose("", 0);
    EXPECT_EQ(field.seen(), "a|d");
    composing();
    field.compose(nullptr, INT_MAX);
    EXPECT_EQ(field.seen(), "a|d");
    composing();
    field.click(99, 15);
    EXPECT_EQ(field.seen(), "ad|");
    composing();
    field.plain(KIT_EVENT_BLUR);
    EXPECT_EQ(field.seen(), "ad");
    field.plain(KIT_EVENT_FOCUS);
    EXPECT_EQ(field.seen(), "a|d");
    composing();
    field.focus("go");
    EXPECT_EQ(field.seen(), "ad");
    EXPECT_EQ(field.changes(), "");
}

TEST(ComposingTest, KeysBelongToTheInputMethodWhileItComposes) {
    const Typing field("ad");
    field.click(field.at(1), 15);
    field.compose("bc", 2);
    for (const int key : std::initializer_list<int>{KIT_KEY_LEFT, KIT_KEY_BACKSPACE, KIT_KEY_ENTER,
                                                    KIT_KEY_ESCAPE, KIT_KEY_TAB, 97}) {
        field.key(key);
        field.key(key, kControl);
    }
    EXPECT_EQ(field.line("it"), "textbox =\"abcd\" hover focus");
    EXPECT_EQ(field.changes(), "");
}

TEST(ComposingTest, WhatIsComposedStandsInPlaceOfTheSelection) {
    Typing field("abcd");
    field.select(1, 3);
    field.move(120, 110);
    field.compose("xyz", 3);
    EXPECT_EQ(field.line("it"), "textbox =\"axyzd\" focus");
    const std::string shown = "axyzd";
    field.press(6 + kit_text_x(nullptr, shown.c_str(), 4), 15);  // behind what is composed
    field.release(6 + kit_text_x(nullptr, shown.c_str(), 4), 15);
    EXPECT_EQ(field.seen(), "abc|d");
}

}  // namespace
