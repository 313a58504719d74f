// The real window on a virtual display: a pointer moves and clicks, keys are typed, and pictures
// taken of the display must show, pixel by pixel, what the same input makes of the screen without
// a window.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <thread>

#include "live_screen.h"
#include "picture.h"
#include "support/files.h"
#include "support/picture.h"
#include "support/process.h"
#include "tools/png.h"

extern char** environ;

namespace {

using orvel_test::Finished;
using orvel_test::read_file;
using orvel_test::read_png;
using orvel_test::run;
using orvel_test::TempFolder;
using orvel_tools::Picture;

/// A program that runs until it is stopped.
class Background {
public:
    Background(const std::vector<std::string>& arguments, const std::string& output) {
        std::vector<char*> argv;
        for (const auto& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
        argv.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        constexpr int kCreate = O_WRONLY | O_CREAT | O_TRUNC;
        posix_spawn_file_actions_addopen(&actions, 1, output.c_str(), kCreate, 0600);
        posix_spawn_file_actions_addopen(&actions, 2, (output + ".error").c_str(), kCreate, 0600);
        if (posix_spawnp(&pid_, argv[0], &actions, nullptr, argv.data(), environ) != 0) pid_ = 0;
        posix_spawn_file_actions_destroy(&actions);
    }
    ~Background() { stop(); }
    Background(const Background&) = delete;
    Background& operator=(const Background&) = delete;

    /// Asks it to end; returns its exit status, -1 when the signal itself ended it.
    int stop() {
        int status = 0;
        if (pid_ == 0) return -1;
        kill(pid_, SIGTERM);
        waitpid(pid_, &status, 0);
        pid_ = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    pid_t pid_ = 0;
};

const std::string kProgram = ORVEL_BINARY_DIR "/examples/live_window";

/// The libraries behind a window keep some memory until the end, and unload themselves before a
/// leak could be told to be theirs. What the screen itself takes, live_screen_test watches.
void overlook_leaks() { setenv("LSAN_OPTIONS", "detect_leaks=0", 1); }

void pause(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

/// The parts of the window that stand still without input, and the one that never does.
constexpr kit_box kControls = {0, 0, SCREEN_W, 330};
constexpr kit_box kTank = {16, 332, 200, 60};
constexpr kit_box kChart = {234, 360, 390, 78};

bool equal_within(const Picture& a, const Picture& b, kit_box part) {
    for (int y = part.y; y < part.y + part.h; ++y) {
        for (int x = part.x; x < part.x + part.w; ++x) {
            const orvel_color &p = a.at(x, y), &q = b.at(x, y);
            if (p.r != q.r || p.g != q.g || p.b != q.b) return false;
        }
    }
    return true;
}

class LiveWindow : public ::testing::Test {
protected:
    void SetUp() override {
        overlook_leaks();
        setenv("SDL_VIDEODRIVER", "x11", 1);
        const std::string display = folder / "display";
        server = std::make_unique<Background>(
            std::vector<std::string>{"Xvfb", "-displayfd", "1", "-nolisten", "tcp", "-screen", "0",
                                     "800x600x24"},
            display);
        for (int i = 0; i < 200 && read_file(display).find('\n') == std::string::npos; ++i) {
            pause(50);
        }
        const std::string number = read_file(display);
        ASSERT_NE(number, "") << read_file(display + ".error");
        setenv("DISPLAY", (":" + number.substr(0, number.find('\n'))).c_str(), 1);
        start({kProgram, "--silent"});
    }

    void start(const std::vector<std::string>& command) {
        program.reset();
        program = std::make_unique<Background>(command, folder / "program");
        const Finished found = run({"timeout", "30", "xdotool", "search", "--sync", "--onlyvisible",
                                    "--name", "^Greenhouse$"});
        ASSERT_EQ(found.status, 0) << read_file(folder / "program.error");
        window = found.output.substr(0, found.output.find('\n'));
        screen_open(&model);
    }

    void xdotool(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "xdotool");
        const Finished done = run(arguments);
        EXPECT_EQ(done.status, 0) << done.error;
    }

    void move(int x, int y) {
        xdotool({"mousemove", "--window", window, std::to_string(x), std::to_string(y)});
        screen_move(&model, x, y);
    }

    void press(int x, int y) {
        move(x, y);
        xdotool({"mousedown", "1"});
        screen_press(&model, x, y);
    }

    void release() {
        xdotool({"mouseup", "1"});
        screen_release(&model);
    }

    void click(target what) {
        const kit_box at = place(&model, what);
        press(at.x + at.w / 2, at.y + at.h / 2);
        release();
    }

    void type(const std::string& text) {
        xdotool({"windowfocus", window, "type", "--delay", "40", text});
        screen_type(&model, text.c_str());
    }

    Picture photograph() {
        const std::string file = folder / "photograph.png";
        const Finished done = run({"import", "-window", window, file});
        EXPECT_EQ(done.status, 0) << done.error;
        return read_png(file);
    }

    /// What the model looks like, with a caret where it has one or without.
    Picture expected(bool caret) {
        screen copy = model;
        copy.ticks = caret ? 0 : 30;
        screen_draw(&copy, &paper, "");
        return orvel_tools::picture_of(paper.canvas);
    }

    /// Input takes its time to arrive, so the window has five seconds to show the model's pixels.
    void expect_shown(const std::string& after) {
        const Picture with = expected(true), without = expected(false);
        for (int i = 0; i < 25; ++i) {
            const Picture now = photograph();
            ASSERT_EQ(now.width, SCREEN_W);
            ASSERT_EQ(now.height, SCREEN_H);
            if ((equal_within(now, with, kControls) || equal_within(now, without, kControls)) &&
                equal_within(now, with, kTank)) {
                return;
            }
            pause(200);
        }
        const std::string kept = ORVEL_BINARY_DIR "/live-window-failure.png";
        run({"cp", folder / "photograph.png", kept});
        ADD_FAILURE() << "after " << after << " the window shows something else: " << kept;
    }

    TempFolder folder;
    std::unique_ptr<Background> server, program;
    std::string window;
    screen model;
    const orvel_test::CanvasPtr canvas = orvel_test::make_canvas(SCREEN_W, SCREEN_H);
    page paper = {canvas.get(), {}};
};

TEST_F(LiveWindow, ShowsThePixelsOfTheCanvas) { expect_shown("its start"); }

TEST_F(LiveWindow, AnswersThePointer) {
    move(300, 290);
    expect_shown("a pointer over a button");
    press(300, 290);
    expect_shown("a press");
    release();
    expect_shown("a release, with the tank a tenth emptier");
    press(450, 145);
    move(530, 200);
    expect_shown("a slider dragged");
    release();
    click(FAN);
    click(ALERT);
    click(PLUS);
    expect_shown("a toggle, a checkbox and a stepper clicked");
    click(ROW + 4);
    expect_shown("a plant selected");
    click(TAB + 1);
    click(FEED);
    expect_shown("a tab and a radio button chosen");
    click(THEME);
    expect_shown("a change of theme");
}

TEST_F(LiveWindow, AnswersTheKeyboard) {
    click(SEARCH);
    type("le");
    expect_shown("letters typed into the search field");
    xdotool({"key", "BackSpace"});
    screen_backspace(&model);
    expect_shown("one of them erased");
    click(ROW);
    click(TAB + 1);
    click(NOTE);
    type("Big pot");
    expect_shown("a note");
    xdotool({"key", "Tab"});
    screen_tab(&model);
    type("m");
    expect_shown("a change of field");
    xdotool({"key", "Return"});
    screen_leave(&model);
    expect_shown("the field left");
}

TEST_F(LiveWindow, MovesItsChartByItself) {
    const Picture before = photograph();
    for (int i = 0; i < 25; ++i) {
        pause(200);
        if (!equal_within(before, photograph(), kChart)) return;
    }
    ADD_FAILURE() << "the chart stood still for five seconds";
}

TEST_F(LiveWindow, EndsWithAReportOfItsTimeWhenItIsClosed) {
    pause(500);
    EXPECT_EQ(program->stop(), 0) << read_file(folder / "program.error");
    EXPECT_NE(read_file(folder / "program").find(" ms on average, "), std::string::npos);
    EXPECT_EQ(read_file(folder / "program.error"), "");
}

TEST_F(LiveWindow, GoesOnWhereNothingCanPlayItsClicks) {
    start({"env", "PATH=/nonexistent", kProgram});
    click(FAN);
    click(WATER);
    expect_shown("clicks that nobody hears");
    EXPECT_EQ(program->stop(), 0);
}

TEST(LiveWindowProgram, SaysInOneLineThatThereIsNoDisplay) {
    overlook_leaks();
    setenv("SDL_VIDEODRIVER", "x11", 1);
    setenv("DISPLAY", ":nowhere", 1);
    const Finished done = run({kProgram});
    EXPECT_EQ(done.status, 1);
    EXPECT_EQ(done.error.rfind("live_window: ", 0), 0u) << done.error;
    EXPECT_EQ(done.error.find('\n'), done.error.size() - 1) << done.error;
}

TEST(LiveWindowProgram, SaysWhatItsArgumentsAre) {
    for (const std::string wrong : {"--loud", "--frames", "regular.ttf"}) {
        const Finished done = run({kProgram, wrong});
        EXPECT_EQ(done.status, 2);
        EXPECT_EQ(done.error, "usage: live_window [--silent] [--frames N]\n");
    }
}

}  // namespace
