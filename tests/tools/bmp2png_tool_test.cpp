// orvel-bmp2png as its users run it: a process, files, an exit status.
#include <gtest/gtest.h>

#include <filesystem>

#include "picture.h"
#include "support/files.h"
#include "support/picture.h"
#include "support/process.h"
#include "tools/png.h"

namespace {

using orvel_test::CanvasPtr;
using orvel_test::Finished;
using orvel_test::make_canvas;
using orvel_test::read_png;
using orvel_test::run;
using orvel_tools::Picture;

constexpr const char* kBmp2Png = ORVEL_BINARY_DIR "/orvel-bmp2png";

class Bmp2PngTool : public testing::Test {
protected:
    orvel_test::TempFolder folder;
    const std::string bmp = folder / "in.bmp", png = folder / "out.png";

    /// Every pixel another colour; odd sides, so that rows have padding.
    static CanvasPtr colourful(unsigned char alpha) {
        auto canvas = make_canvas(7, 5);
        for (int y = 0; y < 5; ++y) {
            for (int x = 0; x < 7; ++x) {
                const auto red = static_cast<unsigned char>(10 * x);
                const auto green = static_cast<unsigned char>(200 - 9 * y);
                const auto blue = static_cast<unsigned char>(x * y);
                const auto a = static_cast<unsigned char>(alpha - 7 * y - x);
                orvel_canvas_pixel(canvas.get(), x, y, {red, green, blue, a});
            }
        }
        return canvas;
    }

    void expect_refused(const std::string& bytes, const std::string& reason) {
        orvel_test::write_file(bmp, bytes);
        const Finished done = run({kBmp2Png, bmp, png});
        EXPECT_EQ(done.status, 2);
        EXPECT_EQ(done.error, "orvel-bmp2png: " + bmp + ": " + reason + "\n");
        EXPECT_EQ(done.output, "");
        EXPECT_FALSE(std::filesystem::exists(png));
    }
};

TEST_F(Bmp2PngTool, EveryPixelOfA24BitFileArrivesOpaque) {
    const auto canvas = colourful(255);
    ASSERT_EQ(orvel_canvas_save_bmp(canvas.get(), bmp.c_str()), 0);
    const Finished done = run({kBmp2Png, bmp, png});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.output, png + "\n");
    EXPECT_EQ(done.error, "");
    const Picture picture = read_png(png);
    ASSERT_EQ(picture.width, 7);
    ASSERT_EQ(picture.height, 5);
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 7; ++x) {
            orvel_color expected = orvel_canvas_pixel_get(canvas.get(), x, y);
            expected.a = 255;
            EXPECT_EQ(picture.at(x, y), expected) << x << ", " << y;
        }
    }
}

TEST_F(Bmp2PngTool, EveryPixelOfA32BitFileArrivesWithItsAlpha) {
    const auto canvas = colourful(200);
    orvel_canvas_pixel(canvas.get(), 3, 2, {1, 2, 3, 0});
    ASSERT_EQ(orvel_canvas_save_bmp_rgba(canvas.get(), bmp.c_str()), 0);
    EXPECT_EQ(run({kBmp2Png, bmp, png}).status, 0);
    const Picture picture = read_png(png);
    ASSERT_EQ(picture.width, 7);
    ASSERT_EQ(picture.height, 5);
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 7; ++x) {
            EXPECT_EQ(picture.at(x, y), orvel_canvas_pixel_get(canvas.get(), x, y))
                << x << ", " << y;
        }
    }
}

TEST_F(Bmp2PngTool, ScaleMakesEveryPixelASquare) {
    const auto canvas = make_canvas(2, 2);
    orvel_canvas_pixel(canvas.get(), 1, 0, {255, 0, 0, 255});
    orvel_canvas_pixel(canvas.get(), 0, 1, {0, 255, 0, 255});
    ASSERT_EQ(orvel_canvas_save_bmp(canvas.get(), bmp.c_str()), 0);
    EXPECT_EQ(run({kBmp2Png, bmp, png, "--scale", "3"}).status, 0);
    const Picture picture = read_png(png);
    std::string letters;
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            letters += picture.at(x, y).r ? 'r' : picture.at(x, y).g ? 'g' : '.';
        }
        letters += '\n';
    }
    EXPECT_EQ(letters,
              "...rrr\n"
              "...rrr\n"
              "...rrr\n"
              "ggg...\n"
              "ggg...\n"
              "ggg...\n");
}

TEST_F(Bmp2PngTool, ManyPicturesAreConvertedBesideThemselves) {
    const std::string other = folder / "a name\nof two lines.bmp";
    ASSERT_EQ(orvel_canvas_save_bmp(make_canvas(1, 1).get(), bmp.c_str()), 0);
    ASSERT_EQ(orvel_canvas_save_bmp(make_canvas(2, 1).get(), other.c_str()), 0);
    const Finished done = run({kBmp2Png, bmp, other});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.output,
              (folder / "in.png") + "\n" + folder.path() + "/a name\\nof two lines.png\n");
    EXPECT_EQ(read_png(folder / "in.png").width, 1);
    EXPECT_EQ(read_png(folder / "a name\nof two lines.png").width, 2);
}

TEST_F(Bmp2PngTool, OnePictureAloneIsConvertedBesideItself) {
    ASSERT_EQ(orvel_canvas_save_bmp(make_canvas(1, 1).get(), bmp.c_str()), 0);
    EXPECT_EQ(run({kBmp2Png, bmp}).output, (folder / "in.png") + "\n");
    EXPECT_EQ(read_png(folder / "in.png").at(0, 0), orvel_test::kBlack);
}

TEST_F(Bmp2PngTool, PicturesGoIntoTheFolderThatComesLast) {
    std::filesystem::create_directory(folder / "all");
    ASSERT_EQ(orvel_canvas_save_bmp(make_canvas(1, 1).get(), bmp.c_str()), 0);
    EXPECT_EQ(run({kBmp2Png, bmp, folder / "all"}).output, (folder / "all/in.png") + "\n");
    EXPECT_EQ(read_png(folder / "all/in.png").width, 1);
}

TEST_F(Bmp2PngTool, APictureThatCannotBeReadDoesNotKeepOthersFromBeingConverted) {
    ASSERT_EQ(orvel_canvas_save_bmp(make_canvas(1, 1).get(), bmp.c_str()), 0);
    const Finished done = run({kBmp2Png, folder / "none.bmp", bmp});
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(done.error,
              "orvel-bmp2png: " + (folder / "none.bmp") + ": No such file or directory\n");
    EXPECT_EQ(done.output, (folder / "in.png") + "\n");
}

TEST_F(Bmp2PngTool, ADashIsTheStandardInputAndTheStandardOutput) {
    ASSERT_EQ(orvel_canvas_save_bmp(colourful(200).get(), bmp.c_str()), 0);
    const Finished done = run({"sh", "-c", "exec \"$0\" - - <\"$1\"", kBmp2Png, bmp});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.error, "");
    orvel_test::write_file(png, done.output);
    EXPECT_EQ(read_png(png).width, 7);
    EXPECT_EQ(run({kBmp2Png, "-"}).error,
              "orvel-bmp2png: for the standard input, name the PNG file or - after it "
              "(orvel-bmp2png --help tells more)\n");
}

TEST_F(Bmp2PngTool, AFileThatIsNoBmpIsRefused) {
    expect_refused("", "not a BMP file");
    expect_refused(std::string(100, 'x'), "not a BMP file");
}

TEST_F(Bmp2PngTool, AnotherKindOfBmpIsRefused) {
    ASSERT_EQ(orvel_canvas_save_bmp(make_canvas(2, 2).get(), bmp.c_str()), 0);
    std::string bytes = orvel_test::read_file(bmp);
    bytes[30] = 1;
    expect_refused(bytes, "neither of the two BMP forms that the library writes");
}

TEST_F(Bmp2PngTool, ATruncatedFileIsRefused) {
    ASSERT_EQ(orvel_canvas_save_bmp(make_canvas(2, 2).get(), bmp.c_str()), 0);
    std::string bytes = orvel_test::read_file(bmp);
    bytes.pop_back();
    expect_refused(bytes, "the file ends too early");
}

TEST_F(Bmp2PngTool, FilesThatCannotBeOpenedAreNamed) {
    Finished done = run({kBmp2Png, bmp, png});
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(done.error, "orvel-bmp2png: " + bmp + ": No such file or directory\n");
    ASSERT_EQ(orvel_canvas_save_bmp(make_canvas(1, 1).get(), bmp.c_str()), 0);
    done = run({kBmp2Png, bmp, folder / "missing/out.png"});
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(done.error,
              "orvel-bmp2png: " + folder.path() + "/missing/out.png: No such file or directory\n");
}

TEST_F(Bmp2PngTool, APictureTooWideForPngIsRefused) {
    ASSERT_EQ(orvel_canvas_save_bmp(make_canvas(20000, 1).get(), bmp.c_str()), 0);
    const Finished done = run({kBmp2Png, bmp, png, "--scale", "64"});
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(done.error,
              "orvel-bmp2png: " + png +
                  ": a side of more than 1000000 pixels does not fit into a PNG file\n");
}

TEST_F(Bmp2PngTool, MistakesOnTheCommandLineAreSaidInOneLine) {
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{kBmp2Png},
                                               {kBmp2Png, bmp, png, "--scale", "0"},
                                               {kBmp2Png, bmp, png, "--scale", "65"},
                                               {kBmp2Png, bmp, png, "--scale", "x"},
                                               {kBmp2Png, bmp, png, "--unknown"}}) {
        const Finished done = run(arguments);
        EXPECT_EQ(done.status, 2);
        EXPECT_EQ(done.error.rfind("orvel-bmp2png: ", 0), 0u) << done.error;
        EXPECT_EQ(done.error.find('\n'), done.error.size() - 1) << done.error;
    }
}

TEST_F(Bmp2PngTool, HelpNamesTheOption) {
    const Finished done = run({kBmp2Png, "--help"});
    EXPECT_EQ(done.status, 0);
    EXPECT_NE(done.output.find("--scale"), std::string::npos);
    EXPECT_EQ(done.error, "");
}

TEST_F(Bmp2PngTool, OutputThatIsLostIsAnError) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "this system has no /dev/full";
    ASSERT_EQ(orvel_canvas_save_bmp(make_canvas(1, 1).get(), bmp.c_str()), 0);
    const Finished done = run({"sh", "-c", "exec \"$0\" \"$1\" >/dev/full", kBmp2Png, bmp});
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(done.error, "orvel-bmp2png: standard output: it cannot be written\n");
}

}  // namespace
