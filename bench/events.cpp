// From an event to the finished rectangle: a pointer goes over a screen and presses what can be
// used.
//
//     events SCENE [ROUNDS]
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "orvel_screen.h"

namespace {

struct CloseScreen {
    void operator()(kit_screen* screen) const { kit_screen_close(screen); }
};
struct DestroyCanvas {
    void operator()(orvel_canvas* canvas) const { orvel_canvas_destroy(canvas); }
};

/// Times of one kind, in microseconds.
struct Times {
    const char* name;
    std::vector<double> all = {};

    void print() {
        if (all.empty()) return;
        std::sort(all.begin(), all.end());
        const auto part = [&](std::size_t hundredths) {
            return all[std::min(all.size() * hundredths / 100, all.size() - 1)];
        };
        std::printf("%-34s %7zu  median %8.1f us  99%% %8.1f us  most %8.1f us\n", name, all.size(),
                    part(50), part(99), all.back());
    }
};

struct Bench {
    std::unique_ptr<kit_screen, CloseScreen> screen;
    std::unique_ptr<orvel_canvas, DestroyCanvas> canvas = nullptr;
    Times still = {"events that change nothing"}, looks = {"what only looks otherwise"},
          values = {"what has a new value"}, anew = {"all of the data set anew"};

    /// The most that one value can cost: everything is built and laid out again.
    void build_anew() {
        const std::string data = kit_screen_get(screen.get(), "");
        const auto start = std::chrono::steady_clock::now();
        kit_screen_set(screen.get(), "", data.c_str(), nullptr, 0);
        kit_screen_draw(screen.get(), canvas.get(), nullptr);
        const auto end = std::chrono::steady_clock::now();
        anew.all.push_back(std::chrono::duration<double, std::micro>(end - start).count());
    }

    void send(int kind, int x, int y) {
        kit_screen_event event = {};
        event.kind = kind;
        event.x = x;
        event.y = y;
        kit_box dirty = {};
        const auto start = std::chrono::steady_clock::now();
        kit_screen_send(screen.get(), &event, 0);
        kit_screen_draw(screen.get(), canvas.get(), &dirty);
        const auto end = std::chrono::steady_clock::now();
        kit_change change = {};
        bool value = false;
        while (kit_screen_next(screen.get(), &change) == 1) value |= change.kind == 0;
        Times& times = value ? values : dirty.w > 0 ? looks : still;
        times.all.push_back(std::chrono::duration<double, std::micro>(end - start).count());
    }
};

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    char why[400] = "";
    Bench bench = {std::unique_ptr<kit_screen, CloseScreen>(
        kit_screen_open(argv[1], nullptr, nullptr, why, sizeof why))};
    if (!bench.screen) {
        std::fprintf(stderr, "events: %s\n", why);
        return 1;
    }
    int width = 0, height = 0;
    kit_screen_size(bench.screen.get(), &width, &height);
    bench.canvas.reset(kit_canvas(width, height));
    kit_screen_draw(bench.screen.get(), bench.canvas.get(), nullptr);
    for (int round = argc > 2 ? std::atoi(argv[2]) : 5; round > 0; --round) {
        for (int y = 2; y < height; y += 11) {
            for (int x = 3; x < width; x += 13) {
                bench.send(KIT_EVENT_MOVE, x, y);
                if (kit_screen_pointer(bench.screen.get()) == KIT_POINTER_ARROW) continue;
                bench.send(KIT_EVENT_PRESS, x, y);
                bench.send(KIT_EVENT_RELEASE, x, y);
            }
        }
    }
    for (int i = 0; i < 200; ++i) bench.build_anew();
    bench.still.print();
    bench.looks.print();
    bench.values.print();
    bench.anew.print();
}
