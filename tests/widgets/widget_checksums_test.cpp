// Widgets of every kind by the ten thousand, drawn over noise and held to checksums.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <sstream>

#include "canvas/canvas.h"
#include "support/cases.h"
#include "support/files.h"
#include "support/golden.h"
#include "support/random.h"
#include "widgets/distinct_theme.h"
#include "widgets/kinds.h"
#include "widgets/random_widgets.h"
#include "widgets/widget.h"

namespace {

using namespace orvel_test;

constexpr int kWidth = 48;
constexpr int kHeight = 40;
constexpr std::size_t kBytes = kWidth * kHeight * sizeof(orvel_color);

class WidgetChecksumTest : public testing::Test {
protected:
    WidgetChecksumTest() {
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
    ~WidgetChecksumTest() override { orvel_set_resource_path(""); }

    /// Draws a record, past the constructors, so that every kind has every field.
    void draw(orvel_widget& widget, const orvel_theme& theme) {
        widget.canvas = canvas_.get();
        widget.theme = &theme;
        orvel_widget_draw(&widget);
    }

    /// The checksum behind @p sum when the widget is drawn over the noise.
    std::uint64_t over_noise(orvel_widget widget, const orvel_theme& theme, std::uint64_t sum) {
        std::memcpy(canvas_->pixels.get(), noise_->pixels.get(), kBytes);
        draw(widget, theme);
        return checksum(canvas_.get(), sum);
    }

    /// Holds one checksum for each kind, made by @p of_kind from the one before, to a section of
    /// the goldens.
    template <typename OfKind>
    void expect_checksums(const std::string& section, OfKind of_kind) {
        std::ostringstream sums;
        int code = 0;
        for (const WidgetKind& kind : widget_kinds()) {
            const std::uint64_t sum = of_kind(code++, checksum(noise_.get()));
            sums << kind.title << ' ' << std::hex << sum << std::dec << '\n';
        }
        expect_golden_text("widget_checksums.txt", section, sums.str());
    }

    /// So many random widgets of each kind.
    void expect_random(const std::string& section, const orvel_theme& theme, std::uint64_t count) {
        expect_checksums(section, [&](int kind, std::uint64_t sum) {
            for (const std::uint64_t number : cases(count)) {
                const std::uint64_t seed = number * 64 + static_cast<std::uint64_t>(kind);
                sum = over_noise(random_widget(kind, seed), theme, sum);
            }
            return sum;
        });
    }

    const TempFolder root_;
    const CanvasPtr noise_ = make_canvas(kWidth, kHeight);
    const CanvasPtr canvas_ = make_canvas(kWidth, kHeight);
    orvel_theme theme_ = distinct_theme();
};

TEST_F(WidgetChecksumTest, RandomWidgets) { expect_random("random", theme_, 2000); }

TEST_F(WidgetChecksumTest, RandomWidgetsInTheDarkTheme) {
    orvel_theme_default(&theme_);
    expect_random("random, dark theme", theme_, 100);
}

TEST_F(WidgetChecksumTest, RandomWidgetsInTheLightTheme) {
    orvel_theme_light(&theme_);
    expect_random("random, light theme", theme_, 100);
}

TEST_F(WidgetChecksumTest, EverySizeUpToThirty) {
    orvel_widget widget;
    widget.text = "A|b";
    widget.icon_name = "mail";
    widget.data = {0.3, 1, 0.7};
    widget.x = 3;
    widget.y = 2;
    expect_checksums("every size up to 30", [&](int kind, std::uint64_t sum) {
        widget.kind = kind;
        for (widget.w = -3; widget.w <= 30; ++widget.w) {
            for (widget.h = -3; widget.h <= 30; ++widget.h) {
                widget.hover = widget.w % 2 == 0;
                widget.active = widget.h % 2 == 0;
                widget.amount = widget.w % 3;
                widget.value = (widget.h + 3) / 33.0;
                sum = over_noise(widget, theme_, sum);
            }
        }
        return sum;
    });
}

// In quadratic time they take longer than a test may.
TEST_F(WidgetChecksumTest, AMillionItems) {
    orvel_widget widget;
    widget.w = INT_MAX;
    widget.h = INT_MAX;
    widget.text = std::string(1'000'000, '|');
    widget.data.assign(1'000'000, 1.0);
    expect_checksums("a million items", [&](int kind, std::uint64_t sum) {
        widget.kind = kind;
        return over_noise(widget, theme_, sum);
    });
}

// A step for each of 2^31 invisible rows or columns takes seconds, and the draws that would take
// one longer than a test may.
TEST_F(WidgetChecksumTest, NoWidgetWalksOverWhatCannotBeSeen) {
    constexpr int kNumbers[] = {INT_MIN, INT_MIN / 2, -100000, 0, 100, 100000, 1 << 30, INT_MAX};
    orvel_widget widget;
    widget.icon_name = "settings";
    widget.data = {0.3, 1, 0.7};
    expect_checksums("extremes", [&](int kind, std::uint64_t sum) {
        widget.kind = kind;
        widget.text = kind == ORVEL_WIDGET_ICON ? "settings" : "A|b|c";
        for (const std::uint64_t choice : cases(200)) {
            Random random(choice);
            for (int* number : {&widget.x, &widget.y, &widget.w, &widget.h}) {
                *number = kNumbers[random.between(0, 7)];
            }
            widget.active = random.one_in(2);
            widget.hover = random.one_in(2);
            widget.amount = random.between(-1, 3);
            widget.value = random.between(0, 4) / 4.0;
            sum = over_noise(widget, theme_, sum);
            for (int turn = 0; turn < 9; ++turn) draw(widget, theme_);
        }
        return sum;
    });
}

}  // namespace
