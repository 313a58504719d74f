// What holds for every widget, seen with random ones, each made from a number alone.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "kit/widgets/kit_samples.h"
#include "support/cases.h"
#include "support/random.h"
#include "widgets/distinct_theme.h"
#include "widgets/kinds.h"
#include "widgets/random_widgets.h"

namespace {

using namespace orvel_test;

constexpr int kWidth = 40, kHeight = 32, kMargin = 16;
constexpr orvel_color kGround = {9, 8, 7, 255};

const kit_face* any_face(Random& random) {
    const kit_face* const faces[] = {nullptr,       kit_sans_11(), kit_sans_14(),
                                     kit_bold_18(), kit_sans_24(), kit_mono_12()};
    return faces[random.between(0, 5)];
}

/// A random widget of the library, with what only the kit knows. Borrows its texts.
kit_widget random_record(const orvel_widget& state, std::uint64_t number) {
    Random random(~number);
    const auto side = [](int length) { return length < 0 ? 0 : length; };
    kit_widget widget = {};
    widget.kind = state.kind;
    widget.box = {state.x, state.y, side(state.w), side(state.h)};
    widget.text = random.one_in(20) ? nullptr : state.text.c_str();
    widget.hint = random.one_in(2) ? "hint" : nullptr;
    widget.icon = state.icon_name.c_str();
    widget.face = any_face(random);
    widget.state = static_cast<unsigned>(random.between(0, 15));
    widget.amount = state.amount;
    widget.value = state.value;
    widget.data = state.data.data();
    widget.count = static_cast<int>(state.data.size());
    widget.caret = random.between(-2, 14);
    widget.anchor = random.between(-2, 14);
    return widget;
}

std::vector<orvel_color> pixels(const orvel_canvas* canvas, int left, int top, int w, int h) {
    std::vector<orvel_color> all;
    for (int y = top; y < top + h; ++y) {
        for (int x = left; x < left + w; ++x) all.push_back(orvel_canvas_pixel_get(canvas, x, y));
    }
    return all;
}

/// The first pixel outside the box that is not the ground's, in words; empty when there is none.
std::string stray_pixel(const orvel_canvas* canvas, const kit_box& box) {
    for (int y = 0; y < orvel_canvas_height(canvas); ++y) {
        for (int x = 0; x < orvel_canvas_width(canvas); ++x) {
            const bool inside = x >= box.x && y >= box.y &&
                                std::int64_t{x} < std::int64_t{box.x} + box.w &&
                                std::int64_t{y} < std::int64_t{box.y} + box.h;
            if (inside || orvel_canvas_pixel_get(canvas, x, y) == kGround) continue;
            return "(" + std::to_string(x) + ", " + std::to_string(y) + ")";
        }
    }
    return "";
}

CanvasPtr drawn(const kit_widget& widget, int width, int height, int* status) {
    static const orvel_theme theme = distinct_theme();
    CanvasPtr canvas = make_canvas(width, height);
    orvel_canvas_clear(canvas.get(), kGround);
    *status = kit_draw(canvas.get(), theme, widget);
    return canvas;
}

void check(std::uint64_t number) {
    const orvel_widget state =
        random_widget(static_cast<int>(number % widget_kinds().size()), number);
    kit_widget widget = random_record(state, number);
    const std::string what = std::to_string(number) + ": " + described(state) + ", state " +
                             std::to_string(widget.state);
    int status = 0, status_again = 0;
    const CanvasPtr first = drawn(widget, kWidth, kHeight, &status);
    const auto seen = pixels(first.get(), 0, 0, kWidth, kHeight);
    const CanvasPtr again = drawn(widget, kWidth, kHeight, &status_again);
    ASSERT_EQ(seen, pixels(again.get(), 0, 0, kWidth, kHeight)) << what;
    ASSERT_EQ(status, status_again) << what;

    kit_box box = widget.box;
    ASSERT_EQ(kit_size(&widget, &box.w, &box.h), 0) << what;
    if (widget.box.x > 1 << 30 || widget.box.y > 1 << 30) {
        ASSERT_EQ(stray_pixel(first.get(), box), "") << what;
        return;
    }
    widget.box.x += kMargin;
    widget.box.y += kMargin;
    const CanvasPtr larger =
        drawn(widget, kWidth + 2 * kMargin, kHeight + 2 * kMargin, &status_again);
    ASSERT_EQ(seen, pixels(larger.get(), kMargin, kMargin, kWidth, kHeight)) << what;
    box.x += kMargin;
    box.y += kMargin;
    ASSERT_EQ(stray_pixel(larger.get(), box), "") << what;
}

TEST(KitSweepTest, KeepsToItsBoxAndLooksTheSameAgainAndElsewhere) {
    for (const std::uint64_t number : some_cases(20000)) {
        check(number);
        if (testing::Test::HasFatalFailure()) return;
    }
}

/// How many pixels have the colour of the kind's words.
long inked(const kit_widget& widget) {
    static const orvel_theme theme = distinct_theme();
    orvel_color ink = theme.text;
    if (widget.kind == ORVEL_WIDGET_BUTTON) ink = theme.button_text;
    if (widget.kind == ORVEL_WIDGET_AVATAR || widget.kind == ORVEL_WIDGET_BADGE ||
        widget.kind == ORVEL_WIDGET_WINDOW) {
        ink = theme.background;
    }
    int w = 0, h = 0, status = 0;
    kit_size(&widget, &w, &h);
    const CanvasPtr canvas = drawn(widget, w, h, &status);
    long found = 0;
    for (const orvel_color color : pixels(canvas.get(), 0, 0, w, h)) found += color == ink ? 1 : 0;
    return found;
}

// A box with more room shows no more of the words than the one that was asked for.
TEST(KitSweepTest, TheSizeWantedShowsAllOfTheWords) {
    constexpr int kSquare[] = {ORVEL_WIDGET_ICON, ORVEL_WIDGET_IMAGE};
    const kit_face* const faces[] = {kit_sans_11(), kit_bold_14(), kit_sans_24(), kit_mono_12()};
    for (kit_widget widget : usual_widgets()) {
        if (widget.kind == kSquare[0] || widget.kind == kSquare[1]) continue;
        for (const char* text : {"i", "Gr\u00f6\u00dfe \u00c5ngstr\u00f6m", "Wednesday, 23:59"}) {
            for (const kit_face* face : faces) {
                widget.box = {};
                widget.face = face;
                widget.text = text;
                widget.amount = -1;
                const long wanted = inked(widget);
                int w = 0, h = 0;
                kit_size(&widget, &w, &h);
                widget.box = {0, 0, w + 200, 0};
                // What is centred by half pixels, or as large as its box, moves but is the same.
                if (widget.kind == ORVEL_WIDGET_AVATAR) widget.box.h = h + 200;
                EXPECT_EQ(wanted, inked(widget)) << name_of_kind(widget.kind) << ' ' << text;
            }
        }
    }
}

TEST(KitSweepTest, ASideThatIsGivenStays) {
    for (kit_widget widget : usual_widgets()) {
        int w = 0, h = 0;
        widget.box = {0, 0, 37, 0};
        EXPECT_EQ(kit_size(&widget, &w, &h), 0);
        EXPECT_EQ(w, 37) << name_of_kind(widget.kind);
        widget.box = {0, 0, 0, 41};
        EXPECT_EQ(kit_size(&widget, &w, &h), 0);
        EXPECT_EQ(h, 41) << name_of_kind(widget.kind);
        widget.box = {0, 0, 37, 41};
        EXPECT_EQ(kit_size(&widget, &w, &h), 0);
        EXPECT_EQ(w, 37) << name_of_kind(widget.kind);
        EXPECT_EQ(h, 41) << name_of_kind(widget.kind);
    }
}

}  // namespace
