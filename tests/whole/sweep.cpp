#include "whole/sweep.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "support/cases.h"
#include "support/picture.h"

namespace orvel_test {
namespace {

orvel_color random_color(Random& random) {
    const std::uint64_t bits = random.next();
    const auto byte = [bits](int at) { return static_cast<unsigned char>(bits >> 8 * at); };
    return {byte(0), byte(1), byte(2), byte(3)};
}

/// Gives both canvases the same content to draw over.
void prepare(const DrawingCall& call, orvel_canvas* canvas, model::Canvas& model) {
    if (call.background == 0) return;
    Random random(static_cast<std::uint64_t>(call.background));
    const orvel_color even = random_color(random), odd = random_color(random);
    const int period = call.background;
    orvel_canvas_clear(canvas, even);
    for (int y = 0; y < call.height; ++y) {
        for (int x = 0; x < call.width; ++x) {
            const bool is_odd = period > 1 && (x + y) % period == 0;
            model.put(x, y, is_odd ? odd : even);
            if (is_odd) orvel_canvas_pixel(canvas, x, y, odd);
        }
    }
}

std::string in_words(const Primitive& primitive, const DrawingCall& call) {
    std::ostringstream out;
    out << primitive.name << '(';
    for (int i = 0; i < primitive.arguments; ++i) {
        out << call.arguments[static_cast<std::size_t>(i)] << ", ";
    }
    for (const char c : call.text)
        out << "0x" << std::hex << int(static_cast<unsigned char>(c)) << ' ';
    out << std::dec << call.color << ") on a canvas of " << call.width << " x " << call.height
        << " with background " << call.background;
    return out.str();
}

}  // namespace

std::string difference(const Primitive& primitive, const DrawingCall& call) {
    const CanvasPtr canvas = make_canvas(call.width, call.height);
    model::Canvas model(call.width, call.height);
    prepare(call, canvas.get(), model);
    primitive.library(canvas.get(), call);
    primitive.model(model, call);
    for (int y = 0; y < call.height; ++y) {
        for (int x = 0; x < call.width; ++x) {
            const orvel_color actual = orvel_canvas_pixel_get(canvas.get(), x, y);
            if (actual == model.at(x, y)) continue;
            std::ostringstream out;
            out << in_words(primitive, call) << "\nfirst difference at (" << x << ", " << y
                << "): expected " << model.at(x, y) << ", got " << actual;
            return out.str();
        }
    }
    return "";
}

bool draws(const Primitive& primitive, const DrawingCall& call) {
    const CanvasPtr canvas = make_canvas(call.width, call.height);
    model::Canvas model(call.width, call.height);
    prepare(call, canvas.get(), model);
    primitive.library(canvas.get(), call);
    for (int y = 0; y < call.height; ++y) {
        for (int x = 0; x < call.width; ++x) {
            if (!(orvel_canvas_pixel_get(canvas.get(), x, y) == model.at(x, y))) return true;
        }
    }
    return false;
}

DrawingCall numbered_call(const Primitive& primitive, std::uint64_t number) {
    Random random(number * 0x100000001B3u + 1);
    DrawingCall call;
    switch (random.between(0, 9)) {
    case 0:
        call.width = random.between(1, 3);
        call.height = random.between(1, 3);
        break;
    case 1:
        call.width = random.between(1, 600);
        call.height = random.between(1, 3);
        break;
    case 2:
        call.width = random.between(1, 3);
        call.height = random.between(1, 300);
        break;
    default: call.width = random.between(1, 40); call.height = random.between(1, 30);
    }
    if (random.one_in(4)) call.background = random.between(1, 7);
    call.color = random_color(random);
    primitive.choose(random, call);
    return call;
}

void sweep(const Primitive& primitive, std::uint64_t share) {
    for (const std::uint64_t number : some_cases(100000 / share)) {
        const std::string found = difference(primitive, numbered_call(primitive, number));
        ASSERT_EQ(found, "") << "replay it with ORVEL_SWEEP_CASE=" << number;
    }
}

}  // namespace orvel_test
