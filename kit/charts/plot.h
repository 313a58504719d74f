// A chart being drawn: its record, its room, its range, and what its kinds are drawn with.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "charts/scale.h"
#include "orvel_kit.h"

namespace kit {

/// The range of values that a chart shows, with its ticks.
struct Range {
    double low = 0, high = 1;
    Ticks ticks;
};

/// A line chart's points, an area's and a bar's places, from left to right and from the top down.
class Plot {
public:
    Plot(orvel_canvas* to, const orvel_theme& theme, const kit_chart& record, kit_box inside,
         const Range& range);

    void lines() const;
    void areas() const;
    void spark() const;
    void bars() const;
    void stacked() const;

    /// Lines at the ticks with their numbers at the left of the room, every one of them or, where
    /// they would touch, every second, third and so on.
    void grid() const;
    /// The labels below, from the row @p top on, chosen likewise.
    void labels(int top) const;

private:
    struct Label {
        std::string text;
        int x, w;
    };

    std::int64_t numbers_apart() const;
    std::vector<Label> placed_labels() const;
    int column(int i) const;      // of the point i
    int slot(int i) const;        // where the bars of the place i begin
    int row(double value) const;  // of a value, in the room or outside it
    int base_row() const;         // of zero, or of the end of the range nearest to it
    orvel_color color(int series) const;
    void polyline(const kit_series& series, orvel_color ink, int thickness) const;
    void stroke(int x0, int y0, int x1, int y1, orvel_color ink, int thickness) const;
    void area(const kit_series& series, orvel_color ink) const;
    void bar(int x, int w, std::int64_t from, std::int64_t to, orvel_color ink) const;
    void stack(int place) const;

    orvel_canvas* canvas;
    const orvel_theme& T;
    const kit_chart& chart;
    kit_box room;
    Scale scale;
    Ticks ticks;
    int places;  // the longest series' count
};

constexpr int kFromNumbers = 6;  // from the numbers at the left to the room
constexpr int kNumberGap = 3;    // between one number and the next below it, at least

/// What stands at a tick: a number with its unit.
std::string tick_text(const kit_chart& chart, const Ticks& ticks, std::int64_t tick);

/// Whether a value is there: neither NaN nor infinite.
bool is_there(double value);

/// Draws the gauge of a chart in its box.
void draw_gauge(orvel_canvas* canvas, const orvel_theme& theme, const kit_chart& chart,
                const Range& range);

/// The colour of a series: its own, or the theme's accent and then some that differ from it.
orvel_color series_color(const orvel_theme& theme, const kit_chart& chart, int series);

/// The colour of what is said beside the values.
orvel_color quiet(const orvel_theme& theme);

}  // namespace kit
