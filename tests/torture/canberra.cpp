#include "torture/canberra.h"

#include <cstdint>
#include <cstring>

#include "torture/ledger.h"

struct ca_context {};

namespace orvel_test::torture {
namespace {

constexpr int kSuccess = 0, kError = -4;

ca_context s_context;
int s_loaded = 0;
int s_connections = 0;

int result_of(Call call) { return fails(call) ? kError : kSuccess; }

int create(ca_context** context) {
    if (fails(Call::ca_create)) return kError;
    ++s_connections;
    *context = &s_context;
    return kSuccess;
}

int set_driver(ca_context*, const char*) { return result_of(Call::ca_set_driver); }
int cache(ca_context*, ...) { return result_of(Call::ca_cache); }
int play(ca_context*, std::uint32_t, ...) { return result_of(Call::ca_play); }

int destroy(ca_context*) {
    --s_connections;
    return result_of(Call::ca_destroy);
}

}  // namespace

void* load_library(const char* name, int) {
    if (fails(Call::dlopen) || std::strcmp(name, "libcanberra.so.0") != 0) return nullptr;
    ++s_loaded;
    return &s_loaded;
}

void* find_in_library(void* library, const char* name) {
    if (fails(Call::dlsym) || library != &s_loaded) return nullptr;
    if (std::strcmp(name, "ca_context_create") == 0) return reinterpret_cast<void*>(create);
    if (std::strcmp(name, "ca_context_set_driver") == 0) return reinterpret_cast<void*>(set_driver);
    if (std::strcmp(name, "ca_context_cache") == 0) return reinterpret_cast<void*>(cache);
    if (std::strcmp(name, "ca_context_play") == 0) return reinterpret_cast<void*>(play);
    if (std::strcmp(name, "ca_context_destroy") == 0) return reinterpret_cast<void*>(destroy);
    return nullptr;
}

int unload_library(void* library) {
    if (library == &s_loaded) --s_loaded;
    return 0;
}

int loaded_libraries() { return s_loaded; }
int open_connections() { return s_connections; }

}  // namespace orvel_test::torture
