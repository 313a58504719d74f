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

struct Library {
    std::string root;
    std::set<std::string> headers;                       // the public ones that all may include
    std::map<std::string, std::set<std::string>> below;  // what each folder may include of others
};

const Library& the_library() {
    static const Library library = {
        ORVEL_SOURCE_DIR "/src",
        {"orvel.h"},
        {{"core", {}},
         {"canvas", {"core"}},
         {"text", {"core", "canvas"}},
         {"icons", {"core", "canvas", "text"}},
         {"themes", {"core", "canvas", "text"}},
         {"widgets", {"core", "canvas", "text", "icons", "themes"}},
         {"sound", {"core"}}},
    };
    return library;
}

/// It knows the library by its header alone.
const Library& the_kit() {
    static const Library library = {
        ORVEL_SOURCE_DIR "/kit",
        {"orvel.h", "orvel_kit.h", "orvel_screen.h"},
        {{"include", {}},
         {"pixels", {}},
         {"words", {"pixels"}},
         {"widgets", {"pixels", "words"}},
         {"charts", {"pixels", "words"}},
         {"screen", {}}},
    };
    return library;
}

/// What a source text includes, between the @p open_mark and @p close_mark.
std::vector<std::string> includes(const std::string& source, char open_mark, char close_mark) {
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
        const auto open = line.find(open_mark), close = line.rfind(close_mark);
        if (open != std::string::npos) names.push_back(line.substr(open + 1, close - open - 1));
    }
    return names;
}

/// What is wrong with @p name being included from @p folder; empty when nothing is.
std::string complaint(const Library& library, const std::string& folder, const std::string& name) {
    if (library.headers.count(name) == 1) return "";
    const auto slash = name.find('/');
    const std::string from = slash == std::string::npos ? folder : name.substr(0, slash);
    if (name.find("..") != std::string::npos) return "leaves its folder";
    if (library.below.count(folder) == 0) return "is in a folder without a place in the order";
    if (from != folder && library.below.at(folder).count(from) == 0) return "breaks the order";
    return "";
}

/// Whether a file's name says that it is of a platform.
bool is_of_a_platform(const std::string& file) {
    const std::string stem = fs::path(file).stem().string();
    for (const std::string end : {"_posix", "_linux", "_apple", "_x86"}) {
        if (stem.size() > end.size() && stem.substr(stem.size() - end.size()) == end) return true;
    }
    return false;
}

/// Whether a header in angle brackets is the system's: those of standard C++ are single words, and
/// the reader of JSON is the same everywhere.
bool is_of_the_system(const std::string& header) {
    return header.find_first_of("./") != std::string::npos && header != "nlohmann/json.hpp";
}

/// Calls @p check with the path in the library, and the text, of every source.
template <typename Check>
void for_every_source(const Library& library, const Check& check) {
    int files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(library.root)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".h" && extension != ".cpp" && extension != ".c") continue;
        ++files;
        check(entry.path().lexically_relative(library.root), orvel_test::read_file(entry.path()));
    }
    EXPECT_GT(files, 15);
}

TEST(LayersTest, EveryIncludeFollowsTheOrder) {
    for (const Library& library : {the_library(), the_kit()}) {
        for_every_source(library, [&](const fs::path& inside, const std::string& source) {
            const std::string folder = inside.begin()->string();
            EXPECT_EQ(library.below.count(folder), 1u) << inside << " is in no layer";
            for (const std::string& name : includes(source, '"', '"')) {
                EXPECT_EQ(complaint(library, folder, name), "") << inside << " includes " << name;
            }
        });
    }
}

/// Expects of a source whose name says nothing of a platform that it knows none. The public headers
/// are C, and what bakes the faces is a program, which is not shipped.
void expect_no_platform(const fs::path& inside, const std::string& source) {
    const std::string folder = inside.parent_path().string();
    if (is_of_a_platform(inside.string()) || folder == "include" || folder == "words/bake") return;
    for (const std::string& name : includes(source, '<', '>')) {
        EXPECT_FALSE(is_of_the_system(name)) << inside << " includes " << name;
    }
    for (const std::string& name : includes(source, '"', '"')) {
        EXPECT_FALSE(is_of_a_platform(name)) << inside << " includes " << name;
    }
    for (const std::string words : {"#if", "asm"}) {
        EXPECT_EQ(source.find(words), std::string::npos) << inside << " differs by platform";
    }
}

TEST(LayersTest, OnlyTheFilesOfAPlatformKnowOne) {
    for (const Library& library : {the_library(), the_kit()}) {
        for_every_source(library, expect_no_platform);
    }
}

TEST(LayersTest, ABrokenOrderWouldBeSeen) {
    const Library &src = the_library(), &kit = the_kit();
    EXPECT_EQ(complaint(src, "core", "canvas/canvas.h"), "breaks the order");
    EXPECT_EQ(complaint(src, "canvas", "text/font.h"), "breaks the order");
    EXPECT_EQ(complaint(src, "themes", "icons/icon.h"), "breaks the order");
    EXPECT_EQ(complaint(src, "icons", "themes/hex.h"), "breaks the order");
    EXPECT_EQ(complaint(src, "sound", "canvas/canvas.h"), "breaks the order");
    EXPECT_EQ(complaint(src, "core", "../canvas/canvas.h"), "leaves its folder");
    EXPECT_EQ(complaint(src, "helpers", "helpers/x.h"),
              "is in a folder without a place in the order");
    EXPECT_EQ(complaint(kit, "pixels", "words/face.h"), "breaks the order");
    EXPECT_EQ(complaint(kit, "words", "canvas/canvas.h"), "breaks the order");
    EXPECT_EQ(complaint(kit, "charts", "widgets/draw.h"), "breaks the order");
    EXPECT_EQ(complaint(kit, "screen", "words/face.h"), "breaks the order");
    EXPECT_EQ(complaint(kit, "widgets", "words/face.h"), "");
    EXPECT_EQ(complaint(kit, "words", "orvel_kit.h"), "");
    EXPECT_EQ(complaint(src, "widgets", "themes/hex.h"), "");
    EXPECT_EQ(complaint(src, "icons", "icon.h"), "");
    EXPECT_EQ(complaint(src, "core", "orvel.h"), "");
}

TEST(LayersTest, AnIncludeThatKnowsAPlatformWouldBeSeen) {
    const std::string source =
        "#include <a.h>\n  #  include \"b/c.h\"\n#include \"d.h\"  // why\n#include <new>\n";
    EXPECT_EQ(includes(source, '"', '"'), (std::vector<std::string>{"b/c.h", "d.h"}));
    EXPECT_EQ(includes(source, '<', '>'), (std::vector<std::string>{"a.h", "new"}));
    EXPECT_TRUE(is_of_the_system("unistd.h"));
    EXPECT_TRUE(is_of_the_system("sys/types.h"));
    EXPECT_TRUE(is_of_the_system("AudioToolbox/AudioToolbox.h"));
    EXPECT_FALSE(is_of_the_system("cstdio"));
    EXPECT_TRUE(is_of_a_platform("core/files_posix.cpp"));
    EXPECT_TRUE(is_of_a_platform("core/descriptors_posix.h"));
    EXPECT_TRUE(is_of_a_platform("sound/system_sound_apple.cpp"));
    EXPECT_TRUE(is_of_a_platform("canvas/long_run_x86.cpp"));
    EXPECT_FALSE(is_of_a_platform("core/files_none.cpp"));
    EXPECT_FALSE(is_of_a_platform("core/_posix/files.cpp"));
}

/// The types that the headers of a folder define, each with its header.
std::multimap<std::string, std::string> types_of(const std::string& folder) {
    std::multimap<std::string, std::string> types;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.path().extension() != ".h") continue;
        std::istringstream lines(orvel_test::read_file(entry.path()));
        for (std::string line; std::getline(lines, line);) {
            std::istringstream words(line);
            std::string kind, name;
            words >> kind >> name;
            const bool is_type = line.rfind("struct ", 0) == 0 || line.rfind("class ", 0) == 0;
            if (is_type && line.find(';') == std::string::npos) types.emplace(name, entry.path());
        }
    }
    return types;
}

// Two types of one name in one namespace are one type to the linker, which takes either's
// functions.
TEST(LayersTest, NoTwoHeadersDefineATypeOfTheSameName) {
    for (const char* folder : {"/src", "/kit"}) {
        const auto types = types_of(ORVEL_SOURCE_DIR + std::string(folder));
        EXPECT_GT(types.size(), 5u);
        for (const auto& [name, header] : types) {
            EXPECT_EQ(types.count(name), 1u) << name << " of " << header;
        }
    }
}

}  // namespace
