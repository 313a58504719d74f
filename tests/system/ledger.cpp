#include "system/ledger.h"

#include <cerrno>
#include <iterator>

#include "system/shared.h"

namespace orvel_test::torture {
namespace {

struct Description {
    const char* name;
    int error;
    enum { whole, partial, interrupted, leased } also = whole;
};

constexpr Description kDescriptions[] = {
    {"new", ENOMEM},
    {"malloc", ENOMEM},
    {"open", EMFILE, Description::leased},
    {"creat", EMFILE},
    {"open /", EMFILE},
    {"fdopen", ENOMEM},
    {"close", EIO},
    {"fclose", ENOSPC},
    {"fread", EIO, Description::partial},
    {"fseek", EIO},
    {"ftell", EIO},
    {"setvbuf", ENOMEM},
    {"fwrite", ENOSPC, Description::partial},
    {"write", ENOSPC, Description::partial},
    {"fstat", EIO},
    {"ftruncate", EIO},
    {"access", EACCES},
    {"fork", EAGAIN},
    {"execl", ENOENT},
    {"kill", EPERM},
    {"waitpid WNOHANG", ECHILD},
    {"waitpid", ECHILD, Description::interrupted},
    {"dlopen", 0},
    {"dlsym", 0},
    {"sf_open", 0},
    {"sf_read", 0},
    {"sf_close", 0},
    {"pa_sample_spec_valid", 0},
    {"pa_proplist_new", 0},
    {"pa_proplist_sets", 0},
    {"pa_mainloop_new", 0},
    {"pa_mainloop_prepare", 0},
    {"pa_mainloop_poll", 0},
    {"pa_mainloop_dispatch", 0},
    {"pa_context_new", 0},
    {"pa_context_connect", 0},
    {"pa_context_get_state", 0},
    {"pa_context_play_sample", 0},
    {"pa_context_remove_sample", 0},
    {"pa_stream_new", 0},
    {"pa_stream_connect_upload", 0},
    {"pa_stream_writable_size", 0},
    {"pa_stream_write", 0},
    {"pa_stream_finish_upload", 0},
    {"pa_stream_get_state", 0},
    {"pa_operation_get_state", 0},
};
static_assert(std::size(kDescriptions) == kCalls);

const Description& description_of(Call call) { return kDescriptions[static_cast<int>(call)]; }

constexpr int kMostCalls = 4096;

/// Shared with forked children, whose calls count too.
struct Run {
    Plan plan;
    int count;
    Call calls[kMostCalls];
};
Run& s_run = shared<Run>();

bool s_armed = false;

}  // namespace

const char* name_of(Call call) { return description_of(call).name; }

std::vector<Way> ways_of(Call call) {
    switch (description_of(call).also) {
    case Description::partial: return {Way::fails, Way::first_byte, Way::half, Way::all_but_last};
    case Description::interrupted: return {Way::fails, Way::interrupted};
    case Description::leased: return {Way::fails, Way::leased};
    case Description::whole: break;
    }
    return {Way::fails};
}

const char* name_of(Way way) {
    constexpr const char* kNames[] = {"",      "",      "first byte", "half", "all but last",
                                      "EINTR", "leased"};
    return kNames[static_cast<int>(way)];
}

void begin_run(const Plan& plan) {
    s_run.plan = plan;
    s_run.count = 0;
}

std::vector<Call> calls_of_run() { return {s_run.calls, s_run.calls + s_run.count}; }

Armed::Armed() { s_armed = true; }
Armed::~Armed() { s_armed = false; }

Way way_of(Call call) {
    if (!s_armed || s_run.count == kMostCalls) return Way::succeeds;
    const Plan& plan = s_run.plan;
    const int number = s_run.count++;
    s_run.calls[number] = call;
    if (plan.first < 0 || number < plan.first) return Way::succeeds;
    if (number > plan.first && !plan.lasting) return Way::succeeds;
    // A lease lasts; what has failed in another way fails plainly from then on.
    const bool same = number == plan.first || (plan.way == Way::leased && call == Call::open);
    const Way way = same ? plan.way : Way::fails;
    errno = way == Way::leased        ? EWOULDBLOCK
            : way == Way::interrupted ? EINTR
                                      : description_of(call).error;
    return way;
}

}  // namespace orvel_test::torture
