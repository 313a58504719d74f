// What the pointer does in text fields: carets, selections, words, and what lies beside them.
#include "typing.h"

namespace {

using namespace orvel_test;

TEST(FieldPointerTest, APressSetsTheCaretAtTheNearestPlace) {
    const Typing field("abc");
    field.click(field.at(2) + 1, 15);
    EXPECT_EQ(field.seen(), "ab|c");
    field.click(field.at(1) - 1, 3);
    EXPECT_EQ(field.seen(), "a|bc");
    field.click(99, 15);
    EXPECT_EQ(field.seen(), "abc|");
    field.click(0, 15);
    EXPECT_EQ(field.seen(), "|abc");
}

TEST(FieldPointerTest, APressWithShiftExtends) {
    Typing field("abcdef");
    field.click(field.at(2), 15);
    field.press_with(kShift, field.at(4));
    field.release(field.at(4), 15);
    EXPECT_EQ(field.copy(), "copy #it=\"cd\"\n");
    field.press_with(kShift, field.at(1));
    field.release(field.at(1), 15);
    EXPECT_EQ(field.seen(), "a|b]cdef");
    field.focus("go");
    field.press_with(kShift, field.at(3));  // which has nothing to extend
    field.release(field.at(3), 15);
    EXPECT_EQ(field.seen(), "abc|def");
}

TEST(FieldPointerTest, OtherButtonsOnlyMoveThePointer) {
    const Typing field("abc");
    kit_screen_event event = {};
    event.kind = KIT_EVENT_PRESS;
    event.button = 1;
    event.x = event.y = 15;
    field.send(event);
    EXPECT_EQ(field.seen(), "abc");
}

TEST(FieldPointerTest, ThePointerIsThatOfTextOverIt) {
    const Typing field("abc");
    field.move(50, 15);
    EXPECT_EQ(kit_screen_pointer(field.screen.get()), KIT_POINTER_TEXT);
    field.move(50, 45);
    EXPECT_EQ(kit_screen_pointer(field.screen.get()), KIT_POINTER_HAND);
}

TEST(FieldPointerTest, DraggingSelects) {
    const Typing field("abcdef");
    field.press(field.at(2), 15);
    field.move(field.at(4), 15);
    EXPECT_EQ(field.seen(), "ab[cdef|");  // seen() moves far to the right
    field.move(field.at(1), 90);
    field.release(field.at(1), 90);
    EXPECT_EQ(field.seen(), "a|b]cdef");
}

TEST(FieldPointerTest, AShortMoveOfThePointerUpAndDownSelectsNothing) {
    const Typing field("abcdef");
    field.press(field.at(2), 15);
    field.move(field.at(2), 19);
    field.release(field.at(2), 19);
    EXPECT_EQ(field.seen(), "ab|cdef");
}

TEST(FieldPointerTest, ADragEndsWhereTheHostTakesTheKeyboardAway) {
    Typing field("abc");
    field.press(field.at(1), 15);
    field.move(120, 15);
    field.focus("go");
    field.wait(1000);
    field.move(field.at(2), 15);
    field.focus("it");
    EXPECT_EQ(field.seen(), "[abc|");
}

TEST(FieldPointerTest, ADoubleClickSelectsAWordAndATripleClickAll) {
    Typing field("ab cde fg");
    field.click(field.at(5) + 2, 15);
    field.click(field.at(5) + 2, 15);
    EXPECT_EQ(field.seen(), "ab [cde| fg");
    field.click(field.at(5) + 2, 15);
    EXPECT_EQ(field.seen(), "[ab cde fg|");
    field.click(field.at(5) + 1, 15);
    EXPECT_EQ(field.seen(), "ab cd|e fg");
}

TEST(FieldPointerTest, TheWordOfADoubleClickIsTheOneUnderThePointer) {
    Typing field("ab cd");
    field.click(field.at(2) - 1, 15);  // nearer to the place behind the letter
    field.click(field.at(2) - 1, 15);
    EXPECT_EQ(field.seen(), "[ab| cd");
    field.now += 1000;
    field.click(field.at(2) + 1, 15);
    field.click(field.at(2) + 1, 15);
    EXPECT_EQ(field.seen(), "ab[ |cd");
}

TEST(FieldPointerTest, DraggingBehindADoubleClickGoesByWords) {
    Typing field("ab cde fg");
    field.click(field.at(4), 15);
    field.press(field.at(4), 15);
    field.move(field.at(8), 15);
    field.release(field.at(8), 15);
    EXPECT_EQ(field.seen(), "ab [cde fg|");
    field.now += 1000;
    field.click(field.at(4), 15);
    field.press(field.at(4), 15);
    field.move(field.at(1), 15);
    field.release(field.at(1), 15);
    EXPECT_EQ(field.seen(), "|ab cde] fg");
}

TEST(FieldPointerTest, DraggingBehindATripleClickChangesNothing) {
    Typing field("ab cde fg");
    field.click(field.at(4), 15);
    field.click(field.at(4), 15);
    field.press(field.at(4), 15);
    field.move(field.at(1), 15);
    field.wait(1000);
    field.move(-50, 15);
    field.wait(1000);
    field.release(-50, 15);
    EXPECT_EQ(field.seen(), "[ab cde fg|");
}

TEST(FieldPointerTest, ADoubleClickIsSoonAndNear) {
    Typing field("ab cde fg");
    const int x = field.at(5);
    const auto twice = [&](int later, int dx, int dy) {
        field.now += 10000;
        field.click(x, 10);
        field.now += later;
        field.click(x + dx, 10 + dy);
        return field.copy() != "";
    };
    EXPECT_TRUE(twice(400, 0, 0));
    EXPECT_FALSE(twice(401, 0, 0));
    EXPECT_TRUE(twice(0, 4, -4));
    EXPECT_TRUE(twice(0, -4, 4));
    EXPECT_FALSE(twice(0, 5, 0));
    EXPECT_FALSE(twice(0, 0, -5));
}

TEST(FieldPointerTest, PressesInTwoFieldsAreNoDoubleClick) {
    const Typing field("ab");
    field.click(80, 29);
    field.click(80, 75);
    field.click(80, 29);
    EXPECT_EQ(field.seen(), "ab|");
}

/// The offset of the caret, found by what a letter typed there makes of the text.
int caret_of(const Typing& field) {
    field.type("|");
    const int offset = static_cast<int>(field.text().find('|'));
    field.key('z', kControl);
    return offset;
}

TEST(FieldPointerTest, ALongTextStaysWhereItIsWhileTheCaretShows) {
    const Typing field(std::string(60, 'x'));  // 6 columns each, 88 of room
    field.focus("it");
    kit_box end, caret;
    kit_screen_caret(field.screen.get(), &end);
    EXPECT_EQ(end.x, 93);
    field.key(KIT_KEY_LEFT);  // leaves the selection
    field.key(KIT_KEY_END);
    field.key(KIT_KEY_LEFT, 0, 5);
    kit_screen_caret(field.screen.get(), &caret);
    EXPECT_EQ(caret.x, 92 - 5 * 6);
    field.click(caret.x + 12, 15);
    EXPECT_EQ(caret_of(field), 57);
    kit_screen_caret(field.screen.get(), &caret);
    EXPECT_EQ(caret.x, 92 - 3 * 6);
    field.key(KIT_KEY_HOME);
    kit_screen_caret(field.screen.get(), &caret);
    EXPECT_EQ(caret.x, 4);
}

TEST(FieldPointerTest, APressInALongTextWithoutTheKeyboardFindsWhatShows) {
    const Typing field(std::string(60, 'x'));
    field.click(6 + 5 * 6, 15);
    EXPECT_EQ(caret_of(field), 5);
    kit_box caret;
    kit_screen_caret(field.screen.get(), &caret);
    EXPECT_EQ(caret.x, 6 + 5 * 6 - 1);
}

TEST(FieldPointerTest, DraggingBesideTheFieldScrolls) {
    Typing field(std::string(60, 'x'));
    field.press(6 + 5 * 6, 15);
    field.move(120, 15);
    EXPECT_EQ(field.copy(), "copy #it=\"" + std::string(14, 'x') + "\"\n");
    EXPECT_EQ(kit_screen_wait(field.screen.get(), field.now), 60);
    field.wait(59);
    EXPECT_EQ(field.copy(), "copy #it=\"" + std::string(14, 'x') + "\"\n");
    field.wait(1);
    EXPECT_EQ(field.copy(), "copy #it=\"" + std::string(15, 'x') + "\"\n");
    field.wait(60 * 5);
    EXPECT_EQ(field.copy(), "copy #it=\"" + std::string(20, 'x') + "\"\n");
    field.move(50, 15);  // back over the words
    EXPECT_EQ(kit_screen_wait(field.screen.get(), field.now), -1);
    field.move(-9, 15);
    field.wait(60 * 60);
    field.release(-9, 15);
    EXPECT_EQ(field.copy(), "copy #it=\"" + std::string(5, 'x') + "\"\n");
    EXPECT_EQ(kit_screen_wait(field.screen.get(), field.now), -1);
}

TEST(FieldPointerTest, HeldBesideTheEndOfItsWordsAFieldWaitsForNothing) {
    Typing field("abc");
    const auto waits = [&] { return kit_screen_wait(field.screen.get(), field.now); };
    field.press(field.at(2), 15);
    field.move(120, 15);
    EXPECT_EQ(waits(), -1);
    EXPECT_EQ(set(field.screen.get(), "name", "\"abcd\""), "");
    field.move(121, 16);
    EXPECT_EQ(waits(), -1);  // what is near the pointer is the end again
    EXPECT_EQ(set(field.screen.get(), "name", "\"abcdef\""), "");
    field.wait(0);
    EXPECT_EQ(waits(), 60);  // for what the host has put behind it
    field.wait(60 * 2);
    EXPECT_EQ(waits(), -1);
    EXPECT_EQ(set(field.screen.get(), "name", "\"abcdefgh\""), "");
    field.wait(0);
    EXPECT_EQ(set(field.screen.get(), "name", "\"abc\""), "");
    field.wait(60);
    EXPECT_EQ(waits(), -1);
    field.release(121, 16);
    EXPECT_EQ(field.seen(), "ab[c|");
}

TEST(FieldPointerTest, HeldBesideItAfterATripleClickAFieldWaitsForNothing) {
    const Typing field(std::string(60, 'x'));
    field.click(20, 15);
    field.click(20, 15);
    field.press(20, 15);
    field.move(120, 15);
    EXPECT_EQ(kit_screen_wait(field.screen.get(), field.now), -1);
}

TEST(FieldPointerTest, AfterALongTimeBesideTheFieldAllIsSelected) {
    Typing field(std::string(300, 'x'));
    field.press(6 + 5 * 6, 15);
    field.move(120, 15);
    field.wait(1000000000);
    field.key('x', kControl);
    field.changes();
    EXPECT_EQ(field.text(), "xxxxx");
}

TEST(FieldPointerTest, DraggingByWordsBesideTheFieldScrollsByWords) {
    Typing field("aaaa bbbb cccc dddd eeee ffff gggg");
    field.click(20, 15);
    field.press(20, 15);
    field.move(95, 15);
    field.wait(60);
    field.wait(60);
    field.release(95, 15);
    EXPECT_EQ(field.copy(), "copy #it=\"aaaa bbbb cccc dddd eeee\"\n");
}

}  // namespace
