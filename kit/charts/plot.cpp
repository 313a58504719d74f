#include "charts/plot.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>

#include "words/items.h"

namespace kit {
namespace {

// Behind the accent: orange, green, teal, mauve, red, yellow, blue. They differ on light and dark.
constexpr orvel_color kInks[] = {{0xdf, 0x8e, 0x1d, 255}, {0x40, 0xa0, 0x2b, 255},
                                 {0x17, 0x92, 0x99, 255}, {0x9d, 0x5c, 0xe8, 255},
                                 {0xd2, 0x3a, 0x55, 255}, {0xc9, 0xb0, 0x2c, 255},
                                 {0x2a, 0x6e, 0xf0, 255}};

constexpr int kLabelGap = 8;  // between two labels, in pixels

}  // namespace

bool is_there(double value) { return std::isfinite(value); }

orvel_color series_color(const orvel_theme& theme, const kit_chart& chart, int series) {
    const orvel_color own = chart.series[series].color;
    if (own.a != 0) return own;
    if (series == 0) return theme.accent;
    return kInks[static_cast<std::size_t>(series - 1) % std::size(kInks)];
}

orvel_color quiet(const orvel_theme& theme) { return kit_mix(theme.text, theme.surface, 40); }

std::string tick_text(const kit_chart& chart, const Ticks& ticks, std::int64_t tick) {
    return ticks.text(tick, std::clamp(chart.decimals, 0, 9)) + (chart.unit ? chart.unit : "");
}

Plot::Plot(orvel_canvas* to, const orvel_theme& theme, const kit_chart& record, kit_box inside,
           const Range& range)
    : canvas(to),
      T(theme),
      chart(record),
      room(inside),
      scale(range.low, range.high),
      ticks(range.ticks),
      places(0) {
    for (int i = 0; i < chart.count; ++i) places = std::max(places, chart.series[i].count);
}

orvel_color Plot::color(int series) const { return series_color(T, chart, series); }

int Plot::column(int i) const {
    if (places < 2) return room.x + room.w / 2;
    const auto along = std::int64_t{room.w - 1} * i;
    return room.x + static_cast<int>((2 * along + places - 1) / (2 * (places - 1)));
}

int Plot::slot(int i) const {
    return room.x + static_cast<int>(std::int64_t{room.w} * i / std::max(places, 1));
}

int Plot::row(double value) const {
    return room.y + room.h - 1 - scale.place(scale.units(value), room.h - 1);
}

int Plot::base_row() const { return row(std::clamp(0.0, scale.low, scale.high)); }

/// Of how many numbers at the ticks one is shown. In so many steps lies zero, if it is in range.
std::int64_t Plot::numbers_apart() const {
    if (ticks.first >= ticks.last) return 1;
    const int rows = row(ticks.value(ticks.first)) - row(ticks.value(ticks.first + 1));
    const int needed = kit_face_cap(chart.face) + kNumberGap;
    return (needed + std::max(rows, 1) - 1) / std::max(rows, 1);
}

void Plot::grid() const {
    const int half = kit_face_cap(chart.face) / 2;
    const std::int64_t apart = numbers_apart();
    for (std::int64_t i = ticks.first; i <= ticks.last; ++i) {
        const int y = row(ticks.value(i));
        orvel_canvas_fill_rect(canvas, room.x, y, room.w, 1, T.border);
        if (i % apart != 0) continue;
        const std::string text = tick_text(chart, ticks, i);
        const int x = room.x - kFromNumbers - kit_text_width(chart.face, text.c_str());
        kit_text_draw(canvas, chart.face, text.c_str(), x, y + half + 1, quiet(T));
    }
    if (ticks.last < ticks.first) {
        orvel_canvas_fill_rect(canvas, room.x, base_row(), room.w, 1, T.border);
    }
}

/// Each below the middle of its place, but inside the chart; those that are wider than it have
/// none.
std::vector<Plot::Label> Plot::placed_labels() const {
    const bool bars = chart.kind == KIT_CHART_BARS || chart.kind == KIT_CHART_STACKED;
    std::vector<Label> all;
    if (!chart.labels || !*chart.labels) return all;
    std::string_view rest = chart.labels;
    const int count = std::min(items_in(rest), places);
    for (int i = 0; i < count; ++i) {
        Label label = {next_item(&rest), 0, 0};
        label.w = kit_text_width(chart.face, label.text.c_str());
        if (label.w > chart.box.w) label = {};
        const int centre = bars ? (slot(i) + slot(i + 1)) / 2 : column(i);
        const int last = chart.box.x + chart.box.w - label.w;
        label.x = std::max(chart.box.x, std::min(centre - label.w / 2, last));
        all.push_back(label);
    }
    return all;
}

void Plot::labels(int top) const {
    const std::vector<Label> all = placed_labels();
    const auto fit = [&](std::size_t every) {
        for (std::size_t i = every; i < all.size(); i += every) {
            const Label& before = all[i - every];
            if (before.x + before.w + kLabelGap > all[i].x) return false;
        }
        return true;
    };
    std::size_t every = 1;
    while (!fit(every)) ++every;
    for (std::size_t i = 0; i < all.size(); i += every) {
        kit_text_draw(canvas, chart.face, all[i].text.c_str(), all[i].x,
                      top + kit_face_cap(chart.face), quiet(T));
    }
}

}  // namespace kit
