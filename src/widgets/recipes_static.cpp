// Frames and kinds that only show something. Later steps paint over earlier ones.
#include <cstdio>

#include "widgets/painter.h"

namespace orvel {
namespace {

// The dots of the title bar, the same in every theme.
constexpr orvel_color kClose = {0xF3, 0x8B, 0xA8, 255};
constexpr orvel_color kMinimise = {0xF9, 0xE2, 0xAF, 255};
constexpr orvel_color kZoom = {0xA6, 0xE3, 0xA1, 255};

}  // namespace

void Painter::window() const {
    fill(x, y, w, h, T.surface);
    frame(x, y, w, h, T.border);
    fill(x, y, w, 12, T.accent);  // Deliberate: the title band has 12 rows, whatever h is.
    write(text, x + 4, y + 3, T.background);
}

void Painter::panel() const {
    fill(x, y, w, h, T.surface);
    frame(x, y, w, h, T.border);
}

void Painter::label() const { write(text, x, y, T.text); }

void Painter::button() const {
    fill(x, y, w, h, hover ? T.button_hover : T.button);
    frame(x, y, w, h, T.border);
    write(text, x + (w - tw(text)) / 2, centred_row(), T.button_text);
}

void Painter::textbox() const {
    fill(x, y, w, h, T.surface);
    // Deliberate: the text box reacts to hover; drop-down and search field react to active.
    frame(x, y, w, h, hover ? T.accent : T.border);
    write(text, x + 3, centred_row(), T.text);
}

void Painter::icon() const {
    const int s = w > 8 ? w - 2 : w;
    const int o = (w - s) / 2;  // margin
    icon(text, x + o, y + o, s, T.accent);
}

void Painter::image() const { bitmap(text, x, y); }

void Painter::separator() const {
    line(x, y, x + w, y, T.border);  // Deliberate: it ends one pixel past the width.
}

void Painter::card() const {
    fill(x, y, w, h, T.surface);
    frame(x, y, w, h, T.border);
    fill(x, y, 3, h, T.accent);  // stripe
}

void Painter::avatar() const {
    const int r = w / 2;
    const int cx = x + r;
    const int cy = y + r;
    disc(cx, cy, r, T.accent);
    circle(cx, cy, r, T.border);
    // Deliberate: placed for a single glyph; longer initials extend to the right.
    write(text, cx - 2, cy - 3, T.background);
}

void Painter::badge() const {
    char n[16];
    std::snprintf(n, sizeof n, "%d", amount);
    const int t = tw(n);
    disc(x + 5, y + h / 2, 5, T.accent);      // left cap
    fill(x + 4, y + 1, t, h - 2, T.accent);   // body
    disc(x + t + 3, y + h / 2, 5, T.accent);  // right cap
    write(n, x + 4, centred_row(), T.background);
}

void Painter::titlebar() const {
    fill(x, y, w, h, T.surface);
    frame(x, y, w, h, T.border);
    write(text, x + 3, centred_row(), T.text);
    const int cy = y + h / 2;
    const int R = x + w;
    disc(R - 20, cy, 3, kClose);
    disc(R - 12, cy, 3, kMinimise);
    disc(R - 4, cy, 3, kZoom);
}

void Painter::search() const {
    fill(x, y, w, h, T.surface);
    frame(x, y, w, h, active ? T.accent : T.border);
    icon("search", x + 2, y + 2, h - 4, T.border);
    write(text, x + h + 2, centred_row(), T.text);
}

void Painter::tooltip() const {
    fill(x, y, w, h - 2, T.surface);
    frame(x, y, w, h - 2, T.border);
    // Deliberate: the pointer has three rows, the last one below the widget's height.
    const int cx = x + w / 2;
    tri(cx - 3, y + h - 2, cx + 3, y + h - 2, cx, y + h, T.surface);
    write(text, x + 4, y + 2, T.text);
}

void Painter::statusbar() const {
    fill(x, y, w, h, T.surface);
    line(x, y, x + w, y, T.border);  // Deliberate: it ends one pixel past the width.
    write(text, x + 4, centred_row(), T.text);
}

}  // namespace orvel
