// Renders screens on all cores. The library has no locks and needs none as long as each worker has
// a canvas, a theme and widgets of its own. Usage: threads [SCREENS]
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <thread>
#include <vector>

#include "orvel.h"

namespace {

struct Destroy {
    void operator()(orvel_canvas* canvas) const { orvel_canvas_destroy(canvas); }
    void operator()(orvel_widget* widget) const { orvel_widget_destroy(widget); }
};
using Canvas = std::unique_ptr<orvel_canvas, Destroy>;
using Widget = std::unique_ptr<orvel_widget, Destroy>;

// All that one worker touches. The theme lives on the heap because the widgets keep its address.
struct Screen {
    Canvas canvas{orvel_canvas_create(320, 240)};
    std::unique_ptr<orvel_theme> theme = std::make_unique<orvel_theme>();
    std::vector<Widget> widgets;
    orvel_widget* chart;  // one of them

    explicit Screen(bool light) {
        light ? orvel_theme_light(theme.get()) : orvel_theme_default(theme.get());
        orvel_canvas* c = canvas.get();
        const orvel_theme* t = theme.get();
        widgets.emplace_back(orvel_widget_titlebar(c, t, "Screen", 0, 0, 320, 18));
        widgets.emplace_back(orvel_widget_tabs(c, t, "One|Two|Three", 8, 26, 304, 20, 1));
        for (int i = 0; i < 4; ++i) {
            const int y = 54 + 30 * i;
            widgets.emplace_back(orvel_widget_list_item(c, t, "Item", "folder", 8, y, 120, 26, i));
            widgets.emplace_back(orvel_widget_button(c, t, "Button", 136, y, 70, 26));
            widgets.emplace_back(orvel_widget_slider(c, t, 214, y + 8, 96, i / 3.0));
        }
        chart = orvel_widget_bars(c, t, 8, 176, 304, 40);
        widgets.emplace_back(chart);
        widgets.emplace_back(orvel_widget_statusbar(c, t, "Ready", 0, 224, 320, 16));
    }

    void draw(int number) {
        double values[38];
        for (int i = 0; i < 38; ++i) values[i] = (i * 7 + number) % 38 / 38.0;
        orvel_widget_set_data(chart, values, 38);
        orvel_canvas_clear(canvas.get(), theme->background);
        for (const Widget& widget : widgets) orvel_widget_draw(widget.get());
        orvel_draw_icon(canvas.get(), "settings", 284, 190, 24, theme->accent);
    }

    unsigned checksum() const {
        unsigned sum = 0;
        for (int y = 0; y < 240; ++y) {
            for (int x = 0; x < 320; ++x) {
                const orvel_color color = orvel_canvas_pixel_get(canvas.get(), x, y);
                sum = sum * 31 + color.r * 65536u + color.g * 256u + color.b;
            }
        }
        return sum;
    }
};

struct Run {
    double seconds;
    double processor_seconds;  // of all workers together
    bool all_the_same;         // each worker's last screen had the pixels that one thread gives it
};

Run render(int screens, unsigned workers, unsigned expected) {
    std::atomic<int> next{0};
    std::atomic<bool> all_the_same{true};
    std::vector<std::thread> threads;
    const std::clock_t processor_start = std::clock();
    const auto start = std::chrono::steady_clock::now();
    for (unsigned worker = 0; worker < workers; ++worker) {
        threads.emplace_back([&] {
            Screen screen(false);
            for (int number = next++; number < screens; number = next++) screen.draw(number);
            screen.draw(0);
            if (screen.checksum() != expected) all_the_same = false;
        });
    }
    for (std::thread& thread : threads) thread.join();
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    const double processor = static_cast<double>(std::clock() - processor_start) / CLOCKS_PER_SEC;
    return {time.count(), processor, all_the_same};
}

}  // namespace

int main(int argc, char** argv) {
    const int screens = argc == 2 ? std::atoi(argv[1]) : 20000;
    if (argc > 2 || screens < 1) {
        std::fprintf(stderr, "usage: threads [SCREENS]\n");
        return 2;
    }
    Screen alone(false);
    alone.draw(0);
    const unsigned cores = std::max(1u, std::thread::hardware_concurrency());
    double one = 0;
    std::printf("%d screens of 320 x 240 pixels, 16 widgets and an icon each\n", screens);
    for (unsigned workers = 1; workers <= cores; ++workers) {
        const Run run = render(screens, workers, alone.checksum());
        if (workers == 1) one = run.seconds;
        std::printf(
            "%3u worker%s %8.0f a second, %.2f times one worker, %.1f us of processor time each\n",
            workers, workers == 1 ? ": " : "s:", screens / run.seconds, one / run.seconds,
            run.processor_seconds * 1e6 / screens);
        if (!run.all_the_same) {
            std::fprintf(stderr, "threads: a worker's screen differs from that of one thread\n");
            return 1;
        }
    }
    return 0;
}
