// Every call by which the library asks others for something fails, alone and with all later ones,
// in the middle of everything that a host can do.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <ostream>
#include <set>
#include <sstream>
#include <string>

#include "support/files.h"
#include "system/allocations.h"
#include "system/imports.h"
#include "system/system.h"
#include "whole/torture/runner.h"

namespace {

using namespace orvel_test;
using namespace orvel_test::torture;

struct Group {
    const char* name;
    Scenarios (*scenarios)();
};

constexpr Group kGroups[] = {
    {"Core", core_scenarios},   {"Canvas", canvas_scenarios}, {"Text", text_scenarios},
    {"Icons", icon_scenarios},  {"Themes", theme_scenarios},  {"Widgets", widget_scenarios},
    {"Sound", sound_scenarios},
};

Totals s_totals;

void PrintTo(const Group& group, std::ostream* out) { *out << group.name; }

class TortureTest : public testing::Test {
protected:
    TortureTest() {
        take_over_system(root.path() + "/tone.wav");
        ask_before_allocating(allocation_fails);
    }

    const TempFolder root;
};

class GroupTortureTest : public TortureTest, public testing::WithParamInterface<Group> {};

TEST_P(GroupTortureTest, EveryFailureOfEveryCallHasTheDocumentedResult) {
    const Totals totals = fail_every_call(GetParam().scenarios(), root.path());
    s_totals.add(totals);
    std::printf("%s: %s\n", GetParam().name, totals.in_words().c_str());
}

INSTANTIATE_TEST_SUITE_P(, GroupTortureTest, testing::ValuesIn(kGroups),
                         [](const auto& group) { return group.param.name; });

TEST_F(TortureTest, TheScenariosReachEveryFunctionThatTheLibraryExports) {
    for (const Group& group : kGroups) run(group.scenarios(), root.path());
    std::istringstream names(read_file(ORVEL_SOURCE_DIR "/tests/whole/exports.txt"));
    for (std::string name; std::getline(names, name);) {
        const void* const function = dlsym(RTLD_DEFAULT, name.c_str());
        ASSERT_NE(function, nullptr) << name;
        EXPECT_TRUE(is_reached(function)) << "no scenario calls " << name;
    }
}

TEST_F(TortureTest, TheScenariosMakeEveryCallThatCanFail) {
    std::set<Call> made;
    for (const Group& group : kGroups) made.merge(run(group.scenarios(), root.path()));
    for (int call = 0; call < kCalls; ++call) {
        EXPECT_EQ(made.count(static_cast<Call>(call)), 1u) << name_of(static_cast<Call>(call));
    }
}

/// What the library imports and cannot fail: arithmetic, bytes in memory, and answers that are
/// always there. snprintf() formats numbers into arrays.
bool always_succeeds(const std::string& name) {
    constexpr const char* kNames =
        " abs cos sin sincos sqrt sqrtf round lrintf bcmp memchr memcmp memcpy memmove memset"
        " wmemset strcmp strlen getenv getpid geteuid fcntl snprintf stderr"
        " __errno_location __gmon_start__"
        " __stack_chk_fail __memcpy_chk __snprintf_chk sigaction sigemptyset sigaddset"
        " pthread_sigmask pthread_mutex_lock pthread_mutex_unlock ";
    return std::strstr(kNames, (" " + name + " ").c_str()) != nullptr;
}

/// The C++ runtime, which can only run out of memory, for which it calls operator new; and what
/// compilers add.
bool is_of_a_runtime(const std::string& name) {
    for (const char* beginning : {"_Z", "__cxa_", "__gxx_", "_Unwind_", "_ITM_", "__asan_",
                                  "__ubsan_", "__tsan_", "__sanitizer_", "__gcov_", "__llvm_"}) {
        if (name.rfind(beginning, 0) == 0) return true;
    }
    return false;
}

TEST_F(TortureTest, EveryFunctionThatTheLibraryImportsIsMadeToFailOrAlwaysSucceeds) {
#ifdef ORVEL_COVERAGE
    GTEST_SKIP() << "what counts the lines is inside the library and has imports of its own";
#endif
    const std::set<std::string> imports = imports_of_library();
    const std::set<std::string> failing = functions_that_can_fail();
    ASSERT_EQ(imports.count("pread"), 1u);
    for (const std::string& name : imports) {
        EXPECT_TRUE(failing.count(name) || always_succeeds(name) || is_of_a_runtime(name)) << name;
    }
}

}  // namespace

int main(int argument_count, char** arguments) {
    testing::InitGoogleTest(&argument_count, arguments);
    const int status = RUN_ALL_TESTS();
    if (s_totals.scenarios > 0) std::printf("In all: %s\n", s_totals.in_words().c_str());
    return status;
}
