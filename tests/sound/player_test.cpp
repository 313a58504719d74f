// How a player is started, stopped and reaped.
#include <fcntl.h>

#include <cstdio>
#include <thread>

#include "music_player.h"

namespace {

using namespace orvel_test;

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

}  // namespace
