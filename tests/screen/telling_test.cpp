// What a screen says of itself: descriptions, reports, boxes.
#include "screens.h"
#include "support/bitmap_files.h"

namespace {

using namespace orvel_test;

std::string reported(const std::string& root, const std::string& head = "\"size\": [200, 100], ") {
    return kit_screen_report(opened(scene(root, head)).get());
}

TEST(TellingTest, NamesValuesAndStatesAreTold) {
    const std::string text = scene(
        R"({"column": [{"textbox": "A \"b\"\n", "hint": "Name", "id": "field", "focus": true},
            {"button": "Go", "name": "Go home", "disabled": true}, {"toggle": false},
            {"tabs": ["One", "Two"], "selected": 1}, {"tabs": ["One"], "selected": 3},
            {"tabs": ["One"], "selected": -1}, {"slider": 2.50, "range": [0, 5]},
            {"icon": "mail", "name": "3 letters"}, {"row": []}]})",
        "\"size\": [100, 300], ");
    EXPECT_EQ(described(opened(text).get()),
              "column 0,0 100x300\n"
              "  textbox \"Name\" =\"A \\\"b\\\"\\n\" focus #field 0,0 100x24\n"
              "  button \"Go home\" disabled 0,24 100x24\n"
              "  toggle off 0,48 30x15\n"
              "  tabs =\"Two\" 0,63 100x24\n"
              "  tabs =\"\" 0,87 100x24\n"
              "  tabs =\"\" 0,111 100x24\n"
              "  slider =2.50 0,135 100x13\n"
              "  icon \"3 letters\" 0,148 18x18\n");
    EXPECT_EQ(kit_screen_describe(nullptr), nullptr);
}

TEST(TellingTest, BoxesAreFoundByTheirIds) {
    const std::string text = scene(
        R"({"column": [{"rect": "accent", "height": 5, "id": "a"},
            {"each": "list", "rect": "error", "height": 60, "id": "b"},
            {"rect": "accent", "if": "no", "id": "c"}]})",
        "\"size\": [30, 100], \"sample\": {\"list\": [1, 2, 3]}, ");
    const ScreenPtr screen = opened(text);
    kit_box box = {};
    EXPECT_EQ(kit_screen_box(screen.get(), "a", &box), 0);
    EXPECT_EQ(box, (kit_box{0, 0, 30, 5}));
    EXPECT_EQ(kit_screen_box(screen.get(), "b[1]", &box), 0);
    EXPECT_EQ(box, (kit_box{0, 65, 30, 35}));
    EXPECT_EQ(kit_screen_box(screen.get(), "b[2]", &box), -1);
    for (const char* id : {"b", "c", ""}) EXPECT_EQ(kit_screen_box(screen.get(), id, &box), -1);
    const ScreenPtr hidden =
        opened(scene(R"({"stack": [{"rect": "accent", "id": "a"}, {"rect": "accent", "id": "b"}],
                  "show": 1})",
                     "\"size\": [9, 9], "));
    EXPECT_EQ(kit_screen_box(hidden.get(), "a", &box), -1);
    EXPECT_EQ(kit_screen_box(hidden.get(), "b", &box), 0);
    EXPECT_EQ(kit_screen_box(screen.get(), nullptr, &box), -1);
    EXPECT_EQ(kit_screen_box(screen.get(), "a", nullptr), -1);
    EXPECT_EQ(kit_screen_box(nullptr, "a", &box), -1);
}

TEST(ReportTest, AGoodScreenHasNothingToTell) {
    EXPECT_EQ(reported(R"({"column": [{"text": "Words"}, {"button": "Go"},
        {"column": [{"rect": "accent", "height": 500}], "scroll": true, "grow": 1}]})"),
              "");
    EXPECT_EQ(kit_screen_report(nullptr), nullptr);
}

TEST(ReportTest, WhatOverflowsIsTold) {
    EXPECT_EQ(reported(R"({"column": [{"row": [{"rect": "accent", "width": 150},
        {"rect": "accent", "width": 60}], "pad": 4, "height": 20}, {"rect": "accent", "height": 90}]})"),
              "scene:2:9: root.column[0].row[1]: overflow: 18 pixels beyond the right of its "
              "parent\n"
              "scene:2:68: root.column[1]: overflow: 10 pixels beyond the bottom of its parent\n");
    // What is empty shows nothing, and is not cut.
    EXPECT_EQ(reported(R"({"row": [{"rect": "accent", "width": 300, "height": 0}]})"), "");
    EXPECT_EQ(reported(R"({"column": [{"rect": "accent", "width": 0, "height": 300}]})"), "");
    // What scrolls may reach further along, not across.
    EXPECT_EQ(reported(R"({"row": [{"rect": "accent", "width": 300, "height": 101}],
        "scroll": true})"),
              "scene:1:51: root.row[0]: overflow: 1 pixels beyond the bottom of its parent\n");
    EXPECT_EQ(reported(R"({"column": [{"rect": "accent", "width": 201, "height": 300}],
        "scroll": true})"),
              "scene:1:54: root.column[0]: overflow: 1 pixels beyond the right of its parent\n");
}

TEST(ReportTest, WordsThatAreCutAreTold) {
    EXPECT_EQ(reported(R"({"column": [{"text": "These are too many words for it", "width": 60},
{"text": "These are too many words for it", "wrap": true, "width": 60, "lines": 2},
{"text": "These are too many words for it", "wrap": true, "width": 60, "height": 20},
{"text": "These are too many words for it", "wrap": true, "width": 60},
{"button": "Too much", "width": 40}, {"textbox": "Scrolls, however long it is", "width": 40},
{"menu": ["One", "Another"], "width": 60, "height": 24},
{"search": "Scrolls, however long it is", "width": 40}, {"space": 9},
{"text": "These are too many words for it", "wrap": true, "width": 60, "height": 80, "lines": 1}
]})",
                       "\"size\": [200, 400], "),
              "scene:1:54: root.column[0]: cut: \"These are too many words for it\" does not fit\n"
              "scene:2:1: root.column[1]: cut: \"These are too many words for it\" does not fit\n"
              "scene:3:1: root.column[2]: cut: \"These are too many words for it\" does not fit\n"
              "scene:5:1: root.column[4]: cut: \"Too much\" does not fit\n"
              "scene:6:1: root.column[6]: cut: \"One|Another\" does not fit\n"
              "scene:8:1: root.column[9]: cut: \"These are too many words for it\" does not fit\n");
}

TEST(ReportTest, LettersThatAreMissingAreTold) {
    EXPECT_EQ(
        reported(R"({"column": [{"text": "日本 A"}, {"window": null, "title": "日",
        "height": 40}]})"),
        "scene:1:54: root.column[0]: missing: 2 characters of \"日本 A\" are not in the face\n"
        "scene:1:72: root.column[1]: missing: 1 characters of \"日\" are not in the face\n");
}

TEST(ReportTest, WordsThatDoNotStandOutAreTold) {
    // Grey 119 on white has 4.47 to 1, grey 118 has 4.54.
    const auto contrast = [](const std::string& node) {
        const std::string text = reported(R"({"column": [)" + node + R"(], "ground": "#ffffff"})");
        const std::size_t at = text.find("contrast: ");
        return at == std::string::npos ? "" : text.substr(at);
    };
    EXPECT_EQ(contrast(R"({"text": "A", "color": "#777777"})"),
              "contrast: 4.4 to 1, 4.5 is the least\n");
    EXPECT_EQ(contrast(R"({"text": "A", "color": "#767676"})"), "");
    EXPECT_EQ(contrast(R"({"text": "A", "color": "#777777", "face": "sans 24"})"), "");
    EXPECT_EQ(contrast(R"({"text": "A", "color": "#ffffff", "ground": "#000000"})"), "");
    EXPECT_EQ(contrast(R"({"panel": {"text": "A", "color": "#000000"}, "theme": "dark"})"),
              "contrast: 1.4 to 1, 4.5 is the least\n");
    EXPECT_EQ(contrast(R"({"label": "A", "theme": {"text": "#dddddd"}})"),
              "contrast: 1.3 to 1, 4.5 is the least\n");
    // In a stack, what is below counts, as far as it is of one colour.
    EXPECT_EQ(contrast(R"({"stack": [{"rect": "#000000"}, {"text": "A", "color": "#ffffff"}],
                           "height": 20})"),
              "");
    EXPECT_EQ(contrast(R"({"stack": [{"rect": "#000000", "width": 3}, {"text": "A",
                           "color": "#ffffff"}], "height": 20})"),
              "");
    EXPECT_EQ(contrast(R"({"stack": [{"space": null}, {"row": [{"text": "A", "color": "#ffffff"}]}],
                           "height": 20})"),
              "contrast: 1.0 to 1, 4.5 is the least\n");
    // What is not of one colour is not judged, nor what does not show.
    EXPECT_EQ(contrast(R"({"stack": [{"circle": "#000000"}, {"text": "A", "color": "#ffffff"}],
                           "height": 20})"),
              "");
    EXPECT_EQ(contrast(R"({"stack": [{"rect": "#000000", "width": 3, "height": 3},
        {"text": "A", "color": "#ffffff", "width": 20, "height": 9}],
        "align": "end", "justify": "end", "height": 20})"),
              "");
    EXPECT_EQ(contrast(R"({"stack": [{"rect": "#000000", "width": 3, "height": 3},
        {"row": [{"space": 5}, {"text": "A", "color": "#ffffff"}]}], "height": 20})"),
              "contrast: 1.0 to 1, 4.5 is the least\n");
    EXPECT_EQ(
        contrast(R"({"stack": [{"space": 3}, {"text": "A", "color": "#ffffff"}], "show": 0})"), "");
    EXPECT_EQ(reported(R"({"text": "A", "color": "background"})"),
              "scene:1:42: root: contrast: 1.0 to 1, 4.5 is the least\n");
}

TEST(ReportTest, SmallTargetsAreTold) {
    EXPECT_EQ(
        reported(R"({"column": [{"button": "A", "height": 23, "id": "a"}, {"slider": 1, "width": 23,
        "height": 24, "id": "b"}, {"button": "A", "height": 20, "disabled": true, "id": "c"},
        {"progress": 1, "height": 4, "id": "d"}]})"),
        "scene:1:54: root.column[0]: target: 200 x 23 pixels, 24 x 24 are the least\n"
        "scene:1:96: root.column[1]: target: 23 x 24 pixels, 24 x 24 are the least\n");
}

TEST(ReportTest, OnlyTargetsThatCanBeUsedAreTold) {
    const auto told = [](const std::string& node) {
        const std::string text =
            reported(R"({"column": [)" + node + R"(]})",
                     R"("size": [200, 100], "sample": {"n": 0.5, "t": "A", "b": true, "i": 0}, )");
        return text.find("target: ") != std::string::npos;
    };
    // A value of the data and nothing else is changed by the control.
    for (const char* control :
         {R"("slider": "${n}")", R"("toggle": "${b}")", R"("textbox": "${t}")",
          R"("search": "${t}")", R"("dropdown": "${t}")", R"("stepper": "${n}")",
          R"("rating": "${n}")", R"("checkbox": "A", "on": "${b}")",
          R"("radio": "A", "on": "${b}")", R"("tabs": ["A"], "selected": "${i}")",
          R"("menu": ["A"], "selected": "${i}")", R"("list_item": "A", "id": "a")",
          R"("button": "A", "on": "${b}")"}) {
        const std::string node = std::string("{") + control;
        EXPECT_TRUE(told(node + R"(, "height": 11})")) << control;
        EXPECT_FALSE(told(node + R"(, "height": 24, "width": 60})")) << control;
        EXPECT_FALSE(told(node + "}")) << control;  // the kit's own size
        EXPECT_FALSE(told(node + R"(, "height": 11, "disabled": true})")) << control;
    }
    for (const char* shown :
         {R"("slider": 0.5)", R"("slider": "${n:1}")", R"("slider": "${n|1}")",
          R"("button": "${t}")", R"("dropdown": "A ${t}")", R"("checkbox": "A", "on": true)",
          R"("tabs": ["A"])", R"("progress": "${n}", "id": "a")"}) {
        EXPECT_FALSE(told(std::string("{") + shown + R"(, "height": 11})")) << shown;
    }
}

/// How many pixels the words of a screen of this height take.
int inked(const std::string& text, int height) {
    const std::string node = R"({"text": ")" + text + R"(", "color": "#010203"})";
    const CanvasPtr canvas =
        drawn(opened(scene(node, "\"size\": [90, " + std::to_string(height) + "], ")).get());
    int count = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < 90; ++x) count += orvel_canvas_pixel_get(canvas.get(), x, y).r == 1;
    }
    return count;
}

TEST(ReportTest, WordsThatLoseRowsAreToldAndNoOthers) {
    for (const char* words : {"H", "xz", "Hg", "Äg", ".", "_", " "}) {
        const int whole = inked(words, 60);
        for (int height = 1; height < 30; ++height) {
            const std::string told = reported(std::string(R"({"text": ")") + words + "\"}",
                                              "\"size\": [90, " + std::to_string(height) + "], ");
            EXPECT_EQ(told.find("is higher than its box") != std::string::npos,
                      inked(words, height) < whole)
                << words << ' ' << height;
        }
    }
}

TEST(ReportTest, CaptionsThatAreHigherThanTheirBoxAreTold) {
    const auto told = [](const std::string& node) {
        return reported(R"({"column": [)" + node + "]}");
    };
    const std::string cut = "scene:1:54: root.column[0]: cut: \"H\" is higher than its box\n";
    EXPECT_EQ(told(R"({"text": "H", "height": 20, "pad": [6, 0]})"), cut);
    EXPECT_EQ(told(R"({"button": "H", "height": 8})"), cut);
    EXPECT_EQ(told(R"({"textbox": "H", "height": 8})"), cut);
    EXPECT_EQ(told(R"({"tabs": ["x", "z"], "height": 9})"),
              "");  // the bar between them is not shown
}

TEST(ReportTest, PicturesAndShapesThatDoNotFitAreTold) {
    kit_screen_host host = {};
    static const CanvasPtr canvas = make_canvas(8, 6);
    host.picture = [](void*, const char*) -> const orvel_canvas* { return canvas.get(); };
    const ScreenPtr screen = opened(
        scene(
            R"({"row": [{"picture": "a", "width": 5}, {"picture": "a", "height": 4}, {"picture": "a"},
{"icon": "home", "size": 20, "height": 12}, {"icon": "home", "size": 20}, {"icon": "home"},
{"circle": "text", "size": 9, "width": 8}, {"circle": "text", "size": 9}, {"circle": "text", "width": 3}]})",
            "\"size\": [200, 30], "),
        nullptr, &host);
    EXPECT_STREQ(kit_screen_report(screen.get()),
                 "scene:1:50: root.row[0]: cut: 5 x 6 of 8 x 6 pixels show\n"
                 "scene:1:80: root.row[1]: cut: 8 x 4 of 8 x 6 pixels show\n"
                 "scene:2:1: root.row[3]: cut: drawn with 12 pixels, not 20\n"
                 "scene:3:1: root.row[6]: cut: drawn with 8 pixels, not 9\n");
}

using ReportOfImagesTest = BitmapTest;

TEST_F(ReportOfImagesTest, ThoseThatDoNotFitAreTold) {
    const CanvasPtr red = make_canvas(8, 6);
    orvel_canvas_clear(red.get(), {255, 0, 0, 255});
    ASSERT_EQ(orvel_canvas_save_bmp_rgba(red.get(), path("red.bmp").c_str()), 0);
    EXPECT_EQ(reported(R"({"row": [{"image": "red"}, {"image": "red", "width": 5}]})"),
              "scene:1:69: root.row[1]: cut: 5 x 6 of 8 x 6 pixels show\n");
}

TEST(ReportTest, ChartsAndLegendsThatDoNotFitAreTold) {
    const auto told = [](const std::string& keys) {
        return reported(R"({"column": [{"chart": )" + keys + "}]}", "\"size\": [5000, 100], ");
    };
    const std::string two = R"("series": [{"values": [1, 2], "name": "Sun"},
        {"values": [2, 1], "name": "Wind"}], "legend": true, "height": 60, )";
    const std::string cut = "scene:1:55: root.column[0]: cut: ";
    EXPECT_EQ(told(R"("line", )" + two + R"("width": 120)"), "");
    EXPECT_EQ(told(R"("line", )" + two + R"("width": 80)"),
              cut + "\"Wind\" does not fit in the legend\n");
    EXPECT_EQ(told(R"("bars", )" + two + R"("width": 40)"),
              cut + "\"Sun\" does not fit in the legend\n");
    EXPECT_EQ(told(R"("line", "series": [{"values": [1], "name": "Wind from the west"}],
                      "legend": true, "height": 60, "width": 80)"),
              cut + "\"Wind from the west\" does not fit in the legend\n");
    EXPECT_EQ(told(R"("spark", )" + two + R"("width": 40)"), "");  // it has none
    EXPECT_EQ(told(R"("gauge", )" + two + R"("width": 60)"), "");
    EXPECT_EQ(told(R"("line", )" + two + R"("width": 5000)"), "");
    EXPECT_EQ(told(R"("line", "values": [1, 2], "legend": true, "height": 60, "width": 90)"), "");
    EXPECT_EQ(told(R"("line", "values": [1], "height": 12, "width": 5000, "labels": ["a"])"),
              cut + "nothing of the chart fits\n");
    EXPECT_EQ(told(R"("line", "values": [1], "height": 12, "pad": 6)"),
              cut + "nothing of the chart fits\n");
}

TEST(ReportTest, AHighChartHasRoomForALegendOfManyRows) {
    std::string series;
    for (char name = 'A'; name < 'A' + 20; ++name) {
        series += std::string(series.empty() ? "" : ", ") + R"({"values": [1], "name": ")" +
                  std::string(5, name) + "\"}";
    }
    const std::string chart =
        R"({"column": [{"chart": "line", "legend": true, "width": 100, "series": [)" + series +
        R"(], "height": )";
    EXPECT_EQ(reported(chart + "1000}]}", "\"size\": [200, 1000], "), "");
    EXPECT_NE(reported(chart + "300}]}", "\"size\": [200, 1000], "), "");
}

TEST(ReportTest, NumbersOutsideTheirRangeAreTold) {
    const auto told = [](const std::string& node) {
        const std::string text = reported(
            R"({"column": [)" + node + "]}",
            R"("size": [200, 100], "sample": {"n": 30.5, "list": [1, 9, null, -2], "three": ["a", "b", "c"]}, )");
        const std::size_t at = text.find(": range: ");
        return at == std::string::npos ? text : text.substr(at + 9);
    };
    EXPECT_EQ(told(R"({"progress": "${n}", "range": [0, 30]})"), "30.5 lies outside 0 to 30\n");
    EXPECT_EQ(told(R"({"progress": "${n}", "range": [0, 30.50]})"), "");
    EXPECT_EQ(told(R"({"progress": 1.5})"), "1.5 lies outside 0 to 1\n");
    EXPECT_EQ(told(R"({"slider": -1, "range": [0, 1, 0.5]})"), "-1 lies outside 0 to 1\n");
    EXPECT_EQ(told(R"({"rating": 5})"), "");
    EXPECT_EQ(told(R"({"rating": 6})"), "6 lies outside 0 to 5\n");
    EXPECT_EQ(told(R"({"spinner": 1.25})"), "1.25 lies outside 0 to 1\n");
    EXPECT_EQ(told(R"({"stepper": 8, "range": [9, 24]})"), "8 lies outside 9 to 24\n");
    EXPECT_EQ(told(R"({"stepper": "none", "range": [9, 24]})"), "");
    EXPECT_EQ(told(R"({"stepper": 800})"), "");
    EXPECT_EQ(told(R"({"bars": "${list}", "range": [0, 9]})"),
              "1 of its values lies outside 0 to 9\n");
    EXPECT_EQ(told(R"({"bars": "${list}"})"), "2 of its values lie outside 0 to 1\n");
    EXPECT_EQ(told(R"({"chart": "line", "values": "${list}"})"), "");
    EXPECT_EQ(told(R"({"chart": "line", "values": "${list}", "range": [-2, 8]})"),
              "1 of its values lies outside -2 to 8\n");
    EXPECT_EQ(told(R"({"chart": "line", "series": [{"values": "${list}"}, {"values": [7]}],
        "range": [0, 6]})"),
              "3 of its values lie outside 0 to 6\n");
    for (const char* kind : {"tabs", "menu"}) {
        const std::string items = std::string("{\"") + kind + R"(": "${three}", "selected": )";
        EXPECT_EQ(told(items + "2}"), "");
        EXPECT_EQ(told(items + "-1}"), "");
        EXPECT_EQ(told(items + "3}"), "\"selected\" is 3, expected 0 to 2\n");
        EXPECT_EQ(told(items + "-2}"), "\"selected\" is -2, expected 0 to 2\n");
    }
    EXPECT_EQ(told(R"({"tabs": []})"), "");
    EXPECT_EQ(told(R"({"tabs": ["a"], "selected": 1})"), "\"selected\" is 1, expected 0\n");
    const std::string pages = R"({"stack": [{"space": 1}, {"space": 1, "if": "no"}, {"space": 1}],
        "height": 5, "show": )";
    EXPECT_EQ(told(pages + "1}").substr(0, 8), "scene:1:");  // "no" is nowhere
    EXPECT_EQ(told(pages + "2}").substr(0, 34), "\"show\" is 2, expected 0 to 1\nscene");
    EXPECT_EQ(told(R"({"stack": [{"space": 1}], "height": 5, "show": -1})"), "");
    EXPECT_EQ(told(R"({"stack": [], "height": 5, "show": 0})"), "");
}

TEST(ReportTest, IdsThatTwoNodesHaveAreTold) {
    kit_screen_host host = {};
    host.include = [](void*, const char*, size_t* length) -> const char* {
        static const std::string text = scene(R"({"row": [{"space": 1, "id": "a"}]})");
        *length = text.size();
        return text.data();
    };
    const ScreenPtr screen =
        opened(scene(R"({"column": [{"space": 1, "id": "a"}, {"include": "x"}, {"include": "x"},
{"stack": [{"space": 1}, {"space": 1, "id": "a"}], "show": 0, "height": 5},
{"space": 1, "id": "b", "if": "c"}, {"space": 1, "id": "b", "if": "!c"}]})",
                     "\"size\": [30, 30], \"sample\": {\"c\": null}, "),
               nullptr, &host);
    EXPECT_STREQ(kit_screen_report(screen.get()),
                 "scene:2:26: root.column[3].stack[1]: id: \"a\" is that of root.column[0], too\n");
}

TEST(ReportTest, NamesThatNobodyHasAreTold) {
    const auto told = [](const std::string& node, const std::string& data = "null",
                         const std::string& sample = "{}") {
        const std::string text = scene(R"({"column": [)" + node + "]}",
                                       R"("size": [200, 100], "sample": )" + sample + ", ");
        return std::string(
            kit_screen_report(opened(text, data == "null" ? nullptr : data.c_str()).get()));
    };
    const std::string low = R"({"space": 1, "if": "batery < 20"})";
    const std::string where = ": root.column[0].if: name: ";
    EXPECT_EQ(told(low), "scene:1:87" + where + "there is no batery in the data\n");
    EXPECT_EQ(
        told(low, R"({"battery": 5})"),
        "scene:1:87" + where + R"(there is no batery in the data; did you mean "battery"?)" + "\n");
    EXPECT_EQ(told(low, R"({"batery": null})"), "");
    EXPECT_EQ(told(low, "{}", R"({"batery": 90})").find("name"), std::string::npos);
    // A fallback hides a wrong name, too.
    EXPECT_EQ(told(R"({"text": "${now.tmp|–} and ${now.temp:1|–}"})", R"({"now": {"temp": 1}})"),
              "scene:1:77: root.column[0].text: name: now has no tmp in the data; did you mean "
              "\"temp\"?\n");
    EXPECT_EQ(told(R"({"text": "A", "color": "${color|text}"})"),
              "scene:1:91: root.column[0].color: name: there is no color in the data\n");
    // What is null, or a list that is shorter now, may have more in it at other times.
    EXPECT_EQ(
        told(R"({"text": "${now.temp|–} ${days[3].high|–}"})", R"({"now": null, "days": []})"), "");
    EXPECT_EQ(told(R"({"text": "${now.temp|–}"})", R"({"now": 3})"),
              "scene:1:77: root.column[0].text: name: now is a number in the data, without a "
              "temp\n");
    EXPECT_EQ(told(R"({"text": "${now[0]|–}"})", R"({"now": 3})"),
              "scene:1:77: root.column[0].text: name: now is a number in the data, not a list\n");
    // Of a repetition, one item with it is enough; the sample counts beside the data.
    const std::string days = R"({"each": "days", "as": "day", "space": 1, "if": "!day.dry"})";
    EXPECT_EQ(told(days, R"({"days": [{}, {"dry": true}]})"), "");
    EXPECT_EQ(told(days, R"({"days": [{}]})", R"({"days": [{"dry": 1}]})"), "");
    EXPECT_EQ(told(days, R"({"days": [{}, {}]})", R"({"days": 3})"),
              "scene:1:125: root.column[0].if: name: day has no dry in the data\n");
    EXPECT_EQ(told(days, R"({"days": []})", R"({"days": [{}]})"),
              "scene:1:128: root.column[0].if: name: day has no dry in the data\n");
    EXPECT_STREQ(
        kit_screen_report(
            opened(scene(R"({"row": [{"space": 1, "if": "a"}]})", "\"size\": [9, 9], ")).get()),
        "scene:1:66: root.row[0].if: name: there is no a in the data\n");
}

TEST(ReportTest, ContrastIsThatOfThePanelsColours) {
    const auto contrast = [](const std::string& color, kit_format panel) {
        const std::string text = scene(R"({"text": "A", "color": ")" + color + R"("})",
                                       R"("size": [90, 30], "theme": {"background": "#ffffff"}, )");
        const std::string told = kit_screen_report_on(opened(text).get(), &panel);
        const std::size_t at = told.find("contrast: ");
        return at == std::string::npos ? told : told.substr(at);
    };
    static constexpr orvel_color kColors[] = {
        {0, 0, 0, 255}, {255, 255, 255, 255}, {255, 255, 0, 255}};
    const auto panel = [](int layout, int dither = KIT_DITHER_NONE) {
        kit_format format = {};
        format.layout = layout;
        format.dither = dither;
        format.turns = 1;
        format.palette = kColors;
        format.colors = 3;
        return format;
    };
    const std::string none = "contrast: 1.0 to 1, 4.5 is the least\n";
    EXPECT_EQ(contrast("#808080", panel(KIT_GREY1)), none);
    EXPECT_EQ(contrast("#7f7f7f", panel(KIT_GREY1)), "");
    EXPECT_EQ(contrast("#bbbbbb", panel(KIT_GREY2)), "contrast: 2.3 to 1, 4.5 is the least\n");
    EXPECT_EQ(contrast("#777777", panel(KIT_GREY4)), "contrast: 4.4 to 1, 4.5 is the least\n");
    EXPECT_EQ(contrast("#aaaaaa", panel(KIT_GREY8)), "contrast: 2.3 to 1, 4.5 is the least\n");
    for (const int layout : {KIT_RGBA, KIT_BGRA}) {
        EXPECT_EQ(contrast("#777777", panel(layout)), "contrast: 4.4 to 1, 4.5 is the least\n");
    }
    for (const int layout : {KIT_RGB565_LE, KIT_RGB565_BE}) {
        EXPECT_EQ(contrast("#0000ff", panel(layout)), "");
        EXPECT_EQ(contrast("#ffff00", panel(layout)), "contrast: 1.0 to 1, 4.5 is the least\n");
    }
    for (const int layout : {KIT_INDEX8, KIT_INDEX4, KIT_PLANE}) {
        EXPECT_EQ(contrast("#404000", panel(layout)), "");
        EXPECT_EQ(contrast("#eeee11", panel(layout)), "contrast: 1.0 to 1, 4.5 is the least\n");
        EXPECT_EQ(contrast("#404000", panel(layout, KIT_DITHER_ORDERED)),
                  "contrast: #404000 is no colour of the panel, and becomes dots\n");
        EXPECT_EQ(contrast("#000000", panel(layout, KIT_DITHER_DIFFUSED)), "");
        for (const char* color : {"#fff000", "#ffff10"}) {
            EXPECT_EQ(contrast(color, panel(layout, KIT_DITHER_ORDERED)),
                      std::string("contrast: ") + color +
                          " is no colour of the panel, and becomes dots\n");
        }
    }
    EXPECT_EQ(contrast("#404040", panel(KIT_GREY1, KIT_DITHER_ORDERED)),
              "contrast: #404040 is no colour of the panel, and becomes dots\n");
    EXPECT_EQ(contrast("#404040", panel(KIT_GREY4, KIT_DITHER_ORDERED)), "");
    const ScreenPtr screen = opened(scene(R"({"text": "A"})", "\"size\": [90, 30], "));
    const kit_format bad = panel(-1);
    EXPECT_EQ(kit_screen_report_on(screen.get(), &bad), nullptr);
    EXPECT_EQ(kit_screen_report_on(nullptr, nullptr), nullptr);
    EXPECT_STREQ(kit_screen_report_on(screen.get(), nullptr), "");
}

TEST(ReportTest, QuietWordsCanBeReadInEveryTheme) {
    const auto quiet = [](const std::string& theme) {
        const std::string text =
            scene(R"({"column": [{"text": "A", "color": "quiet"}, {"text": "A", "color": "quiet",
                      "ground": "surface"}]})",
                  "\"size\": [90, 60], \"theme\": " + theme + ", ");
        return std::string(kit_screen_report(opened(text).get()));
    };
    for (const char* theme :
         {"\"light\"", "\"dark\"", R"({"text": "#ffffff"})",
          R"({"text": "#595959", "background": "#ffffff", "surface": "#ffffff"})"}) {
        EXPECT_EQ(quiet(theme), "") << theme;
    }
    // Where the text itself cannot be read, it is no worse.
    const std::string faint =
        R"({"text": "#888888", "background": "#ffffff", "surface": "#ffffff"})";
    const CanvasPtr canvas =
        drawn(opened(scene(R"({"rect": "quiet"})", "\"size\": [2, 2], \"theme\": " + faint + ", "))
                  .get());
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 0, 0), (orvel_color{0x88, 0x88, 0x88, 255}));
}

TEST(ReportTest, WhatPicturesAndIconsAreCalledIsNotShown) {
    kit_screen_host host = {};
    static const CanvasPtr canvas = make_canvas(8, 8);
    host.picture = [](void*, const char*) -> const orvel_canvas* { return canvas.get(); };
    const ScreenPtr screen = opened(
        scene(
            R"({"row": [{"picture": "日"}, {"icon": "home", "size": 9}, {"separator": null, "width": 5}]})",
            "\"size\": [30, 30], "),
        nullptr, &host);
    EXPECT_STREQ(kit_screen_report(screen.get()), "");
}

TEST(ReportTest, PicturesThatAreNotThereAreTold) {
    EXPECT_EQ(reported(R"({"column": [{"picture": "board", "width": 5, "height": 5},
        {"image": "none", "width": 5, "height": 5}, {"picture": "unseen"}]})"),
              "scene:1:54: root.column[0]: unknown: there is no \"board\"\n"
              "scene:2:9: root.column[1]: unknown: there is no \"none\"\n"
              "scene:2:53: root.column[2]: unknown: there is no \"unseen\"\n");
}

}  // namespace
