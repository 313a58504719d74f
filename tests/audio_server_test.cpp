// What is really heard: a real sound server, a real player, and the sound that comes out.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <string>

#include "orvel.h"
#include "support/audio_server.h"
#include "support/files.h"
#include "support/private_system.h"
#include "support/process.h"
#include "support/wav.h"

namespace {

using namespace orvel_test;

char** s_arguments;

/// Descriptors that are open here, or only those that programs started from here would get.
int count_descriptors(bool inherited_only) {
    int count = 0;
    for (int descriptor = 0; descriptor < 1024; ++descriptor) {
        const int flags = fcntl(descriptor, F_GETFD);
        if (flags >= 0 && !(inherited_only && (flags & FD_CLOEXEC))) ++count;
    }
    return count;
}

class AudioServerTest : public testing::Test {
protected:
    AudioServerTest() { orvel_set_resource_path(folder.path().c_str()); }
    ~AudioServerTest() override {
        orvel_stop_music();
        while (waitpid(-1, nullptr, WNOHANG) > 0) {
        }
    }

    void add_sound(const std::string& name, const std::string& bytes) const {
        write_file(folder / ("Sounds/" + name), bytes);
    }
    void add_music(const std::string& name, const std::string& bytes) const {
        write_file(folder / ("Music/" + name), bytes);
    }

    static int quietly(int (*play)(const char*), const char* name) {
        int result = 0;
        captured([&] { result = play(name); });
        return result;
    }
    static int play_tone(double frequency_hz, int duration_ms) {
        int result = 0;
        captured([&] { result = orvel_play_tone(frequency_hz, duration_ms); });
        return result;
    }

    /// Waits for one sound and checks its length and its pitch, the fades left out.
    static void expect_sound(const Recorder& recorder, double frequency_hz, double duration_ms) {
        ASSERT_TRUE(recorder.wait_for_sound());
        ASSERT_TRUE(recorder.wait_for_silence(200));
        const Samples sound = heard(recorder.samples());
        const double share = share_at(frequency_hz, part(sound, 10.0, duration_ms - 10.0));
        std::printf("  %.0f Hz: %.2f ms, share %.5f\n", frequency_hz, milliseconds(sound), share);
        EXPECT_NEAR(milliseconds(sound), duration_ms, 20.0);
        EXPECT_GT(share, 0.99);
    }

    int status_of_a_host_that_plays_and_exits(const char* effect, bool with_streams) const {
        const pid_t host = fork();
        if (host == 0) {
            for (int stream = 0; stream < 3 && !with_streams; ++stream) close(stream);
            execl("/proc/self/exe", s_arguments[0], "--play-and-exit", folder.path().c_str(),
                  effect, static_cast<char*>(nullptr));
            _exit(127);
        }
        int status = -1;
        waitpid(host, &status, 0);
        return status;
    }

    void play_and_expect(const char* effect, double frequency_hz, double duration_ms) const {
        const Recorder recorder;
        EXPECT_EQ(quietly(orvel_play_sound, effect), 0);
        expect_sound(recorder, frequency_hz, duration_ms);
    }

    const TempFolder folder;
    AudioServer server;
};

TEST(AudioMeasureTest, TellsPitchesApartAndLengthsToo) {
    const Samples sound = sine(440.0, 300);
    EXPECT_GT(share_at(440.0, sound), 0.9999);
    EXPECT_LT(share_at(450.0, sound), 0.1);
    EXPECT_LT(share_at(880.0, sound), 0.01);
    EXPECT_EQ(share_at(440.0, Samples(1000, 0)), 0.0);
    EXPECT_EQ(heard({0, 0, 5, 0, -5, 0}), (Samples{5, 0, -5}));
    EXPECT_EQ(milliseconds(Samples(441)), 10.0);
}

TEST_F(AudioServerTest, AnEffectIsHeard) {
    add_sound("click.wav", wav_file(sine(660.0, 300)));
    play_and_expect("click", 660.0, 300.0);
}

TEST_F(AudioServerTest, AnEffectIsHeardWholeWhenTheHostEndsAtOnce) {
    add_sound("click.wav", wav_file(sine(660.0, 500)));
    const Recorder recorder;
    EXPECT_EQ(status_of_a_host_that_plays_and_exits("click", true), 0);
    expect_sound(recorder, 660.0, 500.0);
}

TEST_F(AudioServerTest, AnEffectPlayedAgainDoesNotCutTheFirst) {
    add_sound("click.wav", wav_file(sine(660.0, 400, 6000)));
    const Recorder recorder;
    EXPECT_EQ(quietly(orvel_play_sound, "click"), 0);
    ASSERT_TRUE(recorder.wait_for_sound());
    recorder.wait(200);
    EXPECT_EQ(quietly(orvel_play_sound, "click"), 0);
    ASSERT_TRUE(recorder.wait_for_silence(200));
    EXPECT_GT(milliseconds(heard(recorder.samples())), 550.0);
}

TEST_F(AudioServerTest, AnEffectWhosePathIsNotUtf8IsHeard) {
    add_sound("caff\xe8.wav", wav_file(sine(660.0, 200)));
    play_and_expect("caff\xe8", 660.0, 200.0);
}

TEST_F(AudioServerTest, AChangedEffectIsHeardAsItIsNow) {
    add_sound("click.wav", wav_file(sine(660.0, 100)));
    play_and_expect("click", 660.0, 100.0);
    add_sound("click.wav", wav_file(sine(880.0, 200)));
    play_and_expect("click", 880.0, 200.0);
}

TEST_F(AudioServerTest, ARestartedServerIsFoundAgain) {
    add_sound("click.wav", wav_file(sine(660.0, 200)));
    EXPECT_EQ(quietly(orvel_play_sound, "click"), 0);
    server.stop();
    EXPECT_EQ(quietly(orvel_play_sound, "click"), -1);
    server.start();
    play_and_expect("click", 660.0, 200.0);
}

TEST_F(AudioServerTest, WithoutAServerAnEffectIsAnnouncedAndRefused) {
    add_sound("click.wav", wav_file(sine(660.0, 200)));
    server.stop();
    int result = 0;
    const auto output = captured([&] { result = orvel_play_sound("click"); });
    EXPECT_EQ(result, -1);
    EXPECT_EQ(output.error, "[OrvelSDK] suono: " + (folder / "Sounds/click.wav") + "\n");
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

TEST_F(AudioServerTest, RefusedEffectsAreSilentAndLeaveNoDescriptorOpen) {
    const std::string effect = wav_file(sine(660.0, 100));
    add_sound("click.wav", effect);
    add_sound("text.wav", "This is a text and not a sound at all, as everybody can see.");
    add_sound("deep.wav",
              riff(chunk("fmt ", format(1, 1, 44100, 24)) + chunk("data", std::string(3000, 'x'))));
    add_sound("cut.wav", effect.substr(0, 40));
    add_sound("other.aiff", aiff_file(sine(660.0, 100)));
    add_sound("long.wav", riff(chunk("fmt ", format(1, 1, 44100, 16)) +
                               chunk("data", std::string(17u << 20, 1))));
    play_and_expect("click", 660.0, 100.0);

    const Recorder recorder;
    const int before = count_descriptors(false);
    for (const char* name : {"text", "deep", "cut", "other", "long"}) {
        for (int i = 0; i < 5; ++i) EXPECT_EQ(quietly(orvel_play_sound, name), -1) << name;
    }
    EXPECT_EQ(count_descriptors(false), before);
    recorder.wait(200);
    EXPECT_TRUE(heard(recorder.samples()).empty());
    play_and_expect("click", 660.0, 100.0);
}

TEST_F(AudioServerTest, TheSoundServiceLeavesNothingBehindThatAPlayerCouldGet) {
    add_sound("click.wav", wav_file(sine(660.0, 100)));
    const int before = count_descriptors(true);
    EXPECT_EQ(quietly(orvel_play_sound, "click"), 0);
    EXPECT_EQ(count_descriptors(true), before);
    server.stop();
    EXPECT_EQ(count_descriptors(true), before);
    EXPECT_EQ(quietly(orvel_play_sound, "click"), -1);
    EXPECT_EQ(count_descriptors(true), before);
}

TEST_F(AudioServerTest, TheSoundServiceLeavesNoThreadInTheHost) {
    add_sound("click.wav", wav_file(sine(660.0, 100)));
    EXPECT_EQ(quietly(orvel_play_sound, "click"), 0);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator("/proc/self/task"), {}), 1);
}

TEST_F(AudioServerTest, AHostWithoutStandardStreamsIsHeardAndKeepsThemClosed) {
    add_sound("click.wav", wav_file(sine(660.0, 200)));
    const Recorder recorder;
    EXPECT_EQ(status_of_a_host_that_plays_and_exits("click", false), 0);
    expect_sound(recorder, 660.0, 200.0);
}

TEST_F(AudioServerTest, AChildForkedAfterASoundIsRefusedAtOnce) {
    add_sound("click.wav", wav_file(sine(660.0, 100)));
    EXPECT_EQ(quietly(orvel_play_sound, "click"), 0);
    const pid_t child = fork();
    if (child == 0) _exit(quietly(orvel_play_sound, "click") == -1 ? 0 : 1);
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
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
    add_music("track.mp3", read_file(ORVEL_SOURCE_DIR "/tests/sounds/440hz.mp3"));
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

std::string open_streams() {
    std::string numbers;
    for (int stream = 0; stream < 3; ++stream) {
        if (fcntl(stream, F_GETFD) >= 0) numbers += std::to_string(stream);
    }
    return numbers;
}

/// What main() does in place of the tests, as a host that ends right after its sound.
int play_and_exit(const char* root, const char* name) {
    orvel_set_resource_path(root);
    const std::string streams = open_streams();
    return orvel_play_sound(name) == 0 && open_streams() == streams ? 0 : 1;
}

}  // namespace

int main(int argument_count, char** arguments) {
    if (argument_count == 4 && !std::strcmp(arguments[1], "--play-and-exit")) {
        return play_and_exit(arguments[2], arguments[3]);
    }
    testing::InitGoogleTest(&argument_count, arguments);
    s_arguments = arguments;
    if (!testing::GTEST_FLAG(list_tests) && !enter_private_system()) {
        std::puts("No private /tmp is to be had here: the tone file of this machine is used.");
    }
    return RUN_ALL_TESTS();
}
