// Prints the shortest time, in microseconds, of redrawing the screen of 18 widgets: what
// bench/javascript holds JavaScript to.
#include <algorithm>
#include <chrono>
#include <cstdio>

#include "screen.h"

int main() {
    orvel_theme theme;
    orvel_theme_default(&theme);
    orvel_canvas* const canvas = orvel_canvas_create(320, 240);
    const std::vector<orvel_widget*> widgets = bench::make_screen(canvas, &theme);
    constexpr int kRounds = 60, kRedraws = 200;
    double best = 1e9;
    for (int round = 0; round < kRounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < kRedraws; ++i) bench::draw_screen(widgets);
        const std::chrono::duration<double, std::micro> took =
            std::chrono::steady_clock::now() - start;
        best = std::min(best, took.count() / kRedraws);
    }
    bench::destroy_screen(widgets);
    orvel_canvas_destroy(canvas);
    std::printf("%.2f\n", best);
}
