// The calls of the library: recorded, counted, and failed as planned.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace orvel_test {

/// What the library calls and can be refused.
enum class Call {
    allocate,
    malloc,
    open,
    create,
    hold_stream,
    close,
    read,
    pread,
    lseek,
    fwrite,  // and fprintf, fputs
    write,
    fstat,
    ftruncate,
    access,
    fork,
    execl,
    kill,
    poll_child,
    wait_for_child,
    dlopen,
    dlsym,
    sf_open,
    sf_read,
    sf_close,
    pa_sample_spec_valid,
    pa_proplist_new,
    pa_proplist_sets,
    pa_mainloop_new,
    pa_mainloop_prepare,
    pa_mainloop_poll,
    pa_mainloop_dispatch,
    pa_context_new,
    pa_context_connect,
    pa_context_get_state,
    pa_context_play_sample,
    pa_context_remove_sample,
    pa_stream_new,
    pa_stream_connect_upload,
    pa_stream_writable_size,
    pa_stream_write,
    pa_stream_finish_upload,
    pa_stream_get_state,
    pa_operation_get_state,
};
constexpr int kCalls = static_cast<int>(Call::pa_operation_get_state) + 1;

const char* name_of(Call call);

/// How a call turns out. Reads and writes can also move a part of the bytes, reads and waits be
/// interrupted, and files be under another process's lease.
enum class Way { succeeds, fails, first_byte, half, all_but_last, interrupted, leased };

/// The ways in which a call can fail.
std::vector<Way> ways_of(Call call);
/// What a way is called that is not plain failure.
const char* name_of(Way way);
inline bool is_partial(Way way) { return way >= Way::first_byte && way <= Way::all_but_last; }

/// How much of so many bytes is moved.
std::size_t part(Way way, std::size_t whole);

/// Which call of a run fails, counted from 0, and whether all later ones do.
struct Plan {
    int first = -1;  // none
    Way way = Way::fails;
    bool lasting = false;
};

/// Starts a run: nothing is counted yet, and calls will fail by @p plan.
void begin_run(const Plan& plan);
/// The calls of this run so far, also those that a forked child made.
std::vector<Call> calls_of_run();

/// What the library asks of the system is noted, a line a call, with its result: by this process,
/// and by the children that it forked.
void note(const char* format, ...) __attribute__((format(printf, 1, 2)));
std::vector<std::string> calls();
std::vector<std::string> calls_of_children();
/// The names of this process's calls without arguments and results.
std::string call_names();
void forget_calls();

/// While one lives, calls are counted, and fail. The library is at work then, and nothing else.
class Armed {
public:
    Armed();
    ~Armed();
    Armed(const Armed&) = delete;
    Armed& operator=(const Armed&) = delete;
};

bool is_armed();

/// From now on that call always turns out so.
void always(Call call, Way way);
/// Nothing turns out always so any more, and no call is noted.
void begin_ledger();

/// Counts this call and says how it turns out, by the machine or by the plan; sets errno when it
/// fails.
Way way_of(Call call);
inline bool fails(Call call) { return way_of(call) != Way::succeeds; }

}  // namespace orvel_test
