// Widgets by the hundred thousand, against the model that restates them.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <sstream>

#include "canvas/canvas.h"
#include "support/files.h"
#include "support/golden.h"
#include "support/random.h"
#include "support/random_widgets.h"
#include "support/widget_samples.h"
#include "widgets/widget.h"

namespace {

using namespace orvel_test;

constexpr int kWidth = 48;
constexpr int kHeight = 40;
constexpr std::size_t kBytes = kWidth * kHeight * sizeof(orvel_color);

void copy(const orvel_canvas* from, orvel_canvas* to) {
    std::memcpy(to->pixels.get(), from->pixels.get(), kBytes);
}

/// The library's drawing of the state, past its constructors, so that every kind has every field.
void draw(const WidgetState& state, orvel_canvas* canvas, const orvel_theme* theme) {
    orvel_widget widget;
    widget.kind = state.kind;
    widget.canvas = canvas;
    widget.theme = theme;
    widget.text = state.text;
    widget.icon_name = state.icon_name;
    widget.x = state.x;
    widget.y = state.y;
    widget.w = state.w;
    widget.h = state.h;
    widget.hover = state.hover;
    widget.active = state.active;
    widget.amount = state.amount;
    widget.value = state.value;
    widget.data = state.data;
    orvel_widget_draw(&widget);
}

class WidgetSweepTest : public testing::Test {
protected:
    WidgetSweepTest() {
        Random random(1);
        for (std::size_t i = 0; i < kBytes; ++i) {
            unsigned char* const bytes = reinterpret_cast<unsigned char*>(noise_->pixels.get());
            bytes[i] = static_cast<unsigned char>(random.next());
        }
        const auto image = make_canvas(5, 4);
        orvel_canvas_line(image.get(), 0, 0, 4, 3, kInk);
        write_file(root_ / "Icons/keep", "");
        orvel_canvas_save_bmp(image.get(), (root_ / "Icons/picture.bmp").c_str());
        orvel_set_resource_path(root_.path().c_str());
    }
    ~WidgetSweepTest() override { orvel_set_resource_path(""); }

    /// Whether library and model paint the same over the noise.
    bool equal(const WidgetState& state) {
        copy(noise_.get(), actual_.get());
        copy(noise_.get(), expected_.get());
        draw(state, actual_.get(), &theme_);
        perform(widget_calls(state, theme_), expected_.get());
        return std::memcmp(actual_->pixels.get(), expected_->pixels.get(), kBytes) == 0;
    }

    const TempFolder root_;
    const CanvasPtr noise_ = make_canvas(kWidth, kHeight);
    const CanvasPtr actual_ = make_canvas(kWidth, kHeight);
    const CanvasPtr expected_ = make_canvas(kWidth, kHeight);
    orvel_theme theme_ = distinct_theme();
};

TEST_F(WidgetSweepTest, RandomWidgetsAreThoseOfTheModel) {
    for (std::uint64_t number = 0; number < 280'000; ++number) {
        const WidgetState state = random_widget(number);
        ASSERT_TRUE(equal(state)) << "widget " << number << ": " << described(state);
    }
}

TEST_F(WidgetSweepTest, EverySizeUpToThirtyIsThatOfTheModel) {
    WidgetState state;
    state.text = "A|b";
    state.icon_name = "mail";
    state.data = {0.3, 1, 0.7};
    state.x = 3;
    state.y = 2;
    for (state.kind = 0; state.kind < 28; ++state.kind) {
        for (state.w = -3; state.w <= 30; ++state.w) {
            for (state.h = -3; state.h <= 30; ++state.h) {
                state.hover = state.w % 2 == 0;
                state.active = state.h % 2 == 0;
                state.amount = state.w % 3;
                state.value = (state.h + 3) / 33.0;
                ASSERT_TRUE(equal(state)) << described(state);
            }
        }
    }
}

TEST_F(WidgetSweepTest, ChecksumsOfEveryKindInThreeThemes) {
    orvel_theme dark, light;
    orvel_theme_default(&dark);
    orvel_theme_light(&light);
    const struct {
        const char* name;
        orvel_theme theme;
    } themes[] = {{"distinct", theme_}, {"dark", dark}, {"light", light}};
    for (const auto& [name, theme] : themes) {
        std::ostringstream sums;
        for (int kind = 0; kind < 28; ++kind) {
            std::uint64_t sum = checksum(noise_.get());
            for (std::uint64_t turn = 0; turn < 100; ++turn) {
                copy(noise_.get(), actual_.get());
                draw(random_widget(28'000'000 + turn * 28 + std::uint64_t(kind)), actual_.get(),
                     &theme);
                sum = checksum(actual_.get(), sum);
            }
            sums << kind << ' ' << std::hex << sum << std::dec << '\n';
        }
        expect_golden_text("widget_checksums.txt", name, sums.str());
    }
}

// A step for each of 2^31 invisible rows or columns takes seconds, and the draws that would take
// one longer than a test may.
TEST_F(WidgetSweepTest, NoWidgetWalksOverWhatCannotBeSeen) {
    const auto canvas = make_canvas(32, 24);
    constexpr int kNumbers[] = {INT_MIN, INT_MIN / 2, -100000, 0, 100, 100000, 1 << 30, INT_MAX};
    WidgetState state;
    state.icon_name = "settings";
    state.data = {0.3, 1, 0.7};
    for (state.kind = 0; state.kind < 28; ++state.kind) {
        state.text = state.kind == ORVEL_WIDGET_ICON ? "settings" : "A|b|c";
        for (std::uint64_t choice = 0; choice < 200; ++choice) {
            Random random(choice);
            state.x = kNumbers[random.between(0, 7)];
            state.y = kNumbers[random.between(0, 7)];
            state.w = kNumbers[random.between(0, 7)];
            state.h = kNumbers[random.between(0, 7)];
            state.active = random.one_in(2);
            state.hover = random.one_in(2);
            state.amount = random.between(-1, 3);
            state.value = random.between(0, 4) / 4.0;
            draw(state, canvas.get(), &theme_);
            const std::uint64_t once = checksum(canvas.get());
            for (int turn = 0; turn < 9; ++turn) draw(state, canvas.get(), &theme_);
            ASSERT_EQ(checksum(canvas.get()), once) << described(state);
        }
    }
}

// In quadratic time they take longer than a test may.
TEST_F(WidgetSweepTest, AMillionItemsAreThoseOfTheModel) {
    WidgetState state;
    state.w = INT_MAX;
    state.h = INT_MAX;
    state.text = std::string(1'000'000, '|');
    state.data.assign(1'000'000, 1.0);
    for (const int kind : {ORVEL_WIDGET_TABS, ORVEL_WIDGET_MENU, ORVEL_WIDGET_BARS,
                           ORVEL_WIDGET_LABEL, ORVEL_WIDGET_BUTTON}) {
        state.kind = kind;
        ASSERT_TRUE(equal(state)) << kind;
    }
}

}  // namespace
