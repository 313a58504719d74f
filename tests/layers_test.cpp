// Reads the #include lines of the sources and holds them to the order of the layers.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/files.h"

namespace {

namespace fs = std::filesystem;

/// What each folder may include, besides the public header and itself.
const std::map<std::string, std::set<std::string>>& allowed() {
    static const std::map<std::string, std::set<std::string>> table = {
        {"core", {}},
        {"canvas", {"core"}},
        {"text", {"core", "canvas"}},
        {"icons", {"core", "canvas", "text"}},
        {"themes", {"core", "canvas", "text"}},
        {"widgets", {"core", "canvas", "text", "icons", "themes"}},
        {"sound", {"core"}},
    };
    return table;
}

/// The quoted includes of a source text.
std::vector<std::string> quoted_includes(const std::string& source) {
    std::vector<std::string> names;
    std::istringstream lines(source);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string hash, rest;
        words >> hash;
        if (hash == "#") {
            words >> rest;
            hash += rest;
        }
        if (hash.rfind("#include", 0) != 0) continue;
        const auto open = line.find('"'), close = line.rfind('"');
        if (open != std::string::npos) names.push_back(line.substr(open + 1, close - open - 1));
    }
    return names;
}

/// What is wrong with @p name being included from @p folder of src; empty when nothing is.
std::string complaint(const std::string& folder, const std::string& name) {
    if (name == "orvel.h") return "";
    const auto slash = name.find('/');
    const std::string from = slash == std::string::npos ? folder : name.substr(0, slash);
    if (name.find("..") != std::string::npos) return "leaves its folder";
    if (allowed().count(folder) == 0) return "is in a folder without a place in the order";
    if (from != folder && allowed().at(folder).count(from) == 0) return "breaks the order";
    return "";
}

TEST(LayersTest, EveryIncludeFollowsTheOrder) {
    const fs::path root = ORVEL_SOURCE_DIR "/src";
    int files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".h" && extension != ".cpp" && extension != ".c") continue;
        ++files;
        const fs::path inside = entry.path().lexically_relative(root);
        const std::string folder = inside.begin()->string();
        EXPECT_EQ(allowed().count(folder), 1u) << inside << " is in no layer";
        for (const std::string& name : quoted_includes(orvel_test::read_file(entry.path()))) {
            EXPECT_EQ(complaint(folder, name), "") << inside << " includes " << name;
        }
    }
    EXPECT_GT(files, 15);
}

TEST(LayersTest, ABrokenOrderWouldBeSeen) {
    EXPECT_EQ(complaint("core", "canvas/canvas.h"), "breaks the order");
    EXPECT_EQ(complaint("canvas", "text/font.h"), "breaks the order");
    EXPECT_EQ(complaint("themes", "icons/icon.h"), "breaks the order");
    EXPECT_EQ(complaint("icons", "themes/hex.h"), "breaks the order");
    EXPECT_EQ(complaint("sound", "canvas/canvas.h"), "breaks the order");
    EXPECT_EQ(complaint("core", "../canvas/canvas.h"), "leaves its folder");
    EXPECT_EQ(complaint("helpers", "helpers/x.h"), "is in a folder without a place in the order");
    EXPECT_EQ(complaint("widgets", "themes/hex.h"), "");
    EXPECT_EQ(complaint("icons", "icon.h"), "");
    EXPECT_EQ(complaint("core", "orvel.h"), "");
    EXPECT_EQ(quoted_includes("#include <a.h>\n  #  include \"b/c.h\"\n#include \"d.h\"  // why\n"),
              (std::vector<std::string>{"b/c.h", "d.h"}));
}

}  // namespace
