#include "live_scene.h"

#include <algorithm>
#include <array>
#include <utility>

namespace orvel_tools {

void LiveScene::replace(kit_screen* screen) {
    screen_ = screen;
    canvas_.reset();
}

void LiveScene::take_changes() {
    kit_change change = {};
    while (kit_screen_next(screen_, &change) == 1) heard_(change, now_);
}

bool LiveScene::send(const SessionEvent& event) {
    kit_screen_event input = event.input;
    input.text = event.text.c_str();
    const bool sent = kit_screen_send(screen_, &input, now_) == 0;
    take_changes();
    return sent;
}

void LiveScene::pass(long long now) {
    const SessionEvent nothing;
    for (;;) {
        const long long wait = kit_screen_wait(screen_, now_);
        if (wait < 0 || wait > now - now_) break;
        now_ += std::max(wait, 1LL);
        send(nothing);
    }
    now_ = std::max(now, now_);
}

bool LiveScene::apply(const SessionEvent& event, std::string& error) {
    std::array<char, 1024> why = {};
    bool done = true;
    pass(event.at);
    switch (event.kind) {
    case SessionEvent::kInput:
        done = send(event);
        error = "the memory is too small for the event";
        break;
    case SessionEvent::kSet:
        done = kit_screen_set(screen_, event.text.c_str(), event.json.c_str(), why.data(),
                              why.size()) == 0;
        error = why.data();
        break;
    case SessionEvent::kSize:
        done = kit_screen_resize(screen_, event.width, event.height, why.data(), why.size()) == 0;
        error = why.data();
        break;
    case SessionEvent::kPicture: break;
    }
    take_changes();
    return done;
}

const orvel_canvas* LiveScene::draw(kit_box& dirty, std::string& error) {
    int width = 0, height = 0;
    kit_screen_size(screen_, &width, &height);
    const bool fits = canvas_ && orvel_canvas_width(canvas_.get()) == width &&
                      orvel_canvas_height(canvas_.get()) == height;
    if (!fits) {
        canvas_ = canvas_for(screen_, error);
        if (!canvas_) return nullptr;
        kit_screen_expose(screen_, nullptr);
    }
    if (kit_screen_draw(screen_, canvas_.get(), &dirty) == 0) return canvas_.get();
    error = "the memory is too small for the picture";
    return nullptr;
}

}  // namespace orvel_tools
