#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "support/child.h"
#include "support/files.h"
#include "support/picture.h"

namespace {

using namespace orvel_test;

class BmpTest : public testing::Test {
protected:
    std::string saved(const orvel_canvas* canvas,
                      int (*save)(const orvel_canvas*, const char*)) const {
        const std::string path = folder_ / "picture.bmp";
        EXPECT_EQ(save(canvas, path.c_str()), 0);
        return read_file(path);
    }

    std::string saved24(const orvel_canvas* canvas) const {
        return saved(canvas, orvel_canvas_save_bmp);
    }
    std::string saved32(const orvel_canvas* canvas) const {
        return saved(canvas, orvel_canvas_save_bmp_rgba);
    }

    TempFolder folder_;
};

/// "42 4D" and so on; blanks and line ends are ignored.
std::string bytes(const std::string& hex) {
    std::string result;
    std::string digits;
    for (const char c : hex) {
        if (c == ' ') continue;
        digits += c;
        if (digits.size() < 2) continue;
        result += static_cast<char>(std::stoi(digits, nullptr, 16));
        digits.clear();
    }
    return result;
}

unsigned byte_at(const std::string& file, std::size_t offset) {
    return static_cast<unsigned char>(file.at(offset));
}

CanvasPtr two_by_two() {
    auto canvas = make_canvas(2, 2);
    orvel_canvas_pixel(canvas.get(), 0, 0, {0x11, 0x22, 0x33, 0x44});
    orvel_canvas_pixel(canvas.get(), 1, 0, {0x15, 0x25, 0x35, 0x45});
    orvel_canvas_pixel(canvas.get(), 0, 1, {0xA1, 0xA2, 0xA3, 0xA4});
    orvel_canvas_pixel(canvas.get(), 1, 1, {0xB1, 0xB2, 0xB3, 0x00});
    return canvas;
}

TEST_F(BmpTest, TwoByTwoIn24BitsIsTheseSeventyBytes) {
    EXPECT_EQ(saved24(two_by_two().get()),
              bytes("42 4D  46 00 00 00  00 00  00 00  36 00 00 00"
                    "28 00 00 00  02 00 00 00  02 00 00 00  01 00  18 00  00 00 00 00"
                    "00 00 00 00  00 00 00 00  00 00 00 00  00 00 00 00  00 00 00 00"
                    "A3 A2 A1  B3 B2 B1  00 00"
                    "33 22 11  35 25 15  00 00"));
}

TEST_F(BmpTest, TwoByTwoIn32BitsIsTheseSeventyBytes) {
    EXPECT_EQ(saved32(two_by_two().get()),
              bytes("42 4D  46 00 00 00  00 00  00 00  36 00 00 00"
                    "28 00 00 00  02 00 00 00  02 00 00 00  01 00  20 00  FF 00 00 00"
                    "00 00 00 00  00 00 00 00  00 00 00 00  00 00 00 00  00 00 00 00"
                    "A3 A2 A1 A4  B3 B2 B1 00"
                    "33 22 11 44  35 25 15 45"));
}

TEST_F(BmpTest, OneByOneIsFiftyEightBytesInBothForms) {
    const auto canvas = make_canvas(1, 1);
    orvel_canvas_pixel(canvas.get(), 0, 0, {0x11, 0x22, 0x33, 0x44});
    const std::string file24 = saved24(canvas.get());
    ASSERT_EQ(file24.size(), 58u);
    EXPECT_EQ(file24.substr(54), bytes("33 22 11 00"));
    const std::string file32 = saved32(canvas.get());
    ASSERT_EQ(file32.size(), 58u);
    EXPECT_EQ(file32.substr(54), bytes("33 22 11 44"));
}

TEST_F(BmpTest, RowsOf24BitsArePaddedWithZerosToMultiplesOfFour) {
    const struct {
        int width;
        std::size_t used, stored;
    } cases[] = {{1, 3, 4}, {2, 6, 8}, {3, 9, 12}, {4, 12, 12}, {5, 15, 16}, {6, 18, 20}};
    for (const auto& c : cases) {
        const auto canvas = make_canvas(c.width, 3);
        orvel_canvas_clear(canvas.get(), kInk);
        std::string row(c.stored, '\0');
        row.replace(0, c.used, c.used, '\xFF');
        const std::string file = saved24(canvas.get());
        ASSERT_EQ(file.size(), 54 + 3 * c.stored);
        EXPECT_EQ(byte_at(file, 2), 54 + 3 * c.stored);
        EXPECT_EQ(file.substr(54), row + row + row) << c.width;
    }
}

TEST_F(BmpTest, TheTopLeftPixelIsTheFirstOfTheLastRow) {
    const auto canvas = make_canvas(4, 3);
    orvel_canvas_clear(canvas.get(), {0, 0, 0, 0});
    orvel_canvas_pixel(canvas.get(), 0, 0, {1, 2, 3, 4});
    EXPECT_EQ(saved24(canvas.get()).substr(54 + 24, 3), bytes("03 02 01"));
    EXPECT_EQ(saved32(canvas.get()).substr(54 + 32, 4), bytes("03 02 01 04"));
    EXPECT_EQ(saved24(canvas.get()).substr(54, 24), std::string(24, '\0'));
}

TEST_F(BmpTest, TheCompressionFieldIs255In32BitsAnd0In24) {
    const auto canvas = make_canvas(3, 2);
    EXPECT_EQ(saved32(canvas.get()).substr(30, 4), bytes("FF 00 00 00"));
    EXPECT_EQ(saved24(canvas.get()).substr(30, 4), bytes("00 00 00 00"));
}

TEST_F(BmpTest, SizesOfAScreenAreLittleEndian) {
    const auto canvas = make_canvas(320, 240);
    const std::string file24 = saved24(canvas.get());
    EXPECT_EQ(file24.size(), 230454u);
    EXPECT_EQ(file24.substr(2, 4), bytes("36 84 03 00"));
    EXPECT_EQ(file24.substr(18, 8), bytes("40 01 00 00  F0 00 00 00"));
    const std::string file32 = saved32(canvas.get());
    EXPECT_EQ(file32.size(), 307254u);
    EXPECT_EQ(file32.substr(2, 4), bytes("36 B0 04 00"));
}

TEST_F(BmpTest, ANewCanvasIsOpaqueBlackInTheFile) {
    const auto canvas = make_canvas(2, 1);
    EXPECT_EQ(saved24(canvas.get()).substr(54), bytes("00 00 00 00 00 00 00 00"));
    EXPECT_EQ(saved32(canvas.get()).substr(54), bytes("00 00 00 FF 00 00 00 FF"));
}

TEST_F(BmpTest, RowsLongerThanAnyBufferAreWhole) {
    const int width = 100001;
    const auto canvas = make_canvas(width, 2);
    for (int x = 0; x < width; ++x) {
        const auto low = static_cast<unsigned char>(x), high = static_cast<unsigned char>(x >> 8);
        orvel_canvas_pixel(canvas.get(), x, 0, {low, high, 1, 2});
        orvel_canvas_pixel(canvas.get(), x, 1, {low, high, 3, 4});
    }
    std::string row24[2], row32[2];
    for (int row = 0; row < 2; ++row) {
        for (int x = 0; x < width; ++x) {
            const char last = row == 0 ? '\1' : '\3', alpha = row == 0 ? '\2' : '\4';
            const char pixel[] = {last, static_cast<char>(x >> 8), static_cast<char>(x), alpha};
            row24[row].append(pixel, 3);
            row32[row].append(pixel, 4);
        }
        row24[row] += '\0';  // 300003 bytes and one of padding
    }
    EXPECT_TRUE(saved24(canvas.get()).substr(54) == row24[1] + row24[0]);
    EXPECT_TRUE(saved32(canvas.get()).substr(54) == row32[1] + row32[0]);
}

TEST_F(BmpTest, AnExistingFileIsTruncated) {
    write_file(folder_ / "picture.bmp", std::string(10000, 'x'));
    const auto canvas = make_canvas(1, 1);
    EXPECT_EQ(saved24(canvas.get()).size(), 58u);
    write_file(folder_ / "picture.bmp", std::string(10000, 'x'));
    EXPECT_EQ(saved32(canvas.get()).size(), 58u);
}

TEST_F(BmpTest, SavingChangesNoPixelAndLogsNothing) {
    const auto canvas = two_by_two();
    const auto before = checksum(canvas.get());
    const Output output = captured([this, &canvas] {
        saved24(canvas.get());
        saved32(canvas.get());
        orvel_canvas_save_bmp(canvas.get(), "/no/such/folder/picture.bmp");
        orvel_canvas_save_bmp(nullptr, nullptr);
    });
    EXPECT_EQ(output.error + output.output, "");
    EXPECT_EQ(checksum(canvas.get()), before);
}

TEST_F(BmpTest, NullArgumentsFailAndTouchNoFile) {
    const auto canvas = make_canvas(1, 1);
    const std::string path = folder_ / "picture.bmp";
    for (const auto save : {orvel_canvas_save_bmp, orvel_canvas_save_bmp_rgba}) {
        EXPECT_EQ(save(nullptr, path.c_str()), -1);
        EXPECT_EQ(save(canvas.get(), nullptr), -1);
        EXPECT_EQ(save(nullptr, nullptr), -1);
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(BmpTest, APathThatCannotBeOpenedFails) {
    const auto canvas = make_canvas(1, 1);
    for (const auto save : {orvel_canvas_save_bmp, orvel_canvas_save_bmp_rgba}) {
        EXPECT_EQ(save(canvas.get(), (folder_ / "missing/picture.bmp").c_str()), -1);
        EXPECT_EQ(save(canvas.get(), folder_.path().c_str()), -1);  // a folder
        EXPECT_EQ(save(canvas.get(), ""), -1);
        EXPECT_EQ(save(canvas.get(), std::string(10000, 'n').c_str()), -1);
    }
    EXPECT_FALSE(std::filesystem::exists(folder_ / "missing"));
}

TEST_F(BmpTest, WithoutPermissionItFailsAndLeavesTheFileAlone) {
    const std::string locked = folder_ / "locked.bmp";
    write_file(locked, "kept");
    chmod(locked.c_str(), 0444);
    chmod(folder_.path().c_str(), 0555);
    const auto canvas = make_canvas(1, 1);
    const std::string fresh = folder_ / "new.bmp";
    EXPECT_EQ(as_another_user([&] {
                  if (orvel_canvas_save_bmp(canvas.get(), locked.c_str()) != -1) return 1;
                  if (orvel_canvas_save_bmp_rgba(canvas.get(), locked.c_str()) != -1) return 2;
                  if (orvel_canvas_save_bmp(canvas.get(), fresh.c_str()) != -1) return 3;
                  if (orvel_canvas_save_bmp_rgba(canvas.get(), fresh.c_str()) != -1) return 4;
                  return 0;
              }),
              0);
    EXPECT_EQ(read_file(locked), "kept");
    EXPECT_FALSE(std::filesystem::exists(fresh));
    chmod(folder_.path().c_str(), 0755);
}

TEST_F(BmpTest, AFullDiskIsNotNoticed) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "this system has no /dev/full";
    const auto canvas = make_canvas(320, 240);
    const int before = open_descriptors();
    EXPECT_EQ(orvel_canvas_save_bmp(canvas.get(), "/dev/full"), 0);
    EXPECT_EQ(orvel_canvas_save_bmp_rgba(canvas.get(), "/dev/full"), 0);
    EXPECT_EQ(open_descriptors(), before);
}

TEST_F(BmpTest, SavingLeavesNoDescriptorOpen) {
    const auto canvas = make_canvas(3, 3);
    const int before = open_descriptors();
    for (int i = 0; i < 20; ++i) {
        saved24(canvas.get());
        saved32(canvas.get());
        orvel_canvas_save_bmp(canvas.get(), (folder_ / "missing/picture.bmp").c_str());
    }
    EXPECT_EQ(open_descriptors(), before);
}

TEST_F(BmpTest, ClosedStandardStreamsHarmNothing) {
    const std::string path = folder_ / "picture.bmp";
    EXPECT_EQ(in_child([&path] {
                  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
                      close(descriptor);
                  }
                  const auto canvas = two_by_two();
                  return orvel_canvas_save_bmp(canvas.get(), path.c_str());
              }),
              0);
    EXPECT_EQ(read_file(path).substr(54), bytes("A3 A2 A1 B3 B2 B1 00 00 33 22 11 35 25 15 00 00"));
}

TEST_F(BmpTest, APathOfAnyBytesIsUsedAsItIs) {
    const auto canvas = make_canvas(1, 1);
    const std::string path = folder_ / "con spazi, \xC3\xA8 e senza estensione";
    EXPECT_EQ(orvel_canvas_save_bmp(canvas.get(), path.c_str()), 0);
    EXPECT_EQ(read_file(path).size(), 58u);
}

}  // namespace
