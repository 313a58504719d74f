#include "core/state.h"

#include <cstdio>
#include <new>
#include <utility>

namespace orvel {

namespace {

// In memory without an end of its own, since hosts may call before this library is started and
// after it is finished: from the libraries that they bring, and at exit.
alignas(GlobalState) unsigned char s_memory[sizeof(GlobalState)];
GlobalState* g_state = nullptr;

/// Makes the state when the library is loaded; releases what it holds, and leaves it whole, when
/// the library is unloaded or the process exits.
struct Lifetime {
    Lifetime() noexcept { state(); }
    ~Lifetime() { std::string().swap(state().custom_resource_path); }
};
const Lifetime s_lifetime;

}  // namespace

GlobalState& state() {
    // No threads can meet here: the first call is made at the latest when the library is loaded.
    if (!g_state) g_state = new (s_memory) GlobalState;
    return *g_state;
}

}  // namespace orvel

using namespace orvel;

int orvel_init() {
    GlobalState& process = state();
    if (process.initialized) return 0;
    process.initialized = true;
    std::fprintf(stderr, "[OrvelSDK] inizializzato (v%s)\n", orvel_version());
    return 0;
}

const char* orvel_version() { return ORVEL_VERSION; }

void orvel_shutdown() {
    GlobalState& process = state();
    if (process.initialized) std::fputs("[OrvelSDK] chiuso\n", stderr);
    process.initialized = false;
}

int orvel_set_resource_path(const char* path) {
    if (!path) return -1;
    std::string copy(path);  // may throw; the old root is then still in force
    state().custom_resource_path = std::move(copy);
    return 0;
}
