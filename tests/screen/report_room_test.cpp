// What a screen reports of words, pictures and targets that have too little room.
#include "screens.h"
#include "support/bitmap_files.h"

namespace {

using namespace orvel_test;

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

}  // namespace
