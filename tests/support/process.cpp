#include "support/process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <stdexcept>

#include "support/files.h"

extern char** environ;

namespace orvel_test {

Finished run(const std::vector<std::string>& arguments) {
    const TempFolder folder;
    const std::string output = folder / "output", error = folder / "error";
    std::vector<char*> argv;
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    constexpr int kCreate = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, output.c_str(), kCreate, 0600);
    posix_spawn_file_actions_addopen(&actions, 2, error.c_str(), kCreate, 0600);
    pid_t child = 0;
    const int failure = posix_spawnp(&child, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) throw std::runtime_error("cannot run " + arguments[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), read_file(output),
            read_file(error)};
}

}  // namespace orvel_test
