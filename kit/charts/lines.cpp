// Lines, areas and sparklines.
#include <algorithm>
#include <cstdlib>

#include "charts/plot.h"

namespace kit {

/// A line of that thickness: single lines side by side, across the direction in which it is longer.
void Plot::stroke(int x0, int y0, int x1, int y1, orvel_color ink, int thickness) const {
    const bool steep = std::abs(y1 - y0) > std::abs(x1 - x0);
    for (int i = 0; i < thickness; ++i) {
        const int side = i - thickness / 2;
        const int dx = steep ? side : 0;
        const int dy = steep ? 0 : side;
        orvel_canvas_line(canvas, x0 + dx, y0 + dy, x1 + dx, y1 + dy, ink);
    }
}

void Plot::polyline(const kit_series& series, orvel_color ink, int thickness) const {
    for (int i = 0; i < series.count; ++i) {
        if (!is_there(series.values[i])) continue;
        const int x = column(i);
        const int y = row(series.values[i]);
        const bool before = i > 0 && is_there(series.values[i - 1]);
        const bool after = i + 1 < series.count && is_there(series.values[i + 1]);
        if (before) stroke(column(i - 1), row(series.values[i - 1]), x, y, ink, thickness);
        if (!before && !after) orvel_canvas_fill_circle(canvas, x, y, thickness, ink);
    }
}

void Plot::lines() const {
    for (int i = 0; i < chart.count; ++i) polyline(chart.series[i], color(i), 2);
}

/// Fills each column between two points down to the base, the row between them being interpolated.
void Plot::area(const kit_series& series, orvel_color ink) const {
    const int base = base_row();
    for (int i = 0; i < series.count; ++i) {
        if (!is_there(series.values[i])) continue;
        const bool joined = i + 1 < series.count && is_there(series.values[i + 1]);
        const int x0 = column(i);
        const int x1 = joined ? column(i + 1) : x0;
        const int y0 = row(series.values[i]);
        const int y1 = joined ? row(series.values[i + 1]) : y0;
        for (int x = std::max(x0, 0); x <= std::min(x1, orvel_canvas_width(canvas) - 1); ++x) {
            const int steps = std::max(x1 - x0, 1);
            const int y = y0 + static_cast<int>(std::int64_t{y1 - y0} * (x - x0) / steps);
            const int top = std::min(y, base);
            orvel_canvas_fill_rect(canvas, x, top, 1, std::max(y, base) - top + 1, ink);
        }
    }
}

void Plot::areas() const {
    for (int i = 0; i < chart.count; ++i) {
        area(chart.series[i], kit_mix(color(i), T.surface, 65));
    }
    lines();  // over all of the areas, which hide each other
}

void Plot::spark() const {
    for (int i = 0; i < chart.count; ++i) {
        const kit_series& series = chart.series[i];
        polyline(series, color(i), 1);
        int last = series.count - 1;
        while (last >= 0 && !is_there(series.values[last])) --last;
        if (last < 0) continue;
        orvel_canvas_fill_circle(canvas, column(last), row(series.values[last]), 2, color(i));
    }
}

}  // namespace kit
