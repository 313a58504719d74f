// The baked faces beside what FreeType makes of the same fonts today. Skipped where the fonts or
// FreeType are of another version, which may draw other letters.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "face_pages.h"
#include "letters.h"
#include "orvel_kit.h"
#include "support/files.h"
#include "support/process.h"
#include "words/face_data.h"

namespace {

using namespace orvel_test;

std::string file_of(std::string name) {
    name[name.find(' ')] = '_';
    return name + ".cpp";
}

/// The second line: the versions that the file was made with.
std::string source_of(const std::string& text) {
    const std::size_t begin = text.find('\n') + 1;
    return text.substr(begin, text.find('\n', begin) - begin);
}

class BakedFacesTest : public testing::Test {
protected:
    void SetUp() override {
        const Finished done = run(
            {ORVEL_BAKE_FACES, ORVEL_SOURCE_DIR "/kit/words/bake", ORVEL_DEJAVU, folder_.path()});
        ASSERT_EQ(done.status, 0) << done.error;
        for (const std::string& name : face_names()) {
            const std::string now = source_of(again(name)), then = source_of(kept(name));
            ASSERT_NE(now, "");
            if (now != then) GTEST_SKIP() << "here is " << now << ", not " << then;
        }
    }

    std::string again(const std::string& name) const { return read_file(folder_ / file_of(name)); }
    static std::string kept(const std::string& name) {
        return read_file(ORVEL_SOURCE_DIR "/kit/words/faces/" + file_of(name));
    }

private:
    const TempFolder folder_;
};

TEST_F(BakedFacesTest, AreWhatTheScriptMakes) {
    for (const std::string& name : face_names()) {
        EXPECT_TRUE(again(name) == kept(name)) << name << ": run scripts/bake";
    }
}

std::string utf8(char32_t code) {
    const auto byte = [](char32_t bits) { return static_cast<char>(bits); };
    if (code < 0x80) return {byte(code)};
    if (code < 0x800) return {byte(0xC0 | code >> 6), byte(0x80 | (code & 63))};
    return {byte(0xE0 | code >> 12), byte(0x80 | (code >> 6 & 63)), byte(0x80 | (code & 63))};
}

std::string font_of(const std::string& name) {
    const std::string file = name[0] == 'b'   ? "/DejaVuSans-Bold.ttf"
                             : name[0] == 'm' ? "/DejaVuSansMono.ttf"
                                              : "/DejaVuSans.ttf";
    return ORVEL_DEJAVU + file;
}

struct CloseLetters {
    void operator()(letters* font) const { letters_close(font); }
};
using LettersPtr = std::unique_ptr<letters, CloseLetters>;

LettersPtr opened(const std::string& name) {
    const int size = std::atoi(name.c_str() + name.find(' '));
    return LettersPtr(letters_open(font_of(name).c_str(), size));
}

TEST_F(BakedFacesTest, DrawEveryLetterAsFreeTypeDoes) {
    for (const std::string& name : face_names()) {
        const LettersPtr font = opened(name);
        const kit_face* const face = kit_face_named(name.c_str());
        ASSERT_NE(font, nullptr);
        EXPECT_EQ(kit_face_cap(face), letters_cap_height(font.get())) << name;
        const int line = kit_face_line(face);
        for (const char32_t code : characters(*face)) {
            const CanvasPtr ours = make_canvas(2 * line, 2 * line);
            const CanvasPtr theirs = make_canvas(2 * line, 2 * line);
            const std::string text = utf8(code);
            draw_letter(ours.get(), kit::glyph_of(kit::find_glyph(*face, code)), line / 4,
                        line * 5 / 4);
            letters_draw(font.get(), theirs.get(), text.c_str(), line / 4, line * 5 / 4, kBlack);
            ASSERT_EQ(checksum(ours.get()), checksum(theirs.get())) << name << ", " << text;
        }
    }
}

TEST_F(BakedFacesTest, SetEveryPairOfBasicLatinAsFreeTypeDoes) {
    for (const std::string& name : face_names()) {
        const LettersPtr font = opened(name);
        const kit_face& face = *kit_face_named(name.c_str());
        std::vector<char32_t> codes = characters(face);
        codes.erase(std::lower_bound(codes.begin(), codes.end(), 0x80u), codes.end());
        for (const char32_t left : codes) {
            const kit::Found first = kit::find_glyph(face, left);
            std::string line = utf8(left);
            int width = first.advance;
            for (const char32_t right : codes) {  // left, right, left, right and so on
                const kit::Found second = kit::find_glyph(face, right);
                line += utf8(right) + utf8(left);
                width += kit::kerning(first, second) + second.advance +
                         kit::kerning(second, first) + first.advance;
            }
            ASSERT_EQ(width, letters_width(font.get(), line.c_str())) << name << ", " << utf8(left);
        }
    }
}

}  // namespace
