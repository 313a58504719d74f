// What time does: a stepper that is held repeats, and a tooltip shows.
#include <algorithm>

#include "screen/turn.h"
#include "screen/typing.h"

namespace kit {
namespace {

constexpr Clock kMostPassed = Clock{1} << 40;  // of the host's milliseconds between two events
constexpr Clock kLast = Clock{1} << 62;
constexpr Clock kRepeat = 60;

}  // namespace

Clock elapsed(const Live& live, long long now) {
    if (!live.began || now <= live.told) return 0;
    return std::min(static_cast<Clock>(now) - static_cast<Clock>(live.told), kMostPassed);
}

Clock due(const Live& live) {
    const bool rests = live.tip.tag != 0 && !live.tip.spent && live.held.tag == 0;
    Clock first = kNever;
    if (rests && !live.tip_shows()) first = live.tip.since + kTipRest;
    if (live.held.tag != 0 && live.held.over) first = std::min(first, live.held.next);
    return first;
}

void pass_time(Turn& turn, long long now) {
    Live& live = turn.live;
    live.clock = std::min(live.clock + elapsed(live, now), kLast);
    live.told = live.began ? std::max(live.told, now) : now;
    live.began = true;
    Held& held = live.held;
    if (held.tag == 0 || !held.over || live.clock < held.next) return;
    const int i = find_node(turn.nodes(), held.tag);
    const Clock times = 1 + (live.clock - held.next) / kRepeat;
    held.next += times * kRepeat;
    if (i >= 0) {
        const auto steps = static_cast<long long>(std::min<Clock>(times, 1000000));
        const Node& node = at(turn.nodes(), i);
        if (node.is_field()) return drag_on(turn, node, steps);
        move_by(turn, node, held.part * steps);
    }
}

void plan_repeat(Turn& turn) {
    Held& held = turn.live.held;
    const int i = find_node(turn.nodes(), held.tag);
    if (i < 0) return;
    const Node& node = at(turn.nodes(), i);
    const bool repeats = node.is_field() || node.is_widget(ORVEL_WIDGET_STEPPER);
    if (!repeats || held.part == 0) return;
    const bool further = node.is_field() ? drags_on(turn, node) : moves(node, held.part);
    if (!further) {
        held.next = kNever;
    } else if (held.next == kNever) {  // it has just come there, or the host has made room
        held.next = turn.live.clock + kRepeat;
    }
}

}  // namespace kit
