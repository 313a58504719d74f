// Every kind of chart in both themes, as it looked when its checksum was taken.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "kit/charts/charts.h"
#include "support/golden.h"
#include "support/picture.h"

namespace {

using namespace orvel_test;

const std::vector<double> kSolar = {0, 0, 0.2, 0.7, 2.2, 3.1, 4.3, 4.5, 4.2, 2.9, 1.1, 0.4};
const std::vector<double> kUse = {0.6, 0.5, 1.7, 2.1, 1.2, 1.1, 1.9, 1.5, 1.2, 2.0, 3.1, 2.6};
const std::vector<double> kChange = {3, -2, 5, kMissing, -4, 1, 6, -1, 0, 2, -3, 4};

struct Sample {
    const char* name;
    int kind;
    unsigned parts;
    std::vector<std::vector<double>> values;
    double low, high;
};

const std::vector<Sample>& samples() {
    constexpr unsigned all = KIT_CHART_AXES | KIT_CHART_LABELS | KIT_CHART_LEGEND;
    static const std::vector<Sample> list = {
        {"lines", KIT_CHART_LINE, all, {kSolar, kUse}, 0, 0},
        {"lines alone", KIT_CHART_LINE, 0, {kSolar, kUse}, 0, 0},
        {"lines with gaps", KIT_CHART_LINE, KIT_CHART_AXES, {kChange}, 0, 0},
        {"lines in a range", KIT_CHART_LINE, all, {kSolar, kUse}, 1, 3},
        {"areas", KIT_CHART_AREA, all, {kSolar, kUse}, 0, 0},
        {"areas with gaps", KIT_CHART_AREA, KIT_CHART_AXES, {kChange}, 0, 0},
        {"sparkline", KIT_CHART_SPARK, 0, {kUse}, 0, 0},
        {"bars", KIT_CHART_BARS, all, {kSolar, kUse}, 0, 0},
        {"bars around zero", KIT_CHART_BARS, KIT_CHART_AXES, {kChange}, 0, 0},
        {"stacked", KIT_CHART_STACKED, all, {kSolar, kUse}, 0, 0},
        {"stacked around zero", KIT_CHART_STACKED, KIT_CHART_AXES, {kChange, kSolar}, 0, 0},
        {"gauge", KIT_CHART_GAUGE, KIT_CHART_LABELS, {kUse}, 0, 5},
        {"gauge at zero", KIT_CHART_GAUGE, 0, {{0.0}}, 0, 5},
        {"gauge at its end", KIT_CHART_GAUGE, 0, {{7.0}}, 0, 5},
        {"gauge without a value", KIT_CHART_GAUGE, 0, {{kMissing}}, 0, 5},
    };
    return list;
}

/// A sample on a panel, as a host would show it.
CanvasPtr drawn_sample(const Sample& sample, const orvel_theme& theme) {
    auto canvas = make_canvas(300, 160);
    orvel_canvas_clear(canvas.get(), theme.surface);
    std::vector<kit_series> rows;
    for (const auto& values : sample.values) {
        rows.push_back(series(values, {}));
        rows.back().name = rows.size() == 1 ? "Solar" : "Use";
    }
    const kit_chart chart = {
        .kind = sample.kind,
        .box = {10, 10, 280, 140},
        .series = rows.data(),
        .count = static_cast<int>(rows.size()),
        .low = sample.low,
        .high = sample.high,
        .parts = sample.parts,
        .decimals = 1,
        .unit = " kW",
        .labels = "0:00|2:00|4:00|6:00|8:00|10:00|12:00|14:00|16:00|18:00|20:00",
        .face = kit_sans_11()};
    EXPECT_EQ(kit_chart_draw(canvas.get(), theme, chart), 0);
    return canvas;
}

TEST(ChartGoldenTest, EveryKindInBothThemes) {
    orvel_theme light;
    orvel_theme_light(&light);
    for (const Sample& sample : samples()) {
        std::string text;
        for (const orvel_theme& theme : {dark(), light}) {
            const auto canvas = drawn_sample(sample, theme);
            text += std::to_string(orvel_test::checksum(canvas.get())) + "\n";
            if (const char* folder = std::getenv("ORVEL_CHARTS")) {
                const std::string path = std::string(folder) + "/" + sample.name +
                                         (theme.text == light.text ? "-light" : "-dark") + ".bmp";
                orvel_canvas_save_bmp(canvas.get(), path.c_str());
            }
        }
        orvel_test::expect_golden_text("chart_checksums.txt", sample.name, text);
    }
}

}  // namespace
