#include "screen/shown.h"

#include <new>

namespace kit {
namespace {

orvel_color grey(int level, int white) {
    const auto value = static_cast<unsigned char>(level * 255 / white);
    return {value, value, value, 255};
}

/// A channel of so many levels, in 255 of them.
unsigned char channel(int level, int most) {
    return static_cast<unsigned char>((level * 255 + most / 2) / most);
}

orvel_color of_16_bits(int value) {
    return {channel(value >> 11, 31), channel(value >> 5 & 63, 63), channel(value & 31, 31), 255};
}

}  // namespace

CanvasPtr canvas_of(int width, int height) {
    CanvasPtr canvas(kit_canvas(width, height));
    if (!canvas) throw std::bad_alloc();
    return canvas;
}

Panel::Panel(const kit_format* format) : pixel_(canvas_of(1, 1)) {
    if (!format) return;
    format_ = *format;
    format_.turns = 0;
    if (format_.layout == KIT_INDEX4 || format_.layout == KIT_PLANE) format_.layout = KIT_INDEX8;
}

orvel_color Panel::shown(orvel_color color) const {
    color.a = 255;
    orvel_canvas_pixel(pixel_.get(), 0, 0, color);
    kit_format nearest = format_;
    nearest.dither = KIT_DITHER_NONE;
    unsigned char bytes[4] = {};
    if (kit_pixels(pixel_.get(), nullptr, &nearest, bytes, sizeof bytes, 0) != 0) {
        throw std::bad_alloc();
    }
    switch (format_.layout) {
    case KIT_RGB565_LE: return of_16_bits(bytes[0] | bytes[1] << 8);
    case KIT_RGB565_BE: return of_16_bits(bytes[1] | bytes[0] << 8);
    case KIT_GREY8: return grey(bytes[0], 255);
    case KIT_GREY4: return grey(bytes[0] >> 4, 15);
    case KIT_GREY2: return grey(bytes[0] >> 6, 3);
    case KIT_GREY1: return grey(bytes[0] >> 7, 1);
    case KIT_INDEX8: color = format_.palette[bytes[0]]; break;
    default: break;
    }
    color.a = 255;
    return color;
}

bool Panel::mixes() const {
    const bool few =
        format_.layout == KIT_GREY1 || format_.layout == KIT_GREY2 || format_.layout == KIT_INDEX8;
    return few && format_.dither != KIT_DITHER_NONE;
}

}  // namespace kit
