#include "support/child.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace orvel_test {

void leave(int status) {
#ifdef ORVEL_COVERAGE
    std::exit(status);  // the only end at which what was run is written down
#else
    _exit(status);
#endif
}

int in_child(const std::function<int()>& call) {
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("cannot fork");
    if (child == 0) leave(call());
    int status = 0;
    if (waitpid(child, &status, 0) != child) throw std::runtime_error("cannot wait");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

int as_another_user(const std::function<int()>& call) {
    return in_child([&call] {
        constexpr uid_t kNobody = 65534;
        if (getuid() == 0 && setuid(kNobody) != 0) return 99;
        return call();
    });
}

void reap_children_as_they_end() {
    struct sigaction action = {};
    action.sa_handler = [](int) {
        const int error = errno;
        while (waitpid(-1, nullptr, WNOHANG) > 0) {
        }
        errno = error;
    };
    sigaction(SIGCHLD, &action, nullptr);
}

int open_descriptors() {
    constexpr int kLimit = 1024;
    int count = 0;
    for (int descriptor = 0; descriptor < kLimit; ++descriptor) {
        if (fcntl(descriptor, F_GETFD) >= 0) ++count;
    }
    return count;
}

}  // namespace orvel_test
