// What the players do that the system starts, and which of them plays what.
#include <fcntl.h>
#include <sys/time.h>

#include <algorithm>
#include <filesystem>

#include "music_player.h"

namespace {

using namespace orvel_test;

/// What starts the programs themselves, not a stand-in inside this process.
class PlayerProgramsTest : public PlayerTest {};

TEST_F(PlayerProgramsTest, ATimerThatInterruptsTheWaitLeavesNoZombie) {
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    sigaction(SIGALRM, &action, nullptr);  // without SA_RESTART
    setenv("ORVEL_PLAYER_LINGER", "100", 1);
    const int pid = play_until_ready("track");
    const std::string name = std::to_string(pid);

    forget_calls();
    const itimerval every_millisecond = {{0, 1000}, {0, 1000}}, never = {};
    setitimer(ITIMER_REAL, &every_millisecond, nullptr);
    orvel_stop_music();
    setitimer(ITIMER_REAL, &never, nullptr);
    signal(SIGALRM, SIG_IGN);  // also one that is on its way

    const Lines made = calls();
    ASSERT_GT(made.size(), 3u);
    EXPECT_EQ(made[0], "waitpid " + name + " WNOHANG = 0");
    EXPECT_EQ(made[1], "kill " + name + " 15 = 0");
    EXPECT_EQ(made[2], "waitpid " + name + " = EINTR");
    EXPECT_EQ(made.back(), "waitpid " + name + " = " + name);
    EXPECT_TRUE(is_gone(pid));
}

TEST_F(PlayerProgramsTest, APlayerThatInheritsABlockedSigtermIsWaitedFor) {
    sigset_t sigterm;
    sigemptyset(&sigterm);
    sigaddset(&sigterm, SIGTERM);
    sigprocmask(SIG_BLOCK, &sigterm, nullptr);
    setenv("ORVEL_PLAYER_LENGTH", "100", 1);
    const int pid = play_until_ready("track");
    orvel_stop_music();
    sigprocmask(SIG_UNBLOCK, &sigterm, nullptr);
    EXPECT_EQ(logged({"blocked", "SIGTERM", "end"}),
              (Lines{"blocked", "end " + std::to_string(pid)}));
    EXPECT_TRUE(is_gone(pid));
}

TEST_F(PlayerProgramsTest, AStoppedPlayerIsWaitedForUntilItIsContinued) {
    const int pid = play_until_ready("track");
    kill(pid, SIGSTOP);
    const pid_t helper = fork();
    if (helper == 0) {
        usleep(100'000);
        write_file(folder / "continued", "");
        kill(pid, SIGCONT);
        _exit(0);
    }
    orvel_stop_music();
    EXPECT_TRUE(std::filesystem::exists(folder / "continued"));
    EXPECT_TRUE(is_gone(pid));
    waitpid(helper, nullptr, 0);
}

TEST_F(PlayerProgramsTest, AToneIsNeitherStoppedNorReapedAndLeavesTheMusicPlaying) {
    const int music = play_until_ready("track");
    EXPECT_EQ(beep(), 0);
    const int tone = last_pid();
    wait_for("ready " + std::to_string(tone));
    EXPECT_TRUE(is_child(music));

    orvel_stop_music();
    EXPECT_TRUE(is_gone(music));
    EXPECT_TRUE(is_child(tone));
    EXPECT_EQ(logged({"SIGTERM"}), Lines{"SIGTERM " + std::to_string(music)});

    end(tone);
    EXPECT_EQ(status_when_ended(tone), 0);
    EXPECT_EQ(beep(), 0);
    EXPECT_EQ(status_when_ended(tone), 0);  // still unreaped: that is the host's to do
    end(last_pid());
}

TEST_F(PlayerProgramsTest, TonesPlaySideBySide) {
    EXPECT_EQ(beep(), 0);
    const int first = last_pid();
    EXPECT_EQ(beep(), 0);
    const int second = last_pid();
    wait_for("ready " + std::to_string(first));
    wait_for("ready " + std::to_string(second));
    EXPECT_EQ(logged({"argument /"}),
              (Lines{"argument /tmp/orvelsdk_tone.wav", "argument /tmp/orvelsdk_tone.wav"}));
    EXPECT_TRUE(is_child(first));
    EXPECT_TRUE(is_child(second));
    end(first);
    end(second);
}

TEST_F(PlayerProgramsTest, ShutdownDoesNotStopTheMusic) {
    const int pid = play_until_ready("track");
    captured([] {
        orvel_init();
        orvel_shutdown();
    });
    EXPECT_TRUE(is_child(pid));
    EXPECT_TRUE(logged({"SIGTERM"}).empty());
}

/// The program that is chosen.
class PlayerChoiceTest : public PlayerTest {
protected:
    using Programs = std::vector<const char*>;

    /// The program that the child was told to execute.
    template <typename Call>
    std::string choice_of(const Call& call, const Programs& installed) {
        machine().programs = installed;
        forget_calls();
        unlink(log.c_str());
        setenv("ORVEL_PLAYER_LENGTH", "0", 1);
        EXPECT_EQ(call(), 0);
        EXPECT_EQ(status_when_ended(last_pid()), 0);
        const Lines execl = calls_of_children();
        return execl.size() == 1 ? execl[0].substr(execl[0].find('/')) : "none";
    }
    /// The one for a track that begins with the bytes.
    std::string choice(const std::string& bytes, const Programs& installed) {
        write_file(track, bytes);
        return choice_of([] { return play("track"); }, installed);
    }

    const Programs all = {"/usr/bin/afplay", "/usr/bin/paplay", "/usr/bin/pw-play", "/usr/bin/mpv"};
    const Programs linux_only = {"/usr/bin/paplay", "/usr/bin/pw-play", "/usr/bin/mpv"};
    const std::string m4a = std::string("\0\0\0\x20", 4) + "ftypM4A ";
};

TEST_F(PlayerChoiceTest, TheDocumentedProgramAlwaysWins) {
    EXPECT_EQ(choice("RIFF", all), "/usr/bin/afplay");
    EXPECT_EQ(choice(m4a, all), "/usr/bin/afplay");
    EXPECT_EQ(logged({"argument"}), (Lines{"argument afplay", "argument " + track}));
}

TEST_F(PlayerChoiceTest, WithoutItPaplayPlaysAndThenPwPlay) {
    EXPECT_EQ(choice("RIFF", linux_only), "/usr/bin/paplay");
    EXPECT_EQ(logged({"argument"}), (Lines{"argument paplay", "argument " + track}));
    EXPECT_EQ(choice("RIFF", {"/usr/bin/pw-play", "/usr/bin/mpv"}), "/usr/bin/pw-play");
    EXPECT_EQ(logged({"argument"}), (Lines{"argument pw-play", "argument " + track}));
}

TEST_F(PlayerChoiceTest, M4aIsKnownByItsHeaderAndGoesToMpv) {
    EXPECT_EQ(choice(m4a, linux_only), "/usr/bin/mpv");
    EXPECT_EQ(logged({"argument"}),
              (Lines{"argument mpv", "argument " + track, "argument --no-config",
                     "argument --no-terminal", "argument --no-video"}));
    EXPECT_EQ(choice(m4a.substr(0, 7), linux_only), "/usr/bin/paplay");
    EXPECT_EQ(choice("", linux_only), "/usr/bin/paplay");
}

TEST_F(PlayerChoiceTest, AToneIsNotLookedIntoWhateverLiesAtItsPath) {
    write_file(track, m4a);
    ASSERT_EQ(link(track.c_str(), tone_file.c_str()), 0);  // which is not written to
    EXPECT_EQ(choice_of(beep, linux_only), "/usr/bin/paplay");
    EXPECT_EQ(read_file(tone_file), m4a);
}

TEST_F(PlayerChoiceTest, AFileThatIsGoneIsLeftToThePlayerOfMostKinds) {
    write_file(track, m4a);
    const auto call = [] {
        const Armed armed;
        return play("track.wav");
    };
    begin_run({});
    EXPECT_EQ(choice_of(call, linux_only), "/usr/bin/mpv");
    const std::vector<Call> made = calls_of_run();
    const auto opening = std::find(made.begin() + 1, made.end(), Call::open);  // after it is found
    begin_run({static_cast<int>(opening - made.begin()), Way::fails, false});
    orvel_stop_music();
    EXPECT_EQ(choice_of(call, linux_only), "/usr/bin/paplay");
}

TEST_F(PlayerChoiceTest, WhatNothingPlaysIsLeftToTheDocumentedProgram) {
    EXPECT_EQ(choice(m4a, {"/usr/bin/paplay", "/usr/bin/pw-play"}), "/usr/bin/afplay");
    EXPECT_EQ(choice("RIFF", {"/usr/bin/mpv"}), "/usr/bin/afplay");
    EXPECT_EQ(choice("RIFF", {}), "/usr/bin/afplay");
}

TEST_F(PlayerChoiceTest, APathThatBeginsWithADashIsNoOptionButForAfplay) {
    const std::string old_folder = std::filesystem::current_path();
    ASSERT_EQ(chdir(folder.path().c_str()), 0);
    write_file("-x/Music/track.wav", "a track");
    orvel_set_resource_path("-x");
    EXPECT_EQ(choice("RIFF", linux_only), "/usr/bin/paplay");
    EXPECT_EQ(logged({"argument"}), (Lines{"argument paplay", "argument ./-x/Music/track.wav"}));
    EXPECT_EQ(choice("RIFF", all), "/usr/bin/afplay");
    EXPECT_EQ(logged({"argument"}), (Lines{"argument afplay", "argument -x/Music/track.wav"}));
    ASSERT_EQ(chdir(old_folder.c_str()), 0);
}

}  // namespace
