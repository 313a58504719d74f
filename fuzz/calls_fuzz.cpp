// Any bytes as a series of drawing calls: no finding of the sanitizers, and after every call the
// canvas of the plain models. Calls with numbers beyond 16 bits, which the models would walk for
// minutes, are made all the same, and the model then takes over what they drew.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "harness.h"
#include "input.h"
#include "models/bitmap_model.h"
#include "models/icon_model.h"
#include "models/shapes_model.h"
#include "models/text_model.h"
#include "widget_calls.h"

namespace {

using fuzz::require;
using orvel_test::Call;

constexpr int kWidth = 24;
constexpr int kHeight = 20;

bool equal(orvel_color a, orvel_color b) { return std::memcmp(&a, &b, sizeof a) == 0; }

class Screen {
public:
    Screen(fuzz::Input input, const fuzz::Resources& resources, const orvel_test::IconModel& icons)
        : input_(input), resources_(resources), icons_(icons) {
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

    void shape() {
        Call call{static_cast<Call::Function>(input_.byte() % 6), {}, "", input_.color()};
        for (int i = 0; i < 6; ++i) call.numbers.push_back(input_.number());
        wild_ = input_.was_wild();
        orvel_test::perform({call}, canvas_);
        if (!wild_) perform(call);
    }

    void text() {
        const Call call{
            Call::kWrite, {input_.number(), input_.number()}, input_.text(), input_.color()};
        wild_ = input_.was_wild();
        orvel_test::perform({call}, canvas_);
        if (!wild_) perform(call);
    }

    void icon() {
        const std::string name = fuzz::any_icon(input_);
        const int x = input_.number(), y = input_.number(), size = input_.number();
        const orvel_color c = input_.color(), a = input_.color(), b = input_.color();
        wild_ = input_.was_wild();
        orvel_draw_icon_ex(canvas_, name.c_str(), x, y, size, c, a, b);
        if (!wild_) draw_icon(name, x, y, size, {c, a, b});
    }

    void bitmap() {
        const Call call{Call::kBitmap, {input_.number(), input_.number()}, "image", {}};
        wild_ = input_.was_wild();
        orvel_test::perform({call}, canvas_);
        if (!wild_) perform(call);
    }

    void widget() {
        const fuzz::WidgetPair pair = fuzz::any_widget(input_, canvas_, &theme_);
        wild_ = input_.was_wild();
        orvel_widget_draw(pair.actual.get());
        if (wild_) return;
        for (const Call& call : orvel_test::widget_calls(pair.expected, theme_)) perform(call);
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

    /// The call on the model.
    void perform(const Call& call) {
        const std::vector<int>& n = call.numbers;
        const orvel_color c = call.color;
        switch (call.function) {
        case Call::kFill: return model::fill_rect(model_, n[0], n[1], n[2], n[3], c);
        case Call::kFrame: return model::rect(model_, n[0], n[1], n[2], n[3], c);
        case Call::kLine: return model::line(model_, n[0], n[1], n[2], n[3], c);
        case Call::kRing: return model::circle(model_, n[0], n[1], n[2], c);
        case Call::kDisc: return model::fill_circle(model_, n[0], n[1], n[2], c);
        case Call::kTriangle:
            return model::fill_triangle(model_, n[0], n[1], n[2], n[3], n[4], n[5], c);
        case Call::kWrite: return model::text_draw(model_, call.text, n[0], n[1], c);
        case Call::kIcon: {
            orvel_color background = model::pixel_get(model_, n[0], n[1]);
            if (background.a == 0) background = {0, 0, 0, 255};
            return draw_icon(call.text, n[0], n[1], n[2], {c, c, background});
        }
        case Call::kBitmap: return draw_bitmap(call.text, n[0], n[1]);
        }
    }

    void draw_icon(const std::string& name, int x, int y, int size,
                   const orvel_test::IconColors& colors) {
        if (size < 1) return;
        if (!orvel_icon_exists(name.c_str())) {
            return model::rect(model_, x, y, size, size, colors.c);
        }
        on_a_canvas([&](orvel_canvas* canvas) { icons_.draw(canvas, name, x, y, size, colors); });
    }

    void draw_bitmap(const std::string& name, int x, int y) {
        const bool complete = name.find('.') != std::string::npos;
        const std::string file = resources_.get("Icons/" + name + (complete ? "" : ".bmp"));
        const orvel_test::BitmapModel bitmap(file);
        on_a_canvas([&](orvel_canvas* canvas) { bitmap.draw(canvas, x, y); });
    }

    /// For models that draw on a canvas of the library's.
    template <typename Draw>
    void on_a_canvas(Draw draw) {
        orvel_canvas* const canvas = orvel_canvas_create(kWidth, kHeight);
        std::copy_n(model_.pixels(), kWidth * kHeight, canvas->pixels.get());
        draw(canvas);
        std::copy_n(canvas->pixels.get(), kWidth * kHeight, model_.pixels());
        orvel_canvas_destroy(canvas);
    }

    void adopt() { std::copy_n(canvas_->pixels.get(), kWidth * kHeight, model_.pixels()); }

    fuzz::Input input_;
    const fuzz::Resources& resources_;
    const orvel_test::IconModel& icons_;
    orvel_canvas* const canvas_ = orvel_canvas_create(kWidth, kHeight);
    model::Canvas model_{kWidth, kHeight};
    orvel_theme theme_;
    bool wild_ = false;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::Resources resources;
    static const orvel_test::IconModel icons;
    resources.put("Icons/image.bmp", "");
    Screen(fuzz::Input(data, size), resources, icons).run();
    return 0;
}
