#include "charts/legend.h"

#include <algorithm>

#include "charts/plot.h"

namespace kit {
namespace {

constexpr int kApart = 16;  // between a name and the next square

}  // namespace

Legend::Legend(const kit_chart& record)
    : chart(record),
      cap(kit_face_cap(record.face)),
      above(std::max(2, kit_face_ascent(record.face) - cap)),
      swatch(std::max(8, cap * 2 / 3)),
      to_name(swatch + 6) {
    for (int i = 0; i < chart.count; ++i) {
        const char* const name = chart.series[i].name;
        if (!name || !*name) continue;
        const int room = std::max(0, chart.box.w - to_name);
        add({i, to_name + std::min(kit_text_width(chart.face, name), room)});
    }
    count_the_rest();
}

int Legend::row_height() const {
    return above + cap + std::max(8 - above, kit_face_descent(chart.face));
}

int Legend::height() const { return std::max(1, static_cast<int>(rows.size())) * row_height(); }

void Legend::add(const Entry& entry) {
    if (rows.empty() || rows.back().width + kApart + entry.width > chart.box.w) {
        rows.emplace_back();
        rows.back().width = -kApart;
    }
    rows.back().entries.push_back(entry);
    rows.back().width += kApart + entry.width;
}

void Legend::count_the_rest() {
    const auto most = static_cast<std::size_t>(std::max(1, chart.box.h / 2 / row_height()));
    std::size_t missing = 0;
    for (; rows.size() > most; rows.pop_back()) missing += rows.back().entries.size();
    if (missing == 0) return;
    Row& last = rows.back();
    const auto take = [&] {
        rest = "+" + std::to_string(missing);
        return last.width + kApart + kit_text_width(chart.face, rest.c_str());
    };
    while (take() > chart.box.w && !last.entries.empty()) {
        last.width -= kApart + last.entries.back().width;
        last.entries.pop_back();
        ++missing;
    }
    last.width = take();
}

void Legend::draw(orvel_canvas* canvas, const orvel_theme& theme) const {
    int top = chart.box.y + above;
    for (const Row& row : rows) {
        draw_row(canvas, theme, row, top);
        top += row_height();
    }
    const int right = chart.box.x + chart.box.w;
    const int w = kit_text_width(chart.face, rest.c_str());
    write(canvas, rest.c_str(), {right - w, top - row_height(), w, cap}, quiet(theme));
}

void Legend::draw_row(orvel_canvas* canvas, const orvel_theme& theme, const Row& row,
                      int top) const {
    int x = chart.box.x + chart.box.w - row.width;
    for (const Entry& entry : row.entries) {
        draw_entry(canvas, theme, entry, x, top);
        x += entry.width + kApart;
    }
}

void Legend::draw_entry(orvel_canvas* canvas, const orvel_theme& theme, const Entry& entry, int x,
                        int top) const {
    orvel_canvas_fill_rect(canvas, x, top + (cap - swatch + 1) / 2, swatch, swatch,
                           series_color(theme, chart, entry.series));
    write(canvas, chart.series[entry.series].name, {x + to_name, top, entry.width - to_name, cap},
          quiet(theme));
}

/// Words whose capitals fill the room from top to bottom, of which only the width is cut.
void Legend::write(orvel_canvas* canvas, const char* words, const kit_box& room,
                   orvel_color ink) const {
    if (kit_text_width(chart.face, words) <= room.w) {
        kit_text_draw(canvas, chart.face, words, room.x, room.y + room.h, ink);
        return;
    }
    const int more = kit_face_line(chart.face);
    kit_text_box(canvas, chart.face, words, {room.x, room.y - more, room.w, room.h + 2 * more},
                 KIT_LEFT, ink);
}

}  // namespace kit
