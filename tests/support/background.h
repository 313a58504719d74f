// Programs that run beside a test until they are stopped.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace orvel_test {

class Background {
public:
    /// Runs @p arguments[0]. What it prints goes to the file @p output, its errors to that name
    /// with ".error".
    Background(const std::vector<std::string>& arguments, const std::string& output);
    ~Background() { stop(); }
    Background(const Background&) = delete;
    Background& operator=(const Background&) = delete;

    /// Asks it to end; returns its exit status, -1 when a signal ended it.
    int stop();
    pid_t pid() const { return pid_; }

private:
    pid_t pid_ = 0;
};

void pause(int milliseconds);

}  // namespace orvel_test
