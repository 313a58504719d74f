// Three quarters of a ring, the number in its middle.
#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include "charts/plot.h"
#include "words/items.h"

namespace kit {
namespace {

// The sines of 0 to 90 degrees, times 65536.
constexpr int kSines[91] = {
    0,     1144,  2287,  3430,  4572,  5712,  6850,  7987,  9121,  10252, 11380, 12505, 13626,
    14742, 15855, 16962, 18064, 19161, 20252, 21336, 22415, 23486, 24550, 25607, 26656, 27697,
    28729, 29753, 30767, 31772, 32768, 33754, 34729, 35693, 36647, 37590, 38521, 39441, 40348,
    41243, 42126, 42995, 43852, 44695, 45525, 46341, 47143, 47930, 48703, 49461, 50203, 50931,
    51643, 52339, 53020, 53684, 54332, 54963, 55578, 56175, 56756, 57319, 57865, 58393, 58903,
    59396, 59870, 60326, 60764, 61183, 61584, 61966, 62328, 62672, 62997, 63303, 63589, 63856,
    64104, 64332, 64540, 64729, 64898, 65048, 65177, 65287, 65376, 65446, 65496, 65526, 65536,
};

constexpr int kSweep = 270 * 256;  // of the whole scale, in parts of a degree

struct Direction {
    std::int64_t x, y;
};

/// The sine of an angle from 0 to 90 degrees in 256ths of one, the table's values interpolated.
int sine(int angle) {
    const int degree = angle / 256;
    if (degree >= 90) return kSines[90];
    return kSines[degree] + (kSines[degree + 1] - kSines[degree]) * (angle % 256) / 256;
}

/// The direction at @p angle, in 256ths of a degree clockwise from the right.
Direction direction(int angle) {
    const int quarter = angle / (90 * 256) % 4;
    const int rest = angle % (90 * 256);
    const int s = sine(rest);
    const int c = sine(90 * 256 - rest);
    switch (quarter) {
    case 0: return {c, s};
    case 1: return {-s, c};
    case 2: return {-c, -s};
    default: return {s, -c};
    }
}

/// Above 0 where @p b lies clockwise of @p a by less than half a turn.
std::int64_t turn(Direction a, Direction b) { return a.x * b.y - a.y * b.x; }

/// A part of a turn, clockwise from one direction to another.
struct Sector {
    Direction from, to;
    bool wide;  // more than half a turn
    bool holds(Direction p) const {
        if (wide) return !(turn(to, p) > 0 && turn(p, from) > 0);
        return turn(from, p) >= 0 && turn(p, to) >= 0;
    }
};

/// The part of the scale from its low end (lower left) on.
Sector sector(int sweep) {
    return {direction(135 * 256), direction(135 * 256 + sweep), sweep > 180 * 256};
}

struct Ring {
    int cx, cy, outer, inner;
    Sector whole, filled;
    orvel_color track, ink;

    enum Part { outside, on_track, on_value };

    /// Distances are counted in half pixels, from pixels' middles to the ring's middle.
    Part part(int x, int y, bool empty) const {
        const std::int64_t dx = 2 * std::int64_t{x - cx} + 1;
        const std::int64_t dy = 2 * std::int64_t{y - cy} + 1;
        const std::int64_t d = dx * dx + dy * dy;
        const std::int64_t far = 2 * std::int64_t{outer};
        const std::int64_t near = 2 * std::int64_t{inner};
        if (d > far * far || d < near * near || !whole.holds({dx, dy})) return outside;
        return !empty && filled.holds({dx, dy}) ? on_value : on_track;
    }

    void draw_row(orvel_canvas* canvas, int y, bool empty) const {
        const int right = std::min(cx + outer, orvel_canvas_width(canvas));
        for (int x = std::max(cx - outer, 0); x < right;) {
            const Part here = part(x, y, empty);
            int end = x + 1;
            while (end < right && part(end, y, empty) == here) ++end;
            if (here != outside) {
                orvel_canvas_fill_rect(canvas, x, y, end - x, 1, here == on_value ? ink : track);
            }
            x = end;
        }
    }

    void draw(orvel_canvas* canvas, bool empty) const {
        const int bottom = std::min(cy + outer, orvel_canvas_height(canvas));
        for (int y = std::max(cy - outer, 0); y < bottom; ++y) draw_row(canvas, y, empty);
    }

    /// In the middle: with its unit, without it where that is too wide, an ellipsis in place of a
    /// number that is too wide itself, and nothing where that has no room.
    void write_number(orvel_canvas* canvas, const kit_chart& chart, double value,
                      orvel_color color) const {
        const int cap = kit_face_cap(chart.face);
        int half = inner;  // of the room between the ends of the middle row's letters
        while (half > 0 && half * half + cap * cap / 4 > inner * inner) --half;
        const kit_box middle = {cx - half, cy - cap, 2 * half, 2 * cap};
        const auto width = [&](const std::string& text) {
            return kit_text_width(chart.face, text.c_str());
        };
        const bool counted = is_there(value) && std::fabs(value) <= kLargestShown;
        const char* const unit = counted && chart.unit ? chart.unit : "";
        const std::string number = number_text(value, chart.decimals);
        std::string text = number + unit;
        if (width(text) > middle.w) text = number;
        if (width(text) > middle.w) text = "\u2026";
        if (width(text) > middle.w) return;
        kit_text_box(canvas, chart.face, text.c_str(), middle, KIT_CENTRE, color);
    }

    void write_label(orvel_canvas* canvas, const kit_chart& chart, orvel_color color) const {
        const int cap = kit_face_cap(chart.face);
        const int descent = kit_face_descent(chart.face);
        const kit_box& box = chart.box;
        const int low_ends = cy + outer * 72 / 100;
        const int row = std::min(low_ends, box.y + box.h - cap - 1 - descent);
        const int half = row == low_ends ? box.w / 2 : inner * 7 / 10;  // else it is between them
        std::string_view labels = chart.labels ? chart.labels : "";
        kit_text_box(canvas, chart.face, next_item(&labels).c_str(),
                     {cx - half, row - descent, 2 * half, cap + 2 + 2 * descent}, KIT_CENTRE,
                     color);
    }
};

/// The last value of the first series; NaN when it has none.
double last_value(const kit_chart& chart) {
    if (chart.count < 1 || chart.series[0].count < 1)
        return std::numeric_limits<double>::quiet_NaN();
    return chart.series[0].values[chart.series[0].count - 1];
}

}  // namespace

void draw_gauge(orvel_canvas* canvas, const orvel_theme& theme, const kit_chart& chart,
                const Range& range) {
    const kit_box& box = chart.box;
    const int outer = std::min(box.w / 2, box.h * 1000 / 1720);
    if (outer < 4) return;
    const int inner = outer - std::max(outer / 5, 3);
    const double value = last_value(chart);
    const bool there = is_there(value);
    const Scale scale(range.low, range.high);
    const double shown = there ? std::clamp(value, range.low, range.high) : range.low;
    const int sweep = scale.place(scale.units(shown), kSweep);
    const int cx = box.x + box.w / 2;
    const bool labelled = (chart.parts & KIT_CHART_LABELS) != 0;
    const int label = labelled ? kit_face_cap(chart.face) + kit_face_descent(chart.face) + 2 : 0;
    const int cy = box.y + std::max(0, box.h - outer * 1720 / 1000 - label) / 2 + outer;
    const orvel_color ink = chart.count > 0 ? series_color(theme, chart, 0) : theme.accent;
    const Ring ring = {cx, cy, outer, inner, sector(kSweep), sector(sweep), theme.border, ink};
    ring.draw(canvas, sweep == 0);
    ring.write_number(canvas, chart, value, theme.text);
    if (labelled) ring.write_label(canvas, chart, quiet(theme));
}

}  // namespace kit
