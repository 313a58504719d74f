// Random texts in random places compared with the plain model, and boxes that nothing leaves.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <sstream>
#include <string>

#include "models/words_model.h"
#include "support/cases.h"
#include "support/picture.h"
#include "support/random.h"
#include "tiny_face.h"
#include "tiny_letters.h"

namespace {

using namespace orvel_test;

constexpr int kSide = 24;

std::string random_text(Random& random) {
    static const char* const kParts[] = {"H",
                                         "HH",
                                         "e",
                                         "i",
                                         "f",
                                         "g",
                                         "H",
                                         "i",
                                         "1",
                                         "11",
                                         "1.1",
                                         "1",
                                         "\xE2\x80\xAF",
                                         " ",
                                         " ",
                                         " ",
                                         "  ",
                                         "-",
                                         "-",
                                         ".",
                                         ",",
                                         "\n",
                                         "\xC2\xAD",
                                         "\xC2\xAD",
                                         "\xC2\xA0",
                                         "\xC3\xA9",
                                         "\xE2\x80\x8B",
                                         "\xE2\x80\x83",
                                         "\xE2\x80\x8D",
                                         "\xE2\x80\x91",
                                         "\xE2\x80\x93",
                                         "\xE2\x80\xA8",
                                         "\xEF\xB8\x8F",
                                         "\x01",
                                         "\t",
                                         "Z",
                                         "W",
                                         "\xF0\x9F\x98\x80",
                                         "\xE2\x82",
                                         "\xFF",
                                         "\xC2"};
    std::string text;
    for (int left = random.between(0, 14); left > 0; --left) {
        text += kParts[random.between(0, sizeof kParts / sizeof *kParts - 1)];
    }
    return text;
}

kit_box random_box(Random& random) {
    if (random.one_in(50)) {
        return {random.between(INT32_MIN, INT32_MAX), random.between(INT32_MIN, INT32_MAX),
                random.between(INT32_MIN, INT32_MAX), random.between(INT32_MIN, INT32_MAX)};
    }
    return {random.between(-12, 24), random.between(-12, 24), random.between(-2, 60),
            random.between(-2, 40)};
}

std::string in_words(const std::string& text, const kit_box& box, int align) {
    std::ostringstream out;
    for (const char c : text) out << std::hex << int(static_cast<unsigned char>(c)) << ' ';
    out << std::dec << "in " << box.x << ' ' << box.y << ' ' << box.w << ' ' << box.h << " aligned "
        << align;
    return out.str();
}

void expect_equal(const orvel_canvas* canvas, const model::Canvas& expected) {
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            ASSERT_EQ(orvel_canvas_pixel_get(canvas, x, y), expected.at(x, y)) << x << ", " << y;
        }
    }
}

/// The call of this number both ways.
void compare(const kit_face* face, const model::Words& words, std::uint64_t call) {
    const CanvasPtr canvas = make_canvas(kSide, kSide);
    Random random(call);
    const std::string text = random_text(random);
    const kit_box box = random_box(random);
    const auto align = static_cast<kit_align>(random.between(0, 2));
    SCOPED_TRACE("call " + std::to_string(call) + ": " + in_words(text, box, align));
    model::Canvas expected(kSide, kSide);
    ASSERT_EQ(kit_text_width(face, text.c_str()), words.width(text));
    switch (call % 3) {
    case 0: {
        const int end = kit_text_draw(canvas.get(), face, text.c_str(), box.x, box.y, kInk);
        words.draw(expected, text, box.x, box.y, kInk);
        const long long wanted = box.x + words.width(text);
        ASSERT_EQ(end, std::min<long long>(wanted, INT32_MAX));
        break;
    }
    case 1:
        ASSERT_EQ(kit_text_box(canvas.get(), face, text.c_str(), box, align, kInk),
                  words.box(expected, text, box, align, kInk));
        break;
    default:
        ASSERT_EQ(kit_text_wrap(canvas.get(), face, text.c_str(), box, align, kInk),
                  words.wrap(expected, text, box, align, kInk));
    }
    expect_equal(canvas.get(), expected);
}

void sweep(const kit_face* face, const model::Words& words, std::uint64_t calls) {
    for (const std::uint64_t call : some_cases(calls)) {
        compare(face, words, call);
        if (testing::Test::HasFatalFailure()) return;
    }
}

TEST(TextSweepTest, RandomTextsAreDrawnAsTheModelDrawsThem) {
    sweep(tiny_face(), model::Words(tiny_letter, kTinyMeasures), 60000);
}

TEST(TextSweepTest, AFaceThatLacksNearlyAllIsDrawnAsTheModelDrawsIt) {
    sweep(bare_face(), model::Words(bare_letter, kTinyMeasures), 20000);
}

struct CloseFace {
    void operator()(kit_face* face) const { kit_face_close(face); }
};
using FacePtr = std::unique_ptr<kit_face, CloseFace>;

/// A letter of a font, of a size that is usual in one case of two, with rows of more or less ink.
std::string random_letter(Random& random, unsigned code) {
    const int widest = random.one_in(2) ? 12 : random.one_in(9) ? 300 : 80;
    const int width = random.between(0, widest),
              height = random.between(0, random.one_in(9) ? 300 : 20);
    std::ostringstream lines;
    lines << "STARTCHAR x\nENCODING " << code << "\nDWIDTH " << random.between(0, 20) << " 0\nBBX "
          << width << ' ' << height << ' ' << random.between(-9, 9) << ' ' << random.between(-20, 9)
          << "\nBITMAP\n"
          << std::hex << std::uppercase;
    const int rare = random.between(1, 4);
    std::string row;
    for (int i = 0; i < height; ++i) {
        const bool again = i > 0 && random.one_in(2);
        if (!again) row.clear();
        for (int left = width; left > 0 && !again; left -= 4) {
            int digit = 0;
            for (int bit = 8; bit > 0; bit /= 2) digit |= random.one_in(rare) ? bit : 0;
            row += "0123456789ABCDEF"[digit];
        }
        lines << row << '\n';
    }
    return lines.str() + "ENDCHAR\n";
}

/// A font with the letters of most of the texts.
std::string random_font(Random& random) {
    std::string font =
        "STARTFONT 2.1\nFONT random\nSIZE 8 72 72\nFONTBOUNDINGBOX 9 9 0 0\n"
        "STARTPROPERTIES 3\nFONT_ASCENT 6\nFONT_DESCENT 2\nCAP_HEIGHT 5\nENDPROPERTIES\n";
    for (const char32_t code : U" -Hef\u00E9\u2026\uFFFD") {
        if (code != 0) font += random_letter(random, static_cast<unsigned>(code));
    }
    return font + "ENDFONT\n";
}

TEST(TextSweepTest, LettersOfRandomFontsAreDrawnAsTheModelDrawsThem) {
    constexpr std::uint64_t kCallsOfAFont = 40;
    FacePtr face;
    std::map<char32_t, model::Letter> letters;
    const auto shown = [&letters](char32_t code) {
        const auto found = letters.find(alike(code));
        return found == letters.end() ? letters.at(0xFFFD) : found->second;
    };
    for (const std::uint64_t call : some_cases(12000)) {
        if (!face || call % kCallsOfAFont == 0) {
            Random random(call / kCallsOfAFont);
            const std::string font = random_font(random);
            face.reset(kit_face_read(font.data(), font.size(), nullptr, 0));
            ASSERT_NE(face, nullptr);
            letters = letters_of(font.c_str());
        }
        compare(face.get(), model::Words(shown, kTinyMeasures), call);
        if (testing::Test::HasFatalFailure()) return;
    }
}

TEST(TextSweepTest, NothingLeavesABoxInAnyFace) {
    const kit_face* const faces[] = {kit_sans_11(), kit_sans_14(),   kit_bold_18(),
                                     kit_mono_12(), kit_digits_64(), tiny_face()};
    const orvel_color ground = {9, 8, 7, 6};
    const CanvasPtr canvas = make_canvas(kSide, kSide);
    for (const std::uint64_t call : some_cases(20000)) {
        Random random(call);
        std::string text;
        for (int left = random.between(0, 20); left > 0; --left) {
            text += static_cast<char>(random.between(1, 255));
        }
        const kit_box box = random_box(random);
        const auto align = static_cast<kit_align>(random.between(0, 2));
        const kit_face* const face = faces[random.between(0, 5)];
        SCOPED_TRACE("call " + std::to_string(call) + ": " + in_words(text, box, align));
        orvel_canvas_clear(canvas.get(), ground);
        (call % 2 == 0 ? kit_text_box : kit_text_wrap)(canvas.get(), face, text.c_str(), box, align,
                                                       kInk);
        for (int y = 0; y < kSide; ++y) {
            for (int x = 0; x < kSide; ++x) {
                const bool in = x >= box.x && x < static_cast<long long>(box.x) + box.w &&
                                y >= box.y && y < static_cast<long long>(box.y) + box.h;
                if (in) continue;
                ASSERT_EQ(orvel_canvas_pixel_get(canvas.get(), x, y), ground) << x << ", " << y;
            }
        }
    }
}

}  // namespace
