// The plainest canvas there can be: what the models draw on.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "orvel.h"

namespace model {

class Canvas {
public:
    Canvas(int columns, int rows)
        : width(columns),
          height(rows),
          pixels_(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows),
                  orvel_color{0, 0, 0, 255}) {}

    orvel_color at(int x, int y) const { return pixels_[index(x, y)]; }
    /// All of them, row by row from the top.
    const orvel_color* pixels() const { return pixels_.data(); }
    orvel_color* pixels() { return pixels_.data(); }

    /// Every pixel that a model draws goes through this test, one by one.
    void put(std::int64_t x, std::int64_t y, orvel_color color) {
        if (x < 0 || y < 0 || x >= width || y >= height) return;
        pixels_[index(x, y)] = color;
    }

    const int width, height;

private:
    std::size_t index(std::int64_t x, std::int64_t y) const {
        return static_cast<std::size_t>(y * width + x);
    }

    std::vector<orvel_color> pixels_;
};

}  // namespace model
