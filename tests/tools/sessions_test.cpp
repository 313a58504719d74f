// Recorded sessions: the pictures that they mark, what they change, and what the screen then shows.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <set>

#include "support/files.h"
#include "support/golden.h"
#include "support/picture.h"
#include "support/process.h"
#include "tools/png.h"
#include "tools/recorded.h"

namespace {

namespace fs = std::filesystem;
using orvel_test::checksum_line;
using orvel_test::Finished;
using orvel_test::kSessionChecksums;
using orvel_test::kSessions;
using orvel_test::kSessionWords;
using orvel_test::read_file;
using orvel_test::Recorded;

constexpr const char* kRender = ORVEL_BINARY_DIR "/orvel-render";
constexpr const char* kCompare = ORVEL_BINARY_DIR "/orvel-compare";

void play(const Recorded& recorded) {
    const orvel_test::TempFolder folder;
    const std::string golden = recorded.folder(), words = golden + kSessionWords;
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
    if (*recorded.name) {
        command.insert(command.end(), {"--set", std::string(recorded.name) + "=" + recorded.value});
    }
    const Finished done = orvel_test::run(command);
    EXPECT_EQ(done.status, 0) << done.error;
    if (orvel_test::is_renewed("sessions", recorded.session)) {
        orvel_test::write_file(words, done.output);
        orvel_test::run({kCompare, "--approve", golden, folder.path()});
    }
    EXPECT_EQ(done.output, read_file(words));
    const Finished compared = orvel_test::run({kCompare, golden, folder.path()});
    EXPECT_EQ(compared.status, 0) << compared.output << compared.error;
}

std::uint64_t checksum_of(const std::string& file) {
    const orvel_tools::Picture picture = orvel_test::read_png(file);
    const auto canvas = orvel_test::make_canvas(picture.width, picture.height);
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            orvel_canvas_pixel(canvas.get(), x, y, picture.at(x, y));
        }
    }
    return orvel_test::checksum(canvas.get());
}

TEST(Sessions, GiveTheSamePicturesAndChangesEverywhere) {
    for (const Recorded& recorded : kSessions) {
        SCOPED_TRACE(recorded.session);
        play(recorded);
    }
}

/// Machines without tools hold their replays against these.
TEST(Sessions, HaveTheChecksumsOfTheirPictures) {
    for (const Recorded& recorded : kSessions) {
        std::set<std::string> lines;
        for (const auto& entry : fs::directory_iterator(recorded.folder())) {
            const fs::path& file = entry.path();
            if (file.extension() != ".png") continue;
            lines.insert(checksum_line(file.stem().string(), checksum_of(file.string())));
        }
        std::string all;
        for (const std::string& line : lines) all += line;
        orvel_test::expect_golden_text(kSessionChecksums, recorded.session, all);
    }
}

TEST(Sessions, AreAllPlayed) {
    std::size_t folders = 0;
    const fs::path all = fs::path(kSessions[0].folder()).parent_path();
    for (const auto& entry : fs::directory_iterator(all)) folders += entry.is_directory();
    EXPECT_EQ(folders, std::size(kSessions));
}

}  // namespace
