#include "core/state.h"

#include <cstdio>
#include <utility>

namespace orvel {
namespace {

GlobalState g_state;

}  // namespace

GlobalState& state() { return g_state; }

}  // namespace orvel

int orvel_init() {
    orvel::GlobalState& state = orvel::state();
    if (state.initialized) return 0;
    state.initialized = true;
    std::fprintf(stderr, "[OrvelSDK] inizializzato (v%s)\n", orvel_version());
    return 0;
}

const char* orvel_version() { return ORVEL_VERSION; }

void orvel_shutdown() {
    orvel::GlobalState& state = orvel::state();
    if (state.initialized) std::fputs("[OrvelSDK] chiuso\n", stderr);
    state.initialized = false;
}

int orvel_set_resource_path(const char* path) {
    if (!path) return -1;
    std::string copy(path);  // may throw; the old root is then still in force
    orvel::state().custom_resource_path = std::move(copy);
    return 0;
}
