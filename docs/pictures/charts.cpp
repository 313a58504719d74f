// Every kind of chart, as the page on charts shows it.
#include <limits>
#include <vector>

#include "files.h"
#include "orvel_kit.h"

namespace manual {
namespace {

constexpr double kMissing = std::numeric_limits<double>::quiet_NaN();
constexpr int kWidth = 300;
constexpr int kHeight = 150;

const std::vector<double> kSolar = {0, 0, 0.2, 0.7, 2.2, 3.1, 4.3, 4.5, 4.2, 2.9, 1.1, 0.4};
const std::vector<double> kUse = {0.6, 0.5, 1.7, 2.1, 1.2, 1.1, 1.9, 1.5, 1.2, 2.0, 3.1, 2.6};
const std::vector<double> kFrost = {3, 1, -2, -4, kMissing, -3, 1, 4, 6, 5, 2, -1};
const std::vector<double> kNow = {3.1};

struct Example {
    const char* name;
    const char* about;
    const char* alt;
    kit_chart chart;
    std::vector<const std::vector<double>*> values;
};

std::vector<Example> examples() {
    constexpr unsigned kAll = KIT_CHART_AXES | KIT_CHART_LABELS | KIT_CHART_LEGEND;
    kit_chart base = {};
    base.box = {12, 12, kWidth - 24, kHeight - 24};
    base.unit = " kW";
    base.labels = "0:00|2:00|4:00|6:00|8:00|10:00|12:00|14:00|16:00|18:00|20:00|22:00";
    base.face = kit_sans_11();
    const auto with = [&base](int kind, unsigned parts) {
        kit_chart chart = base;
        chart.kind = kind;
        chart.parts = parts;
        return chart;
    };
    kit_chart spark = with(KIT_CHART_SPARK, 0);
    spark.box.h = 40;
    spark.box.y = 55;
    kit_chart gauge = with(KIT_CHART_GAUGE, KIT_CHART_LABELS);
    gauge.high = 5;
    gauge.decimals = 1;
    gauge.labels = "Solar";
    kit_chart frost = with(KIT_CHART_AREA, KIT_CHART_AXES | KIT_CHART_LABELS);
    frost.unit = "\u00b0";
    return {
        {"LINE",
         "A line for each series.",
         "two lines",
         with(KIT_CHART_LINE, kAll),
         {&kSolar, &kUse}},
        {"AREA",
         "Filled down to zero. A missing value leaves a gap.",
         "an area above and below zero with a gap",
         frost,
         {&kFrost}},
        {"SPARK",
         "A line without anything around it; the last value has a dot.",
         "a thin line",
         spark,
         {&kUse}},
        {"BARS",
         "One of each series at every place.",
         "bars in pairs",
         with(KIT_CHART_BARS, kAll),
         {&kSolar, &kUse}},
        {"STACKED",
         "On top of each other; negative values go down.",
         "stacked bars",
         with(KIT_CHART_STACKED, kAll),
         {&kSolar, &kUse}},
        {"GAUGE",
         "The last value of the first series, in a range that is given.",
         "three quarters of a ring, filled to two thirds",
         gauge,
         {&kNow}},
    };
}

void draw(orvel_canvas* canvas, const orvel_theme& theme, const Example& example) {
    std::vector<kit_series> rows;
    for (const std::vector<double>* values : example.values) {
        kit_series row = {};
        row.values = values->data();
        row.count = static_cast<int>(values->size());
        row.name = rows.empty() ? "Solar" : "Use";
        rows.push_back(row);
    }
    kit_chart chart = example.chart;
    chart.series = rows.data();
    chart.count = static_cast<int>(rows.size());
    orvel_canvas_clear(canvas, theme.surface);
    kit_chart_draw(canvas, theme, chart);
}

}  // namespace

void write_charts(const Output& out) {
    std::ofstream list = out.list("charts");
    for (const Example& example : examples()) {
        const std::string picture = std::string("chart-") + example.name;
        save_both(out, picture, kWidth, kHeight, 2,
                  [&example](orvel_canvas* canvas, const orvel_theme& theme) {
                      draw(canvas, theme, example);
                  });
        list << "### KIT_CHART_" << example.name << "\n\n"
             << example.about << "\n\n"
             << picture_element(picture, example.alt, 2 * kWidth, 2 * kHeight) << "\n\n";
    }
}

}  // namespace manual
