// The scenes that are delivered, drawn by the lines of their README.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "support/files.h"
#include "support/process.h"

namespace {

namespace fs = std::filesystem;
using orvel_test::read_file;

constexpr const char* kRender = ORVEL_BINARY_DIR "/orvel-render";
constexpr const char* kScenes = ORVEL_SOURCE_DIR "/scenes";
constexpr const char* kCompare = ORVEL_BINARY_DIR "/orvel-compare";
constexpr const char* kGolden = ORVEL_SOURCE_DIR "/tests/golden/scenes";

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
void draw(std::vector<std::string> command, const std::string& folder) {
    command.back() = folder + "/" + command.back();
    for (std::string& word : command) {
        if (fs::exists(fs::path(kScenes) / word)) word = std::string(kScenes) + "/" + word;
    }
    command.front() = kRender;
    const orvel_test::Finished done = orvel_test::run(command);
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.output + done.error, "");
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

// What was drawn stays there together with the report, so that it can be approved.
TEST(ScenesTest, TheyLookAsTheyDid) {
    const std::string folder = ORVEL_BINARY_DIR "/golden-scenes", actual = folder + "/actual",
                      report = folder + "/report.html";
    fs::remove_all(folder);
    fs::create_directories(actual);
    for (const auto& line : lines()) draw(line, actual);
    const auto done = orvel_test::run({kCompare, kGolden, actual, "--report", report});
    EXPECT_EQ(done.status, 0) << done.output << done.error << "The report: " << report
                              << "\nTo approve what was drawn: '" << kCompare
                              << "' --approve --prune '" << kGolden << "' '" << actual << "'";
}

TEST(ScenesTest, ThePictureOfEachIsTheSameOnEveryMachine) {
    const std::string checksums = read_file(ORVEL_SOURCE_DIR "/tests/screen/scene_checksums.txt");
    for (const fs::path& file : scene_files()) {
        for (const char* data : {" sample picture ", " data picture "}) {
            const std::string name = fs::relative(file, kScenes).string() + data;
            EXPECT_NE(checksums.find(name), std::string::npos) << name;
        }
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
