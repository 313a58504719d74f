// The 68 recipes, judged by a model that draws the same icons from a table of their steps.
#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "canvas/canvas.h"
#include "models/icon_model.h"
#include "support/golden.h"

namespace {

using namespace orvel_test;

constexpr orvel_color kAccent = {255, 0, 0, 255};
constexpr orvel_color kGround = {0, 0, 255, 255};
constexpr IconColors kColors = {kInk, kAccent, kGround};

const IconModel& model() {
    static const IconModel table;
    return table;
}

struct Place {
    int x, y;
};

void draw(const CanvasPtr& canvas, const std::string& name, Place at, int size) {
    ASSERT_EQ(
        orvel_draw_icon_ex(canvas.get(), name.c_str(), at.x, at.y, size, kInk, kAccent, kGround), 0)
        << name;
}

std::size_t pixel_count(const CanvasPtr& canvas) {
    return static_cast<std::size_t>(canvas->width) * static_cast<std::size_t>(canvas->height);
}

/// Draws by library and model on two canvases for as long as they agree.
class Pair {
public:
    Pair(int width, int height)
        : actual_(make_canvas(width, height)), expected_(make_canvas(width, height)) {}

    bool agree(const std::string& name, Place at, int size) {
        orvel_canvas_clear(actual_.get(), kBlack);
        orvel_canvas_clear(expected_.get(), kBlack);
        draw(actual_, name, at, size);
        model().draw(expected_.get(), name, at.x, at.y, size, kColors);
        const bool same = std::memcmp(actual_->pixels.get(), expected_->pixels.get(),
                                      pixel_count(actual_) * sizeof(orvel_color)) == 0;
        EXPECT_TRUE(same) << name << " at (" << at.x << ", " << at.y << "), size " << size;
        return same;
    }

private:
    CanvasPtr actual_, expected_;
};

/// Every icon at every size up to @p largest, up to the first size at which an icon differs.
void sweep(int width, int height, Place at, int largest) {
    Pair pair(width, height);
    for (const std::string& name : model().names()) {
        for (int size = 1; size <= largest && pair.agree(name, at, size); ++size) {
        }
    }
}

TEST(IconModelTest, TheTableHoldsTheCatalogue) {
    int count = 0;
    const char** names = orvel_icon_list(&count);
    EXPECT_EQ(model().names(), std::vector<std::string>(names, names + count));
}

TEST(IconDesignsTest, EverySizeTo256AtTheTop) { sweep(280, 330, {12, 5}, 256); }
TEST(IconDesignsTest, EverySizeTo256AtTheCorner) { sweep(64, 48, {0, 0}, 256); }
TEST(IconDesignsTest, EverySizeTo256LowOnTheCanvas) { sweep(64, 400, {20, 300}, 256); }
TEST(IconDesignsTest, EverySizeTo256HangingOverTheTopLeft) { sweep(64, 48, {-21, -30}, 256); }
TEST(IconDesignsTest, EverySizeTo256HangingOverTheBottomRight) { sweep(64, 48, {50, 40}, 256); }
TEST(IconDesignsTest, EverySizeTo256FarAboveTheCanvas) { sweep(64, 48, {-90, -150}, 256); }
TEST(IconDesignsTest, EverySizeTo256FarRightOfTheCanvas) { sweep(64, 48, {100000, 3}, 256); }

// Sums and products wrap here, on purpose.
TEST(IconDesignsTest, AnySizeAtAnyPlace) {
    Pair pair(64, 48);
    std::mt19937 random(20240607);
    const auto any_int = [&random] {
        return static_cast<int>(static_cast<std::uint32_t>(random()) >> (random() % 32)) *
               (random() % 2 ? 1 : -1);
    };
    for (const std::string& name : model().names()) {
        for (int i = 0; i < 200; ++i) {
            const int size = static_cast<int>(random() >> (1 + random() % 30)) | 1;
            // Half of them lie over the canvas, so that there is something to see.
            const bool over = random() % 2 == 0;
            const auto near = [&] {
                return 32 - static_cast<int>(random() % 64 + unsigned(size) / 2);
            };
            const Place at = over ? Place{near(), near()} : Place{any_int(), any_int()};
            if (!pair.agree(name, at, size)) break;
        }
    }
}

TEST(IconDesignsTest, TheLargestAndTheSmallestNumbers) {
    constexpr int low = std::numeric_limits<int>::min(), high = std::numeric_limits<int>::max();
    Pair pair(64, 48);
    for (const std::string& name : model().names()) {
        for (const int size :
             {1, 2, 0x15555556, 0x2aaaaaab, 0x3fffffff, 0x40000000, high - 1, high}) {
            for (const int x : {low, low + 1, -size / 2, -1, 0, high}) {
                for (const int y : {low, -size / 2, 0, 31, high}) {
                    if (!pair.agree(name, {x, y}, size)) return;
                }
            }
        }
    }
}

// ---- Goldens

void expect_pictures(int size) {
    const Palette letters = {{'.', kBlack}, {'#', kInk}, {'+', kAccent}, {'o', kGround}};
    const std::string file = "icons_" + std::to_string(size) + ".txt";
    for (const std::string& name : model().names()) {
        const auto canvas = make_canvas(size + 6, size + 6);
        draw(canvas, name, {3, 3}, size);
        expect_golden(file, name, canvas.get(), letters);
    }
}

TEST(IconGoldenTest, PicturesAt16) { expect_pictures(16); }
TEST(IconGoldenTest, PicturesAt24) { expect_pictures(24); }

/// FNV-1a (Fowler, Noll, Vo) over whole pixels, red in the lowest byte.
std::uint64_t fold(const CanvasPtr& canvas, std::uint64_t hash) {
    const orvel_color* const end = canvas->pixels.get() + pixel_count(canvas);
    for (const orvel_color* k = canvas->pixels.get(); k != end; ++k) {
        hash = (hash ^ (k->r + 256u * k->g + 65536u * k->b + 16777216u * k->a)) * 1099511628211u;
    }
    return hash;
}

TEST(IconGoldenTest, AChecksumOverSizesTo256AtSeveralPlaces) {
    constexpr Place kPlaces[] = {{4, 2}, {-30, -25}, {20, 71}, {-7, 110}, {9, -300}, {1000, 60}};
    std::ostringstream checksums;
    for (const std::string& name : model().names()) {
        std::uint64_t hash = 0;
        for (int size = 1; size <= 256; ++size) {
            const auto canvas = make_canvas(32, 112);
            for (const Place& place : kPlaces) draw(canvas, name, place, size);
            hash = fold(canvas, hash);
        }
        checksums << name << ' ' << std::hex << hash << '\n';
    }
    expect_golden_text("icon_checksums.txt", "sizes 1 to 256", checksums.str());
}

}  // namespace
