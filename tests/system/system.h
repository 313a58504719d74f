// The system as the library meets it here: its calls reach the real one, unless they are to fail.
// Players are forked children that wait for their end in place of a program.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace orvel_test::torture {

struct Machine {
    std::vector<const char*> programs = {"/usr/bin/afplay"};  // that can be executed
    bool tracks_are_short = false;                            // players end by themselves, at once
};

/// Takes over the library's calls for the rest of the process; the tone file is @p tone_path.
void take_over_system(const std::string& tone_path);

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

}  // namespace orvel_test::torture
