#include <algorithm>

#include "orvel_kit.h"

orvel_color kit_mix(orvel_color from, orvel_color to, int percent) {
    percent = std::clamp(percent, 0, 100);
    const auto part = [percent](int a, int b) {
        return static_cast<unsigned char>(a + (b - a) * percent / 100);
    };
    return {part(from.r, to.r), part(from.g, to.g), part(from.b, to.b), part(from.a, to.a)};
}

int kit_grey(orvel_color color) {
    return (2126 * color.r + 7152 * color.g + 722 * color.b + 5000) / 10000;
}
