// Music in hosts that do as they like with threads and children. The library as it is shipped, on a
// machine whose /usr/bin holds the stand-in player alone.
#include <gtest/gtest.h>
#include <sched.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "orvel.h"
#include "support/child.h"
#include "support/files.h"
#include "support/sanitizers.h"
#include "system/private_system.h"

namespace {

using namespace orvel_test;

bool has_no_child() { return waitpid(-1, nullptr, WNOHANG) < 0 && errno == ECHILD; }

class HostPlayersTest : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::copy_file("/usr/bin/true", programs / "quick");
        if (!cover("/usr/bin", programs.path())) {
            GTEST_SKIP() << "this system allows no view of the file system of our own";
        }
        covered = true;
        std::filesystem::copy_file(ORVEL_STAND_IN_PLAYER, programs / "afplay");
        write_file(folder / "Music/track.wav", "a track");
        orvel_set_resource_path(folder.path().c_str());
        setenv("ORVEL_PLAYER_LOG", (folder / "log").c_str(), 1);
        unsetenv("ORVEL_PLAYER_LENGTH");
    }
    void TearDown() override {
        if (covered) uncover("/usr/bin");
        orvel_set_resource_path("");
    }

    /// What @p host, in a process of its own that must come to an end, returned.
    static int in_a_host(const std::function<int()>& host) {
        return in_child([&host] {
            alarm(250);
            if (!std::freopen("/dev/null", "w", stderr)) return 90;
            return host();
        });
    }

    /// Plays and stops many times; 0 when every track started and no player is left in the end.
    static int play_and_stop(int times) {
        for (int i = 0; i < times; ++i) {
            if (orvel_play_music("track") != 0) return 1;
            if (i % 3 == 0) usleep(2000);  // some players get as far as to wait for the signal
            if (i % 2 == 0) orvel_stop_music();
        }
        orvel_stop_music();
        while (!has_no_child()) usleep(1000);  // the alarm ends this
        return 0;
    }

    const TempFolder folder, programs;
    bool covered = false;
};

TEST_F(HostPlayersTest, AThousandTracksStartWhileThreadsAllocate) {
    // Each fork copies the map of what the sanitizer keeps of freed memory: ten times slower.
    constexpr int kTracks = kAddressSanitizer ? 100 : 1000;
    std::filesystem::rename(programs / "quick", programs / "afplay");  // a player that just ends
    EXPECT_EQ(in_a_host([] {
                  std::atomic<bool> done{false};
                  std::vector<std::thread> threads;
                  for (int i = 0; i < 2; ++i) {
                      threads.emplace_back([&done] {
                          while (!done) {
                              for (std::size_t size = 1; size < 5000; size += 7) {
                                  const std::vector<char> memory(size);
                                  if (FILE* file = std::fopen("/dev/null", "r")) std::fclose(file);
                              }
                              usleep(1000);  // the players are to have their turn
                          }
                      });
                  }
                  int failures = 0;
                  for (int i = 0; i < kTracks; ++i) {
                      failures += orvel_play_music("track") != 0;
                      siginfo_t player = {};
                      waitid(P_ALL, 0, &player, WEXITED | WNOWAIT);
                      failures += player.si_code != CLD_EXITED || player.si_status != 0;
                  }
                  done = true;
                  for (std::thread& thread : threads) thread.join();
                  orvel_stop_music();
                  return failures == 0 && has_no_child() ? 0 : 1;
              }),
              0);
}

TEST_F(HostPlayersTest, AHostWhoseSignalHandlerReapsEveryChildIsServed) {
    EXPECT_EQ(in_a_host([] {
                  reap_children_as_they_end();
                  return play_and_stop(100);
              }),
              0);
}

TEST_F(HostPlayersTest, AHostThatIgnoresItsChildrenIsServed) {
    EXPECT_EQ(in_a_host([] {
                  signal(SIGCHLD, SIG_IGN);
                  return play_and_stop(100);
              }),
              0);
}

TEST_F(HostPlayersTest, AHostWithAThreadThatReapsEveryChildIsServed) {
    EXPECT_EQ(in_a_host([] {
                  std::thread([] {
                      for (;;) {
                          if (waitpid(-1, nullptr, 0) < 0) usleep(100);
                      }
                  }).detach();
                  return play_and_stop(100);
              }),
              0);
}

TEST_F(HostPlayersTest, ATonesPlayerIsTheHostsToReap) {
    EXPECT_EQ(in_a_host([] {
                  setenv("ORVEL_PLAYER_LENGTH", "0", 1);
                  if (orvel_play_tone(440.0, 10) != 0) return 1;
                  orvel_stop_music();
                  int status = -1;
                  if (waitpid(-1, &status, 0) <= 0 || status != 0) return 2;
                  return has_no_child() ? 0 : 3;
              }),
              0);
}

/// How the player of a track ended: its status, or minus the signal.
int end_of_the_player() {
    int status = -1;
    if (orvel_play_music("track") != 0 || waitpid(-1, &status, 0) <= 0) return -99;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

TEST_F(HostPlayersTest, NoPlayerIsLookedForAlongThePath) {
    const TempFolder elsewhere;
    std::filesystem::rename(programs / "afplay", programs / "none");
    std::filesystem::copy_file(programs / "quick", elsewhere / "afplay");
    EXPECT_EQ(in_a_host([&elsewhere] {
                  setenv("PATH", elsewhere.path().c_str(), 1);
                  return end_of_the_player();
              }),
              127);
}

TEST_F(HostPlayersTest, APlayerInheritsTheHostsEnvironment) {
    EXPECT_EQ(in_a_host([] {
                  setenv("ORVEL_PLAYER_LENGTH", "0", 1);
                  return end_of_the_player();
              }),
              0);
    EXPECT_EQ(read_file(folder / "log").rfind("start ", 0), 0u);  // where the environment says
}

/// Makes the next child of this process get the number @p pid, in a world of numbers of our own.
bool next_child_gets(pid_t pid) {
    std::FILE* const file = std::fopen("/proc/sys/kernel/ns_last_pid", "w");
    if (!file) return false;
    const bool written = std::fprintf(file, "%d", pid - 1) > 0;
    return std::fclose(file) == 0 && written;
}

TEST_F(HostPlayersTest, AChildOfTheHostsThatGotTheNumberOfAReapedPlayerIsTakenForIt) {
    constexpr int kImpossible = 77;
    const int status = in_a_host([] {
        if (unshare(CLONE_NEWPID) != 0) return kImpossible;
        return in_child([] {
            setenv("ORVEL_PLAYER_LENGTH", "0", 1);
            if (orvel_play_music("track") != 0) return 1;
            const pid_t player = waitpid(-1, nullptr, 0);
            if (!next_child_gets(player)) return kImpossible;
            const pid_t other = fork();
            if (other == 0) {
                pause();
                _exit(0);
            }
            if (other != player) return 2;
            orvel_stop_music();
            return has_no_child() ? 0 : 3;
        });
    });
    if (status == kImpossible) GTEST_SKIP() << "this system does not let us choose numbers";
    EXPECT_EQ(status, 0);
}

}  // namespace
