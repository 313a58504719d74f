// kit_text_width(), kit_text_draw(), kit_text_box() and kit_text_missing().
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "support/picture.h"
#include "system/allocations.h"
#include "tiny_face.h"

namespace {

using namespace orvel_test;

std::string drawn(const char* text, int w, int h, int x, int baseline) {
    const CanvasPtr canvas = make_canvas(w, h);
    kit_text_draw(canvas.get(), tiny_face(), text, x, baseline, kInk);
    return picture(canvas.get());
}

std::string boxed(const char* text, int w, int h, kit_box box, kit_align align = KIT_LEFT,
                  const kit_face* face = tiny_face()) {
    const CanvasPtr canvas = make_canvas(w, h);
    kit_text_box(canvas.get(), face, text, box, align, kInk);
    return picture(canvas.get());
}

int cut(const char* text, kit_box box) {
    const CanvasPtr canvas = make_canvas(1, 1);
    return kit_text_box(canvas.get(), tiny_face(), text, box, KIT_LEFT, kInk);
}

const CanvasPtr& blank() {
    static const CanvasPtr canvas = make_canvas(40, 10);
    return canvas;
}

TEST(TextLineTest, LettersStandOnTheBaselineSideBySide) {
    EXPECT_EQ(drawn("Heg.", 16, 9, 1, 6),
              "................\n"
              ".#.#............\n"
              ".#.#............\n"
              ".###.##..###....\n"
              ".#.#.#...#.#....\n"
              ".#.#..##.###.#..\n"
              "...........#....\n"
              ".........###....\n"
              "................\n");
}

TEST(TextLineTest, ALetterMayHangOverTheOneBeforeIt) {
    EXPECT_EQ(drawn("Hf", 8, 5, 0, 5),
              "#.#.##..\n"
              "#.#.#...\n"
              "######..\n"
              "#.#.#...\n"
              "#.#.#...\n");
}

TEST(TextLineTest, TheCanvasCutsLettersOnAllSides) {
    EXPECT_EQ(drawn("HH", 5, 3, -2, 4),
              "#.#.#\n"
              "#.###\n"
              "#.#.#\n");
    EXPECT_EQ(drawn("H", 3, 2, 0, 7), "...\n...\n");
    EXPECT_EQ(drawn("H", 3, 2, 0, 0), "...\n...\n");
    EXPECT_EQ(drawn("H", 3, 2, 3, 3), "...\n...\n");
    EXPECT_EQ(drawn("H", 3, 2, -3, 3), "...\n...\n");
}

TEST(TextLineTest, ALetterWiderThanAWordOfTheMachineIsDrawnWhole) {
    std::string upright, foot;
    for (int x = 0; x < 72; ++x) {
        upright += x > 0 && x < 71 && ((x - 1) % 9 == 0 || x == 70) ? '#' : '.';
        foot += x > 0 && x < 71 ? '#' : '.';
    }
    EXPECT_EQ(drawn("W", 72, 5, 1, 5),
              upright + '\n' + upright + '\n' + upright + '\n' + upright + '\n' + foot + '\n');
    // From its 60th column on, and up to its 66th.
    EXPECT_EQ(drawn("W", 7, 2, -60, 2), "...#...\n#######\n");
    const CanvasPtr canvas = make_canvas(80, 1);
    kit_text_box(canvas.get(), tiny_face(), "W", {60, -3, 7, 5}, KIT_LEFT, kInk);
    EXPECT_EQ(picture(canvas.get()), std::string(80, '.') + '\n');
}

TEST(TextLineTest, OnlyThePixelsOfLettersChangeAndAlphaIsStored) {
    const CanvasPtr canvas = make_canvas(3, 5);
    const orvel_color faint = {1, 2, 3, 4};
    kit_text_draw(canvas.get(), tiny_face(), "H", 0, 5, faint);
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 0, 0), faint);
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 1, 0), kBlack);
}

TEST(TextLineTest, TheWidthIsThatOfAllAdvances) {
    EXPECT_EQ(kit_text_width(tiny_face(), "Hi f"), 4 + 2 + 3 + 3);
    EXPECT_EQ(kit_text_width(tiny_face(), ""), 0);
    EXPECT_EQ(kit_text_width(tiny_face(), nullptr), 0);
    EXPECT_EQ(kit_text_width(tiny_face(), "H\n\xE2\x80\xA8\xE2\x80\xA9i"), 4 + 3 * 3 + 2);
}

TEST(TextLineTest, DrawingTellsWhereTheLineEnds) {
    const CanvasPtr canvas = make_canvas(4, 4);
    EXPECT_EQ(kit_text_draw(canvas.get(), tiny_face(), "Hi", 100, 3, kInk), 106);
    EXPECT_EQ(kit_text_draw(nullptr, tiny_face(), "Hi", -7, 3, kInk), -1);
    EXPECT_EQ(kit_text_draw(canvas.get(), tiny_face(), nullptr, 5, 3, kInk), 5);
}

TEST(TextLineTest, KerningDrawsLettersTogether) {
    const kit_face* const face = kit_sans_24();
    const int apart = kit_text_width(face, "A") + kit_text_width(face, "V");
    EXPECT_LT(kit_text_width(face, "AV"), apart);
    // Marks for layout stand between no two letters.
    EXPECT_EQ(kit_text_width(face, "A\xC2\xADV"), kit_text_width(face, "AV"));
}

TEST(TextLineTest, AFaceOfNullIsSansTwelve) {
    EXPECT_EQ(kit_text_width(nullptr, "Größe"), kit_text_width(kit_sans_12(), "Größe"));
    const CanvasPtr one = make_canvas(60, 20), other = make_canvas(60, 20);
    kit_text_draw(one.get(), nullptr, "Größe", 2, 15, kInk);
    kit_text_draw(other.get(), kit_sans_12(), "Größe", 2, 15, kInk);
    EXPECT_EQ(picture(one.get()), picture(other.get()));
    EXPECT_NE(picture(one.get()), picture(make_canvas(60, 20).get()));
}

TEST(TextLineTest, WhatNoFaceHasShowsAsTheReplacement) {
    const std::string replaced = drawn("\xEF\xBF\xBD", 6, 6, 0, 5);
    for (const char* text : {"Z", "\xD0\x96", "\xF0\x9F\x98\x80", "\xFF", "\xE2\x82"}) {
        EXPECT_EQ(drawn(text, 6, 6, 0, 5), replaced) << text;
    }
}

TEST(TextLineTest, AFaceWithoutTheReplacementShowsAHollowBox) {
    const CanvasPtr canvas = make_canvas(11, 6);
    EXPECT_EQ(kit_text_draw(canvas.get(), bare_face(), "ZH", 0, 5, kInk), 10);
    EXPECT_EQ(picture(canvas.get()),
              ".####.#.#..\n"
              ".#..#.#.#..\n"
              ".#..#.###..\n"
              ".#..#.#.#..\n"
              ".####.#.#..\n"
              "...........\n");
}

TEST(TextLineTest, AHollowBoxWithoutHeightShowsNothing) {
    const std::string file =
        "STARTFONT 2.1\nFONT flat\nSIZE 8 72 72\nFONTBOUNDINGBOX 1 1 0 0\n"
        "STARTPROPERTIES 2\nFONT_ASCENT 1\nFONT_DESCENT 0\nENDPROPERTIES\nCHARS 1\n"
        "STARTCHAR a\nENCODING 97\nDWIDTH 4 0\nBBX 1 1 0 0\nBITMAP\n80\nENDCHAR\nENDFONT\n";
    kit_face* const face = kit_face_read(file.data(), file.size(), nullptr, 0);
    ASSERT_EQ(kit_face_cap(face), 0);
    const CanvasPtr canvas = make_canvas(8, 1);
    EXPECT_EQ(kit_text_draw(canvas.get(), face, "Za", 0, 1, kInk), 6);
    EXPECT_EQ(picture(canvas.get()), "..#.....\n");
    kit_face_close(face);
}

TEST(TextLineTest, SpacesAndHyphensOfOtherKindsAreThePlainOnesWhereTheFaceLacksThem) {
    for (const char* space : {"\u00A0", "\u1680", "\u2000", "\u2003", "\u2007", "\u200A", "\u202F",
                              "\u205F", "\u3000"}) {
        EXPECT_EQ(kit_text_width(tiny_face(), space), 3) << space;
        EXPECT_EQ(kit_text_missing(tiny_face(), space), 0) << space;
        EXPECT_EQ(drawn(space, 4, 5, 0, 5), drawn(" ", 4, 5, 0, 5)) << space;
    }
    for (const char* hyphen : {"\u2010", "\u2011"}) {
        EXPECT_EQ(drawn(hyphen, 4, 5, 0, 5), drawn("-", 4, 5, 0, 5)) << hyphen;
        EXPECT_EQ(kit_text_missing(tiny_face(), hyphen), 0) << hyphen;
    }
    for (const char* dash : {"\u2012", "\u2013", "\u2014"}) {  // a hyphen would be read otherwise
        EXPECT_EQ(drawn(dash, 4, 5, 0, 5), drawn("\uFFFD", 4, 5, 0, 5)) << dash;
        EXPECT_EQ(kit_text_missing(tiny_face(), dash), 1) << dash;
    }
}

TEST(TextLineTest, ControlsAndMarksForLayoutTakeNoRoom) {
    const char* const text =
        "\x01\t\r\x7F\xC2\x85H\xC2\xAD\xE2\x80\x8B\xE2\x81\xA0\xEF\xB8\x8F\xEF\xBB\xBFi";
    EXPECT_EQ(kit_text_width(tiny_face(), text), 6);
    EXPECT_EQ(drawn(text, 8, 6, 0, 5), drawn("Hi", 8, 6, 0, 5));
}

TEST(TextLineTest, CapitalsAreCentredFromTopToBottom) {
    EXPECT_EQ(boxed("H", 5, 9, {1, 1, 4, 7}),
              ".....\n"
              ".....\n"
              ".#.#.\n"
              ".#.#.\n"
              ".###.\n"
              ".#.#.\n"
              ".#.#.\n"
              ".....\n"
              ".....\n");
    // The odd pixel lies above: (8 + 5) / 2 = 6.
    EXPECT_EQ(boxed("i", 1, 8, {0, 0, 2, 8}), ".\n#\n.\n#\n#\n#\n.\n.\n");
}

TEST(TextLineTest, WordsStandLeftInTheMiddleOrRight) {
    EXPECT_EQ(boxed("..", 9, 1, {0, -2, 9, 5}, KIT_LEFT),
              "........."
              "\n");
    EXPECT_EQ(boxed("..", 9, 5, {0, 0, 9, 5}, KIT_LEFT).substr(40), "#.#......\n");
    EXPECT_EQ(boxed("..", 9, 5, {0, 0, 9, 5}, KIT_CENTRE).substr(40), "..#.#....\n");
    EXPECT_EQ(boxed("..", 9, 5, {0, 0, 9, 5}, KIT_RIGHT).substr(40), ".....#.#.\n");
}

TEST(TextLineTest, WhatIsWiderThanTheBoxEndsInAnEllipsis) {
    // 5 letters of 4 are 20 wide; of 15, the ellipsis leaves 9 for two letters.
    EXPECT_EQ(boxed("HHHHH", 16, 5, {0, 0, 15, 5}),
              "#.#.#.#.........\n"
              "#.#.#.#.........\n"
              "###.###.........\n"
              "#.#.#.#.........\n"
              "#.#.#.#.#.#.#...\n");
    EXPECT_EQ(cut("HHHHH", {0, 0, 20, 5}), 0);
    EXPECT_EQ(cut("HHHHH", {0, 0, 19, 5}), 1);
    // At the right it ends where the line would.
    EXPECT_EQ(boxed("HHHHH", 16, 5, {0, 0, 15, 5}, KIT_RIGHT).substr(68), ".#.#.#.#.#.#.#..\n");
}

TEST(TextLineTest, NoSpaceStandsBeforeTheEllipsis) {
    EXPECT_EQ(boxed("i  HHHH", 16, 5, {0, 0, 13, 5}).substr(68), "#.#.#.#.........\n");
}

TEST(TextLineTest, NoNumberIsCutIntoAnotherOne) {
    // What an ellipsis of 6 leaves would hold nearly all of each.
    const auto shown = [](const char* text, const char* whole) {
        const CanvasPtr one = make_canvas(60, 9), other = make_canvas(60, 9);
        const kit_face* const face = tiny_face();
        const int w = kit_text_width(face, text) - 1;
        kit_text_box(one.get(), face, text, {0, 0, w, 9}, KIT_LEFT, kInk);
        const std::string cut = std::string(whole) + "\u2026";
        kit_text_draw(other.get(), face, cut.c_str(), 0, 7, kInk);
        return picture(one.get()) == picture(other.get());
    };
    EXPECT_TRUE(shown("H11111111", "H"));
    EXPECT_TRUE(shown("H 1111.11111", "H"));
    EXPECT_TRUE(shown("H11,111.11111", "H"));
    EXPECT_TRUE(shown("H11:11:11111", "H"));
    EXPECT_TRUE(shown("H111'1111", "H"));
    EXPECT_TRUE(shown("H111\u20191111", "H"));
    EXPECT_TRUE(shown("H11\u00A0111\u202F111", "H"));
    EXPECT_TRUE(shown("H1111\u00AD11111", "H"));
    EXPECT_TRUE(shown("11111111", ""));
    // The number ends before the ellipsis does, or is cut between its marks and words.
    EXPECT_TRUE(shown("111 HHHH", "111 HH"));
    EXPECT_TRUE(shown("111.HHHH", "111.HH"));
    EXPECT_TRUE(shown("111, HH", "111,"));
    EXPECT_TRUE(shown("H..111111", "H.."));
    EXPECT_TRUE(shown("11.. 1111", "11.."));
}

TEST(TextLineTest, APointThatEndsTheTextIsNoPartOfANumber) {
    // A point that is wider than the ellipsis, or it would fit where the ellipsis does.
    const std::string file =
        "STARTFONT 2.1\nFONT wide\nSIZE 8 72 72\nFONTBOUNDINGBOX 1 1 0 0\n"
        "STARTPROPERTIES 2\nFONT_ASCENT 6\nFONT_DESCENT 2\nENDPROPERTIES\nCHARS 3\n"
        "STARTCHAR 1\nENCODING 49\nDWIDTH 2 0\nBBX 1 1 0 0\nBITMAP\n80\nENDCHAR\n"
        "STARTCHAR .\nENCODING 46\nDWIDTH 9 0\nBBX 1 1 0 0\nBITMAP\n80\nENDCHAR\n"
        "STARTCHAR e\nENCODING 8230\nDWIDTH 3 0\nBBX 1 1 0 0\nBITMAP\n80\nENDCHAR\nENDFONT\n";
    kit_face* const face = kit_face_read(file.data(), file.size(), nullptr, 0);
    ASSERT_NE(face, nullptr);
    EXPECT_EQ(boxed("11.", 12, 1, {0, -5, 12, 8}, KIT_LEFT, face), "#.#.#.......\n");
    EXPECT_EQ(boxed("11.1", 12, 1, {0, -5, 12, 8}, KIT_LEFT, face), "#...........\n");
    kit_face_close(face);
}

TEST(TextLineTest, AnEllipsisThatDoesNotFitIsCutAtTheBox) {
    EXPECT_EQ(boxed("HHH", 8, 5, {1, 0, 4, 5}),
              "........\n........\n........\n........\n.#.#....\n");
}

TEST(TextLineTest, AFaceWithoutAnEllipsisWritesThreePoints) {
    EXPECT_EQ(boxed("HHHH", 12, 5, {0, 0, 10, 5}, KIT_LEFT, bare_face()).substr(52),
              "#.#.#.#.#...\n");
}

TEST(TextLineTest, NoPixelOutsideTheBoxChanges) {
    EXPECT_EQ(boxed("gf", 9, 7, {1, 1, 7, 4}),  // the baseline on row 5
              ".........\n"
              ".....#...\n"
              ".######..\n"
              ".#.#.#...\n"
              ".###.#...\n"
              ".........\n"
              ".........\n");
    EXPECT_EQ(boxed("f", 5, 5, {1, 0, 3, 5}),  // what hangs over to the left
              ".##..\n"
              ".#...\n"
              ".##..\n"
              ".#...\n"
              ".#...\n");
}

TEST(TextLineTest, AnEmptyBoxShowsNothing) {
    for (const kit_box box : {kit_box{0, 0, 0, 9},
                              {0, 0, 9, 0},
                              {0, 0, -3, 9},
                              {0, 0, 9, -3},
                              {0, 0, INT_MIN, INT_MIN},
                              {INT_MAX, INT_MAX, 9, 9}}) {
        EXPECT_EQ(boxed("Hgf", 9, 9, box), boxed("", 9, 9, {0, 0, 9, 9}));
    }
    EXPECT_EQ(cut("H", {0, 0, 0, 9}), 1);
    EXPECT_EQ(cut("", {0, 0, 0, 9}), 0);
    EXPECT_EQ(cut("", {0, 0, -5, 9}), 0);
}

TEST(TextLineTest, NullIsToldApart) {
    EXPECT_EQ(kit_text_box(nullptr, tiny_face(), "H", {0, 0, 9, 9}, KIT_LEFT, kInk), -1);
    EXPECT_EQ(kit_text_box(blank().get(), tiny_face(), nullptr, {0, 0, 9, 9}, KIT_LEFT, kInk), 0);
}

TEST(TextLineTest, AnUnknownAlignmentIsLeft) {
    EXPECT_EQ(boxed("H", 9, 9, {0, 0, 9, 9}, static_cast<kit_align>(3)),
              boxed("H", 9, 9, {0, 0, 9, 9}, KIT_LEFT));
}

TEST(TextLineTest, PlacesFarOffTheCanvasDrawNothingAndDoNotOverflow) {
    const CanvasPtr canvas = make_canvas(9, 9);
    const std::string before = picture(canvas.get());
    for (const int x : {INT_MIN, -100, 100, INT_MAX - 1, INT_MAX}) {
        for (const int y : {INT_MIN, INT_MIN + 1, -100, 100, INT_MAX}) {
            kit_text_draw(canvas.get(), tiny_face(), "HgW", x, y, kInk);
        }
    }
    EXPECT_EQ(picture(canvas.get()), before);
    EXPECT_EQ(kit_text_draw(canvas.get(), tiny_face(), "H", INT_MAX - 3, 5, kInk), INT_MAX);
    EXPECT_EQ(kit_text_draw(canvas.get(), tiny_face(), "H", INT_MAX - 4, 5, kInk), INT_MAX);
    EXPECT_EQ(kit_text_draw(canvas.get(), tiny_face(), "H", INT_MAX - 5, 5, kInk), INT_MAX - 1);
}

TEST(TextLineTest, ABoxWiderThanAnyCanvasIsAlignedInAllOfItsWidth) {
    EXPECT_EQ(boxed("i", 5, 5, {INT_MIN, 0, INT_MAX, 5}, KIT_RIGHT), boxed("", 5, 5, {}));
    // The right end lies on column 3: INT_MIN + INT_MAX is -1, and 4 more.
    EXPECT_EQ(boxed("i", 5, 5, {INT_MIN + 5, 0, INT_MAX, 5}, KIT_RIGHT).substr(24), "..#..\n");
}

TEST(TextLineTest, ATextOfAMillionBytesIsMeasuredAndDrawn) {
    const std::string wide(1000000, 'W');
    EXPECT_EQ(kit_text_width(tiny_face(), wide.c_str()), 71000000);
    EXPECT_EQ(cut(wide.c_str(), {0, 0, INT_MAX, 9}), 0);
    EXPECT_EQ(cut(wide.c_str(), {0, 0, 70999999, 9}), 1);
    const std::string bad(1000000, '\xFF');
    EXPECT_EQ(kit_text_width(tiny_face(), bad.c_str()), 4000000);
}

TEST(TextLineTest, AWidthBeyondTheIntegersIsTheGreatestOne) {
    const std::string file =
        "STARTFONT 2.1\nFONT wide\nSIZE 8 72 72\nFONTBOUNDINGBOX 1 1 0 0\n"
        "STARTPROPERTIES 2\nFONT_ASCENT 6\nFONT_DESCENT 2\nENDPROPERTIES\nCHARS 1\n"
        "STARTCHAR a\nENCODING 97\nDWIDTH 4096 0\nBBX 1 1 0 0\nBITMAP\n80\nENDCHAR\nENDFONT\n";
    kit_face* const face = kit_face_read(file.data(), file.size(), nullptr, 0);
    ASSERT_NE(face, nullptr);
    const std::string wide(600000, 'a');
    EXPECT_EQ(kit_text_width(face, wide.c_str()), INT_MAX);
    EXPECT_EQ(kit_text_x(face, wide.c_str(), INT_MAX), INT_MAX);
    EXPECT_EQ(kit_text_draw(blank().get(), face, wide.c_str(), INT_MIN, 5, kInk),
              600000LL * 4096 + INT_MIN);
    kit_face_close(face);
}

TEST(TextLineTest, MissingCharactersAreCounted) {
    EXPECT_EQ(kit_text_missing(tiny_face(), "Hi g"), 0);
    EXPECT_EQ(kit_text_missing(tiny_face(), "HZ\xD0\x96i"), 2);
    EXPECT_EQ(kit_text_missing(tiny_face(), "\xFFH"), 0);  // shows as what the face has
    EXPECT_EQ(kit_text_missing(bare_face(), "\xFFH"), 1);
    EXPECT_EQ(kit_text_missing(tiny_face(), "\x01\xC2\xAD\xC2\xA0\n"), 0);
    EXPECT_EQ(kit_text_missing(tiny_face(), nullptr), 0);
}

TEST(TextLineTest, NothingIsAllocated) {
    const CanvasPtr canvas = make_canvas(100, 100);
    tiny_face();
    const long before = allocations_made();
    kit_text_width(tiny_face(), "Hi");
    kit_text_box(canvas.get(), tiny_face(), "HHHHHHHH", {0, 0, 20, 9}, KIT_RIGHT, kInk);
    kit_text_wrap(canvas.get(), tiny_face(), "HHH HHH HHH", {0, 0, 20, 9}, KIT_RIGHT, kInk);
    kit_text_at(tiny_face(), "HHH", kit_text_x(tiny_face(), "HHH", 2));
    kit_text_missing(tiny_face(), "HHH");
    EXPECT_EQ(allocations_made(), before);
}

}  // namespace
