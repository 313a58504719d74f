// Data that change while a screen lives: what is drawn again, and that nothing else is.
#include <climits>

#include "screens.h"

namespace {

using namespace orvel_test;

const std::string kHead = "\"size\": [120, 80], ";

/// Draws what changed, compares the canvas with one that was drawn whole, and with what was there
/// outside of the dirty box, which it returns.
kit_box redrawn(kit_screen* screen, orvel_canvas* canvas) {
    const CanvasPtr before = make_canvas(orvel_canvas_width(canvas), orvel_canvas_height(canvas));
    kit_copy(before.get(), 0, 0, canvas, nullptr);
    kit_box dirty = {9, 9, 9, 9};
    EXPECT_EQ(kit_screen_draw(screen, canvas, &dirty), 0);
    const CanvasPtr whole = drawn(screen);
    for (int y = 0; y < orvel_canvas_height(canvas); ++y) {
        for (int x = 0; x < orvel_canvas_width(canvas); ++x) {
            const orvel_color now = orvel_canvas_pixel_get(canvas, x, y);
            EXPECT_EQ(now, orvel_canvas_pixel_get(whole.get(), x, y)) << x << ',' << y;
            const bool inside =
                x >= dirty.x && y >= dirty.y && x < dirty.x + dirty.w && y < dirty.y + dirty.h;
            EXPECT_TRUE(inside || now == orvel_canvas_pixel_get(before.get(), x, y));
            if (testing::Test::HasFailure()) return dirty;
        }
    }
    return dirty;
}

TEST(LiveDataTest, OnlyWhatChangedIsDrawnAgain) {
    const ScreenPtr screen =
        opened(scene(R"({"column": [{"text": "${a}", "height": 20}, {"panel": {"column": [
                  {"text": "${b}", "height": 20}, {"progress": "${c}", "height": 9}]}}], "gap": 5})",
                     kHead),
               R"({"a": "One", "b": "Two", "c": 0.5})");
    const CanvasPtr canvas = drawn(screen.get());
    EXPECT_EQ(redrawn(screen.get(), canvas.get()), kit_box{});
    EXPECT_EQ(set(screen.get(), "a", "\"Three\""), "");
    EXPECT_EQ(redrawn(screen.get(), canvas.get()), (kit_box{0, 0, 120, 20}));
    EXPECT_EQ(set(screen.get(), "b", "2"), "");
    EXPECT_EQ(redrawn(screen.get(), canvas.get()), (kit_box{1, 26, 118, 20}));
    EXPECT_EQ(set(screen.get(), "c", "0.75"), "");
    EXPECT_EQ(redrawn(screen.get(), canvas.get()), (kit_box{1, 46, 118, 9}));
    EXPECT_EQ(set(screen.get(), "c", "0.75"), "");
    EXPECT_EQ(redrawn(screen.get(), canvas.get()), kit_box{});
}

TEST(LiveDataTest, WhatComesAndGoesIsDrawnWithWhatItMoves) {
    const ScreenPtr screen = opened(scene(R"({"column": [{"rect": "accent", "height": 10},
                  {"each": "list", "rect": "${item}", "height": 10, "id": "r"},
                  {"icon": "home", "size": 20, "if": "list"}], "gap": 2})",
                                          kHead),
                                    R"({"list": ["error"]})");
    const CanvasPtr canvas = drawn(screen.get());
    EXPECT_EQ(set(screen.get(), "list[1]", "\"text\""), "");
    EXPECT_EQ(redrawn(screen.get(), canvas.get()), (kit_box{0, 24, 120, 32}));
    EXPECT_EQ(set(screen.get(), "list", "[]"), "");
    EXPECT_EQ(redrawn(screen.get(), canvas.get()), (kit_box{0, 12, 120, 44}));
    EXPECT_EQ(described(screen.get()), "column 0,0 120x80\n  rect 0,0 120x10\n");
}

TEST(LiveDataTest, IconsAreDrawnWholeSinceTheirCutOutsTakeTheGround) {
    const ScreenPtr screen =
        opened(scene(R"({"stack": [{"rect": "${color}", "width": 30, "height": 30},
                         {"icon": "settings", "size": 50}]})",
                     kHead),
               R"({"color": "error"})");
    const CanvasPtr canvas = drawn(screen.get());
    EXPECT_EQ(set(screen.get(), "color", "\"accent\""), "");
    EXPECT_EQ(redrawn(screen.get(), canvas.get()), (kit_box{0, 0, 50, 50}));
}

TEST(LiveDataTest, ALongChainOfNodesThatAreDrawnWholeIsDrawnWithAllElse) {
    std::string nodes;
    for (int i = 20; i > 0; --i) {  // each draws the next one in, which was looked at before
        nodes += R"({"row": [{"space": )" + std::to_string(5 * i) +
                 R"(}, {"icon": "home", "size": 10}], "align": "start"}, )";
    }
    const ScreenPtr screen = opened(
        scene(R"({"stack": [)" + nodes + R"({"rect": "${x}", "width": 6, "height": 2}]})", kHead),
        R"({"x": "error"})");
    const CanvasPtr canvas = drawn(screen.get());
    EXPECT_EQ(set(screen.get(), "x", "\"text\""), "");
    EXPECT_EQ(redrawn(screen.get(), canvas.get()), (kit_box{0, 0, 120, 80}));
}

TEST(LiveDataTest, AThemeReachesAllBelow) {
    const ScreenPtr screen =
        opened(scene(R"({"row": [{"column": [{"text": "Words", "width": 40, "height": 10}],
                           "theme": "${theme}"}, {"text": "Others", "grow": 1}]})",
                     kHead),
               R"({"theme": "dark"})");
    const CanvasPtr canvas = drawn(screen.get());
    EXPECT_EQ(set(screen.get(), "theme", "\"light\""), "");
    EXPECT_EQ(redrawn(screen.get(), canvas.get()), (kit_box{0, 0, 40, 10}));
    EXPECT_EQ(set(screen.get(), "theme", R"({"accent": "#010203"})"), "");
    EXPECT_EQ(redrawn(screen.get(), canvas.get()), (kit_box{0, 0, 40, 10}));
}

TEST(LiveDataTest, EveryKeyThatIsDrawnIsDrawnAnew) {
    struct Row {
        const char* node;
        const char* before;
        const char* after;
    };
    for (const Row& row : std::initializer_list<Row>{
             {R"("text": "Words", "align": "${x}")", "\"left\"", "\"right\""},
             {R"("text": "Words Words Words", "wrap": "${x}")", "false", "true"},
             {R"("text": "Words Words Words Words", "wrap": true, "lines": "${x}")", "2", "1"},
             {R"("text": "Words", "color": "${x}")", "\"text\"", "\"error\""},
             {R"("text": "Words", "color": "${x}")", "\"#010203\"", "\"#010204\""},
             {R"("text": "Words", "face": "${x}")", "\"sans 12\"", "\"bold 12\""},
             {R"("text": "Words", "ground": "${x}")", "\"surface\"", "\"error\""},
             {R"("text": "Words", "edge": "${x}")", "\"surface\"", "\"error\""},
             {R"("text": "Words", "pad": "${x}")", "1", "[1, 2]"},
             {R"("button": "Go", "icon": "${x}")", "\"mail\"", "\"home\""},
             {R"("button": "Go", "hover": "${x}")", "false", "true"},
             {R"("button": "Go", "focus": "${x}")", "false", "true"},
             {R"("dropdown": "Go", "on": "${x}")", "false", "true"},
             {R"("textbox": "", "hint": "${x}")", "\"A\"", "\"B\""},
             {R"("textbox": "A", "secret": "${x}")", "false", "true"},
             {R"("menu": ["A", "B"], "selected": "${x}")", "0", "1"},
             {R"("menu": "${x}")", "[\"A\"]", "[\"B\"]"},
             {R"("slider": 1, "range": "${x}")", "[0, 2]", "[0, 3]"},
             {R"("bars": "${x}")", "[0.5]", "[0.75]"},
             {R"("window": null, "title": "${x}")", "\"A\"", "\"B\""},
             {R"("chart": "${x}", "values": [1, 2, 3])", "\"line\"", "\"bars\""},
             {R"("chart": "line", "values": "${x}")", "[1, null, 3]", "[1, 2, 3]"},
             {R"("chart": "line", "values": "${x}")", "[1, 2, 3]", "[1, null, 3]"},
             {R"("chart": "line", "values": "${x}")", "[1, null, 3, 3]", "[1, null, 3, 4]"},
             {R"("chart": "line", "values": [1, 2], "range": "${x}")", "[0, 9]", "[0, 8]"},
             {R"("chart": "line", "values": [1, 2], "axes": "${x}")", "false", "true"},
             {R"("chart": "line", "values": [1, 2], "color": "${x}")", "\"text\"", "\"error\""},
             {R"("chart": "line", "axes": true, "values": [1, 2], "unit": "${x}")", "\"m\"",
              "\"s\""},
             {R"("chart": "line", "axes": true, "values": [1, 2], "decimals": "${x}")", "0", "2"},
             {R"("chart": "bars", "values": [1, 2], "labels": "${x}")", "[1, 2]", "[3, 2]"},
             {R"("chart": "line", "series": "${x}")", R"([{"values": [1]}])",
              R"([{"values": [1, 2]}])"},
             {R"("chart": "line", "legend": true, "series": "${x}")",
              R"([{"values": [1, 2], "name": "A"}])", R"([{"values": [1, 2], "name": "B"}])"},
             {R"("chart": "line", "series": "${x}")", R"([{"values": [1, 2]}])",
              R"([{"values": [1, 2], "color": "error"}])"},
             {R"("chart": "line", "series": "${x}")", R"([{"values": [1, 2]}])",
              R"([{"values": [1, 2]}, {"values": [2, 1]}])"}}) {
        SCOPED_TRACE(row.node);
        const ScreenPtr screen = opened(
            scene(std::string(R"({"column": [{"width": 80, "height": 60, )") + row.node + "}]}",
                  kHead),
            (std::string("{\"x\": ") + row.before + "}").c_str());
        const CanvasPtr canvas = drawn(screen.get());
        const auto before = checksum(canvas.get());
        EXPECT_EQ(set(screen.get(), "x", row.after), "");
        EXPECT_EQ(redrawn(screen.get(), canvas.get()), (kit_box{0, 0, 80, 60}));
        EXPECT_NE(checksum(canvas.get()), before);
        EXPECT_EQ(set(screen.get(), "x", row.after), "");
        EXPECT_EQ(redrawn(screen.get(), canvas.get()), kit_box{});
    }
}

TEST(LiveDataTest, AGroundOfAllIsDrawnEverywhere) {
    const std::string text =
        R"({"orvel": 1, "size": [20, 10], "theme": "${theme}", "root": {"space": null}})";
    const ScreenPtr screen = opened(text, R"({"theme": "dark"})");
    const CanvasPtr canvas = drawn(screen.get());
    EXPECT_EQ(set(screen.get(), "theme", "\"light\""), "");
    EXPECT_EQ(redrawn(screen.get(), canvas.get()), (kit_box{0, 0, 20, 10}));
    orvel_theme light;
    orvel_theme_light(&light);
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 19, 9), light.background);
}

TEST(LiveDataTest, WhatIsRefusedChangesNothing) {
    const ScreenPtr screen =
        opened(scene(R"({"column": [{"text": "${a}"}, {"icon": "${b}", "size": 20}]})", kHead),
               R"({"a": "One", "b": "home"})");
    const CanvasPtr canvas = drawn(screen.get());
    const std::string before = described(screen.get());
    EXPECT_EQ(set(screen.get(), "b", "\"hme\""),
              "scene:1:80: root.column[1].icon: found \"hme\", expected the name of an icon; did "
              "you mean \"home\"?");
    EXPECT_EQ(set(screen.get(), "a", "null"),
              "scene:1:62: root.column[0].text: a is null in the data");
    EXPECT_EQ(set(screen.get(), "a.b", "1"), "a is a text, not an object");
    EXPECT_EQ(set(screen.get(), "a", "1 2").substr(0, 6), "a:1:3:");
    EXPECT_EQ(set(screen.get(), "a", nullptr).substr(0, 6), "a:1:1:");
    EXPECT_EQ(set(screen.get(), "", "[]"), "data:1:1: found [], expected an object");
    EXPECT_EQ(described(screen.get()), before);
    EXPECT_EQ(redrawn(screen.get(), canvas.get()), kit_box{});
    EXPECT_STREQ(kit_screen_get(screen.get(), "a"), "\"One\"");
}

TEST(LiveDataTest, AllOfThemCanBeReplacedAndRead) {
    const ScreenPtr screen = opened(scene(R"({"text": "${a|none}"})", kHead));
    EXPECT_STREQ(kit_screen_get(screen.get(), ""), "{}");
    EXPECT_STREQ(kit_screen_get(screen.get(), nullptr), "{}");
    EXPECT_EQ(set(screen.get(), "", R"({"a": [1.50, {"b": null}]})"),
              "scene:1:50: root.text: a is a list in the data, which has no text");
    EXPECT_EQ(set(screen.get(), nullptr, R"({"c": [1.50, {"b": null}]})"), "");
    EXPECT_STREQ(kit_screen_get(screen.get(), "c"), R"([1.50,{"b":null}])");
    EXPECT_STREQ(kit_screen_get(screen.get(), "c[0]"), "1.50");
    EXPECT_EQ(kit_screen_get(screen.get(), "c[2]"), nullptr);
    EXPECT_EQ(kit_screen_get(screen.get(), "c["), nullptr);
    EXPECT_EQ(kit_screen_get(nullptr, "c"), nullptr);
    EXPECT_EQ(kit_screen_set(nullptr, "c", "1", nullptr, 0), -1);
}

TEST(LiveDataTest, TheHostSaysWhatItsCanvasHasLost) {
    const ScreenPtr screen = opened(scene(R"({"rect": "accent"})", kHead));
    const CanvasPtr canvas = drawn(screen.get());
    orvel_canvas_fill_rect(canvas.get(), 5, 5, 3, 3, kInk);
    const kit_box box = {5, 5, 200, 3};
    kit_screen_expose(screen.get(), &box);
    EXPECT_EQ(redrawn(screen.get(), canvas.get()), (kit_box{5, 5, 115, 3}));
    kit_screen_expose(nullptr, nullptr);
    EXPECT_EQ(kit_screen_draw(nullptr, canvas.get(), nullptr), -1);
    EXPECT_EQ(kit_screen_draw(screen.get(), nullptr, nullptr), -1);
}

TEST(LiveDataTest, WhatIsLostMayReachAsFarAsNumbersDo) {
    const ScreenPtr screen = opened(scene(R"({"rect": "accent"})", kHead));
    const CanvasPtr canvas = drawn(screen.get());
    const auto lost = [&](const kit_box& box) {
        kit_screen_expose(screen.get(), &box);
        return redrawn(screen.get(), canvas.get());
    };
    EXPECT_EQ(lost({50, 30, INT_MAX, INT_MAX}), (kit_box{50, 30, 70, 50}));
    EXPECT_EQ(lost({-9, -9, INT_MAX, 19}), (kit_box{0, 0, 120, 10}));
    EXPECT_EQ(lost({INT_MAX - 5, 0, 10, 10}), (kit_box{}));
    EXPECT_EQ(lost({0, INT_MAX, 10, INT_MAX}), (kit_box{}));
    EXPECT_EQ(lost({INT_MIN, INT_MIN, INT_MIN, INT_MIN}), (kit_box{}));
}

TEST(LiveDataTest, ASmallerCanvasGetsWhatFits) {
    const ScreenPtr screen = opened(scene(R"({"rect": "accent"})", kHead));
    const CanvasPtr canvas = make_canvas(7, 5);
    kit_box dirty;
    EXPECT_EQ(kit_screen_draw(screen.get(), canvas.get(), &dirty), 0);
    EXPECT_EQ(dirty, (kit_box{0, 0, 7, 5}));
}

TEST(LiveDataTest, AScreenIsResized) {
    const ScreenPtr screen = opened(scene(R"({"row": [{"rect": "accent", "width": 10}]})", kHead));
    const CanvasPtr canvas = drawn(screen.get());
    char why[100] = "";
    EXPECT_EQ(kit_screen_resize(screen.get(), 90, 40, why, sizeof why), 0);
    EXPECT_EQ(described(screen.get()), "row 0,0 90x40\n  rect 0,0 10x40\n");
    kit_box dirty;
    EXPECT_EQ(kit_screen_draw(screen.get(), canvas.get(), &dirty), 0);
    EXPECT_EQ(dirty, (kit_box{0, 0, 120, 80}));
    EXPECT_EQ(kit_screen_resize(screen.get(), 90, 40000, why, sizeof why), -1);
    EXPECT_STREQ(why, "found 90 x 40000, expected 1 to 32767 pixels each");
    for (const kit_box& wrong :
         {kit_box{0, 0, 0, 9}, kit_box{0, 0, 9, 0}, kit_box{0, 0, 32768, 9}}) {
        EXPECT_EQ(kit_screen_resize(screen.get(), wrong.w, wrong.h, nullptr, 0), -1);
    }
    EXPECT_EQ(kit_screen_resize(nullptr, 9, 9, nullptr, 0), -1);
    EXPECT_EQ(described(screen.get()), "row 0,0 90x40\n  rect 0,0 10x40\n");
}

TEST(LiveDataTest, AConditionComparesOneNameWithOneLiteral) {
    struct Row {
        const char* condition;
        bool holds;
    };
    const char* data = R"({"n": 19.5, "zero": 0.0, "text": "Fog", "none": "", "no": false,
        "yes": true, "list": [1], "nothing": [], "null": null, "object": {}})";
    for (const Row& row : std::initializer_list<Row>{{"n < 20", true},
                                                     {"n < 19.5", false},
                                                     {"n <= 19.50", true},
                                                     {"n > 19", true},
                                                     {"n >= 20", false},
                                                     {"n == 1.95e1", true},
                                                     {"n != 19.5", false},
                                                     {"text == 'Fog'", true},
                                                     {"text=='fog'", false},
                                                     {"text < 'Fogg'", true},
                                                     {"text < 20", false},
                                                     {"text != 20", true},
                                                     {"yes == true", true},
                                                     {"no == false", true},
                                                     {"text == 3", false},
                                                     {"no == true", false},
                                                     {"list < 3", false},
                                                     {"missing < 3", false},
                                                     {"missing == null", true},
                                                     {"null == null", true},
                                                     {"n != null", true},
                                                     {"n", true},
                                                     {"zero", false},
                                                     {"text", true},
                                                     {"none", false},
                                                     {"no", false},
                                                     {"yes", true},
                                                     {"list", true},
                                                     {"nothing", false},
                                                     {"null", false},
                                                     {"missing", false},
                                                     {"object", true},
                                                     {"!n", false},
                                                     {"!missing", true},
                                                     {"list[0] == 1", true},
                                                     {"yes < true", false}}) {
        const ScreenPtr screen =
            opened(scene(std::string(R"({"row": [{"rect": "text", "if": ")") + row.condition +
                             R"(", "width": 1, "height": 1}]})",
                         kHead),
                   data);
        EXPECT_EQ(described(screen.get()).find("rect") != std::string::npos, row.holds)
            << row.condition;
    }
}

TEST(LiveDataTest, NamesInRepetitionsHideThoseFurtherOut) {
    const ScreenPtr screen = opened(
        scene(R"({"row": [{"each": "rooms", "as": "room", "row": [
                  {"each": "room.lamps", "text": "${room.name} ${item}", "id": "lamp"}]}]})"),
        R"({"item": "outer", "rooms": [{"name": "A", "lamps": [1, 2]}, {"name": "B", "lamps": [3]}]})");
    const std::string text = described(screen.get());
    EXPECT_NE(text.find("text \"A 1\" #lamp[0][0] "), std::string::npos) << text;
    EXPECT_NE(text.find("text \"A 2\" #lamp[0][1] "), std::string::npos) << text;
    EXPECT_NE(text.find("text \"B 3\" #lamp[1][0] "), std::string::npos) << text;
}

}  // namespace
