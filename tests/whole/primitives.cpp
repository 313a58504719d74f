// The drawing functions and arguments worth trying on them.
#include <algorithm>
#include <climits>
#include <cmath>

#include "models/shapes_model.h"
#include "models/text_model.h"
#include "whole/sweep.h"

namespace orvel_test {
namespace {

int wrap(std::int64_t value) { return static_cast<int>(static_cast<std::uint32_t>(value)); }

int clamp(std::int64_t value) {
    return static_cast<int>(std::clamp<std::int64_t>(value, INT_MIN, INT_MAX));
}

/// Where formulas turn: the limits of 32 bits and of their squares and products.
int extreme(Random& random) {
    constexpr std::int64_t places[] = {INT_MIN, INT_MAX, 16384, -16384,     32768,      -32768,
                                       46341,   -46341,  65536, 1073741824, -1073741824};
    if (random.one_in(4)) return random.between(INT_MIN, INT_MAX);
    const std::int64_t place = places[random.between(0, 10)];
    return clamp(place + random.between(-3, 3));
}

/// A coordinate along a side of @p size: mostly near the canvas, now and then far away.
int coordinate(Random& random, int size) {
    switch (random.between(0, 15)) {
    case 0: return extreme(random);
    case 1: return random.between(-20000, 20000);
    case 2:
    case 3:
    case 4: return random.between(-300, 300 + size);
    case 5:
    case 6:
    case 7: return random.between(-6, size + 5);
    default: return random.between(0, size - 1);
    }
}

int extent(Random& random, int size, int start) {
    switch (random.between(0, 15)) {
    case 0: return extreme(random);
    case 1:  // so that the far edge comes out near the canvas, wherever the near one is
        return wrap(random.between(-3, size + 3) - std::int64_t{start});
    case 2:
    case 3: return random.between(-2, 3);
    default: return random.between(1, 2 * size + 3);
    }
}

void choose_point(Random& random, DrawingCall& call) {
    call.arguments = {coordinate(random, call.width), coordinate(random, call.height)};
}

void choose_box(Random& random, DrawingCall& call) {
    const int x = coordinate(random, call.width), y = coordinate(random, call.height);
    call.arguments = {x, y, extent(random, call.width, x), extent(random, call.height, y)};
}

/// A line through or past the canvas whose ends are up to @p reach from it.
void choose_crossing(Random& random, DrawingCall& call, int reach) {
    const std::int64_t x = random.between(-3, call.width + 2),
                       y = random.between(-3, call.height + 2);
    const std::int64_t dx = random.between(-reach, reach), dy = random.between(-reach, reach);
    const std::int64_t back = random.between(0, 1000);
    call.arguments = {wrap(x - dx * back / 1000), wrap(y - dy * back / 1000),
                      wrap(x + dx * (1000 - back) / 1000), wrap(y + dy * (1000 - back) / 1000)};
}

void choose_line(Random& random, DrawingCall& call) {
    switch (random.between(0, 9)) {
    case 0: {  // anywhere, but short enough to be walked
        const int x = extreme(random), y = extreme(random);
        call.arguments = {x, y, clamp(std::int64_t{x} + random.between(-2000, 2000)),
                          clamp(std::int64_t{y} + random.between(-2000, 2000))};
        return;
    }
    case 1:
    case 2:
    case 3: return choose_crossing(random, call, random.one_in(100) ? 200000 : 2000);
    case 4: return choose_crossing(random, call, 20);
    default:
        call.arguments = {random.between(-6, call.width + 5), random.between(-6, call.height + 5),
                          random.between(-300, 300), random.between(-300, 300)};
        if (random.one_in(2)) {
            call.arguments[2] = random.between(-6, call.width + 5);
            call.arguments[3] = random.between(-6, call.height + 5);
        }
    }
}

/// A centre for which the circle of radius @p r passes through or near the canvas.
void choose_round(Random& random, DrawingCall& call, int r) {
    const std::int64_t x = random.between(-2, call.width + 1),
                       y = random.between(-2, call.height + 1);
    std::int64_t across = random.between(-std::int64_t{r}, r);
    if (random.one_in(3)) across = std::int64_t{r} * random.between(-1, 1);
    if (random.one_in(8)) across = static_cast<std::int64_t>(r * std::sqrt(0.5));
    std::int64_t down = static_cast<std::int64_t>(
        std::sqrt(double(r) * double(r) - double(across) * double(across)));
    if (random.one_in(2)) std::swap(across, down);
    if (random.one_in(2)) across = -across;
    if (random.one_in(2)) down = -down;
    call.arguments = {clamp(x + across), clamp(y + down), r};
}

void choose_circle(Random& random, DrawingCall& call) {
    const int kind = random.between(0, 999);
    if (kind < 500) {
        call.arguments = {random.between(-20, call.width + 20),
                          random.between(-20, call.height + 20), random.between(-2, 40)};
    } else if (kind < 850) {
        choose_round(random, call, random.between(0, 100));
    } else if (kind < 990) {
        choose_round(random, call, random.between(0, 3000));
    } else if (kind < 998) {
        call.arguments = {extreme(random), extreme(random), random.between(0, 2000)};
    } else {
        choose_round(random, call, random.between(0, random.one_in(20) ? 1000000 : 50000));
    }
}

void choose_disc(Random& random, DrawingCall& call) {
    switch (random.between(0, 9)) {
    case 0: call.arguments = {extreme(random), extreme(random), extreme(random)}; return;
    case 1: return choose_round(random, call, std::abs(std::max(extreme(random), -INT_MAX)));
    case 2: return choose_round(random, call, random.between(0, 100000));
    case 3:
    case 4: return choose_round(random, call, random.between(0, 3000));
    default:
        call.arguments = {random.between(-20, call.width + 20),
                          random.between(-20, call.height + 20), random.between(-2, 40)};
    }
}

void choose_triangle(Random& random, DrawingCall& call) {
    Arguments& a = call.arguments;
    for (std::size_t i = 0; i < 6; ++i) a[i] = coordinate(random, i % 2 ? call.height : call.width);
    switch (random.between(0, 9)) {
    case 0: {  // three points on one line
        const int first = random.between(-5, 5), second = random.between(-5, 5);
        const std::int64_t dx = random.between(-9, 9), dy = random.between(-9, 9);
        a[2] = wrap(a[0] + first * dx), a[3] = wrap(a[1] + first * dy);
        a[4] = wrap(a[0] + second * dx), a[5] = wrap(a[1] + second * dy);
        return;
    }
    case 1:  // two or three equal points
        a[2] = a[0], a[3] = a[1];
        if (random.one_in(3)) a[4] = a[0], a[5] = a[1];
        return;
    case 2:  // one row or one column
        a[3] = a[5] = a[1];
        if (random.one_in(2)) a[2] = a[4] = a[0];
        return;
    case 3:  // about as far as 32-bit products reach
        for (int& value : a) value = random.between(-20000, 20000);
        return;
    case 4:  // exactly there
        for (int& value : a) {
            const int sign = random.one_in(2) ? 1 : -1;
            value = sign * random.between(16382, 16386);
            if (random.one_in(3)) value = random.between(-5, 45);
        }
        return;
    default: return;
    }
}

/// A canvas so long that the edge functions, which are areas, leave 32 bits on it, or just not:
/// 4 * 23170 * 23170 is the largest square that fits.
void choose_long_triangle(Random& random, DrawingCall& call) {
    constexpr int kLimits[] = {16384, 16385, 23171, 28000, 32768};
    const int limit = kLimits[random.between(0, 4)];
    call.width = random.between(1, 3);
    call.height = random.between(limit / 2, limit);
    if (random.one_in(2)) std::swap(call.width, call.height);
    for (int& value : call.arguments) {
        value = random.one_in(4) ? random.between(-limit, limit) : random.between(0, 1) * 2 - 1;
        if (value == 1 || value == -1) value *= limit;
    }
}

void choose_text(Random& random, DrawingCall& call) {
    choose_point(random, call);
    if (random.one_in(3)) call.arguments[0] = random.between(-200, call.width);
    const int length = random.between(0, 40);
    const bool printable = !random.one_in(3);
    for (int i = 0; i < length; ++i) {
        const int byte = printable ? random.between(32, 126) : random.between(1, 255);
        call.text += static_cast<char>(random.one_in(20) ? 10 : byte);
    }
}

}  // namespace

const Primitive kPixel = {"orvel_canvas_pixel", 2,
                          [](orvel_canvas* canvas, const DrawingCall& c) {
                              orvel_canvas_pixel(canvas, c.arguments[0], c.arguments[1], c.color);
                          },
                          [](model::Canvas& canvas, const DrawingCall& c) {
                              model::pixel(canvas, c.arguments[0], c.arguments[1], c.color);
                          },
                          choose_point};

const Primitive kClear = {
    "orvel_canvas_clear", 0,
    [](orvel_canvas* canvas, const DrawingCall& c) { orvel_canvas_clear(canvas, c.color); },
    [](model::Canvas& canvas, const DrawingCall& c) { model::clear(canvas, c.color); },
    [](Random&, DrawingCall&) {}};

const Primitive kLine = {"orvel_canvas_line", 4,
                         [](orvel_canvas* canvas, const DrawingCall& c) {
                             const Arguments& a = c.arguments;
                             orvel_canvas_line(canvas, a[0], a[1], a[2], a[3], c.color);
                         },
                         [](model::Canvas& canvas, const DrawingCall& c) {
                             const Arguments& a = c.arguments;
                             model::line(canvas, a[0], a[1], a[2], a[3], c.color);
                         },
                         choose_line};

const Primitive kRect = {"orvel_canvas_rect", 4,
                         [](orvel_canvas* canvas, const DrawingCall& c) {
                             const Arguments& a = c.arguments;
                             orvel_canvas_rect(canvas, a[0], a[1], a[2], a[3], c.color);
                         },
                         [](model::Canvas& canvas, const DrawingCall& c) {
                             const Arguments& a = c.arguments;
                             model::rect(canvas, a[0], a[1], a[2], a[3], c.color);
                         },
                         choose_box};

const Primitive kFillRect = {"orvel_canvas_fill_rect", 4,
                             [](orvel_canvas* canvas, const DrawingCall& c) {
                                 const Arguments& a = c.arguments;
                                 orvel_canvas_fill_rect(canvas, a[0], a[1], a[2], a[3], c.color);
                             },
                             [](model::Canvas& canvas, const DrawingCall& c) {
                                 const Arguments& a = c.arguments;
                                 model::fill_rect(canvas, a[0], a[1], a[2], a[3], c.color);
                             },
                             choose_box};

const Primitive kCircle = {
    "orvel_canvas_circle", 3,
    [](orvel_canvas* canvas, const DrawingCall& c) {
        orvel_canvas_circle(canvas, c.arguments[0], c.arguments[1], c.arguments[2], c.color);
    },
    [](model::Canvas& canvas, const DrawingCall& c) {
        model::circle(canvas, c.arguments[0], c.arguments[1], c.arguments[2], c.color);
    },
    choose_circle};

const Primitive kDisc = {
    "orvel_canvas_fill_circle", 3,
    [](orvel_canvas* canvas, const DrawingCall& c) {
        orvel_canvas_fill_circle(canvas, c.arguments[0], c.arguments[1], c.arguments[2], c.color);
    },
    [](model::Canvas& canvas, const DrawingCall& c) {
        model::fill_circle(canvas, c.arguments[0], c.arguments[1], c.arguments[2], c.color);
    },
    choose_disc};

const Primitive kTriangle = {
    "orvel_canvas_fill_triangle", 6,
    [](orvel_canvas* canvas, const DrawingCall& c) {
        const Arguments& a = c.arguments;
        orvel_canvas_fill_triangle(canvas, a[0], a[1], a[2], a[3], a[4], a[5], c.color);
    },
    [](model::Canvas& canvas, const DrawingCall& c) {
        const Arguments& a = c.arguments;
        model::fill_triangle(canvas, a[0], a[1], a[2], a[3], a[4], a[5], c.color);
    },
    choose_triangle};

const Primitive kLongTriangle = {kTriangle.name, kTriangle.arguments, kTriangle.library,
                                 kTriangle.model, choose_long_triangle};

const Primitive kText = {
    "orvel_text_draw", 2,
    [](orvel_canvas* canvas, const DrawingCall& c) {
        orvel_text_draw(canvas, c.text.c_str(), c.arguments[0], c.arguments[1], c.color);
    },
    [](model::Canvas& canvas, const DrawingCall& c) {
        model::text_draw(canvas, c.text, c.arguments[0], c.arguments[1], c.color);
    },
    choose_text};

}  // namespace orvel_test
