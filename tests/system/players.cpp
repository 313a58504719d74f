#include "system/players.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "support/child.h"
#include "system/ledger.h"
#include "system/shared.h"
#include "system/system.h"

namespace orvel_test {
namespace {

constexpr int kMostPlayers = 16;

struct Player {
    pid_t pid;
    bool ends;      // by itself
    char name[16];  // of the program; empty when none could be run
};

/// Shared with the players, which fill in what they become.
struct Players {
    Player all[kMostPlayers];
    int count;
};
Players& s_players = shared<Players>();
int s_started = -1;  // in a child, the end of a pipe that tells its parent by being closed

enum class State { plays, ended, gone };

State state_of(pid_t pid) {
    siginfo_t info = {};
    if (waitid(P_PID, static_cast<id_t>(pid), &info, WEXITED | WNOHANG | WNOWAIT) != 0) {
        return State::gone;
    }
    return info.si_pid == 0 ? State::plays : State::ended;
}

void wait_until_ended(pid_t pid) {
    siginfo_t info = {};
    waitid(P_PID, static_cast<id_t>(pid), &info, WEXITED | WNOWAIT);
}

void end_and_reap(pid_t pid) {
    kill(pid, SIGKILL);
    waitpid(pid, nullptr, 0);
}

bool is_player(pid_t pid) {
    for (int i = 0; i < s_players.count; ++i) {
        if (s_players.all[i].pid == pid) return true;
    }
    return false;
}

/// Returns in the parent when the child plays or has ended, so that their calls have one order.
pid_t start_waiting_child() {
    int ends[2];
    if (s_players.count == kMostPlayers || pipe2(ends, O_CLOEXEC) != 0) return -1;
    Player& player = s_players.all[s_players.count++];
    player = {};
    const pid_t pid = fork();
    close(ends[pid == 0 ? 0 : 1]);
    if (pid == 0) {
        s_started = ends[1];
        return 0;
    }
    char nothing;
    [[maybe_unused]] const ssize_t end_of_file = read(ends[0], &nothing, 1);
    close(ends[0]);
    player.pid = pid;
    if (player.ends) wait_until_ended(pid);
    return pid;
}

pid_t forked() {
    if (!machine().forks) return 4711;
    return machine().stand_in.empty() ? start_waiting_child() : fork();
}

/// Returns when the program cannot be run.
void wait_as_player(const char* program, const char* name) {
    if (s_started < 0) std::abort();  // the host itself would be replaced by the player
    Player& player = s_players.all[s_players.count - 1];
    player.ends = true;
    if (fails(Call::execl)) return;
    if (!is_installed(program)) {
        errno = ENOENT;
        return;
    }
    std::snprintf(player.name, sizeof player.name, "%s", name);
    if (machine().tracks_are_short) leave(0);
    player.ends = false;
    close(s_started);
    for (;;) pause();
}

/// The result of a call as a note shows it.
struct Outcome {
    explicit Outcome(int result) {
        const int error = errno;
        std::snprintf(text, sizeof text, result < 0 ? "error %d" : "%d",
                      result < 0 ? error : result);
        if (result < 0 && error == ECHILD) std::strcpy(text, "ECHILD");
        if (result < 0 && error == EINTR) std::strcpy(text, "EINTR");
        errno = error;
    }
    char text[20];
};

int end_as_planned(pid_t pid, int signal) {
    const bool failing = fails(Call::kill);
    if (!failing && !machine().stand_in.empty() && pid > 0) return kill(pid, signal);
    if (!is_player(pid)) return -1;  // not even when the library asks for everybody's end
    if (!failing) return kill(pid, signal);
    kill(pid, SIGKILL);  // without a signal of the library's the track plays to its end
    errno = EPERM;
    return -1;
}

pid_t wait_as_planned(pid_t pid, int* status, int options) {
    const Way way = way_of(options & WNOHANG ? Call::poll_child : Call::wait_for_child);
    if (way == Way::succeeds) return waitpid(pid, status, options);
    if (way == Way::fails && is_player(pid)) {
        end_and_reap(pid);  // as a host does that waits for all its children
        errno = ECHILD;
    }
    return -1;
}

}  // namespace

pid_t start_child() {
    const pid_t pid = fails(Call::fork) ? -1 : forked();
    if (pid != 0) note("fork = %d", pid);
    return pid;
}

int become_player(const char* program, const char* name, ...) {
    note("execl %s", program);
    if (machine().stand_in.empty()) {
        wait_as_player(program, name);
        return -1;
    }
    const char* arguments[8] = {name};
    va_list list;
    va_start(list, name);
    for (int i = 1; (arguments[i] = va_arg(list, const char*)); ++i) {
    }
    va_end(list);
    return execv(machine().stand_in.c_str(), const_cast<char**>(arguments));
}

void leave_child(int status) {
    note("_exit %d", status);
    _exit(status);
}

int end_child(pid_t pid, int signal) {
    const int result = end_as_planned(pid, signal);
    note("kill %d %d = %s", pid, signal, Outcome(result).text);
    return result;
}

pid_t wait_for_child(pid_t pid, int* status, int options) {
    const pid_t result = wait_as_planned(pid, status, options);
    note("waitpid %d%s = %s", pid, options == WNOHANG ? " WNOHANG" : "", Outcome(result).text);
    return result;
}

std::string players() {
    constexpr const char* kStates[] = {" plays", " ended", " is gone"};
    std::string text;
    for (int i = 0; i < s_players.count; ++i) {
        const Player& player = s_players.all[i];
        const State state = state_of(player.pid);
        text += std::string(text.empty() ? "" : ", ") + (*player.name ? player.name : "no player") +
                kStates[static_cast<int>(state)];
    }
    return text.empty() ? "no child" : text;
}

int unreaped_players() {
    int count = 0;
    for (int i = 0; i < s_players.count; ++i) {
        if (state_of(s_players.all[i].pid) != State::gone) ++count;
    }
    return count;
}

void end_all_players() {
    for (int i = 0; i < s_players.count; ++i) {
        if (state_of(s_players.all[i].pid) != State::gone) end_and_reap(s_players.all[i].pid);
    }
    s_players.count = 0;
}

}  // namespace orvel_test
