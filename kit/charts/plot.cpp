#include "charts/plot.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>

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

int item_count(const char* list) {
    if (!list || !*list) return 0;
    return static_cast<int>(1 + std::count(list, list + std::strlen(list), '|'));
}

std::string item(const char* list, int i) {
    if (!list) return {};
    for (; i > 0; --i) list = std::strchr(list, '|') + 1;
    return std::string(list, std::strcspn(list, "|"));
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

void Plot::grid(int left) const {
    const int half = kit_face_cap(chart.face) / 2;
    for (std::int64_t i = ticks.first; i <= ticks.last; ++i) {
        const int y = row(ticks.value(i));
        orvel_canvas_fill_rect(canvas, room.x, y, room.w, 1, T.border);
        const std::string text =
            ticks.text(i, std::clamp(chart.decimals, 0, 9)) + (chart.unit ? chart.unit : "");
        const int x = room.x - 6 - kit_text_width(chart.face, text.c_str());
        kit_text_draw(canvas, chart.face, text.c_str(), std::max(x, left), y + half + 1, quiet(T));
    }
    if (ticks.last < ticks.first) {
        orvel_canvas_fill_rect(canvas, room.x, base_row(), room.w, 1, T.border);
    }
}

int Plot::label_places() const { return std::min(item_count(chart.labels), places); }

void Plot::labels(int left, int right, int top) const {
    const bool bars = chart.kind == KIT_CHART_BARS || chart.kind == KIT_CHART_STACKED;
    const int count = label_places();
    int widest = 0;
    for (int i = 0; i < count; ++i) {
        widest = std::max(widest, kit_text_width(chart.face, item(chart.labels, i).c_str()));
    }
    const int one = std::max(1, room.w / std::max(places, 1));
    const int every = std::max(1, (widest + kLabelGap + one - 1) / one);
    for (int i = 0; i < count; i += every) {
        const std::string text = item(chart.labels, i);
        const int w = kit_text_width(chart.face, text.c_str());
        const int centre = bars ? (slot(i) + slot(i + 1)) / 2 : column(i);
        const int x = std::max(left, std::min(centre - w / 2, right - w));
        kit_text_draw(canvas, chart.face, text.c_str(), x, top + kit_face_cap(chart.face),
                      quiet(T));
    }
}

}  // namespace kit
