// The library as it is shipped, on a machine whose /usr/bin holds only the players that a test puts
// there: this process has a view of the file system of its own.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "orvel.h"
#include "support/files.h"
#include "system/private_system.h"

namespace {

using orvel_test::captured;
using orvel_test::read_file;
using orvel_test::TempFolder;
using orvel_test::write_file;

class PlayerProgramTest : public testing::Test {
protected:
    void SetUp() override {
        if (!orvel_test::cover("/usr/bin", programs.path())) {
            GTEST_SKIP() << "this system allows no view of the file system of our own";
        }
        covered = true;
        setenv("ORVEL_PLAYER_LOG", (folder / "log").c_str(), 1);
        setenv("ORVEL_PLAYER_LENGTH", "0", 1);
        write_file(folder / "Music/track.wav", "RIFF and so on");
        write_file(folder / "Music/film.m4a", std::string("\0\0\0\x20", 4) + "ftypM4A and so on");
        orvel_set_resource_path(folder.path().c_str());
    }
    void TearDown() override {
        orvel_stop_music();
        if (covered) orvel_test::uncover("/usr/bin");
    }

    void install(const std::string& name) const {
        std::filesystem::copy_file(ORVEL_STAND_IN_PLAYER, programs / name);
    }

    /// How the player of that track was called; "status N" when it ended with another than 0.
    std::string player_of(const char* name) const {
        unlink((folder / "log").c_str());
        int result = -1;
        captured([&] { result = orvel_play_music(name); });
        EXPECT_EQ(result, 0);
        siginfo_t info = {};
        EXPECT_EQ(waitid(P_ALL, 0, &info, WEXITED | WNOWAIT), 0);
        if (info.si_status != 0) return "status " + std::to_string(info.si_status);
        const std::string log = read_file(folder / "log");
        const std::size_t begin = log.find("argument "), end = log.find("descriptors");
        return begin < end ? log.substr(begin, end - begin) : log;
    }

    const TempFolder folder, programs;
    const std::string track = folder / "Music/track.wav", film = folder / "Music/film.m4a";
    bool covered = false;
};

TEST_F(PlayerProgramTest, AfplayAtItsDocumentedPathWins) {
    for (const char* name : {"afplay", "paplay", "pw-play", "mpv"}) install(name);
    EXPECT_EQ(player_of("track"), "argument afplay\nargument " + track + "\n");
    EXPECT_EQ(player_of("film"), "argument afplay\nargument " + film + "\n");
}

TEST_F(PlayerProgramTest, AnAfplayThatMayNotBeExecutedIsPassedOver) {
    write_file(programs / "afplay", "#!/bin/sh\n");
    install("paplay");
    EXPECT_EQ(player_of("track"), "argument paplay\nargument " + track + "\n");
}

TEST_F(PlayerProgramTest, PaplayComesBeforePwPlay) {
    install("pw-play");
    EXPECT_EQ(player_of("track"), "argument pw-play\nargument " + track + "\n");
    install("paplay");
    EXPECT_EQ(player_of("track"), "argument paplay\nargument " + track + "\n");
}

TEST_F(PlayerProgramTest, MpvPlaysM4aQuietly) {
    for (const char* name : {"paplay", "pw-play", "mpv"}) install(name);
    EXPECT_EQ(player_of("film"), "argument mpv\nargument " + film +
                                     "\nargument --no-config\nargument --no-terminal\n"
                                     "argument --no-video\n");
}

TEST_F(PlayerProgramTest, WithoutAnyTheChildEndsWith127) {
    EXPECT_EQ(player_of("track"), "status 127");
    install("paplay");
    EXPECT_EQ(player_of("film"), "status 127");
}

TEST_F(PlayerProgramTest, ATonePlaysTheFileAtItsDocumentedPath) {
    install("afplay");
    captured([] { EXPECT_EQ(orvel_play_tone(440.0, 100), 0); });
    siginfo_t info = {};
    ASSERT_EQ(waitid(P_ALL, 0, &info, WEXITED), 0);
    EXPECT_EQ(info.si_status, 0);
    EXPECT_NE(read_file(folder / "log").find("argument afplay\nargument /tmp/orvelsdk_tone.wav\n"),
              std::string::npos);
    EXPECT_EQ(read_file("/tmp/orvelsdk_tone.wav").size(), 8864u);
}

}  // namespace
