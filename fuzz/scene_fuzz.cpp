// Any bytes as a scene and its data, taken apart at a zero byte: no finding of the sanitizers, a
// reason of one line; what opens is laid out, drawn, described and judged, and drawn again when the
// data change.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "harness.h"
#include "input.h"
#include "orvel_screen.h"

namespace {

using fuzz::require;

constexpr int kWidth = 64, kHeight = 48;

void look_at(kit_screen* screen, orvel_canvas* canvas) {
    kit_box dirty = {};
    require(kit_screen_draw(screen, canvas, &dirty) == 0, "not drawn");
    require(
        dirty.x >= 0 && dirty.y >= 0 && dirty.x + dirty.w <= kWidth && dirty.y + dirty.h <= kHeight,
        "drawn outside the canvas");
    require(kit_screen_draw(screen, canvas, &dirty) == 0 && dirty.w == 0, "drawn for nothing");
    const char* const lines = kit_screen_describe(screen);
    require(lines && *lines != '\0', "not described");
    require(kit_screen_report(screen) != nullptr, "not judged");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static orvel_canvas* const canvas = orvel_canvas_create(kWidth, kHeight);
    fuzz::Input input(data, size);
    const std::string scene = input.c_string(), values = input.c_string();
    const std::string name = input.c_string(), json = input.c_string();
    char why[512] = "";
    kit_screen* const screen =
        kit_screen_read(scene.data(), scene.size(), "f", values.empty() ? nullptr : values.c_str(),
                        nullptr, why, sizeof why);
    if (!screen) {
        require(std::strlen(why) > 0, "refused without a reason");
        require(!std::strpbrk(why, "\n\r"), "a reason of two lines");
        return 0;
    }
    if (kit_screen_resize(screen, kWidth, kHeight, why, sizeof why) == 0) {
        orvel_canvas_clear(canvas, {1, 2, 3, 255});
        look_at(screen, canvas);
        kit_screen_set(screen, name.c_str(), json.c_str(), why, sizeof why);
        look_at(screen, canvas);
    }
    kit_screen_close(screen);
    return 0;
}
