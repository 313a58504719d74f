// Letters taken apart into strokes, and letters drawn as far as a clip lets them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "face_pages.h"
#include "support/cases.h"
#include "support/picture.h"
#include "support/random.h"
#include "words/baked.h"
#include "words/runs.h"

namespace {

using namespace orvel_test;

/// Rows of '#' and '.', one behind the other, as bits.
std::vector<unsigned char> bits_of(const std::string& picture, std::size_t width) {
    const std::size_t stride = (width + 7) / 8;
    std::vector<unsigned char> bits(picture.size() / width * stride);
    for (std::size_t i = 0; i < picture.size(); ++i) {
        const std::size_t row = i / width, column = i % width;
        const int bit = picture[i] == '#' ? 0x80 >> column % 8 : 0;
        bits[row * stride + column / 8] |= static_cast<unsigned char>(bit);
    }
    return bits;
}

using Bytes = std::vector<unsigned char>;

Bytes strokes_of(const std::string& picture, std::size_t width) {
    const Bytes bits = bits_of(picture, width);
    return kit::strokes_of(bits.data(), static_cast<int>(width),
                           static_cast<int>(picture.size() / width));
}

TEST(StrokesTest, NoInkIsNoStrokes) {
    EXPECT_EQ(kit::strokes_of(nullptr, 0, 0), (Bytes{0, 0, 0}));
    EXPECT_EQ(strokes_of("......", 3), (Bytes{0, 0, 0}));
}

TEST(StrokesTest, AreFirstPixelsThenRunsThenOtherBoxes) {
    EXPECT_EQ(strokes_of("#.###"
                         "....."
                         "###.#"
                         "###.#"
                         "....#",
                         5),
              (Bytes{1, 0, 0,                       // the pixel
                     1, 2, 0, 3,                    // the run
                     2, 0, 2, 3, 2, 4, 2, 1, 3}));  // the block, the column
}

TEST(StrokesTest, AColumnOfTwoIsTwoPixelsAndOneOfThreeALine) {
    EXPECT_EQ(strokes_of("##", 1), (Bytes{2, 0, 0, 0, 1, 0, 0}));
    EXPECT_EQ(strokes_of("###", 1), (Bytes{0, 0, 1, 0, 0, 1, 3}));
}

TEST(StrokesTest, AnUprightGoesOnThroughWiderRunsWhichBeginBesideIt) {
    EXPECT_EQ(strokes_of("#...."
                         "#...."
                         "#.##."
                         "##..#"
                         "#...#"
                         "#...#",
                         5),
              (Bytes{1, 1, 3,                       // where the arch begins
                     1, 2, 2, 2,                    // the arch
                     2, 0, 0, 1, 6, 4, 3, 1, 3}));  // the stems
}

// As pages have them, where strokes would not compress.
TEST(StrokesTest, BakedStrokesBecomeTheRowsThatTheyWereCutFrom) {
    const Bytes arch = bits_of(
        "#........."
        "#.########"
        "###......#",
        10);
    const Bytes dot = bits_of(
        "##"
        "#.",
        2);
    Bytes strokes = {9};  // before them, as other letters' are
    kit::BakedGlyph placed[] = {{0, 11, 0, 3, 10, 3}, {0, 3, 1, 2, 2, 2}, {0, 4, 0, 1, 1, 1}};
    const Bytes cut[] = {
        kit::strokes_of(arch.data(), 10, 3), kit::strokes_of(dot.data(), 2, 2), {0, 0, 0}};
    for (std::size_t i = 0; i < 3; ++i) {
        placed[i].offset = strokes.size() & 0xFFFFFF;
        strokes.insert(strokes.end(), cut[i].begin(), cut[i].end());
    }
    ASSERT_EQ(kit::bytes_of_rows(placed), 9u);
    const auto rows = kit::rows_of<9>(placed, strokes.data());
    Bytes all = arch;
    all.insert(all.end(), dot.begin(), dot.end());
    all.push_back(0);
    EXPECT_EQ(Bytes(std::begin(rows.ink), std::end(rows.ink)), all);
    EXPECT_EQ(rows.glyphs[1].offset, 6u);
    EXPECT_EQ(rows.glyphs[2].offset, 8u);
    EXPECT_EQ(rows.glyphs[0].advance, 11u);
}

TEST(StrokesTest, WhatIsWiderThanAnUprightGoesOnInRunsAsWideAlone) {
    EXPECT_EQ(strokes_of("####."
                         "#####",
                         5),
              (Bytes{1, 4, 1, 0, 1, 0, 0, 4, 2}));
    EXPECT_EQ(strokes_of("#####."
                         "######",
                         6),
              (Bytes{0, 2, 0, 0, 5, 0, 1, 6, 0}));
    EXPECT_EQ(strokes_of(".#####"
                         "######",
                         6),
              (Bytes{0, 2, 1, 0, 5, 0, 1, 6, 0}));
}

/// Pixels that touch no other, in rows of 2 * @p columns.
std::string speckles(std::size_t count, std::size_t columns) {
    std::string picture;
    for (std::size_t i = 0; i < count; ++i) {
        picture += "#.";
        if ((i + 1) % columns == 0) picture += std::string(2 * columns, '.');
    }
    return picture;
}

TEST(StrokesTest, OfEachFormThereAreAtMost255) {
    EXPECT_EQ(strokes_of(speckles(255, 15), 30).size(), 3 + 2 * 255u);
    EXPECT_EQ(strokes_of(speckles(256, 16), 32), Bytes{});
}

TEST(StrokesTest, ALetterHasAtMost255ColumnsAndRows) {
    EXPECT_EQ(strokes_of(std::string(255, '#'), 255), (Bytes{0, 1, 0, 0, 255, 0}));
    EXPECT_EQ(strokes_of(std::string(256, '#'), 256), Bytes{});
    EXPECT_EQ(strokes_of(std::string(255, '#'), 1), (Bytes{0, 0, 1, 0, 0, 1, 255}));
    EXPECT_EQ(strokes_of(std::string(256, '#'), 1), Bytes{});
}

/// A letter of the size with ink here and there.
std::string random_picture(Random& random, int width, int height) {
    const int rare = random.between(1, 5);
    const bool is_striped = random.one_in(3);
    std::string picture;
    for (int row = 0; row < height; ++row) {
        for (int column = 0; column < width; ++column) {
            const bool again = is_striped && row > 0 && !random.one_in(6);
            const bool ink = again
                                 ? picture[picture.size() - static_cast<std::size_t>(width)] == '#'
                                 : random.one_in(rare);
            picture += ink ? '#' : '.';
        }
    }
    return picture;
}

TEST(StrokesTest, RandomLettersHaveTheirInkAndNoOtherInEitherForm) {
    for (const std::uint64_t number : some_cases(5000)) {
        Random random(number);
        SCOPED_TRACE("case " + std::to_string(number));
        const int width = random.between(1, 40), height = random.between(1, 40);
        const std::string picture = random_picture(random, width, height);
        const Bytes bits = bits_of(picture, static_cast<std::size_t>(width));
        const Bytes strokes = kit::strokes_of(bits.data(), width, height);
        if (strokes.empty()) continue;
        const CanvasPtr expected = make_canvas(40, 40), canvas = make_canvas(40, 40);
        for (int i = 0; i < width * height; ++i) {
            if (picture[static_cast<std::size_t>(i)] != '#') continue;
            orvel_canvas_pixel(expected.get(), i % width, i / width, kInk);
        }
        const kit::Glyph letter = {0, 0, width, height, strokes.data(), nullptr};
        kit::draw_glyph(canvas.get(), letter, 0, 0, {0, 0, 40, 40}, kInk);
        ASSERT_EQ(checksum(canvas.get()), checksum(expected.get())) << picture;
        const kit::Clip ink = kit::ink_of(letter);
        const kit::Clip plain = kit::ink_of({0, 0, width, height, nullptr, bits.data()});
        ASSERT_TRUE(ink.left == plain.left && ink.top == plain.top);
        ASSERT_TRUE(ink.right == plain.right && ink.bottom == plain.bottom);
    }
}

// ---- Clips

constexpr int kSide = 40;

kit::Clip random_clip(Random& random) {
    const int left = random.between(0, kSide), top = random.between(0, kSide);
    return {left, top, random.between(left, kSide), random.between(top, kSide)};
}

/// Compares the letter in a clip with what of all its pixels is in there.
void expect_cut(const kit::Glyph& letter, int x, int baseline, const kit::Clip& clip) {
    const CanvasPtr canvas = make_canvas(kSide, kSide), expected = make_canvas(kSide, kSide);
    orvel_canvas_clear(canvas.get(), kInk);
    kit::draw_glyph(canvas.get(), letter, x, baseline, clip, kBlack);
    orvel_canvas_clear(expected.get(), kInk);
    draw_letter(expected.get(), letter, x, baseline);
    for (int i = 0; i < kSide * kSide; ++i) {
        const int column = i % kSide, row = i / kSide;
        const bool in =
            column >= clip.left && column < clip.right && row >= clip.top && row < clip.bottom;
        if (!in) orvel_canvas_pixel(expected.get(), column, row, kInk);
    }
    ASSERT_EQ(checksum(canvas.get()), checksum(expected.get()))
        << "at " << x << ", " << baseline << " in " << clip.left << ' ' << clip.top << ' '
        << clip.right << ' ' << clip.bottom;
}

TEST(CutLettersTest, EveryBakedLetterIsDrawnAsFarAsItIsInAClip) {
    for (const std::string& name : face_names()) {
        const kit_face& face = *kit_face_named(name.c_str());
        Random random(static_cast<std::uint64_t>(kit_face_line(&face)));
        for (const char32_t code : characters(face)) {
            const kit::Glyph letter = kit::glyph_of(kit::find_glyph(face, code));
            for (int i = 0; i < 2; ++i) {
                SCOPED_TRACE(name + ", " + std::to_string(static_cast<unsigned>(code)));
                const int x = random.between(-letter.width, kSide);
                expect_cut(letter, x, random.between(0, kSide + letter.height),
                           random_clip(random));
                if (testing::Test::HasFatalFailure()) return;
            }
        }
    }
}

TEST(CutLettersTest, RandomLettersAreDrawnAsFarAsTheyAreInAClip) {
    for (const std::uint64_t number : some_cases(5000)) {
        Random random(number);
        SCOPED_TRACE("case " + std::to_string(number));
        const int width = random.between(1, random.one_in(3) ? 200 : 20);
        const int height = random.between(1, 60);
        const Bytes bits =
            bits_of(random_picture(random, width, height), static_cast<std::size_t>(width));
        const Bytes strokes = kit::strokes_of(bits.data(), width, height);
        const int left = random.between(-9, 9), top = random.between(-9, 60);
        const int x = random.between(-width, kSide), baseline = random.between(-9, 100);
        const kit::Clip clip = random_clip(random);
        expect_cut({left, top, width, height, nullptr, bits.data()}, x, baseline, clip);
        if (!strokes.empty()) {
            expect_cut({left, top, width, height, strokes.data(), nullptr}, x, baseline, clip);
        }
        if (testing::Test::HasFatalFailure()) return;
    }
}

}  // namespace
