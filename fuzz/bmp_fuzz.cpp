// Any bytes as a bitmap icon: no crash, no finding of the sanitizers, and the pixels of the model.
#include <climits>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "harness.h"
#include "models/bitmap_model.h"
#include "orvel.h"

namespace {

using fuzz::require;

constexpr int kSide = 16;
constexpr orvel_color kBlack = {0, 0, 0, 255};
constexpr struct { int x, y; } kPlaces[] = {{0, 0}, {-5, -3}, {12, 13}, {INT_MAX, INT_MIN}};

/// Draws the input; whether a row of it had a negative number of bytes.
bool raised(orvel_canvas* canvas, int x, int y, bool accepted) {
    try {
        const int status = orvel_icon_draw_bitmap(canvas, "input.bmp", x, y);
        require(status == (accepted ? 0 : -1), "another status than the model's");
        return false;
    } catch (const std::length_error&) {
        return true;
    }
}

void check_at(const orvel_test::BitmapModel& model, int x, int y) {
    static orvel_canvas* const actual = orvel_canvas_create(kSide, kSide);
    static orvel_canvas* const expected = orvel_canvas_create(kSide, kSide);
    for (orvel_canvas* const canvas : {actual, expected}) orvel_canvas_clear(canvas, kBlack);
    require(raised(actual, x, y, model.accepted()) == model.raises(), "another length error");
    model.draw(expected, x, y);
    require(fuzz::shows(actual, expected->pixels.get()), "another pixel");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::Resources resources;
    const std::string bytes(data, data + size);
    resources.put("Icons/input.bmp", bytes);
    const orvel_test::BitmapModel model(bytes);
    for (const auto& place : kPlaces) check_at(model, place.x, place.y);
    return 0;
}
