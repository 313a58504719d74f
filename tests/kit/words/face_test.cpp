// The baked faces and chains of faces: what they have, what they tell, and their letters.
#include <gtest/gtest.h>

#include <cstdio>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "face_pages.h"
#include "orvel_kit.h"
#include "support/files.h"
#include "support/golden.h"
#include "words/face_data.h"

namespace {

using namespace orvel_test;

struct CloseFace {
    void operator()(kit_face* face) const { kit_face_close(face); }
};
using FacePtr = std::unique_ptr<kit_face, CloseFace>;

FacePtr chain(const kit_face* first, const kit_face* second) {
    return FacePtr(kit_face_fallback(first, second));
}

int kerning(const kit_face* face, char32_t left, char32_t right) {
    return kit::kerning(kit::find_glyph(*face, left), kit::find_glyph(*face, right));
}

TEST(FaceTest, TheManualListsEveryName) {
    const std::string page = read_file(ORVEL_SOURCE_DIR "/docs/pages/text.md");
    for (const std::string& name : face_names()) {
        EXPECT_NE(page.find('`' + name + '`'), std::string::npos) << name;
    }
}

TEST(FaceTest, EveryFaceIsFoundByItsName) {
    std::set<const kit_face*> different;
    for (const std::string& name : face_names()) {
        EXPECT_NE(kit_face_named(name.c_str()), nullptr) << name;
        different.insert(kit_face_named(name.c_str()));
    }
    EXPECT_EQ(different.size(), 14u);
    EXPECT_EQ(kit_face_named("sans 12"), kit_sans_12());
    EXPECT_EQ(kit_face_named("bold 24"), kit_bold_24());
    EXPECT_EQ(kit_face_named("mono 12"), kit_mono_12());
    EXPECT_EQ(kit_face_named("digits 96"), kit_digits_96());
}

TEST(FaceTest, ANameThatNoFaceHasFindsNone) {
    for (const char* name : {"", "sans", "12", "Sans 12", "sans 12 ", " sans 12", "sans  12",
                             "sans 13", "mono 14", "digits", "sans_12"}) {
        EXPECT_EQ(kit_face_named(name), nullptr) << name;
    }
    EXPECT_EQ(kit_face_named(nullptr), nullptr);
}

TEST(FaceTest, TheFacesOfTextHaveTheListedCharacters) {
    const std::vector<char32_t> sans = characters(*kit_sans_12());
    EXPECT_EQ(sans.size(), 715u);
    for (const std::string& name : face_names()) {
        const kit_face* const face = kit_face_named(name.c_str());
        if (name[0] != 's' && name[0] != 'b') continue;
        EXPECT_EQ(characters(*face), sans) << name;
    }
    const std::u32string some =
        U" ~\u00A0\u00FF\u0100\u017F\u0391\u03C9\u0416\u044F\u0491\u1E9E"
        U"\u2013\u2026\u20AC\u2190\u2212\u2713\uFFFD";
    for (const char32_t code : some)
        EXPECT_EQ(kit_face_has(kit_sans_12(), code), 1) << unsigned(code);
}

TEST(FaceTest, MonoHasTheSameCharactersButForAFew) {
    std::u32string lacked;
    for (const char32_t code : characters(*kit_sans_12())) {
        if (kit_face_has(kit_mono_12(), code) == 0) lacked += code;
    }
    EXPECT_EQ(lacked, U"\u1E9E\u2044\u2103\u2109\u2113");
}

TEST(FaceTest, AllLettersOfMonoGoEquallyFar) {
    for (const char32_t code : characters(*kit_mono_12())) {
        EXPECT_EQ(kit::find_glyph(*kit_mono_12(), code).advance, 7) << unsigned(code);
    }
}

TEST(FaceTest, TheDigitsHaveWhatNumbersNeed) {
    const std::vector<char32_t> expected = {' ', '%', '+', ',', '-', '.', '0', '1',  '2',   '3',
                                            '4', '5', '6', '7', '8', '9', ':', 0xB0, 0x2212};
    EXPECT_EQ(characters(*kit_digits_64()), expected);
    EXPECT_EQ(characters(*kit_digits_96()), expected);
}

TEST(FaceTest, WhatAFaceLacksItDoesNotHave) {
    for (const unsigned code : {0u, 10u, 0x1Fu, 0x7Fu, 0x9Fu, 0x300u, 0x5D0u, 0x4E2Du, 0xD800u,
                                0xFFFCu, 0xFFFEu, 0x10000u, 0x1F600u, 0x110000u, 0xFFFFFFFFu}) {
        EXPECT_EQ(kit_face_has(kit_sans_12(), code), 0) << code;
        EXPECT_EQ(kit::find_glyph(*kit_sans_12(), code).face, nullptr) << code;
    }
}

TEST(FaceTest, ALetterLiesAboveItsBaselineAndBesideItsOrigin) {
    const CanvasPtr canvas = make_canvas(9, 13);
    orvel_canvas_clear(canvas.get(), kInk);
    draw_letter(canvas.get(), kit::glyph_of(kit::find_glyph(*kit_sans_12(), 'g')), 1, 9);
    EXPECT_EQ(picture(canvas.get(), {{'.', kInk}, {'#', kBlack}}),
              ".........\n"
              ".........\n"
              "...#####.\n"
              "..##..##.\n"
              "..#....#.\n"
              "..#....#.\n"
              "..#....#.\n"
              "..##..##.\n"
              "...#####.\n"
              ".......#.\n"
              "...#..##.\n"
              "....###..\n"
              ".........\n");
}

TEST(FaceTest, MetricsAreTheFontsInWholePixels) {
    struct Row {
        const char* name;
        int ascent, descent, line, cap;
    };
    for (const Row& row : {Row{"sans 11", 11, 3, 14, 8},
                           {"sans 12", 12, 3, 15, 9},
                           {"sans 14", 13, 4, 17, 10},
                           {"sans 18", 17, 5, 22, 13},
                           {"sans 24", 23, 6, 29, 18},
                           {"sans 40", 38, 10, 48, 29},
                           {"bold 12", 12, 3, 15, 9},
                           {"mono 12", 12, 3, 15, 9},
                           {"digits 64", 60, 16, 76, 47},
                           {"digits 96", 90, 23, 113, 70}}) {
        const kit_face* const face = kit_face_named(row.name);
        EXPECT_EQ(kit_face_ascent(face), row.ascent) << row.name;
        EXPECT_EQ(kit_face_descent(face), row.descent) << row.name;
        EXPECT_EQ(kit_face_line(face), row.line) << row.name;
        EXPECT_EQ(kit_face_cap(face), row.cap) << row.name;
    }
}

TEST(FaceTest, NoLetterReachesFarBeyondItsLine) {
    for (const std::string& name : face_names()) {
        const kit_face* const face = kit_face_named(name.c_str());
        for (const char32_t code : characters(*face)) {
            const kit::Glyph letter = kit::glyph_of(kit::find_glyph(*face, code));
            EXPECT_LE(letter.top, kit_face_ascent(face) + 2) << name << " " << unsigned(code);
            EXPECT_LE(letter.height - letter.top, kit_face_descent(face))
                << name << " " << unsigned(code);
        }
    }
}

TEST(FaceTest, NoFaceIsSansTwelve) {
    EXPECT_EQ(kit_face_ascent(nullptr), 12);
    EXPECT_EQ(kit_face_descent(nullptr), 3);
    EXPECT_EQ(kit_face_line(nullptr), 15);
    EXPECT_EQ(kit_face_cap(nullptr), 9);
    EXPECT_EQ(kit_face_has(nullptr, 'A'), 1);
    EXPECT_EQ(kit_face_has(nullptr, 0x1F600), 0);
}

TEST(FaceTest, SomePairsOfLettersStandCloser) {
    EXPECT_EQ(kerning(kit_sans_40(), 'A', 'V'), -3);
    EXPECT_EQ(kerning(kit_sans_40(), 'V', 'A'), -3);
    EXPECT_EQ(kerning(kit_sans_40(), 'T', 'o'), -7);
    EXPECT_EQ(kerning(kit_sans_40(), 'o', 'T'), 0);
    EXPECT_EQ(kerning(kit_sans_40(), 'H', 'H'), 0);
    EXPECT_EQ(kerning(kit_mono_12(), 'A', 'V'), 0);
}

TEST(FaceTest, NothingIsKernedAcrossFaces) {
    const kit::Found capital = kit::find_glyph(*kit_sans_40(), 'T');
    const kit::Found small = kit::find_glyph(*kit_sans_24(), 'o');
    EXPECT_EQ(kit::kerning(capital, small), 0);
    EXPECT_EQ(kit::kerning(capital, {}), 0);
    EXPECT_EQ(kit::kerning({}, small), 0);
    EXPECT_EQ(kit::kerning({}, {}), 0);
}

TEST(FaceTest, LettersAndKerningStayAsTheyAre) {
    std::ostringstream sums;
    for (const std::string& name : face_names()) {
        const kit_face& face = *kit_face_named(name.c_str());
        std::uint64_t numbers = 0;
        std::vector<kit::Found> letters;
        for (const char32_t code : characters(face)) {
            letters.push_back(kit::find_glyph(face, code));
        }
        for (const kit::Found& left : letters) {
            numbers = numbers * 31 + static_cast<unsigned>(left.advance);
            for (const kit::Found& right : letters) {
                numbers = numbers * 31 + static_cast<unsigned>(kit::kerning(left, right));
            }
        }
        char line[100];
        std::snprintf(line, sizeof line, "%-9s %016llx %016llx\n", name.c_str(),
                      static_cast<unsigned long long>(checksum(face_page(face).get())),
                      static_cast<unsigned long long>(numbers));
        sums << line;
    }
    expect_golden_text("face_checksums.txt", "page and numbers of each face", sums.str());
}

// ---- Chains

TEST(FaceChainTest, TheSecondFaceGivesWhatTheFirstLacks) {
    const FacePtr both = chain(kit_digits_64(), kit_sans_12());
    ASSERT_NE(both, nullptr);
    EXPECT_EQ(kit::find_glyph(*both, '7').face, kit_digits_64());
    EXPECT_EQ(kit::find_glyph(*both, 'A').face, kit_sans_12());
    EXPECT_EQ(kit::find_glyph(*both, 'A').advance, 8);
    EXPECT_EQ(kit::find_glyph(*both, 0x1F600).face, nullptr);
    EXPECT_EQ(kit_face_has(both.get(), 'A'), 1);
    EXPECT_EQ(kit_face_has(both.get(), 0x1F600), 0);
}

TEST(FaceChainTest, LettersOfOneFaceAreKernedInTheChainToo) {
    const FacePtr both = chain(kit_mono_12(), kit_sans_40());
    const kit::Found celsius = kit::find_glyph(*both, 0x2103);
    EXPECT_EQ(celsius.face, kit_sans_40());
    const FacePtr other = chain(kit_digits_64(), kit_sans_40());
    EXPECT_EQ(kerning(other.get(), 'T', 'o'), -7);
    EXPECT_EQ(kerning(other.get(), '1', 'T'), 0);
}

TEST(FaceChainTest, LinesAreAsHighAsTheHigherOneAndCapitalsTheFirstOnes) {
    for (const FacePtr& both :
         {chain(kit_sans_12(), kit_sans_24()), chain(kit_sans_24(), kit_sans_12())}) {
        EXPECT_EQ(kit_face_ascent(both.get()), 23);
        EXPECT_EQ(kit_face_descent(both.get()), 6);
        EXPECT_EQ(kit_face_line(both.get()), 29);
    }
    EXPECT_EQ(kit_face_cap(chain(kit_sans_12(), kit_sans_24()).get()), 9);
    EXPECT_EQ(kit_face_cap(chain(kit_sans_24(), kit_sans_12()).get()), 18);
}

TEST(FaceChainTest, AChainOfChainsAsksTheFacesInTheirOrder) {
    const FacePtr small = chain(kit_digits_64(), kit_mono_12());
    const FacePtr large = chain(kit_digits_96(), kit_sans_40());
    const FacePtr all = chain(small.get(), large.get());
    EXPECT_EQ(kit::find_glyph(*all, '1').face, kit_digits_64());
    EXPECT_EQ(kit::find_glyph(*all, 'A').face, kit_mono_12());
    EXPECT_EQ(kit::find_glyph(*all, 0x2103).face, kit_sans_40());
}

TEST(FaceChainTest, AtMostEightFacesComeTogether) {
    std::vector<FacePtr> chains;
    const kit_face* longest = kit_sans_12();
    for (int faces = 2; faces <= 8; ++faces) {
        chains.push_back(chain(longest, kit_bold_12()));
        ASSERT_NE(chains.back(), nullptr) << faces;
        longest = chains.back().get();
    }
    EXPECT_EQ(kit_face_fallback(longest, kit_bold_12()), nullptr);
    EXPECT_EQ(kit_face_fallback(kit_bold_12(), longest), nullptr);
    EXPECT_EQ(kit_face_fallback(longest, longest), nullptr);
    const kit_face* const four = chains[2].get();
    EXPECT_NE(chain(four, four), nullptr);
    EXPECT_EQ(kit_face_fallback(four, chains[3].get()), nullptr);
}

TEST(FaceChainTest, OfNothingThereIsNoChain) {
    EXPECT_EQ(kit_face_fallback(nullptr, nullptr), nullptr);
    EXPECT_EQ(kit_face_fallback(kit_sans_12(), nullptr), nullptr);
    EXPECT_EQ(kit_face_fallback(nullptr, kit_sans_12()), nullptr);
}

TEST(FaceChainTest, ClosingLeavesBakedFacesAndNullAlone) {
    kit_face_close(nullptr);
    kit_face_close(const_cast<kit_face*>(kit_sans_12()));
    EXPECT_EQ(kit_face_has(kit_sans_12(), 'A'), 1);
}

}  // namespace
