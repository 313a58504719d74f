// Programs run as their users run them.
#pragma once

#include <string>
#include <vector>

namespace orvel_test {

/// How a program ended: its exit status, or minus the signal that ended it, and what it wrote.
struct Finished {
    int status;
    std::string output, error;
};

/// Runs the program @p arguments[0], found on the path if it has no slash, and waits for it.
Finished run(const std::vector<std::string>& arguments);

}  // namespace orvel_test
