// Music played by a stand-in for the system's player, which logs what becomes of it.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "orvel.h"
#include "support/child.h"
#include "support/files.h"
#include "system/ledger.h"
#include "system/system.h"

namespace orvel_test {

using Lines = std::vector<std::string>;

inline Lines lines_of(const std::string& text) {
    Lines lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

inline void reap_everything() {
    while (waitpid(-1, nullptr, 0) > 0 || errno == EINTR) {
    }
}

inline bool is_child(int pid) { return waitpid(pid, nullptr, WNOHANG) == 0; }
inline bool is_gone(int pid) { return waitpid(pid, nullptr, WNOHANG) < 0 && errno == ECHILD; }

/// Waits until the child has ended and leaves it unreaped; its exit status, or -1.
inline int status_when_ended(int pid) {
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

}  // namespace orvel_test
