// The macOS source as it is, against recorders of the framework's functions.
#include <AudioToolbox/AudioToolbox.h>
#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sound/system_sound.h"

struct StandInAllocator {};
struct StandInUrl {
    std::string path;
};

namespace {

const StandInAllocator s_allocator;
StandInUrl s_url;

struct Framework {
    std::vector<std::string> calls;
    bool makes_url = true;
    OSStatus status = 0;
    SystemSoundID id_before = 99;  // what the identifier was when it was handed over
};
Framework s_framework;

}  // namespace

extern "C" {

const CFAllocatorRef kCFAllocatorDefault = &s_allocator;

CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef allocator, const UInt8* bytes,
                                                 CFIndex length, Boolean is_directory) {
    s_url.path.assign(bytes, bytes + length);
    s_framework.calls.push_back(std::string("url ") +
                                (allocator == kCFAllocatorDefault ? "default " : "other ") +
                                (is_directory ? "folder " : "file ") + s_url.path);
    return s_framework.makes_url ? &s_url : nullptr;
}

void CFRelease(CFTypeRef object) {
    s_framework.calls.push_back(object == &s_url ? "release" : "release of something else");
}

OSStatus AudioServicesCreateSystemSoundID(CFURLRef url, SystemSoundID* id) {
    s_framework.calls.push_back("register " + url->path);
    s_framework.id_before = *id;
    *id = 7;
    return s_framework.status;
}

void AudioServicesPlaySystemSound(SystemSoundID id) {
    s_framework.calls.push_back("play " + std::to_string(id));
}

}  // extern "C"

namespace {

using Calls = std::vector<std::string>;

class AppleSystemSoundTest : public testing::Test {
protected:
    AppleSystemSoundTest() { s_framework = {}; }
};

TEST_F(AppleSystemSoundTest, RegistersReleasesTheUrlAndPlays) {
    EXPECT_EQ(orvel::play_system_sound("/a/click.wav"), 0);
    EXPECT_EQ(s_framework.calls, (Calls{"url default file /a/click.wav", "register /a/click.wav",
                                        "release", "play 7"}));
    EXPECT_EQ(s_framework.id_before, 0u);
}

TEST_F(AppleSystemSoundTest, AnUrlThatCannotBeMadeEndsTheCall) {
    s_framework.makes_url = false;
    EXPECT_EQ(orvel::play_system_sound("/a/click.wav"), -1);
    EXPECT_EQ(s_framework.calls, Calls{"url default file /a/click.wav"});
}

TEST_F(AppleSystemSoundTest, ARefusedSoundReleasesTheUrlToo) {
    for (const OSStatus status : {-1500, 1, -43}) {
        s_framework = {};
        s_framework.status = status;
        EXPECT_EQ(orvel::play_system_sound("/a/click.wav"), -1);
        EXPECT_EQ(s_framework.calls,
                  (Calls{"url default file /a/click.wav", "register /a/click.wav", "release"}));
    }
}

TEST_F(AppleSystemSoundTest, EveryCallRegistersAnew) {
    orvel::play_system_sound("/a/click.wav");
    orvel::play_system_sound("/a/click.wav");
    EXPECT_EQ(s_framework.calls.size(), 8u);
}

TEST_F(AppleSystemSoundTest, ThePathsBytesGoThroughUnchanged) {
    const std::string path = "/caff\xe8/\xc3\xa8 % ?.wav";
    EXPECT_EQ(orvel::play_system_sound(path), 0);
    EXPECT_EQ(s_framework.calls[0], "url default file " + path);
}

}  // namespace
