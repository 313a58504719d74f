// Text fields that people type into.
#include <climits>

#include "typing.h"

namespace {

using namespace orvel_test;

TEST(FieldsTest, WhatIsTypedSetsTheValue) {
    const Typing field("ac");
    EXPECT_EQ(field.seen(), "ac");
    field.click(field.at(1), 15);
    field.type("b");
    EXPECT_EQ(field.changes(), "value #it name=\"abc\"\n");
    EXPECT_EQ(field.seen(), "ab|c");
    EXPECT_EQ(field.line("it"), "textbox =\"abc\" focus");
}

TEST(FieldsTest, ValuesThatNobodyAskedForAreOne) {
    const Typing field("");
    field.focus("it");
    for (const char* letter : {"a", "b", "c"}) field.type(letter);
    EXPECT_EQ(field.changes(), "value #it name=\"abc\"\n");
}

TEST(FieldsTest, WithoutTheKeyboardNothingIsTyped) {
    const Typing field("a");
    field.type("b");
    field.paste("b");
    field.compose("b", 1);
    field.focus("go");
    field.type("b");
    field.paste("b");
    field.compose("b", 1);
    EXPECT_EQ(field.changes(), "");
    EXPECT_EQ(field.seen(), "a");
}

TEST(FieldsTest, TabAndTheHostSelectAll) {
    const Typing field("abc");
    field.key(KIT_KEY_TAB);
    EXPECT_EQ(field.seen(), "[abc|");
    field.key(KIT_KEY_TAB);
    EXPECT_EQ(field.seen(), "abc");
    field.focus("it");
    EXPECT_EQ(field.seen(), "[abc|");
}

TEST(FieldsTest, ArrowsHomeAndEndMoveTheCaret) {
    Typing field("ab cd");
    field.select(3, 3);
    EXPECT_EQ(field.after(KIT_KEY_LEFT), "ab| cd");
    EXPECT_EQ(field.after(KIT_KEY_RIGHT), "ab |cd");
    EXPECT_EQ(field.after(KIT_KEY_RIGHT, kShift), "ab [c|d");
    EXPECT_EQ(field.after(KIT_KEY_LEFT), "ab |cd");
    EXPECT_EQ(field.after(KIT_KEY_HOME), "|ab cd");
    EXPECT_EQ(field.after(KIT_KEY_END, kShift), "[ab cd|");
    EXPECT_EQ(field.after(KIT_KEY_END), "ab cd|");
    EXPECT_EQ(field.after(KIT_KEY_HOME, kShift), "|ab cd]");
    EXPECT_EQ(field.changes(), "");
}

TEST(FieldsTest, WithControlOrAltTheyGoByWords) {
    for (const unsigned modifier : {kControl, kAlt}) {
        Typing field("ab cd");
        field.select(4, 4);
        field.key(KIT_KEY_LEFT, modifier);
        EXPECT_EQ(field.seen(), "ab |cd");
        field.key(KIT_KEY_LEFT, modifier | kShift);
        EXPECT_EQ(field.seen(), "|ab ]cd");
        field.key(KIT_KEY_RIGHT, modifier);
        EXPECT_EQ(field.seen(), "ab| cd");
    }
}

TEST(FieldsTest, BackspaceAndDeleteErase) {
    Typing field("ab cd ef");
    field.select(4, 4);
    EXPECT_EQ(field.after(KIT_KEY_BACKSPACE), "ab |d ef");
    EXPECT_EQ(field.after(KIT_KEY_DELETE), "ab | ef");
    EXPECT_EQ(field.after(KIT_KEY_DELETE, kControl), "ab |");
    EXPECT_EQ(field.after(KIT_KEY_BACKSPACE, kAlt), "|");
    EXPECT_EQ(field.changes(), "value #it name=\"\"\n");
    EXPECT_EQ(field.after(KIT_KEY_BACKSPACE), "|");
    EXPECT_EQ(field.changes(), "");
}

TEST(FieldsTest, ControlAndLettersDoWhatTheyDoEverywhere) {
    Typing field("abc");
    field.select(1, 2);
    EXPECT_EQ(field.copy(), "copy #it=\"b\"\n");
    field.key('x', kControl);
    EXPECT_EQ(field.changes(), "value #it name=\"ac\"\ncopy #it=\"b\"\n");
    EXPECT_EQ(field.seen(), "a|c");
    field.key('c', kControl);
    field.key('x', kControl);
    EXPECT_EQ(field.changes(), "");  // nothing is selected
    field.key('v', kControl);
    EXPECT_EQ(field.changes(), "paste #it\n");
    field.paste("x\ny");
    EXPECT_EQ(field.changes(), "value #it name=\"ax yc\"\n");
    field.key('a', kControl);
    EXPECT_EQ(field.seen(), "[ax yc|");
    field.key('z', kControl);
    EXPECT_EQ(field.seen(), "a|c");
    field.key('z', kControl);
    EXPECT_EQ(field.seen(), "a[b|c");
    field.key('Z', kControl | kShift);
    EXPECT_EQ(field.seen(), "a|c");
    field.key('y', kControl);
    EXPECT_EQ(field.seen(), "ax y|c");
    field.key('y', kControl);
    field.key('a', kControl | kShift);
    field.key('q', kControl);
    field.key('x', kControl | kAlt);
    EXPECT_EQ(field.seen(), "ax y|c");
}

TEST(FieldsTest, EnterTellsThatItWasPressed) {
    const Typing field("abc");
    field.focus("it");
    field.key(KIT_KEY_ENTER);
    EXPECT_EQ(field.changes(), "press #it\n");
    for (const unsigned modifier : {kShift, kControl, kAlt}) field.key(KIT_KEY_ENTER, modifier);
    EXPECT_EQ(field.changes(), "");
    const Used nameless(scene(R"({"textbox": "${a}"})", R"("sample": {"a": "b"}, )"));
    nameless.key(KIT_KEY_TAB);
    nameless.key(KIT_KEY_ENTER);
    EXPECT_EQ(nameless.changes(), "");
}

TEST(FieldsTest, TheKeyboardGoesFromOneFieldToTheNext) {
    const Typing field("abc");
    field.focus("it");
    field.focus("other");
    field.type("y");
    EXPECT_EQ(field.changes(), "value #other other=\"y\"\n");
    EXPECT_EQ(field.seen(), "abc");
}

TEST(FieldsTest, AFieldThatWaitsTakesNoTime) {
    const Typing field("abc");
    field.focus("it");
    EXPECT_EQ(kit_screen_wait(field.screen.get(), field.now), -1);
    field.compose("x", 1);
    EXPECT_EQ(kit_screen_wait(field.screen.get(), field.now), -1);
}

TEST(FieldsTest, TheCaretIsToldWhereItIsDrawn) {
    const Typing field("abc");
    kit_box box = {1, 2, 3, 4};
    EXPECT_EQ(kit_screen_caret(field.screen.get(), &box), -1);
    EXPECT_EQ(kit_screen_caret(nullptr, &box), -1);
    field.focus("it");
    EXPECT_EQ(kit_screen_caret(field.screen.get(), nullptr), -1);
    EXPECT_EQ(kit_screen_caret(field.screen.get(), &box), 0);
    kit_widget wanted = field.widget;
    wanted.text = "abc";
    wanted.state = KIT_FOCUS;
    wanted.caret = wanted.anchor = 3;
    kit_box caret;
    kit_field(&wanted, nullptr, &caret);
    EXPECT_EQ(std::memcmp(&box, &caret, sizeof box), 0);
    EXPECT_EQ(box.x, field.at(3));
    field.focus("go");
    EXPECT_EQ(kit_screen_caret(field.screen.get(), &box), -1);
}

TEST(FieldsTest, LettersDoNotReachShortcutsWhileAFieldHasTheKeyboard) {
    const Used used(scene(R"({"column": [{"textbox": "${a}", "id": "it"},
                              {"button": "Go", "id": "go", "key": "g"},
                              {"button": "All", "id": "all", "key": "ctrl+a"},
                              {"button": "Quit", "id": "quit", "key": "ctrl+q"}]})",
                          R"("sample": {"a": "b"}, )"));
    used.key('g');
    EXPECT_EQ(used.changes(), "press #go\n");
    used.focus("it");
    used.key('g');
    used.key('a', kControl);
    EXPECT_EQ(used.changes(), "");
    used.key('q', kControl);
    EXPECT_EQ(used.changes(), "press #quit\n");
}

TEST(FieldsTest, WithoutTheKeyboardNothingIsRemembered) {
    const Typing field("abc");
    field.focus("it");
    field.type("x");
    field.key(KIT_KEY_TAB);
    field.focus("it");
    field.changes();
    field.key('z', kControl);
    EXPECT_EQ(field.changes(), "");
    field.type("y");
    field.key(KIT_KEY_ESCAPE);
    EXPECT_EQ(field.seen(), "x|");
}

TEST(FieldsTest, AFieldThatIsDisabledOrGoneHasNoKeyboard) {
    const Used used(
        scene(R"({"column": [{"textbox": "${a}", "id": "it", "disabled": "${off}",
                              "if": "there"}]})",
              R"("size": [99, 99], "sample": {"a": "b", "off": false, "there": true}, )"));
    for (const char* name : {"off", "there"}) {
        used.focus("it");
        EXPECT_TRUE(used.has("it", "focus"));
        EXPECT_EQ(set(used.screen.get(), name, *name == 'o' ? "true" : "false"), "");
        used.type("x");
        EXPECT_EQ(used.changes(), "");
        EXPECT_EQ(set(used.screen.get(), name, *name == 'o' ? "false" : "true"), "");
        EXPECT_FALSE(used.has("it", "focus"));
    }
}

TEST(FieldsTest, OddEventsHaveNoEffect) {
    const Typing field("abc");
    field.focus("it");
    for (const int key : {INT_MIN, -1, 0, 0x110019, INT_MAX}) field.key(key, ~0U);
    field.type(nullptr);
    field.type("\n\x01");
    field.paste(nullptr);
    EXPECT_EQ(field.changes(), "");
    EXPECT_EQ(field.seen(), "[abc|");
    field.compose("\xFF", INT_MIN);
    field.compose("", INT_MIN);
    field.type("\xFF");
    EXPECT_EQ(field.changes(), "value #it name=\"\uFFFD\"\n");
}

TEST(FieldsTest, WhereTheSameWordsShowTheirCaretsAreDrawnAnew) {
    const Typing field("ab");
    constexpr kit_box kField = {0, 0, 100, 30};
    field.focus("it");
    field.key(KIT_KEY_END);
    field.draw();
    field.key('a', kControl);  // the anchor
    EXPECT_EQ(field.draw(), kField);
    field.key(KIT_KEY_HOME);  // both
    EXPECT_EQ(field.draw(), kField);
    field.compose("x", 1);
    field.draw();
    field.type("x");  // the end of what was composed
    EXPECT_EQ(field.draw(), kField);
    field.compose("y", 1);
    field.draw();
    field.type("y");  // its begin, too
    EXPECT_EQ(field.draw(), kField);
}

TEST(FieldsTest, ALongTextIsScrolledAnewInAnotherFace) {
    const Typing field("a long text that does not fit into its field");
    field.focus("it");
    field.key(KIT_KEY_END);
    field.draw();
    EXPECT_EQ(kit_screen_change(field.screen.get(), "it", "face", "\"bold 14\"", nullptr, 0), 0);
    field.draw();
}

}  // namespace
