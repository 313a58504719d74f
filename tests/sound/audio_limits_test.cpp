// Effects of the library as it is shipped, with a real sound server, in hosts that have little
// left.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <string>

#include "orvel.h"
#include "sound/audio_server.h"
#include "sound/wav.h"
#include "support/child.h"
#include "support/files.h"
#include "system/private_system.h"

namespace {

using namespace orvel_test;

constexpr int kPlayed = 1, kRefused = 2, kLost = 3;

/// Plays the click three times in a host with that many free descriptors.
int play_with_descriptors(int left) {
    alarm(60);
    dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
    const rlimit limit = {100, 100};
    setrlimit(RLIMIT_NOFILE, &limit);
    int last = 0;
    for (int taken; (taken = dup(STDIN_FILENO)) >= 0;) last = taken;
    for (int i = 0; i < left; ++i) close(last - i);
    const int before = open_descriptors();
    const int result = orvel_play_sound("click");
    if (orvel_play_sound("click") != result || orvel_play_sound("click") != result) return kLost;
    if (open_descriptors() != before) return kLost;
    return result == 0 ? kPlayed : kRefused;
}

TEST(AudioLimitsTest, AHostShortOfDescriptorsIsRefusedOrHeardAndLosesNone) {
    const TempFolder folder;
    const AudioServer server;
    write_file(folder / "Sounds/click.wav", wav_file(sine(660.0, 20)));
    orvel_set_resource_path(folder.path().c_str());
    std::string results;
    for (int left = 0; left < 20; ++left) {
        results += std::to_string(in_child([left] { return play_with_descriptors(left); }));
    }
    orvel_set_resource_path("");
    const std::size_t enough = results.find('1');
    ASSERT_NE(enough, std::string::npos) << results;
    EXPECT_GT(enough, 0u);
    EXPECT_EQ(results, std::string(enough, '2') + std::string(20 - enough, '1'));
}

}  // namespace
