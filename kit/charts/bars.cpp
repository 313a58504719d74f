// Bars side by side, and bars on top of each other.
#include <algorithm>

#include "charts/plot.h"

namespace kit {

/// A bar between two values, those at its ends not included twice: the row of @p from stays free.
void Plot::bar(int x, int w, std::int64_t from, std::int64_t to, orvel_color ink) const {
    const int bottom = room.y + room.h - 1;
    const auto row_of = [&](std::int64_t units) {
        return std::clamp(bottom - scale.place(units, room.h - 1), room.y - 1, bottom + 1);
    };
    const int start = row_of(from);
    const int end = row_of(to);
    if (to > from) orvel_canvas_fill_rect(canvas, x, end, w, start - end, ink);
    if (to < from) orvel_canvas_fill_rect(canvas, x, start + 1, w, end - start, ink);
}

void Plot::bars() const {
    const std::int64_t base = scale.units(std::clamp(0.0, scale.low, scale.high));
    for (int i = 0; i < places; ++i) {
        const int width = slot(i + 1) - slot(i);
        const int inside = std::max(width - std::max(width / 4, 1), 1);
        const int left = slot(i) + (width - inside) / 2;
        for (int k = 0; k < chart.count; ++k) {
            const kit_series& series = chart.series[k];
            if (i >= series.count || !is_there(series.values[i])) continue;
            const int x = left + inside * k / chart.count;
            const int w = left + inside * (k + 1) / chart.count - x;
            const int gap = w > 4 && chart.count > 1 ? 1 : 0;
            bar(x, std::max(w - gap, 1), base, scale.units(series.values[i]), color(k));
        }
    }
}

void Plot::stack(int place) const {
    const int width = slot(place + 1) - slot(place);
    const int inside = std::max(width - std::max(width / 4, 1), 1);
    const int x = slot(place) + (width - inside) / 2;
    std::int64_t up = 0;
    std::int64_t down = 0;
    for (int k = 0; k < chart.count; ++k) {
        const kit_series& series = chart.series[k];
        if (place >= series.count || !is_there(series.values[place])) continue;
        const std::int64_t more = scale.units(series.values[place]);
        std::int64_t& end = more < 0 ? down : up;
        bar(x, inside, end, end + more, color(k));
        end += more;
    }
}

void Plot::stacked() const {
    for (int i = 0; i < places; ++i) stack(i);
}

}  // namespace kit
