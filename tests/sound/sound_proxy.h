// A sound server that makes trouble: it hands everything on to a real one, as long as it does.
#pragma once

#include <sys/types.h>

#include <string>

namespace orvel_test {

struct Trouble {
    long after = 0;       // bytes that have passed, both ways together
    bool stalls = false;  // nothing passes any more
    int signal = 0;       // gets the real server
    int delay_ms = 0;     // of everything, from the first byte on
};

/// A process of its own that serves one host after the other.
class SoundProxy {
public:
    /// Hosts find it at @p socket.
    SoundProxy(const std::string& socket, const std::string& server, pid_t server_pid,
               const Trouble& trouble);
    ~SoundProxy();
    SoundProxy(const SoundProxy&) = delete;
    SoundProxy& operator=(const SoundProxy&) = delete;

    /// How many bytes have passed.
    long passed() const { return *passed_; }

private:
    long* passed_;
    pid_t pid_;
};

/// A socket at @p path that accepts connections and never answers, as long as the descriptor is
/// open.
int mute_socket(const std::string& path);

/// A connection to the socket at @p path, or -1.
int connected_socket(const std::string& path);

}  // namespace orvel_test
