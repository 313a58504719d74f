// Recorded sessions: the pictures that they mark, what they change, and what the screen then shows.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "support/files.h"
#include "support/process.h"

namespace {

namespace fs = std::filesystem;
using orvel_test::Finished;
using orvel_test::read_file;

constexpr const char* kRender = ORVEL_BINARY_DIR "/orvel-render";
constexpr const char* kCompare = ORVEL_BINARY_DIR "/orvel-compare";
constexpr const char* kWords = "/changes_and_end.txt";
const std::string kGolden = ORVEL_SOURCE_DIR "/tests/golden/sessions/";

struct Recorded {
    const char* session;
    const char* scene;
    const char* value = "";  // another one than the sample's
};

const Recorded kSessions[] = {
    {"settings_by_keyboard", "scenes/settings/page.json"},
    {"greenhouse_by_pointer", "examples/greenhouse.json"},
    {"text_by_keys_and_mouse", "examples/greenhouse.json", "tab=1"},
};

void play(const Recorded& recorded) {
    const orvel_test::TempFolder folder;
    const std::string golden = kGolden + recorded.session;
    std::vector<std::string> command = {kRender,
                                        std::string(ORVEL_SOURCE_DIR "/") + recorded.scene,
                                        "--sample",
                                        "--events",
                                        golden + "/session.jsonl",
                                        "-o",
                                        folder / "{}.png",
                                        "--changes",
                                        "-",
                                        "--describe"};
    if (*recorded.value) command.insert(command.end(), {"--set", recorded.value});
    const Finished done = orvel_test::run(command);
    EXPECT_EQ(done.status, 0) << done.error;
    if (std::getenv("ORVEL_UPDATE_GOLDEN")) {
        orvel_test::write_file(golden + kWords, done.output);
        orvel_test::run({kCompare, "--approve", golden, folder.path()});
    }
    EXPECT_EQ(done.output, read_file(golden + kWords));
    const Finished compared = orvel_test::run({kCompare, golden, folder.path()});
    EXPECT_EQ(compared.status, 0) << compared.output << compared.error;
}

TEST(Sessions, GiveTheSamePicturesAndChangesEverywhere) {
    for (const Recorded& recorded : kSessions) {
        SCOPED_TRACE(recorded.session);
        play(recorded);
    }
}

TEST(Sessions, AreAllPlayed) {
    std::size_t folders = 0;
    for (const auto& entry : fs::directory_iterator(kGolden)) folders += entry.is_directory();
    EXPECT_EQ(folders, std::size(kSessions));
}

}  // namespace
