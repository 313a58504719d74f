// Text fields that people type into.
#include <climits>
#include <cstring>

#include "live.h"

namespace {

using namespace orvel_test;

constexpr unsigned kShift = KIT_MOD_SHIFT, kControl = KIT_MOD_CONTROL, kAlt = KIT_MOD_ALT;

/// A screen with a text field at the top left that is bound to "name", and a hand on it. What is
/// drawn piece by piece is what is drawn anew.
struct Typing : Used {
    explicit Typing(const std::string& text, const std::string& keys = "",
                    const char* kind = "textbox", int width = 100)
        : Used(scene(R"({"column": [{")" + std::string(kind) + R"(": "${name}", "id": "it", )" +
                         keys + R"("width": )" + std::to_string(width) +
                         R"(, "height": 30}, {"button": "Go", "id": "go", "height": 30},
                            {"search": "${other}", "id": "other", "height": 30}]})",
                     R"("size": [)" + std::to_string(width + 40) +
                         R"(, 120], "sample": {"name": "", "other": "x"}, )"),
               (R"({"name": ")" + text + R"(", "other": "x"})").c_str()) {
        widget.kind = std::strcmp(kind, "search") == 0 ? ORVEL_WIDGET_SEARCH : ORVEL_WIDGET_TEXTBOX;
        widget.box = {0, 0, width, 30};
        canvas = drawn(screen.get());
    }

    std::string text() const {
        const std::string json = value("name");
        return json.substr(1, json.size() - 2);
    }
    /// The column of the letter at an offset, while the text shows from its begin.
    int at(int offset) const {
        kit_box room;
        kit_field(&widget, &room, nullptr);
        return room.x + kit_text_x(nullptr, text().c_str(), offset);
    }
    void press_with(unsigned modifiers, int x, int y = 15) const {
        kit_screen_event event = {};
        event.kind = KIT_EVENT_PRESS;
        event.x = x;
        event.y = y;
        event.modifiers = modifiers;
        EXPECT_EQ(send(event), 0);
    }
    void compose(const char* composed, int caret) const {
        kit_screen_event event = {};
        event.kind = KIT_EVENT_COMPOSE;
        event.text = composed;
        event.caret = caret;
        EXPECT_EQ(send(event), 0);
    }
    void paste(const char* pasted) const { plain(KIT_EVENT_PASTE, pasted); }

    bool looks_like(const std::string& words, unsigned state, int caret, int anchor) const {
        kit_widget wanted = widget;
        wanted.text = words.c_str();
        wanted.state = state;
        wanted.caret = caret;
        wanted.anchor = anchor;
        orvel_theme theme;
        orvel_theme_default(&theme);
        const CanvasPtr plain = make_canvas(widget.box.w, widget.box.h);
        orvel_canvas_clear(plain.get(), theme.background);
        kit_draw(plain.get(), &theme, &wanted);
        const CanvasPtr part = make_canvas(widget.box.w, widget.box.h);
        kit_copy(part.get(), 0, 0, canvas.get(), &widget.box);
        return checksum(part.get()) == checksum(plain.get());
    }
    /// The words that show with "|" at the caret and "[" or "]" at the other end of a selection, as
    /// the kit draws it; "?" where it is none of these.
    std::string seen(const std::string& words, unsigned state = KIT_FOCUS) const {
        EXPECT_EQ(kit_screen_draw(screen.get(), canvas.get(), nullptr), 0);
        EXPECT_EQ(checksum(canvas.get()), checksum(drawn(screen.get()).get()));
        if (looks_like(words, state & ~unsigned{KIT_FOCUS}, 0, 0)) return words;
        const int size = static_cast<int>(words.size());
        for (int caret = 0; caret <= size; ++caret) {
            for (int anchor = 0; anchor <= size; ++anchor) {
                if (!looks_like(words, state, caret, anchor)) continue;
                std::string marked = words;
                if (anchor > caret) marked.insert(static_cast<std::size_t>(anchor), "]");
                marked.insert(static_cast<std::size_t>(caret), "|");
                if (anchor < caret) marked.insert(static_cast<std::size_t>(anchor), "[");
                return marked;
            }
        }
        return "?";
    }
    std::string seen() const {
        move(widget.box.w + 20, 110);  // so that nothing is hovered
        return seen(text());
    }
    /// Sets caret and selection by the pointer.
    void select(int anchor, int caret) {
        now += 1000;
        press(at(anchor), 15);
        move(at(caret), 15);
        release(at(caret), 15);
    }

    kit_widget widget = {};
    CanvasPtr canvas;
};

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

TEST(FieldsTest, APressSetsTheCaretAtTheNearestPlace) {
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

TEST(FieldsTest, DraggingSelects) {
    const Typing field("abcdef");
    field.press(field.at(2), 15);
    field.move(field.at(4), 15);
    EXPECT_EQ(field.seen(), "ab[cdef|");  // seen() moves far to the right
    field.move(field.at(1), 90);
    field.release(field.at(1), 90);
    EXPECT_EQ(field.seen(), "a|b]cdef");
}

TEST(FieldsTest, ADoubleClickSelectsAWordAndATripleClickAll) {
    Typing field("ab cde fg");
    field.click(field.at(5) + 2, 15);
    field.click(field.at(5) + 2, 15);
    EXPECT_EQ(field.seen(), "ab [cde| fg");
    field.click(field.at(5) + 2, 15);
    EXPECT_EQ(field.seen(), "[ab cde fg|");
    field.click(field.at(5) + 1, 15);
    EXPECT_EQ(field.seen(), "ab cd|e fg");
}

TEST(FieldsTest, TheWordOfADoubleClickIsTheOneUnderThePointer) {
    Typing field("ab cd");
    field.click(field.at(2) - 1, 15);  // nearer to the place behind the letter
    field.click(field.at(2) - 1, 15);
    EXPECT_EQ(field.seen(), "[ab| cd");
    field.now += 1000;
    field.click(field.at(2) + 1, 15);
    field.click(field.at(2) + 1, 15);
    EXPECT_EQ(field.seen(), "ab[ |cd");
}

TEST(FieldsTest, DraggingBehindADoubleClickGoesByWords) {
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

TEST(FieldsTest, DraggingBehindATripleClickChangesNothing) {
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

TEST(FieldsTest, ADoubleClickIsSoonAndNear) {
    Typing field("ab cde fg");
    const int x = field.at(5);
    const auto twice = [&](int later, int dx, int dy) {
        field.now += 10000;
        field.click(x, 10);
        field.now += later;
        field.click(x + dx, 10 + dy);
        field.key('c', kControl);
        return field.changes() != "";
    };
    EXPECT_TRUE(twice(400, 0, 0));
    EXPECT_FALSE(twice(401, 0, 0));
    EXPECT_TRUE(twice(0, 4, -4));
    EXPECT_TRUE(twice(0, -4, 4));
    EXPECT_FALSE(twice(0, 5, 0));
    EXPECT_FALSE(twice(0, 0, -5));
}

TEST(FieldsTest, PressesInTwoFieldsAreNoDoubleClick) {
    const Typing field("ab");
    field.click(80, 29);
    field.click(80, 75);
    field.click(80, 29);
    EXPECT_EQ(field.seen(), "ab|");
}

TEST(FieldsTest, APressWithShiftExtends) {
    Typing field("abcdef");
    field.click(field.at(2), 15);
    field.press_with(kShift, field.at(4));
    field.release(field.at(4), 15);
    field.key('c', kControl);
    EXPECT_EQ(field.changes(), "copy #it=\"cd\"\n");
    field.press_with(kShift, field.at(1));
    field.release(field.at(1), 15);
    EXPECT_EQ(field.seen(), "a|b]cdef");
    field.focus("go");
    field.press_with(kShift, field.at(3));  // which has nothing to extend
    field.release(field.at(3), 15);
    EXPECT_EQ(field.seen(), "abc|def");
}

TEST(FieldsTest, AShortMoveOfThePointerUpAndDownSelectsNothing) {
    const Typing field("abcdef");
    field.press(field.at(2), 15);
    field.move(field.at(2), 19);
    field.release(field.at(2), 19);
    EXPECT_EQ(field.seen(), "ab|cdef");
}

TEST(FieldsTest, OtherButtonsOnlyMoveThePointer) {
    const Typing field("abc");
    kit_screen_event event = {};
    event.kind = KIT_EVENT_PRESS;
    event.button = 1;
    event.x = event.y = 15;
    field.send(event);
    EXPECT_EQ(field.seen(), "abc");
}

TEST(FieldsTest, ArrowsHomeAndEndMoveTheCaret) {
    Typing field("ab cd");
    const auto after = [&](int key, unsigned modifiers = 0) {
        field.key(key, modifiers);
        return field.seen();
    };
    field.select(3, 3);
    EXPECT_EQ(after(KIT_KEY_LEFT), "ab| cd");
    EXPECT_EQ(after(KIT_KEY_RIGHT), "ab |cd");
    EXPECT_EQ(after(KIT_KEY_RIGHT, kShift), "ab [c|d");
    EXPECT_EQ(after(KIT_KEY_LEFT), "ab |cd");
    EXPECT_EQ(after(KIT_KEY_HOME), "|ab cd");
    EXPECT_EQ(after(KIT_KEY_END, kShift), "[ab cd|");
    EXPECT_EQ(after(KIT_KEY_END), "ab cd|");
    EXPECT_EQ(after(KIT_KEY_HOME, kShift), "|ab cd]");
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
    const auto after = [&](int key, unsigned modifiers = 0) {
        field.key(key, modifiers);
        return field.seen();
    };
    field.select(4, 4);
    EXPECT_EQ(after(KIT_KEY_BACKSPACE), "ab |d ef");
    EXPECT_EQ(after(KIT_KEY_DELETE), "ab | ef");
    EXPECT_EQ(after(KIT_KEY_DELETE, kControl), "ab |");
    EXPECT_EQ(after(KIT_KEY_BACKSPACE, kAlt), "|");
    EXPECT_EQ(field.changes(), "value #it name=\"\"\n");
    EXPECT_EQ(after(KIT_KEY_BACKSPACE), "|");
    EXPECT_EQ(field.changes(), "");
}

TEST(FieldsTest, ControlAndLettersDoWhatTheyDoEverywhere) {
    Typing field("abc");
    field.select(1, 2);
    field.key('c', kControl);
    EXPECT_EQ(field.changes(), "copy #it=\"b\"\n");
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

TEST(FieldsTest, EscapeBringsBackTheTextFromBefore) {
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

TEST(FieldsTest, EscapeGoesBackToAValueFromOutside) {
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

TEST(FieldsTest, EscapeGoesBackToTheTextOfTheRowThatIsThereNow) {
    const Used used(scene(R"({"column": [{"each": "rows", "as": "row", "textbox": "${row}"}]})",
                          R"("size": [100, 100], "sample": {"rows": ["a", "b"]}, )"));
    used.key(KIT_KEY_TAB);
    used.key(KIT_KEY_TAB);
    EXPECT_EQ(set(used.screen.get(), "rows", R"(["new", "a", "b"])"), "");
    used.key(KIT_KEY_ESCAPE);
    EXPECT_EQ(used.changes(), "");
    EXPECT_EQ(used.value("rows"), R"(["new","a","b"])");
}

TEST(FieldsTest, EscapeEmptiesASearch) {
    const Typing field("abc", "", "search");
    field.focus("it");
    field.key(KIT_KEY_ESCAPE);
    EXPECT_EQ(field.changes(), "value #it name=\"\"\n");
    EXPECT_EQ(field.seen(), "|");
    field.key('z', kControl);
    EXPECT_EQ(field.seen(), "[abc|");
}

TEST(FieldsTest, WhatIsComposedShowsUnderlinedUntilItIsTyped) {
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

TEST(FieldsTest, WhatIsComposedInALongTextIsUnderlinedAsFarAsItShows) {
    const Typing field(std::string(60, 'x'));
    field.focus("it");
    field.compose(std::string(50, 'y').c_str(), 50);
    EXPECT_EQ(kit_screen_draw(field.screen.get(), field.canvas.get(), nullptr), 0);
    EXPECT_EQ(checksum(field.canvas.get()), checksum(drawn(field.screen.get()).get()));
    kit_box caret;
    EXPECT_EQ(kit_screen_caret(field.screen.get(), &caret), 0);
    orvel_theme theme;
    orvel_theme_default(&theme);
    const int row = caret.y + caret.h - 1;
    EXPECT_EQ(orvel_canvas_pixel_get(field.canvas.get(), 6, row), theme.text);
    EXPECT_FALSE(orvel_canvas_pixel_get(field.canvas.get(), 5, row) == theme.text);
    EXPECT_FALSE(orvel_canvas_pixel_get(field.canvas.get(), 95, row) == theme.text);
}

TEST(FieldsTest, WhatIsComposedIsGivenUpByAnEmptyOneAPressAndTheWindow) {
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

TEST(FieldsTest, KeysBelongToTheInputMethodWhileItComposes) {
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

TEST(FieldsTest, WhatIsComposedStandsInPlaceOfTheSelection) {
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

TEST(FieldsTest, AValueFromOutsideReplacesTheTextAndEndsUndo) {
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

TEST(FieldsTest, AnotherValueFromOutsideChangesNothing) {
    Typing field("abc");
    field.select(1, 1);
    field.type("x");
    EXPECT_EQ(set(field.screen.get(), "other", "\"uv\""), "");
    EXPECT_EQ(field.seen(), "ax|bc");
    field.key('z', kControl);
    EXPECT_EQ(field.seen(), "a|bc");
}

TEST(FieldsTest, WhatTheScreenRefusesIsNotTyped) {
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

TEST(FieldsTest, WithoutAValueOfTheDataItIsTheHostsToDo) {
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

TEST(FieldsTest, TheHostMayGiveAnotherTextThanWasTyped) {
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

TEST(FieldsTest, TheKeyboardGoesFromOneFieldToTheNext) {
    const Typing field("abc");
    field.focus("it");
    field.focus("other");
    field.type("y");
    EXPECT_EQ(field.changes(), "value #other other=\"y\"\n");
    EXPECT_EQ(field.seen(), "abc");
}

TEST(FieldsTest, ADragEndsWhereTheHostTakesTheKeyboardAway) {
    Typing field("abc");
    field.press(field.at(1), 15);
    field.move(120, 15);
    field.focus("go");
    field.wait(1000);
    field.move(field.at(2), 15);
    field.focus("it");
    EXPECT_EQ(field.seen(), "[abc|");
}

TEST(FieldsTest, ALimitCountsCharacters) {
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

TEST(FieldsTest, ASecretShowsDotsAndIsNotCopied) {
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

TEST(FieldsTest, WhereAFaceLacksTheDotASecretShowsAsterisks) {
    const Used used(scene(R"({"textbox": "12", "secret": true, "id": "it", "face": "digits 64"})"));
    EXPECT_EQ(used.line("it"), "textbox =\"**\"");
}

TEST(FieldsTest, LimitAndSecretFollowTheData) {
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

/// The offset of the caret, found by what a letter typed there makes of the text.
int caret_of(const Typing& field) {
    field.type("|");
    const int offset = static_cast<int>(field.text().find('|'));
    field.key('z', kControl);
    return offset;
}

TEST(FieldsTest, ALongTextStaysWhereItIsWhileTheCaretShows) {
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

TEST(FieldsTest, APressInALongTextWithoutTheKeyboardFindsWhatShows) {
    const Typing field(std::string(60, 'x'));
    field.click(6 + 5 * 6, 15);
    EXPECT_EQ(caret_of(field), 5);
    kit_box caret;
    kit_screen_caret(field.screen.get(), &caret);
    EXPECT_EQ(caret.x, 6 + 5 * 6 - 1);
}

TEST(FieldsTest, DraggingBesideTheFieldScrolls) {
    Typing field(std::string(60, 'x'));
    field.press(6 + 5 * 6, 15);
    field.move(120, 15);
    field.key('c', kControl);
    EXPECT_EQ(field.changes(), "copy #it=\"" + std::string(14, 'x') + "\"\n");
    EXPECT_EQ(kit_screen_wait(field.screen.get(), field.now), 60);
    field.wait(59);
    field.key('c', kControl);
    EXPECT_EQ(field.changes(), "copy #it=\"" + std::string(14, 'x') + "\"\n");
    field.wait(1);
    field.key('c', kControl);
    EXPECT_EQ(field.changes(), "copy #it=\"" + std::string(15, 'x') + "\"\n");
    field.wait(60 * 5);
    field.key('c', kControl);
    EXPECT_EQ(field.changes(), "copy #it=\"" + std::string(20, 'x') + "\"\n");
    field.move(50, 15);  // back over the words
    EXPECT_EQ(kit_screen_wait(field.screen.get(), field.now), -1);
    field.move(-9, 15);
    field.wait(60 * 60);
    field.release(-9, 15);
    field.key('c', kControl);
    EXPECT_EQ(field.changes(), "copy #it=\"" + std::string(5, 'x') + "\"\n");
    EXPECT_EQ(kit_screen_wait(field.screen.get(), field.now), -1);
}

TEST(FieldsTest, HeldBesideTheEndOfItsWordsAFieldWaitsForNothing) {
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

TEST(FieldsTest, HeldBesideItAfterATripleClickAFieldWaitsForNothing) {
    const Typing field(std::string(60, 'x'));
    field.click(20, 15);
    field.click(20, 15);
    field.press(20, 15);
    field.move(120, 15);
    EXPECT_EQ(kit_screen_wait(field.screen.get(), field.now), -1);
}

TEST(FieldsTest, AfterALongTimeBesideTheFieldAllIsSelected) {
    Typing field(std::string(300, 'x'));
    field.press(6 + 5 * 6, 15);
    field.move(120, 15);
    field.wait(1000000000);
    field.key('x', kControl);
    field.changes();
    EXPECT_EQ(field.text(), "xxxxx");
}

TEST(FieldsTest, DraggingByWordsBesideTheFieldScrollsByWords) {
    Typing field("aaaa bbbb cccc dddd eeee ffff gggg");
    field.click(20, 15);
    field.press(20, 15);
    field.move(95, 15);
    field.wait(60);
    field.wait(60);
    field.release(95, 15);
    field.key('c', kControl);
    EXPECT_EQ(field.changes(), "copy #it=\"aaaa bbbb cccc dddd eeee\"\n");
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

TEST(FieldsTest, ThePointerIsThatOfTextOverIt) {
    const Typing field("abc");
    field.move(50, 15);
    EXPECT_EQ(kit_screen_pointer(field.screen.get()), KIT_POINTER_TEXT);
    field.move(50, 45);
    EXPECT_EQ(kit_screen_pointer(field.screen.get()), KIT_POINTER_HAND);
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

TEST(FieldsTest, AHintShowsWhileItIsEmpty) {
    Typing field("", R"("hint": "Name", )");
    field.widget.hint = "Name";
    EXPECT_EQ(field.seen(), "");
    field.focus("it");
    EXPECT_EQ(field.seen(), "|");
    field.type("a");
    EXPECT_EQ(field.seen(), "a|");
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
    const auto drawn_anew = [&] {
        kit_box dirty = {};
        EXPECT_EQ(kit_screen_draw(field.screen.get(), field.canvas.get(), &dirty), 0);
        EXPECT_EQ(checksum(field.canvas.get()), checksum(drawn(field.screen.get()).get()));
        return dirty == kit_box{0, 0, 100, 30};
    };
    field.focus("it");
    field.key(KIT_KEY_END);
    drawn_anew();
    field.key('a', kControl);  // the anchor
    EXPECT_TRUE(drawn_anew());
    field.key(KIT_KEY_HOME);  // both
    EXPECT_TRUE(drawn_anew());
    field.compose("x", 1);
    drawn_anew();
    field.type("x");  // the end of what was composed
    EXPECT_TRUE(drawn_anew());
    field.compose("y", 1);
    drawn_anew();
    field.type("y");  // its begin, too
    EXPECT_TRUE(drawn_anew());
}

TEST(FieldsTest, ALongTextIsScrolledAnewInAnotherFace) {
    const Typing field("a long text that does not fit into its field");
    field.focus("it");
    field.key(KIT_KEY_END);
    EXPECT_EQ(kit_screen_draw(field.screen.get(), field.canvas.get(), nullptr), 0);
    EXPECT_EQ(kit_screen_change(field.screen.get(), "it", "face", "\"bold 14\"", nullptr, 0), 0);
    EXPECT_EQ(kit_screen_draw(field.screen.get(), field.canvas.get(), nullptr), 0);
    EXPECT_EQ(checksum(field.canvas.get()), checksum(drawn(field.screen.get()).get()));
}

}  // namespace
