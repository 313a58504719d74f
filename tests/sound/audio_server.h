// A sound server for tests alone, whose only sink throws the sound away at the pace of a real one,
// and a recorder of what would have been heard.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "sound/samples.h"
#include "support/files.h"

namespace orvel_test {

using Clock = std::chrono::steady_clock;

enum class Server { pulseaudio, pipewire };

/// Whether its programs are here.
bool is_installed(Server server);

/// Daemons with runtime, home and configuration folders of their own, to which this process's
/// environment points from then on. Throws when they cannot be started.
class AudioServer {
public:
    explicit AudioServer(Server kind = Server::pulseaudio);
    ~AudioServer();
    AudioServer(const AudioServer&) = delete;
    AudioServer& operator=(const AudioServer&) = delete;

    void start();
    void stop();
    /// Sends a signal to the one that hosts speak with.
    void send(int signal) const;
    pid_t pid() const { return pids_.back(); }

    /// The path of its socket.
    const std::string& socket() const { return socket_; }
    /// The samples that it keeps, a line each.
    std::string kept_samples() const;

private:
    void start_pulseaudio(int log);
    void start_pipewire(int log);
    /// Waits until @p is_so, or throws with the log.
    void await(const std::function<bool()>& is_so);

    const Server kind_;
    TempFolder folder_;
    std::string socket_;
    std::vector<pid_t> pids_;
};

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

    /// Forgets what was recorded so far.
    void forget();

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

}  // namespace orvel_test
