// What the shipped library asks of the libraries that play effects, with others in their places and
// a clock that only waiting moves on.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>

#include "orvel.h"
#include "support/files.h"
#include "support/process.h"
#include "system/sound_libraries.h"
#include "system/system.h"

namespace {

using namespace orvel_test;

constexpr std::int64_t kSecond = 1'000'000;

class SystemSoundTest : public testing::Test {
protected:
    SystemSoundTest() {
        take_over_system(folder / "tone.wav");
        begin_anew("");
        machine().keeps_log = true;
        write_file(folder / "Sounds/click.snd", "snd of the fake libraries");
        orvel_set_resource_path(folder.path().c_str());
        sound_server() = {};
        sound_clock() += 1000 * kSecond;  // whatever happened before is long ago
        taken_story();
    }
    ~SystemSoundTest() override {
        EXPECT_EQ(live_sound_objects(), 0);
        taken_log();
        orvel_set_resource_path("");
    }

    static int play(const char* name = "click.snd") { return orvel_play_sound(name); }

    /// What the server hears of one effect.
    static std::string story_of(const char* name = "click.snd") {
        taken_story();
        play(name);
        return taken_story();
    }

    const TempFolder folder;
};

// The first test here: it needs a process that has not loaded the libraries yet.
TEST_F(SystemSoundTest, TheLibrariesAreLoadedOnceAtTheFirstSoundThatFindsThem) {
    sound_server().missing_function = "sf_close";
    EXPECT_EQ(play(), -1);
    EXPECT_EQ(loaded_libraries(), 0);
    sound_server().missing_function = "pa_stream_unref";
    EXPECT_EQ(play(), -1);
    EXPECT_EQ(loaded_libraries(), 1);
    EXPECT_EQ(taken_story(), "");

    sound_server() = {};
    EXPECT_EQ(play(), 0);
    EXPECT_EQ(loaded_libraries(), 2);
    EXPECT_EQ(play(), 0);
    EXPECT_EQ(loaded_libraries(), 2);
}

TEST_F(SystemSoundTest, AnEffectIsUploadedInTwoPiecesOrMorePlayedAndRemoved) {
    const std::string story = story_of();
    const std::string before = "hello, 1 x 8000 Hz orvelsdk-" + std::to_string(getpid()) + "-";
    EXPECT_EQ(story.substr(0, before.size()), before);
    // Four frames and 0.2 s of silence, of which this server takes 2000 bytes at a time.
    EXPECT_EQ(story.substr(story.find(", 2 +")), ", 2 + 2000 + 1208 bytes, play, remove, bye");
}

TEST_F(SystemSoundTest, EveryEffectOfAProcessHasTheSameName) {
    write_file(folder / "Sounds/other.snd", "snd of the fake libraries");
    EXPECT_EQ(story_of("click.snd"), story_of("other.snd"));
}

TEST_F(SystemSoundTest, WhatIsNoSoundIsNotShownToTheServer) {
    write_file(folder / "Sounds/text.snd", "not a sound");
    EXPECT_EQ(play("text.snd"), -1);
    EXPECT_EQ(taken_story(), "");
}

TEST_F(SystemSoundTest, APlayThatTheServerRefusesIsMinusOneAndTheSampleRemoved) {
    sound_server().plays = false;
    EXPECT_EQ(play(), -1);
    EXPECT_NE(taken_story().find(", play, remove, bye"), std::string::npos);
    sound_server().plays = true;
    EXPECT_EQ(play(), 0);  // it did answer
}

// It answers nine times: the hello, the stream, its three pieces twice and once, its end, the play.
TEST_F(SystemSoundTest, AServerThatFallsSilentAnywhereCostsLessThanTwoSeconds) {
    std::string results;
    for (int answers = 0; answers < 12; ++answers) {
        sound_server().answers = answers;
        sound_clock() += 1000 * kSecond;
        const std::int64_t before = sound_clock();
        results += play() == 0 ? "0" : "-";
        EXPECT_LT(sound_clock() - before, 2 * kSecond) << answers;
        EXPECT_EQ(live_sound_objects(), 0);
    }
    EXPECT_EQ(results, "---------000");
}

TEST_F(SystemSoundTest, ASampleWhoseEndIsNotAnsweredIsRemovedAllTheSame) {
    sound_server().answers = 7;
    EXPECT_EQ(play(), -1);
    EXPECT_NE(taken_story().find(" bytes, remove, bye"), std::string::npos);
}

TEST_F(SystemSoundTest, ASampleWhosePlayIsNotAnsweredIsRemovedAllTheSame) {
    sound_server().answers = 8;
    EXPECT_EQ(play(), -1);
    EXPECT_NE(taken_story().find(", play, remove, bye"), std::string::npos);
}

TEST_F(SystemSoundTest, AfterASilenceTheServerIsLeftAloneForTenSeconds) {
    sound_server().answers = 0;
    EXPECT_EQ(play(), -1);
    sound_server() = {};
    taken_story();
    const std::int64_t after = sound_clock();
    for (const std::int64_t later : {std::int64_t{0}, 5 * kSecond, 10 * kSecond - 1}) {
        sound_clock() = after + later;
        EXPECT_EQ(play(), -1);
        EXPECT_EQ(taken_story(), "");
        EXPECT_EQ(sound_clock(), after + later);
    }
    sound_clock() = after + 10 * kSecond;
    EXPECT_EQ(play(), 0);
}

TEST_F(SystemSoundTest, ASilenceAfterThePlayLeavesTheServerAloneAsWell) {
    sound_server().answers = 9;
    EXPECT_EQ(play(), 0);
    sound_server() = {};
    taken_story();
    EXPECT_EQ(play(), -1);
    EXPECT_EQ(taken_story(), "");
}

TEST_F(SystemSoundTest, AServerThatTakesItsTimeIsWaitedFor) {
    sound_server().microseconds = 170'000;  // half a second is left for the play
    EXPECT_EQ(play(), 0);
    EXPECT_NE(taken_story().find(", play, remove, bye"), std::string::npos);
}

TEST_F(SystemSoundTest, NoPlayIsAskedForWhenItsAnswerCouldComeTooLate) {
    sound_server().microseconds = 180'000;  // a bit less
    EXPECT_EQ(play(), -1);
    EXPECT_NE(taken_story().find(" bytes, remove, bye"), std::string::npos);
    sound_server() = {};
    EXPECT_EQ(play(), -1);  // as after a silence
}

}  // namespace
