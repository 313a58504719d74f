#include <gtest/gtest.h>

#include "support/picture.h"

namespace {

using namespace orvel_test;

TEST(CanvasTest, ANewCanvasIsOpaqueBlack) {
    const auto canvas = make_canvas(1, 1);
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 0, 0), (orvel_color{0, 0, 0, 255}));
}

}  // namespace
