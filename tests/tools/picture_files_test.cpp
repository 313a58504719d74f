// PNG and BMP files as the tools read and write them: what is kept, and what is refused.
#include <gtest/gtest.h>

#include "picture.h"
#include "support/cases.h"
#include "support/files.h"
#include "support/picture.h"
#include "support/random.h"
#include "tools/png.h"

namespace {

using namespace orvel_test;
using orvel_tools::Bytes;
using orvel_tools::Picture;

class PictureFiles : public testing::Test {
protected:
    TempFolder folder;

    std::string written(const Picture& picture) {
        const std::string path = folder / "picture.png";
        std::string error;
        EXPECT_TRUE(orvel_tools::write_png(picture, path, error)) << error;
        return path;
    }

    void expect_kept(const Picture& picture) {
        const std::string path = written(picture);
        std::string error;
        const auto ours = orvel_tools::read_picture(path, error);
        ASSERT_TRUE(ours) << error;
        const Picture theirs = read_png(path);
        ASSERT_EQ(ours->width, picture.width);
        ASSERT_EQ(ours->height, picture.height);
        EXPECT_TRUE(ours->pixels == picture.pixels);
        EXPECT_TRUE(theirs.pixels == picture.pixels);
    }

    static std::optional<Picture> decoded(const Bytes& bytes, std::string& error) {
        Picture picture;
        if (!orvel_tools::decode_picture(bytes, "it", picture, error)) return std::nullopt;
        return picture;
    }

    void expect_refused(const std::string& bytes, const std::string& reason) {
        std::string error;
        EXPECT_FALSE(decoded(Bytes(bytes.begin(), bytes.end()), error));
        EXPECT_EQ(error, "it: " + reason);
    }
};

/// A picture with exactly @p colors colours.
Picture painted(int width, int height, int colors, bool opaque) {
    Picture picture;
    picture.width = width;
    picture.height = height;
    for (int i = 0; i < width * height; ++i) {
        const int n = i % colors;
        const auto low = static_cast<unsigned char>(n), high = static_cast<unsigned char>(n >> 8);
        const auto alpha = static_cast<unsigned char>(opaque ? 255 : n);
        picture.pixels.push_back({low, high, 7, alpha});
    }
    return picture;
}

TEST_F(PictureFiles, EveryNumberOfColoursIsKeptWithAndWithoutAlpha) {
    for (const int colors : {1, 2, 3, 4, 5, 15, 16, 17, 255, 256, 257, 1000}) {
        for (const bool opaque : {true, false}) {
            SCOPED_TRACE(colors);
            expect_kept(painted(37, 31, colors, opaque));
        }
    }
}

TEST_F(PictureFiles, AnyPictureIsKept) {
    Random random(7);
    for (int round = 0; round < 200; ++round) {
        Picture picture = painted(random.between(1, 70), random.between(1, 40), 1, true);
        const int channels = random.between(1, 255);
        for (orvel_color& pixel : picture.pixels) {
            const auto any = [&] {
                return static_cast<unsigned char>(random.between(0, channels));
            };
            pixel = {any(), any(), any(), any()};
        }
        expect_kept(picture);
    }
}

TEST_F(PictureFiles, AScreenOfFewColoursIsASmallFile) {
    const std::string path = written(painted(800, 480, 16, true));
    EXPECT_LT(read_file(path).size(), 2000u);
}

TEST_F(PictureFiles, ALineBreakInANameDoesNotBreakTheMessage) {
    std::string error;
    EXPECT_FALSE(orvel_tools::read_picture(folder / "a\nb\xff.png", error));
    EXPECT_EQ(error, folder.path() + "/a\\nb\\xff.png: No such file or directory");
}

TEST_F(PictureFiles, WhatIsNoPictureIsRefusedHoweverLongItIs) {
    std::string error;
    EXPECT_FALSE(orvel_tools::read_picture("/dev/zero", error));
    EXPECT_EQ(error, "/dev/zero: neither a PNG nor a BMP file");
    EXPECT_FALSE(orvel_tools::read_picture(folder.path(), error));
    EXPECT_EQ(error, folder.path() + ": Is a directory");
}

TEST_F(PictureFiles, EveryTruncationIsRefused) {
    for (const bool opaque : {true, false}) {
        const std::string bytes = read_file(written(painted(9, 9, 60, opaque)));
        for (std::size_t length = 0; length < bytes.size(); ++length) {
            std::string error;
            const Bytes cut(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length));
            ASSERT_FALSE(decoded(cut, error)) << length;
            ASSERT_EQ(error.rfind("it: ", 0), 0u);
        }
    }
}

TEST_F(PictureFiles, EveryFlippedBitIsRefused) {
    const std::string bytes = read_file(written(painted(9, 9, 300, false)));
    for (std::size_t bit = 0; bit < 8 * bytes.size(); ++bit) {
        Bytes flipped(bytes.begin(), bytes.end());
        flipped[bit / 8] ^= static_cast<unsigned char>(1u << bit % 8);
        std::string error;
        ASSERT_FALSE(decoded(flipped, error)) << "bit " << bit;
    }
}

TEST_F(PictureFiles, BytesOfAnyKindAreReadOrRefusedInOneLine) {
    const std::string png = read_file(written(painted(9, 9, 60, false)));
    const auto canvas = make_canvas(5, 4);
    ASSERT_EQ(orvel_canvas_save_bmp_rgba(canvas.get(), (folder / "it.bmp").c_str()), 0);
    const std::string bmp = read_file(folder / "it.bmp");
    for (const auto number : cases(20000)) {
        Random random(static_cast<unsigned>(number));
        const std::string& from = number % 2 ? png : bmp;
        Bytes bytes(from.begin(), from.end());
        for (int i = random.between(1, 6); i > 0; --i) {
            const int at = random.between(2, static_cast<int>(bytes.size()) - 1);
            bytes[static_cast<std::size_t>(at)] =
                static_cast<unsigned char>(random.between(0, 255));
        }
        std::string error;
        const auto picture = decoded(bytes, error);
        if (picture) {
            ASSERT_EQ(picture->pixels.size(), static_cast<std::size_t>(picture->width) *
                                                  static_cast<std::size_t>(picture->height));
        } else {
            ASSERT_EQ(error.rfind("it: ", 0), 0u);
            ASSERT_EQ(error.find('\n'), std::string::npos);
        }
    }
}

std::string big_endian(std::uint32_t number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift & 255);
    return bytes;
}

std::string chunk(const std::string& type, const std::string& data) {
    std::uint32_t sum = 0xffffffff;
    for (const char letter : type + data) {
        sum ^= static_cast<unsigned char>(letter);
        for (int bit = 0; bit < 8; ++bit) sum = sum >> 1 ^ (sum & 1 ? 0xedb88320u : 0);
    }
    return big_endian(static_cast<std::uint32_t>(data.size())) + type + data + big_endian(~sum);
}

std::string png_of(std::uint32_t width, std::uint32_t height, char depth, char type,
                   const std::string& rest) {
    const std::string tail = {depth, type, 0, 0, 0};
    return "\x89PNG\r\n\x1a\n" + chunk("IHDR", big_endian(width) + big_endian(height) + tail) +
           rest;
}

TEST_F(PictureFiles, AFileOf16BitsAChannelIsRefused) {
    expect_refused(png_of(1, 1, 16, 2, chunk("IDAT", "")),
                   "16 bits a channel; only PNG files of up to 8 are compared");
}

TEST_F(PictureFiles, AnAnimationIsRefused) {
    expect_refused(png_of(1, 1, 8, 2, chunk("acTL", std::string(8, '\1')) + chunk("IDAT", "")),
                   "an animation; only still pictures are compared");
}

TEST_F(PictureFiles, AFewBytesCannotClaimMorePixelsThanAreRead) {
    expect_refused(png_of(900000, 900000, 8, 2, chunk("IDAT", "")), "too many pixels");
    std::string error;
    const std::string larger = png_of(1000001, 1, 8, 2, chunk("IDAT", ""));
    EXPECT_FALSE(decoded(Bytes(larger.begin(), larger.end()), error));
}

}  // namespace
