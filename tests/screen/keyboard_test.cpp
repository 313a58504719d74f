// What keys do to a screen.
#include "live.h"

namespace {

using namespace orvel_test;

const std::string kForm = scene(
    R"({"column": [{"button": "A", "id": "a", "height": 24, "key": "ctrl+a"},
        {"button": "Off", "id": "off", "disabled": true, "height": 24, "key": "f5"},
        {"stack": [{"toggle": "${t}", "id": "hidden", "key": "f6"},
                   {"toggle": "${t}", "id": "t", "key": "alt+t"}], "show": 1, "height": 24},
        {"row": [{"textbox": "", "id": "field", "width": 60}, {"slider": "${s}", "id": "s", "key": "enter", "width": 100}]},
        {"checkbox": "C", "on": "${t}", "id": "c", "key": "x"}]})",
    R"("size": [200, 200], "sample": {"t": false, "s": 0.5}, )");

TEST(KeyboardTest, TabWalksWhatCanBeUsedInTheOrderOfTheTree) {
    const Used used(kForm);
    std::string walk;
    for (int i = 0; i < 6; ++i) {
        used.key(KIT_KEY_TAB);
        walk += used.focused();
    }
    EXPECT_EQ(walk, " a t field s c a");
    walk.clear();
    for (int i = 0; i < 5; ++i) {
        used.key(KIT_KEY_TAB, KIT_MOD_SHIFT);
        walk += used.focused();
    }
    EXPECT_EQ(walk, " c s field t a");
    const Used fresh(kForm);
    fresh.key(KIT_KEY_TAB, KIT_MOD_SHIFT);
    EXPECT_EQ(fresh.focused(), " c");
    fresh.key(KIT_KEY_TAB, KIT_MOD_CONTROL);
    EXPECT_EQ(fresh.focused(), " c");
    const Used none(scene(R"({"button": "A"})"));
    none.key(KIT_KEY_TAB);
    EXPECT_EQ(none.focused(), "");
}

/// Whether a pixel of the screen's first row is that of a ring.
bool has_ring(const Used& used) {
    const CanvasPtr canvas = drawn(used.screen.get());
    orvel_theme theme;
    orvel_theme_default(&theme);
    const orvel_color pixel = orvel_canvas_pixel_get(canvas.get(), 50, 0);
    return pixel.r == theme.accent.r && pixel.g == theme.accent.g && pixel.b == theme.accent.b;
}

TEST(KeyboardTest, TheRingShowsForKeysAndNotForThePointer) {
    const Used used(kForm);
    used.click(50, 10);
    EXPECT_EQ(used.focused(), " a");
    EXPECT_FALSE(has_ring(used));
    used.key(' ');
    EXPECT_TRUE(has_ring(used));
    used.plain(KIT_EVENT_BLUR);
    EXPECT_FALSE(has_ring(used));
    used.plain(KIT_EVENT_FOCUS);
    EXPECT_TRUE(has_ring(used));
    used.click(50, 199);
    EXPECT_EQ(used.focused(), "");
}

TEST(KeyboardTest, AFocusThatTheSceneShowsEndsWithARealOne) {
    const Used used(scene(R"({"column": [{"button": "A", "focus": true, "id": "a"},
                                         {"button": "B", "id": "b"}]})"));
    EXPECT_EQ(used.focused(), " a");
    EXPECT_EQ(used.focus("b"), 0);
    EXPECT_EQ(used.focused(), " b");
}

TEST(KeyboardTest, SpaceAndEnterPress) {
    const Used used(kForm);
    used.focus("a");
    used.key(' ');
    used.key(KIT_KEY_ENTER);
    EXPECT_EQ(used.changes(), "press #a\npress #a\n");
    used.focus("t");
    used.key(' ');
    used.focus("c");
    used.key(' ', KIT_MOD_CONTROL);
    used.key(KIT_KEY_ENTER);
    EXPECT_EQ(used.changes(), "value #t t=true\nvalue #c t=false\n");
}

TEST(KeyboardTest, ShortcutsUseAControlFromAnywhere) {
    const Used used(kForm);
    used.key('a', KIT_MOD_CONTROL);
    used.key('A', KIT_MOD_CONTROL);
    used.key('a');
    used.key('a', KIT_MOD_CONTROL | KIT_MOD_SHIFT);
    EXPECT_EQ(used.changes(), "press #a\npress #a\n");
    used.key('t', KIT_MOD_ALT);
    EXPECT_EQ(used.changes(), "value #t t=true\n");
    used.key(KIT_KEY_F5);  // is disabled
    used.key(KIT_KEY_F6);  // is hidden
    EXPECT_EQ(used.changes(), "");
    EXPECT_EQ(used.focused(), "");
    used.key(KIT_KEY_ENTER);  // what has no press gets the keyboard
    EXPECT_EQ(used.focused(), " s");
    used.key('x');
    EXPECT_EQ(used.changes(), "value #c t=false\n");
    used.focus("field");
    used.key('x');  // a letter for the field
    EXPECT_EQ(used.changes(), "");
    used.key('t', KIT_MOD_ALT);
    EXPECT_EQ(used.changes(), "value #t t=true\n");
}

const std::string kFind = scene(
    R"({"column": [{"search": "${q}", "id": "q", "key": "/", "width": 100},
                   {"textbox": "${n}", "id": "n", "key": "shift+n", "width": 100},
                   {"textbox": "${c}", "id": "c", "key": "ctrl+c", "width": 100},
                   {"button": "Go", "id": "go", "key": "x"}]})",
    R"("size": [200, 200], "sample": {"q": "", "n": "", "c": ""}, )");

TEST(KeyboardTest, TheCharacterOfAShortcutIsNotTypedIntoWhatItOpens) {
    Used used(kFind);
    used.key('/');
    used.wait(20);
    used.type("/");
    EXPECT_EQ(used.value("q"), "\"\"");
    used.key('/');  // is one of the field's now
    used.type("/");
    EXPECT_EQ(used.value("q"), "\"/\"");
    used.focus("");
    used.key('N', KIT_MOD_SHIFT);
    used.type("N");
    EXPECT_EQ(used.value("n"), "\"\"");
    used.focus("");
    used.key('x');
    used.focus("n");  // as the host may answer
    used.type("X");   // with Caps Lock
    used.type("x");
    EXPECT_EQ(used.value("n"), "\"x\"");
}

TEST(KeyboardTest, AKeyThatIsNoneUsesNothing) {
    const Used used(scene(R"({"column": [{"button": "Go", "id": "go"}]})"));
    used.key(0);
    EXPECT_EQ(used.changes(), "");
    EXPECT_EQ(used.focused(), "");
}

TEST(KeyboardTest, ASignThatNeedsShiftIsAShortcutWhereverItIsOnTheKeyboard) {
    const Used used(scene(
        R"({"column": [{"button": "Help", "id": "help", "key": "?"},
                       {"button": "7", "id": "seven", "key": "shift+7"},
                       {"button": "Blank", "id": "blank", "key": "space"},
                       {"button": "/", "id": "slash", "key": "/"},
                       {"textbox": "${q}", "id": "q"},
                       {"dropdown": "A", "items": ["A", "?"], "id": "d", "key": "f4"}]})",
        R"("size": [200, 300], "sample": {"q": ""}, )"));
    for (const int key : {0x2F, 0xDF, 0x3F}) {  // of three keyboards
        used.key(key, KIT_MOD_SHIFT);
        used.type("?");
        EXPECT_EQ(used.changes(), "press #help\n");
    }
    used.type("?");  // of a host that tells no keys
    used.type("?");
    used.type("??");
    used.type("!");
    EXPECT_EQ(used.changes(), "press #help\npress #help\n");
    used.key('7', KIT_MOD_SHIFT);
    used.type("/");
    EXPECT_EQ(used.changes(), "press #seven\n");
    used.key(' ', KIT_MOD_SHIFT);
    used.type(" ");
    EXPECT_EQ(used.changes(), "");
    used.key('/');
    used.move(5, 290);
    used.type("/");
    EXPECT_EQ(used.changes(), "press #slash\n");
    used.focus("q");
    used.type("?");
    EXPECT_EQ(used.changes(), "value #q q=\"?\"\n");
    used.focus("");
    used.key(KIT_KEY_F4);
    used.type("?");
    EXPECT_EQ(used.changes(), "");
}

TEST(KeyboardTest, WhatIsTypedOtherwiseAfterAShortcutIsTyped) {
    const Used used(kFind);
    used.key('/');
    used.type("a");
    used.type("/");
    EXPECT_EQ(used.value("q"), "\"a/\"");
    used.focus("");
    used.key('N', KIT_MOD_SHIFT);
    used.type("");
    used.type("N");
    used.focus("");
    used.key('N', KIT_MOD_SHIFT);
    used.type("de");
    EXPECT_EQ(used.value("n"), "\"de\"");
    used.focus("");
    used.key('c', KIT_MOD_CONTROL);
    used.type("c");
    EXPECT_EQ(used.value("c"), "\"c\"");
    used.focus("");
    used.key('/');
    used.move(5, 5);
    used.type("/");
    EXPECT_EQ(used.value("q"), "\"/\"");
}

TEST(KeyboardTest, KeysThatNobodyWantsScroll) {
    const std::string text = R"({"row": [{"column": [{"button": "A", "id": "a", "height": 300}],
            "scroll": true, "width": 50, "id": "left"},
        {"row": [{"rect": "accent", "width": 500, "id": "wide"}], "scroll": true, "width": 50},
        {"column": [{"rect": "error", "height": 300, "id": "high"}], "scroll": true, "grow": 1}]})";
    const Used used(scene(text, R"("size": [150, 100], )"));
    const auto tops = [&] {
        const std::string all = described(used.screen.get());
        const auto place = [&](const char* id) {
            const std::size_t at = all.find(id);
            return all.substr(at, all.find(' ', at + 6) - at);
        };
        return place("#a ") + ' ' + place("#wide ") + ' ' + place("#high ");
    };
    used.key(KIT_KEY_DOWN);
    EXPECT_EQ(tops(), "#a 0,-48 #wide 50,0 #high 100,0");
    used.key(KIT_KEY_PAGE_DOWN);
    EXPECT_EQ(tops(), "#a 0,-148 #wide 50,0 #high 100,0");
    used.key(KIT_KEY_END);
    EXPECT_EQ(tops(), "#a 0,-200 #wide 50,0 #high 100,0");
    used.key(KIT_KEY_HOME);
    used.key(KIT_KEY_DOWN, KIT_MOD_CONTROL);
    used.key(KIT_KEY_RIGHT);
    EXPECT_EQ(tops(), "#a 0,0 #wide 50,0 #high 100,0");
    used.move(75, 50);
    used.key(KIT_KEY_RIGHT);
    used.key(KIT_KEY_DOWN);
    EXPECT_EQ(tops(), "#a 0,0 #wide 2,0 #high 100,0");
    used.key(KIT_KEY_PAGE_DOWN);
    EXPECT_EQ(tops(), "#a 0,0 #wide -48,0 #high 100,0");
    used.move(125, 50);
    used.key(KIT_KEY_END);
    EXPECT_EQ(tops(), "#a 0,0 #wide -48,0 #high 100,-200");
    used.focus("a");
    used.key(KIT_KEY_PAGE_DOWN);
    EXPECT_EQ(tops(), "#a 0,-100 #wide -48,0 #high 100,-200");
    const Used none(scene(R"({"textbox": "", "id": "a"})"));
    none.key(KIT_KEY_END);
    none.focus("a");
    none.key(KIT_KEY_END);
}

TEST(KeyboardTest, EscapeEndsADrag) {
    const Used used(kForm);
    const kit_box box = used.box("s");
    used.press(box.x + 5, box.y + box.h / 2);
    EXPECT_NE(used.value("s"), "0.5");
    used.changes();
    used.key(KIT_KEY_ESCAPE);
    EXPECT_EQ(used.changes(), "value #s s=0.5\n");
    used.move(box.x + 50, box.y + 5);
    used.release(box.x + 50, box.y + 5);
    EXPECT_EQ(used.changes(), "");
    used.press(50, 10);
    used.key(KIT_KEY_ESCAPE);
    used.release(50, 10);
    EXPECT_EQ(used.changes(), "");
    used.press(box.x + box.w / 2, box.y + box.h / 2);  // on its knob, and not moved
    used.key(KIT_KEY_ESCAPE);
    used.key(KIT_KEY_ESCAPE);
    EXPECT_EQ(used.changes(), "");
}

TEST(KeyboardTest, WhatGoesLetsGo) {
    const Used used(scene(R"({"column": [{"button": "A", "id": "a", "if": "there", "height": 30},
                                         {"button": "B", "id": "b", "disabled": "${off}"}]})",
                          R"("size": [90, 90], "sample": {"there": true, "off": false}, )"));
    used.press(50, 10);
    EXPECT_EQ(used.focused(), " a");
    set(used.screen.get(), "there", "false");
    set(used.screen.get(), "there", "true");
    EXPECT_EQ(used.line("a"), "button \"A\" hover");
    used.release(50, 10);
    EXPECT_EQ(used.changes(), "");
    used.focus("b");
    set(used.screen.get(), "off", "true");
    EXPECT_EQ(used.focused(), "");
}

TEST(KeyboardTest, WhatIsOutOfSightAndCannotBeScrolledIsLeftOut) {
    const Used used(scene(R"({"column": [{"button": "A", "id": "a", "height": 30},
                                         {"button": "B", "id": "b", "height": 30},
                                         {"button": "C", "id": "c", "height": 0}]})",
                          R"("size": [90, 30], )"));
    used.key(KIT_KEY_TAB);
    used.key(KIT_KEY_TAB);
    EXPECT_EQ(used.focused(), " a");
}

TEST(KeyboardTest, AShortcutOpensADropdown) {
    const Used used(scene(R"({"column": [{"dropdown": "A", "items": ["A", "B"], "id": "d",
                                          "key": "f4"}]})",
                          R"("size": [100, 100], )"));
    used.key(KIT_KEY_F4);
    EXPECT_EQ(used.line("d"), "dropdown =\"A\" open focus");
    used.key(KIT_KEY_F4);  // goes to the list
    used.key(KIT_KEY_DOWN);
    used.key(KIT_KEY_ENTER);
    EXPECT_EQ(used.changes(), "value #d=\"B\"\n");
    EXPECT_EQ(used.line("d"), "dropdown =\"A\" focus");
}

TEST(KeyboardTest, WhatIsOutOfSightIsNotScrolled) {
    const Used used(scene(R"({"column": [{"space": 150}, {"column": [{"rect": "accent",
        "height": 300, "id": "in"}], "scroll": true, "height": 50}]})",
                          R"("size": [100, 100], )"));
    const std::string before = described(used.screen.get());
    used.key(KIT_KEY_END);
    EXPECT_EQ(described(used.screen.get()), before);
}

TEST(KeyboardTest, ARowScrollsToWhatGetsTheKeyboard) {
    const Used used(scene(R"({"row": [{"space": 150}, {"button": "A", "id": "a", "width": 50}],
                              "scroll": true})",
                          R"("size": [100, 40], )"));
    used.focus("a");
    EXPECT_EQ(used.box("a"), (kit_box{50, 0, 50, 40}));
}

TEST(KeyboardTest, ShortcutsAreWrittenInOneWay) {
    const auto said = [](const std::string& key) {
        return refusal(scene(R"({"button": "A", "key": ")" + key + "\"}"));
    };
    for (const char* good : {"a", "space", "f12", "ctrl+alt+shift+enter", "shift++", "ä", "+"}) {
        EXPECT_EQ(said(good), "") << good;
    }
    EXPECT_EQ(said("ctrl+S"),
              "scene:1:45: root.key: found \"ctrl+S\", expected a key, as f5, ctrl+s or "
              "ctrl+alt+shift+pageup");
    for (const char* bad :
         {"", " ", "A", "Z", "f13", "\x7F", "ctrl+", "alt+ctrl+a", "ab", "Enter"}) {
        EXPECT_NE(said(bad), "") << bad;
    }
}

TEST(KeyboardTest, ASharedShortcutIsTold) {
    const ScreenPtr screen = opened(scene(R"({"column": [{"button": "A", "id": "a", "key": "f1"},
            {"button": "B", "id": "b", "key": "f1"}, {"button": "C", "key": "f1"}]})"));
    const std::string report = kit_screen_report(screen.get());
    EXPECT_NE(report.find("root.column[1]: key: it is that of root.column[0], too"),
              std::string::npos)
        << report;
    EXPECT_EQ(report.find("root.column[2]"), std::string::npos) << report;
}

}  // namespace
