#include "workload.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>

#include "dashboard.h"
#include "screen.h"

namespace bench {
namespace {

constexpr int kPositions = 32;  // calls in one pass, each at another place

/// Numbers below @p bound, always the same ones.
struct Places {
    std::uint32_t state = 12345;
    int below(int bound) {
        state = state * 1664525 + 1013904223;
        return bound < 1 ? 0 : static_cast<int>((state >> 8) % static_cast<std::uint32_t>(bound));
    }
};

/// @p op, given at (0, 0), moved to places near the middle at which its @p w x @p h pixels are
/// inside the canvas: every alignment, but not more memory than the shape itself takes.
std::vector<Op> spread(Op op, int width, int height, int w, int h) {
    constexpr int kNear = 32;
    const int left = std::max(width - w - kNear, 0) / 2;
    const int top = std::max(height - h - kNear, 0) / 2;
    std::vector<Op> ops;
    Places places;
    for (int i = 0; i < kPositions; ++i) {
        Op moved = op;
        const int x = left + places.below(std::min(width - w + 1, kNear));
        const int y = top + places.below(std::min(height - h + 1, kNear));
        moved.x0 += x;
        moved.y0 += y;
        if (op.shape == Shape::line || op.shape == Shape::triangle) {
            moved.x1 += x;
            moved.y1 += y;
            moved.x2 += x;
            moved.y2 += y;
        }
        ops.push_back(moved);
    }
    return ops;
}

Op op(Shape shape, int x0, int y0, int x1 = 0, int y1 = 0, int x2 = 0, int y2 = 0) {
    return {shape, x0, y0, x1, y1, x2, y2, kInk, ""};
}

std::string times(int a, int b) { return std::to_string(a) + " × " + std::to_string(b); }

using Table = std::vector<Workload>;

void add_canvases(Table& table) {
    const int sizes[][2] = {{320, 240}, {1920, 1080}, {3840, 2160}};
    const Goal clear[] = {{0.7, 1.3}, {0.9, 1.3}, {1.1, 1.3}};
    for (int i = 0; i < 3; ++i) {
        const auto [w, h] = sizes[i];
        table.push_back({"create + destroy " + times(w, h), Task::create, w, h, {}, {1.0, 0}});
    }
    for (int i = 0; i < 3; ++i) {
        const auto [w, h] = sizes[i];
        table.push_back({"clear " + times(w, h), Task::clear, w, h, {}, clear[i]});
        table.back().counted = i == 0;
    }
}

/// A shape whose @p w x @p h pixels lie inside: small ones on a small canvas.
void add_inside(Table& table, const std::string& name, Op shape, int w, int h, Goal goal,
                bool counted = false) {
    const bool small = w < 240 && h < 240;
    const int width = small ? 320 : 1920;
    const int height = small ? 240 : 1080;
    table.push_back({name, Task::draw, width, height, spread(shape, width, height, w, h), goal});
    table.back().counted = counted;
}

void add_rectangles(Table& table) {
    add_inside(table, "pixel", op(Shape::pixel, 0, 0), 1, 1, {}, true);
    const int sizes[][2] = {{16, 16}, {100, 40}, {1000, 600}};
    const Goal fill[] = {{0.5, 1.6}, {0.9, 1.2}, {0.9, 1.2}};
    const Goal rect[] = {{1.0, 0}, {0.45, 1.3}, {1.0, 0}};
    for (int i = 0; i < 3; ++i) {
        const auto [w, h] = sizes[i];
        add_inside(table, "fill_rect " + times(w, h), op(Shape::fill, 0, 0, w, h), w, h, fill[i],
                   i == 1);
    }
    for (int i = 0; i < 3; ++i) {
        const auto [w, h] = sizes[i];
        add_inside(table, "rect " + times(w, h), op(Shape::rect, 0, 0, w, h), w, h, rect[i],
                   i == 1);
    }
}

void add_lines(Table& table) {
    for (const int n : {10, 100, 1000}) {
        const std::string length = std::to_string(n);
        const int end = n - 1;
        const bool long_one = n == 1000;
        const Goal goal = long_one ? Goal{1.0, 0} : Goal{0.65, 2.5};
        const Goal along = n == 10 ? Goal{0.65, 5} : goal;
        const bool counted = n == 100;
        add_inside(table, "line horizontal " + length, op(Shape::line, 0, 0, end, 0), n, 1, along,
                   counted);
        add_inside(table, "line vertical " + length, op(Shape::line, 0, 0, 0, end), 1, n, goal);
        add_inside(table, "line diagonal " + length, op(Shape::line, 0, 0, end, end), n, n, goal);
        add_inside(table, "line slanted " + length, op(Shape::line, 0, 0, end, end * 2 / 5), n, n,
                   goal, counted);
    }
}

/// Shapes that reach far out of the canvas, each call a column and a row further.
void add_outside(Table& table, const std::string& name, Op shape, int width, int height,
                 Goal goal) {
    std::vector<Op> ops;
    for (int i = 0; i < kPositions; ++i) {
        Op moved = shape;
        moved.x0 += i;
        moved.y0 += i;
        if (shape.shape == Shape::line) {
            moved.x1 += i;
            moved.y1 += i;
        }
        ops.push_back(moved);
    }
    table.push_back({name, Task::draw, width, height, std::move(ops), goal});
}

void add_circles(Table& table) {
    const int radii[] = {4, 16, 100, 500};
    const Goal discs[] = {{0.35, 6}, {0.3, 2.6}, {0.45, 1.3}, {0.65, 1.2}};
    for (int i = 0; i < 4; ++i) {
        const int r = radii[i];
        add_inside(table, "circle r = " + std::to_string(r), op(Shape::circle, r, r, r), 2 * r + 1,
                   2 * r + 1, {0.3, 1.2}, i == 1);
    }
    add_outside(table, "circle r = 500, three quarters outside", op(Shape::circle, 0, 0, 500), 1920,
                1080, {0.3, 0});
    for (int i = 0; i < 4; ++i) {
        const int r = radii[i];
        add_inside(table, "disc r = " + std::to_string(r), op(Shape::disc, r, r, r), 2 * r + 1,
                   2 * r + 1, discs[i], i == 1);
    }
    add_outside(table, "disc r = 500, three quarters outside", op(Shape::disc, 0, 0, 500), 1920,
                1080, {1.0, 0});
}

void add_triangles(Table& table) {
    for (const int width : {320, 3840}) {
        const Op small = op(Shape::triangle, 3, 0, 15, 6, 0, 15);
        const Op large = op(Shape::triangle, 100, 0, 499, 200, 0, 499);
        const std::string on = ", canvas " + std::to_string(width) + " wide";
        table.push_back({"triangle 16" + on,
                         Task::draw,
                         width,
                         600,
                         spread(small, width, 600, 16, 16),
                         {0.5, 8}});
        table.back().counted = true;
        table.push_back({"triangle 500" + on,
                         Task::draw,
                         width,
                         600,
                         spread(large, width, 600, 500, 500),
                         {0.7, 1.5}});
    }
}

void add_text(Table& table) {
    Op text = op(Shape::text, 0, 0);
    text.text = "Hello, 42!";
    add_inside(table, "text of 10", text, 60, 13, {0.2, 2.2}, true);
    text.text = "The quick brown fox jumps over the lazy dog, 0123456789, and it rests in a hole.";
    table.push_back(
        {"text of 80", Task::draw, 640, 240, spread(text, 640, 240, 640, 13), {0.2, 2}});
}

/// What the dashboard of the examples writes, as it is being drawn.
std::vector<Op>* s_words = nullptr;

int note_words(orvel_canvas*, const kit_face* face, const char* text, kit_box box, kit_align align,
               orvel_color color) {
    const struct {
        const kit_face* face;
        int size, bold;
    } faces[] = {{kit_sans_11(), 11, 0}, {kit_bold_11(), 11, 1}, {kit_sans_12(), 12, 0},
                 {kit_bold_12(), 12, 1}, {kit_bold_18(), 18, 1}, {kit_sans_40(), 40, 0}};
    const int spare = box.w - kit_text_width(face, text);
    const int moved = align == KIT_CENTRE ? spare / 2 : align == KIT_RIGHT ? spare : 0;
    for (const auto& known : faces) {
        if (known.face != face) continue;
        Op words = op(Shape::words, box.x + moved, box.y + (box.h + kit_face_cap(face)) / 2,
                      known.size, known.bold);
        words.color = color;
        words.text = text;
        s_words->push_back(words);
    }
    return 0;
}

std::vector<Op> words_of_the_dashboard() {
    std::vector<Op> words;
    s_words = &words;
    orvel_canvas* const canvas = orvel_canvas_create(DASHBOARD_W, DASHBOARD_H);
    draw_dashboard(canvas, note_words);
    orvel_canvas_destroy(canvas);
    return words;
}

void add_words(Table& table) {
    Op words = op(Shape::words, 0, 10, 12);
    words.text = "Größe 42 €";
    add_inside(table, "words of 10 letters", words, 80, 16, {1.0, 0}, true);
    const char* const lines[] = {
        "A screen is drawn on a canvas, in the colours of a theme, and saved",
        "as a picture. What is drawn later lies on top. A widget takes any",
        "theme, so the primary button, the list without lines and the charts",
        "of two colours are the same widgets with a changed copy of it, and",
        "pictures are copied from one place or canvas to another. Nothing is",
        "ever blended, scaled or smoothed: every pixel is a promise."};
    std::vector<Op> paragraph;
    for (const char* const line : lines) {
        words.x0 = 8;
        words.y0 = 20 + 15 * static_cast<int>(paragraph.size());
        words.text = line;
        paragraph.push_back(words);
    }
    table.push_back({"paragraph of 6 lines", Task::words, 640, 240, paragraph, {1.0, 0}});
    table.back().counted = true;
    table.push_back({"all words of a dashboard",
                     Task::words,
                     DASHBOARD_W,
                     DASHBOARD_H,
                     words_of_the_dashboard(),
                     {1.0, 0}});
    table.push_back({"dashboard of 800 × 480", Task::dashboard, DASHBOARD_W, DASHBOARD_H});
}

void add_files(Table& table, const std::string& folder) {
    const int sizes[][2] = {{320, 240}, {1920, 1080}};
    for (const int depth : {24, 32}) {
        for (const auto [w, h] : sizes) {
            Workload work = {"save BMP " + std::to_string(depth) + " bits " + times(w, h),
                             Task::save,
                             w,
                             h,
                             {},
                             {1.0, 1.8}};
            work.size = depth;
            work.file = folder + "/saved.bmp";
            table.push_back(work);
        }
    }
}

/// A colourful picture of @p side pixels. Of 32 bits, it is marked as plain, which everybody reads.
void make_picture(const std::string& path, int side, int depth) {
    orvel_canvas* const canvas = orvel_canvas_create(side, side);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const auto byte = [](int value) { return static_cast<unsigned char>(value | 64); };
            orvel_canvas_pixel(canvas, x, y, {byte(x), byte(y), byte(x ^ y), 255});
        }
    }
    const auto save = depth == 24 ? orvel_canvas_save_bmp : orvel_canvas_save_bmp_rgba;
    save(canvas, path.c_str());
    orvel_canvas_destroy(canvas);
    std::fstream(path, std::ios::in | std::ios::out | std::ios::binary).seekp(30).put(0);
}

/// Their files lie where those of users do, on a disk, and are read from the system's memory of it.
/// A file system in memory takes several times as long to tell that there is no file of a name.
void add_bitmaps(Table& table) {
    const std::string folder = ORVEL_BENCH_PICTURES;
    mkdir(folder.c_str(), 0777);
    mkdir((folder + "/Icons").c_str(), 0777);
    orvel_set_resource_path(folder.c_str());
    for (const int side : {64, 1024}) {
        const int width = side == 64 ? 320 : 1920;
        const int height = side == 64 ? 240 : 1080;
        for (const int depth : {24, 32}) {
            const std::string name = std::to_string(side) + "x" + std::to_string(depth);
            Workload work = {"bitmap " + times(side, side) + ", " + std::to_string(depth) + " bits",
                             Task::bitmap,
                             width,
                             height,
                             {},
                             {1.0, 2.8}};
            work.size = depth;
            work.file = folder + "/Icons/" + name + ".bmp";
            work.resource = name + ".bmp";
            work.x = 20;
            work.y = 30;
            make_picture(work.file, side, depth);
            table.push_back(work);
            work.name += ", mostly outside";
            work.goal = {0.2, 2};
            work.x = width - 8;
            work.y = height - 8;
            table.push_back(work);
        }
        Workload bare = table[table.size() - 4];
        bare.name += ", by a bare name";
        bare.goal = {1.2, 0};
        bare.resource.resize(bare.resource.find('.'));
        table.push_back(bare);
    }
}

/// The calls of one recorded scene.
std::vector<Op> recorded(const std::string& scene) {
    std::ifstream file(ORVEL_BENCH_SCENES);
    std::vector<Op> ops;
    std::string line;
    while (std::getline(file, line) && line != "scene " + scene) {
    }
    while (std::getline(file, line) && line.rfind("scene ", 0) != 0) {
        std::istringstream words(line);
        int shape, r, g, b, a;
        Op op;
        words >> shape >> op.x0 >> op.y0 >> op.x1 >> op.y1 >> op.x2 >> op.y2 >> r >> g >> b >> a;
        words.get();  // the space before the text
        std::getline(words, op.text);
        const auto byte = [](int value) { return static_cast<unsigned char>(value); };
        op.shape = static_cast<Shape>(shape);
        op.color = {byte(r), byte(g), byte(b), byte(a)};
        ops.push_back(op);
    }
    if (!ops.empty()) return ops;
    std::cerr << "bench: no scene \"" << scene << "\" in " << ORVEL_BENCH_SCENES << '\n';
    std::exit(1);
}

void add_scenes(Table& table) {
    const Goal goals[] = {{0.35, 6}, {0.2, 4}, {0.2, 2.6}};
    for (int i = 0; i < 3; ++i) {
        const int size = 16 << i;
        const std::string name = "icons " + std::to_string(size);
        table.push_back({"68 " + name, Task::icons, kIconCanvasWidth, kIconCanvasHeight,
                         recorded(name), goals[i]});
        table.back().size = size;
        table.back().counted = size == 32;
    }
    const std::vector<Op> screen = recorded("screen");
    table.push_back({"screen of 18 widgets, redrawn",
                     Task::redraw,
                     kScreenWidth,
                     kScreenHeight,
                     screen,
                     {0.15, 1.6}});
    table.back().counted = true;
    table.push_back({"screen of 18 widgets, rebuilt and drawn",
                     Task::rebuild,
                     kScreenWidth,
                     kScreenHeight,
                     screen,
                     {1.0, 0}});
    table.push_back({"tone of one second", Task::tone, 1, 1});
}

}  // namespace

std::vector<Workload> workloads(const std::string& folder) {
    Table table;
    add_canvases(table);
    add_rectangles(table);
    add_lines(table);
    add_outside(table, "line from far left to far right", op(Shape::line, -20000, 20, 20000, 150),
                320, 240, {0.8, 0});
    add_outside(table, "line from far above to far below", op(Shape::line, 100, -20000, 180, 20000),
                320, 240, {0.8, 0});
    add_outside(table, "line wholly outside", op(Shape::line, 400, 10, 600, 200), 320, 240,
                {0.7, 0});
    add_circles(table);
    add_triangles(table);
    add_text(table);
    add_words(table);
    add_files(table, folder);
    add_bitmaps(table);
    add_scenes(table);
    return table;
}

}  // namespace bench
