#include "sound/sound_libraries_linux.h"

#include <dlfcn.h>

namespace orvel {
namespace {

template <typename Function>
bool find(void* library, const char* name, Function*& function) {
    function = reinterpret_cast<Function*>(dlsym(library, name));
    return function != nullptr;
}

bool find_all(void* library, Sndfile& functions) {
    return find(library, "sf_open_fd", functions.open_fd) &&
           find(library, "sf_readf_float", functions.readf_float) &&
           find(library, "sf_close", functions.close);
}

bool find_loop(void* library, Pulse& functions) {
    return find(library, "pa_mainloop_new", functions.mainloop_new) &&
           find(library, "pa_mainloop_get_api", functions.mainloop_get_api) &&
           find(library, "pa_mainloop_prepare", functions.mainloop_prepare) &&
           find(library, "pa_mainloop_poll", functions.mainloop_poll) &&
           find(library, "pa_mainloop_dispatch", functions.mainloop_dispatch) &&
           find(library, "pa_mainloop_free", functions.mainloop_free);
}

bool find_context(void* library, Pulse& functions) {
    return find(library, "pa_context_new", functions.context_new) &&
           find(library, "pa_context_connect", functions.context_connect) &&
           find(library, "pa_context_get_state", functions.context_get_state) &&
           find(library, "pa_context_play_sample_with_proplist",
                functions.context_play_sample_with_proplist) &&
           find(library, "pa_context_remove_sample", functions.context_remove_sample) &&
           find(library, "pa_context_disconnect", functions.context_disconnect) &&
           find(library, "pa_context_unref", functions.context_unref) &&
           find(library, "pa_operation_get_state", functions.operation_get_state) &&
           find(library, "pa_operation_cancel", functions.operation_cancel) &&
           find(library, "pa_operation_unref", functions.operation_unref);
}

bool find_stream(void* library, Pulse& functions) {
    return find(library, "pa_sample_spec_valid", functions.sample_spec_valid) &&
           find(library, "pa_channel_map_init_extend", functions.channel_map_init_extend) &&
           find(library, "pa_proplist_new", functions.proplist_new) &&
           find(library, "pa_proplist_sets", functions.proplist_sets) &&
           find(library, "pa_proplist_free", functions.proplist_free) &&
           find(library, "pa_stream_new_with_proplist", functions.stream_new_with_proplist) &&
           find(library, "pa_stream_connect_upload", functions.stream_connect_upload) &&
           find(library, "pa_stream_writable_size", functions.stream_writable_size) &&
           find(library, "pa_stream_write", functions.stream_write) &&
           find(library, "pa_stream_finish_upload", functions.stream_finish_upload) &&
           find(library, "pa_stream_get_state", functions.stream_get_state) &&
           find(library, "pa_stream_unref", functions.stream_unref);
}

bool find_all(void* library, Pulse& functions) {
    return find_loop(library, functions) && find_context(library, functions) &&
           find_stream(library, functions);
}

template <typename Functions>
const Functions* loaded(const char* name) {
    static Functions functions;
    static bool complete = false;
    if (complete) return &functions;
    void* const library = dlopen(name, RTLD_NOW | RTLD_LOCAL);
    if (!library) return nullptr;
    complete = find_all(library, functions);
    if (complete) return &functions;
    dlclose(library);
    return nullptr;
}

}  // namespace

const Sndfile* sndfile() { return loaded<Sndfile>("libsndfile.so.1"); }
const Pulse* pulse() { return loaded<Pulse>("libpulse.so.0"); }

}  // namespace orvel
