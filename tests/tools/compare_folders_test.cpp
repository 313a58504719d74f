// orvel-compare with folders: every change that is planted is found and named.
#include <sys/stat.h>

#include "tools/screens.h"

namespace {

using namespace orvel_test;
namespace fs = std::filesystem;

class CompareFolders : public Screens {};

TEST_F(CompareFolders, EqualPicturesAreCountedWhateverTheirFilesAre) {
    save_both("home", screen());
    save_both("rooms/deep/kitchen", screen(3, 3));
    const Finished done = compare();
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.output, "2 pictures: 2 equal\n");
    EXPECT_EQ(done.error, "");
}

TEST_F(CompareFolders, OnePixelByOneStepOfOneChannelIsFoundInEveryChannel) {
    for (int channel = 0; channel < 4; ++channel) {
        const auto canvas = screen();
        save_both("home", canvas);
        orvel_color color = orvel_canvas_pixel_get(canvas.get(), 19, 11);
        unsigned char* const channels[] = {&color.r, &color.g, &color.b, &color.a};
        *channels[channel] = static_cast<unsigned char>(*channels[channel] - 1);
        orvel_canvas_pixel(canvas.get(), 19, 11, color);
        save(actual + "/home.bmp", canvas);
        expect_found(std::string("home: 1 of 240 pixels differ, inside the 1 x 1 box at (19, 11), "
                                 "by 1 step of ") +
                     (channel == 3 ? "alpha alone" : "a channel"));
    }
}

TEST_F(CompareFolders, AShiftByOnePixelIsFound) {
    const auto before = make_canvas(20, 12), now = make_canvas(20, 12);
    orvel_canvas_fill_rect(before.get(), 4, 4, 6, 3, kInk);
    orvel_canvas_fill_rect(now.get(), 5, 4, 6, 3, kInk);
    save_both("home", before);
    save(actual + "/home.bmp", now);
    expect_found(
        "home: 6 of 240 pixels differ, inside the 7 x 3 box at (4, 4), by up to 255 steps "
        "of a channel");
}

TEST_F(CompareFolders, AnotherSizeIsFound) {
    save_both("home", screen());
    save(actual + "/home.bmp", screen(21, 12));
    expect_found("home: sizes differ: 20 x 12 and 21 x 12; 0 of 240 pixels that both have differ");
}

TEST_F(CompareFolders, MissingAndUnexpectedPicturesFail) {
    save_both("home", screen());
    save(expected + "/gone.png", screen());
    save(actual + "/rooms/new.bmp", screen());
    const Finished done = compare();
    EXPECT_EQ(done.status, 1);
    EXPECT_EQ(done.output,
              "gone: missing: expected, but not there\n"
              "rooms/new: unexpected: there, but not expected\n"
              "3 pictures: 1 equal, 1 missing, 1 unexpected\n");
}

TEST_F(CompareFolders, AnEmptySideIsNoSuccess) {
    EXPECT_EQ(compare().status, 2);
    EXPECT_EQ(compare().error, "orvel-compare: " + expected + " and " + actual +
                                   ": no pictures (*.png, *.bmp) in either\n");
    save(expected + "/home.png", screen());
    EXPECT_EQ(compare().status, 1);
    fs::remove_all(expected);
    EXPECT_EQ(compare().status, 2);
    EXPECT_EQ(compare().error, "orvel-compare: " + expected + ": No such file or directory\n");
}

TEST_F(CompareFolders, AFolderComparedWithItselfIsNoSuccess) {
    save(expected + "/home.png", screen());
    const Finished done = run({ORVEL_BINARY_DIR "/orvel-compare", expected, expected + "/."});
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(done.error,
              "orvel-compare: " + expected + "/.: the same folder as " + expected + "\n");
}

TEST_F(CompareFolders, AFolderAndAFileAreNotCompared) {
    save(actual + "/home.png", screen());
    const Finished done = run({ORVEL_BINARY_DIR "/orvel-compare", expected, actual + "/home.png"});
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(done.error,
              "orvel-compare: " + actual + "/home.png: not a folder, as the other one is\n");
}

TEST_F(CompareFolders, BrokenFilesAreNamedAndTheOthersComparedAllTheSame) {
    save_both("a", screen());
    save_both("cut", screen());
    save_both("flipped", screen());
    save_both("other", screen());
    std::string bytes = read_file(expected + "/cut.png");
    write_file(expected + "/cut.png", bytes.substr(0, bytes.size() - 1));
    bytes = read_file(expected + "/flipped.png");
    char& byte = bytes[bytes.find("PLTE") + 9];
    byte = static_cast<char>(byte ^ 1);
    write_file(expected + "/flipped.png", bytes);
    write_file(actual + "/other.bmp", "hello");
    const Finished done = compare();
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(done.output, "4 pictures: 1 equal, 3 unreadable\n");
    EXPECT_EQ(done.error, "orvel-compare: " + expected + "/cut.png: the file ends too early\n" +
                              "orvel-compare: " + expected + "/flipped.png: PLTE: CRC error\n" +
                              "orvel-compare: " + actual +
                              "/other.bmp: neither a PNG nor a BMP file\n");
}

TEST_F(CompareFolders, TwoEqualBrokenFilesAreNoSuccess) {
    write_file(expected + "/home.png", "broken");
    write_file(actual + "/home.png", "broken");
    EXPECT_EQ(compare().status, 2);
}

TEST_F(CompareFolders, APictureThatIsThereTwiceIsTrouble) {
    save_both("home", screen());
    save(actual + "/home.png", screen());
    const Finished done = compare();
    EXPECT_EQ(done.status, 2);
    EXPECT_NE(done.error.find(": the same picture as home."), std::string::npos) << done.error;
}

TEST_F(CompareFolders, WhatIsNoFileIsNotOpened) {
    save_both("home", screen());
    ASSERT_EQ(mkfifo((actual + "/pipe.png").c_str(), 0600), 0);
    fs::create_directory_symlink(expected, actual + "/linked");
    fs::create_symlink("nowhere", actual + "/broken.png");
    const Finished done = compare();
    EXPECT_EQ(done.status, 2);
    EXPECT_NE(done.error.find(actual + "/pipe.png: not a file\n"), std::string::npos);
    EXPECT_NE(done.error.find(actual + "/linked: a link to a folder, which is not followed\n"),
              std::string::npos);
    EXPECT_NE(done.output.find("broken: unexpected"), std::string::npos);
}

TEST_F(CompareFolders, AFolderThatCannotBeReadIsTrouble) {
    save_both("home", screen());
    // Root reads every folder but one whose path is too long.
    const std::string script =
        "import os, sys\nos.chdir(sys.argv[1])\n"
        "for _ in range(24): os.mkdir(200 * 'x'); os.chdir(200 * 'x')\n";
    ASSERT_EQ(run({"python3", "-c", script, actual}).status, 0);
    const Finished done = compare();
    EXPECT_EQ(run({"rm", "-rf", actual}).status, 0);
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(done.output, "1 picture: 1 equal\n");
    EXPECT_NE(done.error.find(": File name too long\n"), std::string::npos) << done.error;
}

TEST_F(CompareFolders, AnyBytesMayBeAName) {
    for (const std::string name : {"two words", "two\nlines", "not utf-8 \xff\xfe", "a\\b",
                                   "<&\"'>", "\x1b[31mred", "-dash", "größe",
                                   "\xe2\x80\xae"
                                   "turned"}) {
#ifdef __APPLE__
        if (name.find('\xff') != std::string::npos) continue;  // its file systems refuse the name
#endif
        save(expected + "/" + name + ".png", screen());
    }
    const Finished done = compare();
    EXPECT_EQ(done.status, 1);
    for (const std::string shown : {"two words", "two\\nlines", "a\\\\b", "<&\"'>", "\\x1b[31mred",
                                    "-dash", "größe", "\\xe2\\x80\\xaeturned"}) {
        EXPECT_NE(done.output.find(shown + ": missing"), std::string::npos) << shown;
    }
#ifndef __APPLE__
    EXPECT_NE(done.output.find("not utf-8 \\xff\\xfe: missing"), std::string::npos);
#endif
}

TEST_F(CompareFolders, OtherFilesAndEndingsInCapitals) {
    save_both("home", screen());
    write_file(actual + "/notes.txt", "no picture");
    fs::rename(actual + "/home.bmp", actual + "/home.BMP");
    EXPECT_EQ(compare().output, "1 picture: 1 equal\n");
}

TEST_F(CompareFolders, TenThousandPicturesAreCompared) {
    save(folder / "one.png", screen());
    const auto canvas = screen();
    orvel_canvas_pixel(canvas.get(), 0, 0, kInk);
    save(folder / "other.png", canvas);
    for (int i = 0; i < 10000; ++i) {
        const std::string name = "/" + std::to_string(i / 100) + "/" + std::to_string(i) + ".png";
        if (i % 100 == 0) {
            fs::create_directory(expected + "/" + std::to_string(i / 100));
            fs::create_directory(actual + "/" + std::to_string(i / 100));
        }
        fs::copy_file(folder / "one.png", expected + name);
        fs::copy_file(folder / (i == 7777 ? "other.png" : "one.png"), actual + name);
    }
    const Finished done = compare({"--report", folder / "report.html"});
    EXPECT_EQ(done.status, 1);
    EXPECT_EQ(done.output,
              "77/7777: 1 of 240 pixels differ, inside the 1 x 1 box at (0, 0), by up to 255 steps "
              "of a channel\n10000 pictures: 9999 equal, 1 different\n");
}

TEST_F(CompareFolders, DiffLeavesAPictureForEachThatDiffers) {
    save_both("same", screen());
    save_both("rooms/kitchen", screen());
    const auto canvas = screen();
    orvel_canvas_pixel(canvas.get(), 3, 4, kInk);
    save(actual + "/rooms/kitchen.bmp", canvas);
    EXPECT_EQ(compare({"--diff", folder / "diff"}).status, 1);
    EXPECT_EQ(files_in(folder / "diff"), std::vector<std::string>{"rooms/kitchen.png"});
    EXPECT_EQ(read_png(folder / "diff/rooms/kitchen.png").at(3, 4), (orvel_color{255, 0, 0, 255}));
}

class CompareApprove : public Screens {};

TEST_F(CompareApprove, CopiesJustWhatDiffersAsPng) {
    const auto canvas = screen();
    save_both("same", canvas);
    save_both("rooms/changed", canvas);
    save(expected + "/old.bmp", canvas);
    const std::string untouched = read_file(expected + "/same.png");
    const auto time = fs::last_write_time(expected + "/same.png");
    orvel_canvas_pixel(canvas.get(), 1, 1, {1, 2, 3, 4});
    save(actual + "/rooms/changed.bmp", canvas);
    save(actual + "/old.bmp", canvas);
    save(actual + "/new/one.bmp", canvas);
    const Finished done = compare({"--approve"});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.error, "");
    EXPECT_EQ(done.output,
              "approved new/one, which was new\n"
              "approved old, which was different, in place of old.bmp\n"
              "approved rooms/changed, which was different\n"
              "unchanged: 1\n");
    EXPECT_EQ(files_in(expected), (std::vector<std::string>{"new/one.png", "old.png",
                                                            "rooms/changed.png", "same.png"}));
    EXPECT_EQ(read_file(expected + "/same.png"), untouched);
    EXPECT_EQ(fs::last_write_time(expected + "/same.png"), time);
    EXPECT_EQ(read_png(expected + "/new/one.png").at(1, 1), (orvel_color{1, 2, 3, 4}));
    EXPECT_EQ(compare().output, "4 pictures: 4 equal\n");
}

TEST_F(CompareApprove, MakesAFolderThatIsNotThereYet) {
    fs::remove_all(expected);
    save(actual + "/home.bmp", screen());
    EXPECT_EQ(compare({"--approve"}).output, "approved home, which was new\n");
    EXPECT_EQ(compare().status, 0);
}

TEST_F(CompareApprove, DeletesWhatIsGoneOnlyWhenAsked) {
    save_both("home", screen());
    save(expected + "/gone.png", screen());
    Finished done = compare({"--approve"});
    EXPECT_EQ(done.status, 1);
    EXPECT_EQ(done.output, "kept gone, which is gone; --prune deletes it\nunchanged: 1\n");
    EXPECT_TRUE(fs::exists(expected + "/gone.png"));
    done = compare({"--approve", "--prune"});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.output, "deleted gone\nunchanged: 1\n");
    EXPECT_FALSE(fs::exists(expected + "/gone.png"));
}

TEST_F(CompareApprove, DeletesNothingWhenThereIsNothingOrNotEverythingWasSeen) {
    save(expected + "/gone.png", screen());
    Finished done = compare({"--approve", "--prune"});
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(done.error, "orvel-compare: " + actual + ": no pictures; none is deleted\n");
    save_both("home", screen());
    fs::create_directory_symlink(expected, actual + "/linked");
    done = compare({"--approve", "--prune"});
    EXPECT_EQ(done.status, 2);
    EXPECT_TRUE(fs::exists(expected + "/gone.png"));
}

TEST_F(CompareApprove, ABrokenExpectedPictureIsReplacedAndABrokenActualOneIsNot) {
    save_both("home", screen());
    write_file(expected + "/home.png", "broken");
    EXPECT_EQ(compare({"--approve"}).output, "approved home, which was unreadable\n");
    const std::string bytes = read_file(expected + "/home.png");
    write_file(actual + "/home.bmp", "broken");
    const Finished done = compare({"--approve"});
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(done.error, "orvel-compare: " + actual + "/home.bmp: neither a PNG nor a BMP file\n");
    EXPECT_EQ(read_file(expected + "/home.png"), bytes);
}

TEST_F(CompareApprove, WhatDiffersUnderAMaskIsNotCopied) {
    const auto canvas = screen();
    save_both("home", canvas);
    const std::string bytes = read_file(expected + "/home.png");
    orvel_canvas_pixel(canvas.get(), 1, 1, kInk);
    save(actual + "/home.bmp", canvas);
    write_file(folder / "masks", "home 1 1 1 1 the clock\n");
    EXPECT_EQ(compare({"--approve", "--mask", folder / "masks"}).output, "unchanged: 1\n");
    EXPECT_EQ(read_file(expected + "/home.png"), bytes);
}

TEST_F(CompareApprove, TwoFilesAreApprovedLikeFolders) {
    save(actual + "/now.bmp", screen());
    const std::string program = ORVEL_BINARY_DIR "/orvel-compare";
    const std::string one = expected + "/one.png", now = actual + "/now.bmp";
    EXPECT_EQ(run({program, one, now, "--approve"}).output, "approved one, which was new\n");
    EXPECT_EQ(run({program, one, now}).status, 0);
    EXPECT_EQ(run({program, now, one, "--approve"}).error,
              "orvel-compare: --approve writes PNG files: let the name of EXPECTED end in .png "
              "(orvel-compare --help tells more)\n");
    EXPECT_EQ(run({program, one, now, "--prune"}).status, 2);
    EXPECT_EQ(run({program, "-", now, "--approve"}).status, 2);
    const std::string none = folder / "none";
    for (const std::string& to : {expected, folder / "new"}) {
        EXPECT_EQ(run({program, to, none, "--approve"}).error,
                  "orvel-compare: " + none + ": No such file or directory\n");
    }
}

TEST_F(CompareApprove, FifteenScreensTakeAHundredthOfTheirSizeAsBmp) {
    for (int i = 0; i < 15; ++i) {
        const auto canvas = make_canvas(800, 480);
        orvel_theme theme;
        orvel_theme_default(&theme);
        orvel_canvas_clear(canvas.get(), theme.background);
        for (int n = 0; n < 40; ++n) {
            orvel_draw_icon(canvas.get(), "settings", 20 * n, 10 * i + 5 * n, 24, theme.text);
            orvel_text_draw(canvas.get(), "Pixels", 20, 11 * n, theme.accent);
        }
        save(actual + "/" + std::to_string(i) + ".bmp", canvas);
    }
    EXPECT_EQ(compare({"--approve"}).status, 0);
    std::uintmax_t bmp = 0, png = 0;
    for (const auto& entry : fs::directory_iterator(actual)) bmp += entry.file_size();
    for (const auto& entry : fs::directory_iterator(expected)) png += entry.file_size();
    EXPECT_LT(png * 100, bmp);
}

}  // namespace
