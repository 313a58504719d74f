// The tone file of the library as it is shipped: the same bytes by every compiler and on every
// processor. This process has a /tmp of its own.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdint>
#include <sstream>
#include <string>

#include "models/tone_model.h"
#include "orvel.h"
#include "support/files.h"
#include "support/golden.h"
#include "system/private_system.h"

namespace {

using namespace orvel_test;

/// The tone's file, once the child that found no player has ended.
std::string file_of(double frequency_hz, int duration_ms) {
    captured([&] { EXPECT_EQ(orvel_play_tone(frequency_hz, duration_ms), 0); });
    waitpid(-1, nullptr, 0);
    return read_file("/tmp/orvelsdk_tone.wav");
}

/// FNV-1a (Fowler, Noll, Vo).
std::uint64_t checksum(const std::string& bytes) {
    std::uint64_t hash = 14695981039346656037u;
    for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 1099511628211u;
    return hash;
}

TEST(ToneFileTest, OfTheShippedLibraryIsTheModelsAndTheSameEverywhere) {
    const TempFolder no_programs;
    if (!cover("/usr/bin", no_programs.path())) {
        GTEST_SKIP() << "this system allows no view of the file system of our own";
    }
    std::ostringstream checksums;
    for (const double frequency : {0.001, 27.5, 261.63, 440.0, 1234.5, 22049.9, 1e6}) {
        for (const int duration : {1, 10, 20, 333, 2000}) {
            const std::string file = file_of(frequency, duration);
            EXPECT_TRUE(file == model_tone_file(frequency, duration))
                << frequency << " Hz for " << duration << " ms";
            checksums << frequency << ' ' << duration << ' ' << std::hex << checksum(file)
                      << std::dec << '\n';
        }
    }
    uncover("/usr/bin");
    expect_golden_text("tone_checksums.txt", "frequency, length", checksums.str());
}

}  // namespace
