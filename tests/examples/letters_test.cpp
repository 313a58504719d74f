// Words drawn by the examples' letters, in a bitmap font of five letters that stands here as text.
#include "letters.h"

#include <gtest/gtest.h>

#include "support/files.h"
#include "support/picture.h"

namespace {

using orvel_test::captured;
using orvel_test::kInk;
using orvel_test::make_canvas;
using orvel_test::picture;
using orvel_test::TempFolder;
using orvel_test::write_file;

// H and A are 3 x 4 pixels; e with acute accent, the ellipsis and the replacement character are 3,
// 3 and 1 pixels wide. One pixel of gap comes after each.
const char* const kFont =
    "STARTFONT 2.1\n"
    "FONT -test-test-medium-r-normal--6-60-72-72-c-40-iso10646-1\n"
    "SIZE 6 72 72\n"
    "FONTBOUNDINGBOX 3 6 0 -1\n"
    "STARTPROPERTIES 6\n"
    "FONT_ASCENT 5\n"
    "FONT_DESCENT 1\n"
    "PIXEL_SIZE 6\n"
    "CHARSET_REGISTRY \"ISO10646\"\n"
    "CHARSET_ENCODING \"1\"\n"
    "DEFAULT_CHAR 65533\n"
    "ENDPROPERTIES\n"
    "CHARS 5\n"
    "STARTCHAR A\nENCODING 65\nSWIDTH 666 0\nDWIDTH 4 0\nBBX 3 4 0 0\n"
    "BITMAP\n40\nA0\nE0\nA0\nENDCHAR\n"
    "STARTCHAR H\nENCODING 72\nSWIDTH 666 0\nDWIDTH 4 0\nBBX 3 4 0 0\n"
    "BITMAP\nA0\nE0\nA0\nA0\nENDCHAR\n"
    "STARTCHAR eacute\nENCODING 233\nSWIDTH 666 0\nDWIDTH 4 0\nBBX 3 5 0 0\n"
    "BITMAP\n20\n00\nE0\n80\nE0\nENDCHAR\n"
    "STARTCHAR ellipsis\nENCODING 8230\nSWIDTH 666 0\nDWIDTH 4 0\nBBX 3 1 0 0\n"
    "BITMAP\nA0\nENDCHAR\n"
    "STARTCHAR replacement\nENCODING 65533\nSWIDTH 333 0\nDWIDTH 2 0\nBBX 1 4 0 0\n"
    "BITMAP\n80\n80\n80\n80\nENDCHAR\n"
    "ENDFONT\n";

class Letters : public ::testing::Test {
protected:
    Letters() {
        write_file(folder / "test.bdf", kFont);
        font = letters_open((folder / "test.bdf").c_str(), 6);
    }
    ~Letters() override { letters_close(font); }

    /// What a text looks like that starts at (1, 6).
    std::string drawn(const char* text, int width) {
        const auto canvas = make_canvas(width, 8);
        letters_draw(font, canvas.get(), text, 1, 6, kInk);
        return picture(canvas.get());
    }

    std::string boxed(const char* text, int w, letters_place place) {
        const auto canvas = make_canvas(14, 6);
        letters_in_box(font, canvas.get(), text, 1, 0, w, 6, place, kInk);
        return picture(canvas.get());
    }

    TempFolder folder;
    letters* font = nullptr;
};

TEST_F(Letters, StandOnTheBaselineAsTheFontHasThem) {
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(drawn("HA\xC3\xA9", 14),
              "..............\n"
              "...........#..\n"
              ".#.#..#.......\n"
              ".###.#.#.###..\n"
              ".#.#.###.#....\n"
              ".#.#.#.#.###..\n"
              "..............\n"
              "..............\n");
}

TEST_F(Letters, AreMeasuredWithTheGapThatFollows) {
    EXPECT_EQ(letters_width(font, ""), 0);
    EXPECT_EQ(letters_width(font, "H"), 4);
    EXPECT_EQ(letters_width(font, "HA\xC3\xA9"), 12);
    EXPECT_EQ(letters_cap_height(font), 4);
    const auto canvas = make_canvas(20, 8);
    EXPECT_EQ(letters_draw(font, canvas.get(), "HA", 3, 6, kInk), 11);
}

TEST_F(Letters, EachByteThatIsNoUtf8IsOneReplacementCharacter) {
    const struct {
        const char* text;
        int replacements;
    } cases[] = {
        {"\xFF", 1},              // no character begins so
        {"\xA9", 1},              // a continuation on its own
        {"\xC0\x80", 2},          // zero in two bytes
        {"\xC1\xBF", 2},          // ASCII in two bytes
        {"\xE0\x82\xA9", 3},      // a letter of two bytes in three
        {"\xF0\x80\x82\xA9", 4},  // and in four
        {"\xED\xA0\x80", 3},      // half of a surrogate pair
        {"\xF4\x90\x80\x80", 4},  // beyond the last character
        {"\xF5\x80\x80\x80", 4},  // further beyond
        {"\xC3", 1},              // cut short, after one byte
        {"\xE2\x80", 2},          // and after two
        {"\xEF\xBF\xBD", 1},      // the replacement character itself
    };
    for (const auto& [text, replacements] : cases) {
        EXPECT_EQ(letters_width(font, text), 2 * replacements) << text;
    }
    EXPECT_EQ(letters_width(font, "\xC3H"), 2 + 4) << "what follows a cut letter still shows";
}

TEST_F(Letters, ControlCharactersShowAsNothing) {
    EXPECT_EQ(letters_width(font, "H\nA\t\r"), 8);
    EXPECT_EQ(drawn("H\nA", 14), drawn("HA", 14));
}

TEST_F(Letters, OutsideTheCanvasAreDropped) {
    const auto canvas = make_canvas(3, 2);
    letters_draw(font, canvas.get(), "HHHHHHHH", -5, 3, kInk);
    EXPECT_EQ(picture(canvas.get()),
              "##.\n"
              ".#.\n");
}

TEST_F(Letters, InABoxStandLeftInTheMiddleOrRight) {
    EXPECT_EQ(boxed("HA", 12, LETTERS_LEFT),
              "..............\n"
              ".#.#..#.......\n"
              ".###.#.#......\n"
              ".#.#.###......\n"
              ".#.#.#.#......\n"
              "..............\n");
    EXPECT_EQ(boxed("HA", 12, LETTERS_CENTRE),
              "..............\n"
              "...#.#..#.....\n"
              "...###.#.#....\n"
              "...#.#.###....\n"
              "...#.#.#.#....\n"
              "..............\n");
    EXPECT_EQ(boxed("HA", 12, LETTERS_RIGHT),
              "..............\n"
              ".....#.#..#...\n"
              ".....###.#.#..\n"
              ".....#.#.###..\n"
              ".....#.#.#.#..\n"
              "..............\n");
}

TEST_F(Letters, TooWideForTheirBoxEndInAnEllipsis) {
    const std::string cut =
        "..............\n"
        ".#.#..........\n"
        ".###..........\n"
        ".#.#..........\n"
        ".#.#.#.#......\n"
        "..............\n";
    EXPECT_EQ(boxed("HAHA", 10, LETTERS_LEFT), cut);
    EXPECT_EQ(boxed("HAHA", 10, LETTERS_RIGHT), cut);
    EXPECT_NE(boxed("HA", 8, LETTERS_LEFT), cut) << "a text as wide as its box stays whole";
}

TEST_F(Letters, WhatCannotBeOpenedIsSaidInOneLine) {
    const std::string font_file = folder / "test.bdf", no_font = folder / "no.ttf";
    write_file(no_font, "not a font");
    const struct {
        std::string file;
        int size;
        std::string problem;
    } cases[] = {{folder / "missing.ttf", 12, "cannot be opened as a font"},
                 {no_font, 12, "cannot be opened as a font"},
                 {font_file, 0, "does not come in that size"},
                 {font_file, 40, "does not come in that size"}};
    for (const auto& [file, size, problem] : cases) {
        const auto said = captured([&, path = file.c_str(), pixels = size] {
            EXPECT_EQ(letters_open(path, pixels), nullptr);
        });
        EXPECT_EQ(said.error,
                  "letters: " + file + ", " + std::to_string(size) + " pixels: " + problem + "\n");
    }
    letters_close(nullptr);
}

}  // namespace
