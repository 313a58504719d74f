// Through libcanberra, which hands the sound to PulseAudio or PipeWire. It is loaded at the first
// sound and not linked, so that a host that only draws needs none of it.
#include "sound/system_sound.h"

#include <dlfcn.h>

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

template <typename Function>
bool find(void* library, const char* name, Function*& function) {
    function = reinterpret_cast<Function*>(dlsym(library, name));
    return function != nullptr;
}

/// libcanberra, loaded at the first call that finds it; null when it is not installed.
const Canberra* canberra() {
    static Canberra functions;
    static bool loaded = false;
    if (loaded) return &functions;
    void* library = dlopen("libcanberra.so.0", RTLD_NOW | RTLD_LOCAL);
    if (!library) return nullptr;
    loaded = find(library, "ca_context_create", functions.create) &&
             find(library, "ca_context_set_driver", functions.set_driver) &&
             find(library, "ca_context_cache", functions.cache) &&
             find(library, "ca_context_play", functions.play) &&
             find(library, "ca_context_destroy", functions.destroy);
    if (loaded) return &functions;
    dlclose(library);
    return nullptr;
}

/// What the server knows a file by: ASCII, whatever bytes the path is made of (FNV-1a). Not a
/// std::string: while a connection is open, nothing may be allocated that could fail.
struct EventId {
    char text[32];
    explicit EventId(const std::string& path) {
        std::uint64_t hash = 14695981039346656037u;
        for (const char c : path) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
        std::snprintf(text, sizeof text, "orvelsdk-%016llx", static_cast<unsigned long long>(hash));
    }
};

/// Uploads the file to the server's cache and plays it from there: such a sound is heard to its end
/// even when the host is gone.
bool upload_and_play(const Canberra& ca, ca_context* context, const std::string& path) {
    const EventId id(path);
    const char* const end = nullptr;
    if (ca.cache(context, "event.id", id.text, "media.filename", path.c_str(),
                 "canberra.cache-control", "permanent", end) != 0) {
        return false;
    }
    ca.play(context, 0, "event.id", id.text, "media.filename", path.c_str(),
            "canberra.cache-control", "permanent", end);
    return true;
}

}  // namespace

int play_system_sound(const std::string& path) {
    // libcanberra waits at a FIFO, and never closes a file that it refuses.
    if (!is_playable_effect(path.c_str())) return -1;
    const Canberra* ca = canberra();
    ca_context* context = nullptr;
    if (!ca || ca->create(&context) != 0) return -1;
    // The environment could name another driver (CANBERRA_DRIVER), and only this one has a cache.
    const bool played =
        ca->set_driver(context, "pulse") == 0 && upload_and_play(*ca, context, path);
    // A connection costs a millisecond. A kept one would leave a thread and descriptors in the
    // host, some of them open to its child processes, and would not survive a fork or the server.
    ca->destroy(context);
    return played ? 0 : -1;
}

}  // namespace orvel
