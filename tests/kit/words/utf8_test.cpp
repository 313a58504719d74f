// UTF-8 character by character.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "models/words_model.h"
#include "words/utf8.h"

namespace {

using Codes = std::vector<char32_t>;

Codes decoded(const std::string& text) {
    Codes codes;
    for (const char* at = text.c_str(); *at != '\0';) codes.push_back(kit::next_character(&at));
    return codes;
}

constexpr char32_t kBad = 0xFFFD;

TEST(Utf8Test, EveryScalarValueIsReadBack) {
    for (char32_t code = 1; code <= 0x10FFFF; ++code) {
        if (code >= 0xD800 && code < 0xE000) continue;
        ASSERT_EQ(decoded(model::utf8(code)), Codes{code});
    }
}

TEST(Utf8Test, EveryMaximalIllFormedPartIsOneReplacement) {
    // The examples of The Unicode Standard 15, section 3.9, tables 3-8 to 3-11.
    EXPECT_EQ(decoded("\xC0\xAF\xE0\x80\xBF\xF0\x81\x82\x41"),
              (Codes{kBad, kBad, kBad, kBad, kBad, kBad, kBad, kBad, 0x41}));
    EXPECT_EQ(decoded("\xED\xA0\x80\xED\xBF\xBF\xED\xAF\x41"),
              (Codes{kBad, kBad, kBad, kBad, kBad, kBad, kBad, kBad, 0x41}));
    EXPECT_EQ(decoded("\xF4\x91\x92\x93\xFF\x41\x80\xBF\x42"),
              (Codes{kBad, kBad, kBad, kBad, kBad, 0x41, kBad, kBad, 0x42}));
    EXPECT_EQ(decoded("\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41"),
              (Codes{kBad, kBad, kBad, kBad, 0x41}));
}

TEST(Utf8Test, ATextThatEndsWithinACharacterEndsInOneReplacement) {
    for (const char* text : {"a\xC3", "a\xE2\x82", "a\xF0\x9F\x98", "a\xF0\x9F", "a\xF0"}) {
        EXPECT_EQ(decoded(text), (Codes{'a', kBad})) << text;
    }
}

TEST(Utf8Test, AnyFourBytesAreReadAsTheDefinitionSays) {
    // Those at the borders of the table's ranges.
    static const unsigned char kBytes[] = {0x01, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF,
                                           0xC0, 0xC1, 0xC2, 0xDF, 0xE0, 0xE1, 0xEC, 0xED,
                                           0xEE, 0xEF, 0xF0, 0xF1, 0xF3, 0xF4, 0xF5, 0xFF};
    constexpr unsigned kCount = sizeof kBytes;
    for (unsigned call = 0; call < kCount * kCount * kCount * kCount; ++call) {
        std::string text;
        for (unsigned rest = call; text.size() < 4; rest /= kCount) {
            text += static_cast<char>(kBytes[rest % kCount]);
        }
        ASSERT_EQ(decoded(text), model::characters(text)) << "call " << call;
    }
}

TEST(Utf8Test, ControlsAndMarksForLayoutAreHidden) {
    for (const char32_t code :
         Codes{0x01,   0x09,   0x0D,   0x1F,   0x7F,   0x80,   0x85,   0x9F,    0xAD,
               0x34F,  0x61C,  0x180E, 0x200B, 0x200F, 0x202A, 0x202E, 0x2060,  0x2064,
               0x2066, 0x2069, 0xFE00, 0xFE0F, 0xFEFF, 0xFFF9, 0xFFFB, 0xE0001, 0xE01EF}) {
        EXPECT_TRUE(kit::is_hidden(code)) << std::hex << static_cast<int>(code);
    }
    for (const char32_t code : Codes{0x0A,   0x20,   0x7E,   0xA0,   0xAC,   0xAE,    0x34E,
                                     0x350,  0x200A, 0x2010, 0x2028, 0x2029, 0x202F,  0x205F,
                                     0x2070, 0xFDFF, 0xFE10, 0xFFFC, 0xFFFD, 0xDFFFF, 0xE1000}) {
        EXPECT_FALSE(kit::is_hidden(code)) << std::hex << static_cast<int>(code);
    }
}

}  // namespace
