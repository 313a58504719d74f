// Characters, letters, and words as a caret sees them.
#include "screen/letters.h"

#include <gtest/gtest.h>
#include <orvel_kit.h>

#include <string>
#include <vector>

#include "models/utf8.h"
#include "support/cases.h"
#include "support/random.h"

namespace {

using namespace kit;
using model::utf8;
using orvel_test::Random;

/// The text with a bar at every place inside it.
std::string parted(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = letter_end(text, at);
        if (at > 0) result += '|';
        result += text.substr(at, end - at);
        at = end;
    }
    return result;
}

/// The runs, with a bar between them.
std::string runs(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const Run run = run_at(text, at);
        EXPECT_EQ(run.begin, at);
        if (at > 0) result += '|';
        result += text.substr(run.begin, run.end - run.begin);
        at = run.end;
    }
    return result;
}

unsigned number(char32_t code) { return code; }

bool is_surrogate(char32_t code) { return code >= 0xD800 && code <= 0xDFFF; }

TEST(CharactersTest, EveryCharacterIsRead) {
    for (char32_t code = 0; code <= 0x10FFFF; ++code) {
        if (is_surrogate(code)) continue;
        const std::string text = utf8(code);
        const Character found = character_at("x" + text, 1);
        ASSERT_TRUE(found.good) << number(code);
        ASSERT_TRUE(found.code == code) << number(code);
        ASSERT_EQ(found.bytes, text.size()) << number(code);
    }
}

TEST(CharactersTest, EachIllFormedPartIsOneReplacement) {
    const auto parts = [](std::string_view text) {
        std::string lengths;
        for (std::size_t at = 0; at < text.size();) {
            const Character found = character_at(text, at);
            lengths += std::to_string(found.bytes) + (found.good ? " " : "! ");
            EXPECT_EQ(found.code == 0xFFFD, !found.good);
            at += found.bytes;
        }
        return lengths;
    };
    // The first three are those of The Unicode Standard 15, section 3.9, tables 3-8, 3-9 and 3-11.
    EXPECT_EQ(parts("\xC0\xAF\xE0\x80\xBF\xF0\x81\x82\x41"), "1! 1! 1! 1! 1! 1! 1! 1! 1 ");
    EXPECT_EQ(parts("\xED\xA0\x80\xED\xBF\xBF\xED\xAF\x41"), "1! 1! 1! 1! 1! 1! 1! 1! 1 ");
    EXPECT_EQ(parts("\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41"), "2! 1! 3! 2! 1 ");
    EXPECT_EQ(parts("\xF4\x90\x80\x80"), "1! 1! 1! 1! ");
    EXPECT_EQ(parts("\xF5\xC2"), "1! 1! ");
    EXPECT_EQ(parts("\xC3\x28"), "1! 1 ");
    EXPECT_EQ(parts("\xF0\x9F\x98"), "3! ");
}

TEST(CharactersTest, WhatTakesNoRoomHasNoPlaceOfItsOwn) {
    for (char32_t code = 1; code <= 0x10FFFF; ++code) {
        if (is_surrogate(code) || kit_text_width(nullptr, utf8(code).c_str()) > 0) continue;
        EXPECT_TRUE(is_mark(code)) << number(code);
    }
}

TEST(CharactersTest, WhatLiesBeyondAllTablesIsALetterOfAWord) {
    EXPECT_FALSE(is_mark(0x10FFFF));
    EXPECT_FALSE(is_picture(0x10FFFF));
    EXPECT_EQ(class_of(0x10FFFF), Class::Word);
}

TEST(LettersTest, EachCharacterIsOneWhereNothingJoinsThem) {
    EXPECT_EQ(parted(""), "");
    EXPECT_EQ(parted("Aé€😀"), "A|é|€|😀");
}

TEST(LettersTest, MarksStayWithWhatStandsBeforeThem) {
    EXPECT_EQ(parted("ae\u0301\u0323o"), "a|e\u0301\u0323|o");
    EXPECT_EQ(parted("☀\uFE0F☀"), "☀\uFE0F|☀");
    EXPECT_EQ(parted("1\uFE0F\u20E3"
                     "2"),
              "1\uFE0F\u20E3|2");
    EXPECT_EQ(parted("👍\U0001F3FD👍"), "👍\U0001F3FD|👍");
    EXPECT_EQ(parted("a\u200Bb\u00ADc"), "a\u200B|b\u00AD|c");
    EXPECT_EQ(parted("\u0915\u094D\u0937\u093F"), "\u0915\u094D|\u0937\u093F");
    EXPECT_EQ(parted("\u1112\u1161\u11AB\u1112"), "\u1112\u1161\u11AB|\u1112");
}

TEST(LettersTest, MarksWithNothingBeforeThemAreALetter) {
    EXPECT_EQ(parted("\u0301\u0302a"), "\u0301\u0302|a");
}

TEST(LettersTest, JoinersJoinPictures) {
    EXPECT_EQ(parted("👩\u200D🚀👩"), "👩\u200D🚀|👩");
    EXPECT_EQ(parted("👩\U0001F3FD\u200D❤\uFE0F\u200D👨"), "👩\U0001F3FD\u200D❤\uFE0F\u200D👨");
    EXPECT_EQ(parted("👩\u200Da"), "👩\u200D|a");
    EXPECT_EQ(parted("a\u200D👩"), "a\u200D|👩");
    EXPECT_EQ(parted("👩\u200D\uFE0F🚀"), "👩\u200D\uFE0F|🚀");
    EXPECT_EQ(parted("👩\u200D🇩🇪"), "👩\u200D|🇩🇪");
    EXPECT_EQ(parted("\u200D👩"), "\u200D|👩");
}

TEST(LettersTest, FlagsAreLettersInPairs) {
    EXPECT_EQ(parted("🇩🇪🇫🇷"), "🇩🇪|🇫🇷");
    EXPECT_EQ(parted("🇩🇪🇫"), "🇩🇪|🇫");
    EXPECT_EQ(parted("🇩a🇪"), "🇩|a|🇪");
    EXPECT_EQ(parted("🇩\u0301🇪"), "🇩\u0301|🇪");
}

TEST(LettersTest, PlacesAreFoundFromAnyOffset) {
    const std::string text = "ae\u0301o";  // places: 0, 1, 4, 5
    const std::vector<std::size_t> before = {0, 0, 1, 1, 1, 4, 4}, from = {0, 1, 4, 4, 4, 5, 5};
    for (std::size_t at = 0; at < before.size(); ++at) {
        EXPECT_EQ(place_before(text, at), before[at]) << at;
        EXPECT_EQ(place_from(text, at), from[at]) << at;
    }
    EXPECT_EQ(letter_end(text, 5), 5U);
    EXPECT_EQ(letter_end(text, 99), 5U);
    EXPECT_EQ(place_before("", 3), 0U);
    EXPECT_EQ(place_from("", 3), 0U);
    EXPECT_EQ(count_letters(""), 0U);
    EXPECT_EQ(count_letters(text), 3U);
}

TEST(LettersTest, RunsAreOfWordsSignsOrBlanks) {
    EXPECT_EQ(runs("Hello, world!"), "Hello|,| |world|!");
    EXPECT_EQ(runs("a_1  b-c"), "a_1|  |b|-|c");
    EXPECT_EQ(runs("Größe\u00A0\u3000m²"), "Größe|\u00A0\u3000|m²");
    EXPECT_EQ(runs("e\u0301e (→)"), "e\u0301e| |(→)");
    EXPECT_EQ(runs("20€ 🇩🇪👍"), "20|€| |🇩🇪👍");
    EXPECT_EQ(runs("日本語、語"), "日本語|、|語");
}

TEST(LettersTest, ApostrophesBelongToTheWordAroundThem) {
    EXPECT_EQ(runs("don't l’été"), "don't| |l’été");
    EXPECT_EQ(runs("'quoted' it's'"), "'|quoted|'| |it's|'");
    EXPECT_EQ(runs("a''b '"), "a|''|b| |'");
}

TEST(LettersTest, TheEndHasTheLastRun) {
    EXPECT_EQ(run_at("ab cd", 5).begin, 3U);
    EXPECT_EQ(run_at("ab cd", 99).end, 5U);
    EXPECT_EQ(run_at("", 0).end, 0U);
}

TEST(LettersTest, StepsByWordsPassOverBlanks) {
    const std::string text = "  ab, cd  ";
    const std::vector<std::size_t> ends = {4, 4, 4, 4, 5, 8, 8, 8, 10, 10, 10};
    const std::vector<std::size_t> begins = {0, 0, 0, 2, 2, 4, 4, 6, 6, 6, 6};
    for (std::size_t at = 0; at < ends.size(); ++at) {
        EXPECT_EQ(word_end(text, at), ends[at]) << at;
        EXPECT_EQ(word_begin(text, at), begins[at]) << at;
    }
    EXPECT_EQ(word_end("", 0), 0U);
    EXPECT_EQ(word_begin("", 7), 0U);
}

TEST(LettersTest, ALineHasSpacesForWhatItCannotHave) {
    EXPECT_EQ(one_line("a\tb\nc\r\nd\re\u2028f\u2029g"), "a b c d e f g");
    EXPECT_EQ(one_line("a\x01\x1F\x7F\xC2\x85\xC2\x9F"
                       "b\u00A0"),
              "ab\u00A0");
    EXPECT_EQ(one_line("\nfirst\n\nsecond \n\r\n\x01"), " first  second ");
    EXPECT_EQ(one_line("\n"), "");
    EXPECT_EQ(one_line("\t"), " ");
    EXPECT_EQ(one_line("a\xFF\xE2\x82z"), "a\uFFFD\uFFFDz");
}

TEST(LettersTest, WellFormedTextsStay) {
    EXPECT_EQ(well_formed("a\tb\n\u0301😀"), "a\tb\n\u0301😀");
    EXPECT_EQ(well_formed("\xFF"
                          "a\xF0\x9F"),
              "\uFFFD"
              "a\uFFFD");
}

TEST(LettersTest, RandomBytesBecomeWellFormed) {
    constexpr unsigned char kBytes[] = {'a',  0x80, 0xBF, 0xC2, 0xE0, 0xED,
                                        0xF0, 0xF4, 0x9F, '\r', '\n'};
    for (const std::uint64_t number : orvel_test::some_cases(100000)) {
        Random random(number);
        std::string bytes;
        for (int i = random.between(0, 12); i > 0; --i) {
            const int one = random.between(0, 10);
            bytes += static_cast<char>(kBytes[one]);
        }
        const std::string repaired = well_formed(bytes), line = one_line(bytes);
        ASSERT_EQ(well_formed(repaired), repaired) << number;
        ASSERT_EQ(one_line(line), line) << number;
        for (std::size_t at = 0; at < repaired.size();) {
            const Character found = character_at(repaired, at);
            ASSERT_TRUE(found.good) << number;
            at += found.bytes;
        }
    }
}

TEST(LettersTest, AJoinerJoinsPicturesOnly) {
    EXPECT_EQ(parted("\u2764\u200D\U0001F525"), "\u2764\u200D\U0001F525");
    for (const char* other : {"a", "\u4E00", "\U00020000", "\U0001F1E9"}) {
        const std::string one = other;
        EXPECT_EQ(parted("\u2764\u200D" + one), "\u2764\u200D|" + one);
        EXPECT_EQ(parted(one + "\u200D\u2764"), one + "\u200D|\u2764");
    }
}

}  // namespace
