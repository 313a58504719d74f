#include "support/background.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <thread>

extern char** environ;

namespace orvel_test {

Background::Background(const std::vector<std::string>& arguments, const std::string& output) {
    std::vector<char*> argv;
    for (const auto& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    constexpr int kCreate = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_addopen(&actions, 1, output.c_str(), kCreate, 0600);
    posix_spawn_file_actions_addopen(&actions, 2, (output + ".error").c_str(), kCreate, 0600);
    if (posix_spawnp(&pid_, argv[0], &actions, nullptr, argv.data(), environ) != 0) pid_ = 0;
    posix_spawn_file_actions_destroy(&actions);
}

int Background::stop() {
    int status = 0;
    if (pid_ == 0) return -1;
    kill(pid_, SIGTERM);
    waitpid(pid_, &status, 0);
    pid_ = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void pause(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace orvel_test
