// Charts, from outside: pictures worked out by hand, and what holds for any chart.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "kit/charts/charts.h"
#include "support/golden.h"
#include "support/picture.h"
#include "support/random.h"

namespace {

using orvel_test::dark;
using orvel_test::kA;
using orvel_test::kBlack;
using orvel_test::kMissing;
using orvel_test::make_canvas;
using orvel_test::series;

constexpr orvel_color kB = {200, 100, 50, 255};

/// The chart on a canvas of just its size: '.' nothing, 'a' and 'b' the two series.
std::string drawn(kit_chart chart, const std::vector<kit_series>& rows, int w, int h) {
    const auto canvas = make_canvas(w, h);
    chart.box = {0, 0, w, h};
    chart.series = rows.data();
    chart.count = static_cast<int>(rows.size());
    EXPECT_EQ(kit_chart_draw(canvas.get(), dark(), chart), 0);
    return orvel_test::picture(canvas.get(), {{'.', kBlack},
                                              {'a', kA},
                                              {'b', kB},
                                              {'x', kit_mix(kA, dark().surface, 65)},
                                              {'-', dark().border}});
}

TEST(BarChartTest, BarsStandOnZeroAndHaveAQuarterOfTheirPlaceBetweenThem) {
    const std::vector<double> values = {1, 2, 4};
    EXPECT_EQ(drawn({.kind = KIT_CHART_BARS, .high = 4}, {series(values)}, 12, 5),
              "........aaa.\n"
              "........aaa.\n"
              "....aaa.aaa.\n"
              "aaa.aaa.aaa.\n"
              "............\n");
}

TEST(BarChartTest, NegativeBarsHangFromZero) {
    const std::vector<double> values = {2, -2};
    EXPECT_EQ(drawn({.kind = KIT_CHART_BARS}, {series(values)}, 8, 5),
              "aaa.....\n"
              "aaa.....\n"
              "........\n"
              "....aaa.\n"
              "....aaa.\n");
}

TEST(BarChartTest, EachSeriesHasItsBarAtEveryPlaceAndAMissingValueLeavesItsPlaceFree) {
    const std::vector<double> a = {1, kMissing};
    const std::vector<double> b = {2, 2, 1};
    EXPECT_EQ(drawn({.kind = KIT_CHART_BARS, .high = 2}, {series(a), series(b, kB)}, 15, 3),
              "..bb...bb......\n"
              "aabb...bb...bb.\n"
              "...............\n");
}

TEST(BarChartTest, ValuesOutsideTheGivenRangeEndAtTheBox) {
    const std::vector<double> values = {100, -100};
    EXPECT_EQ(drawn({.kind = KIT_CHART_BARS, .low = -1, .high = 1}, {series(values)}, 8, 5),
              "aaa.....\n"
              "aaa.....\n"
              "........\n"
              "....aaa.\n"
              "....aaa.\n");
}

TEST(StackedBarsTest, AStackThatNoNumberHoldsHasNoPartInTheRange) {
    const std::vector<double> a = {1, 1.7e308, -1.7e308};
    const std::vector<double> b = {1, 1.7e308, -1.7e308};
    EXPECT_EQ(drawn({.kind = KIT_CHART_STACKED}, {series(a), series(b, kB)}, 12, 3),
              "bbb.aaa.....\n"
              "aaa.aaa.....\n"
              "............\n");
}

TEST(StackedBarsTest, PositiveValuesGoUpAndNegativeOnesDown) {
    const std::vector<double> a = {1, -1};
    const std::vector<double> b = {2, -1};
    EXPECT_EQ(drawn({.kind = KIT_CHART_STACKED}, {series(a), series(b, kB)}, 8, 6),
              "bbb.....\n"
              "bbb.....\n"
              "aaa.....\n"
              "........\n"
              "....aaa.\n"
              "....bbb.\n");
}

TEST(SparklineTest, TheLastValueHasADotAndAMissingOneIsAGap) {
    const std::vector<double> values = {0, 4, kMissing, 2, 2};
    EXPECT_EQ(drawn({.kind = KIT_CHART_SPARK}, {series(values)}, 18, 9),
              "..................\n"
              "..................\n"
              ".....a.........a..\n"
              "....a.........aaa.\n"
              "...a........aaaaaa\n"
              "...a..........aaa.\n"
              "..a............a..\n"
              "..................\n"
              "..................\n");
}

TEST(LineChartTest, AValueAloneIsADot) {
    const std::vector<double> values = {kMissing, 1, kMissing};
    EXPECT_EQ(drawn({.kind = KIT_CHART_LINE, .high = 2}, {series(values)}, 7, 5),
              "...a...\n"
              "..aaa..\n"
              ".aaaaa.\n"
              "..aaa..\n"
              "...a...\n");
}

TEST(LineChartTest, InfinitiesCountAsMissing) {
    const std::vector<double> values = {HUGE_VAL, 1, -HUGE_VAL};
    const std::vector<double> missing = {kMissing, 1, kMissing};
    const kit_chart chart = {.kind = KIT_CHART_LINE, .high = 2};
    EXPECT_EQ(drawn(chart, {series(values)}, 7, 5), drawn(chart, {series(missing)}, 7, 5));
}

TEST(AreaChartTest, IsFilledToZeroFromAboveAndBelow) {
    const std::vector<double> values = {2, -2};
    EXPECT_EQ(drawn({.kind = KIT_CHART_AREA}, {series(values)}, 5, 5),
              "aa...\n"
              "xaa..\n"
              "xxaax\n"
              "...aa\n"
              "....a\n");
}

TEST(ChartTest, WhatIsTooWideForRoundNumbersOrHasNoNamesIsDrawnWithoutThem) {
    const std::vector<double> values = {-1.7e308, 1.7e308};
    const auto nameless = [&](const char* name, const char* labels) {
        kit_series row = series(values);
        row.name = name;
        return drawn({.kind = KIT_CHART_BARS,
                      .parts = KIT_CHART_AXES | KIT_CHART_LABELS | KIT_CHART_LEGEND,
                      .labels = labels},
                     {row}, 40, 60);
    };
    const std::string chart = nameless(nullptr, nullptr);
    EXPECT_NE(chart.find('a'), std::string::npos);
    EXPECT_EQ(chart.find('?'), std::string::npos);  // no letters
    EXPECT_EQ(nameless("", ""), chart);
}

/// How many rows of the chart, counted from the bottom, have no ink of words.
int empty_rows_below(kit_chart chart, int w, int h) {
    const auto canvas = make_canvas(w, h);
    const std::vector<double> values = {1.0};
    const kit_series row = series(values);
    chart.box = {0, 0, w, h};
    chart.series = &row;
    chart.count = 1;
    EXPECT_EQ(kit_chart_draw(canvas.get(), dark(), chart), 0);
    for (int y = h - 1; y >= 0; --y) {
        for (int x = 0; x < w; ++x) {
            if (orvel_canvas_pixel_get(canvas.get(), x, y) != orvel_color{0, 0, 0, 255})
                return h - 1 - y;
        }
    }
    return h;
}

TEST(ChartTest, LabelsAreWholeBelowTheBaselineToo) {
    for (const kit_face* face : {kit_sans_11(), kit_sans_12(), kit_sans_18(), kit_sans_24(),
                                 kit_bold_12(), kit_mono_12()}) {
        int letter_rows = 0;  // those of a "g" below the baseline, that of the baseline included
        const auto alone = make_canvas(60, 100);
        kit_text_draw(alone.get(), face, "g", 10, 50, {255, 255, 255, 255});
        for (int y = 50; y < 100; ++y) {
            for (int x = 0; x < 60; ++x)
                if (orvel_canvas_pixel_get(alone.get(), x, y).r != 0) letter_rows = y - 49;
        }
        EXPECT_GT(letter_rows, 1);
        for (const int kind : {KIT_CHART_BARS, KIT_CHART_LINE, KIT_CHART_GAUGE}) {
            kit_chart chart = {.kind = kind, .high = 2, .parts = KIT_CHART_LABELS, .face = face};
            chart.labels = "H";
            const int without = empty_rows_below(chart, 120, 140);
            chart.labels = "g";
            EXPECT_EQ(without - empty_rows_below(chart, 120, 140), letter_rows) << kind;
        }
    }
}

TEST(ChartTest, WithoutValuesNothingIsDrawnAndThatIsNoFailure) {
    const std::vector<double> none = {kMissing, kMissing};
    for (int kind = KIT_CHART_LINE; kind < KIT_CHART_GAUGE; ++kind) {
        const std::string empty = drawn({.kind = kind}, {}, 20, 10);
        EXPECT_EQ(empty.find_first_not_of(".\n"), std::string::npos) << kind;
        EXPECT_EQ(drawn({.kind = kind}, {series(none)}, 20, 10), empty) << kind;
        EXPECT_EQ(drawn({.kind = kind}, {series({})}, 20, 10), empty) << kind;
    }
}

TEST(ChartTest, WhatIsNoChartIsRefusedAndDrawsNothing) {
    const std::vector<double> values = {1, 2};
    const kit_series one = series(values);
    const std::vector<kit_series> many(33, one);
    const orvel_theme theme = dark();
    const kit_chart good = {.box = {0, 0, 20, 10}, .series = &one, .count = 1};
    const auto refused = [&](auto change) {
        kit_chart chart = good;
        change(chart);
        const auto canvas = make_canvas(20, 10);
        const int status = kit_chart_draw(canvas.get(), &theme, &chart);
        return status == -1 && orvel_test::checksum(canvas.get()) ==
                                   orvel_test::checksum(make_canvas(20, 10).get());
    };
    const kit_series lost = {.values = nullptr, .count = 2};
    const kit_series negative = {.values = values.data(), .count = -1};
    EXPECT_FALSE(refused([](kit_chart&) {}));
    EXPECT_TRUE(refused([](kit_chart& c) { c.kind = -1; }));
    EXPECT_TRUE(refused([](kit_chart& c) { c.kind = KIT_CHART_GAUGE + 1; }));
    EXPECT_TRUE(refused([](kit_chart& c) { c.series = nullptr; }));
    EXPECT_TRUE(refused([](kit_chart& c) { c.count = -1; }));
    EXPECT_TRUE(refused([&](kit_chart& c) { c.series = many.data(), c.count = 33; }));
    EXPECT_FALSE(refused([&](kit_chart& c) { c.series = many.data(), c.count = 32; }));
    EXPECT_TRUE(refused([&](kit_chart& c) { c.series = &lost; }));
    EXPECT_TRUE(refused([&](kit_chart& c) { c.series = &negative; }));
    EXPECT_TRUE(refused([](kit_chart& c) { c.low = 1; }));
    EXPECT_TRUE(refused([](kit_chart& c) { c.high = HUGE_VAL; }));
    EXPECT_TRUE(refused([](kit_chart& c) { c.low = kMissing; }));
    EXPECT_TRUE(refused([](kit_chart& c) { c.low = -1.7e308, c.high = 1.7e308; }));
    EXPECT_TRUE(refused([](kit_chart& c) { c.box.w = -1; }));
    EXPECT_TRUE(refused([](kit_chart& c) { c.box.h = -1; }));
    EXPECT_TRUE(refused([](kit_chart& c) { c.box.w = 32768; }));
    EXPECT_TRUE(refused([](kit_chart& c) { c.box.h = 32768; }));
    const auto canvas = make_canvas(20, 10);
    EXPECT_EQ(kit_chart_draw(nullptr, &theme, &good), -1);
    EXPECT_EQ(kit_chart_draw(canvas.get(), nullptr, &good), -1);
    EXPECT_EQ(kit_chart_draw(canvas.get(), &theme, nullptr), -1);
}

TEST(ChartTest, WhereNothingHasRoomNothingIsDrawnAndThatIsNoFailure) {
    const std::vector<double> values = {1, 2};
    const kit_series one = series(values);
    for (int kind = KIT_CHART_LINE; kind <= KIT_CHART_GAUGE; ++kind) {
        for (const auto& [x, y, w, h] : {kit_box{0, 0, 0, 0},
                                         {0, 0, 0, 10},
                                         {0, 0, 20, 0},
                                         {0, 0, 3, 3},
                                         {20, 0, 20, 10},
                                         {-20, 0, 20, 10},
                                         {0, INT_MAX, 32767, 32767},
                                         {INT_MIN, INT_MIN, 32767, 32767}}) {
            const kit_chart chart = {
                .kind = kind, .box = {x, y, w, h}, .series = &one, .count = 1, .parts = 7};
            const auto canvas = make_canvas(20, 10);
            EXPECT_EQ(kit_chart_draw(canvas.get(), dark(), chart), 0);
            EXPECT_EQ(orvel_test::checksum(canvas.get()),
                      orvel_test::checksum(make_canvas(20, 10).get()))
                << kind << ": " << x << ' ' << y << ' ' << w << ' ' << h;
        }
    }
}

TEST(ChartTest, AnArrayMayBeNullWhereItsCountIsZero) {
    const orvel_theme theme = dark();
    const kit_series none = {};
    const auto canvas = make_canvas(20, 10);
    for (int kind = KIT_CHART_LINE; kind <= KIT_CHART_GAUGE; ++kind) {
        const kit_chart empty = {.kind = kind, .box = {0, 0, 20, 10}};
        EXPECT_EQ(kit_chart_draw(canvas.get(), theme, empty), 0);
        const kit_chart chart = {.kind = kind, .box = {0, 0, 20, 10}, .series = &none, .count = 1};
        EXPECT_EQ(kit_chart_draw(canvas.get(), theme, chart), 0);
    }
}

TEST(ChartTest, DecimalsAreClampedToNine) {
    const std::vector<double> values = {1, 2};
    const auto with = [&](int decimals) {
        return drawn({.parts = KIT_CHART_AXES, .decimals = decimals}, {series(values)}, 160, 60);
    };
    EXPECT_EQ(with(-1), with(0));
    EXPECT_EQ(with(INT_MIN), with(0));
    EXPECT_EQ(with(10), with(9));
    EXPECT_EQ(with(INT_MAX), with(9));
    EXPECT_NE(with(8), with(9));
}

/// A chart of random values, some of them missing, huge, or outside its range.
struct RandomChart {
    std::vector<std::vector<double>> values;
    std::vector<kit_series> rows;
    kit_chart chart = {};

    explicit RandomChart(orvel_test::Random& random) {
        values.resize(static_cast<std::size_t>(random.between(0, 4)));
        for (auto& row : values) {
            row.resize(static_cast<std::size_t>(random.between(0, 30)));
            const double size = std::pow(10.0, random.one_in(4) ? random.between(-300, 300) : 1);
            for (double& value : row) {
                value = random.one_in(8) ? kMissing : random.between(-1000, 1000) / 100.0 * size;
            }
            rows.push_back(series(row, {}));
            rows.back().name = random.one_in(2)   ? "Solar"
                               : random.one_in(2) ? "Grid, bought"
                                                  : nullptr;
        }
        chart.kind = random.between(KIT_CHART_LINE, KIT_CHART_GAUGE);
        chart.box = {random.between(-60, 120), random.between(-60, 90), random.between(0, 120),
                     random.between(0, 90)};
        if (random.one_in(3)) {
            chart.low = random.between(-50, 0);
            chart.high = chart.low + random.between(0, 60);
        }
        chart.parts = static_cast<unsigned>(random.between(0, 7));
        chart.decimals = random.between(-1, 3);
        chart.unit = random.one_in(2) ? " kW" : nullptr;
        chart.labels = random.one_in(2) ? "Mon|Tue|Wed|Thu" : nullptr;
        const kit_face* const faces[] = {nullptr, kit_sans_11(), kit_bold_14(), kit_sans_24()};
        chart.face = faces[random.between(0, 3)];
        chart.series = rows.data();
        chart.count = static_cast<int>(rows.size());
    }
};

bool inside(const kit_box& box, int x, int y) {
    return x >= box.x && x < box.x + box.w && y >= box.y && y < box.y + box.h;
}

TEST(ChartTest, NoPixelOutsideTheBoxChanges) {
    orvel_test::Random random(11);
    const orvel_theme theme = dark();
    for (int i = 0; i < 1000; ++i) {
        const RandomChart any(random);
        const auto canvas = make_canvas(120, 90);
        ASSERT_EQ(kit_chart_draw(canvas.get(), theme, any.chart), 0) << i;
        for (int y = 0; y < 90; ++y) {
            for (int x = 0; x < 120; ++x) {
                if (inside(any.chart.box, x, y)) continue;
                ASSERT_EQ(orvel_canvas_pixel_get(canvas.get(), x, y), kBlack) << i;
            }
        }
    }
}

TEST(ChartTest, LooksTheSameWhereverItLies) {
    orvel_test::Random random(12);
    const orvel_theme theme = dark();
    for (int i = 0; i < 1000; ++i) {
        RandomChart any(random);
        const auto here = make_canvas(120, 90);
        any.chart.box.x = 0;
        any.chart.box.y = 0;
        ASSERT_EQ(kit_chart_draw(here.get(), theme, any.chart), 0);
        const auto there = make_canvas(150, 120);
        any.chart.box.x = 30;
        any.chart.box.y = 30;
        ASSERT_EQ(kit_chart_draw(there.get(), theme, any.chart), 0);
        const auto moved = make_canvas(120, 90);
        const kit_box part = {30, 30, 120, 90};
        kit_copy(moved.get(), 0, 0, there.get(), &part);
        ASSERT_EQ(orvel_test::checksum(moved.get()), orvel_test::checksum(here.get())) << i;
    }
}

TEST(ChartTest, RandomOnesAreTheSameEverywhere) {
    orvel_test::Random random(13);
    const orvel_theme theme = dark();
    std::uint64_t sum = 0;
    for (int i = 0; i < 1000; ++i) {
        const RandomChart any(random);
        const auto canvas = make_canvas(120, 90);
        ASSERT_EQ(kit_chart_draw(canvas.get(), theme, any.chart), 0);
        sum = orvel_test::checksum(canvas.get(), sum);
    }
    orvel_test::expect_golden_text("chart_checksums.txt", "random charts",
                                   std::to_string(sum) + "\n");
}

}  // namespace
