#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstring>
#include <string>

#include "core/state.h"
#include "support/child.h"
#include "support/files.h"
#include "support/picture.h"

namespace {

using namespace orvel_test;

// Read while the program is still being loaded, before any test can have changed it.
const bool kInitializedAtLoad = orvel::state().initialized;
const std::string kRootAtLoad = orvel::state().custom_resource_path;

constexpr const char* kInitLine = "[OrvelSDK] inizializzato (v0.1.0)\n";
constexpr const char* kCloseLine = "[OrvelSDK] chiuso\n";

class StateTest : public testing::Test {
protected:
    StateTest() {
        orvel::state().initialized = false;
        orvel_set_resource_path("");
    }
};

TEST_F(StateTest, AtLoadNothingIsInitialisedAndNoRootIsSet) {
    EXPECT_FALSE(kInitializedAtLoad);
    EXPECT_EQ(kRootAtLoad, "");
}

TEST_F(StateTest, InitReturnsZeroAndLogsItsLineOnTheErrorStreamOnly) {
    const Output output = captured([] { EXPECT_EQ(orvel_init(), 0); });
    EXPECT_EQ(output.error, kInitLine);
    EXPECT_EQ(output.output, "");
    EXPECT_TRUE(orvel::state().initialized);
}

TEST_F(StateTest, InitTwiceReturnsZeroBothTimesAndLogsOnce) {
    const Output output = captured([] {
        EXPECT_EQ(orvel_init(), 0);
        EXPECT_EQ(orvel_init(), 0);
    });
    EXPECT_EQ(output.error, kInitLine);
    EXPECT_TRUE(orvel::state().initialized);
}

TEST_F(StateTest, ShutdownWithoutInitWritesNothing) {
    const Output output = captured([] { orvel_shutdown(); });
    EXPECT_EQ(output.error, "");
    EXPECT_EQ(output.output, "");
    EXPECT_FALSE(orvel::state().initialized);
}

TEST_F(StateTest, ShutdownAfterInitLogsTheCloseLineOnce) {
    captured([] { orvel_init(); });
    const Output output = captured([] {
        orvel_shutdown();
        orvel_shutdown();
    });
    EXPECT_EQ(output.error, kCloseLine);
    EXPECT_EQ(output.output, "");
    EXPECT_FALSE(orvel::state().initialized);
}

TEST_F(StateTest, InitShutdownInitLogsTheInitLineTwiceAndTheCloseLineOnce) {
    const Output output = captured([] {
        orvel_init();
        orvel_shutdown();
        orvel_init();
    });
    EXPECT_EQ(output.error, std::string(kInitLine) + kCloseLine + kInitLine);
    EXPECT_EQ(output.output, "");
}

TEST_F(StateTest, EachLogLineIsOneWrite) {
    int ends[2];
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_DGRAM, 0, ends), 0);  // keeps writes apart
    ASSERT_EQ(in_child([&ends] {
                  dup2(ends[1], STDERR_FILENO);
                  orvel_init();
                  orvel_shutdown();
                  return 0;
              }),
              0);
    for (const char* expected : {kInitLine, kCloseLine}) {
        char line[200] = {};
        ASSERT_EQ(recv(ends[0], line, sizeof line - 1, MSG_DONTWAIT),
                  static_cast<ssize_t>(std::strlen(expected)));
        EXPECT_STREQ(line, expected);
    }
    char more;
    EXPECT_LT(recv(ends[0], &more, 1, MSG_DONTWAIT), 0);
    close(ends[0]);
    close(ends[1]);
}

TEST_F(StateTest, VersionIsTheSameStaticStringBeforeAndAfterInit) {
    const char* const before = orvel_version();
    EXPECT_STREQ(before, "0.1.0");
    captured([] { orvel_init(); });
    EXPECT_EQ(orvel_version(), before);
    captured([] { orvel_shutdown(); });
    EXPECT_EQ(orvel_version(), before);
    EXPECT_STREQ(ORVEL_VERSION, "0.1.0");
}

TEST_F(StateTest, SettingANullPathFailsAndKeepsTheRoot) {
    ASSERT_EQ(orvel_set_resource_path("/data/res"), 0);
    EXPECT_EQ(orvel_set_resource_path(nullptr), -1);
    EXPECT_EQ(orvel::state().custom_resource_path, "/data/res");
    EXPECT_EQ(orvel::resource_path(), "/data/res");
}

TEST_F(StateTest, SettingAnEmptyPathSucceedsAndClearsTheRoot) {
    ASSERT_EQ(orvel_set_resource_path("/data/res"), 0);
    EXPECT_EQ(orvel_set_resource_path(""), 0);
    EXPECT_EQ(orvel::state().custom_resource_path, "");
}

TEST_F(StateTest, TheRootIsCopied) {
    char path[] = "/first";
    ASSERT_EQ(orvel_set_resource_path(path), 0);
    std::strcpy(path, "/other");
    EXPECT_EQ(orvel::resource_path(), "/first");
}

TEST_F(StateTest, TheRootIsStoredUncheckedWithItsTrailingSlashes) {
    for (const char* path : {"/no/such/folder//", "relative/", ".", "/", " ", "con spazi/è"}) {
        EXPECT_EQ(orvel_set_resource_path(path), 0);
        EXPECT_EQ(orvel::state().custom_resource_path, path);
    }
}

TEST_F(StateTest, AVeryLongRootIsKeptWhole) {
    const std::string path(100000, 'x');
    EXPECT_EQ(orvel_set_resource_path(path.c_str()), 0);
    EXPECT_EQ(orvel::state().custom_resource_path, path);
}

TEST_F(StateTest, TheRootCanBeSetBeforeInitAndSurvivesAShutdown) {
    ASSERT_EQ(orvel_set_resource_path("/data/res"), 0);
    captured([] {
        orvel_init();
        orvel_shutdown();
    });
    EXPECT_EQ(orvel::resource_path(), "/data/res");
    captured([] { orvel_init(); });
    EXPECT_EQ(orvel::resource_path(), "/data/res");
    captured([] { orvel_shutdown(); });
}

TEST_F(StateTest, SettingTheRootLogsNothing) {
    const Output output = captured([] {
        orvel_set_resource_path("/data/res");
        orvel_set_resource_path(nullptr);
    });
    EXPECT_EQ(output.error + output.output, "");
}

void draw_something() {
    const auto canvas = make_canvas(12, 7);
    orvel_canvas_fill_rect(canvas.get(), 0, 0, 2, 1, kInk);
    orvel_text_draw(canvas.get(), "-", 3, 0, kInk);
    EXPECT_EQ(picture(canvas.get()),
              "##..#.......\n"
              "....#.......\n"
              "....#.......\n"
              "....#.......\n"
              "....#.......\n"
              "............\n"
              "............\n");
    EXPECT_EQ(orvel_text_width("-"), 5);
}

TEST_F(StateTest, CanvasAndTextWorkWithoutInitAndAfterShutdownAndLogNothing) {
    const Output before = captured(draw_something);
    EXPECT_EQ(before.error + before.output, "");
    captured([] {
        orvel_init();
        orvel_shutdown();
    });
    const Output after = captured(draw_something);
    EXPECT_EQ(after.error + after.output, "");
}

TEST_F(StateTest, ClosedStandardStreamsHarmNothing) {
    EXPECT_EQ(in_child([] {
                  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
                      close(descriptor);
                  }
                  if (orvel_init() != 0 || !orvel::state().initialized) return 1;
                  orvel_shutdown();
                  return orvel::state().initialized ? 2 : 0;
              }),
              0);
}

}  // namespace
