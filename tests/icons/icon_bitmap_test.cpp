// Icons from BMP files: which pixels are drawn, and which files are refused.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <string>

#include "support/bitmap_files.h"
#include "support/files.h"
#include "support/picture.h"

namespace {

using namespace orvel_test;

constexpr int kLow = std::numeric_limits<int>::min(), kHigh = std::numeric_limits<int>::max();

using IconBitmapTest = BitmapTest;

// ---- Rows and columns

TEST_F(IconBitmapTest, TheFirstStoredRowIsTheLowest) {
    write_file(path("pic.bmp"), BmpHeader{2, 2}.bytes() + kTwoByTwo);
    const auto canvas = make_canvas(16, 16);
    ASSERT_EQ(orvel_icon_draw_bitmap(canvas.get(), "pic", 10, 10), 0);
    const std::string rows = picture(canvas.get(), letters());
    EXPECT_EQ(rows.substr(10 * 17, 16), "..........bw....");
    EXPECT_EQ(rows.substr(11 * 17, 16), "..........rg....");
    EXPECT_EQ(std::count(rows.begin(), rows.end(), '.'), 16 * 16 - 4);
}

TEST_F(IconBitmapTest, ANegativeHeightStoresTheHighestRowFirst) {
    write_file(path("pic.bmp"), BmpHeader{2, -2}.bytes() + kTwoByTwo);
    const auto canvas = make_canvas(16, 16);
    ASSERT_EQ(orvel_icon_draw_bitmap(canvas.get(), "pic", 10, 10), 0);
    const std::string rows = picture(canvas.get(), letters());
    EXPECT_EQ(rows.substr(10 * 17, 16), "..........rg....");
    EXPECT_EQ(rows.substr(11 * 17, 16), "..........bw....");
}

TEST_F(IconBitmapTest, HangsOverEveryEdge) {
    const std::string bytes = BmpHeader{2, 2}.bytes() + kTwoByTwo;
    EXPECT_EQ(drawn(bytes, -1, 0, 2, 2), "w.\ng.\n");
    EXPECT_EQ(drawn(bytes, 1, 0, 2, 2), ".b\n.r\n");
    EXPECT_EQ(drawn(bytes, 0, -1, 2, 2), "rg\n..\n");
    EXPECT_EQ(drawn(bytes, 0, 1, 2, 2), "..\nbw\n");
    EXPECT_EQ(drawn(bytes, -1, -1, 1, 1), "g\n");
    EXPECT_EQ(drawn(BmpHeader{2, -2}.bytes() + kTwoByTwo, 0, -1, 2, 2), "bw\n..\n");
    EXPECT_EQ(drawn(BmpHeader{2, -2}.bytes() + kTwoByTwo, 0, 1, 2, 2), "..\nrg\n");
}

TEST_F(IconBitmapTest, OutsideTheCanvasDrawsNothingAndSucceeds) {
    const std::string bytes = BmpHeader{2, 2}.bytes() + kTwoByTwo;
    for (const int x : {kLow, -2, 2, kHigh}) {
        EXPECT_EQ(drawn(bytes, x, 0, 2, 2), "..\n..\n") << x;
        EXPECT_EQ(drawn(bytes, 0, x, 2, 2), "..\n..\n") << x;
        EXPECT_EQ(drawn(bytes, x, x, 2, 2), "..\n..\n") << x;
    }
}

TEST_F(IconBitmapTest, RowsOfManyBytesAreDrawnLikeOthers) {
    const std::string black(3 * 23998, '\0');
    const std::string bytes =
        BmpHeader{24000, 2}.bytes() + black + kRed + kGreen + black + kBlue + kWhite;
    EXPECT_EQ(drawn(bytes, -23997, 0, 3, 2), ".bw\n.rg\n");
}

TEST_F(IconBitmapTest, PixelsStartWhereTheHeaderSays) {
    EXPECT_EQ(drawn(BmpHeader{2, 2, 24, 59}.bytes() + "12345" + kTwoByTwo, 0, 0, 2, 2), "bw\nrg\n");
}

TEST_F(IconBitmapTest, PixelsOnBothSidesOfWhatIsReadTogetherWithTheHeaderAreDrawnLikeOthers) {
    constexpr int kTogether = 54 + 64 * 64 * 4;
    for (int data = kTogether - 20; data <= kTogether + 4; ++data) {
        const std::string before(static_cast<std::size_t>(data) - 54, 'x');
        const std::string bytes = BmpHeader{2, 2, 24, data}.bytes() + before + kTwoByTwo;
        EXPECT_EQ(drawn(bytes, 0, 0, 2, 2), "bw\nrg\n") << data;
        EXPECT_EQ(drawn(bytes, -1, -1, 1, 1), "g\n") << data;
    }
}

TEST_F(IconBitmapTest, PixelsMayOverlapTheHeader) {
    // From byte 51 on: the last three bytes of the header are one pixel, its padding follows.
    const auto canvas = make_canvas(1, 1);
    write_file(path("pic.bmp"), BmpHeader{1, 1, 24, 51}.bytes() + "x");
    ASSERT_EQ(orvel_icon_draw_bitmap(canvas.get(), "pic", 0, 0), 0);
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 0, 0), (orvel_color{0x5a, 0x5a, 0x5a, 255}));
}

TEST_F(IconBitmapTest, CompressionIsNotLookedAt) {
    EXPECT_EQ(drawn(BmpHeader{2, 2, 24, 54, 3}.bytes() + kTwoByTwo, 0, 0, 2, 2), "bw\nrg\n");
}

// ---- Alpha

TEST_F(IconBitmapTest, AlphaZeroIsSkippedAndAnyOtherStored) {
    write_file(path("pic.bmp"),
               BmpHeader{3, 1, 32}.bytes() + std::string("\1\2\3\0\4\5\6\x80\7\x8\x9\1", 12));
    const auto canvas = make_canvas(3, 1);
    orvel_canvas_clear(canvas.get(), kInk);
    ASSERT_EQ(orvel_icon_draw_bitmap(canvas.get(), "pic", 0, 0), 0);
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 0, 0), kInk);
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 1, 0), (orvel_color{6, 5, 4, 128}));
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 2, 0), (orvel_color{9, 8, 7, 1}));
}

TEST_F(IconBitmapTest, ReadsBackWhatTheLibraryWrites) {
    const auto canvas = make_canvas(5, 3), opaque = make_canvas(5, 3);
    const auto from_24 = make_canvas(5, 3), from_32 = make_canvas(5, 3);
    for (int i = 0; i < 15; ++i) {
        const auto byte = static_cast<unsigned char>(i * 17);
        orvel_canvas_pixel(canvas.get(), i % 5, i / 5,
                           {byte, 200, 7, static_cast<unsigned char>(i + 1)});
        orvel_canvas_pixel(opaque.get(), i % 5, i / 5, {byte, 200, 7, 255});
    }
    ASSERT_EQ(orvel_canvas_save_bmp(canvas.get(), path("a.bmp").c_str()), 0);
    ASSERT_EQ(orvel_canvas_save_bmp_rgba(canvas.get(), path("b.bmp").c_str()), 0);
    EXPECT_EQ(orvel_icon_draw_bitmap(from_24.get(), "a", 0, 0), 0);
    EXPECT_EQ(orvel_icon_draw_bitmap(from_32.get(), "b", 0, 0), 0);
    EXPECT_EQ(checksum(from_24.get()), checksum(opaque.get()));
    EXPECT_EQ(checksum(from_32.get()), checksum(canvas.get()));
}

// ---- Files that end early

TEST_F(IconBitmapTest, ACutFileShowsTheRowsBeforeTheCut) {
    const std::string bytes = BmpHeader{2, 2}.bytes() + kTwoByTwo;
    EXPECT_EQ(drawn(bytes.substr(0, 54 + 8 + 6), 0, 0, 2, 2), "..\nrg\n");
    EXPECT_EQ(drawn(bytes.substr(0, 54 + 8), 0, 0, 2, 2), "..\nrg\n");
    EXPECT_EQ(drawn(bytes.substr(0, 54), 0, 0, 2, 2), "..\n..\n");
}

TEST_F(IconBitmapTest, ARowCountsOnlyWithItsPadding) {
    const std::string bytes = BmpHeader{2, 2}.bytes() + kTwoByTwo;
    EXPECT_EQ(drawn(bytes.substr(0, bytes.size() - 1), 0, 0, 2, 2), "..\nrg\n");
    EXPECT_EQ(drawn(bytes.substr(0, 54 + 7), 0, 0, 2, 2), "..\n..\n");
}

TEST_F(IconBitmapTest, ACutBelowTheCanvasHidesTheRowsAboveIt) {
    // The row that is cut would not be visible; those behind it are missing all the same.
    const std::string bytes = BmpHeader{2, 3}.bytes() + kTwoByTwo;
    EXPECT_EQ(drawn(bytes.substr(0, 54 + 4), 0, 0, 2, 2), "..\n..\n");
    EXPECT_EQ(drawn(bytes, 0, 0, 2, 2), "..\nbw\n");
}

// ---- What is no bitmap

TEST_F(IconBitmapTest, NullArgumentsFail) {
    const auto canvas = make_canvas(2, 2);
    EXPECT_EQ(orvel_icon_draw_bitmap(nullptr, "pic", 0, 0), -1);
    EXPECT_EQ(orvel_icon_draw_bitmap(canvas.get(), nullptr, 0, 0), -1);
}

TEST_F(IconBitmapTest, AMissingFileFails) {
    EXPECT_EQ(status_of("missing"), -1);
    EXPECT_EQ(status_of("missing.bmp"), -1);
    EXPECT_EQ(status_of(""), -1);
    EXPECT_EQ(status_of("folder"), -1) << "a built-in icon is not a bitmap";
}

TEST_F(IconBitmapTest, AShortOrForeignHeaderFails) {
    EXPECT_EQ(status_of_bytes(""), -1);
    EXPECT_EQ(status_of_bytes("BM"), -1);
    EXPECT_EQ(status_of_bytes(BmpHeader{1, 1}.bytes().substr(0, 53)), -1);
    EXPECT_EQ(status_of_bytes(BmpHeader{1, 1}.bytes()), 0);
    EXPECT_EQ(status_of_bytes("bm" + BmpHeader{1, 1}.bytes().substr(2) + kRed + " "), -1);
    EXPECT_EQ(status_of_bytes("BA" + BmpHeader{1, 1}.bytes().substr(2) + kRed + " "), -1);
}

TEST_F(IconBitmapTest, OtherDepthsFail) {
    for (const int bits : {0, 1, 4, 8, 16, 23, 25, 31, 33, 64, 24 * 256, 256 + 24, 65535}) {
        EXPECT_EQ(status_of_bytes(BmpHeader{1, 1, bits}.bytes() + kRed + " "), -1) << bits;
    }
}

TEST_F(IconBitmapTest, AFileFoundUnderAnotherExtensionIsNotABitmap) {
    write_file(path("logo.png"), "\x89PNG\r\n\x1a\n" + std::string(100, 'x'));
    EXPECT_EQ(status_of("logo"), -1);
    write_file(path("pic.bmp"), BmpHeader{2, 2}.bytes() + kTwoByTwo);
    write_file(path("pic.wav"), "RIFF" + std::string(100, 'x'));
    EXPECT_EQ(status_of("pic"), -1) << "the extensions have one order for all folders";
}

TEST_F(IconBitmapTest, ANameWithADotIsUsedAsItIs) {
    write_file(path("pic.wav"), BmpHeader{2, 2}.bytes() + kTwoByTwo);
    const auto canvas = make_canvas(2, 2);
    EXPECT_EQ(orvel_icon_draw_bitmap(canvas.get(), "pic.wav", 0, 0), 0);
    EXPECT_EQ(picture(canvas.get(), letters()), "bw\nrg\n");
}

}  // namespace
