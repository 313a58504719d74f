// Every drawing function against its model, over random calls. Each call has a number, by which
// support/cases.h replays it.
#include "whole/sweep.h"
#include "support/cases.h"

#include <gtest/gtest.h>

#include <utility>

#include "models/shapes_model.h"
#include "models/text_model.h"
#include "support/picture.h"

namespace {

using namespace orvel_test;

TEST(SweepTest, Pixel) { sweep(kPixel); }
TEST(SweepTest, Clear) { sweep(kClear); }
TEST(SweepTest, Line) { sweep(kLine); }
TEST(SweepTest, Rect) { sweep(kRect); }
TEST(SweepTest, FillRect) { sweep(kFillRect); }
TEST(SweepTest, Circle) { sweep(kCircle); }
TEST(SweepTest, Disc) { sweep(kDisc); }
TEST(SweepTest, Triangle) { sweep(kTriangle); }
TEST(SweepTest, TriangleOnALongCanvas) { sweep(kLongTriangle, 500); }
TEST(SweepTest, Text) { sweep(kText); }

// A sweep proves nothing unless its calls draw, and a difference is worth nothing unless it is
// seen.
TEST(SweepTest, ManyCallsOfEverySweepDrawSomething) {
    for (const Primitive* primitive :
         {&kPixel, &kClear, &kLine, &kRect, &kFillRect, &kCircle, &kDisc, &kTriangle, &kText}) {
        int drawing = 0;
        for (const std::uint64_t number : cases(1000)) {
            drawing += draws(*primitive, numbered_call(*primitive, number));
        }
        EXPECT_GT(drawing, 300) << primitive->name;
    }
}

TEST(SweepTest, ADifferenceIsSeenAndToldInWords) {
    Primitive wrong = kLine;
    wrong.model = [](model::Canvas& canvas, const DrawingCall&) { canvas.put(2, 1, {1, 2, 3, 4}); };
    DrawingCall call;
    call.width = 4;
    call.height = 3;
    call.arguments = {0, 9, 3, 9};
    EXPECT_EQ(
        difference(wrong, call),
        "orvel_canvas_line(0, 9, 3, 9, (255, 255, 255, 255)) on a canvas of 4 x 3 with "
        "background 0\nfirst difference at (2, 1): expected (1, 2, 3, 4), got (0, 0, 0, 255)");
}

TEST(SweepTest, TheWidthOfATextEqualsTheModels) {
    for (const std::uint64_t number : cases(10000)) {
        const DrawingCall call = numbered_call(kText, number);
        ASSERT_EQ(orvel_text_width(call.text.c_str()), model::text_width(call.text)) << number;
    }
}

TEST(SweepTest, ReadingAPixelEqualsTheModel) {
    const CanvasPtr canvas = make_canvas(31, 17);
    model::Canvas plain(31, 17);
    for (const std::uint64_t number : cases(100000)) {
        Random random(number);
        const int x = random.between(-3, 33), y = random.between(-3, 19);
        const auto shade = static_cast<unsigned char>(random.between(0, 255));
        const orvel_color color = {shade, 1, 2, static_cast<unsigned char>(number)};
        orvel_canvas_pixel(canvas.get(), x, y, color);
        model::pixel(plain, x, y, color);
        const int column = random.between(-3, 33), row = random.between(-3, 19);
        ASSERT_EQ(orvel_canvas_pixel_get(canvas.get(), column, row),
                  model::pixel_get(plain, column, row))
            << number;
    }
}

TEST(SweepTest, TrianglesOnCanvasesAtTheLimitOfTheExactRangeEqualTheModel) {
    for (const std::uint64_t number : cases(300)) {
        Random random(number);
        DrawingCall call;
        call.width = random.between(16383, 16385);
        call.height = random.between(1, 3);
        if (random.one_in(2)) std::swap(call.width, call.height);
        for (int& argument : call.arguments) {
            const int near[] = {-16385, -16384, -16383, 0, 1, 2, 16383, 16384, 16385};
            argument =
                random.one_in(2) ? near[random.between(0, 8)] : random.between(-20000, 20000);
        }
        ASSERT_EQ(difference(kTriangle, call), "") << number;
    }
}

}  // namespace
