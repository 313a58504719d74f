#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "orvel.h"
#include "support/files.h"
#include "system/fake_system_sound.h"
#include "system/recorded_system.h"

namespace {

using orvel_test::captured;
using orvel_test::fake_system_sound;
using orvel_test::recorded_system;
using orvel_test::TempFolder;
using orvel_test::write_file;
using Paths = std::vector<std::string>;

class SoundTest : public testing::Test {
protected:
    SoundTest() {
        recorded_system() = {};
        recorded_system().stand_in = folder / "no-player";
        recorded_system().child_log = folder / "child";
        fake_system_sound() = {};
        orvel_set_resource_path(folder.path().c_str());
    }
    ~SoundTest() override {
        orvel_stop_music();
        while (waitpid(-1, nullptr, 0) > 0) {
        }
    }

    /// Calls the function and keeps what it returned and wrote.
    void call(int (*function)(const char*), const char* name) {
        const auto output = captured([&] { result = function(name); });
        error = output.error;
        EXPECT_EQ(output.output, "");
    }

    const TempFolder folder;
    int result = 99;
    std::string error;
};

TEST_F(SoundTest, AFoundSoundIsAnnouncedAndHandedToTheSystem) {
    const std::string path = folder / "Sounds/click.wav";
    write_file(path, "a sound");
    call(orvel_play_sound, "click");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(error, "[OrvelSDK] suono: " + path + "\n");
    EXPECT_EQ(fake_system_sound().played, Paths{path});
}

TEST_F(SoundTest, AnExtensionNamesExactlyThatFile) {
    write_file(folder / "Sounds/click.wav", "a sound");
    write_file(folder / "Sounds/click.aiff", "a sound");
    call(orvel_play_sound, "click.aiff");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(fake_system_sound().played, Paths{folder / "Sounds/click.aiff"});
    call(orvel_play_sound, "click.mp3");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(error, "[OrvelSDK] suono non trovato: " + (folder / "Sounds/click.mp3") + "\n");
}

TEST_F(SoundTest, WithoutAnExtensionTheFirstFileByOrderIsPlayed) {
    write_file(folder / "Sounds/click.aiff", "a sound");
    write_file(folder / "Sounds/click.mp3", "a sound");
    call(orvel_play_sound, "click");
    EXPECT_EQ(fake_system_sound().played, Paths{folder / "Sounds/click.mp3"});
}

TEST_F(SoundTest, AMissingSoundIsReportedByItsPathWithoutExtension) {
    call(orvel_play_sound, "missing");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(error, "[OrvelSDK] suono non trovato: " + (folder / "Sounds/missing") + "\n");
    EXPECT_TRUE(fake_system_sound().played.empty());
}

TEST_F(SoundTest, ASoundThatTheSystemRefusesIsAnnouncedAllTheSame) {
    write_file(folder / "Sounds/click.wav", "not a sound");
    fake_system_sound().result = -1;
    call(orvel_play_sound, "click");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(error, "[OrvelSDK] suono: " + (folder / "Sounds/click.wav") + "\n");
}

TEST_F(SoundTest, TheSameSoundIsHandedOverAnewEveryTime) {
    write_file(folder / "Sounds/click.wav", "a sound");
    for (int i = 0; i < 3; ++i) call(orvel_play_sound, "click");
    EXPECT_EQ(fake_system_sound().played.size(), 3u);
}

TEST_F(SoundTest, ASoundNeitherStartsAProcessNorTouchesTheMusic) {
    write_file(folder / "Sounds/click.wav", "a sound");
    write_file(folder / "Music/track.wav", "a track");
    call(orvel_play_music, "track");
    recorded_system().calls.clear();
    call(orvel_play_sound, "click");
    call(orvel_play_sound, "missing");
    EXPECT_TRUE(recorded_system().calls.empty());
}

TEST_F(SoundTest, NullIsMinusOneWithoutAWord) {
    call(orvel_play_sound, nullptr);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(error, "");
    call(orvel_play_music, nullptr);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(error, "");
}

TEST_F(SoundTest, FoundMusicIsAnnouncedAndStarted) {
    write_file(folder / "Music/track.mp3", "a track");
    call(orvel_play_music, "track");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(error, "[OrvelSDK] musica: " + (folder / "Music/track.mp3") + "\n");
}

TEST_F(SoundTest, MissingMusicIsReportedByItsPathWithoutExtension) {
    call(orvel_play_music, "missing");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(error, "[OrvelSDK] musica non trovata: " + (folder / "Music/missing") + "\n");
    EXPECT_TRUE(recorded_system().calls.empty());
}

TEST_F(SoundTest, AFailedForkIsMinusOneAfterTheLine) {
    write_file(folder / "Music/track.mp3", "a track");
    recorded_system().fork_fails = true;
    call(orvel_play_music, "track");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(error, "[OrvelSDK] musica: " + (folder / "Music/track.mp3") + "\n");
}

TEST_F(SoundTest, AFileWithoutReadPermissionIsNotFound) {
    write_file(folder / "Music/track.wav", "a track");
    write_file(folder / "Music/track.mp3", "a track");
    for (const char* open : {"", "/Music"}) chmod((folder.path() + open).c_str(), 0755);
    ASSERT_EQ(chmod((folder / "Music/track.wav").c_str(), 0), 0);
    const uid_t user = geteuid();
    ASSERT_EQ(seteuid(user == 0 ? 65534 : user), 0);  // root may read everything
    call(orvel_play_music, "track");
    const std::string first = error;
    call(orvel_play_music, "track.wav");
    ASSERT_EQ(seteuid(user), 0);
    EXPECT_EQ(first, "[OrvelSDK] musica: " + (folder / "Music/track.mp3") + "\n");
    EXPECT_EQ(error, "[OrvelSDK] musica non trovata: " + (folder / "Music/track.wav") + "\n");
}

TEST_F(SoundTest, AFifoInPlaceOfAFileIsNotWaitedFor) {
    write_file(folder / "Music/other.wav", "");
    ASSERT_EQ(mkfifo((folder / "Music/track.wav").c_str(), 0600), 0);
    call(orvel_play_music, "track");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(error, "[OrvelSDK] musica: " + (folder / "Music/track.wav") + "\n");
}

TEST_F(SoundTest, AnEmptyNameIsAFileThatIsNotThere) {
    call(orvel_play_sound, "");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(error, "[OrvelSDK] suono non trovato: " + (folder / "Sounds/") + "\n");
}

}  // namespace
