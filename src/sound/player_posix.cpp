#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "core/files.h"
#include "sound/player.h"

namespace orvel {
namespace {

enum class Plays { all, all_but_m4a, m4a };

/// A program that plays one file once, silently, ends soon after SIGTERM and refuses what is not
/// audio.
struct Player {
    const char* program;
    const char* name;
    Plays plays;
    const char* options[3];  // given after the path
};

// In order of preference. Not here because they break a rule above: aplay plays anything as noise,
// ffplay never ends, gst-play-1.0 calls a failure a success.
constexpr Player kPlayers[] = {
    {"/usr/bin/afplay", "afplay", Plays::all, {}},
    {"/usr/bin/paplay", "paplay", Plays::all_but_m4a, {}},
    {"/usr/bin/pw-play", "pw-play", Plays::all_but_m4a, {}},
    {"/usr/bin/mpv", "mpv", Plays::m4a, {"--no-config", "--no-terminal", "--no-video"}},
};
constexpr const Player& kDocumentedPlayer = kPlayers[0];

bool is_executable(const Player& player) { return access(player.program, X_OK) == 0; }

/// Whether the file is of the MPEG-4 family: its first box is "ftyp".
bool is_m4a(const char* path) {
    char head[8] = {};
    File file;
    return file.open_for_reading(path) &&
           file.read(head, sizeof head, sizeof head) == sizeof head &&
           std::memcmp(head + 4, "ftyp", 4) == 0;
}

const Player& player_for(const char* path, Audio audio) {
    if (is_executable(kDocumentedPlayer)) return kDocumentedPlayer;
    const bool needs_mpv = audio == Audio::any && is_m4a(path);
    const Plays wanted = needs_mpv ? Plays::m4a : Plays::all_but_m4a;
    for (const Player& player : kPlayers) {
        if (player.plays == wanted && is_executable(player)) return player;
    }
    return kDocumentedPlayer;  // its absence ends the child with 127
}

/// The path as an argument that the player cannot take for an option.
std::string as_argument(const std::string& path, const Player& player) {
    const bool looks_like_option = path[0] == '-' && &player != &kDocumentedPlayer;
    return looks_like_option ? "./" + path : path;
}

// A stop may come before the exec. Until then the child has the handlers of the host, and one for
// SIGTERM would take the signal, which the player would never get.

/// Keeps SIGTERM from this thread, and from a child that it forks; the signals kept back before.
sigset_t hold_sigterm_back() {
    sigset_t sigterm, before;
    sigemptyset(&sigterm);
    sigaddset(&sigterm, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &sigterm, &before);
    return before;
}

/// As the exec will leave it: what the host ignores is ignored, what it handles ends the player.
struct sigaction what_a_player_does_on_sigterm() {
    struct sigaction action;
    sigaction(SIGTERM, nullptr, &action);
    if (action.sa_handler != SIG_IGN) action.sa_handler = SIG_DFL;
    return action;
}

}  // namespace

int start_player(const std::string& path, Audio audio) {
    // Everything is decided before the fork: in the child of a host with threads nothing but these
    // system calls is safe.
    const Player& player = player_for(path.c_str(), audio);
    const std::string argument = as_argument(path, player);
    const struct sigaction on_sigterm = what_a_player_does_on_sigterm();
    const sigset_t before = hold_sigterm_back();
    const pid_t pid = fork();
    if (pid != 0) {
        pthread_sigmask(SIG_SETMASK, &before, nullptr);
        return pid;
    }
    sigaction(SIGTERM, &on_sigterm, nullptr);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    execl(player.program, player.name, argument.c_str(), player.options[0], player.options[1],
          player.options[2], static_cast<char*>(nullptr));
    _exit(127);  // GCOVR_EXCL_LINE: ends the child, and its counts with it
}

void stop_player(int pid) {
    int status = 0;
    if (waitpid(pid, &status, WNOHANG) != 0) return;  // ended and reaped, or not ours any more
    kill(pid, SIGTERM);
    while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
}

}  // namespace orvel
