// The Linux source as it is, against a recorder in place of libcanberra.
#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdarg>
#include <cstdint>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "sound/system_sound.h"
#include "support/files.h"
#include "support/wav.h"

struct ca_context {};

namespace {

using orvel_test::silence;
using orvel_test::TempFolder;
using orvel_test::write_file;
using Calls = std::vector<std::string>;

struct Service {
    Calls calls;
    bool installed = true;
    std::string missing_function;
    int create_status = 0, driver_status = 0, play_status = 0;
    std::vector<int> cache_statuses;  // one for each of the next calls; then 0
    bool opens_socket = false;        // in cache(), as a connection would
    int socket = -1;
};
Service s_service;
ca_context s_contexts[100];
int s_made = 0;

std::string name_of(const ca_context* context) {
    return "#" + std::to_string(context - s_contexts);
}

std::string properties(va_list list) {
    std::string text;
    while (const char* key = va_arg(list, const char*)) {
        text += std::string(" ") + key + "=" + va_arg(list, const char*);
    }
    return text;
}

int create(ca_context** context) {
    s_service.calls.push_back("create");
    *context = &s_contexts[++s_made % 100];
    return s_service.create_status;
}

int set_driver(ca_context* context, const char* name) {
    s_service.calls.push_back("driver " + name_of(context) + " " + name);
    return s_service.driver_status;
}

int cache(ca_context* context, ...) {
    va_list list;
    va_start(list, context);
    s_service.calls.push_back("cache " + name_of(context) + properties(list));
    va_end(list);
    if (s_service.opens_socket) s_service.socket = open("/dev/null", O_RDONLY | O_CLOEXEC);
    if (s_service.cache_statuses.empty()) return 0;
    const int status = s_service.cache_statuses.front();
    s_service.cache_statuses.erase(s_service.cache_statuses.begin());
    return status;
}

int play(ca_context* context, std::uint32_t id, ...) {
    va_list list;
    va_start(list, id);
    s_service.calls.push_back("play " + name_of(context) + " " + std::to_string(id) +
                              properties(list));
    va_end(list);
    return s_service.play_status;
}

int destroy(ca_context* context) {
    s_service.calls.push_back("destroy " + name_of(context));
    return 0;
}

}  // namespace

extern "C" {

void* recorded_dlopen(const char* file, int mode);
void* recorded_dlsym(void* library, const char* name);

void* recorded_dlopen(const char* file, int mode) {
    s_service.calls.push_back("dlopen " + std::string(file) +
                              (mode & RTLD_GLOBAL ? " global" : ""));
    return s_service.installed ? &s_service : nullptr;
}

void* recorded_dlsym(void* library, const char* name) {
    if (library != &s_service || name == s_service.missing_function) return nullptr;
    if (!std::strcmp(name, "ca_context_create")) return reinterpret_cast<void*>(create);
    if (!std::strcmp(name, "ca_context_set_driver")) return reinterpret_cast<void*>(set_driver);
    if (!std::strcmp(name, "ca_context_cache")) return reinterpret_cast<void*>(cache);
    if (!std::strcmp(name, "ca_context_play")) return reinterpret_cast<void*>(play);
    if (!std::strcmp(name, "ca_context_destroy")) return reinterpret_cast<void*>(destroy);
    return nullptr;
}

}  // extern "C"

namespace {

class LinuxSystemSoundTest : public testing::Test {
protected:
    LinuxSystemSoundTest() {
        write_file(path, silence());
        s_service = {};
    }
    ~LinuxSystemSoundTest() override {
        s_service = {};
        s_service.cache_statuses = {-1, -1};
        orvel::play_system_sound(path);  // the next test finds no connection
    }

    int play_it() const { return orvel::play_system_sound(path); }

    /// The calls without their properties: "create driver cache play".
    static std::string call_names() {
        std::string names;
        for (const std::string& call : s_service.calls) {
            names += (names.empty() ? "" : " ") + call.substr(0, call.find(' '));
        }
        return names;
    }

    const TempFolder folder;
    const std::string path = folder / "click.wav";
};

// The first test here: it needs a process that has not loaded the library yet.
TEST_F(LinuxSystemSoundTest, TheLibraryIsLoadedOnceAtTheFirstSoundThatFindsIt) {
    s_service.installed = false;
    EXPECT_EQ(play_it(), -1);
    EXPECT_EQ(s_service.calls, Calls{"dlopen libcanberra.so.0"});

    for (const char* name : {"ca_context_create", "ca_context_set_driver", "ca_context_cache",
                             "ca_context_play", "ca_context_destroy"}) {
        s_service = {};
        s_service.missing_function = name;
        EXPECT_EQ(play_it(), -1) << name;
        EXPECT_EQ(call_names(), "dlopen");
    }

    s_service = {};
    EXPECT_EQ(play_it(), 0);
    EXPECT_EQ(call_names(), "dlopen create driver cache play");
    EXPECT_EQ(play_it(), 0);
    EXPECT_EQ(call_names(), "dlopen create driver cache play cache play");
}

TEST_F(LinuxSystemSoundTest, RegistersAndPlaysUnderOneAsciiNameForThePath) {
    const std::string odd = folder / "caff\xe8 %s.wav";
    write_file(odd, silence());
    EXPECT_EQ(orvel::play_system_sound(odd), 0);
    const std::size_t count = s_service.calls.size();
    ASSERT_GE(count, 4u);
    const std::string& cached = s_service.calls[count - 2];
    const std::string& played = s_service.calls[count - 1];
    const std::string id = cached.substr(cached.find("event.id=") + 9, 25);
    EXPECT_EQ(id.substr(0, 9), "orvelsdk-");
    EXPECT_EQ(id.find_first_not_of("0123456789abcdef", 9), std::string::npos);

    const std::string context = name_of(&s_contexts[s_made % 100]);
    const std::string properties =
        " event.id=" + id + " media.filename=" + odd + " canberra.cache-control=permanent";
    EXPECT_EQ(s_service.calls[count - 3], "driver " + context + " pulse");
    EXPECT_EQ(cached, "cache " + context + properties);
    EXPECT_EQ(played, "play " + context + " 0" + properties);
}

TEST_F(LinuxSystemSoundTest, TheNameIsTheHashOfThePath) {
    ASSERT_EQ(chdir(folder.path().c_str()), 0);
    write_file("a", silence());
    EXPECT_EQ(orvel::play_system_sound("a"), 0);
    ASSERT_EQ(chdir("/"), 0);
    // FNV-1a's published value for the one byte "a".
    EXPECT_NE(s_service.calls.back().find("event.id=orvelsdk-af63dc4c8601ec8c "),
              std::string::npos);
}

TEST_F(LinuxSystemSoundTest, TheRegistrationDecidesAndNotThePlaying) {
    s_service.play_status = -1;
    EXPECT_EQ(play_it(), 0);
    s_service.play_status = 0;
    s_service.calls.clear();
    s_service.cache_statuses = {-7, -7};
    EXPECT_EQ(play_it(), -1);
    EXPECT_EQ(call_names().find("play"), std::string::npos);
}

TEST_F(LinuxSystemSoundTest, ARestartedServerIsFoundAgain) {
    EXPECT_EQ(play_it(), 0);
    s_service.calls.clear();
    s_service.cache_statuses = {-3};
    EXPECT_EQ(play_it(), 0);
    EXPECT_EQ(call_names(), "cache destroy create driver cache play");
}

TEST_F(LinuxSystemSoundTest, WithoutAServerNoConnectionIsKept) {
    s_service.cache_statuses = {-12, -12};
    EXPECT_EQ(play_it(), -1);
    s_service.calls.clear();
    EXPECT_EQ(play_it(), -1);
    EXPECT_EQ(call_names(), "create driver cache destroy");
}

TEST_F(LinuxSystemSoundTest, AConnectionThatCannotBeMadeIsMinusOne) {
    s_service.create_status = -4;
    EXPECT_EQ(play_it(), -1);
    s_service.create_status = 0;
    s_service.driver_status = -5;
    s_service.calls.clear();
    EXPECT_EQ(play_it(), -1);
    EXPECT_EQ(call_names(), "create driver destroy");
}

TEST_F(LinuxSystemSoundTest, WhatTheServiceWouldRefuseIsNotShownToIt) {
    write_file(path, "not a sound");
    EXPECT_EQ(play_it(), -1);
    EXPECT_TRUE(s_service.calls.empty());
    write_file(path, silence());
}

TEST_F(LinuxSystemSoundTest, AChildOfTheHostDoesNotTouchTheHostsConnection) {
    EXPECT_EQ(play_it(), 0);
    s_service.calls.clear();
    const pid_t child = fork();
    if (child == 0) _exit(play_it() == -1 && s_service.calls.empty() ? 0 : 1);
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(play_it(), 0);
}

TEST_F(LinuxSystemSoundTest, TheConnectionNeverGetsTheNumberOfAClosedStandardStream) {
    s_service.opens_socket = true;
    const int saved[] = {fcntl(0, F_DUPFD, 10), fcntl(1, F_DUPFD, 10), fcntl(2, F_DUPFD, 10)};
    for (const int descriptor : {0, 1, 2}) close(descriptor);
    const int result = play_it();
    std::set<int> still_open;
    for (const int descriptor : {0, 1, 2}) {
        if (fcntl(descriptor, F_GETFD) >= 0) still_open.insert(descriptor);
    }
    for (const int descriptor : {0, 1, 2}) {
        dup2(saved[descriptor], descriptor);
        close(saved[descriptor]);
    }
    EXPECT_EQ(result, 0);
    EXPECT_GT(s_service.socket, 2);
    EXPECT_TRUE(still_open.empty());
    close(s_service.socket);
}

}  // namespace
