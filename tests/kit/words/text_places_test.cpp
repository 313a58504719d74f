// kit_text_x() and kit_text_at(): where a caret stands, and what a pointer means.
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "support/random.h"
#include "tiny_face.h"

namespace {

using orvel_test::tiny_face;

TEST(TextPlacesTest, ACaretStandsBehindTheLettersBeforeIt) {
    const char* const text = "Hi\xC3\xA9g";  // ends at 4, 6, 10 and 14
    const int places[] = {0, 4, 6, 6, 10, 14};
    for (int offset = 0; offset <= 5; ++offset) {
        EXPECT_EQ(kit_text_x(tiny_face(), text, offset), places[offset]) << offset;
    }
}

TEST(TextPlacesTest, AnOffsetOutsideIsTheNearestEnd) {
    for (const int offset : {-1, INT_MIN}) EXPECT_EQ(kit_text_x(tiny_face(), "Hi", offset), 0);
    for (const int offset : {3, INT_MAX}) EXPECT_EQ(kit_text_x(tiny_face(), "Hi", offset), 6);
    EXPECT_EQ(kit_text_x(tiny_face(), nullptr, 1), 0);
}

TEST(TextPlacesTest, ThePlaceNearestToAPointIsFound) {
    const char* const text = "Hi\xC3\xA9g";
    // Halfway between two it is the left one.
    const int offsets[] = {0, 0, 0, 1, 1, 1, 2, 2, 2, 4, 4, 4, 4, 5, 5, 5};
    for (int x = 0; x < 16; ++x) EXPECT_EQ(kit_text_at(tiny_face(), text, x), offsets[x]) << x;
    EXPECT_EQ(kit_text_at(tiny_face(), text, INT_MIN), 0);
    EXPECT_EQ(kit_text_at(tiny_face(), text, INT_MAX), 5);
    EXPECT_EQ(kit_text_at(tiny_face(), nullptr, 3), 0);
}

TEST(TextPlacesTest, OfPlacesThatShareAPixelTheLastIsMeant) {
    // A selector belongs to the letter before it: what is typed there follows both.
    EXPECT_EQ(kit_text_at(tiny_face(), "H\xEF\xB8\x8Fi", 4), 4);
    EXPECT_EQ(kit_text_at(tiny_face(), "\xC2\xADH", 0), 2);
    EXPECT_EQ(kit_text_at(tiny_face(), "H\xC2\xAD", 100), 3);
}

TEST(TextPlacesTest, OneIsTheInverseOfTheOther) {
    static const char* const kLetters[] = {
        "H",    "i",  "e",        " ", "A", "V", "\xC3\xA9", "\xE2\x82\xAC",
        "\xFF", "\n", "\xC2\xAD", "T", "o", "."};
    orvel_test::Random random(7);
    for (int call = 0; call < 20000; ++call) {
        std::string text;
        for (int left = random.between(0, 9); left > 0; --left)
            text += kLetters[random.between(0, 13)];
        const kit_face* const face = random.one_in(2) ? tiny_face() : kit_sans_18();
        const int size = static_cast<int>(text.size());
        for (int offset = 0; offset <= size; ++offset) {
            const int x = kit_text_x(face, text.c_str(), offset);
            const int back = kit_text_at(face, text.c_str(), x);
            ASSERT_EQ(kit_text_x(face, text.c_str(), back), x) << text << " at " << offset;
            ASSERT_GE(back + 3, offset) << text;
        }
        ASSERT_EQ(kit_text_x(face, text.c_str(), size), kit_text_width(face, text.c_str()));
    }
}

TEST(TextPlacesTest, APointFindsTheNearestOfAllPlaces) {
    orvel_test::Random random(8);
    for (int call = 0; call < 2000; ++call) {
        std::string text;
        for (int left = random.between(0, 12); left > 0; --left) {
            text += static_cast<char>(random.between(' ', '~'));
        }
        const int x = random.between(-10, 120);
        const auto miss = [&](int offset) {
            return std::abs(kit_text_x(kit_sans_12(), text.c_str(), offset) - x);
        };
        const int found = kit_text_at(kit_sans_12(), text.c_str(), x);
        for (int offset = 0; offset <= static_cast<int>(text.size()); ++offset) {
            ASSERT_LE(miss(found), miss(offset)) << text << " at " << x;
        }
    }
}

}  // namespace
