#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <string>

#include "models/theme_model.h"
#include "support/cases.h"
#include "support/files.h"
#include "support/picture.h"
#include "support/random.h"

namespace {

using namespace orvel_test;
using namespace std::string_literals;

constexpr const char* kDarkFile =
    "{\n"
    "  \"background\":   \"#1e1e2e\",\n"
    "  \"surface\":      \"#28283a\",\n"
    "  \"text\":         \"#cdd6f4\",\n"
    "  \"accent\":       \"#89b4fa\",\n"
    "  \"border\":       \"#45475a\",\n"
    "  \"button\":       \"#313244\",\n"
    "  \"button_hover\": \"#45475a\",\n"
    "  \"button_text\":  \"#cdd6f4\",\n"
    "  \"error\":        \"#f38ba8\"\n"
    "}\n";

bool operator==(const orvel_theme& a, const orvel_theme& b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

/// Nine colours that no file names, none of them opaque.
orvel_theme before() {
    return {{1, 1, 1, 1}, {2, 2, 2, 2}, {3, 3, 3, 3}, {4, 4, 4, 4}, {5, 5, 5, 5},
            {6, 6, 6, 6}, {7, 7, 7, 7}, {8, 8, 8, 8}, {9, 9, 9, 9}};
}

class ThemeFileTest : public testing::Test {
protected:
    ThemeFileTest() {
        std::filesystem::create_directory(root_ / "UI");
        orvel_set_resource_path(root_.path().c_str());
    }
    ~ThemeFileTest() override { orvel_set_resource_path(""); }

    std::string in_ui(const std::string& name) const { return root_ / ("UI/" + name); }

    /// The record before() after loading a file of this text over it.
    orvel_theme loaded(const std::string& text) const {
        write_file(in_ui("t.json"), text);
        orvel_theme theme = before();
        EXPECT_EQ(orvel_theme_load(&theme, "t.json"), 0);
        return theme;
    }

    TempFolder root_;
};

TEST_F(ThemeFileTest, TheDarkThemeIsSavedAsElevenLines) {
    orvel_theme theme;
    orvel_theme_default(&theme);
    ASSERT_EQ(orvel_theme_save(&theme, "dark.json"), 0);
    const std::string text = read_file(in_ui("dark.json"));
    EXPECT_EQ(text, kDarkFile);
    EXPECT_EQ(text.size(), 264u);
}

TEST_F(ThemeFileTest, EveryFileHas264Bytes) {
    const orvel_theme black = {};
    ASSERT_EQ(orvel_theme_save(&black, "t.json"), 0);
    EXPECT_EQ(read_file(in_ui("t.json")).size(), 264u);
    orvel_theme white;
    std::memset(&white, 255, sizeof white);
    ASSERT_EQ(orvel_theme_save(&white, "t.json"), 0);
    EXPECT_EQ(read_file(in_ui("t.json")).size(), 264u);
}

TEST_F(ThemeFileTest, SavingAndLoadingRestoresEveryColour) {
    orvel_theme saved;
    unsigned char next = 7;
    for (unsigned char& byte : reinterpret_cast<unsigned char(&)[sizeof saved]>(saved)) {
        byte = next;
        next = static_cast<unsigned char>(next + 41);
    }
    ASSERT_EQ(orvel_theme_save(&saved, "t.json"), 0);
    orvel_theme theme = before();
    ASSERT_EQ(orvel_theme_load(&theme, "t.json"), 0);
    for (std::size_t i = 3; i < sizeof saved; i += 4) {
        reinterpret_cast<unsigned char*>(&saved)[i] = 255;
    }
    EXPECT_TRUE(theme == saved);
}

TEST_F(ThemeFileTest, AlphaIsNotStored) {
    orvel_theme theme;
    orvel_theme_default(&theme);
    theme.accent = {0x89, 0xB4, 0xFA, 0x80};
    ASSERT_EQ(orvel_theme_save(&theme, "t.json"), 0);
    EXPECT_EQ(read_file(in_ui("t.json")), kDarkFile);
    ASSERT_EQ(orvel_theme_load(&theme, "t.json"), 0);
    EXPECT_EQ(theme.accent, (orvel_color{0x89, 0xB4, 0xFA, 0xFF}));
}

TEST_F(ThemeFileTest, AFileWithOneKeyChangesOneField) {
    orvel_theme expected = before();
    expected.error = {255, 0, 0, 255};
    EXPECT_TRUE(loaded("{\"error\": \"#FF0000\"}") == expected);
}

TEST_F(ThemeFileTest, EachKeyFillsItsOwnField) {
    const orvel_theme theme = loaded(
        "\"error\":\"#000009\" \"button_text\":\"#000008\" \"button_hover\":\"#000007\""
        "\"button\":\"#000006\" \"border\":\"#000005\" \"accent\":\"#000004\""
        "\"text\":\"#000003\" \"surface\":\"#000002\" \"background\":\"#000001\"");
    unsigned char number = 1;
    for (const orvel_color& color :
         {theme.background, theme.surface, theme.text, theme.accent, theme.border, theme.button,
          theme.button_hover, theme.button_text, theme.error}) {
        EXPECT_EQ(color, (orvel_color{0, 0, number, 255}));
        ++number;
    }
}

TEST_F(ThemeFileTest, AValueWithoutQuotesTakesTheNextQuotedText) {
    orvel_theme expected = before();
    expected.background = {0x00, 0x0F, 0xAC, 255};  // from the word surface
    expected.surface = {0x28, 0x28, 0x3A, 255};
    EXPECT_TRUE(loaded("{\"background\": 5, \"surface\": \"#28283a\"}") == expected);
}

TEST_F(ThemeFileTest, KeysAreMatchedInTheirCaseAndWithTheirQuotes) {
    EXPECT_TRUE(loaded("{\"Background\": \"#ffffff\"}") == before());
    EXPECT_TRUE(loaded("{background: \"#ffffff\"}") == before());
    EXPECT_TRUE(loaded("{\" background\": \"#ffffff\"}") == before());
    EXPECT_TRUE(loaded("{'background': \"#ffffff\"}") == before());
}

TEST_F(ThemeFileTest, ButtonIsNotFoundInsideLongerKeys) {
    orvel_theme expected = before();
    expected.button_hover = {1, 2, 3, 255};
    expected.button_text = {4, 5, 6, 255};
    EXPECT_TRUE(loaded("{\"button_hover\": \"#010203\", \"button_text\": \"#040506\"}") ==
                expected);
}

TEST_F(ThemeFileTest, OnlyTheFirstOfTwoEqualKeysCounts) {
    orvel_theme expected = before();
    expected.text = {1, 2, 3, 255};
    EXPECT_TRUE(loaded("{\"text\": \"#010203\", \"text\": \"#040506\"}") == expected);
    EXPECT_TRUE(loaded("{\"text\": \"\", \"text\": \"#040506\"}") == before());
}

TEST_F(ThemeFileTest, AKeyCountsWhereverItStands) {
    orvel_theme expected = before();
    expected.text = {1, 2, 3, 255};
    EXPECT_TRUE(loaded("[[\"text\"]]\n\n,,5:\t[7, \"#010203\"") == expected);
    // As a value, too: the next colon is that of "a", the next text after it the key "b".
    expected.text = {255, 255, 255, 255};
    EXPECT_TRUE(loaded("{\"name\": \"text\", \"a\": {\"b\": \"#010203\"}}") == expected);
}

TEST_F(ThemeFileTest, TheQuoteThatClosesOneTextOpensTheNextKey) {
    // The text between the second and the third quote is a key as well.
    orvel_theme expected = before();
    expected.text = {1, 2, 3, 255};
    EXPECT_TRUE(loaded("\"a\"text\"b:\"#010203\"") == expected);
}

TEST_F(ThemeFileTest, AColonInsideTheNextTextIsAColonToo) {
    orvel_theme expected = before();
    expected.error = {0xAB, 0xCD, 0xEF, 255};
    EXPECT_TRUE(loaded("\"error\" \"x:\"abcdef\"") == expected);
    // The quote that closes "x:y" opens the value, which is one blank.
    expected.error = {255, 255, 255, 255};
    EXPECT_TRUE(loaded("\"error\" \"x:y\" \"abcdef\"") == expected);
}

TEST_F(ThemeFileTest, BackslashesAreOrdinary) {
    orvel_theme expected = before();
    expected.error = {255, 255, 255, 255};  // the value is a backslash, which is short
    EXPECT_TRUE(loaded("\"error\": \"\\\"abcdef\"") == expected);
}

TEST_F(ThemeFileTest, WhatIsIncompleteChangesNothing) {
    for (const char* text :
         {"\"", "\"error", "\"error\"", "\"error\":", "\"error\": #ffffff", "\"error\": \"",
          "\"error\": \"#ffffff", "\"error\" \"#ffffff\"", "error\": \"#ffffff\""}) {
        EXPECT_TRUE(loaded(text) == before()) << text;
    }
}

TEST_F(ThemeFileTest, AnEmptyValueKeepsTheColourAndAShortOneIsWhite) {
    EXPECT_TRUE(loaded("\"error\": \"\"") == before());
    orvel_theme expected = before();
    expected.error = {255, 255, 255, 255};
    EXPECT_TRUE(loaded("\"error\": \"#fff\"") == expected);
    EXPECT_TRUE(loaded("\"error\": \" \"") == expected);
}

TEST_F(ThemeFileTest, AFileWithoutKeysChangesNothing) {
    EXPECT_TRUE(loaded("") == before());
    EXPECT_TRUE(loaded("no keys here") == before());
    EXPECT_TRUE(loaded("{\"title\": \"#ffffff\"}") == before());
    EXPECT_TRUE(loaded(std::string(100000, '"')) == before());
}

TEST_F(ThemeFileTest, AZeroByteEndsAValue) {
    orvel_theme expected = before();
    expected.error = {255, 255, 255, 255};
    EXPECT_TRUE(loaded("\"error\": \"#12\0003456\""s) == expected);
    EXPECT_TRUE(loaded("\"error\": \"\000\""s) == expected);
    expected.error = {0x12, 0x34, 0x56, 255};
    EXPECT_TRUE(loaded("\"error\": \"#123456\0ff\""s) == expected);
}

TEST_F(ThemeFileTest, AZeroByteElsewhereIsAnOrdinaryByte) {
    orvel_theme expected = before();
    expected.error = {0x12, 0x34, 0x56, 255};
    EXPECT_TRUE(loaded("\0\"error\"\0:\0\"123456\"\0"s) == expected);
    EXPECT_TRUE(loaded("\"err\0or\": \"123456\""s) == before());
    EXPECT_TRUE(loaded("\"error\0\": \"123456\""s) == before());
}

TEST_F(ThemeFileTest, AKeyAcrossTheEdgeOfTwoReadsIsFound) {
    orvel_theme expected = before();
    expected.button_hover = {0x12, 0x34, 0x56, 255};
    for (std::size_t length = 4070; length <= 4100; ++length) {
        EXPECT_TRUE(loaded(std::string(length, ' ') + "\"button_hover\": \"123456\"") == expected)
            << length;
    }
}

TEST_F(ThemeFileTest, NullArgumentsAreRefused) {
    orvel_theme theme = before();
    EXPECT_EQ(orvel_theme_load(nullptr, "t.json"), -1);
    EXPECT_EQ(orvel_theme_load(&theme, nullptr), -1);
    EXPECT_EQ(orvel_theme_save(nullptr, "t.json"), -1);
    EXPECT_EQ(orvel_theme_save(&theme, nullptr), -1);
    EXPECT_TRUE(theme == before());
    EXPECT_TRUE(std::filesystem::is_empty(in_ui("")));
}

TEST_F(ThemeFileTest, WhatCannotBeOpenedIsRefused) {
    orvel_theme theme = before();
    EXPECT_EQ(orvel_theme_load(&theme, "missing.json"), -1);
    EXPECT_EQ(orvel_theme_load(&theme, "missing"), -1);
    EXPECT_TRUE(theme == before());
    std::filesystem::create_directory(in_ui("folder.json"));
    EXPECT_EQ(orvel_theme_save(&theme, "folder.json"), -1);
}

TEST_F(ThemeFileTest, SavingMakesNoFolder) {
    orvel_set_resource_path((root_ / "nowhere").c_str());
    orvel_theme theme = before();
    EXPECT_EQ(orvel_theme_save(&theme, "t.json"), -1);
    EXPECT_FALSE(std::filesystem::exists(root_ / "nowhere"));
}

TEST_F(ThemeFileTest, SavingReplacesALongerFile) {
    write_file(in_ui("t.json"), std::string(10000, 'x'));
    orvel_theme theme;
    orvel_theme_default(&theme);
    ASSERT_EQ(orvel_theme_save(&theme, "t.json"), 0);
    EXPECT_EQ(read_file(in_ui("t.json")), kDarkFile);
}

TEST_F(ThemeFileTest, ANameWithoutADotIsSavedWithoutAnExtension) {
    orvel_theme theme;
    orvel_theme_default(&theme);
    ASSERT_EQ(orvel_theme_save(&theme, "mine"), 0);
    EXPECT_EQ(read_file(in_ui("mine")), kDarkFile);
}

TEST_F(ThemeFileTest, ANameWithoutADotOverwritesTheFileThatLoadingFinds) {
    write_file(in_ui("mine.json"), "\"error\": \"#010203\"");
    write_file(in_ui("mine.m4a"), "music");
    orvel_theme theme;
    orvel_theme_default(&theme);
    ASSERT_EQ(orvel_theme_load(&theme, "mine"), 0);
    EXPECT_EQ(theme.error, (orvel_color{1, 2, 3, 255}));
    orvel_theme_default(&theme);
    ASSERT_EQ(orvel_theme_save(&theme, "mine"), 0);
    EXPECT_EQ(read_file(in_ui("mine.json")), kDarkFile);
    EXPECT_EQ(read_file(in_ui("mine.m4a")), "music");
    EXPECT_FALSE(std::filesystem::exists(in_ui("mine")));

    write_file(in_ui("mine.wav"), "a sound, and the first that opens");
    ASSERT_EQ(orvel_theme_save(&theme, "mine"), 0);
    EXPECT_EQ(read_file(in_ui("mine.wav")), kDarkFile);
}

TEST_F(ThemeFileTest, NeitherFunctionWritesALine) {
    const Output output = captured([] {
        orvel_theme theme = before();
        orvel_theme_save(&theme, "t.json");
        orvel_theme_load(&theme, "t.json");
        orvel_theme_load(&theme, "missing.json");
    });
    EXPECT_EQ(output.error, "");
    EXPECT_EQ(output.output, "");
}

TEST_F(ThemeFileTest, AFifoDoesNotBlockLoading) {
    ASSERT_EQ(mkfifo(in_ui("fifo.json").c_str(), 0600), 0);
    orvel_theme theme = before();
    EXPECT_EQ(orvel_theme_load(&theme, "fifo.json"), 0);
    EXPECT_TRUE(theme == before());
}

TEST_F(ThemeFileTest, AnyTextGivesTheColoursOfTheModelAndTouchesNothingBesideThem) {
    const std::string keys[] = {"\"background\"", "\"button\"", "\"button_hover", "\"error\""};
    const std::string others[] = {"\"", ":", "#", "12abEF", "text", "\0"s, "\\", "\xff\n"};
    int changed = 0;
    for (const std::uint64_t number : cases(300)) {
        Random random(number);
        std::string text;
        for (int left = random.between(0, 40); left > 0; --left) {
            text += random.one_in(3) ? keys[random.between(0, 3)] : others[random.between(0, 7)];
        }
        write_file(in_ui("t.json"), text);
        struct {
            orvel_theme before, theme, behind;
        } memory = {before(), before(), before()};
        ASSERT_EQ(orvel_theme_load(&memory.theme, "t.json"), 0);
        ASSERT_TRUE(memory.theme == theme_model(text, before())) << text;
        ASSERT_TRUE(memory.before == before() && memory.behind == before()) << text;
        changed += memory.theme == before() ? 0 : 1;
    }
    EXPECT_GT(changed, 100);
}

// A search in quadratic time takes hours.
TEST_F(ThemeFileTest, TenMillionCharactersAreReadToTheirEnd) {
    constexpr std::size_t kSize = 10'000'000;
    const std::string key = "\"error\": \"#123456\"";
    std::string words;
    while (words.size() < kSize) words += "\"back\":\"ground\",";
    for (const std::string& text : {std::string(kSize, ' '), std::string(kSize, ','), words}) {
        write_file(in_ui("t.json"), text + key);
        orvel_theme theme = before();
        ASSERT_EQ(orvel_theme_load(&theme, "t.json"), 0);
        EXPECT_EQ(theme.error, (orvel_color{0x12, 0x34, 0x56, 255}));
    }
    write_file(in_ui("t.json"), std::string(kSize, '"'));
    orvel_theme theme = before();
    ASSERT_EQ(orvel_theme_load(&theme, "t.json"), 0);
    EXPECT_TRUE(theme == before());
}

}  // namespace
