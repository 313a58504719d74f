#include "view/events.h"

#include <cmath>
#include <cstddef>

namespace orvel_tools {
namespace {

struct Known {
    SDL_Keycode from;
    int key;
    bool numbers = false;  // with the number pad's lock it gives a digit
};

constexpr Known kKeys[] = {
    {SDLK_RETURN, KIT_KEY_ENTER},
    {SDLK_KP_ENTER, KIT_KEY_ENTER},
    {SDLK_TAB, KIT_KEY_TAB},
    {SDLK_ESCAPE, KIT_KEY_ESCAPE},
    {SDLK_BACKSPACE, KIT_KEY_BACKSPACE},
    {SDLK_DELETE, KIT_KEY_DELETE},
    {SDLK_LEFT, KIT_KEY_LEFT},
    {SDLK_RIGHT, KIT_KEY_RIGHT},
    {SDLK_UP, KIT_KEY_UP},
    {SDLK_DOWN, KIT_KEY_DOWN},
    {SDLK_HOME, KIT_KEY_HOME},
    {SDLK_END, KIT_KEY_END},
    {SDLK_PAGEUP, KIT_KEY_PAGE_UP},
    {SDLK_PAGEDOWN, KIT_KEY_PAGE_DOWN},
    {SDLK_KP_4, KIT_KEY_LEFT, true},
    {SDLK_KP_6, KIT_KEY_RIGHT, true},
    {SDLK_KP_8, KIT_KEY_UP, true},
    {SDLK_KP_2, KIT_KEY_DOWN, true},
    {SDLK_KP_7, KIT_KEY_HOME, true},
    {SDLK_KP_1, KIT_KEY_END, true},
    {SDLK_KP_9, KIT_KEY_PAGE_UP, true},
    {SDLK_KP_3, KIT_KEY_PAGE_DOWN, true},
    {SDLK_KP_PERIOD, KIT_KEY_DELETE, true},
};

/// 0 where a key has no meaning for screens.
int key_of(const SDL_Keysym& pressed) {
    for (const Known& known : kKeys) {
        if (pressed.sym != known.from) continue;
        return known.numbers && (pressed.mod & KMOD_NUM) ? 0 : known.key;
    }
    if (pressed.sym >= SDLK_F1 && pressed.sym <= SDLK_F12) {
        return KIT_KEY_F1 + (pressed.sym - SDLK_F1);
    }
    const bool character = !(pressed.sym & SDLK_SCANCODE_MASK) && pressed.sym >= ' ';
    return character ? pressed.sym : 0;
}

unsigned modifiers_of(unsigned held) {
#ifdef __APPLE__
    constexpr unsigned kControl = KMOD_CTRL | KMOD_GUI;
#else
    constexpr unsigned kControl = KMOD_CTRL;
#endif
    unsigned modifiers = 0;
    if (held & KMOD_SHIFT) modifiers |= KIT_MOD_SHIFT;
    if (held & KMOD_MODE) return modifiers;  // AltGr, which chooses characters
    if (held & kControl) modifiers |= KIT_MOD_CONTROL;
    if (held & KMOD_ALT) modifiers |= KIT_MOD_ALT;
    return modifiers;
}

/// The length in bytes of the first @p count characters.
int bytes_of(const std::string& text, int count) {
    std::size_t at = 0;
    while (count > 0 && at < text.size()) {
        do {
            ++at;
        } while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80);
        --count;
    }
    return static_cast<int>(at);
}

void place(const Window& window, int x, int y, SessionEvent& result) {
    result.input.x = x;
    result.input.y = y;
    window.pixel(result.input.x, result.input.y);
}

/// SDL2 counts from 1, and the middle button before the right one.
int button_of(int button) {
    return button == SDL_BUTTON_RIGHT ? 1 : button == SDL_BUTTON_MIDDLE ? 2 : button - 1;
}

void wheel(const SDL_MouseWheelEvent& wheel, const Window& window, SessionEvent& result) {
    constexpr float kNotch = 120;
    int x = 0, y = 0;
    SDL_GetMouseState(&x, &y);
    place(window, x, y, result);
    result.input.kind = KIT_EVENT_WHEEL;
    result.input.dx = static_cast<int>(std::lround(wheel.preciseX * kNotch));
    result.input.dy = static_cast<int>(std::lround(wheel.preciseY * kNotch));
}

bool pointer(const SDL_Event& event, const Window& window, SessionEvent& result) {
    const bool down = event.type == SDL_MOUSEBUTTONDOWN;
    if (event.type == SDL_MOUSEMOTION) {
        result.input.kind = KIT_EVENT_MOVE;
        place(window, event.motion.x, event.motion.y, result);
    } else if (event.type == SDL_MOUSEWHEEL) {
        wheel(event.wheel, window, result);
    } else {
        result.input.kind = down ? KIT_EVENT_PRESS : KIT_EVENT_RELEASE;
        result.input.button = button_of(event.button.button);
        if (down) result.input.modifiers = modifiers_of(SDL_GetModState());
        place(window, event.button.x, event.button.y, result);
    }
    return true;
}

bool keyboard(const SDL_Event& event, SessionEvent& result) {
    if (event.type == SDL_KEYDOWN) {
        result.input.kind = KIT_EVENT_KEY;
        result.input.key = key_of(event.key.keysym);
        result.input.modifiers = modifiers_of(event.key.keysym.mod);
        return result.input.key != 0;
    }
    const bool composed = event.type == SDL_TEXTEDITING;
    result.input.kind = composed ? KIT_EVENT_COMPOSE : KIT_EVENT_TEXT;
    result.text = composed ? event.edit.text : event.text.text;
    if (composed) result.input.caret = bytes_of(result.text, event.edit.start);
    return true;
}

bool window_event(const SDL_WindowEvent& event, SessionEvent& result) {
    switch (event.event) {
    case SDL_WINDOWEVENT_LEAVE: result.input.kind = KIT_EVENT_LEAVE; return true;
    case SDL_WINDOWEVENT_FOCUS_LOST: result.input.kind = KIT_EVENT_BLUR; return true;
    case SDL_WINDOWEVENT_FOCUS_GAINED: result.input.kind = KIT_EVENT_FOCUS; return true;
    default: return false;
    }
}

}  // namespace

bool translated(const SDL_Event& event, const Window& window, SessionEvent& result) {
    switch (event.type) {
    case SDL_MOUSEMOTION:
    case SDL_MOUSEWHEEL:
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP: return pointer(event, window, result);
    case SDL_KEYDOWN:
    case SDL_TEXTINPUT:
    case SDL_TEXTEDITING: return keyboard(event, result);
    case SDL_WINDOWEVENT: return window_event(event.window, result);
    default: return false;
    }
}

}  // namespace orvel_tools
