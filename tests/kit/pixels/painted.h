// Canvases for the tests of kit_pixels(), and what it wrote as text.
#pragma once

#include <cstddef>
#include <list>
#include <string>
#include <vector>

#include "orvel_kit.h"
#include "support/picture.h"

namespace orvel_test {

constexpr orvel_color kRed = {255, 0, 0, 255};

inline orvel_color grey(int value) {
    const auto v = static_cast<unsigned char>(value);
    return {v, v, v, 255};
}

/// A canvas of these rows, all of one length.
inline CanvasPtr painted(const std::vector<std::vector<orvel_color>>& rows) {
    CanvasPtr canvas = make_canvas(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()));
    for (std::size_t y = 0; y < rows.size(); ++y) {
        for (std::size_t x = 0; x < rows[y].size(); ++x) {
            orvel_canvas_pixel(canvas.get(), static_cast<int>(x), static_cast<int>(y), rows[y][x]);
        }
    }
    return canvas;
}

inline CanvasPtr painted_grey(const std::vector<std::vector<int>>& rows) {
    std::vector<std::vector<orvel_color>> colors;
    for (const auto& row : rows) {
        colors.emplace_back();
        for (const int value : row) colors.back().push_back(grey(value));
    }
    return painted(colors);
}

/// Bytes as pairs of hexadecimal digits, a line for each row.
inline std::string hex(const std::vector<unsigned char>& bytes, std::size_t row) {
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        text += "0123456789abcdef"[bytes[i] / 16];
        text += "0123456789abcdef"[bytes[i] % 16];
        text += (i + 1) % row == 0 ? '\n' : ' ';
    }
    return text;
}

inline kit_format format_of(kit_layout layout, kit_dither dither = KIT_DITHER_NONE) {
    kit_format format = {};
    format.layout = layout;
    format.dither = dither;
    return format;
}

/// The palette is kept until the program ends.
inline kit_format format_with(const std::vector<orvel_color>& palette, kit_layout layout,
                              kit_dither dither = KIT_DITHER_NONE) {
    static std::list<std::vector<orvel_color>> kept;
    kept.push_back(palette);
    kit_format format = format_of(layout, dither);
    format.palette = kept.back().data();
    format.colors = static_cast<int>(palette.size());
    return format;
}

/// What is written of the box, as hexadecimal text; the status where that is not 0.
inline std::string written(const CanvasPtr& canvas, const kit_format& format,
                           const kit_box* box = nullptr) {
    const int width = box ? box->w : orvel_canvas_width(canvas.get());
    const int height = box ? box->h : orvel_canvas_height(canvas.get());
    const bool turned = format.turns % 2 != 0;
    const std::size_t row = kit_pixels_stride(&format, turned ? height : width);
    std::vector<unsigned char> bytes(row * static_cast<std::size_t>(turned ? width : height), 0xEE);
    const int status = kit_pixels(canvas.get(), box, &format, bytes.data(), bytes.size(), 0);
    return status == 0 ? hex(bytes, row) : std::to_string(status);
}

}  // namespace orvel_test
