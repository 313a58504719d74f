// The text of a field: what the data, the host and the keys of the scene make of it.
#include "typing.h"

namespace {

using namespace orvel_test;

TEST(FieldValuesTest, AValueFromOutsideReplacesTheTextAndEndsUndo) {
    Typing field("abcdef");
    field.select(5, 5);
    field.type("x");
    EXPECT_EQ(set(field.screen.get(), "name", "\"uvwxyz\""), "");
    EXPECT_EQ(field.seen(), "uvwxyz|");
    EXPECT_EQ(set(field.screen.get(), "name", "\"uv\""), "");
    EXPECT_EQ(field.seen(), "uv|");
    field.changes();
    field.key('z', kControl);
    EXPECT_EQ(field.changes(), "");
}

TEST(FieldValuesTest, AnotherValueFromOutsideChangesNothing) {
    Typing field("abc");
    field.select(1, 1);
    field.type("x");
    EXPECT_EQ(set(field.screen.get(), "other", "\"uv\""), "");
    EXPECT_EQ(field.seen(), "ax|bc");
    field.key('z', kControl);
    EXPECT_EQ(field.seen(), "a|bc");
}

TEST(FieldValuesTest, WhatTheScreenRefusesIsNotTyped) {
    const Used used(scene(R"({"column": [{"textbox": "${w}", "id": "it", "width": 90},
                              {"rect": "accent", "width": "${w}"}]})",
                          R"("size": [100, 60], "sample": {"w": 5}, )"));
    used.focus("it");
    used.key(KIT_KEY_END);
    used.type("x");
    EXPECT_EQ(used.changes(), "");
    EXPECT_EQ(used.line("it"), "textbox =\"5\" focus");
    used.type("");
    EXPECT_EQ(used.line("it"), "textbox =\"5\" focus");
}

TEST(FieldValuesTest, WithoutAValueOfTheDataItIsTheHostsToDo) {
    const Used used(scene(R"({"textbox": "ac", "id": "it", "width": 100, "height": 30})"));
    used.click(6 + kit_text_x(nullptr, "ac", 1), 15);
    used.type("b");
    EXPECT_EQ(used.changes(), "value #it=\"abc\"\n");
    EXPECT_EQ(used.line("it"), "textbox =\"ac\" hover focus");
    kit_box before, after;
    kit_screen_caret(used.screen.get(), &before);
    EXPECT_EQ(kit_screen_change(used.screen.get(), "it", "textbox", "\"abc\"", nullptr, 0), 0);
    EXPECT_EQ(used.line("it"), "textbox =\"abc\" hover focus");
    kit_screen_caret(used.screen.get(), &after);
    EXPECT_EQ(after.x - before.x, kit_text_width(nullptr, "b"));  // the caret is behind it
    used.key('z', kControl);
    EXPECT_EQ(used.changes(), "value #it=\"ac\"\n");
}

TEST(FieldValuesTest, TheHostMayGiveAnotherTextThanWasTyped) {
    const Used used(scene(R"({"textbox": "ac", "id": "it", "width": 100, "height": 30})"));
    used.focus("it");
    used.key(KIT_KEY_END);
    used.type("b");
    EXPECT_EQ(used.changes(), "value #it=\"acb\"\n");
    EXPECT_EQ(kit_screen_change(used.screen.get(), "it", "textbox", "\"ACB\"", nullptr, 0), 0);
    EXPECT_EQ(used.line("it"), "textbox =\"ACB\" focus");
    used.key(KIT_KEY_END);
    used.type("d");
    EXPECT_EQ(used.changes(), "value #it=\"ACBd\"\n");
}

TEST(FieldValuesTest, EscapeBringsBackTheTextFromBefore) {
    const Typing field("abc");
    field.focus("it");
    field.type("x");
    field.type("y");
    field.key(KIT_KEY_ESCAPE);
    EXPECT_EQ(field.changes(), "value #it name=\"abc\"\n");
    EXPECT_EQ(field.seen(), "abc|");
    field.key('z', kControl);
    EXPECT_EQ(field.seen(), "xy|");
    field.key(KIT_KEY_ESCAPE);
    field.key(KIT_KEY_ESCAPE);
    EXPECT_EQ(field.seen(), "abc|");
}

TEST(FieldValuesTest, EscapeGoesBackToAValueFromOutside) {
    const Typing field("abc");
    field.focus("it");
    EXPECT_EQ(set(field.screen.get(), "name", "\"net\""), "");
    field.key(KIT_KEY_ESCAPE);
    EXPECT_EQ(field.changes(), "");
    EXPECT_EQ(field.text(), "net");
    field.type("x");
    field.key(KIT_KEY_ESCAPE);
    EXPECT_EQ(field.changes(), "value #it name=\"net\"\n");
    field.type("y");
    EXPECT_EQ(set(field.screen.get(), "name", "\"\""), "");
    field.type("z");
    field.key(KIT_KEY_ESCAPE);
    EXPECT_EQ(field.text(), "");
}

TEST(FieldValuesTest, EscapeGoesBackToTheTextOfTheRowThatIsThereNow) {
    const Used used(scene(R"({"column": [{"each": "rows", "as": "row", "textbox": "${row}"}]})",
                          R"("size": [100, 100], "sample": {"rows": ["a", "b"]}, )"));
    used.key(KIT_KEY_TAB);
    used.key(KIT_KEY_TAB);
    EXPECT_EQ(set(used.screen.get(), "rows", R"(["new", "a", "b"])"), "");
    used.key(KIT_KEY_ESCAPE);
    EXPECT_EQ(used.changes(), "");
    EXPECT_EQ(used.value("rows"), R"(["new","a","b"])");
}

TEST(FieldValuesTest, EscapeEmptiesASearch) {
    const Typing field("abc", "", "search");
    field.focus("it");
    field.key(KIT_KEY_ESCAPE);
    EXPECT_EQ(field.changes(), "value #it name=\"\"\n");
    EXPECT_EQ(field.seen(), "|");
    field.key('z', kControl);
    EXPECT_EQ(field.seen(), "[abc|");
}

TEST(FieldValuesTest, ALimitCountsCharacters) {
    const Typing field("é", R"("limit": 3, )");
    field.focus("it");
    field.key(KIT_KEY_END);
    field.type("abc");
    EXPECT_EQ(field.changes(), "value #it name=\"éab\"\n");
    field.type("x");
    field.paste("x");
    EXPECT_EQ(field.changes(), "");
    EXPECT_EQ(set(field.screen.get(), "name", "\"from outside\""), "");
    EXPECT_EQ(field.line("it"), "textbox =\"from outside\" focus");
}

TEST(FieldValuesTest, ASecretShowsDotsAndIsNotCopied) {
    Typing field("ab c", R"("secret": true, )");
    EXPECT_EQ(field.seen("••••"), "••••");
    EXPECT_EQ(field.line("it"), "textbox =\"••••\"");
    field.focus("it");
    EXPECT_EQ(field.line("it"), "textbox =\"••••\" focus");
    EXPECT_EQ(field.seen("••••"), "[••••|");
    field.key('c', kControl);
    field.key('x', kControl);
    EXPECT_EQ(field.changes(), "");
    field.key(KIT_KEY_HOME);
    field.key(KIT_KEY_RIGHT, kShift);
    EXPECT_EQ(field.seen("••••"), "[•|•••");
    field.type("xy");
    EXPECT_EQ(field.changes(), "value #it name=\"xyb c\"\n");
    field.key(KIT_KEY_LEFT, kControl);
    EXPECT_EQ(field.seen("•••••"), "|•••••");
    const int x = 6 + kit_text_x(nullptr, "•••••", 6);
    field.now += 1000;
    field.click(x, 15);
    field.move(120, 110);
    EXPECT_EQ(field.seen("•••••"), "••|•••");
    field.click(x, 15);
    field.move(120, 110);
    EXPECT_EQ(field.seen("•••••"), "[•••••|");
}

TEST(FieldValuesTest, WhereAFaceLacksTheDotASecretShowsAsterisks) {
    const Used used(scene(R"({"textbox": "12", "secret": true, "id": "it", "face": "digits 64"})"));
    EXPECT_EQ(used.line("it"), "textbox =\"**\"");
}

TEST(FieldValuesTest, LimitAndSecretFollowTheData) {
    const Used used(scene(R"({"textbox": "${a}", "secret": "${hidden}", "limit": "${most}",
                              "id": "it", "width": 100})",
                          R"("sample": {"a": "abc", "hidden": true, "most": 3}, )"));
    used.focus("it");
    EXPECT_EQ(set(used.screen.get(), "hidden", "false"), "");
    EXPECT_EQ(used.line("it"), "textbox =\"abc\" focus");
    used.key('c', kControl);
    EXPECT_EQ(used.changes(), "copy #it=\"abc\"\n");
    EXPECT_EQ(set(used.screen.get(), "most", "4"), "");
    used.key(KIT_KEY_END);
    used.type("de");
    EXPECT_EQ(used.changes(), "value #it a=\"abcd\"\n");
}

TEST(FieldValuesTest, AHintShowsWhileItIsEmpty) {
    Typing field("", R"("hint": "Name", )");
    field.widget.hint = "Name";
    EXPECT_EQ(field.seen(), "");
    field.focus("it");
    EXPECT_EQ(field.seen(), "|");
    field.type("a");
    EXPECT_EQ(field.seen(), "a|");
}

}  // namespace
