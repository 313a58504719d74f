// BDF fonts that are none, end early or mean harm; files that are no files; memory that runs out.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "orvel_kit.h"
#include "support/files.h"
#include "system/allocations.h"

namespace {

using namespace orvel_test;

struct CloseFace {
    void operator()(kit_face* face) const { kit_face_close(face); }
};
using FacePtr = std::unique_ptr<kit_face, CloseFace>;

const std::string kStart = "STARTFONT 2.1\nFONT_ASCENT 7\nFONT_DESCENT 2\n";
const std::string kLetter = "STARTCHAR A\nENCODING 65\nBBX 3 2 0 0\nBITMAP\nE0\nA0\nENDCHAR\n";
const std::string kEnd = "ENDFONT\n";

/// Why the font is refused; empty when it is not.
std::string refusal(const std::string& font) {
    char why[300] = "";
    const FacePtr face(kit_face_read(font.data(), font.size(), why, sizeof why));
    EXPECT_EQ(face == nullptr, why[0] != '\0') << why;
    return why;
}

std::string refusal_of_file(const std::string& path) {
    char why[300] = "";
    const FacePtr face(kit_face_open(path.c_str(), why, sizeof why));
    EXPECT_EQ(face == nullptr, why[0] != '\0') << why;
    return why;
}

std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) all += text;
    return all;
}

TEST(HostileFaceTest, WhatIsNoFontIsRefused) {
    EXPECT_EQ(refusal(""), "font: not a BDF font");
    EXPECT_EQ(refusal("\n\n"), "font:2: not a BDF font");
    EXPECT_EQ(refusal("COMMENT only\n"), "font:1: not a BDF font");
    EXPECT_EQ(refusal("ENDFONT\n"), "font:1: not a BDF font");
    EXPECT_EQ(refusal("\xEF\xBB\xBFSTARTFONT 2.1\n"), "font:1: not a BDF font");
    EXPECT_EQ(refusal(std::string(1000, '\0')), "font:1: not a BDF font");
    EXPECT_EQ(refusal(std::string("\1fcp\x0B\0\0\0", 8)), "font:1: not a BDF font");
    char why[100];
    EXPECT_EQ(kit_face_read(nullptr, 0, why, sizeof why), nullptr);
    EXPECT_STREQ(why, "font: not a BDF font");
    EXPECT_EQ(kit_face_read(nullptr, 100, why, sizeof why), nullptr);
    EXPECT_STREQ(why, "font: not a BDF font");
}

TEST(HostileFaceTest, AFontThatEndsEarlyIsRefusedWhereverItEnds) {
    const std::string font = kStart + kLetter + "ENDFONT";
    EXPECT_EQ(refusal(font), "");
    for (std::size_t length = 0; length < font.size(); ++length) {
        EXPECT_NE(refusal(font.substr(0, length)), "") << length;
    }
    EXPECT_EQ(refusal(kStart + kLetter), "font:10: the font ends without ENDFONT");
    EXPECT_EQ(refusal(kStart + "STARTCHAR A\n" + kEnd), "font:5: the font ends inside a letter");
    EXPECT_EQ(refusal(kStart + "STARTCHAR A\nENCODING 65\nBBX 3 2 0 0\nBITMAP\nENDFONT\n"),
              "font:8: the font ends inside a letter");
}

TEST(HostileFaceTest, AFontNeedsLettersAndLinesOfSomeHeight) {
    EXPECT_EQ(refusal(kStart + kEnd), "font:4: a font without letters");
    EXPECT_EQ(refusal(kStart + "STARTCHAR A\nENCODING -1\nBBX 0 0 0 0\nENDCHAR\n" + kEnd),
              "font:8: a font without letters");
    EXPECT_EQ(refusal("STARTFONT 2.1\n" + kLetter + kEnd), "font:9: lines of no height");
    EXPECT_EQ(refusal("STARTFONT 2.1\nFONTBOUNDINGBOX 5 8 0 -9\nFONT_DESCENT 0\n" + kLetter + kEnd),
              "font:11: lines of no height");
}

TEST(HostileFaceTest, ALetterNeedsACodeABoxAndItsRows) {
    const auto letter = [](const std::string& lines) {
        return refusal(kStart + "STARTCHAR A\n" + lines + kEnd);
    };
    EXPECT_EQ(letter("BBX 3 1 0 0\nBITMAP\nE0\nENDCHAR\n"), "font:8: a letter without ENCODING");
    EXPECT_EQ(letter("ENCODING 65\nENDCHAR\n"), "font:6: a letter without BBX");
    EXPECT_EQ(letter("ENCODING 65\nBITMAP\nE0\nENDCHAR\n"), "font:6: BITMAP comes before BBX");
    EXPECT_EQ(letter("ENCODING 65\nBBX 3 2 0 0\nENDCHAR\n"),
              "font:7: fewer rows than the letter is high");
    EXPECT_EQ(letter("ENCODING 65\nBBX 3 2 0 0\nBITMAP\nE0\nENDCHAR\n"),
              "font:9: fewer rows than the letter is high");
    EXPECT_EQ(letter("ENCODING 65\nBBX 3 1 0 0\nBITMAP\nE0\nE0\nENDCHAR\n"),
              "font:9: more rows than the letter is high");
    EXPECT_EQ(letter("ENCODING 65\nBBX 9 1 0 0\nBITMAP\nE0\nENDCHAR\n"),
              "font:8: a row shorter than the letter is wide");
    for (const char* row : {"EG", "Eg", "E-", "Ez"}) {
        EXPECT_EQ(letter(std::string("ENCODING 65\nBBX 3 1 0 0\nBITMAP\n") + row + "\nENDCHAR\n"),
                  "font:8: a row that is not hexadecimal");
    }
    EXPECT_EQ(letter("ENCODING 65\nBBX 3 1 0 0\nBITMAP\nE0:\nENDCHAR\n"),
              "font:8: a row that is not hexadecimal");
    EXPECT_EQ(letter("ENCODING 65\nBBX 3 1 0 0\nSTARTCHAR B\n"),
              "font:7: a letter begins inside another");
}

TEST(HostileFaceTest, NumbersThatMakeNoSenseAreRefused) {
    for (const char* code :
         {"", "x", "-2", "65x", "1114112", "2147483648", "-2147483649", "99999999999999999999",
          "-1 -2", "-1 1114112", "0x41", "6.5", "+ 65"}) {
        EXPECT_EQ(refusal(kStart + "STARTCHAR A\nENCODING " + code + "\n"),
                  "font:5: ENCODING is no character's code")
            << code;
    }
    for (const char* box :
         {"", "3 4 0", "3 4 0 x", "-1 4 0 0", "3 -4 0 0", "4097 4 0 0", "3 4097 0 0", "3 4 4097 0",
          "3 4 -4097 0", "3 4 0 4097", "3 4 0 -4097", "2147483647 2147483647 2147483647 2147483647",
          "-2147483648 -2147483648 -2147483648 -2147483648", "4294967299 4 0 0"}) {
        EXPECT_EQ(refusal(kStart + "STARTCHAR A\nBBX " + box + "\n"),
                  "font:5: BBX is no box of up to 4096 pixels")
            << box;
        EXPECT_EQ(refusal(kStart + "FONTBOUNDINGBOX " + box + "\n"),
                  "font:4: FONTBOUNDINGBOX is no box of up to 4096 pixels")
            << box;
    }
    for (const char* wide : {"DWIDTH -1 0", "DWIDTH 4097 0", "DWIDTH", "DWIDTH x", "SWIDTH -1",
                             "SWIDTH", "SWIDTH 2147483648"}) {
        const std::string reason = std::string(wide, 6) + " is no width of up to 4096 pixels";
        EXPECT_EQ(refusal(kStart + wide + "\n"), "font:4: " + reason) << wide;
        EXPECT_EQ(refusal(kStart + "STARTCHAR A\n" + wide + "\n"), "font:5: " + reason) << wide;
    }
    for (const char* height : {"FONT_ASCENT", "FONT_DESCENT", "CAP_HEIGHT"}) {
        for (const char* number : {"", " -1", " 4097", " \"7\""}) {
            EXPECT_EQ(refusal(kStart + height + number + "\n"),
                      "font:4: " + std::string(height) + " is no number from 0 to 4096");
        }
    }
    EXPECT_EQ(refusal(kStart + "DEFAULT_CHAR -1\n"),
              "font:4: DEFAULT_CHAR is no number from 0 to 1114111");
    EXPECT_EQ(refusal(kStart + "METRICSSET 1\n"),
              "font:4: the letters are for vertical writing only");
}

TEST(HostileFaceTest, TheLargestAndTheFurthestLetterAreRead) {
    const std::string row = std::string(1024, 'F') + "\n";
    EXPECT_EQ(refusal(kStart +
                      "STARTCHAR A\nENCODING 65\nDWIDTH 4096 0\nBBX 4096 4096 -4096 4096\n"
                      "BITMAP\n" +
                      repeated(row, 4096) + "ENDCHAR\n" + kEnd),
              "");
}

TEST(HostileFaceTest, OtherSetsOfCharactersAreRefusedByName) {
    const auto set = [](const std::string& lines) {
        return refusal("STARTFONT 2.1\n" + lines + kLetter + kEnd);
    };
    EXPECT_EQ(set("CHARSET_REGISTRY \"KOI8\"\nCHARSET_ENCODING \"R\"\n"),
              "font:4: the characters are those of KOI8-R, not of Unicode");
    EXPECT_EQ(set("CHARSET_REGISTRY \"ISO8859\"\nCHARSET_ENCODING \"2\"\n"),
              "font:4: the characters are those of ISO8859-2, not of Unicode");
    EXPECT_EQ(set("FONT -a-b-JISX0208.1983-0\n"),
              "font:3: the characters are those of JISX0208.1983-0, not of Unicode");
    EXPECT_EQ(set("FONT -x-\n"), "font:3: the characters are those of x-, not of Unicode");
}

TEST(HostileFaceTest, AReasonIsOneLineCutToItsRoomBetweenTwoCharacters) {
    const std::string font = "STARTFONT 2.1\nCHARSET_REGISTRY \"K\x01\x7Fö\"\n" + kLetter;
    char why[100];
    std::memset(why, 'x', sizeof why);
    EXPECT_EQ(kit_face_read(font.data(), font.size(), why, sizeof why), nullptr);
    EXPECT_STREQ(why, "font:3: the characters are those of K??ö-, not of Unicode");
    for (std::size_t size = 1; size < 60; ++size) {
        std::memset(why, 'x', sizeof why);
        EXPECT_EQ(kit_face_read(font.data(), font.size(), why, size), nullptr);
        const std::string all = "font:3: the characters are those of K??ö-, not of Unicode";
        const std::size_t length = size == 41 ? 39 : std::min(size - 1, all.size());
        EXPECT_EQ(std::string(why), all.substr(0, length)) << size;
        EXPECT_EQ(why[size], 'x') << size;
    }
    EXPECT_EQ(kit_face_read(font.data(), font.size(), why, 0), nullptr);
    EXPECT_EQ(why[0], 'f');
    EXPECT_EQ(kit_face_read(font.data(), font.size(), nullptr, 100), nullptr);
}

TEST(HostileFaceTest, AFontOfSixteenMebibytesIsReadAndALongerOneRefused) {
    constexpr std::size_t kMost = std::size_t{16} << 20;
    std::string font = kStart + kLetter;
    font += "COMMENT " + std::string(kMost - font.size() - 8 - 1 - kEnd.size(), 'x') + "\n" + kEnd;
    ASSERT_EQ(font.size(), kMost);
    EXPECT_EQ(refusal(font), "");
    const TempFolder folder;
    write_file(folder / "font.bdf", font);
    EXPECT_EQ(refusal_of_file(folder / "font.bdf"), "");
    font += "\n";
    EXPECT_EQ(refusal(font), "font: larger than 16 MiB");
    write_file(folder / "font.bdf", font);
    EXPECT_EQ(refusal_of_file(folder / "font.bdf"), folder / "font.bdf: larger than 16 MiB");
    char why[100];
    EXPECT_EQ(kit_face_read(font.data(), static_cast<std::size_t>(-1), why, sizeof why), nullptr);
    EXPECT_STREQ(why, "font: larger than 16 MiB");
}

TEST(HostileFaceTest, MemoryStaysInProportionToTheFont) {
    const std::string smallest = "STARTCHAR\nENCODING 1\nBBX 0 0 0 0\nENDCHAR\n";
    const std::string high = "STARTCHAR\nENCODING 1\nBBX 0 4096 0 0\nENDCHAR\n";
    const std::string row =
        "STARTCHAR\nENCODING 1\nBBX 1 9 0 0\nBITMAP\n" + repeated("F\n", 9) + "ENDCHAR\n";
    const std::string speckled = "STARTCHAR\nENCODING 1\nBBX 16 16 0 0\nBITMAP\n" +
                                 repeated("AAAA\n5555\n", 8) + "ENDCHAR\n";
    for (const std::string& letter : {smallest, high, row, speckled}) {
        const std::string font = kStart + repeated(letter, 20000) + kEnd;
        forget_largest_allocation();
        EXPECT_EQ(refusal(font), "");
        EXPECT_LE(largest_allocation(), font.size());
    }
}

TEST(HostileFaceTest, SixteenMebibytesOfAnythingEndSoon) {
    constexpr int kLines = 1 << 20;
    EXPECT_EQ(refusal(kStart + repeated("STARTCHAR x\n", 2)),
              "font:5: a letter begins inside another");
    EXPECT_EQ(refusal(kStart + repeated("COMMENT 6789012\n", kLines - 10)),
              "font:1048569: the font ends without ENDFONT");
    EXPECT_EQ(refusal(kStart + std::string(16 * kLines - 100, '\n')),
              "font:16777119: the font ends without ENDFONT");
    std::string backwards = kStart;
    for (int code = 300000; code > 0; --code) {
        backwards += "STARTCHAR\nENCODING " + std::to_string(code * 2) + "\nBBX 0 0 0 0\nENDCHAR\n";
    }
    EXPECT_EQ(refusal(backwards + kEnd), "");
}

// ---- Files

TEST(HostileFileTest, WhatCannotBeReadIsRefusedByName) {
    const TempFolder folder;
    EXPECT_EQ(refusal_of_file(folder / "none.bdf"), folder / "none.bdf: cannot be read");
    EXPECT_EQ(refusal_of_file(folder.path()), folder.path() + ": cannot be read");
    EXPECT_EQ(refusal_of_file(""), ": cannot be read");
    write_file(folder / "empty.bdf", "");
    EXPECT_EQ(refusal_of_file(folder / "empty.bdf"), folder / "empty.bdf: not a BDF font");
    char why[100];
    EXPECT_EQ(kit_face_open(nullptr, why, sizeof why), nullptr);
    EXPECT_STREQ(why, "font: cannot be read");
}

TEST(HostileFileTest, AFifoAndADeviceDoNotBlock) {
    const TempFolder folder;
    const std::string path = folder / "fifo";
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(refusal_of_file(path), path + ": not a BDF font");
    const int writer = open(path.c_str(), O_RDWR);  // who never writes
    ASSERT_GE(writer, 0);
    EXPECT_EQ(refusal_of_file(path), path + ": cannot be read");
    close(writer);
    EXPECT_EQ(refusal_of_file("/dev/zero"), "/dev/zero: larger than 16 MiB");
    EXPECT_EQ(refusal_of_file("/dev/null"), "/dev/null: not a BDF font");
}

TEST(HostileFileTest, NoDescriptorStaysOpen) {
    const TempFolder folder;
    write_file(folder / "font.bdf", kStart + kLetter + kEnd);
    const int before = open("/dev/null", O_RDONLY);
    close(before);
    EXPECT_EQ(refusal_of_file(folder / "font.bdf"), "");
    EXPECT_NE(refusal_of_file(folder.path()), "");
    const int after = open("/dev/null", O_RDONLY);
    close(after);
    EXPECT_EQ(after, before);
}

// ---- Memory that runs out

/// Makes every allocation of @p call fail in turn, until it succeeds; it must then have failed with
/// the reason before, and leave nothing behind. Returns how many there were.
template <typename Call>
int fail_each_allocation(Call call) {
    for (int number = 1; number < 1000; ++number) {
        const long live = allocations_live();
        char why[100] = "";
        kit_face* face = nullptr;
        {
            const FailingAllocation failing(number);
            face = call(why, sizeof why);
        }
        if (face) {
            kit_face_close(face);
            EXPECT_EQ(allocations_live(), live);
            return number - 1;
        }
        EXPECT_STREQ(why, "out of memory");
        EXPECT_EQ(allocations_live(), live) << number;
    }
    return -1;
}

TEST(FaceMemoryTest, AFontInMemoryIsRefusedWhereverItRunsOut) {
    const std::string font = kStart + "DEFAULT_CHAR 65\n" + kLetter + repeated(kLetter, 20) + kEnd;
    EXPECT_GT(fail_each_allocation([&font](char* why, std::size_t size) {
                  return kit_face_read(font.data(), font.size(), why, size);
              }),
              8);
}

TEST(FaceMemoryTest, AFontInAFileIsRefusedWhereverItRunsOut) {
    const TempFolder folder;
    const std::string path = folder / "a font with a name that is stored apart.bdf";
    write_file(path, kStart + kLetter + kEnd + std::string(100000, '\n'));
    EXPECT_GT(fail_each_allocation([&path](char* why, std::size_t size) {
                  return kit_face_open(path.c_str(), why, size);
              }),
              8);
}

TEST(FaceMemoryTest, ARefusalThatRunsOutOfMemorySaysThat) {
    const std::string font =
        "STARTFONT 2.1\nCHARSET_REGISTRY " + std::string(200, 'x') + "\n" + kLetter + kEnd;
    int refused_for_memory = 0;
    for (int number = 1; number < 20; ++number) {
        const long live = allocations_live();
        char why[40] = "";
        {
            const FailingAllocation failing(number);
            EXPECT_EQ(kit_face_read(font.data(), font.size(), why, sizeof why), nullptr);
        }
        const bool for_memory = std::strcmp(why, "out of memory") == 0;
        if (!for_memory) {
            EXPECT_STREQ(why, "font:3: the characters are those of xxx");
        }
        refused_for_memory += for_memory;
        EXPECT_EQ(allocations_live(), live);
    }
    EXPECT_GT(refused_for_memory, 2);
}

TEST(FaceMemoryTest, AChainIsNullWhereMemoryRunsOut) {
    EXPECT_EQ(fail_each_allocation([](char* why, std::size_t size) {
                  std::strncpy(why, "out of memory", size);
                  return kit_face_fallback(kit_sans_12(), kit_bold_12());
              }),
              1);
}

}  // namespace
