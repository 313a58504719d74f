// The lists of dropdowns, which open over the rest.
#include "live.h"

namespace {

using namespace orvel_test;

const std::string kModes = scene(
    R"({"column": [{"dropdown": "Choose", "items": ["Eco", "Comfort", "Boost"], "id": "mode",
                    "selected": "${mode}", "width": 90, "height": 24},
        {"button": "Below", "id": "below", "height": 100}]})",
    R"("size": [200, 200], "sample": {"mode": 1}, )");

TEST(ListsTest, ADropdownShowsItsItemAndOpensOverTheRest) {
    const Used used(kModes);
    EXPECT_EQ(used.line("mode"), "dropdown =\"Comfort\"");
    used.click(50, 12);
    EXPECT_EQ(used.line("mode"), "dropdown =\"Comfort\" open focus");
    EXPECT_EQ(used.popped(),
              "column 0,24 90x74\n"
              "  list_item \"Eco\" 1,25 88x24\n"
              "  list_item \"Comfort\" on focus 1,49 88x24\n"
              "  list_item \"Boost\" 1,73 88x24\n");
    used.move(50, 80);
    EXPECT_EQ(used.line("below"), "button \"Below\"");  // is out of reach
    used.click(50, 80);
    EXPECT_EQ(used.changes(), "value #mode mode=2\n");
    EXPECT_EQ(used.popped(), "");
    EXPECT_EQ(used.line("mode"), "dropdown =\"Boost\" focus");
    EXPECT_STREQ(kit_screen_report(used.screen.get()), "");
}

TEST(ListsTest, TheListIsDrawnOverTheRestAndGoesWithoutATrace) {
    const Used used(kModes);
    const CanvasPtr before = drawn(used.screen.get());
    const CanvasPtr canvas = drawn(used.screen.get());
    used.focus("mode");
    used.focus(nullptr);
    used.press(50, 12);
    used.release(50, 12);
    kit_box dirty = {};
    EXPECT_EQ(kit_screen_draw(used.screen.get(), canvas.get(), &dirty), 0);
    EXPECT_EQ(dirty, (kit_box{0, 0, 200, 124}));
    EXPECT_TRUE(checksum(canvas.get()) == checksum(drawn(used.screen.get()).get()));
    EXPECT_FALSE(checksum(canvas.get()) == checksum(before.get()));
    used.key(KIT_KEY_ESCAPE);
    used.leave();
    EXPECT_EQ(kit_screen_draw(used.screen.get(), canvas.get(), &dirty), 0);
    used.focus(nullptr);
    EXPECT_EQ(kit_screen_draw(used.screen.get(), canvas.get(), nullptr), 0);
    EXPECT_TRUE(checksum(canvas.get()) == checksum(before.get()));
}

TEST(ListsTest, ItsRowsBearNoSignThatTheyLeadFurther) {
    const Used used(kModes);
    used.click(50, 12);
    const CanvasPtr canvas = drawn(used.screen.get());
    orvel_theme theme;
    orvel_theme_default(&theme);
    for (int row = 0; row < 3; ++row) {
        const orvel_color ground = row == 1 ? theme.button_hover : theme.background;
        for (int i = 0; i < 9 * 22; ++i) {
            const int x = 79 + i % 9, y = 26 + 24 * row + i / 9;
            EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), x, y), ground) << x << ' ' << y;
        }
        const orvel_color edge = row == 1 ? theme.accent : theme.border;
        EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 88, 36 + 24 * row), edge);
    }
}

TEST(ListsTest, APressBesideItClosesItAndDoesNothingElse) {
    const Used used(kModes);
    used.click(50, 12);
    used.click(150, 80);
    EXPECT_EQ(used.popped(), "");
    EXPECT_EQ(used.changes(), "");
    used.click(50, 12);
    used.click(50, 12);  // on the dropdown itself
    EXPECT_EQ(used.popped(), "");
    used.click(50, 12);
    used.press(50, 60);
    used.release(150, 180);  // dragged off a row
    EXPECT_NE(used.popped(), "");
    EXPECT_EQ(used.changes(), "");
    used.click(0, 30);  // its edge
    EXPECT_NE(used.popped(), "");
}

TEST(ListsTest, KeysGoThroughTheList) {
    const Used used(kModes);
    used.focus("mode");
    used.key(KIT_KEY_ENTER);
    used.key(KIT_KEY_DOWN, 0, 5);
    EXPECT_NE(used.popped().find("list_item \"Boost\" focus"), std::string::npos);
    used.key(KIT_KEY_UP);
    used.key(KIT_KEY_HOME);
    EXPECT_NE(used.popped().find("list_item \"Eco\" focus"), std::string::npos);
    EXPECT_EQ(used.changes(), "");
    used.key(KIT_KEY_ENTER);
    EXPECT_EQ(used.changes(), "value #mode mode=0\n");
    used.key(' ');
    used.key(KIT_KEY_END);
    used.key(KIT_KEY_ESCAPE);
    used.key(KIT_KEY_DOWN, KIT_MOD_ALT);
    EXPECT_NE(used.popped().find("list_item \"Eco\" on focus"), std::string::npos);
    used.key(KIT_KEY_UP, KIT_MOD_ALT);
    EXPECT_EQ(used.popped(), "");
    used.key(' ');
    used.key('q');
    used.key(KIT_KEY_TAB);
    EXPECT_EQ(used.popped(), "");
    EXPECT_EQ(used.focused(), " below");
    EXPECT_EQ(used.changes(), "");
}

TEST(ListsTest, KeysChooseWithoutOpening) {
    const Used used(kModes);
    used.focus("mode");
    used.key(KIT_KEY_DOWN);
    EXPECT_EQ(used.changes(), "value #mode mode=2\n");
    used.key(KIT_KEY_LEFT);
    EXPECT_EQ(used.changes(), "value #mode mode=1\n");
    used.key(KIT_KEY_HOME);
    used.key(KIT_KEY_END);
    used.key(KIT_KEY_PAGE_UP);
    EXPECT_EQ(used.changes(), "value #mode mode=2\n");
    used.type("c");
    EXPECT_EQ(used.changes(), "value #mode mode=1\n");
    used.key(KIT_KEY_ENTER);
    used.type("x");
    used.key(KIT_KEY_ESCAPE);
    used.type("e");
    EXPECT_EQ(used.changes(), "");  // still "cxe"
}

TEST(ListsTest, OtherKeysChooseNothing) {
    const Used used(kModes);
    used.focus("mode");
    used.key(KIT_KEY_UP);
    EXPECT_EQ(used.changes(), "value #mode mode=0\n");
    used.key(KIT_KEY_DOWN, KIT_MOD_CONTROL);
    used.key(KIT_KEY_RIGHT, KIT_MOD_SHIFT);
    used.key(KIT_KEY_PAGE_DOWN);
    EXPECT_EQ(used.changes(), "");
    EXPECT_EQ(used.popped(), "");
}

TEST(ListsTest, ADropdownWithoutItemsLeavesTheArrowsAlone) {
    const Used used(scene(R"({"dropdown": "Choose", "id": "mode"})", R"("size": [90, 24], )"));
    used.focus("mode");
    used.key(KIT_KEY_DOWN);
    used.key(KIT_KEY_DOWN, KIT_MOD_ALT);
    EXPECT_EQ(used.changes(), "");
    EXPECT_EQ(used.popped(), "");
}

TEST(ListsTest, LettersGoThroughTheList) {
    Used used(kModes);
    used.focus("mode");
    used.key(' ');
    used.type("b");
    EXPECT_NE(used.popped().find("list_item \"Boost\" focus"), std::string::npos);
    used.key(KIT_KEY_ENTER);
    EXPECT_EQ(used.changes(), "value #mode mode=2\n");
}

TEST(ListsTest, ADropdownCanHaveAText) {
    const Used used(scene(R"({"dropdown": "${mode}", "items": ["Eco", "Comfort"], "id": "it"})",
                          R"("size": [100, 100], "sample": {"mode": "Comfort"}, )"));
    used.focus("it");
    used.key(KIT_KEY_ENTER);
    EXPECT_NE(used.popped().find("list_item \"Comfort\" on focus"), std::string::npos);
    used.key(KIT_KEY_UP);
    used.key(KIT_KEY_ENTER);
    EXPECT_EQ(used.changes(), "value #it mode=\"Eco\"\n");
    set(used.screen.get(), "mode", "\"Other\"");
    used.key(KIT_KEY_DOWN);
    EXPECT_EQ(used.changes(), "value #it mode=\"Eco\"\n");
}

TEST(ListsTest, WithoutAChosenItemItShowsItsOwnWords) {
    const Used used(kModes);
    set(used.screen.get(), "mode", "-1");
    EXPECT_EQ(used.line("mode"), "dropdown =\"Choose\"");
    used.focus("mode");
    used.key(KIT_KEY_ENTER);
    used.key(KIT_KEY_ENTER);  // no row is marked
    EXPECT_EQ(used.changes(), "");
    set(used.screen.get(), "mode", "7");
    EXPECT_NE(std::string(kit_screen_report(used.screen.get())).find("range: \"selected\" is 7"),
              std::string::npos);
}

/// A dropdown of many items, at a height.
std::string many(int top, int count, int height = 100) {
    std::string items;
    for (int i = 0; i < count; ++i) items += (i > 0 ? ", " : "") + std::to_string(i);
    return scene(
        R"({"column": [{"space": )" + std::to_string(top) +
            R"(}, {"dropdown": "A", "id": "it", "selected": "${a}", "height": 20, "items": [)" +
            items + "]}]}",
        R"("sample": {"a": 0}, "size": [60, )" + std::to_string(height) + "], ");
}

std::string list_box(const std::string& text) {
    const Used used(text);
    used.focus("it");
    used.key(KIT_KEY_ENTER);
    const std::string popped = used.popped();
    return popped.substr(7, popped.find('\n') - 7);
}

TEST(ListsTest, TheListFindsItsPlaceOnTheScreen) {
    EXPECT_EQ(list_box(many(0, 2)), "0,20 60x50");
    EXPECT_EQ(list_box(many(80, 2)), "0,30 60x50");  // there is no room below
    EXPECT_EQ(list_box(many(0, 20)), "0,20 60x80");  // it scrolls
    EXPECT_EQ(list_box(many(70, 20)), "0,0 60x70");  // above is more room
    EXPECT_EQ(list_box(many(10, 20, 40)), "0,0 60x20");
    const std::string wide = scene(
        R"({"row": [{"space": 80}, {"dropdown": "A", "items": ["Very long words", "B"], "id": "it",
                     "width": 20, "height": 20}]})",
        R"("size": [100, 100], )");
    EXPECT_EQ(list_box(wide), "0,20 100x50");
}

TEST(ListsTest, ALongListScrolls) {
    const Used used(many(0, 1000));
    used.focus("it");
    used.key(KIT_KEY_ENTER);
    used.key(KIT_KEY_DOWN, 0, 5);
    EXPECT_NE(used.popped().find("list_item \"5\" focus 1,75 58x24"), std::string::npos);
    used.key(KIT_KEY_PAGE_DOWN);
    EXPECT_NE(used.popped().find("list_item \"8\" focus 1,75 58x24"), std::string::npos);
    used.key(KIT_KEY_PAGE_UP);
    used.key(KIT_KEY_END);
    EXPECT_NE(used.popped().find("list_item \"999\" focus 1,75 58x24"), std::string::npos);
    used.wheel(30, 50, 120);
    EXPECT_NE(used.popped().find("list_item \"999\" focus 1,123"), used.popped().size());
    used.press(56, 25);  // the bar, at its top
    used.release(56, 25);
    EXPECT_NE(used.popped().find("list_item \"0\" on"), std::string::npos) << used.popped();
    used.press(30, 90);
    used.move(30, 60);  // a finger
    used.release(30, 60);
    EXPECT_NE(used.popped(), "");
    EXPECT_EQ(used.changes(), "");
    // Opened again, what is chosen is in the middle.
    used.key(KIT_KEY_ESCAPE);
    set(used.screen.get(), "a", "500");
    used.key(KIT_KEY_ENTER);
    EXPECT_NE(used.popped().find("list_item \"500\" on hover focus 1,48 58x24"), std::string::npos)
        << used.popped();
}

TEST(ListsTest, WhatOpenedGoesWithItsDropdown) {
    const Used used(kModes);
    used.focus("mode");
    used.key(KIT_KEY_ENTER);
    EXPECT_EQ(kit_screen_change(used.screen.get(), "mode", "disabled", "true", nullptr, 0), 0);
    EXPECT_EQ(used.popped(), "");
    EXPECT_EQ(kit_screen_change(used.screen.get(), "mode", "disabled", nullptr, nullptr, 0), 0);
    EXPECT_EQ(used.popped(), "");
    used.focus("mode");
    used.key(KIT_KEY_ENTER);
    used.plain(KIT_EVENT_BLUR);
    EXPECT_EQ(used.popped(), "");
    used.key(KIT_KEY_ENTER);
    EXPECT_EQ(used.focus("below"), 0);
    EXPECT_EQ(used.popped(), "");
}

TEST(ListsTest, ADropdownIsAsWideAsItsWidestItem) {
    const auto width = [](const char* node) {
        return Used(scene(std::string(R"({"row": [{"id": "it", )") + node + "}]}",
                          R"("size": [300, 30], )"))
            .box("it")
            .w;
    };
    EXPECT_EQ(width(R"("dropdown": "A", "items": ["Wide words", "B"], "selected": 1)"),
              width(R"("dropdown": "Wide words")"));
    EXPECT_EQ(width(R"("dropdown": "Wide words", "items": ["A", "B"])"),
              width(R"("dropdown": "Wide words")"));
}

TEST(ListsTest, AListIsAsWideAsItsWidestItem) {
    const auto width = [](const std::string& words, int screen) {
        const std::string box =
            list_box(scene(R"({"row": [{"dropdown": "A", "items": ["B", ")" + words +
                               R"("], "id": "it", "width": 40, "height": 20}]})",
                           R"("size": [)" + std::to_string(screen) + ", 100], "));
        return std::atoi(box.substr(box.find(' ') + 1).c_str());
    };
    for (const char* words : {"Wide words, and many of them", "Comfort", "WWWWWWWWWW"}) {
        kit_widget row = {};
        row.kind = ORVEL_WIDGET_LIST_ITEM;
        row.text = words;
        int wanted = 0;
        ASSERT_EQ(kit_size(&row, &wanted, nullptr), 0);
        EXPECT_GE(width(words, 400), wanted + 2) << words;  // and its edge
    }
    EXPECT_EQ(width("Wide words, and many of them", 100), 100);
}

TEST(ListsTest, WhatOpenedGoesWithItsItemsItsPlaceAndItself) {
    const auto open = [](const Used& used) {
        used.focus("mode");
        used.key(KIT_KEY_ENTER);
        return !used.popped().empty();
    };
    for (const auto& [key, json] : {std::pair{"items", "[]"}, {"height", "0"}}) {
        const Used used(kModes);
        EXPECT_TRUE(open(used));
        EXPECT_EQ(kit_screen_change(used.screen.get(), "mode", key, json, nullptr, 0), 0) << key;
        EXPECT_EQ(used.popped(), "") << key;
    }
    const Used used(kModes);
    EXPECT_TRUE(open(used));
    EXPECT_EQ(kit_screen_remove(used.screen.get(), "mode", nullptr, 0), 0);
    EXPECT_EQ(used.popped(), "");
}

TEST(ListsTest, ARowThatIsScrolledAwayIsHeldNoLonger) {
    const Used used(many(0, 100));
    used.focus("it");
    used.key(KIT_KEY_ENTER);
    used.press(30, 60);
    used.wheel(30, 60, -1200);
    used.move(31, 61);
    used.release(31, 61);
    EXPECT_NE(used.popped(), "");
    EXPECT_EQ(used.changes(), "");
}

TEST(ListsTest, AStepperThatGoesWhileAListIsOpenRepeatsNoMore) {
    Used used(scene(R"({"column": [{"stepper": "${n}", "id": "n", "if": "there", "height": 30},
        {"dropdown": "A", "items": ["A", "B"], "key": "f4", "id": "d", "height": 30}]})",
                    R"("size": [100, 150], "sample": {"n": 5, "there": true}, )"));
    used.press(90, 15);
    used.key(KIT_KEY_F4);
    used.changes();
    EXPECT_EQ(set(used.screen.get(), "there", "false"), "");
    used.wait(1000);
    EXPECT_EQ(used.changes(), "");
    EXPECT_NE(used.popped(), "");
}

}  // namespace
