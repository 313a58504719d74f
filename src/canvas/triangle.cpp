// Filled triangles by edge functions.
//
// A pixel is inside unless one edge function is negative there and another positive. The three add
// up to twice the signed area at every pixel, so inside means that none has the sign opposite to
// the area's, or that all are zero where the area is. A row of a triangle thus lies between two
// edges: the one from the top vertex to the bottom one, and that of the other two which crosses the
// row. The third is no bound there, since triangles are convex.
//
// Where an edge crosses a row is a binary fraction that a step is added to from row to row. A step
// is less than one of its last places too short or too long, and after at most 2^15 of them the
// fraction is wrong by less than 2^15 such places. The right one is a whole number or a multiple of
// 1/2^15, which are 2^17 places, away from it. So it is rounded rightly if 2^16 are allowed for.
#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <utility>

#include "canvas/canvas.h"

namespace orvel {
namespace {

using std::int64_t;

/// Up to this distance from zero every edge function fits 32 bits at every pixel of a canvas.
constexpr int kExact = 16384;

struct Point {
    int x, y;
};

constexpr int kPlaces = 32;  // of the fraction
constexpr int64_t kOne = int64_t{1} << kPlaces;
constexpr int64_t kAllowed = 1 << 16;

/// Where an edge crosses the rows.
struct Edge {
    int64_t step, origin;  // from row to row, and at row 0

    Edge(Point top, Point bottom)
        : step((bottom.x - top.x) * kOne / (bottom.y - top.y)),
          origin(top.x * kOne - top.y * step) {}

    int64_t at(int row) const { return origin + row * step; }
};

/// Fills the rows from @p row to @p last between two edges, pixels on them included.
void fill_between(const orvel_canvas& canvas, const Edge& left, const Edge& right, int row,
                  int last, orvel_color color) {
    int64_t first = left.at(row) - kAllowed + kOne;
    int64_t end = right.at(row) + kAllowed + kOne;
    for (; row <= last; ++row) {
        fill_span(canvas, {first >> kPlaces, end >> kPlaces}, row, color);
        first += left.step;
        end += right.step;
    }
}

/// Fills the rows from @p top to @p bottom of a triangle of small coordinates, its vertices given
/// from the top down.
void fill_exact(const orvel_canvas& canvas, Point a, Point b, Point c, int top, int bottom,
                orvel_color color) {
    if (a.y == c.y) return fill_span(canvas, {0, canvas.width}, top, color);
    const bool long_is_left = (b.x - a.x) * (c.y - a.y) > (b.y - a.y) * (c.x - a.x);
    const Edge long_edge(a, c);
    const auto fill_to = [&](const Edge& short_edge, int last) {
        const Edge& left = long_is_left ? long_edge : short_edge;
        const Edge& right = long_is_left ? short_edge : long_edge;
        fill_between(canvas, left, right, top, last, color);
        top = std::max(top, last + 1);
    };
    if (a.y < b.y) fill_to(Edge(a, b), std::min(b.y, bottom));
    if (b.y < c.y) fill_to(Edge(b, c), bottom);
}

/// The edge function of the line from @p a to @p b, in wrapping 32-bit arithmetic.
struct EdgeFunction {
    int per_column, per_row, value;  // value is that of the first pixel of the current row

    EdgeFunction(Point a, Point b, int first_row)
        : per_column(b.y - a.y),
          per_row(a.x - b.x),
          value(-a.x * per_column + (first_row - a.y) * per_row) {}
};

/// The plain rule, for what the arithmetic may wrap in: looks at every pixel of a row.
Span scan(const EdgeFunction (&edges)[3], int width) {
    Span found = {width, 0};
    int e0 = edges[0].value, e1 = edges[1].value, e2 = edges[2].value;
    for (int x = 0; x < width; ++x) {
        const bool negative = (e0 | e1 | e2) < 0;
        const bool positive = e0 > 0 || e1 > 0 || e2 > 0;
        if (!(negative && positive)) {
            found.first = std::min<int64_t>(found.first, x);
            found.end = x + 1;
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
    EdgeFunction edges[3] = {{p0, p2, top}, {p2, p1, top}, {p1, p0, top}};
    for (int row = top; row <= bottom; ++row) {
        fill_span(*canvas, scan(edges, canvas->width), row, color);
        for (EdgeFunction& edge : edges) edge.value += edge.per_row;
    }
}
