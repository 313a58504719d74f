#include "sound/heard.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <sstream>

#include "orvel.h"
#include "support/child.h"
#include "system/private_system.h"

namespace orvel_test {
namespace {

char** s_arguments;

std::string open_streams() {
    std::string numbers;
    for (int stream = 0; stream < 3; ++stream) {
        if (fcntl(stream, F_GETFD) >= 0) numbers += std::to_string(stream);
    }
    return numbers;
}

/// What main() does in place of the tests, as a host that ends right after its sound.
int play_and_exit(const char* root, const char* name) {
    orvel_set_resource_path(root);
    const std::string streams = open_streams();
    return orvel_play_sound(name) == 0 && open_streams() == streams ? 0 : 1;
}

}  // namespace

std::string state_of_process() {
    std::ostringstream state;
    state << std::distance(std::filesystem::directory_iterator("/proc/self/task"), {})
          << " threads, " << open_descriptors() << " descriptors, ";
    std::istringstream status(read_file("/proc/self/status"));
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("SigBlk", 0) == 0 || line.rfind("SigIgn", 0) == 0 ||
            line.rfind("SigCgt", 0) == 0)
            state << line << ", ";
    }
    std::istringstream maps(read_file("/proc/self/maps"));
    int mappings = 0;
    for (std::string line; std::getline(maps, line);) {
        if (line.find("memfd") != std::string::npos || line.find("/dev/shm") != std::string::npos) {
            ++mappings;
        }
    }
    state << mappings << " shared mappings";
    return state.str();
}

HeardTest::HeardTest(Server kind) : server(kind) { orvel_set_resource_path(folder.path().c_str()); }

HeardTest::~HeardTest() {
    orvel_stop_music();
    server.stop();
    while (waitpid(-1, nullptr, WNOHANG) > 0) {
    }
}

int HeardTest::quietly(int (*play)(const char*), const char* name) {
    int result = 0;
    captured([&] { result = play(name); });
    return result;
}

int HeardTest::play_tone(double frequency_hz, int duration_ms) {
    int result = 0;
    captured([&] { result = orvel_play_tone(frequency_hz, duration_ms); });
    return result;
}

void HeardTest::expect_sound(const Recorder& recorder, double frequency_hz, double duration_ms) {
    ASSERT_TRUE(recorder.wait_for_sound());
    ASSERT_TRUE(recorder.wait_for_silence(200));
    const Samples sound = heard(recorder.samples());
    const double fade = duration_ms < 50.0 ? 0.0 : 10.0;  // where a resampler begins and ends
    const double share = share_at(frequency_hz, part(sound, fade, duration_ms - fade));
    std::printf("  %.0f Hz: %.2f ms, share %.5f\n", frequency_hz, milliseconds(sound), share);
    EXPECT_NEAR(milliseconds(sound), duration_ms, duration_ms < 50.0 ? 2.0 : 20.0);
    EXPECT_GT(share, 0.99);
}

void HeardTest::play_and_expect(const char* effect, double frequency_hz, double duration_ms) const {
    const Recorder recorder;
    EXPECT_EQ(quietly(orvel_play_sound, effect), 0);
    expect_sound(recorder, frequency_hz, duration_ms);
}

pid_t HeardTest::start_host(const char* effect, bool with_streams) const {
    const pid_t host = fork();
    if (host != 0) return host;
    for (int stream = 0; stream < 3 && !with_streams; ++stream) close(stream);
    execl("/proc/self/exe", s_arguments[0], "--play-and-exit", folder.path().c_str(), effect,
          static_cast<char*>(nullptr));
    _exit(127);
}

int HeardTest::status_of(pid_t host) {
    int status = -1;
    waitpid(host, &status, 0);
    return status;
}

}  // namespace orvel_test

int main(int argument_count, char** arguments) {
    using namespace orvel_test;
    if (argument_count == 4 && !std::strcmp(arguments[1], "--play-and-exit")) {
        return play_and_exit(arguments[2], arguments[3]);
    }
    testing::InitGoogleTest(&argument_count, arguments);
    s_arguments = arguments;
    return RUN_ALL_TESTS();
}
