// The words of charts: names, numbers and labels keep apart, and none is cut into another one.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "kit/charts/charts.h"
#include "support/picture.h"

namespace {

using orvel_test::CanvasPtr;
using orvel_test::dark;
using orvel_test::make_canvas;

const std::vector<double> kValues = {1, 3, 2, 4, 3, 2};

/// That of what is said beside the values.
orvel_color quiet() { return kit_mix(dark().text, dark().surface, 40); }

std::vector<const kit_face*> faces() {
    return {kit_sans_11(), kit_sans_12(), kit_sans_14(), kit_sans_18(),
            kit_sans_24(), kit_sans_40(), kit_bold_18(), kit_mono_12()};
}

struct Named {
    std::vector<std::string> names;
    std::vector<kit_series> rows;

    explicit Named(const std::vector<std::string>& of) : names(of) {
        for (const std::string& name : names) {
            kit_series row = {};
            row.values = kValues.data();
            row.count = static_cast<int>(kValues.size());
            row.color = {static_cast<unsigned char>(1 + rows.size()), 250, 0, 255};
            row.name = name.c_str();
            rows.push_back(row);
        }
    }
};

CanvasPtr drawn(kit_chart chart, const Named& series, int w, int h) {
    auto canvas = make_canvas(w, h);
    chart.box = {0, 0, w, h};
    chart.series = series.rows.data();
    chart.count = static_cast<int>(series.rows.size());
    EXPECT_EQ(kit_chart_draw(canvas.get(), dark(), chart), 0);
    return canvas;
}

/// The ink of words in a box, as a picture.
std::string words_in(const orvel_canvas* canvas, const kit_box& box) {
    const orvel_color ink = dark().text, quiet_ink = quiet();
    std::string text;
    for (int y = box.y; y < box.y + box.h; ++y) {
        for (int x = box.x; x < box.x + box.w; ++x) {
            const orvel_color pixel = orvel_canvas_pixel_get(canvas, x, y);
            text += pixel == quiet_ink || pixel == ink ? '#' : '.';
        }
        text += '\n';
    }
    return text;
}

/// What words look like at a place of a canvas.
std::string words_at(const char* words, const kit_face* face, int x, int baseline, int w, int h) {
    const CanvasPtr canvas = make_canvas(w, h);
    kit_text_draw(canvas.get(), face, words, x, baseline, quiet());
    return words_in(canvas.get(), {0, 0, w, h});
}

/// The squares of a legend: of each row, from the top, the series.
std::vector<std::vector<int>> squares(const orvel_canvas* canvas, int series) {
    std::vector<std::vector<int>> rows;
    std::set<int> found;
    for (int y = 0; y + 8 <= orvel_canvas_height(canvas); ++y) {
        std::vector<int> row;
        for (int x = 0; x + 8 <= orvel_canvas_width(canvas); ++x) {
            const orvel_color color = orvel_canvas_pixel_get(canvas, x, y);
            if (color.g != 250 || color.b != 0 || color.r < 1 || color.r > series) continue;
            bool square = true;
            for (int i = 0; i < 64 && square; ++i) {
                square = orvel_canvas_pixel_get(canvas, x + i % 8, y + i / 8) == color;
            }
            if (square && found.insert(color.r).second) row.push_back(color.r - 1);
        }
        if (!row.empty()) rows.push_back(row);
    }
    return rows;
}

using Rows = std::vector<std::vector<int>>;

TEST(LegendTest, NamesThatDoNotFitIntoOneRowTakeMoreOfThem) {
    const Named five({"Solar", "Wind", "Water", "Grid", "Battery"});
    const kit_chart chart = {.kind = KIT_CHART_LINE, .parts = KIT_CHART_LEGEND};
    EXPECT_EQ(squares(drawn(chart, five, 400, 100).get(), 5), (Rows{{0, 1, 2, 3, 4}}));
    EXPECT_EQ(squares(drawn(chart, five, 200, 100).get(), 5), (Rows{{0, 1, 2}, {3, 4}}));
    EXPECT_EQ(squares(drawn(chart, five, 80, 200).get(), 5), (Rows{{0}, {1}, {2}, {3}, {4}}));
}

TEST(LegendTest, ASeriesWithoutANameIsLeftOut) {
    const Named two({"", "Wind"});
    const kit_chart chart = {.kind = KIT_CHART_LINE, .parts = KIT_CHART_LEGEND};
    EXPECT_EQ(squares(drawn(chart, two, 400, 100).get(), 2), (Rows{{1}}));
}

TEST(LegendTest, ANameWiderThanTheChartEndsInAnEllipsis) {
    const Named one({"Photovoltaics on the roof"});
    const kit_chart chart = {.kind = KIT_CHART_LINE, .parts = KIT_CHART_LEGEND};
    const auto canvas = drawn(chart, one, 100, 80);
    EXPECT_EQ(squares(canvas.get(), 1), (Rows{{0}}));
    const auto expected = make_canvas(100, 20);
    // Its square and 6 more columns stand before it.
    EXPECT_EQ(kit_text_box(expected.get(), nullptr, one.names[0].c_str(), {14, -2, 86, 19},
                           KIT_LEFT, quiet()),
              1);
    EXPECT_EQ(words_in(canvas.get(), {0, 0, 100, 17}), words_in(expected.get(), {0, 0, 100, 17}));
}

TEST(LegendTest, WhatHalfOfTheHeightDoesNotHoldIsCounted) {
    const Named five({"Solar", "Wind", "Water", "Grid", "Battery"});
    const kit_chart chart = {.kind = KIT_CHART_LINE, .parts = KIT_CHART_LEGEND};
    const int row = 17;
    const auto all = drawn(chart, five, 120, 6 * row);
    EXPECT_EQ(squares(all.get(), 5), (Rows{{0, 1}, {2, 3}, {4}}));
    const auto some = drawn(chart, five, 120, 6 * row - 1);
    EXPECT_EQ(squares(some.get(), 5), (Rows{{0, 1}, {2}}));
    const int w = kit_text_width(nullptr, "+2");
    EXPECT_EQ(words_in(some.get(), {120 - w, row, w, row}),
              words_at("+2", nullptr, 0, 3 + 9, w, row));
    // One row is there however low the chart is.
    EXPECT_EQ(squares(drawn(chart, five, 120, 30).get(), 5), (Rows{{0}}));
    // Not even one name beside the number.
    const auto narrow = drawn(chart, five, 60, 33);
    EXPECT_EQ(squares(narrow.get(), 5), Rows());
    EXPECT_EQ(words_in(narrow.get(), {60 - w, 0, w, row}),
              words_at("+5", nullptr, 0, 3 + 9, w, row));
}

TEST(LegendTest, AccentsAndDescendersAreWhole) {
    for (const kit_face* face : faces()) {
        const Named one({"\u00C5g"});
        const kit_chart chart = {.kind = KIT_CHART_LINE, .parts = KIT_CHART_LEGEND, .face = face};
        const auto canvas = drawn(chart, one, 200, 200);
        const int w = kit_text_width(face, "\u00C5g"), h = kit_face_line(face);
        const std::string whole = words_at("\u00C5g", face, 0, kit_face_ascent(face), w, h);
        const auto ink = [](const std::string& text) {
            return std::count(text.begin(), text.end(), '#');
        };
        EXPECT_EQ(ink(words_in(canvas.get(), {0, 0, 200, h + 8})), ink(whole));
    }
}

/// The runs of rows, or of columns, that hold ink of words.
std::vector<std::pair<int, int>> runs(const orvel_canvas* canvas, const kit_box& box, bool rows) {
    std::vector<std::pair<int, int>> found;
    const int first = rows ? box.y : box.x, count = rows ? box.h : box.w;
    for (int i = first; i < first + count; ++i) {
        const kit_box line = rows ? kit_box{box.x, i, box.w, 1} : kit_box{i, box.y, 1, box.h};
        if (words_in(canvas, line).find('#') == std::string::npos) continue;
        if (!found.empty() && found.back().second == i) {
            found.back().second = i + 1;
        } else {
            found.emplace_back(i, i + 1);
        }
    }
    return found;
}

TEST(ChartWordsTest, NumbersAtTheLeftKeepApart) {
    const Named one({""});
    for (const kit_face* face : faces()) {
        for (int h = 20; h <= 300; h += 19) {
            const kit_chart chart = {.kind = KIT_CHART_BARS, .parts = KIT_CHART_AXES, .face = face};
            const auto canvas = drawn(chart, one, 200, h);
            const int w = kit_text_width(face, "0");
            for (const auto& [from, to] : runs(canvas.get(), {0, 0, w, h}, true)) {
                EXPECT_LE(to - from, kit_face_cap(face) + 1) << h;  // the round ones hang over
            }
        }
    }
}

TEST(ChartWordsTest, ZeroIsAmongTheNumbersThatAreShown) {
    Named one({""});
    const std::vector<double> values = {-1, 4};
    one.rows[0].values = values.data();
    one.rows[0].count = 2;
    const kit_face* const face = kit_sans_40();
    const kit_chart chart = {.kind = KIT_CHART_BARS, .parts = KIT_CHART_AXES, .face = face};
    const auto canvas = drawn(chart, one, 200, 90);  // no room for -5, 0 and 5
    const auto rows = runs(canvas.get(), {0, 0, 60, 90}, true);
    ASSERT_EQ(rows.size(), 1U);
    const int w = kit_text_width(face, "-5"), zero = kit_text_width(face, "0");
    EXPECT_EQ(words_in(canvas.get(), {w - zero, 0, zero, 90}),
              words_at("0", face, 0, 15 + 29 + 15, zero, 90));
}

TEST(ChartWordsTest, LabelsKeepApartFromEachOtherAndFromTheNumbers) {
    const Named one({""});
    for (const kit_face* face : faces()) {
        for (const int kind : {KIT_CHART_LINE, KIT_CHART_BARS}) {
            for (int w = 60; w <= 400; w += 57) {
                kit_chart chart = {.kind = kind,
                                   .parts = KIT_CHART_LABELS,
                                   .labels = "HH|H|HHH|HH|HHHH|H",
                                   .face = face};
                const int h = 220, band = kit_face_cap(face) + kit_face_descent(face);
                auto canvas = drawn(chart, one, w, h);
                const auto labels = runs(canvas.get(), {0, h - band, w, band}, false);
                for (std::size_t i = 1; i < labels.size(); ++i) {
                    // Two letters of a label stand closer than half a letter, labels never do.
                    const int gap = labels[i].first - labels[i - 1].second;
                    EXPECT_TRUE(gap >= 8 || gap < kit_face_cap(face) / 2) << gap << " in " << w;
                }
                chart.parts |= KIT_CHART_AXES;
                canvas = drawn(chart, one, w, h);
                const auto rows = runs(canvas.get(), {0, 0, w, h}, true);
                ASSERT_FALSE(rows.empty());
                EXPECT_LE(rows.back().second - rows.back().first, kit_face_cap(face) + 1) << w;
            }
        }
    }
}

TEST(ChartWordsTest, ALabelWiderThanTheChartIsLeftOut) {
    const Named one({""});
    const kit_chart chart = {
        .kind = KIT_CHART_BARS, .parts = KIT_CHART_LABELS, .labels = "1|123456|1|1|1|1"};
    const int w = kit_text_width(nullptr, "123456") - 1;
    const auto canvas = drawn(chart, one, w, 60);
    const auto labels = runs(canvas.get(), {0, 40, w, 20}, false);
    EXPECT_GE(labels.size(), 2U);
    for (const auto& [from, to] : labels) EXPECT_LE(to - from, kit_text_width(nullptr, "1"));
}

TEST(ChartWordsTest, UnitsAreWholeBelowTheBaselineToo) {
    const Named one({""});
    for (const kit_face* face : faces()) {
        kit_chart chart = {.kind = KIT_CHART_BARS, .parts = KIT_CHART_AXES, .face = face};
        const auto ink = [&](const char* unit) {
            chart.unit = unit;
            const auto rows = runs(drawn(chart, one, 300, 200).get(), {0, 0, 300, 200}, true);
            return rows.back().second;
        };
        const auto alone = make_canvas(60, 100);
        kit_text_draw(alone.get(), face, "g", 10, 50, quiet());
        const int below = runs(alone.get(), {0, 0, 60, 100}, true).back().second - 50;
        EXPECT_EQ(ink("g") - ink("H"), below);
        EXPECT_EQ(ink(""), ink(nullptr));
    }
}

/// What a gauge of a side shows in its middle, and what a text looks like there.
bool shows(const char* text, double value, const kit_chart& chart, int side) {
    kit_series row = {};
    row.values = &value;
    row.count = 1;
    kit_chart gauge = chart;
    gauge.kind = KIT_CHART_GAUGE;
    gauge.high = 100000;
    gauge.box = {0, 0, side, side};
    gauge.series = &row;
    gauge.count = 1;
    const auto canvas = make_canvas(side, side), expected = make_canvas(side, side);
    EXPECT_EQ(kit_chart_draw(canvas.get(), dark(), gauge), 0);
    const int outer = side / 2, cy = (side - outer * 1720 / 1000) / 2 + outer;
    const int cap = kit_face_cap(chart.face);
    kit_text_box(expected.get(), chart.face, text, {0, cy - cap, side, 2 * cap}, KIT_CENTRE,
                 dark().text);
    return words_in(canvas.get(), {0, 0, side, side}) ==
           words_in(expected.get(), {0, 0, side, side});
}

TEST(GaugeTest, WhatIsMissingIsADashAndWhatIsTooLargeAnEllipsis) {
    const kit_chart chart = {.decimals = 1, .unit = " kW"};
    for (const double missing : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        EXPECT_TRUE(shows("\u2013", missing, chart, 120)) << missing;
    }
    EXPECT_TRUE(shows("\u2026", 1.1e15, chart, 120));
    EXPECT_TRUE(shows("\u2026", -1e300, chart, 120));
}

TEST(GaugeTest, ANumberThatIsTooWideLosesItsUnitAndThenIsAnEllipsis) {
    kit_chart chart = {.decimals = 1, .unit = " kW"};
    EXPECT_TRUE(shows("50000.0 kW", 50000, chart, 120));
    EXPECT_TRUE(shows("50000.0", 50000, chart, 80));
    EXPECT_TRUE(shows("\u2026", 50000, chart, 50));
    EXPECT_TRUE(shows("", 50000, chart, 14));
    chart.face = kit_sans_24();
    EXPECT_TRUE(shows("50000.0", 50000, chart, 150));
    EXPECT_TRUE(shows("\u2026", 50000, chart, 100));
    EXPECT_TRUE(shows("7.0", 7, chart, 100));
    EXPECT_TRUE(shows("", 7, chart, 20));  // letters higher than the ring is wide
}

TEST(GaugeTest, ItsLabelHasTheWholeWidthBelowTheRing) {
    const Named one({""});
    const kit_chart chart = {
        .kind = KIT_CHART_GAUGE, .parts = KIT_CHART_LABELS, .labels = "Living room, north"};
    const int w = kit_text_width(nullptr, "Living room, north");
    const auto canvas = drawn(chart, one, w + 1, w + 1);
    const auto rows = runs(canvas.get(), {0, 0, w + 1, w + 1}, true);
    ASSERT_FALSE(rows.empty());
    const int top = rows.back().first;
    EXPECT_EQ(words_in(canvas.get(), {0, top, w, 13}),
              words_at("Living room, north", nullptr, 0, 10, w, 13));
}

}  // namespace
