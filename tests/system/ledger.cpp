#include "system/ledger.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <iterator>

#include "system/shared.h"

namespace orvel_test {
namespace {

struct Description {
    const char* name;
    int error;
    enum { whole, partial, interrupted, partial_or_interrupted, leased } also = whole;
};

constexpr Description kDescriptions[] = {
    {"new", ENOMEM},
    {"malloc", ENOMEM},
    {"open", EMFILE, Description::leased},
    {"creat", EMFILE},
    {"open /", EMFILE},
    {"close", EIO},
    {"read", EIO, Description::partial_or_interrupted},
    {"pread", EIO, Description::partial_or_interrupted},
    {"lseek", EIO},
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
Way s_always[kCalls];

/// Lines of a process and of its children.
struct Notes {
    char text[2][1 << 16];
};
Notes& s_notes = shared<Notes>();
const pid_t s_host = getpid();

std::vector<std::string> lines_of(const char* text) {
    std::vector<std::string> lines;
    for (const char* end; (end = std::strchr(text, '\n')); text = end + 1) {
        lines.emplace_back(text, end);
    }
    return lines;
}

void set_error(Call call, Way way) {
    errno = way == Way::leased        ? EWOULDBLOCK
            : way == Way::interrupted ? EINTR
                                      : description_of(call).error;
}

/// Counts the call.
Way planned(Call call) {
    if (s_run.count == kMostCalls) return Way::succeeds;
    const Plan& plan = s_run.plan;
    const int number = s_run.count++;
    s_run.calls[number] = call;
    if (plan.first < 0 || number < plan.first) return Way::succeeds;
    if (number > plan.first && !plan.lasting) return Way::succeeds;
    // A lease lasts; what has failed in another way fails plainly from then on.
    const bool same = number == plan.first || (plan.way == Way::leased && call == Call::open);
    return same ? plan.way : Way::fails;
}

}  // namespace

const char* name_of(Call call) { return description_of(call).name; }

std::vector<Way> ways_of(Call call) {
    switch (description_of(call).also) {
    case Description::partial: return {Way::fails, Way::first_byte, Way::half, Way::all_but_last};
    case Description::interrupted: return {Way::fails, Way::interrupted};
    case Description::partial_or_interrupted:
        return {Way::fails, Way::first_byte, Way::half, Way::all_but_last, Way::interrupted};
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

std::size_t part(Way way, std::size_t whole) {
    switch (way) {
    case Way::succeeds: return whole;
    case Way::first_byte: return std::min<std::size_t>(whole, 1);
    case Way::half: return (whole + 1) / 2;
    case Way::all_but_last: return whole - std::min<std::size_t>(whole, 1);
    default: return 0;
    }
}

void begin_run(const Plan& plan) {
    s_run.plan = plan;
    s_run.count = 0;
}

std::vector<Call> calls_of_run() { return {s_run.calls, s_run.calls + s_run.count}; }

void note(const char* format, ...) {
    const int error = errno;
    char(&text)[sizeof s_notes.text[0]] = s_notes.text[getpid() == s_host ? 0 : 1];
    const std::size_t size = std::strlen(text);
    va_list list;
    va_start(list, format);
    const int more = std::vsnprintf(text + size, sizeof text - size, format, list);
    va_end(list);
    const std::size_t end = size + static_cast<std::size_t>(more);
    const bool fits = end + 2 <= sizeof text;
    std::strcpy(text + (fits ? end : size), fits ? "\n" : "");
    errno = error;
}

std::vector<std::string> calls() { return lines_of(s_notes.text[0]); }
std::vector<std::string> calls_of_children() { return lines_of(s_notes.text[1]); }

std::string call_names() {
    std::string names;
    for (const std::string& call : calls()) {
        names += (names.empty() ? "" : " ") + call.substr(0, call.find(' '));
    }
    return names;
}

void forget_calls() {
    for (char* const text : s_notes.text) *text = '\0';
}

Armed::Armed() { s_armed = true; }
Armed::~Armed() { s_armed = false; }
bool is_armed() { return s_armed; }

void always(Call call, Way way) { s_always[static_cast<int>(call)] = way; }

void begin_ledger() {
    for (Way& way : s_always) way = Way::succeeds;
    forget_calls();
}

Way way_of(Call call) {
    const Way way = s_armed ? planned(call) : Way::succeeds;
    const Way usual = s_always[static_cast<int>(call)];
    const Way result = usual == Way::succeeds ? way : usual;
    if (result != Way::succeeds) set_error(call, result);
    return result;
}

}  // namespace orvel_test
