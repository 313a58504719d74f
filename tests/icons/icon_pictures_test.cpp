// The recipes of all icons, judged by pictures and by checksums of many more sizes and places.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "canvas/canvas.h"
#include "support/cases.h"
#include "support/golden.h"
#include "support/random.h"

namespace {

using namespace orvel_test;

constexpr orvel_color kAccent = {255, 0, 0, 255};
constexpr orvel_color kGround = {0, 0, 255, 255};

struct Place {
    int x, y;
};

std::vector<std::string> names() {
    int count = 0;
    const char** const all = orvel_icon_list(&count);
    return {all, all + count};
}

void draw(const CanvasPtr& canvas, const std::string& name, Place at, int size) {
    ASSERT_EQ(
        orvel_draw_icon_ex(canvas.get(), name.c_str(), at.x, at.y, size, kInk, kAccent, kGround), 0)
        << name;
}

void expect_pictures(int size) {
    const Palette letters = {{'.', kBlack}, {'#', kInk}, {'+', kAccent}, {'o', kGround}};
    const std::string file = "icons_" + std::to_string(size) + ".txt";
    for (const std::string& name : names()) {
        const auto canvas = make_canvas(size + 6, size + 6);
        draw(canvas, name, {3, 3}, size);
        expect_golden(file, name, canvas.get(), letters);
    }
}

TEST(IconGoldenTest, PicturesAt16) { expect_pictures(16); }
TEST(IconGoldenTest, PicturesAt24) { expect_pictures(24); }

/// FNV-1a (Fowler, Noll, Vo) over whole pixels, red in the lowest byte.
std::uint64_t fold(const CanvasPtr& canvas, std::uint64_t hash) {
    const auto count =
        static_cast<std::size_t>(canvas->width) * static_cast<std::size_t>(canvas->height);
    const orvel_color* const end = canvas->pixels.get() + count;
    for (const orvel_color* k = canvas->pixels.get(); k != end; ++k) {
        hash = (hash ^ (k->r + 256u * k->g + 65536u * k->b + 16777216u * k->a)) * 1099511628211u;
    }
    return hash;
}

/// Holds one checksum for each icon, of all that @p draw_all draws of it one after the other, to a
/// section of the goldens.
template <typename DrawAll>
void expect_checksums(const std::string& section, int width, int height, DrawAll draw_all) {
    std::ostringstream checksums;
    for (const std::string& name : names()) {
        std::uint64_t hash = 0;
        draw_all([&](const std::vector<Place>& places, int size) {
            const auto canvas = make_canvas(width, height);
            for (const Place& place : places) draw(canvas, name, place, size);
            hash = fold(canvas, hash);
        });
        checksums << name << ' ' << std::hex << hash << '\n';
    }
    expect_golden_text("icon_checksums.txt", section, checksums.str());
}

TEST(IconChecksumTest, SizesTo256AtSeveralPlaces) {
    expect_checksums("sizes 1 to 256", 32, 112, [](const auto& show) {
        for (int size = 1; size <= 256; ++size) {
            show({{4, 2}, {-30, -25}, {20, 71}, {-7, 110}, {9, -300}, {1000, 60}}, size);
        }
    });
}

TEST(IconChecksumTest, WholeUpTo48) {
    expect_checksums("whole up to 48", 56, 64, [](const auto& show) {
        for (int size = 1; size <= 48; ++size) show({{3, 5}}, size);
    });
}

TEST(IconChecksumTest, WholeAndLarge) {
    expect_checksums("whole and large", 280, 330, [](const auto& show) {
        for (const int size : {63, 64, 97, 131, 200, 255, 256}) show({{12, 5}}, size);
    });
}

TEST(IconChecksumTest, HangingOverEveryEdge) {
    expect_checksums("hanging over every edge", 24, 20, [](const auto& show) {
        for (int size = 1; size <= 256; size += 5) {
            for (const Place& at : {Place{-size / 2, -size / 3}, Place{20 - size / 2, 12},
                                    Place{10, 18 - size}, Place{1 - size, 3}}) {
                show({at}, size);
            }
        }
    });
}

// Sums and products wrap here, on purpose. Half of the icons lie over the canvas, so that there is
// something to see.
TEST(IconChecksumTest, AnySizeAtAnyPlace) {
    expect_checksums("any size at any place", 64, 48, [](const auto& show) {
        for (const std::uint64_t number : cases(200)) {
            Random random(number);
            const int size = static_cast<int>(random.next() >> random.between(33, 62)) | 1;
            const auto near = [&] { return random.between(-31 - size / 2, 32 - size / 2); };
            const auto far = [&] {
                const int distance = random.between(0, INT32_MAX) >> random.between(0, 31);
                return random.one_in(2) ? distance : -distance;
            };
            Place at = {near(), near()};
            if (random.one_in(2)) at = {far(), far()};
            show({at}, size);
        }
    });
}

TEST(IconChecksumTest, TheLargestAndTheSmallestNumbers) {
    constexpr int low = std::numeric_limits<int>::min(), high = std::numeric_limits<int>::max();
    expect_checksums("extremes", 64, 48, [&](const auto& show) {
        for (const int size :
             {1, 2, 0x15555556, 0x2aaaaaab, 0x3fffffff, 0x40000000, high - 1, high}) {
            for (const int x : {low, low + 1, -size / 2, -1, 0, high}) {
                for (const int y : {low, -size / 2, 0, 31, high}) show({{x, y}}, size);
            }
        }
    });
}

}  // namespace
