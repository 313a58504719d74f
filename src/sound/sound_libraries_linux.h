// The two libraries that effects go through. They are looked up at the first effect and not linked,
// so that a host that only draws needs none of them; and building takes no headers of theirs. What
// stands here is their binary interface, with which a test compares it.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orvel {

/// libsndfile, which reads sound files.
struct Sndfile {
    struct File;
    struct Info {
        std::int64_t frames;
        int rate, channels, format, sections, seekable;
    };
    static constexpr int kRead = 0x10;

    File* (*open_fd)(int descriptor, int mode, Info* info, int closes_descriptor);
    std::int64_t (*readf_float)(File* file, float* samples, std::int64_t frames);
    int (*close)(File* file);
};

/// libpulse's asynchronous interface, through which PulseAudio and PipeWire are spoken to.
struct Pulse {
    struct Loop;
    struct LoopApi;
    struct Context;
    struct Stream;
    struct Operation;
    struct Properties;
    struct SampleSpec {
        int format;
        std::uint32_t rate;
        std::uint8_t channels;
    };
    static constexpr int kMostChannels = 32;
    struct ChannelMap {
        std::uint8_t channels;
        int positions[kMostChannels];
    };
    using OnPlayed = void (*)(Context* context, std::uint32_t index, void* data);
    using OnDone = void (*)(Context* context, int success, void* data);
    using Release = void (*)(void* data);

    static constexpr int kSigned16LittleEndian = 3, kSigned16BigEndian = 4;
    static constexpr int kNoAutospawn = 1;
    static constexpr int kContextReady = 4;  // what is beyond has failed
    static constexpr int kStreamReady = 2, kStreamFailed = 3, kStreamTerminated = 4;
    static constexpr int kOperationRunning = 0;
    static constexpr int kWaveOrder = 3;     // of channels
    static constexpr int kSeekRelative = 0;  // to what was written before
    static constexpr std::uint32_t kUsualVolume = UINT32_MAX, kNoIndex = UINT32_MAX;

    int (*sample_spec_valid)(const SampleSpec* spec);
    ChannelMap* (*channel_map_init_extend)(ChannelMap* map, unsigned channels, int order);
    Properties* (*proplist_new)();
    int (*proplist_sets)(Properties* properties, const char* key, const char* value);
    void (*proplist_free)(Properties* properties);

    Loop* (*mainloop_new)();
    LoopApi* (*mainloop_get_api)(Loop* loop);
    int (*mainloop_prepare)(Loop* loop, int most_microseconds);
    int (*mainloop_poll)(Loop* loop);
    int (*mainloop_dispatch)(Loop* loop);
    void (*mainloop_free)(Loop* loop);

    Context* (*context_new)(LoopApi* api, const char* name);
    int (*context_connect)(Context* context, const char* server, int flags, const void* spawn);
    int (*context_get_state)(const Context* context);
    Operation* (*context_play_sample_with_proplist)(Context* context, const char* name,
                                                    const char* sink, std::uint32_t volume,
                                                    const Properties* properties,
                                                    OnPlayed on_played, void* data);
    Operation* (*context_remove_sample)(Context* context, const char* name, OnDone on_done,
                                        void* data);
    void (*context_disconnect)(Context* context);
    void (*context_unref)(Context* context);

    Stream* (*stream_new_with_proplist)(Context* context, const char* name, const SampleSpec* spec,
                                        const ChannelMap* map, Properties* properties);
    int (*stream_connect_upload)(Stream* stream, std::size_t bytes);
    std::size_t (*stream_writable_size)(const Stream* stream);
    int (*stream_write)(Stream* stream, const void* bytes, std::size_t size, Release release,
                        std::int64_t offset, int seek);
    int (*stream_finish_upload)(Stream* stream);
    int (*stream_get_state)(const Stream* stream);
    void (*stream_unref)(Stream* stream);

    int (*operation_get_state)(const Operation* operation);
    void (*operation_cancel)(Operation* operation);
    void (*operation_unref)(Operation* operation);
};

/// Each loaded at the first call that finds it; null when it is not installed.
const Sndfile* sndfile();
const Pulse* pulse();

}  // namespace orvel
