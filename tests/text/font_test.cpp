#include "text/font.h"

#include <gtest/gtest.h>

#include <string>

#include "models/printed_font.h"

namespace {

TEST(FontTest, HasFiveBytesForEachOf95GlyphsAndTwoMore) {
    EXPECT_EQ(sizeof orvel::kFont, 477u);
    ASSERT_EQ(model::printed_font().size(), 477u);
}

TEST(FontTest, EqualsThePrintedTableRowByRow) {
    for (int code = 32; code <= 126; ++code) {
        for (int column = 0; column < 5; ++column) {
            const std::size_t at = static_cast<std::size_t>(5 * (code - 32) + column);
            EXPECT_EQ(int(orvel::kFont[at]), int(model::printed_font()[at]))
                << "column " << column << " of code " << code;
        }
    }
}

TEST(FontTest, TwoBytesFollowTheLastGlyph) {
    EXPECT_EQ(orvel::kFont[475], 0x53);
    EXPECT_EQ(orvel::kFont[476], 0x6F);
}

TEST(FontTest, TheTopBitOfAColumnIsNeverSet) {
    for (int at = 0; at < 475; ++at) EXPECT_LT(orvel::kFont[at], 0x80) << at;
}

// The stored shapes are letters, standing upright, although nobody ever sees them so.
TEST(FontTest, StoredByColumnsTheGlyphsAreLetters) {
    std::string rows;
    const unsigned char* const glyph = orvel::kFont + 5 * ('A' - 32);
    for (int row = 0; row < 7; ++row) {
        for (int column = 0; column < 5; ++column) rows += glyph[column] >> row & 1 ? '#' : '.';
        rows += '\n';
    }
    EXPECT_EQ(rows,
              ".###.\n"
              "#...#\n"
              "#...#\n"
              "#...#\n"
              "#####\n"
              "#...#\n"
              "#...#\n");
}

}  // namespace
