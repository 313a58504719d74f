// SECURITY.md: that its sentences have tests, and those that no other module has.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "orvel.h"
#include "support/files.h"
#include "support/picture.h"

namespace {

using namespace orvel_test;

/// A sentence of the page and the tests named behind it.
struct Statement {
    std::string sentence;
    std::vector<std::string> tests;
};

/// The items of the page's lists.
std::vector<Statement> statements(const std::string& page) {
    std::vector<Statement> all;
    const std::regex item("\n- ([^<]*)(?:<!--([^>]*)-->)?");
    for (std::sregex_iterator found(page.begin(), page.end(), item), end; found != end; ++found) {
        Statement statement = {(*found)[1], {}};
        std::istringstream names((*found)[2]);
        for (std::string name; names >> name;) statement.tests.push_back(name);
        all.push_back(statement);
    }
    return all;
}

/// What the page says outside of its lists, between the two headings.
std::string prose(std::string page) {
    const std::regex item("\n- [^<]*<!--[^>]*-->"), heading("\n## [^\n]*");
    page = std::regex_replace(page.substr(page.find("\n## ")), item, "");
    page = page.substr(0, page.find("\n## If you find a hole"));
    return std::regex_replace(page, heading, "");
}

/// Every test of the suite, as Suite.Name.
std::set<std::string> tests_of_the_suite() {
    std::set<std::string> names;
    const std::regex test("\nTEST(?:_F|_P)?\\((\\w+), *(\\w+)\\)");
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(ORVEL_SOURCE_DIR "/tests")) {
        if (entry.path().extension() != ".cpp") continue;
        const std::string source = read_file(entry.path());
        for (std::sregex_iterator found(source.begin(), source.end(), test), end; found != end;
             ++found) {
            names.insert((*found)[1].str() + "." + (*found)[2].str());
        }
    }
    return names;
}

TEST(SecurityPageTest, EverySentenceNamesTestsThatExist) {
    const std::set<std::string> existing = tests_of_the_suite();
    const std::vector<Statement> found = statements(read_file(ORVEL_SOURCE_DIR "/SECURITY.md"));
    EXPECT_GT(found.size(), 20u);
    for (const Statement& statement : found) {
        EXPECT_FALSE(statement.tests.empty()) << statement.sentence;
        for (const std::string& name : statement.tests) {
            EXPECT_EQ(existing.count(name), 1u) << name;
        }
    }
}

TEST(SecurityPageTest, EveryItemIsOneSentence) {
    const std::regex another("[.!?]\\s+[A-Z`]");
    for (const Statement& statement : statements(read_file(ORVEL_SOURCE_DIR "/SECURITY.md"))) {
        EXPECT_FALSE(std::regex_search(statement.sentence, another)) << statement.sentence;
    }
}

TEST(SecurityPageTest, NothingIsSaidBesideTheItems) {
    const std::string rest = prose(read_file(ORVEL_SOURCE_DIR "/SECURITY.md"));
    EXPECT_EQ(rest.find_first_not_of(" \n"), std::string::npos) << rest;
}

TEST(SecurityPageTest, TheNewestVersionIsTheOneThatIsRepaired) {
    const std::string page = read_file(ORVEL_SOURCE_DIR "/SECURITY.md");
    const std::string version = ORVEL_VERSION;
    const std::string row = "| " + version.substr(0, version.rfind('.')) + " | yes |\n";
    const std::size_t table = page.find("## Supported versions\n");
    ASSERT_NE(table, std::string::npos);
    EXPECT_NE(page.find(row, table), std::string::npos) << row;
    EXPECT_EQ(page.find("| yes |", page.find(row, table) + row.size()), std::string::npos);
}

TEST(SecurityPageTest, ASentenceWithoutATestWouldBeSeen) {
    const std::vector<Statement> found = statements("# A\n\n- One. <!-- A.B\n C.D -->\n- Two.\n");
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].tests, (std::vector<std::string>{"A.B", "C.D"}));
    EXPECT_TRUE(found[1].tests.empty());
    EXPECT_NE(prose("# A\n\n## B\n\nMore.\n- One. <!-- A.B -->\n").find("More."),
              std::string::npos);
}

TEST(SecurityTest, ANameMayLeadOutOfTheResourceRoot) {
    const TempFolder folder;
    std::filesystem::create_directories(folder / "root/UI");
    orvel_set_resource_path((folder / "root").c_str());
    const orvel_theme theme = {};
    EXPECT_EQ(orvel_theme_save(&theme, "../../outside.json"), 0);
    orvel_set_resource_path("");
    EXPECT_EQ(read_file(folder / "outside.json").size(), 264u);
}

TEST(SecurityTest, ASavedPictureFollowsLinks) {
    const TempFolder folder;
    write_file(folder / "target", "what was there");
    ASSERT_EQ(symlink((folder / "target").c_str(), (folder / "link.bmp").c_str()), 0);
    const auto canvas = make_canvas(1, 1);
    EXPECT_EQ(orvel_canvas_save_bmp(canvas.get(), (folder / "link.bmp").c_str()), 0);
    EXPECT_EQ(read_file(folder / "target").size(), 58u);
}

}  // namespace
