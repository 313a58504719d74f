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

TEST(Examples, TheIconSheetsShowEveryIconAtFiveSizesOnBothThemes) {
    const TempFolder folder;
    const Finished done = run({kExamples + "icon_sheets", folder.path()});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.output, folder / "icons-dark.bmp\n" + folder / "icons-light.bmp\n");
    for (const std::string name : {"icons-dark.bmp", "icons-light.bmp"}) {
        const Picture sheet = read_bmp(folder / name);
        for (int icon = 0; icon < 68; ++icon) {
            const int left = 10 + icon / 17 * 314, top = 10 + icon % 17 * 84;
            int drawn = 0, box = left + 74;
            for (const int side : {16, 24, 32, 48, 64}) {
                int i = 0;
                while (i < side * 64 &&
                       sheet.at(box + i % side, top + i / side) == sheet.at(0, 0)) {
                    ++i;
                }
                drawn += i < side * 64;
                box += side + 10;
            }
            EXPECT_EQ(drawn, 5) << name << ", icon " << icon;
        }
    }
}

TEST(Examples, AHostShowsItsOwnBitmapsInTheColoursOfItsOwnTheme) {
    const TempFolder folder;
    const Finished done = run({kExamples + "own_icons", folder.path()});
    EXPECT_EQ(done.status, 0) << done.error;
    EXPECT_EQ(done.output, folder / "own-icons.bmp\n");
    const Picture screen = read_bmp(folder / "own-icons.bmp");
    const orvel_color background = {0x1f, 0x2a, 0x2e, 255}, yolk = {0xf7, 0xb7, 0x33, 255};
    EXPECT_EQ(screen.at(0, 30), background);
    EXPECT_EQ(screen.at(8 + 20 + 16, 36 + 10 + 15), yolk);
}

TEST(Examples, AHostWithoutItsResourcesSaysWhichOneIsMissing) {
    const TempFolder folder;
    const auto run_there = [&folder] {
        return run(
            {"env", "ORVELSDK_PATH=" + folder.path(), kExamples + "own_icons", folder.path()});
    };
    Finished done = run_there();
    EXPECT_EQ(done.status, 1);
    EXPECT_EQ(done.error, "no theme \"kitchen\" in the folder UI of the resources\n");
    orvel_test::write_file(folder / "Resources/UI/kitchen.json", "{}");
    done = run_there();
    EXPECT_EQ(done.status, 1);
    EXPECT_EQ(done.error, "no bitmap \"egg\" in the folder Icons of the resources\n");
    EXPECT_FALSE(std::filesystem::exists(folder / "own-icons.bmp"));
}

TEST(Examples, TheTypicalScreenGoesFromStartToShutdown) {
    const TempFolder folder;
    const Finished done =
        run({"env", "ORVELSDK_PATH=" + folder.path(), kExamples + "typical_screen", folder.path()});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.output, folder / "typical-screen.bmp\n");
    EXPECT_EQ(done.error, "[OrvelSDK] inizializzato (v0.1.0)\n[OrvelSDK] suono non trovato: " +
                              (folder / "Resources/Sounds/click\n[OrvelSDK] chiuso\n"));
    const Picture screen = read_bmp(folder / "typical-screen.bmp");
    const orvel_color black = {0, 0, 0, 255}, hover = {69, 71, 90, 255},
                      accent = {137, 180, 250, 255};
    EXPECT_EQ(screen.width, 320);
    EXPECT_EQ(screen.height, 240);
    EXPECT_EQ(screen.at(109, 119), black);
    EXPECT_EQ(screen.at(110, 120), hover);
    EXPECT_EQ(screen.at(209, 143), hover);
    EXPECT_EQ(screen.at(210, 144), black);
    EXPECT_EQ(screen.at(136 + 24, 64 + 20), accent);
}

TEST(Examples, TheTypicalScreenShipsItsClick) {
    EXPECT_EQ(
        orvel_test::read_file(ORVEL_SOURCE_DIR "/examples/resources/Sounds/click.wav").substr(0, 4),
        "RIFF");
}

TEST(Examples, TheGalleryShowsEveryKindBesideItsCall) {
    const TempFolder folder;
    const Finished done = run({kExamples + "gallery", folder.path()});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.error, "");
    EXPECT_EQ(done.output, folder / "Icons/target.bmp\n" + folder / "gallery-dark.bmp\n" +
                               folder / "gallery-light.bmp\n" + folder / "gallery.html\n");
    const orvel_color dark = {30, 30, 46, 255}, light = {239, 241, 245, 255};
    EXPECT_EQ(read_bmp(folder / "gallery-dark.bmp").at(0, 0), dark);
    EXPECT_EQ(read_bmp(folder / "gallery-light.bmp").at(0, 0), light);
    const std::string page = orvel_test::read_file(folder / "gallery.html");
    for (const char* kind :
         {"window",   "panel",     "label",  "button",  "toggle",    "checkbox", "slider",
          "progress", "textbox",   "icon",   "image",   "separator", "card",     "radio",
          "dropdown", "spinner",   "rating", "stepper", "tabs",      "avatar",   "badge",
          "titlebar", "list_item", "menu",   "bars",    "search",    "tooltip",  "statusbar"}) {
        EXPECT_NE(page.find("<code>orvel_widget_" + std::string(kind) + "(canvas, theme, "),
                  std::string::npos)
            << kind;
    }
    EXPECT_NE(page.find("<br>orvel_widget_set_hover(widget, 1)</code>"), std::string::npos);
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
    for (const std::string name :
         {"showcase", "glyphs", "icon_sheets", "own_icons", "typical_screen", "gallery"}) {
        const Finished done = run({kExamples + name});
        EXPECT_EQ(done.status, 2);
        EXPECT_EQ(done.error, "usage: " + kExamples + name + " FOLDER\n");
    }
}

TEST(Examples, ScreensRenderedOnAllCoresAreThoseOfOneThread) {
    const Finished done = run({kExamples + "threads", "300"});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.error, "");
    EXPECT_EQ(done.output.rfind("300 screens of 320 x 240 pixels, 16 widgets and an icon each\n"
                                "  1 worker: ",
                                0),
              0u)
        << done.output;
}

TEST(Examples, ThreadsNeedsAtLeastOneScreen) {
    for (const std::string screens : {"0", "-3", "many"}) {
        const Finished done = run({kExamples + "threads", screens});
        EXPECT_EQ(done.status, 2);
        EXPECT_EQ(done.error, "usage: threads [SCREENS]\n");
    }
}

TEST(Examples, TheDemoOpensNoWindowWhereThereIsNoDisplay) {
#ifdef __APPLE__
    GTEST_SKIP() << "macOS has a display without saying so";
#endif
    const Finished done = run(
        {"env", "-u", "DISPLAY", "-u", "WAYLAND_DISPLAY", ORVEL_SOURCE_DIR "/demo", "--window"});
    EXPECT_EQ(done.status, 1);
    EXPECT_EQ(done.error, "demo: there is no display to open a window on\n");
    EXPECT_EQ(done.output, "");
}

#ifdef ORVEL_HAS_LETTERS
const std::string kPages[] = {"settings_page", "music_player", "weather_energy"};

TEST(Examples, AnApplicationDrawsItsPicturesAndSaysWhere) {
    const TempFolder folder;
    const Finished done = run({kExamples + "settings_page", folder.path()});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.error, "");
    EXPECT_EQ(done.output, folder / "settings_dark.bmp\n" + folder / "settings_light.bmp\n");
    EXPECT_EQ(read_bmp(folder / "settings_dark.bmp").width, 640);
}

TEST(Examples, AnApplicationTakesItsFontsFromTheCommandLine) {
    const TempFolder folder;
    for (const std::string& name : kPages) {
        const Finished done = run({kExamples + name, folder.path(), folder / "a", folder / "b"});
        EXPECT_EQ(done.status, 1);
        EXPECT_EQ(done.error, "letters: " + folder / "a, 11 pixels: cannot be opened as a font\n");
        EXPECT_EQ(done.output, "");
    }
}

TEST(Examples, AnApplicationSaysWhatItsArgumentsAre) {
    for (const std::string& name : kPages) {
        const Finished done = run({kExamples + name});
        EXPECT_EQ(done.status, 2);
        EXPECT_EQ(done.error, "usage: " + kExamples + name + " FOLDER [REGULAR_FONT BOLD_FONT]\n");
    }
}

TEST(Examples, AnApplicationSaysInOneLineThatItsFolderIsMissing) {
    const Finished done = run({kExamples + "music_player", "/nonexistent"});
    EXPECT_EQ(done.status, 1);
    EXPECT_EQ(done.error,
              "cannot write /nonexistent/music_player.bmp: No such file or directory\n");
}
#endif

/// Whether an application draws the picture @p name, with letters from outside the library.
bool shows_letters(const std::string& name) {
    constexpr const char* kWithLetters[] = {"settings", "music_player", "weather_energy", "live_"};
    return std::any_of(std::begin(kWithLetters), std::end(kWithLetters),
                       [&name](const char* start) { return name.rfind(start, 0) == 0; });
}

/// Draws all pictures and compares with them those of docs/images that show letters, or do not.
void expect_pictures_as_drawn(bool with_letters) {
    const TempFolder folder;
    const Finished done = run({kDraw, ORVEL_BINARY_DIR, folder.path()});
    ASSERT_EQ(done.status, 0) << done.error;
    int pictures = 0;
    for (const auto& entry : std::filesystem::directory_iterator(ORVEL_SOURCE_DIR "/docs/images")) {
        const std::string name = entry.path().filename().string();
        if (shows_letters(name) != with_letters) continue;
        ASSERT_TRUE(std::filesystem::exists(folder / name)) << name << " is drawn by no program";
        EXPECT_TRUE(equal(read_png(entry.path().string()), read_png(folder / name)))
            << "docs/images/" << name << " is stale: run scripts/pictures, then look at it";
        ++pictures;
    }
    EXPECT_GE(pictures, 3);
}

TEST(Examples, ThePicturesOfTheReadmeAreWhatTheProgramsDrawNow) { expect_pictures_as_drawn(false); }

TEST(Examples, ThePicturesOfTheReadmeThatShowLettersAreWhatTheProgramsDrawNow) {
#ifndef ORVEL_LETTERS_AS_PICTURED
    GTEST_SKIP() << "they were drawn with FreeType 2.12.1; another version may draw other letters";
#endif
    expect_pictures_as_drawn(true);
}

}  // namespace
