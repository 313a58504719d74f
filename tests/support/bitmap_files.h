// BMP files for tests, good and bad.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/files.h"
#include "support/picture.h"

namespace orvel_test {

/// What a header says; the rest of it is filled with bytes that must not matter.
struct BmpHeader {
    int width, height;
    int bits = 24;
    int data = 54;
    int compression = 0;

    std::string bytes() const {
        std::string header(54, '\x5a');
        header.replace(0, 2, "BM");
        put(header, 10, data);
        put(header, 18, width);
        put(header, 22, height);
        header[28] = static_cast<char>(bits % 256);
        header[29] = static_cast<char>(bits / 256);
        put(header, 30, compression);
        return header;
    }

private:
    static void put(std::string& bytes, std::size_t at, int value) {
        for (std::size_t i = 0; i < 4; ++i) {
            bytes[at + i] = static_cast<char>(static_cast<unsigned>(value) >> (8 * i) & 255);
        }
    }
};

// Pixels as a file stores them: blue, green, red.
inline const std::string kRed("\x00\x00\xff", 3), kGreen("\x00\xff\x00", 3),
    kBlue("\xff\x00\x00", 3);
inline const std::string kWhite("\xff\xff\xff", 3);
/// Red and green, then blue and white, each row with its padding.
inline const std::string kTwoByTwo =
    kRed + kGreen + std::string(2, '\0') + kBlue + kWhite + std::string(2, '\0');

/// Draws files of the folder "Icons" of a resource root of its own.
class BitmapTest : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::create_directories(root_ / "Icons");
        ASSERT_EQ(orvel_set_resource_path(root_.path().c_str()), 0);
    }
    void TearDown() override { orvel_set_resource_path(""); }

    std::string path(const std::string& file) const { return root_ / ("Icons/" + file); }

    /// Draws a file of these bytes and returns the picture, or the status when it is not 0.
    std::string drawn(const std::string& bytes, int x, int y, int width, int height) {
        write_file(path("pic.bmp"), bytes);
        const auto canvas = make_canvas(width, height);
        const int status = orvel_icon_draw_bitmap(canvas.get(), "pic", x, y);
        return status == 0 ? picture(canvas.get(), letters()) : std::to_string(status);
    }
    int status_of(const std::string& name) {
        const auto canvas = make_canvas(4, 4);
        const int status = orvel_icon_draw_bitmap(canvas.get(), name.c_str(), 0, 0);
        EXPECT_EQ(picture(canvas.get()), "....\n....\n....\n....\n");
        return status;
    }
    int status_of_bytes(const std::string& bytes) {
        write_file(path("pic.bmp"), bytes);
        return status_of("pic");
    }

    /// Black is a dot, the colours above their first letters.
    static const Palette& letters() {
        static const Palette palette = {{'.', kBlack},
                                        {'r', {255, 0, 0, 255}},
                                        {'g', {0, 255, 0, 255}},
                                        {'b', {0, 0, 255, 255}},
                                        {'w', {255, 255, 255, 255}}};
        return palette;
    }

    const TempFolder root_;
};

}  // namespace orvel_test
