// The range of a chart, the room for its values, and what is drawn around them.
#include <algorithm>
#include <cmath>
#include <limits>
#include <new>

#include "charts/legend.h"
#include "charts/plot.h"

namespace kit {
namespace {

constexpr int kLongestSide = 32767;
constexpr int kMostSeries = 32;

bool is_visible(const orvel_canvas* canvas, const kit_box& box) {
    return box.w > 0 && box.h > 0 && box.x < orvel_canvas_width(canvas) &&
           box.y < orvel_canvas_height(canvas) && box.x > -box.w && box.y > -box.h;
}

/// Drawing that stays inside a box of a canvas.
struct Clip {
    orvel_canvas* canvas;
    kit_box part;                    // of the box, what is on the canvas
    orvel_canvas* inside = nullptr;  // null when that is nothing

    Clip(orvel_canvas* to, const kit_box& box) : canvas(to), part(box) {
        if (!is_visible(canvas, box)) return;
        inside = kit_clip_begin(canvas, &part);
        if (!inside) throw std::bad_alloc();
    }
    ~Clip() {
        if (inside) kit_clip_end(canvas, &part, inside);
    }
    Clip(const Clip&) = delete;
    Clip& operator=(const Clip&) = delete;
};

struct Extent {
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();
    bool empty() const { return low > high; }
    void add(double value) {
        low = std::min(low, value);
        high = std::max(high, value);
    }
};

bool starts_at_zero(int kind) { return kind != KIT_CHART_LINE && kind != KIT_CHART_SPARK; }

void add_values(const kit_series& series, Extent& extent) {
    for (int i = 0; i < series.count; ++i) {
        if (is_there(series.values[i])) extent.add(series.values[i]);
    }
}

/// Adds the ends of the stack at one place; one that leaves the range of a double is none.
void add_stack(const kit_chart& chart, int place, Extent& extent) {
    double up = 0;
    double down = 0;
    for (int k = 0; k < chart.count; ++k) {
        const kit_series& series = chart.series[k];
        if (place >= series.count || !is_there(series.values[place])) continue;
        (series.values[place] < 0 ? down : up) += series.values[place];
    }
    if (is_there(up)) extent.add(up);
    if (is_there(down)) extent.add(down);
}

Extent extent_of(const kit_chart& chart) {
    Extent extent;
    int places = 0;
    for (int k = 0; k < chart.count; ++k) {
        if (chart.kind != KIT_CHART_STACKED) add_values(chart.series[k], extent);
        places = std::max(places, chart.series[k].count);
    }
    if (chart.kind == KIT_CHART_STACKED) {
        for (int i = 0; i < places; ++i) add_stack(chart, i, extent);
    }
    return extent;
}

/// What stands above and below the room for the values, in rows. Labels keep clear of the lowest
/// number at the left, whose middle is on the room's last row.
struct Margins {
    int top = 0, bottom = 0, to_labels = 0;
};

Margins margins_of(const kit_chart& chart, int legend) {
    Margins margins;
    const int cap = kit_face_cap(chart.face);
    const int descent = kit_face_descent(chart.face);
    margins.top = legend;
    const int unit =
        chart.unit && *chart.unit ? 1 : 0;  // digits end at the baseline, letters below
    margins.to_labels = std::max(7, cap / 2 + descent + unit);
    if (chart.parts & KIT_CHART_LABELS) {
        margins.bottom = margins.to_labels + cap + descent;
    } else if (chart.parts & KIT_CHART_AXES) {
        margins.bottom = cap / 2 + std::max(1, unit * descent);
    }
    if (chart.parts & KIT_CHART_AXES) margins.top += cap / 2 + 1;
    return margins;
}

int most_ticks(const kit_chart& chart, const Margins& margins) {
    const int rows = chart.box.h - margins.top - margins.bottom;
    const int apart = rows / (kit_face_cap(chart.face) + kNumberGap);
    return std::clamp(std::min(chart.box.h / (2 * kit_face_line(chart.face)), apart), 1, 10);
}

/// The range that the values take, ending at ticks where these are shown.
Range found_range(const kit_chart& chart, int most) {
    Extent extent = extent_of(chart);
    Range range;
    if (extent.empty()) return range;
    if (starts_at_zero(chart.kind) || extent.low == extent.high) extent.add(0);
    if (extent.low == extent.high) extent.high = 1;
    range.low = extent.low;
    range.high = extent.high;
    if (!(chart.parts & KIT_CHART_AXES) || !std::isfinite(range.high - range.low)) return range;
    range.ticks = ticks_around(range.low, range.high, most);
    if (range.ticks.first > range.ticks.last) return range;
    range.low = range.ticks.value(range.ticks.first);
    range.high = range.ticks.value(range.ticks.last);
    return range;
}

Range range_of(const kit_chart& chart, int most) {
    if (chart.low == chart.high) return found_range(chart, most);
    Range range;
    range.low = chart.low;
    range.high = chart.high;
    if (chart.parts & KIT_CHART_AXES) {
        range.ticks = ticks_inside(range.low, range.high, most);
    }
    return range;
}

/// What the box leaves for the values.
kit_box room_of(const kit_chart& chart, const Range& range, const Margins& margins) {
    const kit_box& box = chart.box;
    int left = 0;
    if (chart.parts & KIT_CHART_AXES) {
        for (std::int64_t i = range.ticks.first; i <= range.ticks.last; ++i) {
            const std::string text = tick_text(chart, range.ticks, i);
            left = std::max(left, kit_text_width(chart.face, text.c_str()));
        }
        left += kFromNumbers;
    }
    return {box.x + left, box.y + margins.top, box.w - left, box.h - margins.top - margins.bottom};
}

void draw_kind(const Plot& plot, int kind) {
    switch (kind) {
    case KIT_CHART_LINE: return plot.lines();
    case KIT_CHART_AREA: return plot.areas();
    case KIT_CHART_SPARK: return plot.spark();
    case KIT_CHART_BARS: return plot.bars();
    default: return plot.stacked();
    }
}

/// Draws the values; those outside a range that was given end two pixels outside the room.
void draw_values(orvel_canvas* canvas, const orvel_theme& theme, const kit_chart& chart,
                 kit_box room, const Range& range) {
    if (chart.low == chart.high) {
        return draw_kind(Plot(canvas, theme, chart, room, range), chart.kind);
    }
    Clip clip(canvas, {room.x - 2, room.y - 2, room.w + 4, room.h + 4});
    if (!clip.inside) return;
    room.x -= clip.part.x;
    room.y -= clip.part.y;
    draw_kind(Plot(clip.inside, theme, chart, room, range), chart.kind);
}

bool is_valid(const kit_chart& chart) {
    if (chart.kind < KIT_CHART_LINE || chart.kind > KIT_CHART_GAUGE) return false;
    if (chart.count < 0 || chart.count > kMostSeries) return false;
    if (chart.count > 0 && !chart.series) return false;
    for (int i = 0; i < chart.count; ++i) {
        const kit_series& series = chart.series[i];
        if (series.count < 0 || (series.count > 0 && !series.values)) return false;
    }
    return std::isfinite(chart.low) && std::isfinite(chart.high) && chart.low <= chart.high &&
           std::isfinite(chart.high - chart.low) && chart.box.w >= 0 && chart.box.h >= 0 &&
           chart.box.w <= kLongestSide && chart.box.h <= kLongestSide;
}

/// The values of a chart, and what its parts put around them.
void draw_plot(orvel_canvas* canvas, const orvel_theme& theme, const kit_chart& chart) {
    const Legend legend(chart);
    const Margins margins = margins_of(chart, chart.parts & KIT_CHART_LEGEND ? legend.height() : 0);
    const Range range = range_of(chart, most_ticks(chart, margins));
    const kit_box room = room_of(chart, range, margins);
    if (room.w < 1 || room.h < 1) return;
    const Plot plot(canvas, theme, chart, room, range);
    if (chart.parts & KIT_CHART_AXES) plot.grid();
    if (chart.parts & KIT_CHART_LABELS) plot.labels(room.y + room.h + margins.to_labels);
    if (chart.parts & KIT_CHART_LEGEND) legend.draw(canvas, theme);
    draw_values(canvas, theme, chart, room, range);
}

/// The chart in coordinates of @p inside, which shows @p part of the canvas.
void draw_on(orvel_canvas* inside, const orvel_theme& theme, const kit_chart& record,
             const kit_box& part) {
    kit_chart chart = record;
    chart.box.x -= part.x;
    chart.box.y -= part.y;
    const kit_box& box = chart.box;
    switch (chart.kind) {
    case KIT_CHART_GAUGE:
        return draw_gauge(inside, theme, chart, range_of(chart, most_ticks(chart, {})));
    case KIT_CHART_SPARK: {
        const kit_box room = {box.x + 2, box.y + 2, box.w - 4, box.h - 4};
        if (room.w < 1 || room.h < 1) return;
        const Range range = range_of(chart, most_ticks(chart, {}));
        return draw_values(inside, theme, chart, room, range);
    }
    default: return draw_plot(inside, theme, chart);
    }
}

}  // namespace
}  // namespace kit

int kit_chart_draw(orvel_canvas* canvas, const orvel_theme* theme, const kit_chart* chart) {
    using namespace kit;
    if (!canvas || !theme || !chart || !is_valid(*chart)) return -1;
    try {
        // What is thick would leave the box.
        const Clip clip(canvas, chart->box);
        if (clip.inside) draw_on(clip.inside, *theme, *chart, clip.part);
        return 0;
    } catch (...) {  // memory ran out
        return -1;
    }
}
