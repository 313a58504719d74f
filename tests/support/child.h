// Child processes for what a test must not do to itself.
#pragma once

#include <functional>

namespace orvel_test {

/// Ends a forked child, which leaves nothing of the host's behind but counts of what was run.
[[noreturn]] void leave(int status);

/// Runs @p call in a forked child and returns what it returned, or minus the signal that ended it.
int in_child(const std::function<int()>& call);

/// The same as a user whom file permissions bind, also when the tests run as root.
int as_another_user(const std::function<int()>& call);

/// Installs a handler of SIGCHLD that reaps every child, as hosts have.
void reap_children_as_they_end();

/// How many descriptors this process has open.
int open_descriptors();

}  // namespace orvel_test
