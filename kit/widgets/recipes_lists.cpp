// Captions side by side, and rows of a list.
#include <algorithm>
#include <string>

#include "widgets/painter.h"
#include "words/items.h"

namespace kit {

void Painter::items(orvel_widget* (*make)(orvel_canvas*, const orvel_theme*, const char*, int, int,
                                          int, int, int),
                    orvel_color chosen) {
    const int n = items_in(text);
    const int width = w / n;
    if (width < 1) return;  // nothing of them can be seen
    const std::string blanks(static_cast<std::size_t>(n) - 1, '|');
    library(make(canvas, &T, blanks.c_str(), x, y, w, h, widget.amount));
    std::string_view rest = text;
    for (int i = 0; i < n; ++i) {
        const kit_box item = {x + i * width, y, width, h};
        const bool selected = i == widget.amount;
        if (selected) ring(item, T.accent);
        const int margin = std::min(m.pad / 2, width / 8);
        write(next_item(&rest).c_str(), {item.x + margin, y, width - 2 * margin, h}, KIT_CENTRE,
              selected ? chosen : T.text);
    }
    if (widget.amount < 0 || widget.amount >= n) ring(all(), T.accent);
}

void Painter::tabs() { items(orvel_widget_tabs, T.accent); }

void Painter::menu() { items(orvel_widget_menu, T.text); }

void Painter::list_item() {
    library(orvel_widget_list_item(canvas, &T, "", "", x, y, w, h, active));
    ring(all(), T.accent);
    constexpr int kMarker = 10;
    int start = m.pad;
    if (widget.icon && *widget.icon) {
        const int side = std::min({m.icon, h - 4, w - 2 * m.pad - kMarker});
        icon(widget.icon, x + start, y + (h - side) / 2, side, T.accent);
        start += std::max(side, 0) + m.pad;
    }
    write(text, between(start, kMarker + m.pad), KIT_LEFT, T.text);
}

}  // namespace kit
