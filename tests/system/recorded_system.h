// The system calls of the sound sources, recorded on their way to the real ones. The sources are
// compiled into the tests with these calls renamed to recorded_..., see sound.cmake.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace orvel_test {

struct RecordedSystem {
    std::vector<std::string> calls;    // of this process, in order, with their results
    std::set<std::string> executable;  // the programs that access() finds
    std::string stand_in;              // the program that execl() runs in place of any other
    std::string tone_path;             // the file that open() opens in place of the tone file
    std::string child_log;             // the file in which a forked child notes its calls
    std::string busy_path;             // what open() finds under a lease
    int busy_opens = 0;                // how often it did
    double seconds_slept = 0;          // which nobody has waited
    int closed_before_open = -1;       // what the host closes just before an open()
    bool fork_fails = false;
    int tone_open_flags = 0;

    /// The names of the calls without arguments and results, one word each.
    std::string call_names() const;
};

/// The recorder of this process.
RecordedSystem& recorded_system();

}  // namespace orvel_test
