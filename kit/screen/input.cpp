// The interface of input: nothing that is raised below it gets out.
#include <algorithm>

#include "screen/turn.h"

namespace {

using namespace kit;

/// Far outside of every screen, and still good to count with.
int near(int place) { return std::clamp(place, -65536, 65536); }

void answer(Turn& turn, const kit_screen_event& event) {
    const int x = near(event.x), y = near(event.y);
    const bool of_key = event.kind == KIT_EVENT_TEXT || event.kind == KIT_EVENT_TIME;
    if (!of_key) turn.live.used = {};
    switch (event.kind) {
    case KIT_EVENT_MOVE: return point(turn, x, y);
    case KIT_EVENT_PRESS:
        return event.button == 0 ? press(turn, x, y, event.modifiers) : point(turn, x, y);
    case KIT_EVENT_RELEASE: return event.button == 0 ? release(turn, x, y) : point(turn, x, y);
    case KIT_EVENT_LEAVE: return leave(turn);
    case KIT_EVENT_WHEEL: return point(turn, x, y), wheel(turn, near(event.dx), near(event.dy));
    case KIT_EVENT_KEY: return press_key(turn, event.key, event.modifiers);
    case KIT_EVENT_TEXT: return type(turn, event.text ? event.text : "");
    case KIT_EVENT_COMPOSE: return compose(turn, event.text ? event.text : "", event.caret);
    case KIT_EVENT_PASTE: return paste(turn, event.text ? event.text : "");
    case KIT_EVENT_BLUR: return let_keyboard_go(turn);
    case KIT_EVENT_FOCUS: turn.live.away = false; return;
    default: return;  // time has passed, and that was all
    }
}

}  // namespace

int kit_screen_send(kit_screen* screen, const kit_screen_event* event, long long now_ms) {
    if (!screen || !event) return -1;
    if (event->kind < KIT_EVENT_TIME || event->kind > KIT_EVENT_FOCUS) return -1;
    return guarded(-1, nullptr, 0, [&] {
        Turn turn(*screen);
        pass_time(turn, now_ms);
        turn.settle();
        answer(turn, *event);
        turn.settle();
        plan_repeat(turn);
        turn.finish(*screen);
        return 0;
    });
}

int kit_screen_next(kit_screen* screen, kit_change* change) {
    if (!screen || !change) return -1;
    *change = {};
    change->id = change->name = "";
    change->value = "null";
    const Change* next = screen->changes.next();
    if (!next) return 0;
    change->kind = next->kind;
    change->id = next->id.c_str();
    change->name = next->name.c_str();
    change->value = next->value.c_str();
    return 1;
}

long long kit_screen_wait(const kit_screen* screen, long long now_ms) {
    const Clock first = screen ? due(screen->live) : kNever;
    if (first == kNever) return -1;
    const Clock now = screen->live.clock + elapsed(screen->live, now_ms);
    return first > now ? static_cast<long long>(first - now) : 0;
}

int kit_screen_focus(kit_screen* screen, const char* id) {
    if (!screen) return -1;
    return guarded(-1, nullptr, 0, [&] {
        Turn turn(*screen);
        const Nodes& nodes = turn.nodes();
        const bool any = id && *id;
        int i = any ? 0 : nodes.front().end;
        while (i < nodes.front().end && (at(nodes, i).id != id || !at(nodes, i).is_usable())) ++i;
        if (any && i == nodes.front().end) return -1;
        close_list(turn);
        focus(turn, any ? i : -1, any);
        turn.settle();
        turn.finish(*screen);
        return 0;
    });
}

int kit_screen_caret(const kit_screen* screen, kit_box* box) {
    const int i = screen && box ? find_node(screen->nodes, screen->live.focused) : -1;
    if (i < 0 || !at(screen->nodes, i).is_field()) return -1;
    const kit_widget widget = placed_widget(at(screen->nodes, i));
    kit_field(&widget, nullptr, box);
    return 0;
}

int kit_screen_pointer(const kit_screen* screen) {
    const int i = screen ? find_node(screen->nodes, screen->live.hovered) : -1;
    if (i < 0) return KIT_POINTER_ARROW;
    return at(screen->nodes, i).is_field() ? KIT_POINTER_TEXT : KIT_POINTER_HAND;
}
