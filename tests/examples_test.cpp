// The example hosts as people run them, and the pictures of the README that they drew.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "picture.h"
#include "support/files.h"
#include "support/picture.h"
#include "support/png.h"
#include "support/process.h"

namespace {

using orvel_test::Finished;
using orvel_test::read_png;
using orvel_test::run;
using orvel_test::TempFolder;
using orvel_tools::Picture;

const std::string kExamples = ORVEL_BINARY_DIR "/examples/";
const std::string kDraw = ORVEL_SOURCE_DIR "/scripts/draw";

Picture read_bmp(const std::string& path) {
    std::string error;
    const auto picture = orvel_tools::read_bmp(path, error);
    EXPECT_TRUE(picture) << error;
    return picture.value_or(Picture());
}

bool equal(const Picture& a, const Picture& b) {
    return a.width == b.width && a.height == b.height && a.pixels == b.pixels;
}

TEST(Examples, TheShowcaseSavesOneScreenWithBothWritersAndSaysWhere) {
    const TempFolder folder;
    const Finished done = run({kExamples + "showcase", folder.path()});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.error, "");
    EXPECT_EQ(done.output, folder / "showcase.bmp\n" + folder / "showcase-rgba.bmp\n");
    const Picture opaque = read_bmp(folder / "showcase.bmp");
    EXPECT_EQ(opaque.width, 320);
    EXPECT_EQ(opaque.height, 240);
    EXPECT_TRUE(equal(opaque, read_bmp(folder / "showcase-rgba.bmp")));
}

TEST(Examples, TheGlyphSheetShowsTheCellOf21Enlarged) {
    const TempFolder folder;
    ASSERT_EQ(run({kExamples + "glyphs", folder.path()}).status, 0);
    const Picture sheet = read_bmp(folder / "glyphs.bmp");
    std::string cell;
    for (int row = 0; row < 7; ++row) {
        for (int column = 0; column < 5; ++column) {
            const orvel_color ink = {255, 196, 84, 255};
            cell += sheet.at(64 + 4 * column, 36 + 4 * row) == ink ? '#' : '.';
        }
        cell += '\n';
    }
    EXPECT_EQ(cell,
              ".....\n"
              ".....\n"
              "#####\n"
              ".....\n"
              ".....\n"
              ".....\n"
              "..###\n");
}

TEST(Examples, AFolderThatIsMissingIsSaidInOneLine) {
    for (const std::string name : {"showcase", "glyphs"}) {
        const Finished done = run({kExamples + name, "/nonexistent"});
        EXPECT_EQ(done.status, 1);
        EXPECT_EQ(done.error,
                  "cannot write /nonexistent/" + name + ".bmp: No such file or directory\n");
        EXPECT_EQ(done.output, "");
    }
}

TEST(Examples, AFolderIsNeededToDrawInto) {
    for (const std::string name : {"showcase", "glyphs"}) {
        const Finished done = run({kExamples + name});
        EXPECT_EQ(done.status, 2);
        EXPECT_EQ(done.error, "usage: " + kExamples + name + " FOLDER\n");
    }
}

TEST(Examples, ThePicturesOfTheReadmeAreWhatTheProgramsDrawNow) {
    const TempFolder folder;
    const Finished done = run({kDraw, ORVEL_BINARY_DIR, folder.path()});
    ASSERT_EQ(done.status, 0) << done.error;
    int pictures = 0;
    for (const auto& entry : std::filesystem::directory_iterator(ORVEL_SOURCE_DIR "/docs/images")) {
        const std::string name = entry.path().filename().string();
        ASSERT_TRUE(std::filesystem::exists(folder / name)) << name << " is drawn by no program";
        EXPECT_TRUE(equal(read_png(entry.path().string()), read_png(folder / name)))
            << "docs/images/" << name << " is stale: run scripts/pictures, then look at it";
        ++pictures;
    }
    EXPECT_GE(pictures, 3);
}

}  // namespace
