// What the library says of the two libraries that it opens while it runs, beside their headers.
#include "sound/sound_libraries_linux.h"

#include <gtest/gtest.h>
#include <pulse/pulseaudio.h>
#include <sndfile.h>

#include <cstddef>
#include <string>
#include <type_traits>

namespace {

using orvel::Pulse;
using orvel::Sndfile;

/// Parameters are passed alike when they are alike in this.
template <typename Type>
std::string kind() {
    if constexpr (std::is_void_v<Type>) {
        return "void";
    } else {
        const bool is_number = std::is_integral_v<Type> || std::is_enum_v<Type>;
        return (is_number                 ? "integer of "
                : std::is_pointer_v<Type> ? "pointer of "
                                          : "other of ") +
               std::to_string(sizeof(Type));
    }
}

template <typename Result, typename... Parameters>
std::string shape(Result (*)(Parameters...)) {
    std::string text = kind<Result>() + " from";
    ((text += " " + kind<Parameters>() + ","), ...);
    return text;
}

#define EXPECT_SAME_CALL(own, theirs) EXPECT_EQ(shape(decltype(own)()), shape(&theirs)) << #theirs

TEST(SoundLibrariesTest, TheCallsOfLibsndfileAreAsItsHeaderHasThem) {
    EXPECT_SAME_CALL(Sndfile::open_fd, sf_open_fd);
    EXPECT_SAME_CALL(Sndfile::readf_float, sf_readf_float);
    EXPECT_SAME_CALL(Sndfile::close, sf_close);
}

TEST(SoundLibrariesTest, TheCallsOfLibpulseAreAsItsHeadersHaveThem) {
    EXPECT_SAME_CALL(Pulse::sample_spec_valid, pa_sample_spec_valid);
    EXPECT_SAME_CALL(Pulse::channel_map_init_extend, pa_channel_map_init_extend);
    EXPECT_SAME_CALL(Pulse::proplist_new, pa_proplist_new);
    EXPECT_SAME_CALL(Pulse::proplist_sets, pa_proplist_sets);
    EXPECT_SAME_CALL(Pulse::proplist_free, pa_proplist_free);
    EXPECT_SAME_CALL(Pulse::mainloop_new, pa_mainloop_new);
    EXPECT_SAME_CALL(Pulse::mainloop_get_api, pa_mainloop_get_api);
    EXPECT_SAME_CALL(Pulse::mainloop_prepare, pa_mainloop_prepare);
    EXPECT_SAME_CALL(Pulse::mainloop_poll, pa_mainloop_poll);
    EXPECT_SAME_CALL(Pulse::mainloop_dispatch, pa_mainloop_dispatch);
    EXPECT_SAME_CALL(Pulse::mainloop_free, pa_mainloop_free);
    EXPECT_SAME_CALL(Pulse::context_new, pa_context_new);
    EXPECT_SAME_CALL(Pulse::context_connect, pa_context_connect);
    EXPECT_SAME_CALL(Pulse::context_get_state, pa_context_get_state);
    EXPECT_SAME_CALL(Pulse::context_play_sample_with_proplist,
                     pa_context_play_sample_with_proplist);
    EXPECT_SAME_CALL(Pulse::context_remove_sample, pa_context_remove_sample);
    EXPECT_SAME_CALL(Pulse::context_disconnect, pa_context_disconnect);
    EXPECT_SAME_CALL(Pulse::context_unref, pa_context_unref);
    EXPECT_SAME_CALL(Pulse::stream_new_with_proplist, pa_stream_new_with_proplist);
    EXPECT_SAME_CALL(Pulse::stream_connect_upload, pa_stream_connect_upload);
    EXPECT_SAME_CALL(Pulse::stream_writable_size, pa_stream_writable_size);
    EXPECT_SAME_CALL(Pulse::stream_write, pa_stream_write);
    EXPECT_SAME_CALL(Pulse::stream_finish_upload, pa_stream_finish_upload);
    EXPECT_SAME_CALL(Pulse::stream_get_state, pa_stream_get_state);
    EXPECT_SAME_CALL(Pulse::stream_unref, pa_stream_unref);
    EXPECT_SAME_CALL(Pulse::operation_get_state, pa_operation_get_state);
    EXPECT_SAME_CALL(Pulse::operation_cancel, pa_operation_cancel);
    EXPECT_SAME_CALL(Pulse::operation_unref, pa_operation_unref);
}

TEST(SoundLibrariesTest, TheCallbacksAreTheirs) {
    EXPECT_EQ(shape(Pulse::OnPlayed()), shape(pa_context_play_sample_cb_t()));
    EXPECT_EQ(shape(Pulse::OnDone()), shape(pa_context_success_cb_t()));
    EXPECT_EQ(shape(Pulse::Release()), shape(pa_free_cb_t()));
}

#define EXPECT_SAME_MEMBER(own, member, theirs, their_member)         \
    EXPECT_EQ(offsetof(own, member), offsetof(theirs, their_member)); \
    EXPECT_EQ(sizeof(own::member), sizeof(theirs::their_member))

TEST(SoundLibrariesTest, TheRecordsAreTheirs) {
    EXPECT_EQ(sizeof(Sndfile::Info), sizeof(SF_INFO));
    EXPECT_SAME_MEMBER(Sndfile::Info, frames, SF_INFO, frames);
    EXPECT_SAME_MEMBER(Sndfile::Info, rate, SF_INFO, samplerate);
    EXPECT_SAME_MEMBER(Sndfile::Info, channels, SF_INFO, channels);
    EXPECT_SAME_MEMBER(Sndfile::Info, format, SF_INFO, format);
    EXPECT_EQ(sizeof(Pulse::SampleSpec), sizeof(pa_sample_spec));
    EXPECT_SAME_MEMBER(Pulse::SampleSpec, format, pa_sample_spec, format);
    EXPECT_SAME_MEMBER(Pulse::SampleSpec, rate, pa_sample_spec, rate);
    EXPECT_SAME_MEMBER(Pulse::SampleSpec, channels, pa_sample_spec, channels);
    EXPECT_EQ(sizeof(Pulse::ChannelMap), sizeof(pa_channel_map));
    EXPECT_SAME_MEMBER(Pulse::ChannelMap, channels, pa_channel_map, channels);
    EXPECT_SAME_MEMBER(Pulse::ChannelMap, positions, pa_channel_map, map);
}

TEST(SoundLibrariesTest, TheNumbersAreTheirs) {
    EXPECT_EQ(Sndfile::kRead, SFM_READ);
    EXPECT_EQ(Pulse::kMostChannels, static_cast<int>(PA_CHANNELS_MAX));
    EXPECT_EQ(Pulse::kSigned16LittleEndian, static_cast<int>(PA_SAMPLE_S16LE));
    EXPECT_EQ(Pulse::kSigned16BigEndian, static_cast<int>(PA_SAMPLE_S16BE));
    EXPECT_EQ(Pulse::kNoAutospawn, static_cast<int>(PA_CONTEXT_NOAUTOSPAWN));
    EXPECT_EQ(Pulse::kContextReady, static_cast<int>(PA_CONTEXT_READY));
    for (int state = PA_CONTEXT_CONNECTING; state <= PA_CONTEXT_TERMINATED; ++state) {
        EXPECT_EQ(state <= Pulse::kContextReady,
                  PA_CONTEXT_IS_GOOD(static_cast<pa_context_state_t>(state)) != 0);
    }
    EXPECT_EQ(Pulse::kStreamReady, static_cast<int>(PA_STREAM_READY));
    EXPECT_EQ(Pulse::kStreamFailed, static_cast<int>(PA_STREAM_FAILED));
    EXPECT_EQ(Pulse::kStreamTerminated, static_cast<int>(PA_STREAM_TERMINATED));
    EXPECT_EQ(Pulse::kOperationRunning, static_cast<int>(PA_OPERATION_RUNNING));
    EXPECT_EQ(Pulse::kWaveOrder, static_cast<int>(PA_CHANNEL_MAP_WAVEEX));
    EXPECT_EQ(Pulse::kSeekRelative, static_cast<int>(PA_SEEK_RELATIVE));
    EXPECT_EQ(Pulse::kUsualVolume, PA_VOLUME_INVALID);
    EXPECT_EQ(Pulse::kNoIndex, PA_INVALID_INDEX);
}

}  // namespace
