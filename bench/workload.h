// What is timed: a table of workloads, each the same for every implementation.
#pragma once

#include <string>
#include <vector>

#include "orvel.h"

namespace bench {

enum class Shape { pixel, line, rect, fill, circle, disc, triangle, text, words };

/// One drawing call. Lines and triangles have two and three points; rectangles and boxes a corner
/// and their size in x1, y1; circles and discs a centre and their radius in x1. Words are readable:
/// they stand on the baseline y0, x1 pixels large, and are bold where y1 is 1.
struct Op {
    Shape shape;
    int x0, y0, x1, y1, x2, y2;
    orvel_color color;
    std::string text;
};

enum class Task {
    create,
    clear,
    draw,
    save,
    bitmap,
    icons,
    redraw,
    rebuild,
    words,
    dashboard,
    tone
};

/// The ratios to reach; 0 where there is none.
struct Goal {
    double peer = 1.0;
    double limit = 0.0;
};

struct Workload {
    std::string name;
    Task task;
    int width, height;         // of the canvas
    std::vector<Op> ops = {};  // the calls, or those that draw the same where ours is one call
    Goal goal = {};
    int size = 0;               // icons: their side; pictures: bits a pixel
    std::string file = {};      // pictures: the path
    std::string resource = {};  // pictures: what the library finds it by
    int x = 0, y = 0;           // pictures: where they go
    bool counted = false;       // in the table of instruction counts too

    /// How many calls one pass over the workload makes.
    std::size_t calls() const { return task == Task::draw ? ops.size() : 1; }
};

constexpr orvel_color kPaper = {30, 30, 30, 255};
constexpr orvel_color kInk = {200, 120, 40, 255};

/// All workloads. What they save goes to @p folder; the resource root becomes where those are that
/// they read.
std::vector<Workload> workloads(const std::string& folder);

}  // namespace bench
