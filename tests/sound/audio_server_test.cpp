// Music and tones as they are really heard: a real player, a real sound server.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>

#include "orvel.h"
#include "sound/heard.h"
#include "sound/wav.h"
#include "support/files.h"
#include "support/process.h"

namespace {

using namespace orvel_test;

class AudioServerTest : public HeardTest {};

TEST(AudioMeasureTest, TellsPitchesApartAndLengthsToo) {
    const Samples sound = sine(440.0, 300);
    EXPECT_GT(share_at(440.0, sound), 0.9999);
    EXPECT_LT(share_at(450.0, sound), 0.1);
    EXPECT_LT(share_at(880.0, sound), 0.01);
    EXPECT_EQ(share_at(440.0, Samples(1000, 0)), 0.0);
    EXPECT_EQ(heard({0, 0, 5, 0, -5, 0}), (Samples{5, 0, -5}));
    EXPECT_EQ(milliseconds(Samples(441)), 10.0);
}

TEST_F(AudioServerTest, WithoutAServerMusicAndTonesStartAndStaySilent) {
    add_music("track.wav", wav_file(sine(440.0, 200)));
    server.stop();
    captured([] {
        EXPECT_EQ(orvel_play_music("track"), 0);
        EXPECT_EQ(orvel_play_tone(440.0, 100), 0);
        while (waitpid(-1, nullptr, 0) > 0) {  // the players end by themselves
        }
    });
}

TEST_F(AudioServerTest, MusicIsHeard) {
    const Samples sound = sine(440.0, 300);
    add_music("track.wav", wav_file(sound));
    add_music("other.aiff", aiff_file(sound));
    for (const char* name : {"track", "other"}) {
        const Recorder recorder;
        EXPECT_EQ(quietly(orvel_play_music, name), 0);
        expect_sound(recorder, 440.0, 300.0);
    }
}

TEST_F(AudioServerTest, Mp3MusicIsHeard) {
    add_music("track.mp3", read_file(ORVEL_SOURCE_DIR "/tests/sound/440hz.mp3"));
    const Recorder recorder;
    EXPECT_EQ(quietly(orvel_play_music, "track"), 0);
    ASSERT_TRUE(recorder.wait_for_sound());
    ASSERT_TRUE(recorder.wait_for_silence(200));
    const Samples sound = heard(recorder.samples());
    EXPECT_NEAR(milliseconds(sound), 340.0, 40.0);  // 300 ms and what the coding adds
    EXPECT_GT(share_at(440.0, part(sound, 50.0, 250.0)), 0.99);
}

TEST_F(AudioServerTest, JunkInPlaceOfMusicIsSilent) {
    add_music("track.wav", std::string(100000, 'x'));
    const Recorder recorder;
    captured([] {
        EXPECT_EQ(orvel_play_music("track"), 0);
        siginfo_t info = {};
        EXPECT_EQ(waitid(P_ALL, 0, &info, WEXITED | WNOWAIT), 0);
        EXPECT_EQ(info.si_status, 1);
    });
    recorder.wait(200);
    EXPECT_TRUE(heard(recorder.samples()).empty());
}

TEST_F(AudioServerTest, AToneIsHeard) {
    const Recorder recorder;
    EXPECT_EQ(play_tone(1000.0, 400), 0);
    expect_sound(recorder, 1000.0, 400.0);
}

TEST_F(AudioServerTest, AFifoAtTheTonesPathLeavesAPlayerThatWaitsForEveryTone) {
    const char* const path = "/tmp/orvelsdk_tone.wav";
    std::filesystem::remove(path);
    if (mkfifo(path, 0600) != 0) GTEST_SKIP() << "it would be this machine's";
    for (int tone = 0; tone < 2; ++tone) {
        EXPECT_EQ(play_tone(440.0, 10), 0);
        usleep(200'000);  // a player that finds nothing to play would have ended
        EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), 0);
        // As soon as somebody opens it for writing, be it the next tone, the player ends.
        close(open(path, O_WRONLY | O_CLOEXEC));
        EXPECT_GT(waitpid(-1, nullptr, 0), 0);
    }
    std::filesystem::remove(path);
}

TEST_F(AudioServerTest, TheExampleBeepsAScaleRingsABellAndStopsItsMusic) {
    const Recorder recorder;
    const Finished done = run({ORVEL_BINARY_DIR "/examples/sounds", folder.path()});
    EXPECT_EQ(done.status, 0) << done.error;
    ASSERT_TRUE(recorder.wait_for_silence(200));

    const double scale[] = {261.63, 293.66, 329.63, 349.23, 392.00, 440.00, 493.88, 523.25, 1046.5};
    const Samples sound = heard(recorder.samples());
    std::string notes;
    for (double at = 0.0; at + 50.0 <= 2900.0; at += 10.0) {
        for (int note = 0; note < 9; ++note) {
            const char letter = "CDEFGAHcB"[note];
            if (share_at(scale[note], part(sound, at, at + 50.0)) < 0.75) continue;
            if (notes.empty() || notes.back() != letter) notes += letter;
        }
    }
    EXPECT_EQ(notes, "CDEFGAHcBC");  // the last is the music's first
    EXPECT_NEAR(milliseconds(sound), 8 * 250.0 + 600.0 + 1250.0, 200.0);
}

TEST_F(AudioServerTest, MusicEndsWithinAFifthOfASecondOfStop) {
    add_music("track.wav", wav_file(sine(440.0, 5000)));
    const Recorder recorder;
    EXPECT_EQ(quietly(orvel_play_music, "track"), 0);
    ASSERT_TRUE(recorder.wait_for_sound());
    recorder.wait(300);
    const auto before = Clock::now();
    orvel_stop_music();
    const auto stopped = Clock::now();
    ASSERT_TRUE(recorder.wait_for_silence(300));
    const std::chrono::duration<double, std::milli> call = stopped - before;
    const std::chrono::duration<double, std::milli> sound = recorder.last_sound() - before;
    std::printf("  stop took %.1f ms; the music went on for %.1f ms\n", call.count(),
                sound.count());
    EXPECT_LT(sound.count(), 200.0);
}

TEST_F(AudioServerTest, MusicGoesOnUnderAToneAndStopEndsOnlyTheMusic) {
    add_music("track.wav", wav_file(sine(440.0, 8000, 9000)));
    const Recorder recorder;
    EXPECT_EQ(quietly(orvel_play_music, "track"), 0);
    ASSERT_TRUE(recorder.wait_for_sound());
    recorder.wait(200);
    EXPECT_EQ(play_tone(1000.0, 1200), 0);
    const auto tone_is_on = [&recorder] {
        const Samples all = recorder.samples();
        const double end = milliseconds(all);
        return share_at(1000.0, part(all, end - 50.0, end)) > 0.5;
    };
    while (!tone_is_on()) recorder.wait(10);
    recorder.wait(300);
    orvel_stop_music();
    ASSERT_TRUE(recorder.wait_for_silence(200));

    // In steps of 50 ms, each a whole number of periods of both: music, then both, then the tone.
    const Samples sound = heard(recorder.samples());
    std::string story;
    for (double at = 0.0; at + 50.0 <= milliseconds(sound); at += 50.0) {
        const Samples step = part(sound, at, at + 50.0);
        const double music = share_at(440.0, step), tone = share_at(1000.0, step);
        const char letter = music > 0.99          ? 'm'
                            : tone > 0.99         ? 't'
                            : music + tone > 0.99 ? 'b'
                                                  : '?';
        if (letter != '?' && (story.empty() || story.back() != letter)) story += letter;
    }
    EXPECT_EQ(story, "mbt");
}

}  // namespace
