// Any bytes as a scene, and behind a zero byte as events: no finding of the sanitizers; after each
// event the screen tells what it shows, its times make sense, and what is drawn of the change is
// what would be drawn anew.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "harness.h"
#include "input.h"
#include "orvel_screen.h"

namespace {

using fuzz::require;

constexpr int kWidth = 64, kHeight = 64, kMostEvents = 60;

std::vector<unsigned char> pixels(const orvel_canvas* canvas) {
    const kit_format format = {};
    std::vector<unsigned char> bytes(std::size_t{4} * kWidth * kHeight);
    require(kit_pixels(canvas, nullptr, &format, bytes.data(), bytes.size(), 0) == 0, "no pixels");
    return bytes;
}

int key(fuzz::Input& input) {
    const int byte = input.byte();
    if (byte < 128) return byte;
    return byte < 250 ? KIT_KEY_ENTER + byte % 26 : input.number();
}

void fetch(kit_screen* screen) {
    kit_change change = {};
    while (kit_screen_next(screen, &change) == 1) {
        require(change.kind >= KIT_CHANGE_VALUE && change.kind <= KIT_CHANGE_SOUND, "a wrong kind");
        require(change.id && change.name && std::strlen(change.value) > 0,
                "a change without words");
    }
}

void use(kit_screen* screen, fuzz::Input& input, orvel_canvas* canvas, orvel_canvas* anew) {
    long long now = 0;
    for (int i = 0; i < kMostEvents && !input.empty(); ++i) {
        kit_screen_event event = {};
        event.kind = input.byte() % (KIT_EVENT_FOCUS + 1);
        event.x = input.byte() % 72 - 4;
        event.y = input.byte() % 72 - 4;
        if (event.kind == KIT_EVENT_WHEEL) event.dx = input.number(), event.dy = input.number();
        if (event.kind == KIT_EVENT_KEY) event.key = key(input);
        const int more = input.byte();
        event.modifiers = static_cast<unsigned>(more & 7);
        now += (more >> 3) * 40;
        const bool worded = event.kind >= KIT_EVENT_TEXT && event.kind <= KIT_EVENT_PASTE;
        const std::string text = worded ? input.text() : "";
        event.text = text.c_str();
        event.caret = event.kind == KIT_EVENT_COMPOSE ? input.number() : 0;
        require(kit_screen_send(screen, &event, now) == 0, "not sent");
        require(kit_screen_wait(screen, now) >= -1, "a wrong time");
        kit_box dirty = {};
        require(kit_screen_draw(screen, canvas, &dirty) == 0, "not drawn");
        require(kit_screen_draw(screen, canvas, &dirty) == 0 && dirty.w == 0, "drawn for nothing");
        require(kit_screen_describe(screen) != nullptr, "not described");
        if (i % 8 == 7) fetch(screen);
    }
    kit_screen_expose(screen, nullptr);
    require(kit_screen_draw(screen, anew, nullptr) == 0, "not drawn anew");
    require(pixels(canvas) == pixels(anew), "drawn otherwise than anew");
    fetch(screen);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static orvel_canvas* const canvas = orvel_canvas_create(kWidth, kHeight);
    static orvel_canvas* const anew = orvel_canvas_create(kWidth, kHeight);
    fuzz::Input input(data, size);
    const std::string scene = input.c_string();
    char why[512] = "";
    kit_screen* const screen =
        kit_screen_read(scene.data(), scene.size(), "f", nullptr, nullptr, why, sizeof why);
    if (!screen) return 0;
    if (kit_screen_resize(screen, kWidth, kHeight, why, sizeof why) == 0) {
        require(kit_screen_draw(screen, canvas, nullptr) == 0, "not drawn at first");
        use(screen, input, canvas, anew);
    }
    kit_screen_close(screen);
    return 0;
}
