// Nodes on a canvas, by the kit's own functions.
#include <algorithm>
#include <utility>
#include <vector>

#include "screen/node.h"

namespace kit {
namespace {

/// A canvas of a box's own, whose pixels return to the box when it is drawn.
class CutOut {
public:
    CutOut(orvel_canvas* canvas, const kit_box& box)
        : canvas_(canvas), box_(box), own_(kit_clip_begin(canvas, &box_)) {}
    ~CutOut() { orvel_canvas_destroy(own_); }
    CutOut(const CutOut&) = delete;
    CutOut& operator=(const CutOut&) = delete;

    /// Null where memory ran out, and where nothing of the box is on the canvas.
    orvel_canvas* canvas() const { return own_; }
    bool is_off() const {
        const kit_box all = {0, 0, orvel_canvas_width(canvas_), orvel_canvas_height(canvas_)};
        return is_empty(meet(box_, all));
    }
    const kit_box& box() const { return box_; }
    void finish() { kit_clip_end(canvas_, &box_, std::exchange(own_, nullptr)); }

private:
    orvel_canvas* canvas_;
    kit_box box_;
    orvel_canvas* own_;
};

constexpr int kTip = 3;  // rows of a tooltip's tip

/// A node being drawn: where it lies on this canvas, which may be a part of the screen.
class Brush {
public:
    Brush(const Node& node, orvel_canvas* canvas, int left, int top)
        : node_(node),
          canvas_(canvas),
          box_(moved(node.box, left, top)),
          inside_(moved(node.inside(), left, top)) {}

    static kit_box moved(const kit_box& box, int left, int top) {
        return {box.x - left, box.y - top, box.w, box.h};
    }

    bool draw() const {
        if (node_.ground.there) fill(box_, node_.ground.color);
        if (node_.edge.there) {
            orvel_canvas_rect(canvas_, box_.x, box_.y, box_.w, box_.h, node_.edge.color);
        }
        if (node_.frames()) return widget(box_);
        return is_empty(inside_) || node_.unknown || content();
    }

private:
    void fill(const kit_box& box, orvel_color color) const {
        orvel_canvas_fill_rect(canvas_, box.x, box.y, box.w, box.h, color);
    }
    orvel_color ink() const {
        return node_.color.there ? node_.color.color : node_.look.theme.text;
    }

    bool widget(const kit_box& box) const {
        kit_widget record = widget_of(node_);
        record.box = box;
        if (node_.below) record.box.y += kTip;  // its own tip is cut off
        if (kit_draw(canvas_, &node_.look.theme, &record) != 0) return false;
        if (node_.below) point_up(box);
        if (node_.pops) hide_marker(box);
        if (node_.caret.composed != node_.caret.composed_end) underline(record);
        return true;
    }
    /// As the kit's tooltip points down.
    void point_up(const kit_box& box) const {
        const orvel_theme& theme = node_.look.theme;
        const int middle = box.x + box.w / 2;
        const auto tip = [&](int half, int y, orvel_color color) {
            orvel_canvas_fill_triangle(canvas_, middle - half, y + 2, middle + half, y + 2, middle,
                                       y, color);
        };
        fill({box.x, box.y + box.h - 1, box.w, 1}, theme.border);  // which its own tip opened
        tip(3, box.y, theme.border);
        tip(2, box.y + 1, theme.surface);  // opens the frame below it
    }
    /// The sign that a list item leads further, which no row of an open list does.
    void hide_marker(const kit_box& row) const {
        constexpr int kMarker = 10;  // columns with the frame
        const orvel_theme& theme = node_.look.theme;
        const bool active = (node_.state & KIT_ACTIVE) != 0;
        const int left = std::max(row.x + 1, row.x + row.w - kMarker);
        fill({left, row.y + 1, row.x + row.w - 1 - left, row.h - 2},
             active ? theme.button_hover : theme.background);
    }
    /// What is composed.
    void underline(const kit_widget& field) const {
        kit_box room = {}, caret = {};
        const int scroll = kit_field(&field, &room, &caret);
        const auto column = [&](int offset) {
            const int x = room.x - scroll + kit_text_x(field.face, field.text, offset);
            return std::clamp(x, room.x, room.x + room.w);
        };
        const int from = column(node_.caret.composed), to = column(node_.caret.composed_end);
        fill({from, caret.y + caret.h - caret.w, to - from, caret.w}, node_.look.theme.text);
    }
    bool text() const {
        const auto align = static_cast<kit_align>(node_.words);
        const kit_face* face = node_.look.face;
        if (!node_.wrap) {
            kit_text_box(canvas_, face, node_.text.c_str(), inside_, align, ink());
            return true;
        }
        if (node_.scrolled > 0) return scrolled_text();
        kit_box box = inside_;
        if (node_.lines > 0) {
            const long long rest = static_cast<long long>(node_.lines - 1) * kit_face_line(face);
            const long long all = rest + kit_face_ascent(face) + kit_face_descent(face);
            box.h = static_cast<int>(std::min<long long>(box.h, all));
        }
        kit_text_wrap(canvas_, face, node_.text.c_str(), box, align, ink());
        return true;
    }
    /// What shows of a paragraph further down.
    bool scrolled_text() const {
        CutOut cut(canvas_, inside_);
        if (!cut.canvas()) return cut.is_off();
        const kit_box box = {inside_.x - cut.box().x, inside_.y - cut.box().y - node_.scrolled,
                             inside_.w, inside_.h + node_.beyond};
        kit_text_wrap(cut.canvas(), node_.look.face, node_.text.c_str(), box,
                      static_cast<kit_align>(node_.words), ink());
        cut.finish();
        return true;
    }
    void picture() const {
        const int w = orvel_canvas_width(node_.picture), h = orvel_canvas_height(node_.picture);
        const kit_box part = {0, 0, std::min(w, inside_.w), std::min(h, inside_.h)};
        kit_stamp(canvas_, inside_.x + (inside_.w - part.w) / 2,
                  inside_.y + (inside_.h - part.h) / 2, node_.picture, &part);
    }
    bool icon() const {
        constexpr int kLargest = 16384;  // that the kit draws
        const int size = std::min({inside_.w, inside_.h, kLargest});
        return kit_icon(canvas_, node_.text.c_str(), inside_.x + (inside_.w - size) / 2,
                        inside_.y + (inside_.h - size) / 2, size, ink()) == 0;
    }
    void circle() const {
        const int radius = (std::min(inside_.w, inside_.h) - 1) / 2;
        orvel_canvas_fill_circle(canvas_, inside_.x + (inside_.w - 1) / 2,
                                 inside_.y + (inside_.h - 1) / 2, radius, node_.color.color);
    }
    bool chart() const;
    bool content() const;

    const Node& node_;
    orvel_canvas* canvas_;
    kit_box box_, inside_;
};

kit_series series_of(const NodeSeries& from) {
    kit_series series = {};
    series.values = from.values.data();
    series.count = static_cast<int>(from.values.size());
    if (from.color.there) series.color = from.color.color;
    series.name = from.name.c_str();
    return series;
}

bool Brush::chart() const {
    std::vector<kit_series> all;
    kit_chart chart = chart_of(node_, all);
    chart.box = inside_;
    return kit_chart_draw(canvas_, &node_.look.theme, &chart) == 0;
}

bool Brush::content() const {
    switch (node_.kind->sort) {  // GCOVR_EXCL_BR_LINE: there are no others
    case Sort::Text: return text();
    case Sort::Picture: picture(); return true;
    case Sort::Icon: return icon();
    case Sort::Line:
    case Sort::Rect: fill(inside_, node_.color.color); return true;
    case Sort::Circle: circle(); return true;
    case Sort::Chart: return chart();
    case Sort::Widget: return widget(inside_);
    case Sort::Row:
    case Sort::Column:
    case Sort::Stack:
    case Sort::Space:
    case Sort::Include: return true;
    }
    return true;  // GCOVR_EXCL_LINE: behind that switch
}

/// Draws a node of which only a part shows.
bool draw_cut(const Node& node, orvel_canvas* canvas, const kit_box& part) {
    CutOut cut(canvas, Brush::moved(meet(node.visible, part), part.x, part.y));
    if (!cut.canvas()) return false;
    const Brush brush(node, cut.canvas(), part.x + cut.box().x, part.y + cut.box().y);
    if (!brush.draw()) return false;
    cut.finish();
    return true;
}

bool draw_node(const Node& node, orvel_canvas* canvas, const kit_box& part) {
    const bool whole = same(node.visible, node.box) && !node.below;
    return whole ? Brush(node, canvas, part.x, part.y).draw() : draw_cut(node, canvas, part);
}

void draw_bar(const Node& node, orvel_canvas* canvas, const kit_box& part) {
    const kit_box bar = Brush::moved(meet(node.bar, node.visible), part.x, part.y);
    const orvel_theme& theme = node.look.theme;
    orvel_canvas_fill_rect(canvas, bar.x, bar.y, bar.w, bar.h,
                           kit_mix(theme.text, theme.background, 45));
}

bool draw_all(const Nodes& nodes, orvel_canvas* canvas, const kit_box& part) {
    const kit_box ground = Brush::moved(nodes.front().box, part.x, part.y);
    orvel_canvas_fill_rect(canvas, ground.x, ground.y, ground.w, ground.h,
                           nodes.front().look.theme.background);
    std::vector<int> open;  // nodes with a bar, which lies on what is in them
    const auto close = [&](int i) {
        for (; !open.empty() && at(nodes, open.back()).end <= i; open.pop_back()) {
            draw_bar(at(nodes, open.back()), canvas, part);
        }
    };
    for (int i = 0; i < count_of(nodes); ++i) {
        const Node& node = at(nodes, i);
        close(i);
        if (is_empty(meet(node.visible, part))) continue;
        if (!is_empty(node.bar)) open.push_back(i);
        if (paints(node) && !draw_node(node, canvas, part)) return false;
    }
    close(count_of(nodes));
    return true;
}

}  // namespace

kit_chart chart_of(const Node& node, std::vector<kit_series>& all) {
    for (const NodeSeries& one : node.series) all.push_back(series_of(one));
    if (all.empty()) {
        kit_series series = {};
        series.values = node.numbers.data();
        series.count = static_cast<int>(node.numbers.size());
        series.name = "";
        if (node.color.there) series.color = node.color.color;
        all.push_back(series);
    }
    kit_chart chart = {};
    chart.kind = node.shape;
    chart.box = node.inside();
    chart.series = all.data();
    chart.count = static_cast<int>(all.size());
    chart.low = node.low;
    chart.high = node.high;
    chart.parts = node.parts;
    if (!node.hint.empty()) chart.parts |= KIT_CHART_LABELS;
    chart.decimals = node.decimals;
    chart.unit = node.unit.c_str();
    chart.labels = node.hint.c_str();
    chart.face = node.look.face;
    return chart;
}

bool paints(const Node& node) {
    if (node.ground.there || node.edge.there || node.frames()) return true;
    return !node.holds_nodes() && !node.is(Sort::Space) && !node.unknown;
}

bool paint(const Nodes& nodes, orvel_canvas* canvas, const kit_box& part) {
    if (part.w == orvel_canvas_width(canvas) && part.h == orvel_canvas_height(canvas)) {
        return draw_all(nodes, canvas, part);
    }
    CutOut cut(canvas, part);
    if (!cut.canvas() || !draw_all(nodes, cut.canvas(), part)) return false;
    cut.finish();
    return true;
}

}  // namespace kit
