// Faces from BDF fonts as they come: kit_face_read() and kit_face_open().
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "face_pages.h"
#include "orvel_kit.h"
#include "support/files.h"
#include "words/face_data.h"

namespace {

using namespace orvel_test;

struct CloseFace {
    void operator()(kit_face* face) const { kit_face_close(face); }
};
using FacePtr = std::unique_ptr<kit_face, CloseFace>;

const std::string kStart =
    "STARTFONT 2.1\n"
    "FONT -Orvel-Small-Medium-R-Normal--8-80-75-75-C-50-ISO10646-1\n"
    "SIZE 8 75 75\n"
    "FONTBOUNDINGBOX 5 8 0 -2\n";
const std::string kAscents = "STARTPROPERTIES 2\nFONT_ASCENT 7\nFONT_DESCENT 2\nENDPROPERTIES\n";
const std::string kEnd = "ENDFONT\n";

/// The letter A, 3 wide and 4 high, with its code and what @p more says of it.
std::string letter(const std::string& code, const std::string& more = "DWIDTH 5 0\n") {
    return "STARTCHAR name\nENCODING " + code + "\n" + more +
           "BBX 3 4 1 0\nBITMAP\n40\nA0\nE0\nA0\nENDCHAR\n";
}

FacePtr read(const std::string& font) {
    char why[200] = "";
    FacePtr face(kit_face_read(font.data(), font.size(), why, sizeof why));
    EXPECT_STREQ(why, "");
    return face;
}

kit::Found found(const FacePtr& face, char32_t code) {
    return face ? kit::find_glyph(*face, code) : kit::Found{};
}

int advance_of(const FacePtr& face, char32_t code) { return found(face, code).advance; }

kit::Glyph letter_of(const FacePtr& face, char32_t code) {
    const kit::Found letter = found(face, code);
    return letter.face ? kit::glyph_of(letter) : kit::Glyph{};
}

/// The letter in a canvas of 10 x 10 with its origin at (2, 7).
std::string shown(const FacePtr& face, char32_t code) {
    const CanvasPtr canvas = make_canvas(10, 10);
    orvel_canvas_clear(canvas.get(), kInk);
    draw_letter(canvas.get(), letter_of(face, code), 2, 7);
    return picture(canvas.get(), {{'.', kInk}, {'#', kBlack}});
}

const std::string kShownA =
    "..........\n"
    "..........\n"
    "..........\n"
    "....#.....\n"
    "...#.#....\n"
    "...###....\n"
    "...#.#....\n"
    "..........\n"
    "..........\n"
    "..........\n";

TEST(BdfTest, ALetterIsWhatTheFontSays) {
    const FacePtr face = read(kStart + kAscents + "CHARS 1\n" + letter("65") + kEnd);
    ASSERT_NE(face, nullptr);
    EXPECT_EQ(shown(face, 'A'), kShownA);
    EXPECT_EQ(advance_of(face, 'A'), 5);
    EXPECT_EQ(kit_face_ascent(face.get()), 7);
    EXPECT_EQ(kit_face_descent(face.get()), 2);
    EXPECT_EQ(kit_face_line(face.get()), 9);
    EXPECT_EQ(kit_face_has(face.get(), 'A'), 1);
    EXPECT_EQ(kit_face_has(face.get(), 'B'), 0);
    EXPECT_EQ(kit_face_has(face.get(), 0), 0);
    EXPECT_EQ(kit::kerning(kit::find_glyph(*face, 'A'), kit::find_glyph(*face, 'A')), 0);
}

TEST(BdfTest, AFileIsReadAsItsBytesAre) {
    const TempFolder folder;
    const std::string path = folder / "small.bdf";
    write_file(path, kStart + letter("65") + kEnd);
    char why[200] = "untouched";
    const FacePtr face(kit_face_open(path.c_str(), why, sizeof why));
    EXPECT_EQ(shown(face, 'A'), kShownA);
    EXPECT_STREQ(why, "untouched");
}

TEST(BdfTest, TheBytesAreNotNeededAfterwards) {
    auto font = std::make_unique<std::string>(kStart + letter("65") + kEnd);
    const FacePtr face(kit_face_read(font->data(), font->size(), nullptr, 0));
    std::fill(font->begin(), font->end(), 'x');
    font.reset();
    EXPECT_EQ(shown(face, 'A'), kShownA);
}

TEST(BdfTest, LinesMayEndAsOnAnySystemAndWordsStandApartByAnyBlanks) {
    std::string font = kStart + letter("65") + kEnd;
    for (std::size_t at = 0; (at = font.find('\n', at)) != std::string::npos; at += 2) {
        font.insert(at, "\r");
    }
    EXPECT_EQ(shown(read(font), 'A'), kShownA);
    EXPECT_EQ(shown(read("\n \nSTARTFONT\t2.1\n\n  STARTCHAR\tA\n ENCODING \t 65 \nBBX 3 4  1 +0\n"
                         "BITMAP \n\n 40\nA0 \n\nE0\nA0\nENDCHAR\n FONT_ASCENT 9\nENDFONT"),
                    'A'),
              kShownA);
}

TEST(BdfTest, CommentsMayStandAnywhere) {
    EXPECT_EQ(shown(read("COMMENT first\n" + kStart +
                         "COMMENT\nSTARTCHAR A\nCOMMENT \"\nENCODING 65\nBBX 3 4 1 0\nBITMAP\n40\n"
                         "A0\nCOMMENT inside the rows\nE0\nA0\nENDCHAR\nCOMMENT last\n" +
                         kEnd + "what follows is not looked at"),
                    'A'),
              kShownA);
}

TEST(BdfTest, WordsThatDrawNothingArePassedOver) {
    EXPECT_EQ(shown(read("STARTFONT 2.2\nCONTENTVERSION 3\nMETRICSSET 2\nVVECTOR 1 2\n"
                         "SWIDTH1 0 0\nDWIDTH1 0 0\nFONT_NAME \"STARTCHAR\"\nFONT_ASCENT 7\n" +
                         letter("65", "ATTRIBUTES 4000\nDWIDTH1 9 9\nVVECTOR 1 1\n") + kEnd),
                    'A'),
              kShownA);
}

TEST(BdfTest, RowsMayHaveMoreDigitsThanTheLetterIsWide) {
    const FacePtr face = read(kStart +
                              "STARTCHAR A\nENCODING 65\nBBX 3 4 1 0\nBITMAP\n5F00FF\nbF00\n"
                              "Ff\nAA5A5A5A5A\nENDCHAR\n" +
                              kEnd);
    EXPECT_EQ(shown(face, 'A'), kShownA);
}

/// A font whose A has 16 columns and, in turn, 8 times the two rows.
std::string square(const std::string& row, const std::string& next) {
    std::string lines = "STARTCHAR A\nENCODING 65\nDWIDTH 16 0\nBBX 16 16 0 0\nBITMAP\n";
    for (int i = 0; i < 8; ++i) lines.append(row + "\n").append(next + "\n");
    return kStart + lines + "ENDCHAR\n" + kEnd;
}

TEST(BdfTest, ALetterIsStrokesWhereTheseAreShorterThanItsLines) {
    const FacePtr striped = read(square("AAAA", "AAAA")), speckled = read(square("AAAA", "5555"));
    EXPECT_NE(letter_of(striped, 'A').strokes, nullptr);
    EXPECT_EQ(letter_of(striped, 'A').bits, nullptr);
    EXPECT_EQ(letter_of(speckled, 'A').strokes, nullptr);
    EXPECT_NE(letter_of(speckled, 'A').bits, nullptr);
}

TEST(BdfTest, NothingIsLeftBesideRowsThatStayRows) {
    std::string font = kStart + "STARTCHAR A\nENCODING 65\nBBX 257 1 0 0\nBITMAP\n";
    font += std::string(66, '0') + "\nENDCHAR\n" + kEnd;
    font.replace(font.find("0000") + 64, 2, "FF");
    const FacePtr face = read(font);
    ASSERT_NE(letter_of(face, 'A').bits, nullptr);
    EXPECT_EQ(letter_of(face, 'A').bits[32], 0x80);
}

TEST(BdfTest, ARowMayEndWithHalfAByte) {
    EXPECT_EQ(shown(read(kStart +
                         "STARTCHAR A\nENCODING 65\nBBX 3 4 1 0\nBITMAP\n4\nA\nE\nA\n"
                         "ENDCHAR\n" +
                         kEnd),
                    'A'),
              kShownA);
}

TEST(BdfTest, ALetterMayReachLeftOfItsOriginAndBelowItsBaseline) {
    const FacePtr face = read(kStart +
                              "STARTCHAR j\nENCODING 106\nDWIDTH 2 0\nBBX 9 3 -2 -2\n"
                              "BITMAP\n0080\nFF80\n8000\nENDCHAR\n" +
                              kEnd);
    EXPECT_EQ(shown(face, 'j'),
              "..........\n"
              "..........\n"
              "..........\n"
              "..........\n"
              "..........\n"
              "..........\n"
              "........#.\n"
              "#########.\n"
              "#.........\n"
              "..........\n");
    EXPECT_EQ(advance_of(face, 'j'), 2);
}

TEST(BdfTest, ALetterWithoutPixelsStillAdvances) {
    for (const char* box : {"0 0 0 0", "0 7 0 0", "7 0 0 0"}) {
        SCOPED_TRACE(box);
        const FacePtr face = read(kStart + "STARTCHAR space\nENCODING 32\nDWIDTH 4 0\nBBX " + box +
                                  "\nBITMAP\nENDCHAR\n" + kEnd);
        EXPECT_EQ(advance_of(face, ' '), 4) << box;
        EXPECT_EQ(letter_of(face, ' ').height * letter_of(face, ' ').width, 0) << box;
    }
}

TEST(BdfTest, RowsOfALetterWithoutWidthAreNotLookedAt) {
    const FacePtr face = read(kStart +
                              "STARTCHAR space\nENCODING 32\nDWIDTH 4 0\nBBX 0 1 0 0\n"
                              "BITMAP\n00\n00\nrow\nENDCHAR\n" +
                              kEnd);
    EXPECT_EQ(advance_of(face, ' '), 4);
}

TEST(BdfTest, AnAdvanceIsTheLettersOwnInPixelsOrScaledElseTheFontsElseTheBoxes) {
    const auto advance = [](const std::string& font, const std::string& letters) {
        return advance_of(read("STARTFONT 2.2\nSIZE 10 144 144\nFONT_ASCENT 8\n" + font +
                               letter("65", letters) + kEnd),
                          'A');
    };
    const std::string common = "DWIDTH 9 0\nSWIDTH 100 0\n";
    EXPECT_EQ(advance(common, "SWIDTH 600 0\nDWIDTH 6 0\n"), 6);
    EXPECT_EQ(advance(common, "SWIDTH 600 0\n"), 12);  // 0.6 of 10 points, two pixels each
    EXPECT_EQ(advance(common, ""), 9);
    EXPECT_EQ(advance("SWIDTH 525 0\n", ""), 11);  // 10.5
    EXPECT_EQ(advance("SWIDTH 524 0\n", ""), 10);
    EXPECT_EQ(advance("", ""), 4);
    EXPECT_EQ(advance("DWIDTH 0 0\n", ""), 0);
    EXPECT_EQ(advance("SIZE\n", "SWIDTH 600 0\n"), 12);
    EXPECT_EQ(advance("SIZE 0 144 144\n", "SWIDTH 600 0\n"), 4);
    EXPECT_EQ(advance("SIZE -1 144 144\n", "SWIDTH 600 0\n"), 4);
    EXPECT_EQ(advance("SIZE 10 5000 5000\n", "SWIDTH 600 0\n"), 4);
    EXPECT_EQ(advance("SIZE 4096 4096 4096\n", "SWIDTH 2147483647 0\n"), 4096);
}

TEST(BdfTest, LettersComeInAnyOrder) {
    const FacePtr face =
        read(kStart + letter("67") + letter("128512", "DWIDTH 9 0\n") + letter("0") + letter("65") +
             letter("66", "DWIDTH 6 0\n") + letter("8364") + kEnd);
    ASSERT_NE(face, nullptr);
    std::u32string found;
    for (const char32_t code : characters(*face)) found += code;
    EXPECT_EQ(found, std::u32string(U"\0ABC\u20AC\U0001F600", 6));
    EXPECT_EQ(advance_of(face, 0x1F600), 9);
    EXPECT_EQ(advance_of(face, 'B'), 6);
    EXPECT_EQ(advance_of(face, 'C'), 5);
}

TEST(BdfTest, OfSeveralLettersWithOneCodeTheFirstCounts) {
    const FacePtr face = read(kStart + letter("65", "DWIDTH 7 0\n") + letter("66") +
                              letter("65", "DWIDTH 8 0\n") + letter("65", "DWIDTH 9 0\n") + kEnd);
    EXPECT_EQ(advance_of(face, 'A'), 7);
    EXPECT_EQ(advance_of(face, 'B'), 5);
}

TEST(BdfTest, ALetterWithoutACodeIsPassedOverAndOneWithACodeOfTheFontsOwnIsNot) {
    const FacePtr face = read(kStart + letter("-1") + letter("-1 66", "DWIDTH 6 0\n") +
                              letter("65") + letter("-1 -1") + letter("67 99") + kEnd);
    ASSERT_NE(face, nullptr);
    EXPECT_EQ(characters(*face), (std::vector<char32_t>{'A', 'B', 'C'}));
    EXPECT_EQ(advance_of(face, 'B'), 6);
    EXPECT_EQ(shown(face, 'A'), kShownA);
}

TEST(BdfTest, ALetterOutsideUnicodeIsNoReasonToRefuseTheHighestOne) {
    EXPECT_EQ(kit_face_has(read(kStart + letter("1114111") + kEnd).get(), 0x10FFFF), 1);
}

TEST(BdfTest, TheLetterForWhatIsLackedStandsForTheReplacementCharacter) {
    const std::string properties = kAscents + "DEFAULT_CHAR 63\n";
    const std::string question = letter("63", "DWIDTH 6 0\n");
    const FacePtr without = read(kStart + properties + letter("65") + question + kEnd);
    EXPECT_EQ(advance_of(without, 0xFFFD), 6);
    const FacePtr with =
        read(kStart + properties + letter("65533", "DWIDTH 8 0\n") + question + kEnd);
    EXPECT_EQ(advance_of(with, 0xFFFD), 8);
    const FacePtr missing = read(kStart + properties + letter("65") + kEnd);
    EXPECT_EQ(kit_face_has(missing.get(), 0xFFFD), 0);
    const FacePtr beyond = read(kStart + kAscents + "DEFAULT_CHAR 99\n" + letter("65") + kEnd);
    EXPECT_EQ(kit_face_has(beyond.get(), 0xFFFD), 0);
    const FacePtr above = read(kStart + properties + question + letter("65536") + kEnd);
    EXPECT_EQ(advance_of(above, 0xFFFD), 6);
    EXPECT_EQ(advance_of(above, 0x10000), 5);
}

TEST(BdfTest, WithoutItsOwnMeasuresALineIsAsHighAsTheFontsBox) {
    const FacePtr box = read("STARTFONT 2.1\nFONTBOUNDINGBOX 5 8 0 -2\n" + letter("65") + kEnd);
    EXPECT_EQ(kit_face_ascent(box.get()), 6);
    EXPECT_EQ(kit_face_descent(box.get()), 2);
    const FacePtr one =
        read("STARTFONT 2.1\nFONTBOUNDINGBOX 5 8 0 -2\nFONT_DESCENT 5\n" + letter("65") + kEnd);
    EXPECT_EQ(kit_face_ascent(one.get()), 6);
    EXPECT_EQ(kit_face_descent(one.get()), 5);
    const FacePtr high = read("STARTFONT 2.1\nFONTBOUNDINGBOX 5 8 0 2\n" + letter("65") + kEnd);
    EXPECT_EQ(kit_face_ascent(high.get()), 10);
    EXPECT_EQ(kit_face_descent(high.get()), 0);
}

TEST(BdfTest, CapitalsAreAsHighAsTheFontSaysElseAsItsHElseAUsualPartOfTheAscent) {
    const std::string tall =
        "STARTCHAR H\nENCODING 72\nBBX 3 6 0 -1\nBITMAP\n00\nA0\nE0\nA0\nA0\n00\nENDCHAR\n";
    const auto cap = [](const std::string& font) {
        return kit_face_cap(read(kStart + kAscents + font + kEnd).get());
    };
    EXPECT_EQ(cap("CAP_HEIGHT 6\n" + tall), 6);
    EXPECT_EQ(cap("CAP_HEIGHT 0\n" + tall), 4);
    EXPECT_EQ(cap(tall), 4);
    EXPECT_EQ(cap(letter("65")), 4);  // 7 * 7 / 10
    EXPECT_EQ(cap("STARTCHAR H\nENCODING 72\nBBX 3 1 0 0\nBITMAP\n00\nENDCHAR\n"), 4);
    EXPECT_EQ(cap("STARTCHAR H\nENCODING 72\nBBX 3 1 0 -6\nBITMAP\nE0\nENDCHAR\n"), 0);
}

TEST(BdfTest, SetsWhoseCodesAreUnicodesAreReadAndSymbolsKeepTheirCodes) {
    for (const char* set :
         {"CHARSET_REGISTRY \"ISO10646\"\nCHARSET_ENCODING \"1\"\n",
          "CHARSET_REGISTRY \"iso10646\"\nCHARSET_ENCODING \"1\"\n",
          "CHARSET_REGISTRY ISO8859\nCHARSET_ENCODING 1\n", "FONT fixed\n", "FONT -\n", "FONT --\n",
          "FONT\n", "CHARSET_ENCODING \"2\"\nFONT fixed\n", "FONT -a-b-ISO8859-1\n",
          "CHARSET_REGISTRY \"ISO646.1991\"\nCHARSET_ENCODING \"IRV\"\n",
          "CHARSET_REGISTRY \"ASCII\"\nCHARSET_ENCODING \"0\"\n",
          "CHARSET_REGISTRY \"Adobe\"\nCHARSET_ENCODING \"FontSpecific\"\n",
          "CHARSET_REGISTRY \"FontSpecific\"\nCHARSET_ENCODING \"0\"\n", "CHARSET_REGISTRY \"\"\n",
          "FONT \"\n", "FONT \"-x-y-z\n", "FONT \"-a-b-ISO10646-1\"\n"}) {
        const FacePtr face =
            read(std::string("STARTFONT 2.1\nFONT_ASCENT 7\n") + set + letter("65") + kEnd);
        EXPECT_EQ(kit_face_has(face.get(), 'A'), 1) << set;
    }
}

TEST(BdfTest, AFaceThatWasReadTakesPartInChains) {
    const FacePtr own = read(kStart + letter("128512") + letter("65") + kEnd);
    const FacePtr both(kit_face_fallback(kit_sans_12(), own.get()));
    ASSERT_NE(both, nullptr);
    EXPECT_EQ(kit::find_glyph(*both, 0x1F600).face, own.get());
    EXPECT_EQ(kit::find_glyph(*both, 'A').face, kit_sans_12());
    EXPECT_EQ(kit_face_line(both.get()), 15);
}

}  // namespace
