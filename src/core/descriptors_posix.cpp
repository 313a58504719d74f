#include "core/descriptors_posix.h"

#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>

namespace orvel {
namespace {

// Never destroyed: hosts may call when the library is already finished.
pthread_mutex_t s_mutex = PTHREAD_MUTEX_INITIALIZER;

class Locked {
public:
    Locked() { pthread_mutex_lock(&s_mutex); }
    ~Locked() { pthread_mutex_unlock(&s_mutex); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
};

bool is_of_a_stream(int number) { return number >= STDIN_FILENO && number <= STDERR_FILENO; }

bool is_open(int number) { return fcntl(number, F_GETFD) >= 0; }

bool streams_are_open() {
    return is_open(STDIN_FILENO) && is_open(STDOUT_FILENO) && is_open(STDERR_FILENO);
}

/// While one lives, no number of a standard stream is free, so none is given to a file. Those that
/// the host left free are held by descriptors that can be neither written to nor read from: what is
/// printed meanwhile fails, as it does where the stream is closed.
class HeldStreams {
public:
    HeldStreams() {
        if (s_users == 0 && streams_are_open()) return;  // as in most hosts, which need no lock
        const Locked lock;
        ++s_users;
        holds_ = true;
        complete_ = hold();
    }
    ~HeldStreams() {
        if (!holds_) return;
        const int error = errno;
        const Locked lock;
        if (--s_users == 0) release();
        errno = error;
    }
    HeldStreams(const HeldStreams&) = delete;
    HeldStreams& operator=(const HeldStreams&) = delete;

    bool complete() const { return complete_; }

private:
    static bool hold() {
        while (!streams_are_open()) {
            const int number = open("/", O_RDONLY | O_CLOEXEC);
            if (number < 0) return false;
            if (!is_of_a_stream(number)) {  // the host has opened the others meanwhile
                close(number);
                return true;
            }
            s_held[number] = true;
        }
        return true;
    }

    static void release() {
        for (int number = STDIN_FILENO; number <= STDERR_FILENO; ++number) {
            if (s_held[number] && !is_the_hosts(number)) close(number);
            s_held[number] = false;
        }
    }

    /// What is no folder any more, the host has put there meanwhile.
    static bool is_the_hosts(int number) {
        struct stat info = {};
        return fstat(number, &info) == 0 && !S_ISDIR(info.st_mode);
    }

    // Of all threads together: what one holds looks taken to the others, so the last one releases.
    static std::atomic<int> s_users;
    static bool s_held[STDERR_FILENO + 1];

    bool holds_ = false, complete_ = true;
};

std::atomic<int> HeldStreams::s_users{0};
bool HeldStreams::s_held[STDERR_FILENO + 1] = {};

void wait_milliseconds(long count) {
    const timespec time = {0, count * 1'000'000};
    nanosleep(&time, nullptr);
}

}  // namespace

int open_beside_streams(const char* path, int flags) {
    for (;;) {
        const HeldStreams streams;
        if (!streams.complete()) return -1;
        const int descriptor = open(path, flags | O_CLOEXEC, 0666);
        if (!is_of_a_stream(descriptor)) return descriptor;
        close(descriptor);  // the host has closed a file of its own there in between
    }
}

int open_promptly(const char* path, int flags, bool (*is_waited_for)(const struct stat&)) {
    // To wait in open(2) could mean to wait for a FIFO that has come to this path meanwhile. The
    // kernel ends a lease after 45 seconds unless it is told otherwise; who still meets one after
    // two minutes meets ever new ones.
    constexpr int kTries = 480;
    const int link = flags & O_NOFOLLOW ? AT_SYMLINK_NOFOLLOW : 0;
    int descriptor = -1;
    long milliseconds = 1;
    for (int i = 0; i < kTries; ++i) {
        descriptor = open_beside_streams(path, flags | O_NONBLOCK | O_NOCTTY);
        if (descriptor >= 0 || errno != EWOULDBLOCK) break;
        struct stat info = {};
        if (fstatat(AT_FDCWD, path, &info, link) != 0 || !is_waited_for(info)) break;
        wait_milliseconds(milliseconds);
        milliseconds = std::min(2 * milliseconds, 256L);
    }
    return descriptor;
}

bool is_regular(const struct stat& info) { return S_ISREG(info.st_mode); }

}  // namespace orvel
