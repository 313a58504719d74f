// The shared library exports what tests/exports.txt lists, and nothing else.
#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

#include "support/files.h"
#include "support/process.h"

namespace {

/// The symbols in what nm prints: an address, a letter and the name on every line.
std::set<std::string> exported() {
    std::set<std::string> names;
    std::istringstream lines(orvel_test::run({"nm", "-D", "--defined-only", ORVEL_LIBRARY}).output);
    for (std::string address, kind, name; lines >> address >> kind && std::getline(lines, name);) {
        names.insert(name.substr(1));
    }
    return names;
}

std::set<std::string> listed() {
    std::set<std::string> names;
    std::istringstream lines(orvel_test::read_file(ORVEL_SOURCE_DIR "/tests/exports.txt"));
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty()) names.insert(line);
    }
    return names;
}

TEST(ExportsTest, TheLibraryExportsExactlyWhatIsListed) {
    const std::set<std::string> found = exported(), expected = listed();
    ASSERT_FALSE(found.empty());
    for (const std::string& name : found) {
        EXPECT_EQ(expected.count(name), 1u) << name << " is exported but not in tests/exports.txt";
    }
    for (const std::string& name : expected) {
        EXPECT_EQ(found.count(name), 1u) << name << " is in tests/exports.txt but not exported";
    }
}

TEST(ExportsTest, TheLibraryNeedsTheRuntimesOfCAndCxxAlone) {
    std::istringstream lines(orvel_test::run({"readelf", "-dW", ORVEL_LIBRARY}).output);
    std::set<std::string> needed;
    for (std::string line; std::getline(lines, line);) {
        if (line.find("(NEEDED)") == std::string::npos) continue;
        const std::size_t open = line.find('[');
        needed.insert(line.substr(open + 1, line.find(".so", open) - open - 1));
    }
    EXPECT_EQ(needed.count("libc"), 1u);
    for (const char* runtime : {"libc", "libm", "libstdc++", "libgcc_s", "ld-linux-x86-64",
                                "ld-linux-aarch64", "libdl"}) {
        needed.erase(runtime);
    }
    for (const std::string& library : needed) {
        const bool of_a_sanitizer = library == "libasan" || library == "libubsan";
        EXPECT_TRUE(of_a_sanitizer) << library;
    }
}

TEST(ExportsTest, EveryFunctionOfTheInterfaceIsCalledFromC) {
    const std::string host = orvel_test::read_file(ORVEL_SOURCE_DIR "/tests/c_api_test.c");
    for (const std::string& name : listed()) {
        if (name.rfind("orvel_", 0) != 0) continue;  // the C++ functions
        EXPECT_NE(host.find(name + "("), std::string::npos) << name;
    }
}

}  // namespace
