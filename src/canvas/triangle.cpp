// Filled triangles by edge functions.
//
// A pixel is inside unless one edge function is negative there and another positive. The three add
// up to twice the signed area at every pixel, so inside means that none has the sign opposite to
// the area's, or that all are zero where the area is. A row of a triangle thus lies between two
// edges: the one from the top vertex to the bottom one, and that of the other two which crosses the
// row. The third is no bound there, since triangles are convex. Where an edge crosses a row is a
// quotient, which is carried from row to row.
#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <utility>

#include "canvas/canvas.h"

namespace orvel {
namespace {

/// Up to this distance from zero every edge function fits 32 bits at every pixel of a canvas.
constexpr int kExact = 16384;

struct Point {
    int x, y;
};

/// Columns, both ends included; empty when first > last.
struct Columns {
    int first, last;
};

void fill(const orvel_canvas& canvas, Columns columns, int row, orvel_color color) {
    if (columns.first > columns.last) return;
    fill_run(pixel_at(canvas, columns.first, row), columns.last - columns.first + 1, color);
}

enum class Side { left, right };

/// The first column that is not left of an edge, or the last one that is not right of it, followed
/// from row to row without a division.
class Bound {
public:
    /// Of the edge from @p top down to @p bottom, beginning with @p row.
    Bound(Side side, Point top, Point bottom, int row) : slope_(bottom.y - top.y) {
        const int before_rounding_down = side == Side::left ? slope_ - 1 : 0;
        const int aside = bottom.x - top.x;
        column = top.x + divide((row - top.y) * aside + before_rounding_down, rest_);
        column_step_ = divide(aside, rest_step_);
    }

    void next_row() {
        column += column_step_;
        rest_ += rest_step_;
        if (rest_ < slope_) return;
        rest_ -= slope_;
        ++column;
    }

    int column;

private:
    int divide(int value, int& rest) const {
        rest = value % slope_;
        const int quotient = value / slope_;
        if (rest >= 0) return quotient;
        rest += slope_;
        return quotient - 1;
    }

    int slope_, column_step_, rest_, rest_step_;
};

/// Fills what the canvas shows of the rows from @p row to @p last, and leaves both bounds behind
/// them.
void fill_between(const orvel_canvas& canvas, Bound& left_bound, Bound& right_bound, int row,
                  int last, orvel_color color) {
    Bound left = left_bound, right = right_bound;  // of their own, in registers
    for (; row <= last; ++row) {
        fill(canvas, {std::max(left.column, 0), std::min(right.column, canvas.width - 1)}, row,
             color);
        left.next_row();
        right.next_row();
    }
    left_bound = left;
    right_bound = right;
}

/// Fills the rows from @p top to @p bottom of a triangle of small coordinates, its vertices given
/// from the top down.
void fill_exact(const orvel_canvas& canvas, Point a, Point b, Point c, int top, int bottom,
                orvel_color color) {
    if (a.y == c.y) return fill(canvas, {0, canvas.width - 1}, top, color);
    const int right_of_long = (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
    if (right_of_long == 0) {
        Bound left(Side::left, a, c, top), right(Side::right, a, c, top);
        return fill_between(canvas, left, right, top, bottom, color);
    }
    const Side side = right_of_long > 0 ? Side::left : Side::right;  // of the long edge
    const Side other = right_of_long > 0 ? Side::right : Side::left;
    Bound long_edge(side, a, c, top);
    const auto fill_to = [&](Bound short_edge, int last) {
        Bound& left = side == Side::left ? long_edge : short_edge;
        Bound& right = side == Side::left ? short_edge : long_edge;
        fill_between(canvas, left, right, top, last, color);
        top = std::max(top, last + 1);
    };
    if (a.y < b.y) fill_to(Bound(other, a, b, top), std::min(b.y, bottom));
    if (b.y < c.y) fill_to(Bound(other, b, c, top), bottom);
}

/// The edge function of the line from @p a to @p b, in wrapping 32-bit arithmetic.
struct Edge {
    int per_column, per_row, value;  // value is that of the first pixel of the current row

    Edge(Point a, Point b, int first_row)
        : per_column(b.y - a.y),
          per_row(a.x - b.x),
          value(-a.x * per_column + (first_row - a.y) * per_row) {}
};

/// The plain rule, for what the arithmetic may wrap in: looks at every pixel of a row.
Columns scan(const Edge (&edges)[3], int width) {
    Columns found = {width, -1};
    int e0 = edges[0].value, e1 = edges[1].value, e2 = edges[2].value;
    for (int x = 0; x < width; ++x) {
        const bool negative = (e0 | e1 | e2) < 0;
        const bool positive = e0 > 0 || e1 > 0 || e2 > 0;
        if (!(negative && positive)) {
            found.first = std::min(found.first, x);
            found.last = x;
        }
        e0 += edges[0].per_column;
        e1 += edges[1].per_column;
        e2 += edges[2].per_column;
    }
    return found;
}

bool is_exact(const orvel_canvas& canvas, std::initializer_list<Point> points) {
    return canvas.width <= kExact && canvas.height <= kExact &&
           std::all_of(points.begin(), points.end(), [](Point p) {
               return p.x >= -kExact && p.x <= kExact && p.y >= -kExact && p.y <= kExact;
           });
}

}  // namespace
}  // namespace orvel

using namespace orvel;

void orvel_canvas_fill_triangle(orvel_canvas* canvas, int x0, int y0, int x1, int y1, int x2,
                                int y2, orvel_color color) {
    if (!canvas) return;
    const int top = std::max(std::min({y0, y1, y2}), 0);
    const int bottom = std::min(std::max({y0, y1, y2}), canvas->height - 1);
    if (top > bottom) return;

    const Point p0 = {x0, y0}, p1 = {x1, y1}, p2 = {x2, y2};
    if (is_exact(*canvas, {p0, p1, p2})) {
        Point a = p0, b = p1, c = p2;
        if (a.y > b.y) std::swap(a, b);
        if (b.y > c.y) std::swap(b, c);
        if (a.y > b.y) std::swap(a, b);
        fill_exact(*canvas, a, b, c, top, bottom, color);
        return;
    }
    Edge edges[3] = {{p0, p2, top}, {p2, p1, top}, {p1, p0, top}};
    for (int row = top; row <= bottom; ++row) {
        fill(*canvas, scan(edges, canvas->width), row, color);
        for (Edge& edge : edges) edge.value += edge.per_row;
    }
}
