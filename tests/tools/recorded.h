// The recorded sessions of tests/golden/sessions, and the scenes that they are played on.
#pragma once

#include <cstdio>
#include <string>

namespace orvel_test {

struct Recorded {
    const char* session;
    const char* scene;
    const char* name = "";  // of a value that is another one than the sample's
    const char* value = "";

    /// The folder of the session, what it changes and its pictures.
    std::string folder() const {
        return std::string(ORVEL_SOURCE_DIR "/tests/golden/sessions/") + session;
    }
};

constexpr Recorded kSessions[] = {
    {"settings_by_keyboard", "scenes/settings/page.json"},
    {"greenhouse_by_pointer", "examples/greenhouse.json"},
    {"text_by_keys_and_mouse", "examples/greenhouse.json", "tab", "1"},
};

constexpr const char* kSessionWords = "/changes_and_end.txt";
constexpr const char* kSessionChecksums = "session_checksums.txt";

/// A line of kSessionChecksums.
inline std::string checksum_line(const std::string& name, unsigned long long checksum) {
    char line[150];
    std::snprintf(line, sizeof line, "%s %016llx\n", name.c_str(), checksum);
    return line;
}

}  // namespace orvel_test
