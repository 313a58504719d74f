// A scene that is alive: events go in at their times, changes and pictures come out.
#pragma once

#include <functional>

#include "scene_canvas.h"
#include "session.h"

namespace orvel_tools {

class LiveScene {
public:
    /// Called for each change, with the time at which it came.
    using Heard = std::function<void(const kit_change& change, long long at)>;

    /// The screen is borrowed.
    LiveScene(kit_screen* screen, Heard heard) : screen_(screen), heard_(std::move(heard)) {}

    kit_screen* screen() const { return screen_; }
    /// Another screen takes the place, at the same time; it is drawn anew.
    void replace(kit_screen* screen);

    /// Lets time pass: whatever happens by itself until then happens at its time.
    void pass(long long now);
    /// Milliseconds until something happens by itself; -1 when nothing does.
    long long wait(long long now) const { return kit_screen_wait(screen_, now); }

    /// Lets time pass to the event, and then it happens. False, and why, when it cannot.
    bool apply(const SessionEvent& event, std::string& error);

    /// Draws what changed since the last time, and says where. Null, and why, when it cannot.
    const orvel_canvas* draw(kit_box& dirty, std::string& error);

private:
    bool send(const SessionEvent& event);
    void take_changes();

    kit_screen* screen_;
    Heard heard_;
    long long now_ = 0;
    CanvasPtr canvas_;
};

}  // namespace orvel_tools
