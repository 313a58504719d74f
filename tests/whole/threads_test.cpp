// Many threads in the library at once. What they may share is what the header says; the build with
// the thread sanitizer sees every access.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "support/files.h"
#include "support/picture.h"
#include "whole/sweep.h"
#include "widgets/distinct_theme.h"
#include "widgets/kinds.h"

namespace {

using namespace orvel_test;

constexpr int kThreads = 8;
using Results = std::vector<std::string>;

/// Calls @p work with 0 ... 7, each in a thread of its own, all at the same time.
template <typename Work>
void in_threads(const Work& work) {
    std::atomic<int> arrived{0};
    std::vector<std::thread> threads;
    for (int number = 0; number < kThreads; ++number) {
        threads.emplace_back([&arrived, &work, number] {
            ++arrived;
            while (arrived < kThreads) std::this_thread::yield();
            work(number);
        });
    }
    for (std::thread& thread : threads) thread.join();
}

void add(Results& results, const std::string& name, std::uint64_t sum) {
    results.push_back(name + ' ' + std::to_string(sum));
}

void widgets(Results& results, const orvel_theme& theme) {
    for (const WidgetEdge& edge : widget_edges()) {
        const CanvasPtr canvas = make_canvas(edge.width, edge.height);
        const WidgetPtr widget(edge.make(canvas.get(), &theme));
        orvel_widget_draw(widget.get());
        add(results, edge.name, checksum(canvas.get()));
    }
    const CanvasPtr canvas = make_canvas(60, 20);
    const WidgetPtr chart(orvel_widget_bars(canvas.get(), &theme, 0, 0, 60, 20));
    for (int i = 1; i < 20; ++i) {
        const std::vector<double> values(static_cast<std::size_t>(i), 1.0 / i);
        orvel_widget_set_data(chart.get(), values.data(), i);
        orvel_widget_set_value(chart.get(), 1.0 / i);
        orvel_widget_set_amount(chart.get(), i);
        orvel_widget_set_hover(chart.get(), i % 2);
        orvel_widget_set_active(chart.get(), i % 2);
        orvel_widget_draw(chart.get());
        add(results, "chart", checksum(canvas.get()));
    }
}

void icons(Results& results) {
    int count = 0;
    const char** const names = orvel_icon_list(&count);
    for (int i = 0; i < count; ++i) {
        for (const int size : {7, 16, 33}) {
            const CanvasPtr canvas = make_canvas(40, 40);
            const std::string name = names[i];
            orvel_draw_icon(canvas.get(), name.c_str(), 2, 2, size, kInk);
            add(results, name, checksum(canvas.get()));
            orvel_draw_icon_ex(canvas.get(), name.c_str(), 3, 1, size, {9, 8, 7, 255}, kInk,
                               kBlack);
            add(results, name, checksum(canvas.get()));
        }
    }
}

void shapes_and_text(Results& results) {
    for (const Primitive& primitive :
         {kPixel, kClear, kLine, kRect, kFillRect, kCircle, kDisc, kTriangle, kText}) {
        for (std::uint64_t number = 0; number < 100; ++number) {
            const DrawingCall call = numbered_call(primitive, number);
            const CanvasPtr canvas = make_canvas(call.width, call.height);
            primitive.library(canvas.get(), call);
            add(results, primitive.name, checksum(canvas.get()));
        }
    }
}

/// Saves and loads files whose names begin with @p name, under the resource root @p root.
void files(Results& results, const TempFolder& root, const std::string& name) {
    const CanvasPtr picture = make_canvas(40, 30);
    orvel_draw_icon(picture.get(), "world", 2, 2, 26, {200, 100, 50, 128});
    const std::string opaque = root / ("Icons/" + name + "-24.bmp");
    const std::string clear = root / ("Icons/" + name + "-32.bmp");
    add(results, "save 24",
        static_cast<unsigned>(orvel_canvas_save_bmp(picture.get(), opaque.c_str())));
    add(results, "save 32",
        static_cast<unsigned>(orvel_canvas_save_bmp_rgba(picture.get(), clear.c_str())));
    results.push_back(read_file(opaque));
    results.push_back(read_file(clear));
    for (const char* depth : {"-24", "-32"}) {
        const CanvasPtr canvas = make_canvas(50, 50);
        orvel_icon_draw_bitmap(canvas.get(), (name + depth).c_str(), 5, 5);
        add(results, depth, checksum(canvas.get()));
    }
    const orvel_theme saved = distinct_theme();
    orvel_theme_save(&saved, (name + ".json").c_str());
    results.push_back(read_file(root / ("UI/" + name + ".json")));
    orvel_theme loaded;
    orvel_theme_light(&loaded);
    orvel_theme_load(&loaded, name.c_str());
    widgets(results, loaded);
}

class ThreadsTest : public testing::Test {
protected:
    ThreadsTest() {
        write_file(root_ / "Icons/keep", "");
        write_file(root_ / "UI/keep", "");
        orvel_set_resource_path(root_.path().c_str());
    }
    ~ThreadsTest() override { orvel_set_resource_path(""); }

    /// What a thread sees that has a canvas, a theme and widgets of its own.
    Results seen(const std::string& name) const {
        Results results;
        orvel_theme theme;
        orvel_theme_default(&theme);
        widgets(results, theme);
        orvel_theme_light(&theme);
        widgets(results, theme);
        icons(results);
        shapes_and_text(results);
        files(results, root_, name);
        return results;
    }

    const TempFolder root_;
};

TEST_F(ThreadsTest, EightWithTheirOwnCanvasThemeAndWidgetsSeeWhatOneAloneSees) {
    const Results alone = seen("alone");
    ASSERT_GT(alone.size(), 1500u);
    std::vector<Results> together(kThreads);
    in_threads([&](int number) {
        together[static_cast<std::size_t>(number)] = seen("thread" + std::to_string(number));
    });
    for (const Results& results : together) EXPECT_EQ(results, alone);
}

TEST_F(ThreadsTest, EightMayDrawFromOneThemeThatNobodyChanges) {
    const orvel_theme theme = distinct_theme();
    Results alone;
    widgets(alone, theme);
    std::vector<Results> together(kThreads);
    in_threads([&](int number) { widgets(together[static_cast<std::size_t>(number)], theme); });
    for (const Results& results : together) EXPECT_EQ(results, alone);
}

TEST_F(ThreadsTest, EightMayReadOneCanvasThatNobodyDrawsOn) {
    const CanvasPtr canvas = make_canvas(64, 64);
    orvel_draw_icon(canvas.get(), "gift", 0, 0, 64, kInk);
    const std::uint64_t sum = checksum(canvas.get());
    std::vector<std::uint64_t> sums(kThreads);
    std::vector<std::string> paths(kThreads);
    in_threads([&](int number) {
        const auto i = static_cast<std::size_t>(number);
        paths[i] = root_ / std::to_string(number);
        sums[i] = checksum(canvas.get());
        orvel_canvas_save_bmp(canvas.get(), paths[i].c_str());
    });
    EXPECT_EQ(sums, std::vector<std::uint64_t>(kThreads, sum));
    const std::string bytes = read_file(paths[0]);
    EXPECT_EQ(bytes.size(), 54u + 64 * 64 * 3);
    for (const std::string& path : paths) EXPECT_EQ(read_file(path), bytes);
}

TEST_F(ThreadsTest, EightMayReadTheSameFilesWhileTheRootStays) {
    const CanvasPtr icon = make_canvas(8, 8);
    orvel_canvas_line(icon.get(), 0, 0, 7, 7, kInk);
    orvel_canvas_save_bmp(icon.get(), (root_ / "Icons/slash.bmp").c_str());
    const orvel_theme saved = distinct_theme();
    ASSERT_EQ(orvel_theme_save(&saved, "mine.json"), 0);
    std::vector<std::uint64_t> sums(kThreads);
    in_threads([&](int number) {
        const CanvasPtr canvas = make_canvas(8, 8);
        orvel_icon_draw_bitmap(canvas.get(), "slash", 0, 0);
        orvel_theme theme;
        orvel_theme_default(&theme);
        orvel_theme_load(&theme, "mine");
        orvel_canvas_pixel(canvas.get(), 0, 7, theme.error);
        sums[static_cast<std::size_t>(number)] = checksum(canvas.get());
    });
    orvel_canvas_pixel(icon.get(), 0, 7, saved.error);
    EXPECT_EQ(sums, std::vector<std::uint64_t>(kThreads, checksum(icon.get())));
}

// What follows does one thing a thousand times, so that threads which shared a buffer meet in it.
constexpr int kTurns = 1000;

/// Nine colours that no other thread has.
orvel_theme colours_of(int number) {
    orvel_theme theme;
    auto* const bytes = reinterpret_cast<unsigned char*>(&theme);
    for (std::size_t i = 0; i < sizeof theme; ++i) {
        bytes[i] = static_cast<unsigned char>(i % 4 == 3 ? 255 : 28 * number + static_cast<int>(i));
    }
    return theme;
}

/// A theme file of more than two of the blocks in which files are read, with keys in each.
std::string long_theme(const orvel_theme& theme) {
    const char* const keys[] = {"background", "surface",      "text",        "accent", "border",
                                "button",     "button_hover", "button_text", "error"};
    std::string text;
    for (std::size_t i = 0; i < 9; ++i) {
        orvel_color color;
        std::memcpy(&color, reinterpret_cast<const char*>(&theme) + i * sizeof color, sizeof color);
        char line[64];
        std::snprintf(line, sizeof line, "\"%s\": \"#%02x%02x%02x\",", keys[i], color.r, color.g,
                      color.b);
        text += line + std::string(1000, ' ');
    }
    return text;
}

TEST_F(ThreadsTest, EightThatLoadLongThemesOfTheirOwnEachGetTheirNineColours) {
    std::vector<int> wrong(kThreads);
    in_threads([&](int number) {
        const orvel_theme expected = colours_of(number);
        const std::string name = "long" + std::to_string(number) + ".json";
        write_file(root_ / ("UI/" + name), long_theme(expected));
        for (int turn = 0; turn < kTurns; ++turn) {
            orvel_theme theme = {};
            orvel_theme_load(&theme, name.c_str());
            wrong[static_cast<std::size_t>(number)] +=
                std::memcmp(&theme, &expected, sizeof theme) != 0;
        }
    });
    EXPECT_EQ(wrong, std::vector<int>(kThreads));
}

TEST_F(ThreadsTest, EightThatDrawBitmapsOfTheirOwnEachSeeTheirs) {
    std::vector<int> wrong(kThreads);
    in_threads([&](int number) {
        // Two blocks of rows, of which the canvas shows the first column.
        const auto tall = make_canvas(200, 150);
        orvel_canvas_clear(tall.get(), colours_of(number).accent);
        const std::string name = "tall" + std::to_string(number) + ".bmp";
        orvel_canvas_save_bmp(tall.get(), (root_ / ("Icons/" + name)).c_str());
        const auto canvas = make_canvas(1, 150);
        orvel_canvas_clear(canvas.get(), colours_of(number).accent);
        const std::uint64_t expected = checksum(canvas.get());
        for (int turn = 0; turn < kTurns; ++turn) {
            orvel_canvas_clear(canvas.get(), kBlack);
            orvel_icon_draw_bitmap(canvas.get(), name.c_str(), 0, 0);
            wrong[static_cast<std::size_t>(number)] += checksum(canvas.get()) != expected;
        }
    });
    EXPECT_EQ(wrong, std::vector<int>(kThreads));
}

/// The checksum of a text, in a place and on a canvas of a width that no other thread has.
std::uint64_t text_of(int number) {
    const std::string text(static_cast<std::size_t>(20 - number), static_cast<char>('A' + number));
    const auto canvas = make_canvas(120 + number, 9);
    for (int again = 0; again < 200; ++again) {
        orvel_text_draw(canvas.get(), text.c_str(), number - 3, number % 3, kInk);
    }
    return checksum(canvas.get());
}

TEST_F(ThreadsTest, EightThatWriteTextsOfTheirOwnEachSeeTheirs) {
    std::vector<std::uint64_t> alone;
    for (int number = 0; number < kThreads; ++number) alone.push_back(text_of(number));
    std::vector<int> wrong(kThreads);
    in_threads([&](int number) {
        for (int turn = 0; turn < kTurns; ++turn) {
            wrong[static_cast<std::size_t>(number)] +=
                text_of(number) != alone[static_cast<std::size_t>(number)];
        }
    });
    EXPECT_EQ(wrong, std::vector<int>(kThreads));
}

/// The bytes of a picture that is no other thread's, saved with or without alpha to @p path.
std::string saved_by(int number, bool alpha, const std::string& path) {
    const auto canvas = make_canvas(31 + number, 40);
    orvel_canvas_clear(canvas.get(), colours_of(number).error);
    (alpha ? orvel_canvas_save_bmp_rgba : orvel_canvas_save_bmp)(canvas.get(), path.c_str());
    const std::string bytes = read_file(path);
    std::remove(path.c_str());
    return bytes;
}

TEST_F(ThreadsTest, EightThatSavePicturesOfTheirOwnEachFindTheirs) {
    for (const bool alpha : {false, true}) {
        std::vector<std::string> alone;
        for (int number = 0; number < kThreads; ++number) {
            alone.push_back(saved_by(number, alpha, root_ / "alone"));
        }
        std::vector<int> wrong(kThreads);
        in_threads([&](int number) {
            const auto i = static_cast<std::size_t>(number);
            const std::string path = root_ / std::to_string(number);
            for (int turn = 0; turn < kTurns; ++turn) {
                wrong[i] += saved_by(number, alpha, path) != alone[i];
            }
        });
        EXPECT_EQ(wrong, std::vector<int>(kThreads)) << alpha;
    }
}

TEST_F(ThreadsTest, OneMayKeepTheLifecycleAndTheSoundWhileTheOthersDraw) {
    Results alone;
    icons(alone);
    std::vector<Results> together(kThreads);
    const Output output = captured([&] {
        in_threads([&](int number) {
            if (number > 0) return icons(together[static_cast<std::size_t>(number)]);
            for (int i = 0; i < 50; ++i) {
                orvel_init();
                orvel_set_resource_path(root_.path().c_str());
                orvel_play_sound("missing");
                orvel_play_music("missing");
                orvel_stop_music();
                orvel_shutdown();
            }
        });
    });
    for (std::size_t i = 1; i < kThreads; ++i) EXPECT_EQ(together[i], alone);
    std::size_t lines = 0;
    for (const char c : output.error) lines += c == '\n';
    EXPECT_EQ(lines, 200u) << "start, two that are missing, end";
}

TEST_F(ThreadsTest, ACanvasWithItsWidgetsMayPassFromThreadToThread) {
    const orvel_theme theme = distinct_theme();
    CanvasPtr canvas;
    WidgetPtr button;
    std::thread([&] {
        canvas = make_canvas(30, 20);
        button.reset(orvel_widget_button(canvas.get(), &theme, "Ok", 1, 1, 28, 18));
    }).join();
    std::thread([&] { orvel_widget_set_hover(button.get(), 1); }).join();
    std::thread([&] { orvel_widget_draw(button.get()); }).join();
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 2, 2), theme.button_hover);
    std::thread([&] {
        button.reset();
        canvas.reset();
    }).join();
}

}  // namespace
