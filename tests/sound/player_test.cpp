#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "orvel.h"
#include "support/child.h"
#include "support/files.h"
#include "system/ledger.h"
#include "system/system.h"

namespace {

using namespace orvel_test;
using Lines = std::vector<std::string>;

Lines lines_of(const std::string& text) {
    Lines lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

void reap_everything() {
    while (waitpid(-1, nullptr, 0) > 0 || errno == EINTR) {
    }
}

bool is_child(int pid) { return waitpid(pid, nullptr, WNOHANG) == 0; }
bool is_gone(int pid) { return waitpid(pid, nullptr, WNOHANG) < 0 && errno == ECHILD; }

/// Waits until the child has ended and leaves it unreaped; its exit status, or -1.
int status_when_ended(int pid) {
    siginfo_t info = {};
    while (waitid(P_PID, static_cast<id_t>(pid), &info, WEXITED | WNOWAIT) < 0 && errno == EINTR) {
    }
    return info.si_pid == pid && info.si_code == CLD_EXITED ? info.si_status : -1;
}

class PlayerTest : public testing::Test {
protected:
    PlayerTest() {
        take_over_system(tone_file);
        begin_anew(ORVEL_STAND_IN_PLAYER);
        setenv("ORVEL_PLAYER_LOG", log.c_str(), 1);
        unsetenv("ORVEL_PLAYER_LENGTH");
        unsetenv("ORVEL_PLAYER_LINGER");
        write_file(track, "a track");
        write_file(folder / "Music/other.wav", "another track");
        orvel_set_resource_path(folder.path().c_str());
    }
    ~PlayerTest() override {
        orvel_stop_music();
        reap_everything();
    }

    /// What a call returned, its status lines kept out of the test's own output.
    static int quietly(int (*call)(const char*), const char* name) {
        int result = 0;
        captured([&] { result = call(name); });
        return result;
    }
    static int play(const char* name) { return quietly(orvel_play_music, name); }
    static int beep() {
        return quietly([](const char*) { return orvel_play_tone(440.0, 10); }, nullptr);
    }

    /// The process that the last fork made.
    static int last_pid() {
        int pid = -1;
        for (const std::string& call : calls()) {
            if (call.rfind("fork = ", 0) == 0) pid = std::stoi(call.substr(7));
        }
        return pid;
    }

    /// Ends one player, and never, by a wrong number, everything.
    static void end(int pid) {
        ASSERT_GT(pid, 0);
        kill(pid, SIGTERM);
    }

    Lines logged() const { return lines_of(read_file(log)); }

    /// Plays and waits until the player can hear signals; its pid.
    int play_until_ready(const char* name) const {
        EXPECT_EQ(play(name), 0);
        wait_for("ready " + std::to_string(last_pid()));
        return last_pid();
    }

    void wait_for(const std::string& line) const {
        for (int i = 0; i < 20000; ++i) {
            for (const std::string& have : logged()) {
                if (have == line) return;
            }
            usleep(1000);
        }
        FAIL() << "the player never wrote: " << line << "\n" << read_file(log);
    }

    /// The log's lines that begin with one of the words, in order.
    Lines logged(const std::vector<std::string>& words) const {
        Lines chosen;
        for (const std::string& line : logged()) {
            for (const std::string& word : words) {
                if (line.rfind(word, 0) == 0) chosen.push_back(line);
            }
        }
        return chosen;
    }

    const TempFolder folder;
    const std::string track = folder / "Music/track.wav";
    const std::string tone_file = folder / "tone.wav";
    const std::string log = folder / "player";
};

// The first of all, while no music has ever been started.
TEST_F(PlayerTest, StopWithoutMusicDoesNothing) {
    orvel_stop_music();
    EXPECT_TRUE(calls().empty());
}

TEST_F(PlayerTest, ThePlayerGetsItsNameAndOnePathAndNothingElse) {
    play_until_ready("track");
    EXPECT_EQ(logged({"argument"}), (Lines{"argument afplay", "argument " + track}));
}

TEST_F(PlayerTest, TheProgramIsChosenBeforeTheForkAndTheChildOnlyExecutesIt) {
    play_until_ready("track");
    EXPECT_EQ(call_names(), "access fork");
    EXPECT_EQ(calls_of_children(), Lines{"execl /usr/bin/afplay"});
}

TEST_F(PlayerTest, TheSecondPlayEndsTheFirstPlayerBeforeItStartsItsOwn) {
    const std::string first = std::to_string(play_until_ready("track"));
    forget_calls();
    const std::string second = std::to_string(play_until_ready("other"));

    EXPECT_EQ(calls(), (Lines{"waitpid " + first + " WNOHANG = 0", "kill " + first + " 15 = 0",
                              "waitpid " + first + " = " + first, "access /usr/bin/afplay = 0",
                              "fork = " + second}));
    EXPECT_EQ(logged({"start", "SIGTERM"}),
              (Lines{"start " + first, "SIGTERM " + first, "start " + second}));
    EXPECT_TRUE(is_gone(std::stoi(first)));

    forget_calls();
    orvel_stop_music();  // remembers the second only
    EXPECT_EQ(calls(), (Lines{"waitpid " + second + " WNOHANG = 0", "kill " + second + " 15 = 0",
                              "waitpid " + second + " = " + second}));
}

TEST_F(PlayerTest, ATrackThatEndedByItselfStaysUnreapedUntilTheNextPlay) {
    setenv("ORVEL_PLAYER_LENGTH", "0", 1);
    const std::string first = std::to_string(play_until_ready("track"));
    EXPECT_EQ(status_when_ended(std::stoi(first)), 0);
    EXPECT_EQ(status_when_ended(std::stoi(first)), 0);  // still there to be reaped

    forget_calls();
    const std::string second = std::to_string(play_until_ready("other"));
    EXPECT_EQ(calls(), (Lines{"waitpid " + first + " WNOHANG = " + first,
                              "access /usr/bin/afplay = 0", "fork = " + second}));
    EXPECT_TRUE(logged({"SIGTERM"}).empty());
}

TEST_F(PlayerTest, ATrackThatEndedByItselfIsReapedByStopWithoutASignal) {
    setenv("ORVEL_PLAYER_LENGTH", "0", 1);
    const int pid = play_until_ready("track");
    EXPECT_EQ(status_when_ended(pid), 0);
    forget_calls();
    orvel_stop_music();
    EXPECT_EQ(call_names(), "waitpid");
    EXPECT_TRUE(is_gone(pid));
}

TEST_F(PlayerTest, APlayerThatWasReapedIsForgotten) {
    setenv("ORVEL_PLAYER_LENGTH", "0", 1);
    EXPECT_EQ(status_when_ended(play_until_ready("track")), 0);
    orvel_stop_music();
    forget_calls();
    orvel_stop_music();
    EXPECT_TRUE(calls().empty()) << "the number may be another process's by now";
}

TEST_F(PlayerTest, TheSecondStopDoesNothing) {
    const int pid = play_until_ready("track");
    orvel_stop_music();
    EXPECT_TRUE(is_gone(pid));
    forget_calls();
    orvel_stop_music();
    EXPECT_TRUE(calls().empty());
}

TEST_F(PlayerTest, NullLeavesTheMusicPlaying) {
    const int pid = play_until_ready("track");
    forget_calls();
    EXPECT_EQ(play(nullptr), -1);
    EXPECT_TRUE(calls().empty());
    EXPECT_TRUE(is_child(pid));
}

TEST_F(PlayerTest, AMissingFileLeavesSilence) {
    const int pid = play_until_ready("track");
    forget_calls();
    EXPECT_EQ(play("missing"), -1);
    EXPECT_EQ(call_names(), "waitpid kill waitpid");
    EXPECT_TRUE(is_gone(pid));
    forget_calls();
    orvel_stop_music();
    EXPECT_TRUE(calls().empty());
}

TEST_F(PlayerTest, AFailedForkLeavesSilence) {
    const int pid = play_until_ready("track");
    always(Call::fork, Way::fails);
    EXPECT_EQ(play("other"), -1);
    EXPECT_TRUE(is_gone(pid));
    forget_calls();
    orvel_stop_music();
    EXPECT_TRUE(calls().empty());
}

TEST_F(PlayerTest, AMissingPlayerEndsWith127AndTheCallStillSucceeds) {
    machine().programs.clear();
    machine().stand_in = folder / "none";
    EXPECT_EQ(play("track"), 0);
    EXPECT_EQ(status_when_ended(last_pid()), 127);
    EXPECT_EQ(calls_of_children(), (Lines{"execl /usr/bin/afplay", "_exit 127"}));
}

TEST_F(PlayerTest, AChildWithoutAPlayerFlushesNothingOfTheHosts) {
    machine().stand_in = folder / "none";
    const auto output = captured([] {
        std::fputs("once", stdout);
        EXPECT_EQ(orvel_play_music("track"), 0);
        EXPECT_EQ(status_when_ended(last_pid()), 127);
    });
    EXPECT_EQ(output.output, "once");
}

TEST_F(PlayerTest, APlayerThatIsNotExecutableEndsWith127) {
    machine().stand_in = folder / "not-executable";
    write_file(machine().stand_in, "#!/bin/sh\n");
    EXPECT_EQ(play("track"), 0);
    EXPECT_EQ(status_when_ended(last_pid()), 127);
}

TEST_F(PlayerTest, OnlyTheHostsOwnDescriptorsReachThePlayer) {
    const int inherited = open("/dev/null", O_RDONLY);
    const int own = open("/dev/null", O_RDONLY | O_CLOEXEC);
    std::string expected = "descriptors";
    for (int descriptor = 0; descriptor < 1024; ++descriptor) {
        const int flags = fcntl(descriptor, F_GETFD);
        if (flags >= 0 && !(flags & FD_CLOEXEC)) expected += " " + std::to_string(descriptor);
    }
    ASSERT_EQ(orvel_play_music("track"), 0);
    wait_for("ready " + std::to_string(last_pid()));
    EXPECT_EQ(logged({"descriptors"}), Lines{expected});
    ASSERT_EQ(orvel_play_tone(440.0, 10), 0);
    wait_for("ready " + std::to_string(last_pid()));
    EXPECT_EQ(logged({"descriptors"}), (Lines{expected, expected}));
    end(last_pid());
    close(inherited);
    close(own);
}

TEST_F(PlayerTest, AHostThatIgnoresItsChildrenNeverWaitsInVain) {
    signal(SIGCHLD, SIG_IGN);
    const std::string first = std::to_string(play_until_ready("track"));
    forget_calls();
    orvel_stop_music();
    EXPECT_EQ(calls(), (Lines{"waitpid " + first + " WNOHANG = 0", "kill " + first + " 15 = 0",
                              "waitpid " + first + " = ECHILD"}));

    setenv("ORVEL_PLAYER_LENGTH", "0", 1);
    const std::string second = std::to_string(play_until_ready("track"));
    while (kill(std::stoi(second), 0) == 0) usleep(1000);  // until the system has reaped it
    forget_calls();
    orvel_stop_music();
    EXPECT_EQ(calls(), Lines{"waitpid " + second + " WNOHANG = ECHILD"});
    signal(SIGCHLD, SIG_DFL);
}

TEST_F(PlayerTest, AHostThatHandlesSigtermStopsAPlayerThatHasNotYetBegun) {
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    sigaction(SIGTERM, &action, nullptr);
    setenv("ORVEL_PLAYER_LENGTH", "5000", 1);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(play("track"), 0);
        orvel_stop_music();
        EXPECT_TRUE(is_gone(last_pid()));
    }
    EXPECT_EQ(logged({"end"}), Lines{}) << "played to the end all the same";
    struct sigaction now = {};
    sigaction(SIGTERM, nullptr, &now);
    EXPECT_EQ(now.sa_handler, action.sa_handler);
    signal(SIGTERM, SIG_DFL);
}

TEST_F(PlayerTest, APlayerThatInheritsAnIgnoredSigtermIsWaitedForAlsoBeforeItBegins) {
    signal(SIGTERM, SIG_IGN);
    setenv("ORVEL_PLAYER_LENGTH", "0", 1);
    EXPECT_EQ(play("track"), 0);
    orvel_stop_music();
    signal(SIGTERM, SIG_DFL);
    EXPECT_TRUE(is_gone(last_pid()));
    EXPECT_EQ(logged({"start"}).size(), 1u);
}

TEST_F(PlayerTest, StartingAPlayerLeavesTheSignalMaskAsItWas) {
    sigset_t none, before, after;
    sigemptyset(&none);
    pthread_sigmask(SIG_SETMASK, &none, &before);
    EXPECT_EQ(play("track"), 0);
    always(Call::fork, Way::fails);
    EXPECT_EQ(play("track"), -1);
    pthread_sigmask(SIG_SETMASK, &before, &after);
    for (const int signal : {SIGTERM, SIGINT, SIGCHLD}) EXPECT_EQ(sigismember(&after, signal), 0);
}

TEST_F(PlayerTest, AHostThatReapsItsChildrenItselfNeverHangsStop) {
    reap_children_as_they_end();
    for (int i = 0; i < 10; ++i) {
        const int pid = play_until_ready("track");
        orvel_stop_music();
        EXPECT_TRUE(is_gone(pid));
    }
    signal(SIGCHLD, SIG_DFL);
}

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

TEST_F(PlayerTest, AHostWithThreadsPlaysAndStops) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (int j = 0; j < 20000; ++j) delete[] new char[1000];
        });
    }
    for (int i = 0; i < 10; ++i) EXPECT_EQ(play("track"), 0);
    for (std::thread& thread : threads) thread.join();
    orvel_stop_music();
    EXPECT_TRUE(is_gone(last_pid()));
}

TEST_F(PlayerTest, AHostWithoutStandardErrorIsServed) {
    const int saved = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 10);
    close(STDERR_FILENO);
    const int music = orvel_play_music("track");
    const int tone = orvel_play_tone(440.0, 10);
    const int missing = orvel_play_music("missing");
    dup2(saved, STDERR_FILENO);
    close(saved);
    EXPECT_EQ(music, 0);
    EXPECT_EQ(tone, 0);
    EXPECT_EQ(missing, -1);
    EXPECT_EQ(read_file(tone_file).size(), 44u + 2 * 441);
    end(last_pid());
}

// Which program plays what.

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
