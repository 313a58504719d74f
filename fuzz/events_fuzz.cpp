// Any bytes as events on a screen, which is told by what stands before the first zero byte: a
// scene, or a number, 0 and 1 for those of the storms, others for random ones. No finding of the
// sanitizers; after each event the screen is consistent, its times make sense, and what is drawn of
// the change is what is drawn anew.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>

#include "harness.h"
#include "input.h"
#include "orvel_screen.h"
#include "screen/random_screens.h"
#include "screen/stormy.h"

namespace {

using fuzz::require;

constexpr int kSide = 64, kMostEvents = 150;

struct DestroyCanvas {
    void operator()(orvel_canvas* canvas) const { orvel_canvas_destroy(canvas); }
};

struct CloseScreen {
    void operator()(kit_screen* screen) const { kit_screen_close(screen); }
};

using Screen = std::unique_ptr<kit_screen, CloseScreen>;

/// A screen, drawn twice: what changes after each event, and all of it anew.
class Drawn {
public:
    Drawn(Screen screen, bool is_known) : screen_(std::move(screen)), is_known_(is_known) {
        resize();
    }

    kit_screen* screen() const { return screen_.get(); }
    int width() const { return changed_->width; }
    int height() const { return changed_->height; }

    void resize(int width, int height) {
        if (kit_screen_resize(screen(), width, height, nullptr, 0) == 0) resize();
    }

    void check() const {
        kit_box dirty = {};
        require(kit_screen_draw(screen(), changed_.get(), &dirty) == 0, "not drawn");
        require(kit_screen_draw(screen(), changed_.get(), &dirty) == 0 && dirty.w == 0,
                "drawn for nothing");
        kit_screen_expose(screen(), nullptr);
        require(kit_screen_draw(screen(), anew_.get(), nullptr) == 0, "not drawn anew");
        require(fuzz::shows(changed_.get(), anew_->pixels.get()), "drawn otherwise than anew");
        const char* const lines = kit_screen_describe(screen());
        require(lines != nullptr, "not described");
        if (!is_known_) return;  // what is called as a state would be taken for one
        const std::string wrong = orvel_test::inconsistency(without_texts(lines));
        require(wrong.empty(), wrong.c_str());
    }

private:
    void resize() {
        int width = 0, height = 0;
        kit_screen_size(screen(), &width, &height);
        changed_.reset(orvel_canvas_create(width, height));
        anew_.reset(orvel_canvas_create(width, height));
        kit_screen_expose(screen(), nullptr);
    }

    static std::string without_texts(const char* lines) {
        std::string rest;
        bool is_text = false;
        for (; *lines; ++lines) {
            if (*lines == '"') is_text = !is_text;
            if (!is_text) rest += *lines;
            if (is_text && *lines == '\\') ++lines;
        }
        return rest;
    }

    Screen screen_;
    bool is_known_;
    std::unique_ptr<orvel_canvas, DestroyCanvas> changed_, anew_;
};

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

void send(const Drawn& drawn, int kind, fuzz::Input& input, long long& now) {
    kit_screen_event event = {};
    event.kind = kind;
    event.x = input.byte() % (drawn.width() + 8) - 4;
    event.y = input.byte() % (drawn.height() + 8) - 4;
    if (event.kind == KIT_EVENT_WHEEL) event.dx = input.number(), event.dy = input.number();
    if (event.kind == KIT_EVENT_KEY) event.key = key(input);
    const int more = input.byte();
    event.modifiers = static_cast<unsigned>(more & 7);
    now += (more >> 3) * 40;
    const bool worded = event.kind >= KIT_EVENT_TEXT && event.kind <= KIT_EVENT_PASTE;
    const std::string text = worded ? input.text() : "";
    event.text = text.c_str();
    event.caret = event.kind == KIT_EVENT_COMPOSE ? input.number() : 0;
    require(kit_screen_send(drawn.screen(), &event, now) == 0, "not sent");
    require(kit_screen_wait(drawn.screen(), now) >= -1, "a wrong time");
}

/// Mostly an event, sometimes what only the host does.
void act(Drawn& drawn, orvel_test::RandomScreens& random, fuzz::Input& input, long long& now) {
    const int byte = input.byte();
    if (byte < 246) return send(drawn, byte % (KIT_EVENT_FOCUS + 1), input, now);
    if (byte < 248) {
        const int width = 1 + input.byte();
        return drawn.resize(width, 1 + input.byte());
    }
    std::string name, json;
    if (byte < 250) {
        random.change(name, json);
    } else {
        name = input.text();
        json = byte < 254 ? input.text() : "";
    }
    if (byte >= 254) kit_screen_focus(drawn.screen(), name.c_str());
    if (byte < 254) kit_screen_set(drawn.screen(), name.c_str(), json.c_str(), nullptr, 0);
}

Screen read(const std::string& scene, const std::string& data = "") {
    return Screen(kit_screen_read(scene.data(), scene.size(), "f",
                                  data.empty() ? nullptr : data.c_str(), nullptr, nullptr, 0));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::string told = input.c_string();
    const bool is_known =
        told.size() < 9 && told.find_first_not_of("0123456789") == std::string::npos;
    const unsigned long number = is_known && !told.empty() ? std::stoul(told) : 0;
    orvel_test::RandomScreens random(number);
    Screen screen;
    if (!is_known) {
        screen = read(told);
        if (!screen || kit_screen_resize(screen.get(), kSide, kSide, nullptr, 0) != 0) return 0;
    } else if (number < 2) {
        screen = read(number == 0 ? orvel_test::kEverything : orvel_test::kFields);
    } else {
        const std::string scene = random.scene();
        screen = read(scene, random.data());
    }
    require(screen != nullptr, "a known screen does not open");
    Drawn drawn(std::move(screen), is_known);
    drawn.check();
    long long now = 0;
    for (int i = 0; i < kMostEvents && !input.empty(); ++i) {
        act(drawn, random, input, now);
        drawn.check();
        if (i % 8 == 7) fetch(drawn.screen());
    }
    fetch(drawn.screen());
    return 0;
}
