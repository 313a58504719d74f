// The calls of the library that may raise, with a status in place of the exception.
#include "orvel_kit.h"

namespace {

/// What @p call returns, or @p failure where it raises.
template <typename Result, typename Call>
Result guarded(Result failure, Call call) {
    try {
        return call();
    } catch (...) {  // bad_alloc, or a bitmap's length_error
        return failure;
    }
}

}  // namespace

const char* kit_version() { return KIT_VERSION; }

orvel_canvas* kit_canvas(int width, int height) {
    return guarded<orvel_canvas*>(nullptr, [=] { return orvel_canvas_create(width, height); });
}

int kit_bitmap(orvel_canvas* canvas, const char* name, int x, int y) {
    return guarded(-1, [=] { return orvel_icon_draw_bitmap(canvas, name, x, y); });
}

int kit_theme_load(orvel_theme* theme, const char* name) {
    return guarded(-1, [=] { return orvel_theme_load(theme, name); });
}

int kit_theme_save(const orvel_theme* theme, const char* name) {
    return guarded(-1, [=] { return orvel_theme_save(theme, name); });
}

int kit_save_bmp(const orvel_canvas* canvas, const char* path) {
    return guarded(-1, [=] { return orvel_canvas_save_bmp(canvas, path); });
}

int kit_save_bmp_rgba(const orvel_canvas* canvas, const char* path) {
    return guarded(-1, [=] { return orvel_canvas_save_bmp_rgba(canvas, path); });
}

int kit_resource_path(const char* path) {
    return guarded(-1, [=] { return orvel_set_resource_path(path); });
}

int kit_play_sound(const char* name) {
    return guarded(-1, [=] { return orvel_play_sound(name); });
}

int kit_play_music(const char* name) {
    return guarded(-1, [=] { return orvel_play_music(name); });
}

int kit_play_tone(double frequency_hz, int duration_ms) {
    return guarded(-1, [=] { return orvel_play_tone(frequency_hz, duration_ms); });
}
