#include "system/sound_libraries.h"

#include <unistd.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "sound/sound_libraries_linux.h"
#include "system/ledger.h"

// The library is at work while these run: they allocate nothing.
namespace orvel_test {
namespace {

using orvel::Pulse;
using orvel::Sndfile;

constexpr int kError = -1;
constexpr int kDone = 1, kFailed = 5, kCancelled = 2, kStreamCreating = 1,
              kContextConnecting = 1;  // states

constexpr std::size_t kWritable = 2001;  // bytes, which are no whole frames

int s_loaded[2];
int s_objects = 0;
std::int64_t s_clock = 1'000'000;
char s_story[1000];

// One of each lives at a time.
struct Talk {
    int left_to_read = 0;  // of the file, in frames
    int timeout = 0;
    int full = 0;  // for that many answers
    int context = 0, stream = 0, operation = 0;
    bool connects = false, finishes = false;
    Pulse::OnPlayed on_played = nullptr;
    void* data = nullptr;
} s_talk;

void tell(const char* format, ...) __attribute__((format(printf, 1, 2)));
void tell(const char* format, ...) {
    const std::size_t size = std::strlen(s_story);
    va_list list;
    va_start(list, format);
    std::vsnprintf(s_story + size, sizeof s_story - size, format, list);
    va_end(list);
}

template <typename Object>
Object* made(Call call) {
    static char place;
    if (fails(call)) return nullptr;
    ++s_objects;
    return reinterpret_cast<Object*>(&place);
}

template <typename Object>
void released(Object*) {
    --s_objects;
}

int result_of(Call call) { return fails(call) ? kError : 0; }

/// A file as the library reads it: four mono samples, eight thousand a second unless the byte
/// behind "snd " is another digit.
Sndfile::File* open_sound(int descriptor, int mode, Sndfile::Info* info, int closes) {
    char head[5] = {};
    const ssize_t size = read(descriptor, head, sizeof head);
    if (mode != Sndfile::kRead || closes != 0 || size < 4 || std::memcmp(head, "snd ", 4) != 0) {
        return nullptr;
    }
    s_talk.left_to_read = 4;
    const bool has_rate = head[4] >= '1' && head[4] <= '9';
    *info = {4, has_rate ? 1000 * (head[4] - '0') : 8000, 1, 0, 1, 1};
    return made<Sndfile::File>(Call::sf_open);
}

std::int64_t read_sound(Sndfile::File*, float* samples, std::int64_t frames) {
    if (fails(Call::sf_read)) return 0;
    const auto count = std::min<std::int64_t>(frames, s_talk.left_to_read);
    s_talk.left_to_read -= static_cast<int>(count);
    std::fill_n(samples, count, 0.5f);
    return count;
}

int close_sound(Sndfile::File* file) {
    released(file);
    return fails(Call::sf_close) ? 1 : 0;
}

int is_valid(const Pulse::SampleSpec*) { return fails(Call::pa_sample_spec_valid) ? 0 : 1; }
Pulse::ChannelMap* map_channels(Pulse::ChannelMap* map, unsigned channels, int) {
    map->channels = static_cast<std::uint8_t>(channels);
    return map;
}
Pulse::Properties* make_properties() { return made<Pulse::Properties>(Call::pa_proplist_new); }
int set_property(Pulse::Properties*, const char*, const char*) {
    return result_of(Call::pa_proplist_sets);
}

Pulse::Loop* make_loop() { return made<Pulse::Loop>(Call::pa_mainloop_new); }
Pulse::LoopApi* api_of(Pulse::Loop* loop) { return reinterpret_cast<Pulse::LoopApi*>(loop); }
int prepare(Pulse::Loop*, int timeout) {
    s_talk.timeout = timeout;
    return result_of(Call::pa_mainloop_prepare);
}
int poll(Pulse::Loop*) { return result_of(Call::pa_mainloop_poll); }

/// All that was asked for is answered at once, or nothing.
int dispatch(Pulse::Loop*) {
    if (fails(Call::pa_mainloop_dispatch)) return kError;
    const bool mute = sound_server().answers <= 0;
    s_clock += mute ? s_talk.timeout : sound_server().microseconds;
    if (mute) return 0;
    --sound_server().answers;
    if (s_talk.full > 0) --s_talk.full;
    if (s_talk.context == kContextConnecting) s_talk.context = Pulse::kContextReady;
    if (s_talk.finishes && s_talk.stream == Pulse::kStreamReady) {
        s_talk.stream = Pulse::kStreamTerminated;
    }
    if (s_talk.stream == kStreamCreating) s_talk.stream = Pulse::kStreamReady;
    if (s_talk.on_played && sound_server().plays) s_talk.on_played(nullptr, 7, s_talk.data);
    s_talk.on_played = nullptr;
    s_talk.operation = kDone;
    return 1;
}

Pulse::Context* make_context(Pulse::LoopApi*, const char*) {
    s_talk.context = s_talk.stream = 0;
    s_talk.connects = s_talk.finishes = false;
    s_talk.full = 0;
    return made<Pulse::Context>(Call::pa_context_new);
}
int connect(Pulse::Context*, const char* server, int flags, const void*) {
    if (fails(Call::pa_context_connect)) return kError;
    tell(server || flags != Pulse::kNoAutospawn ? "hello to another" : "hello");
    s_talk.connects = true;
    s_talk.context = kContextConnecting;
    return 0;
}
int state_of_context(const Pulse::Context*) {
    if (fails(Call::pa_context_get_state)) s_talk.context = kFailed;
    return s_talk.context;
}
Pulse::Operation* begin(Call call) {
    s_talk.operation = Pulse::kOperationRunning;
    return made<Pulse::Operation>(call);
}
Pulse::Operation* play(Pulse::Context*, const char*, const char*, std::uint32_t,
                       const Pulse::Properties*, Pulse::OnPlayed on_played, void* data) {
    Pulse::Operation* const operation = begin(Call::pa_context_play_sample);
    if (!operation) return nullptr;
    tell(", play");
    s_talk.on_played = on_played;
    s_talk.data = data;
    return operation;
}
Pulse::Operation* remove(Pulse::Context*, const char*, Pulse::OnDone, void*) {
    Pulse::Operation* const operation = begin(Call::pa_context_remove_sample);
    if (operation) tell(", remove");
    return operation;
}
void disconnect(Pulse::Context*) { tell(s_talk.connects ? ", bye" : ""); }

Pulse::Stream* make_stream(Pulse::Context*, const char* name, const Pulse::SampleSpec* spec,
                           const Pulse::ChannelMap* map, Pulse::Properties*) {
    if (map->channels != spec->channels) return nullptr;
    Pulse::Stream* const stream = made<Pulse::Stream>(Call::pa_stream_new);
    if (stream) tell(", %d x %u Hz %s, ", spec->channels, spec->rate, name);
    return stream;
}
int open_upload(Pulse::Stream*, std::size_t) {
    if (fails(Call::pa_stream_connect_upload)) return kError;
    s_talk.stream = kStreamCreating;
    return 0;
}
std::size_t writable_size(const Pulse::Stream*) {
    if (!fails(Call::pa_stream_writable_size)) return s_talk.full > 0 ? 0 : kWritable;
    s_talk.stream = Pulse::kStreamFailed;
    return static_cast<std::size_t>(-1);
}
int write(Pulse::Stream*, const void*, std::size_t size, Pulse::Release, std::int64_t, int) {
    const bool is_wanted = s_talk.stream == Pulse::kStreamReady && size <= kWritable;
    if (fails(Call::pa_stream_write) || !is_wanted) return kError;
    tell("%zu + ", size);
    s_talk.full = 2;
    return 0;
}
int finish_upload(Pulse::Stream*) {
    if (fails(Call::pa_stream_finish_upload)) return kError;
    s_story[std::strlen(s_story) - 3] = '\0';
    tell(" bytes");
    s_talk.finishes = true;
    return 0;
}
int state_of_stream(const Pulse::Stream*) {
    if (fails(Call::pa_stream_get_state)) s_talk.stream = Pulse::kStreamFailed;
    return s_talk.stream;
}

int state_of_operation(const Pulse::Operation*) {
    return fails(Call::pa_operation_get_state) ? kCancelled : s_talk.operation;
}
void cancel(Pulse::Operation*) { s_talk.on_played = nullptr; }

struct Export {
    std::string_view name;
    void* function;
};

template <typename Function>
Export exported(std::string_view name, Function Pulse::*, Function function) {
    return {name, reinterpret_cast<void*>(function)};
}
template <typename Function>
Export exported(std::string_view name, Function Sndfile::*, Function function) {
    return {name, reinterpret_cast<void*>(function)};
}

const Export kSndfile[] = {
    exported("sf_open_fd", &Sndfile::open_fd, open_sound),
    exported("sf_readf_float", &Sndfile::readf_float, read_sound),
    exported("sf_close", &Sndfile::close, close_sound),
};

const Export kPulse[] = {
    exported("pa_sample_spec_valid", &Pulse::sample_spec_valid, is_valid),
    exported("pa_channel_map_init_extend", &Pulse::channel_map_init_extend, map_channels),
    exported("pa_proplist_new", &Pulse::proplist_new, make_properties),
    exported("pa_proplist_sets", &Pulse::proplist_sets, set_property),
    exported("pa_proplist_free", &Pulse::proplist_free, released),
    exported("pa_mainloop_new", &Pulse::mainloop_new, make_loop),
    exported("pa_mainloop_get_api", &Pulse::mainloop_get_api, api_of),
    exported("pa_mainloop_prepare", &Pulse::mainloop_prepare, prepare),
    exported("pa_mainloop_poll", &Pulse::mainloop_poll, poll),
    exported("pa_mainloop_dispatch", &Pulse::mainloop_dispatch, dispatch),
    exported("pa_mainloop_free", &Pulse::mainloop_free, released),
    exported("pa_context_new", &Pulse::context_new, make_context),
    exported("pa_context_connect", &Pulse::context_connect, connect),
    exported("pa_context_get_state", &Pulse::context_get_state, state_of_context),
    exported("pa_context_play_sample_with_proplist", &Pulse::context_play_sample_with_proplist,
             play),
    exported("pa_context_remove_sample", &Pulse::context_remove_sample, remove),
    exported("pa_context_disconnect", &Pulse::context_disconnect, disconnect),
    exported("pa_context_unref", &Pulse::context_unref, released),
    exported("pa_stream_new_with_proplist", &Pulse::stream_new_with_proplist, make_stream),
    exported("pa_stream_connect_upload", &Pulse::stream_connect_upload, open_upload),
    exported("pa_stream_writable_size", &Pulse::stream_writable_size, writable_size),
    exported("pa_stream_write", &Pulse::stream_write, write),
    exported("pa_stream_finish_upload", &Pulse::stream_finish_upload, finish_upload),
    exported("pa_stream_get_state", &Pulse::stream_get_state, state_of_stream),
    exported("pa_stream_unref", &Pulse::stream_unref, released),
    exported("pa_operation_get_state", &Pulse::operation_get_state, state_of_operation),
    exported("pa_operation_cancel", &Pulse::operation_cancel, cancel),
    exported("pa_operation_unref", &Pulse::operation_unref, released),
};

template <typename Exports>
void* find(const Exports& exports, std::string_view name) {
    const auto* const found = std::find_if(std::begin(exports), std::end(exports),
                                           [name](const Export& e) { return e.name == name; });
    return found == std::end(exports) ? nullptr : found->function;
}

}  // namespace

void* load_library(const char* name, int) {
    if (fails(Call::dlopen)) return nullptr;
    const bool is_sndfile = std::strcmp(name, "libsndfile.so.1") == 0;
    if (!is_sndfile && std::strcmp(name, "libpulse.so.0") != 0) return nullptr;
    int& loaded = s_loaded[is_sndfile ? 0 : 1];
    ++loaded;
    return &loaded;
}

void* find_in_library(void* library, const char* name) {
    if (fails(Call::dlsym) || name == sound_server().missing_function) return nullptr;
    return library == &s_loaded[0] ? find(kSndfile, name) : find(kPulse, name);
}

int unload_library(void* library) {
    --*static_cast<int*>(library);
    return 0;
}

int tell_time(clockid_t, timespec* time) {
    time->tv_sec = static_cast<time_t>(s_clock / 1'000'000);
    time->tv_nsec = static_cast<long>(s_clock % 1'000'000 * 1000);
    return 0;
}

int loaded_libraries() { return s_loaded[0] + s_loaded[1]; }
int live_sound_objects() { return s_objects; }

SoundServer& sound_server() {
    static SoundServer server;
    return server;
}

std::string taken_story() {
    std::string story = s_story;
    s_story[0] = '\0';
    return story;
}

std::int64_t& sound_clock() { return s_clock; }

}  // namespace orvel_test
