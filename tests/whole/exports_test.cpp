// Each shared library exports what its list says, and nothing else.
#include <fnmatch.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <set>
#include <sstream>
#include <string>

#include "support/files.h"
#include "support/process.h"

namespace {

struct Library {
    const char* name;
    const char* file;
    const char* exports;        // what it is to export, by hand
    const char* apple_exports;  // what the linker is told on macOS
    const char* host;           // one in C that calls every function
    const char* prefix;         // of the functions that hosts call
    std::set<std::string> on;   // libraries of this project
};

const Library kLibraries[] = {
    {"OrvelSDK",
     ORVEL_LIBRARY,
     "tests/whole/exports.txt",
     "cmake/exports_apple.txt",
     "tests/whole/c_api_test.c",
     "orvel_",
     {}},
    {"OrvelKit",
     ORVEL_KIT_LIBRARY,
     "tests/kit/exports.txt",
     "cmake/exports_kit_apple.txt",
     "tests/kit/kit_api_test.c",
     "kit_",
     {"libOrvelSDK"}},
#ifdef ORVEL_SCREEN_LIBRARY  // where it is built
    {"OrvelScreen",
     ORVEL_SCREEN_LIBRARY,
     "tests/screen/exports.txt",
     "cmake/exports_screen_apple.txt",
     "tests/screen/screen_api_test.c",
     "kit_screen_",
     {"libOrvelSDK", "libOrvelKit"}},
#endif
};

void PrintTo(const Library& library, std::ostream* out) { *out << library.name; }

class ExportsTest : public testing::TestWithParam<Library> {};

INSTANTIATE_TEST_SUITE_P(, ExportsTest, testing::ValuesIn(kLibraries),
                         [](const auto& library) { return library.param.name; });

/// The lines of a file of the sources, without those that are empty or a comment.
std::set<std::string> lines_of(const std::string& path) {
    std::set<std::string> names;
    std::istringstream lines(orvel_test::read_file(ORVEL_SOURCE_DIR "/" + path));
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line[0] != '#') names.insert(line);
    }
    return names;
}

/// The symbols in what nm prints: an address, a letter and the name on every line.
std::set<std::string> exported(const Library& library) {
    std::set<std::string> names;
    std::istringstream lines(orvel_test::run({"nm", "-D", "--defined-only", library.file}).output);
    for (std::string address, kind, name; lines >> address >> kind && std::getline(lines, name);) {
        names.insert(name.substr(1));
    }
    return names;
}

TEST_P(ExportsTest, TheLibraryExportsExactlyWhatIsListed) {
    const std::set<std::string> found = exported(GetParam());
    const std::set<std::string> expected = lines_of(GetParam().exports);
    ASSERT_FALSE(found.empty());
    for (const std::string& name : found) {
        EXPECT_EQ(expected.count(name), 1u)
            << name << " is exported but not in " << GetParam().exports;
    }
    for (const std::string& name : expected) {
        EXPECT_EQ(found.count(name), 1u)
            << name << " is in " << GetParam().exports << " but not exported";
    }
}

TEST_P(ExportsTest, TheListForMacosLetsAllOfThemThrough) {
    const std::set<std::string> patterns = lines_of(GetParam().apple_exports);
    for (const std::string& name : lines_of(GetParam().exports)) {
        const std::string symbol = "_" + name;
        EXPECT_TRUE(std::any_of(patterns.begin(), patterns.end(), [&](const std::string& pattern) {
            return fnmatch(pattern.c_str(), symbol.c_str(), 0) == 0;
        })) << name;
    }
}

TEST_P(ExportsTest, TheLibraryNeedsTheRuntimesOfCAndCxxAndTheProjectsOwnAlone) {
    std::istringstream lines(orvel_test::run({"readelf", "-dW", GetParam().file}).output);
    std::set<std::string> needed;
    for (std::string line; std::getline(lines, line);) {
        if (line.find("(NEEDED)") == std::string::npos) continue;
        const std::size_t open = line.find('[');
        needed.insert(line.substr(open + 1, line.find(".so", open) - open - 1));
    }
    EXPECT_EQ(needed.count("libc"), 1u);
    for (const std::string& own : GetParam().on) EXPECT_EQ(needed.erase(own), 1u) << own;
    for (const char* runtime : {"libc", "libm", "libstdc++", "libgcc_s", "ld-linux-x86-64",
                                "ld-linux-aarch64", "libdl"}) {
        needed.erase(runtime);
    }
    for (const std::string& library : needed) {
        const bool of_a_sanitizer = library == "libasan" || library == "libubsan";
        EXPECT_TRUE(of_a_sanitizer) << library;
    }
}

TEST_P(ExportsTest, EveryFunctionOfTheInterfaceIsCalledFromC) {
    const std::string host =
        orvel_test::read_file(ORVEL_SOURCE_DIR "/" + std::string(GetParam().host));
    for (const std::string& name : lines_of(GetParam().exports)) {
        if (name.rfind(GetParam().prefix, 0) != 0) continue;  // the C++ functions
        EXPECT_NE(host.find(name + "("), std::string::npos)
            << name << " is not called in " << GetParam().host;
    }
}

}  // namespace
