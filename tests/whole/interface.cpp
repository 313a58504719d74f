#include "whole/interface.h"

#include <stdexcept>
#include "widgets/kinds.h"

namespace orvel_test {
namespace {

using Functions = std::vector<HostFunction>;

void add_core(Functions& all) {
    const auto add = [&all](const char* name, auto address, HostArguments usual = {}) {
        all.push_back(host_function(name, address, std::move(usual)));
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
        all.push_back(host_function(name, address, std::move(usual)));
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
        all.push_back(host_function(name, address, std::move(usual)));
    };
    for (const WidgetKind& kind : widget_kinds()) all.push_back(kind.constructor);
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
