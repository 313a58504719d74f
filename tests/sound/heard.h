// Tests that listen: a sound server, a resource folder, and what the library plays from it.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "sound/audio_server.h"
#include "sound/samples.h"
#include "support/files.h"

namespace orvel_test {

/// What of this process an effect could leave behind: threads, descriptors, the signals that are
/// blocked, ignored or handled, and memory that is shared with the server.
std::string state_of_process();

class HeardTest : public testing::Test {
protected:
    explicit HeardTest(Server kind = Server::pulseaudio);
    ~HeardTest() override;

    void add_sound(const std::string& name, const std::string& bytes) const {
        write_file(folder / ("Sounds/" + name), bytes);
    }
    void add_music(const std::string& name, const std::string& bytes) const {
        write_file(folder / ("Music/" + name), bytes);
    }

    static int quietly(int (*play)(const char*), const char* name);
    static int play_tone(double frequency_hz, int duration_ms);

    /// Waits for one sound and checks its length and its pitch, the fades left out.
    static void expect_sound(const Recorder& recorder, double frequency_hz, double duration_ms);
    void play_and_expect(const char* effect, double frequency_hz, double duration_ms) const;

    /// A host that plays the effect and ends: with 0 when it was taken, and its standard streams
    /// are as open as they were.
    pid_t start_host(const char* effect, bool with_streams = true) const;
    static int status_of(pid_t host);

    const TempFolder folder;
    AudioServer server;
};

}  // namespace orvel_test
