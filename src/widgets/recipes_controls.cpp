// Kinds that show a state: controls, lists and charts. Later steps paint over earlier ones.
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "core/numbers.h"
#include "core/sine.h"
#include "widgets/painter.h"
#include "widgets/split.h"

namespace orvel {

void Painter::toggle() const {
    fill(x, y, w, h, active ? T.accent : T.border);  // track
    frame(x, y, w, h, T.border);
    const int r = (h - 4) / 2;
    const int left = (active ? x + w - h : x) + 2;
    disc(left + r, y + h / 2, r, T.background);  // knob
}

void Painter::checkbox() const {
    frame(x, y, 9, 9, T.border);
    if (active) {
        line(x + 1, y + 5, x + 4, y + 8, T.accent);
        line(x + 4, y + 8, x + 8, y + 1, T.accent);
    }
    write(text, x + 13, y + 1, T.text);
}

void Painter::radio() const {
    circle(x + 4, y + 4, 4, T.border);
    disc(x + 4, y + 4, 2, active ? T.accent : T.surface);
    write(text, x + 13, y + 1, T.text);
}

void Painter::slider() const {
    const int cy = y + h / 2;
    fill(x, cy - 1, w, 3, T.border);  // track
    const int f = trunc(value * w);
    if (f >= 1) fill(x, cy - 1, f, 3, T.accent);
    disc(x + std::min(w, f), cy, h / 2, hover ? T.button_hover : T.accent);  // knob
}

void Painter::progress() const {
    frame(x, y, w, h, T.border);
    const int f = trunc(value * w);
    if (f < 1) return;
    // Deliberate: when full, it covers the frame's right column too.
    fill(x + 1, y + 1, f - 1, h - 2, T.accent);
}

void Painter::dropdown() const {
    fill(x, y, w, h, T.surface);
    frame(x, y, w, h, active ? T.accent : T.border);
    write(text, x + 3, centred_row(), T.text);
    const int R = x + w;
    const int cy = y + h / 2;
    tri(R - 10, cy - 3, R - 4, cy - 3, R - 7, cy + 2, T.text);  // arrow
}

void Painter::spinner() const {
    const int cx = x + w / 2;
    const int cy = y + h / 2;
    const int r = w / 2 - 2;
    circle(cx, cy, r, T.border);
    const Offset dot = offset(value * 6.283185307179586, r);
    disc(cx + dot.x, cy + dot.y, r / 3 + 1, T.accent);
}

void Painter::rating() const {
    const int n = trunc(std::round(value * 5));
    for (int i = 0; i < 5; ++i) {
        const int bx = x + 10 * i;
        const orvel_color c = i < n ? T.accent : T.border;
        tri(bx + 2, y, bx + 4, y + 3, bx, y + 3, c);  // top
        fill(bx, y + 3, 5, 2, c);                     // arms
        fill(bx + 1, y + 5, 3, 2, c);                 // foot
    }
}

void Painter::stepper() const {
    frame(x, y, h, h, T.border);
    frame(x + w - h, y, h, h, T.border);
    const int s = h / 2;
    const int cy = y + h / 2;
    fill(x + s - 3, cy - 1, 7, 2, T.text);  // minus
    const int p = x + w - s;
    fill(p - 3, cy - 1, 7, 2, T.text);  // plus
    fill(p - 1, cy - 3, 2, 7, T.text);
    char n[16];
    std::snprintf(n, sizeof n, "%d", amount);
    write(n, x + h + (w - (tw(n) + 2 * h)) / 2, centred_row(), T.text);
}

void Painter::tabs() const {
    const std::vector<std::string> parts = split(text);
    const int n = static_cast<int>(parts.size());
    const int tab_w = w / n;
    for (int i = 0; i < n; ++i) {
        const int tx = x + i * tab_w;
        const char* const part = parts[static_cast<std::size_t>(i)].c_str();
        const bool selected = i == amount;
        if (selected) {
            fill(tx, y, tab_w, h, T.surface);
            fill(tx, y, tab_w, 2, T.accent);
        }
        // Deliberate: the frame covers the accent band's first row.
        frame(tx, y, tab_w, h, T.border);
        write(part, tx + (tab_w - tw(part)) / 2, centred_row(), selected ? T.accent : T.text);
    }
}

void Painter::menu() const {
    const std::vector<std::string> parts = split(text);
    const int n = static_cast<int>(parts.size());
    const int iw = w / n;
    for (int i = 0; i < n; ++i) {
        const int ix = x + i * iw;
        const char* const part = parts[static_cast<std::size_t>(i)].c_str();
        if (i == amount) {
            fill(ix, y, iw, h, T.button_hover);
            fill(ix, y + h - 2, iw, 2, T.accent);  // underline
        }
        write(part, ix + (iw - tw(part)) / 2, centred_row(), T.text);
    }
}

void Painter::list_item() const {
    fill(x, y, w, h, active ? T.button_hover : T.background);
    frame(x, y, w, h, active ? T.accent : T.border);
    int start = x + 4;
    if (*icon_name) {
        icon(icon_name, x + 3, y + (h - 16) / 2, 16, T.accent);
        start = x + 22;
    }
    write(text, start, centred_row(), T.text);
    // Deliberate: the marker is five pixels wide at its top, both corners being inside it.
    const int R = x + w;
    tri(R - 10, y + (h - 6) / 2, R - 6, y + (h - 6) / 2, R - 8, y + (h + 4) / 2, T.border);
}

void Painter::bars() const {
    if (data.empty()) return;  // Deliberate: without values not even the frame is drawn.
    const int n = static_cast<int>(data.size());
    const int bw = w / n;
    const int p = bw > 2 ? bw : 2;  // pitch; many values run past the right edge
    for (int i = 0; i < n; ++i) {
        const double v = clamp_to_unit(data[static_cast<std::size_t>(i)]);
        const int bh = std::max(trunc(v * (h - 2)), 0);
        fill(x + i * p, y + h - 2 - bh, p - 1, bh, T.accent);
    }
    frame(x, y, w, h, T.border);
}

}  // namespace orvel
