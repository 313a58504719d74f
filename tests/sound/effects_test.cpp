// Effects as they are really heard, from both sound servers.
#include <fcntl.h>
#include <signal.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

#include "orvel.h"
#include "sound/heard.h"
#include "sound/sound_files.h"
#include "sound/wav.h"
#include "support/child.h"

namespace {

using namespace orvel_test;

class EffectsTest : public HeardTest, public testing::WithParamInterface<Server> {
protected:
    EffectsTest() : HeardTest(GetParam()) {}
};

/// Descriptors that programs started from here would get.
int count_inherited_descriptors() {
    int count = 0;
    for (int descriptor = 0; descriptor < 1024; ++descriptor) {
        const int flags = fcntl(descriptor, F_GETFD);
        if (flags >= 0 && !(flags & FD_CLOEXEC)) ++count;
    }
    return count;
}

std::string quiet_wav(std::size_t bytes) {
    return riff(chunk("fmt ", format(1, 1, 44100, 16)) + chunk("data", std::string(bytes, 1)));
}

TEST_P(EffectsTest, EveryFormatIsHeard) {
    Recorder recorder;
    for (const SoundFormat& format : kSoundFormats) {
        SCOPED_TRACE(format.name);
        add_sound("effect.snd", sound_file(format, 660.0, 100, 12000 / format.channels));
        recorder.forget();
        EXPECT_EQ(quietly(orvel_play_sound, "effect.snd"), 0);
        ASSERT_TRUE(recorder.wait_for_sound());
        ASSERT_TRUE(recorder.wait_for_silence(60));
        const Samples sound = heard(recorder.samples());
        std::printf("  %-16s %6.2f ms, share %.5f, level %.0f\n", format.name, milliseconds(sound),
                    share_at(660.0, part(sound, 15.0, 85.0)), level(part(sound, 15.0, 85.0)));
        EXPECT_NEAR(milliseconds(sound), 100.0, 15.0);
        EXPECT_GT(share_at(660.0, part(sound, 15.0, 85.0)), 0.99);
        if (format.channels == 1) {  // servers mix more of them in different ways
            EXPECT_NEAR(level(part(sound, 15.0, 85.0)), 12000.0, 400.0);
        }
    }
    EXPECT_EQ(server.kept_samples(), "");
}

TEST_P(EffectsTest, AnEffectIsHeardWholeWhenTheHostEndsAtOnce) {
    add_sound("click.wav", wav_file(sine(660.0, 500)));
    const Recorder recorder;
    EXPECT_EQ(status_of(start_host("click")), 0);
    expect_sound(recorder, 660.0, 500.0);
}

TEST_P(EffectsTest, AHostWithoutStandardStreamsIsHeardAndKeepsThemClosed) {
    add_sound("click.wav", wav_file(sine(660.0, 200)));
    const Recorder recorder;
    EXPECT_EQ(status_of(start_host("click", false)), 0);
    expect_sound(recorder, 660.0, 200.0);
}

TEST_P(EffectsTest, AShortEffectIsHeardWhole) {
    add_sound("click.wav", wav_file(sine(660.0, 10)));
    play_and_expect("click", 660.0, 10.0);
}

TEST_P(EffectsTest, ALongEffectIsPlayedToo) {
    const std::size_t most =
        16u << 20;  // of which PipeWire, other than PulseAudio, wants a bit less
    add_sound("long.wav", quiet_wav(GetParam() == Server::pipewire ? most - 2 : most));
    EXPECT_EQ(quietly(orvel_play_sound, "long"), 0);
    EXPECT_EQ(server.kept_samples(), "");
}

TEST_P(EffectsTest, AnEffectPlayedAgainDoesNotCutTheFirst) {
    add_sound("click.wav", wav_file(sine(660.0, 400, 6000)));
    const Recorder recorder;
    EXPECT_EQ(quietly(orvel_play_sound, "click"), 0);
    ASSERT_TRUE(recorder.wait_for_sound());
    recorder.wait(200);
    EXPECT_EQ(quietly(orvel_play_sound, "click"), 0);
    ASSERT_TRUE(recorder.wait_for_silence(200));
    EXPECT_GT(milliseconds(heard(recorder.samples())), 550.0);
}

TEST_P(EffectsTest, AnEffectWhosePathIsNotUtf8IsHeard) {
    add_sound("caff\xe8.wav", wav_file(sine(660.0, 200)));
    play_and_expect("caff\xe8", 660.0, 200.0);
}

TEST_P(EffectsTest, AChangedEffectIsHeardAsItIsNow) {
    add_sound("click.wav", wav_file(sine(660.0, 100)));
    play_and_expect("click", 660.0, 100.0);
    add_sound("click.wav", wav_file(sine(880.0, 200)));
    play_and_expect("click", 880.0, 200.0);
}

TEST_P(EffectsTest, SeveralHostsPlayTheSameFileAtOnce) {
    add_sound("click.wav", wav_file(sine(660.0, 20)));
    std::vector<pid_t> hosts;
    // PulseAudio lets no more connections wait than these.
    for (int i = 0; i < 6; ++i) hosts.push_back(start_host("click"));
    for (const pid_t host : hosts) EXPECT_EQ(status_of(host), 0);
    EXPECT_EQ(server.kept_samples(), "");
}

TEST_P(EffectsTest, RefusedEffectsAreSilent) {
    const std::string effect = wav_file(sine(660.0, 100));
    add_sound("text.wav", "This is a text and not a sound at all, as everybody can see.");
    add_sound("cut.wav", effect.substr(0, 40));
    add_sound("long.wav", quiet_wav((16u << 20) + 2));
    add_sound("fast.wav", riff(chunk("fmt ", format(1, 1, 900'000, 16)) + chunk("data", "abcd")));
    const Recorder recorder;
    for (const char* name : {"text", "cut", "long", "fast"}) {
        EXPECT_EQ(quietly(orvel_play_sound, name), -1) << name;
    }
    recorder.wait(100);
    EXPECT_TRUE(heard(recorder.samples()).empty());
}

TEST_P(EffectsTest, ThirtyEffectsLeaveNothingInTheHostOrInTheServer) {
    add_sound("click.wav", wav_file(sine(660.0, 20)));
    add_sound("text.wav", "This is a text and not a sound at all, as everybody can see.");
    EXPECT_EQ(quietly(orvel_play_sound, "click"), 0);  // loads the libraries
    const std::string before = state_of_process();
    const int inherited = count_inherited_descriptors();
    for (int i = 0; i < 30; ++i) {
        EXPECT_EQ(quietly(orvel_play_sound, "click"), 0);
        EXPECT_EQ(quietly(orvel_play_sound, "text"), -1);
    }
    EXPECT_EQ(state_of_process(), before);
    EXPECT_EQ(count_inherited_descriptors(), inherited);
    EXPECT_EQ(server.kept_samples(), "");
    server.stop();
    EXPECT_EQ(quietly(orvel_play_sound, "click"), -1);
    EXPECT_EQ(state_of_process(), before);
}

TEST_P(EffectsTest, NoDamagedFileHarmsTheServer) {
    std::vector<std::string> whole;
    for (const SoundFormat& format : kSoundFormats) whole.push_back(sound_file(format, 660.0, 10));
    const pid_t before = server.pid();
    const unsigned count = GetParam() == Server::pulseaudio ? 1500 : 300;  // which takes as long
    captured([&] {
        for (unsigned i = 0; i < count; ++i) {
            add_sound("effect.snd", mutated(whole[i % whole.size()], i));
            orvel_play_sound("effect.snd");
        }
    });
    EXPECT_EQ(kill(before, 0), 0);
    EXPECT_EQ(waitpid(before, nullptr, WNOHANG), 0);
    add_sound("click.wav", wav_file(sine(660.0, 100)));
    EXPECT_EQ(quietly(orvel_play_sound, "click"), 0);
    EXPECT_EQ(server.kept_samples(), "");
}

TEST_P(EffectsTest, SignalsDoNotDisturbAnEffect) {
    add_sound("click.wav", wav_file(sine(660.0, 20)));
    struct sigaction action = {}, before;
    action.sa_handler = [](int) {};
    sigaction(SIGALRM, &action, &before);
    const itimerval often = {{0, 500}, {0, 500}};
    setitimer(ITIMER_REAL, &often, nullptr);
    for (int i = 0; i < 20; ++i) EXPECT_EQ(quietly(orvel_play_sound, "click"), 0);
    const itimerval never = {};
    setitimer(ITIMER_REAL, &never, nullptr);
    sigaction(SIGALRM, &before, nullptr);
}

TEST_P(EffectsTest, ARestartedServerIsFoundAgain) {
    add_sound("click.wav", wav_file(sine(660.0, 200)));
    EXPECT_EQ(quietly(orvel_play_sound, "click"), 0);
    server.stop();
    EXPECT_EQ(quietly(orvel_play_sound, "click"), -1);
    server.start();
    play_and_expect("click", 660.0, 200.0);
}

TEST_P(EffectsTest, WithoutAServerAnEffectIsAnnouncedAndRefused) {
    add_sound("click.wav", wav_file(sine(660.0, 200)));
    server.stop();
    int result = 0;
    const auto output = captured([&] { result = orvel_play_sound("click"); });
    EXPECT_EQ(result, -1);
    EXPECT_EQ(output.error, "[OrvelSDK] suono: " + (folder / "Sounds/click.wav") + "\n");
}

TEST_P(EffectsTest, AChildForkedAfterASoundIsRefusedAtOnce) {
    add_sound("click.wav", wav_file(sine(660.0, 100)));
    EXPECT_EQ(quietly(orvel_play_sound, "click"), 0);
    EXPECT_EQ(in_child([] { return quietly(orvel_play_sound, "click") == -1 ? 0 : 1; }), 0);
    EXPECT_EQ(quietly(orvel_play_sound, "click"), 0);
}

INSTANTIATE_TEST_SUITE_P(PulseAudio, EffectsTest, testing::Values(Server::pulseaudio));
INSTANTIATE_TEST_SUITE_P(PipeWire, EffectsTest, testing::Values(Server::pipewire));

}  // namespace
