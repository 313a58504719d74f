// The system as the shipped library meets it here: its calls are recorded and reach the real one,
// unless they are to fail. Players are forked children that wait for their end in place of a
// program, or run a stand-in.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace orvel_test {

struct Machine {
    std::vector<const char*> programs = {"/usr/bin/afplay"};  // that can be executed
    bool tracks_are_short = false;                            // players end by themselves, at once
    std::string stand_in;             // a program that runs in place of any player
    bool forks = true;                // else a child is a number alone
    bool keeps_log = false;           // for taken_log(), in place of printing it
    std::function<void()> meanwhile;  // what another thread does just before the next open()

    // What the library did: how it opened the last file, and how long it would have slept.
    int opened_flags = 0, opened_as = -1;
    double seconds_slept = 0;
};

/// Takes over the library's calls for the rest of the process; the tone file is @p tone_path.
void take_over_system(const std::string& tone_path);

/// A machine as at first, on which nothing fails, nothing recorded, and @p stand_in to run in place
/// of any player.
void begin_anew(const std::string& stand_in);

/// Counts an allocation and says whether it fails.
bool allocation_fails();

/// What is imported under these names can fail, and does as planned.
std::set<std::string> functions_that_can_fail();

/// The machine of the next calls.
Machine& machine();
bool is_installed(const char* program);

/// What the library has written to the standard error stream since it was last taken.
std::string taken_log();

/// The players started since the last clean_up(), each with what became of it: "afplay plays",
/// "afplay ended" or, when it was reaped, "afplay is gone". A child without a program is "no
/// player".
std::string players();

/// What the library has not given back: "; 1 file left" and so on; empty when there is nothing.
std::string left_behind();

/// Ends and releases what was left behind, and forgets it.
void clean_up();

}  // namespace orvel_test
