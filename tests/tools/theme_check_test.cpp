// The rules by which orvel-theme checks a file, which are those of the library's loader.
#include "theme_check.h"

#include <gtest/gtest.h>

#include <cstring>

#include "complete_theme.h"
#include "orvel_kit.h"
#include "support/cases.h"
#include "support/files.h"
#include "support/picture.h"
#include "support/random.h"

namespace {

using namespace orvel_test;
using namespace orvel_tools;

constexpr const char* kKeys[] = {"background", "surface",      "text",        "accent", "border",
                                 "button",     "button_hover", "button_text", "error"};

/// The findings as text, one a line.
std::string found_in(const std::string& text) {
    std::string lines;
    for (const Finding& finding : check_theme(text)) {
        lines += std::to_string(finding.line) + " " + finding.key + ": " + finding.message + "\n";
    }
    return lines;
}

/// Those in the complete file with one change.
std::string found_with(const std::string& from, const std::string& to) {
    return found_in(replaced(kComplete, from, to));
}

const std::string kStays = ", so the colour stays what it was before the load\n";

TEST(ThemeCheck, ACompleteFileHasNoFindings) { EXPECT_EQ(found_in(kComplete), ""); }

TEST(ThemeCheck, EveryKeyIsMissed) {
    for (const std::string key : kKeys) {
        EXPECT_EQ(found_with("\"" + key + "\"", "\"other\""), "0 " + key + ": missing" + kStays);
    }
}

TEST(ThemeCheck, KeysOfAnotherCaseAreMissing) {
    EXPECT_EQ(found_with("\"error\"", "\"Error\""), "0 error: missing" + kStays);
}

TEST(ThemeCheck, AnEmptyValueKeepsTheColour) {
    EXPECT_EQ(found_with("#89b4fa", ""), "5 accent: empty" + kStays);
}

TEST(ThemeCheck, AShortValueBecomesWhite) {
    EXPECT_EQ(found_with("#89b4fa", "#fff"), "5 accent: \"#fff\" is too short and becomes white\n");
    EXPECT_EQ(found_with("#89b4fa", "#"), "5 accent: \"#\" is too short and becomes white\n");
    EXPECT_EQ(found_with("#89b4fa", std::string("#89\0b4fa", 8)),
              "5 accent: \"#89...\" is too short and becomes white\n");
}

TEST(ThemeCheck, SixDigitsWithoutASignAndInCapitalsAreFine) {
    EXPECT_EQ(found_with("#89b4fa", "89B4FA"), "");
}

TEST(ThemeCheck, ABadDigitCountsAs0) {
    EXPECT_EQ(found_with("#89b4fa", "#12345g"),
              "5 accent: \"#12345g\" has a bad digit, which counts as 0\n");
    EXPECT_EQ(found_with("#89b4fa", "##ff0000"),
              "5 accent: \"##ff0000\" has a bad digit, which counts as 0\n");
}

TEST(ThemeCheck, DigitsAfterTheSixthDoNotCount) {
    EXPECT_EQ(found_with("#89b4fa", "#ff000080"),
              "5 accent: \"#ff000080\" is too long; only its first six digits count\n");
}

TEST(ThemeCheck, ANumberForAValueIsToldWithWhatIsTakenInstead) {
    EXPECT_EQ(found_with("\"#1e1e2e\"", "5"),
              "2 background: not followed by its value; the loader takes the next text in quotes "
              "after a colon, \"surface\"\n");
}

TEST(ThemeCheck, AKeyThatFirstStandsAsAValueIsToldWithWhatIsTakenInstead) {
    EXPECT_EQ(found_with("{\n", "{ \"name\": \"text\",\n"),
              "1 text: not followed by its value; the loader takes the next text in quotes after a "
              "colon, \"#1e1e2e\"\n");
}

TEST(ThemeCheck, AnUnfinishedValueKeepsTheColour) {
    EXPECT_EQ(found_with("#f38ba8\"\n}\n", "#f38ba8"), "10 error: has no value in quotes" + kStays);
    EXPECT_EQ(found_with(":        \"#f38ba8\"", ""), "10 error: has no value in quotes" + kStays);
}

TEST(ThemeCheck, OfAKeyGivenTwiceOnlyTheFirstCounts) {
    EXPECT_EQ(found_with("}\n", "\"accent\": \"#000000\"}\n"),
              "5 accent: given more than once; only the first one counts\n");
}

TEST(ThemeCheck, OrderAndLayoutDoNotMatter) {
    std::string text;
    for (const std::string key : kKeys) {
        text.insert(0, "'" + key + "' \"" + key + "\"\t:\r\n  \"ABCDEF\"");
    }
    EXPECT_EQ(found_in(text), "");
}

/// Exactly the keys said to keep their colour are those that the library leaves unchanged.
TEST(ThemeCheck, AgreesWithTheLibraryAboutWhatStaysUnchanged) {
    const TempFolder folder;
    ASSERT_EQ(orvel_set_resource_path(folder.path().c_str()), 0);
    for (std::size_t length = 0; length <= kComplete.size(); ++length) {
        const std::string text = kComplete.substr(0, length);
        write_file(folder / "UI/cut.json", text);
        orvel_theme theme = {};  // alpha 0, which no load gives
        ASSERT_EQ(orvel_theme_load(&theme, "cut.json"), 0);
        std::string kept, said;
        const orvel_color fields[] = {theme.background,   theme.surface,     theme.text,
                                      theme.accent,       theme.border,      theme.button,
                                      theme.button_hover, theme.button_text, theme.error};
        for (std::size_t i = 0; i < 9; ++i)
            kept += fields[i].a == 0 ? kKeys[i] + std::string(" ") : "";
        for (const Finding& finding : check_theme(text)) {
            ASSERT_NE(finding.message.find("stays what it was"), std::string::npos);
            said += finding.key + " ";
        }
        EXPECT_EQ(said, kept) << "the first " << length << " bytes";
    }
    orvel_set_resource_path("");
}

/// Fails unless the library did to a colour, whose alpha was 7, what the finding of its key says.
void expect_as_loaded(const std::string& text, const std::string& key, orvel_color loaded) {
    std::string message;
    for (const Finding& finding : check_theme(text)) {
        if (finding.key == key) message = finding.message;
    }
    const auto says = [&message](const char* words) {
        return message.find(words) != std::string::npos;
    };
    const orvel_color white = {255, 255, 255, 255};
    if (says("stays what it was")) {
        EXPECT_EQ(loaded.a, 7) << key << ": " << message << " in:\n" << text;
    } else if (!says("the next text in quotes")) {  // which may itself be empty
        EXPECT_EQ(loaded.a, 255) << key << ": " << message << " in:\n" << text;
    }
    if (says("becomes white")) {
        EXPECT_EQ(loaded, white) << key << " in:\n" << text;
    }
}

TEST(ThemeCheck, AgreesWithTheLibraryAboutAnyText) {
    const TempFolder folder;
    orvel_set_resource_path(folder.path().c_str());
    const std::string words[] = {"\"background\"", "\"button\"", "\"error\"", ":",    "\"", "#",
                                 "12abEF",         ",",          "\"#1234\"", "text", "\n", "\"\""};
    int changed = 0;
    for (const std::uint64_t number : cases(2000)) {
        Random random(number);
        std::string text;
        for (int left = random.between(0, 30); left > 0; --left) {
            text += words[random.between(0, 11)];
        }
        write_file(folder / "UI/any.json", text);
        orvel_theme theme;
        std::memset(&theme, 7, sizeof theme);
        ASSERT_EQ(orvel_theme_load(&theme, "any.json"), 0);
        expect_as_loaded(text, "background", theme.background);
        expect_as_loaded(text, "button", theme.button);
        expect_as_loaded(text, "error", theme.error);
        changed += theme.error.a == 255;
        if (testing::Test::HasFailure()) FAIL() << "replay it with ORVEL_SWEEP_CASE=" << number;
    }
    EXPECT_TRUE(is_replay() || changed > 200) << changed;
    orvel_set_resource_path("");
}

TEST(Contrast, GivesTheRatiosThatTheGuidelinesAreKnownBy) {
    constexpr orvel_color black = {0, 0, 0, 255}, white = {255, 255, 255, 255};
    EXPECT_DOUBLE_EQ(contrast(black, white), 21.0);
    EXPECT_DOUBLE_EQ(contrast(white, black), 21.0);
    EXPECT_DOUBLE_EQ(contrast(white, white), 1.0);
    // The lightest grey that words may have on white, and the first that is too light.
    EXPECT_GE(contrast({0x76, 0x76, 0x76, 255}, white), 4.5);
    EXPECT_LT(contrast({0x77, 0x77, 0x77, 255}, white), 4.5);
    EXPECT_NEAR(contrast({255, 0, 0, 255}, white), 3.998, 0.001);
    EXPECT_NEAR(contrast({0, 0, 255, 255}, white), 8.592, 0.001);
}

}  // namespace
