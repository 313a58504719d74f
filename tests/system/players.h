// The children that play. Where the machine has no stand-in, they run no program: each waits for
// its end as the fork made it.
#pragma once

#include <sys/types.h>

namespace orvel_test {

// In place of fork, execl, _exit, kill and waitpid.
pid_t start_child();
int become_player(const char* program, const char* name, ...);
[[noreturn]] void leave_child(int status);
int end_child(pid_t pid, int signal);
pid_t wait_for_child(pid_t pid, int* status, int options);

int unreaped_players();
void end_all_players();

}  // namespace orvel_test
