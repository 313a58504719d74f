// Any bytes as a series of drawing calls: no finding of the sanitizers, after every shape and text
// the canvas of the plain models, and of every icon and widget what a larger canvas shows. Shapes
// with numbers beyond 16 bits, which the models would walk for minutes, are drawn all the same, and
// the model then takes over what they drew.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "any_widget.h"
#include "harness.h"
#include "input.h"
#include "models/bitmap_model.h"
#include "models/shapes_model.h"
#include "models/text_model.h"

namespace {

using fuzz::require;

constexpr int kWidth = 24;
constexpr int kHeight = 20;

bool equal(orvel_color a, orvel_color b) { return std::memcmp(&a, &b, sizeof a) == 0; }

class Screen {
public:
    Screen(fuzz::Input input, const fuzz::Resources& resources)
        : input_(input), resources_(resources) {
        orvel_theme_default(&theme_);
    }
    ~Screen() { orvel_canvas_destroy(canvas_); }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    void run() {
        for (int calls = 0; calls < 64 && !input_.empty(); ++calls) {
            any_call();
            if (wild_) adopt();
            require(fuzz::shows(canvas_, model_.pixels()), "another pixel than the model's");
        }
    }

private:
    void any_call() {
        switch (input_.byte() % 8) {
        case 0: return shape();
        case 1: return text();
        case 2: return icon();
        case 3: return bitmap();
        case 4: return save();
        case 5: return colors();
        default: return widget();
        }
    }

    /// Makes a call on the canvas and, unless its numbers are wild, on the model.
    template <typename Actual, typename Model, typename... Values>
    void both(Actual* actual, Model* model, const Values&... values) {
        wild_ = input_.was_wild();
        actual(canvas_, values...);
        if (!wild_) model(model_, values...);
    }

    void shape() {
        const int which = input_.byte() % 6;
        const orvel_color c = input_.color();
        int n[6];
        for (int& number : n) number = input_.number();
        switch (which) {
        case 0: return both(orvel_canvas_fill_rect, model::fill_rect, n[0], n[1], n[2], n[3], c);
        case 1: return both(orvel_canvas_rect, model::rect, n[0], n[1], n[2], n[3], c);
        case 2: return both(orvel_canvas_line, model::line, n[0], n[1], n[2], n[3], c);
        case 3: return both(orvel_canvas_circle, model::circle, n[0], n[1], n[2], c);
        case 4: return both(orvel_canvas_fill_circle, model::fill_circle, n[0], n[1], n[2], c);
        default:
            return both(orvel_canvas_fill_triangle, model::fill_triangle, n[0], n[1], n[2], n[3],
                        n[4], n[5], c);
        }
    }

    void text() {
        const int x = input_.number(), y = input_.number();
        const std::string text = input_.text();
        const orvel_color color = input_.color();
        wild_ = input_.was_wild();
        orvel_text_draw(canvas_, text.c_str(), x, y, color);
        if (!wild_) model::text_draw(model_, text, x, y, color);
    }

    void icon() {
        const std::string name = fuzz::any_icon(input_);
        const int x = input_.number(), y = input_.number(), size = input_.number();
        const orvel_color c = input_.color(), a = input_.color(), b = input_.color();
        wild_ = input_.was_wild();
        as_on_a_larger_canvas([&](orvel_canvas* canvas) {
            orvel_draw_icon_ex(canvas, name.c_str(), x, y, size, c, a, b);
        });
    }

    void widget() {
        const fuzz::AnyWidget any = fuzz::any_changed_widget(input_);
        wild_ = input_.was_wild();
        // Their icons take their ground from what was painted under their corner, wherever that is.
        wild_ |= any.kind == ORVEL_WIDGET_LIST_ITEM || any.kind == ORVEL_WIDGET_SEARCH;
        as_on_a_larger_canvas(
            [&](orvel_canvas* canvas) { orvel_widget_draw(any.make(canvas, &theme_).get()); });
    }

    void bitmap() {
        const int x = input_.number(), y = input_.number();
        wild_ = input_.was_wild();
        orvel_icon_draw_bitmap(canvas_, "image", x, y);
        if (wild_) return;
        const std::string file = resources_.get("Icons/image.bmp");
        const orvel_test::BitmapModel bitmap(file);
        orvel_canvas* const canvas = orvel_canvas_create(kWidth, kHeight);
        std::copy_n(model_.pixels(), kWidth * kHeight, canvas->pixels.get());
        bitmap.draw(canvas, x, y);
        std::copy_n(canvas->pixels.get(), kWidth * kHeight, model_.pixels());
        orvel_canvas_destroy(canvas);
    }

    /// Draws what has no model. Unless its numbers are wild and wrap, it is cut off at the canvas
    /// and nowhere else: on a larger canvas the same is to be seen in this part.
    template <typename Draw>
    void as_on_a_larger_canvas(const Draw& draw) {
        draw(canvas_);
        if (wild_) return;
        orvel_canvas* const larger = orvel_canvas_create(2 * kWidth, 2 * kHeight);
        for (int y = 0; y < kHeight; ++y) {
            std::copy_n(model_.pixels() + y * kWidth, kWidth,
                        larger->pixels.get() + y * 2 * kWidth);
        }
        draw(larger);
        for (int y = 0; y < kHeight; ++y) {
            std::copy_n(larger->pixels.get() + y * 2 * kWidth, kWidth,
                        model_.pixels() + y * kWidth);
        }
        orvel_canvas_destroy(larger);
    }

    void colors() {
        const orvel_color color = input_.color();
        const int x = input_.number(), y = input_.number();
        wild_ = false;
        require(equal(orvel_canvas_pixel_get(canvas_, x, y), model::pixel_get(model_, x, y)),
                "another colour than the model's");
        orvel_canvas_pixel(canvas_, x, y, color);
        model::pixel(model_, x, y, color);
        const int what = input_.byte();
        if (what % 8 == 0) orvel_theme_light(&theme_);
        if (what % 8 == 1) std::memset(&theme_, what, sizeof theme_);
        if (what % 16 == 2) {
            orvel_canvas_clear(canvas_, color);
            model::clear(model_, color);
        }
        input_.was_wild();
    }

    /// What is saved comes back when it is drawn.
    void save() {
        wild_ = false;
        const bool alpha = input_.byte() % 2 == 1;
        const auto writer = alpha ? orvel_canvas_save_bmp_rgba : orvel_canvas_save_bmp;
        require(writer(canvas_, resources_.path("Icons/image.bmp").c_str()) == 0, "not saved");
        orvel_canvas* const copy = orvel_canvas_create(kWidth, kHeight);
        require(orvel_icon_draw_bitmap(copy, "image", 0, 0) == 0, "not read back");
        model::Canvas expected = model_;
        for (int i = 0; i < kWidth * kHeight; ++i) {
            orvel_color& pixel = expected.pixels()[i];
            if (!alpha) pixel.a = 255;
            if (pixel.a == 0) pixel = {0, 0, 0, 255};
        }
        require(fuzz::shows(copy, expected.pixels()), "saved another pixel");
        orvel_canvas_destroy(copy);
    }

    void adopt() { std::copy_n(canvas_->pixels.get(), kWidth * kHeight, model_.pixels()); }

    fuzz::Input input_;
    const fuzz::Resources& resources_;
    orvel_canvas* const canvas_ = orvel_canvas_create(kWidth, kHeight);
    model::Canvas model_{kWidth, kHeight};
    orvel_theme theme_;
    bool wild_ = false;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::Resources resources;
    resources.put("Icons/image.bmp", "");
    Screen(fuzz::Input(data, size), resources).run();
    return 0;
}
