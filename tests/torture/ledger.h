// The calls of the library that can fail: counted, and failed as planned.
#pragma once

#include <string>
#include <vector>

namespace orvel_test::torture {

/// What the library calls and can be refused.
enum class Call {
    allocate,
    malloc,
    open,
    fcntl,
    fdopen,
    fopen,
    close,
    fclose,
    fread,
    fseek,
    ftell,
    setvbuf,
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
    ca_create,
    ca_set_driver,
    ca_cache,
    ca_play,
    ca_destroy,
};
constexpr int kCalls = static_cast<int>(Call::ca_destroy) + 1;

const char* name_of(Call call);

/// How a call turns out. Some can fail in another way: with half of the bytes, or interrupted.
enum class Way { succeeds, fails, fails_otherwise };

/// What the other way of failing is called; null when there is none.
const char* other_way_of(Call call);

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

/// While one lives, calls are counted, and fail. The library is at work then, and nothing else.
class Armed {
public:
    Armed();
    ~Armed();
    Armed(const Armed&) = delete;
    Armed& operator=(const Armed&) = delete;
};

/// Counts this call and says how it turns out; sets errno when it fails.
Way way_of(Call call);
inline bool fails(Call call) { return way_of(call) != Way::succeeds; }

}  // namespace orvel_test::torture
