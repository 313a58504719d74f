// That the thread sanitizer sees into the library: without it the tests of threads would find no
// race. Built with that sanitizer alone.
#include <gtest/gtest.h>

#include <cstdlib>
#include <thread>

#include "support/picture.h"

namespace {

using namespace orvel_test;

void draw_on_one_canvas_in_two_threads() {
    const CanvasPtr canvas = make_canvas(64, 64);
    std::thread other([&canvas] { orvel_canvas_clear(canvas.get(), kInk); });
    orvel_canvas_clear(canvas.get(), kInk);
    other.join();
    std::exit(0);
}

TEST(RaceDeathTest, TwoThreadsThatDrawOnOneCanvasAreFound) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(draw_on_one_canvas_in_two_threads(), testing::ExitedWithCode(66), "data race");
}

}  // namespace
