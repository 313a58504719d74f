#include "screen/fits.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <vector>

#include "screen/shown.h"
#include "screen/values.h"

namespace kit {
namespace {

std::string times(int w, int h) { return std::to_string(w) + " x " + std::to_string(h); }

/* Words. */

/// The rows that the letters of a line take, counted from its baseline.
struct Rows {
    int first = 0, end = 0;
};

Rows rows_of(const kit_face* face, const std::string& text) {
    constexpr int kWidest = 4096;  // what is further to the right is not looked at
    const int ascent = kit_face_ascent(face), height = ascent + kit_face_descent(face);
    const int width = std::clamp(kit_text_width(face, text.c_str()), 1, kWidest);
    const CanvasPtr canvas = canvas_of(width, std::max(height, 1));
    kit_text_draw(canvas.get(), face, text.c_str(), 0, ascent, {255, 255, 255, 255});
    Rows rows = {height, 0};
    for (int y = 0; y < height; ++y) {
        bool inked = false;
        for (int x = 0; x < width && !inked; ++x) {
            inked = orvel_canvas_pixel_get(canvas.get(), x, y).r != 0;
        }
        if (inked) rows = {std::min(rows.first, y - ascent), y + 1 - ascent};
    }
    return rows;
}

/// Whether a line, whose capitals stand in the middle, loses rows.
bool is_too_high(const Node& node) {
    std::string words = node.text;
    std::replace(words.begin(), words.end(), '|', ' ');  // between items
    const int height = node.inside().h;
    const int baseline = (height + kit_face_cap(node.look.face)) / 2;
    const Rows rows = rows_of(node.look.face, words);
    if (rows.first >= rows.end) return false;
    return baseline + rows.first < 0 || baseline + rows.end > height;
}

std::string lost_words(const Node& node) {
    const std::string cut = in_quotes(node.text) + " does not fit";
    if (node.is(Sort::Text) && node.wrap) {
        Node whole = node;
        whole.lines = 0;
        const int height = want_of(whole, kDown);
        if (height > node.inside().h || height > want_of(node, kDown)) return cut;
        return "";
    }
    if (!node.is_field() && want_of(node, kAcross) > node.inside().w) return cut;
    if (is_too_high(node)) return in_quotes(node.text) + " is higher than its box";
    return "";
}

/* Pictures and shapes. */

std::string lost_pixels(const Node& node, int w, int h) {
    const kit_box room = node.inside();
    if (w <= room.w && h <= room.h) return "";
    return times(std::min(w, room.w), std::min(h, room.h)) + " of " + times(w, h) + " pixels show";
}

std::string lost_size(const Node& node) {
    const kit_box room = node.inside();
    const int size = std::min(room.w, room.h);
    if (size >= node.size) return "";
    return "drawn with " + std::to_string(size) + " pixels, not " + std::to_string(node.size);
}

/* Charts. */

std::vector<unsigned char> drawn(const kit_chart& chart) {
    const CanvasPtr canvas = canvas_of(chart.box.w, chart.box.h);
    orvel_theme theme;
    orvel_theme_default(&theme);  // every colour of which shows on black
    if (kit_chart_draw(canvas.get(), &theme, &chart) != 0) throw std::bad_alloc();
    const kit_format format = {};
    std::vector<unsigned char> bytes(kit_pixels_stride(&format, chart.box.w) *
                                     static_cast<std::size_t>(chart.box.h));
    if (kit_pixels(canvas.get(), nullptr, &format, bytes.data(), bytes.size(), 0) != 0) {
        throw std::bad_alloc();
    }
    return bytes;
}

/// Whether a chart that has values shows nothing of them.
bool shows_nothing(kit_chart chart) {
    const double values[] = {0, 1};
    kit_series series = {};
    series.values = values;
    series.count = static_cast<int>(std::size(values));
    chart.series = &series;
    chart.count = 1;
    const std::vector<unsigned char> with = drawn(chart);
    chart.count = 0;
    chart.parts = 0;
    return with == drawn(chart);
}

/// The first of the names of the series that the legend does not show whole: a longer one looks the
/// same.
std::string name_left_out(kit_chart chart, std::vector<kit_series> all) {
    std::vector<std::string> names;
    for (kit_series& series : all) {
        names.emplace_back(series.name);
        series = {};
    }
    for (std::size_t k = 0; k < all.size(); ++k) all[k].name = names[k].c_str();
    chart.series = all.data();
    const std::vector<unsigned char> before = drawn(chart);
    for (std::size_t k = 0; k < all.size(); ++k) {
        if (names[k].empty()) continue;
        const std::string longer = names[k] + 'M';
        all[k].name = longer.c_str();
        if (drawn(chart) == before) return names[k];
        all[k].name = names[k].c_str();
    }
    return "";
}

std::string lost_chart(const Node& node) {
    constexpr int kWidest = 4096;  // what is larger has room for its words
    std::vector<kit_series> series;
    kit_chart chart = chart_of(node, series);
    // The legend has half of the height, and at the most a row for each series.
    const int highest = 2 * kMostSeries * (kit_face_line(chart.face) + 8);
    const bool is_wide = chart.box.w > kWidest;
    chart.box = {0, 0, std::min(chart.box.w, kWidest), std::min(chart.box.h, highest)};
    chart.low = chart.high = 0;
    if (is_empty(chart.box) || shows_nothing(chart)) return "nothing of the chart fits";
    const bool has_legend = !is_wide && node.shape != KIT_CHART_SPARK &&
                            node.shape != KIT_CHART_GAUGE && (node.parts & KIT_CHART_LEGEND) != 0;
    if (!has_legend) return "";
    const std::string name = name_left_out(chart, series);
    if (!name.empty()) return in_quotes(name) + " does not fit in the legend";
    return "";
}

}  // namespace

std::string lost(const Node& node) {
    const bool has_words = node.is(Sort::Text) || node.is(Sort::Widget);
    if (node.holds_nodes() || node.unknown || (has_words && node.text.empty())) return "";
    switch (node.kind->sort) {
    case Sort::Picture:
        return lost_pixels(node, orvel_canvas_width(node.picture),
                           orvel_canvas_height(node.picture));
    case Sort::Icon:
    case Sort::Circle: return lost_size(node);
    case Sort::Chart: return lost_chart(node);
    case Sort::Text: return lost_words(node);
    case Sort::Widget:
        if (!node.is_widget(ORVEL_WIDGET_IMAGE)) return lost_words(node);
        return lost_pixels(node, want_of(node, kAcross), want_of(node, kDown));
    default: return "";
    }
}

}  // namespace kit
