// What orvel.h raises as an exception is a status here; all else is the call of the same name.
#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "orvel_kit.h"
#include "support/bitmap_files.h"
#include "system/allocations.h"

namespace {

using namespace orvel_test;

TEST(GuardedTest, ACanvasIsMadeOrNull) {
    const CanvasPtr canvas(kit_canvas(3, 2));
    EXPECT_EQ(picture(canvas.get()), "...\n...\n");
    EXPECT_EQ(kit_canvas(0, 2), nullptr);
    EXPECT_EQ(kit_canvas(3, -1), nullptr);
}

class GuardedFilesTest : public BitmapTest {};

TEST_F(GuardedFilesTest, ABitmapOfNoPossibleWidthIsRefused) {
    write_file(path("pic.bmp"), BmpHeader{-2, 2}.bytes() + kTwoByTwo);
    const auto canvas = make_canvas(4, 3);
    EXPECT_THROW(orvel_icon_draw_bitmap(canvas.get(), "pic", 0, 0), std::length_error);
    EXPECT_EQ(kit_bitmap(canvas.get(), "pic", 0, 0), -1);
    EXPECT_EQ(kit_bitmap(canvas.get(), "none", 0, 0), -1);
    write_file(path("pic.bmp"), BmpHeader{2, 2}.bytes() + kTwoByTwo);
    EXPECT_EQ(kit_bitmap(canvas.get(), "pic", 1, 0), 0);
    EXPECT_EQ(picture(canvas.get(), letters()), ".bw.\n.rg.\n....\n");
}

TEST_F(GuardedFilesTest, AThemeIsWrittenAndRead) {
    std::filesystem::create_directories(root_ / "UI");
    orvel_theme dark = {}, read = {};
    orvel_theme_default(&dark);
    orvel_theme_light(&read);
    EXPECT_EQ(kit_theme_save(&dark, "mine.json"), 0);
    EXPECT_EQ(kit_theme_load(&read, "mine"), 0);
    EXPECT_EQ(read.accent, dark.accent);
    EXPECT_EQ(read.background, dark.background);
    EXPECT_EQ(kit_theme_load(&read, "none"), -1);
    EXPECT_EQ(kit_theme_save(nullptr, "mine"), -1);
}

TEST_F(GuardedFilesTest, PicturesAreWrittenWithAndWithoutAlpha) {
    const auto canvas = make_canvas(2, 2);
    EXPECT_EQ(kit_save_bmp(canvas.get(), path("plain.bmp").c_str()), 0);
    EXPECT_EQ(kit_save_bmp_rgba(canvas.get(), path("alpha.bmp").c_str()), 0);
    EXPECT_EQ(read_file(path("plain.bmp")).size(), 54u + 2 * 8);
    EXPECT_EQ(read_file(path("alpha.bmp")).size(), 54u + 2 * 8);
    EXPECT_EQ(read_file(path("plain.bmp"))[28], 24);  // bits a pixel
    EXPECT_EQ(read_file(path("alpha.bmp"))[28], 32);
    EXPECT_EQ(kit_save_bmp(canvas.get(), path("no/folder.bmp").c_str()), -1);
    EXPECT_EQ(kit_save_bmp_rgba(nullptr, path("null.bmp").c_str()), -1);
}

TEST_F(GuardedFilesTest, TheResourcePathIsTheProcesss) {
    write_file(root_ / "other/Icons/pic.bmp", BmpHeader{2, 2}.bytes() + kTwoByTwo);
    const auto canvas = make_canvas(2, 2);
    EXPECT_EQ(orvel_icon_draw_bitmap(canvas.get(), "pic", 0, 0), -1);
    EXPECT_EQ(kit_resource_path((root_ / "other").c_str()), 0);
    EXPECT_EQ(orvel_icon_draw_bitmap(canvas.get(), "pic", 0, 0), 0);
    EXPECT_EQ(kit_resource_path(nullptr), -1);
}

TEST_F(GuardedFilesTest, SoundsThatAreMissingOrOutOfRangeFail) {
    EXPECT_EQ(kit_play_sound("none"), -1);
    EXPECT_EQ(kit_play_music("none"), -1);
    EXPECT_EQ(kit_play_tone(0.0, 10), -1);
    EXPECT_EQ(kit_play_tone(440.0, 0), -1);
}

/// Whether the first allocation was asked for and the call then failed, without raising.
template <typename Call>
testing::AssertionResult fails_without_memory(Call call) {
    const long live = allocations_live();
    bool failed = false, raised = false;
    {
        const FailingAllocation first(1);
        try {
            failed = call();
        } catch (...) {
            raised = true;
        }
    }
    if (raised) return testing::AssertionFailure() << "raised";
    if (allocations_live() != live) return testing::AssertionFailure() << "leaked";
    return failed ? testing::AssertionSuccess() : testing::AssertionFailure() << "did not fail";
}

// Names are longer than what a string holds without an allocation.
#define A_NAME "a name of some length that has to be allocated.file"

TEST_F(GuardedFilesTest, WithoutMemoryEveryOneOfThemFails) {
    const auto canvas = make_canvas(4, 4);
    orvel_theme theme = {};
    const std::string file = path(A_NAME);
    EXPECT_TRUE(fails_without_memory([&] { return kit_canvas(3, 2) == nullptr; }));
    EXPECT_TRUE(fails_without_memory([&] { return kit_bitmap(canvas.get(), A_NAME, 0, 0) == -1; }));
    EXPECT_TRUE(fails_without_memory([&] { return kit_theme_load(&theme, A_NAME) == -1; }));
    EXPECT_TRUE(fails_without_memory([&] { return kit_theme_save(&theme, A_NAME) == -1; }));
    EXPECT_TRUE(
        fails_without_memory([&] { return kit_save_bmp(canvas.get(), file.c_str()) == -1; }));
    EXPECT_TRUE(
        fails_without_memory([&] { return kit_save_bmp_rgba(canvas.get(), file.c_str()) == -1; }));
    EXPECT_TRUE(fails_without_memory([&] { return kit_resource_path(A_NAME A_NAME) == -1; }));
    EXPECT_TRUE(fails_without_memory([&] { return kit_play_sound(A_NAME) == -1; }));
    EXPECT_TRUE(fails_without_memory([&] { return kit_play_music(A_NAME) == -1; }));
    EXPECT_TRUE(fails_without_memory([&] { return kit_play_tone(440.0, 10) == -1; }));
}

TEST(GuardedTest, ACanvasWhosePixelsDoNotFitIsNullWhereTheLibrarysRaises) {
    const FailingAllocation pixels(2);
    EXPECT_EQ(kit_canvas(3, 2), nullptr);
}

}  // namespace
