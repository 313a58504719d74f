// Pictures for bench/compare: many screens, of which some differ, and pairs with one change each.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "dashboard.h"

namespace {

struct DestroyCanvas {
    void operator()(orvel_canvas* canvas) const { orvel_canvas_destroy(canvas); }
};
using CanvasPtr = std::unique_ptr<orvel_canvas, DestroyCanvas>;
using Change = std::function<void(orvel_canvas*)>;

constexpr int kScreens = 500, kEvery = 10;

CanvasPtr dashboard(int number) {
    CanvasPtr canvas(orvel_canvas_create(DASHBOARD_W, DASHBOARD_H));
    draw_dashboard(canvas.get(), kit_text_box);
    const std::string title = "Screen " + std::to_string(number);
    kit_text_box(canvas.get(), nullptr, title.c_str(), {600, 8, 190, 20}, KIT_RIGHT,
                 {255, 255, 255, 255});
    orvel_canvas_fill_rect(canvas.get(), number, 476, 40, 4, {0x89, 0xb4, 0xfa, 255});
    return canvas;
}

void save(const orvel_canvas* canvas, const std::string& path) {
    if (orvel_canvas_save_bmp_rgba(canvas, path.c_str()) == 0) return;
    std::fprintf(stderr, "screens: cannot write %s\n", path.c_str());
    std::exit(1);
}

/// Changes every pixel of a box by @p change.
void each(orvel_canvas* canvas, kit_box box, const std::function<void(orvel_color&)>& change) {
    for (int y = box.y; y < box.y + box.h; ++y) {
        for (int x = box.x; x < box.x + box.w; ++x) {
            orvel_color color = orvel_canvas_pixel_get(canvas, x, y);
            change(color);
            orvel_canvas_pixel(canvas, x, y, color);
        }
    }
}

void lighter(orvel_color& color, int steps) {
    for (unsigned char* channel : {&color.r, &color.g, &color.b}) {
        *channel = static_cast<unsigned char>(*channel < 128 ? *channel + steps : *channel - steps);
    }
}

struct Planted {
    const char* name;
    Change change;
};

const Planted kPlanted[] = {
    {"nothing", [](orvel_canvas*) {}},
    {"one pixel by one step of one channel",
     [](orvel_canvas* c) {
         each(c, {400, 240, 1, 1}, [](orvel_color& p) { p.g ^= 1; });
     }},
    {"every pixel by one step of each channel",
     [](orvel_canvas* c) {
         each(c, {0, 0, DASHBOARD_W, DASHBOARD_H}, [](orvel_color& p) { lighter(p, 1); });
     }},
    {"a box of 200 x 100 by 10 steps of each channel",
     [](orvel_canvas* c) {
         each(c, {300, 200, 200, 100}, [](orvel_color& p) { lighter(p, 10); });
     }},
    {"every pixel by 20 steps of each channel",
     [](orvel_canvas* c) {
         each(c, {0, 0, DASHBOARD_W, DASHBOARD_H}, [](orvel_color& p) { lighter(p, 20); });
     }},
    {"every pixel's alpha by 20 steps",
     [](orvel_canvas* c) {
         each(c, {0, 0, DASHBOARD_W, DASHBOARD_H}, [](orvel_color& p) { p.a = 235; });
     }},
    {"one pixel to white",
     [](orvel_canvas* c) {
         each(c, {400, 240, 1, 1}, [](orvel_color& p) { p = {255, 255, 255, 255}; });
     }},
    {"a dot of the accent colour at the end of a line",
     [](orvel_canvas* c) {
         orvel_canvas_pixel(c, 540, 477, {0x89, 0xb4, 0xfa, 255});
     }},
    {"a title one pixel further right",
     [](orvel_canvas* c) {
         CanvasPtr fresh = dashboard(1);
         each(c, {590, 8, 200, 20}, [](orvel_color&) {});
         for (int y = 8; y < 28; ++y) {
             for (int x = 600; x < 790; ++x) {
                 orvel_canvas_pixel(c, x + 1, y, orvel_canvas_pixel_get(fresh.get(), x, y));
             }
         }
     }},
};

}  // namespace

/// screens FOLDER
int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const std::string folder = argv[1];
    for (const char* name : {"/expected", "/actual", "/planted/expected", "/planted/actual"}) {
        std::filesystem::create_directories(folder + name);
    }
    for (int i = 0; i < kScreens; ++i) {
        const CanvasPtr canvas = dashboard(i);
        const std::string name = "/" + std::to_string(i) + ".bmp";
        save(canvas.get(), folder + "/expected" + name);
        if (i % kEvery == 0) orvel_canvas_line(canvas.get(), 100, 100, 300, 200, {255, 0, 0, 255});
        save(canvas.get(), folder + "/actual" + name);
    }
    for (const Planted& planted : kPlanted) {
        const CanvasPtr canvas = dashboard(1);
        const std::string name = std::string("/") + planted.name + ".bmp";
        save(canvas.get(), folder + "/planted/expected" + name);
        planted.change(canvas.get());
        save(canvas.get(), folder + "/planted/actual" + name);
    }
}
