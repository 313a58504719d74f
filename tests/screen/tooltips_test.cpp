// Tooltips, which open over the rest.
#include <cstdio>
#include <vector>

#include "live.h"

namespace {

using namespace orvel_test;

const std::string kTips = scene(
    R"({"column": [{"space": 40}, {"row": [{"button": "A", "id": "a", "tip": "What A does",
                     "width": 40, "height": 30},
                    {"panel": {"text": "Words"}, "tip": "A panel", "width": 60}]}]})",
    R"("size": [120, 120], )");

TEST(TooltipsTest, ATooltipShowsAfterAPause) {
    Used used(kTips);
    used.move(20, 50);
    EXPECT_EQ(kit_screen_wait(used.screen.get(), used.now), 600);
    used.wait(599);
    EXPECT_EQ(used.popped(), "");
    used.move(21, 50);  // begins again
    EXPECT_EQ(kit_screen_wait(used.screen.get(), used.now), 600);
    used.wait(600);
    EXPECT_EQ(used.popped().substr(0, 21), "tooltip \"What A does\"") << used.popped();
    EXPECT_EQ(kit_screen_wait(used.screen.get(), used.now), -1);
    used.move(22, 51);  // stays
    EXPECT_NE(used.popped(), "");
    used.move(90, 50);
    EXPECT_EQ(used.popped(), "");
    used.wait(600);
    EXPECT_EQ(used.popped().substr(0, 17), "tooltip \"A panel\"");
    used.leave();
    EXPECT_EQ(used.popped(), "");
}

/// The rows of the tooltip of a button that lies so far down.
std::vector<std::vector<orvel_color>> tooltip_at(int down) {
    Used used(scene(R"({"column": [{"space": )" + std::to_string(down) +
                        R"(}, {"button": "A", "tip": "What A does", "id": "a", "height": 30}]})",
                    R"("size": [120, 120], )"));
    used.move(20, down + 15);
    used.wait(600);
    int x = 0, y = 0, w = 0, h = 0;
    const std::string line = used.popped();
    EXPECT_EQ(std::sscanf(line.c_str(), "tooltip \"What A does\" %d,%d %dx%d", &x, &y, &w, &h), 4);
    const CanvasPtr canvas = drawn(used.screen.get());
    std::vector<std::vector<orvel_color>> rows(static_cast<std::size_t>(h));
    for (auto& row : rows) {
        for (int i = 0; i < w; ++i) {
            row.push_back(orvel_canvas_pixel_get(canvas.get(), x + i, y));
        }
        ++y;
    }
    return rows;
}

TEST(TooltipsTest, ATooltipPointsAtWhatItTellsOf) {
    const auto above = tooltip_at(60), below = tooltip_at(0);
    const std::size_t high = above.size(), tip = 3;
    ASSERT_EQ(below.size(), high);
    for (std::size_t row = 0; row <= tip; ++row) {
        EXPECT_EQ(below[row], above[high - 1 - row]) << "row " << row << " of the tip";
    }
    for (std::size_t row = 1; row + tip + 1 < high; ++row) {
        EXPECT_EQ(below[row + tip], above[row]) << "row " << row << " of the words";
    }
    EXPECT_EQ(below[high - 1], above[0]);
}

TEST(TooltipsTest, ATooltipGoesByAPressAKeyAndTheWheel) {
    for (int way = 0; way < 3; ++way) {
        Used used(kTips);
        used.move(20, 50);
        used.wait(600);
        EXPECT_NE(used.popped(), "");
        if (way == 0) used.click(20, 50);
        if (way == 1) used.key(KIT_KEY_F1);
        if (way == 2) used.wheel(20, 50, 120);
        EXPECT_EQ(used.popped(), "") << way;
        used.wait(10000);
        EXPECT_EQ(used.popped(), "") << way;
    }
    Used used(kTips);
    used.focus("a");
    used.move(20, 50);
    used.wait(600);
    used.key(KIT_KEY_ESCAPE);
    EXPECT_EQ(used.popped(), "");
}

TEST(TooltipsTest, ATapShowsNoTooltip) {
    for (const int x : {20, 90}) {  // a button; a panel, which cannot be used
        Used used(kTips);
        used.click(x, 50);
        EXPECT_EQ(kit_screen_wait(used.screen.get(), used.now), -1) << x;
        used.wait(600);
        EXPECT_EQ(used.popped(), "") << x;
        used.move(110 - x, 51);  // the other one
        used.wait(600);
        EXPECT_NE(used.popped(), "") << x;
    }
}

TEST(TooltipsTest, ATapBesideAListShowsNoTooltip) {
    Used used(scene(
        R"({"column": [{"dropdown": "A", "items": ["A", "B"], "id": "it", "height": 20},
            {"space": 80}, {"button": "B", "id": "b", "tip": "What B does", "height": 30}]})",
        R"("size": [120, 130], )"));
    used.click(20, 10);
    used.click(20, 115);
    EXPECT_EQ(used.popped(), "");
    used.wait(600);
    EXPECT_EQ(used.popped(), "");
}

TEST(TooltipsTest, ATooltipStaysOnTheScreen) {
    const auto tip = [](const char* head, const char* space) {
        Used used(scene(std::string(R"({"column": [{"space": )") + space +
                            R"(}, {"button": "A", "tip": "What it does", "height": 20}]})",
                        head));
        used.move(5, std::atoi(space) + 5);
        used.wait(600);
        const std::string popped = used.popped();
        return popped.substr(popped.rfind('"') + 2);
    };
    EXPECT_EQ(tip(R"("size": [200, 100], )", "60"), "54,38 91x22\n");
    EXPECT_EQ(tip(R"("size": [200, 100], )", "0"), "54,20 91x22\n");
    EXPECT_EQ(tip(R"("size": [40, 30], )", "8"), "0,8 40x22\n");
    EXPECT_EQ(tip(R"("size": [40, 10], )", "0"), "0,0 40x10\n");
}

}  // namespace
