// Through libcanberra, which hands the sound to PulseAudio or PipeWire. It is loaded at the first
// sound and not linked, so that a host that only draws needs none of it.
#include "sound/system_sound.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>

#include "sound/effect_file.h"

struct ca_context;  // libcanberra's

namespace orvel {
namespace {

struct Canberra {
    int (*create)(ca_context**);
    int (*set_driver)(ca_context*, const char*);
    int (*cache)(ca_context*, ...);
    int (*play)(ca_context*, std::uint32_t, ...);
    int (*destroy)(ca_context*);
};

Canberra s_canberra;
bool s_loaded = false;
ca_context* s_context = nullptr;  // the connection to the sound server, kept between sounds
pid_t s_owner = -1;               // the process that made it

template <typename Function>
bool find(void* library, const char* name, Function*& function) {
    function = reinterpret_cast<Function*>(dlsym(library, name));
    return function != nullptr;
}

bool load() {
    if (s_loaded) return true;
    void* library = dlopen("libcanberra.so.0", RTLD_NOW | RTLD_LOCAL);
    s_loaded = library && find(library, "ca_context_create", s_canberra.create) &&
               find(library, "ca_context_set_driver", s_canberra.set_driver) &&
               find(library, "ca_context_cache", s_canberra.cache) &&
               find(library, "ca_context_play", s_canberra.play) &&
               find(library, "ca_context_destroy", s_canberra.destroy);
    return s_loaded;
}

/// Keeps the standard descriptors taken while it lives. In a host that closed them a socket of the
/// sound service would otherwise get their numbers, and then every status line.
class StandardDescriptors {
public:
    StandardDescriptors() {
        do {
            last_ = open("/dev/null", O_RDWR | O_CLOEXEC);
            if (last_ >= 0 && last_ <= STDERR_FILENO) held_[last_] = true;
        } while (last_ >= 0 && last_ <= STDERR_FILENO);
        if (last_ >= 0) close(last_);
    }
    ~StandardDescriptors() {
        for (int i = 0; i <= STDERR_FILENO; ++i) {
            if (held_[i]) close(i);
        }
    }
    StandardDescriptors(const StandardDescriptors&) = delete;
    StandardDescriptors& operator=(const StandardDescriptors&) = delete;

private:
    int last_ = -1;
    bool held_[STDERR_FILENO + 1] = {};
};

void disconnect() {
    if (s_context) s_canberra.destroy(s_context);
    s_context = nullptr;
}

bool prepare() {
    if (s_context) return true;
    if (s_canberra.create(&s_context) != 0) {
        s_context = nullptr;
        return false;
    }
    s_owner = getpid();
    // Left to choose, libcanberra falls back to a driver that plays nothing and says all is well.
    if (s_canberra.set_driver(s_context, "pulse") == 0) return true;
    disconnect();
    return false;
}

/// What the server knows a file by: ASCII, whatever bytes the path is made of (FNV-1a).
std::string event_id(const std::string& path) {
    std::uint64_t hash = 14695981039346656037u;
    for (const char c : path) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
    char id[32];
    std::snprintf(id, sizeof id, "orvelsdk-%016llx", static_cast<unsigned long long>(hash));
    return id;
}

/// Uploads the file to the server's cache, from where a sound is heard to its end even when the
/// host exits at once.
bool upload(const std::string& id, const std::string& path) {
    const StandardDescriptors taken;
    return prepare() && s_canberra.cache(s_context, "event.id", id.c_str(), "media.filename",
                                         path.c_str(), "canberra.cache-control", "permanent",
                                         static_cast<const char*>(nullptr)) == 0;
}

}  // namespace

int play_system_sound(const std::string& path) {
    // libcanberra waits at a FIFO, and never closes a file that it refuses.
    if (!is_playable_effect(path.c_str()) || !load()) return -1;
    // The connection does not work in a child of the process that made it, nor can it be ended
    // there.
    if (s_context && s_owner != getpid()) return -1;

    const std::string id = event_id(path);
    const bool was_connected = s_context != nullptr;
    bool uploaded = upload(id, path);
    if (!uploaded) disconnect();
    if (!uploaded && was_connected) {  // the server may have been restarted since the last sound
        uploaded = upload(id, path);
        if (!uploaded) disconnect();
    }
    if (!uploaded) return -1;
    s_canberra.play(s_context, 0, "event.id", id.c_str(), "media.filename", path.c_str(),
                    "canberra.cache-control", "permanent", static_cast<const char*>(nullptr));
    return 0;
}

}  // namespace orvel
