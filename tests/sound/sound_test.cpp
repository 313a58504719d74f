#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <sstream>
#include <string>

#include "orvel.h"
#include "support/files.h"
#include "system/ledger.h"
#include "system/sound_libraries.h"
#include "system/system.h"

namespace {

using namespace orvel_test;

class SoundTest : public testing::Test {
protected:
    SoundTest() {
        take_over_system(folder / "tone.wav");
        begin_anew(folder / "no-player");
        sound_server() = {};
        sound_clock() += 1'000'000'000;  // whatever happened before is long ago
        taken_story();
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

    /// What the system has played, each sound by its thousands of samples a second.
    static std::string played() {
        std::string rates;
        std::istringstream story(taken_story());
        for (std::string part; std::getline(story, part, ',');) {
            if (part.rfind(" 1 x ", 0) == 0) rates += part[5];
        }
        return rates;
    }

    const TempFolder folder;
    int result = 99;
    std::string error;
};

TEST_F(SoundTest, AFoundSoundIsAnnouncedAndHandedToTheSystem) {
    const std::string path = folder / "Sounds/click.wav";
    write_file(path, "snd 1");
    call(orvel_play_sound, "click");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(error, "[OrvelSDK] suono: " + path + "\n");
    EXPECT_EQ(played(), "1");
}

TEST_F(SoundTest, AnExtensionNamesExactlyThatFile) {
    write_file(folder / "Sounds/click.wav", "snd 1");
    write_file(folder / "Sounds/click.aiff", "snd 2");
    call(orvel_play_sound, "click.aiff");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(played(), "2");
    call(orvel_play_sound, "click.mp3");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(error, "[OrvelSDK] suono non trovato: " + (folder / "Sounds/click.mp3") + "\n");
}

TEST_F(SoundTest, WithoutAnExtensionTheFirstFileByOrderIsPlayed) {
    write_file(folder / "Sounds/click.aiff", "snd 1");
    write_file(folder / "Sounds/click.mp3", "snd 2");
    call(orvel_play_sound, "click");
    EXPECT_EQ(played(), "2");
}

TEST_F(SoundTest, AMissingSoundIsReportedByItsPathWithoutExtension) {
    call(orvel_play_sound, "missing");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(error, "[OrvelSDK] suono non trovato: " + (folder / "Sounds/missing") + "\n");
    EXPECT_EQ(played(), "");
}

TEST_F(SoundTest, ASoundThatTheSystemRefusesIsAnnouncedAllTheSame) {
    write_file(folder / "Sounds/click.wav", "not a sound");
    call(orvel_play_sound, "click");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(error, "[OrvelSDK] suono: " + (folder / "Sounds/click.wav") + "\n");
}

TEST_F(SoundTest, TheSameSoundIsHandedOverAnewEveryTime) {
    write_file(folder / "Sounds/click.wav", "snd 1");
    for (int i = 0; i < 3; ++i) call(orvel_play_sound, "click");
    EXPECT_EQ(played(), "111");
}

TEST_F(SoundTest, ASoundNeitherStartsAProcessNorTouchesTheMusic) {
    write_file(folder / "Sounds/click.wav", "snd 1");
    write_file(folder / "Music/track.wav", "a track");
    call(orvel_play_music, "track");
    forget_calls();
    call(orvel_play_sound, "click");
    call(orvel_play_sound, "missing");
    EXPECT_TRUE(calls().empty());
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
    EXPECT_TRUE(calls().empty());
}

TEST_F(SoundTest, AFailedForkIsMinusOneAfterTheLine) {
    write_file(folder / "Music/track.mp3", "a track");
    always(Call::fork, Way::fails);
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
