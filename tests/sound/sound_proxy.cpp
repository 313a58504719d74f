#include "sound/sound_proxy.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace orvel_test {
namespace {

sockaddr_un address_of(const std::string& path) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) throw std::runtime_error("path too long");
    std::memcpy(address.sun_path, path.c_str(), path.size());
    return address;
}

/// One host, until it or the server leaves.
class Relay {
public:
    Relay(int host, const std::string& server, pid_t server_pid, const Trouble& trouble,
          long& passed)
        : ends_{host, connected_socket(server)},
          server_pid_(server_pid),
          trouble_(trouble),
          passed_(passed) {}
    ~Relay() {
        close(ends_[0]);
        close(ends_[1]);
    }
    Relay(const Relay&) = delete;
    Relay& operator=(const Relay&) = delete;

    void run() {
        for (;;) {
            pollfd waiting[2] = {{ends_[0], POLLIN, 0}, {ends_[1], POLLIN, 0}};
            poll(waiting, 2, -1);
            for (int from = 0; from < 2; ++from) {
                if (waiting[from].revents != 0 && !pass(ends_[from], ends_[1 - from])) return;
            }
        }
    }

private:
    bool pass(int from, int to) {
        const bool in_time = passed_ < trouble_.after;
        char bytes[4096];
        const long most = in_time && trouble_.stalls ? trouble_.after - passed_ : 4096;
        const ssize_t size = read(from, bytes, static_cast<std::size_t>(std::min(most, 4096L)));
        if (size <= 0) return false;
        if (trouble_.delay_ms > 0) usleep(static_cast<useconds_t>(trouble_.delay_ms) * 1000);
        passed_ += size;
        const bool is_time = in_time && passed_ >= trouble_.after;
        // Before these bytes arrive, or the server might still answer them.
        if (is_time && trouble_.signal != 0) kill(server_pid_, trouble_.signal);
        const bool sent = send(to, bytes, static_cast<std::size_t>(size), MSG_NOSIGNAL) == size;
        while (is_time && trouble_.stalls) pause();
        return sent;
    }

    const int ends_[2];
    const pid_t server_pid_;
    const Trouble trouble_;
    long& passed_;
};

}  // namespace

int mute_socket(const std::string& path) {
    const sockaddr_un address = address_of(path);
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener, 16) != 0) {
        throw std::runtime_error("no socket at " + path);
    }
    return listener;
}

int connected_socket(const std::string& path) {
    const sockaddr_un address = address_of(path);
    const int client = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connect(client, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) {
        return client;
    }
    close(client);
    return -1;
}

SoundProxy::SoundProxy(const std::string& socket, const std::string& server, pid_t server_pid,
                       const Trouble& trouble)
    : passed_(static_cast<long*>(
          mmap(nullptr, sizeof(long), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {
    const int listener = mute_socket(socket);
    pid_ = fork();
    if (pid_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        for (;;)
            Relay(accept(listener, nullptr, nullptr), server, server_pid, trouble, *passed_).run();
    }
    close(listener);
}

SoundProxy::~SoundProxy() {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
    munmap(passed_, sizeof(long));
}

}  // namespace orvel_test
