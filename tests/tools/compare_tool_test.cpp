// orvel-compare as its users run it: a process, files, an exit status.
#include <gtest/gtest.h>

#include "orvel_kit.h"
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

constexpr const char* kCompare = ORVEL_BINARY_DIR "/orvel-compare";
constexpr orvel_color kRed = {255, 0, 0, 255};

class CompareTool : public testing::Test {
protected:
    orvel_test::TempFolder folder;

    std::string save(const std::string& name, const CanvasPtr& canvas) {
        EXPECT_EQ(orvel_canvas_save_bmp(canvas.get(), (folder / name).c_str()), 0);
        return folder / name;
    }
    std::string save_rgba(const std::string& name, const CanvasPtr& canvas) {
        EXPECT_EQ(orvel_canvas_save_bmp_rgba(canvas.get(), (folder / name).c_str()), 0);
        return folder / name;
    }
};

TEST_F(CompareTool, EqualPicturesExitWith0) {
    const auto canvas = make_canvas(5, 3);
    const Finished done = run({kCompare, save("a.bmp", canvas), save("b.bmp", canvas)});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.output, "equal: 5 x 3, all 15 pixels\n");
    EXPECT_EQ(done.error, "");
}

TEST_F(CompareTool, DifferingPixelsAreCountedAndBoxedAndExitWith1) {
    const auto canvas = make_canvas(7, 4);
    const std::string before = save("before.bmp", canvas);
    orvel_canvas_pixel(canvas.get(), 2, 3, kRed);
    orvel_canvas_pixel(canvas.get(), 5, 1, {0, 0, 1, 255});
    const Finished done = run({kCompare, before, save("after.bmp", canvas)});
    EXPECT_EQ(done.status, 1);
    EXPECT_EQ(done.output,
              "2 of 28 pixels differ, inside the 4 x 3 box at (2, 1), by up to 255 steps of a "
              "channel\n");
}

TEST_F(CompareTool, OnePixelOutOfMillionsIsFound) {
    const auto canvas = make_canvas(2000, 1500);
    const std::string before = save("before.bmp", canvas);
    orvel_canvas_pixel(canvas.get(), 1999, 1499, {0, 1, 0, 255});
    const Finished done = run({kCompare, before, save("after.bmp", canvas)});
    EXPECT_EQ(done.status, 1);
    EXPECT_EQ(done.output,
              "1 of 3000000 pixels differ, inside the 1 x 1 box at (1999, 1499), by 1 step of a "
              "channel\n");
}

TEST_F(CompareTool, SizesThatDifferAreSaidAndExitWith1) {
    const Finished done =
        run({kCompare, save("a.bmp", make_canvas(3, 2)), save("b.bmp", make_canvas(3, 4))});
    EXPECT_EQ(done.status, 1);
    EXPECT_EQ(done.output, "sizes differ: 3 x 2 and 3 x 4; 0 of 6 pixels that both have differ\n");
}

TEST_F(CompareTool, A24BitAndA32BitFileOfOneOpaquePictureAreEqual) {
    const auto canvas = make_canvas(3, 3);
    orvel_canvas_line(canvas.get(), 0, 0, 2, 2, {10, 20, 30, 255});
    const Finished done = run({kCompare, save("24.bmp", canvas), save_rgba("32.bmp", canvas)});
    EXPECT_EQ(done.output, "equal: 3 x 3, all 9 pixels\n");
}

TEST_F(CompareTool, AlphaCounts) {
    const auto canvas = make_canvas(2, 1);
    const std::string opaque = save_rgba("opaque.bmp", canvas);
    orvel_canvas_pixel(canvas.get(), 1, 0, {0, 0, 0, 254});
    const Finished done = run({kCompare, opaque, save_rgba("clear.bmp", canvas)});
    EXPECT_EQ(done.status, 1);
    EXPECT_EQ(done.output,
              "1 of 2 pixels differ, inside the 1 x 1 box at (1, 0), by 1 step of alpha alone\n");
}

TEST_F(CompareTool, TheDiffShowsDifferingPixelsRedOnTheFadedPicture) {
    const auto canvas = make_canvas(3, 1);
    orvel_canvas_pixel(canvas.get(), 1, 0, {255, 255, 255, 255});
    const std::string before = save("before.bmp", canvas);
    orvel_canvas_pixel(canvas.get(), 2, 0, {0, 255, 0, 255});
    const Finished done =
        run({kCompare, before, save("after.bmp", canvas), "--diff", folder / "diff.png"});
    EXPECT_EQ(done.status, 1);
    const orvel_tools::Picture diff = read_png(folder / "diff.png");
    ASSERT_EQ(diff.width, 3);
    ASSERT_EQ(diff.height, 1);
    EXPECT_EQ(diff.at(0, 0), (orvel_color{192, 192, 192, 255}));
    EXPECT_EQ(diff.at(1, 0), (orvel_color{255, 255, 255, 255}));
    EXPECT_EQ(diff.at(2, 0), kRed);
}

TEST_F(CompareTool, TheDiffOfTwoSizesShowsBothPicturesWithStripes) {
    const auto wide = make_canvas(20, 10), high = make_canvas(10, 20);
    orvel_canvas_clear(wide.get(), {10, 20, 30, 255});
    orvel_canvas_clear(high.get(), {40, 50, 60, 255});
    const Finished done = run(
        {kCompare, save("wide.bmp", wide), save("high.bmp", high), "--diff", folder / "diff.png"});
    EXPECT_EQ(done.status, 1);
    const orvel_tools::Picture diff = read_png(folder / "diff.png");
    ASSERT_EQ(diff.width, 20);
    ASSERT_EQ(diff.height, 20);
    EXPECT_EQ(diff.at(3, 3), kRed);  // both have it, and it differs
    EXPECT_EQ(diff.at(15, 2), (orvel_color{10, 20, 30, 255}));
    EXPECT_EQ(diff.at(15, 1), kRed);  // a stripe
    EXPECT_EQ(diff.at(2, 15), (orvel_color{40, 50, 60, 255}));
    EXPECT_EQ(diff.at(7, 15), (orvel_color{0, 0, 255, 255}));
    EXPECT_EQ(diff.at(15, 15), (orvel_color{255, 255, 255, 255}));
}

TEST_F(CompareTool, RowsStoredTopFirstAreRead) {
    const auto canvas = make_canvas(1, 2);
    orvel_canvas_pixel(canvas.get(), 0, 0, kRed);
    const std::string bottom_first = save("bottom.bmp", canvas);
    std::string bytes = orvel_test::read_file(bottom_first);
    const std::string pixels = bytes.substr(54);
    bytes.replace(22, 4, "\xfe\xff\xff\xff", 4);
    bytes.replace(54, 8, pixels.substr(4, 4) + pixels.substr(0, 4));
    orvel_test::write_file(folder / "top.bmp", bytes);
    EXPECT_EQ(run({kCompare, bottom_first, folder / "top.bmp"}).output,
              "equal: 1 x 2, all 2 pixels\n");
}

/// Each broken file and what is said of it, in one line on the error stream, with status 2.
TEST_F(CompareTool, FilesThatAreNotTheLibrarysAreRefusedInOneLine) {
    const std::string good = save_rgba("good.bmp", make_canvas(4, 4));
    const std::string bytes = orvel_test::read_file(good);
    const auto with = [&](std::size_t at, const std::string& patch) {
        return std::string(bytes).replace(at, patch.size(), patch);
    };
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", "neither a PNG nor a BMP file"},
        {bytes.substr(0, 53), "not a BMP file"},
        {with(0, "PM"), "neither a PNG nor a BMP file"},
        {with(28, "\x08"), "neither of the two BMP forms that the library writes"},
        {with(30, "\x03"), "neither of the two BMP forms that the library writes"},
        {with(18, std::string(4, '\0')), "a picture without pixels"},
        {with(18, "\xff\xff\xff\xff"), "a picture without pixels"},
        {with(22, std::string(4, '\0')), "a picture without pixels"},
        {bytes.substr(0, bytes.size() - 1), "the file ends too early"},
        {with(10, "\x37"), "the file ends too early"},
        {with(18, "\xff\xff\xff\x7f"), "the file ends too early"},
        {with(22, std::string("\0\0\0\x80", 4)), "the file ends too early"},
    };
    for (const auto& [content, reason] : cases) {
        orvel_test::write_file(folder / "bad.bmp", content);
        const Finished done = run({kCompare, good, folder / "bad.bmp"});
        EXPECT_EQ(done.status, 2) << reason;
        EXPECT_EQ(done.output, "");
        EXPECT_EQ(done.error, "orvel-compare: " + (folder / "bad.bmp") + ": " + reason + "\n");
    }
}

TEST_F(CompareTool, AMissingFileIsAnError) {
    const std::string good = save("good.bmp", make_canvas(1, 1));
    const Finished done = run({kCompare, good, folder / "none.bmp"});
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(done.error,
              "orvel-compare: " + (folder / "none.bmp") + ": No such file or directory\n");
    EXPECT_EQ(run({kCompare, folder.path(), good}).status, 2);
}

TEST_F(CompareTool, ADiffThatCannotBeWrittenIsAnErrorEvenForEqualPictures) {
    const std::string good = save("good.bmp", make_canvas(1, 1));
    const Finished done = run({kCompare, good, good, "--diff", folder / "none/diff.png"});
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(done.error.rfind("orvel-compare: " + (folder / "none/diff.png"), 0), 0u)
        << done.error;
}

TEST_F(CompareTool, MistakesInTheArgumentsAreOneLineAndStatus2) {
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {kCompare}, {kCompare, "a"}, {kCompare, "a", "b", "c"}, {kCompare, "--frob"}}) {
        const Finished done = run(arguments);
        EXPECT_EQ(done.status, 2);
        EXPECT_EQ(std::count(done.error.begin(), done.error.end(), '\n'), 1) << done.error;
        EXPECT_NE(done.error.find("orvel-compare --help tells more"), std::string::npos);
    }
}

TEST_F(CompareTool, HelpAndVersionExitWith0) {
    const Finished help = run({kCompare, "--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.output.find("Usage: orvel-compare [OPTIONS] EXPECTED ACTUAL"),
              std::string::npos);
    EXPECT_NE(help.output.find("0 when the pictures are equal, 1 when they differ, 2 on an error"),
              std::string::npos);
    const Finished version = run({kCompare, "--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.output, KIT_VERSION "\n");
}

TEST_F(CompareTool, OutputThatIsLostIsAnError) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "this system has no /dev/full";
    const std::string good = save("good.bmp", make_canvas(1, 1));
    for (const std::string& arguments : {"'" + good + "' '" + good + "'", std::string("--help"),
                                         std::string("--completion bash")}) {
        const Finished done =
            run({"sh", "-c", "exec \"$0\" " + arguments + " >/dev/full", kCompare});
        EXPECT_EQ(done.status, 2) << arguments;
        EXPECT_EQ(done.error, "orvel-compare: standard output: it cannot be written\n");
    }
}

}  // namespace
