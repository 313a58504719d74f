// orvel-render with a scene, as its users run it: a process, files, an exit status.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/files.h"
#include "support/process.h"

namespace orvel_test {

inline constexpr const char* kRender = ORVEL_BINARY_DIR "/orvel-render";

/// A black bar on white, as long as the data say, and a word.
inline constexpr const char* kScene = R"({"orvel": 1, "size": [40, 20],
  "root": {"column": [
    {"rect": "#000000", "width": "${bar}", "height": 4},
    {"text": "${word|none}", "color": "#ff0000"}],
   "ground": "#ffffff", "align": "start"},
  "sample": {"bar": 8}})";

class RenderTool : public testing::Test {
protected:
    TempFolder folder;
    const std::string scene = folder / "scene.json", png = folder / "out.png";

    void SetUp() override { write_file(scene, kScene); }

    Finished run(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {kRender, scene});
        return orvel_test::run(arguments);
    }

    /// The bytes written with these arguments.
    std::string drawn(const std::string& file, const std::vector<std::string>& more = {}) const {
        std::vector<std::string> arguments = {"--sample", "-o", folder / file};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Finished done = run(arguments);
        EXPECT_EQ(done.status, 0) << done.error;
        EXPECT_EQ(done.error, "");
        return read_file(folder / file);
    }

    void expect_refused(const std::vector<std::string>& arguments, const std::string& why) const {
        const Finished done = run(arguments);
        EXPECT_EQ(done.status, 2);
        EXPECT_EQ(done.error, "orvel-render: " + why + "\n");
        EXPECT_EQ(done.output, "");
        EXPECT_FALSE(std::filesystem::exists(png));
    }
};

}  // namespace orvel_test
