// The scenes that are delivered, drawn by the lines of their README.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "picture_file.h"
#include "support/files.h"
#include "support/picture.h"
#include "support/process.h"
#include "tools/png.h"

namespace {

namespace fs = std::filesystem;
using orvel_test::read_file;
using orvel_test::read_png;
using orvel_tools::Picture;

constexpr const char* kRender = ORVEL_BINARY_DIR "/orvel-render";
constexpr const char* kScenes = ORVEL_SOURCE_DIR "/scenes";
constexpr const char* kGolden = ORVEL_SOURCE_DIR "/tests/golden/scenes/";

/// The lines of the README that draw, as words.
std::vector<std::vector<std::string>> lines() {
    std::vector<std::vector<std::string>> all;
    std::istringstream readme(read_file(std::string(kScenes) + "/README.md"));
    for (std::string line; std::getline(readme, line);) {
        if (line.rfind("    orvel-render ", 0) != 0) continue;
        std::istringstream words(line);
        auto& command = all.emplace_back();
        for (std::string word; words >> word;) command.push_back(word);
    }
    return all;
}

std::vector<fs::path> scene_files() {
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(kScenes)) {
        const fs::path& path = entry.path();
        if (path.extension() == ".json" && path.filename() != "data.json") files.push_back(path);
    }
    return files;
}

/// Runs a line of the README in the folder of the scenes; its picture goes to @p folder.
Picture drawn(std::vector<std::string> command, const std::string& folder) {
    const std::string picture = folder + "/" + command.back();
    for (std::string& word : command) {
        if (fs::exists(fs::path(kScenes) / word)) word = std::string(kScenes) + "/" + word;
    }
    command.front() = kRender;
    command.back() = picture;
    const orvel_test::Finished done = orvel_test::run(command);
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.output + done.error, "");
    return read_png(picture);
}

TEST(ScenesTest, EachIsDrawnByALineOfTheReadme) {
    std::string all;
    for (const auto& line : lines()) all += line.at(1) + "\n";
    for (const fs::path& file : scene_files()) {
        const std::string name = fs::relative(file, kScenes).string();
        EXPECT_NE(all.find(name + "\n"), std::string::npos) << name;
    }
    EXPECT_EQ(lines().size(), scene_files().size());
    EXPECT_GE(lines().size(), 6u);
}

// ORVEL_UPDATE_GOLDEN=scenes draws the golden pictures anew: look at them.
TEST(ScenesTest, TheyLookAsTheyDid) {
    const char* const update = std::getenv("ORVEL_UPDATE_GOLDEN");
    const std::string wanted = update ? update : "";
    const orvel_test::TempFolder folder;
    for (const auto& line : lines()) {
        const Picture picture = drawn(line, folder.path());
        const std::string golden = kGolden + line.back();
        if (wanted == "1" || wanted == "scenes") {
            orvel_test::write_file(golden, read_file(folder / line.back()));
        }
        const Picture expected = read_png(golden);
        EXPECT_EQ(picture.width, expected.width) << golden;
        const bool same = picture.pixels == expected.pixels;
        if (!same)
            orvel_test::write_file(ORVEL_BINARY_DIR "/scenes/" + line.back(),
                                   read_file(folder / line.back()));
        EXPECT_TRUE(same) << golden << " is not what " ORVEL_BINARY_DIR "/scenes shows";
    }
}

TEST(ScenesTest, NothingIsWrongWithThemWithEitherData) {
    for (const fs::path& file : scene_files()) {
        const std::string data = (file.parent_path() / "data.json").string();
        for (const auto& values : {std::vector<std::string>{"--sample"}, {"--data", data}}) {
            std::vector<std::string> command = {kRender, file.string(), "--check"};
            command.insert(command.end(), values.begin(), values.end());
            const orvel_test::Finished done = orvel_test::run(command);
            EXPECT_EQ(done.output + done.error, "") << file;
            EXPECT_EQ(done.status, 0) << file;
        }
    }
}

/// A line of the README's, with --check in place of the file that it writes.
std::vector<std::string> checking(std::vector<std::string> command) {
    command.resize(command.size() - 2);
    for (std::string& word : command) {
        if (fs::exists(fs::path(kScenes) / word)) word = std::string(kScenes) + "/" + word;
    }
    command.front() = kRender;
    command.emplace_back("--check");
    return command;
}

TEST(ScenesTest, NothingIsWrongWithThemOnTheirPanels) {
    for (const auto& line : lines()) {
        ASSERT_EQ(*(line.end() - 2), "-o");
        const orvel_test::Finished done = orvel_test::run(checking(line));
        EXPECT_EQ(done.output + done.error, "") << line[1];
        EXPECT_EQ(done.status, 0) << line[1];
    }
}

}  // namespace
