// kit_pixels() against its model, and the checksums that it has on every machine.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "kit/pixels/painted.h"
#include "models/pixels_model.h"
#include "support/cases.h"
#include "support/golden.h"
#include "support/random.h"
#include "support/sanitizers.h"

namespace {

using namespace orvel_test;

/// Black, white, the corners of the cube, or anything.
orvel_color random_color(Random& random) {
    const auto channel = [&random] {
        const int any = random.between(0, 255);
        return static_cast<unsigned char>(random.one_in(3) ? (any < 128 ? 0 : 255) : any);
    };
    if (random.one_in(4)) return grey(random.between(0, 255));
    return {channel(), channel(), channel(), channel()};
}

struct Format {
    explicit Format(Random& random) {
        format.layout = random.between(0, 10);
        format.dither = random.between(0, 2);
        format.turns = random.between(-5, 5);
        format.colors = random.between(1, 16);
        format.palette = palette;
        format.plane = random.between(0, format.colors - 1);
        format.keep_alpha = random.between(0, 1);
        for (int i = 0; i < format.colors; ++i) palette[i] = random_color(random);
    }
    Format(const Format&) = delete;

    orvel_color palette[16];
    kit_format format = {};
};

/// Whether the rows are the model's and all bytes around them are as they were.
bool equals_the_model(const orvel_canvas* canvas, const model::Canvas& plain, const kit_box& box,
                      const kit_format& format, std::size_t gap) {
    const auto rows = model::pixels(plain, box, format);
    const std::size_t stride = rows[0].size() + gap;
    std::vector<unsigned char> expected(rows.size() * stride + 1, 0x5a), got = expected;
    for (std::size_t y = 0; y < rows.size(); ++y) {
        std::copy(rows[y].begin(), rows[y].end(),
                  expected.begin() + static_cast<std::ptrdiff_t>(y * stride));
    }
    const std::size_t size = (rows.size() - 1) * stride + rows[0].size();
    return kit_pixels(canvas, &box, &format, got.data(), size - 1, gap ? stride : 0) == -1 &&
           got == std::vector<unsigned char>(got.size(), 0x5a) &&
           kit_pixels(canvas, &box, &format, got.data(), size, gap ? stride : 0) == 0 &&
           got == expected;
}

TEST(PixelsSweepTest, EveryBoxInEveryFormatEqualsTheModels) {
    constexpr int kCanvases = kAddressSanitizer ? 1000 : 10000, kFormatsOfEach = 100;
    for (const std::uint64_t number : some_cases(kCanvases)) {
        Random random(number);
        const int width = random.between(1, 11), height = random.between(1, 4);
        const CanvasPtr canvas = make_canvas(width, height);
        model::Canvas plain(width, height);
        for (int i = 0; i < width * height; ++i) {
            const orvel_color color = random_color(random);
            orvel_canvas_pixel(canvas.get(), i % width, i / width, color);
            plain.put(i % width, i / width, color);
        }
        for (int i = 0; i < kFormatsOfEach; ++i) {
            const Format chosen(random);
            kit_box box = {random.between(0, width - 1), random.between(0, height - 1), 0, 0};
            box.w = random.between(1, width - box.x);
            box.h = random.between(1, height - box.y);
            ASSERT_TRUE(equals_the_model(canvas.get(), plain, box, chosen.format,
                                         static_cast<std::size_t>(random.between(0, 2))))
                << "seed " << number << ", format " << i;
        }
    }
}

/// FNV-1a (Fowler, Noll, Vo).
std::uint64_t checksum_of(const std::vector<unsigned char>& bytes) {
    std::uint64_t hash = 14695981039346656037u;
    for (const unsigned byte : bytes) hash = (hash ^ byte) * 1099511628211u;
    return hash;
}

TEST(PixelsSweepTest, APictureHasTheSameBytesOnEveryMachine) {
    constexpr int kWidth = 203, kHeight = 117;
    const CanvasPtr canvas = make_canvas(kWidth, kHeight);
    model::Canvas plain(kWidth, kHeight);
    Random random(7);
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const orvel_color slope = {static_cast<unsigned char>(x), static_cast<unsigned char>(y),
                                       static_cast<unsigned char>(x + y), 255};
            const orvel_color color = x < kWidth / 2 ? random_color(random) : slope;
            orvel_canvas_pixel(canvas.get(), x, y, color);
            plain.put(x, y, color);
        }
    }
    const std::vector<orvel_color> panel = {kBlack,
                                            kInk,
                                            {0, 128, 0, 255},
                                            {0, 0, 255, 255},
                                            kRed,
                                            {255, 255, 0, 255},
                                            {255, 128, 0, 255}};
    std::string sums;
    for (int layout = KIT_RGBA; layout <= KIT_PLANE; ++layout) {
        for (int dither = KIT_DITHER_NONE; dither <= KIT_DITHER_DIFFUSED; ++dither) {
            kit_format format = format_with(panel, static_cast<kit_layout>(layout),
                                            static_cast<kit_dither>(dither));
            format.plane = 4;
            const kit_box all = {0, 0, kWidth, kHeight};
            EXPECT_TRUE(equals_the_model(canvas.get(), plain, all, format, 0));
            std::vector<unsigned char> bytes(kit_pixels_stride(&format, kWidth) * kHeight);
            ASSERT_EQ(kit_pixels(canvas.get(), nullptr, &format, bytes.data(), bytes.size(), 0), 0);
            sums += std::to_string(layout) + ' ' + std::to_string(dither) + ' ' +
                    std::to_string(checksum_of(bytes)) + '\n';
        }
    }
    expect_golden_text("kit_pixels.txt", "layout, dither, checksum", sums);
}

}  // namespace
