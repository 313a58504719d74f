// A sound server for tests alone: a private PulseAudio daemon whose only sink throws the sound away
// at the pace of a real one, and a recorder of what would have been heard.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "support/files.h"

namespace orvel_test {

using Clock = std::chrono::steady_clock;

/// A daemon with runtime, home and configuration folders of its own, to which this process's
/// environment points from then on. Throws when it cannot be started.
class AudioServer {
public:
    AudioServer();
    ~AudioServer();
    AudioServer(const AudioServer&) = delete;
    AudioServer& operator=(const AudioServer&) = delete;

    void start();
    void stop();

private:
    TempFolder folder_;
    std::string socket_;
    pid_t pid_ = -1;
};

/// 44100 samples a second.
using Samples = std::vector<std::int16_t>;

/// Everything that is heard, from its construction on.
class Recorder {
public:
    Recorder();
    ~Recorder();
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    /// Waits until something is heard; false after ten seconds of silence.
    bool wait_for_sound() const;
    /// Waits until the last @p milliseconds were silent; false when that takes ten seconds.
    bool wait_for_silence(int milliseconds) const;
    /// Waits until that much more has been recorded.
    void wait(int milliseconds) const;

    Samples samples() const;
    /// When the last sample that was not silent came in.
    Clock::time_point last_sound() const;

private:
    void read();

    int pipe_ = -1;
    pid_t pid_ = -1;
    mutable std::mutex mutex_;
    Samples samples_;
    Clock::time_point last_sound_;
    std::thread reader_;
};

/// The part from the first sample that is not silent to the last.
Samples heard(const Samples& recording);
/// As a length in milliseconds.
double milliseconds(const Samples& samples);
/// Which share of the energy lies at that frequency, from 0 to 1.
double share_at(double frequency_hz, const Samples& samples);
/// The samples of [from, to) milliseconds.
Samples part(const Samples& samples, double from, double to);

/// A sine of @p duration_ms, its peak at @p peak.
Samples sine(double frequency_hz, int duration_ms, int peak = 12000);
std::string wav_file(const Samples& samples);
std::string aiff_file(const Samples& samples);

}  // namespace orvel_test
