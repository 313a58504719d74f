// The example hosts as people run them, and the pictures of the README that they drew.
#include <gtest/gtest.h>

#include <filesystem>

#include "orvel_kit.h"
#include "picture.h"
#include "support/files.h"
#include "support/picture.h"
#include "support/process.h"
#include "tools/png.h"
#include "widgets/kinds.h"

namespace {

using orvel_test::Finished;
using orvel_test::read_png;
using orvel_test::run;
using orvel_test::TempFolder;
using orvel_tools::Picture;

const std::string kExamples = ORVEL_BINARY_DIR "/examples/";

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

/// Whether any pixel of the box differs from the sheet's first one.
bool drawn_in(const Picture& sheet, int x, int y, int w, int h) {
    for (int i = 0; i < w * h; ++i) {
        if (!(sheet.at(x + i % w, y + i / w) == sheet.at(0, 0))) return true;
    }
    return false;
}

TEST(Examples, TheIconSheetsShowEveryIconAtThreeSizesAboveItsNameOnBothThemes) {
    const TempFolder folder;
    const Finished done = run({kExamples + "icon_sheets", folder.path()});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.output, folder / "icons-dark.bmp\n" + folder / "icons-light.bmp\n");
    int count = 0;
    orvel_icon_list(&count);
    for (const std::string name : {"icons-dark.bmp", "icons-light.bmp"}) {
        const Picture sheet = read_bmp(folder / name);
        const auto caption = orvel_test::make_canvas(120, 18);
        orvel_theme theme;
        name == "icons-dark.bmp" ? orvel_theme_default(&theme) : orvel_theme_light(&theme);
        for (int icon = 0; icon < count; ++icon) {
            const int left = 12 + icon % 7 * 120, top = 12 + icon / 7 * 82;
            EXPECT_TRUE(drawn_in(sheet, left + 8, top, 48, 48)) << name << ", icon " << icon;
            EXPECT_TRUE(drawn_in(sheet, left + 64, top + 24, 24, 24)) << name << ", icon " << icon;
            EXPECT_TRUE(drawn_in(sheet, left + 96, top + 32, 16, 16)) << name << ", icon " << icon;
            orvel_canvas_clear(caption.get(), theme.background);
            kit_text_box(caption.get(), kit_sans_11(), orvel_icon_list(nullptr)[icon],
                         {0, 0, 120, 18}, KIT_CENTRE, theme.text);
            bool equal = true;
            for (int i = 0; i < 120 * 18; ++i) {
                equal = equal && sheet.at(left + i % 120, top + 52 + i / 120) ==
                                     orvel_canvas_pixel_get(caption.get(), i % 120, i / 120);
            }
            EXPECT_TRUE(equal) << "the name of icon " << icon << " in " << name;
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
    const orvel_color dark = {30, 30, 46, 255}, hover = {69, 71, 90, 255};
    EXPECT_EQ(screen.width, 320);
    EXPECT_EQ(screen.height, 240);
    EXPECT_EQ(screen.at(5, 40), dark);
    EXPECT_EQ(screen.at(187, 176), hover) << "the button under the pointer";
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
    EXPECT_EQ(done.output, folder / "Icons/picture.bmp\n" + folder / "gallery-dark.bmp\n" +
                               folder / "gallery-light.bmp\n" + folder / "gallery.html\n");
    const orvel_color dark = {30, 30, 46, 255}, light = {239, 241, 245, 255};
    EXPECT_EQ(read_bmp(folder / "gallery-dark.bmp").at(0, 0), dark);
    EXPECT_EQ(read_bmp(folder / "gallery-light.bmp").at(0, 0), light);
    const std::string page = orvel_test::read_file(folder / "gallery.html");
    for (const auto& kind : orvel_test::widget_kinds()) {
        std::string name = std::string(kind.constructor.name).substr(6);  // behind "orvel_"
        for (char& c : name) c = c == '_' ? c : static_cast<char>(c - 'a' + 'A');
        EXPECT_NE(
            page.find("<code>kit_draw(canvas, &amp;theme, &amp;(kit_widget){.kind = ORVEL_" + name),
            std::string::npos)
            << kind.title << " is not in the gallery";
    }
    for (const char* state : {"HOVER", "ACTIVE", "FOCUS", "DISABLED"}) {
        EXPECT_NE(page.find(".state = KIT_" + std::string(state)), std::string::npos) << state;
    }
}

TEST(Examples, AFolderThatIsMissingIsSaidInOneLine) {
    for (const std::string name : {"showcase", "glyphs", "music_player"}) {
        const Finished done = run({kExamples + name, "/nonexistent"});
        EXPECT_EQ(done.status, 1);
        EXPECT_EQ(done.error,
                  "cannot write /nonexistent/" + name + ".bmp: No such file or directory\n");
        EXPECT_EQ(done.output, "");
    }
}

TEST(Examples, AFolderIsNeededToDrawInto) {
    for (const std::string name :
         {"showcase", "glyphs", "icon_sheets", "own_icons", "typical_screen", "gallery",
          "settings_page", "music_player", "weather_energy", "live_picture"}) {
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

TEST(Examples, AnApplicationDrawsItsPicturesAndSaysWhere) {
    const TempFolder folder;
    const Finished done = run({kExamples + "settings_page", folder.path()});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.error, "");
    EXPECT_EQ(done.output, folder / "settings_dark.bmp\n" + folder / "settings_light.bmp\n");
    EXPECT_EQ(read_bmp(folder / "settings_dark.bmp").width, 640);
}

}  // namespace
