// orvel-theme, and the theme files that are delivered.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "complete_theme.h"
#include "orvel_kit.h"
#include "support/files.h"
#include "support/picture.h"
#include "support/process.h"
#include "tools/png.h"

namespace {

using namespace orvel_test;
using namespace orvel_tools;

constexpr const char* kTheme = ORVEL_BINARY_DIR "/orvel-theme";
constexpr const char* kThemes = ORVEL_SOURCE_DIR "/share/themes";

std::vector<std::string> delivered_themes() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(kThemes)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

TEST(DeliveredThemes, AreSix) {
    EXPECT_EQ(delivered_themes(),
              (std::vector<std::string>{"forest.json", "high-contrast.json", "lagoon.json",
                                        "midnight.json", "paper.json", "terminal.json"}));
}

TEST(DeliveredThemes, AreByteForByteWhatTheLibrarySaves) {
    const TempFolder folder;
    ASSERT_EQ(orvel_set_resource_path(folder.path().c_str()), 0);
    for (const std::string& name : delivered_themes()) {
        const std::string bytes = read_file(std::string(kThemes) + "/" + name);
        write_file(folder / "UI/" + name, bytes);
        orvel_theme theme = {};
        ASSERT_EQ(orvel_theme_load(&theme, name.c_str()), 0);
        ASSERT_EQ(orvel_theme_save(&theme, "saved.json"), 0);
        EXPECT_EQ(bytes.size(), 264u);
        EXPECT_EQ(read_file(folder / "UI/saved.json"), bytes) << name;
    }
    orvel_set_resource_path("");
}

TEST(DeliveredThemes, GiveAllWordsAContrastOfAtLeast4Point5) {
    for (const std::string& name : delivered_themes()) {
        const Finished done =
            run({kTheme, "check", std::string(kThemes) + "/" + name, "--min-contrast", "4.5"});
        EXPECT_EQ(done.status, 0) << done.output << done.error;
    }
}

class ThemeTool : public testing::Test {
protected:
    const TempFolder folder;
    const std::string file = folder / "mine.json";

    Finished check(const std::string& text, std::vector<std::string> options = {}) {
        write_file(file, text);
        options.insert(options.begin(), {kTheme, "check", file});
        return run(options);
    }
};

TEST_F(ThemeTool, ACompleteThemeExitsWith0AndShowsEveryRatio) {
    const Finished done = check(kComplete);
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.error, "");
    EXPECT_EQ(done.output,
              file +
                  ": all nine colours are there\n"
                  "  11.34  text on background           labels, list items\n"
                  "   9.98  text on surface              text boxes, title bars\n"
                  "   6.31  text on button_hover         selected menu and list items\n"
                  "   8.69  button_text on button        buttons\n"
                  "   6.31  button_text on button_hover  buttons under the pointer\n"
                  "   6.85  accent on surface            the selected tab\n"
                  "   7.79  background on accent         window titles, badges, avatars\n"
                  "   7.08  error on background          the host's own messages\n");
}

TEST_F(ThemeTool, FindingsNameFileAndLineAndExitWith1) {
    const Finished done =
        check(replaced(replaced(kComplete, "#89b4fa", "#fff"), "\"error\"", "\"e\""));
    EXPECT_EQ(done.status, 1);
    EXPECT_EQ(
        done.output.rfind(file + ":5: accent: \"#fff\" is too short and becomes white\n" + file +
                              ": error: missing, so the colour stays what it was before the "
                              "load\n",
                          0),
        0u)
        << done.output;
}

TEST_F(ThemeTool, RatiosBelowTheWantedOneExitWith1) {
    const Finished done = check(kComplete, {"--min-contrast", "6.5"});
    EXPECT_EQ(done.status, 1);
    EXPECT_NE(done.output.find("   6.31  text on button_hover         selected menu and list items"
                               "  <- too low\n"),
              std::string::npos)
        << done.output;
    EXPECT_EQ(check(kComplete, {"--min-contrast", "6.3"}).status, 0);
}

TEST_F(ThemeTool, ThePreviewShowsTheNineColoursInOrderUnderWidgetsInTheTheme) {
    const std::string lagoon = std::string(kThemes) + "/lagoon.json";
    const Finished done = run({kTheme, "check", lagoon, "--preview", folder / "sheet.png"});
    EXPECT_EQ(done.status, 0) << done.error;
    const Picture sheet = read_png(folder / "sheet.png");
    ASSERT_EQ(sheet.width, 480);
    ASSERT_EQ(sheet.height, 320);
    constexpr orvel_color kBackground = {0xee, 0xf8, 0xf8, 255}, kAccent = {0x00, 0x6a, 0x73, 255};
    constexpr orvel_color kHover = {0xb0, 0xd5, 0xd7, 255}, kError = {0xa8, 0x12, 0x3a, 255};
    const orvel_color swatches[] = {kBackground, {0xdc, 0xef, 0xef, 255}, {0x12, 0x36, 0x3b, 255},
                                    kAccent,     {0x9c, 0xc3, 0xc6, 255}, {0xc8, 0xe3, 0xe4, 255},
                                    kHover,      {0x0d, 0x2c, 0x30, 255}, kError};
    for (int i = 0; i < 9; ++i) EXPECT_EQ(sheet.at(36 + 51 * i, 284), swatches[i]) << i;
    EXPECT_EQ(sheet.at(2, 2), kBackground);
    EXPECT_EQ(sheet.at(200, 13), kAccent);  // the window's title band
    EXPECT_EQ(sheet.at(136, 40), kHover);   // the button under the pointer
}

TEST_F(ThemeTool, APreviewThatCannotBeWrittenIsAnError) {
    const Finished done = check(kComplete, {"--preview", folder / "none/sheet.png"});
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(done.error.rfind("orvel-theme: " + (folder / "none/sheet.png"), 0), 0u) << done.error;
}

TEST_F(ThemeTool, LeavesNoFilesBehind) {
    setenv("TMPDIR", folder.path().c_str(), 1);
    EXPECT_EQ(check(kComplete).status, 0);
    unsetenv("TMPDIR");
    const auto entries = std::filesystem::directory_iterator(folder.path());
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

TEST_F(ThemeTool, ErrorsAreOneLineAndStatus2) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{}, "A subcommand is required (orvel-theme --help tells more)"},
        {{"frob"}, "unknown command frob (orvel-theme --help tells more)"},
        {{"check", "--frob"}, "unknown option --frob (orvel-theme --help tells more)"},
        {{"check"}, "FILE is required (orvel-theme --help tells more)"},
        {{"check", folder / "none.json"}, (folder / "none.json") + ": No such file or directory"},
        {{"check", folder.path()}, folder.path() + ": not a file"},
    };
    for (const auto& [arguments, message] : cases) {
        std::vector<std::string> command = {kTheme};
        command.insert(command.end(), arguments.begin(), arguments.end());
        const Finished done = run(command);
        EXPECT_EQ(done.status, 2);
        EXPECT_EQ(done.output, "");
        EXPECT_EQ(done.error, "orvel-theme: " + message + "\n");
    }
}

TEST_F(ThemeTool, ManyFilesAreChecked) {
    write_file(folder / "good.json", kComplete);
    write_file(folder / "bad.json", "{}");
    const Finished done =
        run({kTheme, "check", folder / "bad.json", folder / "none.json", folder / "good.json"});
    EXPECT_EQ(done.status, 2);
    EXPECT_NE(done.output.find((folder / "bad.json") + ": error: missing"), std::string::npos);
    EXPECT_NE(done.output.find((folder / "good.json") + ": all nine"), std::string::npos);
    EXPECT_EQ(done.error,
              "orvel-theme: " + (folder / "none.json") + ": No such file or directory\n");
    EXPECT_EQ(run({kTheme, "check", folder / "bad.json", folder / "good.json"}).status, 1);
    EXPECT_EQ(
        run({kTheme, "check", folder / "bad.json", folder / "good.json", "--preview", "x.png"})
            .error,
        "orvel-theme: --preview is for one FILE (orvel-theme --help tells more)\n");
}

TEST_F(ThemeTool, ADashIsTheStandardInput) {
    write_file(folder / "good.json", kComplete);
    const Finished done =
        run({"sh", "-c", "exec \"$0\" check - <\"$1\"", kTheme, folder / "good.json"});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.output.rfind("standard input: all nine colours are there\n", 0), 0u);
}

TEST_F(ThemeTool, PathPrintsWhereTheDeliveredThemesLie) {
    const std::string in_sources = std::filesystem::canonical(kThemes).string() + "\n";
    EXPECT_EQ(run({kTheme, "path"}).output, in_sources);
    EXPECT_EQ(run({"sh", "-c", "PATH=$1 && orvel-theme path", "", ORVEL_BINARY_DIR}).output,
              in_sources);
    std::filesystem::create_directories(folder / "bin");
    std::filesystem::copy_file(kTheme, folder / "bin/orvel-theme");
    const std::vector<std::string> command = {"env", "LD_LIBRARY_PATH=" ORVEL_BINARY_DIR,
                                              "DYLD_LIBRARY_PATH=" ORVEL_BINARY_DIR,
                                              folder / "bin/orvel-theme", "path"};
    Finished done = run(command);
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(
        done.error,
        "orvel-theme: the themes that come with OrvelSDK are not installed beside this program\n");
    std::filesystem::create_directories(folder / "share/orvelsdk/themes");
    done = run(command);
    EXPECT_EQ(done.output,
              std::filesystem::canonical(folder / "share/orvelsdk/themes").string() + "\n");
}

TEST_F(ThemeTool, HelpAndVersionExitWith0) {
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{kTheme, "--help"}, {kTheme, "check", "--help"}}) {
        const Finished help = run(arguments);
        EXPECT_EQ(help.status, 0);
        EXPECT_NE(help.output.find("Usage: orvel-theme"), std::string::npos);
    }
    EXPECT_EQ(run({kTheme, "--version"}).output, KIT_VERSION "\n");
}

TEST_F(ThemeTool, OutputThatIsLostIsAnError) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "this system has no /dev/full";
    const Finished done = run({"sh", "-c", "exec \"$0\" \"$1\" >/dev/full", kTheme, "path"});
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(done.error, "orvel-theme: standard output: it cannot be written\n");
}

}  // namespace
