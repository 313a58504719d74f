// The real window on a virtual display: a pointer moves and clicks, keys are typed, and pictures
// taken of the display must show, pixel by pixel, what the same input makes of the screen without
// a window.
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "greenhouse.h"
#include "picture.h"
#include "support/display.h"
#include "support/picture.h"
#include "support/process.h"
#include "tools/png.h"

namespace {

using orvel_test::Background;
using orvel_test::Display;
using orvel_test::Finished;
using orvel_test::pause;
using orvel_test::read_file;
using orvel_test::read_png;
using orvel_test::run;
using orvel_test::TempFolder;
using orvel_tools::Picture;

const std::string kProgram = ORVEL_BINARY_DIR "/examples/live_window";

/// The parts of the window that stand still without input, and the one that never does.
constexpr kit_box kLeft = {0, 0, 226, 480}, kUpper = {226, 0, 414, 348};
constexpr kit_box kChart = {234, 352, 390, 86};

bool equal_within(const Picture& a, const Picture& b, kit_box part) {
    for (int y = part.y; y < part.y + part.h; ++y) {
        for (int x = part.x; x < part.x + part.w; ++x) {
            const orvel_color &p = a.at(x, y), &q = b.at(x, y);
            if (p.r != q.r || p.g != q.g || p.b != q.b) return false;
        }
    }
    return true;
}

struct CloseScreen {
    void operator()(kit_screen* screen) const { kit_screen_close(screen); }
};

class LiveWindow : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(display.error(), "");
        model.reset(kit_screen_open(OWN_SCENE, nullptr, nullptr, nullptr, 0));
        greenhouse_open(&own, model.get());
        program =
            std::make_unique<Background>(std::vector<std::string>{kProgram}, folder / "program");
        ASSERT_TRUE(display.find("Greenhouse")) << read_file(folder / "program.error");
    }

    void send(kit_screen_event event) {
        kit_change change = {};
        kit_screen_send(model.get(), &event, 0);
        while (kit_screen_next(model.get(), &change) == 1) {
            greenhouse_take(&own, model.get(), &change);
        }
    }

    void at(int kind, int x, int y) {
        kit_screen_event event = {};
        event.kind = kind;
        event.x = x;
        event.y = y;
        send(event);
    }

    void move(int x, int y) {
        display.move(x, y);
        at(KIT_EVENT_MOVE, x, y);
    }

    void press(int x, int y) {
        move(x, y);
        display.press(x, y);
        at(KIT_EVENT_PRESS, x, y);
    }

    void release(int x, int y) {
        display.release();
        at(KIT_EVENT_RELEASE, x, y);
    }

    void click(const char* id) {
        kit_box box = {};
        ASSERT_EQ(kit_screen_box(model.get(), id, &box), 0) << id;
        const int x = box.x + box.w / 2, y = box.y + box.h / 2;
        press(x, y);
        release(x, y);
    }

    Picture photograph() {
        display.photograph(folder / "photograph.png");
        return read_png(folder / "photograph.png");
    }

    /// Input takes its time to arrive, so the window has five seconds to show the model's pixels.
    void expect_shown(const std::string& after) {
        const auto canvas = orvel_test::make_canvas(640, 480);
        kit_screen_expose(model.get(), nullptr);
        ASSERT_EQ(kit_screen_draw(model.get(), canvas.get(), nullptr), 0);
        const Picture expected = orvel_tools::picture_of(canvas.get());
        for (int i = 0; i < 25; ++i) {
            const Picture now = photograph();
            ASSERT_EQ(now.width, 640);
            ASSERT_EQ(now.height, 480);
            if (equal_within(now, expected, kLeft) && equal_within(now, expected, kUpper)) return;
            pause(200);
        }
        const std::string kept = ORVEL_BINARY_DIR "/live-window-failure.png";
        run({"cp", folder / "photograph.png", kept});
        ADD_FAILURE() << "after " << after << " the window shows something else: " << kept;
    }

    TempFolder folder;
    Display display;
    std::unique_ptr<Background> program;
    std::unique_ptr<kit_screen, CloseScreen> model;
    greenhouse own = {};
};

TEST_F(LiveWindow, ShowsThePixelsOfTheScreen) { expect_shown("its start"); }

TEST_F(LiveWindow, AnswersThePointer) {
    move(300, 317);
    expect_shown("a pointer over a button");
    press(300, 317);
    expect_shown("a press");
    move(300, 340);
    expect_shown("a drag off it");
    release(300, 340);
    expect_shown("a release that does nothing");
    click("fan");
    click("alert");
    expect_shown("a toggle and a checkbox clicked");
    click("row[3]");
    expect_shown("a plant selected");
    click("tab");
    expect_shown("another tab");
    click("light");
    expect_shown("a change of theme");
}

TEST_F(LiveWindow, AnswersKeysAndTheWheel) {
    const auto type = [this](const char* name, int key, unsigned modifiers) {
        display.key(name);
        kit_screen_event event = {};
        event.kind = KIT_EVENT_KEY;
        event.key = key;
        event.modifiers = modifiers;
        send(event);
    };
    move(100, 149);
    display.wheel(true);
    kit_screen_event wheel = {};
    wheel.kind = KIT_EVENT_WHEEL;
    wheel.x = 100;
    wheel.y = 149;
    wheel.dy = -120;
    send(wheel);
    expect_shown("a turn of the wheel");
    type("Tab", KIT_KEY_TAB, 0);
    type("Tab", KIT_KEY_TAB, 0);
    expect_shown("two tabs");
    type("Down", KIT_KEY_DOWN, 0);
    type("Page_Down", KIT_KEY_PAGE_DOWN, 0);
    expect_shown("other keys");
    type("shift+Tab", KIT_KEY_TAB, KIT_MOD_SHIFT);
    type("space", ' ', 0);
    expect_shown("a tab backwards, and a press");
}

TEST_F(LiveWindow, DoesTheHostsOwnPart) {
    click("water");
    EXPECT_STREQ(kit_screen_get(model.get(), "tank"), "70");
    for (int i = 0; i < 30; ++i) greenhouse_tick(&own, model.get());
    EXPECT_STREQ(kit_screen_get(model.get(), "pumping"), "false");
    expect_shown("water from the tank, when the pump has stopped");
    click("refill");
    EXPECT_STREQ(kit_screen_get(model.get(), "tank"), "100");
    expect_shown("a refill");
}

TEST_F(LiveWindow, MovesItsChartByItself) {
    const Picture before = photograph();
    for (int i = 0; i < 25; ++i) {
        pause(200);
        if (!equal_within(before, photograph(), kChart)) return;
    }
    ADD_FAILURE() << "the chart stood still for five seconds";
}

TEST_F(LiveWindow, EndsWhenItIsClosed) {
    EXPECT_EQ(program->stop(), 0) << read_file(folder / "program.error");
    EXPECT_EQ(read_file(folder / "program.error"), "");
}

TEST(LiveWindowProgram, SaysInOneLineThatThereIsNoDisplay) {
    setenv("LSAN_OPTIONS", "detect_leaks=0", 1);
    setenv("SDL_VIDEODRIVER", "x11", 1);
    setenv("DISPLAY", ":nowhere", 1);
    const Finished done = run({kProgram});
    EXPECT_EQ(done.status, 1);
    EXPECT_EQ(done.error.rfind("live_window: ", 0), 0u) << done.error;
    EXPECT_EQ(done.error.find('\n'), done.error.size() - 1) << done.error;
}

TEST(LiveWindowProgram, SaysWhyThereIsNoScene) {
    const Finished done = run({kProgram, "/nonexistent/scene.json"});
    EXPECT_EQ(done.status, 1);
    EXPECT_EQ(done.error, "live_window: /nonexistent/scene.json: the file cannot be read\n");
}

}  // namespace
