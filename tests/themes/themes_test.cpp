#include <gtest/gtest.h>

#include <clocale>
#include <cstddef>
#include <string>

#include "support/picture.h"
#include "themes/hex.h"

namespace {

using orvel::color_from_hex;

constexpr orvel_color kWhite = {255, 255, 255, 255};

TEST(ColorFromHexTest, TheHashMayBeMissingAndTheCaseIsFree) {
    const orvel_color color = {30, 30, 46, 255};
    EXPECT_EQ(color_from_hex("#1e1e2e"), color);
    EXPECT_EQ(color_from_hex("1e1e2e"), color);
    EXPECT_EQ(color_from_hex("#1E1E2E"), color);
}

TEST(ColorFromHexTest, EveryDigitHasItsValueInBothCases) {
    EXPECT_EQ(color_from_hex("#012345"), (orvel_color{1, 35, 69, 255}));
    EXPECT_EQ(color_from_hex("#6789ab"), (orvel_color{103, 137, 171, 255}));
    EXPECT_EQ(color_from_hex("#cdefAB"), (orvel_color{205, 239, 171, 255}));
    EXPECT_EQ(color_from_hex("#CDEF00"), (orvel_color{205, 239, 0, 255}));
}

TEST(ColorFromHexTest, FewerThanSixCharactersAreWhite) {
    for (const char* text : {"#fff", "fff", "#", "", "#12345", "12345"}) {
        EXPECT_EQ(color_from_hex(text), kWhite) << text;
    }
}

TEST(ColorFromHexTest, SixCharactersAfterTheHashAreEnough) {
    EXPECT_EQ(color_from_hex("#000000"), (orvel_color{0, 0, 0, 255}));
    EXPECT_EQ(color_from_hex("000000"), (orvel_color{0, 0, 0, 255}));
}

TEST(ColorFromHexTest, WhatFollowsTheSixthDigitIsIgnored) {
    EXPECT_EQ(color_from_hex("#ff000080"), (orvel_color{255, 0, 0, 255}));
    EXPECT_EQ(color_from_hex("#ff0000 and more words"), (orvel_color{255, 0, 0, 255}));
}

TEST(ColorFromHexTest, ABadDigitCountsAsZero) {
    EXPECT_EQ(color_from_hex("#12345g"), (orvel_color{0x12, 0x34, 0x50, 255}));
    EXPECT_EQ(color_from_hex("surface"), (orvel_color{0x00, 0x0F, 0xAC, 255}));
    EXPECT_EQ(color_from_hex("# 1 2 3"), (orvel_color{1, 2, 3, 255}));
}

TEST(ColorFromHexTest, OnlyOneHashIsSkipped) {
    EXPECT_EQ(color_from_hex("##ff0000"), (orvel_color{0x0F, 0xF0, 0x00, 255}));
    EXPECT_EQ(color_from_hex("##fff"), kWhite);
}

TEST(ColorFromHexTest, JustTwentyTwoCharactersAreDigits) {
    std::string digits;
    for (int byte = 1; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        const std::string text = {'#', '0', '0', '0', c, '0', '0'};
        const orvel_color color = color_from_hex(text.c_str());
        EXPECT_EQ(color.r, 0) << byte;
        EXPECT_EQ(color.b, 0) << byte;
        if (color.g != 0) digits += c;
    }
    EXPECT_EQ(digits, "123456789ABCDEFabcdef");
}

TEST(ColorFromHexTest, TheLocaleHasNoInfluence) {
    // In a Turkish locale some C libraries upper-case letters their own way; in Latin-1 bytes of
    // 128 and above are letters.
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* locale : {"tr_TR.UTF-8", "de_DE.ISO-8859-1", "C.UTF-8", "C"}) {
        if (!std::setlocale(LC_ALL, locale)) continue;
        EXPECT_EQ(color_from_hex("#abcdef"), (orvel_color{0xAB, 0xCD, 0xEF, 255})) << locale;
        EXPECT_EQ(color_from_hex("#\xE4\xE9\xC4\xC9\xFD\xFF"), (orvel_color{0, 0, 0, 255}))
            << locale;
    }
    std::setlocale(LC_ALL, before.c_str());
}

TEST(ThemeTest, TheRecordIsNineColoursInOrder) {
    EXPECT_EQ(sizeof(orvel_theme), 36u);
    EXPECT_EQ(offsetof(orvel_theme, background), 0u);
    EXPECT_EQ(offsetof(orvel_theme, surface), 4u);
    EXPECT_EQ(offsetof(orvel_theme, text), 8u);
    EXPECT_EQ(offsetof(orvel_theme, accent), 12u);
    EXPECT_EQ(offsetof(orvel_theme, border), 16u);
    EXPECT_EQ(offsetof(orvel_theme, button), 20u);
    EXPECT_EQ(offsetof(orvel_theme, button_hover), 24u);
    EXPECT_EQ(offsetof(orvel_theme, button_text), 28u);
    EXPECT_EQ(offsetof(orvel_theme, error), 32u);
}

TEST(ThemeTest, TheDefaultIsDark) {
    orvel_theme theme = {};
    orvel_theme_default(&theme);
    EXPECT_EQ(theme.background, (orvel_color{30, 30, 46, 255}));
    EXPECT_EQ(theme.surface, (orvel_color{40, 40, 58, 255}));
    EXPECT_EQ(theme.text, (orvel_color{205, 214, 244, 255}));
    EXPECT_EQ(theme.accent, (orvel_color{137, 180, 250, 255}));
    EXPECT_EQ(theme.border, (orvel_color{69, 71, 90, 255}));
    EXPECT_EQ(theme.button, (orvel_color{49, 50, 68, 255}));
    EXPECT_EQ(theme.button_hover, (orvel_color{69, 71, 90, 255}));
    EXPECT_EQ(theme.button_text, (orvel_color{205, 214, 244, 255}));
    EXPECT_EQ(theme.error, (orvel_color{243, 139, 168, 255}));
}

TEST(ThemeTest, TheLightTheme) {
    orvel_theme theme = {};
    orvel_theme_light(&theme);
    EXPECT_EQ(theme.background, (orvel_color{239, 241, 245, 255}));
    EXPECT_EQ(theme.surface, (orvel_color{230, 233, 239, 255}));
    EXPECT_EQ(theme.text, (orvel_color{76, 79, 105, 255}));
    EXPECT_EQ(theme.accent, (orvel_color{30, 102, 245, 255}));
    EXPECT_EQ(theme.border, (orvel_color{204, 208, 218, 255}));
    EXPECT_EQ(theme.button, (orvel_color{220, 224, 232, 255}));
    EXPECT_EQ(theme.button_hover, (orvel_color{204, 208, 218, 255}));
    EXPECT_EQ(theme.button_text, (orvel_color{76, 79, 105, 255}));
    EXPECT_EQ(theme.error, (orvel_color{210, 15, 57, 255}));
}

TEST(ThemeTest, InBothThemesHoverRepeatsTheBorderAndButtonTextTheText) {
    for (const auto fill : {orvel_theme_default, orvel_theme_light}) {
        orvel_theme theme = {};
        fill(&theme);
        EXPECT_EQ(theme.button_hover, theme.border);
        EXPECT_EQ(theme.button_text, theme.text);
        for (const orvel_color& color :
             {theme.background, theme.surface, theme.text, theme.accent, theme.border, theme.button,
              theme.button_hover, theme.button_text, theme.error}) {
            EXPECT_EQ(color.a, 255);
        }
    }
}

TEST(ThemeTest, ANullRecordIsLeftAlone) {
    orvel_theme_default(nullptr);
    orvel_theme_light(nullptr);
}

}  // namespace
