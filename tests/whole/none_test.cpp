// The library of a platform that has nothing but standard C++: no sound, no processes, and the
// files of standard C.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <sstream>
#include <string>

#include "support/bitmap_files.h"
#include "support/picture.h"
#include "support/process.h"
#include "widgets/distinct_theme.h"

namespace {

using namespace orvel_test;

class NoneTest : public BitmapTest {
protected:
    void SetUp() override {
        Dl_info info = {};
        dladdr(reinterpret_cast<void*>(orvel_play_tone), &info);
        ASSERT_NE(std::string(info.dli_fname).find("OrvelNone"), std::string::npos);
        BitmapTest::SetUp();
        write_file(root_ / "Sounds/click.wav", "a sound");
        write_file(root_ / "Music/track.wav", "a track");
    }

    /// What @p play writes to the standard error stream when it is refused.
    static std::string refused(int (*play)(const char*), const char* name) {
        return captured([=] { EXPECT_EQ(play(name), -1); }).error;
    }
};

TEST_F(NoneTest, NothingPlaysAndTheLinesAreThoseOfEveryPlatform) {
    EXPECT_EQ(refused(orvel_play_sound, "click"),
              "[OrvelSDK] suono: " + (root_ / "Sounds/click.wav") + "\n");
    EXPECT_EQ(refused(orvel_play_sound, "missing"),
              "[OrvelSDK] suono non trovato: " + (root_ / "Sounds/missing") + "\n");
    EXPECT_EQ(refused(orvel_play_music, "track.wav"),
              "[OrvelSDK] musica: " + (root_ / "Music/track.wav") + "\n");
    const Output tone = captured([] { EXPECT_EQ(orvel_play_tone(440.0, 100), -1); });
    EXPECT_EQ(tone.error, "[OrvelSDK] tone: 440 Hz x 100 ms\n");
    EXPECT_EQ(captured(orvel_stop_music).error, "");
}

TEST_F(NoneTest, ATonesFileIsNotWritten) {
    namespace fs = std::filesystem;
    const fs::path tone = "/tmp/orvelsdk_tone.wav";
    const bool before = fs::exists(tone);
    const auto time = before ? fs::last_write_time(tone) : fs::file_time_type();
    captured([] { orvel_play_tone(440.0, 100); });
    EXPECT_EQ(fs::exists(tone), before);
    EXPECT_EQ(before ? fs::last_write_time(tone) : time, time);
}

TEST_F(NoneTest, PicturesAreSavedAndDrawnAgain) {
    const auto canvas = make_canvas(40, 30), copy = make_canvas(40, 30);
    orvel_draw_icon(canvas.get(), "world", 2, 2, 26, {200, 100, 50, 128});
    write_file(path("24.bmp"), std::string(100000, 'x'));
    EXPECT_EQ(orvel_canvas_save_bmp(canvas.get(), path("24.bmp").c_str()), 0);
    EXPECT_EQ(orvel_canvas_save_bmp_rgba(canvas.get(), path("32.bmp").c_str()), 0);
    EXPECT_EQ(read_file(path("24.bmp")).size(), 54u + 30 * 120);
    EXPECT_EQ(orvel_icon_draw_bitmap(copy.get(), "32", 0, 0), 0);
    EXPECT_EQ(checksum(copy.get()), checksum(canvas.get()));
    EXPECT_EQ(orvel_canvas_save_bmp(canvas.get(), path("no/24.bmp").c_str()), -1);
    EXPECT_EQ(status_of("missing"), -1);
}

TEST_F(NoneTest, PicturesOfSeveralBlocksAreSavedAndDrawnAgain) {
    const auto canvas = make_canvas(300, 200), copy = make_canvas(300, 200);
    orvel_draw_icon(canvas.get(), "world", 2, 2, 190, {200, 100, 50, 128});
    EXPECT_EQ(orvel_canvas_save_bmp_rgba(canvas.get(), path("32.bmp").c_str()), 0);
    EXPECT_EQ(orvel_icon_draw_bitmap(copy.get(), "32", 0, 0), 0);
    EXPECT_EQ(checksum(copy.get()), checksum(canvas.get()));
}

TEST_F(NoneTest, OfABitmapThatEndsEarlyTheWholeRowsAreDrawn) {
    const std::string cut = (BmpHeader{2, -2}.bytes() + kTwoByTwo).substr(0, 54 + 15);
    EXPECT_EQ(drawn(cut, 0, 0, 2, 2), "rg\n..\n");
    EXPECT_EQ(drawn(BmpHeader{2, 2, 24, 0x7fffffff}.bytes() + kTwoByTwo, 0, 0, 2, 2), "..\n..\n");
}

TEST_F(NoneTest, ThemesAreSavedAndLoadedAgain) {
    const orvel_theme saved = distinct_theme();
    orvel_theme loaded = {};
    std::filesystem::create_directories(root_ / "UI");
    EXPECT_EQ(orvel_theme_save(&saved, "mine.json"), 0);
    EXPECT_EQ(orvel_theme_load(&loaded, "mine"), 0);
    EXPECT_EQ(loaded.background,
              (orvel_color{saved.background.r, saved.background.g, saved.background.b, 255}));
    EXPECT_EQ(loaded.error, (orvel_color{saved.error.r, saved.error.g, saved.error.b, 255}));
}

/// Whether standard C has the function, or compilers and the C++ runtime bring it.
bool is_standard(const std::string& name) {
    constexpr const char* kNames =
        " abs bcmp cos fclose fopen fprintf fputs fread free fseek ftell fwrite getenv malloc"
        " memchr memcmp memcpy memmove memset round setvbuf sin sincos snprintf sqrt sqrtf stderr"
        " strcmp strlen wmemset ";
    return name.rfind("_", 0) == 0 || std::strstr(kNames, (" " + name + " ").c_str()) != nullptr;
}

TEST_F(NoneTest, TheLibraryNeedsNothingButStandardC) {
#ifdef ORVEL_COVERAGE
    GTEST_SKIP() << "what counts the lines is linked into it";
#endif
    const Finished nm = run({"nm", "-D", "--undefined-only", "--format=posix", ORVEL_NONE});
    ASSERT_EQ(nm.status, 0) << nm.error;
    std::istringstream lines(nm.output);
    int names = 0;
    for (std::string line; std::getline(lines, line); ++names) {
        const std::string name = line.substr(0, line.find_first_of(" @"));
        EXPECT_TRUE(is_standard(name)) << name;
    }
    EXPECT_GT(names, 20);
}

}  // namespace
