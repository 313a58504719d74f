// What goes out to panels and files.
#include "panel.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "picture_file.h"
#include "support/files.h"
#include "support/picture.h"
#include "tools/png.h"

namespace {

using orvel_test::make_canvas;
using orvel_tools::Outlet;
using orvel_tools::panel_named;
using orvel_tools::Picture;

constexpr orvel_color kWhite = {255, 255, 255, 255}, kRed = {250, 10, 10, 255};
constexpr orvel_color kGrey = {136, 136, 136, 255};

std::string hex(const std::string& bytes) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    for (const char byte : bytes) {
        const auto number = static_cast<unsigned char>(byte);
        text += kDigits[number / 16];
        text += kDigits[number % 16];
    }
    return text;
}

/// Nine by two: black, white, red, grey, then black; below all white.
orvel_test::CanvasPtr small() {
    auto canvas = make_canvas(9, 2);
    orvel_canvas_fill_rect(canvas.get(), 0, 1, 9, 1, kWhite);
    orvel_canvas_pixel(canvas.get(), 1, 0, kWhite);
    orvel_canvas_pixel(canvas.get(), 2, 0, kRed);
    orvel_canvas_pixel(canvas.get(), 3, 0, kGrey);
    return canvas;
}

std::string bytes_for(const char* panel, int turns = 0) {
    const auto bytes = orvel_tools::panel_bytes(small().get(), {panel_named(panel), 0, turns});
    return bytes ? hex({bytes->begin(), bytes->end()}) : "none";
}

/// The top row as the panel shows it.
std::vector<orvel_color> top_row(const char* panel) {
    const auto picture = orvel_tools::panel_picture(small().get(), {panel_named(panel), 0, 0});
    EXPECT_TRUE(picture);
    EXPECT_EQ(picture->width, 9);
    EXPECT_EQ(picture->height, 2);
    EXPECT_EQ(picture->at(8, 1), kWhite);
    return {picture->pixels.begin(), picture->pixels.begin() + 4};
}

using Row = std::vector<orvel_color>;

TEST(PanelTest, EachPanelTakesItsBytes) {
    EXPECT_EQ(bytes_for("mono"), "5000ff80");
    EXPECT_EQ(bytes_for("gray4"), "360000ffffc0");
    EXPECT_EQ(bytes_for("gray16"),
              "0f48000000"
              "fffffffff0");
    EXPECT_EQ(bytes_for("seven"),
              "0146000000"
              "1111111110");
    EXPECT_EQ(bytes_for("red"),
              "7000ff80"
              "df80ff80");
    EXPECT_EQ(bytes_for("rgb565").substr(0, 16), "0000ffff41f0518c");
    EXPECT_EQ(bytes_for("rgba").substr(0, 32), "000000fffffffffffa0a0aff888888ff");
}

TEST(PanelTest, ThePictureIsWhatThePanelShows) {
    const orvel_color grey3 = {85, 85, 85, 255}, grey10 = {170, 170, 170, 255};
    EXPECT_EQ(top_row("mono"), (Row{orvel_test::kBlack, kWhite, orvel_test::kBlack, kWhite}));
    EXPECT_EQ(top_row("gray4"), (Row{orvel_test::kBlack, kWhite, grey3, grey10}));
    EXPECT_EQ(top_row("gray16"), (Row{orvel_test::kBlack, kWhite, {68, 68, 68, 255}, kGrey}));
    EXPECT_EQ(top_row("red"), (Row{orvel_test::kBlack, kWhite, {255, 0, 0, 255}, kWhite}));
    EXPECT_EQ(top_row("seven"),
              (Row{orvel_test::kBlack, kWhite, {255, 0, 0, 255}, {255, 128, 0, 255}}));
    EXPECT_EQ(top_row("rgb565"),
              (Row{orvel_test::kBlack, kWhite, {247, 8, 8, 255}, {140, 138, 140, 255}}));
    EXPECT_EQ(top_row("rgba"), (Row{orvel_test::kBlack, kWhite, kRed, kGrey}));
}

TEST(PanelTest, NamesThatAreNoPanelsAreNone) {
    EXPECT_EQ(panel_named("paper"), nullptr);
    EXPECT_EQ(panel_named(""), panel_named("rgba"));
}

TEST(PanelTest, TurnsGoClockwise) {
    // Two pixels wide now; the right one of the top row was the left one.
    EXPECT_EQ(bytes_for("mono", 1), "80c080c08080808080");
    EXPECT_EQ(bytes_for("mono", 2), "ff800500");
    EXPECT_EQ(bytes_for("mono", 3), "4040404040c040c040");
    const auto picture = orvel_tools::panel_picture(small().get(), {panel_named("rgba"), 0, 1});
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, 2);
    EXPECT_EQ(picture->height, 9);
    EXPECT_EQ(picture->at(1, 2), kRed);
}

TEST(PanelTest, DithersMakeUpForGrey) {
    auto canvas = make_canvas(16, 16);
    orvel_canvas_clear(canvas.get(), kGrey);
    for (const int dither : {KIT_DITHER_ORDERED, KIT_DITHER_DIFFUSED}) {
        const auto picture =
            orvel_tools::panel_picture(canvas.get(), {panel_named("mono"), dither, 0});
        ASSERT_TRUE(picture);
        int white = 0;
        for (const orvel_color& color : picture->pixels) white += color == kWhite ? 1 : 0;
        EXPECT_GT(white, 120);
        EXPECT_LT(white, 150);
    }
}

/// The box that changed, when the pixels given did.
std::string box_of(const std::vector<std::pair<int, int>>& pixels, const char* panel) {
    Picture before = {20, 10, std::vector<orvel_color>(200, kWhite)};
    Picture now = before;
    for (const auto& [x, y] : pixels) now.pixels[std::size_t(20 * y + x)] = kRed;
    const kit_box box = orvel_tools::changed(before, now, *panel_named(panel));
    return std::to_string(box.x) + " " + std::to_string(box.y) + " " + std::to_string(box.w) + " " +
           std::to_string(box.h);
}

TEST(PanelTest, WhatChangedIsAlignedToTheBytesOfARow) {
    EXPECT_EQ(box_of({}, "mono"), "0 0 0 0");
    EXPECT_EQ(box_of({{9, 3}}, "rgba"), "9 3 1 1");
    EXPECT_EQ(box_of({{9, 3}}, "mono"), "8 3 8 1");
    EXPECT_EQ(box_of({{9, 3}, {15, 5}}, "red"), "8 3 8 3");
    EXPECT_EQ(box_of({{9, 3}}, "gray4"), "8 3 4 1");
    EXPECT_EQ(box_of({{9, 3}}, "gray16"), "8 3 2 1");
    EXPECT_EQ(box_of({{9, 3}}, "seven"), "8 3 2 1");
    EXPECT_EQ(box_of({{9, 3}}, "rgb565"), "9 3 1 1");
    EXPECT_EQ(box_of({{19, 9}, {0, 0}}, "mono"), "0 0 20 10");
    EXPECT_EQ(box_of({{17, 9}}, "mono"), "16 9 4 1");
    const Picture small = {1, 1, {kWhite}}, large = {3, 2, std::vector<orvel_color>(6, kWhite)};
    const kit_box all = orvel_tools::changed(small, large, *panel_named("mono"));
    EXPECT_EQ(all.w * 10 + all.h, 32);
}

class PictureFile : public testing::Test {
protected:
    orvel_test::TempFolder folder;
    const std::string path = folder / "picture";
    const Picture picture = orvel_tools::picture_of(small().get());

    std::string bytes(const char* format) const {
        std::string error;
        const auto encoded = orvel_tools::encoded(picture, format, error);
        return encoded ? std::string(encoded->begin(), encoded->end()) : error;
    }

    std::string reason(const std::string& file) const {
        orvel_test::write_file(path, file);
        std::string error;
        EXPECT_FALSE(orvel_tools::read_picture(path, error));
        return error;
    }
};

TEST_F(PictureFile, PngAndBmpAreReadBack) {
    for (const char* format : {"png", "bmp"}) {
        orvel_test::write_file(path, bytes(format));
        std::string error;
        const auto read = orvel_tools::read_picture(path, error);
        ASSERT_TRUE(read) << error;
        EXPECT_EQ(read->width, 9);
        EXPECT_EQ(read->pixels, picture.pixels);
    }
}

TEST_F(PictureFile, ABmpIsThatOfTheLibrary) {
    ASSERT_EQ(orvel_canvas_save_bmp(small().get(), path.c_str()), 0);
    EXPECT_EQ(hex(bytes("bmp")), hex(orvel_test::read_file(path)));
}

TEST_F(PictureFile, PpmAndPbmAreWhatTheirNamesSay) {
    EXPECT_EQ(bytes("ppm").substr(0, 11), "P6\n9 2\n255\n");
    EXPECT_EQ(hex(bytes("ppm").substr(11, 12)),
              "000000"
              "ffffff"
              "fa0a0a"
              "888888");
    EXPECT_EQ(bytes("ppm").size(), 11u + 9 * 2 * 3);
    EXPECT_EQ(bytes("pbm").substr(0, 7), "P4\n9 2\n");
    EXPECT_EQ(hex(bytes("pbm").substr(7)),
              "af80"
              "0000");
}

TEST_F(PictureFile, WhatIsNoPictureIsRefused) {
    EXPECT_EQ(reason("BM"), path + ": not a BMP file");
    EXPECT_EQ(reason("").substr(0, path.size() + 2), path + ": ");
    EXPECT_EQ(reason("GIF89a").substr(0, path.size() + 2), path + ": ");
    const std::string whole = bytes("png");
    EXPECT_EQ(reason(whole.substr(0, whole.size() / 2)).substr(0, path.size() + 2), path + ": ");
}

TEST_F(PictureFile, ScalingRepeatsPixels) {
    const Picture large = orvel_tools::scaled(picture, 3);
    EXPECT_EQ(large.width, 27);
    EXPECT_EQ(large.height, 6);
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 27; ++x) ASSERT_EQ(large.at(x, y), picture.at(x / 3, y / 3));
    }
}

TEST_F(PictureFile, AFileIsReplacedInOneStepAndKeepsItsRights) {
    namespace fs = std::filesystem;
    std::string error;
    orvel_test::write_file(path, "old");
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
    ASSERT_TRUE(orvel_tools::write_bytes(path, "new", error)) << error;
    EXPECT_EQ(orvel_test::read_file(path), "new");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("picture", folder / "link");
    ASSERT_TRUE(orvel_tools::write_bytes(folder / "link", "through", error)) << error;
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(orvel_test::read_file(path), "through");
    ASSERT_TRUE(orvel_tools::write_bytes("/dev/null", "gone", error)) << error;
    int files = 0;
    for (const auto& entry : fs::directory_iterator(folder.path())) files += entry.exists() ? 1 : 0;
    EXPECT_EQ(files, 2);
    EXPECT_FALSE(orvel_tools::write_bytes(folder / "no/such", "x", error));
    EXPECT_EQ(error, folder / "no/such: No such file or directory");
    EXPECT_FALSE(orvel_tools::write_bytes(folder.path(), "x", error));
    EXPECT_EQ(error, folder.path() + ": Is a directory");
}

TEST_F(PictureFile, ReadingOfTextsIsBounded) {
    std::string error, read;
    orvel_test::write_file(path, std::string(orvel_tools::kMostText + 1, 'x'));
    EXPECT_FALSE(orvel_tools::read_text(path, read, error));
    EXPECT_EQ(error, path + ": larger than 16 MiB");
    EXPECT_FALSE(orvel_tools::read_text("/dev/zero", read, error));
    EXPECT_EQ(error, "/dev/zero: larger than 16 MiB");
    orvel_test::write_file(path, std::string(orvel_tools::kMostText, 'x'));
    EXPECT_TRUE(orvel_tools::read_text(path, read, error));
    EXPECT_FALSE(orvel_tools::read_text(folder.path(), read, error));
    EXPECT_EQ(error, folder.path() + ": Is a directory");
    EXPECT_FALSE(orvel_tools::read_text(folder / "none", read, error));
    EXPECT_EQ(error, folder / "none: No such file or directory");
}

}  // namespace
