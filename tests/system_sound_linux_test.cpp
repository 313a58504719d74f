// The Linux source as it is, against a recorder in place of libcanberra.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdarg>
#include <cstdint>
#include <cstring>
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
    int create_status = 0, driver_status = 0, cache_status = 0, play_status = 0;
};
Service s_service;
ca_context s_contexts[100];
int s_made = 0, s_destroyed = 0;

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
    return s_service.cache_status;
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
    ++s_destroyed;
    return 0;
}

}  // namespace

extern "C" {

void* recorded_dlopen(const char* file, int mode);
void* recorded_dlsym(void* library, const char* name);
int recorded_dlclose(void* library);

void* recorded_dlopen(const char* file, int mode) {
    s_service.calls.push_back("dlopen " + std::string(file) +
                              (mode == (RTLD_NOW | RTLD_LOCAL) ? "" : " in another way"));
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

int recorded_dlclose(void* library) {
    s_service.calls.push_back(library == &s_service ? "dlclose" : "dlclose of another");
    return 0;
}

}  // extern "C"

namespace {

class SystemSoundTest : public testing::Test {
protected:
    SystemSoundTest() {
        write_file(path, silence());
        s_service = {};
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
TEST_F(SystemSoundTest, TheLibraryIsLoadedOnceAtTheFirstSoundThatFindsIt) {
    s_service.installed = false;
    EXPECT_EQ(play_it(), -1);
    EXPECT_EQ(s_service.calls, Calls{"dlopen libcanberra.so.0"});

    for (const char* name : {"ca_context_create", "ca_context_set_driver", "ca_context_cache",
                             "ca_context_play", "ca_context_destroy"}) {
        s_service = {};
        s_service.missing_function = name;
        EXPECT_EQ(play_it(), -1) << name;
        EXPECT_EQ(s_service.calls, (Calls{"dlopen libcanberra.so.0", "dlclose"})) << name;
    }

    s_service = {};
    EXPECT_EQ(play_it(), 0);
    EXPECT_EQ(call_names(), "dlopen create driver cache play destroy");
    s_service.calls.clear();
    EXPECT_EQ(play_it(), 0);
    EXPECT_EQ(call_names(), "create driver cache play destroy");
}

class LinuxSystemSoundTest : public SystemSoundTest {
protected:
    LinuxSystemSoundTest() {
        play_it();  // loads the library
        s_service = {};
    }
};

TEST_F(LinuxSystemSoundTest, RegistersAndPlaysUnderOneAsciiNameForThePath) {
    const std::string odd = folder / "caff\xe8 %s.wav";
    write_file(odd, silence());
    EXPECT_EQ(orvel::play_system_sound(odd), 0);
    ASSERT_EQ(call_names(), "create driver cache play destroy");
    const std::string& cached = s_service.calls[2];
    const std::string& played = s_service.calls[3];
    const std::string id = cached.substr(cached.find("event.id=") + 9, 25);
    EXPECT_EQ(id.substr(0, 9), "orvelsdk-");
    EXPECT_EQ(id.find_first_not_of("0123456789abcdef", 9), std::string::npos);

    const std::string context = name_of(&s_contexts[s_made % 100]);
    const std::string properties =
        " event.id=" + id + " media.filename=" + odd + " canberra.cache-control=permanent";
    EXPECT_EQ(s_service.calls[1], "driver " + context + " pulse");
    EXPECT_EQ(cached, "cache " + context + properties);
    EXPECT_EQ(played, "play " + context + " 0" + properties);
}

TEST_F(LinuxSystemSoundTest, TheNameIsTheHashOfThePath) {
    ASSERT_EQ(chdir(folder.path().c_str()), 0);
    write_file("a", silence());
    EXPECT_EQ(orvel::play_system_sound("a"), 0);
    ASSERT_EQ(chdir("/"), 0);
    // FNV-1a's published value for the one byte "a".
    EXPECT_NE(s_service.calls.at(3).find("event.id=orvelsdk-af63dc4c8601ec8c "), std::string::npos);
}

TEST_F(LinuxSystemSoundTest, TheRegistrationDecidesAndNotThePlaying) {
    s_service.play_status = -1;
    EXPECT_EQ(play_it(), 0);
    s_service.play_status = 0;
    s_service.calls.clear();
    s_service.cache_status = -7;
    EXPECT_EQ(play_it(), -1);
    EXPECT_EQ(call_names(), "create driver cache destroy");
}

TEST_F(LinuxSystemSoundTest, NoConnectionOutlivesTheCall) {
    EXPECT_EQ(play_it(), 0);
    EXPECT_EQ(play_it(), 0);
    EXPECT_EQ(s_made - s_destroyed, 0);

    s_service.cache_status = -12;
    EXPECT_EQ(play_it(), -1);
    EXPECT_EQ(s_made - s_destroyed, 0);
}

TEST_F(LinuxSystemSoundTest, AConnectionThatCannotBeMadeIsMinusOne) {
    s_service.driver_status = -5;
    EXPECT_EQ(play_it(), -1);
    EXPECT_EQ(call_names(), "create driver destroy");
    s_service.create_status = -4;
    s_service.calls.clear();
    EXPECT_EQ(play_it(), -1);
    EXPECT_EQ(call_names(), "create");
}

TEST_F(LinuxSystemSoundTest, WhatTheServiceWouldRefuseIsNotShownToIt) {
    write_file(path, "not a sound");
    EXPECT_EQ(play_it(), -1);
    EXPECT_TRUE(s_service.calls.empty());
    write_file(path, silence());
}

}  // namespace
