#include "torture/ledger.h"

#include <cerrno>
#include <iterator>

#include "torture/shared.h"

namespace orvel_test::torture {
namespace {

struct Description {
    const char* name;
    int error;
    const char* other_way = nullptr;
    int other_error = 0;
};

constexpr Description kDescriptions[] = {
    {"new", ENOMEM},
    {"malloc", ENOMEM},
    {"open", EMFILE},
    {"fcntl", EMFILE},
    {"fdopen", ENOMEM},
    {"fopen", EMFILE},
    {"close", EIO},
    {"fclose", ENOSPC},
    {"fread", EIO, "short"},
    {"fseek", EIO},
    {"ftell", EIO},
    {"setvbuf", ENOMEM},
    {"fwrite", ENOSPC, "short", ENOSPC},
    {"write", ENOSPC, "short"},
    {"fstat", EIO},
    {"ftruncate", EIO},
    {"access", EACCES},
    {"fork", EAGAIN},
    {"execl", ENOENT},
    {"kill", EPERM},
    {"waitpid WNOHANG", ECHILD},
    {"waitpid", ECHILD, "EINTR", EINTR},
    {"dlopen", 0},
    {"dlsym", 0},
    {"ca_context_create", 0},
    {"ca_context_set_driver", 0},
    {"ca_context_cache", 0},
    {"ca_context_play", 0},
    {"ca_context_destroy", 0},
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
const char* other_way_of(Call call) { return description_of(call).other_way; }

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
    const Way way = number == plan.first ? plan.way : Way::fails;
    const Description& description = description_of(call);
    errno = way == Way::fails ? description.error : description.other_error;
    return way;
}

}  // namespace orvel_test::torture
