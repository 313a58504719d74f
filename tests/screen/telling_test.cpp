// What a screen says of itself: descriptions, reports, boxes.
#include "screens.h"

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
    EXPECT_EQ(reported(R"({"column": [{"button": "A", "height": 23}, {"slider": 1, "width": 23,
        "height": 24}, {"button": "A", "height": 20, "disabled": true},
        {"progress": 1, "height": 4}]})"),
              "scene:1:54: root.column[0]: target: 200 x 23 pixels, 24 x 24 are the least\n"
              "scene:1:85: root.column[1]: target: 23 x 24 pixels, 24 x 24 are the least\n");
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
