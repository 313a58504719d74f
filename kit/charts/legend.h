// The names of a chart's series, beside squares in their colours.
#pragma once

#include <string>
#include <vector>

#include "orvel_kit.h"

namespace kit {

/// Rows of names that end at the right: as many as the names need, but no more than half of the
/// chart's height. What has no place in them is counted, so that no series is missing in silence.
class Legend {
public:
    explicit Legend(const kit_chart& record);

    /// The rows of pixels that it takes off the chart's top.
    int height() const;

    void draw(orvel_canvas* canvas, const orvel_theme& theme) const;

private:
    struct Entry {
        int series, width;
    };
    struct Row {
        std::vector<Entry> entries;
        int width = 0;
    };

    int row_height() const;
    void add(const Entry& entry);
    void count_the_rest();
    void draw_row(orvel_canvas* canvas, const orvel_theme& theme, const Row& row, int top) const;
    void draw_entry(orvel_canvas* canvas, const orvel_theme& theme, const Entry& entry, int x,
                    int top) const;
    void write(orvel_canvas* canvas, const char* words, const kit_box& room, orvel_color ink) const;

    const kit_chart& chart;
    int cap, above;       // a capital letter, and the rows that accents may need on top of it
    int swatch, to_name;  // the side of a square, and from its left to its name
    std::vector<Row> rows;
    std::string rest;  // "+3" behind the last name; empty when all are there
};

}  // namespace kit
