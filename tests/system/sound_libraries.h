// A libsndfile and a libpulse that play nothing, and fail as planned; and the clock by which their
// server is waited for.
#pragma once

#include <time.h>

#include <cstdint>
#include <string>

namespace orvel_test {

// In place of dlopen, dlsym, dlclose and clock_gettime; no other library is found.
void* load_library(const char* name, int mode);
void* find_in_library(void* library, const char* name);
int unload_library(void* library);
int tell_time(clockid_t clock, timespec* time);

/// How often each is loaded, in all. A library in use stays loaded to the end of the process.
int loaded_libraries();
/// Files, loops, connections, streams, operations and properties that were not released.
int live_sound_objects();

/// How the sound server takes what is asked of it.
struct SoundServer {
    int answers = 1000;             // then it is mute
    std::int64_t microseconds = 0;  // for each
    bool plays = true;
    std::string missing_function;  // of the libraries
};
SoundServer& sound_server();

/// What it has heard since that was last taken: "hello, 1 x 8000 Hz orvelsdk-7-af63dc4c8601ec8c,
/// 2 + 6 bytes, play, remove, bye".
std::string taken_story();

/// Microseconds of the clock, which only the waiting for an answer moves on.
std::int64_t& sound_clock();

}  // namespace orvel_test
