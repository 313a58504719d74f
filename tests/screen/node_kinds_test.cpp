// Every kind of node: what it looks like, is called, and that widgets and charts are the kit's.
#include <algorithm>
#include <iterator>

#include "screen/kinds.h"
#include "screens.h"
#include "support/golden.h"

namespace {

using namespace orvel_test;

constexpr int kWidth = 120, kHeight = 50;
constexpr double kBars[] = {0.25, 1.0, 0.5};

struct Row {
    const char* kind;
    const char* node;
    kit_widget widget;  // what it is drawn as; kNone where it is no widget
};

constexpr int kNone = -1;

kit_widget widget(int kind, const char* text = nullptr, unsigned state = 0, double value = 0) {
    kit_widget made = {};
    made.kind = kind;
    made.text = text;
    made.state = state;
    made.value = value;
    return made;
}

kit_widget changed(kit_widget made, void (*change)(kit_widget&)) {
    change(made);
    return made;
}

const Row kRows[] = {
    {"row", R"({"row": [{"text": "One"}, {"text": "Two", "ground": "accent"}], "edge": "border"})",
     widget(kNone)},
    {"column", R"({"column": [{"text": "One"}, {"text": "Two"}], "pad": 3, "ground": "surface"})",
     widget(kNone)},
    {"stack", R"({"stack": [{"rect": "button"}, {"text": "Above", "align": "center"}]})",
     widget(kNone)},
    {"space", R"({"space": 9, "ground": "error"})", widget(kNone)},
    {"text", R"({"text": "Größe, 21 °C, and more than fits", "wrap": true, "color": "quiet"})",
     widget(kNone)},
    {"picture", R"({"picture": "checked", "name": "A board"})", widget(kNone)},
    {"icon", R"({"icon": "home", "color": "accent"})", widget(kNone)},
    {"line", R"({"line": "border", "pad": [24, 0]})", widget(kNone)},
    {"rect", R"({"rect": "#123456", "pad": 7})", widget(kNone)},
    {"circle", R"({"circle": "accent", "pad": 1})", widget(kNone)},
    {"chart", R"({"chart": "bars", "values": [1, null, 3], "labels": ["a", "b", "c"],
                  "axes": true, "name": "Rain"})",
     widget(kNone)},
    {"include", R"({"include": "other"})", widget(kNone)},
    {"window", R"({"window": {"text": "Inside"}, "title": "Window", "pad": 6})",
     widget(ORVEL_WIDGET_WINDOW, "Window")},
    {"panel", R"({"panel": {"text": "Inside"}, "pad": 6})", widget(ORVEL_WIDGET_PANEL)},
    {"label", R"({"label": "Größe"})", widget(ORVEL_WIDGET_LABEL, "Größe")},
    {"button", R"({"button": "Größe", "icon": "mail", "on": true, "focus": true})",
     changed(widget(ORVEL_WIDGET_BUTTON, "Größe", KIT_ACTIVE | KIT_FOCUS),
             [](kit_widget& made) { made.icon = "mail"; })},
    {"toggle", R"({"toggle": true})", widget(ORVEL_WIDGET_TOGGLE, "", KIT_ACTIVE)},
    {"checkbox", R"({"checkbox": "Größe", "on": true})",
     widget(ORVEL_WIDGET_CHECKBOX, "Größe", KIT_ACTIVE)},
    {"slider", R"({"slider": 15, "range": [5, 30, 0.5], "hover": true})",
     widget(ORVEL_WIDGET_SLIDER, "", KIT_HOVER, 0.4)},
    {"progress", R"({"progress": 0.25})", widget(ORVEL_WIDGET_PROGRESS, "", 0, 0.25)},
    {"textbox", R"({"textbox": "", "hint": "Name"})",
     changed(widget(ORVEL_WIDGET_TEXTBOX), [](kit_widget& made) { made.hint = "Name"; })},
    {"image", R"({"image": "none"})", widget(kNone)},
    {"separator", R"({"separator": true})", widget(ORVEL_WIDGET_SEPARATOR)},
    {"card", R"({"card": null})", widget(ORVEL_WIDGET_CARD)},
    {"radio", R"({"radio": "Größe"})", widget(ORVEL_WIDGET_RADIO, "Größe")},
    {"dropdown", R"({"dropdown": "Größe", "on": true})",
     widget(ORVEL_WIDGET_DROPDOWN, "Größe", KIT_ACTIVE)},
    {"spinner", R"({"spinner": 0.125})", widget(ORVEL_WIDGET_SPINNER, "", 0, 0.125)},
    {"rating", R"({"rating": 3.5})", widget(ORVEL_WIDGET_RATING, "", 0, 0.7)},
    {"stepper", R"({"stepper": 21.5})", widget(ORVEL_WIDGET_STEPPER, "21.5")},
    {"tabs", R"({"tabs": ["One", 2], "selected": 1})",
     changed(widget(ORVEL_WIDGET_TABS, "One|2"), [](kit_widget& made) { made.amount = 1; })},
    {"avatar", R"({"avatar": "OR"})", widget(ORVEL_WIDGET_AVATAR, "OR")},
    {"badge", R"({"badge": 12, "disabled": true})", widget(ORVEL_WIDGET_BADGE, "12", KIT_DISABLED)},
    {"titlebar", R"({"titlebar": "Größe"})", widget(ORVEL_WIDGET_TITLEBAR, "Größe")},
    {"list_item", R"({"list_item": "Größe", "icon": "mail"})",
     changed(widget(ORVEL_WIDGET_LIST_ITEM, "Größe"),
             [](kit_widget& made) { made.icon = "mail"; })},
    {"menu", R"({"menu": ["One", "Two"], "selected": 0})", widget(ORVEL_WIDGET_MENU, "One|Two")},
    {"bars", R"({"bars": [1, 4, 2], "range": [0, 4]})",
     changed(widget(ORVEL_WIDGET_BARS),
             [](kit_widget& made) {
                 made.data = kBars;
                 made.count = 3;
             })},
    {"search", R"({"search": "Größe", "limit": 5, "secret": false})",
     widget(ORVEL_WIDGET_SEARCH, "Größe")},
    {"tooltip", R"({"tooltip": "Größe"})", widget(ORVEL_WIDGET_TOOLTIP, "Größe")},
    {"statusbar", R"({"statusbar": "Größe"})", widget(ORVEL_WIDGET_STATUSBAR, "Größe")},
};

/// A picture of squares in two colours, one of them transparent.
const orvel_canvas* checked(void*, const char* name) {
    static const CanvasPtr canvas = [] {
        CanvasPtr made = make_canvas(20, 12);
        orvel_canvas_clear(made.get(), {});
        for (int i = 0; i < 60; i += 2) {
            orvel_canvas_fill_rect(made.get(), i % 10 * 2 + i / 10 % 2 * 2, i / 10 * 2, 2, 2, kInk);
        }
        return made;
    }();
    return std::string(name) == "checked" ? canvas.get() : nullptr;
}

const char* other(void*, const char*, size_t* length) {
    static const std::string text = scene(R"({"text": "Included"})");
    *length = text.size();
    return text.data();
}

ScreenPtr screen_of(const Row& row) {
    kit_screen_host host = {};
    host.picture = checked;
    host.include = other;
    const std::string head = "\"theme\": \"light\", \"size\": [120, 50], ";
    return opened(scene(row.node, head), nullptr, &host);
}

class KindsTest : public testing::TestWithParam<Row> {};

INSTANTIATE_TEST_SUITE_P(, KindsTest, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.kind); });

TEST_P(KindsTest, LooksAndIsToldAsEver) {
    const ScreenPtr screen = screen_of(GetParam());
    const CanvasPtr canvas = drawn(screen.get());
    char hash[20];
    std::snprintf(hash, sizeof hash, "%016llx",
                  static_cast<unsigned long long>(checksum(canvas.get())));
    expect_golden_text("screen_kinds.txt", GetParam().kind, described(screen.get()) + hash + "\n");
}

TEST_P(KindsTest, IsTheKitsOwnWidget) {
    kit_widget widget = GetParam().widget;
    if (widget.kind == kNone) return;
    const ScreenPtr screen = screen_of(GetParam());
    orvel_theme theme;
    orvel_theme_light(&theme);
    const CanvasPtr canvas = make_canvas(kWidth, kHeight);
    orvel_canvas_clear(canvas.get(), theme.background);
    widget.box = {0, 0, kWidth, kHeight};
    ASSERT_EQ(kit_draw(canvas.get(), theme, widget), 0);
    const CanvasPtr there = drawn(screen.get());
    if (described(screen.get()).find("Inside") == std::string::npos) {
        EXPECT_EQ(checksum(there.get()), checksum(canvas.get()));
    }
    for (int y = 0; y < kHeight; ++y) {  // at least its frame
        EXPECT_EQ(orvel_canvas_pixel_get(there.get(), 0, y),
                  orvel_canvas_pixel_get(canvas.get(), 0, y));
    }
}

TEST(KindsTableTest, HasARowForEveryKind) {
    for (const std::string_view name : kit::kind_names()) {
        EXPECT_TRUE(std::any_of(std::begin(kRows), std::end(kRows), [&](const Row& row) {
            return row.kind == name;
        })) << name;
    }
    EXPECT_EQ(kit::kind_names().size(), std::size(kRows));
}

TEST(KindsTest2, ChartsAreTheKitsOwn) {
    const ScreenPtr screen = opened(scene(
        R"({"chart": "stacked", "series": [{"values": [1, 2, 3], "name": "A", "color": "error"},
            {"values": [3, 1, 2], "name": "B"}], "range": [0, 8], "legend": true, "axes": true,
            "decimals": 1, "unit": " kW", "labels": ["x", "y", "z"], "face": "sans 11"})",
        "\"size\": [200, 120], "));
    orvel_theme theme;
    orvel_theme_default(&theme);
    const CanvasPtr canvas = make_canvas(200, 120);
    orvel_canvas_clear(canvas.get(), theme.background);
    const double first[] = {1, 2, 3}, second[] = {3, 1, 2};
    const kit_series series[] = {{.values = first, .count = 3, .color = theme.error, .name = "A"},
                                 {.values = second, .count = 3, .name = "B"}};
    ASSERT_EQ(kit_chart_draw(canvas.get(), theme,
                             {.kind = KIT_CHART_STACKED,
                              .box = {0, 0, 200, 120},
                              .series = series,
                              .count = 2,
                              .low = 0,
                              .high = 8,
                              .parts = KIT_CHART_AXES | KIT_CHART_LABELS | KIT_CHART_LEGEND,
                              .decimals = 1,
                              .unit = " kW",
                              .labels = "x|y|z",
                              .face = kit_sans_11()}),
              0);
    EXPECT_EQ(checksum(drawn(screen.get()).get()), checksum(canvas.get()));
}

TEST(ShapesTest, LookAsWritten) {
    const ScreenPtr screen = opened(
        scene(
            R"({"row": [{"circle": "#ffffff", "size": 7}, {"rect": "#ffffff", "width": 2, "height": 3},
            {"line": "#ffffff", "pad": [0, 1]}, {"space": 3, "edge": "#ffffff"},
            {"picture": "checked"}], "ground": "#000000", "align": "start"})",
            "\"size\": [20, 8], "),
        nullptr, nullptr);
    EXPECT_EQ(picture(drawn(screen.get()).get()),
              "...#...##...........\n"
              ".#####.##...........\n"
              ".#####.##...........\n"
              "#######.............\n"
              ".#####..............\n"
              ".#####..............\n"
              "...#................\n"
              "....................\n");
}

}  // namespace
