#include "system/recorded_system.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstring>

namespace orvel_test {
namespace {

const pid_t s_test_process = getpid();

std::string number(long long value) { return std::to_string(value); }

std::string outcome(long long result) {
    if (result >= 0) return number(result);
    if (errno == ECHILD) return "ECHILD";
    return errno == EINTR ? "EINTR" : "error " + number(errno);
}

void note(const std::string& call) {
    const int error = errno;
    if (getpid() == s_test_process) {
        recorded_system().calls.push_back(call);
    } else {
        const int log = open(recorded_system().child_log.c_str(),
                             O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
        const std::string line = "child " + call + "\n";
        [[maybe_unused]] const ssize_t written = write(log, line.data(), line.size());
        close(log);
    }
    errno = error;
}

}  // namespace

RecordedSystem& recorded_system() {
    static RecordedSystem system;
    return system;
}

std::string RecordedSystem::call_names() const {
    std::string names;
    for (const std::string& call : calls) {
        names += (names.empty() ? "" : " ") + call.substr(0, call.find(' '));
    }
    return names;
}

}  // namespace orvel_test

using orvel_test::note;
using orvel_test::number;
using orvel_test::outcome;
using orvel_test::recorded_system;

extern "C" {

int recorded_access(const char* path, int mode);
pid_t recorded_fork();
int recorded_execl(const char* program, const char* name, ...);
void recorded__exit(int status);
int recorded_kill(pid_t pid, int signal);
pid_t recorded_waitpid(pid_t pid, int* status, int options);
int recorded_nanosleep(const timespec* time, timespec* left);
int recorded_open(const char* path, int flags, ...);
ssize_t recorded_write(int file, const void* bytes, size_t size);

int recorded_access(const char* path, int mode) {
    const bool found = mode == X_OK && recorded_system().executable.count(path) != 0;
    note("access " + std::string(path) + (found ? " = 0" : " = -1"));
    return found ? 0 : -1;
}

pid_t recorded_fork() {
    if (recorded_system().fork_fails) {
        note("fork = -1");
        errno = EAGAIN;
        return -1;
    }
    const pid_t pid = fork();
    if (pid != 0) note("fork = " + number(pid));
    return pid;
}

int recorded_execl(const char* program, const char* name, ...) {
    std::vector<std::string> arguments = {name};
    va_list list;
    va_start(list, name);
    while (const char* argument = va_arg(list, const char*)) arguments.emplace_back(argument);
    va_end(list);
    note("execl " + std::string(program));
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    return execv(recorded_system().stand_in.c_str(), pointers.data());
}

void recorded__exit(int status) {
    note("_exit " + number(status));
    _exit(status);
}

int recorded_kill(pid_t pid, int signal) {
    const int result = pid > 0 ? kill(pid, signal) : -1;  // -1 would be every process
    note("kill " + number(pid) + " " + number(signal) + " = " + outcome(result));
    return result;
}

pid_t recorded_waitpid(pid_t pid, int* status, int options) {
    const pid_t result = waitpid(pid, status, options);
    note("waitpid " + number(pid) + (options == WNOHANG ? " WNOHANG" : "") + " = " +
         outcome(result));
    return result;
}

int recorded_open(const char* path, int flags, ...) {
    va_list list;
    va_start(list, flags);
    const int mode = flags & O_CREAT ? va_arg(list, int) : 0;
    va_end(list);
    if (path == recorded_system().busy_path) {
        ++recorded_system().busy_opens;
        errno = EWOULDBLOCK;
        return -1;
    }
    if (recorded_system().closed_before_open >= 0) {
        close(recorded_system().closed_before_open);
        recorded_system().closed_before_open = -1;
    }
    if (std::strcmp(path, "/tmp/orvelsdk_tone.wav") != 0) return open(path, flags, mode);
    note("open " + std::string(path));
    recorded_system().tone_open_flags = flags;
    return open(recorded_system().tone_path.c_str(), flags, mode);
}

int recorded_nanosleep(const timespec* time, timespec*) {
    recorded_system().seconds_slept += double(time->tv_sec) + double(time->tv_nsec) / 1e9;
    return 0;
}

ssize_t recorded_write(int file, const void* bytes, size_t size) {
    note("write " + number(static_cast<long long>(size)));
    return write(file, bytes, size);
}

}  // extern "C"
