// Filled triangles by edge functions.
//
// A pixel is inside unless one edge function is negative there and another positive. The three add
// up to twice the signed area at every pixel, so inside means that none has the sign opposite to
// the area's, or that all are zero where the area is. Each edge thus bounds x on a row, by a
// quotient that is carried from row to row.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>

#include "canvas/canvas.h"

namespace orvel {
namespace {

/// Up to this distance from zero every edge function fits 32 bits at every pixel of a canvas.
constexpr int kExact = 16384;

struct Point {
    int x, y;
};

/// The edge function of the line from @p a to @p b, in wrapping 32-bit arithmetic.
struct Edge {
    int per_column, per_row, value;  // value is that of the first pixel of the current row

    Edge(Point a, Point b, int first_row)
        : per_column(b.y - a.y),
          per_row(a.x - b.x),
          value(-a.x * per_column + (first_row - a.y) * per_row) {}

    Edge operator-() const {
        Edge opposite = *this;
        opposite.per_column = -per_column;
        opposite.per_row = -per_row;
        opposite.value = -value;
        return opposite;
    }
};

/// Columns, both ends included; empty when first > last.
struct Columns {
    int first, last;
};

/// The quotient of an edge's value and its slope, rounded down and followed from row to row without
/// a division: the edge is not negative up to this column, or from its opposite on.
struct Bound {
    int slope, column, column_step, rest, rest_step;  // not zeroed: most triangles are small

    void follow(const Edge& edge) {
        slope = std::abs(edge.per_column);
        column = divide(edge.value, rest);
        column_step = divide(edge.per_row, rest_step);
    }

    void next_row() {
        column += column_step;
        rest += rest_step;
        if (rest < slope) return;
        rest -= slope;
        ++column;
    }

private:
    int divide(int value, int& left_over) const {
        left_over = value % slope;
        const int quotient = value / slope;
        if (left_over >= 0) return quotient;
        left_over += slope;
        return quotient - 1;
    }
};

/// The bounds of all edges that are not horizontal; those hold on every row of their triangle.
class Bounds {
public:
    void add(const Edge& edge) {
        if (edge.per_column > 0) left_[lefts_++].follow(edge);
        if (edge.per_column < 0) right_[rights_++].follow(edge);
    }

    /// The columns of this row; then goes to the next.
    Columns take(int width) {
        Columns columns = {0, width - 1};
        for (int i = 0; i < lefts_; ++i) {
            columns.first = std::max(columns.first, -left_[i].column);
            left_[i].next_row();
        }
        for (int i = 0; i < rights_; ++i) {
            columns.last = std::min(columns.last, right_[i].column);
            right_[i].next_row();
        }
        return columns;
    }

private:
    Bound left_[3], right_[3];
    int lefts_ = 0, rights_ = 0;
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

void fill(const orvel_canvas& canvas, Columns columns, int row, orvel_color color) {
    if (columns.first > columns.last) return;
    fill_run(pixel_at(canvas, columns.first, row), columns.last - columns.first + 1, color);
}

Bounds bounds_of(const Edge (&edges)[3]) {
    const std::int64_t area =
        static_cast<std::int64_t>(edges[0].value) + edges[1].value + edges[2].value;
    Bounds bounds;
    for (const Edge& edge : edges) {
        if (area >= 0) bounds.add(edge);
        if (area <= 0) bounds.add(-edge);
    }
    return bounds;
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
    Edge edges[3] = {{p0, p2, top}, {p2, p1, top}, {p1, p0, top}};
    if (is_exact(*canvas, {p0, p1, p2})) {
        Bounds bounds = bounds_of(edges);
        for (int row = top; row <= bottom; ++row) {
            fill(*canvas, bounds.take(canvas->width), row, color);
        }
        return;
    }
    for (int row = top; row <= bottom; ++row) {
        fill(*canvas, scan(edges, canvas->width), row, color);
        for (Edge& edge : edges) edge.value += edge.per_row;
    }
}
