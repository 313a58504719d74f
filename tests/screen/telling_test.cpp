// What a screen says of itself: descriptions, boxes, reports of all but what has too little room.
#include "screens.h"

namespace {

using namespace orvel_test;

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
    Files files = {{"x", scene(R"({"row": [{"space": 1, "id": "a"}]})")}};
    const kit_screen_host host = including(files);
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
