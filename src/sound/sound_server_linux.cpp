// A connection costs a millisecond. One that was kept would leave descriptors in the host, and
// would survive neither a fork nor the server. While one is open, nothing is allocated here that
// could fail.
#include "sound/sound_server_linux.h"

#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cstdio>

namespace orvel {
namespace {

// In microseconds. The first and the third are the two seconds that a call takes at the most.
constexpr std::int64_t kPatience = 1'900'000;
constexpr std::int64_t kLeastForPlaying = 500'000;
constexpr std::int64_t kFarewell = 20'000;
constexpr std::int64_t kPause = 10'000'000;

constexpr std::size_t kBlockBytes = 64 * 1024;

std::int64_t s_paused_until = 0;

std::int64_t now() {
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return std::int64_t{time.tv_sec} * 1'000'000 + time.tv_nsec / 1000;
}

/// What the server knows the effects of this process by. One name for all of them, so that the next
/// effect takes back what a server that was frozen in the middle of one has kept. The time tells
/// hosts apart that have the same number, in containers that share a server.
const char* sample_name() {
    static char name[48];
    if (!*name) {
        std::snprintf(name, sizeof name, "orvelsdk-%ld-%lld", static_cast<long>(getpid()),
                      static_cast<long long>(now()));
    }
    return name;
}

Pulse::SampleSpec spec_of(const Effect& effect) {
    return {std::endian::native == std::endian::little ? Pulse::kSigned16LittleEndian
                                                       : Pulse::kSigned16BigEndian,
            static_cast<std::uint32_t>(effect.rate), static_cast<std::uint8_t>(effect.channels)};
}

bool is_playable(const Pulse& pulse, const Effect& effect) {
    const Pulse::SampleSpec spec = spec_of(effect);
    return !effect.samples.empty() && pulse.sample_spec_valid(&spec) != 0;
}

/// One connection to the server, from its beginning to its end.
class Conversation {
public:
    Conversation(const Pulse& pulse, const Effect& effect)
        : pulse_(pulse), effect_(effect), spec_(spec_of(effect)), deadline_(now() + kPatience) {}
    ~Conversation();
    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;

    bool connect();
    bool upload();
    bool play();
    /// Takes the sample back, which goes on playing. Does nothing before there is one.
    void remove();

    bool is_out_of_time() const { return out_of_time_; }

private:
    bool open_stream();
    bool send(const char* bytes, std::size_t size, std::size_t frame);
    void begin(Pulse::Operation* operation);
    bool is_done() const;
    bool is_well() const;
    bool step();

    /// Goes on until @p is_reached; false when that will not be, or not in time.
    template <typename Condition>
    bool wait_until(Condition is_reached) {
        while (!is_reached()) {
            if (!is_well() || !step()) return false;
        }
        return true;
    }

    const Pulse& pulse_;
    const Effect& effect_;
    const Pulse::SampleSpec spec_;
    Pulse::ChannelMap map_ = {};
    const char* const name_ = sample_name();
    std::int64_t deadline_;
    bool out_of_time_ = false;
    bool has_sample_ = false;  // perhaps
    Pulse::Loop* loop_ = nullptr;
    Pulse::Context* context_ = nullptr;
    Pulse::Stream* stream_ = nullptr;
    Pulse::Operation* operation_ = nullptr;
    std::uint32_t played_ = Pulse::kNoIndex;
};

Conversation::~Conversation() {
    begin(nullptr);
    if (stream_) pulse_.stream_unref(stream_);
    if (context_) pulse_.context_disconnect(context_);
    if (context_) pulse_.context_unref(context_);
    if (loop_) pulse_.mainloop_free(loop_);
}

/// Goes on to another operation.
void Conversation::begin(Pulse::Operation* operation) {
    if (operation_) pulse_.operation_cancel(operation_);
    if (operation_) pulse_.operation_unref(operation_);
    operation_ = operation;
}

bool Conversation::is_done() const {
    return pulse_.operation_get_state(operation_) != Pulse::kOperationRunning;
}

bool Conversation::is_well() const {
    if (pulse_.context_get_state(context_) > Pulse::kContextReady) return false;
    return !stream_ || pulse_.stream_get_state(stream_) != Pulse::kStreamFailed;
}

bool Conversation::step() {
    const std::int64_t left = deadline_ - now();
    if (left <= 0) out_of_time_ = true;
    return left > 0 && pulse_.mainloop_prepare(loop_, static_cast<int>(left)) >= 0 &&
           pulse_.mainloop_poll(loop_) >= 0 && pulse_.mainloop_dispatch(loop_) >= 0;
}

bool Conversation::connect() {
    loop_ = pulse_.mainloop_new();
    if (!loop_) return false;
    context_ = pulse_.context_new(pulse_.mainloop_get_api(loop_), nullptr);
    const auto is_ready = [this] {
        return pulse_.context_get_state(context_) == Pulse::kContextReady;
    };
    return context_ &&
           pulse_.context_connect(context_, nullptr, Pulse::kNoAutospawn, nullptr) >= 0 &&
           wait_until(is_ready);
}

bool Conversation::open_stream() {
    // Other than without a map, this one has a place for every number of channels.
    pulse_.channel_map_init_extend(&map_, spec_.channels, Pulse::kWaveOrder);
    Pulse::Properties* const properties = pulse_.proplist_new();
    if (!properties) return false;
    pulse_.proplist_sets(properties, "media.role", "event");
    stream_ = pulse_.stream_new_with_proplist(context_, name_, &spec_, &map_, properties);
    pulse_.proplist_free(properties);
    return stream_ != nullptr;
}

bool Conversation::send(const char* bytes, std::size_t size, std::size_t frame) {
    std::size_t taken = 0;
    const auto is_wanted = [this, frame, &taken] {
        taken = std::min(pulse_.stream_writable_size(stream_), kBlockBytes) / frame * frame;
        return taken > 0;
    };
    for (; size > 0; bytes += taken, size -= taken) {
        if (!wait_until(is_wanted)) return false;
        taken = std::min(taken, size);
        if (pulse_.stream_write(stream_, bytes, taken, nullptr, 0, Pulse::kSeekRelative) < 0 ||
            !step()) {  // lets it out before the next
            return false;
        }
    }
    return true;
}

bool Conversation::upload() {
    const std::size_t size = effect_.samples.size() * sizeof(std::int16_t);
    const std::size_t frame = static_cast<std::size_t>(effect_.channels) * sizeof(std::int16_t);
    const auto is_in_state = [this](int state) {
        return [this, state] { return pulse_.stream_get_state(stream_) == state; };
    };
    const char* const bytes = reinterpret_cast<const char*>(effect_.samples.data());
    // In two pieces at the least: of one, PulseAudio keeps no copy, but uses this connection's
    // memory, and aborts when the sound ends at the moment at which the connection does.
    if (!open_stream() || pulse_.stream_connect_upload(stream_, size) < 0 ||
        !wait_until(is_in_state(Pulse::kStreamReady)) || !send(bytes, frame, frame) ||
        !send(bytes + frame, size - frame, frame)) {
        return false;
    }
    has_sample_ = true;
    return pulse_.stream_finish_upload(stream_) >= 0 &&
           wait_until(is_in_state(Pulse::kStreamTerminated));
}

bool Conversation::play() {
    // Who leaves between this request and its answer ends some servers (PipeWire 0.3.65): it is not
    // made when there would be no time for the answer.
    out_of_time_ = deadline_ - now() < kLeastForPlaying;
    if (out_of_time_) return false;
    const auto on_played = [](Pulse::Context*, std::uint32_t index, void* data) {
        *static_cast<std::uint32_t*>(data) = index;
    };
    begin(pulse_.context_play_sample_with_proplist(context_, name_, nullptr, Pulse::kUsualVolume,
                                                   nullptr, on_played, &played_));
    return operation_ && wait_until([this] { return is_done(); }) && played_ != Pulse::kNoIndex;
}

void Conversation::remove() {
    if (!has_sample_) return;
    if (out_of_time_) deadline_ = now() + kFarewell;  // for the request, not for its answer
    begin(pulse_.context_remove_sample(context_, name_, nullptr, nullptr));
    if (operation_) wait_until([this] { return is_done(); });
}

}  // namespace

bool play_on_server(const Pulse& pulse, const Effect& effect) {
    if (!is_playable(pulse, effect)) return false;
    Conversation conversation(pulse, effect);
    const bool played = conversation.connect() && conversation.upload() && conversation.play();
    conversation.remove();
    if (conversation.is_out_of_time()) s_paused_until = now() + kPause;
    return played;
}

bool server_was_mute_lately() { return now() < s_paused_until; }

}  // namespace orvel
