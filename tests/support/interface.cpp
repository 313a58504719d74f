#include "support/interface.h"

#include <stdexcept>
#include <tuple>
#include <type_traits>

namespace orvel_test {
namespace {

/// Deals out the objects and arguments by the types of the parameters, from left to right.
class Dealer {
public:
    Dealer(Stage& stage, const HostArguments& arguments) : stage_(stage), arguments_(arguments) {}

    template <typename Parameter>
    Parameter next() {
        using Object = std::remove_const_t<std::remove_pointer_t<Parameter>>;
        if constexpr (std::is_same_v<Parameter, int>) {
            return arguments_.ints[ints_++];
        } else if constexpr (std::is_same_v<Parameter, double>) {
            return arguments_.doubles[doubles_++];
        } else if constexpr (std::is_same_v<Parameter, const char*>) {
            return arguments_.texts[texts_++];
        } else if constexpr (std::is_same_v<Parameter, orvel_color>) {
            return stage_.colors[colors_++];
        } else if constexpr (std::is_same_v<Parameter, const double*>) {
            return stage_.data.data();
        } else if constexpr (std::is_same_v<Parameter, int*>) {
            return &count_;
        } else if constexpr (std::is_same_v<Object, orvel_canvas>) {
            return stage_.canvas;
        } else if constexpr (std::is_same_v<Object, orvel_widget>) {
            return stage_.widget;
        } else {
            static_assert(std::is_same_v<Object, orvel_theme>);
            return stage_.theme;
        }
    }

private:
    Stage& stage_;
    const HostArguments& arguments_;
    std::size_t ints_ = 0, doubles_ = 0, texts_ = 0, colors_ = 0;
    int count_ = 0;
};

Returned returned(int number) { return {.number = number}; }
Returned returned(orvel_color color) { return {.color = color}; }
Returned returned(orvel_canvas* canvas) { return {.canvas = canvas}; }
Returned returned(orvel_widget* widget) { return {.widget = widget}; }
Returned returned(const char*) { return {}; }
Returned returned(const char**) { return {}; }

template <typename Wanted, typename... Parameters>
constexpr std::size_t count_of() {
    return (std::size_t{0} + ... + std::size_t{std::is_same_v<Parameters, Wanted>});
}

template <typename Result, typename... Parameters>
HostFunction function(const char* name, Result (*address)(Parameters...), HostArguments usual) {
    const auto call = [address](Stage& stage, const HostArguments& arguments) -> Returned {
        [[maybe_unused]] Dealer dealer(stage, arguments);
        const std::tuple<Parameters...> dealt{dealer.next<Parameters>()...};
        if constexpr (std::is_void_v<Result>) {
            std::apply(address, dealt);
            return {};
        } else {
            return returned(std::apply(address, dealt));
        }
    };
    return {name,
            reinterpret_cast<void (*)()>(address),
            std::move(usual),
            count_of<int, Parameters...>(),
            count_of<double, Parameters...>(),
            count_of<const char*, Parameters...>(),
            call};
}

using Functions = std::vector<HostFunction>;

void add_core(Functions& all) {
    const auto add = [&all](const char* name, auto address, HostArguments usual = {}) {
        all.push_back(function(name, address, std::move(usual)));
    };
    add("orvel_init", orvel_init);
    add("orvel_version", orvel_version);
    add("orvel_shutdown", orvel_shutdown);
    add("orvel_set_resource_path", orvel_set_resource_path, {.texts = {"."}});
    add("orvel_theme_default", orvel_theme_default);
    add("orvel_theme_light", orvel_theme_light);
    add("orvel_theme_load", orvel_theme_load, {.texts = {"theme"}});
    add("orvel_theme_save", orvel_theme_save, {.texts = {"theme.json"}});
    add("orvel_play_sound", orvel_play_sound, {.texts = {"click"}});
    add("orvel_play_music", orvel_play_music, {.texts = {"track"}});
    add("orvel_stop_music", orvel_stop_music);
    add("orvel_play_tone", orvel_play_tone, {.ints = {10}, .doubles = {440.0}});
}

void add_canvas(Functions& all) {
    const auto add = [&all](const char* name, auto address, HostArguments usual = {}) {
        all.push_back(function(name, address, std::move(usual)));
    };
    add("orvel_canvas_create", orvel_canvas_create, {.ints = {20, 10}});
    add("orvel_canvas_destroy", orvel_canvas_destroy);
    add("orvel_canvas_width", orvel_canvas_width);
    add("orvel_canvas_height", orvel_canvas_height);
    add("orvel_canvas_clear", orvel_canvas_clear);
    add("orvel_canvas_pixel", orvel_canvas_pixel, {.ints = {3, 4}});
    add("orvel_canvas_pixel_get", orvel_canvas_pixel_get, {.ints = {3, 4}});
    add("orvel_canvas_line", orvel_canvas_line, {.ints = {3, 4, 20, 11}});
    add("orvel_canvas_rect", orvel_canvas_rect, {.ints = {3, 4, 12, 9}});
    add("orvel_canvas_fill_rect", orvel_canvas_fill_rect, {.ints = {3, 4, 12, 9}});
    add("orvel_canvas_circle", orvel_canvas_circle, {.ints = {12, 11, 7}});
    add("orvel_canvas_fill_circle", orvel_canvas_fill_circle, {.ints = {12, 11, 7}});
    add("orvel_canvas_fill_triangle", orvel_canvas_fill_triangle, {.ints = {3, 4, 20, 6, 9, 19}});
    add("orvel_canvas_save_bmp", orvel_canvas_save_bmp, {.texts = {"24.bmp"}});
    add("orvel_canvas_save_bmp_rgba", orvel_canvas_save_bmp_rgba, {.texts = {"32.bmp"}});
    add("orvel_text_width", orvel_text_width, {.texts = {"Orvel"}});
    add("orvel_text_draw", orvel_text_draw, {.ints = {2, 3}, .texts = {"Orvel"}});
    add("orvel_icon_list", orvel_icon_list);
    add("orvel_icon_exists", orvel_icon_exists, {.texts = {"home"}});
    add("orvel_icon_draw_bitmap", orvel_icon_draw_bitmap, {.ints = {2, 3}, .texts = {"dots"}});
    add("orvel_draw_icon", orvel_draw_icon, {.ints = {2, 3, 18}, .texts = {"home"}});
    add("orvel_draw_icon_ex", orvel_draw_icon_ex, {.ints = {2, 3, 18}, .texts = {"home"}});
}

void add_widgets(Functions& all) {
    const auto add = [&all](const char* name, auto address, HostArguments usual = {}) {
        all.push_back(function(name, address, std::move(usual)));
    };
    add("orvel_widget_window", orvel_widget_window, {.ints = {1, 2, 21, 19}, .texts = {"Ab"}});
    add("orvel_widget_panel", orvel_widget_panel, {.ints = {1, 2, 21, 19}});
    add("orvel_widget_label", orvel_widget_label, {.ints = {1, 2}, .texts = {"Ab"}});
    add("orvel_widget_button", orvel_widget_button, {.ints = {1, 2, 21, 19}, .texts = {"Ab"}});
    add("orvel_widget_toggle", orvel_widget_toggle, {.ints = {1, 2, 21, 11, 1}});
    add("orvel_widget_checkbox", orvel_widget_checkbox, {.ints = {1, 2, 1}, .texts = {"Ab"}});
    add("orvel_widget_slider", orvel_widget_slider, {.ints = {1, 2, 21}, .doubles = {0.3}});
    add("orvel_widget_progress", orvel_widget_progress, {.ints = {1, 2, 21, 9}, .doubles = {0.3}});
    add("orvel_widget_textbox", orvel_widget_textbox, {.ints = {1, 2, 21, 19}, .texts = {"Ab"}});
    add("orvel_widget_icon", orvel_widget_icon, {.ints = {1, 2, 19}, .texts = {"home"}});
    add("orvel_widget_image", orvel_widget_image, {.ints = {1, 2}, .texts = {"dots"}});
    add("orvel_widget_separator", orvel_widget_separator, {.ints = {1, 2, 21}});
    add("orvel_widget_card", orvel_widget_card, {.ints = {1, 2, 21, 19}});
    add("orvel_widget_radio", orvel_widget_radio, {.ints = {1, 2, 1}, .texts = {"Ab"}});
    add("orvel_widget_dropdown", orvel_widget_dropdown,
        {.ints = {1, 2, 21, 11, 1}, .texts = {"Ab"}});
    add("orvel_widget_spinner", orvel_widget_spinner, {.ints = {1, 2, 20}, .doubles = {0.3}});
    add("orvel_widget_rating", orvel_widget_rating, {.ints = {1, 2}, .doubles = {0.3}});
    add("orvel_widget_stepper", orvel_widget_stepper, {.ints = {1, 2, 22, 9, 5}});
    add("orvel_widget_tabs", orvel_widget_tabs, {.ints = {1, 2, 21, 11, 1}, .texts = {"A|b"}});
    add("orvel_widget_avatar", orvel_widget_avatar, {.ints = {1, 2, 20}, .texts = {"A"}});
    add("orvel_widget_badge", orvel_widget_badge, {.ints = {1, 2, 5}});
    add("orvel_widget_titlebar", orvel_widget_titlebar, {.ints = {1, 2, 21, 11}, .texts = {"A"}});
    add("orvel_widget_list_item", orvel_widget_list_item,
        {.ints = {1, 2, 21, 19, 1}, .texts = {"A", "mail"}});
    add("orvel_widget_menu", orvel_widget_menu, {.ints = {1, 2, 21, 11, 1}, .texts = {"A|b"}});
    add("orvel_widget_bars", orvel_widget_bars, {.ints = {1, 2, 21, 19}});
    add("orvel_widget_search", orvel_widget_search, {.ints = {1, 2, 21, 13}, .texts = {"A"}});
    add("orvel_widget_tooltip", orvel_widget_tooltip, {.ints = {1, 2}, .texts = {"Ab"}});
    add("orvel_widget_statusbar", orvel_widget_statusbar,
        {.ints = {1, 2, 21, 11}, .texts = {"Ab"}});
    add("orvel_widget_destroy", orvel_widget_destroy);
    add("orvel_widget_set_hover", orvel_widget_set_hover, {.ints = {1}});
    add("orvel_widget_set_active", orvel_widget_set_active, {.ints = {1}});
    add("orvel_widget_set_value", orvel_widget_set_value, {.doubles = {0.7}});
    add("orvel_widget_set_amount", orvel_widget_set_amount, {.ints = {1}});
    add("orvel_widget_set_data", orvel_widget_set_data, {.ints = {3}});
    add("orvel_widget_draw", orvel_widget_draw);
}

}  // namespace

const std::vector<HostFunction>& host_functions() {
    static const Functions functions = [] {
        Functions all;
        add_core(all);
        add_canvas(all);
        add_widgets(all);
        return all;
    }();
    return functions;
}

const HostFunction& host_function(const std::string& name) {
    for (const HostFunction& function : host_functions()) {
        if (function.name == name) return function;
    }
    throw std::runtime_error("no function " + name);
}

}  // namespace orvel_test
