#include "panel.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>

namespace orvel_tools {
namespace {

using Byte = unsigned char;

constexpr orvel_color kRed[] = {{0, 0, 0, 255}, {255, 255, 255, 255}, {255, 0, 0, 255}};

// In the order of their numbers in panels of seven colours.
constexpr orvel_color kSeven[] = {{0, 0, 0, 255},    {255, 255, 255, 255}, {0, 255, 0, 255},
                                  {0, 0, 255, 255},  {255, 0, 0, 255},     {255, 255, 0, 255},
                                  {255, 128, 0, 255}};

constexpr Panel kPanels[] = {
    {"rgba", KIT_RGBA, 1, nullptr, 0},
    {"mono", KIT_GREY1, 8, nullptr, 0},
    {"gray4", KIT_GREY2, 4, nullptr, 0},
    {"gray16", KIT_GREY4, 2, nullptr, 0},
    {"rgb565", KIT_RGB565_LE, 1, nullptr, 0},
    {"red", KIT_PLANE, 8, kRed, static_cast<int>(std::size(kRed))},
    {"seven", KIT_INDEX4, 2, kSeven, static_cast<int>(std::size(kSeven))},
};

kit_format format_of(const Outlet& outlet, int layout, int plane = 0) {
    kit_format format = {};
    format.layout = layout;
    format.dither = outlet.dither;
    format.turns = outlet.turns;
    format.colors = outlet.panel->colors;
    format.palette = outlet.panel->palette;
    format.plane = plane;
    return format;
}

struct Sides {
    int width, height;
};

Sides turned_sides(const orvel_canvas* canvas, int turns) {
    const int width = orvel_canvas_width(canvas), height = orvel_canvas_height(canvas);
    return turns % 2 == 0 ? Sides{width, height} : Sides{height, width};
}

/// Appends what kit_pixels() writes.
bool append(const orvel_canvas* canvas, const kit_format& format, Bytes& bytes) {
    const Sides sides = turned_sides(canvas, format.turns);
    const std::size_t size =
        kit_pixels_stride(&format, sides.width) * static_cast<std::size_t>(sides.height);
    const std::size_t at = bytes.size();
    bytes.resize(at + size);
    return kit_pixels(canvas, nullptr, &format, bytes.data() + at, size, 0) == 0;
}

Byte byte_of(int number) { return static_cast<Byte>(number); }

/// The colour of pixel @p x of a row that the panel takes.
orvel_color shown(const Panel& panel, const Byte* row, int x) {
    const auto bits = [row, x](int depth) {
        const int in_byte = 8 / depth;
        return row[x / in_byte] >> (in_byte - 1 - x % in_byte) * depth & ((1 << depth) - 1);
    };
    const auto grey = [](int level, int white) {
        const Byte value = byte_of(level * 255 / white);
        return orvel_color{value, value, value, 255};
    };
    switch (panel.layout) {
    case KIT_GREY1: return grey(bits(1), 1);
    case KIT_GREY2: return grey(bits(2), 3);
    case KIT_GREY4: return grey(bits(4), 15);
    case KIT_INDEX8: return panel.palette[row[x]];
    case KIT_RGB565_LE: {
        const int value = row[2 * x] | row[2 * x + 1] << 8;
        const int red = value >> 11, green = value >> 5 & 63, blue = value & 31;
        return {byte_of((red * 255 + 15) / 31), byte_of((green * 255 + 31) / 63),
                byte_of((blue * 255 + 15) / 31), 255};
    }
    default: return {row[4 * x], row[4 * x + 1], row[4 * x + 2], 255};
    }
}

bool same(const orvel_color& a, const orvel_color& b) {
    return a.r == b.r && a.g == b.g && a.b == b.b && a.a == b.a;
}

}  // namespace

kit_format format_of(const Outlet& outlet) { return format_of(outlet, outlet.panel->layout); }

const Panel* panel_named(const std::string& name) {
    for (const Panel& panel : kPanels) {
        if (name == panel.name) return &panel;
    }
    return name.empty() ? &kPanels[0] : nullptr;
}

std::optional<Bytes> panel_bytes(const orvel_canvas* canvas, const Outlet& outlet) {
    Bytes bytes;
    bool done = true;
    if (outlet.panel->layout != KIT_PLANE) {
        done = append(canvas, format_of(outlet, outlet.panel->layout), bytes);
    } else {
        done = append(canvas, format_of(outlet, KIT_PLANE, 0), bytes) &&
               append(canvas, format_of(outlet, KIT_PLANE, 2), bytes);
    }
    if (!done) return std::nullopt;
    return bytes;
}

std::optional<Picture> panel_picture(const orvel_canvas* canvas, const Outlet& outlet) {
    Panel panel = *outlet.panel;
    if (panel.palette) panel.layout = KIT_INDEX8;
    const kit_format format = format_of(outlet, panel.layout);
    Bytes bytes;
    if (!append(canvas, format, bytes)) return std::nullopt;
    const Sides sides = turned_sides(canvas, outlet.turns);
    Picture picture;
    picture.width = sides.width;
    picture.height = sides.height;
    const std::size_t count = std::size_t(sides.width) * std::size_t(sides.height);
    if (panel.layout == KIT_RGBA) {
        static_assert(sizeof(orvel_color) == 4, "rows of pixels are rows of bytes");
        picture.pixels.resize(count);
        std::memcpy(picture.pixels.data(), bytes.data(), 4 * count);
        return picture;
    }
    picture.pixels.reserve(count);
    const std::size_t stride = kit_pixels_stride(&format, sides.width);
    for (int y = 0; y < sides.height; ++y) {
        const Byte* const row = bytes.data() + stride * std::size_t(y);
        for (int x = 0; x < sides.width; ++x) picture.pixels.push_back(shown(panel, row, x));
    }
    return picture;
}

kit_box changed(const Picture& before, const Picture& now, const Panel& panel) {
    if (before.width != now.width || before.height != now.height) {
        return {0, 0, now.width, now.height};
    }
    int left = now.width, top = now.height, right = 0, bottom = 0;
    for (int y = 0; y < now.height; ++y) {
        for (int x = 0; x < now.width; ++x) {
            if (same(before.at(x, y), now.at(x, y))) continue;
            left = std::min(left, x);
            right = std::max(right, x + 1);
            top = std::min(top, y);
            bottom = y + 1;
        }
    }
    if (bottom == 0) return {0, 0, 0, 0};
    left -= left % panel.pixels;
    right = std::min((right + panel.pixels - 1) / panel.pixels * panel.pixels, now.width);
    return {left, top, right - left, bottom - top};
}

}  // namespace orvel_tools
