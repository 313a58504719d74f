// kit_text_wrap().
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <sstream>
#include <string>
#include <vector>

#include "support/picture.h"
#include "tiny_face.h"

namespace {

using namespace orvel_test;

constexpr int kWidth = 60;  // columns of the canvas

/// A wrapped text, line by line, read back from its pixels by the letters' own.
class Wrapped {
public:
    Wrapped(const char* text, int w, int h = 400, kit_align align = KIT_LEFT)
        : canvas_(make_canvas(kWidth, 400)) {
        count = kit_text_wrap(canvas_.get(), tiny_face(), text, {0, 0, w, h}, align, kInk);
        for (int top = 0; top + 8 <= 400; top += 8) {
            const std::string line = read(top);
            if (!line.empty()) lines.resize(static_cast<std::size_t>(top / 8 + 1));
            if (!line.empty()) lines.back() = line;
        }
    }

    std::vector<std::string> lines;
    int count;

private:
    /// Tries letters one after another; the widest that fits the pixels is meant.
    std::string read(int top) const {
        static const char* const kLetters[] = {
            "\xE2\x80\xA6", "H", "\xC3\xA9", "g", "e", "-", "i", "1", "."};
        std::string line;
        for (int x = 0; x < kWidth;) {
            bool found = false;
            for (const char* letter : kLetters) {
                if (!shows(letter, x, top)) continue;
                line += letter;
                x += kit_text_width(tiny_face(), letter);
                found = true;
                break;
            }
            if (found) continue;
            line += '_';  // an empty column
            ++x;
        }
        const std::size_t last = line.find_last_not_of('_');
        line.resize(last == std::string::npos ? 0 : last + 1);
        return line;
    }

    bool shows(const char* letter, int x, int top) const {
        const int w = kit_text_width(tiny_face(), letter);
        const CanvasPtr alone = make_canvas(w, 8);
        kit_text_draw(alone.get(), tiny_face(), letter, 0, 6, kInk);
        for (int row = 0; row < 8; ++row) {
            for (int column = 0; column < w; ++column) {
                const bool set = orvel_canvas_pixel_get(alone.get(), column, row) == kInk;
                const bool here =
                    orvel_canvas_pixel_get(canvas_.get(), x + column, top + row) == kInk;
                if (set != here) return false;
            }
        }
        return true;
    }

    CanvasPtr canvas_;
};

using Lines = std::vector<std::string>;

Lines lines(const char* text, int w) {
    const Wrapped wrapped(text, w);
    EXPECT_EQ(wrapped.count, static_cast<int>(wrapped.lines.size())) << text;
    return wrapped.lines;
}

int count(const char* text, int w) {
    return kit_text_wrap(nullptr, tiny_face(), text, {0, 0, w, 0}, KIT_LEFT, kInk);
}

TEST(TextWrapTest, LinesBreakAtSpaces) {
    // "HH HH" is 8 + 3 + 8 wide.
    EXPECT_EQ(lines("HH HH", 19), (Lines{"HH___HH"}));
    EXPECT_EQ(lines("HH HH", 18), (Lines{"HH", "HH"}));
    EXPECT_EQ(lines("HH HH HH HH", 19), (Lines{"HH___HH", "HH___HH"}));
}

TEST(TextWrapTest, SpacesAtTheEndOfALineTakeNoRoom) {
    EXPECT_EQ(lines("HH    HH", 8), (Lines{"HH", "HH"}));
    EXPECT_EQ(lines("HH    ", 8), (Lines{"HH"}));
    EXPECT_EQ(lines("HH    \nHH", 8), (Lines{"HH", "HH"}));
}

TEST(TextWrapTest, SpacesAtTheBeginningOfAParagraphIndentIt) {
    EXPECT_EQ(lines("  H HH", 18), (Lines{"______H", "HH"}));
    EXPECT_EQ(Wrapped("   HH", 10).lines, (Lines{"", "HH"}));  // the word alone fits below
}

TEST(TextWrapTest, LinesBreakAtSpacesOfEveryWidth) {
    for (const std::string space :
         {"\u1680", "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005", "\u2006", "\u2008",
          "\u2009", "\u200A", "\u205F", "\u3000"}) {
        EXPECT_EQ(lines(("H H" + space + "H").c_str(), 17), (Lines{"H___H", "H"})) << space;
    }
}

TEST(TextWrapTest, ASpaceThatDoesNotBreakHoldsWordsTogether) {
    for (const std::string space : {"\u00A0", "\u2007", "\u202F"}) {
        EXPECT_EQ(lines(("H H" + space + "H").c_str(), 17), (Lines{"H", "H___H"})) << space;
    }
}

TEST(TextWrapTest, EveryNewlineBeginsALine) {
    EXPECT_EQ(lines("H\nH", 99), (Lines{"H", "H"}));
    EXPECT_EQ(lines("H\r\nH\xE2\x80\xA8H\xE2\x80\xA9H", 99), (Lines{"H", "H", "H", "H"}));
    EXPECT_EQ(Wrapped("H\n\nH", 99).lines, (Lines{"H", "", "H"}));
    EXPECT_EQ(count("H\n", 99), 2);
    EXPECT_EQ(count("\n", 99), 2);
}

TEST(TextWrapTest, AnEmptyTextTakesNoLine) {
    EXPECT_EQ(count("", 99), 0);
    EXPECT_EQ(count(nullptr, 99), 0);
}

TEST(TextWrapTest, ASoftHyphenShowsWhereItBreaksAndNowhereElse) {
    EXPECT_EQ(lines("HH\xC2\xADHH", 16), (Lines{"HHHH"}));
    EXPECT_EQ(lines("HH\xC2\xADHH", 15), (Lines{"HH-", "HH"}));
    EXPECT_EQ(lines("HH\xC2\xADHH", 12), (Lines{"HH-", "HH"}));
    // The hyphen has no room: the word is broken inside.
    EXPECT_EQ(lines("HH\xC2\xADHH", 11), (Lines{"HH", "HH"}));
    // The last one that leaves room for its hyphen.
    EXPECT_EQ(lines("H\xC2\xADH\xC2\xADH\xC2\xADH", 13), (Lines{"HH-", "HH"}));
}

TEST(TextWrapTest, LinesBreakBehindHyphens) {
    EXPECT_EQ(lines("HH-HH", 15), (Lines{"HH-", "HH"}));
    EXPECT_EQ(lines("H HH-HH", 19), (Lines{"H___HH-", "HH"}));
    EXPECT_EQ(lines("H HH-HH", 18), (Lines{"H", "HH-", "HH"}));
    EXPECT_EQ(lines("H HH\u2010HH", 19), (Lines{"H___HH-", "HH"}));
}

TEST(TextWrapTest, LinesBreakBehindDashesButNotBehindTheHyphenThatHoldsWordsTogether) {
    // "H HH-" is 19 wide, and so it is with a dash, as the replacement.
    for (const char* text : {"H HH\u2013HH", "H HH\u2014HH"}) EXPECT_EQ(count(text, 19), 2) << text;
    EXPECT_EQ(lines("H HH\u2011HH", 19), (Lines{"H", "HH-H", "H"}));
    EXPECT_EQ(count("H HH\u2012HH", 19), 3);
}

TEST(TextWrapTest, AMinusAndANumberStayTogether) {
    EXPECT_EQ(lines("H -1", 10), (Lines{"H", "-1"}));
    EXPECT_EQ(lines("H -H", 14), (Lines{"H", "-H"}));
    EXPECT_EQ(lines("H 1-1", 14), (Lines{"H", "1-1"}));
}

TEST(TextWrapTest, AZeroWidthSpaceBreaksWithoutAHyphen) {
    EXPECT_EQ(lines("HH\xE2\x80\x8BHH", 15), (Lines{"HH", "HH"}));
    EXPECT_EQ(lines("\xE2\x80\x8BHHHH", 8), (Lines{"HH", "HH"}));
}

TEST(TextWrapTest, AWordWiderThanTheBoxIsBrokenInside) {
    EXPECT_EQ(lines("HHHHH", 8), (Lines{"HH", "HH", "H"}));
    EXPECT_EQ(lines("H HHHHH", 8), (Lines{"H", "HH", "HH", "H"}));
}

TEST(TextWrapTest, ALineHasAtLeastOneLetter) {
    EXPECT_EQ(count("HHH", 1), 3);
    EXPECT_EQ(count("HHH", 0), 3);
    EXPECT_EQ(count("HHH", INT_MIN), 3);
    EXPECT_EQ(count("H H", 0), 2);
}

TEST(TextWrapTest, LinesThatDoNotFitAreLeftOutAndTheLastEndsInAnEllipsis) {
    const char* const text = "HHHH HHHH HHHH";  // three lines of 16 columns
    EXPECT_EQ(Wrapped(text, 17, 24).lines, (Lines{"HHHH", "HHHH", "HHHH"}));
    EXPECT_EQ(Wrapped(text, 17, 23).lines, (Lines{"HHHH", "HH\xE2\x80\xA6"}));
    EXPECT_EQ(Wrapped(text, 17, 16).lines, (Lines{"HHHH", "HH\xE2\x80\xA6"}));
    EXPECT_EQ(Wrapped(text, 17, 15).lines, (Lines{"HH\xE2\x80\xA6"}));
    EXPECT_EQ(Wrapped(text, 17, 7).lines, (Lines{}));
    for (const int h : {24, 23, 15, 7, 0, -1, INT_MIN}) EXPECT_EQ(Wrapped(text, 17, h).count, 3);
    // It also follows a line that has room for it, and takes the place of a soft hyphen.
    EXPECT_EQ(Wrapped("H\nH", 17, 8).lines, (Lines{"H\xE2\x80\xA6"}));
    EXPECT_EQ(Wrapped("HH\xC2\xADHHH", 16, 8).lines, (Lines{"HH\xE2\x80\xA6"}));
}

TEST(TextWrapTest, LinesAreAlignedOneByOne) {
    EXPECT_EQ(Wrapped("HHH\nH", 14, 99, KIT_RIGHT).lines, (Lines{"__HHH", "__________H"}));
    EXPECT_EQ(Wrapped("HHH\nH", 14, 99, KIT_CENTRE).lines, (Lines{"_HHH", "_____H"}));
    EXPECT_EQ(Wrapped("HH\xC2\xADHH", 14, 99, KIT_RIGHT).lines, (Lines{"__HH-", "______HH"}));
}

TEST(TextWrapTest, TheFirstLineStandsAtTheTopOfTheBox) {
    const CanvasPtr canvas = make_canvas(6, 18);
    EXPECT_EQ(kit_text_wrap(canvas.get(), tiny_face(), "g i", {1, 1, 4, 16}, KIT_LEFT, kInk), 2);
    EXPECT_EQ(picture(canvas.get()),
              "......\n......\n......\n......\n"
              ".###..\n.#.#..\n.###..\n"
              "...#..\n.###..\n"  // below the baseline
              "......\n.#....\n......\n.#....\n.#....\n.#....\n......\n......\n......\n");
}

TEST(TextWrapTest, NoPixelOutsideTheBoxChanges) {
    const CanvasPtr canvas = make_canvas(8, 8);
    kit_text_wrap(canvas.get(), tiny_face(), "fW", {3, 0, 3, 8}, KIT_LEFT, kInk);
    for (int y = 0; y < 8; ++y) {
        for (const int x : {0, 1, 2, 6, 7}) {
            EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), x, y), kBlack) << x << ", " << y;
        }
    }
}

TEST(TextWrapTest, ATextOfAMillionBytesIsWrapped) {
    const std::string word(1000000, 'H');
    EXPECT_EQ(count(word.c_str(), 8), 500000);
    const std::string spaces(1000000, ' ');
    EXPECT_EQ(count(spaces.c_str(), 8), 1);
    const std::string newlines(1000000, '\n');
    EXPECT_EQ(count(newlines.c_str(), 8), 1000001);
    std::string marks = "H ";
    for (int i = 0; i < 300000; ++i) marks += "\xE2\x80\x8D";
    EXPECT_EQ(count((marks + "HHHH").c_str(), 8), 3);
}

}  // namespace
