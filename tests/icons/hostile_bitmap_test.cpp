// Icons from BMP files that mean harm: any numbers, any bytes, any kind of file.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>

#include "models/bitmap_model.h"
#include "support/bitmap_files.h"
#include "support/cases.h"
#include "support/files.h"
#include "support/picture.h"
#include "system/allocations.h"

namespace {

using namespace orvel_test;

constexpr int kLow = std::numeric_limits<int>::min(), kHigh = std::numeric_limits<int>::max();

class HostileBitmapTest : public BitmapTest {
protected:
    /// A read or a step for each of 2^31 invisible rows or pixels takes about a second, and so many
    /// of them longer than a test may.
    static void draw_many_times(int x = 0, int y = 0) {
        const auto canvas = make_canvas(2, 2);
        for (int turn = 0; turn < 1000; ++turn) {
            ASSERT_EQ(orvel_icon_draw_bitmap(canvas.get(), "pic", x, y), 0);
        }
    }
};

// ---- Numbers that make no sense

TEST_F(HostileBitmapTest, NoRows) {
    EXPECT_EQ(drawn(BmpHeader{2, 0}.bytes() + kTwoByTwo, 0, 0, 2, 2), "..\n..\n");
}

TEST_F(HostileBitmapTest, TheLowestHeightMeansTwoToTheThirtyOneRowsFromTheTop) {
    EXPECT_EQ(drawn(BmpHeader{2, kLow}.bytes() + kTwoByTwo, 0, 0, 2, 3), "rg\nbw\n..\n");
}

TEST_F(HostileBitmapTest, MoreRowsThanTheFileHas) {
    EXPECT_EQ(drawn(BmpHeader{2, -kHigh}.bytes() + kTwoByTwo, 0, 0, 2, 3), "rg\nbw\n..\n");
    // The first stored row is 2^31 - 2 rows below the top.
    EXPECT_EQ(drawn(BmpHeader{2, kHigh}.bytes() + kTwoByTwo, 0, -(kHigh - 2), 2, 3),
              "bw\nrg\n..\n");
}

TEST_F(HostileBitmapTest, NoColumns) {
    for (const BmpHeader& header : {BmpHeader{0, kHigh}, BmpHeader{0, -kHigh, 32}}) {
        EXPECT_EQ(drawn(header.bytes() + kTwoByTwo, 0, 0, 2, 2), "..\n..\n");
        draw_many_times();
    }
}

TEST_F(HostileBitmapTest, ARowOfNoBytes) {
    // 2^30 pixels of 4 bytes and 2^32 - 1 of 3 both come to 0 in 32 bits.
    for (const BmpHeader& header : {BmpHeader{0x40000000, kHigh, 32}, BmpHeader{-1, kHigh}}) {
        EXPECT_EQ(drawn(header.bytes() + kTwoByTwo, 0, 0, 2, 2), "..\n..\n");
        draw_many_times();
    }
}

TEST_F(HostileBitmapTest, ANegativeWidthDrawsNothing) {
    // -(2^30 - 1) pixels of 4 bytes wrap to a row of 4.
    EXPECT_EQ(drawn(BmpHeader{-0x3fffffff, 2, 32}.bytes() + kTwoByTwo, 0, 0, 2, 2), "..\n..\n");
}

TEST_F(HostileBitmapTest, AWidthThatWrapsIsReadNoFurtherThanItsRow) {
    const std::string opaque = kRed + "\xff" + kGreen + "\xff" + kBlue + "\xff";
    // 2^30 + 1 pixels of 4 bytes wrap to a row of one.
    EXPECT_EQ(drawn(BmpHeader{0x40000001, 3, 32}.bytes() + opaque, 0, 0, 3, 3), "b..\ng..\nr..\n");
    // 0x55555556 pixels of 3 bytes wrap to 2, rounded up to 4: one pixel and one byte.
    EXPECT_EQ(drawn(BmpHeader{0x55555556, 3}.bytes() + opaque, 0, 0, 3, 3), "b..\ng..\nr..\n");
    EXPECT_EQ(drawn(BmpHeader{0x40000001, 3, 32}.bytes() + opaque, -1, 0, 3, 3), "...\n...\n...\n");
}

TEST_F(HostileBitmapTest, AnOffsetOutsideTheFileDrawsNothing) {
    for (const int data : {-1, -8, kLow, 1000, kHigh}) {
        EXPECT_EQ(drawn(BmpHeader{2, 2, 24, data}.bytes() + kTwoByTwo, 0, 0, 2, 2), "..\n..\n")
            << data;
    }
}

// 2^29 pixels of 4 bytes are 2^31, which is negative as a row's length.
TEST_F(HostileBitmapTest, ANegativeRowLengthRaisesTheLengthErrorFirst) {
    const auto canvas = make_canvas(2, 2);
    for (const int height : {1, 0, kLow, kHigh}) {
        for (const int data : {54, -1, kHigh}) {
            write_file(path("pic.bmp"), BmpHeader{0x20000000, height, 32, data}.bytes());
            EXPECT_THROW(orvel_icon_draw_bitmap(canvas.get(), "pic", 0, 0), std::length_error);
        }
    }
    write_file(path("pic.bmp"), BmpHeader{-2, 2}.bytes());  // -6, rounded up to -4
    EXPECT_THROW(orvel_icon_draw_bitmap(canvas.get(), "pic", 5, 5), std::length_error);
    write_file(path("pic.bmp"), BmpHeader{0x2aaaaaaa, 2}.bytes());  // 2^31 - 2 has no multiple of 4
    EXPECT_THROW(orvel_icon_draw_bitmap(canvas.get(), "pic", 0, 0), std::length_error);
}

TEST_F(HostileBitmapTest, TheDepthIsJudgedBeforeTheRowLength) {
    EXPECT_EQ(status_of_bytes(BmpHeader{0x20000000, 1, 16}.bytes()), -1);
}

// ---- Memory and steps

TEST_F(HostileBitmapTest, ARowOfTwoGibibytesIsNotAllocatedForAShortFile) {
    const std::string bytes = BmpHeader{0x1fffffff, 1, 32}.bytes() + kTwoByTwo;
    forget_largest_allocation();
    EXPECT_EQ(drawn(bytes, 0, 0, 2, 2), "..\n..\n");
    EXPECT_LT(largest_allocation(), 100000u);
}

TEST_F(HostileBitmapTest, ARowOfTwoGibibytesIsReadOnlyWhereItIsSeen) {
    write_file(path("pic.bmp"),
               BmpHeader{0x1fffffff, 1, 32}.bytes() + kRed + "\xff" + kGreen + "\xff");
    std::filesystem::resize_file(path("pic.bmp"), 54 + std::uintmax_t(0x7ffffffc));  // sparse
    const auto canvas = make_canvas(3, 1);
    forget_largest_allocation();
    EXPECT_EQ(orvel_icon_draw_bitmap(canvas.get(), "pic", 0, 0), 0);
    EXPECT_EQ(picture(canvas.get(), letters()), "rg.\n");
    EXPECT_EQ(orvel_icon_draw_bitmap(canvas.get(), "pic", 1, 0), 0);
    EXPECT_EQ(picture(canvas.get(), letters()), "rrg\n");
    for (const int x : {0, 1, -0x1ffffffe}) draw_many_times(x);
    EXPECT_LT(largest_allocation(), 100000u);
}

TEST_F(HostileBitmapTest, AMillionInvisibleRowsAreNotRead) {
    write_file(path("pic.bmp"), BmpHeader{1, -500000000}.bytes() + kRed + " ");
    std::filesystem::resize_file(path("pic.bmp"), 54 + 4 * std::uintmax_t(500000000));  // sparse
    const auto canvas = make_canvas(1, 2);
    EXPECT_EQ(orvel_icon_draw_bitmap(canvas.get(), "pic", 0, 1), 0);
    EXPECT_EQ(picture(canvas.get(), letters()), ".\nr\n");
    for (const int y : {1, -400000000}) draw_many_times(0, y);
}

// ---- Other kinds of file

TEST_F(HostileBitmapTest, FoldersAndDevicesFail) {
    std::filesystem::create_directories(path("folder.bmp"));
    EXPECT_EQ(status_of("folder.bmp"), -1);
    EXPECT_EQ(status_of("folder"), -1);
    std::filesystem::create_symlink("/dev/zero", path("zero.bmp"));
    EXPECT_EQ(status_of("zero"), -1);
    std::filesystem::create_symlink("/dev/null", path("null.bmp"));
    EXPECT_EQ(status_of("null"), -1);
}

TEST_F(HostileBitmapTest, AFifoDoesNotBlock) {
    ASSERT_EQ(mkfifo(path("pipe.bmp").c_str(), 0600), 0);
    EXPECT_EQ(status_of("pipe"), -1);
    EXPECT_EQ(status_of("pipe.bmp"), -1);
}

TEST_F(HostileBitmapTest, AFifoWithAHeaderIsAcceptedAndDrawsNothing) {
    // Its rows cannot be reached, because it has no positions.
    ASSERT_EQ(mkfifo(path("pipe.bmp").c_str(), 0600), 0);
    const int both_ends = open(path("pipe.bmp").c_str(), O_RDWR | O_NONBLOCK);
    ASSERT_GE(both_ends, 0);
    const std::string bytes = BmpHeader{2, 2}.bytes() + kTwoByTwo;
    ASSERT_EQ(write(both_ends, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    EXPECT_EQ(status_of("pipe.bmp"), 0);
    close(both_ends);
}

TEST_F(HostileBitmapTest, EveryWayOutClosesTheFile) {
    const auto open_files = [] {
        const std::filesystem::directory_iterator files("/dev/fd");
        return std::distance(begin(files), end(files));
    };
    const auto before = open_files();
    status_of_bytes("BM");
    status_of_bytes("PM" + BmpHeader{2, 2}.bytes().substr(2));
    status_of_bytes(BmpHeader{2, 2, 8}.bytes());
    drawn(BmpHeader{2, 2}.bytes() + kTwoByTwo, 0, 0, 2, 2);
    drawn(BmpHeader{0, 2}.bytes(), 0, 0, 2, 2);
    drawn(BmpHeader{2, 2}.bytes(), 0, 0, 2, 2);
    EXPECT_THROW(drawn(BmpHeader{0x20000000, 1, 32}.bytes(), 0, 0, 2, 2), std::length_error);
    EXPECT_EQ(open_files(), before);
}

// ---- Against the model

TEST_F(HostileBitmapTest, AnyFileIsDrawnAsTheModelDrawsIt) {
    for (const std::uint64_t i : some_cases(150)) {
        std::mt19937 random(static_cast<unsigned>(i));
        const auto below = [&random](int limit) {
            return static_cast<int>(random() % unsigned(limit));
        };
        // Some rows are shorter than a block of the reader's, some longer, most files take several.
        const int width = 1 + below(i % 10 == 0 ? 30000 : 300),
                  height = 1 + below(i % 10 == 0 ? 9 : 500);
        const BmpHeader header = {width, below(2) ? height : -height, below(2) ? 24 : 32,
                                  54 + below(9)};
        std::string bytes = header.bytes();
        const int stride = (width * header.bits / 8 + 3) / 4 * 4;
        const int whole = header.data - 54 + stride * height;
        const int present = below(3) ? whole : below(whole + 1);
        for (int b = 0; b < present; ++b) bytes += static_cast<char>(random() % 5 * 60);
        write_file(path("pic.bmp"), bytes);
        const auto actual = make_canvas(200, 150), expected = make_canvas(200, 150);
        const int x = below(2) ? 0 : 100 - below(width + 100), y = 75 - below(height + 75);
        ASSERT_EQ(orvel_icon_draw_bitmap(actual.get(), "pic", x, y), 0);
        BitmapModel(bytes).draw(expected.get(), x, y);
        ASSERT_EQ(checksum(actual.get()), checksum(expected.get()))
            << "file " << i << ": " << width << " x " << header.height << ", " << header.bits
            << " bits, " << bytes.size() << " bytes, at (" << x << ", " << y << ")";
    }
}

}  // namespace
