// Plays nothing; writes down how it was started and what it is told.
//   ORVEL_PLAYER_LOG       the file that it adds its lines to
//   ORVEL_PLAYER_LENGTH    how long its "track" lasts, in milliseconds; for ever when unset
//   ORVEL_PLAYER_LINGER    how long it takes to end after SIGTERM, in milliseconds
// Lines: "start PID", "argument TEXT" for every argument, "descriptors 0 1 2 ...",
// "blocked" when SIGTERM is blocked, "ready PID", then "SIGTERM PID" or "end PID".
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace {

int s_wake[2];

void on_sigterm(int) { [[maybe_unused]] const ssize_t written = write(s_wake[1], "T", 1); }

void add_line(const std::string& line) {
    const int log = open(std::getenv("ORVEL_PLAYER_LOG"), O_WRONLY | O_CREAT | O_APPEND, 0600);
    const std::string text = line + "\n";
    [[maybe_unused]] const ssize_t written = write(log, text.data(), text.size());
    close(log);
}

int milliseconds(const char* variable, int otherwise) {
    const char* text = std::getenv(variable);
    return text ? std::atoi(text) : otherwise;
}

std::string open_descriptors() {
    std::string numbers;
    for (int descriptor = 0; descriptor < 1024; ++descriptor) {
        if (fcntl(descriptor, F_GETFD) >= 0) numbers += " " + std::to_string(descriptor);
    }
    return numbers;
}

}  // namespace

int main(int count, char** arguments) {
    const std::string pid = " " + std::to_string(getpid());
    const std::string descriptors = open_descriptors();
    add_line("start" + pid);
    for (int i = 0; i < count; ++i) add_line(std::string("argument ") + arguments[i]);
    add_line("descriptors" + descriptors);

    sigset_t blocked;
    sigprocmask(SIG_BLOCK, nullptr, &blocked);
    if (sigismember(&blocked, SIGTERM)) add_line("blocked");
    if (pipe(s_wake) != 0) return 1;
    struct sigaction action = {};
    action.sa_handler = on_sigterm;
    sigaction(SIGTERM, &action, nullptr);
    add_line("ready" + pid);

    pollfd wake = {s_wake[0], POLLIN, 0};
    const int length = milliseconds("ORVEL_PLAYER_LENGTH", -1);
    int events = poll(&wake, 1, length);
    if (events < 0) events = poll(&wake, 1, length);  // the handler interrupted it
    if (events == 0) {
        add_line("end" + pid);
        _exit(0);
    }
    add_line("SIGTERM" + pid);
    usleep(static_cast<useconds_t>(1000 * milliseconds("ORVEL_PLAYER_LINGER", 0)));
    _exit(0);
}
