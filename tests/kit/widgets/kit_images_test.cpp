// What kit_draw() and kit_size() make of images.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "kit/widgets/kit_samples.h"
#include "support/bitmap_files.h"
#include "widgets/distinct_theme.h"

namespace {

using namespace orvel_test;

class KitImageTest : public BitmapTest {
protected:
    /// A red picture of this size with a transparent pixel at its top left.
    void save(int width, int height) {
        const CanvasPtr picture = make_canvas(width, height);
        orvel_canvas_clear(picture.get(), {200, 0, 0, 255});
        orvel_canvas_pixel(picture.get(), 0, 0, {});
        ASSERT_EQ(orvel_canvas_save_bmp_rgba(picture.get(), path("red.bmp").c_str()), 0);
    }
    orvel_theme theme_ = distinct_theme();
    kit_widget image_ = {.kind = ORVEL_WIDGET_IMAGE, .box = {3, 2, 0, 0}, .text = "red"};
};

TEST_F(KitImageTest, WantsTheSizeOfItsPicture) {
    for (const auto& [w, h] : {std::pair{7, 5}, {255, 256}, {256, 3}, {1500, 1}, {4096, 1}}) {
        save(w, h);
        int width = 0, height = 0;
        EXPECT_EQ(kit_size(&image_, &width, &height), 0);
        EXPECT_EQ(width, w);
        EXPECT_EQ(height, h);
    }
}

TEST_F(KitImageTest, WithAHeaderThatNoPictureHasWantsNoRoomAndIsRefused) {
    write_file(path("red.bmp"), BmpHeader{-2, 2}.bytes());
    const CanvasPtr canvas = make_canvas(12, 8);
    int width = 1, height = 1;
    EXPECT_EQ(kit_size(&image_, &width, &height), 0);
    EXPECT_EQ(width, 0);
    EXPECT_EQ(height, 0);
    EXPECT_EQ(kit_draw(canvas.get(), theme_, image_), -1);
}

TEST_F(KitImageTest, WithOneSideGivenTakesTheOtherFromItsPicture) {
    save(7, 5);
    const CanvasPtr whole = make_canvas(12, 8), cut = make_canvas(12, 8);
    EXPECT_EQ(kit_draw(whole.get(), theme_, image_), 0);
    image_.box.w = 7;
    EXPECT_EQ(kit_draw(cut.get(), theme_, image_), 0);
    EXPECT_EQ(checksum(cut.get()), checksum(whole.get()));
}

TEST_F(KitImageTest, IsCutToItsBox) {
    save(7, 5);
    const CanvasPtr canvas = make_canvas(12, 8);
    const Palette letters = {{'.', kBlack}, {'r', {200, 0, 0, 255}}};
    EXPECT_EQ(kit_draw(canvas.get(), theme_, image_), 0);
    EXPECT_EQ(picture(canvas.get(), letters).substr(13 * 2, 26), "....rrrrrr..\n...rrrrrrr..\n");
    orvel_canvas_clear(canvas.get(), kBlack);
    image_.box.w = 3;
    EXPECT_EQ(kit_draw(canvas.get(), theme_, image_), 0);
    EXPECT_EQ(picture(canvas.get(), letters).substr(13 * 2, 26), "....rr......\n...rrr......\n");
    orvel_canvas_clear(canvas.get(), kBlack);
    image_.box = {3, 2, 0, 1};
    EXPECT_EQ(kit_draw(canvas.get(), theme_, image_), 0);
    EXPECT_EQ(picture(canvas.get(), letters).substr(13 * 2, 26), "....rrrrrr..\n............\n");
}

TEST_F(KitImageTest, ThatIsMissingIsNotDrawnDisabledEither) {
    const CanvasPtr canvas = make_canvas(12, 8);
    image_.state = KIT_DISABLED;
    EXPECT_EQ(kit_draw(canvas.get(), theme_, image_), -1);
    EXPECT_EQ(checksum(canvas.get()), checksum(make_canvas(12, 8).get()));
}

TEST_F(KitImageTest, IsMixedWhenItIsDisabled) {
    save(7, 5);
    const CanvasPtr canvas = make_canvas(12, 8);
    image_.state = KIT_DISABLED;
    EXPECT_EQ(kit_draw(canvas.get(), theme_, image_), 0);
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 3, 2), kBlack);
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 4, 2),
              kit_mix({200, 0, 0, 255}, theme_.background, 50));
    EXPECT_EQ(orvel_canvas_pixel_get(canvas.get(), 10, 2), kBlack);
}

}  // namespace
